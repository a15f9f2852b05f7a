// The ticket table's deviations: only 24 of its 38 fields count for
// NumCampos, the index table reaches 39 with CODNACIONALIDAD at 25 and 38,
// idTPVTransaccion is converted without the number text rule, the database
// refuses the table's creation, and ToXML names " entticket".
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_ticket.h"

using namespace zaro_tablas;

namespace {

entticket Muestra() {
    entticket e;
    MuestraTicket(e);
    return e;
}

// A line of text cells 1 to n, cell i holding "c<i>", with no closing separator.
std::string Linea(int n) {
    std::string s;
    for (int i = 1; i <= n; ++i) s += (i > 1 ? ";c" : "c") + std::to_string(i);
    return s;
}

}  // namespace

TEST(Ticket, NumCamposIs24YetIndex25AnswersCodnacionalidadAnd39IdTPVTransaccion) {
    entticket e = Muestra();
    EXPECT_EQ(e.NumCampos(), 24);
    EXPECT_EQ(e.GetValorIndice(int16_t{25}), Variant("T25"));
    EXPECT_EQ(e.GetValorIndice(int16_t{39}), Variant(int32_t{138}));
    EXPECT_EQ(e.GetValorIndice(int16_t{40}), Variant("#ERROR#"));
    EXPECT_EQ(e.GetNombreCampo(int16_t{40}), "#ERROR#");
}

TEST(Ticket, Index38IsASecondEntryForCodnacionalidad) {
    entticket e = Muestra();
    EXPECT_EQ(e.GetNombreCampo(int16_t{38}), "CODNACIONALIDAD");
    EXPECT_EQ(e.GetValorIndice(int16_t{38}), e.GetValorIndice(int16_t{25}));
    EXPECT_EQ(e.GetNombreCampo(int16_t{37}), "PORC_DESCUENTO3_T");
    e.SetValorIndice(int16_t{38}, Variant("ESP"));
    EXPECT_EQ(e.CODNACIONALIDAD, "ESP");
}

TEST(Ticket, ATicketExportedAndImportedLosesTheFourteenFieldsBehindIdTicket) {
    daticket da;
    colticket l;
    auto m = l.AddEntidad(std::make_shared<entticket>(Muestra()));
    std::string sep = ";";
    std::string texto = da.ExportarTexto(l, sep);
    EXPECT_EQ(std::count(texto.begin(), texto.end(), ';'), 24);
    auto vuelta = da.ImportarTexto(texto, sep);
    auto e = vuelta->Item(1);
    EXPECT_EQ(e->idTicket, 124);
    EXPECT_EQ(e->CD_TICKET, 105);
    EXPECT_EQ(e->CODNACIONALIDAD, "");
    EXPECT_EQ(e->NUM_CHECKIN, "");
    EXPECT_EQ(e->PORC_DESCUENTO3_T, 0);
    EXPECT_EQ(e->idTPVTransaccion, 0);
}

TEST(Ticket, AnImportedLineOf38ColumnsStoresColumn25AndThenOverwritesItWithColumn38) {
    daticket da;
    std::string sep = ";";
    std::string texto = Linea(38);
    auto e = da.ImportarTexto(texto, sep)->Item(1);
    EXPECT_EQ(e->CODNACIONALIDAD, "c38");
    EXPECT_EQ(e->NUM_CHECKIN, "c33");
    EXPECT_EQ(e->idTPVTransaccion, 0);  // only a 39th column reaches it
}

TEST(Ticket, IdTPVTransaccionIsReachedOnlyByA39thColumnAndA40thIsIgnored) {
    daticket da;
    std::string sep = ";";
    std::string texto = Linea(38) + ";77;xx;";
    auto e = da.ImportarTexto(texto, sep)->Item(1);
    EXPECT_EQ(e->idTPVTransaccion, 77);
    EXPECT_EQ(e->CODNACIONALIDAD, "c38");
}

TEST(Ticket, AnEmpty39thCellFailsTheImportSinceIdTPVTransaccionIsConvertedStraight) {
    daticket da;
    std::string sep = ";";
    std::string texto = Linea(38) + ";";  // the closing separator leaves an empty 39th cell
    Error err = Capturar([&] { da.ImportarTexto(texto, sep); });
    EXPECT_EQ(err.Number, ErrNum::TypeMismatch);
    EXPECT_EQ(err.Source, "daticket");
}

TEST(Ticket, ToXmlHolds24ElementsTheLastBeingIdTicket) {
    entticket e = Muestra();
    auto el = e.ToXML();
    auto hijos = el->childNodes();
    ASSERT_EQ(hijos.size(), 24u);
    EXPECT_EQ(hijos.back()->nodeName(), "idTicket");
    EXPECT_EQ(hijos.back()->text(), "124");
}

TEST(Ticket, SetValorOfIdTPVTransaccionWithLettersFailsWhereAnotherIntegerFieldStores0) {
    entticket e = Muestra();
    Error err(0, "", "");
    try {
        e.SetValor("idTPVTransaccion", Variant("abc"));
        ADD_FAILURE() << "no error raised";
    } catch (const Error& x) {
        err = x;
    }
    EXPECT_EQ(err.Number, ErrNum::TypeMismatch);
    EXPECT_EQ(err.Source, "ticketIEntidad_SetValor");
    EXPECT_EQ(e.idTPVTransaccion, 138);
    e.SetValor("idTicket", Variant("abc"));
    EXPECT_EQ(e.idTicket, 0);
    Error err2 = Capturar([&] { e.SetValorIndice(int16_t{39}, Variant("abc")); });
    EXPECT_EQ(err2.Number, ErrNum::TypeMismatch);
    EXPECT_EQ(err2.Source, "ticketIEntidad_SetValorIndice");
}

TEST(Ticket, IdTPVTransaccionIsConvertedStraightWithoutTheNumberTextRule) {
    entticket e;
    // The number text rule drops the point of "1.5" and stores 15; the straight conversion rounds 1,5 to 2.
    e.SetValor("idTPVTransaccion", Variant("1,5"));
    EXPECT_EQ(e.idTPVTransaccion, 2);
    e.SetValor("idTicket", Variant("1.5"));
    EXPECT_EQ(e.idTicket, 15);
    e.SetValor("idTPVTransaccion", Variant(7.0));
    EXPECT_EQ(e.idTPVTransaccion, 7);
}

TEST(Ticket, CamposOkRequiresCdTicketAndFechaContableWhichAreNotInTheKey) {
    daticket da;
    entticket e = Muestra();
    e.CD_TICKET = 0;
    e.FECHA_CONTABLE = Date();
    std::string mensajes;
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes,
              "\r\n\r\n\tEl campo [CD_TICKET] es obligatorio.\r\n\tEl campo [FECHA_CONTABLE] es obligatorio.\r\n");
}

TEST(Ticket, AFailureOfToXmlNamesTheSourceEntticket) {
    entticket e;
    Error err = Capturar([&] { e.ToXML("no valido"); });
    EXPECT_EQ(err.Source, " entticket");
    entticket_pago otra;
    Error err2 = Capturar([&] { otra.ToXML("no valido"); });
    EXPECT_EQ(err2.Source, " entmaepai");
}

// On the database.

class TicketDb : public PorRoad {
protected:
    void SetUp() override {
        PorRoad::SetUp();
        da = Adapter<daticket>();
    }
    // The site's own table: the library's statement is refused.
    void TablaDelSitio() { cn->Execute(EsperadoTicket().TablaDelSitio.at(0)); }
    std::shared_ptr<daticket> da;
};

INSTANTIATE_TEST_SUITE_P(Roads, TicketDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

TEST_P(TicketDb, TheDatabaseRefusesTheTablesCreationWithItsOwnError) {
    size_t marca = Marca();
    EXPECT_FALSE(da->CrearTabla());
    EXPECT_TRUE(ServidorRecibio(marca, EsperadoTicket().CrearTabla));
    EXPECT_FALSE(TablaExiste("ticket"));
    Error err = Capturar([&] { cn->Execute(EsperadoTicket().CrearTabla); });
    EXPECT_EQ(err.Number, 1064);
}

TEST_P(TicketDb, CrearTablaOnAnEmptyTableDropsItAndTheRefusedStatementLeavesNoTable) {
    TablaDelSitio();
    size_t marca = Marca();
    EXPECT_FALSE(da->CrearTabla());
    EXPECT_TRUE(ServidorRecibio(marca, "drop table IF EXISTS ticket"));
    EXPECT_TRUE(ServidorRecibio(marca, EsperadoTicket().CrearTabla));
    EXPECT_FALSE(TablaExiste("ticket"));
}

TEST_P(TicketDb, CrearTablaOnATableWithRowsReturnsFalseAndSendsNothingButItsTwoReads) {
    TablaDelSitio();
    entticket e = Muestra();
    da->Insert(e);
    size_t marca = Marca();
    EXPECT_FALSE(da->CrearTabla());
    std::vector<std::string> enviados = Enviados(marca);
    ASSERT_EQ(enviados.size(), 2u);
    EXPECT_EQ(enviados[0], "SHOW TABLES LIKE 'ticket'");
    EXPECT_EQ(enviados[1], "select count(*) from ticket");
    EXPECT_EQ(Filas("ticket"), 1);
}

TEST_P(TicketDb, ListarLoadsAll38FieldsSinceTheSelectListHoldsThemAll) {
    TablaDelSitio();
    entticket e = Muestra();
    da->Insert(e);
    auto l = da->Listar();
    ASSERT_EQ(l->Count(), 1);
    auto leida = l->Item(1);
    EXPECT_EQ(leida->CODNACIONALIDAD, "T25");
    EXPECT_EQ(leida->NUM_CHECKIN, "T33");
    EXPECT_EQ(leida->PORC_DESCUENTO3_T, 1.25);
    EXPECT_EQ(leida->idTPVTransaccion, 138);
    EXPECT_TRUE(CamposDistintos(CasoDe("ticket"), *leida, e).empty());
}

TEST_P(TicketDb, ATicketWithCdTicket0FailsCamposOkSoGrabarDatosSkipsItYetInsertAloneAcceptsIt) {
    TablaDelSitio();
    colticket l;
    auto e = l.AddEntidad(std::make_shared<entticket>(Muestra()));
    e->CD_TICKET = 0;
    da->GrabarDatos(l);
    EXPECT_EQ(Filas("ticket"), 0);
    EXPECT_EQ(da->LogSQL, nullptr);
    da->Insert(*e);
    EXPECT_EQ(Filas("ticket"), 1);
}

TEST_P(TicketDb, AnUpdateOfAnEntityWithAChangedIdTicketTouchesTheRowOfTheNewKey) {
    TablaDelSitio();
    entticket a = Muestra();
    da->Insert(a);
    entticket b = Muestra();
    b.idTicket = 125;
    b.CD_TICKET = 1;
    da->Insert(b);
    entticket c = Muestra();
    c.idTicket = 125;
    c.CD_TICKET = 999;
    da->Update(c);
    const std::string update = Log(*da).back();
    EXPECT_EQ(update.substr(0, update.find(" where ")).find("idTicket"), std::string::npos)
        << "the key is not in the set list";
    EXPECT_EQ(da->Entidad(121, 122, 123, 124)->CD_TICKET, 105);
    EXPECT_EQ(da->Entidad(121, 122, 123, 125)->CD_TICKET, 999);
    EXPECT_EQ(Leer("select count(*) from ticket where CD_TICKET = 999"), Variant(int64_t{1}));
}
