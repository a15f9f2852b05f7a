#include "failover.h"

namespace zaro {

bool OnAList(const ConnectionRef& conexion) { return conexion && conexion->Servers().size() > 1; }

std::string LostServer(const std::string& server, const Error& e) {
    return server + " was lost (" + DescribeError(e) + ")";
}

}  // namespace zaro
