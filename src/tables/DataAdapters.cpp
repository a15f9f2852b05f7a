#include "ZARODatos/tables/DataAdapters.h"

namespace OVT_ZARO {

CollectionRef DataAdapters::Tablas() {
    auto tablas = std::make_shared<Collection>();
    LasTablas::ParaCada([&]<class A>(std::type_identity<A>) {
        try {
            tablas->Add(Variant(std::string(NombreDeTabla<A>())));
        } catch (...) {
        }
    });
    return tablas;
}

std::shared_ptr<IDataAdapter> DataAdapters::DataAdapter(ByRef<std::string> Nombre) {
    std::shared_ptr<IDataAdapter> hallado;
    try {
        const std::string& n = *Nombre;
        LasTablas::ParaCada([&]<class A>(std::type_identity<A>) {
            if (!hallado && n == NombreDeTabla<A>()) hallado = Obtener<A>();
        });
    } catch (...) {
    }
    return hallado;
}

void DataAdapters::LiberarMemoria() {
    for (auto& a : adapters_) a.reset();
}

}  // namespace OVT_ZARO
