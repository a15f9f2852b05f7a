#include "site.h"

#include <map>

#include "tables.h"

namespace zaro {

namespace {

// The columns of the fields the library's statement writes badly, as the
// site's table has them: the name of the select list and a type that fits.
const std::map<std::string, std::map<std::string, std::string>>& SiteColumns() {
    static const std::map<std::string, std::map<std::string, std::string>> columns = {
        {"ticket",
         {{"CODNACIONALIDAD", "varchar(255)"}, {"COD_ZAROCLI", "varchar(10)"}, {"COD_TARJETA", "varchar(32)"},
          {"COD_CLIE_PAX", "varchar(20)"}, {"CORREO_PAX", "varchar(50)"}, {"STATUS_PAX", "varchar(1)"},
          {"FECHA_VUELO", "varchar(8)"}, {"NUM_SEAT", "varchar(4)"}, {"NUM_CHECKIN", "varchar(5)"},
          {"IMPDESCUENTO2_T", "decimal(20,3)"}, {"PORC_DESCUENTO2_T", "decimal(20,2)"},
          {"IMPDESCUENTO3_T", "decimal(20,3)"}, {"PORC_DESCUENTO3_T", "decimal(20,2)"},
          {"idTPVTransaccion", "int(11)"}}},
        {"ticket_articulo",
         {{"CD_PROMOCION_2", "varchar(15)"}, {"CD_PROMOCION_3", "varchar(15)"},
          {"PORC_DESCUENTO2_A", "decimal(3,2)"}, {"IMPDESCUENTO2_A", "decimal(20,3)"},
          {"PORC_DESCUENTO3_A", "decimal(3,2)"}, {"IMPDESCUENTO3_A", "decimal(20,3)"}}},
    };
    return columns;
}

// The columns the summaries' Insert and Update write and their table lacks.
const char* const kSummaryColumns[] = {"idEmpresa", "idRestaurante", "idTPV"};

bool IsSummary(const std::string& tabla) { return tabla == "resumen_diario" || tabla == "resumen_diario_detalle"; }

// The site's CREATE TABLE for ticket or ticket_articulo: the table's own
// description, field by field, with the site's column where the library's
// line is malformed.
std::string SiteStatement(const std::string& tabla, const TablaDef& def) {
    const auto& own = SiteColumns().at(tabla);
    std::string sql = "CREATE TABLE `" + tabla + "` ( ";
    for (const CampoDef& c : def.Campos) {
        const std::string nombre(c.Nombre);
        if (auto it = own.find(nombre); it != own.end()) sql += "  `" + nombre + "` " + it->second + " default NULL, ";
        else sql += std::string(c.Definicion);
    }
    sql += std::string(def.PrimaryKey) + ") ENGINE=MyISAM DEFAULT CHARSET=latin1";
    return sql;
}

// Makes a table InnoDB, so that a cluster replicates its rows. Gives what
// was done, for the table's outcome.
std::string ConvertForCluster(Session& session, const std::string& tabla) {
    const std::string t = "`" + tabla + "`";
    const int64_t rows = session.Filas(tabla);
    if (rows == 0) {
        // Made just now, on every node alike: altered in place on each.
        session.Ejecutar("ALTER TABLE " + t + " ENGINE=InnoDB");
        return "; converted to InnoDB for the cluster";
    }
    // Altered in place, each node would keep the rows it holds. The rows
    // are copied into a new InnoDB table instead, which the cluster
    // replicates, and it takes the table's place on every node.
    const std::string nueva = "`" + tabla + "_zaro_innodb`", vieja = "`" + tabla + "_zaro_myisam`";
    session.Ejecutar("DROP TABLE IF EXISTS " + nueva + ", " + vieja);
    session.Ejecutar("CREATE TABLE " + nueva + " LIKE " + t);
    session.Ejecutar("ALTER TABLE " + nueva + " ENGINE=InnoDB");
    session.Ejecutar("INSERT INTO " + nueva + " SELECT * FROM " + t);
    session.Ejecutar("RENAME TABLE " + t + " TO " + vieja + ", " + nueva + " TO " + t);
    session.Ejecutar("DROP TABLE " + vieja);
    return "; converted to InnoDB for the cluster, its " + std::to_string(rows) + (rows == 1 ? " row" : " rows") +
           " copied";
}

}  // namespace

std::vector<TableState> PrepareTables(Session& session) {
    const bool cluster = session.EnCluster();
    std::vector<TableState> states;
    DataAdapters& registro = session.Registro();
    for (const std::string& tabla : TableList(registro)) {
        TableState s{tabla, "", false};
        const bool existed = session.TablaExiste(s.tabla);
        const int64_t rows = existed ? session.Filas(s.tabla) : 0;
        const bool created = WithTable(registro, s.tabla, [](auto& adapter) { return adapter.CrearTabla(); });
        if (created) s.outcome = "created";
        else if (rows > 0) s.outcome = "kept, holds " + std::to_string(rows) + (rows == 1 ? " row" : " rows");
        else s.outcome = "refused by the database";
        try {
            if (!session.TablaExiste(s.tabla) && SiteColumns().count(s.tabla)) {
                const TablaDef& def = WithTable(registro, s.tabla, [](auto& adapter) -> const TablaDef& {
                    return EntityOf<std::remove_reference_t<decltype(adapter)>>::Def();
                });
                session.Ejecutar(SiteStatement(s.tabla, def));
                s.outcome += "; made the site's own table";
            }
            if (IsSummary(s.tabla) && session.TablaExiste(s.tabla)) {
                std::string add, names;
                for (const char* columna : kSummaryColumns) {
                    if (session.ColumnaExiste(s.tabla, columna)) continue;
                    add += std::string(add.empty() ? " ADD COLUMN `" : ", ADD COLUMN `") + columna +
                           "` int(11) NOT NULL default '0'";
                    names += std::string(names.empty() ? "" : ", ") + columna;
                }
                if (!add.empty()) {
                    session.Ejecutar("ALTER TABLE `" + s.tabla + "`" + add);
                    s.outcome += "; added the site's columns " + names;
                }
            }
            if (cluster && session.TablaExiste(s.tabla) && session.Motor(s.tabla) != "InnoDB")
                s.outcome += ConvertForCluster(session, s.tabla);
        } catch (const Error& e) {
            s.outcome += "; the site's statement failed: " + DescribeError(e);
        }
        s.usable = session.TablaExiste(s.tabla);
        states.push_back(std::move(s));
    }
    return states;
}

}  // namespace zaro
