#include "ZARODatos/access/DataAdapters.h"

namespace OVT_ZARO {

namespace {
const char* const kTablas[10] = {"_definicion_campos", "articulo", "fin_dia", "inicio_dia",
                                 "resumen_diario", "resumen_diario_detalle", "ticket", "ticket_articulo",
                                 "ticket_impuesto", "ticket_pago"};
}

CollectionRef DataAdapters::Tablas() {
    auto tablas = std::make_shared<Collection>();
    for (const char* t : kTablas) {
        try {
            tablas->Add(Variant(t));
        } catch (...) {
        }
    }
    return tablas;
}

std::shared_ptr<IDataAdapter> DataAdapters::DataAdapter(ByRef<std::string> Nombre) {
    try {
        const std::string& n = *Nombre;
        if (n == kTablas[0]) return definicion_campos();
        if (n == kTablas[1]) return articulo();
        if (n == kTablas[2]) return fin_dia();
        if (n == kTablas[3]) return inicio_dia();
        if (n == kTablas[4]) return resumen_diario();
        if (n == kTablas[5]) return resumen_diario_detalle();
        if (n == kTablas[6]) return ticket();
        if (n == kTablas[7]) return ticket_articulo();
        if (n == kTablas[8]) return ticket_impuesto();
        if (n == kTablas[9]) return ticket_pago();
    } catch (...) {
    }
    return nullptr;
}

void DataAdapters::LiberarMemoria() {
    for (auto& a : adapters_) a.reset();
}

}  // namespace OVT_ZARO
