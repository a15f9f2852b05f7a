// The program's own global allocation functions, all the replaceable forms
// over malloc and free, so that a test can make the next allocation fail
// (the library's calls reach them too).
#include "falla_memoria.h"

#include <cstdlib>
#include <new>

namespace {
thread_local int g_reservas_hasta_fallo = 0;

bool Fallar() { return g_reservas_hasta_fallo > 0 && --g_reservas_hasta_fallo == 0; }

void* Reservar(std::size_t n) {
    if (Fallar()) return nullptr;
    return std::malloc(n == 0 ? 1 : n);
}

void* ReservarAlineado(std::size_t n, std::align_val_t a) {
    if (Fallar()) return nullptr;
    const std::size_t al = static_cast<std::size_t>(a);
    const std::size_t tam = ((n == 0 ? 1 : n) + al - 1) / al * al;
    return std::aligned_alloc(al, tam);
}

template <class F>
void* OLanzar(F reservar) {
    if (void* p = reservar()) return p;
    throw std::bad_alloc();
}
}  // namespace

namespace zaro_tablas {
void FallarProximaReserva() { g_reservas_hasta_fallo = 1; }
}  // namespace zaro_tablas

void* operator new(std::size_t n) { return OLanzar([&] { return Reservar(n); }); }
void* operator new[](std::size_t n) { return OLanzar([&] { return Reservar(n); }); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return Reservar(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return Reservar(n); }
void* operator new(std::size_t n, std::align_val_t a) { return OLanzar([&] { return ReservarAlineado(n, a); }); }
void* operator new[](std::size_t n, std::align_val_t a) { return OLanzar([&] { return ReservarAlineado(n, a); }); }
void* operator new(std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return ReservarAlineado(n, a);
}
void* operator new[](std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return ReservarAlineado(n, a);
}

void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept { std::free(p); }
