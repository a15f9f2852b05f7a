// The article table's hot paths, each beside a baseline in the same run:
// Listar and Insert against the raw MariaDB C API on the embedded database,
// GetValor/SetValor per call, text exchange against a plain std::string
// writer and std::string_view splitter, ToXML per call, and OrderBy's
// quadratic growth.
#include <benchmark/benchmark.h>
#include <mysql.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/XML.h"
#include "ZARODatos/tables/articulo.h"
#include "bench_support.h"

using namespace OVT_ZARO;

namespace {

struct Entorno {
    ConnectionRef cn;
    std::shared_ptr<daarticulo> da;
};

Entorno& Env() {
    static Entorno e = [] {
        Entorno r;
        r.cn = zaro_bench::AbrirEmbebida("zaro-bench");
        r.da = std::make_shared<daarticulo>();
        r.da->Conexion = r.cn;
        return r;
    }();
    return e;
}

void Llenar(const std::string& tabla, int n) { zaro_bench::LlenarArticulos(Env().cn, tabla, n); }

// The raw C API on the embedded database, for the calling thread.
MYSQL* RawConnect() {
    Env();
    mysql_thread_init();
    MYSQL* m = mysql_init(nullptr);
    mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
    if (!mysql_real_connect(m, nullptr, "root", nullptr, "zaro", 0, nullptr, 0)) {
        std::fprintf(stderr, "raw connect: %s\n", mysql_error(m));
        std::abort();
    }
    mysql_set_character_set(m, "utf8mb4");
    return m;
}

struct FilaPlana {
    int32_t COD_TRANSACC;
    int y, mo, d;
    std::string HORA_REAL;
    int32_t CD_OP, TIPO_OPERACION;
    std::string CD_ARTICULO, IDARTICOLGS1;
    int32_t TIPO_FAMILIA, TIPO_SUBFAMILIA;
    double PRECIOMAX;
    std::string DESC_ARTICULO, DESC_CORTA;
};

int32_t Entero(const char* s, unsigned long n) {
    int32_t v = 0;
    if (s) std::from_chars(s, s + n, v);
    return v;
}

const std::string kTabla100k = "articulo";

// ---- Listar of 100,000 rows ----

void BM_Listar_100k(benchmark::State& st) {
    static bool lleno = (Llenar(kTabla100k, 100000), true);
    (void)lleno;
    for (auto _ : st) {
        auto l = Env().da->Listar();
        if (l->Count() != 100000) st.SkipWithError("wrong count");
        benchmark::DoNotOptimize(l);
    }
    st.SetItemsProcessed(st.iterations() * 100000);
}

void BM_RawCApi_Read_100k(benchmark::State& st) {
    static bool lleno = (Llenar(kTabla100k, 100000), true);
    (void)lleno;
    MYSQL* m = RawConnect();
    const std::string sql = Env().da->SelectSQL() + " " + Env().da->OrderBy;
    for (auto _ : st) {
        std::vector<FilaPlana> filas;
        if (mysql_query(m, sql.c_str())) st.SkipWithError(mysql_error(m));
        MYSQL_RES* res = mysql_store_result(m);
        filas.reserve(mysql_num_rows(res));
        while (MYSQL_ROW r = mysql_fetch_row(res)) {
            unsigned long* len = mysql_fetch_lengths(res);
            FilaPlana f;
            f.COD_TRANSACC = Entero(r[0], len[0]);
            f.y = Entero(r[1], 4);
            f.mo = Entero(r[1] + 5, 2);
            f.d = Entero(r[1] + 8, 2);
            f.HORA_REAL.assign(r[2], len[2]);
            f.CD_OP = Entero(r[3], len[3]);
            f.TIPO_OPERACION = Entero(r[4], len[4]);
            f.CD_ARTICULO.assign(r[5], len[5]);
            f.IDARTICOLGS1.assign(r[6], len[6]);
            f.TIPO_FAMILIA = Entero(r[7], len[7]);
            f.TIPO_SUBFAMILIA = Entero(r[8], len[8]);
            std::from_chars(r[9], r[9] + len[9], f.PRECIOMAX);
            f.DESC_ARTICULO.assign(r[10], len[10]);
            f.DESC_CORTA.assign(r[11], len[11]);
            filas.push_back(std::move(f));
        }
        mysql_free_result(res);
        if (filas.size() != 100000) st.SkipWithError("wrong count");
        benchmark::DoNotOptimize(filas);
    }
    mysql_close(m);
    st.SetItemsProcessed(st.iterations() * 100000);
}

// ---- GetValor and SetValor per call ----

void BM_GetValor_FirstField(benchmark::State& st) {
    entarticulo e;
    std::string campo = "COD_TRANSACC";
    for (auto _ : st) benchmark::DoNotOptimize(e.GetValor(campo));
}
void BM_GetValor_LastField(benchmark::State& st) {
    entarticulo e;
    std::string campo = "DESC_CORTA";
    for (auto _ : st) benchmark::DoNotOptimize(e.GetValor(campo));
}
void BM_GetValor_UnknownName(benchmark::State& st) {
    entarticulo e;
    std::string campo = "NO_EXISTE";
    for (auto _ : st) benchmark::DoNotOptimize(e.GetValor(campo));
}
void BM_SetValor_Double(benchmark::State& st) {
    entarticulo e;
    std::string campo = "PRECIOMAX";
    Variant v(12.5);
    for (auto _ : st) {
        e.SetValor(campo, v);
        benchmark::DoNotOptimize(e.PRECIOMAX);
    }
}

// ---- 10,000 inserts ----

std::vector<std::shared_ptr<entarticulo>> Entidades(int n) {
    std::vector<std::shared_ptr<entarticulo>> r;
    for (int i = 0; i < n; ++i) {
        auto e = std::make_shared<entarticulo>();
        e->COD_TRANSACC = i;
        e->FECHA_REAL = Date::FromParts(2026, 3, 1 + i % 28);
        e->HORA_REAL = "1030";
        e->CD_OP = i % 20;
        e->CD_ARTICULO = "I" + std::to_string(i);
        e->PRECIOMAX = 1.5 + i % 10;
        e->DESC_ARTICULO = "Articulo " + std::to_string(i);
        r.push_back(e);
    }
    return r;
}

void BM_Insert_10k(benchmark::State& st) {
    auto lista = Entidades(10000);
    Entorno& env = Env();
    daarticulo da;
    da.Conexion = env.cn;
    da.Tabla("articulo_ins");
    for (auto _ : st) {
        st.PauseTiming();
        env.cn->Execute("DROP TABLE IF EXISTS articulo_ins");
        da.CrearTabla();
        da.LogSQL.reset();
        st.ResumeTiming();
        for (auto& e : lista) da.Insert(*e);
    }
    st.SetItemsProcessed(st.iterations() * 10000);
}

// The statements Insert sends (the existence check and the insert), sent raw.
std::vector<std::pair<std::string, std::string>> SentenciasInsert() {
    auto lista = Entidades(10000);
    Entorno& env = Env();
    daarticulo da;
    da.Conexion = env.cn;
    da.Tabla("articulo_ins");
    env.cn->Execute("DROP TABLE IF EXISTS articulo_ins");
    da.CrearTabla();
    for (auto& e : lista) da.Insert(*e);
    std::vector<std::pair<std::string, std::string>> r;
    int i = 0;
    for (const Variant& v : *da.LogSQL) {
        std::string cuenta = "select count(*) from articulo_ins  where articulo_ins.CD_ARTICULO = '" +
                             lista[static_cast<size_t>(i++)]->CD_ARTICULO + "'  ";
        r.emplace_back(cuenta, v.Get<std::string>());
    }
    return r;
}

void EnviarRaw(MYSQL* m, const std::vector<std::pair<std::string, std::string>>& sentencias) {
    for (const auto& [cuenta, insert] : sentencias) {
        if (mysql_real_query(m, cuenta.data(), cuenta.size())) std::abort();
        MYSQL_RES* res = mysql_store_result(m);
        MYSQL_ROW r = mysql_fetch_row(res);
        if (!r || r[0][0] != '0') std::abort();
        mysql_free_result(res);
        if (mysql_real_query(m, insert.data(), insert.size())) std::abort();
    }
}

void RawInsert(benchmark::State& st, bool segundoHilo) {
    static auto sentencias = SentenciasInsert();
    Entorno& env = Env();
    for (auto _ : st) {
        st.PauseTiming();
        env.cn->Execute("DROP TABLE IF EXISTS articulo_ins");
        daarticulo da;
        da.Conexion = env.cn;
        da.Tabla("articulo_ins");
        da.CrearTabla();
        st.ResumeTiming();
        if (segundoHilo) {
            std::thread t([&] {
                MYSQL* m = RawConnect();
                EnviarRaw(m, sentencias);
                mysql_close(m);
                mysql_thread_end();
            });
            t.join();
        } else {
            MYSQL* m = RawConnect();
            EnviarRaw(m, sentencias);
            mysql_close(m);
        }
    }
    st.SetItemsProcessed(st.iterations() * 10000);
}
void BM_RawCApi_Insert_10k_SecondThread(benchmark::State& st) { RawInsert(st, true); }
void BM_RawCApi_Insert_10k_MainThread(benchmark::State& st) { RawInsert(st, false); }

// ---- Text exchange ----

std::shared_ptr<colarticulo> ListaDe(int n) {
    auto l = std::make_shared<colarticulo>();
    for (int i = 0; i < n; ++i)
        l->Add("A" + std::to_string(i), i % 1000, Date::FromParts(2026, 3, 1 + i % 28), "1030", i % 20, 1,
               "84100000" + std::to_string(i % 100000), i % 30, i % 300, (i % 99) + 0.125, "Articulo de prueba " +
               std::to_string(i), "Art " + std::to_string(i));
    return l;
}

void BM_ExportarTexto(benchmark::State& st) {
    auto l = ListaDe(static_cast<int>(st.range(0)));
    daarticulo da;
    std::string sep = ";";
    size_t bytes = 0;
    for (auto _ : st) {
        std::string t = da.ExportarTexto(*l, sep);
        bytes = t.size();
        benchmark::DoNotOptimize(t);
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * bytes));
}

// A plain writer doing the same formatting: digits, a dd/mm/yyyy date, a
// decimal comma, the text as it stands.
void EscribirPlano(std::string& t, const entarticulo& e) {
    char buf[64];
    auto entero = [&](int32_t v) {
        auto r = std::to_chars(buf, buf + sizeof buf, v);
        t.append(buf, r.ptr);
        t += ';';
    };
    auto texto = [&](const std::string& s) {
        t += s;
        t += ';';
    };
    entero(e.COD_TRANSACC);
    DateParts p = e.FECHA_REAL.Split();
    int n = std::snprintf(buf, sizeof buf, "%02d/%02d/%04d;", p.Day, p.Month, p.Year);
    t.append(buf, static_cast<size_t>(n));
    texto(e.HORA_REAL);
    entero(e.CD_OP);
    entero(e.TIPO_OPERACION);
    texto(e.CD_ARTICULO);
    texto(e.IDARTICOLGS1);
    entero(e.TIPO_FAMILIA);
    entero(e.TIPO_SUBFAMILIA);
    auto r = std::to_chars(buf, buf + sizeof buf, e.PRECIOMAX, std::chars_format::general, 15);
    for (char* c = buf; c < r.ptr; ++c)
        if (*c == '.') *c = ',';
    t.append(buf, r.ptr);
    t += ';';
    texto(e.DESC_ARTICULO);
    texto(e.DESC_CORTA);
    t += "\r\n";
}

void BM_PlainWriter(benchmark::State& st) {
    auto l = ListaDe(static_cast<int>(st.range(0)));
    for (auto _ : st) {
        std::string t;
        for (const auto& e : *l) EscribirPlano(t, *e);
        t += "\r\n";
        benchmark::DoNotOptimize(t);
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

void BM_ImportarTexto(benchmark::State& st) {
    daarticulo da;
    std::string texto = da.ExportarTexto(*ListaDe(static_cast<int>(st.range(0))), ";");
    std::string sep = ";";
    for (auto _ : st) {
        auto l = da.ImportarTexto(texto, sep);
        benchmark::DoNotOptimize(l);
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

// A plain splitter doing the same parsing into the entity's fields.
void BM_PlainSplitter(benchmark::State& st) {
    daarticulo da;
    std::string texto = da.ExportarTexto(*ListaDe(static_cast<int>(st.range(0))), ";");
    for (auto _ : st) {
        std::vector<std::shared_ptr<entarticulo>> filas;
        std::string_view resto(texto);
        while (!resto.empty()) {
            size_t fin = resto.find("\r\n");
            std::string_view linea = resto.substr(0, fin);
            resto = fin == std::string_view::npos ? std::string_view() : resto.substr(fin + 2);
            auto e = std::make_shared<entarticulo>();
            std::string_view celdas[13];
            int k = 0;
            while (k < 13) {
                size_t s = linea.find(';');
                celdas[k++] = linea.substr(0, s);
                if (s == std::string_view::npos) break;
                linea.remove_prefix(s + 1);
            }
            auto entero = [](std::string_view c) {
                int32_t v = 0;
                std::from_chars(c.data(), c.data() + c.size(), v);
                return v;
            };
            e->COD_TRANSACC = entero(celdas[0]);
            if (celdas[1].size() == 10)
                e->FECHA_REAL = Date::FromParts(entero(celdas[1].substr(6)), entero(celdas[1].substr(3, 2)),
                                                entero(celdas[1].substr(0, 2)));
            e->HORA_REAL = celdas[2];
            e->CD_OP = entero(celdas[3]);
            e->TIPO_OPERACION = entero(celdas[4]);
            e->CD_ARTICULO = celdas[5];
            e->IDARTICOLGS1 = celdas[6];
            e->TIPO_FAMILIA = entero(celdas[7]);
            e->TIPO_SUBFAMILIA = entero(celdas[8]);
            std::string num(celdas[9]);
            for (char& c : num)
                if (c == ',') c = '.';
            std::from_chars(num.data(), num.data() + num.size(), e->PRECIOMAX);
            e->DESC_ARTICULO = celdas[10];
            e->DESC_CORTA = celdas[11];
            filas.push_back(e);
        }
        benchmark::DoNotOptimize(filas);
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

// ---- XML and sorting ----

void BM_ToXML(benchmark::State& st) {
    auto l = ListaDe(1);
    for (auto _ : st) benchmark::DoNotOptimize(l->Item(1)->ToXML());
}

void BM_OrderBy(benchmark::State& st) {
    auto l = ListaDe(static_cast<int>(st.range(0)));
    for (auto _ : st) benchmark::DoNotOptimize(l->OrderBy("DESC_ARTICULO"));
    st.SetComplexityN(st.range(0));
}

}  // namespace

BENCHMARK(BM_Listar_100k)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_RawCApi_Read_100k)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_GetValor_FirstField);
BENCHMARK(BM_GetValor_LastField);
BENCHMARK(BM_GetValor_UnknownName);
BENCHMARK(BM_SetValor_Double);
BENCHMARK(BM_Insert_10k)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RawCApi_Insert_10k_SecondThread)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RawCApi_Insert_10k_MainThread)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ExportarTexto)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWriter)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportarTexto)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainSplitter)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ToXML)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OrderBy)->Arg(100)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oNSquared);

BENCHMARK_MAIN();
