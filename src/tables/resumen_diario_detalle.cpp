// The resumen_diario_detalle table as its field table shows it. Its
// deviation is the daily summary's: idEmpresa, idRestaurante and idTPV have
// no index, no column definition and no place in the select list, yet Insert
// and Update write them.
#include "ZARODatos/tables/resumen_diario_detalle.h"

namespace OVT_ZARO {

const TablaDef& entresumen_diario_detalle::Def() {
    using E = entresumen_diario_detalle;
    static const TablaDef def = [] {
        TablaBuilder<E> b("resumen_diario_detalle", "entresumen_diario_detalle", "colresumen_diario_detalle",
                          "daresumen_diario_detalle");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 1, 1, 0, "  `COD_TRANSACC` int(5) NOT NULL default '0', "});
        b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 2, 2, 0, "  `FECHA_REAL` date NOT NULL default '0000-00-00', "});
        b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 1, "  `HORA_REAL` varchar(6) default NULL, "});
        b.Campo(&E::ID_REGISTRO, "ID_REGISTRO", {4, 3, 3, 0, "  `ID_REGISTRO` int(3) NOT NULL default '0', "});
        b.Campo(&E::TIPO_FAMILIA, "TIPO_FAMILIA", {5, 4, 4, 0, "  `TIPO_FAMILIA` int(3) NOT NULL default '0', "});
        b.Campo(&E::TIPO_SUBFAMILIA, "TIPO_SUBFAMILIA",
                {6, 5, 5, 0, "  `TIPO_SUBFAMILIA` int(4) NOT NULL default '0', "});
        b.Campo(&E::TIPO_FISCAL, "TIPO_FISCAL", {7, 6, 6, 0, "  `TIPO_FISCAL` int(2) NOT NULL default '0', "});
        b.Campo(&E::ARTICULOS_V, "ARTICULOS_V", {8, 0, 0, 2, "  `ARTICULOS_V` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPBRUTO_VSFZ, "IMPBRUTO_VSFZ", {9, 0, 0, 3, "  `IMPBRUTO_VSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_VSFZ, "IMPNETO_VSFZ", {10, 0, 0, 4, "  `IMPNETO_VSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_VSFZ, "IMPDESCUENTO_VSFZ",
                {11, 0, 0, 5, "  `IMPDESCUENTO_VSFZ` decimal(6,3) default NULL, "});
        b.Campo(&E::ARTICULOS_D, "ARTICULOS_D", {12, 0, 0, 6, "  `ARTICULOS_D` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPBRUTO_DSFZ, "IMPBRUTO_DSFZ", {13, 0, 0, 7, "  `IMPBRUTO_DSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_DSFZ, "IMPNETO_DSFZ", {14, 0, 0, 8, "  `IMPNETO_DSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_DSFZ, "IMPDESCUENTO_DSFZ",
                {15, 0, 0, 9, "  `IMPDESCUENTO_DSFZ` decimal(6,3) default NULL, "});
        b.Campo(&E::ARTICULOS_A, "ARTICULOS_A", {16, 0, 0, 10, "  `ARTICULOS_A` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPBRUTO_ASFZ, "IMPBRUTO_ASFZ", {17, 0, 0, 11, "  `IMPBRUTO_ASFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_ASFZ, "IMPNETO_ASFZ", {18, 0, 0, 12, "  `IMPNETO_ASFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_ASFZ, "IMPDESCUENTO_ASFZ",
                {19, 0, 0, 13, "  `IMPDESCUENTO_ASFZ` decimal(6,3) default NULL, "});
        b.Campo(&E::ARTICULOS_AD, "ARTICULOS_AD", {20, 0, 0, 14, "  `ARTICULOS_AD` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPBRUTO_ADSFZ, "IMPBRUTO_ADSFZ", {21, 0, 0, 15, "  `IMPBRUTO_ADSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPNETO_ADSFZ, "IMPNETO_ADSFZ", {22, 0, 0, 16, "  `IMPNETO_ADSFZ` decimal(7,3) default NULL, "});
        b.Campo(&E::IMPDESCUENTO_ADSFZ, "IMPDESCUENTO_ADSFZ",
                {23, 0, 0, 17, "  `IMPDESCUENTO_ADSFZ` decimal(6,3) default NULL, "});
        // No index, no column definition, not read: only written.
        b.Campo(&E::idEmpresa, "idEmpresa", {0, 0, 0, 18, ""});
        b.Campo(&E::idRestaurante, "idRestaurante", {0, 0, 0, 19, ""});
        b.Campo(&E::idTPV, "idTPV", {0, 0, 0, 20, ""});
        TablaDef& t = b.Def();
        t.CampoNombreVacio = t.Campo("FECHA_REAL");
        t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".ID_REGISTRO , ",
                    ".TIPO_FAMILIA , ", ".TIPO_SUBFAMILIA , ", ".TIPO_FISCAL , ", ".ARTICULOS_V ", " , ",
                    ".IMPBRUTO_VSFZ , ", ".IMPNETO_VSFZ , ", ".IMPDESCUENTO_VSFZ , ", ".ARTICULOS_D , ",
                    ".IMPBRUTO_DSFZ , ", ".IMPNETO_DSFZ , ", ".IMPDESCUENTO_DSFZ ", " , ", ".ARTICULOS_A , ",
                    ".IMPBRUTO_ASFZ , ", ".IMPNETO_ASFZ , ", ".IMPDESCUENTO_ASFZ , ", ".ARTICULOS_AD , ",
                    ".IMPBRUTO_ADSFZ , ", ".IMPNETO_ADSFZ ", " , ", ".IMPDESCUENTO_ADSFZ  "};
        t.OrderBy = {" order by ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".ID_REGISTRO , ", ".TIPO_FAMILIA , ",
                     ".TIPO_SUBFAMILIA , ", ".TIPO_FISCAL "};
        t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, ID_REGISTRO, TIPO_FAMILIA, TIPO_SUBFAMILIA, TIPO_FISCAL, ARTICULOS_V",
                    " , IMPBRUTO_VSFZ, IMPNETO_VSFZ, IMPDESCUENTO_VSFZ, ARTICULOS_D, IMPBRUTO_DSFZ, IMPNETO_DSFZ, "
                    "IMPDESCUENTO_DSFZ",
                    " , ARTICULOS_A, IMPBRUTO_ASFZ, IMPNETO_ASFZ, IMPDESCUENTO_ASFZ, ARTICULOS_AD, IMPBRUTO_ADSFZ, "
                    "IMPNETO_ADSFZ",
                    " , IMPDESCUENTO_ADSFZ, idEmpresa, idRestaurante, idTPV) "};
        t.PrimaryKey =
            "  PRIMARY KEY  (`COD_TRANSACC`,`FECHA_REAL`,`ID_REGISTRO`,`TIPO_FAMILIA`,`TIPO_SUBFAMILIA`,`TIPO_FISCAL`) ";
        t.ArgumentosAdd = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_FAMILIA", "TIPO_SUBFAMILIA",
                           "TIPO_FISCAL", "HORA_REAL", "ARTICULOS_V", "IMPBRUTO_VSFZ", "IMPNETO_VSFZ",
                           "IMPDESCUENTO_VSFZ", "ARTICULOS_D", "IMPBRUTO_DSFZ", "IMPNETO_DSFZ", "IMPDESCUENTO_DSFZ",
                           "ARTICULOS_A", "IMPBRUTO_ASFZ", "IMPNETO_ASFZ", "IMPDESCUENTO_ASFZ", "ARTICULOS_AD",
                           "IMPBRUTO_ADSFZ", "IMPNETO_ADSFZ", "IMPDESCUENTO_ADSFZ"};
        t.ArgumentosItemClave = {"COD_TRANSACC", "FECHA_REAL", "ID_REGISTRO", "TIPO_FAMILIA", "TIPO_FISCAL",
                                 "TIPO_SUBFAMILIA"};
        return b.Terminar(23);
    }();
    return def;
}

}  // namespace OVT_ZARO
