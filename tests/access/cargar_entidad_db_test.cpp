// CargarEntidad finds each field's column by its name, whatever the order of
// the columns, and converts a cell of another type than the field's as the
// field's conversion does; a loader reading every row of a recordset finds
// its columns once, and finds them again when the recordset opens on other
// columns. On both roads.
#include <gtest/gtest.h>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/tables/articulo.h"
#include "access/articulo_db.h"

using namespace OVT_ZARO;
using zaro_test::Capturar;

namespace {

class CargarEntidadDb : public zaro_test::ArticuloDb {
protected:
    void SetUp() override {
        ArticuloDb::SetUp();
        ASSERT_TRUE(da->CrearTabla());
        cn->Execute(
            "insert into articulo (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, "
            "IDARTICOLGS1, TIPO_FAMILIA, TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA) values "
            "(7, '2026-03-14', '1030', 2, 1, 'A1', '8410', 3, 30, 1.25, 'Caf\xC3\xA9 solo', 'Caf\xC3\xA9'), "
            "(8, '0000-00-00', NULL, NULL, 2, 'A2', NULL, 4, 40, NULL, NULL, 'Agua')");
    }
    static void EsperarA1(const entarticulo& e) {
        EXPECT_EQ(e.COD_TRANSACC, 7);
        EXPECT_EQ(e.FECHA_REAL, Date::FromParts(2026, 3, 14));
        EXPECT_EQ(e.HORA_REAL, "1030");
        EXPECT_EQ(e.CD_OP, 2);
        EXPECT_EQ(e.TIPO_OPERACION, 1);
        EXPECT_EQ(e.CD_ARTICULO, "A1");
        EXPECT_EQ(e.IDARTICOLGS1, "8410");
        EXPECT_EQ(e.TIPO_FAMILIA, 3);
        EXPECT_EQ(e.TIPO_SUBFAMILIA, 30);
        EXPECT_EQ(e.PRECIOMAX, 1.25);
        EXPECT_EQ(e.DESC_ARTICULO, "Caf\xC3\xA9 solo");
        EXPECT_EQ(e.DESC_CORTA, "Caf\xC3\xA9");
    }
};

}  // namespace

TEST_P(CargarEntidadDb, ColumnsInAnotherOrderAndInOtherCasesFillTheSameFields) {
    auto rs = cn->Execute(
        "select desc_corta, Desc_Articulo, PRECIOMAX, tipo_subfamilia, TIPO_FAMILIA, IDARTICOLGS1, CD_ARTICULO, "
        "TIPO_OPERACION, CD_OP, HORA_REAL, FECHA_REAL, COD_TRANSACC, 'de sobra' as OTRA from articulo "
        "where CD_ARTICULO = 'A1'");
    entarticulo e;
    e.CargarEntidad(rs->Fields());
    EsperarA1(e);
}

TEST_P(CargarEntidadDb, NullCellsAndTheZeroDateGiveZerosEmptyTextAndTheZeroDate) {
    auto rs = cn->Execute("select * from articulo where CD_ARTICULO = 'A2'");
    entarticulo e;
    e.FECHA_REAL = Date::FromParts(2020, 1, 1);
    e.HORA_REAL = "previa";
    e.CD_OP = 9;
    e.PRECIOMAX = 9.5;
    e.DESC_ARTICULO = "previa";
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.COD_TRANSACC, 8);
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
    EXPECT_EQ(e.FECHA_REAL, CDate(Variant(int16_t{0})));
    EXPECT_EQ(e.HORA_REAL, "");
    EXPECT_EQ(e.CD_OP, 0);
    EXPECT_EQ(e.PRECIOMAX, 0.0);
    EXPECT_EQ(e.IDARTICOLGS1, "");
    EXPECT_EQ(e.DESC_ARTICULO, "");
    EXPECT_EQ(e.DESC_CORTA, "Agua");
}

TEST_P(CargarEntidadDb, CellsOfOtherTypesAreConvertedAsTheFieldsConversionDoes) {
    auto rs = cn->Execute(
        "select '12' as COD_TRANSACC, 3.5 as CD_OP, 4.5 as TIPO_OPERACION, CAST(1 AS UNSIGNED) as TIPO_FAMILIA, "
        "'2026-03-01' as FECHA_REAL, 1234 as HORA_REAL, 2.5 as DESC_ARTICULO, DATE '2026-01-02' as DESC_CORTA, "
        "'7,5' as PRECIOMAX, 3000000000 - 2999999999 as TIPO_SUBFAMILIA, '' as CD_ARTICULO");
    entarticulo e;
    e.CD_ARTICULO = "previa";
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.COD_TRANSACC, 12);
    EXPECT_EQ(e.CD_OP, CLng(Variant(3.5)));           // rounds half to even: 4
    EXPECT_EQ(e.TIPO_OPERACION, CLng(Variant(4.5)));  // 4
    EXPECT_EQ(e.TIPO_FAMILIA, 1);
    EXPECT_EQ(e.TIPO_SUBFAMILIA, 1);
    EXPECT_EQ(e.FECHA_REAL, CDate(Variant("2026-03-01")));
    EXPECT_EQ(e.HORA_REAL, "1234");
    EXPECT_EQ(e.DESC_ARTICULO, CStr(Variant(2.5)));
    EXPECT_EQ(e.DESC_CORTA, CStr(Variant(Date::FromParts(2026, 1, 2))));
    EXPECT_EQ(e.PRECIOMAX, CDbl(Variant("7,5")));
    EXPECT_EQ(e.CD_ARTICULO, "");
}

TEST_P(CargarEntidadDb, OfTwoColumnsOfOneNameTheFirstIsRead) {
    auto rs = cn->Execute("select 'primera' as DESC_CORTA, 'segunda' as desc_corta, 5 as CD_OP, 6 as CD_OP");
    entarticulo e;
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.DESC_CORTA, "primera");
    EXPECT_EQ(e.CD_OP, 5);
}

TEST_P(CargarEntidadDb, AFailingFieldRaisesAfterTheFieldsBeforeItAreLoaded) {
    auto rs = cn->Execute("select 3 as COD_TRANSACC, 'texto' as CD_OP, 'A9' as CD_ARTICULO");
    entarticulo e;
    e.CD_OP = 9;
    e.CD_ARTICULO = "previa";
    Error err = Capturar([&] { e.CargarEntidad(rs->Fields()); });
    EXPECT_EQ(err.Number, 13);
    EXPECT_EQ(err.Source, " entarticulo");
    EXPECT_EQ(e.COD_TRANSACC, 3);
    EXPECT_EQ(e.CD_OP, 9);
    EXPECT_EQ(e.CD_ARTICULO, "previa");
}

TEST_P(CargarEntidadDb, WithoutACurrentRowEveryFieldGetsItsDefault) {
    auto rs = cn->Execute("select * from articulo where CD_ARTICULO = 'ninguno'");
    ASSERT_TRUE(rs->EOF_());
    entarticulo e;
    e.CD_OP = 9;
    e.DESC_CORTA = "previa";
    e.CargarEntidad(rs->Fields());
    EXPECT_EQ(e.CD_OP, 0);
    EXPECT_EQ(e.DESC_CORTA, "");
    EXPECT_TRUE(e.FECHA_REAL.IsZero());
}

TEST_P(CargarEntidadDb, TwoRecordsetsOfOtherColumnOrdersLoadedInTurnEachFindTheirOwn) {
    auto uno = cn->Execute("select * from articulo order by CD_ARTICULO");
    auto otro = cn->Execute("select DESC_CORTA, CD_ARTICULO, CD_OP from articulo order by CD_ARTICULO desc");
    entarticulo a, b, c, d;
    a.CargarEntidad(uno->Fields());
    b.CargarEntidad(otro->Fields());
    uno->MoveNext();
    otro->MoveNext();
    c.CargarEntidad(uno->Fields());
    d.CargarEntidad(otro->Fields());
    EsperarA1(a);
    EXPECT_EQ(b.CD_ARTICULO, "A2");
    EXPECT_EQ(b.DESC_CORTA, "Agua");
    EXPECT_EQ(b.COD_TRANSACC, 0);
    EXPECT_EQ(c.CD_ARTICULO, "A2");
    EXPECT_EQ(c.COD_TRANSACC, 8);
    EXPECT_EQ(d.CD_ARTICULO, "A1");
    EXPECT_EQ(d.CD_OP, 2);
    EXPECT_EQ(d.COD_TRANSACC, 0);
}

TEST_P(CargarEntidadDb, ARecordsetOpenedAgainOnOtherColumnsFindsThemAnew) {
    ADODB::Recordset rs;
    rs.Open("select * from articulo where CD_ARTICULO = 'A1'", cn, ADODB::adOpenStatic);
    entarticulo a;
    a.CargarEntidad(rs.Fields());
    rs.Close();
    rs.Open("select CD_OP as CD_ARTICULO, CD_ARTICULO as DESC_CORTA from articulo where CD_ARTICULO = 'A1'", cn,
            ADODB::adOpenStatic);
    entarticulo b;
    b.CargarEntidad(rs.Fields());
    rs.Close();
    EsperarA1(a);
    EXPECT_EQ(b.CD_ARTICULO, "2");
    EXPECT_EQ(b.DESC_CORTA, "A1");
    EXPECT_EQ(b.CD_OP, 0);
}

TEST_P(CargarEntidadDb, AForwardOnlyReadLoadsEveryRowAcrossItsChunks) {
    cn->Execute(
        "insert into articulo (COD_TRANSACC, CD_ARTICULO, FECHA_REAL, PRECIOMAX, DESC_CORTA) select seq, "
        "CONCAT('B', LPAD(seq, 4, '0')), '2026-01-01' + INTERVAL (seq MOD 28) DAY, (seq MOD 400) / 4, "
        "IF(seq MOD 3 = 0, NULL, CONCAT('c', seq)) from seq_1_to_1000");
    ADODB::Recordset rs;
    rs.Open("select * from articulo where CD_ARTICULO like 'B%' order by CD_ARTICULO", cn, ADODB::adOpenForwardOnly);
    int32_t n = 0;
    while (!rs.EOF_()) {
        entarticulo e;
        e.CargarEntidad(rs.Fields());
        ++n;
        ASSERT_EQ(e.COD_TRANSACC, n);
        ASSERT_EQ(e.FECHA_REAL, Date::FromParts(2026, 1, 1 + n % 28));
        ASSERT_EQ(e.PRECIOMAX, (n % 400) / 4.0);
        ASSERT_EQ(e.DESC_CORTA, n % 3 == 0 ? std::string() : "c" + std::to_string(n));
        rs.MoveNext();
    }
    EXPECT_EQ(n, 1000);
}

INSTANTIATE_TEST_SUITE_P(Roads, CargarEntidadDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);
