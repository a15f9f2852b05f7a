// The inicio_dia and fin_dia tables as their one field table shows them.
// They have no deviation from the template; the two differ only in their
// names. The key leaves FECHA_REAL out: the accounting date names the day.
#include "ZARODatos/tables/dia.h"

namespace OVT_ZARO {

namespace {
template <class E>
TablaDef DescripcionDia(std::string_view tabla, std::string_view clase_entidad, std::string_view clase_lista,
                        std::string_view clase_adapter) {
    TablaBuilder<E> b(tabla, clase_entidad, clase_lista, clase_adapter);
    // Member, name, {index, key, required, set, column definition}
    b.Campo(&E::COD_TRANSACC, "COD_TRANSACC", {1, 1, 1, 0, "  `COD_TRANSACC` int(5) NOT NULL default '0', "});
    b.Campo(&E::FECHA_REAL, "FECHA_REAL", {2, 0, 0, 1, "  `FECHA_REAL` date default NULL, "});
    b.Campo(&E::HORA_REAL, "HORA_REAL", {3, 0, 0, 2, "  `HORA_REAL` varchar(6) default NULL, "});
    b.Campo(&E::CD_OP, "CD_OP", {4, 2, 2, 0, "  `CD_OP` int(8) NOT NULL default '0', "});
    b.Campo(&E::FECHA_CONTABLE, "FECHA_CONTABLE",
            {5, 3, 3, 0, "  `FECHA_CONTABLE` date NOT NULL default '0000-00-00', "});
    TablaDef& t = b.Def();
    t.CampoNombreVacio = t.Campo("FECHA_CONTABLE");
    t.Select = {"select ", " ", ".COD_TRANSACC , ", ".FECHA_REAL , ", ".HORA_REAL , ", ".CD_OP , ",
                ".FECHA_CONTABLE  "};
    t.OrderBy = {" order by ", ".COD_TRANSACC , ", ".CD_OP , ", ".FECHA_CONTABLE "};
    t.Insert = {" (COD_TRANSACC, FECHA_REAL, HORA_REAL, CD_OP, FECHA_CONTABLE) "};
    t.PrimaryKey = "  PRIMARY KEY  (`COD_TRANSACC`,`CD_OP`,`FECHA_CONTABLE`) ";
    t.ArgumentosAdd = {"COD_TRANSACC", "CD_OP", "FECHA_CONTABLE", "FECHA_REAL", "HORA_REAL"};
    t.ArgumentosItemClave = {"CD_OP", "COD_TRANSACC", "FECHA_CONTABLE"};
    return b.Terminar(5);
}
}  // namespace

const TablaDef& entinicio_dia::Def() {
    static const TablaDef def =
        DescripcionDia<entinicio_dia>("inicio_dia", "entinicio_dia", "colinicio_dia", "dainicio_dia");
    return def;
}

const TablaDef& entfin_dia::Def() {
    static const TablaDef def = DescripcionDia<entfin_dia>("fin_dia", "entfin_dia", "colfin_dia", "dafin_dia");
    return def;
}

}  // namespace OVT_ZARO
