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
#include "ZARODatosQt/QtControls.h"

using namespace OVT_ZARO;

namespace {

constexpr int32_t kLineas = 10000;

std::shared_ptr<colticket_articulo> Lineas(int32_t n) {
    auto l = std::make_shared<colticket_articulo>();
    const char* d[] = {"Café solo", "Café con leche", "Bocadillo de jamón", "Agua mineral", "Menú del día"};
    for (int32_t i = 0; i < n; ++i)
        l->Add(1, 12, 1 + i % 3, 1 + i / 4, 1 + i % 4, 2, Date::FromParts(2026, 3, 1 + i % 28), "101500", 1 + i % 3,
               std::to_string(1000 + i % 500), d[i % 5], 1 + i % 4, 1, 1.45 * (1 + i % 7), 1.6 * (1 + i % 7), i % 2,
               1 + i % 5, 1234.5 + i);
    return l;
}

coleccionColumnasRef Columnas() {
    auto c = std::make_shared<coleccionColumnas>();
    c->Add("CD_ARTICULO", "Código", 0, 0, "", Texto);
    c->Add("DESC_CORTA", "Artículo", 2400, 0, "", Texto);
    c->Add("UDS", "Uds", 900, 0, "", NumDecimal);
    c->Add("ImpVenta_A", "Importe", 1000, 0, "", NumDecimal);
    c->Add("FECHA_REAL", "Fecha", 1200, 0, "", Fecha);
    c->Add("TIPO_FAMILIA", "Familia", 700, 0, "", Entero);
    c->Add("TIPO_UDS", "Unidad", 600, 0, "", Check);
    c->Add("ID_REGISTRO", "Caja", 600, 2, "", TextoFijo);
    return c;
}

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
