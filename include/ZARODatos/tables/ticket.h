// The sales ticket: one row per ticket of a point of sale, keyed by company,
// restaurant, terminal and ticket number. Behind idTicket stand 14 fields
// (passenger data, second and third discount, idTPVTransaccion) that reach
// the database but that the index-driven paths (NumCampos 24, text, XML)
// stop short of.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entticket : public TableEntity<entticket> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    int32_t CD_TICKET = 0;
    Date FECHA_CONTABLE;
    int32_t TIPO_VENTA = 0;
    int32_t Tipo_cliente = 0;
    std::string Origen;
    std::string Destino;
    std::string NumVuelo;
    double ImpNeto_T = 0;
    double ImpBruto_T = 0;
    double ImpImpuestos_T = 0;
    double ImpDescuento_T = 0;
    double Porc_descuento = 0;
    int32_t NL_Articulo = 0;
    int32_t NL_Impuestos = 0;
    int32_t NL_FormaPago = 0;
    double N_Articulos = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;
    int32_t idTicket = 0;
    std::string CODNACIONALIDAD;
    std::string COD_ZAROCLI;
    std::string COD_TARJETA;
    std::string COD_CLIE_PAX;
    std::string CORREO_PAX;
    std::string STATUS_PAX;
    std::string FECHA_VUELO;
    std::string NUM_SEAT;
    std::string NUM_CHECKIN;
    double IMPDESCUENTO2_T = 0;
    double PORC_DESCUENTO2_T = 0;
    double IMPDESCUENTO3_T = 0;
    double PORC_DESCUENTO3_T = 0;
    int32_t idTPVTransaccion = 0;

    static const TablaDef& Def();
};

class colticket : public TypedList<colticket, entticket> {
public:
    // The 14 fields behind idTicket have no argument: they stay at 0 or empty.
    EntityRef Add(int32_t CD_TICKET, Date FECHA_CONTABLE, int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV,
                  int32_t idTicket, int32_t COD_TRANSACC = 0, Date FECHA_REAL = {}, const std::string& HORA_REAL = {},
                  int32_t ID_REGISTRO = 0, int32_t TIPO_VENTA = 0, int32_t Tipo_cliente = 0,
                  const std::string& Origen = {}, const std::string& Destino = {}, const std::string& NumVuelo = {},
                  double ImpNeto_T = 0, double ImpBruto_T = 0, double ImpImpuestos_T = 0, double ImpDescuento_T = 0,
                  double Porc_descuento = 0, int32_t NL_Articulo = 0, int32_t NL_Impuestos = 0,
                  int32_t NL_FormaPago = 0, double N_Articulos = 0) {
        return NuevoConArgumentos(CD_TICKET, FECHA_CONTABLE, idEmpresa, idRestaurante, idTPV, idTicket, COD_TRANSACC,
                                  FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_VENTA, Tipo_cliente, Origen, Destino,
                                  NumVuelo, ImpNeto_T, ImpBruto_T, ImpImpuestos_T, ImpDescuento_T, Porc_descuento,
                                  NL_Articulo, NL_Impuestos, NL_FormaPago, N_Articulos);
    }
    // Alphabetical: idTicket before idTPV.
    EntityRef ItemClave(int32_t idEmpresa, int32_t idRestaurante, int32_t idTicket, int32_t idTPV) {
        return BuscarClave(idEmpresa, idRestaurante, idTicket, idTPV);
    }
};

class daticket : public TableAdapter<entticket, colticket> {
public:
    void Delete(int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket,
                ConexionArg adConexion = {}) {
        BorrarPorClave({idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    EntityRef Entidad(int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket,
                      ConexionArg adConexion = {}) {
        return EntidadPorClave({idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    ListRef Listar(int32_t idEmpresa = 0, int32_t idRestaurante = 0, int32_t idTPV = 0, int32_t idTicket = 0,
                   ConexionArg adConexion = {}) {
        return ListarPorClave({idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t idEmpresa = 0, int32_t idRestaurante = 0, int32_t idTPV = 0,
                                               int32_t idTicket = 0, ConexionArg adConexion = {}) {
        return rsListarPorClave({idEmpresa, idRestaurante, idTPV, idTicket}, adConexion);
    }
};

}  // namespace OVT_ZARO
