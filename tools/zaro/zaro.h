// The host tool zaro: the pieces its commands share.
//
// zaro is a program over the library's public interface only (the umbrella
// header). It opens one Connection, hands it to one DataAdapters, and does
// its work through the adapters, the typed lists and the generic entities,
// as any host of the library would.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "ZARODatos.h"

namespace zaro {

using namespace OVT_ZARO;

// Exit statuses.
inline constexpr int kExitOk = 0;
inline constexpr int kExitUsage = 1;  // a mistake in the command line
inline constexpr int kExitData = 2;   // a data, file or database error

// A mistake in the command line (exit status 1).
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
// A problem with the data, a file or the database (exit status 2).
struct DataError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The command line, parsed: the command, its arguments, and the options.
struct Options {
    std::string command;
    std::vector<std::string> args;
    std::optional<std::string> db, connect, where, sep, out, sample;
    bool log = false;
    bool write = false;  // query: let the statement change data
    bool help = false;
    bool version = false;
};

// An Error in one line: "error N (source): description".
std::string DescribeError(const Error& e);
// Text made fit for one line: CR, LF and tabs become blanks, runs of blanks one.
std::string OneLine(const std::string& text);

// The open database of a command and the adapter registry over it.
class Session {
public:
    // Opens the embedded database of --db (default ./zaro-data) or the server
    // of --connect. A failure raises DataError naming the database.
    explicit Session(const Options& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    ConnectionRef& Conexion() { return conexion_; }
    DataAdapters& Registro() { return *registro_; }
    // Where the data lives, for messages: "the embedded database in zaro-data",
    // "the server of --connect"; with a list of servers, the one the
    // connection is on: "the server 10.0.0.5:3306 of --connect".
    std::string Donde() const;

    // Whether --connect lists more than one server, and the server the
    // connection is on ("host:port"; empty on the embedded database).
    bool VariosServidores() const;
    std::string Servidor() const;
    // Whether the server is a node of a Galera cluster (wsrep_on is ON);
    // asked once.
    bool EnCluster();
    // A line about the connection for --log ("[connection] ..."), with a
    // list of servers: where it opened, where it went on after a lost one.
    void AnotarConexion(const std::string& linea);

    // A DataError on a server when the connection chose no database.
    void RequireDatabase();

    // A statement of the tool's own (not an adapter's), through BasTroquel.
    void Ejecutar(const std::string& sql);
    // The first value of the first row of a query of the tool's own.
    Variant Valor(const std::string& sql);
    bool TablaExiste(const std::string& tabla);
    bool ColumnaExiste(const std::string& tabla, const std::string& columna);
    int64_t Filas(const std::string& tabla);
    // The storage engine of a table ("MyISAM", "InnoDB").
    std::string Motor(const std::string& tabla);

    // Writes the statements every adapter logged in LogSQL, "[tabla]
    // statement" one per line. With --log the session does so to standard
    // error when it ends, also when a command fails.
    void EscribirLog(std::ostream& out);

private:
    bool log_ = false;
    ConnectionRef conexion_;
    std::shared_ptr<DataAdapters> registro_;
    std::string donde_;
    std::optional<bool> cluster_;
    std::vector<std::string> notasConexion_;
};

// The folder of the sample trading day when --sample names none: the one
// installed with zaro (found from the program's own place), or else the one
// in the sources, for a zaro in its build tree.
std::string DefaultSampleFolder();

// Files. A missing or unreadable file raises DataError naming it.
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& text);
// Makes the folder (and its parents) when missing; raises DataError when it can not.
void MakeFolder(const std::string& path);

// A separator given on the command line: "\t" stands for a tab; an empty one
// is a usage error.
std::string Separator(const Options& options);

// Numbers for people: an amount as 1.234,50 and a count or a plain number in
// the library's default string form (under the host's locale).
std::string Amount(double value);
std::string Number(double value);

// A text table for the terminal: a header, rows, columns aligned; numeric
// columns to the right.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> header, std::vector<bool> right = {});
    void Row(std::vector<std::string> cells);
    void Rule();  // a line of dashes under the next row's cells
    void Print(std::ostream& out, const std::string& indent = "") const;
    size_t Rows() const { return rows_.size(); }

private:
    std::vector<std::string> header_;
    std::vector<bool> right_;
    std::vector<std::vector<std::string>> rows_;  // an empty row is a rule
};

// The commands.
int RunDemo(const Options& options);
int RunInit(const Options& options);
int RunImport(const Options& options);
int RunExport(const Options& options);
int RunXml(const Options& options);
int RunQuery(const Options& options);
int RunTotals(const Options& options);
int RunTables(const Options& options);

}  // namespace zaro
