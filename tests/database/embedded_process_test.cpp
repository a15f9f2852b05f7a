// What only a fresh process shows: the embedded database starting on a new
// data folder (created, bootstrapped, silent), its data surviving the
// process, one data folder per process, and a process that only reaches a
// server not starting the embedded server. Each case runs in a child: this
// program again, with one of the DISABLED_ tests below chosen and its
// settings in the environment.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/mariadb_server.h"
#include "support/roads.h"

using namespace OVT_ZARO;

namespace {

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

struct ChildResult {
    pid_t pid;
    int status;
    std::string out;
    std::string err;
};

// Runs this program with one test and an environment variable; gives its
// exit status and its output.
ChildResult RunChild(const std::string& test, const std::string& var, const std::string& value) {
    const std::string dir = zaro_test::ProgramTempFolder();
    static int n = 0;
    const std::string out = dir + "/child" + std::to_string(++n) + ".out";
    const std::string err = dir + "/child" + std::to_string(n) + ".err";
    // Everything the child needs is made before the fork: after it, in a
    // process with threads, only async-signal-safe calls.
    const std::string filter = "--gtest_filter=" + test;
    const char* argv[] = {"test_database", filter.c_str(), "--gtest_also_run_disabled_tests", nullptr};
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e)
        if (std::string(*e).rfind(var + "=", 0) != 0) env.emplace_back(*e);
    env.push_back(var + "=" + value);
    std::vector<char*> envp;
    for (auto& e : env) envp.push_back(e.data());
    envp.push_back(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
        const int o = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int e = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (o < 0 || e < 0) _exit(126);
        dup2(o, 1);
        dup2(e, 2);
        execve("/proc/self/exe", const_cast<char* const*>(argv), envp.data());
        _exit(127);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return {pid, WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadFile(out), ReadFile(err)};
}

long RssKb() {
    std::ifstream in("/proc/self/status");
    std::string line;
    while (std::getline(in, line))
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    return 0;
}

Variant One(ADODB::Connection& cn, const std::string& sql) {
    auto rs = cn.Execute(sql);
    if (!rs || rs->EOF_()) return Variant();
    return rs->Fields().Item(int32_t{0}).Value();
}

}  // namespace

// ---------------------------------------------------------------- children

TEST(EmbeddedChild, DISABLED_NewFolder) {
    const char* dir = std::getenv("ZARO_CHILD_DATADIR");
    ASSERT_NE(dir, nullptr);
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(std::string("DataDir=") + dir);
    EXPECT_TRUE(cn->IsEmbedded());
    // The default database, created and chosen.
    EXPECT_EQ(One(*cn, "SELECT DATABASE()"), Variant("zaro"));
    // The system tables of the engine are there: stored routines work.
    EXPECT_GT(CLng(One(*cn, "SELECT count(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA = 'mysql'")), 20);
    // Temp tables go to a temp folder of the process's own.
    const std::string tmp = CStr(One(*cn, "SELECT @@tmpdir"));
    EXPECT_NE(tmp.find("/zaro-embedded-" + std::to_string(getpid()) + "-"), std::string::npos) << tmp;
    cn->Execute("CREATE PROCEDURE `dos`() SELECT 2 AS N");
    EXPECT_EQ(One(*cn, "CALL `dos`()"), Variant(int32_t{2}));
    cn->Execute("CREATE TABLE `persiste` (`A` varchar(10)) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    cn->Execute("INSERT INTO `persiste` VALUES ('guardado')");
    // The connection is left open: the process's end closes it cleanly.
    static auto keep = cn;
}

TEST(EmbeddedChild, DISABLED_SameFolderAgain) {
    const char* dir = std::getenv("ZARO_CHILD_DATADIR");
    ASSERT_NE(dir, nullptr);
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(std::string("DataDir=") + dir);
    EXPECT_EQ(One(*cn, "SELECT `A` FROM `persiste`"), Variant("guardado"));
    EXPECT_EQ(One(*cn, "CHECK TABLE `persiste`").VarType(), vbString);
    auto check = cn->Execute("CHECK TABLE `persiste`");
    EXPECT_EQ(check->Fields().Item("Msg_text").Value(), Variant("OK"));
    // A second folder in the same process is refused, and the first serves on.
    auto other = std::make_shared<ADODB::Connection>();
    try {
        other->Open(std::string("DataDir=") + dir + "-otra");
        ADD_FAILURE() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3001);
        EXPECT_EQ(e.Source, "ADODB.Connection");
        EXPECT_NE(e.Description.find("one data folder"), std::string::npos) << e.Description;
    }
    EXPECT_EQ(other->State(), ADODB::adStateClosed);
    // Other server options are refused too.
    try {
        other->Open(std::string("DataDir=") + dir + ";EmbeddedOptions=--key-buffer-size=1M");
        ADD_FAILURE() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3001);
    }
    // The same folder, written otherwise, is the same folder.
    other->Open(std::string("DataDir=") + dir + "/./;Database=otra");
    EXPECT_EQ(One(*other, "SELECT DATABASE()"), Variant("otra"));
    EXPECT_EQ(One(*cn, "SELECT 1"), Variant(int32_t{1}));
}

TEST(EmbeddedChild, DISABLED_ServerOnly) {
    const char* cs = std::getenv("ZARO_CHILD_SERVER");
    ASSERT_NE(cs, nullptr);
    const long before = RssKb();
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(cs);
    EXPECT_EQ(One(*cn, "SELECT 1"), Variant(int32_t{1}));
    const long after = RssKb();
    EXPECT_FALSE(ADODB::EmbeddedEngineStarted());
    // The in-process server would take some 50 MB and more.
    EXPECT_LT(after - before, 20000) << before << " -> " << after << " kB";
    std::printf("server-only connection: RSS %ld kB -> %ld kB\n", before, after);
}

// ---------------------------------------------------------------- parents

TEST(EmbeddedProcess, ANewDataFolderIsCreatedAndBootstrappedWithoutAWordOnStandardError) {
    const std::string dir = zaro_test::ProgramTempFolder() + "/nueva/carpeta";
    const ChildResult r = RunChild("EmbeddedChild.DISABLED_NewFolder", "ZARO_CHILD_DATADIR", dir);
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_NE(r.out.find("[  PASSED  ] 1 test"), std::string::npos) << r.out;
    EXPECT_EQ(r.err, "");
    // The process's temp folder went with it.
    const std::string prefix = "zaro-embedded-" + std::to_string(r.pid) + "-";
    for (const auto& e : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
        EXPECT_NE(e.path().filename().string().rfind(prefix, 0), 0u) << e.path();
}

TEST(EmbeddedProcess, DataSurvivesTheProcessAndASecondFolderIsRefused) {
    const std::string dir = zaro_test::ProgramTempFolder() + "/segunda";
    ChildResult r = RunChild("EmbeddedChild.DISABLED_NewFolder", "ZARO_CHILD_DATADIR", dir);
    ASSERT_EQ(r.status, 0) << r.out << r.err;
    r = RunChild("EmbeddedChild.DISABLED_SameFolderAgain", "ZARO_CHILD_DATADIR", dir);
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_NE(r.out.find("[  PASSED  ] 1 test"), std::string::npos) << r.out;
    EXPECT_EQ(r.err, "");
}

TEST(EmbeddedProcess, AProcessThatOnlyReachesAServerDoesNotStartTheEmbeddedServer) {
    zaro_test::SharedServer();
    const std::string cs = zaro_test::AllRoads()[1].connectionString;
    const ChildResult r = RunChild("EmbeddedChild.DISABLED_ServerOnly", "ZARO_CHILD_SERVER", cs);
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_NE(r.out.find("[  PASSED  ] 1 test"), std::string::npos) << r.out;
    EXPECT_EQ(r.err, "");
}
