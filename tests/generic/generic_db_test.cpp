// The generic entities over real queries, on both database roads: the
// embedded database and a MariaDB server.
#include <gtest/gtest.h>

#include <functional>

#include "ZARODatos/generic/Elementos.h"
#include "ZARODatos/generic/EntidadSimple.h"
#include "ZARODatos/generic/Generica.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/tables/articulo.h"
#include "ZARODatos/tables/ticket.h"
#include "ZARODatos/tables/ticket_articulo.h"
#include "support/roads.h"

using namespace OVT_ZARO;
using zaro_test::Road;

namespace {

// A table with the columns of a table description, each of a plain type of
// its field (the tables' own column texts are the table-creation tests'
// business), and the description's key.
std::string CrearTablaDe(const TablaDef& t) {
    std::string sql = "CREATE TABLE `" + std::string(t.Tabla) + "` (";
    for (const CampoDef& c : t.Campos) {
        sql += "`" + std::string(c.Nombre) + "` ";
        switch (c.Tipo) {
            case TipoCampo::Entero: sql += "int NULL, "; break;
            case TipoCampo::Doble: sql += "decimal(12,3) NULL, "; break;
            case TipoCampo::Fecha: sql += "date NULL, "; break;
            case TipoCampo::Texto: sql += "varchar(50) NULL, "; break;
        }
    }
    std::string clave;
    for (int16_t pos : t.PorClave) clave += (clave.empty() ? "`" : ", `") + std::string(t.Campos[pos].Nombre) + "`";
    sql += "PRIMARY KEY (" + clave + "))";
    return sql;
}

class GenericDb : public ::testing::TestWithParam<Road> {
protected:
    void SetUp() override {
        cn = zaro_test::OpenRoad(GetParam());
        zaro_test::DropAllTables(*cn);
    }
    std::shared_ptr<ADODB::Recordset> Abrir(const std::string& sql, int cursor = ADODB::adOpenForwardOnly) {
        auto rs = std::make_shared<ADODB::Recordset>();
        rs->Open(sql, cn, cursor, ADODB::adLockReadOnly);
        return rs;
    }
    coleccionGenericaRef Cargar(const std::string& sql) {
        auto l = std::make_shared<coleccionGenerica>();
        auto rs = Abrir(sql);
        l->Cargar(rs);
        rs->Close();
        return l;
    }
    void CrearTicketYLineas() {
        cn->Execute(CrearTablaDe(entticket::Def()));
        cn->Execute(CrearTablaDe(entticket_articulo::Def()));
        cn->Execute(
            "insert into ticket (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_TICKET, FECHA_CONTABLE, "
            "ImpNeto_T, Origen, idEmpresa, idRestaurante, idTPV, idTicket, idTPVTransaccion) values "
            "(11, '2024-03-05', '1407', 1, 500, '2024-03-05', 12.5, 'MAD', 1, 2, 3, 4, 99)");
        cn->Execute(
            "insert into ticket_articulo (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_ARTICULO, UDS, "
            "idEmpresa, idRestaurante, idTPV, idTicket, idLinea) values "
            "(22, '2024-03-06', '1500', 7, 'CAFE', 2, 1, 2, 3, 4, 1), "
            "(33, '2024-03-07', '1501', 8, 'AGUA', 1, 1, 2, 3, 4, 2)");
    }

    ConnectionRef cn;
};

INSTANTIATE_TEST_SUITE_P(Roads, GenericDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

}  // namespace

// ---- coleccionGenerica.Cargar ----------------------------------------------

TEST_P(GenericDb, CargarOfAJoinWithTwoColumnsOfOneNameKeepsOneFieldWithTheLaterValue) {
    CrearTicketYLineas();
    auto l = Cargar(
        "select * from ticket t join ticket_articulo a on t.idEmpresa = a.idEmpresa and "
        "t.idRestaurante = a.idRestaurante and t.idTPV = a.idTPV and t.idTicket = a.idTicket order by a.idLinea");
    ASSERT_EQ(l->Count(), 2);
    const auto& e = l->Item(1);
    const int32_t repetidas = 8;  // COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO and the four ids
    EXPECT_EQ(e->NumCampos(), 38 + 30 - repetidas);
    // The field stands where the name first came, with the value of the later column.
    EXPECT_EQ(e->GetNombreCampo(int16_t{1}), "COD_TRANSACC");
    EXPECT_EQ(e->GetValorIndice(int16_t{1}), Variant(int32_t{22}));
    EXPECT_EQ(CStr(e->GetValor("FECHA_REAL")), "06/03/2024");
    EXPECT_EQ(e->GetValor("HORA_REAL"), Variant("1500"));
    EXPECT_EQ(e->GetValor("CD_TICKET"), Variant(int32_t{500}));
    EXPECT_EQ(e->GetValor("CD_ARTICULO"), Variant("CAFE"));
    EXPECT_EQ(l->Item(2)->GetValor("cod_transacc"), Variant(int32_t{33}));
    int nombres = 0;
    for (int16_t i = 1; i <= e->NumCampos(); ++i)
        if (TextEquals(e->GetNombreCampo(i), "idTicket")) ++nombres;
    EXPECT_EQ(nombres, 1);
}

TEST_P(GenericDb, CargarOfAnAggregateGivesOneEntityWithTheAggregateColumns) {
    CrearTicketYLineas();
    auto l = Cargar("select count(*), sum(UDS) as unidades, max(CD_ARTICULO) from ticket_articulo");
    ASSERT_EQ(l->Count(), 1);
    const auto& e = l->Item(1);
    ASSERT_EQ(e->NumCampos(), 3);
    EXPECT_EQ(e->GetNombreCampo(int16_t{1}), "count(*)");
    EXPECT_EQ(CDbl(e->GetValor("COUNT(*)")), 2.0);
    EXPECT_EQ(e->GetValor("unidades"), Variant(3.0));
    EXPECT_EQ(e->GetValor("max(CD_ARTICULO)"), Variant("CAFE"));
    EXPECT_DOUBLE_EQ(l->ObtenerSuma("unidades"), 3.0);
}

TEST_P(GenericDb, NullColumnsOfNumericDateAndTextTypesLoadAsZeroZeroAndEmptyText) {
    cn->Execute(
        "create table nulos (i int, d decimal(7,3), f double, s float, b tinyint(1), fecha date, fh datetime, "
        "ts timestamp null default null, v varchar(10), c char(3), t text, h time, g bigint, p smallint, "
        "bin varbinary(4))");
    cn->Execute("insert into nulos values ()");
    auto l = Cargar("select * from nulos");
    ASSERT_EQ(l->Count(), 1);
    const auto& e = l->Item(1);
    const Variant cero(int16_t{0}), vacio("");
    for (const char* numerica : {"i", "d", "f", "s", "b", "fecha", "fh", "ts"}) {
        EXPECT_EQ(e->GetValor(numerica), cero) << numerica;
    }
    for (const char* texto : {"v", "c", "t"}) EXPECT_EQ(e->GetValor(texto), vacio) << texto;
    // Types outside the table of replacements (time, big and small integers,
    // binary) load as the empty text.
    for (const char* otra : {"h", "g", "p", "bin"}) EXPECT_EQ(e->GetValor(otra), vacio) << otra;
}

TEST_P(GenericDb, ANullColumnOfAnUnknownTypeLoadsAsTheEmptyString) {
    auto l = Cargar("select cast(null as time) as h");
    ASSERT_EQ(l->Count(), 1);
    EXPECT_EQ(l->Item(1)->GetValor("h"), Variant(""));
}

TEST_P(GenericDb, ValuesThatAreNotNullLoadAsTheyAre) {
    auto l = Cargar("select 7 as n, 'Texto' as s, cast('2024-03-05' as date) as f, 1.5e0 as d");
    ASSERT_EQ(l->Count(), 1);
    const auto& e = l->Item(1);
    EXPECT_EQ(e->GetValor("n"), Variant(int32_t{7}));
    EXPECT_EQ(e->GetValor("s"), Variant("Texto"));
    EXPECT_EQ(e->GetValor("f"), Variant(Date::FromParts(2024, 3, 5)));
    EXPECT_EQ(e->GetValor("d"), Variant(1.5));
}

TEST_P(GenericDb, CargarOnAnEmptyRecordsetAddsNothingAndRaisesNothing) {
    cn->Execute("create table vacia (a int)");
    auto l = std::make_shared<coleccionGenerica>();
    for (int cursor : {ADODB::adOpenForwardOnly, ADODB::adOpenStatic}) {
        auto rs = Abrir("select * from vacia", cursor);
        EXPECT_NO_THROW(l->Cargar(rs));
        EXPECT_TRUE(rs->EOF_());
        EXPECT_TRUE(rs->BOF());
        rs->Close();
    }
    EXPECT_EQ(l->Count(), 0);
}

TEST_P(GenericDb, CargarOfThreeRowsAddsThreeEntitiesAndLeavesTheRecordsetAtItsEnd) {
    auto rs = Abrir("select 1 as n union all select 2 union all select 3", ADODB::adOpenStatic);
    coleccionGenerica l;
    l.Cargar(rs);
    ASSERT_EQ(l.Count(), 3);
    EXPECT_TRUE(rs->EOF_());
    EXPECT_FALSE(rs->BOF());
    for (int32_t i = 1; i <= 3; ++i) EXPECT_EQ(CDbl(l.Item(i)->GetValor("n")), i);
    // Every row is an entity of its own with fields of its own.
    EXPECT_NE(l.Item(1)->Campos, l.Item(2)->Campos);
    // A caller that wants the rows again moves the recordset itself.
    rs->MoveFirst();
    EXPECT_EQ(CDbl(rs->Fields().Item("n").Value()), 1.0);
    rs->Close();
}

TEST_P(GenericDb, CargarAppendsToWhatTheListHolds) {
    coleccionGenerica l;
    auto previa = std::make_shared<entidadGenerica>();
    l.Add(previa);
    auto rs = Abrir("select 1 as n union all select 2");
    l.Cargar(rs);
    ASSERT_EQ(l.Count(), 3);
    EXPECT_EQ(l.Item(1), previa);
}

TEST_P(GenericDb, CargarStartsAtTheCurrentRow) {
    auto rs = Abrir("select 1 as n union all select 2 union all select 3");
    rs->MoveNext();
    coleccionGenerica l;
    l.Cargar(rs);
    ASSERT_EQ(l.Count(), 2);
    EXPECT_EQ(CDbl(l.Item(1)->GetValor("n")), 2.0);
}

TEST_P(GenericDb, CargarOfAClosedRecordsetPassesTheRecordsetErrorThrough) {
    auto rs = Abrir("select 1 as n");
    rs->Close();
    coleccionGenerica l;
    try {
        l.Cargar(rs);
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, ADODB::AdoErr::ObjectClosed);
    }
    EXPECT_EQ(l.Count(), 0);
}

TEST_P(GenericDb, CargarMatchesColumnNamesToFieldsAsCargarEntidadDoes) {
    const std::string sql =
        "select 1 as a, 2 as A, 3 as b, 4 as `A\xC3\xB1o`, 5 as `A\xC3\x91O`, 6 as `x y`, 7 as `X Y`, "
        "count(*), 8 as `\xC3\xA1rbol`, 9 as `ARBOL` union all select 11, 12, 13, 14, 15, 16, 17, 18, 19, 20";
    auto l = Cargar(sql);
    ASSERT_EQ(l->Count(), 2);
    auto rs = Abrir(sql);
    for (int32_t fila = 1; fila <= 2; ++fila) {
        entidadGenerica suelta;
        suelta.CargarEntidad(rs->Fields());
        rs->MoveNext();
        const auto& e = l->Item(fila);
        // a/A, Año/AÑO and x y/X Y are one field each; árbol and ARBOL two (accents count).
        ASSERT_EQ(e->NumCampos(), 7);
        ASSERT_EQ(suelta.NumCampos(), 7);
        for (int16_t i = 1; i <= 7; ++i) {
            EXPECT_EQ(e->GetNombreCampo(i), suelta.GetNombreCampo(i));
            EXPECT_EQ(e->GetValorIndice(i), suelta.GetValorIndice(i));
        }
    }
    rs->Close();
    const auto& e = l->Item(1);
    EXPECT_EQ(e->GetNombreCampo(int16_t{3}), "A\xC3\xB1o");
    EXPECT_EQ(CDbl(e->GetValor("a\xC3\xB1O")), 5.0);
    EXPECT_EQ(CDbl(e->GetValor("x Y")), 7.0);
    EXPECT_EQ(CDbl(e->GetValor("\xC3\x81RBOL")), 8.0);
    EXPECT_EQ(CDbl(e->GetValor("arbol")), 9.0);
}

TEST_P(GenericDb, ObjectsOfALoadedRowOutliveTheListAndEachOther) {
    entElementoRef elemento;
    coleccionElementosRef campos;
    entidadGenericaRef entidad;
    {
        auto l = Cargar("select 'uno' as a, 'un texto bastante mas largo que quince' as b union all select 'dos', 'x'");
        ASSERT_EQ(l->Count(), 2);
        elemento = l->Item(1)->Campos->Item(2);
        campos = l->Item(2)->Campos;
        entidad = l->Item(2);
        l->Item(1)->Campos->Remove(2);
    }
    entidad->Campos = nullptr;
    entidad.reset();
    EXPECT_EQ(elemento->Nombre, "b");
    EXPECT_EQ(elemento->Valor, Variant("un texto bastante mas largo que quince"));
    EXPECT_EQ(elemento->TypeName(), "entElemento");
    ASSERT_EQ(campos->Count(), 2);
    EXPECT_EQ(campos->ItemClave("A")->Valor, Variant("dos"));
    campos->AddEntidad(elemento);
    EXPECT_EQ(campos->Count(), 3);
    campos.reset();
    elemento->Valor = Variant(1);
    EXPECT_EQ(elemento->GetValor("valor"), Variant(1));
}

// ---- entidadGenerica.CargarEntidad ------------------------------------------

TEST_P(GenericDb, CargarEntidadTwiceWithTheSameColumnsKeepsTheFieldCountAndTakesTheSecondRow) {
    auto rs = Abrir("select 1 as a, 'x' as b union all select 2, 'y'");
    entidadGenerica e;
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.NumCampos(), 2);
    rs->MoveNext();
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.NumCampos(), 2);
    EXPECT_EQ(e.GetValor("a"), Variant(int32_t{2}));
    EXPECT_EQ(e.GetValor("B"), Variant("y"));
    rs->Close();
}

TEST_P(GenericDb, CargarEntidadKeepsFieldsTheRowDoesNotNameAndAddsNewOnesBehind) {
    entidadGenerica e;
    e.SetValor("propio", Variant("p"));
    e.SetValor("A", Variant(0));
    auto rs = Abrir("select 5 as a, 6 as c");
    e.CargarEntidad(rs->Fields());
    ASSERT_EQ(e.NumCampos(), 3);
    EXPECT_EQ(e.GetNombreCampo(int16_t{1}), "propio");
    EXPECT_EQ(e.GetNombreCampo(int16_t{2}), "A");
    EXPECT_EQ(e.GetNombreCampo(int16_t{3}), "c");
    EXPECT_EQ(e.GetValor("propio"), Variant("p"));
    EXPECT_EQ(e.GetValor("a"), Variant(int32_t{5}));
    rs->Close();
}

// ---- CargarDe and CargarEn ---------------------------------------------------

TEST_P(GenericDb, CargarDeFromATicketGives24FieldsEndingWithIdTicket) {
    CrearTicketYLineas();
    daticket da;
    da.Conexion = cn;
    auto tickets = da.Listar();
    ASSERT_EQ(tickets->Count(), 1);
    ASSERT_EQ(tickets->Item(1)->idTPVTransaccion, 99);
    entidadGenerica e;
    e.CargarDe(tickets->Item(1));
    ASSERT_EQ(e.NumCampos(), 24);
    EXPECT_EQ(e.GetNombreCampo(int16_t{24}), "idTicket");
    EXPECT_EQ(e.GetValor("idTicket"), Variant(int32_t{4}));
    EXPECT_EQ(e.GetValor("CD_TICKET"), Variant(int32_t{500}));
    EXPECT_EQ(e.GetValor("ImpNeto_T"), Variant(12.5));
    EXPECT_EQ(e.GetValor("idTPVTransaccion"), Variant("#ERROR#"));
}

TEST_P(GenericDb, CargarEnIntoAnArticleStoresKnownFieldsAndDropsUnknownOnesSilently) {
    auto l = Cargar("select 'A-1' as CD_ARTICULO, 'sobra' as NoEsCampo, 3 as TIPO_FAMILIA, 'Pan' as desc_articulo");
    ASSERT_EQ(l->Count(), 1);
    entarticulo art;
    EXPECT_NO_THROW(l->Item(1)->CargarEn(art));
    EXPECT_EQ(art.CD_ARTICULO, "A-1");
    EXPECT_EQ(art.TIPO_FAMILIA, 3);
    EXPECT_EQ(art.DESC_ARTICULO, "Pan");
}

// ---- the seven queries on a generic list and on the typed list -----------------

namespace {

template <class L>
std::vector<std::string> Codigos(L& lista) {
    std::vector<std::string> r;
    for (const auto& e : lista) r.push_back(CStr(e->GetValor("CD_ARTICULO")));
    return r;
}

// Everything the seven queries answer for one list, as text.
template <class L>
std::vector<std::string> Consultas(L& lista) {
    std::vector<std::string> r;
    const char* campos[] = {"COD_TRANSACC", "FECHA_REAL",  "HORA_REAL",       "CD_OP",     "TIPO_OPERACION",
                            "CD_ARTICULO",  "IDARTICOLGS1", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "PRECIOMAX",
                            "DESC_ARTICULO", "DESC_CORTA", "no_existe"};
    auto unir = [](const std::vector<std::string>& v) {
        std::string s;
        for (const auto& x : v) s += x + ",";
        return s;
    };
    for (const char* campo : campos) {
        std::string c = campo;
        r.push_back(c + " asc " + unir(Codigos(*lista.OrderBy(c))));
        r.push_back(c + " desc " + unir(Codigos(*lista.OrderBy(c, true))));
        r.push_back(c + " suma " + CStr(Variant(lista.ObtenerSuma(c))));
        r.push_back(c + " media " + CStr(Variant(lista.ObtenerMedia(c))));
        r.push_back(c + " max " + CStr(Variant(lista.ObtenerMaximo(c))));
        r.push_back(c + " min " + CStr(Variant(lista.ObtenerMinimo(c))));
    }
    for (auto [campo, valor] : {std::pair<const char*, const char*>{"TIPO_FAMILIA", "2"},
                                {"CD_ARTICULO", "pan"},
                                {"DESC_CORTA", "igual"},
                                {"PRECIOMAX", "1,5"},
                                {"FECHA_REAL", "05/03/2024"},
                                {"TIPO_FAMILIA", "2.0"},
                                {"no_existe", "#ERROR#"}}) {
        r.push_back(std::string("where ") + campo + "=" + valor + " " + unir(Codigos(*lista.Where(campo, valor))));
    }
    // A handler that keeps the elements of family 2 and writes its answer every time.
    lista.DelegadoEvaluaElementoWhere.Attach([](std::string& id, auto& elem, bool& resultado) {
        resultado = id == "familia" && CStr(elem->GetValor("TIPO_FAMILIA")) == "2";
    });
    r.push_back("delegado " + unir(Codigos(*lista.WhereDelegado("familia"))));
    r.push_back("delegado otro " + unir(Codigos(*lista.WhereDelegado("otro"))));
    return r;
}

}  // namespace

TEST_P(GenericDb, AGenericListFromAQuerySortsFiltersAndTotalsAsTheTypedListOfTheSameRows) {
    daarticulo da;
    da.Conexion = cn;
    ASSERT_TRUE(da.CrearTabla());
    cn->Execute(
        "insert into articulo values "
        "(1, '2024-03-05', '1000', 10, 1, 'PAN', 'G1', 2, 20, 1.5, 'Pan de barra', 'igual'),"
        "(2, '2024-03-04', '0900', -5, 1, 'agua', 'G2', 1, 10, 0.75, 'agua mineral', 'Igual'),"
        "(3, '2024-03-05', '1100', 7, 2, 'Cafe', 'G3', 2, 21, 1.5, 'CAFE solo', 'otra'),"
        "(4, '2023-12-31', '2359', 0, 1, 'zumo', 'G4', 3, 30, 2.25, 'Zumo', 'IGUAL'),"
        "(5, '2024-01-01', '0000', 10, 3, 'Bocadillo', 'G5', 2, 20, 4.1, 'bocadillo', 'z'),"
        "(6, '2024-03-05', '1000', 3, 1, 'te', '10', 9, 9, 1.2, 'Te', '9')");
    auto tipada = da.Listar();
    auto rs = da.rsListar();
    coleccionGenerica generica;
    generica.Cargar(rs);
    rs->Close();
    ASSERT_EQ(tipada->Count(), 6);
    ASSERT_EQ(generica.Count(), 6);
    EXPECT_EQ(Codigos(*tipada), Codigos(generica));
    const auto esperado = Consultas(*tipada);
    const auto obtenido = Consultas(generica);
    ASSERT_EQ(esperado.size(), obtenido.size());
    for (size_t i = 0; i < esperado.size(); ++i) EXPECT_EQ(obtenido[i], esperado[i]);
    // The queries on both are the one implementation: the generic list's results are generic lists.
    EXPECT_EQ(generica.OrderBy("CD_OP")->TypeName(), "coleccionGenerica");
}

// ---- entElemento and entEntidadSimple from a row ---------------------------------

TEST_P(GenericDb, entElementoCargarEntidadWithoutAColumnNombreLeavesNombreAtZero) {
    auto rs = Abrir("select 'v' as Valor");
    entElemento e;
    e.Nombre = "antes";
    EXPECT_NO_THROW(e.CargarEntidad(rs->Fields()));
    EXPECT_EQ(e.Nombre, "0");
    EXPECT_EQ(e.Valor, Variant("v"));
    rs->Close();
}

TEST_P(GenericDb, entElementoCargarEntidadReadsNombreAsTextAndANullValorAsTheIntegerZero) {
    auto rs = Abrir("select 12 as NOMBRE, null as valor");
    entElemento e;
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.Nombre, "12");
    EXPECT_EQ(e.Valor, Variant(int16_t{0}));
    rs->Close();
    rs = Abrir("select 'n' as Nombre, cast('2024-03-05' as date) as Valor");
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.Nombre, "n");
    EXPECT_EQ(e.Valor, Variant(Date::FromParts(2024, 3, 5)));
    rs->Close();
}

TEST_P(GenericDb, entEntidadSimpleCargarEntidadWithOnlyClave1AndDescripcionLeavesTheOtherKeysAtZero) {
    auto rs = Abrir("select 'A' as Clave1, 'Primera' as Descripcion");
    entEntidadSimple e;
    e.Clave2 = Variant("antes");
    e.Objeto = std::make_shared<Collection>();
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.Clave1, Variant("A"));
    EXPECT_EQ(e.Clave2, Variant(int16_t{0}));
    EXPECT_EQ(e.Clave3, Variant(int16_t{0}));
    EXPECT_EQ(e.Descripcion, "Primera");
    EXPECT_NE(e.Objeto, nullptr);  // not read
    rs->Close();
}

TEST_P(GenericDb, entEntidadSimpleLoadedFromAQueryIsFoundByItsKeys) {
    auto rs = Abrir("select 1 as Clave1, 'b' as Clave2, 0 as Clave3, 'Uno' as Descripcion union all "
                    "select 2, 'B', 0, null");
    colEntidadSimple l;
    while (!rs->EOF_()) {
        auto e = std::make_shared<entEntidadSimple>();
        e->CargarEntidad(rs->Fields());
        l.AddEntidad(e);
        rs->MoveNext();
    }
    rs->Close();
    ASSERT_EQ(l.Count(), 2);
    EXPECT_EQ(l.Item(2)->Descripcion, "");  // a null description reads as the empty text
    EXPECT_EQ(l.ItemClave(Variant(2), Variant("b"), Variant(0)), l.Item(2));
    EXPECT_EQ(l.ItemClave(Variant("2"), Variant("b"), Variant(0)), nullptr);
}
