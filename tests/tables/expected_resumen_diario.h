// The resumen_diario table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraResumenDiario(entresumen_diario& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.CD_OP = 105;
    e.FECHA_CONTABLE = Date::FromParts(2026, 3, 7);
    e.CD_TICKET_I = 107;
    e.CD_TICKET_F = 108;
    e.N_VENTAS = 109;
    e.IMPBRUTO_V = 1.22;
    e.IMPNETO_V = 2.22;
    e.IMPDESCUENTO_V = 3.22;
    e.N_DEVOLUCIONES = 113;
    e.IMPBRUTO_D = 5.22;
    e.IMPNETO_D = 6.22;
    e.IMPDESCUENTO_D = 7.22;
    e.N_ANULACIONES = 117;
    e.IMPBRUTO_A = 0.23;
    e.IMPNETO_A = 1.23;
    e.IMPDESCUENTO_A = 2.23;
    e.N_A_DEVOLUCION = 121;
    e.IMPBRUTO_AD = 4.23;
    e.IMPNETO_AD = 5.23;
    e.IMPDESCUENTO_AD = 6.23;
    e.N_CANCELACIONES = 125;
    e.IMPBRUTO_C = 8.23;
    e.NUM_REG_01 = 127;
    e.idEmpresa = 128;
    e.idRestaurante = 129;
    e.idTPV = 130;
}

inline const Esperado& EsperadoResumenDiario() {
    static const Esperado esp{
        .Tabla = "resumen_diario",
        .ClaseEntidad = "entresumen_diario",
        .ClaseLista = "colresumen_diario",
        .ClaseAdapter = "daresumen_diario",
        .NumCampos = 27,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "CD_OP", "FECHA_CONTABLE",
            "CD_TICKET_I", "CD_TICKET_F", "N_VENTAS", "IMPBRUTO_V", "IMPNETO_V", "IMPDESCUENTO_V", "N_DEVOLUCIONES",
            "IMPBRUTO_D", "IMPNETO_D", "IMPDESCUENTO_D", "N_ANULACIONES", "IMPBRUTO_A", "IMPNETO_A",
            "IMPDESCUENTO_A", "N_A_DEVOLUCION", "IMPBRUTO_AD", "IMPNETO_AD", "IMPDESCUENTO_AD", "N_CANCELACIONES",
            "IMPBRUTO_C", "NUM_REG_01"},
        .CampoVacio = "FECHA_REAL",
        .Requeridos = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "CD_OP", "FECHA_CONTABLE"},
        .Clave = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "CD_OP", "FECHA_CONTABLE"},
        .Fuentes = {"daresumen_diario", "resumen_diarioUpdate", "resumen_diarioIEntidad_SetValor",
            "resumen_diarioIEntidad_SetValorIndice", "resumen_diarioEntidad", " entresumen_diario"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  resumen_diario.COD_TRANSACC , resumen_diario.FECHA_REAL , resumen_diario.HORA_REAL , "
            "resumen_diario.ID_REGISTRO , resumen_diario.CD_OP , resumen_diario.FECHA_CONTABLE , "
            "resumen_diario.CD_TICKET_I , resumen_diario.CD_TICKET_F  , resumen_diario.N_VENTAS , "
            "resumen_diario.IMPBRUTO_V , resumen_diario.IMPNETO_V , resumen_diario.IMPDESCUENTO_V , "
            "resumen_diario.N_DEVOLUCIONES , resumen_diario.IMPBRUTO_D , resumen_diario.IMPNETO_D  , "
            "resumen_diario.IMPDESCUENTO_D , resumen_diario.N_ANULACIONES , resumen_diario.IMPBRUTO_A , "
            "resumen_diario.IMPNETO_A , resumen_diario.IMPDESCUENTO_A , resumen_diario.N_A_DEVOLUCION , "
            "resumen_diario.IMPBRUTO_AD  , resumen_diario.IMPNETO_AD , resumen_diario.IMPDESCUENTO_AD , "
            "resumen_diario.N_CANCELACIONES , resumen_diario.IMPBRUTO_C , "
            "resumen_diario.NUM_REG_01   from resumen_diario ",
        .OrderBy = " order by resumen_diario.COD_TRANSACC , resumen_diario.FECHA_REAL , resumen_diario.ID_REGISTRO , "
            "resumen_diario.CD_OP , resumen_diario.FECHA_CONTABLE ",
        .Insert = "insert into resumen_diario  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_OP, "
            "FECHA_CONTABLE, CD_TICKET_I, CD_TICKET_F , N_VENTAS, IMPBRUTO_V, IMPNETO_V, IMPDESCUENTO_V, "
            "N_DEVOLUCIONES, IMPBRUTO_D, IMPNETO_D , IMPDESCUENTO_D, N_ANULACIONES, IMPBRUTO_A, IMPNETO_A, "
            "IMPDESCUENTO_A, N_A_DEVOLUCION, IMPBRUTO_AD , IMPNETO_AD, IMPDESCUENTO_AD, N_CANCELACIONES, "
            "IMPBRUTO_C, NUM_REG_01, idEmpresa, idRestaurante, idTPV)  values  (101, '2026-03-03', 'T3', 104, "
            "105, '2026-03-07', 107, 108, 109, 1.22, 2.22, 3.22, 113, 5.22, 6.22, 7.22, 117, 0.23, 1.23, 2.23, "
            "121, 4.23, 5.23, 6.23, 125, 8.23, 127, 128, 129, 130)",
        .Update = "update resumen_diario  set HORA_REAL = 'T3'   , CD_TICKET_I = 107   , CD_TICKET_F = 108   , "
            "N_VENTAS = 109   , IMPBRUTO_V = 1.22   , IMPNETO_V = 2.22   , IMPDESCUENTO_V = 3.22   , "
            "N_DEVOLUCIONES = 113   , IMPBRUTO_D = 5.22   , IMPNETO_D = 6.22   , IMPDESCUENTO_D = 7.22   , "
            "N_ANULACIONES = 117   , IMPBRUTO_A = 0.23   , IMPNETO_A = 1.23   , IMPDESCUENTO_A = 2.23   , "
            "N_A_DEVOLUCION = 121   , IMPBRUTO_AD = 4.23   , IMPNETO_AD = 5.23   , IMPDESCUENTO_AD = 6.23   , "
            "N_CANCELACIONES = 125   , IMPBRUTO_C = 8.23   , NUM_REG_01 = 127   , idEmpresa = 128   , "
            "idRestaurante = 129   , "
            "idTPV = 130 where resumen_diario.COD_TRANSACC = 101   and resumen_diario.FECHA_REAL = '2026-03-03'  "
            " and resumen_diario.ID_REGISTRO = 104   and resumen_diario.CD_OP = 105   and "
            "resumen_diario.FECHA_CONTABLE = '2026-03-07'  ",
        .Delete = "delete from resumen_diario  where resumen_diario.COD_TRANSACC = 101   and resumen_diario.FECHA_REAL "
            "= '2026-03-03'   and resumen_diario.ID_REGISTRO = 104   and resumen_diario.CD_OP = 105   and "
            "resumen_diario.FECHA_CONTABLE = '2026-03-07'  ",
        .Existe = "select count(*) from resumen_diario  where resumen_diario.COD_TRANSACC = 101   and "
            "resumen_diario.FECHA_REAL = '2026-03-03'   and resumen_diario.ID_REGISTRO = 104   and "
            "resumen_diario.CD_OP = 105   and resumen_diario.FECHA_CONTABLE = '2026-03-07'  ",
        .Entidad = "select  resumen_diario.COD_TRANSACC , resumen_diario.FECHA_REAL , resumen_diario.HORA_REAL , "
            "resumen_diario.ID_REGISTRO , resumen_diario.CD_OP , resumen_diario.FECHA_CONTABLE , "
            "resumen_diario.CD_TICKET_I , resumen_diario.CD_TICKET_F  , resumen_diario.N_VENTAS , "
            "resumen_diario.IMPBRUTO_V , resumen_diario.IMPNETO_V , resumen_diario.IMPDESCUENTO_V , "
            "resumen_diario.N_DEVOLUCIONES , resumen_diario.IMPBRUTO_D , resumen_diario.IMPNETO_D  , "
            "resumen_diario.IMPDESCUENTO_D , resumen_diario.N_ANULACIONES , resumen_diario.IMPBRUTO_A , "
            "resumen_diario.IMPNETO_A , resumen_diario.IMPDESCUENTO_A , resumen_diario.N_A_DEVOLUCION , "
            "resumen_diario.IMPBRUTO_AD  , resumen_diario.IMPNETO_AD , resumen_diario.IMPDESCUENTO_AD , "
            "resumen_diario.N_CANCELACIONES , resumen_diario.IMPBRUTO_C , "
            "resumen_diario.NUM_REG_01   from resumen_diario  where resumen_diario.COD_TRANSACC = 101   and "
            "resumen_diario.FECHA_REAL = '2026-03-03'   and resumen_diario.ID_REGISTRO = 104   and "
            "resumen_diario.CD_OP = 105   and resumen_diario.FECHA_CONTABLE = '2026-03-07'    order by "
            "resumen_diario.COD_TRANSACC , resumen_diario.FECHA_REAL , resumen_diario.ID_REGISTRO , "
            "resumen_diario.CD_OP , resumen_diario.FECHA_CONTABLE ",
        .CrearTabla = "CREATE TABLE `resumen_diario` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date NOT NULL default '0000-00-00',   `HORA_REAL` varchar(6) default NULL, "
            "  `ID_REGISTRO` int(3) NOT NULL default '0',   `CD_OP` int(8) NOT NULL default '0', "
            "  `FECHA_CONTABLE` date NOT NULL default '0000-00-00',   `CD_TICKET_I` int(8) default NULL, "
            "  `CD_TICKET_F` int(8) default NULL,   `N_VENTAS` int(4) default NULL, "
            "  `IMPBRUTO_V` decimal(7,3) default NULL,   `IMPNETO_V` decimal(7,3) default NULL, "
            "  `IMPDESCUENTO_V` decimal(6,3) default NULL,   `N_DEVOLUCIONES` int(4) default NULL, "
            "  `IMPBRUTO_D` decimal(7,3) default NULL,   `IMPNETO_D` decimal(7,3) default NULL, "
            "  `IMPDESCUENTO_D` decimal(6,3) default NULL,   `N_ANULACIONES` int(4) default NULL, "
            "  `IMPBRUTO_A` decimal(7,3) default NULL,   `IMPNETO_A` decimal(7,3) default NULL, "
            "  `IMPDESCUENTO_A` decimal(6,3) default NULL,   `N_A_DEVOLUCION` int(4) default NULL, "
            "  `IMPBRUTO_AD` decimal(7,3) default NULL,   `IMPNETO_AD` decimal(7,3) default NULL, "
            "  `IMPDESCUENTO_AD` decimal(6,3) default NULL,   `N_CANCELACIONES` int(4) default NULL, "
            "  `IMPBRUTO_C` decimal(7,3) default NULL,   `NUM_REG_01` int(3) default NULL, "
            "  PRIMARY KEY  (`COD_TRANSACC`,`FECHA_REAL`,`ID_REGISTRO`,`CD_OP`,`FECHA_CONTABLE`) ) ENGINE=MyISAM "
            "DEFAULT CHARSET=latin1",
        .TablaDelSitio = {"ALTER TABLE `resumen_diario` ADD COLUMN `idEmpresa` int(11) NOT NULL default '0', "
                          "ADD COLUMN `idRestaurante` int(11) NOT NULL default '0', "
                          "ADD COLUMN `idTPV` int(11) NOT NULL default '0'"},
        // No argument of Add: they stay at 0 or empty.
        .FueraDeAdd = {"idEmpresa", "idRestaurante", "idTPV"},
        // Written by Insert and Update, never read back: they hold 0 after a read.
        .NoLeidos = {"idEmpresa", "idRestaurante", "idTPV"},
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoResumenDiario() {
    using E = entresumen_diario;
    return HacerCaso<daresumen_diario, E, colresumen_diario>(
        EsperadoResumenDiario(), MuestraResumenDiario,
        [](colresumen_diario& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO, m.CD_OP,
            m.FECHA_CONTABLE, m.HORA_REAL, m.CD_TICKET_I, m.CD_TICKET_F, m.N_VENTAS, m.IMPBRUTO_V, m.IMPNETO_V,
            m.IMPDESCUENTO_V, m.N_DEVOLUCIONES, m.IMPBRUTO_D, m.IMPNETO_D, m.IMPDESCUENTO_D, m.N_ANULACIONES,
            m.IMPBRUTO_A, m.IMPNETO_A, m.IMPDESCUENTO_A, m.N_A_DEVOLUCION, m.IMPBRUTO_AD, m.IMPNETO_AD,
            m.IMPDESCUENTO_AD, m.N_CANCELACIONES, m.IMPBRUTO_C, m.NUM_REG_01); },
        [](colresumen_diario& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO, m.CD_OP,
            m.FECHA_CONTABLE); },
        [](colresumen_diario& l, const E& m) { return l.ItemClave(m.CD_OP, m.COD_TRANSACC, m.FECHA_CONTABLE,
            m.FECHA_REAL, m.ID_REGISTRO); },
        [](daresumen_diario& da, const E& m, ConexionArg c) { da.Delete(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO,
            m.CD_OP, m.FECHA_CONTABLE, c); },
        [](daresumen_diario& da, const E& m, ConexionArg c) { return da.Entidad(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.CD_OP, m.FECHA_CONTABLE, c); },
        [](daresumen_diario& da, const E& m, ConexionArg c) { return da.Listar(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.CD_OP, m.FECHA_CONTABLE, c); },
        [](daresumen_diario& da, const E& m, ConexionArg c) { return da.rsListar(m.COD_TRANSACC, m.FECHA_REAL,
            m.ID_REGISTRO, m.CD_OP, m.FECHA_CONTABLE, c); });
}

}  // namespace zaro_tablas
