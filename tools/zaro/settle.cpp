#include "settle.h"

#include <chrono>
#include <thread>

namespace zaro {

bool MayHaveBeenApplied(const Error& e) {
    switch (e.Number) {
        case 20:    // the engine's own "disk is full"
        case 1021:  // disk full
        case 1053:  // the server is shutting down
        case 1317:  // the statement was interrupted
        case 2006:  // the server has gone away
        case 2013:  // lost connection (or no answer within the command timeout)
        case 2055:  // lost connection, system error
            return true;
        default:
            return false;
    }
}

std::shared_ptr<entarticulo> StoredRow(daarticulo& da, entarticulo& e) { return da.Entidad(e.CD_ARTICULO); }
std::shared_ptr<ent_definicion_campos> StoredRow(da_definicion_campos& da, ent_definicion_campos& e) {
    return da.Entidad(e.Tabla, e.Campo);
}
std::shared_ptr<entinicio_dia> StoredRow(dainicio_dia& da, entinicio_dia& e) {
    return da.Entidad(e.COD_TRANSACC, e.CD_OP, e.FECHA_CONTABLE);
}
std::shared_ptr<entfin_dia> StoredRow(dafin_dia& da, entfin_dia& e) {
    return da.Entidad(e.COD_TRANSACC, e.CD_OP, e.FECHA_CONTABLE);
}
std::shared_ptr<entresumen_diario> StoredRow(daresumen_diario& da, entresumen_diario& e) {
    return da.Entidad(e.COD_TRANSACC, e.FECHA_REAL, e.ID_REGISTRO, e.CD_OP, e.FECHA_CONTABLE);
}
std::shared_ptr<entresumen_diario_detalle> StoredRow(daresumen_diario_detalle& da, entresumen_diario_detalle& e) {
    return da.Entidad(e.COD_TRANSACC, e.FECHA_REAL, e.ID_REGISTRO, e.TIPO_FAMILIA, e.TIPO_SUBFAMILIA, e.TIPO_FISCAL);
}
std::shared_ptr<entticket> StoredRow(daticket& da, entticket& e) {
    return da.Entidad(e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
}
std::shared_ptr<entticket_articulo> StoredRow(daticket_articulo& da, entticket_articulo& e) {
    return da.Entidad(e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket, e.idLinea);
}
std::shared_ptr<entticket_impuesto> StoredRow(daticket_impuesto& da, entticket_impuesto& e) {
    return da.Entidad(e.porc_impuesto, e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
}
std::shared_ptr<entticket_pago> StoredRow(daticket_pago& da, entticket_pago& e) {
    return da.Entidad(e.ID_REGISTRO, e.TIPO_PAGO, e.idEmpresa, e.idRestaurante, e.idTPV, e.idTicket);
}

void PauseBeforeLookingAgain() { std::this_thread::sleep_for(std::chrono::seconds(1)); }

namespace {
std::string Rows(size_t n) { return std::to_string(n) + (n == 1 ? " row" : " rows"); }
}  // namespace

std::string FateReport(Fate fate, size_t line, size_t saved, const std::string& why) {
    const std::string l = "line " + std::to_string(line);
    switch (fate) {
        case Fate::Saved:
            return l + " was saved all the same (the table holds it); " + Rows(saved) +
                   " saved stay saved, the lines after it were not tried";
        case Fate::NotSaved:
            return l + " was not saved (" + (why.empty() ? std::string("the table does not hold it") : why) + "); " +
                   Rows(saved) + " saved before it " +
                   (saved == 1 ? "stays" : "stay") + " saved, the lines after it were not tried";
        case Fate::Unknown:
            return "whether " + l + " was saved is unknown" + (why.empty() ? std::string() : " (" + why + ")") +
                   "; " + Rows(saved) + " saved before it " + (saved == 1 ? "stays" : "stay") +
                   " saved, the lines after it were not tried; look for " + l + " in the table once " +
                   (why.find("disk") != std::string::npos ? "there is space" : "the database is back");
        case Fate::NotChecked:
            break;
    }
    return Rows(saved) + " saved before it " + (saved == 1 ? "stays" : "stay") +
           " saved, the lines after it were not tried";
}

}  // namespace zaro
