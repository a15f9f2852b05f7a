// zaro query "SQL"
#include <iostream>

#include "zaro.h"

namespace zaro {

int RunQuery(const Options& options) {
    const std::string& sql = options.args[0];
    Session session(options);
    // The operator's statement runs as given; without --write it runs in a
    // read-only transaction (every transaction of the session is), and the
    // database refuses any change it would make.
    if (!options.write) {
        try {
            session.Ejecutar("SET SESSION TRANSACTION READ ONLY");
        } catch (const Error& e) {
            throw DataError("can not start a read-only transaction: " + DescribeError(e));
        }
    }
    auto rs = std::make_shared<ADODB::Recordset>();
    try {
        rs->Open(sql, session.Conexion());
    } catch (const Error& e) {
        const bool refused = !options.write && e.Number == 1792;
        throw DataError("the statement failed: " + DescribeError(e) +
                        (refused ? "; zaro query runs read-only unless --write is given" : ""));
    }
    if (rs->State() != ADODB::adStateOpen) {
        const int64_t changed = session.Conexion()->RecordsAffected();
        std::cout << "the statement ran; " << (changed < 0 ? std::string("no count of rows") : std::to_string(changed))
                  << (changed == 1 ? " row" : " rows") << " changed\n";
        return kExitOk;
    }
    std::vector<std::string> header;
    for (ADODB::Field& f : rs->Fields()) header.push_back(f.Name());
    coleccionGenerica rows;
    rows.Cargar(rs);
    rs->Close();
    // A row loads one field per distinct column name, so the header follows
    // the first row when there is one.
    if (rows.Count() > 0) {
        entidadGenericaRef first = rows.Item(1);
        header.clear();
        for (int16_t i = 1; i <= first->NumCampos(); ++i) header.push_back(first->GetNombreCampo(i));
    }
    std::vector<bool> right(header.size(), true);
    for (const entidadGenericaRef& e : rows) {
        for (int16_t i = 1; i <= e->NumCampos() && static_cast<size_t>(i) <= right.size(); ++i) {
            const Variant v = e->GetValorIndice(i);
            if (!(v.IsNumber() || v.IsEmpty())) right[static_cast<size_t>(i - 1)] = false;
        }
    }
    TextTable table(header, right);
    for (const entidadGenericaRef& e : rows) {
        std::vector<std::string> cells;
        for (int16_t i = 1; i <= e->NumCampos(); ++i) cells.push_back(CStr(e->GetValorIndice(i)));
        table.Row(std::move(cells));
    }
    table.Print(std::cout);
    std::cout << "(" << rows.Count() << (rows.Count() == 1 ? " row" : " rows") << ")\n";
    return kExitOk;
}

}  // namespace zaro
