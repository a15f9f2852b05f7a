// The taxes of a ticket: one row per rate on a ticket, keyed by the rate
// porc_impuesto (a double) and the ticket key.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entticket_impuesto : public TableEntity<entticket_impuesto> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    int32_t TIPO_IMPUESTO = 0;
    double porc_impuesto = 0;
    double imp_impuesto = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;
    int32_t idTicket = 0;

    static const TablaDef& Def();
};

class colticket_impuesto : public TypedList<colticket_impuesto, entticket_impuesto> {
public:
    EntityRef Add(int32_t COD_TRANSACC, Date FECHA_REAL, const std::string& HORA_REAL, int32_t TIPO_IMPUESTO,
                  double porc_impuesto, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket,
                  int32_t ID_REGISTRO = 0, double imp_impuesto = 0) {
        return NuevoConArgumentos(COD_TRANSACC, FECHA_REAL, HORA_REAL, TIPO_IMPUESTO, porc_impuesto, idEmpresa,
                                  idRestaurante, idTPV, idTicket, ID_REGISTRO, imp_impuesto);
    }
    // Alphabetical: the rate comes last, where the key has it first.
    EntityRef ItemClave(int32_t idEmpresa, int32_t idRestaurante, int32_t idTicket, int32_t idTPV,
                        double porc_impuesto) {
        return BuscarClave(idEmpresa, idRestaurante, idTicket, idTPV, porc_impuesto);
    }
};

class daticket_impuesto : public TableAdapter<entticket_impuesto, colticket_impuesto> {
public:
    void Delete(double porc_impuesto, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket,
                ConexionArg adConexion = {}) {
        BorrarPorClave({porc_impuesto, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    EntityRef Entidad(double porc_impuesto, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket,
                      ConexionArg adConexion = {}) {
        return EntidadPorClave({porc_impuesto, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    ListRef Listar(double porc_impuesto = 0, int32_t idEmpresa = 0, int32_t idRestaurante = 0, int32_t idTPV = 0,
                   int32_t idTicket = 0, ConexionArg adConexion = {}) {
        return ListarPorClave({porc_impuesto, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(double porc_impuesto = 0, int32_t idEmpresa = 0,
                                               int32_t idRestaurante = 0, int32_t idTPV = 0, int32_t idTicket = 0,
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({porc_impuesto, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
};

}  // namespace OVT_ZARO
