// The generic entities' hot paths, each beside a baseline in the same run:
// coleccionGenerica.Cargar of 100,000 rows of twelve columns from the
// embedded database against the typed daarticulo.Listar of the same rows
// (the same statement through the same adapter), and GetValor by name on a
// twelve-field entidadGenerica against the typed entarticulo.
//
// The database benchmarks report wall-clock time: the embedded engine works
// on a thread of its own.
#include <benchmark/benchmark.h>

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
    std::string dir;
    ConnectionRef cn;
    std::shared_ptr<daarticulo> da;
};

void Llenar(Entorno& e) {
    e.cn->Execute("DROP TABLE IF EXISTS articulo");
    if (!e.da->CrearTabla()) {
        std::fprintf(stderr, "could not create the table\n");
        std::abort();
    }
    std::string sql;
    for (int i = 0; i < kFilas; ++i) {
        if (sql.empty())
            sql = "insert into articulo (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, "
                  "IDARTICOLGS1, TIPO_FAMILIA, TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA) values ";
        else
            sql += ",";
        char fila[256];
        std::snprintf(fila, sizeof fila,
                      "(%d, '2026-03-%02d', '10%02d', %d, 1, 'A%07d', '84100000%05d', %d, %d, %d.%03d, "
                      "'Articulo de prueba numero %d', 'Art %d')",
                      i % 1000, 1 + i % 28, i % 60, i % 20, i, i % 100000, i % 30, i % 300, i % 99, i % 1000, i, i);
        sql += fila;
        if ((i + 1) % 5000 == 0 || i + 1 == kFilas) {
            e.cn->Execute(sql);
            sql.clear();
        }
    }
}

Entorno& Env() {
    static Entorno e = [] {
        Entorno r;
        char plantilla[] = "/tmp/zaro-bench-generic-XXXXXX";
        r.dir = mkdtemp(plantilla);
        r.cn = std::make_shared<ADODB::Connection>();
        r.cn->Open("DataDir=" + r.dir + "/data");
        r.da = std::make_shared<daarticulo>();
        r.da->Conexion = r.cn;
        Llenar(r);
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
