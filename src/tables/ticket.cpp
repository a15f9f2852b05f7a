// The ticket table as its field table shows it. Its deviations: only 24 of
// its 38 fields count for NumCampos; the index table runs to 39 with a second
// entry for CODNACIONALIDAD at 38; idTPVTransaccion is converted straight,
// without the number text rule; the five last numbers carry a blank behind
// them in Insert and Update; the column definitions from CODNACIONALIDAD on
// are sent as they stand, so the database refuses the table's creation; and
// ToXML names its own class as the source of a failure.
#include "ZARODatos/tables/ticket.h"

namespace OVT_ZARO {

const TablaDef& entticket::Def() {
    using E = entticket;
    static const TablaDef def = [] {
        TablaBuilder<E> b("ticket", "entticket", "colticket", "daticket");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 0, 0, 3, "  `COD_TRANSACC` int(5) default NULL, "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 0, 4, "  `FECHA_REAL` date default NULL, "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 5, "  `HORA_REAL` varchar(6) default NULL, "});
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 0, 0, 6, "  `ID_REGISTRO` int(3) default NULL, "});
        // The set list begins with CD_TICKET and FECHA_CONTABLE.
        b.Campo(&E::CD_TICKET, "CD_TICKET", {5, 0, 1, 1, "  `CD_TICKET` int(8) NOT NULL default '0', "});
        b.Campo(&E::FECHA_CONTABLE, "FECHA_CONTABLE",
                {6, 0, 2, 2, "  `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "});
        b.Campo(&E::TIPO_VENTA, "TIPO_VENTA", {7, 0, 0, 7, "  `TIPO_VENTA` int(2) default NULL, "});
        b.Campo(&E::Tipo_cliente, "Tipo_cliente", {8, 0, 0, 8, "  `Tipo_cliente` int(2) default NULL, "});
        b.Campo(&E::Origen, "Origen", {9, 0, 0, 9, "  `Origen` varchar(6) default NULL, "});
        b.Campo(&E::Destino, "Destino", {10, 0, 0, 10, "  `Destino` varchar(6) default NULL, "});
        b.Campo(&E::NumVuelo, "NumVuelo", {11, 0, 0, 11, "  `NumVuelo` varchar(10) default NULL, "});
        b.Campo(&E::ImpNeto_T, "ImpNeto_T", {12, 0, 0, 12, "  `ImpNeto_T` decimal(7,3) default NULL, "});
        b.Campo(&E::ImpBruto_T, "ImpBruto_T", {13, 0, 0, 13, "  `ImpBruto_T` decimal(7,3) default NULL, "});
        b.Campo(&E::ImpImpuestos_T, "ImpImpuestos_T", {14, 0, 0, 14, "  `ImpImpuestos_T` decimal(6,3) default NULL, "});
        b.Campo(&E::ImpDescuento_T, "ImpDescuento_T", {15, 0, 0, 15, "  `ImpDescuento_T` decimal(6,3) default NULL, "});
        b.Campo(&E::Porc_descuento, "Porc_descuento", {16, 0, 0, 16, "  `Porc_descuento` decimal(3,2) default NULL, "});
        b.Campo(&E::NL_Articulo, "NL_Articulo", {17, 0, 0, 17, "  `NL_Articulo` int(3) default NULL, "});
        b.Campo(&E::NL_Impuestos, "NL_Impuestos", {18, 0, 0, 18, "  `NL_Impuestos` int(2) default NULL, "});
        b.Campo(&E::NL_FormaPago, "NL_FormaPago", {19, 0, 0, 19, "  `NL_FormaPago` int(2) default NULL, "});
        b.Campo(&E::N_Articulos, "N_Articulos", {20, 0, 0, 20, "  `N_Articulos` decimal(7,3) default NULL, "});
        b.Campo(&E::idEmpresa, "idEmpresa", {21, 1, 3, 0, "  `idEmpresa` int(11) NOT NULL default '0', "});
        b.Campo(&E::idRestaurante, "idRestaurante", {22, 2, 4, 0, "  `idRestaurante` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTPV, "idTPV", {23, 3, 5, 0, "  `idTPV` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTicket, "idTicket", {24, 4, 6, 0, "  `idTicket` int(11) NOT NULL default '0', "});
        // From here on the column definitions have the type behind NULL; they are sent so.
        b.Campo(&E::CODNACIONALIDAD, "CODNACIONALIDAD",
                {25, 0, 0, 21, "  `CODNACIONALIDAD` varchar NULL VARCHAR(255), "});
        b.Campo(&E::COD_ZAROCLI, "COD_ZAROCLI", {26, 0, 0, 22, "  `COD_ZAROCLI` NULL VARCHAR(10), "});
        b.Campo(&E::COD_TARJETA, "COD_TARJETA", {27, 0, 0, 23, "  `COD_TARJETA` NULL VARCHAR(32), "});
        b.Campo(&E::COD_CLIE_PAX, "COD_CLIE_PAX", {28, 0, 0, 24, "  `COD_CLIE_PAX` NULL VARCHAR(20), "});
        b.Campo(&E::CORREO_PAX, "CORREO_PAX", {29, 0, 0, 25, "  `CORREO_PAX` NULL VARCHAR(50), "});
        b.Campo(&E::STATUS_PAX, "STATUS_PAX", {30, 0, 0, 26, "  `STATUS_PAX` NULL VARCHAR(1), "});
        b.Campo(&E::FECHA_VUELO, "FECHA_VUELO", {31, 0, 0, 27, "  `FECHA_VUELO` NULL VARCHAR(8), "});
        b.Campo(&E::NUM_SEAT, "NUM_SEAT", {32, 0, 0, 28, "  `NUM_SEAT` NULL VARCHAR(4), "});
        b.Campo(&E::NUM_CHECKIN, "NUM_CHECKIN", {33, 0, 0, 29, "  `NUM_CHECKIN` NULL VARCHAR(5), "});
        b.Campo(&E::IMPDESCUENTO2_T, "IMPDESCUENTO2_T", {34, 0, 0, 30, "  `IMPDESCUENTO2_T` NULL DECIMAL(20,3), "});
        b.Campo(&E::PORC_DESCUENTO2_T, "PORC_DESCUENTO2_T",
                {35, 0, 0, 31, "  `PORC_DESCUENTO2_T` NULL DECIMAL(20,2), "});
        b.Campo(&E::IMPDESCUENTO3_T, "IMPDESCUENTO3_T", {36, 0, 0, 32, "  `IMPDESCUENTO3_T` NULL DECIMAL(20,3), "});
        b.Campo(&E::PORC_DESCUENTO3_T, "PORC_DESCUENTO3_T",
                {37, 0, 0, 33, "  `PORC_DESCUENTO3_T` NULL DECIMAL(20,2), "});
        // Index 38 is a second entry for CODNACIONALIDAD, so idTPVTransaccion has 39.
        b.IndiceExtra(38, "CODNACIONALIDAD");
        b.Campo(&E::idTPVTransaccion, "idTPVTransaccion", {39, 0, 0, 34, "  `idTPVTransaccion` NULL INT, "});
        // idTPVTransaccion is converted straight from the value, so text that is no number fails.
        b.Ultimo().ConversionDirecta = true;
        TablaDef& t = b.Def();
        // The five last numbers are written with a blank behind them in Insert and Update.
        for (std::string_view n : {"IMPDESCUENTO2_T", "PORC_DESCUENTO2_T", "IMPDESCUENTO3_T", "PORC_DESCUENTO3_T",
                                   "idTPVTransaccion"})
            t.Campos[static_cast<size_t>(t.Campo(n))].TrasValor = " ";
        t.CampoNombreVacio = t.Campo("CD_TICKET");
        // A failure of ToXML names this class, where other entities name another.
        t.FuenteToXML = " entticket";
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".CD_TICKET , ", ".FECHA_CONTABLE , ", ".TIPO_VENTA , ", ".Tipo_cliente ", " , ", ".Origen , ",
                    ".Destino , ", ".NumVuelo , ", ".ImpNeto_T , ", ".ImpBruto_T , ", ".ImpImpuestos_T , ",
                    ".ImpDescuento_T ", " , ", ".Porc_descuento , ", ".NL_Articulo , ", ".NL_Impuestos , ",
                    ".NL_FormaPago , ", ".N_Articulos , ", ".idEmpresa , ", ".idRestaurante ", " , ", ".idTPV , ",
                    ".idTicket  ", " , ", ".CODNACIONALIDAD ", " , ", ".COD_ZAROCLI ", " , ", ".COD_TARJETA ",
                    " , ", ".COD_CLIE_PAX ", " , ", ".CORREO_PAX ", " , ", ".STATUS_PAX ", " , ", ".FECHA_VUELO ",
                    " , ", ".NUM_SEAT ", " , ", ".NUM_CHECKIN ", " , ", ".IMPDESCUENTO2_T ", " , ",
                    ".PORC_DESCUENTO2_T ", " , ", ".IMPDESCUENTO3_T ", " , ", ".PORC_DESCUENTO3_T ", " , ",
                    ".idTPVTransaccion "};
        t.OrderBy = {" order by ", ".idEmpresa , ", ".idRestaurante , ", ".idTPV , ", ".idTicket "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_TICKET, FECHA_CONTABLE, TIPO_VENTA, Tipo_cliente",
                    " , Origen, Destino, NumVuelo, ImpNeto_T, ImpBruto_T, ImpImpuestos_T, ImpDescuento_T",
                    " , Porc_descuento, NL_Articulo, NL_Impuestos, NL_FormaPago, N_Articulos, idEmpresa, idRestaurante",
                    " , idTPV, idTicket, CODNACIONALIDAD ",
                    " , COD_ZAROCLI, COD_TARJETA, COD_CLIE_PAX, CORREO_PAX, STATUS_PAX, FECHA_VUELO, NUM_SEAT, "
                    "NUM_CHECKIN, IMPDESCUENTO2_T, PORC_DESCUENTO2_T, IMPDESCUENTO3_T, PORC_DESCUENTO3_T, "
                    "idTPVTransaccion) "};
        t.PrimaryKey = "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`) ";
        t.ArgumentosAdd = {"CD_TICKET", "FECHA_CONTABLE", "idEmpresa", "idRestaurante", "idTPV", "idTicket",
                           "COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "TIPO_VENTA", "Tipo_cliente",
                           "Origen", "Destino", "NumVuelo", "ImpNeto_T", "ImpBruto_T", "ImpImpuestos_T",
                           "ImpDescuento_T", "Porc_descuento", "NL_Articulo", "NL_Impuestos", "NL_FormaPago",
                           "N_Articulos"};
        t.ArgumentosItemClave = {"idEmpresa", "idRestaurante", "idTicket", "idTPV"};
        // Only the first 24 fields count.
        return b.Terminar(24);
    }();
    return def;
}

}  // namespace OVT_ZARO
