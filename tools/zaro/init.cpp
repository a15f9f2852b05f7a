// zaro init
#include <iostream>

#include "site.h"

namespace zaro {

int RunInit(const Options& options) {
    Session session(options);
    session.RequireDatabase();
    std::cout << session.Donde() << ":\n";
    bool usable = true;
    TextTable table({"table", "what became of it"});
    for (const TableState& s : PrepareTables(session)) {
        table.Row({s.tabla, s.outcome});
        usable = usable && s.usable;
    }
    table.Print(std::cout, "  ");
    if (!usable) {
        std::cout.flush();
        throw DataError("some tables are missing after init (see above)");
    }
    return kExitOk;
}

}  // namespace zaro
