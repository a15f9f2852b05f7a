// The article table as its field table shows it. It has no deviation from
// the template.
#include "ZARODatos/tables/articulo.h"

namespace OVT_ZARO {

const TablaDef& entarticulo::Def() {
    using E = entarticulo;
    static const TablaDef def = [] {
        TablaBuilder<E> b("articulo", "entarticulo", "colarticulo", "daarticulo");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 0, 0, 1, "  `COD_TRANSACC` int(5) default NULL, "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 0, 2, "  `FECHA_REAL` date default NULL, "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 3, "  `HORA_REAL` varchar(6) default NULL, "});
        b.Campo(&E::CD_OP, "CD_OP", {4, 0, 0, 4, "  `CD_OP` int(5) default NULL, "});
        b.Campo(&E::TIPO_OPERACION, "TIPO_OPERACION", {5, 0, 0, 5, "  `TIPO_OPERACION` int(2) default NULL, "});
        b.Campo(&E::CD_ARTICULO, "CD_ARTICULO", {6, 1, 1, 0, "  `CD_ARTICULO` varchar(15) NOT NULL default '0', "});
        b.Campo(&E::IDARTICOLGS1, "IDARTICOLGS1", {7, 0, 0, 6, "  `IDARTICOLGS1` varchar(15) default NULL, "});
        b.Campo(&E::TIPO_FAMILIA, "TIPO_FAMILIA", {8, 0, 0, 7, "  `TIPO_FAMILIA` int(3) default NULL, "});
        b.Campo(&E::TIPO_SUBFAMILIA, "TIPO_SUBFAMILIA", {9, 0, 0, 8, "  `TIPO_SUBFAMILIA` int(4) default NULL, "});
        b.Campo(&E::PRECIOMAX, "PRECIOMAX", {10, 0, 0, 9, "  `PRECIOMAX` decimal(5,3) default NULL, "});
        b.Campo(&E::DESC_ARTICULO, "DESC_ARTICULO", {11, 0, 0, 10, "  `DESC_ARTICULO` varchar(50) default NULL, "});
        b.Campo(&E::DESC_CORTA, "DESC_CORTA", {12, 0, 0, 11, "  `DESC_CORTA` varchar(25) default NULL, "});
        TablaDef& t = b.Def();
        t.CampoNombreVacio = t.Campo("DESC_ARTICULO");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".CD_OP , ",
                    ".TIPO_OPERACION , ", ".CD_ARTICULO , ", ".IDARTICOLGS1 , ", ".TIPO_FAMILIA ", " , ",
                    ".TIPO_SUBFAMILIA , ", ".PRECIOMAX , ", ".DESC_ARTICULO , ", ".DESC_CORTA  "};
        t.OrderBy = {" order by ", ".CD_ARTICULO "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, TIPO_OPERACION, CD_ARTICULO, IDARTICOLGS1, TIPO_FAMILIA",
                    " , TIPO_SUBFAMILIA, PRECIOMAX, DESC_ARTICULO, DESC_CORTA) "};
        t.PrimaryKey = "  PRIMARY KEY  (`CD_ARTICULO`) ";
        t.ArgumentosAdd = {"CD_ARTICULO", "COD_TRANSACC", "FECHA_REAL", "HORA_REAL", "CD_OP", "TIPO_OPERACION",
                           "IDARTICOLGS1", "TIPO_FAMILIA", "TIPO_SUBFAMILIA", "PRECIOMAX", "DESC_ARTICULO", "DESC_CORTA"};
        t.ArgumentosItemClave = {"CD_ARTICULO"};
        return b.Terminar(12);
    }();
    return def;
}

}  // namespace OVT_ZARO
