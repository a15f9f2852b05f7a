// zaro: the command line, the table of commands, their help, and the one
// place where every failure ends as one line and an exit status.
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "process.h"
#include "zaro.h"

namespace zaro {
namespace {

struct Command {
    const char* name;
    const char* synopsis;    // the arguments and options after the name
    const char* summary;     // one line for the tool's help
    const char* details;     // the command's help
    int minArgs, maxArgs;    // positional arguments after the name
    std::vector<std::string_view> options;  // the command's own options
    int (*run)(const Options&);
};

const char* const kGlobalOptions =
    "Global options (before or after the command):\n"
    "  --db DIR            the embedded database in the folder DIR (default: ./zaro-data;\n"
    "                      made and set up on first use)\n"
    "  --connect \"STRING\"  a MariaDB or MySQL server instead, by a connection string such as\n"
    "                      \"Server=127.0.0.1;Port=3306;User=zaro;Password=secret;Database=zaro\";\n"
    "                      Server=HOST:PORT,HOST:PORT,... lists servers (a cluster's nodes) tried\n"
    "                      in order, and named in zaro's messages and in --log\n"
    "  --log               write to standard error the statements the adapters ran (their LogSQL)\n"
    "  --help, -h          this help, or the help of the command it goes with\n"
    "  --version           the version of zaro and of the ZARODatos library it runs with\n";

// --where runs as given.
#define ZARO_WHERE_WARNING                                                                             \
    "COND is SQL that runs as given, with the rights of the connection: it must never come from\n" \
    "untrusted input.\n"

const char* const kExchange =
    "Exchange text: one row per line ending in CR LF, each field followed by the separator\n"
    "(\";\" unless --sep says otherwise; --sep '\\t' is a tab), the fields in the order of the\n"
    "table's index, dates day first (14/03/2026), decimals with a comma (2,5). A file with bare\n"
    "LF line ends is read as if they were CR LF.\n";

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"demo", "[--out DIR] [--sample DIR]",
         "record, summarise and report the sample trading day",
         "Records one sample trading day through the library's adapters and reports it:\n"
         "  1. makes the ten tables, as `zaro init` does;\n"
         "  2. reads the sample files (articles, each operator's start of day, the day's\n"
         "     tickets with their article, tax and payment lines, each end of day) with\n"
         "     ImportarTexto and saves them with GrabarDatos;\n"
         "  3. computes the daily summary by operator (resumen_diario) and the detail by till,\n"
         "     family, subfamily and tax type (resumen_diario_detalle) with the list queries\n"
         "     Where, WhereDelegado, OrderBy, ObtenerSuma and ObtenerMaximo, and saves them;\n"
         "  4. writes the day's exchange files into the output folder: TABLE_YYYYMMDD.txt\n"
         "     (separated text, ExportarTexto) and TABLE_YYYYMMDD.xml (the ToXML of each row\n"
         "     under one root element);\n"
         "  5. prints the day's report: tickets, gross, net, tax and discount, by operator and\n"
         "     by family.\n"
         "Running it again replaces the same day: the rows of the sample day are deleted from\n"
         "the day's tables first, so the database holds the day once and the report is the\n"
         "same; the articles are updated in place.\n"
         "In the sample site each operator works one till all day, and an operator's code is\n"
         "the number of its till.\n\n"
         "Options:\n"
         "  --out DIR     the folder of the exchange files (default: ./zaro-out; made when missing)\n"
         "  --sample DIR  the folder of the sample files (default: the tool's own sample day, the\n"
         "                one installed with it, or the one in the sources for a zaro in its build\n"
         "                tree)\n",
         0, 0, {"--out", "--sample"}, RunDemo},
        {"init", "", "make the ten tables and say what became of each",
         "Makes the ten tables with each adapter's CrearTabla and reports, for each table:\n"
         "  created                  the library made it (an empty table is made anew);\n"
         "  kept, holds N rows       it holds rows, so it stays as it is;\n"
         "  refused by the database  the library's statement did not make it.\n"
         "The library's statements for ticket and ticket_articulo are refused by the database,\n"
         "and those for resumen_diario and resumen_diario_detalle lack the columns idEmpresa,\n"
         "idRestaurante and idTPV that the adapters write. Where that is so, zaro makes the\n"
         "site's table with its own statement, or adds the missing columns, and says so.\n"
         "On a node of a Galera cluster (wsrep_on is ON) it converts the ten tables to InnoDB,\n"
         "the only tables whose rows the cluster replicates, and says so; a table that holds\n"
         "rows is copied into its InnoDB table, so that its rows reach every node.\n"
         "The exit status is 2 when a table is missing at the end.\n",
         0, 0, {}, RunInit},
        {"import", "TABLE FILE [--sep S]", "read a file of exchange text into a table",
         "Reads FILE with the adapter's ImportarTexto and saves its rows as GrabarDatos does:\n"
         "each row that passes CamposOk is updated when its key exists and inserted\n"
         "otherwise; a row that fails CamposOk is skipped. zaro reports the rows saved, each\n"
         "row skipped with its CamposOk message, and the empty lines skipped (an exported file\n"
         "ends with two). A failure stops the import: zaro names the line, the error (number,\n"
         "source, description) and the rows saved before it, which stay saved. When the failure\n"
         "may have written the row all the same (a lost connection, a server that stops\n"
         "answering, a full disk), zaro looks for it and says whether it was saved. With a list\n"
         "of servers in --connect, a lost server does not stop it: zaro goes on through the\n"
         "next server of the list, looks there for the line that was in flight, saves it when\n"
         "it is not there, and reports the line at once. Ctrl-C or SIGTERM stops the import\n"
         "after the row in progress, with the same report.\n"
         "The exit status is 2 when a row was skipped or the import stopped.\n\n"
         "Options:\n"
         "  --sep S   the column separator (default \";\")\n",
         2, 2, {"--sep"}, RunImport},
        {"export", "TABLE [--where COND] [--sep S] [--out FILE]", "write a table's rows as exchange text",
         "Lists the table's rows with the adapter's ListarWhere, in its default order, and\n"
         "writes them with ExportarTexto to standard output, or to FILE.\n\n"
         "Options:\n"
         "  --where COND  a condition in SQL, e.g. \"TIPO_FAMILIA = 1\" (default: every row)\n"
         "  --sep S       the column separator (default \";\")\n"
         "  --out FILE    the file to write (default: standard output)\n\n"
         ZARO_WHERE_WARNING,
         1, 1, {"--where", "--sep", "--out"}, RunExport},
        {"xml", "TABLE [--where COND]", "write a table's rows as XML",
         "Lists the table's rows as export does and writes to standard output one XML document:\n"
         "the root element <datos tabla=\"TABLE\" filas=\"N\"> holding the ToXML element of each row.\n\n"
         "Options:\n"
         "  --where COND  a condition in SQL (default: every row)\n\n"
         ZARO_WHERE_WARNING,
         1, 1, {"--where"}, RunXml},
        {"query", "\"SQL\" [--write]", "run a statement and print what it gives",
         "Runs the statement on a Recordset and loads its rows into a list of generic entities\n"
         "(coleccionGenerica.Cargar), then prints them as a table. A statement that gives no\n"
         "rows prints how many rows it changed.\n"
         "The statement runs in a read-only transaction: the database refuses one that would\n"
         "change data or tables (error 1792), unless --write is given.\n\n"
         "Options:\n"
         "  --write       let the statement change data and tables\n\n"
         "The statement runs as given, with the rights of the connection: it must never come from\n"
         "untrusted input.\n",
         1, 1, {"--write"}, RunQuery},
        {"totals", "TABLE FIELD [--where COND]", "sum, mean, maximum and minimum of a field",
         "Lists the table's rows (those meeting COND) and prints the list queries ObtenerSuma,\n"
         "ObtenerMedia, ObtenerMaximo and ObtenerMinimo of FIELD, with the library's rules:\n"
         "each value is read through its text with the decimal-comma rule, so dates and text\n"
         "count as 0, and maximum and minimum start from 0 (the maximum of negative values and\n"
         "the minimum of positive values are 0).\n\n"
         "Options:\n"
         "  --where COND  a condition in SQL (default: every row)\n\n"
         ZARO_WHERE_WARNING,
         2, 2, {"--where"}, RunTotals},
        {"tables", "", "each table and its row count",
         "Lists the ten tables of the library with the rows each holds, or that it is missing;\n"
         "on a node of a Galera cluster, each table's engine too.\n",
         0, 0, {},
         RunTables},
    };
    return commands;
}

const Command* FindCommand(const std::string& name) {
    for (const Command& c : Commands())
        if (name == c.name) return &c;
    return nullptr;
}

void PrintToolHelp(std::ostream& out) {
    out << "zaro: the sales figures of a restaurant's trading day, over the ZARODatos library\n\n"
           "Usage: zaro COMMAND [ARGUMENTS] [OPTIONS]\n\n"
           "Commands:\n";
    for (const Command& c : Commands()) {
        std::string head = std::string(c.name) + " " + c.synopsis;
        if (head.size() > 44) {
            out << "  " << head << "\n" << std::string(48, ' ') << c.summary << "\n";
        } else {
            out << "  " << head << std::string(46 - head.size(), ' ') << c.summary << "\n";
        }
    }
    out << "  help [COMMAND]" << std::string(32, ' ') << "this help, or a command's\n\n"
        << kGlobalOptions << "\n"
        << "Tables: _definicion_campos, articulo, fin_dia, inicio_dia, resumen_diario,\n"
           "resumen_diario_detalle, ticket, ticket_articulo, ticket_impuesto, ticket_pago.\n\n"
        << kExchange << "\n"
        << "Exit status: 0 done; 1 a mistake in the command line; 2 a data, file or database error.\n"
        << "Ctrl-C or SIGTERM stops import, export and demo after the row in progress (exit status\n"
           "130 or 143).\n";
}

void PrintCommandHelp(const Command& c, std::ostream& out) {
    out << "Usage: zaro " << c.name << (*c.synopsis ? " " : "") << c.synopsis << "\n\n"
        << c.details << "\n"
        << kGlobalOptions;
    if (std::string_view(c.name) == "import" || std::string_view(c.name) == "export") out << "\n" << kExchange;
}

// Options that take a value, and where they land.
std::optional<std::string>* ValueSlot(Options& o, std::string_view name) {
    if (name == "--db") return &o.db;
    if (name == "--connect") return &o.connect;
    if (name == "--where") return &o.where;
    if (name == "--sep") return &o.sep;
    if (name == "--out") return &o.out;
    if (name == "--sample") return &o.sample;
    return nullptr;
}

// Reads the command line. Options may stand before or after the command and
// take their value as the next word or behind "="; "--" ends the options.
// Which options a command accepts is checked in Main, once the command is known.
Options Parse(int argc, char** argv, std::vector<std::string>& given) {
    Options o;
    bool onlyWords = false;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        if (onlyWords || word.size() < 2 || word[0] != '-') {
            if (o.command.empty()) o.command = word;
            else o.args.push_back(word);
            continue;
        }
        if (word == "--") {
            onlyWords = true;
            continue;
        }
        if (word == "--help" || word == "-h") {
            o.help = true;
            continue;
        }
        if (word == "--version") {
            o.version = true;
            continue;
        }
        if (word == "--log") {
            o.log = true;
            given.push_back(word);
            continue;
        }
        if (word == "--write") {
            o.write = true;
            given.push_back(word);
            continue;
        }
        std::string name = word, value;
        bool inline_value = false;
        if (const size_t eq = word.find('='); eq != std::string::npos && word.rfind("--", 0) == 0) {
            name = word.substr(0, eq);
            value = word.substr(eq + 1);
            inline_value = true;
        }
        std::optional<std::string>* slot = ValueSlot(o, name);
        if (!slot) throw UsageError("unknown option '" + word + "'");
        if (!inline_value) {
            if (i + 1 >= argc) throw UsageError("the option " + name + " needs a value");
            value = argv[++i];
        }
        if (*slot) throw UsageError("the option " + name + " is given twice");
        *slot = value;
        given.push_back(name);
    }
    return o;
}

int Main(int argc, char** argv) {
    std::vector<std::string> given;
    Options o = Parse(argc, argv, given);
    if (o.version && !o.help) {
        // The tool is built with the library: one version for both.
        std::cout << "zaro (ZARODatos) " << LibraryVersion() << "\n";
        return kExitOk;
    }
    if (o.command == "help") {
        if (o.args.empty()) {
            PrintToolHelp(std::cout);
            return kExitOk;
        }
        const Command* c = FindCommand(o.args[0]);
        if (!c) throw UsageError("unknown command '" + o.args[0] + "'");
        PrintCommandHelp(*c, std::cout);
        return kExitOk;
    }
    if (o.command.empty()) {
        if (o.help) {
            PrintToolHelp(std::cout);
            return kExitOk;
        }
        throw UsageError("no command given");
    }
    const Command* c = FindCommand(o.command);
    if (!c) throw UsageError("unknown command '" + o.command + "'");
    if (o.help) {
        PrintCommandHelp(*c, std::cout);
        return kExitOk;
    }
    for (const std::string& name : given) {
        const bool global = name == "--db" || name == "--connect" || name == "--log";
        bool own = false;
        for (std::string_view allowed : c->options) own = own || name == allowed;
        if (!global && !own) throw UsageError("the command " + o.command + " takes no option " + name);
    }
    if (o.db && o.connect) throw UsageError("--db and --connect exclude each other: give one");
    const int n = static_cast<int>(o.args.size());
    if (n < c->minArgs || n > c->maxArgs)
        throw UsageError(std::string(n < c->minArgs ? "missing arguments" : "too many arguments") + " for " +
                         c->name + "; usage: zaro " + c->name + " " + c->synopsis);
    const int status = c->run(o);
    // Output that could not be written is lost data: say so, unless the
    // reader went away on purpose (a closed pipe).
    errno = 0;
    std::cout.flush();
    if (!std::cout) {
        if (errno == EPIPE) return kExitData;
        throw DataError(std::string("can not write to standard output: ") +
                        (errno ? std::strerror(errno) : "write failed"));
    }
    return status;
}

}  // namespace
}  // namespace zaro

int main(int argc, char** argv) {
    using namespace zaro;
    SetUpProcess();
    // A reader that goes away early (zaro demo | head) must not kill the
    // process while the embedded engine runs: writes to it just fail.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return Main(argc, argv);
    } catch (const Interrupted& e) {
        std::cerr << "zaro: " << OneLine(e.message) << "\n";
        return 128 + e.signal;
    } catch (const UsageError& e) {
        std::cerr << "zaro: " << e.what() << "\nTry 'zaro --help'.\n";
        return kExitUsage;
    } catch (const DataError& e) {
        std::cerr << "zaro: " << e.what() << "\n";
        return kExitData;
    } catch (const Error& e) {
        std::cerr << "zaro: " << DescribeError(e) << "\n";
        return kExitData;
    } catch (const std::filesystem::filesystem_error& e) {
        std::cerr << "zaro: can not use " << (e.path1().empty() ? std::string("a file") : e.path1().string()) << ": "
                  << e.code().message() << "\n";
        return kExitData;
    } catch (const std::exception& e) {
        std::cerr << "zaro: " << OneLine(e.what()) << "\n";
        return kExitData;
    } catch (...) {
        std::cerr << "zaro: an unknown failure\n";
        return kExitData;
    }
}
