// A list of servers in the connection string, without a cluster: three
// single servers of their own, stopped and started by the tests. Open takes
// the first server of the list that answers; after a lost server the next
// call opens on the next one that does, with the same session settings.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/capturar.h"
#include "support/mariadb_server.h"
#include "support/roads.h"

using namespace OVT_ZARO;

namespace {

bool IsLostServerNumber(int32_t n) { return n == 2006 || n == 2013 || n == 2055 || n == 2002 || n == 2003; }

Variant One(ADODB::Connection& cn, const std::string& sql) {
    return cn.Execute(sql)->Fields().Item(int32_t{0}).Value();
}

class ServerList : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        for (auto& s : servers) s = std::make_unique<zaro_test::MariaDbServer>();
    }
    static void TearDownTestSuite() {
        for (auto& s : servers) s.reset();
    }
    void SetUp() override {
        for (auto& s : servers) {
            s->Resume();
            s->Start();
        }
    }
    void TearDown() override {
        for (auto& s : servers) s->Resume();
    }
    static zaro_test::MariaDbServer& Srv(int i) { return *servers[static_cast<size_t>(i)]; }
    static std::string Address(int i) { return "127.0.0.1:" + std::to_string(Srv(i).Port()); }
    // The three servers in order, and the test database.
    static std::string List(const std::string& extra = {}) {
        return "Server=" + Address(0) + "," + Address(1) + "," + Address(2) + ";User=root;Database=zaro_test" + extra;
    }
    // The session is on server i, with the settings every session has.
    static void ExpectOn(ADODB::Connection& cn, int i) {
        EXPECT_EQ(CLng(One(cn, "SELECT @@port")), Srv(i).Port());
        EXPECT_EQ(cn.CurrentServer(), Address(i));
        EXPECT_EQ(One(cn, "SELECT DATABASE()"), Variant("zaro_test"));
        EXPECT_EQ(One(cn, "SELECT @@character_set_client"), Variant("utf8mb4"));
        EXPECT_NE(CStr(One(cn, "SELECT @@SESSION.sql_mode")).find("NO_BACKSLASH_ESCAPES"), std::string::npos);
        EXPECT_EQ(One(cn, "SELECT 'a\\b'"), Variant("a\\b"));
    }
    static std::unique_ptr<zaro_test::MariaDbServer> servers[3];
};
std::unique_ptr<zaro_test::MariaDbServer> ServerList::servers[3];

}  // namespace

TEST_F(ServerList, OpenLandsOnTheSecondWhenTheFirstIsStoppedAndTheNextCallOnTheThirdWhenTheSecondStops) {
    Srv(0).Stop();
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(List());
    ExpectOn(*cn, 1);
    EXPECT_EQ(cn->Servers(), (std::vector<std::string>{Address(0), Address(1), Address(2)}));
    Srv(1).Stop();
    // The call that meets the lost server raises, as on a single server.
    const Error lost = zaro_test::Capturar([&] { cn->Execute("SELECT 1"); });
    EXPECT_TRUE(IsLostServerNumber(lost.Number)) << lost.Number << " " << lost.Description;
    EXPECT_EQ(cn->CurrentServer(), Address(1));
    // The next call opens on the next server of the list that answers.
    EXPECT_EQ(One(*cn, "SELECT 2"), Variant(int32_t{2}));
    ExpectOn(*cn, 2);
    EXPECT_EQ(cn->State(), ADODB::adStateOpen);
}

TEST_F(ServerList, TheWalkWrapsAroundToTheServersBeforeTheLostOne) {
    auto cn = std::make_shared<ADODB::Connection>();
    Srv(0).Stop();
    Srv(1).Stop();
    cn->Open(List());
    ExpectOn(*cn, 2);
    Srv(0).Start();
    Srv(2).Kill();
    EXPECT_THROW(cn->Execute("SELECT 1"), Error);
    ExpectOn(*cn, 0);
}

TEST_F(ServerList, WithEveryServerDownTheErrorNamesEachAndTheConnectionServesWhenOneIsBack) {
    for (int i = 0; i < 3; ++i) Srv(i).Stop();
    auto closed = std::make_shared<ADODB::Connection>();
    const Error none = zaro_test::Capturar([&] { closed->Open(List()); });
    EXPECT_EQ(none.Number, 2003) << none.Description;
    EXPECT_EQ(none.Source, "ADODB.Connection");
    EXPECT_EQ(none.Description.rfind("None of the 3 servers of the list could be opened: " + Address(0) +
                                         ": error 2003: Can't connect to server on '127.0.0.1'",
                                     0),
              0u)
        << none.Description;
    for (int i = 1; i < 3; ++i)
        EXPECT_NE(none.Description.find("; " + Address(i) + ": error 2003: "), std::string::npos) << none.Description;
    EXPECT_EQ(closed->State(), ADODB::adStateClosed);
    EXPECT_EQ(closed->CurrentServer(), "");

    Srv(0).Start();
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(List());
    Srv(0).Stop();
    EXPECT_THROW(cn->Execute("SELECT 1"), Error);
    // A failed walk raises with every server named, and the next call walks again.
    const Error again = zaro_test::Capturar([&] { cn->Execute("SELECT 1"); });
    EXPECT_EQ(again.Number, 2003) << again.Description;
    EXPECT_EQ(again.Description.rfind("None of the 3 servers of the list could be opened: ", 0), 0u)
        << again.Description;
    EXPECT_EQ(cn->State(), ADODB::adStateOpen);
    Srv(1).Start();
    EXPECT_EQ(One(*cn, "SELECT 3"), Variant(int32_t{3}));
    ExpectOn(*cn, 1);
}

TEST_F(ServerList, AServerThatDoesNotAnswerIsPassedOverWithinTheConnectTimeout) {
    Srv(0).Pause();
    auto cn = std::make_shared<ADODB::Connection>();
    const auto start = std::chrono::steady_clock::now();
    cn->Open(List(";ConnectTimeout=1"));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_LT(seconds, 5.0);
    ExpectOn(*cn, 1);
    // A silent server mid-session: the call raises after CommandTimeout, the next goes on.
    auto other = std::make_shared<ADODB::Connection>();
    other->Open("Server=" + Address(1) + "," + Address(2) + ";User=root;Database=zaro_test;CommandTimeout=1");
    Srv(1).Pause();
    EXPECT_THROW(other->Execute("SELECT 1"), Error);
    ExpectOn(*other, 2);
}

// Back on the same server (the others down), the lost session is ended
// there first, as on a single server.
TEST_F(ServerList, BackOnTheSameServerTheStatementLeftInFlightIsSettledFirst) {
    Srv(1).Stop();
    Srv(2).Stop();
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(List(";CommandTimeout=1;ConnectTimeout=1"));
    cn->Execute("DROP TABLE IF EXISTS `t`");
    cn->Execute("CREATE TABLE `t` (`I` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    const Variant id = One(*cn, "SELECT CONNECTION_ID()");
    Srv(0).Pause();
    const Error lost =
        zaro_test::Capturar([&] { cn->Execute("INSERT INTO `t` SELECT 1 FROM (SELECT SLEEP(1)) AS `s`"); });
    EXPECT_TRUE(IsLostServerNumber(lost.Number)) << lost.Number << " " << lost.Description;
    Srv(0).Resume();
    const Variant first = One(*cn, "SELECT count(*) FROM `t`");
    ExpectOn(*cn, 0);
    EXPECT_EQ(One(*cn, "SELECT count(*) FROM information_schema.PROCESSLIST WHERE ID = " + CStr(id)),
              Variant(int64_t{0}));
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    EXPECT_EQ(One(*cn, "SELECT count(*) FROM `t`"), first);
}

TEST_F(ServerList, OneServerWithItsPortIsOneServerAndTheEmbeddedRoadIsOnNone) {
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open("Server=" + Address(2) + ";User=root;Database=zaro_test");
    ExpectOn(*cn, 2);
    EXPECT_EQ(cn->Servers(), std::vector<std::string>{Address(2)});
    auto bySocket = std::make_shared<ADODB::Connection>();
    bySocket->Open("Socket=" + Srv(2).Socket() + ";User=root;Database=zaro_test");
    EXPECT_EQ(bySocket->CurrentServer(), Srv(2).Socket());
    cn->Close();
    EXPECT_EQ(cn->CurrentServer(), "");
    EXPECT_TRUE(cn->Servers().empty());
    for (const zaro_test::Road& road : zaro_test::AllRoads()) {
        if (road.name != "embedded") continue;
        auto embedded = zaro_test::OpenRoad(road);
        EXPECT_EQ(embedded->CurrentServer(), "");
        EXPECT_TRUE(embedded->Servers().empty());
    }
}
