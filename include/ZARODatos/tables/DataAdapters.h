// DataAdapters: the registry from which a caller gets the adapter of any
// table, by property or by name. It sits above the ten tables and serves
// them in the order of their one list (LasTablas).
//
// It is handed one Connection (Conexion) and creates each adapter on first
// use, giving it the connection as it stands at that moment; later changes
// of Conexion do not reach adapters that already exist until LiberarMemoria
// drops them. Every operation carries on past a failure and raises nothing:
// a failed creation gives no object.
// Ownership: the registry holds one reference per table; callers may keep
// theirs. Thread: one thread at a time.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/tables/Tables.h"

namespace OVT_ZARO {

class DataAdapters : public Object {
public:
    ConnectionRef Conexion;  // initially none

    // A new collection of the ten table names, in a fixed order.
    CollectionRef Tablas();
    // The adapter of the table so named (exact, with regard to case), or no object.
    std::shared_ptr<IDataAdapter> DataAdapter(ByRef<std::string> Nombre);

    std::shared_ptr<da_definicion_campos> definicion_campos() { return Obtener<da_definicion_campos>(); }
    std::shared_ptr<daarticulo> articulo() { return Obtener<daarticulo>(); }
    std::shared_ptr<dafin_dia> fin_dia() { return Obtener<dafin_dia>(); }
    std::shared_ptr<dainicio_dia> inicio_dia() { return Obtener<dainicio_dia>(); }
    std::shared_ptr<daresumen_diario> resumen_diario() { return Obtener<daresumen_diario>(); }
    std::shared_ptr<daresumen_diario_detalle> resumen_diario_detalle() { return Obtener<daresumen_diario_detalle>(); }
    std::shared_ptr<daticket> ticket() { return Obtener<daticket>(); }
    std::shared_ptr<daticket_articulo> ticket_articulo() { return Obtener<daticket_articulo>(); }
    std::shared_ptr<daticket_impuesto> ticket_impuesto() { return Obtener<daticket_impuesto>(); }
    std::shared_ptr<daticket_pago> ticket_pago() { return Obtener<daticket_pago>(); }

    // Drops the ten held adapters; Conexion stays.
    void LiberarMemoria();

    std::string TypeName() const override { return "DataAdapters"; }

private:
    // The held adapter of a listed table, created on first use.
    template <class A>
    std::shared_ptr<A> Obtener() {
        constexpr size_t i = LasTablas::Lugar<A>();
        try {
            if (!adapters_[i]) {
                auto nuevo = std::make_shared<A>();
                nuevo->Conexion = Conexion;
                adapters_[i] = nuevo;
            }
            return std::static_pointer_cast<A>(adapters_[i]);
        } catch (...) {
            return nullptr;
        }
    }

    std::array<std::shared_ptr<AdapterBase>, LasTablas::Cuantas> adapters_;
};

}  // namespace OVT_ZARO
