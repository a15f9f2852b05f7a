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
//     write, so the tool adds them;
//   - on a node of a Galera cluster (wsrep_on): the library's statements make
//     MyISAM tables, whose rows the cluster does not replicate, so the tool
//     converts each of the ten tables to InnoDB. An empty table (just made)
//     is altered; a table that holds rows is copied into an InnoDB table of
//     the same make, which takes its place, so that its rows reach every
//     node (the rows of the node zaro is on are the ones kept).
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
