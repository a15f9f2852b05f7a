// The version comes from the build, which takes it from the project's one
// definition of it.
#include "ZARODatos/core/Version.h"

#ifndef ZARODATOS_VERSION
#error "ZARODATOS_VERSION is given by the build"
#endif

namespace OVT_ZARO {

std::string_view LibraryVersion() noexcept { return ZARODATOS_VERSION; }

}  // namespace OVT_ZARO
