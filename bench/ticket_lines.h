// The ticket lines and the eight columns the grid-load benchmarks draw: a
// hidden key, two texts, two NumDecimal, a Fecha, an Entero, a Check and a
// TextoFijo.
#pragma once

#include <memory>
#include <string>

#include "ZARODatos.h"

namespace zaro_bench {

inline std::shared_ptr<OVT_ZARO::colticket_articulo> LineasDeTicket(int32_t n) {
    using OVT_ZARO::Date;
    auto l = std::make_shared<OVT_ZARO::colticket_articulo>();
    const char* descripciones[] = {"Café solo", "Café con leche", "Bocadillo de jamón", "Agua mineral", "Menú del día"};
    for (int32_t i = 0; i < n; ++i) {
        l->Add(1, 12, 1 + i % 3, 1 + i / 4, 1 + i % 4, 2, Date::FromParts(2026, 3, 1 + i % 28), "101500", 1 + i % 3,
               std::to_string(1000 + i % 500), descripciones[i % 5], 1 + i % 4, 1, 1.45 * (1 + i % 7),
               1.6 * (1 + i % 7), i % 2, 1 + i % 5, 1234.5 + i);
    }
    return l;
}

inline OVT_ZARO::coleccionColumnasRef ColumnasDeLinea() {
    using namespace OVT_ZARO;
    auto c = std::make_shared<coleccionColumnas>();
    c->Add("CD_ARTICULO", "Código", 0, 0, "", Texto);
    c->Add("DESC_CORTA", "Artículo", 2400, 0, "", Texto);
    c->Add("UDS", "Uds", 900, 0, "", NumDecimal);
    c->Add("ImpVenta_A", "Importe", 1000, 0, "", NumDecimal);
    c->Add("FECHA_REAL", "Fecha", 1200, 0, "", Fecha);
    c->Add("TIPO_FAMILIA", "Familia", 700, 0, "", Entero);
    c->Add("TIPO_UDS", "Unidad", 600, 0, "", Check);
    c->Add("ID_REGISTRO", "Caja", 600, 2, "", TextoFijo);
    return c;
}

}  // namespace zaro_bench
