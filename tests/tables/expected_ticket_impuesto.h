// The ticket_impuesto table beside its statements: the sample entity, and the exact text
// of every statement the adapter sends for it, blank for blank.
#pragma once

#include "caso_tabla.h"

namespace zaro_tablas {

inline void MuestraTicketImpuesto(entticket_impuesto& e) {
    e.COD_TRANSACC = 101;
    e.FECHA_REAL = Date::FromParts(2026, 3, 3);
    e.HORA_REAL = "T3";
    e.ID_REGISTRO = 104;
    e.TIPO_IMPUESTO = 105;
    e.porc_impuesto = 6.21;
    e.imp_impuesto = 7.21;
    e.idEmpresa = 108;
    e.idRestaurante = 109;
    e.idTPV = 110;
    e.idTicket = 111;
}

inline const Esperado& EsperadoTicketImpuesto() {
    static const Esperado esp{
        .Tabla = "ticket_impuesto",
        .ClaseEntidad = "entticket_impuesto",
        .ClaseLista = "colticket_impuesto",
        .ClaseAdapter = "daticket_impuesto",
        .NumCampos = 11,
        // GetNombreCampo of each index of the index table, from 1 on
        .Nombres = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "TIPO_IMPUESTO", "porc_impuesto",
            "imp_impuesto", "idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .CampoVacio = "TIPO_IMPUESTO",
        .Requeridos = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "TIPO_IMPUESTO", "porc_impuesto", "idEmpresa",
            "idRestaurante", "idTPV", "idTicket"},
        .Clave = {"porc_impuesto", "idEmpresa", "idRestaurante", "idTPV", "idTicket"},
        .Fuentes = {"daticket_impuesto", "ticket_impuestoUpdate", "ticket_impuestoIEntidad_SetValor",
            "ticket_impuestoIEntidad_SetValorIndice", "ticket_impuestoEntidad", " entticket_impuesto"},
        .FuenteToXML = " entmaepai",
        .SelectSQL = "select  ticket_impuesto.COD_TRANSACC , ticket_impuesto.FECHA_REAL , ticket_impuesto.HORA_REAL , "
            "ticket_impuesto.ID_REGISTRO , ticket_impuesto.TIPO_IMPUESTO , ticket_impuesto.porc_impuesto , "
            "ticket_impuesto.imp_impuesto , ticket_impuesto.idEmpresa  , ticket_impuesto.idRestaurante , "
            "ticket_impuesto.idTPV , ticket_impuesto.idTicket   from ticket_impuesto ",
        .OrderBy = " order by ticket_impuesto.porc_impuesto , ticket_impuesto.idEmpresa , "
            "ticket_impuesto.idRestaurante , ticket_impuesto.idTPV , ticket_impuesto.idTicket ",
        .Insert = "insert into ticket_impuesto  (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_IMPUESTO, "
            "porc_impuesto, imp_impuesto, idEmpresa , idRestaurante, idTPV, idTicket)  values  (101, "
            "'2026-03-03', 'T3', 104, 105, 6.21, 7.21, 108, 109, 110, 111)",
        .Update = "update ticket_impuesto  set COD_TRANSACC = 101   , FECHA_REAL = '2026-03-03'   , "
            "HORA_REAL = 'T3'   , TIPO_IMPUESTO = 105   , ID_REGISTRO = 104   , "
            "imp_impuesto = 7.21 where ticket_impuesto.porc_impuesto = 6.21   and ticket_impuesto.idEmpresa = "
            "108   and ticket_impuesto.idRestaurante = 109   and ticket_impuesto.idTPV = 110   and "
            "ticket_impuesto.idTicket = 111  ",
        .Delete = "delete from ticket_impuesto  where ticket_impuesto.porc_impuesto = 6.21   and "
            "ticket_impuesto.idEmpresa = 108   and ticket_impuesto.idRestaurante = 109   and "
            "ticket_impuesto.idTPV = 110   and ticket_impuesto.idTicket = 111  ",
        .Existe = "select count(*) from ticket_impuesto  where ticket_impuesto.porc_impuesto = 6.21   and "
            "ticket_impuesto.idEmpresa = 108   and ticket_impuesto.idRestaurante = 109   and "
            "ticket_impuesto.idTPV = 110   and ticket_impuesto.idTicket = 111  ",
        .Entidad = "select  ticket_impuesto.COD_TRANSACC , ticket_impuesto.FECHA_REAL , ticket_impuesto.HORA_REAL , "
            "ticket_impuesto.ID_REGISTRO , ticket_impuesto.TIPO_IMPUESTO , ticket_impuesto.porc_impuesto , "
            "ticket_impuesto.imp_impuesto , ticket_impuesto.idEmpresa  , ticket_impuesto.idRestaurante , "
            "ticket_impuesto.idTPV , "
            "ticket_impuesto.idTicket   from ticket_impuesto  where ticket_impuesto.porc_impuesto = 6.21   and "
            "ticket_impuesto.idEmpresa = 108   and ticket_impuesto.idRestaurante = 109   and "
            "ticket_impuesto.idTPV = 110   and ticket_impuesto.idTicket = 111    order by "
            "ticket_impuesto.porc_impuesto , ticket_impuesto.idEmpresa , ticket_impuesto.idRestaurante , "
            "ticket_impuesto.idTPV , ticket_impuesto.idTicket ",
        .CrearTabla = "CREATE TABLE `ticket_impuesto` (   `COD_TRANSACC` int(5) NOT NULL default '0', "
            "  `FECHA_REAL` date NOT NULL default '0000-00-00',   `HORA_REAL` varchar(6) NOT NULL default '', "
            "  `ID_REGISTRO` int(3) default NULL,   `TIPO_IMPUESTO` int(2) NOT NULL default '0', "
            "  `porc_impuesto` decimal(3,2) NOT NULL default '0.00',   `imp_impuesto` decimal(6,3) default NULL, "
            "  `idEmpresa` int(11) NOT NULL default '0',   `idRestaurante` int(11) NOT NULL default '0', "
            "  `idTPV` int(11) NOT NULL default '0',   `idTicket` int(11) NOT NULL default '0', "
            "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`porc_impuesto`) ) ENGINE=MyISAM "
            "DEFAULT CHARSET=latin1",
    };
    return esp;
}

inline std::unique_ptr<CasoTabla> CasoTicketImpuesto() {
    using E = entticket_impuesto;
    return HacerCaso<daticket_impuesto, E, colticket_impuesto>(
        EsperadoTicketImpuesto(), MuestraTicketImpuesto,
        [](colticket_impuesto& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.HORA_REAL,
            m.TIPO_IMPUESTO, m.porc_impuesto, m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket, m.ID_REGISTRO,
            m.imp_impuesto); },
        [](colticket_impuesto& l, const E& m) { return l.Add(m.COD_TRANSACC, m.FECHA_REAL, m.HORA_REAL,
            m.TIPO_IMPUESTO, m.porc_impuesto, m.idEmpresa, m.idRestaurante, m.idTPV, m.idTicket); },
        [](colticket_impuesto& l, const E& m) { return l.ItemClave(m.idEmpresa, m.idRestaurante, m.idTicket,
            m.idTPV, m.porc_impuesto); },
        [](daticket_impuesto& da, const E& m, ConexionArg c) { da.Delete(m.porc_impuesto, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_impuesto& da, const E& m, ConexionArg c) { return da.Entidad(m.porc_impuesto, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_impuesto& da, const E& m, ConexionArg c) { return da.Listar(m.porc_impuesto, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); },
        [](daticket_impuesto& da, const E& m, ConexionArg c) { return da.rsListar(m.porc_impuesto, m.idEmpresa,
            m.idRestaurante, m.idTPV, m.idTicket, c); });
}

}  // namespace zaro_tablas
