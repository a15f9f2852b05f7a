// The resumen_diario_detalle table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraResumenDiarioDetalle(entresumen_diario_detalle& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.TIPO_FAMILIA = 105;
    e.TIPO_SUBFAMILIA = 106;
    e.TIPO_FISCAL = 107;
    e.ARTICULOS_V = 8.21;
    e.IMPBRUTO_VSFZ = 0.22;
    e.IMPNETO_VSFZ = 1.22;
    e.IMPDESCUENTO_VSFZ = 2.22;
    e.ARTICULOS_D = 3.22;
    e.IMPBRUTO_DSFZ = 4.22;
    e.IMPNETO_DSFZ = 5.22;
    e.IMPDESCUENTO_DSFZ = 6.22;
    e.ARTICULOS_A = 7.22;
    e.IMPBRUTO_ASFZ = 8.22;
    e.IMPNETO_ASFZ = 0.23;
    e.IMPDESCUENTO_ASFZ = 1.23;
    e.ARTICULOS_AD = 2.23;
    e.IMPBRUTO_ADSFZ = 3.23;
    e.IMPNETO_ADSFZ = 4.23;
    e.IMPDESCUENTO_ADSFZ = 5.23;
    e.idEmpresa = 124;
    e.idRestaurante = 125;
    e.idTPV = 126;
}

inline const Esperado& EsperadoResumenDiarioDetalle() {
    static const Esperado esp{
        .Tabla = "resumen_diario_detalle",
        .ClaseEntidad = "entresumen_diario_detalle",
        .ClaseLista = "colresumen_diario_detalle",
        .ClaseAdapter = "daresumen_diario_detalle",
        .NumCampos = 23,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "TIPO_FAMILIA", "TIPO_SUBFAMILIA",
            "TIPO_FISCAL", "ARTICULOS_V", "IMPBRUTO_VSFZ", "IMPNETO_VSFZ", "IMPDESCUENTO_VSFZ", "ARTICULOS_D",
            "IMPBRUTO_DSFZ", "IMPNETO_DSFZ", "IMPDESCUENTO_DSFZ", "ARTICULOS_A", "IMPBRUTO_ASFZ", "IMPNETO_ASFZ",
            "IMPDESCUENTO_ASFZ", "ARTICULOS_AD", "IMPBRUTO_ADSFZ", "IMPNETO_ADSFZ", "IMPDESCUENTO_ADSFZ"},
        .CampoVacio = "FECHA_REAL",
        .Requeridos = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "TIPO_FISCAL"},
        .Clave = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "TIPO_FISCAL"},
        .Fuentes = {"daresumen_diario_detalle", "resumen_diario_detalleUpdate",
            "resumen_diario_detalleIEntidad_SetValor", "resumen_diario_detalleIEntidad_SetValorIndice",
            "resumen_diario_detalleEntidad", " entresumen_diario_detalle"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  resumen_diario_detalle.COD_TRANSACC , resumen_diario_detalle.FECHA_REAL , "
            "resumen_diario_detalle.HORA_REAL , resumen_diario_detalle.ID_REGISTRO , "
            "resumen_diario_detalle.TIPO_FAMILIA , resumen_diario_detalle.TIPO_SUBFAMILIA , "
            "resumen_diario_detalle.TIPO_FISCAL , resumen_diario_detalle.ARTICULOS_V  , "
            "resumen_diario_detalle.IMPBRUTO_VSFZ , resumen_diario_detalle.IMPNETO_VSFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_VSFZ , resumen_diario_detalle.ARTICULOS_D , "
            "resumen_diario_detalle.IMPBRUTO_DSFZ , resumen_diario_detalle.IMPNETO_DSFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_DSFZ  , resumen_diario_detalle.ARTICULOS_A , "
            "resumen_diario_detalle.IMPBRUTO_ASFZ , resumen_diario_detalle.IMPNETO_ASFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_ASFZ , resumen_diario_detalle.ARTICULOS_AD , "
            "resumen_diario_detalle.IMPBRUTO_ADSFZ , resumen_diario_detalle.IMPNETO_ADSFZ  , "
            "resumen_diario_detalle.IMPDESCUENTO_ADSFZ   from resumen_diario_detalle ",
        .OrderBy = " order by resumen_diario_detalle.COD_TRANSACC , resumen_diario_detalle.FECHA_REAL , "
            "resumen_diario_detalle.ID_REGISTRO , resumen_diario_detalle.TIPO_FAMILIA , "
            "resumen_diario_detalle.TIPO_SUBFAMILIA , resumen_diario_detalle.TIPO_FISCAL ",
        .Insert = "insert into resumen_diario_detalle  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, "
            "TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL, ARTICULOS_V , IMPBRUTO_VSFZ, IMPNETO_VSFZ, "
            "IMPDESCUENTO_VSFZ, ARTICULOS_D, IMPBRUTO_DSFZ, IMPNETO_DSFZ, IMPDESCUENTO_DSFZ , ARTICULOS_A, "
            "IMPBRUTO_ASFZ, IMPNETO_ASFZ, IMPDESCUENTO_ASFZ, ARTICULOS_AD, IMPBRUTO_ADSFZ, IMPNETO_ADSFZ , "
            "IMPDESCUENTO_ADSFZ, idEmpresa, idRestaurante, idTPV)  values  (101, '2026-03-03', 'T3', 104, 105, "
            "106, 107, 8.21, 0.22, 1.22, 2.22, 3.22, 4.22, 5.22, 6.22, 7.22, 8.22, 0.23, 1.23, 2.23, 3.23, 4.23, "
            "5.23, 124, 125, 126)",
        .Update = "update resumen_diario_detalle  set HORA_REAL = 'T3'   , ARTICULOS_V = 8.21   , "
            "IMPBRUTO_VSFZ = 0.22   , IMPNETO_VSFZ = 1.22   , IMPDESCUENTO_VSFZ = 2.22   , "
            "ARTICULOS_D = 3.22   , IMPBRUTO_DSFZ = 4.22   , IMPNETO_DSFZ = 5.22   , "
            "IMPDESCUENTO_DSFZ = 6.22   , ARTICULOS_A = 7.22   , IMPBRUTO_ASFZ = 8.22   , "
            "IMPNETO_ASFZ = 0.23   , IMPDESCUENTO_ASFZ = 1.23   , ARTICULOS_AD = 2.23   , "
            "IMPBRUTO_ADSFZ = 3.23   , IMPNETO_ADSFZ = 4.23   , IMPDESCUENTO_ADSFZ = 5.23   , "
            "idEmpresa = 124   , idRestaurante = 125   , "
            "idTPV = 126 where resumen_diario_detalle.COD_TRANSACC = 101   and resumen_diario_detalle.FECHA_REAL "
            "= '2026-03-03'   and resumen_diario_detalle.ID_REGISTRO = 104   and "
            "resumen_diario_detalle.TIPO_FAMILIA = 105   and resumen_diario_detalle.TIPO_SUBFAMILIA = 106   and "
            "resumen_diario_detalle.TIPO_FISCAL = 107  ",
        .Delete = "delete from resumen_diario_detalle  where resumen_diario_detalle.COD_TRANSACC = 101   and "
            "resumen_diario_detalle.FECHA_REAL = '2026-03-03'   and resumen_diario_detalle.ID_REGISTRO = 104   "
            "and resumen_diario_detalle.TIPO_FAMILIA = 105   and resumen_diario_detalle.TIPO_SUBFAMILIA = 106   "
            "and resumen_diario_detalle.TIPO_FISCAL = 107  ",
        .Existe = "select count(*) from resumen_diario_detalle  where resumen_diario_detalle.COD_TRANSACC = 101   and "
            "resumen_diario_detalle.FECHA_REAL = '2026-03-03'   and resumen_diario_detalle.ID_REGISTRO = 104   "
            "and resumen_diario_detalle.TIPO_FAMILIA = 105   and resumen_diario_detalle.TIPO_SUBFAMILIA = 106   "
            "and resumen_diario_detalle.TIPO_FISCAL = 107  ",
        .Entidad = "select  resumen_diario_detalle.COD_TRANSACC , resumen_diario_detalle.FECHA_REAL , "
            "resumen_diario_detalle.HORA_REAL , resumen_diario_detalle.ID_REGISTRO , "
            "resumen_diario_detalle.TIPO_FAMILIA , resumen_diario_detalle.TIPO_SUBFAMILIA , "
            "resumen_diario_detalle.TIPO_FISCAL , resumen_diario_detalle.ARTICULOS_V  , "
            "resumen_diario_detalle.IMPBRUTO_VSFZ , resumen_diario_detalle.IMPNETO_VSFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_VSFZ , resumen_diario_detalle.ARTICULOS_D , "
            "resumen_diario_detalle.IMPBRUTO_DSFZ , resumen_diario_detalle.IMPNETO_DSFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_DSFZ  , resumen_diario_detalle.ARTICULOS_A , "
            "resumen_diario_detalle.IMPBRUTO_ASFZ , resumen_diario_detalle.IMPNETO_ASFZ , "
            "resumen_diario_detalle.IMPDESCUENTO_ASFZ , resumen_diario_detalle.ARTICULOS_AD , "
            "resumen_diario_detalle.IMPBRUTO_ADSFZ , resumen_diario_detalle.IMPNETO_ADSFZ  , "
            "resumen_diario_detalle.IMPDESCUENTO_ADSFZ   from resumen_diario_detalle  where "
            "resumen_diario_detalle.COD_TRANSACC = 101   and resumen_diario_detalle.FECHA_REAL = '2026-03-03'   "
            "and resumen_diario_detalle.ID_REGISTRO = 104   and resumen_diario_detalle.TIPO_FAMILIA = 105   and "
            "resumen_diario_detalle.TIPO_SUBFAMILIA = 106   and resumen_diario_detalle.TIPO_FISCAL = 107    "
            "order by resumen_diario_detalle.COD_TRANSACC , resumen_diario_detalle.FECHA_REAL , "
            "resumen_diario_detalle.ID_REGISTRO , resumen_diario_detalle.TIPO_FAMILIA , "
            "resumen_diario_detalle.TIPO_SUBFAMILIA , resumen_diario_detalle.TIPO_FISCAL ",
        .CrearTabla = "CREATE TABLE `resumen_diario_detalle` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date NOT NULL default '0000-00-00',   `HORA_REAL` varchar(6) default NULL, "
            "  `ID_REGISTRO` int(3) NOT NULL default '0',   `TIPO_FAMILIA` int(3) NOT NULL default '0', "
            "  `TIPO_SUBFAMILIA` int(4) NOT NULL default '0',   `TIPO_FISCAL` int(2) NOT NULL default '0', "
            "  `ARTICULOS_V` decimal(7,3) default NULL,   `IMPBRUTO_VSFZ` decimal(7,3) default NULL, "
            "  `IMPNETO_VSFZ` decimal(7,3) default NULL,   `IMPDESCUENTO_VSFZ` decimal(6,3) default NULL, "
            "  `ARTICULOS_D` decimal(7,3) default NULL,   `IMPBRUTO_DSFZ` decimal(7,3) default NULL, "
            "  `IMPNETO_DSFZ` decimal(7,3) default NULL,   `IMPDESCUENTO_DSFZ` decimal(6,3) default NULL, "
            "  `ARTICULOS_A` decimal(7,3) default NULL,   `IMPBRUTO_ASFZ` decimal(7,3) default NULL, "
            "  `IMPNETO_ASFZ` decimal(7,3) default NULL,   `IMPDESCUENTO_ASFZ` decimal(6,3) default NULL, "
            "  `ARTICULOS_AD` decimal(7,3) default NULL,   `IMPBRUTO_ADSFZ` decimal(7,3) default NULL, "
            "  `IMPNETO_ADSFZ` decimal(7,3) default NULL,   `IMPDESCUENTO_ADSFZ` decimal(6,3) default NULL, "
            "  PRIMARY KEY  "
            "(`COD_TRANSACC`,`FECHA_REAL`,`ID_REGISTRO`,`TIPO_FAMILIA`,`TIPO_SUBFAMILIA`,`TIPO_FISCAL`) ) "
            "ENGINE=MyISAM DEFAULT CHARSET=latin1",
        .TablaDelSitio = {"ALTER TABLE `resumen_diario_detalle` ADD COLUMN `idEmpresa` int(11) NOT NULL default '0', "
                          "ADD COLUMN `idRestaurante` int(11) NOT NULL default '0', "
                          "ADD COLUMN `idTPV` int(11) NOT NULL default '0'"},
        // No argument of Add: they stay at 0 or empty.
        .FueraDeAdd = {"idEmpresa", "idRestaurante", "idTPV"},
        // Written by Insert and Update, never read back: they hold 0 after a read.
        .NoLeidos = {"idEmpresa", "idRestaurante", "idTPV"},
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoResumenDiarioDetalle() {
    using E = entresumen_diario_detalle;
    return HacerCaso<daresumen_diario_detalle, E, colresumen_diario_detalle>(
        EsperadoResumenDiarioDetalle(), MuestraResumenDiarioDetalle,
        [](colresumen_diario_detalle& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO,
            m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL, m.HORA_REAL, m.ARTICULOS_V, m.IMPBRUTO_VSFZ,
            m.IMPNETO_VSFZ, m.IMPDESCUENTO_VSFZ, m.ARTICULOS_D, m.IMPBRUTO_DSFZ, m.IMPNETO_DSFZ,
            m.IMPDESCUENTO_DSFZ, m.ARTICULOS_A, m.IMPBRUTO_ASFZ, m.IMPNETO_ASFZ, m.IMPDESCUENTO_ASFZ,
            m.ARTICULOS_AD, m.IMPBRUTO_ADSFZ, m.IMPNETO_ADSFZ, m.IMPDESCUENTO_ADSFZ); },
        [](colresumen_diario_detalle& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO,
            m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL); },
        [](colresumen_diario_detalle& l, const E& m) { return l.ItemClave(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.TIPO_FAMILIA, m.TIPO_FISCAL, m.TIPO_SUBFAMILIA); },
        [](daresumen_diario_detalle& da, const E& m, ConexionArg c) { da.Delete(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL, c); },
        [](daresumen_diario_detalle& da, const E& m, ConexionArg c) { return da.Entidad(m.COD_TRANSACC,
            m.FECHA_REAL, m.ID_REGISTRO, m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL, c); },
        [](daresumen_diario_detalle& da, const E& m, ConexionArg c) { return da.Listar(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL, c); },
        [](daresumen_diario_detalle& da, const E& m, ConexionArg c) { return da.rsListar(m.COD_TRANSACC,
            m.FECHA_REAL, m.ID_REGISTRO, m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.TIPO_FISCAL, c); });
}

}  // namespace zaro_tablas
