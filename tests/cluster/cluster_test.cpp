// zaro on a three-node Galera cluster on 127.0.0.1: the site's tables made
// for the cluster, and an import that goes on through the next node when the
// node it is on is killed (-9) at a random moment, three times, each node in
// turn. After each kill: the import ends without a restart of zaro, every
// row is on every surviving node exactly once, the surviving nodes export the
// same bytes, and the killed node, started again, rejoins and exports the
// same bytes too. The cluster is stopped by its PIDs at the end whatever
// happens (and dies with this program if it is killed).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <regex>
#include <sstream>
#include <thread>

#include "ZARODatos.h"
#include "support/child_process.h"
#include "support/galera_cluster.h"
#include "support/roads.h"

using namespace OVT_ZARO;
using ::testing::HasSubstr;

namespace {

const char* const kZaro = ZARO_BINARY_DIR "/zaro";
const char* const kDatabase = "zaro_test";
constexpr int kRows = 20000;

std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::string Code(int round, int i) {
    char code[32];
    std::snprintf(code, sizeof code, "R%dP%07d", round, i);
    return code;
}

std::string Articles(int round) {
    std::string text;
    for (int i = 0; i < kRows; ++i)
        text += "0;14/03/2026;;0;1;" + Code(round, i) + ";;1;1;" + std::to_string(1 + i % 7) + ";Articulo " +
                std::to_string(i) + ";Art;\r\n";
    return text;
}

// A run for a message: its status and output, without the statements of --log.
std::string Explain(const zaro_test::ChildRun& r) {
    std::string err;
    size_t statements = 0;
    std::istringstream lines(r.err);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("[articulo] ", 0) == 0) ++statements;
        else err += line + "\n";
    }
    return "status " + std::to_string(r.status) + (r.timedOut ? " (timed out)" : "") + "\n--- out\n" + r.out +
           "\n--- err (" + std::to_string(statements) + " statements of --log left out)\n" + err;
}

double Since(std::chrono::steady_clock::time_point t) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t).count();
}

// The cluster of the program: started by the first test that needs it,
// stopped at the end of the program's tests, whatever happened in them.
struct Shared {
    std::unique_ptr<zaro_test::GaleraCluster> cluster;
    std::string skip, failure, work;
    bool tried = false;
};
Shared& State() {
    static Shared* s = new Shared();
    return *s;
}

class StopTheCluster : public ::testing::Environment {
public:
    void TearDown() override { State().cluster.reset(); }
};
const auto* const kStop = ::testing::AddGlobalTestEnvironment(new StopTheCluster);

class Cluster : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        Shared& s = State();
        if (s.tried) return;
        s.tried = true;
        if (!zaro_test::GaleraCluster::Available(s.skip)) return;
        s.work = zaro_test::ProgramTempFolder() + "/cluster-work";
        std::filesystem::create_directories(s.work);
        const auto start = std::chrono::steady_clock::now();
        try {
            s.cluster = std::make_unique<zaro_test::GaleraCluster>(3);
            std::printf("a 3-node cluster started in %.1f s\n", Since(start));
            Node(0).Execute(std::string("CREATE DATABASE IF NOT EXISTS ") + kDatabase);
        } catch (const Error& e) {
            s.failure = "error " + std::to_string(e.Number) + ": " + e.Description;
        } catch (const std::exception& e) {
            s.failure = e.what();
        }
    }
    void SetUp() override {
        if (!State().skip.empty()) GTEST_SKIP() << "no Galera cluster on this machine: " << State().skip;
        ASSERT_TRUE(State().failure.empty()) << "the cluster did not start: " << State().failure;
        ASSERT_TRUE(State().cluster);
        cluster = State().cluster.get();
        work = &State().work;
    }

    // A connection to one node. Its reads wait until the node has applied
    // what the cluster committed before them (wsrep_sync_wait): a node
    // applies the writes of another a moment after that one's commit
    // returns, so a read right after zaro ends could miss the last of them.
    static ADODB::Connection& Node(int i, bool database = false) {
        static std::shared_ptr<ADODB::Connection> open[2][3];
        auto& cn = open[database][i];
        if (!cn || cn->State() != ADODB::adStateOpen) {
            cn = std::make_shared<ADODB::Connection>();
            cn->Open("Server=" + State().cluster->Address(i) + ";User=root" +
                     (database ? std::string(";Database=") + kDatabase : "") + ";ConnectTimeout=5");
            cn->Execute("SET SESSION wsrep_sync_wait = 1");
        }
        return *cn;
    }
    static Variant One(int i, const std::string& sql) {
        try {
            return Node(i, true).Execute(sql)->Fields().Item(int32_t{0}).Value();
        } catch (const Error&) {
            // Once more, on a new session (the node was restarted).
            Node(i, true).Close();
            return Node(i, true).Execute(sql)->Fields().Item(int32_t{0}).Value();
        }
    }
    // zaro with these arguments, run in the work folder, bounded in time.
    static zaro_test::ChildRun Zaro(std::vector<std::string> args, double seconds = 120) {
        args.insert(args.begin(), kZaro);
        return zaro_test::RunChild(args, {}, seconds, *work);
    }
    static std::string List(const std::vector<int>& order) { return cluster->ConnectionString(order, kDatabase); }
    static std::string One(int i) { return cluster->ConnectionString({i}, kDatabase); }
    // The rows of a round, exported by zaro from one node.
    static std::string Export(int node, int round) {
        const std::string file = *work + "/export-" + std::to_string(round) + "-" + std::to_string(node) + ".txt";
        const auto r = Zaro({"--connect", One(node), "export", "articulo", "--where",
                             "CD_ARTICULO like 'R" + std::to_string(round) + "P%'", "--out", file});
        EXPECT_EQ(r.status, 0) << Explain(r);
        return ReadText(file);
    }

    static zaro_test::GaleraCluster* cluster;
    static std::string* work;
};
zaro_test::GaleraCluster* Cluster::cluster = nullptr;
std::string* Cluster::work = nullptr;

}  // namespace

// The library's tables are MyISAM, whose rows a cluster does not replicate:
// rows saved on one node stay there. init converts the ten tables to InnoDB,
// a table with rows too, whose rows then reach every node.
TEST_F(Cluster, InitConvertsTheTenTablesToInnoDBAndTheRowsOfATableThatHoldsThemReachEveryNode) {
    zaro_test::DropAllTables(Node(0, true));
    {
        DataAdapters reg;
        reg.Conexion = std::make_shared<ADODB::Connection>();
        reg.Conexion->Open(One(0));
        ASSERT_TRUE(reg.articulo()->CrearTabla());
        colarticulo tres;
        for (const char* code : {"CAF01", "AGU01", "BOC01"})
            tres.Add(code, 0, {}, {}, 0, 0, {}, 1, 0, 1.5, "Articulo", "Art");
        reg.articulo()->GrabarDatos(tres);
    }
    EXPECT_EQ(One(0, "select count(*) from articulo"), Variant(int64_t{3}));
    EXPECT_EQ(One(1, "select count(*) from articulo"), Variant(int64_t{0}));  // MyISAM rows stay on their node

    const auto init = Zaro({"--connect", List({0, 1, 2}), "init"});
    ASSERT_EQ(init.status, 0) << Explain(init);
    EXPECT_THAT(init.out, HasSubstr("the server " + cluster->Address(0) + " of --connect:\n"));
    EXPECT_THAT(init.out, ::testing::ContainsRegex(
                              "articulo +kept, holds 3 rows; converted to InnoDB for the cluster, its 3 rows copied\n"));
    EXPECT_THAT(init.out, ::testing::ContainsRegex("ticket_pago +created; converted to InnoDB for the cluster\n"));
    EXPECT_THAT(init.out, ::testing::ContainsRegex(
                              "ticket +refused by the database; made the site's own table; converted to InnoDB for "
                              "the cluster\n"));
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE("node " + std::to_string(i + 1));
        EXPECT_EQ(One(i, "select count(*) from information_schema.tables where table_schema = database() and "
                         "engine = 'InnoDB'"),
                  Variant(int64_t{10}));
        EXPECT_EQ(One(i, "select count(*) from information_schema.tables where table_schema = database()"),
                  Variant(int64_t{10}));
        EXPECT_EQ(One(i, "select count(*) from articulo"), Variant(int64_t{3}));
    }
    const auto tables = Zaro({"--log", "--connect", List({2, 0, 1}), "tables"});
    ASSERT_EQ(tables.status, 0) << Explain(tables);
    EXPECT_THAT(tables.out, HasSubstr("the server " + cluster->Address(2) + " of --connect:\n"));
    EXPECT_THAT(tables.out, ::testing::ContainsRegex("  table +rows +engine\n"));
    EXPECT_THAT(tables.out, ::testing::ContainsRegex("  articulo +3 +InnoDB\n"));
    EXPECT_THAT(tables.err, HasSubstr("[connection] opened on " + cluster->Address(2) + ", the first that answered of " +
                                      cluster->Address(2) + ", " + cluster->Address(0) + ", " +
                                      cluster->Address(1) + "\n"));
    // init again: tables with rows are kept as they are, now InnoDB.
    const auto again = Zaro({"--connect", List({1, 2, 0}), "init"});
    ASSERT_EQ(again.status, 0) << Explain(again);
    EXPECT_THAT(again.out, ::testing::ContainsRegex("articulo +kept, holds 3 rows\n"));
}

// demo makes the tables as init does, and records the day on every node.
TEST_F(Cluster, DemoOnAClusterConvertsTheTablesAndRecordsTheDayOnEveryNode) {
    zaro_test::DropAllTables(Node(0, true));
    const auto demo = Zaro({"--connect", List({1, 2, 0}), "demo", "--out", "out"});
    ASSERT_EQ(demo.status, 0) << Explain(demo);
    EXPECT_THAT(demo.out, HasSubstr("zaro demo on the server " + cluster->Address(1) + " of --connect\n"));
    EXPECT_THAT(demo.out, HasSubstr("\n  converted to InnoDB for the cluster: _definicion_campos, articulo, fin_dia, "
                                    "inicio_dia, resumen_diario, resumen_diario_detalle, ticket, ticket_articulo, "
                                    "ticket_impuesto, ticket_pago\n"));
    EXPECT_THAT(demo.out, HasSubstr("Trading day 14/03/2026: 45 tickets, gross 627,45 after returns"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(One(i, "select count(*) from ticket"), Variant(int64_t{45})) << "node " << i + 1;
        EXPECT_EQ(One(i, "select count(*) from ticket_articulo"), Variant(int64_t{105})) << "node " << i + 1;
    }
}

// Round r: the list starts at node r, the import runs on it, and node r is
// killed once a random number of rows is in.
class ClusterKill : public Cluster, public ::testing::WithParamInterface<int> {};

TEST_P(ClusterKill, AnImportGoesOnThroughTheNextNodeWhenTheNodeItIsOnIsKilled) {
    const int round = GetParam() + 1;
    const std::vector<int> order{GetParam() % 3, (GetParam() + 1) % 3, (GetParam() + 2) % 3};
    std::ofstream(*work + "/round.txt", std::ios::binary | std::ios::trunc) << Articles(round);
    // The site's tables, made for the cluster (when this round runs alone).
    if (One(0, "select count(*) from information_schema.tables where table_schema = database() and engine = "
               "'InnoDB' and table_name = 'articulo'") != Variant(int64_t{1})) {
        ASSERT_EQ(Zaro({"--connect", List(order), "init"}).status, 0);
    }
    const int64_t before = CLng(One(order[2], "select count(*) from articulo"));
    std::random_device seed;
    std::mt19937 random(seed());
    const int moment = std::uniform_int_distribution<int>(1000, kRows - 3000)(random);

    const auto started = std::chrono::steady_clock::now();
    const pid_t pid = zaro_test::StartChild({kZaro, "--log", "--connect", List(order), "import", "articulo",
                                             "round.txt"},
                                            {}, *work);
    const std::string out = zaro_test::ChildOutputFile(pid);
    // The node it is on, as it says.
    const std::regex opened("into articulo on 127\\.0\\.0\\.1:([0-9]+): ImportarTexto read [0-9]+ rows");
    std::smatch m;
    std::string text;
    while (Since(started) < 60) {
        text = ReadText(out);
        if (std::regex_search(text, m, opened)) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ASSERT_TRUE(std::regex_search(text, m, opened)) << Explain(zaro_test::WaitChild(pid, 1));
    const int on = cluster->NodeOfPort(std::stoi(m[1]));
    ASSERT_EQ(on, order[0]);
    const int watcher = order[2];  // a node that stays, to see the rows come in
    const std::string rows = "select count(*) from articulo where CD_ARTICULO like 'R" + std::to_string(round) + "P%'";
    while (CLng(One(watcher, rows)) < moment && Since(started) < 90)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));

    cluster->Kill(on);
    const auto killed = std::chrono::steady_clock::now();
    const double importSeconds = Since(started);
    // zaro reports the line in flight as soon as it has settled it on the
    // next node: found there (a read, at once) or saved there (a write,
    // once the cluster has dropped the dead node).
    const std::string lostText = cluster->Address(on) + " was lost (";
    double reported = -1;
    while (Since(killed) < 60) {
        if (ReadText(out).find(lostText) != std::string::npos) {
            reported = Since(killed);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    const zaro_test::ChildRun run = zaro_test::WaitChild(pid, 120);
    ASSERT_EQ(run.status, 0) << Explain(run);
    EXPECT_THAT(run.out, HasSubstr("saved 20000 rows (20000 inserted, 0 updated); skipped 1 empty line\n"));
    const std::regex went("  line ([0-9]+): " + std::regex_replace(cluster->Address(on), std::regex("\\."), "\\.") +
                          " was lost \\(error 20[0-9][0-9] [^\n]*\\); went on through 127\\.0\\.0\\.1:([0-9]+), where "
                          "the line was (already saved|saved[^\n]*)\n");
    ASSERT_TRUE(std::regex_search(run.out, m, went)) << Explain(run);
    const int next = cluster->NodeOfPort(std::stoi(m[2]));
    EXPECT_EQ(next, order[1]);
    EXPECT_THAT(run.err, HasSubstr("[connection] import of round.txt, line " + std::string(m[1]) + ": " +
                                   cluster->Address(on) + " was lost ("));
    EXPECT_THAT(run.err, HasSubstr("[connection] on " + cluster->Address(order[1]) + " at the end\n"));
    std::printf("round %d: node %d killed at %d rows in (%.1f s into the import), line %s: %s; reported on node "
                "%d %.2f s after the kill; the import took %.1f s\n",
                round, on + 1, moment, importSeconds, std::string(m[1]).c_str(), std::string(m[3]).c_str(), next + 1,
                reported, run.seconds);

    // Every row on every surviving node, once; the same bytes from each.
    std::string reference;
    for (int i : {order[1], order[2]}) {
        SCOPED_TRACE("node " + std::to_string(i + 1));
        EXPECT_EQ(One(i, rows), Variant(int64_t{kRows}));
        EXPECT_EQ(One(i, "select count(distinct CD_ARTICULO) from articulo where CD_ARTICULO like 'R" +
                             std::to_string(round) + "P%'"),
                  Variant(int64_t{kRows}));
        EXPECT_EQ(One(i, "select min(CD_ARTICULO) from articulo where CD_ARTICULO like 'R" + std::to_string(round) +
                             "P%'"),
                  Variant(Code(round, 0)));
        EXPECT_EQ(One(i, "select max(CD_ARTICULO) from articulo where CD_ARTICULO like 'R" + std::to_string(round) +
                             "P%'"),
                  Variant(Code(round, kRows - 1)));
        const std::string exported = Export(i, round);
        EXPECT_EQ(std::count(exported.begin(), exported.end(), '\n'), kRows + 1);
        if (reference.empty()) reference = exported;
        else EXPECT_TRUE(exported == reference) << "the surviving nodes export different rows";
    }
    // The killed node rejoins and holds the same rows.
    const auto restarted = std::chrono::steady_clock::now();
    cluster->Start(on);
    ASSERT_NO_THROW(cluster->WaitSynced(on, 120));
    const double rejoin = Since(restarted);
    EXPECT_EQ(One(on, rows), Variant(int64_t{kRows}));
    EXPECT_TRUE(Export(on, round) == reference) << "the node that rejoined exports different rows";
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(CLng(One(i, "select count(*) from articulo")), before + kRows) << "node " << i + 1;
    std::printf("round %d: node %d rejoined and synced in %.1f s\n", round, on + 1, rejoin);
}

INSTANTIATE_TEST_SUITE_P(ThreeMoments, ClusterKill, ::testing::Values(0, 1, 2),
                         [](const ::testing::TestParamInfo<int>& info) {
                             return "Node" + std::to_string(info.param + 1);
                         });
