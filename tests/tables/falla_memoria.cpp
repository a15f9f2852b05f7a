// The program's own global allocation functions, so that a test can make the
// next allocation fail (the library's calls reach them too).
#include "falla_memoria.h"

#include <cstdlib>
#include <new>

namespace {
thread_local int g_reservas_hasta_fallo = 0;
}

namespace zaro_tablas {
void FallarProximaReserva() { g_reservas_hasta_fallo = 1; }
}  // namespace zaro_tablas

void* operator new(std::size_t n) {
    if (g_reservas_hasta_fallo > 0 && --g_reservas_hasta_fallo == 0) throw std::bad_alloc();
    if (void* p = std::malloc(n == 0 ? 1 : n)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t n) { return ::operator new(n); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
