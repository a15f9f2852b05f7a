#include "expected_articulo.h"
#include "expected_definicion_campos.h"
#include "expected_fin_dia.h"
#include "expected_inicio_dia.h"
#include "expected_resumen_diario.h"
#include "expected_resumen_diario_detalle.h"
#include "expected_ticket.h"
#include "expected_ticket_articulo.h"
#include "expected_ticket_impuesto.h"
#include "expected_ticket_pago.h"

namespace zaro_tablas {

// The cases of the ten tables, in the order of the library's one list of them;
// a listed table without its case, or a case of no listed table, stops here.
const std::vector<const CasoTabla*>& Casos() {
    static const std::vector<std::unique_ptr<CasoTabla>> duenos = [] {
        std::vector<std::unique_ptr<CasoTabla>> v;
        v.push_back(CasoDefinicionCampos());
        v.push_back(CasoArticulo());
        v.push_back(CasoFinDia());
        v.push_back(CasoInicioDia());
        v.push_back(CasoResumenDiario());
        v.push_back(CasoResumenDiarioDetalle());
        v.push_back(CasoTicket());
        v.push_back(CasoTicketArticulo());
        v.push_back(CasoTicketImpuesto());
        v.push_back(CasoTicketPago());
        return v;
    }();
    static const std::vector<const CasoTabla*> casos = [] {
        std::vector<const CasoTabla*> v;
        LasTablas::ParaCada([&]<class A>(std::type_identity<A>) {
            for (const auto& c : duenos)
                if (c->esp.Tabla == NombreDeTabla<A>()) v.push_back(c.get());
            if (v.empty() || v.back()->esp.Tabla != NombreDeTabla<A>())
                throw std::logic_error("no case for the table " + std::string(NombreDeTabla<A>()));
        });
        if (v.size() != duenos.size()) throw std::logic_error("a case of a table that is not listed");
        return v;
    }();
    return casos;
}

const CasoTabla& CasoDe(const std::string& tabla) {
    for (const CasoTabla* c : Casos())
        if (c->esp.Tabla == tabla) return *c;
    throw std::runtime_error("no table " + tabla);
}

std::vector<std::string> CamposDistintos(const CasoTabla& caso, IEntidad& a, IEntidad& b) {
    std::vector<std::string> r;
    for (const CampoDef& c : caso.Def().Campos)
        if (!(detail::LeerMiembro(a, c) == detail::LeerMiembro(b, c))) r.push_back(std::string(c.Nombre));
    return r;
}

}  // namespace zaro_tablas
