// The ticket_pago table as its field table shows it. Its key begins with
// ID_REGISTRO and TIPO_PAGO, where the primary key ends with them in the
// reverse order.
#include "ZARODatos/tables/ticket_pago.h"

namespace OVT_ZARO {

const TablaDef& entticket_pago::Def() {
    using E = entticket_pago;
    static const TablaDef def = [] {
        TablaBuilder<E> b("ticket_pago", "entticket_pago", "colticket_pago", "daticket_pago");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 0, 1, 1, "  `COD_TRANSACC` int(5) NOT NULL default '0', "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 2, 2, "  `FECHA_REAL` date NOT NULL default '0000-00-00', "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 3, "  `HORA_REAL` varchar(6) default NULL, "});
        // The register number is part of the key here, and comes first in it.
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 1, 3, 0, "  `ID_REGISTRO` int(3) NOT NULL default '0', "});
        b.Campo(&E::TIPO_PAGO, "TIPO_PAGO", {5, 2, 4, 0, "  `TIPO_PAGO` int(2) NOT NULL default '0', "});
        b.Campo(&E::CD_CLIENTE, "CD_CLIENTE", {6, 0, 0, 4, "  `CD_CLIENTE` char(3) default NULL, "});
        b.Campo(&E::Id_ticket_descuento, "Id_ticket_descuento",
                {7, 0, 0, 5, "  `Id_ticket_descuento` int(8) default NULL, "});
        b.Campo(&E::ImpBruto_P, "ImpBruto_P", {8, 0, 0, 6, "  `ImpBruto_P` decimal(7,3) default NULL, "});
        b.Campo(&E::idEmpresa, "idEmpresa", {9, 3, 5, 0, "  `idEmpresa` int(11) NOT NULL default '0', "});
        b.Campo(&E::idRestaurante, "idRestaurante", {10, 4, 6, 0, "  `idRestaurante` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTPV, "idTPV", {11, 5, 7, 0, "  `idTPV` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTicket, "idTicket", {12, 6, 8, 0, "  `idTicket` int(11) NOT NULL default '0', "});
        TablaDef& t = b.Def();
        t.CampoNombreVacio = t.Campo("TIPO_PAGO");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".TIPO_PAGO , ", ".CD_CLIENTE , ", ".Id_ticket_descuento , ", ".ImpBruto_P ", " , ",
                    ".idEmpresa , ", ".idRestaurante , ", ".idTPV , ", ".idTicket  "};
        t.OrderBy = {" order by ", ".ID_REGISTRO , ", ".TIPO_PAGO , ", ".idEmpresa , ", ".idRestaurante , ",
                     ".idTPV , ", ".idTicket "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_PAGO, CD_CLIENTE, Id_ticket_descuento, ImpBruto_P",
                    " , idEmpresa, idRestaurante, idTPV, idTicket) "};
        // The primary key ends with the payment type and the register number.
        t.PrimaryKey = "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`TIPO_PAGO`,`ID_REGISTRO`) ";
        t.ArgumentosAdd = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_PAGO", "idEmpresa", "idRestaurante",
                           "idTPV", "idTicket", "HORA_REAL", "CD_CLIENTE", "Id_ticket_descuento", "ImpBruto_P"};
        t.ArgumentosItemClave = {"ID_REGISTRO", "idEmpresa", "idRestaurante", "idTicket", "idTPV", "TIPO_PAGO"};
        return b.Terminar(12);
    }();
    return def;
}

}  // namespace OVT_ZARO
