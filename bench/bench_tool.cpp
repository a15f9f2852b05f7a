// The host tool against the library, in the same run: `zaro import` of a
// 100,000-row article file and `zaro export` of the table, beside the same
// work done through the library directly:
//   import: read the file, ImportarTexto, GrabarDatos (the tool walks the list
//           itself with CamposOk, Existe, Insert and Update, as GrabarDatos does);
//   export: Listar, ExportarTexto, write the file.
// Three sides, each on the embedded database in a data folder of its own:
//   lib   the work inside this process, on a connection opened once (the
//         engine warm, its start not counted);
//   host  a minimal host: this program started again with --host, which opens
//         the database and does the work through the library and nothing else;
//   tool  the zaro of the build folder beside this program.
// host and tool are whole runs of a program, so both pay for starting the
// process and the embedded engine; what the tool adds is tool against host.
// `zaro query "select 1"` measures that start alone. Each iteration runs the
// sides in turn, in a rotating order, so that the machine's load falls on all
// alike. Reported as counters: rows per second of wall-clock time, and CPU
// seconds per run (user and system, all threads: the embedded engine works on
// a thread of its own).
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ZARODatos.h"

extern char** environ;

using namespace OVT_ZARO;

namespace {

constexpr int kFilas = 100000;

std::string Leer(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void Escribir(const std::string& path, const std::string& texto) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(texto.data(), static_cast<std::streamsize>(texto.size()));
}

// ---- the work through the library, as both this process and the minimal host do it

void Importar(daarticulo& da, const std::string& archivo) {
    std::string texto = Leer(archivo);
    std::string sep = ";";
    auto lista = da.ImportarTexto(texto, sep);
    da.GrabarDatos(*lista);
}

void Exportar(daarticulo& da, const std::string& salida) {
    auto lista = da.Listar();
    std::string sep = ";";
    Escribir(salida, da.ExportarTexto(*lista, sep));
}

// An empty article table.
void TablaVacia(ADODB::Connection& cn, daarticulo& da) {
    cn.Execute("DROP TABLE IF EXISTS articulo");
    if (!da.CrearTabla()) std::abort();
}

// The minimal host: `bench_tool --host DATADIR prepare|import FILE|export FILE`.
int Host(int argc, char** argv) {
    if (argc < 4) return 1;
    auto cn = std::make_shared<ADODB::Connection>();
    cn->Open(std::string("DataDir=") + argv[2]);
    daarticulo da;
    da.Conexion = cn;
    const std::string trabajo = argv[3];
    if (trabajo == "prepare") TablaVacia(*cn, da);
    else if (trabajo == "import" && argc > 4) Importar(da, argv[4]);
    else if (trabajo == "export" && argc > 4) Exportar(da, argv[4]);
    else return 1;
    return 0;
}

// ---- the run's environment

struct Entorno {
    std::string dir;       // the temp folder of this run
    std::string archivo;   // the 100,000-row article file
    std::string self;      // this program, as the minimal host
    std::string zaro;      // the tool
    ConnectionRef cn;      // this process's own database
};

std::string* g_carpeta = nullptr;

void BorrarCarpeta() {
    if (g_carpeta) std::filesystem::remove_all(*g_carpeta);
}

// Runs a program with its output thrown away; gives its exit status and adds
// the CPU time it used (user and system, all its threads) to *cpu.
int Ejecutar(std::vector<std::string> args, double* cpu = nullptr) {
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&acciones, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int rc = posix_spawn(&pid, argv[0], &acciones, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&acciones);
    if (rc != 0) return -1;
    int status = 0;
    rusage uso{};
    wait4(pid, &status, 0, &uso);
    if (cpu)
        *cpu += static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
                static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<std::string> ZaroArgs(const Entorno& e, std::vector<std::string> args) {
    args.insert(args.begin(), {e.zaro, "--db", e.dir + "/tool-data"});
    return args;
}

std::vector<std::string> HostArgs(const Entorno& e, std::vector<std::string> args) {
    args.insert(args.begin(), {e.self, "--host", e.dir + "/host-data"});
    return args;
}

// The article file, written by the library itself in the exchange format.
std::string HacerArchivo() {
    colarticulo lista;
    for (int i = 0; i < kFilas; ++i)
        lista.Add("A" + std::to_string(1000000 + i), 8, Date::FromParts(2026, 3, 14), "050000", 0, 1,
                  "84" + std::to_string(10000000000LL + i), 1 + i % 9, 1 + i % 7, 1 + (i % 9000) / 100.0,
                  "Articulo de prueba numero " + std::to_string(i), "Art " + std::to_string(i));
    daarticulo da;
    std::string sep = ";";
    return da.ExportarTexto(lista, sep);
}

Entorno& Env() {
    static Entorno e = [] {
        Entorno r;
        char plantilla[] = "/tmp/zaro-bench-tool-XXXXXX";
        r.dir = mkdtemp(plantilla);
        // Registered before the database opens, so that it runs after the engine has ended at exit.
        g_carpeta = new std::string(r.dir);
        std::atexit(BorrarCarpeta);
        r.archivo = r.dir + "/articulo.txt";
        char self[PATH_MAX] = {};
        const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
        r.self = std::string(self, n > 0 ? static_cast<size_t>(n) : 0);
        r.zaro = std::filesystem::path(r.self).parent_path() / "zaro";
        if (!std::filesystem::exists(r.zaro)) {
            std::fprintf(stderr, "the tool is not at %s: build the target zaro first\n", r.zaro.c_str());
            std::exit(1);
        }
        Escribir(r.archivo, HacerArchivo());
        r.cn = std::make_shared<ADODB::Connection>();
        r.cn->Open("DataDir=" + r.dir + "/lib-data");
        return r;
    }();
    return e;
}

// A fresh adapter, as each run of a program has one (its LogSQL grows by
// every statement).
std::shared_ptr<daarticulo> Adapter(Entorno& e) {
    auto da = std::make_shared<daarticulo>();
    da->Conexion = e.cn;
    return da;
}

// ---- measuring

double Ahora() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double CpuPropio() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
           static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
}

// Wall-clock and CPU seconds added up over the runs of one side.
struct Medida {
    double wall = 0, cpu = 0;
    int veces = 0;
    double Wall() const { return wall / veces; }
    double Cpu() const { return cpu / veces; }
};

template <class F>
void MedirAqui(Medida& m, F trabajo) {
    const double w = Ahora(), c = CpuPropio();
    trabajo();
    m.wall += Ahora() - w;
    m.cpu += CpuPropio() - c;
    ++m.veces;
}

bool MedirPrograma(Medida& m, std::vector<std::string> args) {
    const double w = Ahora();
    double cpu = 0;
    const bool ok = Ejecutar(std::move(args), &cpu) == 0;
    m.wall += Ahora() - w;
    m.cpu += cpu;
    ++m.veces;
    return ok;
}

void Informar(benchmark::State& st, const Medida& lib, const Medida& host, const Medida& tool,
              const Medida& arranque) {
    st.counters["lib_rows_s"] = kFilas / lib.Wall();
    st.counters["host_rows_s"] = kFilas / host.Wall();
    st.counters["tool_rows_s"] = kFilas / tool.Wall();
    st.counters["lib_cpu_s"] = lib.Cpu();
    st.counters["host_cpu_s"] = host.Cpu();
    st.counters["tool_cpu_s"] = tool.Cpu();
    st.counters["start_wall_s"] = arranque.Wall();
    st.counters["tool/host_wall"] = tool.Wall() / host.Wall();
    st.counters["tool/host_cpu"] = tool.Cpu() / host.Cpu();
}

// Runs the sides in a rotating order.
template <class A, class B, class C>
void EnTurno(int vuelta, A a, B b, C c) {
    switch (vuelta % 3) {
        case 0: a(); b(); c(); break;
        case 1: b(); c(); a(); break;
        default: c(); a(); b(); break;
    }
}

void BM_Import_100k(benchmark::State& st) {
    Entorno& e = Env();
    Medida lib, host, tool, arranque;
    int vuelta = 0;
    for (auto _ : st) {
        EnTurno(
            vuelta++,
            [&] {
                auto da = Adapter(e);
                TablaVacia(*e.cn, *da);
                MedirAqui(lib, [&] { Importar(*da, e.archivo); });
            },
            [&] {
                if (Ejecutar(HostArgs(e, {"prepare"})) != 0) st.SkipWithError("the host could not empty its table");
                if (!MedirPrograma(host, HostArgs(e, {"import", e.archivo}))) st.SkipWithError("the host failed");
            },
            [&] {
                if (Ejecutar(ZaroArgs(e, {"query", "--write", "DROP TABLE IF EXISTS articulo"})) != 0 ||
                    Ejecutar(ZaroArgs(e, {"init"})) != 0)
                    st.SkipWithError("could not empty the tool's table");
                if (!MedirPrograma(tool, ZaroArgs(e, {"import", "articulo", e.archivo})))
                    st.SkipWithError("zaro import failed");
                MedirPrograma(arranque, ZaroArgs(e, {"query", "select 1"}));
            });
    }
    Informar(st, lib, host, tool, arranque);
}

// The rows of this process's article table (0 when it is missing).
int64_t Filas(Entorno& e) {
    std::string sql = "select count(*) from information_schema.tables where table_name = 'articulo' and "
                      "table_schema = database()";
    std::string campo;
    if (CDbl(BasTroquel::ObtenerValorSQL(e.cn, sql, campo)) == 0) return 0;
    sql = "select count(*) from articulo";
    return static_cast<int64_t>(CDbl(BasTroquel::ObtenerValorSQL(e.cn, sql, campo)));
}

void BM_Export_100k(benchmark::State& st) {
    Entorno& e = Env();
    // Run alone, the export needs the rows the import benchmark leaves behind.
    if (Filas(e) != kFilas) {
        auto da = Adapter(e);
        TablaVacia(*e.cn, *da);
        Importar(*da, e.archivo);
        Ejecutar(HostArgs(e, {"prepare"}));
        Ejecutar(HostArgs(e, {"import", e.archivo}));
        Ejecutar(ZaroArgs(e, {"query", "--write", "DROP TABLE IF EXISTS articulo"}));
        Ejecutar(ZaroArgs(e, {"init"}));
        if (Ejecutar(ZaroArgs(e, {"import", "articulo", e.archivo})) != 0) st.SkipWithError("zaro import failed");
    }
    const std::string salidaLib = e.dir + "/lib.txt", salidaHost = e.dir + "/host.txt",
                      salidaTool = e.dir + "/tool.txt";
    Medida lib, host, tool, arranque;
    int vuelta = 0;
    for (auto _ : st) {
        EnTurno(
            vuelta++,
            [&] {
                auto da = Adapter(e);
                MedirAqui(lib, [&] { Exportar(*da, salidaLib); });
            },
            [&] {
                if (!MedirPrograma(host, HostArgs(e, {"export", salidaHost}))) st.SkipWithError("the host failed");
            },
            [&] {
                if (!MedirPrograma(tool, ZaroArgs(e, {"export", "articulo", "--out", salidaTool})))
                    st.SkipWithError("zaro export failed");
                MedirPrograma(arranque, ZaroArgs(e, {"query", "select 1"}));
            });
    }
    if (Leer(salidaTool) != Leer(salidaLib) || Leer(salidaHost) != Leer(salidaLib))
        st.SkipWithError("the three exports differ");
    Informar(st, lib, host, tool, arranque);
}

BENCHMARK(BM_Import_100k)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(3);
BENCHMARK(BM_Export_100k)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(12);

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--host") == 0) return Host(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
