// zaro totals TABLE FIELD [--where COND]
#include <iostream>

#include "tables.h"

namespace zaro {

namespace {
// The field names of an entity, for a message.
std::string FieldNames(IEntidad& e) {
    std::string names;
    for (int16_t i = 1; i <= e.NumCampos(); ++i) names += (i > 1 ? ", " : "") + e.GetNombreCampo(i);
    return names;
}
}  // namespace

int RunTotals(const Options& options) {
    const std::string& tabla = options.args[0];
    std::string campo = options.args[1];
    CheckTable(tabla);
    Session session(options);
    session.RequireDatabase();
    return WithTable(session.Registro(), tabla, [&](auto& adapter) {
        // The list queries answer 0 for a field the entity does not have; a
        // person who mistyped a name is better told.
        using E = EntityOf<std::remove_reference_t<decltype(adapter)>>;
        E probe;
        const Variant known = probe.GetValor(campo);
        if (known.IsString() && known.template Get<std::string>() == "#ERROR#")
            throw UsageError(tabla + " has no field '" + campo + "'; its fields are " + FieldNames(probe));
        typename std::remove_reference_t<decltype(adapter)>::ListRef rows;
        try {
            rows = ListWhere(adapter, options.where.value_or(""));
        } catch (const Error& e) {
            throw DataError("can not list " + tabla + ": " + DescribeError(e));
        }
        TextTable table({"", campo}, {false, true});
        table.Row({"sum", Number(rows->ObtenerSuma(campo))});
        table.Row({"mean", Number(rows->ObtenerMedia(campo))});
        table.Row({"maximum", Number(rows->ObtenerMaximo(campo))});
        table.Row({"minimum", Number(rows->ObtenerMinimo(campo))});
        std::cout << tabla << ", " << rows->Count() << (rows->Count() == 1 ? " row" : " rows")
                  << (options.where ? " where " + *options.where : "") << ":\n";
        table.Print(std::cout, "  ");
        std::cout << "Maximum and minimum start from 0, as the library's list queries do.\n";
        return kExitOk;
    });
}

}  // namespace zaro
