// The database objects on both roads: the embedded database and a MariaDB
// server. Every test runs once per road.
#include <gtest/gtest.h>

#include <cmath>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/roads.h"

using namespace OVT_ZARO;
using zaro_test::Road;

namespace {

// The table of every column type, in the library's dialect.
const char* const kCreateTipos =
    "CREATE TABLE `tipos` ( "
    "  `ID` int(11) NOT NULL default '0', "
    "  `PEQ` smallint(6) NOT NULL default '0', "
    "  `MINI` tinyint(4) NOT NULL default '0', "
    "  `FLAG` tinyint(1) NOT NULL default '0', "
    "  `MEDIO` mediumint(9) NOT NULL default '0', "
    "  `SINSIGNO` int(10) unsigned NOT NULL default '0', "
    "  `GRANDE` bigint(20) NOT NULL default '0', "
    "  `IMPORTE` decimal(12,2) NOT NULL default '0.00', "
    "  `DOBLE` double NOT NULL default '0', "
    "  `SIMPLE` float NOT NULL default '0', "
    "  `FECHA` date NOT NULL default '0000-00-00', "
    "  `MOMENTO` datetime NOT NULL default '0000-00-00 00:00:00', "
    "  `SELLO` timestamp NOT NULL default '0000-00-00 00:00:00', "
    "  `HORA` time NOT NULL default '00:00:00', "
    "  `CODIGO` char(3) NOT NULL default '', "
    "  `NOMBRE` varchar(40) NOT NULL default '', "
    "  `NOTAS` text, "
    "  `DATOS` blob, "
    "  `NULO` int(11) default NULL, "
    "  PRIMARY KEY  (`ID`) "
    ") ENGINE=MyISAM DEFAULT CHARSET=latin1";

const char* const kInsertTipos =
    "INSERT INTO `tipos` VALUES (7, -300, -5, 1, 70000, 4000000000, 9007199254740993, 1234.56, 0.1, 1.5, "
    "'2024-02-29', '2024-02-29 13:45:30', '2024-03-01 08:00:01', '10:30:15', 'ABC', 'Ñandú', 'nota larga', "
    "'\x01\x02', NULL)";

class Roads : public ::testing::TestWithParam<Road> {
protected:
    void SetUp() override {
        cn = zaro_test::OpenRoad(GetParam());
        zaro_test::DropAllTables(*cn);
    }
    void TearDown() override {
        if (cn && cn->State() == ADODB::adStateOpen) cn->Close();
    }
    std::shared_ptr<ADODB::Recordset> Open(const std::string& sql, int cursor,
                                           int location = ADODB::adUseServer) {
        auto rs = std::make_shared<ADODB::Recordset>();
        rs->CursorLocation = location;
        rs->Open(sql, cn, cursor, ADODB::adLockReadOnly, -1);
        return rs;
    }
    void MakeTipos(bool withRow = true) {
        cn->Execute(kCreateTipos);
        if (withRow) cn->Execute(kInsertTipos);
    }
    std::shared_ptr<ADODB::Connection> cn;
};

double Serial(int y, int m, int d, int h = 0, int mi = 0, int s = 0) {
    return Date::FromParts(y, m, d, h, mi, s).Serial();
}

struct Expect {
    const char* name;
    int type;
    int varType;
};

const Expect kExpected[] = {
    {"ID", ADODB::adInteger, vbLong},          {"PEQ", ADODB::adSmallInt, vbLong},
    {"MINI", ADODB::adTinyInt, vbLong},        {"FLAG", ADODB::adBoolean, vbBoolean},
    {"MEDIO", ADODB::adInteger, vbLong},       {"SINSIGNO", ADODB::adBigInt, vbLongLong},
    {"GRANDE", ADODB::adBigInt, vbLongLong},   {"IMPORTE", ADODB::adNumeric, vbDouble},
    {"DOBLE", ADODB::adDouble, vbDouble},      {"SIMPLE", ADODB::adSingle, vbDouble},
    {"FECHA", ADODB::adDBDate, vbDate},        {"MOMENTO", ADODB::adDBTimeStamp, vbDate},
    {"SELLO", ADODB::adDBTimeStamp, vbDate},   {"HORA", ADODB::adDBTime, vbDate},
    {"CODIGO", ADODB::adChar, vbString},       {"NOMBRE", ADODB::adVarChar, vbString},
    {"NOTAS", ADODB::adLongVarChar, vbString}, {"DATOS", ADODB::adLongVarBinary, vbArray | vbByte},
    {"NULO", ADODB::adInteger, vbNull},
};

void CheckTiposRow(ADODB::Recordset& rs) {
    ASSERT_FALSE(rs.EOF_());
    ADODB::Fields& f = rs.Fields();
    ASSERT_EQ(f.Count(), 19);
    for (int i = 0; i < 19; ++i) {
        SCOPED_TRACE(kExpected[i].name);
        EXPECT_EQ(f.Item(i).Name(), kExpected[i].name);
        EXPECT_EQ(f.Item(i).Type(), kExpected[i].type);
        EXPECT_EQ(f.Item(i).Value().VarType(), kExpected[i].varType);
    }
    EXPECT_EQ(f.Item("ID").Value(), Variant(int32_t{7}));
    EXPECT_EQ(f.Item("PEQ").Value(), Variant(int32_t{-300}));
    EXPECT_EQ(f.Item("MINI").Value(), Variant(int32_t{-5}));
    EXPECT_EQ(f.Item("FLAG").Value(), Variant(true));
    EXPECT_EQ(f.Item("MEDIO").Value(), Variant(int32_t{70000}));
    EXPECT_EQ(f.Item("SINSIGNO").Value(), Variant(int64_t{4000000000}));
    EXPECT_EQ(f.Item("GRANDE").Value(), Variant(int64_t{9007199254740993}));
    EXPECT_EQ(f.Item("IMPORTE").Value(), Variant(1234.56));
    EXPECT_EQ(f.Item("DOBLE").Value(), Variant(0.1));
    EXPECT_EQ(f.Item("SIMPLE").Value(), Variant(1.5));
    EXPECT_EQ(f.Item("FECHA").Value(), Variant(Date(Serial(2024, 2, 29))));
    EXPECT_EQ(f.Item("MOMENTO").Value(), Variant(Date(Serial(2024, 2, 29, 13, 45, 30))));
    EXPECT_EQ(f.Item("SELLO").Value(), Variant(Date(Serial(2024, 3, 1, 8, 0, 1))));
    EXPECT_DOUBLE_EQ(f.Item("HORA").Value().Get<Date>().Serial(), (10 * 3600 + 30 * 60 + 15) / 86400.0);
    EXPECT_EQ(f.Item("CODIGO").Value(), Variant("ABC"));
    EXPECT_EQ(f.Item("NOMBRE").Value(), Variant("Ñandú"));
    EXPECT_EQ(f.Item("NOTAS").Value(), Variant("nota larga"));
    EXPECT_EQ(f.Item("DATOS").Value(), Variant(ByteArray{1, 2}));
    EXPECT_TRUE(f.Item("NULO").Value().IsNull());
}

}  // namespace

TEST_P(Roads, EveryColumnTypeReadsWithItsTypeCodeAndSubtypeThroughAStaticRecordset) {
    MakeTipos();
    auto rs = Open("SELECT * FROM `tipos`", ADODB::adOpenStatic);
    CheckTiposRow(*rs);
    EXPECT_EQ(rs->RecordCount(), 1);
}

TEST_P(Roads, EveryColumnTypeReadsWithItsTypeCodeAndSubtypeThroughAForwardOnlyRecordset) {
    MakeTipos();
    auto rs = Open("SELECT * FROM `tipos`", ADODB::adOpenForwardOnly);
    EXPECT_EQ(rs->CursorType, ADODB::adOpenForwardOnly);
    CheckTiposRow(*rs);
    EXPECT_EQ(rs->RecordCount(), -1);
}

TEST_P(Roads, EveryColumnTypeReadsWithItsTypeCodeAndSubtypeThroughExecute) {
    MakeTipos();
    auto rs = cn->Execute("SELECT * FROM `tipos`");
    ASSERT_TRUE(rs);
    CheckTiposRow(*rs);
}

INSTANTIATE_TEST_SUITE_P(Both, Roads, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);
