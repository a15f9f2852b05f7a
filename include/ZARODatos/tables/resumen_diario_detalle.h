// The daily summary by family: one row per transaction, date, register
// number, family, subfamily and tax type. Like the daily summary it carries
// idEmpresa, idRestaurante and idTPV behind its 23 indexed fields, written
// and never read.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entresumen_diario_detalle : public TableEntity<entresumen_diario_detalle> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t ID_REGISTRO = 0;
    int32_t TIPO_FAMILIA = 0;
    int32_t TIPO_SUBFAMILIA = 0;
    int32_t TIPO_FISCAL = 0;
    double ARTICULOS_V = 0;
    double IMPBRUTO_VSFZ = 0;
    double IMPNETO_VSFZ = 0;
    double IMPDESCUENTO_VSFZ = 0;
    double ARTICULOS_D = 0;
    double IMPBRUTO_DSFZ = 0;
    double IMPNETO_DSFZ = 0;
    double IMPDESCUENTO_DSFZ = 0;
    double ARTICULOS_A = 0;
    double IMPBRUTO_ASFZ = 0;
    double IMPNETO_ASFZ = 0;
    double IMPDESCUENTO_ASFZ = 0;
    double ARTICULOS_AD = 0;
    double IMPBRUTO_ADSFZ = 0;
    double IMPNETO_ADSFZ = 0;
    double IMPDESCUENTO_ADSFZ = 0;
    int32_t idEmpresa = 0;
    int32_t idRestaurante = 0;
    int32_t idTPV = 0;

    static const TablaDef& Def();
};

class colresumen_diario_detalle : public TypedList<colresumen_diario_detalle, entresumen_diario_detalle> {
public:
    // idEmpresa, idRestaurante and idTPV have no argument: they stay at 0.
    EntityRef Add(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t TIPO_FAMILIA,
                  int32_t TIPO_SUBFAMILIA, int32_t TIPO_FISCAL, const std::string& HORA_REAL = {},
                  double ARTICULOS_V = 0, double IMPBRUTO_VSFZ = 0, double IMPNETO_VSFZ = 0,
                  double IMPDESCUENTO_VSFZ = 0, double ARTICULOS_D = 0, double IMPBRUTO_DSFZ = 0,
                  double IMPNETO_DSFZ = 0, double IMPDESCUENTO_DSFZ = 0, double ARTICULOS_A = 0,
                  double IMPBRUTO_ASFZ = 0, double IMPNETO_ASFZ = 0, double IMPDESCUENTO_ASFZ = 0,
                  double ARTICULOS_AD = 0, double IMPBRUTO_ADSFZ = 0, double IMPNETO_ADSFZ = 0,
                  double IMPDESCUENTO_ADSFZ = 0) {
        return NuevoConArgumentos(COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL,
                                  HORA_REAL, ARTICULOS_V, IMPBRUTO_VSFZ, IMPNETO_VSFZ, IMPDESCUENTO_VSFZ, ARTICULOS_D,
                                  IMPBRUTO_DSFZ, IMPNETO_DSFZ, IMPDESCUENTO_DSFZ, ARTICULOS_A, IMPBRUTO_ASFZ,
                                  IMPNETO_ASFZ, IMPDESCUENTO_ASFZ, ARTICULOS_AD, IMPBRUTO_ADSFZ, IMPNETO_ADSFZ,
                                  IMPDESCUENTO_ADSFZ);
    }
    // Alphabetical: TIPO_FISCAL before TIPO_SUBFAMILIA, unlike the key.
    EntityRef ItemClave(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t TIPO_FAMILIA,
                        int32_t TIPO_FISCAL, int32_t TIPO_SUBFAMILIA) {
        return BuscarClave(COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_FISCAL, TIPO_SUBFAMILIA);
    }
};

class daresumen_diario_detalle
    : public TableAdapter<entresumen_diario_detalle, colresumen_diario_detalle> {
public:
    void Delete(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t TIPO_FAMILIA,
                int32_t TIPO_SUBFAMILIA, int32_t TIPO_FISCAL, ConexionArg adConexion = {}) {
        BorrarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL},
                       adConexion);
    }
    EntityRef Entidad(int32_t COD_TRANSACC, Date FECHA_REAL, int32_t ID_REGISTRO, int32_t TIPO_FAMILIA,
                      int32_t TIPO_SUBFAMILIA, int32_t TIPO_FISCAL, ConexionArg adConexion = {}) {
        return EntidadPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL},
                               adConexion);
    }
    ListRef Listar(int32_t COD_TRANSACC = 0, Date FECHA_REAL = {}, int32_t ID_REGISTRO = 0, int32_t TIPO_FAMILIA = 0,
                   int32_t TIPO_SUBFAMILIA = 0, int32_t TIPO_FISCAL = 0, ConexionArg adConexion = {}) {
        return ListarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL},
                              adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t COD_TRANSACC = 0, Date FECHA_REAL = {},
                                               int32_t ID_REGISTRO = 0, int32_t TIPO_FAMILIA = 0,
                                               int32_t TIPO_SUBFAMILIA = 0, int32_t TIPO_FISCAL = 0,
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL},
                                adConexion);
    }
};

}  // namespace OVT_ZARO
