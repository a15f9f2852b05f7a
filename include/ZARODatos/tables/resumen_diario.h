// The daily summary by operator: one row per transaction, date, register
// number, operator and accounting date. Behind its 27 indexed fields stand
// idEmpresa, idRestaurante and idTPV, which the entity and the writing
// statements know and the reading side does not.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entresumen_diario : public TableEntity<entresumen_diario> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    int32_t CD_OP = 0;
    Date FECHA_CONTABLE;
    int32_t CD_TICKET_I = 0;
    int32_t CD_TICKET_F = 0;
    int32_t N_VENTAS = 0;
    double IMPBRUTO_V = 0;
    double IMPNETO_V = 0;
    double IMPDESCUENTO_V = 0;
    int32_t N_DEVOLUCIONES = 0;
    double IMPBRUTO_D = 0;
    double IMPNETO_D = 0;
    double IMPDESCUENTO_D = 0;
    int32_t N_ANULACIONES = 0;
    double IMPBRUTO_A = 0;
    double IMPNETO_A = 0;
    double IMPDESCUENTO_A = 0;
    int32_t N_A_DEVOLUCION = 0;
    double IMPBRUTO_AD = 0;
    double IMPNETO_AD = 0;
    double IMPDESCUENTO_AD = 0;
    int32_t N_CANCELACIONES = 0;
    double IMPBRUTO_C = 0;
    int32_t NUM_REG_01 = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;

    static const TablaDef& Def();
};

class colresumen_diario : public TypedList<colresumen_diario, entresumen_diario> {
public:
    // idEmpresa, idRestaurante and idTPV have no argument: they stay at 0.
    EntityRef Add(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t CD_OP, Date FECHA_CONTABLE,
                  const std::string& HORA_REAL = {}, int32_t CD_TICKET_I = 0, int32_t CD_TICKET_F = 0,
                  int32_t N_VENTAS = 0, double IMPBRUTO_V = 0, double IMPNETO_V = 0, double IMPDESCUENTO_V = 0,
                  int32_t N_DEVOLUCIONES = 0, double IMPBRUTO_D = 0, double IMPNETO_D = 0, double IMPDESCUENTO_D = 0,
                  int32_t N_ANULACIONES = 0, double IMPBRUTO_A = 0, double IMPNETO_A = 0, double IMPDESCUENTO_A = 0,
                  int32_t N_A_DEVOLUCION = 0, double IMPBRUTO_AD = 0, double IMPNETO_AD = 0,
                  double IMPDESCUENTO_AD = 0, int32_t N_CANCELACIONES = 0, double IMPBRUTO_C = 0,
                  int32_t NUM_REG_01 = 0) {
        return NuevoConArgumentos(COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE, HORA_REAL,
                                  CD_TICKET_I, CD_TICKET_F, N_VENTAS, IMPBRUTO_V, IMPNETO_V, IMPDESCUENTO_V,
                                  N_DEVOLUCIONES, IMPBRUTO_D, IMPNETO_D, IMPDESCUENTO_D, N_ANULACIONES, IMPBRUTO_A,
                                  IMPNETO_A, IMPDESCUENTO_A, N_A_DEVOLUCION, IMPBRUTO_AD, IMPNETO_AD,
                                  IMPDESCUENTO_AD, N_CANCELACIONES, IMPBRUTO_C, NUM_REG_01);
    }
    // Alphabetical, unlike the key.
    EntityRef ItemClave(int32_t CD_OP, int32_t COD_TRANSACC, Date FECHA_CONTABLE, Date FECHA_REAL,
                        int32_t ID_REGISTRO) {
        return BuscarClave(CD_OP, COD_TRANSACC, FECHA_CONTABLE, FECHA_REAL, ID_REGISTRO);
    }
};

class daresumen_diario : public TableAdapter<entresumen_diario, colresumen_diario> {
public:
    void Delete(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t CD_OP, Date FECHA_CONTABLE,
                ConexionArg adConexion = {}) {
        BorrarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    EntityRef Entidad(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t CD_OP, Date FECHA_CONTABLE,
                      ConexionArg adConexion = {}) {
        return EntidadPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    ListRef Listar(int32_t COD_TRANSACC = 0, Date FECHA_REAL = {}, int32_t ID_REGISTRO = 0, int32_t CD_OP = 0,
                   Date FECHA_CONTABLE = {}, ConexionArg adConexion = {}) {
        return ListarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t COD_TRANSACC = 0, Date FECHA_REAL = {},
                                               int32_t ID_REGISTRO = 0, int32_t CD_OP = 0, Date FECHA_CONTABLE = {},
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE}, adConexion);
    }
};

}  // namespace OVT_ZARO
