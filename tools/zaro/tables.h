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

// Calls f with the adapter if it is of one of the listed classes, typed as
// its class; f answers the same type for every table.
template <class F, class A, class... Resto>
decltype(auto) WithAdapterOf(IDataAdapter& adapter, F& f, ListaAdapters<A, Resto...>*) {
    if (auto* typed = dynamic_cast<A*>(&adapter)) return f(*typed);
    if constexpr (sizeof...(Resto) == 0)
        throw UsageError("the table '" + adapter.TypeName() + "' has no adapter in this tool");
    else
        return WithAdapterOf(adapter, f, static_cast<ListaAdapters<Resto...>*>(nullptr));
}

// Calls f with the registry's adapter of the table named `tabla` (exactly,
// as DataAdapters names it), typed as its class. An unknown name is a usage
// error that lists the ten names.
template <class F>
decltype(auto) WithTable(DataAdapters& registro, const std::string& tabla, F&& f) {
    // The registry answers no object for a name it does not know.
    std::string nombre = tabla;
    const std::shared_ptr<IDataAdapter> adapter = registro.DataAdapter(nombre);
    if (!adapter) CheckTable(tabla);
    return WithAdapterOf(*adapter, f, static_cast<LasTablas*>(nullptr));
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
