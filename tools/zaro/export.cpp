// zaro export TABLE [--where COND] [--sep S] [--out FILE]
// zaro xml TABLE [--where COND]
#include <iostream>

#include "exchange.h"

namespace zaro {

namespace {
// The rows of the table that meet --where, with a failure named.
template <class A>
typename A::ListRef ListRows(A& adapter, const std::string& tabla, const Options& options) {
    try {
        return ListWhere(adapter, options.where.value_or(""));
    } catch (const Error& e) {
        throw DataError("can not list " + tabla + (options.where ? " where " + *options.where : "") + ": " +
                        DescribeError(e));
    }
}
}  // namespace

int RunExport(const Options& options) {
    const std::string sep = Separator(options);
    const std::string& tabla = options.args[0];
    CheckTable(tabla);
    Session session(options);
    session.RequireDatabase();
    Interruptible interruptible;
    return WithTable(session.Registro(), tabla, [&](auto& adapter) {
        auto rows = ListRows(adapter, tabla, options);
        std::string texto;
        {
            Progress progress("export " + tabla, static_cast<size_t>(rows->Count()));
            texto = ExportRows(adapter, *rows, sep, progress);
        }
        // Stopped: nothing is written, so that no file looks whole that is not.
        if (const int sig = StopSignal())
            throw Interrupted{sig, "export stopped before writing: interrupted by " + SignalName(sig) + "; " +
                                       std::to_string(rows->Count()) + " rows were listed and none was written" +
                                       (options.out ? ", " + *options.out + " was left as it was" : "")};
        if (options.out) {
            WriteFile(*options.out, texto);
            std::cout << "exported " << rows->Count() << " rows of " << tabla << " to " << *options.out << "\n";
        } else {
            std::cout.write(texto.data(), static_cast<std::streamsize>(texto.size()));
        }
        std::cout.flush();
        return kExitOk;
    });
}

int RunXml(const Options& options) {
    const std::string& tabla = options.args[0];
    CheckTable(tabla);
    Session session(options);
    session.RequireDatabase();
    return WithTable(session.Registro(), tabla, [&](auto& adapter) {
        auto rows = ListRows(adapter, tabla, options);
        std::cout << XmlDocument(*rows, tabla);
        std::cout.flush();
        return kExitOk;
    });
}

}  // namespace zaro
