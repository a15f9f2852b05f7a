// The _definicion_campos table as its field table shows it. Its deviations:
// inside GetValor and SetValor the name Campo means the argument, so
// GetValor("Campo") answers the name asked for, SetValor("Campo") writes the
// new value into the caller's argument, and GetValor("") answers the empty
// argument; the field Orden has the column orden. The argument Tabla of
// Delete, Listar and rsListar is passed on in the header.
#include "ZARODatos/tables/definicion_campos.h"

namespace OVT_ZARO {

const TablaDef& ent_definicion_campos::Def() {
    using E = ent_definicion_campos;
    static const TablaDef def = [] {
        TablaBuilder<E> b("_definicion_campos", "ent_definicion_campos", "col_definicion_campos",
                          "da_definicion_campos");
        // Member, name, {index, key, required, set, column definition}
        b.Campo(&E::Tabla, "Tabla", {1, 1, 1, 0, "  `Tabla` varchar(50) NOT NULL default '', "});
        b.Campo(&E::Campo, "Campo", {2, 2, 2, 0, "  `Campo` varchar(50) NOT NULL default '', "});
        b.Campo(&E::tipo_dato, "tipo_dato", {3, 0, 0, 1, "  `tipo_dato` char(1) default NULL, "});
        b.Campo(&E::tamano, "tamano", {4, 0, 0, 2, "  `tamano` varchar(10) default NULL, "});
        // The member Orden has the lower-case column orden.
        b.Campo(&E::Orden, "orden", {5, 0, 0, 3, "  `orden` int(11) default NULL, "});
        b.Campo(&E::EsClave, "EsClave", {6, 0, 0, 4, "  `EsClave` char(1) default '', "});
        b.Campo(&E::visible, "visible", {7, 0, 0, 5, "  `visible` char(1) default NULL, "});
        TablaDef& t = b.Def();
        // The argument of GetValor and SetValor hides the column Campo.
        t.NombreArgumento = "Campo";
        // GetValor("") answers the argument itself: the empty string.
        t.CampoNombreVacio = -1;
        t.Select = {"select ", " ", ".Tabla , ", ".Campo , ", ".tipo_dato , ", ".tamano , ", ".orden , ",
                    ".EsClave , ", ".visible  "};
        t.OrderBy = {" order by ", ".Tabla , ", ".Campo "};
        t.Insert = {" (Tabla, Campo, tipo_dato, tamano, orden, EsClave, visible) "};
        t.PrimaryKey = "  PRIMARY KEY  (`Tabla`,`Campo`) ";
        t.ArgumentosAdd = {"Tabla", "Campo", "tipo_dato", "tamano", "orden", "EsClave", "visible"};
        t.ArgumentosItemClave = {"Campo", "Tabla"};
        return b.Terminar(7);
    }();
    return def;
}

}  // namespace OVT_ZARO
