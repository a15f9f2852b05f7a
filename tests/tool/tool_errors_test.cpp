// zaro's failures: one clear line on standard error, exit status 1 for a
// mistake in the command line and 2 for a data or database error, never a
// crash.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ZARODatos/core/Version.h"
#include "support/mariadb_server.h"
#include "tool/tool_run.h"

namespace zaro_tool_test {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

const char* const kTryHelp = "Try 'zaro --help'.\n";

using ToolErrors = ToolTest;

TEST_P(ToolErrors, AnUnknownCommandIsAUsageError) {
    const Outcome run = Zaro({"frobnicate"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, std::string("zaro: unknown command 'frobnicate'\n") + kTryHelp);
    EXPECT_EQ(run.out, "");
}

TEST_P(ToolErrors, AnUnknownTableIsAUsageErrorThatNamesTheTables) {
    const Outcome run = Zaro({"export", "articulos"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              std::string("zaro: unknown table 'articulos'; the tables are _definicion_campos, articulo, fin_dia, "
                          "inicio_dia, resumen_diario, resumen_diario_detalle, ticket, ticket_articulo, "
                          "ticket_impuesto, ticket_pago\n") +
                  kTryHelp);
}

TEST_P(ToolErrors, ATableNameInOtherCaseIsUnknownAsTheRegistryHasIt) {
    const Outcome run = Zaro({"tables"});
    ASSERT_EQ(run.status, 0);
    EXPECT_EQ(Zaro({"export", "ARTICULO"}).status, 1);
    EXPECT_EQ(Zaro({"export", "definicion_campos"}).status, 1);
}

TEST_P(ToolErrors, AMissingFileIsADataErrorThatNamesIt) {
    const Outcome run = Zaro({"import", "articulo", "nothing-here.txt"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zaro: can not read nothing-here.txt: No such file or directory\n");
}

TEST_P(ToolErrors, AnEmptySeparatorIsAUsageError) {
    WriteText(Path("a.txt"), "x;\r\n");
    const Outcome run = Zaro({"import", "articulo", "a.txt", "--sep", ""});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, std::string("zaro: the separator of --sep is empty; give one or more characters\n") + kTryHelp);
    EXPECT_EQ(Zaro({"export", "articulo", "--sep="}).status, 1);
}

TEST_P(ToolErrors, AnUnreadableNumberFailsTheImportBeforeAnythingIsSaved) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    WriteText(Path("big.txt"), "99999999999;;;;;A1;\r\n");
    const Outcome run = Zaro({"import", "articulo", "big.txt"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zaro: can not read big.txt as articulo: error 6 (daarticulo): Overflow; nothing was saved\n");
}

TEST_P(ToolErrors, ABadConditionIsADatabaseErrorWithItsNumberAndSource) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = Zaro({"export", "articulo", "--where", "NOPE = 1"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "zaro: can not list articulo where NOPE = 1: error 1054 (daarticulo): Unknown column 'NOPE' "
                       "in 'WHERE'\n");
}

TEST_P(ToolErrors, ABadStatementIsADatabaseError) {
    const Outcome run = Zaro({"query", "selec 1"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, StartsWith("zaro: the statement failed: error 1064 (ADODB.Recordset): You have an error in "
                                    "your SQL syntax"));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
}

TEST_P(ToolErrors, AnUnknownFieldOfTotalsIsAUsageError) {
    const Outcome run = Zaro({"totals", "fin_dia", "Nada"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, std::string("zaro: fin_dia has no field 'Nada'; its fields are COD_TRANSACC, FECHA_REAL, "
                                   "HORA_REAL, CD_OP, FECHA_CONTABLE\n") +
                           kTryHelp);
}

TEST_P(ToolErrors, AMissingTableIsADatabaseError) {
    const Outcome run = Zaro({"export", "ticket_pago"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, MatchesRegex("zaro: can not list ticket_pago: error 1146 \\(daticket_pago\\): Table "
                                      "'[a-z_]+\\.ticket_pago' doesn't exist\n"));
}

TEST_P(ToolErrors, UsageMistakesAreNamed) {
    EXPECT_EQ(Zaro({}).err, std::string("zaro: no command given\n") + kTryHelp);
    EXPECT_EQ(Zaro({"import", "articulo"}).err,
              std::string("zaro: missing arguments for import; usage: zaro import TABLE FILE [--sep S]\n") + kTryHelp);
    EXPECT_EQ(Zaro({"tables", "extra"}).err,
              std::string("zaro: too many arguments for tables; usage: zaro tables \n") + kTryHelp);
    EXPECT_EQ(Zaro({"init", "--sep", ";"}).err, std::string("zaro: the command init takes no option --sep\n") + kTryHelp);
    EXPECT_EQ(Zaro({"tables", "--bogus"}).err, std::string("zaro: unknown option '--bogus'\n") + kTryHelp);
    EXPECT_EQ(Zaro({"export", "articulo", "--where"}).err,
              std::string("zaro: the option --where needs a value\n") + kTryHelp);
    EXPECT_EQ(Zaro({"tables"}).status, 0);
    EXPECT_EQ(Zaro({"tables", "--db", "x"}).status, 1);  // a second road
}

TEST_P(ToolErrors, HelpIsThereForTheToolAndEachCommand) {
    const Outcome tool = ZaroBare({"--help"});
    EXPECT_EQ(tool.status, 0);
    EXPECT_THAT(tool.out, HasSubstr("Usage: zaro COMMAND [ARGUMENTS] [OPTIONS]"));
    EXPECT_THAT(tool.out, HasSubstr("Exit status: 0 done; 1 a mistake in the command line; 2 a data, file or "
                                    "database error."));
    for (const char* command : {"demo", "init", "import", "export", "xml", "query", "totals", "tables"}) {
        SCOPED_TRACE(command);
        const Outcome help = ZaroBare({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.out, StartsWith(std::string("Usage: zaro ") + command));
        EXPECT_EQ(ZaroBare({"help", command}).out, help.out);
    }
    EXPECT_THAT(ZaroBare({"demo", "--help"}).out, HasSubstr("Running it again replaces the same day"));
}

INSTANTIATE_TEST_SUITE_P(Roads, ToolErrors, ::testing::ValuesIn(ToolRoads()), ToolRoadName);

// Tests that need no database road of their own.
using ToolAlone = ToolTest;

TEST_P(ToolAlone, VersionIsTheLibrarysVersion) {
    const std::string line = "zaro (ZARODatos) " + std::string(OVT_ZARO::LibraryVersion()) + "\n";
    for (const std::vector<std::string>& args :
         std::vector<std::vector<std::string>>{{"--version"}, {"tables", "--version"}, {"--version", "demo"}}) {
        const Outcome run = ZaroBare(args);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, line);
        EXPECT_EQ(run.err, "");
    }
    EXPECT_THAT(ZaroBare({"--help"}).out, HasSubstr("--version"));
    // Help wins over the version, as it does over a command.
    EXPECT_THAT(ZaroBare({"--version", "--help"}).out, StartsWith("zaro: the sales figures"));
}

TEST_P(ToolAlone, AnUnreachableServerIsADataErrorWithTheClientsError) {
    const int port = zaro_test::FreeLoopbackPort();  // nothing listens there
    const Outcome run = ZaroBare(
        {"--connect", "Server=127.0.0.1;Port=" + std::to_string(port) + ";User=root;Database=zaro", "tables"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, MatchesRegex("zaro: can not open the server of --connect: error 2003 "
                                      "\\(ADODB.Connection\\): Can't connect to server on '127.0.0.1' [^\n]*\n"));
}

TEST_P(ToolAlone, OutputThatCanNotBeWrittenIsADataError) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    const Outcome run = ZaroWritingTo("/dev/full", {"export", "articulo"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, StartsWith("zaro: can not write to standard output"));
}

TEST_P(ToolAlone, ABadConnectionStringIsNamed) {
    const Outcome run = ZaroBare({"--connect", "Bogus=1", "tables"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, StartsWith("zaro: can not open the server of --connect: error 3001 (ADODB.Connection): "
                                    "Connection string: unknown key 'Bogus'"));
}

TEST_P(ToolAlone, AProgressBarShowsOnATerminalAndNotWhenPiped) {
    ASSERT_EQ(Zaro({"init"}).status, 0);
    std::string text;
    for (int i = 0; i < 6000; ++i)
        text += "0;14/03/2026;;0;1;P" + std::to_string(100000 + i) + ";;1;1;1;Articulo;Art;\r\n";
    WriteText(Path("big.txt"), text);
    const Outcome piped = Zaro({"import", "articulo", "big.txt"});
    ASSERT_EQ(piped.status, 0) << piped.err;
    EXPECT_EQ(piped.err, "");
    EXPECT_THAT(piped.out, HasSubstr("saved 6000 rows"));
    const Outcome export_piped = Zaro({"export", "articulo", "--out", "piped.txt"});
    EXPECT_EQ(export_piped.err, "");

    const Outcome shown = ZaroOnTerminal({"export", "articulo", "--out", "shown.txt"});
    ASSERT_EQ(shown.status, 0) << shown.terminal;
    EXPECT_THAT(shown.terminal, HasSubstr("\rexport articulo ["));
    EXPECT_THAT(shown.terminal, HasSubstr("exported 6000 rows of articulo to shown.txt"));
    EXPECT_EQ(ReadText(Path("shown.txt")), ReadText(Path("piped.txt")));

    // A few rows show no bar, terminal or not.
    const Outcome small = ZaroOnTerminal({"export", "inicio_dia", "--out", "small.txt"});
    EXPECT_THAT(small.terminal, ::testing::Not(HasSubstr("[")));
}

// The progress bar and the failures of opening are the tool's own: one road serves.
INSTANTIATE_TEST_SUITE_P(Embedded, ToolAlone, ::testing::Values(ToolRoad{"embedded"}), ToolRoadName);

}  // namespace
}  // namespace zaro_tool_test
