// The version of the library, major.minor.patch. The major number is the one
// in the name of the shared library (libZARODatos.so.1): a host built against
// one major version runs with every later minor and patch release of it.
#pragma once

#include <string_view>

namespace OVT_ZARO {

// The version of the library this process runs with, such as "1.0.0".
// It is the version its CMake package and its pkg-config file carry.
std::string_view LibraryVersion() noexcept;

}  // namespace OVT_ZARO
