// zaro import TABLE FILE [--sep S]
#include <iostream>

#include "exchange.h"

namespace zaro {

namespace {
std::string Rows(size_t n) { return std::to_string(n) + (n == 1 ? " row" : " rows"); }
std::string Lines(size_t n) { return std::to_string(n) + (n == 1 ? " empty line" : " empty lines"); }
}  // namespace

int RunImport(const Options& options) {
    std::string sep = Separator(options);
    const std::string& tabla = options.args[0];
    const std::string& archivo = options.args[1];
    CheckTable(tabla);
    std::string texto = ExchangeText(ReadFile(archivo));
    Session session(options);
    session.RequireDatabase();
    Interruptible interruptible;
    return WithTable(session.Registro(), tabla, [&](auto& adapter) {
        typename std::remove_reference_t<decltype(adapter)>::ListRef rows;
        try {
            rows = adapter.ImportarTexto(texto, sep);
        } catch (const Error& e) {
            throw DataError("can not read " + archivo + " as " + tabla + ": " + DescribeError(e) +
                            "; nothing was saved");
        }
        std::cout << "import " << archivo << " into " << tabla << ": ImportarTexto read " << Rows(rows->Count())
                  << "\n";
        std::cout.flush();
        SaveResult r;
        {
            Progress progress("import " + tabla, static_cast<size_t>(rows->Count()));
            r = SaveRows(adapter, *rows, EmptyPieces(texto), progress);
        }
        for (const SkippedRow& s : r.skipped) std::cout << "  line " << s.line << " skipped: " << s.message << "\n";
        std::cout << "saved " << Rows(r.Saved()) << " (" << r.inserted << " inserted, " << r.updated << " updated)";
        if (!r.skipped.empty()) std::cout << "; skipped " << Rows(r.skipped.size());
        if (r.emptySkipped) std::cout << "; skipped " << Lines(r.emptySkipped);
        std::cout << "\n";
        std::cout.flush();
        if (r.stopSignal) throw Interrupted{r.stopSignal, "import stopped at " + r.StopReport()};
        if (r.failure) throw DataError("import stopped at " + r.StopReport());
        return r.skipped.empty() ? kExitOk : kExitData;
    });
}

}  // namespace zaro
