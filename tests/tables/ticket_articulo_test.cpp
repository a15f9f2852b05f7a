// The ticket line's deviations: IMPNETO_A and IMPBRUTO_A go by their mixed-case
// columns; the six fields behind idLinea lie beyond NumCampos, SetValor by
// name keeps their old value, Update writes the two promotions without their
// opening quote, and their column definitions make the database refuse the
// table's creation.
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_ticket_articulo.h"

using namespace zaro_tablas;

namespace {

entticket_articulo Muestra() {
    entticket_articulo e;
    MuestraTicketArticulo(e);
    return e;
}

}  // namespace

TEST(TicketArticulo, TheNetAndGrossFieldsGoByTheirMixedCaseColumnsAndAnswerToBothSpellings) {
    entticket_articulo e = Muestra();
    EXPECT_EQ(e.GetNombreCampo(int16_t{9}), "ImpNeto_A");
    EXPECT_EQ(e.GetNombreCampo(int16_t{10}), "ImpBruto_A");
    EXPECT_EQ(e.GetValor("IMPNETO_A"), Variant(0.22));
    EXPECT_EQ(e.GetValor("ImpNeto_A"), Variant(0.22));
    e.SetValor("impbruto_a", Variant("5,5"));
    EXPECT_EQ(e.IMPBRUTO_A, 5.5);
}

TEST(TicketArticulo, SetValorOfCdPromocion2ChangesNothingAndRaisesNothingWhileSetValorIndice25StoresTheValue) {
    entticket_articulo e = Muestra();
    e.SetValor("CD_PROMOCION_2", Variant("NUEVA"));
    e.SetValor("cd_promocion_3", Variant("NUEVA"));
    EXPECT_EQ(e.CD_PROMOCION_2, "T25");
    EXPECT_EQ(e.CD_PROMOCION_3, "T26");
    e.SetValorIndice(int16_t{25}, Variant("NUEVA"));
    EXPECT_EQ(e.CD_PROMOCION_2, "NUEVA");
}

TEST(TicketArticulo, SetValorOfImpDescuento3AWith5LeavesTheFieldAsItWas) {
    entticket_articulo e = Muestra();
    e.SetValor("IMPDESCUENTO3_A", Variant(5));
    EXPECT_EQ(e.IMPDESCUENTO3_A, 3.24);
    e.SetValor("PORC_DESCUENTO2_A", Variant(5));
    e.SetValor("IMPDESCUENTO2_A", Variant(5));
    e.SetValor("PORC_DESCUENTO3_A", Variant(5));
    EXPECT_EQ(e.PORC_DESCUENTO2_A, 0.24);
    EXPECT_EQ(e.IMPDESCUENTO2_A, 1.24);
    EXPECT_EQ(e.PORC_DESCUENTO3_A, 2.24);
    for (int16_t i = 27; i <= 30; ++i) e.SetValorIndice(i, Variant(5));
    EXPECT_EQ(e.IMPDESCUENTO3_A, 5);
    EXPECT_EQ(e.PORC_DESCUENTO2_A, 5);
}

TEST(TicketArticulo, SetValorKeepsTheOwnValueThroughItsTextAndTheNumberRule) {
    entticket_articulo e;
    // The field's own text "1,5" passes the number rule and stays 1.5; an unknown name still raises.
    e.IMPDESCUENTO2_A = 1.5;
    e.SetValor("IMPDESCUENTO2_A", Variant::Null());
    EXPECT_EQ(e.IMPDESCUENTO2_A, 1.5);
    EXPECT_EQ(e.IMPNETO_A, 0);
}

TEST(TicketArticulo, TextExportOfALineHolds24ColumnsAndTheSecondAndThirdPromotionAreLost) {
    daticket_articulo da;
    colticket_articulo l;
    l.AddEntidad(std::make_shared<entticket_articulo>(Muestra()));
    std::string sep = ";";
    std::string texto = da.ExportarTexto(l, sep);
    EXPECT_EQ(std::count(texto.begin(), texto.end(), ';'), 24);
    auto e = da.ImportarTexto(texto, sep)->Item(1);
    EXPECT_EQ(e->idLinea, 124);
    EXPECT_EQ(e->CD_PROMOCION_2, "");
    EXPECT_EQ(e->IMPDESCUENTO3_A, 0);
}

TEST(TicketArticulo, ImportarTextoStoresUpTo30ColumnsAndIgnoresA31st) {
    daticket_articulo da;
    std::string sep = ";";
    std::string texto;
    for (int i = 1; i <= 24; ++i) texto += "1;";
    texto += "P2;P3;1;2;3;4;31";
    auto e = da.ImportarTexto(texto, sep)->Item(1);
    EXPECT_EQ(e->CD_PROMOCION_2, "P2");
    EXPECT_EQ(e->CD_PROMOCION_3, "P3");
    EXPECT_EQ(e->IMPDESCUENTO3_A, 4);
}

TEST(TicketArticulo, ItemClaveTakesTheKeyAlphabeticallySoTheKeyOrderComparesIdLineaWithTheRestaurant) {
    colticket_articulo l;
    auto e = l.Add(1, 2, 3, 4, 5);  // idEmpresa 1, idRestaurante 2, idTPV 3, idTicket 4, idLinea 5
    EXPECT_EQ(l.ItemClave(1, 5, 2, 4, 3), e);
    EXPECT_EQ(l.ItemClave(1, 2, 3, 4, 5), nullptr);
    auto otra = l.Add(1, 5, 3, 4, 2);
    EXPECT_EQ(l.ItemClave(1, 2, 3, 4, 5), nullptr) << "idLinea 2 against the restaurant 5: no such order";
    EXPECT_EQ(l.ItemClave(1, 2, 5, 4, 3), otra);
}

// On the database.

class TicketArticuloDb : public PorRoad {
protected:
    void SetUp() override {
        PorRoad::SetUp();
        da = Adapter<daticket_articulo>();
    }
    void TablaDelSitio() { cn->Execute(EsperadoTicketArticulo().TablaDelSitio.at(0)); }
    Variant Columna(const std::string& columna) { return Leer("select " + columna + " from ticket_articulo"); }
    std::shared_ptr<daticket_articulo> da;
};

INSTANTIATE_TEST_SUITE_P(Roads, TicketArticuloDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

TEST_P(TicketArticuloDb, TheDatabaseRefusesTheTablesCreationWithItsOwnError) {
    size_t marca = Marca();
    EXPECT_FALSE(da->CrearTabla());
    EXPECT_TRUE(ServidorRecibio(marca, EsperadoTicketArticulo().CrearTabla));
    // A type behind NULL: "Unknown data type".
    Error err = Capturar([&] { cn->Execute(EsperadoTicketArticulo().CrearTabla); });
    EXPECT_EQ(err.Number, 4161);
    EXPECT_FALSE(TablaExiste("ticket_articulo"));
}

TEST_P(TicketArticuloDb, CrearTablaOnAnEmptyTableDropsItAndTheRefusedStatementLeavesNoTable) {
    TablaDelSitio();
    size_t marca = Marca();
    EXPECT_FALSE(da->CrearTabla());
    EXPECT_TRUE(ServidorRecibio(marca, "drop table IF EXISTS ticket_articulo"));
    EXPECT_FALSE(TablaExiste("ticket_articulo"));
}

TEST_P(TicketArticuloDb, InsertWritesBothPromotionsCorrectly) {
    TablaDelSitio();
    entticket_articulo e = Muestra();
    da->Insert(e);
    EXPECT_EQ(Columna("CD_PROMOCION_2"), Variant("T25"));
    EXPECT_EQ(Columna("CD_PROMOCION_3"), Variant("T26"));
}

TEST_P(TicketArticuloDb, AnUpdateWithTwoNonEmptyPromotionsLeavesTheFirstBareAndTheDatabaseRefusesIt) {
    TablaDelSitio();
    entticket_articulo e = Muestra();
    da->Insert(e);
    e.CD_Promocion = "CAMBIO";
    size_t marca = Marca();
    Error err = Capturar([&] { da->Update(e); });
    EXPECT_EQ(err.Number, 1064);
    EXPECT_EQ(err.Source, "ticket_articuloUpdate");
    EXPECT_EQ(Log(*da).size(), 1u);
    std::vector<std::string> enviados = Enviados(marca);
    ASSERT_FALSE(enviados.empty());
    EXPECT_NE(enviados.back().find("   , CD_PROMOCION_2 = T25'   , CD_PROMOCION_3 = T26'   , "), std::string::npos);
    EXPECT_EQ(Columna("CD_Promocion"), Variant("T14"));
}

namespace {
entticket_articulo SinPromociones() {
    entticket_articulo e = Muestra();
    e.CD_PROMOCION_2 = "";
    e.CD_PROMOCION_3 = "";
    e.CD_Promocion = "CAMBIO";
    return e;
}
}  // namespace

TEST_P(TicketArticuloDb, AnUpdateWithBothPromotionsEmptyPairsTheUnmatchedQuotesIntoOneValueForThePromotion2) {
    TablaDelSitio();
    entticket_articulo e = Muestra();
    da->Insert(e);
    entticket_articulo cambio = SinPromociones();
    size_t marca = Marca();
    // The text between the quotes, 22 characters, is too long for the promotion's 15.
    Error err = Capturar([&] { da->Update(cambio); });
    EXPECT_EQ(err.Number, 1406);
    EXPECT_NE(err.Description.find("'CD_PROMOCION_2'"), std::string::npos);
    EXPECT_NE(Enviados(marca).back().find(
                  "   , CD_PROMOCION_2 = '   , CD_PROMOCION_3 = '   , PORC_DESCUENTO2_A = 0.24"),
              std::string::npos);
}

TEST_P(TicketArticuloDb, OnAWidePromotionColumnTheUpdateStoresTheTextBetweenTheQuotesAndLeavesThePromotion3) {
    TablaDelSitio();
    cn->Execute("ALTER TABLE ticket_articulo MODIFY CD_PROMOCION_2 VARCHAR(50) NULL");
    entticket_articulo e = Muestra();
    da->Insert(e);
    entticket_articulo cambio = SinPromociones();
    da->Update(cambio);
    EXPECT_EQ(Columna("CD_PROMOCION_2"), Variant("   , CD_PROMOCION_3 = "));
    EXPECT_EQ(Columna("CD_PROMOCION_3"), Variant("T26")) << "not assigned at all";
    EXPECT_EQ(Columna("CD_Promocion"), Variant("CAMBIO"));
}

TEST_P(TicketArticuloDb, ExisteDeleteAndEntidadTakeTheFiveKeyFields) {
    TablaDelSitio();
    entticket_articulo e = Muestra();
    da->Insert(e);
    EXPECT_TRUE(da->Existe(e));
    EXPECT_NE(da->Entidad(120, 121, 122, 123, 124), nullptr);
    EXPECT_EQ(da->Entidad(120, 121, 122, 123, 1), nullptr);
    da->Delete(120, 121, 122, 123, 124);
    EXPECT_FALSE(da->Existe(e));
}
