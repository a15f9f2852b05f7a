// A real shortage of memory on demand: the next allocation of the calling
// thread fails with std::bad_alloc, and the ones after it succeed again. It
// reaches operations whose only possible failure is running out of memory.
#pragma once

namespace zaro_tablas {
void FallarProximaReserva();
}
