// The ticket_articulo table as its field table shows it. Its deviations:
// the fields IMPNETO_A and IMPBRUTO_A go by their columns ImpNeto_A and
// ImpBruto_A; the six fields behind idLinea lie beyond NumCampos, SetValor by
// name keeps their old value, Update writes the two promotions without their
// opening quote, and their column definitions name zaro_ columns with the
// type behind NULL, so the database refuses the table's creation.
#include "ZARODatos/tables/ticket_articulo.h"

namespace OVT_ZARO {

const TablaDef& entticket_articulo::Def() {
    using E = entticket_articulo;
    static const TablaDef def = [] {
        TablaBuilder<E> b("ticket_articulo", "entticket_articulo", "colticket_articulo", "daticket_articulo");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 0, 0, 1, "  `COD_TRANSACC` int(5) default '0', "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 0, 2, "  `FECHA_REAL` date default '0000-00-00', "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 3, "  `HORA_REAL` varchar(6) default '', "});
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 0, 0, 4, "  `ID_REGISTRO` int(3) default NULL, "});
        b.Campo(&E::CD_ARTICULO, "CD_ARTICULO", {5, 0, 0, 5, "  `CD_ARTICULO` varchar(15) default '', "});
        b.Campo(&E::DESC_CORTA, "DESC_CORTA", {6, 0, 0, 6, "  `DESC_CORTA` varchar(25) default NULL, "});
        b.Campo(&E::TIPO_FAMILIA, "TIPO_FAMILIA", {7, 0, 0, 7, "  `TIPO_FAMILIA` int(3) default NULL, "});
        b.Campo(&E::TIPO_SUBFAMILIA, "TIPO_SUBFAMILIA", {8, 0, 0, 8, "  `TIPO_SUBFAMILIA` int(4) default NULL, "});
        // The members IMPNETO_A and IMPBRUTO_A are named, everywhere, by their mixed-case columns.
        b.Campo(&E::IMPNETO_A, "ImpNeto_A", {9, 0, 0, 9, "  `ImpNeto_A` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPBRUTO_A, "ImpBruto_A", {10, 0, 0, 10, "  `ImpBruto_A` decimal(7,3) default NULL, "});
        b.Campo(&E::TIPO_UDS, "TIPO_UDS", {11, 0, 0, 11, "  `TIPO_UDS` int(2) default NULL, "});
        b.Campo(&E::UDS, "UDS", {12, 0, 0, 12, "  `UDS` decimal(7,3) default NULL, "});
        b.Campo(&E::ImpVenta_A, "ImpVenta_A", {13, 0, 0, 13, "  `ImpVenta_A` decimal(7,3) default NULL, "});
        b.Campo(&E::CD_Promocion, "CD_Promocion", {14, 0, 0, 14, "  `CD_Promocion` varchar(15) default NULL, "});
        b.Campo(&E::porc_descuento_A, "porc_descuento_A",
                {15, 0, 0, 15, "  `porc_descuento_A` decimal(3,2) default NULL, "});
        b.Campo(&E::imp_descuento_A, "imp_descuento_A",
                {16, 0, 0, 16, "  `imp_descuento_A` decimal(6,3) default NULL, "});
        b.Campo(&E::TIPO_FISCAL, "TIPO_FISCAL", {17, 0, 0, 17, "  `TIPO_FISCAL` int(2) default NULL, "});
        b.Campo(&E::porc_impuesto_A, "porc_impuesto_A",
                {18, 0, 0, 18, "  `porc_impuesto_A` decimal(3,2) default NULL, "});
        b.Campo(&E::imp_impuesto_A, "imp_impuesto_A", {19, 0, 0, 19, "  `imp_impuesto_A` decimal(6,3) default NULL, "});
        b.Campo(&E::idEmpresa, "idEmpresa", {20, 1, 1, 0, "  `idEmpresa` int(11) NOT NULL default '0', "});
        b.Campo(&E::idRestaurante, "idRestaurante", {21, 2, 2, 0, "  `idRestaurante` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTPV, "idTPV", {22, 3, 3, 0, "  `idTPV` int(11) NOT NULL default '0', "});
        b.Campo(&E::idTicket, "idTicket", {23, 4, 4, 0, "  `idTicket` int(11) NOT NULL default '0', "});
        b.Campo(&E::idLinea, "idLinea", {24, 5, 5, 0, "  `idLinea` int(11) NOT NULL default '0', "});
        // Behind idLinea: the column definitions name zaro_ columns with the type behind NULL, and are sent so;
        // Update writes the two promotions without the opening quote of a text.
        b.Campo(&E::CD_PROMOCION_2, "CD_PROMOCION_2", {25, 0, 0, 20, "  `zaro_CD_PROMOCION_2` NULL VARCHAR(15), "});
        b.Ultimo().LiteralSet = "   , CD_PROMOCION_2 = ";
        b.Campo(&E::CD_PROMOCION_3, "CD_PROMOCION_3", {26, 0, 0, 21, "  `zaro_CD_PROMOCION_3` NULL VARCHAR(15), "});
        b.Ultimo().LiteralSet = "   , CD_PROMOCION_3 = ";
        b.Campo(&E::PORC_DESCUENTO2_A, "PORC_DESCUENTO2_A",
                {27, 0, 0, 22, "  `zaro_PORC_DESCUENTO2_A` NULL DECIMAL(3,2), "});
        b.Campo(&E::IMPDESCUENTO2_A, "IMPDESCUENTO2_A",
                {28, 0, 0, 23, "  `zaro_IMPDESCUENTO2_A` NULL DECIMAL(20,3), "});
        b.Campo(&E::PORC_DESCUENTO3_A, "PORC_DESCUENTO3_A",
                {29, 0, 0, 24, "  `zaro_PORC_DESCUENTO3_A` NULL DECIMAL(3,2), "});
        b.Campo(&E::IMPDESCUENTO3_A, "IMPDESCUENTO3_A",
                {30, 0, 0, 25, "  `zaro_IMPDESCUENTO3_A` NULL DECIMAL(20,3), "});
        TablaDef& t = b.Def();
        // SetValor by name ignores the value given to the six fields behind idLinea and stores their own again.
        for (size_t i = static_cast<size_t>(t.Campo("idLinea")) + 1; i < t.Campos.size(); ++i)
            t.Campos[i].SetValorIgnoraValor = true;
        t.CampoNombreVacio = t.Campo("CD_ARTICULO");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".CD_ARTICULO , ", ".DESC_CORTA , ", ".TIPO_FAMILIA , ", ".TIPO_SUBFAMILIA ", " , ",
                    ".ImpNeto_A , ", ".ImpBruto_A , ", ".TIPO_UDS , ", ".UDS , ", ".ImpVenta_A , ", ".CD_Promocion , ",
                    ".porc_descuento_A ", " , ", ".imp_descuento_A , ", ".TIPO_FISCAL , ", ".porc_impuesto_A , ",
                    ".imp_impuesto_A , ", ".idEmpresa , ", ".idRestaurante , ", ".idTPV ", " , ", ".idTicket , ",
                    ".idLinea  ", " , ", ".CD_PROMOCION_2 ", " , ", ".CD_PROMOCION_3 ", " , ", ".PORC_DESCUENTO2_A ",
                    " , ", ".IMPDESCUENTO2_A ", " , ", ".PORC_DESCUENTO3_A ", " , ", ".IMPDESCUENTO3_A "};
        t.OrderBy = {" order by ", ".idEmpresa , ", ".idRestaurante , ", ".idTPV , ", ".idTicket , ", ".idLinea "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_ARTICULO, DESC_CORTA, TIPO_FAMILIA, TIPO_SUBFAMILIA",
                    " , ImpNeto_A, ImpBruto_A, TIPO_UDS, UDS, ImpVenta_A, CD_Promocion, porc_descuento_A",
                    " , imp_descuento_A, TIPO_FISCAL, porc_impuesto_A, imp_impuesto_A, idEmpresa, idRestaurante, idTPV",
                    " , idTicket, idLinea ",
                    " , CD_PROMOCION_2, CD_PROMOCION_3, PORC_DESCUENTO2_A, IMPDESCUENTO2_A, PORC_DESCUENTO3_A, "
                    "IMPDESCUENTO3_A) "};
        t.PrimaryKey = "  PRIMARY KEY  (`idEmpresa`,`idRestaurante`,`idTPV`,`idTicket`,`idLinea`) ";
        t.ArgumentosAdd = {"idEmpresa", "idRestaurante", "idTPV", "idTicket", "idLinea", "COD_TRANSACC",
                           "FECHA_REAL", "HORA_REAL", "ID_REGISTRO", "CD_ARTICULO", "DESC_CORTA", "TIPO_FAMILIA",
                           "TIPO_SUBFAMILIA", "ImpNeto_A", "ImpBruto_A", "TIPO_UDS", "UDS", "ImpVenta_A",
                           "CD_Promocion", "porc_descuento_A", "imp_descuento_A", "TIPO_FISCAL", "porc_impuesto_A",
                           "imp_impuesto_A", "CD_PROMOCION_2", "CD_PROMOCION_3", "PORC_DESCUENTO2_A",
                           "IMPDESCUENTO2_A", "PORC_DESCUENTO3_A", "IMPDESCUENTO3_A"};
        t.ArgumentosItemClave = {"idEmpresa", "idLinea", "idRestaurante", "idTicket", "idTPV"};
        // The index-driven walks stop at idLinea.
        return b.Terminar(24);
    }();
    return def;
}

}  // namespace OVT_ZARO
