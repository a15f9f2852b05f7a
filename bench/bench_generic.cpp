// The generic entities' hot paths, each beside a baseline in the same run:
// coleccionGenerica.Cargar of 100,000 rows of twelve columns from the
// embedded database against the typed daarticulo.Listar of the same rows
// (the same statement through the same adapter), and GetValor by name on a
// twelve-field entidadGenerica against the typed entarticulo.
//
// The database benchmarks report wall-clock time: the embedded engine works
// on a thread of its own.
#include <benchmark/benchmark.h>

#include "bench_support.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ZARODatos/generic/Generica.h"
#include "ZARODatos/tables/articulo.h"

using namespace OVT_ZARO;

namespace {

constexpr int kFilas = 100000;

struct Entorno {
    ConnectionRef cn;
    std::shared_ptr<daarticulo> da;
};

Entorno& Env() {
    static Entorno e = [] {
        Entorno r;
        r.cn = zaro_bench::AbrirEmbebida("zaro-bench-generic");
        r.da = std::make_shared<daarticulo>();
        r.da->Conexion = r.cn;
        zaro_bench::LlenarArticulos(r.cn, "articulo", kFilas);
        return r;
    }();
    return e;
}

// ---- 100,000 rows of twelve columns ----

void BM_Listar_Tipado_100k(benchmark::State& st) {
    Entorno& e = Env();
    for (auto _ : st) {
        auto l = e.da->Listar();
        if (l->Count() != kFilas) st.SkipWithError("wrong count");
        benchmark::DoNotOptimize(l);
    }
    st.SetItemsProcessed(st.iterations() * kFilas);
}

void BM_Cargar_Generica_100k(benchmark::State& st) {
    Entorno& e = Env();
    for (auto _ : st) {
        auto rs = e.da->rsListar();
        auto l = std::make_shared<coleccionGenerica>();
        l->Cargar(rs);
        rs->Close();
        if (l->Count() != kFilas || l->Item(1)->NumCampos() != 12) st.SkipWithError("wrong shape");
        benchmark::DoNotOptimize(l);
    }
    st.SetItemsProcessed(st.iterations() * kFilas);
}

// ---- GetValor by name on a twelve-field entity ----

const char* const kCampos[] = {"COD_TRANSACC",   "FECHA_REAL",   "HORA_REAL",      "CD_OP",
                               "TIPO_OPERACION", "CD_ARTICULO",  "IDARTICOLGS1",   "TIPO_FAMILIA",
                               "TIPO_SUBFAMILIA", "PRECIOMAX",   "DESC_ARTICULO",  "DESC_CORTA"};

entidadGenericaRef GenericaDeDoce() {
    auto rs = Env().da->rsListar("A0000042");
    coleccionGenerica l;
    l.Cargar(rs);
    rs->Close();
    return l.Item(1);
}

// Arg: the position of the name among the twelve (1 first, 12 last, 0 unknown).
void BM_GetValor_Generica(benchmark::State& st) {
    auto e = GenericaDeDoce();
    std::string campo = st.range(0) == 0 ? "NO_EXISTE" : kCampos[st.range(0) - 1];
    // The same name in another case, as callers write it.
    for (char& c : campo) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (auto _ : st) benchmark::DoNotOptimize(e->GetValor(campo));
}

void BM_GetValor_Tipado(benchmark::State& st) {
    auto l = Env().da->Listar("A0000042");
    auto e = l->Item(1);
    std::string campo = st.range(0) == 0 ? "NO_EXISTE" : kCampos[st.range(0) - 1];
    for (char& c : campo) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    for (auto _ : st) benchmark::DoNotOptimize(e->GetValor(campo));
}

}  // namespace

BENCHMARK(BM_Listar_Tipado_100k)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(BM_Cargar_Generica_100k)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(BM_GetValor_Generica)->Arg(1)->Arg(6)->Arg(12)->Arg(0);
BENCHMARK(BM_GetValor_Tipado)->Arg(1)->Arg(6)->Arg(12)->Arg(0);

BENCHMARK_MAIN();
