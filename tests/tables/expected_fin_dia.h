// The fin_dia table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraFinDia(entfin_dia& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.CD_OP = 104;
    e.FECHA_CONTABLE = Date::FromParts(2026, 3, 6);
}

inline const Esperado& EsperadoFinDia() {
    static const Esperado esp{
        .Tabla = "fin_dia",
        .ClaseEntidad = "entfin_dia",
        .ClaseLista = "colfin_dia",
        .ClaseAdapter = "dafin_dia",
        .NumCampos = 5,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "CD_OP", "FECHA_CONTABLE"},
        .CampoVacio = "FECHA_CONTABLE",
        .Requeridos = {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE"},
        .Clave = {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE"},
        .Fuentes = {"dafin_dia", "fin_diaUpdate", "fin_diaIEntidad_SetValor", "fin_diaIEntidad_SetValorIndice",
            "fin_diaEntidad", " entfin_dia"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  fin_dia.COD_TRANSACC , fin_dia.FECHA_REAL , fin_dia.HORA_REAL , fin_dia.CD_OP , "
            "fin_dia.FECHA_CONTABLE   from fin_dia ",
        .OrderBy = " order by fin_dia.COD_TRANSACC , fin_dia.CD_OP , fin_dia.FECHA_CONTABLE ",
        .Insert = "insert into fin_dia  (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, FECHA_CONTABLE)  values  (101, "
            "'2026-03-03', 'T3', 104, '2026-03-06')",
        .Update = "update fin_dia  set FECHA_REAL = '2026-03-03'   , "
            "HORA_REAL = 'T3' where fin_dia.COD_TRANSACC = 101   and fin_dia.CD_OP = 104   and "
            "fin_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Delete = "delete from fin_dia  where fin_dia.COD_TRANSACC = 101   and fin_dia.CD_OP = 104   and "
            "fin_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Existe = "select count(*) from fin_dia  where fin_dia.COD_TRANSACC = 101   and fin_dia.CD_OP = 104   and "
            "fin_dia.FECHA_CONTABLE = '2026-03-06'  ",
        .Entidad = "select  fin_dia.COD_TRANSACC , fin_dia.FECHA_REAL , fin_dia.HORA_REAL , fin_dia.CD_OP , "
            "fin_dia.FECHA_CONTABLE   from fin_dia  where fin_dia.COD_TRANSACC = 101   and fin_dia.CD_OP = 104   "
            "and fin_dia.FECHA_CONTABLE = '2026-03-06'    order by fin_dia.COD_TRANSACC , fin_dia.CD_OP , "
            "fin_dia.FECHA_CONTABLE ",
        .CrearTabla = "CREATE TABLE `fin_dia` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date default NULL,   `HORA_REAL` varchar(6) default NULL, "
            "  `CD_OP` int(8) NOT NULL default '0',   `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "
            "  PRIMARY KEY  (`COD_TRANSACC`,`CD_OP`,`FECHA_CONTABLE`) ) ENGINE=MyISAM DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoFinDia() {
    using E = entfin_dia;
    return HacerCaso<dafin_dia, E, colfin_dia>(
        EsperadoFinDia(), MuestraFinDia,
        [](colfin_dia& l, const E& m) { return l.Add(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE, m.FECHA_REAL,
            m.HORA_REAL); },
        [](colfin_dia& l, const E& m) { return l.Add(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE); },
        [](colfin_dia& l, const E& m) { return l.ItemClave(m.CD_OP, m.COD_TRANSACC, m.FECHA_CONTABLE); },
        [](dafin_dia& da, const E& m, ConexionArg c) { da.Delete(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE, c); },
        [](dafin_dia& da, const E& m, ConexionArg c) { return da.Entidad(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE,
            c); },
        [](dafin_dia& da, const E& m, ConexionArg c) { return da.Listar(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE, c); },
        [](dafin_dia& da, const E& m, ConexionArg c) { return da.rsListar(m.COD_TRANSACC, m.CD_OP, m.FECHA_CONTABLE,
            c); });
}

}  // namespace zaro_tablas
