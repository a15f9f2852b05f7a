// The database objects against the raw MariaDB C API, side by side in one run.
//
//   StaticRead/*   all rows of a 100,000-row table of twelve mixed columns:
//                  a static Recordset read with Fields.Item(name).Value for
//                  every column of every row, against mysql_store_result with
//                  every row parsed into a struct of twelve typed fields.
//   Insert/*       10,000 single-row inserts: Connection.Execute called from
//                  the main thread, against the raw C API from a second thread
//                  and from the main thread.
//   ForwardOnly/*  1,000,000 rows read forward-only (and, for contrast,
//                  static): the growth of resident memory while reading.
// ZARO_BENCH_EMBEDDED_OPTIONS gives the embedded server options of a run.
// Embedded database unless the name says server (a mariadbd started here).
#include <benchmark/benchmark.h>
#include <mysql.h>

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "support/mariadb_server.h"  // the test fixture's server, for the server road

using namespace OVT_ZARO;

namespace {

struct Env {
    std::string dir;
    std::shared_ptr<ADODB::Connection> cn;
};

std::string* g_dir = nullptr;
void RemoveDir() {
    if (g_dir) std::filesystem::remove_all(*g_dir);
}

Env& E() {
    static Env e = [] {
        Env r;
        r.dir = zaro_test::MakeTempFolder();
        g_dir = new std::string(r.dir);
        std::atexit(RemoveDir);  // before the engine starts, so it runs after the engine ends
        r.cn = std::make_shared<ADODB::Connection>();
        // ZARO_BENCH_EMBEDDED_OPTIONS: server options of this run (to measure
        // the forward-only read with smaller engine caches).
        const char* extra = std::getenv("ZARO_BENCH_EMBEDDED_OPTIONS");
        r.cn->Open("DataDir=" + r.dir + "/data;Database=bench" +
                   (extra && *extra ? std::string(";EmbeddedOptions='") + extra + "'" : std::string()));
        return r;
    }();
    return e;
}

zaro_test::MariaDbServer& Server() {
    static zaro_test::MariaDbServer* s = new zaro_test::MariaDbServer();
    static bool once = [] {
        std::atexit([] { delete s; });
        return true;
    }();
    (void)once;
    return *s;
}

std::shared_ptr<ADODB::Connection> ServerConnection() {
    static std::shared_ptr<ADODB::Connection> cn = [] {
        auto c = std::make_shared<ADODB::Connection>();
        c->Open(Server().ConnectionString("zaro_test"));
        return c;
    }();
    return cn;
}

long Kb(const char* key) {
    std::ifstream in("/proc/self/status");
    std::string line;
    const size_t n = std::strlen(key);
    while (std::getline(in, line))
        if (line.compare(0, n, key) == 0) return std::stol(line.substr(n));
    return 0;
}

// A raw connection to the embedded database, on the calling thread.
MYSQL* RawConnect() {
    E();
    MYSQL* m = mysql_init(nullptr);
    mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
    mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    if (!mysql_real_connect(m, nullptr, nullptr, nullptr, "bench", 0, nullptr, 0)) {
        std::fprintf(stderr, "raw connect: %s\n", mysql_error(m));
        std::abort();
    }
    return m;
}

void RawExec(MYSQL* m, const std::string& sql) {
    if (mysql_real_query(m, sql.data(), sql.size())) {
        std::fprintf(stderr, "raw: %s\n", mysql_error(m));
        std::abort();
    }
    if (MYSQL_RES* r = mysql_store_result(m)) mysql_free_result(r);
}

// ------------------------------------------------------------ (a) static read

const char* const kNames[12] = {"ID",     "CODIGO", "DESCRIPCION", "CANTIDAD", "PRECIO", "IMPORTE",
                                "FECHA",  "MOMENTO", "FAMILIA",    "TOTAL",    "ACTIVO", "NOTA"};

void FillTwelve(ADODB::Connection& cn, const std::string& table, int rows) {
    cn.Execute("DROP TABLE IF EXISTS `" + table + "`");
    cn.Execute("CREATE TABLE `" + table +
               "` ( `ID` int(11) NOT NULL default '0', `CODIGO` varchar(15) NOT NULL default '', "
               "`DESCRIPCION` varchar(40) NOT NULL default '', `CANTIDAD` int(11) NOT NULL default '0', "
               "`PRECIO` decimal(12,3) NOT NULL default '0.000', `IMPORTE` double NOT NULL default '0', "
               "`FECHA` date NOT NULL default '0000-00-00', `MOMENTO` datetime NOT NULL default '0000-00-00 "
               "00:00:00', `FAMILIA` smallint(6) NOT NULL default '0', `TOTAL` bigint(20) NOT NULL default '0', "
               "`ACTIVO` tinyint(1) NOT NULL default '0', `NOTA` varchar(10) default NULL, PRIMARY KEY  (`ID`) ) "
               "ENGINE=MyISAM DEFAULT CHARSET=latin1");
    cn.Execute("INSERT INTO `" + table +
               "` SELECT seq, CONCAT('A', LPAD(seq, 7, '0')), CONCAT('Descripción del artículo ', seq), seq MOD "
               "97, (seq MOD 1000) / 7, seq * 1.25, '2026-01-01' + INTERVAL (seq MOD 365) DAY, '2026-01-01 "
               "08:00:00' + INTERVAL seq SECOND, seq MOD 40, seq * 1000003, seq MOD 2, IF(seq MOD 3 = 0, NULL, "
               "'nota') FROM seq_1_to_" +
               std::to_string(rows));
}

struct Row12 {
    int32_t id;
    std::string codigo;
    std::string descripcion;
    int32_t cantidad;
    double precio;
    double importe;
    double fecha;
    double momento;
    int32_t familia;
    int64_t total;
    bool activo;
    std::string nota;  // empty for NULL
};

template <class T>
T Num(const char* p, unsigned long n) {
    T v{};
    if (p) std::from_chars(p, p + n, v);
    return v;
}

// Days from 1899-12-30 to a civil date (proleptic Gregorian).
int64_t SerialDay(int y, int m, int d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468 + 25569;  // days from 1970-01-01, then from 1899-12-30
}

double Serial(const char* p, unsigned long n) {
    if (!p || n < 10) return 0;
    const int y = Num<int>(p, 4), mo = Num<int>(p + 5, 2), d = Num<int>(p + 8, 2);
    if (!mo || !d) return 0;
    double secs = 0;
    if (n >= 19) secs = Num<int>(p + 11, 2) * 3600.0 + Num<int>(p + 14, 2) * 60.0 + Num<int>(p + 17, 2);
    const int64_t day = SerialDay(y, mo, d);
    // Before the zero date the time runs backwards from the day, as the platform's dates do.
    return day >= 0 ? day + secs / 86400.0 : day - secs / 86400.0;
}

bool g_twelveReady = false;
void EnsureTwelve() {
    if (g_twelveReady) return;
    FillTwelve(*E().cn, "doce", 100000);
    g_twelveReady = true;
}

void StaticRead_ADODB(benchmark::State& state) {
    EnsureTwelve();
    int64_t rows = 0;
    for (auto _ : state) {
        ADODB::Recordset rs;
        rs.Open("SELECT * FROM `doce`", E().cn, ADODB::adOpenStatic, ADODB::adLockReadOnly);
        ADODB::Fields& f = rs.Fields();
        while (!rs.EOF_()) {
            Variant v[12];
            for (int c = 0; c < 12; ++c) v[c] = f.Item(kNames[c]).Value();
            benchmark::DoNotOptimize(v);
            ++rows;
            rs.MoveNext();
        }
        rs.Close();
    }
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsRate);
}
BENCHMARK(StaticRead_ADODB)->Name("StaticRead/ADODB_FieldsItemByName_Value")->Unit(benchmark::kMillisecond)->UseRealTime();

void StaticRead_Raw(benchmark::State& state) {
    EnsureTwelve();
    int64_t rows = 0;
    // On a thread of its own, as the library runs the engine (one statement
    // here, so the thread does not change the figure).
    std::thread([&] {
        MYSQL* m = RawConnect();
        for (auto _ : state) {
            const std::string sql = "SELECT * FROM `doce`";
            if (mysql_real_query(m, sql.data(), sql.size())) std::abort();
            MYSQL_RES* res = mysql_store_result(m);
            while (MYSQL_ROW r = mysql_fetch_row(res)) {
                const unsigned long* len = mysql_fetch_lengths(res);
                Row12 row;
                row.id = Num<int32_t>(r[0], len[0]);
                row.codigo.assign(r[1], len[1]);
                row.descripcion.assign(r[2], len[2]);
                row.cantidad = Num<int32_t>(r[3], len[3]);
                row.precio = Num<double>(r[4], len[4]);
                row.importe = Num<double>(r[5], len[5]);
                row.fecha = Serial(r[6], len[6]);
                row.momento = Serial(r[7], len[7]);
                row.familia = Num<int32_t>(r[8], len[8]);
                row.total = Num<int64_t>(r[9], len[9]);
                row.activo = Num<int>(r[10], len[10]) != 0;
                if (r[11]) row.nota.assign(r[11], len[11]);
                benchmark::DoNotOptimize(row);
                ++rows;
            }
            mysql_free_result(res);
        }
        mysql_close(m);
        mysql_thread_end();
    }).join();
    state.counters["rows/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsRate);
}
BENCHMARK(StaticRead_Raw)->Name("StaticRead/RawCAPI_IntoStruct")->Unit(benchmark::kMillisecond)->UseRealTime();

// ------------------------------------------------------------ (b) inserts

constexpr int kInserts = 10000;

std::string InsertSql(int i) {
    return "INSERT INTO `ins` (`ID`, `CODIGO`, `IMPORTE`) VALUES (" + std::to_string(i) + ", 'A" +
           std::to_string(i) + "', " + std::to_string(i) + ".5)";
}

void ResetInsertTable() {
    E().cn->Execute("DROP TABLE IF EXISTS `ins`");
    E().cn->Execute(
        "CREATE TABLE `ins` (`ID` int(11) NOT NULL default '0', `CODIGO` varchar(15) NOT NULL default '', "
        "`IMPORTE` double NOT NULL default '0', PRIMARY KEY  (`ID`)) ENGINE=MyISAM DEFAULT CHARSET=latin1");
}

void Insert_ADODB_Main(benchmark::State& state) {
    E();
    for (auto _ : state) {
        state.PauseTiming();
        ResetInsertTable();
        state.ResumeTiming();
        for (int i = 0; i < kInserts; ++i) E().cn->Execute(InsertSql(i));
    }
    state.counters["inserts/s"] =
        benchmark::Counter(static_cast<double>(kInserts) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(Insert_ADODB_Main)->Name("Insert/ADODB_Execute_MainThread")->Unit(benchmark::kMillisecond)->UseRealTime();

void RawInserts(MYSQL* m) {
    for (int i = 0; i < kInserts; ++i) RawExec(m, InsertSql(i));
}

void Insert_Raw_Thread(benchmark::State& state) {
    E();
    for (auto _ : state) {
        state.PauseTiming();
        ResetInsertTable();
        state.ResumeTiming();
        std::thread([] {
            MYSQL* m = RawConnect();
            RawInserts(m);
            mysql_close(m);
            mysql_thread_end();
        }).join();
    }
    state.counters["inserts/s"] =
        benchmark::Counter(static_cast<double>(kInserts) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(Insert_Raw_Thread)->Name("Insert/RawCAPI_SecondThread")->Unit(benchmark::kMillisecond)->UseRealTime();

void Insert_Raw_Main(benchmark::State& state) {
    E();
    MYSQL* m = RawConnect();
    for (auto _ : state) {
        state.PauseTiming();
        ResetInsertTable();
        state.ResumeTiming();
        RawInserts(m);
    }
    mysql_close(m);
    mysql_thread_end();
    state.counters["inserts/s"] =
        benchmark::Counter(static_cast<double>(kInserts) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(Insert_Raw_Main)->Name("Insert/RawCAPI_MainThread")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);


// ------------------------------------------------------------ (c) memory

constexpr int kBigRows = 1000000;

void ReadAll(ADODB::Connection& cn, int cursor, benchmark::State& state) {
    long before = 0, peak = 0;
    int64_t rows = 0;
    for (auto _ : state) {
        before = Kb("VmRSS:");
        peak = before;
        ADODB::Recordset rs;
        rs.Open("SELECT * FROM `millon`", std::static_pointer_cast<ADODB::Connection>(cn.shared_from_this()), cursor,
                ADODB::adLockReadOnly);
        ADODB::Fields& f = rs.Fields();
        while (!rs.EOF_()) {
            for (int c = 0; c < f.Count(); ++c) benchmark::DoNotOptimize(f.Item(c).Value());
            if (++rows % 10000 == 0) peak = std::max(peak, Kb("VmRSS:"));
            rs.MoveNext();
        }
        peak = std::max(peak, Kb("VmRSS:"));
        rs.Close();
    }
    state.counters["rows"] = static_cast<double>(rows / state.iterations());
    state.counters["rss_before_MB"] = before / 1024.0;
    state.counters["rss_growth_MB"] = (peak - before) / 1024.0;
}

bool g_millonEmbedded = false, g_millonServer = false;

void ForwardOnly_Embedded(benchmark::State& state) {
    if (!g_millonEmbedded) {
        FillTwelve(*E().cn, "millon", kBigRows);
        g_millonEmbedded = true;
    }
    ReadAll(*E().cn, ADODB::adOpenForwardOnly, state);
}
BENCHMARK(ForwardOnly_Embedded)->Name("ForwardOnly/Embedded_1M_rows")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void ForwardOnly_Server(benchmark::State& state) {
    auto cn = ServerConnection();
    if (!g_millonServer) {
        FillTwelve(*cn, "millon", kBigRows);
        g_millonServer = true;
    }
    ReadAll(*cn, ADODB::adOpenForwardOnly, state);
}
BENCHMARK(ForwardOnly_Server)->Name("ForwardOnly/Server_1M_rows")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Static_Embedded(benchmark::State& state) {
    if (!g_millonEmbedded) {
        FillTwelve(*E().cn, "millon", kBigRows);
        g_millonEmbedded = true;
    }
    ReadAll(*E().cn, ADODB::adOpenStatic, state);
}
BENCHMARK(Static_Embedded)->Name("ForwardOnly/Contrast_Static_Embedded_1M_rows")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
