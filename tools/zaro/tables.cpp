// zaro tables
#include <iostream>

#include "tables.h"

namespace zaro {

int RunTables(const Options& options) {
    Session session(options);
    session.RequireDatabase();
    TextTable table({"table", "rows"}, {false, true});
    bool missing = false;
    for (const std::string& tabla : TableList(session.Registro())) {
        if (session.TablaExiste(tabla)) {
            table.Row({tabla, std::to_string(session.Filas(tabla))});
        } else {
            table.Row({tabla, "missing"});
            missing = true;
        }
    }
    std::cout << session.Donde() << ":\n";
    table.Print(std::cout, "  ");
    if (missing) std::cout << "Some tables are missing: `zaro init` makes them.\n";
    return kExitOk;
}

}  // namespace zaro
