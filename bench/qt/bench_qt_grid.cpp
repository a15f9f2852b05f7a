// CargaMSFlexGrid of ticket lines into the Qt kit's flex grid, offscreen,
// with the Qt screen services (DoEvents processes Qt's pending events after
// every row), beside filling the same QTableWidget directly with the same
// strings (setItem cell by cell) in the same run. The memory the loaded grid
// takes is measured once, as the growth of the resident set.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFont>
#include <QTableWidget>
#include <malloc.h>
#include <string>
#include <vector>

#include "ZARODatos.h"
#include "ticket_lines.h"
#include "ZARODatosQt/QtControls.h"

using namespace OVT_ZARO;

namespace {

constexpr int32_t kLineas = 10000;

std::shared_ptr<colticket_articulo> Lineas(int32_t n) { return zaro_bench::LineasDeTicket(n); }
coleccionColumnasRef Columnas() { return zaro_bench::ColumnasDeLinea(); }

// The heap in use, in bytes (what malloc has handed out and not got back).
size_t HeapEnUso() { return mallinfo2().uordblks; }

struct Pantalla {
    std::shared_ptr<QtKit::Form> form = QtKit::Form::Create("frmLineas", 12000, 7000);
    std::shared_ptr<QtKit::MSFlexGrid> grid = form->Add<QtKit::MSFlexGrid>("grd");
    std::shared_ptr<QtKit::TextBox> txt = form->Add<QtKit::TextBox>("txt");
    std::shared_ptr<QtKit::ListBox> lst = form->Add<QtKit::ListBox>("lst");
    std::shared_ptr<QtKit::MonthView> mvw = form->Add<QtKit::MonthView>("mvw");
    Pantalla() {
        grid->SetWidth(11000);
        grid->SetHeight(6000);
        txt->SetVisible(false);
        lst->SetVisible(false);
        mvw->SetVisible(false);
        form->Show();
    }
};

void BM_Qt_CargaMSFlexGrid(benchmark::State& state) {
    auto lineas = Lineas(kLineas);
    auto columnas = Columnas();
    Pantalla p;
    auto helper = std::make_shared<ControlListHelper>();
    for (auto _ : state) helper->CargaMSFlexGrid(p.grid, lineas, columnas, true, p.txt, p.lst, p.mvw);
    if (p.grid->GetTextMatrix(kLineas, 2).empty()) state.SkipWithError("load incomplete");
    state.SetItemsProcessed(state.iterations() * kLineas);
}
BENCHMARK(BM_Qt_CargaMSFlexGrid)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Baseline_QTableWidget_SetItem(benchmark::State& state) {
    Pantalla p;
    {
        auto helper = std::make_shared<ControlListHelper>();
        helper->CargaMSFlexGrid(p.grid, Lineas(kLineas), Columnas());
    }
    std::vector<QString> textos;
    for (int32_t r = 0; r <= kLineas; ++r)
        for (int32_t c = 1; c <= 8; ++c) textos.push_back(QString::fromStdString(p.grid->GetTextMatrix(r, c)));
    QTableWidget* t = p.grid->Table();
    for (auto _ : state) {
        t->clearContents();
        t->setRowCount(kLineas + 1);
        t->setColumnCount(9);
        size_t k = 0;
        for (int32_t r = 0; r <= kLineas; ++r)
            for (int32_t c = 1; c <= 8; ++c) t->setItem(r, c, new QTableWidgetItem(textos[k++]));
    }
    state.SetItemsProcessed(state.iterations() * kLineas);
}
BENCHMARK(BM_Baseline_QTableWidget_SetItem)->Unit(benchmark::kMillisecond)->UseRealTime();

// The memory of a loaded grid: the heap in use before and after one load
// (the list of lines is made before), and beside it the same grid filled
// directly.
void BM_Qt_LoadedGridMemory(benchmark::State& state) {
    for (auto _ : state) {
        auto lineas = Lineas(kLineas);
        auto columnas = Columnas();
        const size_t antes = HeapEnUso();
        Pantalla p;
        auto helper = std::make_shared<ControlListHelper>();
        helper->CargaMSFlexGrid(p.grid, lineas, columnas, true, p.txt, p.lst, p.mvw);
        state.counters["grid_MB"] = double(HeapEnUso() - antes) / (1024.0 * 1024.0);
        std::vector<QString> textos;
        for (int32_t r = 0; r <= kLineas; ++r)
            for (int32_t c = 1; c <= 8; ++c) textos.push_back(QString::fromStdString(p.grid->GetTextMatrix(r, c)));
        const size_t antesDirecto = HeapEnUso();
        QTableWidget directa;
        directa.setRowCount(kLineas + 1);
        directa.setColumnCount(9);
        size_t k = 0;
        for (int32_t r = 0; r <= kLineas; ++r)
            for (int32_t c = 1; c <= 8; ++c) directa.setItem(r, c, new QTableWidgetItem(textos[k++]));
        state.counters["direct_MB"] = double(HeapEnUso() - antesDirecto) / (1024.0 * 1024.0);
    }
}
BENCHMARK(BM_Qt_LoadedGridMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication app(argc, argv);
    QApplication::setFont(QFont("DejaVu Sans", 9));
    SetScreen(std::make_shared<QtKit::QtScreen>());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    SetScreen(nullptr);
    return 0;
}
