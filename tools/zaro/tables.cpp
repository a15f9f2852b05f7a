// zaro tables
#include <iostream>

#include "tables.h"

namespace zaro {

int RunTables(const Options& options) {
    Session session(options);
    session.RequireDatabase();
    // On a cluster each table's engine too: only InnoDB rows reach every node.
    const bool cluster = session.EnCluster();
    TextTable table(cluster ? std::vector<std::string>{"table", "rows", "engine"}
                            : std::vector<std::string>{"table", "rows"},
                    {false, true, false});
    bool missing = false, notReplicated = false;
    for (const std::string& tabla : TableList(session.Registro())) {
        if (session.TablaExiste(tabla)) {
            const std::string motor = cluster ? session.Motor(tabla) : "";
            table.Row({tabla, std::to_string(session.Filas(tabla)), motor});
            notReplicated = notReplicated || (cluster && motor != "InnoDB");
        } else {
            table.Row({tabla, "missing"});
            missing = true;
        }
    }
    std::cout << session.Donde() << ":\n";
    table.Print(std::cout, "  ");
    if (missing) std::cout << "Some tables are missing: `zaro init` makes them.\n";
    if (notReplicated)
        std::cout << "The cluster replicates only InnoDB tables: `zaro init` converts the others.\n";
    return kExitOk;
}

}  // namespace zaro
