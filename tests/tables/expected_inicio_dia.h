// The inicio_dia table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraInicioDia(entinicio_dia& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.CD_OP = 104;
    e.FECHA_CONTABLE = Date::FromParts(2026, 3, 6);
}

inline const Esperado& EsperadoInicioDia() {
    static const Esperado esp{
        .Tabla = "inicio_dia",
        .ClaseEntidad = "entinicio_dia",
        .ClaseLista = "colinicio_dia",
        .ClaseAdapter = "dainicio_dia",
        .NumCampos = 5,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "CD_OP", "FECHA_CONTABLE"},
        .CampoVacio = "FECHA_CONTABLE",
        .Requeridos = {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE"},
        .Clave = {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE"},
        .Fuentes = {"dainicio_dia", "inicio_diaUpdate", "inicio_diaIEntidad_SetValor",
            "inicio_diaIEntidad_SetValorIndice", "inicio_diaEntidad", " entinicio_dia"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  inicio_dia.COD_TRANSACC , inicio_dia.FECHA_REAL , inicio_dia.HORA_REAL , inicio_dia.CD_OP , "
            "inicio_dia.FECHA_CONTABLE   from inicio_dia ",
        .OrderBy = " order by inicio_dia.COD_TRANSACC , inicio_dia.CD_OP , inicio_dia.FECHA_CONTABLE ",
        .Insert = "insert into inicio_dia  (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, FECHA_CONTABLE)  values  (101, "
            "'2026-03-03', 'T3', 104, '2026-03-06')",
        .Update = "update inicio_dia  set FECHA_REAL = '2026-03-03'   , "
            "HORA_REAL = 'T3' where inicio_dia.COD_TRANSACC = 101   and inicio_dia.CD_OP = 104   and "
            "inicio_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Delete = "delete from inicio_dia  where inicio_dia.COD_TRANSACC = 101   and inicio_dia.CD_OP = 104   and "
            "inicio_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Existe = "select count(*) from inicio_dia  where inicio_dia.COD_TRANSACC = 101   and inicio_dia.CD_OP = 104   "
            "and inicio_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Entidad = "select  inicio_dia.COD_TRANSACC , inicio_dia.FECHA_REAL , inicio_dia.HORA_REAL , inicio_dia.CD_OP , "
            "inicio_dia.FECHA_CONTABLE   from inicio_dia  where inicio_dia.COD_TRANSACC = 101   and "
            "inicio_dia.CD_OP = 104   and inicio_dia.FECHA_CONTABLE = '2026-03-06'    order by "
            "inicio_dia.COD_TRANSACC , inicio_dia.CD_OP , inicio_dia.FECHA_CONTABLE ",
        .CrearTabla = "CREATE TABLE `inicio_dia` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date default NULL,   `HORA_REAL` varchar(6) default NULL, "
            "  `CD_OP` int(8) NOT NULL default '0',   `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "
            "  PRIMARY KEY  (`COD_TRANSACC`,`CD_OP`,`FECHA_CONTABLE`) ) ENGINE=MyISAM DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoInicioDia() {
    using E = entinicio_dia;
    return HacerCaso<dainicio_dia, E, colinicio_dia>(
        EsperadoInicioDia(), MuestraInicioDia,
        [](colinicio_dia& l, const E& m) { return l.Add(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE, m.FECHA_REAL,
            m.HORA_REAL); },
        [](colinicio_dia& l, const E& m) { return l.Add(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE); },
        [](colinicio_dia& l, const E& m) { return l.ItemClave(m.CD_OP, m.COD_TRANSACC, m.FECHA_CONTABLE); },
        [](dainicio_dia& da, const E& m, ConexionArg c) { da.Delete(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE, c); },
        [](dainicio_dia& da, const E& m, ConexionArg c) { return da.Entidad(m.COD_TRANSACC, m.CD_OP,
            m.FECHA_CONTABLE, c); },
        [](dainicio_dia& da, const E& m, ConexionArg c) { return da.Listar(m.COD_TRANSACC, m.CD_OP,
            m.FECHA_CONTABLE, c); },
        [](dainicio_dia& da, const E& m, ConexionArg c) { return da.rsListar(m.COD_TRANSACC, m.CD_OP,
            m.FECHA_CONTABLE, c); });
}

}  // namespace zaro_tablas
