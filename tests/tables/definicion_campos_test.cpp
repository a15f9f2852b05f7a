// The field definitions' deviations: the argument Campo of GetValor and
// SetValor hides the column of that name; the argument Tabla of Delete,
// Listar and rsListar stands where the adapter's table name would; the field
// Orden has the column orden.
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_articulo.h"
#include "expected_definicion_campos.h"

using namespace zaro_tablas;

namespace {

ent_definicion_campos Fila(const std::string& tabla, const std::string& campo, int32_t orden = 0) {
    ent_definicion_campos e;
    e.Tabla = tabla;
    e.Campo = campo;
    e.Orden = orden;
    return e;
}

}  // namespace

TEST(DefinicionCampos, GetValorOfCampoAnswersTheNameAsCalledWhileGetValorIndice2AnswersTheColumn) {
    ent_definicion_campos e = Fila("articulo", "CD_OP");
    EXPECT_EQ(e.GetValor("Campo"), Variant("Campo"));
    EXPECT_EQ(e.GetValor("cAMPO"), Variant("cAMPO"));
    EXPECT_EQ(e.GetValorIndice(int16_t{2}), Variant("CD_OP"));
    EXPECT_EQ(e.GetValor("Tabla"), Variant("articulo"));
}

TEST(DefinicionCampos, GetValorWithAnEmptyNameAnswersTheEmptyArgument) {
    ent_definicion_campos e = Fila("articulo", "CD_OP");
    EXPECT_EQ(e.GetValor(""), Variant(std::string()));
}

TEST(DefinicionCampos, SetValorOnCampoWritesTheNewValueIntoTheCallersArgumentAndLeavesTheColumn) {
    ent_definicion_campos e = Fila("articulo", "CD_OP");
    std::string nombre = "Campo";
    Variant valor(int32_t{42});
    e.SetValor(nombre, valor);
    EXPECT_EQ(nombre, "42");
    EXPECT_EQ(e.Campo, "CD_OP");
    e.SetValorIndice(int16_t{2}, Variant("CD_ARTICULO"));
    EXPECT_EQ(e.Campo, "CD_ARTICULO");
}

TEST(DefinicionCampos, TheFieldOrdenHasTheColumnOrdenAndAnswersToBothSpellings) {
    ent_definicion_campos e = Fila("articulo", "CD_OP", 3);
    EXPECT_EQ(e.GetNombreCampo(int16_t{5}), "orden");
    EXPECT_EQ(e.GetValor("Orden"), Variant(int32_t{3}));
    e.SetValor("ORDEN", Variant("4"));
    EXPECT_EQ(e.Orden, 4);
    EXPECT_NE(e.ToXML()->xml().find("<orden>4</orden>"), std::string::npos);
}

TEST(DefinicionCampos, CamposOkFailsOnAnEmptyTablaOrCampoThroughTheTypedFields) {
    da_definicion_campos da;
    ent_definicion_campos e = Fila("", "");
    std::string mensajes;
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes, "\r\n\r\n\tEl campo [Tabla] es obligatorio.\r\n\tEl campo [Campo] es obligatorio.\r\n");
    e.Tabla = "articulo";
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes, "\r\n\r\n\tEl campo [Campo] es obligatorio.\r\n");
}

TEST(DefinicionCampos, ItemClaveTakesTheFieldNameFirstAndComparesBothIgnoringCase) {
    col_definicion_campos l;
    auto e = l.Add("articulo", "CD_OP");
    EXPECT_EQ(l.ItemClave("cd_op", "ARTICULO"), e);
    EXPECT_EQ(l.ItemClave("articulo", "CD_OP"), nullptr);
}

TEST(DefinicionCampos, TheListQueriesSeeTheNameCampoAndNotTheColumn) {
    col_definicion_campos l;
    auto a = l.Add("articulo", "B");
    auto b = l.Add("articulo", "A");
    std::string campo = "Campo";
    auto ordenada = l.OrderBy(campo);
    EXPECT_EQ(ordenada->Item(1), a) << "all elements answer the same name: nothing moves";
    std::string valor = "Campo";
    EXPECT_EQ(l.Where(campo, valor)->Count(), 2);
    std::string b_valor = "A";
    EXPECT_EQ(l.Where(campo, b_valor)->Count(), 0);
    std::string tabla = "Tabla";
    EXPECT_EQ(l.Where(tabla, std::string("ARTICULO"))->Count(), 2);
    (void)b;
}

// On the database.

class DefinicionCamposDb : public PorRoad {
protected:
    void SetUp() override {
        PorRoad::SetUp();
        da = Adapter<da_definicion_campos>();
        ASSERT_TRUE(da->CrearTabla());
        for (auto e : {Fila("articulo", "CD_OP", 4), Fila("articulo", "CD_ARTICULO", 6),
                       Fila("_definicion_campos", "Tabla", 1), Fila("_definicion_campos", "Campo", 2)})
            da->Insert(e);
        da->LogSQL = nullptr;
    }
    std::shared_ptr<da_definicion_campos> da;
};

INSTANTIATE_TEST_SUITE_P(Roads, DefinicionCamposDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

TEST_P(DefinicionCamposDb, DeleteWithTheTablaArticuloSendsAStatementOnArticuloWhichTheDatabaseRefuses) {
    auto art = Adapter<daarticulo>();
    ASSERT_TRUE(art->CrearTabla());
    size_t marca = Marca();
    Error err = Capturar([&] { da->Delete("articulo", "CD_OP"); });
    const std::string enviado =
        "delete from articulo  where articulo.Tabla = 'articulo'   and articulo.Campo = 'CD_OP'  ";
    EXPECT_TRUE(ServidorRecibio(marca, enviado));
    EXPECT_EQ(err.Number, 1054);  // unknown column articulo.Tabla
    EXPECT_EQ(da->LogSQL, nullptr);
    EXPECT_EQ(Filas("_definicion_campos"), 4);
}

TEST_P(DefinicionCamposDb, DeleteWithTheTablaOfItsOwnTableDeletesOnlyTheRowWhoseTablaHoldsIt) {
    da->Delete("_definicion_campos", "Campo");
    EXPECT_EQ(Log(*da), std::vector<std::string>{"delete from _definicion_campos  where _definicion_campos.Tabla = "
                                                 "'_definicion_campos'   and _definicion_campos.Campo = 'Campo'  "});
    EXPECT_EQ(Filas("_definicion_campos"), 3);
    EXPECT_EQ(da->Entidad("_definicion_campos", "Campo"), nullptr);
    EXPECT_NE(da->Entidad("_definicion_campos", "Tabla"), nullptr);
}

TEST_P(DefinicionCamposDb, ListarWithTheTablaArticuloNamesATableTheSelectDoesNotReadAndTheDatabaseRefusesIt) {
    size_t marca = Marca();
    Error err = Capturar([&] { da->Listar("articulo"); });
    EXPECT_EQ(err.Number, 1054);
    EXPECT_EQ(err.Source, "da_definicion_campos");
    EXPECT_TRUE(ServidorRecibio(marca, EsperadoDefinicionCampos().SelectSQL + " where  articulo.Tabla = 'articulo' " +
                                           EsperadoDefinicionCampos().OrderBy));
    Error err2 = Capturar([&] { da->rsListar("articulo", "CD_OP"); });
    EXPECT_EQ(err2.Number, 1054);
}

TEST_P(DefinicionCamposDb, ListarWithTheTablaOfItsOwnTableListsTheRowsThatDescribeIt) {
    auto l = da->Listar("_definicion_campos");
    ASSERT_EQ(l->Count(), 2);
    EXPECT_EQ(l->Item(1)->Campo, "Campo");
    EXPECT_EQ(l->Item(2)->Campo, "Tabla");
    auto rs = da->rsListar("_definicion_campos", "Tabla");
    EXPECT_EQ(rs->Fields().Item("orden").Value(), Variant(int32_t{1}));
    rs->Close();
}

TEST_P(DefinicionCamposDb, ListarWithBothArgumentsEmptyReturnsAllRowsOrderedByTablaAndCampo) {
    auto l = da->Listar();
    ASSERT_EQ(l->Count(), 4);
    EXPECT_EQ(Log(*da).back(), EsperadoDefinicionCampos().SelectSQL + " " + EsperadoDefinicionCampos().OrderBy);
    // In the database's own order of the two columns (its collation places "_" against the letters).
    auto rs = cn->Execute("select Tabla, Campo from _definicion_campos order by Tabla, Campo");
    for (int32_t i = 1; i <= 4; ++i, rs->MoveNext()) {
        EXPECT_EQ(Variant(l->Item(i)->Tabla), rs->Fields().Item("Tabla").Value()) << i;
        EXPECT_EQ(Variant(l->Item(i)->Campo), rs->Fields().Item("Campo").Value()) << i;
    }
    rs->Close();
}

TEST_P(DefinicionCamposDb, ListarWithAnEmptyTablaPrefixesTheConditionOnCampoWithABarePointWhichTheDatabaseRefuses) {
    size_t marca = Marca();
    Error err = Capturar([&] { da->Listar("", "CD_OP"); });
    EXPECT_EQ(err.Number, 1064);
    EXPECT_EQ(err.Source, "da_definicion_campos");
    EXPECT_TRUE(ServidorRecibio(marca, EsperadoDefinicionCampos().SelectSQL + " where  .Campo = 'CD_OP' " +
                                           EsperadoDefinicionCampos().OrderBy));
}

TEST_P(DefinicionCamposDb, EntidadWithTheTablaArticuloReadsTheRowOfAnotherTablesField) {
    auto e = da->Entidad("articulo", "CD_OP");
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->Orden, 4);
    EXPECT_EQ(Log(*da).back(), EsperadoDefinicionCampos().SelectSQL +
                                   " where _definicion_campos.Tabla = 'articulo'   and _definicion_campos.Campo = "
                                   "'CD_OP'   " + EsperadoDefinicionCampos().OrderBy);
}
