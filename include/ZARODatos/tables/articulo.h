// The article master: one row per article the point of sale sells, keyed by
// CD_ARTICULO.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class entarticulo : public TableEntity<entarticulo> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t CD_OP = 0;
    int32_t TIPO_OPERACION = 0;
    std::string CD_ARTICULO;
    std::string IDARTICOLGS1;
    int32_t TIPO_FAMILIA = 0;
    int32_t TIPO_SUBFAMILIA = 0;
    double PRECIOMAX = 0;
    std::string DESC_ARTICULO;
    std::string DESC_CORTA;

    static const TablaDef& Def();
};

class colarticulo : public TypedList<colarticulo, entarticulo> {
public:
    EntityRef Add(const std::string& CD_ARTICULO, int32_t COD_TRANSACC = 0, Date FECHA_REAL = {},
                  const std::string& HORA_REAL = {}, int32_t CD_OP = 0, int32_t TIPO_OPERACION = 0,
                  const std::string& IDARTICOLGS1 = {}, int32_t TIPO_FAMILIA = 0, int32_t TIPO_SUBFAMILIA = 0,
                  double PRECIOMAX = 0, const std::string& DESC_ARTICULO = {}, const std::string& DESC_CORTA = {}) {
        return NuevoConArgumentos(CD_ARTICULO, COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, IDARTICOLGS1,
                                  TIPO_FAMILIA, TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA);
    }
    EntityRef ItemClave(const std::string& CD_ARTICULO) { return BuscarClave(CD_ARTICULO); }
};

class daarticulo : public TableAdapter<entarticulo, colarticulo> {
public:
    void Delete(const std::string& CD_ARTICULO, ConexionArg adConexion = {}) {
        BorrarPorClave({Variant(CD_ARTICULO)}, adConexion);
    }
    EntityRef Entidad(const std::string& CD_ARTICULO, ConexionArg adConexion = {}) {
        return EntidadPorClave({Variant(CD_ARTICULO)}, adConexion);
    }
    ListRef Listar(const std::string& CD_ARTICULO = {}, ConexionArg adConexion = {}) {
        return ListarPorClave({Variant(CD_ARTICULO)}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(const std::string& CD_ARTICULO = {}, ConexionArg adConexion = {}) {
        return rsListarPorClave({Variant(CD_ARTICULO)}, adConexion);
    }
};

}  // namespace OVT_ZARO
