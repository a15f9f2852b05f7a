// The field definitions: one row per field of each table, keyed by Tabla and
// Campo. Its column names collide with names of the template: inside GetValor
// and SetValor the name Campo means the argument, not the column; in Delete,
// Listar and rsListar the argument Tabla stands where the adapter's table
// name would.
#pragma once

#include "ZARODatos/access/TableAdapter.h"

namespace OVT_ZARO {

class ent_definicion_campos : public TableEntity<ent_definicion_campos> {
public:
    std::string Tabla;
    std::string Campo;
    std::string tipo_dato;
    std::string tamano;
    int32_t Orden = 0;  // column orden
    std::string EsClave;
    std::string visible;

    static const TablaDef& Def();
};

class col_definicion_campos : public TypedList<col_definicion_campos, ent_definicion_campos> {
public:
    EntityRef Add(const std::string& Tabla, const std::string& Campo, const std::string& tipo_dato = {},
                  const std::string& tamano = {}, int32_t Orden = 0, const std::string& EsClave = {},
                  const std::string& visible = {}) {
        return NuevoConArgumentos(Tabla, Campo, tipo_dato, tamano, Orden, EsClave, visible);
    }
    // Alphabetical: the field name first, the table second.
    EntityRef ItemClave(const std::string& Campo, const std::string& Tabla) { return BuscarClave(Campo, Tabla); }
};

class da_definicion_campos : public TableAdapter<ent_definicion_campos, col_definicion_campos> {
public:
    // The argument Tabla names the table of the statement and prefixes its conditions.
    void Delete(const std::string& Tabla, const std::string& Campo, ConexionArg adConexion = {}) {
        BorrarPorClave({Tabla, Campo}, adConexion, &Tabla);
    }
    EntityRef Entidad(const std::string& Tabla, const std::string& Campo, ConexionArg adConexion = {}) {
        return EntidadPorClave({Tabla, Campo}, adConexion);
    }
    // The argument Tabla prefixes the conditions (an empty one leaves ".Campo").
    ListRef Listar(const std::string& Tabla = {}, const std::string& Campo = {}, ConexionArg adConexion = {}) {
        return ListarPorClave({Tabla, Campo}, adConexion, &Tabla);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(const std::string& Tabla = {}, const std::string& Campo = {},
                                               ConexionArg adConexion = {}) {
        return rsListarPorClave({Tabla, Campo}, adConexion, &Tabla);
    }
};

}  // namespace OVT_ZARO
