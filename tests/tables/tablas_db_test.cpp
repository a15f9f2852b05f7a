// What every table inherits from the adapter template, on a real MariaDB:
// one test body over the ten tables and both roads (the embedded database and
// a server). The statements of the sample entity are asserted blank for blank
// against expected_<tabla>.h: from LogSQL where the adapter logs them, from
// the server's general query log otherwise (that log drops trailing blanks).
#include <gtest/gtest.h>

#include <algorithm>

#include "base_db.h"

using namespace zaro_tablas;
using zaro_test::Road;

namespace {

using Param = std::tuple<const CasoTabla*, Road>;

std::string NombreDeParam(const ::testing::TestParamInfo<Param>& info) {
    std::string n = std::get<0>(info.param)->esp.Tabla;
    if (n[0] == '_') n = n.substr(1);
    return n + "_" + std::get<1>(info.param).name;
}

class TablasDb : public ::testing::TestWithParam<Param>, public BaseDb {
protected:
    const CasoTabla& caso = *std::get<0>(GetParam());
    const Esperado& esp = caso.esp;

    void SetUp() override {
        Abrir(std::get<1>(GetParam()));
        da = caso.NuevoAdapter();
        da->Conexion = cn;
    }

    void PrepararTabla() { BaseDb::PrepararTabla(caso, *da); }
    int32_t Filas() { return BaseDb::Filas(esp.Tabla); }
    const CampoDef& Campo(const std::string& nombre) {
        return caso.Def().Campos[static_cast<size_t>(caso.Def().Buscar(nombre))];
    }

    std::shared_ptr<AdapterBase> da;
};

// The tables whose sample the database takes in an Update (the ticket line's sample, with two
// promotions, gives a statement it refuses; its own tests cover that table's Update).
class TablasDbUpdate : public TablasDb {};

std::vector<const CasoTabla*> ConUpdateAceptado() {
    std::vector<const CasoTabla*> r;
    for (const CasoTabla* c : Casos())
        if (c->esp.ErrorUpdate == 0) r.push_back(c);
    return r;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Todas, TablasDb,
                         ::testing::Combine(::testing::ValuesIn(Casos()), ::testing::ValuesIn(zaro_test::AllRoads())),
                         NombreDeParam);
INSTANTIATE_TEST_SUITE_P(Todas, TablasDbUpdate,
                         ::testing::Combine(::testing::ValuesIn(ConUpdateAceptado()),
                                            ::testing::ValuesIn(zaro_test::AllRoads())),
                         NombreDeParam);

TEST_P(TablasDb, CrearTablaSendsTheTablesStatementAndCreatesWhatTheDatabaseAccepts) {
    size_t marca = Marca();
    EXPECT_EQ(da->CrearTabla(), esp.CrearTablaCrea);
    EXPECT_TRUE(ServidorRecibio(marca, esp.CrearTabla));
    EXPECT_TRUE(ServidorRecibio(marca, "SHOW TABLES LIKE '" + esp.Tabla + "'"));
    EXPECT_EQ(TablaExiste(esp.Tabla), esp.CrearTablaCrea);
    EXPECT_EQ(da->LogSQL, nullptr);
}

TEST_P(TablasDb, InsertSendsTheSampleAfterItsExistenceCheckAndLogsIt) {
    PrepararTabla();
    auto m = caso.Muestra();
    size_t marca = Marca();
    caso.Insert(*da, *m);
    EXPECT_EQ(Log(*da), std::vector<std::string>{esp.Insert});
    EXPECT_TRUE(ServidorRecibio(marca, esp.Existe));
    EXPECT_TRUE(ServidorRecibio(marca, esp.Insert));
    EXPECT_EQ(Filas(), 1);
}

TEST_P(TablasDb, ExisteSendsTheKeyConditionAndLogsNothing) {
    PrepararTabla();
    auto m = caso.Muestra();
    size_t marca = Marca();
    EXPECT_FALSE(caso.Existe(*da, *m));
    EXPECT_TRUE(ServidorRecibio(marca, esp.Existe));
    caso.Insert(*da, *m);
    EXPECT_TRUE(caso.Existe(*da, *m));
    EXPECT_EQ(Log(*da).size(), 1u);
}

TEST_P(TablasDb, UpdateSendsTheSetListOfTheTable) {
    PrepararTabla();
    auto m = caso.Muestra();
    caso.Insert(*da, *m);
    size_t marca = Marca();
    if (esp.ErrorUpdate == 0) {
        caso.Update(*da, *m);
        EXPECT_EQ(Log(*da).back(), esp.Update);
    } else {
        // The database refuses the statement with its own error, under the Update source; nothing is logged.
        Error err = Capturar([&] { caso.Update(*da, *m); });
        EXPECT_EQ(err.Number, esp.ErrorUpdate);
        EXPECT_EQ(err.Source, esp.Fuentes[1]);
        EXPECT_EQ(Log(*da).size(), 1u);
    }
    EXPECT_TRUE(ServidorRecibio(marca, esp.Update));
}

TEST_P(TablasDbUpdate, UpdateWritesEveryFieldOfTheSetListIntoTheRowOfTheKey) {
    PrepararTabla();
    caso.Insert(*da, *caso.SoloClave());
    auto m = caso.Muestra();
    caso.Update(*da, *m);
    auto leida = caso.Entidad(*da, *m);
    ASSERT_NE(leida, nullptr);
    EXPECT_EQ(CamposDistintos(caso, *leida, *m), esp.NoLeidos);
}

TEST_P(TablasDbUpdate, UpdateOfAKeyThatIsNotThereChangesNothingAndRaisesNothing) {
    PrepararTabla();
    caso.Update(*da, *caso.Muestra());
    EXPECT_EQ(Filas(), 0);
    EXPECT_EQ(Log(*da), std::vector<std::string>{esp.Update});
}

TEST_P(TablasDb, UpdateRefusedByTheDatabaseRaisesItsErrorWithTheUpdateSource) {
    // No table at all (an entity whose statement the parser accepts in every table).
    Error err = Capturar([&] { caso.Update(*da, *caso.SoloClave()); });
    EXPECT_EQ(err.Number, 1146);
    EXPECT_EQ(err.Source, esp.Fuentes[1]);
    EXPECT_EQ(da->LogSQL, nullptr);
}

TEST_P(TablasDb, DeleteSendsTheKeyConditionLogsItAndRemovesTheRow) {
    PrepararTabla();
    auto m = caso.Muestra();
    caso.Insert(*da, *m);
    size_t marca = Marca();
    caso.Delete(*da, *m);
    EXPECT_EQ(Log(*da).back(), esp.Delete);
    EXPECT_TRUE(ServidorRecibio(marca, esp.Delete));
    EXPECT_EQ(Filas(), 0);
    caso.Delete(*da, *m);  // a key that is not there: logged, no error
    EXPECT_EQ(Log(*da).size(), 3u);
}

TEST_P(TablasDb, AnEntityInsertedAndReadBackByEntidadHasEqualFields) {
    PrepararTabla();
    auto m = caso.Muestra();
    caso.Insert(*da, *m);
    auto leida = caso.Entidad(*da, *m);
    ASSERT_NE(leida, nullptr);
    EXPECT_EQ(Log(*da).back(), esp.Entidad);
    // Only the fields that the select list does not hold come back at 0.
    EXPECT_EQ(CamposDistintos(caso, *leida, *m), esp.NoLeidos);
    for (const std::string& n : esp.NoLeidos) EXPECT_EQ(detail::LeerMiembro(*leida, Campo(n)), Variant(int32_t{0})) << n;
}

TEST_P(TablasDb, EntidadOfAKeyThatIsNotThereIsNoObjectAndItsQueryIsLogged) {
    PrepararTabla();
    EXPECT_EQ(caso.Entidad(*da, *caso.Muestra()), nullptr);
    EXPECT_EQ(Log(*da), std::vector<std::string>{esp.Entidad});
}

TEST_P(TablasDb, ListarWithTheKeyAndWithNoArgumentFindsTheRow) {
    PrepararTabla();
    auto m = caso.Muestra();
    caso.Insert(*da, *m);
    caso.Insert(*da, *caso.NuevaEntidad());
    auto una = caso.Listar(*da, *m);
    ASSERT_EQ(caso.Count(*una), 1);
    EXPECT_EQ(CamposDistintos(caso, *caso.Item(*una, 1), *m), esp.NoLeidos);
    auto todas = caso.ListarTodo(*da);
    EXPECT_EQ(caso.Count(*todas), 2);
    EXPECT_EQ(Log(*da).back(), esp.SelectSQL + " " + esp.OrderBy);
    auto rs = caso.rsListar(*da, *m);
    EXPECT_FALSE(rs->EOF_());
    rs->Close();
}

TEST_P(TablasDb, ASecondInsertOfTheKeyRaisesWithTheKeyLinesAndWritesNothing) {
    PrepararTabla();
    auto m = caso.Muestra();
    caso.Insert(*da, *m);
    std::string texto = "El registro ya existe.\r\n\r\n";
    for (const std::string& k : esp.Clave)
        texto += "\t" + std::string(Campo(k).Nombre) + " = " + CStr(detail::LeerMiembro(*m, Campo(k))) + "\r\n";
    texto += "  ";
    Error err = Capturar([&] { caso.Insert(*da, *caso.Muestra()); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, esp.Fuentes[0]);
    EXPECT_EQ(err.Description, texto);
    EXPECT_EQ(Log(*da).size(), 1u);
    EXPECT_EQ(Filas(), 1);
}

TEST_P(TablasDb, CargarEntidadOfAnUnreadableValueRaisesWithTheClassSource) {
    std::string entero;
    for (const CampoDef& c : caso.Def().Campos)
        if (c.Tipo == TipoCampo::Entero) {
            entero = std::string(c.Nombre);
            break;
        }
    auto rs = cn->Execute("select 'abc' as " + entero);
    auto e = caso.NuevaEntidad();
    Error err = Capturar([&] { e->CargarEntidad(rs->Fields()); });
    EXPECT_EQ(err.Number, ErrNum::TypeMismatch);
    EXPECT_EQ(err.Source, esp.Fuentes[5]);
    rs->Close();
}

TEST_P(TablasDb, AFailedReadRaisesWithTheAdaptersSourceAndIsNotLogged) {
    // No table at all.
    Error err = Capturar([&] { caso.ListarTodo(*da); });
    EXPECT_EQ(err.Number, 1146);
    EXPECT_EQ(err.Source, esp.Fuentes[0]);
    Error err2 = Capturar([&] { caso.Entidad(*da, *caso.Muestra()); });
    EXPECT_EQ(err2.Number, 1146);
    EXPECT_EQ(err2.Source, esp.Fuentes[0]);
    EXPECT_EQ(da->LogSQL, nullptr);
}

TEST_P(TablasDb, GrabarDatosSkipsWhatFailsCamposOkAndInsertsTheRest) {
    PrepararTabla();
    auto l = caso.NuevaLista();
    caso.AddEntidad(*l, caso.NuevaEntidad());
    auto m = caso.AddEntidad(*l, caso.Muestra());
    caso.GrabarDatos(*da, *l);
    EXPECT_EQ(Filas(), 1);
    EXPECT_EQ(Log(*da), std::vector<std::string>{esp.Insert});
    auto leida = caso.Entidad(*da, *m);
    ASSERT_NE(leida, nullptr);
    EXPECT_EQ(CamposDistintos(caso, *leida, *m), esp.NoLeidos);
}
