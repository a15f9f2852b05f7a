// Typing into a lookup cell over a table of 10,000 articles: every key
// released runs the lookup's query again and refills the list overlay. One
// iteration types "1234" into the cell and deletes it again with four
// Backspaces: eight keystrokes whose lists go from all the rows down to a
// few and back. On both roads (the embedded database, and a mariadbd started
// here on a private socket and loopback port). Beside it, in the same run,
// the same eight statements read through a Recordset with nothing filled.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "ZARODatos.h"
#include "support/mariadb_server.h"  // the test fixture's server, for the server road

using namespace OVT_ZARO;

namespace {

constexpr int kArticulos = 10000;
const char* const kTecleos[] = {"1", "12", "123", "1234", "123", "12", "1", ""};

std::string* g_dir = nullptr;

void Llenar(const ConnectionRef& cn) {
    cn->Execute("DROP TABLE IF EXISTS articulo");
    daarticulo da;
    da.Conexion = cn;
    if (!da.CrearTabla()) std::abort();
    std::string sql;
    for (int i = 0; i < kArticulos; ++i) {
        sql += sql.empty() ? "insert into articulo (CD_ARTICULO, DESC_CORTA) values " : ",";
        char fila[96];
        std::snprintf(fila, sizeof fila, "('%d', 'Articulo %05d')", 10000 + i, i);
        sql += fila;
    }
    cn->Execute(sql);
}

ConnectionRef Embebida() {
    static ConnectionRef cn = [] {
        g_dir = new std::string(zaro_test::MakeTempFolder());
        std::atexit([] { std::filesystem::remove_all(*g_dir); });
        auto c = std::make_shared<ADODB::Connection>();
        c->Open("DataDir=" + *g_dir + "/data;Database=bench");
        Llenar(c);
        return c;
    }();
    return cn;
}

ConnectionRef Servidor() {
    static zaro_test::MariaDbServer* server = nullptr;
    static ConnectionRef cn = [] {
        server = new zaro_test::MariaDbServer();
        std::atexit([] { delete server; });
        auto c = std::make_shared<ADODB::Connection>();
        c->Open(server->ConnectionString("zaro_test"));
        Llenar(c);
        return c;
    }();
    return cn;
}

void Teclear(benchmark::State& state, const ConnectionRef& cn) {
    auto form = Headless::Form::Create("frmBusqueda");
    auto grid = form->Add<Headless::MSFlexGrid>("grd");
    auto txt = form->Add<Headless::TextBox>("txt");
    auto lst = form->Add<Headless::ListBox>("lst");
    txt->SetVisible(false);
    lst->SetVisible(false);
    auto cols = std::make_shared<coleccionColumnas>();
    cols->Add("CD_ARTICULO", "", 0);
    ColumnaRef d = cols->Add("DESC_CORTA", "Artículo", 2400, 0, "", Texto);
    d->Conexion = cn;
    d->OrigenDatos = "select CD_ARTICULO, DESC_CORTA from articulo";
    d->OrigenDatosCampoClave = "CD_ARTICULO";
    d->OrigenDatosCampoDescripcion = "DESC_CORTA";
    d->OrigenDatosCampoClaveTablaVista = "CD_ARTICULO";
    auto lineas = std::make_shared<colarticulo>();
    lineas->Add("10000", 0, {}, {}, 0, 0, {}, 0, 0, 0, {}, "Articulo 00000");
    auto helper = std::make_shared<ControlListHelper>();
    helper->CargaMSFlexGrid(grid, lineas, cols, false, txt, nullptr, nullptr);
    helper->CargaMSFlexGrid(grid, lineas, cols, false, txt, lst, nullptr);
    HeadlessUser user(form);
    user.DoubleClickCell(grid, 1, 2);  // the edit starts with the whole list
    if (lst->GetListCount() != kArticulos) state.SkipWithError("the list did not fill");
    txt->SetText("");
    size_t entradas = 0;
    for (auto _ : state) {
        user.Type("1234");
        entradas += static_cast<size_t>(lst->GetListCount());
        for (int i = 0; i < 4; ++i) user.Backspace();
        entradas += static_cast<size_t>(lst->GetListCount());
    }
    if (lst->GetListCount() != kArticulos) state.SkipWithError("the list did not come back whole");
    state.SetItemsProcessed(state.iterations() * 8);  // keystrokes
    state.counters["ms_per_key"] = benchmark::Counter(static_cast<double>(state.iterations()) * 8 / 1000.0,
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    benchmark::DoNotOptimize(entradas);
}

// The same statements, read to the end through a forward-only Recordset.
void Consultas(benchmark::State& state, const ConnectionRef& cn) {
    size_t filas = 0;
    for (auto _ : state) {
        for (const char* t : kTecleos) {
            std::string sql = "select CD_ARTICULO, DESC_CORTA from articulo";
            if (*t) sql += std::string(" where DESC_CORTA like '%") + t + "%'";
            sql += " order by DESC_CORTA";
            auto rs = std::make_shared<ADODB::Recordset>();
            rs->Open(sql, cn, ADODB::adOpenForwardOnly, ADODB::adLockReadOnly, -1);
            while (!rs->EOF_()) {
                benchmark::DoNotOptimize(rs->Fields().Item(int32_t{1}).Value());
                ++filas;
                rs->MoveNext();
            }
            rs->Close();
        }
    }
    state.SetItemsProcessed(state.iterations() * 8);
    state.counters["ms_per_key"] = benchmark::Counter(static_cast<double>(state.iterations()) * 8 / 1000.0,
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    benchmark::DoNotOptimize(filas);
}

void BM_Keystroke_Embedded(benchmark::State& s) { Teclear(s, Embebida()); }
void BM_Baseline_Statements_Embedded(benchmark::State& s) { Consultas(s, Embebida()); }
void BM_Keystroke_Server(benchmark::State& s) { Teclear(s, Servidor()); }
void BM_Baseline_Statements_Server(benchmark::State& s) { Consultas(s, Servidor()); }
BENCHMARK(BM_Keystroke_Embedded)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Baseline_Statements_Embedded)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Keystroke_Server)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Baseline_Statements_Server)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
