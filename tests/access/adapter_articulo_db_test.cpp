// The adapter template on the article table, against a real MariaDB on both
// roads: the embedded database and a server. The exact text of every
// statement is asserted from LogSQL and from the server's general query log.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/tables/articulo.h"
#include "access/articulo_db.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;
using zaro_test::Road;

namespace {

const char kConexion[] = "No se ha establecido una conexi\xC3\xB3n";
const char kConexionLectura[] = "No se ha establecido una conexin";
const std::string kSelect =
    "select  articulo.COD_TRANSACC , articulo.FECHA_REAL , articulo.HORA_REAL , articulo.CD_OP , "
    "articulo.TIPO_OPERACION , articulo.CD_ARTICULO , articulo.IDARTICOLGS1 , articulo.TIPO_FAMILIA  , "
    "articulo.TIPO_SUBFAMILIA , articulo.PRECIOMAX , articulo.DESC_ARTICULO , articulo.DESC_CORTA   from articulo ";
const std::string kOrderBy = " order by articulo.CD_ARTICULO ";
const std::string kInsertCabeza =
    "insert into articulo  (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, IDARTICOLGS1, "
    "TIPO_FAMILIA , TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA)  values  (";

std::vector<std::string> Log(const daarticulo& da) {
    std::vector<std::string> r;
    if (da.LogSQL)
        for (const Variant& v : *da.LogSQL) r.push_back(v.Get<std::string>());
    return r;
}

class AdapterArticulo : public zaro_test::ArticuloDb {
protected:
    void SetUp() override {
        ArticuloDb::SetUp();
        ASSERT_TRUE(da->CrearTabla());
    }
    std::vector<std::string> Servidor(size_t mark) { return zaro_test::GeneralLogSince(GetParam(), mark); }
    std::shared_ptr<entarticulo> Nuevo(const std::string& codigo) {
        auto e = std::make_shared<entarticulo>();
        e->CD_ARTICULO = codigo;
        return e;
    }
};

}  // namespace

TEST(AdapterArticuloSinConexion, ExisteWithNoConnectionRaisesFromTheAdapter) {
    daarticulo da;
    entarticulo e;
    Error err = Capturar([&] { da.Existe(e); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "daarticulo");
    EXPECT_EQ(err.Description, kConexion);
}

TEST(AdapterArticuloSinConexion, UpdateWithNoConnectionRaisesWithTheUpdateSource) {
    daarticulo da;
    entarticulo e;
    Error err = Capturar([&] { da.Update(e); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "articuloUpdate");
    EXPECT_EQ(err.Description, kConexion);
}

TEST(AdapterArticuloSinConexion, ReadsWithNoConnectionUseTheLiteralWithoutTheAccentedLetter) {
    daarticulo da;
    Error err = Capturar([&] { da.rsListar(); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "daarticulo");
    EXPECT_EQ(err.Description, kConexionLectura);
    Error err2 = Capturar([&] { da.Listar(); });
    EXPECT_EQ(err2.Description, kConexionLectura);
    Error err3 = Capturar([&] { da.Entidad("X"); });
    EXPECT_EQ(err3.Description, kConexionLectura);
    Error err4 = Capturar([&] { da.Delete("X"); });
    EXPECT_EQ(err4.Description, kConexion);
    EXPECT_EQ(da.LogSQL, nullptr);
}

TEST(AdapterArticuloSinConexion, GrabarDatosWithNoConnectionRaisesFromExiste) {
    daarticulo da;
    colarticulo l;
    l.Add("A1");
    Error err = Capturar([&] { da.GrabarDatos(l); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "daarticulo");
    EXPECT_EQ(err.Description, kConexion);
}

TEST(AdapterArticuloSinConexion, CrearTablaWithNoConnectionReturnsFalseAndRaisesNothing) {
    daarticulo da;
    EXPECT_FALSE(da.CrearTabla());
}

TEST(AdapterArticuloSinConexion, SelectSqlAndOrderByAreBuiltFromTheTableName) {
    daarticulo da;
    EXPECT_EQ(da.Tabla(), "articulo");
    EXPECT_EQ(da.SelectSQL(), kSelect);
    EXPECT_EQ(da.OrderBy, kOrderBy);
    EXPECT_EQ(da.ConnectionString, "");
    EXPECT_EQ(da.Conexion, nullptr);
}

TEST(AdapterArticuloSinConexion, WritingTablaRebuildsSelectAndDropsACustomOrderBy) {
    daarticulo da;
    da.OrderBy = "CD_OP";
    da.Tabla("copia");
    EXPECT_EQ(da.OrderBy, " order by copia.CD_ARTICULO ");
    EXPECT_EQ(da.SelectSQL().substr(0, 28), "select  copia.COD_TRANSACC ,");
    EXPECT_EQ(da.SelectSQL().substr(da.SelectSQL().size() - 12), " from copia ");
    entarticulo e;
    EXPECT_EQ(e.Tabla(), "articulo");
}

TEST(AdapterArticuloSinConexion, CamposOkFailsOnAnEmptyCodeAlone) {
    daarticulo da;
    entarticulo e;
    std::string mensajes = "previo";
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes, "\r\n\r\n\tEl campo [CD_ARTICULO] es obligatorio.\r\n");
    e.CD_ARTICULO = "A";
    EXPECT_TRUE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes, "");
}

TEST_P(AdapterArticulo, InsertWritesEveryFieldWithTheLiteralRules) {
    auto e = Nuevo("A1");
    e->COD_TRANSACC = 5;
    e->FECHA_REAL = Date::FromParts(2026, 3, 1, 10, 30, 0);
    e->HORA_REAL = "1030";
    e->CD_OP = -2;
    e->PRECIOMAX = 12.5;
    e->DESC_ARTICULO = "Caf\xC3\xA9 'solo'";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->Insert(*e);
    const std::string esperado = kInsertCabeza +
                                 "5, '2026-03-01', '1030', -2, 0, 'A1', '', 0, 0, 12.5, 'Caf\xC3\xA9 \xC2\xB4solo\xC2\xB4', '')";
    ASSERT_EQ(Log(*da), std::vector<std::string>{esperado});
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
    EXPECT_TRUE(ServidorRecibio(mark, "select count(*) from articulo  where articulo.CD_ARTICULO = 'A1'  "));
    EXPECT_EQ(Leer("select DESC_ARTICULO from articulo"), Variant("Caf\xC3\xA9 \xC2\xB4solo\xC2\xB4"));
}

TEST_P(AdapterArticulo, InsertOfANewEntityWritesZerosEmptyTextAndTheZeroDateNeverNull) {
    da->Insert(*Nuevo("K"));
    EXPECT_EQ(Log(*da).at(0), kInsertCabeza + "0, '1899-12-30', '', 0, 0, 'K', '', 0, 0, 0, '', '')");
    EXPECT_EQ(Leer("select count(*) from articulo where FECHA_REAL = '1899-12-30' and HORA_REAL = '' and CD_OP = 0 "
                   "and PRECIOMAX = 0 and DESC_CORTA = ''"),
              Variant(int64_t{1}));
}

TEST_P(AdapterArticulo, TwoInsertsOfOneKeyRaiseOnTheSecondAndLogOne) {
    da->Insert(*Nuevo("K"));
    Error err = Capturar([&] { da->Insert(*Nuevo("K")); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "daarticulo");
    EXPECT_EQ(err.Description, "El registro ya existe.\r\n\r\n\tCD_ARTICULO = K\r\n  ");
    EXPECT_EQ(Log(*da).size(), 1u);
}

TEST_P(AdapterArticulo, TheExistingRowMessageShowsTheKeyWithItsApostrophe) {
    da->Insert(*Nuevo("O'Neil"));
    Error err = Capturar([&] { da->Insert(*Nuevo("O'Neil")); });
    EXPECT_EQ(err.Description, "El registro ya existe.\r\n\r\n\tCD_ARTICULO = O'Neil\r\n  ");
}

TEST_P(AdapterArticulo, AnApostropheInTheKeyBecomesTheAccentAndEveryOperationFindsTheRow) {
    auto e = Nuevo("O'Neil");
    da->Insert(*e);
    EXPECT_EQ(Leer("select CD_ARTICULO from articulo"), Variant("O\xC2\xB4Neil"));
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    EXPECT_TRUE(da->Existe(*e));
    EXPECT_TRUE(ServidorRecibio(mark, "select count(*) from articulo  where articulo.CD_ARTICULO = 'O\xC2\xB4Neil'  "));
    auto leido = da->Entidad("O'Neil");
    ASSERT_TRUE(leido);
    EXPECT_EQ(leido->CD_ARTICULO, "O\xC2\xB4Neil");
    EXPECT_EQ(da->Listar("O'Neil")->Count(), 1);
    e->DESC_CORTA = "nueva";
    da->Update(*e);
    EXPECT_EQ(Leer("select DESC_CORTA from articulo"), Variant("nueva"));
    da->Delete("O'Neil");
    EXPECT_EQ(Log(*da).back(), "delete from articulo  where articulo.CD_ARTICULO = 'O\xC2\xB4Neil'  ");
    EXPECT_EQ(Leer("select count(*) from articulo"), Variant(int64_t{0}));
}

TEST_P(AdapterArticulo, ABackslashAndATabAreStoredAsTyped) {
    auto e = Nuevo("B\\1");
    e->DESC_ARTICULO = "a\\b\tc\\'";
    da->Insert(*e);
    EXPECT_EQ(Leer("select DESC_ARTICULO from articulo"), Variant("a\\b\tc\\\xC2\xB4"));
    EXPECT_TRUE(da->Existe(*e));
    auto leido = da->Entidad("B\\1");
    ASSERT_TRUE(leido);
    EXPECT_EQ(leido->DESC_ARTICULO, "a\\b\tc\\\xC2\xB4");
}

// A session whose sql_mode lost NO_BACKSLASH_ESCAPES behind the library's
// back: a field ending in a backslash would swallow the apostrophe after it,
// and SQL in the next field would rewrite every row.
TEST_P(AdapterArticulo, ASqlModeTurnedOffBehindTheLibrarysBackIsTurnedBackOnBeforeTheNextAdapterStatement) {
    for (const char* codigo : {"A", "B", "C"}) {
        auto e = Nuevo(codigo);
        e->PRECIOMAX = 1;
        da->Insert(*e);
    }
    cn->Execute("SET SESSION sql_mode = ''");
    const size_t mark = zaro_test::GeneralLogMark(GetParam());
    auto e = Nuevo("A");
    e->PRECIOMAX = 1;
    e->DESC_ARTICULO = "x\\";
    e->DESC_CORTA = ", PRECIOMAX = 99 #";
    da->Update(*e);
    const std::vector<std::string> sent = Enviadas(mark);
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0], "SET SESSION sql_mode = CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'NO_BACKSLASH_ESCAPES')");
    EXPECT_EQ(sent[1].rfind("update articulo", 0), 0u) << sent[1];
    EXPECT_EQ(Leer("select count(*) from articulo where PRECIOMAX = 99"), Variant(int64_t{0}));
    EXPECT_EQ(Leer("select DESC_ARTICULO from articulo where CD_ARTICULO = 'A'"), Variant("x\\"));
    EXPECT_EQ(Leer("select DESC_CORTA from articulo where CD_ARTICULO = 'A'"), Variant(", PRECIOMAX = 99 #"));
    EXPECT_NE(CStr(Leer("select @@SESSION.sql_mode")).find("NO_BACKSLASH_ESCAPES"), std::string::npos);
}

TEST_P(AdapterArticulo, WatchingTheSqlModeCostsNoStatementOfItsOwn) {
    auto e = Nuevo("A");
    da->Insert(*e);
    const size_t mark = zaro_test::GeneralLogMark(GetParam());
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(da->Existe(*e));
    da->Update(*e);
    cn->Execute("SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',ANSI_QUOTES')");
    EXPECT_TRUE(da->Existe(*e));
    EXPECT_EQ(Enviadas(mark).size(), 6u);
}

TEST_P(AdapterArticulo, ATenThousandCharacterDescriptionIsRefusedByTheDatabaseWithItsOwnError) {
    auto e = Nuevo("LARGO");
    e->DESC_ARTICULO = std::string(10000, 'x');
    // Both roads run the engine's default sql_mode, which is strict: the
    // text is refused whole, never cut to its column, and nothing is logged.
    Error err = Capturar([&] { da->Insert(*e); });
    EXPECT_EQ(err.Number, 1406);  // data too long for the column
    EXPECT_NE(err.Description.find("DESC_ARTICULO"), std::string::npos) << err.Description;
    EXPECT_TRUE(Log(*da).empty());
    EXPECT_EQ(da->Listar()->Count(), 0);
}

TEST_P(AdapterArticulo, InsertWithAnArgumentConnectionButNoConexionRaisesFromThePreCheck) {
    da->Conexion = nullptr;
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    Error err = Capturar([&] { da->Insert(*Nuevo("A"), cn); });
    EXPECT_EQ(err.Number, 1);
    EXPECT_EQ(err.Source, "daarticulo");
    EXPECT_EQ(err.Description, kConexion);
    EXPECT_TRUE(Log(*da).empty());
    for (const std::string& s : Servidor(mark)) EXPECT_EQ(s.find("insert into articulo"), std::string::npos) << s;
}

TEST_P(AdapterArticulo, InsertChecksOnConexionAndInsertsOnTheArgumentConnection) {
    // A second database on the same road: the row exists in the first one only.
    auto otra = zaro_test::OpenRoad(GetParam());
    otra->Execute("CREATE DATABASE IF NOT EXISTS zaro_segunda");
    otra->Execute("USE zaro_segunda");
    otra->Execute("DROP TABLE IF EXISTS articulo");
    daarticulo da2;
    da2.Conexion = otra;
    ASSERT_TRUE(da2.CrearTabla());
    da->Insert(*Nuevo("EN_PRIMERA"));
    // Checked on Conexion (the first database), where it exists: raises although the second lacks it.
    Error err = Capturar([&] { da->Insert(*Nuevo("EN_PRIMERA"), otra); });
    EXPECT_EQ(err.Number, 1);
    // Not in the first database: inserted through the argument connection, into the second.
    da->Insert(*Nuevo("NUEVA"), otra);
    auto rs = otra->Execute("select count(*) from zaro_segunda.articulo where CD_ARTICULO = 'NUEVA'");
    EXPECT_EQ(rs->Fields().Item(int32_t{0}).Value(), Variant(int64_t{1}));
    EXPECT_EQ(Leer("select count(*) from articulo where CD_ARTICULO = 'NUEVA'"), Variant(int64_t{0}));
    otra->Execute("DROP DATABASE zaro_segunda");
}

TEST_P(AdapterArticulo, AnExplicitConnectionIsWrittenBackWhenTheCallerPassesNone) {
    ConnectionRef vacia;
    da->Existe(*Nuevo("A"), vacia);
    EXPECT_EQ(vacia, cn);
}

TEST_P(AdapterArticulo, UpdateWritesEveryFieldButTheKeyAndNeverChecksExistence) {
    auto e = Nuevo("A1");
    da->Insert(*e);
    e->COD_TRANSACC = 7;
    e->FECHA_REAL = Date::FromParts(2024, 12, 31);
    e->HORA_REAL = "2359";
    e->PRECIOMAX = 1.25;
    e->DESC_CORTA = "d'c";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->Update(*e);
    const std::string esperado =
        "update articulo  set COD_TRANSACC = 7   , FECHA_REAL = '2024-12-31'   , HORA_REAL = '2359'   , CD_OP = 0   , "
        "TIPO_OPERACION = 0   , IDARTICOLGS1 = ''   , TIPO_FAMILIA = 0   , TIPO_SUBFAMILIA = 0   , PRECIOMAX = 1.25   "
        ", DESC_ARTICULO = ''   , DESC_CORTA = 'd\xC2\xB4" "c' where articulo.CD_ARTICULO = 'A1'  ";
    EXPECT_EQ(Log(*da).back(), esperado);
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
    EXPECT_EQ(Leer("select PRECIOMAX from articulo"), Variant(1.25));
}

TEST_P(AdapterArticulo, UpdateOfAChangedKeyTouchesTheRowOfTheNewKeyOrNone) {
    auto e = Nuevo("A1");
    da->Insert(*e);
    e->CD_ARTICULO = "B2";
    e->DESC_CORTA = "cambiada";
    EXPECT_NO_THROW(da->Update(*e));
    EXPECT_EQ(Leer("select DESC_CORTA from articulo where CD_ARTICULO = 'A1'"), Variant(""));
    EXPECT_EQ(Leer("select count(*) from articulo"), Variant(int64_t{1}));
}

TEST_P(AdapterArticulo, UpdateRefusedByTheDatabaseRaisesWithTheUpdateSource) {
    da->Tabla("no_existe");
    auto e = Nuevo("A1");
    Error err = Capturar([&] { da->Update(*e); });
    EXPECT_EQ(err.Number, 1146);
    EXPECT_EQ(err.Source, "articuloUpdate");
    EXPECT_NE(err.Description.find("no_existe"), std::string::npos);
    EXPECT_TRUE(Log(*da).empty());
}

TEST_P(AdapterArticulo, DeleteOfAMissingKeyIsLoggedAndRaisesNothing) {
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    EXPECT_NO_THROW(da->Delete("NADA"));
    const std::string esperado = "delete from articulo  where articulo.CD_ARTICULO = 'NADA'  ";
    EXPECT_EQ(Log(*da), std::vector<std::string>{esperado});
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, DeleteOnAMissingTableRaisesTheDatabasesErrorUnchanged) {
    da->Tabla("no_existe");
    Error err = Capturar([&] { da->Delete("X"); });
    EXPECT_EQ(err.Number, 1146);
    EXPECT_NE(err.Source, "daarticulo");
}

TEST_P(AdapterArticulo, ExisteIsNotLogged) {
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    EXPECT_FALSE(da->Existe(*Nuevo("X")));
    EXPECT_TRUE(Log(*da).empty());
    EXPECT_TRUE(ServidorRecibio(mark, "select count(*) from articulo  where articulo.CD_ARTICULO = 'X'  "));
}

TEST_P(AdapterArticulo, EntidadOfAMissingKeyReturnsNoObjectAndIsLogged) {
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    EXPECT_EQ(da->Entidad("NADA"), nullptr);
    const std::string esperado = kSelect + " where articulo.CD_ARTICULO = 'NADA'  " + " " + kOrderBy;
    EXPECT_EQ(Log(*da), std::vector<std::string>{esperado});
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, EntidadReadsEveryFieldBack) {
    auto e = Nuevo("A1");
    e->COD_TRANSACC = 5;
    e->FECHA_REAL = Date::FromParts(2026, 3, 1);
    e->HORA_REAL = "1030";
    e->CD_OP = 2;
    e->TIPO_OPERACION = 1;
    e->IDARTICOLGS1 = "8410000000001";
    e->TIPO_FAMILIA = 3;
    e->TIPO_SUBFAMILIA = 4;
    e->PRECIOMAX = 1.5;
    e->DESC_ARTICULO = "Caf\xC3\xA9 con leche";
    e->DESC_CORTA = "Caf\xC3\xA9";
    da->Insert(*e);
    auto leido = da->Entidad("A1");
    ASSERT_TRUE(leido);
    for (int16_t i = 1; i <= 12; ++i) EXPECT_EQ(leido->GetValorIndice(i), e->GetValorIndice(i)) << i;
}

TEST_P(AdapterArticulo, EntidadFollowsTheDatabasesComparison) {
    da->Insert(*Nuevo("ABC"));
    // The table's character set compares without regard to case.
    EXPECT_NE(da->Entidad("abc"), nullptr);
}

TEST_P(AdapterArticulo, ListarWithNoArgumentSendsSelectABlankAndOrderBy) {
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->Listar();
    const std::string esperado = kSelect + " " + kOrderBy;
    EXPECT_EQ(Log(*da), std::vector<std::string>{esperado});
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, ListarWithAKeyFiltersOnIt) {
    da->Insert(*Nuevo("A"));
    da->Insert(*Nuevo("B"));
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    auto l = da->Listar("B");
    ASSERT_EQ(l->Count(), 1);
    EXPECT_EQ(l->Item(1)->CD_ARTICULO, "B");
    const std::string esperado = kSelect + " where  articulo.CD_ARTICULO = 'B'" + " " + kOrderBy;
    EXPECT_EQ(Log(*da).back(), esperado);
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, ListarWithAnEmptyCodeReturnsAllRowsInKeyOrder) {
    for (const char* c : {"C", "A", "B"}) da->Insert(*Nuevo(c));
    auto l = da->Listar("");
    ASSERT_EQ(l->Count(), 3);
    EXPECT_EQ(l->Item(1)->CD_ARTICULO, "A");
    EXPECT_EQ(l->Item(3)->CD_ARTICULO, "C");
}

TEST_P(AdapterArticulo, ListarWhereWithAConditionPutsWhereInFrontOfTheCallersString) {
    std::string cond = "CD_OP = 1";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->ListarWhere(cond);
    EXPECT_EQ(cond, " where CD_OP = 1");
    const std::string esperado = kSelect + "  where CD_OP = 1" + " " + kOrderBy;
    EXPECT_EQ(Log(*da), std::vector<std::string>{esperado});
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, ListarWhereWithTheWordAlreadyInCapitalsLeavesItAsItIs) {
    std::string cond = "WHERE CD_OP = 1";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->ListarWhere(cond);
    EXPECT_EQ(cond, "WHERE CD_OP = 1");
    const std::string esperado = kSelect + " WHERE CD_OP = 1" + " " + kOrderBy;
    EXPECT_EQ(Log(*da).back(), esperado);
    EXPECT_TRUE(ServidorRecibio(mark, esperado));
}

TEST_P(AdapterArticulo, ListarWhereWithTheLettersOfWhereInAValueSuppressesThePrefix) {
    std::string cond = "DESC_CORTA = 'somewhere'";
    EXPECT_THROW(da->ListarWhere(cond), Error);
    EXPECT_EQ(cond, "DESC_CORTA = 'somewhere'");
}

TEST_P(AdapterArticulo, ListarWhereWithBlanksOnlyKeepsTheBlanksAndListsAllRows) {
    da->Insert(*Nuevo("A"));
    da->Insert(*Nuevo("B"));
    std::string cond = "   ";
    auto l = da->ListarWhere(cond);
    EXPECT_EQ(cond, "   ");
    EXPECT_EQ(l->Count(), 2);
    EXPECT_EQ(Log(*da).back(), kSelect + "    " + " " + kOrderBy);
}

TEST_P(AdapterArticulo, RsListarWhereLeavesTwoEntriesTheQueryAndTheBareSelect) {
    std::string cond = "CD_OP = 1";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    auto rs = da->rsListarWhere(cond);
    rs->Close();
    const std::string consulta = kSelect + "  where CD_OP = 1" + " " + kOrderBy;
    EXPECT_EQ(Log(*da), (std::vector<std::string>{consulta, kSelect}));
    EXPECT_TRUE(ServidorRecibio(mark, consulta));
}

TEST_P(AdapterArticulo, AnOrderByWithoutTheWordsGetsThemForGood) {
    da->OrderBy = "articulo.CD_OP";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    auto rs = da->rsListar();
    rs->Close();
    EXPECT_EQ(da->OrderBy, "order by articulo.CD_OP");
    EXPECT_EQ(Log(*da).back(), kSelect + " " + "order by articulo.CD_OP");
    EXPECT_TRUE(ServidorRecibio(mark, kSelect + " " + "order by articulo.CD_OP"));
    // The field stays so: the next read sends it as it is.
    da->rsListar()->Close();
    EXPECT_EQ(Log(*da).back(), kSelect + " " + "order by articulo.CD_OP");
}

TEST_P(AdapterArticulo, WithAnEmptyOrderByTheQueryGoesWithOneBlank) {
    da->OrderBy = "";
    std::string q = "select CD_ARTICULO from articulo";
    size_t mark = zaro_test::GeneralLogMark(GetParam());
    da->rsListar_SQLQuery(q)->Close();
    EXPECT_EQ(Log(*da).back(), "select CD_ARTICULO from articulo ");
    EXPECT_TRUE(ServidorRecibio(mark, "select CD_ARTICULO from articulo"));
}

TEST_P(AdapterArticulo, AQueryWithAnOrderingOfItsOwnGoesAsItStands) {
    for (const char* q : {"select * from articulo ORDER BY CD_OP", "select * from articulo order by CD_OP desc"}) {
        size_t mark = zaro_test::GeneralLogMark(GetParam());
        da->rsListar_SQLQuery(std::string(q))->Close();
        EXPECT_EQ(Log(*da).back(), q);
        EXPECT_TRUE(ServidorRecibio(mark, q));
    }
}

TEST_P(AdapterArticulo, ListarSqlQueryWithNoRowsReturnsAnEmptyList) {
    auto l = da->Listar_SQLQuery("select * from articulo where 1 = 0");
    ASSERT_TRUE(l);
    EXPECT_EQ(l->Count(), 0);
}

TEST_P(AdapterArticulo, AFailedReadIsNotLoggedAndRaisesWithTheAdaptersSource) {
    Error err = Capturar([&] { da->Listar_SQLQuery("select nada from ninguna"); });
    EXPECT_EQ(err.Number, 1146);
    EXPECT_EQ(err.Source, "daarticulo");
    Error err2 = Capturar([&] { da->rsListar_SQLQuery("selec mal"); });
    EXPECT_EQ(err2.Number, 1064);
    EXPECT_EQ(err2.Source, "daarticulo");
    EXPECT_TRUE(Log(*da).empty());
}

TEST_P(AdapterArticulo, ListarKeepsTheRowsOfTheQueryIncludingEqualKeys) {
    da->Insert(*Nuevo("A"));
    auto l = da->Listar_SQLQuery("select * from articulo union all select * from articulo order by CD_ARTICULO");
    EXPECT_EQ(l->Count(), 2);
}

TEST_P(AdapterArticulo, CargarEntidadWithoutAColumnFillsTheOthersAndLeavesItEmpty) {
    // Every field a value other than its default, so that each one read shows.
    auto e = Nuevo("A1");
    e->COD_TRANSACC = 5;
    e->FECHA_REAL = Date::FromParts(2026, 3, 1);
    e->HORA_REAL = "1030";
    e->CD_OP = 2;
    e->TIPO_OPERACION = 1;
    e->IDARTICOLGS1 = "8410000000001";
    e->TIPO_FAMILIA = 3;
    e->TIPO_SUBFAMILIA = 4;
    e->PRECIOMAX = 1.5;
    e->DESC_ARTICULO = "larga";
    e->DESC_CORTA = "corta";
    da->Insert(*e);
    auto rs = cn->Execute(
        "select COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, IDARTICOLGS1, TIPO_FAMILIA, "
        "TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO from articulo");
    entarticulo leido;
    leido.DESC_CORTA = "previa";
    leido.CargarEntidad(rs->Fields());
    for (int16_t i = 1; i <= 11; ++i) EXPECT_EQ(leido.GetValorIndice(i), e->GetValorIndice(i)) << i;
    EXPECT_EQ(leido.DESC_CORTA, "");  // the column the row lacks: emptied, not kept
}

TEST_P(AdapterArticulo, CargarEntidadOfNullColumnsStoresZeroAndTheZeroDate) {
    cn->Execute("insert into articulo (CD_ARTICULO) values ('N')");
    auto rs = cn->Execute("select * from articulo");
    entarticulo e;
    e.CD_OP = 9;
    e.FECHA_REAL = Date::FromParts(2020, 1, 1);
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.CD_OP, 0);
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
    EXPECT_EQ(e.HORA_REAL, "");
}

TEST_P(AdapterArticulo, CargarEntidadOfAnUnreadableValueRaisesWithTheClassSource) {
    auto rs = cn->Execute("select 'abc' as CD_OP");
    entarticulo e;
    Error err = Capturar([&] { e.CargarEntidad(rs->Fields()); });
    EXPECT_EQ(err.Number, 13);
    EXPECT_EQ(err.Source, " entarticulo");
}

TEST_P(AdapterArticulo, LeerCampoOfAMissingColumnGivesTheDefault) {
    auto rs = cn->Execute("select 1 as uno");
    EXPECT_EQ(BasTroquel::LeerCampo(rs->Fields(), "dos", Variant(7)), Variant(7));
    EXPECT_EQ(BasTroquel::LeerCampo(rs->Fields(), "UNO", Variant(7)), Variant(int32_t{1}));
}

TEST_P(AdapterArticulo, ObtenerValorSqlWithNoRowsGivesZeroForANumberAndEmptyTextOtherwise) {
    ConnectionRef c = cn;
    EXPECT_EQ(CLng(BasTroquel::ObtenerValorSQL(c, "select CD_OP from articulo", "")), 0);
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select CD_OP from articulo", "").VarType(), vbInteger);
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select FECHA_REAL from articulo", "").VarType(), vbString);
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select PRECIOMAX from articulo", "PRECIOMAX"), Variant(int16_t{0}));
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select DESC_CORTA from articulo", ""), Variant(""));
}

TEST_P(AdapterArticulo, ObtenerValorSqlGivesTheFirstRowsValueNullIncluded) {
    cn->Execute("insert into articulo (CD_ARTICULO, CD_OP) values ('A', 4), ('B', 5)");
    ConnectionRef c = cn;
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select CD_OP, CD_ARTICULO from articulo order by CD_ARTICULO", ""),
              Variant(int32_t{4}));
    EXPECT_EQ(BasTroquel::ObtenerValorSQL(c, "select CD_OP, CD_ARTICULO from articulo order by CD_ARTICULO",
                                          "cd_articulo"),
              Variant("A"));
    EXPECT_TRUE(BasTroquel::ObtenerValorSQL(c, "select DESC_CORTA from articulo", "").IsNull());
}

TEST_P(AdapterArticulo, ObtenerValorSqlWithABadStatementRaisesTheDatabasesErrorAndRestoresThePointer) {
    Screen()->SetMousePointer(3);
    const int cambios = Screen()->PointerChanges();
    ConnectionRef c = cn;
    Error err = Capturar([&] { BasTroquel::ObtenerValorSQL(c, "selec mal", ""); });
    EXPECT_EQ(err.Number, 1064);
    EXPECT_EQ(Screen()->GetMousePointer(), 3);
    EXPECT_EQ(Screen()->PointerChanges(), cambios + 2);  // the wait shape, then back
    Screen()->SetMousePointer(0);
}

TEST_P(AdapterArticulo, ListarOfAHundredThousandRowsReturnsThemInKeyOrder) {
    std::string sql;
    const int n = 100000;
    for (int i = n - 1; i >= 0; --i) {
        if (sql.empty()) sql = "insert into articulo (CD_ARTICULO, CD_OP, PRECIOMAX, DESC_ARTICULO) values ";
        else sql += ",";
        char fila[96];
        std::snprintf(fila, sizeof fila, "('A%06d', %d, %d.25, 'articulo %d')", i, i % 100, i % 50, i);
        sql += fila;
        if (i % 10000 == 0) {
            cn->Execute(sql);
            sql.clear();
        }
    }
    auto l = da->Listar();
    ASSERT_EQ(l->Count(), n);
    for (int i = 1; i < n; ++i) ASSERT_LT(l->Item(i)->CD_ARTICULO, l->Item(i + 1)->CD_ARTICULO) << i;
    EXPECT_EQ(l->Item(n)->DESC_ARTICULO, "articulo 99999");
    EXPECT_DOUBLE_EQ(l->Item(2)->PRECIOMAX, 1.25);
}

INSTANTIATE_TEST_SUITE_P(Roads, AdapterArticulo, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);
