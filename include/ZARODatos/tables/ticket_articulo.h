// The article lines of a ticket: one row per line, keyed by the ticket key
// and idLinea. Behind idLinea stand the second and third promotion and
// discount, which NumCampos, SetValor by name, the set list of Update and the
// column definitions treat apart.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entticket_articulo : public TableEntity<entticket_articulo> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    std::string CD_ARTICULO;
    std::string DESC_CORTA;
    int32_t TIPO_FAMILIA = 0;
    int32_t TIPO_SUBFAMILIA = 0;
    double IMPNETO_A = 0;   // column ImpNeto_A
    double IMPBRUTO_A = 0;  // column ImpBruto_A
    int32_t TIPO_UDS = 0;
    double UDS = 0;
    double ImpVenta_A = 0;
    std::string CD_Promocion;
    double porc_descuento_A = 0;
    double imp_descuento_A = 0;
    int32_t TIPO_FISCAL = 0;
    double porc_impuesto_A = 0;
    double imp_impuesto_A = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;
    int32_t idTicket = 0;
    int32_t idLinea = 0;
    std::string CD_PROMOCION_2;
    std::string CD_PROMOCION_3;
    double PORC_DESCUENTO2_A = 0;
    double IMPDESCUENTO2_A = 0;
    double PORC_DESCUENTO3_A = 0;
    double IMPDESCUENTO3_A = 0;

    static const TablaDef& Def();
};

class colticket_articulo : public TypedList<colticket_articulo, entticket_articulo> {
public:
    EntityRef Add(int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket, int32_t idLinea,
                  int32_t COD_TRANSACC = 0, Date FECHA_REAL = {}, const std::string& HORA_REAL = {},
                  int32_t ID_REGISTRO = 0, const std::string& CD_ARTICULO = {}, const std::string& DESC_CORTA = {},
                  int32_t TIPO_FAMILIA = 0, int32_t TIPO_SUBFAMILIA = 0, double IMPNETO_A = 0, double IMPBRUTO_A = 0,
                  int32_t TIPO_UDS = 0, double UDS = 0, double ImpVenta_A = 0, const std::string& CD_Promocion = {},
                  double porc_descuento_A = 0, double imp_descuento_A = 0, int32_t TIPO_FISCAL = 0,
                  double porc_impuesto_A = 0, double imp_impuesto_A = 0, const std::string& CD_PROMOCION_2 = {},
                  const std::string& CD_PROMOCION_3 = {}, double PORC_DESCUENTO2_A = 0, double IMPDESCUENTO2_A = 0,
                  double PORC_DESCUENTO3_A = 0, double IMPDESCUENTO3_A = 0) {
        return NuevoConArgumentos(idEmpresa, idRestaurante, idTPV, idTicket, idLinea, COD_TRANSACC, FECHA_REAL,
                                  HORA_REAL, ID_REGISTRO, CD_ARTICULO, DESC_CORTA, TIPO_FAMILIA, TIPO_SUBFAMILIA,
                                  IMPNETO_A, IMPBRUTO_A, TIPO_UDS, UDS, ImpVenta_A, CD_Promocion, porc_descuento_A,
                                  imp_descuento_A, TIPO_FISCAL, porc_impuesto_A, imp_impuesto_A, CD_PROMOCION_2,
                                  CD_PROMOCION_3, PORC_DESCUENTO2_A, IMPDESCUENTO2_A, PORC_DESCUENTO3_A,
                                  IMPDESCUENTO3_A);
    }
    // Alphabetical, unlike the key: idLinea comes second.
    EntityRef ItemClave(int32_t idEmpresa, int32_t idLinea, int32_t idRestaurante, int32_t idTicket, int32_t idTPV) {
        return BuscarClave(idEmpresa, idLinea, idRestaurante, idTicket, idTPV);
    }
};

class daticket_articulo : public TableAdapter<entticket_articulo, colticket_articulo> {
public:
    void Delete(int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket, int32_t idLinea,
                ConexionArg adConexion = {}) {
        BorrarPorClave({idEmpresa, idRestaurante, idTPV, idTicket, idLinea}, adConexion);
    }
    EntityRef Entidad(int32_t idEmpresa, int32_t idRestaurante, int32_t idTPV, int32_t idTicket, int32_t idLinea,
                      ConexionArg adConexion = {}) {
        return EntidadPorClave({idEmpresa, idRestaurante, idTPV, idTicket, idLinea}, adConexion);
    }
    ListRef Listar(int32_t idEmpresa = 0, int32_t idRestaurante = 0, int32_t idTPV = 0, int32_t idTicket = 0,
                   int32_t idLinea = 0, ConexionArg adConexion = {}) {
        return ListarPorClave({idEmpresa, idRestaurante, idTPV, idTicket, idLinea}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t idEmpresa = 0, int32_t idRestaurante = 0, int32_t idTPV = 0,
                                               int32_t idTicket = 0, int32_t idLinea = 0,
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({idEmpresa, idRestaurante, idTPV, idTicket, idLinea}, adConexion);
    }
};

}  // namespace OVT_ZARO
