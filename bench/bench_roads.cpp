// The article adapter's statements on both roads, each against the raw
// MariaDB C API doing the same work with the same SQL text in the same run:
//
//   read    daarticulo.Listar() of 100,000 rows, against mysql_store_result
//           and every row parsed into a plain struct of twelve typed fields;
//   lookup  10,000 daarticulo.Entidad(key) calls, against the same 10,000
//           statements sent raw, each row parsed into the struct;
//   insert  10,000 daarticulo.Insert calls (the existence check, then the
//           insert), against the same 20,000 statements sent raw.
//
// Roads: a private mariadbd (the test fixture's, general log off) over its
// Unix socket, the raw API called from the same thread; and the embedded
// database, the raw API called from a second thread (the library hands the
// main thread's calls to the connection's engine thread). Each side checks
// what it read (rows, keys, a sum of a numeric column) or wrote (CHECKSUM
// TABLE, the same for both sides).
//
// The two sides take turns in small slices, the first of each pair changing
// from slice to slice: a whole read each, or a tenth of the lookups or
// inserts (the insert table made anew before each slice and checked after
// it), so that a change of the machine's load falls on both alike. The load
// average (1 minute) is taken before each slice. Printed: each round's sum
// per side (with the CPU time of the process and its page faults during each
// side's slices), then per work the median ratio over the rounds and its range.
//
//   bench_roads [--rounds N] [--road server|embedded|both] [--work read|lookup|insert] [--side zaro|raw]
// (--side runs one side alone, for a profiler; --server-keys adds keys to the
// connection string of the library's side on the server road.)
#include <mysql.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "ZARODatos/tables/articulo.h"
#include "bench_support.h"
#include "peers/raw_row.h"
#include "support/mariadb_server.h"  // the test fixture's server, for the server road

using namespace OVT_ZARO;

namespace {

constexpr int kRows = 100000;
constexpr int kLookups = 10000;
constexpr int kInserts = 10000;

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "bench_roads: %s\n", what.c_str());
    std::exit(1);
}

double Load1() {
    double l[1] = {0};
    return getloadavg(l, 1) == 1 ? l[0] : -1;
}

using Clock = std::chrono::steady_clock;
double MsSince(Clock::time_point t0) {
    return std::chrono::duration<double, std::milli>(Clock::now() - t0).count();
}

// The CPU time of this process (all its threads) in milliseconds: the server
// of the server road is another process, so on that road it is the client's
// work alone.
double CpuMs() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

// The page faults of this process so far (the first touch of memory the
// allocator took from the system): a side that gives memory back and takes
// it again pays them on every round.
long Faults() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_minflt;
}

// ------------------------------------------------------------ raw side

using raw_row::Fila;
using raw_row::Parsear;

void RawQuery(MYSQL* m, const std::string& sql) {
    if (mysql_real_query(m, sql.data(), sql.size())) Fail(std::string("raw: ") + mysql_error(m));
}

// A raw session set up as the library sets up its own (utf8mb4, and
// NO_BACKSLASH_ESCAPES added to sql_mode).
MYSQL* RawConnect(bool embedded, const std::string& socket, const char* database) {
    MYSQL* m = mysql_init(nullptr);
    if (embedded) {
        mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
    } else {
        mysql_options(m, MYSQL_OPT_USE_REMOTE_CONNECTION, nullptr);
    }
    mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    if (!mysql_real_connect(m, nullptr, embedded ? nullptr : "root", nullptr, database, 0,
                            embedded ? nullptr : socket.c_str(), CLIENT_MULTI_RESULTS))
        Fail(std::string("raw connect: ") + mysql_error(m));
    RawQuery(m, "SET sql_mode = CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'NO_BACKSLASH_ESCAPES')");
    return m;
}

// ------------------------------------------------------------ the works

struct Road {
    std::string name;
    bool embedded = false;
    std::string socket;
    const char* database = nullptr;
    ConnectionRef cn;
    std::string listarSql;                // the statement Listar sends
    std::vector<std::string> keys;        // the keys looked up
    std::vector<std::string> lookupSql;   // the statements Entidad sends
    std::vector<std::shared_ptr<entarticulo>> nuevos;  // the entities inserted
    std::vector<std::pair<std::string, std::string>> insertSql;  // the statements Insert sends
    std::vector<std::string> expected;    // CHECKSUM TABLE after each chunk of inserts, alone
};

// What a side read: the rows, and a sum over some of their fields. Both
// sides must agree.
struct Cuenta {
    long long filas = 0;
    long long suma = 0;
    void Anadir(int32_t a, int32_t b, size_t c) {
        ++filas;
        suma += a + 3LL * b + 7LL * static_cast<long long>(c);
    }
    std::string Texto() const { return std::to_string(filas) + "/" + std::to_string(suma); }
};

constexpr int kChunks = 10;
std::pair<size_t, size_t> Trozo(int chunk, size_t n) {
    return {n * static_cast<size_t>(chunk) / kChunks, n * static_cast<size_t>(chunk + 1) / kChunks};
}

// The raw side of the embedded road: a second thread with a connection of
// its own, running one job at a time (the job times itself on that thread).
class RawThread {
public:
    explicit RawThread(Road& road) : thread_([this, &road] {
        mysql_thread_init();
        MYSQL* m = RawConnect(true, road.socket, road.database);
        std::unique_lock<std::mutex> lock(mu_);
        for (;;) {
            cv_.wait(lock, [&] { return job_ || stop_; });
            if (stop_) break;
            job_(m);
            job_ = nullptr;
            cv_.notify_all();
        }
        lock.unlock();
        mysql_close(m);
        mysql_thread_end();
    }) {}
    ~RawThread() {
        {
            std::lock_guard<std::mutex> lock(mu_);
            stop_ = true;
        }
        cv_.notify_all();
        thread_.join();
    }
    void Run(std::function<void(MYSQL*)> job) {
        std::unique_lock<std::mutex> lock(mu_);
        job_ = std::move(job);
        cv_.notify_all();
        cv_.wait(lock, [&] { return !job_; });
    }

private:
    std::mutex mu_;
    std::condition_variable cv_;
    std::function<void(MYSQL*)> job_;
    bool stop_ = false;
    std::thread thread_;
};

// The raw side of a road: on this thread (server) or on the second thread
// (embedded). Gives the time of f alone.
struct RawSide {
    Road& road;
    MYSQL* here = nullptr;
    std::unique_ptr<RawThread> second;
    explicit RawSide(Road& r) : road(r) {
        if (road.embedded) second = std::make_unique<RawThread>(road);
        else here = RawConnect(false, road.socket, road.database);
    }
    ~RawSide() {
        if (here) mysql_close(here);
    }
    double Run(const std::function<void(MYSQL*)>& f) {
        double ms = 0;
        auto timed = [&](MYSQL* m) {
            const auto t0 = Clock::now();
            f(m);
            ms = MsSince(t0);
        };
        if (second) second->Run(timed);
        else timed(here);
        return ms;
    }
};

// The works, a chunk at a time. zaro and raw give the time of the chunk and
// what it read ("ok" for inserts, whose table the caller checks).
struct Sides {
    Road& road;
    RawSide raw;
    std::unique_ptr<daarticulo> lector, insertor;  // a round's adapters
    explicit Sides(Road& r) : road(r), raw(r) {}

    void NewRound() {
        lector = std::make_unique<daarticulo>();
        lector->Conexion = road.cn;
        insertor = std::make_unique<daarticulo>();
        insertor->Conexion = road.cn;
        insertor->Tabla("articulo_ins");
    }

    double Zaro(const std::string& work, int chunk, std::string& check) {
        Cuenta c;
        const auto t0 = Clock::now();
        if (work == "read") {
            auto l = lector->Listar();
            for (const auto& e : *l) c.Anadir(e->COD_TRANSACC, e->TIPO_SUBFAMILIA, e->DESC_ARTICULO.size());
        } else if (work == "lookup") {
            const auto [from, to] = Trozo(chunk, road.keys.size());
            for (size_t i = from; i < to; ++i) {
                auto e = lector->Entidad(road.keys[i]);
                if (!e || e->CD_ARTICULO != road.keys[i]) Fail("lookup: wrong row for " + road.keys[i]);
                c.Anadir(e->COD_TRANSACC, e->TIPO_SUBFAMILIA, e->DESC_ARTICULO.size());
            }
        } else {
            const auto [from, to] = Trozo(chunk, road.nuevos.size());
            for (size_t i = from; i < to; ++i) insertor->Insert(*road.nuevos[i]);
        }
        const double ms = MsSince(t0);
        check = work == "insert" ? "ok" : c.Texto();
        return ms;
    }

    double Raw(const std::string& work, int chunk, std::string& check) {
        Cuenta c;
        const double ms = raw.Run([&](MYSQL* m) {
            if (work == "read") {
                std::vector<Fila> filas;
                RawQuery(m, road.listarSql);
                MYSQL_RES* res = mysql_store_result(m);
                if (!res) Fail("raw read: no result");
                filas.reserve(mysql_num_rows(res));
                while (MYSQL_ROW r = mysql_fetch_row(res)) {
                    Fila f;
                    Parsear(r, mysql_fetch_lengths(res), f);
                    filas.push_back(std::move(f));
                }
                mysql_free_result(res);
                for (const Fila& f : filas) c.Anadir(f.COD_TRANSACC, f.TIPO_SUBFAMILIA, f.DESC_ARTICULO.size());
            } else if (work == "lookup") {
                Fila f;
                const auto [from, to] = Trozo(chunk, road.lookupSql.size());
                for (size_t i = from; i < to; ++i) {
                    RawQuery(m, road.lookupSql[i]);
                    MYSQL_RES* res = mysql_store_result(m);
                    MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
                    if (!r) Fail("raw lookup: no row");
                    Parsear(r, mysql_fetch_lengths(res), f);
                    mysql_free_result(res);
                    if (f.CD_ARTICULO != road.keys[i]) Fail("raw lookup: wrong row for " + road.keys[i]);
                    c.Anadir(f.COD_TRANSACC, f.TIPO_SUBFAMILIA, f.DESC_ARTICULO.size());
                }
            } else {
                const auto [from, to] = Trozo(chunk, road.insertSql.size());
                for (size_t i = from; i < to; ++i) {
                    const auto& [cuenta, insert] = road.insertSql[i];
                    RawQuery(m, cuenta);
                    MYSQL_RES* res = mysql_store_result(m);
                    MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
                    if (!r || std::strcmp(r[0], "0") != 0) Fail("raw insert: the row exists");
                    mysql_free_result(res);
                    RawQuery(m, insert);
                    if (mysql_affected_rows(m) != 1) Fail("raw insert: no row inserted");
                }
            }
        });
        check = work == "insert" ? "ok" : c.Texto();
        return ms;
    }
};

void ResetInsertTable(Road& road) {
    road.cn->Execute("DROP TABLE IF EXISTS articulo_ins");
    daarticulo da;
    da.Conexion = road.cn;
    da.Tabla("articulo_ins");
    if (!da.CrearTabla()) Fail("could not create articulo_ins");
}

std::string Checksum(Road& road) {
    auto rs = road.cn->Execute("CHECKSUM TABLE articulo_ins");
    return CStr(rs->Fields().Item(int32_t{1}).Value());
}

// ------------------------------------------------------------ setup

void Prepare(Road& road) {
    zaro_bench::LlenarArticulos(road.cn, "articulo", kRows);
    daarticulo da;
    da.Conexion = road.cn;
    // The statements the adapter sends, taken from its own log.
    da.Listar();
    road.listarSql = da.LogSQL->Item(1).Get<std::string>();
    da.LogSQL.reset();
    for (int i = 0; i < kLookups; ++i) {
        char k[16];
        std::snprintf(k, sizeof k, "A%07d", static_cast<int>((static_cast<long long>(i) * 7919) % kRows));
        road.keys.push_back(k);
        da.Entidad(k);
    }
    for (const Variant& v : *da.LogSQL) road.lookupSql.push_back(v.Get<std::string>());
    for (int i = 0; i < kInserts; ++i) {
        auto e = std::make_shared<entarticulo>();
        e->COD_TRANSACC = i;
        e->FECHA_REAL = Date::FromParts(2026, 3, 1 + i % 28);
        e->HORA_REAL = "1030";
        e->CD_OP = i % 20;
        e->CD_ARTICULO = "I" + std::to_string(i);
        e->IDARTICOLGS1 = "8410000" + std::to_string(i);
        e->TIPO_FAMILIA = i % 30;
        e->PRECIOMAX = 1.5 + i % 10;
        e->DESC_ARTICULO = "Articulo " + std::to_string(i);
        e->DESC_CORTA = "Art";
        road.nuevos.push_back(e);
    }
    ResetInsertTable(road);
    daarticulo ins;
    ins.Conexion = road.cn;
    ins.Tabla("articulo_ins");
    for (const auto& e : road.nuevos) ins.Insert(*e);
    int i = 0;
    for (const Variant& v : *ins.LogSQL)
        road.insertSql.emplace_back("select count(*) from articulo_ins  where articulo_ins.CD_ARTICULO = '" +
                                        road.nuevos[static_cast<size_t>(i++)]->CD_ARTICULO + "'  ",
                                    v.Get<std::string>());
    for (int c = 0; c < kChunks; ++c) {
        ResetInsertTable(road);
        const auto [from, to] = Trozo(c, road.insertSql.size());
        for (size_t k = from; k < to; ++k) road.cn->Execute(road.insertSql[k].second);
        road.expected.push_back(Checksum(road));
    }
}

// One side's share of a work in one round.
struct Medida {
    double zaro = 0, raw = 0, zaroCpu = 0, rawCpu = 0, loadMin = 1e9, loadMax = 0;
    long zaroFaults = 0, rawFaults = 0;
};

double Median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}

void Informe(const std::string& road, const std::string& work, const std::vector<Medida>& m) {
    std::vector<double> r, c;
    double lmin = 1e9, lmax = 0;
    for (const Medida& x : m) {
        r.push_back(x.zaro / x.raw);
        c.push_back(x.zaroCpu / x.rawCpu);
        lmin = std::min(lmin, x.loadMin);
        lmax = std::max(lmax, x.loadMax);
    }
    const auto [lo, hi] = std::minmax_element(r.begin(), r.end());
    std::printf("SUMMARY %-8s %-7s median %.3fx  range %.3f-%.3fx  load %.2f-%.2f  (CPU of this process: median %.3fx)\n",
                road.c_str(), work.c_str(), Median(r), *lo, *hi, lmin, lmax, Median(c));
}

}  // namespace

int main(int argc, char** argv) {
    int rounds = 7;
    std::string which = "both";
    std::string only;
    std::string oneSide;  // one side alone (for a profiler): zaro or raw
    std::string serverKeys;  // more keys of the server road's connection string
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--rounds" && i + 1 < argc) rounds = std::atoi(argv[++i]);
        else if (a == "--road" && i + 1 < argc) which = argv[++i];
        else if (a == "--work" && i + 1 < argc) only = argv[++i];
        else if (a == "--side" && i + 1 < argc) oneSide = argv[++i];
        else if (a == "--server-keys" && i + 1 < argc) serverKeys = argv[++i];
        else Fail("usage: bench_roads [--rounds N] [--road server|embedded|both] [--work read|lookup|insert] [--side zaro|raw] [--server-keys ';Key=Value']");
    }
    std::vector<Road> roads;
    zaro_test::MariaDbServer* server = nullptr;
    if (which == "both" || which == "server") {
        server = new zaro_test::MariaDbServer();
        Road r;
        r.name = "server";
        r.socket = server->Socket();
        r.database = "zaro_bench";
        auto admin = std::make_shared<ADODB::Connection>();
        admin->Open("Socket=" + r.socket + ";User=root");
        admin->Execute("SET GLOBAL general_log = 0");
        admin->Execute("CREATE DATABASE IF NOT EXISTS zaro_bench");
        admin->Close();
        r.cn = std::make_shared<ADODB::Connection>();
        r.cn->Open("Socket=" + r.socket + ";User=root;Database=zaro_bench" + serverKeys);
        roads.push_back(std::move(r));
    }
    if (which == "both" || which == "embedded") {
        Road r;
        r.name = "embedded";
        r.embedded = true;
        r.database = "zaro";
        r.cn = zaro_bench::AbrirEmbebida("zaro-bench-roads");
        roads.push_back(std::move(r));
    }
    for (Road& r : roads) Prepare(r);

    const std::vector<std::string> works{"read", "lookup", "insert"};
    std::vector<std::unique_ptr<Sides>> sides;
    for (Road& r : roads) sides.push_back(std::make_unique<Sides>(r));
    std::vector<std::vector<std::vector<Medida>>> all(roads.size(), std::vector<std::vector<Medida>>(works.size()));
    for (int round = 0; round < rounds; ++round) {
        for (size_t ri = 0; ri < roads.size(); ++ri) {
            Road& road = roads[ri];
            Sides& side = *sides[ri];
            side.NewRound();
            for (size_t wi = 0; wi < works.size(); ++wi) {
                const std::string& work = works[wi];
                if (!only.empty() && only != work) continue;
                Medida m;
                const int chunks = work == "read" ? 1 : kChunks;
                for (int chunk = 0; chunk < chunks; ++chunk) {
                    const double load = Load1();
                    m.loadMin = std::min(m.loadMin, load);
                    m.loadMax = std::max(m.loadMax, load);
                    for (int turn = 0; turn < 2; ++turn) {
                        const bool zaro = (round + chunk + static_cast<int>(wi) + turn) % 2 == 0;
                        if (!oneSide.empty() && oneSide != (zaro ? "zaro" : "raw")) continue;
                        if (work == "insert") ResetInsertTable(road);
                        std::string check;
                        const double c0 = CpuMs();
                        const long f0 = Faults();
                        const double ms = zaro ? side.Zaro(work, chunk, check) : side.Raw(work, chunk, check);
                        const double cpu = CpuMs() - c0;
                        (zaro ? m.zaroFaults : m.rawFaults) += Faults() - f0;
                        if (work == "insert") check = Checksum(road);
                        const std::string expected =
                            work == "insert" ? road.expected[static_cast<size_t>(chunk)] : std::string();
                        static std::map<std::string, std::string> reference;
                        const std::string key = road.name + " " + work + " " + std::to_string(chunk);
                        auto [it, first] = reference.emplace(key, work == "insert" ? expected : check);
                        if (it->second != check)
                            Fail(key + ": " + (zaro ? "zaro" : "raw") + " gives " + check + ", expected " + it->second);
                        (void)first;
                        (zaro ? m.zaro : m.raw) += ms;
                        (zaro ? m.zaroCpu : m.rawCpu) += cpu;
                    }
                }
                all[ri][wi].push_back(m);
                std::printf("round %d %-8s %-7s zaro %8.1f ms  raw %8.1f ms  ratio %.3fx  load %.2f-%.2f  cpu %.1f / %.1f ms"
                            "  faults %ld / %ld\n",
                            round + 1, road.name.c_str(), work.c_str(), m.zaro, m.raw, m.zaro / m.raw, m.loadMin,
                            m.loadMax, m.zaroCpu, m.rawCpu, m.zaroFaults, m.rawFaults);
                std::fflush(stdout);
            }
        }
    }
    for (size_t ri = 0; ri < roads.size(); ++ri)
        for (size_t wi = 0; wi < works.size(); ++wi)
            if (!all[ri][wi].empty()) Informe(roads[ri].name, works[wi], all[ri][wi]);
    sides.clear();
    for (Road& r : roads) r.cn->Close();
    roads.clear();
    delete server;
    return 0;
}
