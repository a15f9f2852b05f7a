// The headless flex grid's cells: 100,000 cells written through TextMatrix
// and read back, beside a std::vector<std::string> doing the same in the
// same run. The texts are prepared once, outside the timing, for both.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "ZARODatos/platform/HeadlessControls.h"

using namespace OVT_ZARO;

namespace {

constexpr int32_t kRows = 10000, kCols = 10;  // 100,000 cells

const std::vector<std::string>& Texts() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t;
        for (int32_t i = 0; i < kRows * kCols; ++i) t.push_back("Celda " + std::to_string(i) + " de la rejilla");
        return t;
    }();
    return texts;
}

void BM_Grid_TextMatrix_WriteRead(benchmark::State& state) {
    const auto& texts = Texts();
    Headless::MSFlexGrid grid;
    grid.SetRows(kRows + 1);
    grid.SetCols(kCols + 1);
    size_t length = 0;
    for (auto _ : state) {
        size_t k = 0;
        for (int32_t r = 1; r <= kRows; ++r)
            for (int32_t c = 1; c <= kCols; ++c) grid.SetTextMatrix(r, c, texts[k++]);
        for (int32_t r = 1; r <= kRows; ++r)
            for (int32_t c = 1; c <= kCols; ++c) length += grid.GetTextMatrix(r, c).size();
    }
    benchmark::DoNotOptimize(length);
    state.SetItemsProcessed(state.iterations() * kRows * kCols);
}
BENCHMARK(BM_Grid_TextMatrix_WriteRead)->Unit(benchmark::kMillisecond);

// The same strings into a vector and back out as copies, as GetTextMatrix gives them.
void BM_Baseline_Vector_WriteRead(benchmark::State& state) {
    const auto& texts = Texts();
    std::vector<std::string> cells(static_cast<size_t>(kRows + 1) * (kCols + 1));
    size_t length = 0;
    for (auto _ : state) {
        size_t k = 0;
        for (int32_t r = 1; r <= kRows; ++r)
            for (int32_t c = 1; c <= kCols; ++c) cells[static_cast<size_t>(r) * (kCols + 1) + c] = texts[k++];
        for (int32_t r = 1; r <= kRows; ++r)
            for (int32_t c = 1; c <= kCols; ++c) {
                std::string copy = cells[static_cast<size_t>(r) * (kCols + 1) + c];
                length += copy.size();
            }
    }
    benchmark::DoNotOptimize(length);
    state.SetItemsProcessed(state.iterations() * kRows * kCols);
}
BENCHMARK(BM_Baseline_Vector_WriteRead)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
