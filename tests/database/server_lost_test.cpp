// A server that goes away, or stops answering, in the middle of a session:
// an Error, never a crash or a hang, and the connection serves again once the
// server is back. The tests run on a throwaway server of their own.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/capturar.h"
#include "support/mariadb_server.h"

using namespace OVT_ZARO;

namespace {

bool IsLostServerNumber(int32_t n) { return n == 2006 || n == 2013 || n == 2055 || n == 2002 || n == 2003; }

std::shared_ptr<ADODB::Connection> Open(const zaro_test::MariaDbServer& srv, const std::string& extra = {}) {
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(srv.ConnectionString("zaro_test") + extra);
    return cn;
}

// One throwaway server for the suite, running at the start of each test.
class ServerLost : public ::testing::Test {
protected:
    static void SetUpTestSuite() { server = std::make_unique<zaro_test::MariaDbServer>(); }
    static void TearDownTestSuite() { server.reset(); }
    void SetUp() override {
        server->Resume();
        server->Start();
    }
    static std::unique_ptr<zaro_test::MariaDbServer> server;
};
std::unique_ptr<zaro_test::MariaDbServer> ServerLost::server;

}  // namespace

TEST_F(ServerLost, AKilledServerGivesAnErrorAndTheConnectionServesAgainWhenItIsBack) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv);
    cn->Execute("DROP TABLE IF EXISTS `t`");
    cn->Execute("CREATE TABLE `t` (`I` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    cn->Execute("INSERT INTO `t` SELECT seq FROM seq_1_to_1000");
    srv.Kill();
    try {
        cn->Execute("SELECT count(*) FROM `t`");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_TRUE(IsLostServerNumber(e.Number)) << e.Number << " " << e.Description;
        EXPECT_EQ(e.Source, "ADODB.Connection");
        EXPECT_FALSE(e.Description.empty());
    }
    // While the server is away every call raises.
    EXPECT_THROW(cn->Execute("SELECT 1"), Error);
    EXPECT_EQ(cn->State(), ADODB::adStateOpen);
    srv.Start();
    auto rs = cn->Execute("SELECT count(*) FROM `t`");
    EXPECT_EQ(rs->Fields().Item(int32_t{0}).Value(), Variant(int64_t{1000}));
}

TEST_F(ServerLost, AServerStoppedWhileAForwardOnlyReadIsOpenGivesAnError) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv);
    cn->Execute("DROP TABLE IF EXISTS `t`");
    cn->Execute("CREATE TABLE `t` (`I` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    cn->Execute("INSERT INTO `t` SELECT seq FROM seq_1_to_5000");
    auto rs = std::make_shared<ADODB::Recordset>();
    rs->Open("SELECT `I` FROM `t`", cn, ADODB::adOpenForwardOnly, ADODB::adLockReadOnly);
    srv.Stop();
    int32_t read = 0;
    try {
        while (!rs->EOF_()) {
            rs->Fields().Item(int32_t{0}).Value();
            ++read;
            rs->MoveNext();
        }
        FAIL() << "no error after " << read << " rows";
    } catch (const Error& e) {
        EXPECT_TRUE(IsLostServerNumber(e.Number)) << e.Number << " " << e.Description;
        EXPECT_EQ(e.Source, "ADODB.Recordset");
    }
    EXPECT_LT(read, 5000);
    // The recordset ends; reading on raises, and nothing crashes.
    EXPECT_THROW(rs->Fields().Item(int32_t{0}).Value(), Error);
    EXPECT_THROW(rs->MoveNext(), Error);
    srv.Start();
    EXPECT_NO_THROW(cn->Execute("SELECT 1"));
    // The recordset of the lost session is closed.
    EXPECT_EQ(rs->State(), ADODB::adStateClosed);
}

TEST_F(ServerLost, AServerThatStopsAnsweringGivesAnErrorAfterTheCommandTimeout) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv, ";CommandTimeout=1");
    srv.Pause();
    const auto start = std::chrono::steady_clock::now();
    try {
        cn->Execute("SELECT 1");
        ADD_FAILURE() << "no error";
    } catch (const Error& e) {
        EXPECT_TRUE(IsLostServerNumber(e.Number)) << e.Number << " " << e.Description;
    }
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_LT(waited, std::chrono::seconds(10));
    srv.Resume();
    EXPECT_NO_THROW(cn->Execute("SELECT 1"));
}

TEST_F(ServerLost, AStatementTheServerWorksOnLongerThanTheCommandTimeoutGivesTheLostServerError) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv, ";CommandTimeout=1");
    const auto start = std::chrono::steady_clock::now();
    const Error lost = zaro_test::Capturar([&] { cn->Execute("SELECT SLEEP(4)"); });
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(lost.Number, 2013) << lost.Description;
    EXPECT_EQ(lost.Source, "ADODB.Connection");
    EXPECT_GE(waited, std::chrono::milliseconds(900));
    EXPECT_LT(waited, std::chrono::milliseconds(3000));
    // The session is opened again for the next statement.
    EXPECT_EQ(cn->Execute("SELECT 7")->Fields().Item(int32_t{0}).Value(), Variant(int32_t{7}));
}

// The command timeout bounds each wait for the server, not a whole read: rows
// that keep coming for longer than it are all read.
TEST_F(ServerLost, AReadThatKeepsReceivingRowsLongerThanTheCommandTimeoutIsNotCut) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv, ";CommandTimeout=1");
    // About 2.5 seconds of rows of 8,000 characters, one every 0.6 ms or so.
    const auto start = std::chrono::steady_clock::now();
    auto rs = cn->Execute("SELECT seq, SLEEP(0.0005), REPEAT('x', 8000) FROM seq_1_to_4000");
    const auto took = std::chrono::steady_clock::now() - start;
    int64_t rows = 0;
    while (!rs->EOF_()) {
        ++rows;
        rs->MoveNext();
    }
    EXPECT_EQ(rows, 4000);
    EXPECT_GT(took, std::chrono::milliseconds(1500)) << "the rows came too fast to show it";
}

// A statement the server read before it paused is applied when it goes on,
// after the client gave up on it. The session opened again waits for the
// lost one to end first, so that what it reads is what stays.
TEST_F(ServerLost, AStatementLeftInFlightIsSettledBeforeTheSessionServesAgain) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv, ";CommandTimeout=1");
    cn->Execute("DROP TABLE IF EXISTS `t`");
    cn->Execute("CREATE TABLE `t` (`I` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    const auto id = cn->Execute("SELECT CONNECTION_ID()")->Fields().Item(int32_t{0}).Value();
    srv.Pause();
    // A statement that takes a moment on the server once it goes on.
    const Error lost =
        zaro_test::Capturar([&] { cn->Execute("INSERT INTO `t` SELECT 1 FROM (SELECT SLEEP(1)) AS `s`"); });
    EXPECT_TRUE(IsLostServerNumber(lost.Number)) << lost.Number << " " << lost.Description;
    srv.Resume();
    const Variant first = cn->Execute("SELECT count(*) FROM `t`")->Fields().Item(int32_t{0}).Value();
    // The lost session is gone, and a later look sees the same.
    EXPECT_EQ(cn->Execute("SELECT count(*) FROM information_schema.PROCESSLIST WHERE ID = " + CStr(id))
                  ->Fields()
                  .Item(int32_t{0})
                  .Value(),
              Variant(int64_t{0}));
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    auto other = Open(srv);
    EXPECT_EQ(other->Execute("SELECT count(*) FROM `t`")->Fields().Item(int32_t{0}).Value(), first);
    std::printf("the statement left in flight was %s\n", first == Variant(int64_t{1}) ? "applied" : "not applied");
}

TEST_F(ServerLost, ClosingAndReopeningAfterALostServerWorks) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = Open(srv);
    srv.Kill();
    EXPECT_THROW(cn->Execute("SELECT 1"), Error);
    cn->Close();
    EXPECT_EQ(cn->State(), ADODB::adStateClosed);
    EXPECT_THROW(cn->Open(), Error);  // no server yet
    EXPECT_EQ(cn->State(), ADODB::adStateClosed);
    srv.Start();
    cn->Open();
    EXPECT_EQ(cn->Execute("SELECT 2")->Fields().Item(int32_t{0}).Value(), Variant(int32_t{2}));
}

TEST_F(ServerLost, NoServerAtThePortRaisesTheClientErrorAtOnce) {
    const int port = zaro_test::FreeLoopbackPort();
    auto cn = std::make_shared<ADODB::Connection>();
    const auto start = std::chrono::steady_clock::now();
    try {
        cn->Open("Server=127.0.0.1;Port=" + std::to_string(port) + ";User=root");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 2003) << e.Description;  // "Can't connect to server on '127.0.0.1' ..."
        EXPECT_EQ(e.Source, "ADODB.Connection");
        EXPECT_NE(e.Description.find("127.0.0.1"), std::string::npos) << e.Description;
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(cn->State(), ADODB::adStateClosed);
}

TEST_F(ServerLost, AWrongPasswordRaisesTheServerError) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = std::make_shared<ADODB::Connection>();
    try {
        cn->Open("Server=127.0.0.1;Port=" + std::to_string(srv.Port()) + ";User=root;Password=wrong");
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 1045) << e.Description;
        EXPECT_NE(e.Description.find("Access denied"), std::string::npos);
    }
}

TEST_F(ServerLost, TheSocketReachesTheServerToo) {
    zaro_test::MariaDbServer& srv = *server;
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open("Socket=" + srv.Socket() + ";User=root;Database=zaro_test");
    EXPECT_EQ(cn->Execute("SELECT DATABASE()")->Fields().Item(int32_t{0}).Value(), Variant("zaro_test"));
}
