// The hand-over to an embedded connection's engine thread, alone: an empty
// call, and a job of about the size of a single-row insert (8 us) run here
// and handed over.
#include <benchmark/benchmark.h>

#include <chrono>

#include "platform/adodb/EngineThread.h"

using namespace OVT_ZARO;

namespace {

// The hand-over to a connection's engine thread alone: an empty call.
void Handoff_EmptyCall(benchmark::State& state) {
    ADODB::detail::EngineThread t;
    int n = 0;
    for (auto _ : state) t.Run([&] { ++n; });
    benchmark::DoNotOptimize(n);
}
BENCHMARK(Handoff_EmptyCall)->Name("Handoff/EmptyCall")->UseRealTime();

// A job of about the size of a single-row insert, run here and handed over.
void Spin8us() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(8);
    while (std::chrono::steady_clock::now() < end) {
    }
}
void Handoff_Job_Direct(benchmark::State& state) {
    for (auto _ : state) Spin8us();
}
BENCHMARK(Handoff_Job_Direct)->Name("Handoff/Job8us_Direct")->UseRealTime();
void Handoff_Job_Thread(benchmark::State& state) {
    ADODB::detail::EngineThread t;
    for (auto _ : state) t.Run([] { Spin8us(); });
}
BENCHMARK(Handoff_Job_Thread)->Name("Handoff/Job8us_OnEngineThread")->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
