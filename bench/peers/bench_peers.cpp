// The peer benchmark: ZARODatos beside SOCI and Qt SQL, and the raw MariaDB C
// API, on the same rows with the same SQL text, on a private MariaDB server
// (the test fixture's mariadbd, general log off) over its Unix socket.
//
// Works (the statements are the ones the article adapter sends, taken from
// its LogSQL, written to files that every contender reads):
//   read    the 100,000 rows of the article table into typed rows (Listar);
//   lookup  10,000 rows by key, one statement each (Entidad);
//   insert  10,000 inserts, each after its existence check (Insert);
//   plain   the same 10,000 inserts alone (Connection.Execute).
// Each contender is a process of its own, started once: SOCI and Qt SQL link
// MariaDB Connector/C and ZARODatos the engine library, which export the same
// C functions. The driver hands the contenders slices of work by turns, in a
// rotating order: a whole read each, or a tenth of the lookups or inserts,
// so that a change of the machine's load falls on all of them alike. A
// contender times each slice alone and checks what it did: the rows it read
// (a sum over every field, the same for every contender) and each key it
// looked up; after each slice of inserts the driver compares CHECKSUM TABLE
// with the one the same statements give. The load average (1 minute) is
// taken before each slice.
//
//   bench_peers [--rounds N] [--works read,lookup,insert,plain] [--contenders zaro,raw,soci,qt,rawc]
//               [--also NAME=PATH]
//
// Contenders: zaro (ZARODatos: daarticulo.Listar, .Entidad, .Insert and
// Connection.Execute), raw (the C API over the engine library's client, the
// baseline of the ratios), soci (SOCI 4), qt (Qt SQL 6, QMYSQL), rawc (the C
// API over Connector/C, the peers' client library), zaro-t0 (ZARODatos with
// CommandTimeout=0, not run unless named); --also adds the
// ZARODatos contender of another build's bench_peers under a name of its own
// (to compare two builds of the library in one run).
#include <limits.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <sstream>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/tables/articulo.h"
#include "bench_support.h"
#include "peers.h"
#include "raw_works.h"
#include "support/mariadb_server.h"  // the test fixture's server

using namespace OVT_ZARO;
using peers::Fila;

namespace {

constexpr int kRows = 100000;
constexpr int kLookups = 10000;
constexpr int kInserts = 10000;
const char* const kDatabase = "zaro_peers";

// The entities the insert works write: the same for the driver, which takes
// their statements from the adapter's log, and for the ZARODatos contender.
std::vector<std::shared_ptr<entarticulo>> Nuevos() {
    std::vector<std::shared_ptr<entarticulo>> r;
    for (int i = 0; i < kInserts; ++i) {
        auto e = std::make_shared<entarticulo>();
        e->COD_TRANSACC = i;
        e->FECHA_REAL = Date::FromParts(2026, 3, 1 + i % 28);
        e->HORA_REAL = "1030";
        e->CD_OP = i % 20;
        e->TIPO_OPERACION = 1;
        e->CD_ARTICULO = "I" + std::to_string(i);
        e->IDARTICOLGS1 = "8410000" + std::to_string(i);
        e->TIPO_FAMILIA = i % 30;
        e->TIPO_SUBFAMILIA = i % 300;
        e->PRECIOMAX = 1.5 + i % 10;
        e->DESC_ARTICULO = "Articulo de prueba numero " + std::to_string(i);
        e->DESC_CORTA = "Art " + std::to_string(i);
        r.push_back(e);
    }
    return r;
}

Fila DeEntidad(const entarticulo& e) {
    Fila f;
    f.COD_TRANSACC = e.COD_TRANSACC;
    if (!e.FECHA_REAL.IsZero()) {
        const DateParts p = e.FECHA_REAL.Split();
        f.y = p.Year;
        f.mo = p.Month;
        f.d = p.Day;
    }
    f.HORA_REAL = e.HORA_REAL;
    f.CD_OP = e.CD_OP;
    f.TIPO_OPERACION = e.TIPO_OPERACION;
    f.CD_ARTICULO = e.CD_ARTICULO;
    f.IDARTICOLGS1 = e.IDARTICOLGS1;
    f.TIPO_FAMILIA = e.TIPO_FAMILIA;
    f.TIPO_SUBFAMILIA = e.TIPO_SUBFAMILIA;
    f.PRECIOMAX = e.PRECIOMAX;
    f.DESC_ARTICULO = e.DESC_ARTICULO;
    f.DESC_CORTA = e.DESC_CORTA;
    return f;
}

// ------------------------------------------------------------ the ZARODatos contender

void Zaro(const peers::Args& a) {
    try {
        auto cn = std::make_shared<ADODB::Connection>();
        cn->Open("Socket=" + a.socket + ";User=root;Database=" + a.database + a.keys);
        daarticulo da;
        da.Conexion = cn;
        daarticulo ins;
        ins.Conexion = cn;
        ins.Tabla("articulo_ins");
        const auto keys = peers::Claves(a);
        const auto nuevos = Nuevos();
        const auto insertSql = peers::Leer(a.dir + "/insert.sql");
        peers::Servir([&](const std::string& work, int chunk) -> std::string {
            if (work == "read") {
                auto l = da.Listar();
                peers::Cuenta c;
                for (const auto& e : *l) c.Anadir(DeEntidad(*e));
                return c.Texto();
            }
            if (work == "lookup") {
                peers::Cuenta c;
                const auto [from, to] = peers::Trozo(chunk, keys.size());
                for (size_t i = from; i < to; ++i) {
                    auto e = da.Entidad(keys[i]);
                    if (!e || e->CD_ARTICULO != keys[i]) peers::Fallo("zaro lookup: wrong row for " + keys[i]);
                    c.Anadir(DeEntidad(*e));
                }
                return c.Texto();
            }
            if (work == "insert") {
                const auto [from, to] = peers::Trozo(chunk, nuevos.size());
                for (size_t i = from; i < to; ++i) ins.Insert(*nuevos[i]);
                return "ok";
            }
            if (work == "plain") {
                const auto [from, to] = peers::Trozo(chunk, insertSql.size() / 2);
                for (size_t i = 2 * from + 1; i < 2 * to; i += 2) {
                    cn->Execute(insertSql[i]);
                    if (cn->RecordsAffected() != 1) peers::Fallo("zaro plain: no row inserted");
                }
                return "ok";
            }
            peers::Fallo("unknown work " + work);
        });
        cn->Close();
    } catch (const Error& e) {
        peers::Fallo("zaro: " + std::to_string(e.Number) + " " + e.Description);
    }
}

// ------------------------------------------------------------ the driver

// A contender's process, serving the driver through two pipes.
class Contender {
public:
    Contender(std::string name, std::vector<std::string> argv) : name_(std::move(name)), argv_(std::move(argv)) {}
    const std::string& Name() const { return name_; }
    const std::string& Program() const { return argv_[0]; }

    void Start(const std::vector<std::string>& extra) {
        int toChild[2], fromChild[2];
        if (pipe(toChild) != 0 || pipe(fromChild) != 0) Morir("pipe");
        std::vector<std::string> args = argv_;
        args.insert(args.end(), extra.begin(), extra.end());
        std::vector<char*> cargs;
        for (std::string& x : args) cargs.push_back(x.data());
        cargs.push_back(nullptr);
        pid_ = fork();
        if (pid_ == 0) {
            dup2(toChild[0], 0);
            dup2(fromChild[1], 1);
            close(toChild[0]);
            close(toChild[1]);
            close(fromChild[0]);
            close(fromChild[1]);
            execv(cargs[0], cargs.data());
            _exit(127);
        }
        close(toChild[0]);
        close(fromChild[1]);
        in_ = fdopen(toChild[1], "w");
        out_ = fdopen(fromChild[0], "r");
    }

    // Runs one chunk; gives wall ms, CPU ms and what it checked.
    void Chunk(const std::string& work, int chunk, double& ms, double& cpu, std::string& check) {
        std::fprintf(in_, "%s %d\n", work.c_str(), chunk);
        std::fflush(in_);
        char line[512];
        for (;;) {
            if (!std::fgets(line, sizeof line, out_)) Morir(work + " " + std::to_string(chunk) + ": no answer");
            if (std::strncmp(line, "RESULT ", 7) == 0) break;
        }
        char buf[256] = {0};
        if (std::sscanf(line + 7, "%lf %lf %255s", &ms, &cpu, buf) != 3) Morir(std::string("bad answer: ") + line);
        check = buf;
    }

    void Stop() {
        if (!in_) return;
        std::fprintf(in_, "quit\n");
        std::fclose(in_);
        std::fclose(out_);
        int status = 0;
        waitpid(pid_, &status, 0);
        in_ = out_ = nullptr;
    }

private:
    [[noreturn]] void Morir(const std::string& what) {
        std::fprintf(stderr, "contender %s: %s\n", name_.c_str(), what.c_str());
        std::exit(1);
    }
    std::string name_;
    std::vector<std::string> argv_;
    pid_t pid_ = -1;
    FILE* in_ = nullptr;
    FILE* out_ = nullptr;
};

std::string Here() {
    char buf[PATH_MAX];
    const ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return ".";
    buf[n] = 0;
    return std::filesystem::path(buf).parent_path().string();
}

double Load1() {
    double l[1] = {0};
    return getloadavg(l, 1) == 1 ? l[0] : -1;
}

void ResetInsertTable(const ConnectionRef& cn) {
    cn->Execute("DROP TABLE IF EXISTS articulo_ins");
    daarticulo da;
    da.Conexion = cn;
    da.Tabla("articulo_ins");
    if (!da.CrearTabla()) {
        std::fprintf(stderr, "could not create articulo_ins\n");
        std::exit(1);
    }
}

std::string Checksum(const ConnectionRef& cn) {
    auto rs = cn->Execute("CHECKSUM TABLE articulo_ins");
    return CStr(rs->Fields().Item(int32_t{1}).Value());
}

double Median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}

std::vector<std::string> Split(const std::string& s) {
    std::vector<std::string> r;
    std::stringstream in(s);
    for (std::string x; std::getline(in, x, ',');)
        if (!x.empty()) r.push_back(x);
    return r;
}

// One contender's share of one work in one round.
struct Parte {
    double ms = 0, cpu = 0, loadMin = 1e9, loadMax = 0;
};

int Driver(int argc, char** argv) {
    int rounds = 5;
    std::vector<std::string> works{"read", "lookup", "insert", "plain"};
    std::vector<std::string> wanted{"zaro", "raw", "soci", "qt", "rawc"};
    const std::string here = Here();
    const std::string self = here + "/bench_peers";
    std::map<std::string, std::vector<std::string>> known{{"zaro", {self, "--contender", "zaro"}},
                                                          // without the read timeout, whose poll before each
                                                          // reply the other contenders do not pay
                                                          {"zaro-t0", {self, "--contender", "zaro", "--keys", ";CommandTimeout=0"}},
                                                          {"raw", {self, "--contender", "raw"}},
                                                          {"soci", {here + "/bench_peer_soci"}},
                                                          {"qt", {here + "/bench_peer_qt"}},
                                                          {"rawc", {here + "/bench_peer_rawc"}}};
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string k = argv[i];
        if (k == "--rounds") {
            rounds = std::atoi(argv[i + 1]);
        } else if (k == "--works") {
            works = Split(argv[i + 1]);
        } else if (k == "--contenders") {
            wanted = Split(argv[i + 1]);
        } else if (k == "--also") {
            // NAME=PATH: the ZARODatos contender of another build's bench_peers.
            const std::string a = argv[i + 1];
            const size_t eq = a.find('=');
            if (eq == std::string::npos) {
                std::fprintf(stderr, "--also NAME=PATH\n");
                return 1;
            }
            known[a.substr(0, eq)] = {a.substr(eq + 1), "--contender", "zaro"};
            wanted.push_back(a.substr(0, eq));
        }
    }
    std::vector<Contender> contenders;
    for (const std::string& w : wanted) {
        auto it = known.find(w);
        if (it == known.end() || access(it->second[0].c_str(), X_OK) != 0) {
            std::fprintf(stderr, "no contender %s\n", w.c_str());
            return 1;
        }
        contenders.emplace_back(w, it->second);
    }

    zaro_test::MariaDbServer server;
    const std::string socket = server.Socket();
    {
        auto admin = std::make_shared<ADODB::Connection>();
        admin->Open("Socket=" + socket + ";User=root");
        admin->Execute("SET GLOBAL general_log = 0");
        admin->Execute(std::string("CREATE DATABASE IF NOT EXISTS ") + kDatabase);
        admin->Close();
    }
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open("Socket=" + socket + ";User=root;Database=" + kDatabase);
    zaro_bench::LlenarArticulos(cn, "articulo", kRows);

    // The statements, from the adapter's own log.
    const std::string dir = server.Folder() + "/peers";
    std::filesystem::create_directories(dir);
    daarticulo da;
    da.Conexion = cn;
    da.Listar();
    peers::Escribir(dir + "/read.sql", {da.LogSQL->Item(1).Get<std::string>()});
    da.LogSQL.reset();
    {
        std::ofstream k(dir + "/keys.txt");
        for (int i = 0; i < kLookups; ++i) {
            char key[16];
            std::snprintf(key, sizeof key, "A%07d", static_cast<int>((static_cast<long long>(i) * 7919) % kRows));
            k << key << "\n";
            da.Entidad(key);
        }
    }
    std::vector<std::string> lookups;
    for (const Variant& v : *da.LogSQL) lookups.push_back(v.Get<std::string>());
    peers::Escribir(dir + "/lookup.sql", lookups);
    ResetInsertTable(cn);
    const auto nuevos = Nuevos();
    daarticulo ins;
    ins.Conexion = cn;
    ins.Tabla("articulo_ins");
    for (const auto& e : nuevos) ins.Insert(*e);
    std::vector<std::string> pairs;
    size_t n = 0;
    for (const Variant& v : *ins.LogSQL) {
        pairs.push_back("select count(*) from articulo_ins  where articulo_ins.CD_ARTICULO = '" +
                        nuevos[n++]->CD_ARTICULO + "'  ");
        pairs.push_back(v.Get<std::string>());
    }
    peers::Escribir(dir + "/insert.sql", pairs);
    // What the table holds after each chunk of inserts, alone.
    std::vector<std::string> expected;
    for (int c = 0; c < peers::kChunks; ++c) {
        ResetInsertTable(cn);
        const auto [from, to] = peers::Trozo(c, pairs.size() / 2);
        for (size_t i = 2 * from + 1; i < 2 * to; i += 2) cn->Execute(pairs[i]);
        expected.push_back(Checksum(cn));
    }

    for (Contender& c : contenders) c.Start({"--socket", socket, "--database", kDatabase, "--dir", dir});
    std::printf("peer benchmark: %d rows read, %d lookups, %d inserts (%d chunks each); %d rounds; server socket %s\n",
                kRows, kLookups, kInserts, peers::kChunks, rounds, socket.c_str());
    // parts[work][contender][round]
    std::map<std::string, std::map<std::string, std::vector<Parte>>> parts;
    std::map<std::string, std::string> reference;  // what a chunk of a read or lookup checked
    for (int round = 0; round < rounds; ++round) {
        for (size_t w = 0; w < works.size(); ++w) {
            const std::string& work = works[w];
            const bool inserts = work == "insert" || work == "plain";
            const int chunks = work == "read" ? 1 : peers::kChunks;
            for (const Contender& c : contenders) parts[work][c.Name()].emplace_back();
            for (int chunk = 0; chunk < chunks; ++chunk) {
                for (size_t k = 0; k < contenders.size(); ++k) {
                    Contender& c = contenders[(k + static_cast<size_t>(round + chunk) + w) % contenders.size()];
                    if (inserts) ResetInsertTable(cn);
                    const double load = Load1();
                    double ms = 0, cpu = 0;
                    std::string check;
                    c.Chunk(work, chunk, ms, cpu, check);
                    if (inserts) {
                        check = Checksum(cn);
                        if (check != expected[static_cast<size_t>(chunk)]) {
                            std::fprintf(stderr, "%s %s chunk %d: CHECKSUM TABLE %s, expected %s\n", c.Name().c_str(),
                                         work.c_str(), chunk, check.c_str(), expected[static_cast<size_t>(chunk)].c_str());
                            return 1;
                        }
                    } else {
                        auto [it, first] = reference.emplace(work + " " + std::to_string(chunk), check);
                        if (!first && it->second != check) {
                            std::fprintf(stderr, "%s %s chunk %d read %s, others %s\n", c.Name().c_str(),
                                         work.c_str(), chunk, check.c_str(), it->second.c_str());
                            return 1;
                        }
                    }
                    Parte& p = parts[work][c.Name()].back();
                    p.ms += ms;
                    p.cpu += cpu;
                    p.loadMin = std::min(p.loadMin, load);
                    p.loadMax = std::max(p.loadMax, load);
                }
            }
            for (const Contender& c : contenders) {
                const Parte& p = parts[work][c.Name()].back();
                std::printf("round %d %-6s %-5s %9.1f ms  cpu %9.1f ms  load %.2f-%.2f\n", round + 1, work.c_str(),
                            c.Name().c_str(), p.ms, p.cpu, p.loadMin, p.loadMax);
            }
            std::fflush(stdout);
        }
    }
    for (Contender& c : contenders) c.Stop();

    std::printf("\nwork    contender  median ms  ratio to raw: median (range)  median CPU ms  load\n");
    for (const std::string& work : works) {
        for (const Contender& c : contenders) {
            const auto& mine = parts[work][c.Name()];
            const auto& raw = parts[work]["raw"];
            std::vector<double> ms, cpu, ratio;
            double lmin = 1e9, lmax = 0;
            for (size_t i = 0; i < mine.size(); ++i) {
                ms.push_back(mine[i].ms);
                cpu.push_back(mine[i].cpu);
                if (i < raw.size()) ratio.push_back(mine[i].ms / raw[i].ms);
                lmin = std::min(lmin, mine[i].loadMin);
                lmax = std::max(lmax, mine[i].loadMax);
            }
            if (ratio.empty()) ratio.push_back(0);  // no raw contender in the run
            const auto [lo, hi] = std::minmax_element(ratio.begin(), ratio.end());
            std::printf("%-7s %-9s %10.1f  %6.3fx (%.3f-%.3f)  %13.1f  %.2f-%.2f\n", work.c_str(), c.Name().c_str(),
                        Median(ms), Median(ratio), *lo, *hi, Median(cpu), lmin, lmax);
        }
    }
    cn->Close();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 2 && std::string(argv[1]) == "--contender") {
        const peers::Args a = peers::LeerArgs(argc, argv, 3);
        const std::string who = argv[2];
        if (who == "zaro") Zaro(a);
        else if (who == "raw") peers::raw::Serve(a);
        else peers::Fallo("unknown contender " + who);
        return 0;
    }
    return Driver(argc, argv);
}
