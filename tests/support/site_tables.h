// What a site runs to have a usable ticket_articulo table: the database
// refuses the library's own statement (its last column lines put the type
// behind NULL), so the site writes those columns itself.
#pragma once

namespace zaro_test {

inline const char* SiteTicketArticulo() {
    return "CREATE TABLE `ticket_articulo` (   `COD_TRANSACC` int(5) default '0', "
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
           "  `idLinea` int(11) NOT NULL default '0',   `CD_PROMOCION_2` VARCHAR(15) NULL, "
           "  `CD_PROMOCION_3` VARCHAR(15) NULL,   `PORC_DESCUENTO2_A` DECIMAL(3,2) NULL, "
           "  `IMPDESCUENTO2_A` DECIMAL(20,3) NULL,   `PORC_DESCUENTO3_A` DECIMAL(3,2) NULL, "
           "  `IMPDESCUENTO3_A` DECIMAL(20,3) NULL, "
           "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`idLinea`) ) ENGINE=MyISAM DEFAULT "
           "CHARSET=latin1";
}

}  // namespace zaro_test
