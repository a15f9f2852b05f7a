// `zaro import articulo` of a 10,000-row article file on three setups, in
// the same run:
//   myisam   one server (the test fixture's mariadbd on loopback), the tables
//            as zaro init makes them: MyISAM, as the library creates them;
//   innodb   the same server, another database, the same tables converted to
//            InnoDB (ALTER TABLE ... ENGINE=InnoDB) as zaro init does on a
//            cluster;
//   cluster  a three-node Galera cluster on 127.0.0.1 (tests/support), zaro
//            given the three nodes in its connection string; init converted
//            the tables to InnoDB.
// The server and the nodes run with the same InnoDB settings (the server's
// default sizes, 128 MB buffer pool and 96 MB log, set at the start;
// innodb_flush_log_at_trx_commit = 2, the log written through the file
// system cache) and without a general log; the settings of each are printed
// at the start. Each iteration empties the table of each setup (not timed)
// and imports the file on each, in a rotating order so that the machine's
// load falls on all alike. Counters: rows per second of wall-clock time, and
// the ratios to myisam.
//
// BM_Failover: an import of the same file through the cluster, the node zaro
// is on killed (SIGKILL) once a few thousand rows are in; measured: the time
// from the kill to the first row zaro wrote on the next node after the line
// it had in flight (that line's next one, polled for on the next node every
// 2 ms), and to zaro's report of the line. The killed node is started again
// and synced before the next iteration (not timed); each iteration starts on
// another node.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ZARODatos.h"
#include "support/galera_cluster.h"
#include "support/mariadb_server.h"

extern char** environ;

using namespace OVT_ZARO;

namespace {

constexpr int kFilas = 10000;

std::string Leer(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

double Ahora() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string Codigo(int i) { return "A" + std::to_string(1000000 + i); }

// The article file, written by the library itself in the exchange format.
std::string HacerArchivo() {
    colarticulo lista;
    for (int i = 0; i < kFilas; ++i)
        lista.Add(Codigo(i), 8, Date::FromParts(2026, 3, 14), "050000", 0, 1, "84" + std::to_string(10000000000LL + i),
                  1 + i % 9, 1 + i % 7, 1 + (i % 9000) / 100.0, "Articulo de prueba numero " + std::to_string(i),
                  "Art " + std::to_string(i));
    daarticulo da;
    std::string sep = ";";
    return da.ExportarTexto(lista, sep);
}

// Starts a program with its standard output in a file (or thrown away) and
// its standard error thrown away.
pid_t Lanzar(std::vector<std::string> args, const std::string& salida = "/dev/null") {
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&acciones, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int rc = posix_spawn(&pid, argv[0], &acciones, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&acciones);
    return rc == 0 ? pid : -1;
}

int Esperar(pid_t pid) {
    int status = 0;
    if (pid <= 0) return -1;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int Ejecutar(std::vector<std::string> args) { return Esperar(Lanzar(std::move(args))); }

struct Entorno {
    std::string dir, archivo, zaro;
    std::unique_ptr<zaro_test::MariaDbServer> servidor;
    std::unique_ptr<zaro_test::GaleraCluster> cluster;
    std::string myisam, innodb, nodos;  // the connection strings of the three setups
};

// The server's own default sizes for the buffer pool (128 MB) and the log
// (96 MB), in place of the small ones the test fixtures start with (16 MB
// and 8 MB, under which the log fills during an import and InnoDB stops to
// write its pages out). The server resizes both before it answers.
void AjustarInnoDB(ADODB::Connection& cn) {
    cn.Execute("SET GLOBAL innodb_log_file_size = 100663296");
    cn.Execute("SET GLOBAL innodb_buffer_pool_size = 134217728");
}

void AjustarInnoDB(const Entorno& e, int nodo) {
    ADODB::Connection cn;
    cn.Open(e.cluster->ConnectionString({nodo}, ""));
    AjustarInnoDB(cn);
}

// The settings that weigh on a commit, as the server says them.
void Ajustes(const std::string& quien, const std::string& conexion) {
    ADODB::Connection cn;
    cn.Open(conexion);
    auto rs = cn.Execute(
        "select @@innodb_flush_log_at_trx_commit, @@innodb_log_file_buffering, @@innodb_buffer_pool_size, "
        "@@innodb_log_file_size, @@general_log, @@wsrep_on, (select engine from information_schema.tables "
        "where table_schema = database() and table_name = 'articulo')");
    auto v = [&](int32_t i) { return CStr(rs->Fields().Item(i).Value()); };
    std::fprintf(stderr,
                 "%s: innodb_flush_log_at_trx_commit %s, innodb_log_file_buffering %s, innodb_buffer_pool_size %s, "
                 "innodb_log_file_size %s, general_log %s, wsrep_on %s, articulo %s\n",
                 quien.c_str(), v(0).c_str(), v(1).c_str(), v(2).c_str(), v(3).c_str(), v(4).c_str(), v(5).c_str(),
                 v(6).c_str());
}

std::string* g_carpeta = nullptr;
void BorrarCarpeta() {
    if (g_carpeta) std::filesystem::remove_all(*g_carpeta);
}

bool Zaro(const Entorno& e, const std::string& conexion, std::vector<std::string> args) {
    args.insert(args.begin(), {e.zaro, "--connect", conexion});
    return Ejecutar(std::move(args)) == 0;
}

Entorno& Env() {
    static Entorno* e = [] {
        auto* r = new Entorno();
        char plantilla[] = "/tmp/zaro-bench-cluster-XXXXXX";
        r->dir = mkdtemp(plantilla);
        g_carpeta = new std::string(r->dir);
        std::atexit(BorrarCarpeta);
        char self[PATH_MAX] = {};
        const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
        r->zaro = std::filesystem::path(std::string(self, n > 0 ? static_cast<size_t>(n) : 0)).parent_path() / "zaro";
        if (!std::filesystem::exists(r->zaro)) {
            std::fprintf(stderr, "the tool is not at %s: build the target zaro first\n", r->zaro.c_str());
            std::exit(1);
        }
        std::string why;
        if (!zaro_test::GaleraCluster::Available(why)) {
            std::fprintf(stderr, "no Galera cluster on this machine: %s\n", why.c_str());
            std::exit(1);
        }
        r->archivo = r->dir + "/articulo.txt";
        std::ofstream(r->archivo, std::ios::binary) << HacerArchivo();
        r->servidor = std::make_unique<zaro_test::MariaDbServer>();
        {
            ADODB::Connection cn;
            cn.Open(r->servidor->ConnectionString(""));
            // As the nodes, which start with these: a commit is written to
            // the log through the file system cache (the server turns
            // innodb_log_file_buffering on only when it starts with
            // innodb_flush_log_at_trx_commit = 2, not when it is set later),
            // and no general log (the fixture's server keeps one).
            cn.Execute("SET GLOBAL innodb_flush_log_at_trx_commit = 2");
            cn.Execute("SET GLOBAL innodb_log_file_buffering = ON");
            cn.Execute("SET GLOBAL general_log = OFF");
            AjustarInnoDB(cn);
            cn.Execute("CREATE DATABASE IF NOT EXISTS zaro_myisam");
            cn.Execute("CREATE DATABASE IF NOT EXISTS zaro_innodb");
        }
        r->myisam = r->servidor->ConnectionString("zaro_myisam");
        r->innodb = r->servidor->ConnectionString("zaro_innodb");
        r->cluster = std::make_unique<zaro_test::GaleraCluster>(3);
        {
            ADODB::Connection cn;
            cn.Open(r->cluster->ConnectionString({0}, ""));
            cn.Execute("CREATE DATABASE IF NOT EXISTS zaro_bench");
        }
        for (int i = 0; i < 3; ++i) AjustarInnoDB(*r, i);
        r->nodos = r->cluster->ConnectionString({0, 1, 2}, "zaro_bench");
        if (!Zaro(*r, r->myisam, {"init"}) || !Zaro(*r, r->innodb, {"init"}) ||
            !Zaro(*r, r->innodb, {"query", "--write", "ALTER TABLE articulo ENGINE=InnoDB"}) ||
            !Zaro(*r, r->nodos, {"init"})) {
            std::fprintf(stderr, "zaro init failed\n");
            std::exit(1);
        }
        Ajustes("myisam", r->myisam);
        Ajustes("innodb", r->innodb);
        for (int i = 0; i < 3; ++i)
            Ajustes("cluster node " + std::to_string(i + 1), r->cluster->ConnectionString({i}, "zaro_bench"));
        return r;
    }();
    return *e;
}

struct Medida {
    double wall = 0;
    int veces = 0;
    double Wall() const { return wall / veces; }
};

// Empties the table (not timed), then times the import.
bool Importar(const Entorno& e, const std::string& conexion, Medida& m) {
    if (!Zaro(e, conexion, {"query", "--write", "TRUNCATE TABLE articulo"})) return false;
    const double t = Ahora();
    const bool ok = Zaro(e, conexion, {"import", "articulo", e.archivo});
    m.wall += Ahora() - t;
    ++m.veces;
    return ok;
}

template <class A, class B, class C>
void EnTurno(int vuelta, A a, B b, C c) {
    switch (vuelta % 3) {
        case 0: a(); b(); c(); break;
        case 1: b(); c(); a(); break;
        default: c(); a(); b(); break;
    }
}

void BM_Import_10k(benchmark::State& st) {
    Entorno& e = Env();
    Medida myisam, innodb, cluster;
    int vuelta = 0;
    for (auto _ : st) {
        EnTurno(
            vuelta++, [&] { if (!Importar(e, e.myisam, myisam)) st.SkipWithError("myisam: zaro import failed"); },
            [&] { if (!Importar(e, e.innodb, innodb)) st.SkipWithError("innodb: zaro import failed"); },
            [&] { if (!Importar(e, e.nodos, cluster)) st.SkipWithError("cluster: zaro import failed"); });
    }
    st.counters["myisam_rows_s"] = kFilas / myisam.Wall();
    st.counters["innodb_rows_s"] = kFilas / innodb.Wall();
    st.counters["cluster_rows_s"] = kFilas / cluster.Wall();
    st.counters["innodb/myisam"] = innodb.Wall() / myisam.Wall();
    st.counters["cluster/myisam"] = cluster.Wall() / myisam.Wall();
}

int64_t Contar(const Entorno& e, int nodo, const std::string& where) {
    try {
        ADODB::Connection cn;
        cn.Open(e.cluster->ConnectionString({nodo}, "zaro_bench") + ";ConnectTimeout=2");
        return CLng(cn.Execute("select count(*) from articulo" + where)->Fields().Item(int32_t{0}).Value());
    } catch (const Error&) {
        return -1;
    }
}

void BM_Failover(benchmark::State& st) {
    Entorno& e = Env();
    double primeraFila = 0, informe = 0;
    int vuelta = 0;
    for (auto _ : st) {
        st.PauseTiming();
        const int nodo = vuelta % 3, siguiente = (vuelta + 1) % 3, testigo = (vuelta + 2) % 3;
        ++vuelta;
        const std::string lista = e.cluster->ConnectionString({nodo, siguiente, testigo}, "zaro_bench");
        Zaro(e, lista, {"query", "--write", "TRUNCATE TABLE articulo"});
        const std::string salida = e.dir + "/failover.out";
        const pid_t pid = Lanzar({e.zaro, "--connect", lista, "import", "articulo", e.archivo}, salida);
        const double inicio = Ahora();
        while (Contar(e, testigo, "") < 3000 && Ahora() - inicio < 120)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        st.ResumeTiming();
        e.cluster->Kill(nodo);
        const double muerte = Ahora();
        // zaro's report of the line in flight, then the line after it on the next node.
        const std::regex linea("  line ([0-9]+): [^\n]* was lost \\(");
        std::smatch m;
        std::string texto;
        while (!std::regex_search(texto = Leer(salida), m, linea) && Ahora() - muerte < 60)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        const double dicho = Ahora();
        if (m.empty()) {
            st.SkipWithError("zaro did not report the line in flight");
            break;
        }
        const std::string despues = " where CD_ARTICULO = '" + Codigo(std::stoi(m[1])) + "'";  // line N + 1
        while (Contar(e, siguiente, despues) < 1 && Ahora() - muerte < 60)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        const double escrita = Ahora();
        st.PauseTiming();
        primeraFila += escrita - muerte;
        informe += dicho - muerte;
        const std::string numero = m[1];
        if (Esperar(pid) != 0) st.SkipWithError("the import did not end well");
        // What zaro said of the line: already on the next node, or saved there.
        std::string fin;
        texto = Leer(salida);
        if (std::regex_search(texto, m, std::regex("  line " + numero + ": [^\n]*, where the line was ([^\n]*)")))
            fin = m[1];
        std::fprintf(stderr,
                     "node %d killed: line %s reported after %.3f s (%s), the line after it on node %d after %.3f s\n",
                     nodo + 1, numero.c_str(), dicho - muerte, fin.c_str(), siguiente + 1, escrita - muerte);
        if (Contar(e, siguiente, "") != kFilas) st.SkipWithError("the rows are not all there");
        e.cluster->Start(nodo);
        e.cluster->WaitSynced(nodo, 120);
        AjustarInnoDB(e, nodo);  // it started with the small sizes again
        st.ResumeTiming();
    }
    st.counters["first_row_s"] = primeraFila / static_cast<double>(st.iterations());
    st.counters["report_s"] = informe / static_cast<double>(st.iterations());
}

BENCHMARK(BM_Import_10k)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(6);  // each order twice
BENCHMARK(BM_Failover)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
