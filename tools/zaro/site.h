// The site's tables: what `zaro init` and `zaro demo` make.
//
// Each table is made with its adapter's CrearTabla. Where the library's own
// statement can not give a usable table, the tool does what a site has to do:
//   - ticket and ticket_articulo: the database refuses the library's statement
//     (some of its column lines are malformed), so the tool makes the table
//     with its own statement: the library's column lines for the fields of the
//     index, and proper ones for the fields behind them, named as the
//     adapter's select list names them;
//   - resumen_diario and resumen_diario_detalle: the library's statement
//     lacks idEmpresa, idRestaurante and idTPV, which Insert and Update
//     write, so the tool adds them.
#pragma once

#include <string>
#include <vector>

#include "zaro.h"

namespace zaro {

struct TableState {
    std::string tabla;
    std::string outcome;  // "created", "kept, holds 12 rows", ... with what the tool did
    bool usable = false;  // the table is there at the end
};

std::vector<TableState> PrepareTables(Session& session);

}  // namespace zaro
