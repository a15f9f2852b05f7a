// Which thread runs a connection's statements: on the server road the
// caller's own (no thread of the connection's), on the embedded road the
// connection's engine thread. A server connection serves callers on threads
// that come and go; a process that used both roads from several threads ends
// at once and silently, and at once even while a thread that called a server
// still runs.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "support/child_process.h"
#include "support/mariadb_server.h"
#include "support/roads.h"

using namespace OVT_ZARO;

namespace {

size_t ThreadsOfThisProcess() {
    size_t n = 0;
    for (const auto& e : std::filesystem::directory_iterator("/proc/self/task")) {
        (void)e;
        ++n;
    }
    return n;
}

Variant One(ADODB::Connection& cn, const std::string& sql) {
    auto rs = cn.Execute(sql);
    if (!rs || rs->EOF_()) return Variant();
    return rs->Fields().Item(int32_t{0}).Value();
}

const zaro_test::Road& ServerRoad() {
    static const zaro_test::Road road = zaro_test::AllRoads()[1];
    return road;
}
const zaro_test::Road& EmbeddedRoad() {
    static const zaro_test::Road road = zaro_test::AllRoads()[0];
    return road;
}

}  // namespace

TEST(CallThreads, AServerConnectionRunsItsStatementsOnTheCallersThread) {
    zaro_test::OpenRoad(ServerRoad())->Close();  // the server started
    const size_t before = ThreadsOfThisProcess();
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(ServerRoad().connectionString);
    EXPECT_EQ(ThreadsOfThisProcess(), before);
    EXPECT_EQ(One(*cn, "SELECT 41 + 1"), Variant(int32_t{42}));
    ADODB::Recordset rs;
    rs.Open("SELECT seq FROM seq_1_to_600", cn, ADODB::adOpenForwardOnly);
    int32_t n = 0;
    while (!rs.EOF_()) {
        ++n;
        rs.MoveNext();
    }
    EXPECT_EQ(n, 600);
    rs.Close();
    EXPECT_EQ(ThreadsOfThisProcess(), before);
    cn->Close();
}

TEST(CallThreads, AnEmbeddedConnectionRunsItsStatementsOnAThreadOfItsOwn) {
    if (const std::string why = zaro_test::EmbeddedRoadSkipReason(); !why.empty()) GTEST_SKIP() << why;
    zaro_test::OpenRoad(EmbeddedRoad())->Close();  // the embedded server started
    const size_t before = ThreadsOfThisProcess();
    auto cn = zaro_test::OpenRoad(EmbeddedRoad());
    EXPECT_EQ(ThreadsOfThisProcess(), before + 1);
    EXPECT_EQ(One(*cn, "SELECT 41 + 1"), Variant(int32_t{42}));
    cn->Close();
    cn.reset();
    EXPECT_EQ(ThreadsOfThisProcess(), before);
}

TEST(CallThreads, AServerConnectionServesCallersOnThreadsThatComeAndGo) {
    auto cn = zaro_test::OpenRoad(ServerRoad());
    cn->Execute("DROP TABLE IF EXISTS `hilos`");
    cn->Execute("CREATE TABLE `hilos` (`N` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    // One thread at a time, as a connection belongs to one thread at a time.
    for (int t = 0; t < 4; ++t) {
        std::thread([&] {
            for (int i = 0; i < 25; ++i) cn->Execute("INSERT INTO `hilos` VALUES (" + std::to_string(t) + ")");
            auto rs = std::make_shared<ADODB::Recordset>();
            rs->Open("SELECT count(*) FROM `hilos`", cn, ADODB::adOpenForwardOnly);
            EXPECT_EQ(CLng(rs->Fields().Item(int32_t{0}).Value()), 25 * (t + 1));
            rs->Close();
        }).join();
    }
    EXPECT_EQ(CLng(One(*cn, "SELECT count(DISTINCT `N`) FROM `hilos`")), 4);
    EXPECT_EQ(CLng(One(*cn, "SELECT count(*) FROM `hilos`")), 100);
    cn->Execute("DROP TABLE `hilos`");
}

// The body of the child below: both roads, the server one from the main
// thread and from threads that end, a server connection left open to the
// process's end.
TEST(CallThreadsChild, DISABLED_BothRoadsFromSeveralThreads) {
    const char* server = std::getenv("ZARO_CHILD_SERVER");
    const char* dir = std::getenv("ZARO_CHILD_DATADIR");
    ASSERT_NE(server, nullptr);
    ASSERT_NE(dir, nullptr);
    auto remote = std::make_shared<ADODB::Connection>();
    remote->Open(server);
    EXPECT_EQ(One(*remote, "SELECT 1"), Variant(int32_t{1}));
    auto local = std::make_shared<ADODB::Connection>();
    local->Open(std::string("DataDir=") + dir);
    EXPECT_EQ(One(*local, "SELECT 2"), Variant(int32_t{2}));
    std::vector<std::thread> threads;
    for (int t = 0; t < 3; ++t)
        threads.emplace_back([&, t] {
            auto cn = std::make_shared<ADODB::Connection>();
            cn->Open(server);
            EXPECT_EQ(One(*cn, "SELECT " + std::to_string(t)), Variant(int32_t{t}));
        });
    for (auto& t : threads) t.join();
    EXPECT_EQ(One(*remote, "SELECT 3"), Variant(int32_t{3}));
    static auto keep = remote;
    static auto keepLocal = local;
}

// The body of the child below: a thread that called a server still runs
// when the process ends.
TEST(CallThreadsChild, DISABLED_AThreadOfTheServerRoadStillRunsAtTheEnd) {
    const char* server = std::getenv("ZARO_CHILD_SERVER");
    const char* dir = std::getenv("ZARO_CHILD_DATADIR");
    ASSERT_NE(server, nullptr);
    ASSERT_NE(dir, nullptr);
    auto local = std::make_shared<ADODB::Connection>();
    local->Open(std::string("DataDir=") + dir);
    std::atomic<bool> called{false};
    std::thread([&called, cs = std::string(server)] {
        auto cn = std::make_shared<ADODB::Connection>();
        cn->Open(cs);
        One(*cn, "SELECT 1");
        called = true;
        for (;;) std::this_thread::sleep_for(std::chrono::seconds(60));
    }).detach();
    while (!called) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    static auto keepLocal = local;
    std::printf("body ended at %.3f\n",
                std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count());
}

TEST(CallThreads, AProcessEndsAtOnceWhileAThreadThatCalledAServerStillRuns) {
    if (const std::string why = zaro_test::EmbeddedRoadSkipReason(); !why.empty()) GTEST_SKIP() << why;
    zaro_test::OpenRoad(ServerRoad())->Close();
    const std::string dir = zaro_test::ProgramTempFolder() + "/viva-" + std::to_string(getpid());
    const auto r = zaro_test::RunTestChild("CallThreadsChild.DISABLED_AThreadOfTheServerRoadStillRunsAtTheEnd",
                                           {{"ZARO_CHILD_SERVER", ServerRoad().connectionString},
                                            {"ZARO_CHILD_DATADIR", dir}},
                                           120);
    const double now = std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    EXPECT_TRUE(r.Passed()) << r.out << r.err;
    const size_t at = r.out.find("body ended at ");
    ASSERT_NE(at, std::string::npos) << r.out;
    const double ended = std::stod(r.out.substr(at + 14));
    // The engine library's end would wait five seconds for that thread (it
    // still says on standard error that threads did not exit).
    EXPECT_LT(now - ended, 3.0) << r.err;
}

TEST(CallThreads, AProcessThatUsedBothRoadsFromSeveralThreadsEndsAtOnceAndSilently) {
    if (const std::string why = zaro_test::EmbeddedRoadSkipReason(); !why.empty()) GTEST_SKIP() << why;
    zaro_test::OpenRoad(ServerRoad())->Close();
    const std::string dir = zaro_test::ProgramTempFolder() + "/hilos-" + std::to_string(getpid());
    const auto r = zaro_test::RunTestChild("CallThreadsChild.DISABLED_BothRoadsFromSeveralThreads",
                                           {{"ZARO_CHILD_SERVER", ServerRoad().connectionString},
                                            {"ZARO_CHILD_DATADIR", dir}},
                                           120);
    EXPECT_TRUE(r.Passed()) << r.out << r.err;
    EXPECT_EQ(r.status, 0);
    // The engine library's end waits five seconds for a thread still
    // announced to it, and says so on standard error.
    EXPECT_EQ(r.err, "");
}
