// The resumen_diario table as its field table shows it. Its deviation: the
// three last fields (idEmpresa, idRestaurante, idTPV) have no index, no
// column definition and no place in the select list, yet Insert and Update
// write them; after a read they hold 0.
#include "ZARODatos/tables/resumen_diario.h"

namespace OVT_ZARO {

const TablaDef& entresumen_diario::Def() {
    using E = entresumen_diario;
    static const TablaDef def = [] {
        TablaBuilder<E> b("resumen_diario", "entresumen_diario", "colresumen_diario", "daresumen_diario");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 1, 1, 0, "  `COD_TRANSACC` int(5) NOT NULL default '0', "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 2, 2, 0, "  `FECHA_REAL` date NOT NULL default '0000-00-00', "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 1, "  `HORA_REAL` varchar(6) default NULL, "});
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 3, 3, 0, "  `ID_REGISTRO` int(3) NOT NULL default '0', "});
        b.Campo(&E::CD_OP, "CD_OP", {5, 4, 4, 0, "  `CD_OP` int(8) NOT NULL default '0', "});
        b.Campo(&E::FECHA_CONTABLE, "FECHA_CONTABLE",
                {6, 5, 5, 0, "  `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "});
        b.Campo(&E::CD_TICKET_I, "CD_TICKET_I", {7, 0, 0, 2, "  `CD_TICKET_I` int(8) default NULL, "});
        b.Campo(&E::CD_TICKET_F, "CD_TICKET_F", {8, 0, 0, 3, "  `CD_TICKET_F` int(8) default NULL, "});
        b.Campo(&E::N_VENTAS, "N_VENTAS", {9, 0, 0, 4, "  `N_VENTAS` int(4) default NULL, "});
        b.Campo(&E::IMPBRUTO_V, "IMPBRUTO_V", {10, 0, 0, 5, "  `IMPBRUTO_V` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_V, "IMPNETO_V", {11, 0, 0, 6, "  `IMPNETO_V` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_V, "IMPDESCUENTO_V", {12, 0, 0, 7, "  `IMPDESCUENTO_V` decimal(6,3) default NULL, "});
        b.Campo(&E::N_DEVOLUCIONES, "N_DEVOLUCIONES", {13, 0, 0, 8, "  `N_DEVOLUCIONES` int(4) default NULL, "});
        b.Campo(&E::IMPBRUTO_D, "IMPBRUTO_D", {14, 0, 0, 9, "  `IMPBRUTO_D` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_D, "IMPNETO_D", {15, 0, 0, 10, "  `IMPNETO_D` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_D, "IMPDESCUENTO_D", {16, 0, 0, 11, "  `IMPDESCUENTO_D` decimal(6,3) default NULL, "});
        b.Campo(&E::N_ANULACIONES, "N_ANULACIONES", {17, 0, 0, 12, "  `N_ANULACIONES` int(4) default NULL, "});
        b.Campo(&E::IMPBRUTO_A, "IMPBRUTO_A", {18, 0, 0, 13, "  `IMPBRUTO_A` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_A, "IMPNETO_A", {19, 0, 0, 14, "  `IMPNETO_A` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_A, "IMPDESCUENTO_A", {20, 0, 0, 15, "  `IMPDESCUENTO_A` decimal(6,3) default NULL, "});
        b.Campo(&E::N_A_DEVOLUCION, "N_A_DEVOLUCION", {21, 0, 0, 16, "  `N_A_DEVOLUCION` int(4) default NULL, "});
        b.Campo(&E::IMPBRUTO_AD, "IMPBRUTO_AD", {22, 0, 0, 17, "  `IMPBRUTO_AD` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_AD, "IMPNETO_AD", {23, 0, 0, 18, "  `IMPNETO_AD` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_AD, "IMPDESCUENTO_AD",
                {24, 0, 0, 19, "  `IMPDESCUENTO_AD` decimal(6,3) default NULL, "});
        b.Campo(&E::N_CANCELACIONES, "N_CANCELACIONES", {25, 0, 0, 20, "  `N_CANCELACIONES` int(4) default NULL, "});
        b.Campo(&E::IMPBRUTO_C, "IMPBRUTO_C", {26, 0, 0, 21, "  `IMPBRUTO_C` decimal(7,3) default NULL, "});
        b.Campo(&E::NUM_REG_01, "NUM_REG_01", {27, 0, 0, 22, "  `NUM_REG_01` int(3) default NULL, "});
        // No index, no column definition, not read: only written.
        b.Campo(&E::idEmpresa, "idEmpresa", {0, 0, 0, 23, ""});
        b.Campo(&E::idRestaurante, "idRestaurante", {0, 0, 0, 24, ""});
        b.Campo(&E::idTPV, "idTPV", {0, 0, 0, 25, ""});
        TablaDef& t = b.Def();
        t.CampoNombreVacio = t.Campo("FECHA_REAL");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".CD_OP , ", ".FECHA_CONTABLE , ", ".CD_TICKET_I , ", ".CD_TICKET_F ", " , ", ".N_VENTAS , ",
                    ".IMPBRUTO_V , ", ".IMPNETO_V , ", ".IMPDESCUENTO_V , ", ".N_DEVOLUCIONES , ", ".IMPBRUTO_D , ",
                    ".IMPNETO_D ", " , ", ".IMPDESCUENTO_D , ", ".N_ANULACIONES , ", ".IMPBRUTO_A , ",
                    ".IMPNETO_A , ", ".IMPDESCUENTO_A , ", ".N_A_DEVOLUCION , ", ".IMPBRUTO_AD ", " , ",
                    ".IMPNETO_AD , ", ".IMPDESCUENTO_AD , ", ".N_CANCELACIONES , ", ".IMPBRUTO_C , ",
                    ".NUM_REG_01  "};
        t.OrderBy = {" order by ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".ID_REGISTRO , ", ".CD_OP , ",
                     ".FECHA_CONTABLE "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, CD_OP, FECHA_CONTABLE, CD_TICKET_I, CD_TICKET_F",
                    " , N_VENTAS, IMPBRUTO_V, IMPNETO_V, IMPDESCUENTO_V, N_DEVOLUCIONES, IMPBRUTO_D, IMPNETO_D",
                    " , IMPDESCUENTO_D, N_ANULACIONES, IMPBRUTO_A, IMPNETO_A, IMPDESCUENTO_A, N_A_DEVOLUCION, IMPBRUTO_AD",
                    " , IMPNETO_AD, IMPDESCUENTO_AD, N_CANCELACIONES, IMPBRUTO_C, NUM_REG_01, idEmpresa, idRestaurante, "
                    "idTPV) "};
        t.PrimaryKey = "  PRIMARY KEY  (`COD_TRANSACC`,`FECHA_REAL`,`ID_REGISTRO`,`CD_OP`,`FECHA_CONTABLE`) ";
        t.ArgumentosAdd = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "CD_OP", "FECHA_CONTABLE", "HORA_REAL",
                           "CD_TICKET_I", "CD_TICKET_F", "N_VENTAS", "IMPBRUTO_V", "IMPNETO_V", "IMPDESCUENTO_V",
                           "N_DEVOLUCIONES", "IMPBRUTO_D", "IMPNETO_D", "IMPDESCUENTO_D", "N_ANULACIONES",
                           "IMPBRUTO_A", "IMPNETO_A", "IMPDESCUENTO_A", "N_A_DEVOLUCION", "IMPBRUTO_AD",
                           "IMPNETO_AD", "IMPDESCUENTO_AD", "N_CANCELACIONES", "IMPBRUTO_C", "NUM_REG_01"};
        t.ArgumentosItemClave = {"CD_OP", "COD_TRANSACC", "FECHA_CONTABLE", "FECHA_REAL", "ID_REGISTRO"};
        return b.Terminar(27);
    }();
    return def;
}

}  // namespace OVT_ZARO
