// The raw C API contender over MariaDB Connector/C (libmariadb), the client
// library SOCI and Qt SQL use; beside it, bench_peers runs the same code over
// the client of the engine library ZARODatos uses.
//   bench_peer_rawc --socket S --database D --dir DIR   (then lines "<work> <chunk>" on input)
#include "raw_works.h"

int main(int argc, char** argv) {
    peers::raw::Serve(peers::LeerArgs(argc, argv, 1));
    mysql_library_end();
    return 0;
}
