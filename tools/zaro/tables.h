// The ten tables by name: the registry's typed adapter of a table handed to
// a generic function, so that one body of code serves every table.
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "zaro.h"

namespace zaro {

// The typed classes of an adapter: its entity and its list.
template <class A>
using EntityOf = typename A::EntityRef::element_type;
template <class A>
using ListOf = typename A::ListRef::element_type;

// The names of the ten tables, in the registry's order (its Tablas).
std::vector<std::string> TableList(DataAdapters& registro);
// The same names joined for a message.
std::string TableNames(DataAdapters& registro);
// A usage error for a name that is not one of the ten tables; needs no database.
void CheckTable(const std::string& tabla);

// Calls f with the registry's adapter of the table named `tabla` (exactly,
// as DataAdapters names it). An unknown name is a usage error that lists the
// ten names.
template <class F>
decltype(auto) WithTable(DataAdapters& registro, const std::string& tabla, F&& f) {
    // The registry answers no object for a name it does not know.
    std::string nombre = tabla;
    if (!registro.DataAdapter(nombre)) CheckTable(tabla);
    if (tabla == "_definicion_campos") return f(*registro.definicion_campos());
    if (tabla == "articulo") return f(*registro.articulo());
    if (tabla == "fin_dia") return f(*registro.fin_dia());
    if (tabla == "inicio_dia") return f(*registro.inicio_dia());
    if (tabla == "resumen_diario") return f(*registro.resumen_diario());
    if (tabla == "resumen_diario_detalle") return f(*registro.resumen_diario_detalle());
    if (tabla == "ticket") return f(*registro.ticket());
    if (tabla == "ticket_articulo") return f(*registro.ticket_articulo());
    if (tabla == "ticket_impuesto") return f(*registro.ticket_impuesto());
    if (tabla == "ticket_pago") return f(*registro.ticket_pago());
    throw UsageError("the table '" + tabla + "' has no adapter in this tool");
}

// The rows of a table that meet a condition (all rows for an empty one),
// through the adapter's ListarWhere; the condition is the text of a where
// clause, with or without the word where.
template <class A>
typename A::ListRef ListWhere(A& adapter, const std::string& condicion) {
    std::string strWhere = condicion;
    return adapter.ListarWhere(strWhere);
}

}  // namespace zaro
