// The ticket table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraTicket(entticket& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.CD_TICKET = 105;
    e.FECHA_CONTABLE = Date::FromParts(2026, 3, 7);
    e.TIPO_VENTA = 107;
    e.Tipo_cliente = 108;
    e.Origen = "T9";
    e.Destino = "T10";
    e.NumVuelo = "T11";
    e.ImpNeto_T = 3.22;
    e.ImpBruto_T = 4.22;
    e.ImpImpuestos_T = 5.22;
    e.ImpDescuento_T = 6.22;
    e.Porc_descuento = 7.22;
    e.NL_Articulo = 117;
    e.NL_Impuestos = 118;
    e.NL_FormaPago = 119;
    e.N_Articulos = 2.23;
    e.idEmpresa = 121;
    e.idRestaurante = 122;
    e.idTPV = 123;
    e.idTicket = 124;
    e.CODNACIONALIDAD = "T25";
    e.COD_ZAROCLI = "T26";
    e.COD_TARJETA = "T27";
    e.COD_CLIE_PAX = "T28";
    e.CORREO_PAX = "T29";
    e.STATUS_PAX = "E";
    e.FECHA_VUELO = "T31";
    e.NUM_SEAT = "T32";
    e.NUM_CHECKIN = "T33";
    e.IMPDESCUENTO2_T = 7.24;
    e.PORC_DESCUENTO2_T = 8.24;
    e.IMPDESCUENTO3_T = 0.25;
    e.PORC_DESCUENTO3_T = 1.25;
    e.idTPVTransaccion = 138;
}

inline const Esperado& EsperadoTicket() {
    static const Esperado esp{
        .Tabla = "ticket",
        .ClaseEntidad = "entticket",
        .ClaseLista = "colticket",
        .ClaseAdapter = "daticket",
        .NumCampos = 24,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "CD_TICKET", "FECHA_CONTABLE",
            "TIPO_VENTA", "Tipo_cliente", "Origen", "Destino", "NumVuelo", "ImpNeto_T", "ImpBruto_T",
            "ImpImpuestos_T", "ImpDescuento_T", "Porc_descuento", "NL_Articulo", "NL_Impuestos", "NL_FormaPago",
            "N_Articulos", "idEmpresa", "idRestaurante", "idTPV", "idTicket", "CODNACIONALIDAD", "COD_ZAROCLI",
            "COD_TARJETA", "COD_CLIE_PAX", "CORREO_PAX", "STATUS_PAX", "FECHA_VUELO", "NUM_SEAT", "NUM_CHECKIN",
            "IMPDESCUENTO2_T", "PORC_DESCUENTO2_T", "IMPDESCUENTO3_T", "PORC_DESCUENTO3_T", "CODNACIONALIDAD",
            "idTPVTransaccion"},
        .CampoVacio = "CD_TICKET",
        .Requeridos = {"CD_TICKET", "FECHA_CONTABLE", "idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .Clave = {"idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .Fuentes = {"daticket", "ticketUpdate", "ticketIEntidad_SetValor", "ticketIEntidad_SetValorIndice",
            "ticketEntidad", " entticket"},
        .FuenteToXML = " entticket",
        .SelectSQL = "select  ticket.COD_TRANSACC , ticket.FECHA_REAL , ticket.HORA_REAL , ticket.ID_REGISTRO , "
            "ticket.CD_TICKET , ticket.FECHA_CONTABLE , ticket.TIPO_VENTA , ticket.Tipo_cliente  , "
            "ticket.Origen , ticket.Destino , ticket.NumVuelo , ticket.ImpNeto_T , ticket.ImpBruto_T , "
            "ticket.ImpImpuestos_T , ticket.ImpDescuento_T  , ticket.Porc_descuento , ticket.NL_Articulo , "
            "ticket.NL_Impuestos , ticket.NL_FormaPago , ticket.N_Articulos , ticket.idEmpresa , "
            "ticket.idRestaurante  , ticket.idTPV , ticket.idTicket   , ticket.CODNACIONALIDAD  , "
            "ticket.COD_ZAROCLI  , ticket.COD_TARJETA  , ticket.COD_CLIE_PAX  , ticket.CORREO_PAX  , "
            "ticket.STATUS_PAX  , ticket.FECHA_VUELO  , ticket.NUM_SEAT  , ticket.NUM_CHECKIN  , "
            "ticket.IMPDESCUENTO2_T  , ticket.PORC_DESCUENTO2_T  , ticket.IMPDESCUENTO3_T  , "
            "ticket.PORC_DESCUENTO3_T  , ticket.idTPVTransaccion  from ticket ",
        .OrderBy = " order by ticket.idEmpresa , ticket.idRestaurante , ticket.idTPV , ticket.idTicket ",
        .Insert = "insert into ticket  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_TICKET, FECHA_CONTABLE, "
            "TIPO_VENTA, Tipo_cliente , Origen, Destino, NumVuelo, ImpNeto_T, ImpBruto_T, ImpImpuestos_T, "
            "ImpDescuento_T , Porc_descuento, NL_Articulo, NL_Impuestos, NL_FormaPago, N_Articulos, idEmpresa, "
            "idRestaurante , idTPV, idTicket, CODNACIONALIDAD  , COD_ZAROCLI, COD_TARJETA, COD_CLIE_PAX, "
            "CORREO_PAX, STATUS_PAX, FECHA_VUELO, NUM_SEAT, NUM_CHECKIN, IMPDESCUENTO2_T, PORC_DESCUENTO2_T, "
            "IMPDESCUENTO3_T, PORC_DESCUENTO3_T, idTPVTransaccion)  values  (101, '2026-03-03', 'T3', 104, 105, "
            "'2026-03-07', 107, 108, 'T9', 'T10', 'T11', 3.22, 4.22, 5.22, 6.22, 7.22, 117, 118, 119, 2.23, 121, "
            "122, 123, 124, 'T25', 'T26', 'T27', 'T28', 'T29', 'E', 'T31', 'T32', 'T33', 7.24 , 8.24 , 0.25 , "
            "1.25 , 138 )",
        .Update = "update ticket  set CD_TICKET = 105   , FECHA_CONTABLE = '2026-03-07'   , COD_TRANSACC = 101   , "
            "FECHA_REAL = '2026-03-03'   , HORA_REAL = 'T3'   , ID_REGISTRO = 104   , TIPO_VENTA = 107   , "
            "Tipo_cliente = 108   , Origen = 'T9'   , Destino = 'T10'   , NumVuelo = 'T11'   , "
            "ImpNeto_T = 3.22   , ImpBruto_T = 4.22   , ImpImpuestos_T = 5.22   , ImpDescuento_T = 6.22   , "
            "Porc_descuento = 7.22   , NL_Articulo = 117   , NL_Impuestos = 118   , NL_FormaPago = 119   , "
            "N_Articulos = 2.23   , CODNACIONALIDAD = 'T25'   , COD_ZAROCLI = 'T26'   , COD_TARJETA = 'T27'   , "
            "COD_CLIE_PAX = 'T28'   , CORREO_PAX = 'T29'   , STATUS_PAX = 'E'   , FECHA_VUELO = 'T31'   , "
            "NUM_SEAT = 'T32'   , NUM_CHECKIN = 'T33'   , IMPDESCUENTO2_T = 7.24    , "
            "PORC_DESCUENTO2_T = 8.24    , IMPDESCUENTO3_T = 0.25    , PORC_DESCUENTO3_T = 1.25    , "
            "idTPVTransaccion = 138  where ticket.idEmpresa = 121   and ticket.idRestaurante = 122   and "
            "ticket.idTPV = 123   and ticket.idTicket = 124  ",
        .Delete = "delete from ticket  where ticket.idEmpresa = 121   and ticket.idRestaurante = 122   and "
            "ticket.idTPV = 123   and ticket.idTicket = 124  ",
        .Existe = "select count(*) from ticket  where ticket.idEmpresa = 121   and ticket.idRestaurante = 122   and "
            "ticket.idTPV = 123   and ticket.idTicket = 124  ",
        .Entidad = "select  ticket.COD_TRANSACC , ticket.FECHA_REAL , ticket.HORA_REAL , ticket.ID_REGISTRO , "
            "ticket.CD_TICKET , ticket.FECHA_CONTABLE , ticket.TIPO_VENTA , ticket.Tipo_cliente  , "
            "ticket.Origen , ticket.Destino , ticket.NumVuelo , ticket.ImpNeto_T , ticket.ImpBruto_T , "
            "ticket.ImpImpuestos_T , ticket.ImpDescuento_T  , ticket.Porc_descuento , ticket.NL_Articulo , "
            "ticket.NL_Impuestos , ticket.NL_FormaPago , ticket.N_Articulos , ticket.idEmpresa , "
            "ticket.idRestaurante  , ticket.idTPV , ticket.idTicket   , ticket.CODNACIONALIDAD  , "
            "ticket.COD_ZAROCLI  , ticket.COD_TARJETA  , ticket.COD_CLIE_PAX  , ticket.CORREO_PAX  , "
            "ticket.STATUS_PAX  , ticket.FECHA_VUELO  , ticket.NUM_SEAT  , ticket.NUM_CHECKIN  , "
            "ticket.IMPDESCUENTO2_T  , ticket.PORC_DESCUENTO2_T  , ticket.IMPDESCUENTO3_T  , "
            "ticket.PORC_DESCUENTO3_T  , "
            "ticket.idTPVTransaccion  from ticket  where ticket.idEmpresa = 121   and ticket.idRestaurante = 122 "
            "  and ticket.idTPV = 123   and ticket.idTicket = 124    order by ticket.idEmpresa , "
            "ticket.idRestaurante , ticket.idTPV , ticket.idTicket ",
        .CrearTabla = "CREATE TABLE `ticket` (   `COD_TRANSACC` int(5) default NULL,   `FECHA_REAL` date default NULL, "
            "  `HORA_REAL` varchar(6) default NULL,   `ID_REGISTRO` int(3) default NULL, "
            "  `CD_TICKET` int(8) NOT NULL default '0',   `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "
            "  `TIPO_VENTA` int(2) default NULL,   `Tipo_cliente` int(2) default NULL, "
            "  `Origen` varchar(6) default NULL,   `Destino` varchar(6) default NULL, "
            "  `NumVuelo` varchar(10) default NULL,   `ImpNeto_T` decimal(7,3) default NULL, "
            "  `ImpBruto_T` decimal(7,3) default NULL,   `ImpImpuestos_T` decimal(6,3) default NULL, "
            "  `ImpDescuento_T` decimal(6,3) default NULL,   `Porc_descuento` decimal(3,2) default NULL, "
            "  `NL_Articulo` int(3) default NULL,   `NL_Impuestos` int(2) default NULL, "
            "  `NL_FormaPago` int(2) default NULL,   `N_Articulos` decimal(7,3) default NULL, "
            "  `idEmpresa` int(11) NOT NULL default '0',   `idRestaurante` int(11) NOT NULL default '0', "
            "  `idTPV` int(11) NOT NULL default '0',   `idTicket` int(11) NOT NULL default '0', "
            "  `CODNACIONALIDAD` varchar NULL VARCHAR(255),   `COD_ZAROCLI` NULL VARCHAR(10), "
            "  `COD_TARJETA` NULL VARCHAR(32),   `COD_CLIE_PAX` NULL VARCHAR(20), "
            "  `CORREO_PAX` NULL VARCHAR(50),   `STATUS_PAX` NULL VARCHAR(1),   `FECHA_VUELO` NULL VARCHAR(8), "
            "  `NUM_SEAT` NULL VARCHAR(4),   `NUM_CHECKIN` NULL VARCHAR(5), "
            "  `IMPDESCUENTO2_T` NULL DECIMAL(20,3),   `PORC_DESCUENTO2_T` NULL DECIMAL(20,2), "
            "  `IMPDESCUENTO3_T` NULL DECIMAL(20,3),   `PORC_DESCUENTO3_T` NULL DECIMAL(20,2), "
            "  `idTPVTransaccion` NULL INT, "
            "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`) ) ENGINE=MyISAM DEFAULT "
            "CHARSET=latin1",
        // The database refuses the library's statement: the site makes the table itself.
        .CrearTablaCrea = false,
        .TablaDelSitio = {"CREATE TABLE `ticket` (   `COD_TRANSACC` int(5) default NULL,   `FECHA_REAL` date default NULL, "
                          "  `HORA_REAL` varchar(6) default NULL,   `ID_REGISTRO` int(3) default NULL, "
                          "  `CD_TICKET` int(8) NOT NULL default '0',   `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "
                          "  `TIPO_VENTA` int(2) default NULL,   `Tipo_cliente` int(2) default NULL, "
                          "  `Origen` varchar(6) default NULL,   `Destino` varchar(6) default NULL, "
                          "  `NumVuelo` varchar(10) default NULL,   `ImpNeto_T` decimal(7,3) default NULL, "
                          "  `ImpBruto_T` decimal(7,3) default NULL,   `ImpImpuestos_T` decimal(6,3) default NULL, "
                          "  `ImpDescuento_T` decimal(6,3) default NULL,   `Porc_descuento` decimal(3,2) default NULL, "
                          "  `NL_Articulo` int(3) default NULL,   `NL_Impuestos` int(2) default NULL, "
                          "  `NL_FormaPago` int(2) default NULL,   `N_Articulos` decimal(7,3) default NULL, "
                          "  `idEmpresa` int(11) NOT NULL default '0',   `idRestaurante` int(11) NOT NULL default '0', "
                          "  `idTPV` int(11) NOT NULL default '0',   `idTicket` int(11) NOT NULL default '0', "
                          "  `CODNACIONALIDAD` VARCHAR(255) NULL,   `COD_ZAROCLI` VARCHAR(10) NULL, "
                          "  `COD_TARJETA` VARCHAR(32) NULL,   `COD_CLIE_PAX` VARCHAR(20) NULL, "
                          "  `CORREO_PAX` VARCHAR(50) NULL,   `STATUS_PAX` VARCHAR(1) NULL,   `FECHA_VUELO` VARCHAR(8) NULL, "
                          "  `NUM_SEAT` VARCHAR(4) NULL,   `NUM_CHECKIN` VARCHAR(5) NULL, "
                          "  `IMPDESCUENTO2_T` DECIMAL(20,3) NULL,   `PORC_DESCUENTO2_T` DECIMAL(20,2) NULL, "
                          "  `IMPDESCUENTO3_T` DECIMAL(20,3) NULL,   `PORC_DESCUENTO3_T` DECIMAL(20,2) NULL, "
                          "  `idTPVTransaccion` INT NULL, "
                          "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`) ) ENGINE=MyISAM DEFAULT "
                          "CHARSET=latin1"},
        // No argument of Add: they stay at 0 or empty.
        .FueraDeAdd = {"CODNACIONALIDAD", "COD_ZAROCLI", "COD_TARJETA", "COD_CLIE_PAX", "CORREO_PAX", "STATUS_PAX",
            "FECHA_VUELO", "NUM_SEAT", "NUM_CHECKIN", "IMPDESCUENTO2_T", "PORC_DESCUENTO2_T", "IMPDESCUENTO3_T",
            "PORC_DESCUENTO3_T", "idTPVTransaccion"},
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoTicket() {
    using E = entticket;
    return HacerCaso<daticket, E, colticket>(
        EsperadoTicket(), MuestraTicket,
        [](colticket& l, const E& m) { return l.Add(m.CD_TICKET, m.FECHA_CONTABLE, m.idEmpresa, m.idRestaurante,
            m.idTPV, m.idTicket, m.COD_TRANSACC, m.FECHA_REAL, m.HORA_REAL, m.ID_REGISTRO, m.TIPO_VENTA,
            m.Tipo_cliente, m.Origen, m.Destino, m.NumVuelo, m.ImpNeto_T, m.ImpBruto_T, m.ImpImpuestos_T,
            m.ImpDescuento_T, m.Porc_descuento, m.NL_Articulo, m.NL_Impuestos, m.NL_FormaPago, m.N_Articulos); },
        [](colticket& l, const E& m) { return l.Add(m.CD_TICKET, m.FECHA_CONTABLE, m.idEmpresa, m.idRestaurante,
            m.idTPV, m.idTicket); },
        [](colticket& l, const E& m) { return l.ItemClave(m.idEmpresa, m.idRestaurante, m.idTicket, m.idTPV); },
        [](daticket& da, const E& m, ConexionArg c) { da.Delete(m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket& da, const E& m, ConexionArg c) { return da.Entidad(m.idEmpresa, m.idRestaurante, m.idTPV,
            m.idTicket, c); },
        [](daticket& da, const E& m, ConexionArg c) { return da.Listar(m.idEmpresa, m.idRestaurante, m.idTPV,
            m.idTicket, c); },
        [](daticket& da, const E& m, ConexionArg c) { return da.rsListar(m.idEmpresa, m.idRestaurante, m.idTPV,
            m.idTicket, c); });
}

}  // namespace zaro_tablas
