// Reading a field of a generic entity by name costs no allocation (for a
// value that needs none of its own: a number, a date, a short text).
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "ZARODatos/generic/EntidadSimple.h"
#include "ZARODatos/generic/Generica.h"
#include "ZARODatos/tables/articulo.h"

namespace {
thread_local bool contando = false;
thread_local long asignaciones = 0;
}  // namespace

// The program's allocation functions (every form without an alignment, so
// that each pair matches), counting while a test asks for it.
namespace {
void* Reservar(std::size_t n) noexcept {
    if (contando) ++asignaciones;
    return std::malloc(n ? n : 1);
}
void* ReservarOFallar(std::size_t n) {
    if (void* p = Reservar(n)) return p;
    throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t n) { return ReservarOFallar(n); }
void* operator new[](std::size_t n) { return ReservarOFallar(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return Reservar(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return Reservar(n); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }

using namespace OVT_ZARO;

namespace {

template <class F>
long AsignacionesDe(F&& f) {
    asignaciones = 0;
    contando = true;
    f();
    contando = false;
    return asignaciones;
}

}  // namespace

TEST(Asignaciones, GetValorByNameOnATwelveFieldGenericEntityAllocatesNothing) {
    entidadGenerica e;
    const char* nombres[] = {"COD_TRANSACC", "FECHA_REAL",      "HORA_REAL", "CD_OP",         "TIPO_OPERACION",
                             "CD_ARTICULO",  "IDARTICOLGS1",    "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "PRECIOMAX",
                             "DESC_ARTICULO", "DESC_CORTA"};
    int32_t i = 0;
    for (const char* n : nombres) e.SetValor(n, Variant(i++));
    e.SetValor("DESC_CORTA", Variant("corta"));
    e.SetValor("FECHA_REAL", Variant(Date(45000.0)));
    std::string primero = "cod_transacc", ultimo = "desc_corta", fecha = "Fecha_Real", ninguno = "no_existe";
    Variant v;
    EXPECT_EQ(AsignacionesDe([&] {
                  for (int k = 0; k < 100; ++k) {
                      v = e.GetValor(primero);
                      v = e.GetValor(ultimo);
                      v = e.GetValor(fecha);
                      v = e.GetValor(ninguno);
                  }
              }),
              0);
    EXPECT_EQ(v, Variant("#ERROR#"));
    EXPECT_EQ(e.GetValor(ultimo), Variant("corta"));
}

TEST(Asignaciones, GetValorByNameOnASimpleKeyEntityAllocatesNothing) {
    entEntidadSimple e;
    e.Clave1 = Variant(7);
    e.Descripcion = "corta";
    std::string clave = "clave1", descripcion = "DESCRIPCION";
    Variant v = e.GetValor(clave);  // the text comparison sets itself up once per process
    EXPECT_EQ(AsignacionesDe([&] {
                  v = e.GetValor(clave);
                  v = e.GetValor(descripcion);
              }),
              0);
    EXPECT_EQ(v, Variant("corta"));
}

TEST(Asignaciones, GetValorByNameOnATableEntityAllocatesNothing) {
    entarticulo e;
    e.CD_ARTICULO = "A1";
    std::string primero = "COD_TRANSACC", ultimo = "desc_corta", desconocido = "NO_EXISTE", clave = "CD_ARTICULO";
    e.GetValor(primero);  // the table's description is made on first use
    long n = AsignacionesDe([&] {
        for (int i = 0; i < 100; ++i) {
            Variant a = e.GetValor(primero);
            Variant b = e.GetValor(ultimo);
            Variant c = e.GetValor(desconocido);
            Variant d = e.GetValor(clave);
        }
    });
    EXPECT_EQ(n, 0);
}

TEST(Asignaciones, SetValorOfADoubleOnATableEntityAllocatesNothing) {
    entarticulo e;
    std::string campo = "PRECIOMAX";
    Variant v(12.5);
    e.SetValor(campo, v);
    long n = AsignacionesDe([&] {
        for (int i = 0; i < 100; ++i) e.SetValor(campo, v);
    });
    EXPECT_EQ(n, 0);
    EXPECT_EQ(e.PRECIOMAX, 12.5);
}
