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
        const bool lista = session.VariosServidores();
        std::cout << "import " << archivo << " into " << tabla << (lista ? " on " + session.Servidor() : "")
                  << ": ImportarTexto read " << Rows(rows->Count()) << "\n";
        std::cout.flush();
        SaveResult r;
        {
            Progress progress("import " + tabla, static_cast<size_t>(rows->Count()));
            // A line that went on through another server is told at once.
            const Notify notify = [&](const std::string& nota) {
                progress.Finish();
                std::cout << "  " << nota << "\n";
                std::cout.flush();
                session.AnotarConexion("import of " + archivo + ", " + nota);
            };
            r = SaveRows(adapter, *rows, EmptyPieces(texto), progress, notify);
        }
        for (const SkippedRow& s : r.skipped) std::cout << "  line " << s.line << " skipped: " << s.message << "\n";
        std::cout << "saved " << Rows(r.Saved()) << " (" << r.inserted << " inserted, " << r.updated << " updated)";
        if (!r.skipped.empty()) std::cout << "; skipped " << Rows(r.skipped.size());
        if (r.emptySkipped) std::cout << "; skipped " << Lines(r.emptySkipped);
        std::cout << "\n";
        std::cout.flush();
        const std::string donde = lista ? "import stopped on " + session.Servidor() + " at " : "import stopped at ";
        if (r.stopSignal) throw Interrupted{r.stopSignal, donde + r.StopReport()};
        if (r.failure) throw DataError(donde + r.StopReport());
        return r.skipped.empty() ? kExitOk : kExitData;
    });
}

}  // namespace zaro
