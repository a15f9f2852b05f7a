// A connection belongs to one thread at a time: a call from a second thread
// while a call of the first runs raises 3711 and leaves that call alone; a
// connection handed over between calls serves its new thread; two
// connections run on two threads at once. On both roads.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/roads.h"

using namespace OVT_ZARO;

namespace {

class ConnectionThreads : public ::testing::TestWithParam<zaro_test::Road> {
protected:
    void SetUp() override {
        if (GetParam().name != "embedded") return;
        if (const std::string why = zaro_test::EmbeddedRoadSkipReason(); !why.empty()) GTEST_SKIP() << why;
    }
};

Variant One(ADODB::Connection& cn, const std::string& sql) {
    auto rs = cn.Execute(sql);
    if (!rs || rs->EOF_()) return Variant();
    return rs->Fields().Item(int32_t{0}).Value();
}

// Runs sql on cn in a thread of its own and waits until that call has begun.
struct LongCall {
    LongCall(ADODB::Connection& cn, std::string sql) {
        thread = std::thread([&cn, this, sql = std::move(sql)] {
            started = true;
            try {
                result = One(cn, sql);
            } catch (const Error& e) {
                failure = e.Number;
            }
        });
        while (!started) std::this_thread::yield();
        // The thread is about to enter its call; give it time to be in it.
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }
    ~LongCall() {
        if (thread.joinable()) thread.join();
    }
    std::thread thread;
    std::atomic<bool> started{false};
    Variant result;
    int32_t failure = 0;
};

}  // namespace

TEST_P(ConnectionThreads, ACallFromASecondThreadWhileACallRunsRaises3711AndLeavesThatCallAlone) {
    auto cn = zaro_test::OpenRoad(GetParam());
    LongCall running(*cn, "SELECT SLEEP(2) + 5");
    try {
        cn->Execute("SELECT 1");
        ADD_FAILURE() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3711);
        EXPECT_EQ(e.Source, "ADODB.Connection");
        EXPECT_EQ(e.Description,
                  "The connection is in a call of another thread; a connection belongs to one thread at a time.");
    }
    running.thread.join();
    EXPECT_EQ(running.failure, 0);
    EXPECT_EQ(CLng(running.result), 5);
    // Handed back between calls, the connection serves this thread again.
    EXPECT_EQ(CLng(One(*cn, "SELECT 40 + 2")), 42);
}

TEST_P(ConnectionThreads, ARecordsetOpenedFromASecondThreadWhileACallRunsRaises3711) {
    auto cn = zaro_test::OpenRoad(GetParam());
    LongCall running(*cn, "SELECT SLEEP(2) + 1");
    ADODB::Recordset rs;
    try {
        rs.Open("SELECT 1", cn, ADODB::adOpenForwardOnly);
        ADD_FAILURE() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.Number, 3711);
    }
    EXPECT_EQ(rs.State(), ADODB::adStateClosed);
    running.thread.join();
    EXPECT_EQ(CLng(running.result), 1);
    rs.Open("SELECT 7", cn, ADODB::adOpenForwardOnly);
    EXPECT_EQ(CLng(rs.Fields().Item(int32_t{0}).Value()), 7);
    rs.Close();
}

TEST_P(ConnectionThreads, AConnectionHandedFromThreadToThreadBetweenCallsServesEachInTurn) {
    auto cn = zaro_test::OpenRoad(GetParam());
    cn->Execute("DROP TABLE IF EXISTS `turnos`");
    cn->Execute("CREATE TABLE `turnos` (`N` int) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    for (int t = 0; t < 4; ++t)
        std::thread([&] {
            for (int i = 0; i < 10; ++i) cn->Execute("INSERT INTO `turnos` VALUES (" + std::to_string(t) + ")");
        }).join();
    EXPECT_EQ(CLng(One(*cn, "SELECT count(*) FROM `turnos`")), 40);
    EXPECT_EQ(CLng(One(*cn, "SELECT count(DISTINCT `N`) FROM `turnos`")), 4);
    cn->Execute("DROP TABLE `turnos`");
}

TEST_P(ConnectionThreads, TwoConnectionsRunOnTwoThreadsAtOnce) {
    auto setup = zaro_test::OpenRoad(GetParam());
    for (int t = 0; t < 2; ++t) {
        setup->Execute("DROP TABLE IF EXISTS `par" + std::to_string(t) + "`");
        setup->Execute("CREATE TABLE `par" + std::to_string(t) +
                       "` (`N` int, `T` varchar(20)) ENGINE=MyISAM DEFAULT CHARSET=latin1");
    }
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    std::vector<int32_t> counts(2, -1), sums(2, -1);
    for (int t = 0; t < 2; ++t)
        threads.emplace_back([&, t] {
            auto cn = zaro_test::OpenRoad(GetParam());
            const std::string table = "`par" + std::to_string(t) + "`";
            ++ready;
            while (ready < 2) std::this_thread::yield();
            for (int i = 1; i <= 200; ++i)
                cn->Execute("INSERT INTO " + table + " VALUES (" + std::to_string(i) + ", 'fila " + std::to_string(i) +
                            "')");
            ADODB::Recordset rs;
            rs.Open("SELECT `N`, `T` FROM " + table + " ORDER BY `N`", cn, ADODB::adOpenForwardOnly);
            int32_t n = 0, sum = 0;
            while (!rs.EOF_()) {
                ++n;
                sum += CLng(rs.Fields().Item("N").Value());
                if (CStr(rs.Fields().Item("T").Value()) != "fila " + std::to_string(n)) sum = -1000000;
                rs.MoveNext();
            }
            rs.Close();
            counts[t] = n;
            sums[t] = sum;
        });
    for (auto& th : threads) th.join();
    for (int t = 0; t < 2; ++t) {
        EXPECT_EQ(counts[t], 200);
        EXPECT_EQ(sums[t], 200 * 201 / 2);
        setup->Execute("DROP TABLE `par" + std::to_string(t) + "`");
    }
}

INSTANTIATE_TEST_SUITE_P(Roads, ConnectionThreads, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);
