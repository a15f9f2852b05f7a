// The ten tables of the library, each with its entity, list and adapter, and
// the one list of them in their fixed order (the order of DataAdapters.Tablas):
// the registry, the command-line tool and the tests walk this list, and no
// other place names the ten tables one by one.
#pragma once

#include <cstddef>
#include <string_view>
#include <type_traits>

#include "ZARODatos/tables/articulo.h"
#include "ZARODatos/tables/definicion_campos.h"
#include "ZARODatos/tables/dia.h"
#include "ZARODatos/tables/resumen_diario.h"
#include "ZARODatos/tables/resumen_diario_detalle.h"
#include "ZARODatos/tables/ticket.h"
#include "ZARODatos/tables/ticket_articulo.h"
#include "ZARODatos/tables/ticket_impuesto.h"
#include "ZARODatos/tables/ticket_pago.h"

namespace OVT_ZARO {

// A list of adapter classes.
template <class... A>
struct ListaAdapters {
    static constexpr std::size_t Cuantas = sizeof...(A);

    // Calls f(std::type_identity<A>{}) for each adapter class, in order.
    template <class F>
    static void ParaCada(F&& f) {
        (f(std::type_identity<A>{}), ...);
    }

    // The place of an adapter class in the list (0 for the first).
    template <class B>
    static constexpr std::size_t Lugar() {
        static_assert((std::is_same_v<A, B> || ...), "not one of the listed adapters");
        std::size_t i = 0, lugar = 0;
        ((std::is_same_v<A, B> ? (lugar = i, ++i) : ++i), ...);
        return lugar;
    }
};

// The ten tables, in their fixed order.
using LasTablas = ListaAdapters<da_definicion_campos, daarticulo, dafin_dia, dainicio_dia, daresumen_diario,
                                daresumen_diario_detalle, daticket, daticket_articulo, daticket_impuesto,
                                daticket_pago>;

// The entity class of an adapter class.
template <class A>
using EntidadDeAdapter = typename A::EntityRef::element_type;

// The table name of an adapter class ("articulo"); may raise 51 if the
// table's description is broken.
template <class A>
std::string_view NombreDeTabla() {
    return EntidadDeAdapter<A>::Def().Tabla;
}

}  // namespace OVT_ZARO
