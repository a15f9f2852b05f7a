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
// Both sides of a work run back to back in a rotating order, for several
// rounds; the load average (1 minute) is taken beside every pair. Printed:
// each pair, then per work the median ratio and its range.
//
//   bench_roads [--rounds N] [--road server|embedded|both] [--work read|lookup|insert]
#include <mysql.h>
#include <stdlib.h>
#include <time.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "ZARODatos/tables/articulo.h"
#include "bench_support.h"
#include "support/mariadb_server.cpp"  // the test fixture's server, for the server road

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

// ------------------------------------------------------------ raw side

struct Fila {
    int32_t COD_TRANSACC = 0;
    int y = 0, mo = 0, d = 0;
    std::string HORA_REAL;
    int32_t CD_OP = 0, TIPO_OPERACION = 0;
    std::string CD_ARTICULO, IDARTICOLGS1;
    int32_t TIPO_FAMILIA = 0, TIPO_SUBFAMILIA = 0;
    double PRECIOMAX = 0;
    std::string DESC_ARTICULO, DESC_CORTA;
};

int32_t Entero(const char* s, unsigned long n) {
    int32_t v = 0;
    if (s) std::from_chars(s, s + n, v);
    return v;
}

void Texto(std::string& out, const char* s, unsigned long n) {
    if (s) out.assign(s, n);
    else out.clear();
}

void Parsear(MYSQL_ROW r, const unsigned long* len, Fila& f) {
    f.COD_TRANSACC = Entero(r[0], len[0]);
    if (r[1] && len[1] >= 10) {
        f.y = Entero(r[1], 4);
        f.mo = Entero(r[1] + 5, 2);
        f.d = Entero(r[1] + 8, 2);
    }
    Texto(f.HORA_REAL, r[2], len[2]);
    f.CD_OP = Entero(r[3], len[3]);
    f.TIPO_OPERACION = Entero(r[4], len[4]);
    Texto(f.CD_ARTICULO, r[5], len[5]);
    Texto(f.IDARTICOLGS1, r[6], len[6]);
    f.TIPO_FAMILIA = Entero(r[7], len[7]);
    f.TIPO_SUBFAMILIA = Entero(r[8], len[8]);
    if (r[9]) std::from_chars(r[9], r[9] + len[9], f.PRECIOMAX);
    Texto(f.DESC_ARTICULO, r[10], len[10]);
    Texto(f.DESC_CORTA, r[11], len[11]);
}

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
};

// The sum of a numeric column over what was read: both sides must agree.
struct Cuenta {
    long long filas = 0;
    long long suma = 0;
    bool operator==(const Cuenta& o) const { return filas == o.filas && suma == o.suma; }
};

// Runs f on the raw side of a road: on this thread (server), or on a second
// thread with a connection of its own (embedded). Gives the time of f alone.
double RawSide(Road& road, const std::function<void(MYSQL*)>& f) {
    double ms = 0;
    auto run = [&] {
        MYSQL* m = RawConnect(road.embedded, road.socket, road.database);
        const auto t0 = Clock::now();
        f(m);
        ms = MsSince(t0);
        mysql_close(m);
    };
    if (road.embedded) {
        std::thread([&] {
            mysql_thread_init();
            run();
            mysql_thread_end();
        }).join();
    } else {
        run();
    }
    return ms;
}

double ZaroRead(Road& road, Cuenta& c) {
    daarticulo da;
    da.Conexion = road.cn;
    const auto t0 = Clock::now();
    auto l = da.Listar();
    const double ms = MsSince(t0);
    c = {};
    for (const auto& e : *l) {
        ++c.filas;
        c.suma += e->COD_TRANSACC + e->TIPO_SUBFAMILIA + static_cast<long long>(e->DESC_ARTICULO.size());
    }
    return ms;
}

double RawRead(Road& road, Cuenta& c) {
    std::vector<Fila> filas;
    const double ms = RawSide(road, [&](MYSQL* m) {
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
    });
    c = {};
    for (const Fila& f : filas) {
        ++c.filas;
        c.suma += f.COD_TRANSACC + f.TIPO_SUBFAMILIA + static_cast<long long>(f.DESC_ARTICULO.size());
    }
    return ms;
}

double ZaroLookup(Road& road, Cuenta& c) {
    daarticulo da;
    da.Conexion = road.cn;
    c = {};
    const auto t0 = Clock::now();
    for (const std::string& k : road.keys) {
        auto e = da.Entidad(k);
        if (!e || e->CD_ARTICULO != k) Fail("lookup: wrong row for " + k);
        ++c.filas;
        c.suma += e->COD_TRANSACC + e->TIPO_SUBFAMILIA;
    }
    return MsSince(t0);
}

double RawLookup(Road& road, Cuenta& c) {
    c = {};
    return RawSide(road, [&](MYSQL* m) {
        Fila f;
        for (size_t i = 0; i < road.lookupSql.size(); ++i) {
            RawQuery(m, road.lookupSql[i]);
            MYSQL_RES* res = mysql_store_result(m);
            MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
            if (!r) Fail("raw lookup: no row");
            Parsear(r, mysql_fetch_lengths(res), f);
            mysql_free_result(res);
            if (f.CD_ARTICULO != road.keys[i]) Fail("raw lookup: wrong row for " + road.keys[i]);
            ++c.filas;
            c.suma += f.COD_TRANSACC + f.TIPO_SUBFAMILIA;
        }
    });
}

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

double ZaroInsert(Road& road, std::string& checksum) {
    ResetInsertTable(road);
    daarticulo da;
    da.Conexion = road.cn;
    da.Tabla("articulo_ins");
    const auto t0 = Clock::now();
    for (const auto& e : road.nuevos) da.Insert(*e);
    const double ms = MsSince(t0);
    checksum = Checksum(road);
    return ms;
}

double RawInsert(Road& road, std::string& checksum) {
    ResetInsertTable(road);
    const double ms = RawSide(road, [&](MYSQL* m) {
        for (const auto& [cuenta, insert] : road.insertSql) {
            RawQuery(m, cuenta);
            MYSQL_RES* res = mysql_store_result(m);
            MYSQL_ROW r = res ? mysql_fetch_row(res) : nullptr;
            if (!r || std::strcmp(r[0], "0") != 0) Fail("raw insert: the row exists");
            mysql_free_result(res);
            RawQuery(m, insert);
            if (mysql_affected_rows(m) != 1) Fail("raw insert: no row inserted");
        }
    });
    checksum = Checksum(road);
    return ms;
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
}

struct Medida {
    double zaro, raw, load, zaroCpu, rawCpu;
};

void Informe(const std::string& road, const std::string& work, const std::vector<Medida>& m) {
    std::vector<double> r;
    for (const Medida& x : m) r.push_back(x.zaro / x.raw);
    std::vector<double> s = r;
    std::sort(s.begin(), s.end());
    const double median = s.size() % 2 ? s[s.size() / 2] : (s[s.size() / 2 - 1] + s[s.size() / 2]) / 2;
    double lmin = 1e9, lmax = 0;
    for (const Medida& x : m) {
        lmin = std::min(lmin, x.load);
        lmax = std::max(lmax, x.load);
    }
    std::vector<double> c;
    for (const Medida& x : m) c.push_back(x.zaroCpu / x.rawCpu);
    std::sort(c.begin(), c.end());
    const double cmedian = c.size() % 2 ? c[c.size() / 2] : (c[c.size() / 2 - 1] + c[c.size() / 2]) / 2;
    std::printf("SUMMARY %-8s %-7s median %.3fx  range %.3f-%.3fx  load %.2f-%.2f  (CPU of this process: median %.3fx)\n",
                road.c_str(), work.c_str(), median, s.front(), s.back(), lmin, lmax, cmedian);
}

}  // namespace

int main(int argc, char** argv) {
    int rounds = 7;
    std::string which = "both";
    std::string only;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--rounds" && i + 1 < argc) rounds = std::atoi(argv[++i]);
        else if (a == "--road" && i + 1 < argc) which = argv[++i];
        else if (a == "--work" && i + 1 < argc) only = argv[++i];
        else Fail("usage: bench_roads [--rounds N] [--road server|embedded|both] [--work read|lookup|insert]");
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
        r.cn->Open("Socket=" + r.socket + ";User=root;Database=zaro_bench");
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

    struct Work {
        const char* name;
        std::function<double(Road&, std::string&)> zaro, raw;
    };
    auto cuenta = [](double (*f)(Road&, Cuenta&)) {
        return [f](Road& r, std::string& out) {
            Cuenta c;
            const double ms = f(r, c);
            out = std::to_string(c.filas) + "/" + std::to_string(c.suma);
            return ms;
        };
    };
    std::vector<Work> works{{"read", cuenta(ZaroRead), cuenta(RawRead)},
                            {"lookup", cuenta(ZaroLookup), cuenta(RawLookup)},
                            {"insert", ZaroInsert, RawInsert}};

    std::vector<std::vector<std::vector<Medida>>> all(roads.size(), std::vector<std::vector<Medida>>(works.size()));
    for (int round = 0; round < rounds; ++round) {
        for (size_t ri = 0; ri < roads.size(); ++ri) {
            Road& road = roads[ri];
            for (size_t wi = 0; wi < works.size(); ++wi) {
                if (!only.empty() && only != works[wi].name) continue;
                const double load = Load1();
                std::string zc, rc;
                double zm = 0, rm = 0, zc0 = 0, zcpu = 0, rc0 = 0, rcpu = 0;
                auto zaro = [&] {
                    zc0 = CpuMs();
                    zm = works[wi].zaro(road, zc);
                    zcpu = CpuMs() - zc0;
                };
                auto raw = [&] {
                    rc0 = CpuMs();
                    rm = works[wi].raw(road, rc);
                    rcpu = CpuMs() - rc0;
                };
                if ((round + static_cast<int>(wi)) % 2 == 0) {
                    zaro();
                    raw();
                } else {
                    raw();
                    zaro();
                }
                if (zc != rc) Fail(road.name + " " + works[wi].name + ": the sides differ: " + zc + " / " + rc);
                all[ri][wi].push_back({zm, rm, load, zcpu, rcpu});
                std::printf("round %d %-8s %-7s zaro %8.1f ms  raw %8.1f ms  ratio %.3fx  load %.2f  cpu %.1f / %.1f ms\n",
                            round + 1, road.name.c_str(), works[wi].name, zm, rm, zm / rm, load, zcpu, rcpu);
                std::fflush(stdout);
            }
        }
    }
    for (size_t ri = 0; ri < roads.size(); ++ri)
        for (size_t wi = 0; wi < works.size(); ++wi)
            if (!all[ri][wi].empty()) Informe(roads[ri].name, works[wi].name, all[ri][wi]);
    for (Road& r : roads) r.cn->Close();
    roads.clear();
    delete server;
    return 0;
}
