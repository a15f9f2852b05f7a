// The start and the end of a trading day: inicio_dia records one row when an
// operator opens an accounting date, fin_dia one when the operator closes it.
// The two tables have the same five fields and differ only in their names,
// so one description serves both (CamposDia, ListaDia, AdapterDia); each
// table has its own classes and its own adapter, and the library does not
// tie a start to an end.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

// The fields of both tables, in column order.
template <class E>
class CamposDia : public TableEntity<E> {
public:
    int32_t COD_TRANSACC = 0;
    Date FECHA_REAL;
    std::string HORA_REAL;
    int32_t CD_OP = 0;
    Date FECHA_CONTABLE;
};

class entinicio_dia : public CamposDia<entinicio_dia> {
public:
    static const TablaDef& Def();
};

class entfin_dia : public CamposDia<entfin_dia> {
public:
    static const TablaDef& Def();
};

template <class Self, class E>
class ListaDia : public TypedList<Self, E> {
public:
    using EntityRef = std::shared_ptr<E>;

    EntityRef Add(int32_t COD_TRANSACC, int32_t CD_OP, Date FECHA_CONTABLE, Date FECHA_REAL = {},
                  const std::string& HORA_REAL = {}) {
        return this->NuevoConArgumentos(COD_TRANSACC, CD_OP, FECHA_CONTABLE, FECHA_REAL, HORA_REAL);
    }
    // Alphabetical, where Add and the key begin with COD_TRANSACC.
    EntityRef ItemClave(int32_t CD_OP, int32_t COD_TRANSACC, Date FECHA_CONTABLE) {
        return this->BuscarClave(CD_OP, COD_TRANSACC, FECHA_CONTABLE);
    }
};

class colinicio_dia : public ListaDia<colinicio_dia, entinicio_dia> {};
class colfin_dia : public ListaDia<colfin_dia, entfin_dia> {};

template <class E, class L>
class AdapterDia : public TableAdapter<E, L> {
public:
    using EntityRef = std::shared_ptr<E>;
    using ListRef = std::shared_ptr<L>;

    void Delete(int32_t COD_TRANSACC, int32_t CD_OP, Date FECHA_CONTABLE, ConexionArg adConexion = {}) {
        this->BorrarPorClave({COD_TRANSACC, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    EntityRef Entidad(int32_t COD_TRANSACC, int32_t CD_OP, Date FECHA_CONTABLE, ConexionArg adConexion = {}) {
        return this->EntidadPorClave({COD_TRANSACC, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    ListRef Listar(int32_t COD_TRANSACC = 0, int32_t CD_OP = 0, Date FECHA_CONTABLE = {},
                   ConexionArg adConexion = {}) {
        return this->ListarPorClave({COD_TRANSACC, CD_OP, FECHA_CONTABLE}, adConexion);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(int32_t COD_TRANSACC = 0, int32_t CD_OP = 0, Date FECHA_CONTABLE = {},
                                               ConexionArg adConexion = {}) {
        return this->rsListarPorClave({COD_TRANSACC, CD_OP, FECHA_CONTABLE}, adConexion);
    }
};

class dainicio_dia : public AdapterDia<entinicio_dia, colinicio_dia> {};
class dafin_dia : public AdapterDia<entfin_dia, colfin_dia> {};

}  // namespace OVT_ZARO
