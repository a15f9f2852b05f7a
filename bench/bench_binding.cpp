// CargaMSFlexGrid of ticket lines with eight columns on the headless grid,
// beside a baseline in the same run that writes the same strings into the
// same grid directly (Rows, Cols, then TextMatrix cell by cell). The
// binding's own work is everything else: reading each field by name,
// formatting, the column and picture members, the cell events of each
// column walked, PintandoLinea and a DoEvents after every row.
// Sizes 1,000 and 10,000 rows show how the load grows.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "ZARODatos.h"
#include "ticket_lines.h"

using namespace OVT_ZARO;

namespace {

std::shared_ptr<colticket_articulo> Lineas(int32_t n) { return zaro_bench::LineasDeTicket(n); }
coleccionColumnasRef Columnas() { return zaro_bench::ColumnasDeLinea(); }

struct Pantalla {
    std::shared_ptr<Headless::Form> form = Headless::Form::Create("frmTicket");
    std::shared_ptr<Headless::MSFlexGrid> grid = form->Add<Headless::MSFlexGrid>("grdLineas");
    std::shared_ptr<Headless::TextBox> txt = form->Add<Headless::TextBox>("txtEdicion");
    std::shared_ptr<Headless::ListBox> lst = form->Add<Headless::ListBox>("lstBusqueda");
    std::shared_ptr<Headless::MonthView> mvw = form->Add<Headless::MonthView>("mvwFecha");
};

void BM_CargaMSFlexGrid(benchmark::State& state) {
    const auto n = static_cast<int32_t>(state.range(0));
    auto lineas = Lineas(n);
    auto columnas = Columnas();
    Pantalla p;
    auto helper = std::make_shared<ControlListHelper>();
    for (auto _ : state) {
        helper->CargaMSFlexGrid(p.grid, lineas, columnas, true, p.txt, p.lst, p.mvw);
    }
    if (p.grid->GetRows() != n + 1 || p.grid->GetTextMatrix(n, 2).empty()) state.SkipWithError("load incomplete");
    state.SetItemsProcessed(state.iterations() * n);
    state.counters["ns_per_cell"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * n * 8, benchmark::Counter::kIsRate |
                                                                                benchmark::Counter::kInvert);
}
BENCHMARK(BM_CargaMSFlexGrid)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// The same strings, taken from a load beforehand, written straight into the grid.
void BM_Baseline_TextMatrix(benchmark::State& state) {
    const auto n = static_cast<int32_t>(state.range(0));
    Pantalla p;
    {
        auto helper = std::make_shared<ControlListHelper>();
        helper->CargaMSFlexGrid(p.grid, Lineas(n), Columnas());
    }
    std::vector<std::string> textos;
    for (int32_t r = 0; r <= n; ++r)
        for (int32_t c = 1; c <= 8; ++c) textos.push_back(p.grid->GetTextMatrix(r, c));
    Headless::MSFlexGrid grid;
    for (auto _ : state) {
        grid.Clear();
        grid.SetRows(n + 1);
        grid.SetCols(9);
        size_t k = 0;
        for (int32_t r = 0; r <= n; ++r)
            for (int32_t c = 1; c <= 8; ++c) grid.SetTextMatrix(r, c, textos[k++]);
    }
    state.SetItemsProcessed(state.iterations() * n);
    state.counters["ns_per_cell"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * n * 8, benchmark::Counter::kIsRate |
                                                                                benchmark::Counter::kInvert);
}
BENCHMARK(BM_Baseline_TextMatrix)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
