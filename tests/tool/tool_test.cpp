// End-to-end tests of the host tool zaro: the built program run as a
// subprocess on the embedded database and on a real MariaDB server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "ZARODatos/tables/DataAdapters.h"
#include "tool/tool_run.h"

namespace zaro_tool_test {
namespace {

using ::testing::HasSubstr;
using OVT_ZARO::CStr;
using OVT_ZARO::DataAdapters;
using OVT_ZARO::Variant;
using ::testing::Not;

// The report of a demo run: from its title line to the end.
std::string Report(const std::string& out) {
    const size_t at = out.find("Trading day ");
    return at == std::string::npos ? std::string() : out.substr(at);
}

// The rows of a table as `zaro tables` prints them: "  name   count".
std::string TableLine(const std::string& tablesOut, const std::string& tabla) {
    for (const std::string& line : Lines(tablesOut)) {
        std::istringstream words(line);
        std::string name, count;
        words >> name >> count;
        if (name == tabla) return count;
    }
    return "not listed";
}

const char* const kDemoTables[] = {"articulo",    "inicio_dia",      "ticket",
                                   "ticket_articulo", "ticket_impuesto", "ticket_pago",
                                   "fin_dia",     "resumen_diario",  "resumen_diario_detalle"};

using ToolDemo = ToolTest;

TEST_P(ToolDemo, DemoTwiceReplacesTheSameDayAndReportsTheSameFigures) {
    const Outcome first = Zaro({"demo", "--out", "out"});
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_THAT(first.out, HasSubstr("day 14/03/2026: recorded for the first time"));
    EXPECT_THAT(first.out, HasSubstr("the site's own statement made ticket, ticket_articulo"));
    EXPECT_THAT(first.out, HasSubstr("recorded: 19 articles, 3 starts of day, 45 tickets with 105 article lines, "
                                     "64 tax lines and 48 payments, 3 ends of day"));
    EXPECT_THAT(first.out, HasSubstr("saved: 3 daily summaries (resumen_diario), 24 detail rows"));
    EXPECT_THAT(first.out, HasSubstr("Trading day 14/03/2026: 45 tickets, gross 627,45 after returns"));
    // The day's line of both parts of the report: sales less returns.
    EXPECT_THAT(first.out, ::testing::ContainsRegex("day +42 +2 +1 +627,45 +569,19 +58,26 +11,40"));
    EXPECT_THAT(first.out, ::testing::ContainsRegex("day +154 +627,45 +569,19 +58,26 +11,40"));
    EXPECT_EQ(first.err, "");

    const Outcome second = Zaro({"demo", "--out", "out"});
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_THAT(second.out, HasSubstr("day 14/03/2026: replaced (295 rows of the day deleted first)"));
    EXPECT_THAT(second.out, HasSubstr("tables: 1 created, 9 kept with rows"));
    EXPECT_EQ(Report(second.out), Report(first.out));
    EXPECT_NE(Report(first.out), "");

    const Outcome tables = Zaro({"tables"});
    ASSERT_EQ(tables.status, 0) << tables.err;
    EXPECT_EQ(TableLine(tables.out, "ticket"), "45");
    EXPECT_EQ(TableLine(tables.out, "ticket_articulo"), "105");
    EXPECT_EQ(TableLine(tables.out, "ticket_impuesto"), "64");
    EXPECT_EQ(TableLine(tables.out, "ticket_pago"), "48");
    EXPECT_EQ(TableLine(tables.out, "inicio_dia"), "3");
    EXPECT_EQ(TableLine(tables.out, "fin_dia"), "3");
    EXPECT_EQ(TableLine(tables.out, "resumen_diario"), "3");
    EXPECT_EQ(TableLine(tables.out, "resumen_diario_detalle"), "24");
    EXPECT_EQ(TableLine(tables.out, "articulo"), "19");
}

TEST_P(ToolDemo, DemoWritesTheDaysTextAndXmlPerTable) {
    const Outcome run = Zaro({"demo", "--out", "out"});
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* tabla : kDemoTables) {
        const std::string base = Path("out/") + tabla + "_20260314";
        ASSERT_TRUE(Exists(base + ".txt")) << base;
        ASSERT_TRUE(Exists(base + ".xml")) << base;
    }
    const std::string tickets = ReadText(Path("out/ticket_20260314.txt"));
    EXPECT_EQ(Occurrences(tickets, "\r\n"), 46u);  // 45 rows and the closing CR LF
    EXPECT_EQ(tickets.substr(tickets.size() - 5), ";\r\n\r\n");
    const std::string xml = ReadText(Path("out/ticket_20260314.xml"));
    EXPECT_THAT(xml, HasSubstr("<datos tabla=\"ticket\" filas=\"45\">"));
    EXPECT_EQ(Occurrences(xml, "<ticket>"), 45u);
    EXPECT_EQ(Occurrences(xml, "<idTicket>"), 45u);  // ToXML stops at idTicket
    EXPECT_EQ(Occurrences(xml, "<CODNACIONALIDAD>"), 0u);
    // The summary's detail holds the figures the report adds up.
    const std::string resumen = ReadText(Path("out/resumen_diario_20260314.txt"));
    EXPECT_THAT(resumen, HasSubstr("3;14/03/2026;220001;1;1;14/03/2026;1001;1015;14;206,32;187,4;6,83;1;1,9;"));
}

TEST_P(ToolDemo, DemoSavesTheSitesThreeColumnsOfTheSummaries) {
    ASSERT_EQ(Zaro({"demo", "--out", "out"}).status, 0);
    const Outcome q = Zaro({"query", "select idEmpresa, idRestaurante, idTPV from resumen_diario order by idTPV"});
    ASSERT_EQ(q.status, 0) << q.err;
    EXPECT_THAT(q.out, ::testing::ContainsRegex("1 +12 +1\n +1 +12 +2\n +1 +12 +3\n"));
    EXPECT_THAT(q.out, HasSubstr("(3 rows)"));
}

TEST_P(ToolDemo, DemoWithAMissingSampleFolderNamesIt) {
    const Outcome run = Zaro({"demo", "--sample", "nowhere"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("zaro: can not read nowhere/articulo.txt: No such file or directory"));
}

INSTANTIATE_TEST_SUITE_P(Roads, ToolDemo, ::testing::ValuesIn(ToolRoads()), ToolRoadName);

using ToolInit = ToolTest;

TEST_P(ToolInit, InitOnAnEmptyDatabaseMakesTheTenTablesAndSaysHow) {
    const Outcome run = Zaro({"init"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, ::testing::ContainsRegex("_definicion_campos +created\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("articulo +created\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("ticket +refused by the database; made the site's own table\n"));
    EXPECT_THAT(run.out,
                ::testing::ContainsRegex("ticket_articulo +refused by the database; made the site's own table\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex(
                             "resumen_diario +created; added the site's columns idEmpresa, idRestaurante, idTPV\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("resumen_diario_detalle +created; added the site's columns "
                                                  "idEmpresa, idRestaurante, idTPV\n"));
    const Outcome tables = Zaro({"tables"});
    ASSERT_EQ(tables.status, 0);
    const auto tablas = DataAdapters().Tablas();
    for (const Variant& tabla : *tablas)
        EXPECT_EQ(TableLine(tables.out, CStr(tabla)), "0") << CStr(tabla);
    // The site's ticket table has the columns the adapter's select list names.
    const Outcome q = Zaro({"query", "select idTPVTransaccion, CODNACIONALIDAD from ticket"});
    EXPECT_EQ(q.status, 0) << q.err;
}

TEST_P(ToolInit, InitKeepsTablesThatHoldRows) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    ASSERT_EQ(Zaro({"import", "articulo", SampleFolder() + "/articulo.txt"}).status, 0);
    ASSERT_EQ(Zaro({"import", "ticket", SampleFolder() + "/ticket.txt"}).status, 0);
    const Outcome again = Zaro({"init"});
    ASSERT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.out, ::testing::ContainsRegex("articulo +kept, holds 19 rows\n"));
    EXPECT_THAT(again.out, ::testing::ContainsRegex("ticket +kept, holds 45 rows\n"));
    // An empty table is made anew, and for ticket_articulo that means the site's statement again.
    EXPECT_THAT(again.out, ::testing::ContainsRegex("inicio_dia +created\n"));
    EXPECT_THAT(again.out,
                ::testing::ContainsRegex("ticket_articulo +refused by the database; made the site's own table\n"));
    // The summaries made anew get their three columns again.
    EXPECT_THAT(again.out, ::testing::ContainsRegex("resumen_diario +created; added the site's columns"));
    const Outcome tables = Zaro({"tables"});
    EXPECT_EQ(TableLine(tables.out, "articulo"), "19");
    EXPECT_EQ(TableLine(tables.out, "ticket"), "45");
}

INSTANTIATE_TEST_SUITE_P(Roads, ToolInit, ::testing::ValuesIn(ToolRoads()), ToolRoadName);

class ToolExchange : public ToolTest {
protected:
    // Writes the text to a file of the work folder and imports it into the table.
    Outcome ImportText(const std::string& tabla, const std::string& text) {
        WriteText(Path(tabla + "-in.txt"), text);
        return Zaro({"import", tabla, tabla + "-in.txt"});
    }
};

TEST_P(ToolExchange, ExportThenImportIntoAnEmptyTableGivesTheSameRows) {
    ASSERT_EQ(Zaro({"demo", "--out", "out"}).status, 0);
    for (const char* tabla : kDemoTables) {
        SCOPED_TRACE(tabla);
        const Outcome exported = Zaro({"export", tabla, "--out", std::string(tabla) + ".txt"});
        ASSERT_EQ(exported.status, 0) << exported.err;
        const std::string before = ReadText(Path(std::string(tabla) + ".txt"));
        const size_t rows = Occurrences(before, "\r\n") - 1;
        ASSERT_GT(rows, 0u);
        ASSERT_EQ(Zaro({"query", "--write", std::string("delete from ") + tabla}).status, 0);
        const Outcome imported = Zaro({"import", tabla, std::string(tabla) + ".txt"});
        ASSERT_EQ(imported.status, 0) << imported.out << imported.err;
        // The two rows of all defaults that the closing CR LF gives fail CamposOk.
        EXPECT_THAT(imported.out, HasSubstr("saved " + std::to_string(rows) + " rows (" + std::to_string(rows) +
                                            " inserted, 0 updated); skipped 2 empty lines"));
        const Outcome again = Zaro({"export", tabla});
        ASSERT_EQ(again.status, 0);
        EXPECT_EQ(again.out, before);
    }
}

TEST_P(ToolExchange, ImportOfAFileWithABadRowReportsItAndSavesTheOthers) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = ImportText("articulo",
                                   "0;14/03/2026;;0;1;A1;;1;1;1,5;Uno;Uno;\r\n"
                                   "0;14/03/2026;;0;1;;;1;1;2,5;Sin codigo;Sin codigo;\r\n"
                                   "0;14/03/2026;;0;1;A3;;1;1;3;Tres;Tres;\r\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("  line 2 skipped: El campo [CD_ARTICULO] es obligatorio.\n"));
    EXPECT_THAT(run.out, HasSubstr("saved 2 rows (2 inserted, 0 updated); skipped 1 row; skipped 1 empty line\n"));
    const Outcome exported = Zaro({"export", "articulo"});
    EXPECT_EQ(exported.out,
              "0;14/03/2026;;0;1;A1;;1;1;1,5;Uno;Uno;\r\n"
              "0;14/03/2026;;0;1;A3;;1;1;3;Tres;Tres;\r\n\r\n");
}

TEST_P(ToolExchange, ImportUpdatesRowsWhoseKeyExists) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    ASSERT_EQ(Zaro({"import", "articulo", SampleFolder() + "/articulo.txt"}).status, 0);
    const Outcome run =
        ImportText("articulo", "8;14/03/2026;050000;0;1;BEB001;8400000000017;1;1;1,75;Café solo;Café solo;\r\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("saved 1 row (0 inserted, 1 updated)"));
    const Outcome q = Zaro({"query", "select PRECIOMAX from articulo where CD_ARTICULO = 'BEB001'"});
    EXPECT_THAT(q.out, HasSubstr("1,75"));
}

TEST_P(ToolExchange, ImportStopsAtADatabaseErrorAndKeepsTheRowsSavedBeforeIt) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    // PRECIOMAX is decimal(5,3): 123,5 does not fit.
    const Outcome run = ImportText("articulo",
                                   "0;;;0;1;A1;;1;1;1,5;Uno;Uno;\r\n"
                                   "0;;;0;1;A2;;1;1;123,5;Caro;Caro;\r\n"
                                   "0;;;0;1;A3;;1;1;3;Tres;Tres;\r\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.out, HasSubstr("saved 1 row (1 inserted, 0 updated)"));
    EXPECT_THAT(run.err, ::testing::MatchesRegex("zaro: import stopped at line 2: error 1264 \\([^)]+\\): Out of "
                                                 "range value for column 'PRECIOMAX' at row 1; 1 row saved before "
                                                 "it stays saved, the lines after it were not tried\n"));
    const Outcome q = Zaro({"query", "select CD_ARTICULO from articulo"});
    EXPECT_THAT(q.out, HasSubstr("(1 row)"));
    EXPECT_THAT(q.out, HasSubstr("A1"));
}

TEST_P(ToolExchange, ImportReadsBareLineFeedsAsTheExchangesLineEnds) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = ImportText("inicio_dia", "1;14/03/2026;0600;7;14/03/2026;\n2;14/03/2026;0601;8;14/03/2026;\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("saved 2 rows (2 inserted, 0 updated); skipped 1 empty line\n"));
}

TEST_P(ToolExchange, ImportDropsAByteOrderMark) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = ImportText("fin_dia", "\xEF\xBB\xBF" "9;14/03/2026;2200;7;14/03/2026;\r\n");
    EXPECT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_EQ(Zaro({"export", "fin_dia"}).out, "9;14/03/2026;2200;7;14/03/2026;\r\n\r\n");
}

TEST_P(ToolExchange, ImportAndExportTakeAnotherSeparator) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    WriteText(Path("tab.txt"), "1\t14/03/2026\t0600\t7\t14/03/2026\t\r\n");
    ASSERT_EQ(Zaro({"import", "fin_dia", "tab.txt", "--sep", "\\t"}).status, 0);
    const Outcome run = Zaro({"export", "fin_dia", "--sep", "||"});
    EXPECT_EQ(run.out, "1||14/03/2026||0600||7||14/03/2026||\r\n\r\n");
}

TEST_P(ToolExchange, XmlGathersTheToXmlOfEachRowUnderOneRoot) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    ASSERT_EQ(Zaro({"import", "inicio_dia", SampleFolder() + "/inicio_dia.txt"}).status, 0);
    const Outcome run = Zaro({"xml", "inicio_dia", "--where", "CD_OP = 2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<datos tabla=\"inicio_dia\" filas=\"1\">\n"
              "  <inicio_dia><COD_TRANSACC>1</COD_TRANSACC><FECHA_REAL>14/03/2026</FECHA_REAL>"
              "<HORA_REAL>060002</HORA_REAL><CD_OP>2</CD_OP><FECHA_CONTABLE>14/03/2026</FECHA_CONTABLE></inicio_dia>\n"
              "</datos>\n");
}

TEST_P(ToolExchange, TotalsFollowTheLibrarysRulesWithTheSeedZero) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    ASSERT_EQ(Zaro({"import", "articulo", SampleFolder() + "/articulo.txt"}).status, 0);
    const Outcome run = Zaro({"totals", "articulo", "PRECIOMAX", "--where", "TIPO_FAMILIA = 2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("articulo, 7 rows where TIPO_FAMILIA = 2:"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("sum +44,6\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("mean +6,37142857142857\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("maximum +14,5\n"));
    EXPECT_THAT(run.out, ::testing::ContainsRegex("minimum +0\n"));  // every price is above the seed 0
}

TEST_P(ToolExchange, QueryLoadsAnyStatementIntoGenericEntities) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    ASSERT_EQ(Zaro({"import", "articulo", SampleFolder() + "/articulo.txt"}).status, 0);
    const Outcome run =
        Zaro({"query", "select TIPO_FAMILIA, count(*) as n from articulo group by TIPO_FAMILIA order by 1"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "TIPO_FAMILIA  n\n"
              "           1  8\n"
              "           2  7\n"
              "           3  4\n"
              "(3 rows)\n");
    const Outcome change = Zaro({"query", "--write", "delete from articulo where TIPO_FAMILIA = 3"});
    EXPECT_EQ(change.out, "the statement ran; 4 rows changed\n");
}

TEST_P(ToolExchange, LogPrintsTheStatementsTheAdaptersLogged) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = Zaro({"--log", "export", "inicio_dia"});
    ASSERT_EQ(run.status, 0);
    EXPECT_THAT(run.err, HasSubstr("[inicio_dia] select  inicio_dia.COD_TRANSACC , inicio_dia.FECHA_REAL"));
    EXPECT_THAT(run.out, Not(HasSubstr("select")));
}

INSTANTIATE_TEST_SUITE_P(Roads, ToolExchange, ::testing::ValuesIn(ToolRoads()), ToolRoadName);

}  // namespace
}  // namespace zaro_tool_test
