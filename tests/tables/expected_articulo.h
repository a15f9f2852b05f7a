// The articulo table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraArticulo(entarticulo& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.CD_OP = 104;
    e.TIPO_OPERACION = 105;
    e.CD_ARTICULO = "T6";
    e.IDARTICOLGS1 = "T7";
    e.TIPO_FAMILIA = 108;
    e.TIPO_SUBFAMILIA = 109;
    e.PRECIOMAX = 1.22;
    e.DESC_ARTICULO = "T11";
    e.DESC_CORTA = "T12";
}

inline const Esperado& EsperadoArticulo() {
    static const Esperado esp{
        .Tabla = "articulo",
        .ClaseEntidad = "entarticulo",
        .ClaseLista = "colarticulo",
        .ClaseAdapter = "daarticulo",
        .NumCampos = 12,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "CD_OP", "TIPO_OPERACION", "CD_ARTICULO",
            "IDARTICOLGS1", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "PRECIOMAX", "DESC_ARTICULO", "DESC_CORTA"},
        .CampoVacio = "DESC_ARTICULO",
        .Requeridos = {"CD_ARTICULO"},
        .Clave = {"CD_ARTICULO"},
        .Fuentes = {"daarticulo", "articuloUpdate", "articuloIEntidad_SetValor", "articuloIEntidad_SetValorIndice",
            "articuloEntidad", " entarticulo"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  articulo.COD_TRANSACC , articulo.FECHA_REAL , articulo.HORA_REAL , articulo.CD_OP , "
            "articulo.TIPO_OPERACION , articulo.CD_ARTICULO , articulo.IDARTICOLGS1 , articulo.TIPO_FAMILIA  , "
            "articulo.TIPO_SUBFAMILIA , articulo.PRECIOMAX , articulo.DESC_ARTICULO , "
            "articulo.DESC_CORTA   from articulo ",
        .OrderBy = " order by articulo.CD_ARTICULO ",
        .Insert = "insert into articulo  (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, "
            "IDARTICOLGS1, TIPO_FAMILIA , TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA)  values  (101, "
            "'2026-03-03', 'T3', 104, 105, 'T6', 'T7', 108, 109, 1.22, 'T11', 'T12')",
        .Update = "update articulo  set COD_TRANSACC = 101   , FECHA_REAL = '2026-03-03'   , HORA_REAL = 'T3'   , "
            "CD_OP = 104   , TIPO_OPERACION = 105   , IDARTICOLGS1 = 'T7'   , TIPO_FAMILIA = 108   , "
            "TIPO_SUBFAMILIA = 109   , PRECIOMAX = 1.22   , DESC_ARTICULO = 'T11'   , "
            "DESC_CORTA = 'T12' where articulo.CD_ARTICULO = 'T6'  ",
        .Delete = "delete from articulo  where articulo.CD_ARTICULO = 'T6'  ",
        .Existe = "select count(*) from articulo  where articulo.CD_ARTICULO = 'T6'  ",
        .Entidad = "select  articulo.COD_TRANSACC , articulo.FECHA_REAL , articulo.HORA_REAL , articulo.CD_OP , "
            "articulo.TIPO_OPERACION , articulo.CD_ARTICULO , articulo.IDARTICOLGS1 , articulo.TIPO_FAMILIA  , "
            "articulo.TIPO_SUBFAMILIA , articulo.PRECIOMAX , articulo.DESC_ARTICULO , "
            "articulo.DESC_CORTA   from articulo  where articulo.CD_ARTICULO = 'T6'    order by "
            "articulo.CD_ARTICULO ",
        .CrearTabla = "CREATE TABLE `articulo` (   `COD_TRANSACC` int(5) default NULL,   `FECHA_REAL` date default NULL, "
            "  `HORA_REAL` varchar(6) default NULL,   `CD_OP` int(5) default NULL, "
            "  `TIPO_OPERACION` int(2) default NULL,   `CD_ARTICULO` varchar(15) NOT NULL default '0', "
            "  `IDARTICOLGS1` varchar(15) default NULL,   `TIPO_FAMILIA` int(3) default NULL, "
            "  `TIPO_SUBFAMILIA` int(4) default NULL,   `PRECIOMAX` decimal(5,3) default NULL, "
            "  `DESC_ARTICULO` varchar(50) default NULL,   `DESC_CORTA` varchar(25) default NULL, "
            "  PRIMARY KEY  (`CD_ARTICULO`) ) ENGINE=MyISAM DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoArticulo() {
    using E = entarticulo;
    return HacerCaso<daarticulo, E, colarticulo>(
        EsperadoArticulo(), MuestraArticulo,
        [](colarticulo& l, const E& m) { return l.Add(m.CD_ARTICULO, m.COD_TRANSACC, m.FECHA_REAL, m.HORA_REAL,
            m.CD_OP, m.TIPO_OPERACION, m.IDARTICOLGS1, m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.PRECIOMAX,
            m.DESC_ARTICULO, m.DESC_CORTA); },
        [](colarticulo& l, const E& m) { return l.Add(m.CD_ARTICULO); },
        [](colarticulo& l, const E& m) { return l.ItemClave(m.CD_ARTICULO); },
        [](daarticulo& da, const E& m, ConexionArg c) { da.Delete(m.CD_ARTICULO, c); },
        [](daarticulo& da, const E& m, ConexionArg c) { return da.Entidad(m.CD_ARTICULO, c); },
        [](daarticulo& da, const E& m, ConexionArg c) { return da.Listar(m.CD_ARTICULO, c); },
        [](daarticulo& da, const E& m, ConexionArg c) { return da.rsListar(m.CD_ARTICULO, c); });
}

}  // namespace zaro_tablas
