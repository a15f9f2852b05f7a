// The payments of a ticket: one row per payment, keyed by ID_REGISTRO, the
// payment type TIPO_PAGO and the ticket key.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entticket_pago : public TableEntity<entticket_pago> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    int32_t TIPO_PAGO = 0;
    std::string CD_CLIENTE;
    int32_t Id_ticket_descuento = 0;
    double ImpBruto_P = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;
    int32_t idTicket = 0;

    static const TablaDef& Def();
};

class colticket_pago : public TypedList<colticket_pago, entticket_pago> {
public:
    EntityRef Add(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t TIPO_PAGO, int32_t idEmpresa,
                  int32_t idRestaurante, int32_t idTPV, int32_t idTicket, const std::string& HORA_REAL = {},
                  const std::string& CD_CLIENTE = {}, int32_t Id_ticket_descuento = 0, double ImpBruto_P = 0) {
        return NuevoConArgumentos(COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV,
                                  idTicket, HORA_REAL, CD_CLIENTE, Id_ticket_descuento, ImpBruto_P);
    }
    // Alphabetical without regard to case.
    EntityRef ItemClave(int32_t ID_REGISTRO, int32_t idEmpresa, int32_t idRestaurante, int32_t idTicket, int32_t idTPV,
                        int32_t TIPO_PAGO) {
        return BuscarClave(ID_REGISTRO, idEmpresa, idRestaurante, idTicket, idTPV, TIPO_PAGO);
    }
};

class daticket_pago : public TableAdapter<entticket_pago, colticket_pago> {
public:
    void Delete(int32_t ID_REGISTRO, int32_t TIPO_PAGO, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV,
                int32_t idTicket, ConexionArg adConexion = {}) {
        BorrarPorClave({ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    EntityRef Entidad(int32_t ID_REGISTRO, int32_t TIPO_PAGO, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV,
                      int32_t idTicket, ConexionArg adConexion = {}) {
        return EntidadPorClave({ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    ListRef Listar(int32_t ID_REGISTRO = 0, int32_t TIPO_PAGO = 0, int32_t idEmpresa = 0, int32_t idRestaurante = 0,
                   int32_t idTPV = 0, int32_t idTicket = 0, ConexionArg adConexion = {}) {
        return ListarPorClave({ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t ID_REGISTRO = 0, int32_t TIPO_PAGO = 0, int32_t idEmpresa = 0,
                                               int32_t idRestaurante = 0, int32_t idTPV = 0, int32_t idTicket = 0,
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
};

}  // namespace OVT_ZARO
