// The ticket_articulo table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"
#include "support/site_tables.h"

namespace zaro_tablas {

inline void MuestraTicketArticulo(entticket_articulo& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.CD_ARTICULO = "T5";
    e.DESC_CORTA = "T6";
    e.TIPO_FAMILIA = 107;
    e.TIPO_SUBFAMILIA = 108;
    e.IMPNETO_A = 0.22;
    e.IMPBRUTO_A = 1.22;
    e.TIPO_UDS = 111;
    e.UDS = 3.22;
    e.ImpVenta_A = 4.22;
    e.CD_Promocion = "T14";
    e.porc_descuento_A = 6.22;
    e.imp_descuento_A = 7.22;
    e.TIPO_FISCAL = 117;
    e.porc_impuesto_A = 0.23;
    e.imp_impuesto_A = 1.23;
    e.idEmpresa = 120;
    e.idRestaurante = 121;
    e.idTPV = 122;
    e.idTicket = 123;
    e.idLinea = 124;
    e.CD_PROMOCION_2 = "T25";
    e.CD_PROMOCION_3 = "T26";
    e.PORC_DESCUENTO2_A = 0.24;
    e.IMPDESCUENTO2_A = 1.24;
    e.PORC_DESCUENTO3_A = 2.24;
    e.IMPDESCUENTO3_A = 3.24;
}

inline const Esperado& EsperadoTicketArticulo() {
    static const Esperado esp{
        .Tabla = "ticket_articulo",
        .ClaseEntidad = "entticket_articulo",
        .ClaseLista = "colticket_articulo",
        .ClaseAdapter = "daticket_articulo",
        .NumCampos = 24,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "CD_ARTICULO", "DESC_CORTA",
            "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "ImpNeto_A", "ImpBruto_A", "TIPO_UDS", "UDS", "ImpVenta_A",
            "CD_Promocion", "porc_descuento_A", "imp_descuento_A", "TIPO_FISCAL", "porc_impuesto_A",
            "imp_impuesto_A", "idEmpresa", "idRestaurante", "idTPV", "idTicket", "idLinea", "CD_PROMOCION_2",
            "CD_PROMOCION_3", "PORC_DESCUENTO2_A", "IMPDESCUENTO2_A", "PORC_DESCUENTO3_A", "IMPDESCUENTO3_A"},
        .CampoVacio = "CD_ARTICULO",
        .Requeridos = {"idEmpresa", "idRestaurante", "idTPV", "idTicket", "idLinea"},
        .Clave = {"idEmpresa", "idRestaurante", "idTPV", "idTicket", "idLinea"},
        .Fuentes = {"daticket_articulo", "ticket_articuloUpdate", "ticket_articuloIEntidad_SetValor",
            "ticket_articuloIEntidad_SetValorIndice", "ticket_articuloEntidad", " entticket_articulo"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  ticket_articulo.COD_TRANSACC , ticket_articulo.FECHA_REAL , ticket_articulo.HORA_REAL , "
            "ticket_articulo.ID_REGISTRO , ticket_articulo.CD_ARTICULO , ticket_articulo.DESC_CORTA , "
            "ticket_articulo.TIPO_FAMILIA , ticket_articulo.TIPO_SUBFAMILIA  , ticket_articulo.ImpNeto_A , "
            "ticket_articulo.ImpBruto_A , ticket_articulo.TIPO_UDS , ticket_articulo.UDS , "
            "ticket_articulo.ImpVenta_A , ticket_articulo.CD_Promocion , ticket_articulo.porc_descuento_A  , "
            "ticket_articulo.imp_descuento_A , ticket_articulo.TIPO_FISCAL , ticket_articulo.porc_impuesto_A , "
            "ticket_articulo.imp_impuesto_A , ticket_articulo.idEmpresa , ticket_articulo.idRestaurante , "
            "ticket_articulo.idTPV  , ticket_articulo.idTicket , ticket_articulo.idLinea   , "
            "ticket_articulo.CD_PROMOCION_2  , ticket_articulo.CD_PROMOCION_3  , "
            "ticket_articulo.PORC_DESCUENTO2_A  , ticket_articulo.IMPDESCUENTO2_A  , "
            "ticket_articulo.PORC_DESCUENTO3_A  , ticket_articulo.IMPDESCUENTO3_A  from ticket_articulo ",
        .OrderBy = " order by ticket_articulo.idEmpresa , ticket_articulo.idRestaurante , ticket_articulo.idTPV , "
            "ticket_articulo.idTicket , ticket_articulo.idLinea ",
        .Insert = "insert into ticket_articulo  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_ARTICULO, "
            "DESC_CORTA, TIPO_FAMILIA, TIPO_SUBFAMILIA , ImpNeto_A, ImpBruto_A, TIPO_UDS, UDS, ImpVenta_A, "
            "CD_Promocion, porc_descuento_A , imp_descuento_A, TIPO_FISCAL, porc_impuesto_A, imp_impuesto_A, "
            "idEmpresa, idRestaurante, idTPV , idTicket, idLinea  , CD_PROMOCION_2, CD_PROMOCION_3, "
            "PORC_DESCUENTO2_A, IMPDESCUENTO2_A, PORC_DESCUENTO3_A, IMPDESCUENTO3_A)  values  (101, "
            "'2026-03-03', 'T3', 104, 'T5', 'T6', 107, 108, 0.22, 1.22, 111, 3.22, 4.22, 'T14', 6.22, 7.22, 117, "
            "0.23, 1.23, 120, 121, 122, 123, 124, 'T25', 'T26', 0.24, 1.24, 2.24, 3.24)",
        .Update = "update ticket_articulo  set COD_TRANSACC = 101   , FECHA_REAL = '2026-03-03'   , "
            "HORA_REAL = 'T3'   , ID_REGISTRO = 104   , CD_ARTICULO = 'T5'   , DESC_CORTA = 'T6'   , "
            "TIPO_FAMILIA = 107   , TIPO_SUBFAMILIA = 108   , ImpNeto_A = 0.22   , ImpBruto_A = 1.22   , "
            "TIPO_UDS = 111   , UDS = 3.22   , ImpVenta_A = 4.22   , CD_Promocion = 'T14'   , "
            "porc_descuento_A = 6.22   , imp_descuento_A = 7.22   , TIPO_FISCAL = 117   , "
            "porc_impuesto_A = 0.23   , imp_impuesto_A = 1.23   , CD_PROMOCION_2 = T25'   , "
            "CD_PROMOCION_3 = T26'   , PORC_DESCUENTO2_A = 0.24   , IMPDESCUENTO2_A = 1.24   , "
            "PORC_DESCUENTO3_A = 2.24   , "
            "IMPDESCUENTO3_A = 3.24 where ticket_articulo.idEmpresa = 120   and ticket_articulo.idRestaurante = "
            "121   and ticket_articulo.idTPV = 122   and ticket_articulo.idTicket = 123   and "
            "ticket_articulo.idLinea = 124  ",
        .Delete = "delete from ticket_articulo  where ticket_articulo.idEmpresa = 120   and "
            "ticket_articulo.idRestaurante = 121   and ticket_articulo.idTPV = 122   and "
            "ticket_articulo.idTicket = 123   and ticket_articulo.idLinea = 124  ",
        .Existe = "select count(*) from ticket_articulo  where ticket_articulo.idEmpresa = 120   and "
            "ticket_articulo.idRestaurante = 121   and ticket_articulo.idTPV = 122   and "
            "ticket_articulo.idTicket = 123   and ticket_articulo.idLinea = 124  ",
        .Entidad = "select  ticket_articulo.COD_TRANSACC , ticket_articulo.FECHA_REAL , ticket_articulo.HORA_REAL , "
            "ticket_articulo.ID_REGISTRO , ticket_articulo.CD_ARTICULO , ticket_articulo.DESC_CORTA , "
            "ticket_articulo.TIPO_FAMILIA , ticket_articulo.TIPO_SUBFAMILIA  , ticket_articulo.ImpNeto_A , "
            "ticket_articulo.ImpBruto_A , ticket_articulo.TIPO_UDS , ticket_articulo.UDS , "
            "ticket_articulo.ImpVenta_A , ticket_articulo.CD_Promocion , ticket_articulo.porc_descuento_A  , "
            "ticket_articulo.imp_descuento_A , ticket_articulo.TIPO_FISCAL , ticket_articulo.porc_impuesto_A , "
            "ticket_articulo.imp_impuesto_A , ticket_articulo.idEmpresa , ticket_articulo.idRestaurante , "
            "ticket_articulo.idTPV  , ticket_articulo.idTicket , ticket_articulo.idLinea   , "
            "ticket_articulo.CD_PROMOCION_2  , ticket_articulo.CD_PROMOCION_3  , "
            "ticket_articulo.PORC_DESCUENTO2_A  , ticket_articulo.IMPDESCUENTO2_A  , "
            "ticket_articulo.PORC_DESCUENTO3_A  , "
            "ticket_articulo.IMPDESCUENTO3_A  from ticket_articulo  where ticket_articulo.idEmpresa = 120   and "
            "ticket_articulo.idRestaurante = 121   and ticket_articulo.idTPV = 122   and "
            "ticket_articulo.idTicket = 123   and ticket_articulo.idLinea = 124    order by "
            "ticket_articulo.idEmpresa , ticket_articulo.idRestaurante , ticket_articulo.idTPV , "
            "ticket_articulo.idTicket , ticket_articulo.idLinea ",
        .CrearTabla = "CREATE TABLE `ticket_articulo` (   `COD_TRANSACC` int(5) default '0', "
            "  `FECHA_REAL` date default '0000-00-00',   `HORA_REAL` varchar(6) default '', "
            "  `ID_REGISTRO` int(3) default NULL,   `CD_ARTICULO` varchar(15) default '', "
            "  `DESC_CORTA` varchar(25) default NULL,   `TIPO_FAMILIA` int(3) default NULL, "
            "  `TIPO_SUBFAMILIA` int(4) default NULL,   `ImpNeto_A` decimal(7,3) default NULL, "
            "  `ImpBruto_A` decimal(7,3) default NULL,   `TIPO_UDS` int(2) default NULL, "
            "  `UDS` decimal(7,3) default NULL,   `ImpVenta_A` decimal(7,3) default NULL, "
            "  `CD_Promocion` varchar(15) default NULL,   `porc_descuento_A` decimal(3,2) default NULL, "
            "  `imp_descuento_A` decimal(6,3) default NULL,   `TIPO_FISCAL` int(2) default NULL, "
            "  `porc_impuesto_A` decimal(3,2) default NULL,   `imp_impuesto_A` decimal(6,3) default NULL, "
            "  `idEmpresa` int(11) NOT NULL default '0',   `idRestaurante` int(11) NOT NULL default '0', "
            "  `idTPV` int(11) NOT NULL default '0',   `idTicket` int(11) NOT NULL default '0', "
            "  `idLinea` int(11) NOT NULL default '0',   `zaro_CD_PROMOCION_2` NULL VARCHAR(15), "
            "  `zaro_CD_PROMOCION_3` NULL VARCHAR(15),   `zaro_PORC_DESCUENTO2_A` NULL DECIMAL(3,2), "
            "  `zaro_IMPDESCUENTO2_A` NULL DECIMAL(20,3),   `zaro_PORC_DESCUENTO3_A` NULL DECIMAL(3,2), "
            "  `zaro_IMPDESCUENTO3_A` NULL DECIMAL(20,3), "
            "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`idLinea`) ) ENGINE=MyISAM DEFAULT "
            "CHARSET=latin1",
        // The database refuses the library's statement: the site makes the table itself.
        .CrearTablaCrea = false,
        .TablaDelSitio = {zaro_test::SiteTicketArticulo()},
        // The two non-empty promotions stand bare behind their equals signs: a syntax error.
        .ErrorUpdate = 1064,
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoTicketArticulo() {
    using E = entticket_articulo;
    return HacerCaso<daticket_articulo, E, colticket_articulo>(
        EsperadoTicketArticulo(), MuestraTicketArticulo,
        [](colticket_articulo& l, const E& m) { return l.Add(m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket,
            m.idLinea, m.COD_TRANSACC, m.FECHA_REAL, m.HORA_REAL, m.ID_REGISTRO, m.CD_ARTICULO, m.DESC_CORTA,
            m.TIPO_FAMILIA, m.TIPO_SUBFAMILIA, m.IMPNETO_A, m.IMPBRUTO_A, m.TIPO_UDS, m.UDS, m.ImpVenta_A,
            m.CD_Promocion, m.porc_descuento_A, m.imp_descuento_A, m.TIPO_FISCAL, m.porc_impuesto_A,
            m.imp_impuesto_A, m.CD_PROMOCION_2, m.CD_PROMOCION_3, m.PORC_DESCUENTO2_A, m.IMPDESCUENTO2_A,
            m.PORC_DESCUENTO3_A, m.IMPDESCUENTO3_A); },
        [](colticket_articulo& l, const E& m) { return l.Add(m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket,
            m.idLinea); },
        [](colticket_articulo& l, const E& m) { return l.ItemClave(m.idEmpresa, m.idLinea, m.idRestaurante,
            m.idTicket, m.idTPV); },
        [](daticket_articulo& da, const E& m, ConexionArg c) { da.Delete(m.idEmpresa, m.idRestaurante, m.idTPV,
            m.idTicket, m.idLinea, c); },
        [](daticket_articulo& da, const E& m, ConexionArg c) { return da.Entidad(m.idEmpresa, m.idRestaurante,
            m.idTPV, m.idTicket, m.idLinea, c); },
        [](daticket_articulo& da, const E& m, ConexionArg c) { return da.Listar(m.idEmpresa, m.idRestaurante,
            m.idTPV, m.idTicket, m.idLinea, c); },
        [](daticket_articulo& da, const E& m, ConexionArg c) { return da.rsListar(m.idEmpresa, m.idRestaurante,
            m.idTPV, m.idTicket, m.idLinea, c); });
}

}  // namespace zaro_tablas
