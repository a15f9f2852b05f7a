// The ticket_impuesto table as its field table shows it. Its key puts the
// rate first where the primary key puts it last, the only table whose
// required fields hold HORA_REAL, and its set list writes TIPO_IMPUESTO
// before ID_REGISTRO.
#include "ZARODatos/tables/ticket_impuesto.h"

namespace OVT_ZARO {

const TablaDef& entticket_impuesto::Def() {
    using E = entticket_impuesto;
    static const TablaDef def = [] {
        TablaBuilder<E> b("ticket_impuesto", "entticket_impuesto", "colticket_impuesto", "daticket_impuesto");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 0, 1, 1, "  `COD_TRANSACC` int(5) NOT NULL default '0', "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 2, 2, "  `FECHA_REAL` date NOT NULL default '0000-00-00', "});
        // The time of the line is required.
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 3, 3, "  `HORA_REAL` varchar(6) NOT NULL default '', "});
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 0, 0, 5, "  `ID_REGISTRO` int(3) default NULL, "});
        b.Campo(&E::TIPO_IMPUESTO, "TIPO_IMPUESTO", {5, 0, 4, 4, "  `TIPO_IMPUESTO` int(2) NOT NULL default '0', "});
        // The rate, a double, is the first key field.
        b.Campo(&E::porc_impuesto, "porc_impuesto",
                {6, 1, 5, 0, "  `porc_impuesto` decimal(3,2) NOT NULL default '0.00', "});
        b.Campo(&E::imp_impuesto, "imp_impuesto", {7, 0, 0, 6, "  `imp_impuesto` decimal(6,3) default NULL, "});
        b.Campo(&E::idEmpresa, "idEmpresa", {8, 2, 6, 0, "  `idEmpresa` int(11) NOT NULL default '0', "});
        b.Campo(&E::idRestaurante, "idRestaurante", {9, 3, 7, 0, "  `idRestaurante` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTPV, "idTPV", {10, 4, 8, 0, "  `idTPV` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTicket, "idTicket", {11, 5, 9, 0, "  `idTicket` int(11) NOT NULL default '0', "});
        TablaDef& t = b.Def();
        t.CampoNombreVacio = t.Campo("TIPO_IMPUESTO");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".TIPO_IMPUESTO , ", ".porc_impuesto , ", ".imp_impuesto , ", ".idEmpresa ", " , ",
                    ".idRestaurante , ", ".idTPV , ", ".idTicket  "};
        t.OrderBy = {" order by ", ".porc_impuesto , ", ".idEmpresa , ", ".idRestaurante , ", ".idTPV , ",
                     ".idTicket "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_IMPUESTO, porc_impuesto, imp_impuesto, idEmpresa",
                    " , idRestaurante, idTPV, idTicket) "};
        // The primary key names the rate last.
        t.PrimaryKey = "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`porc_impuesto`) ";
        t.ArgumentosAdd = {"COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "TIPO_IMPUESTO", "porc_impuesto",
                           "idEmpresa", "idRestaurante", "idTPV", "idTicket", "ID_REGISTRO", "imp_impuesto"};
        t.ArgumentosItemClave = {"idEmpresa", "idRestaurante", "idTicket", "idTPV", "porc_impuesto"};
        return b.Terminar(11);
    }();
    return def;
}

}  // namespace OVT_ZARO
