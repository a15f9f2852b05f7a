// The _definicion_campos table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraDefinicionCampos(ent_definicion_campos& e) {
    e.Tabla = "_definicion_campos";
    e.Campo = "orden";
    e.tipo_dato = "D";
    e.tamano = "T4";
    e.Orden = 105;
    e.EsClave = "G";
    e.visible = "H";
}

inline const Esperado& EsperadoDefinicionCampos() {
    static const Esperado esp{
        .Tabla = "_definicion_campos",
        .ClaseEntidad = "ent_definicion_campos",
        .ClaseLista = "col_definicion_campos",
        .ClaseAdapter = "da_definicion_campos",
        .NumCampos = 7,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"Tabla", "Campo", "tipo_dato", "tamano", "orden", "EsClave", "visible"},
        .CampoVacio = "",
        .Requeridos = {"Tabla", "Campo"},
        .Clave = {"Tabla", "Campo"},
        .Fuentes = {"da_definicion_campos", "_definicion_camposUpdate", "_definicion_camposIEntidad_SetValor",
            "_definicion_camposIEntidad_SetValorIndice", "_definicion_camposEntidad", " ent_definicion_campos"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  _definicion_campos.Tabla , _definicion_campos.Campo , _definicion_campos.tipo_dato , "
            "_definicion_campos.tamano , _definicion_campos.orden , _definicion_campos.EsClave , "
            "_definicion_campos.visible   from _definicion_campos ",
        .OrderBy = " order by _definicion_campos.Tabla , _definicion_campos.Campo ",
        .Insert = "insert into _definicion_campos  (Tabla, Campo, tipo_dato, tamano, orden, EsClave, "
            "visible)  values  ('_definicion_campos', 'orden', 'D', 'T4', 105, 'G', 'H')",
        .Update = "update _definicion_campos  set tipo_dato = 'D'   , tamano = 'T4'   , orden = 105   , "
            "EsClave = 'G'   , "
            "visible = 'H' where _definicion_campos.Tabla = '_definicion_campos'   and _definicion_campos.Campo "
            "= 'orden'  ",
        .Delete = "delete from _definicion_campos  where _definicion_campos.Tabla = '_definicion_campos'   and "
            "_definicion_campos.Campo = 'orden'  ",
        .Existe = "select count(*) from _definicion_campos  where _definicion_campos.Tabla = '_definicion_campos'   "
            "and _definicion_campos.Campo = 'orden'  ",
        .Entidad = "select  _definicion_campos.Tabla , _definicion_campos.Campo , _definicion_campos.tipo_dato , "
            "_definicion_campos.tamano , _definicion_campos.orden , _definicion_campos.EsClave , "
            "_definicion_campos.visible   from _definicion_campos  where _definicion_campos.Tabla = "
            "'_definicion_campos'   and _definicion_campos.Campo = 'orden'    order by _definicion_campos.Tabla "
            ", _definicion_campos.Campo ",
        .CrearTabla = "CREATE TABLE `_definicion_campos` (   `Tabla` varchar(50) NOT NULL default '', "
            "  `Campo` varchar(50) NOT NULL default '',   `tipo_dato` char(1) default NULL, "
            "  `tamano` varchar(10) default NULL,   `orden` int(11) default NULL, "
            "  `EsClave` char(1) default '',   `visible` char(1) default NULL, "
            "  PRIMARY KEY  (`Tabla`,`Campo`) ) ENGINE=MyISAM DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoDefinicionCampos() {
    using E = ent_definicion_campos;
    return HacerCaso<da_definicion_campos, E, col_definicion_campos>(
        EsperadoDefinicionCampos(), MuestraDefinicionCampos,
        [](col_definicion_campos& l, const E& m) { return l.Add(m.Tabla, m.Campo, m.tipo_dato, m.tamano, m.Orden,
            m.EsClave, m.visible); },
        [](col_definicion_campos& l, const E& m) { return l.Add(m.Tabla, m.Campo); },
        [](col_definicion_campos& l, const E& m) { return l.ItemClave(m.Campo, m.Tabla); },
        [](da_definicion_campos& da, const E& m, ConexionArg c) { da.Delete(m.Tabla, m.Campo, c); },
        [](da_definicion_campos& da, const E& m, ConexionArg c) { return da.Entidad(m.Tabla, m.Campo, c); },
        [](da_definicion_campos& da, const E& m, ConexionArg c) { return da.Listar(m.Tabla, m.Campo, c); },
        [](da_definicion_campos& da, const E& m, ConexionArg c) { return da.rsListar(m.Tabla, m.Campo, c); });
}

}  // namespace zaro_tablas
