// The host tool against the library, in the same run: `zaro import` of a
// 100,000-row article file and `zaro export` of the table, each paired with
// the same work done through the library directly:
//   import: read the file, ImportarTexto, GrabarDatos (the tool walks the list
//           itself with CamposOk, Existe, Insert and Update, as GrabarDatos does);
//   export: Listar, ExportarTexto, write the file.
// Both on the embedded database, each in a data folder of its own. The
// tool's figures are whole runs of the program (zaro from the build folder
// beside this benchmark), so they include starting the process and the
// embedded engine; the export's pair also measures that alone (`zaro
// query "select 1"`). Reported: rows per second of wall-clock time and CPU seconds
// (all threads; the embedded engine works on a thread of its own), as
// counters, since the benchmark's own time is the sum of both sides.
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

struct Entorno {
    std::string dir;       // the temp folder of this run
    std::string archivo;   // the 100,000-row article file
    std::string zaro;      // the tool
    std::string datosTool; // the tool's data folder
    ConnectionRef cn;      // the library's own database
    std::shared_ptr<daarticulo> da;
};

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

// Runs the tool with its output thrown away; gives its exit status and adds
// the CPU time it used (user and system, all its threads) to *cpu.
int Zaro(const Entorno& e, std::vector<std::string> args, double* cpu = nullptr) {
    args.insert(args.begin(), {e.zaro, "--db", e.datosTool});
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

std::string* g_carpeta = nullptr;

void BorrarCarpeta() {
    if (g_carpeta) std::filesystem::remove_all(*g_carpeta);
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
        r.datosTool = r.dir + "/tool-data";
        char self[PATH_MAX] = {};
        const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
        r.zaro = std::filesystem::path(std::string(self, n > 0 ? static_cast<size_t>(n) : 0)).parent_path() / "zaro";
        if (!std::filesystem::exists(r.zaro)) {
            std::fprintf(stderr, "the tool is not at %s: build the target zaro first\n", r.zaro.c_str());
            std::exit(1);
        }
        Escribir(r.archivo, HacerArchivo());
        r.cn = std::make_shared<ADODB::Connection>();
        r.cn->Open("DataDir=" + r.dir + "/lib-data");
        r.da = std::make_shared<daarticulo>();
        r.da->Conexion = r.cn;
        if (Zaro(r, {"init"}) != 0) {
            std::fprintf(stderr, "zaro init failed\n");
            std::exit(1);
        }
        return r;
    }();
    return e;
}

// An empty article table in the library's database.
void TablaVacia(Entorno& e) {
    e.cn->Execute("DROP TABLE IF EXISTS articulo");
    if (!e.da->CrearTabla()) std::abort();
}

double Ahora() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The CPU time of this process so far: user and system, all its threads
// (the embedded engine's included).
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
};

// Times one run of the library's work in this process.
template <class F>
void MedirLibreria(Medida& m, F trabajo) {
    const double w = Ahora(), c = CpuPropio();
    trabajo();
    m.wall += Ahora() - w;
    m.cpu += CpuPropio() - c;
    ++m.veces;
}

// Times one run of the tool; false when it failed.
bool MedirTool(Medida& m, Entorno& e, const std::vector<std::string>& args) {
    const double w = Ahora();
    double cpu = 0;
    const bool ok = Zaro(e, args, &cpu) == 0;
    m.wall += Ahora() - w;
    m.cpu += cpu;
    ++m.veces;
    return ok;
}

// The figures of both sides as counters: rows per second of wall-clock
// time, CPU seconds per run, and the tool's share over the library's.
void Informar(benchmark::State& st, const Medida& lib, const Medida& tool, const Medida* arranque = nullptr) {
    st.counters["lib_rows_s"] = kFilas * lib.veces / lib.wall;
    st.counters["tool_rows_s"] = kFilas * tool.veces / tool.wall;
    st.counters["lib_cpu_s"] = lib.cpu / lib.veces;
    st.counters["tool_cpu_s"] = tool.cpu / tool.veces;
    st.counters["wall_ratio"] = (tool.wall / tool.veces) / (lib.wall / lib.veces);
    st.counters["cpu_ratio"] = (tool.cpu / tool.veces) / (lib.cpu / lib.veces);
    if (arranque) {
        st.counters["start_wall_s"] = arranque->wall / arranque->veces;
        st.counters["start_cpu_s"] = arranque->cpu / arranque->veces;
    }
}

// Each iteration runs both sides, in turn first, so that the machine's load
// falls on both alike.
void BM_Import_100k(benchmark::State& st) {
    Entorno& e = Env();
    Medida lib, tool;
    int vuelta = 0;
    for (auto _ : st) {
        auto libreria = [&] {
            TablaVacia(e);
            MedirLibreria(lib, [&] {
                std::string texto = Leer(e.archivo);
                std::string sep = ";";
                auto lista = e.da->ImportarTexto(texto, sep);
                e.da->GrabarDatos(*lista);
            });
        };
        auto herramienta = [&] {
            if (Zaro(e, {"query", "DROP TABLE IF EXISTS articulo"}) != 0 || Zaro(e, {"init"}) != 0)
                st.SkipWithError("could not empty the tool's table");
            if (!MedirTool(tool, e, {"import", "articulo", e.archivo})) st.SkipWithError("zaro import failed");
        };
        if (vuelta++ % 2 == 0) {
            libreria();
            herramienta();
        } else {
            herramienta();
            libreria();
        }
    }
    Informar(st, lib, tool);
}

// The rows of the library's article table (0 when it is missing).
int64_t FilasLibreria(Entorno& e) {
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
    if (FilasLibreria(e) != kFilas) {
        TablaVacia(e);
        std::string texto = Leer(e.archivo), sep = ";";
        e.da->GrabarDatos(*e.da->ImportarTexto(texto, sep));
        Zaro(e, {"query", "DROP TABLE IF EXISTS articulo"});
        Zaro(e, {"init"});
        if (Zaro(e, {"import", "articulo", e.archivo}) != 0) st.SkipWithError("zaro import failed");
    }
    const std::string salidaLib = e.dir + "/lib-export.txt", salidaTool = e.dir + "/tool-export.txt";
    Medida lib, tool, arranque;
    int vuelta = 0;
    for (auto _ : st) {
        auto libreria = [&] {
            MedirLibreria(lib, [&] {
                auto lista = e.da->Listar();
                std::string sep = ";";
                Escribir(salidaLib, e.da->ExportarTexto(*lista, sep));
            });
        };
        auto herramienta = [&] {
            if (!MedirTool(tool, e, {"export", "articulo", "--out", salidaTool}))
                st.SkipWithError("zaro export failed");
            // What starting and ending the tool costs alone: one small query on the same database.
            if (!MedirTool(arranque, e, {"query", "select 1"})) st.SkipWithError("zaro query failed");
        };
        if (vuelta++ % 2 == 0) {
            libreria();
            herramienta();
        } else {
            herramienta();
            libreria();
        }
    }
    if (Leer(salidaTool) != Leer(salidaLib)) st.SkipWithError("the tool's export differs from the library's");
    Informar(st, lib, tool, &arranque);
}

BENCHMARK(BM_Import_100k)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(2);
BENCHMARK(BM_Export_100k)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(10);

}  // namespace

BENCHMARK_MAIN();
