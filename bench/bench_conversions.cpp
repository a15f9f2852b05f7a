// Conversions on the hot path (every SQL literal passes through them):
// CStr of a Double and of a Long, CDbl and IsNumeric of text. Each runs
// beside a plain std::to_chars / std::from_chars baseline that does the
// comparable work on the same values (the baselines produce a std::string
// too where the conversion does).
#include <benchmark/benchmark.h>

#include <charconv>
#include <string>
#include <vector>

#include "ZARODatos/platform/Conversions.h"

using namespace OVT_ZARO;

namespace {

// Typical amounts and quantities, and doubles that need all 17 digits.
const std::vector<double> kDoubles = {12.5, 1234567.25, 0.75, 99.99, 3.5, 1500.0, 0.001, 42.0, 7.25, 100.1};
const std::vector<double> kLongDoubles = {3.141592653589793, 0.1 + 0.2, 1.0 / 3.0, 2.718281828459045,
                                          1234.5678901234567};
const std::vector<int32_t> kLongs = {5, 1234567, -42, 0, 2147483647, 980, 31, -1, 65536, 20240315};
// The same numbers as text, under the host locale and in C form.
const std::vector<std::string> kLocaleTexts = {"12,5", "1.234.567,25", "0,75", "99,99", "3,5",
                                               "1500", "0,001",        "42",   "-7,25", "100,1"};
const std::vector<std::string> kCTexts = {"12.5", "1234567.25", "0.75", "99.99", "3.5",
                                          "1500", "0.001",      "42",   "-7.25", "100.1"};

template <class T>
std::vector<Variant> AsVariants(const std::vector<T>& xs) {
    std::vector<Variant> out;
    for (const T& x : xs) out.emplace_back(x);
    return out;
}

void BM_CStr_Double(benchmark::State& state) {
    const std::vector<Variant> vs = AsVariants(kDoubles);
    size_t i = 0;
    for (auto _ : state) {
        std::string s = CStr(vs[i]);
        benchmark::DoNotOptimize(s);
        if (++i == vs.size()) i = 0;
    }
}
BENCHMARK(BM_CStr_Double);

void BM_Baseline_ToChars_Double(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        char buf[32];
        auto r = std::to_chars(buf, buf + sizeof buf, kDoubles[i]);
        std::string s(buf, r.ptr);
        benchmark::DoNotOptimize(s);
        if (++i == kDoubles.size()) i = 0;
    }
}
BENCHMARK(BM_Baseline_ToChars_Double);

void BM_CStr_Double17Digits(benchmark::State& state) {
    const std::vector<Variant> vs = AsVariants(kLongDoubles);
    size_t i = 0;
    for (auto _ : state) {
        std::string s = CStr(vs[i]);
        benchmark::DoNotOptimize(s);
        if (++i == vs.size()) i = 0;
    }
}
BENCHMARK(BM_CStr_Double17Digits);

void BM_Baseline_ToChars_Double17Digits(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        char buf[32];
        auto r = std::to_chars(buf, buf + sizeof buf, kLongDoubles[i]);
        std::string s(buf, r.ptr);
        benchmark::DoNotOptimize(s);
        if (++i == kLongDoubles.size()) i = 0;
    }
}
BENCHMARK(BM_Baseline_ToChars_Double17Digits);

void BM_CStr_Int32(benchmark::State& state) {
    const std::vector<Variant> vs = AsVariants(kLongs);
    size_t i = 0;
    for (auto _ : state) {
        std::string s = CStr(vs[i]);
        benchmark::DoNotOptimize(s);
        if (++i == vs.size()) i = 0;
    }
}
BENCHMARK(BM_CStr_Int32);

void BM_Baseline_ToChars_Int32(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        char buf[16];
        auto r = std::to_chars(buf, buf + sizeof buf, kLongs[i]);
        std::string s(buf, r.ptr);
        benchmark::DoNotOptimize(s);
        if (++i == kLongs.size()) i = 0;
    }
}
BENCHMARK(BM_Baseline_ToChars_Int32);

void BM_CDbl_String(benchmark::State& state) {
    const std::vector<Variant> vs = AsVariants(kLocaleTexts);
    size_t i = 0;
    for (auto _ : state) {
        double d = CDbl(vs[i]);
        benchmark::DoNotOptimize(d);
        if (++i == vs.size()) i = 0;
    }
}
BENCHMARK(BM_CDbl_String);

void BM_Baseline_FromChars_Double(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        const std::string& t = kCTexts[i];
        double d = 0;
        std::from_chars(t.data(), t.data() + t.size(), d);
        benchmark::DoNotOptimize(d);
        if (++i == kCTexts.size()) i = 0;
    }
}
BENCHMARK(BM_Baseline_FromChars_Double);

void BM_IsNumeric_String(benchmark::State& state) {
    const std::vector<Variant> vs = AsVariants(kLocaleTexts);
    size_t i = 0;
    for (auto _ : state) {
        bool ok = IsNumeric(vs[i]);
        benchmark::DoNotOptimize(ok);
        if (++i == vs.size()) i = 0;
    }
}
BENCHMARK(BM_IsNumeric_String);

void BM_Baseline_FromChars_IsNumber(benchmark::State& state) {
    size_t i = 0;
    for (auto _ : state) {
        const std::string& t = kCTexts[i];
        double d = 0;
        auto r = std::from_chars(t.data(), t.data() + t.size(), d);
        bool ok = r.ec == std::errc() && r.ptr == t.data() + t.size();
        benchmark::DoNotOptimize(ok);
        if (++i == kCTexts.size()) i = 0;
    }
}
BENCHMARK(BM_Baseline_FromChars_IsNumber);

}  // namespace

BENCHMARK_MAIN();
