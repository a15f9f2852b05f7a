// The ticket_pago table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraTicketPago(entticket_pago& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.TIPO_PAGO = 105;
    e.CD_CLIENTE = "T6";
    e.Id_ticket_descuento = 107;
    e.ImpBruto_P = 8.21;
    e.idEmpresa = 109;
    e.idRestaurante = 110;
    e.idTPV = 111;
    e.idTicket = 112;
}

inline const Esperado& EsperadoTicketPago() {
    static const Esperado esp{
        .Tabla = "ticket_pago",
        .ClaseEntidad = "entticket_pago",
        .ClaseLista = "colticket_pago",
        .ClaseAdapter = "daticket_pago",
        .NumCampos = 12,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "TIPO_PAGO", "CD_CLIENTE",
            "Id_ticket_descuento", "ImpBruto_P", "idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .CampoVacio = "TIPO_PAGO",
        .Requeridos = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_PAGO", "idEmpresa", "idRestaurante",
            "idTPV", "idTicket"},
        .Clave = {"ID_REGISTRO", "TIPO_PAGO", "idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .Fuentes = {"daticket_pago", "ticket_pagoUpdate", "ticket_pagoIEntidad_SetValor",
            "ticket_pagoIEntidad_SetValorIndice", "ticket_pagoEntidad", " entticket_pago"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  ticket_pago.COD_TRANSACC , ticket_pago.FECHA_REAL , ticket_pago.HORA_REAL , "
            "ticket_pago.ID_REGISTRO , ticket_pago.TIPO_PAGO , ticket_pago.CD_CLIENTE , "
            "ticket_pago.Id_ticket_descuento , ticket_pago.ImpBruto_P  , ticket_pago.idEmpresa , "
            "ticket_pago.idRestaurante , ticket_pago.idTPV , ticket_pago.idTicket   from ticket_pago ",
        .OrderBy = " order by ticket_pago.ID_REGISTRO , ticket_pago.TIPO_PAGO , ticket_pago.idEmpresa , "
            "ticket_pago.idRestaurante , ticket_pago.idTPV , ticket_pago.idTicket ",
        .Insert = "insert into ticket_pago  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_PAGO, CD_CLIENTE, "
            "Id_ticket_descuento, ImpBruto_P , idEmpresa, idRestaurante, idTPV, idTicket)  values  (101, "
            "'2026-03-03', 'T3', 104, 105, 'T6', 107, 8.21, 109, 110, 111, 112)",
        .Update = "update ticket_pago  set COD_TRANSACC = 101   , FECHA_REAL = '2026-03-03'   , HORA_REAL = 'T3'   , "
            "CD_CLIENTE = 'T6'   , Id_ticket_descuento = 107   , "
            "ImpBruto_P = 8.21 where ticket_pago.ID_REGISTRO = 104   and ticket_pago.TIPO_PAGO = 105   and "
            "ticket_pago.idEmpresa = 109   and ticket_pago.idRestaurante = 110   and ticket_pago.idTPV = 111   "
            "and ticket_pago.idTicket = 112  ",
        .Delete = "delete from ticket_pago  where ticket_pago.ID_REGISTRO = 104   and ticket_pago.TIPO_PAGO = 105   "
            "and ticket_pago.idEmpresa = 109   and ticket_pago.idRestaurante = 110   and ticket_pago.idTPV = 111 "
            "  and ticket_pago.idTicket = 112  ",
        .Existe = "select count(*) from ticket_pago  where ticket_pago.ID_REGISTRO = 104   and ticket_pago.TIPO_PAGO = "
            "105   and ticket_pago.idEmpresa = 109   and ticket_pago.idRestaurante = 110   and ticket_pago.idTPV "
            "= 111   and ticket_pago.idTicket = 112  ",
        .Entidad = "select  ticket_pago.COD_TRANSACC , ticket_pago.FECHA_REAL , ticket_pago.HORA_REAL , "
            "ticket_pago.ID_REGISTRO , ticket_pago.TIPO_PAGO , ticket_pago.CD_CLIENTE , "
            "ticket_pago.Id_ticket_descuento , ticket_pago.ImpBruto_P  , ticket_pago.idEmpresa , "
            "ticket_pago.idRestaurante , ticket_pago.idTPV , "
            "ticket_pago.idTicket   from ticket_pago  where ticket_pago.ID_REGISTRO = 104   and "
            "ticket_pago.TIPO_PAGO = 105   and ticket_pago.idEmpresa = 109   and ticket_pago.idRestaurante = 110 "
            "  and ticket_pago.idTPV = 111   and ticket_pago.idTicket = 112    order by ticket_pago.ID_REGISTRO "
            ", ticket_pago.TIPO_PAGO , ticket_pago.idEmpresa , ticket_pago.idRestaurante , ticket_pago.idTPV , "
            "ticket_pago.idTicket ",
        .CrearTabla = "CREATE TABLE `ticket_pago` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date NOT NULL default '0000-00-00',   `HORA_REAL` varchar(6) default NULL, "
            "  `ID_REGISTRO` int(3) NOT NULL default '0',   `TIPO_PAGO` int(2) NOT NULL default '0', "
            "  `CD_CLIENTE` char(3) default NULL,   `Id_ticket_descuento` int(8) default NULL, "
            "  `ImpBruto_P` decimal(7,3) default NULL,   `idEmpresa` int(11) NOT NULL default '0', "
            "  `idRestaurante` int(11) NOT NULL default '0',   `idTPV` int(11) NOT NULL default '0', "
            "  `idTicket` int(11) NOT NULL default '0', "
            "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`TIPO_PAGO`,`ID_REGISTRO`) ) "
            "ENGINE=MyISAM DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoTicketPago() {
    using E = entticket_pago;
    return HacerCaso<daticket_pago, E, colticket_pago>(
        EsperadoTicketPago(), MuestraTicketPago,
        [](colticket_pago& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO, m.TIPO_PAGO,
            m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket, m.HORA_REAL, m.CD_CLIENTE, m.Id_ticket_descuento,
            m.ImpBruto_P); },
        [](colticket_pago& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.ID_REGISTRO, m.TIPO_PAGO,
            m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket); },
        [](colticket_pago& l, const E& m) { return l.ItemClave(m.ID_REGISTRO, m.idEmpresa, m.idRestaurante,
            m.idTicket, m.idTPV, m.TIPO_PAGO); },
        [](daticket_pago& da, const E& m, ConexionArg c) { da.Delete(m.ID_REGISTRO, m.TIPO_PAGO, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_pago& da, const E& m, ConexionArg c) { return da.Entidad(m.ID_REGISTRO, m.TIPO_PAGO,
            m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_pago& da, const E& m, ConexionArg c) { return da.Listar(m.ID_REGISTRO, m.TIPO_PAGO, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_pago& da, const E& m, ConexionArg c) { return da.rsListar(m.ID_REGISTRO, m.TIPO_PAGO,
            m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket, c); });
}

}  // namespace zaro_tablas
