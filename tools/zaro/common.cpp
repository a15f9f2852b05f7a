// The shared pieces of zaro: the session, files, numbers and text tables.
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "process.h"
#include "tables.h"
#include "zaro.h"

namespace zaro {

std::string OneLine(const std::string& text) {
    std::string out;
    for (char c : text) {
        const bool blank = c == '\r' || c == '\n' || c == '\t' || c == ' ';
        if (blank) {
            if (!out.empty() && out.back() != ' ') out.push_back(' ');
        } else {
            out.push_back(c);
        }
    }
    while (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

std::string DescribeError(const Error& e) {
    return "error " + std::to_string(e.Number) + " (" + OneLine(e.Source) + "): " + OneLine(e.Description);
}

// ---------------------------------------------------------------- Session

namespace {
// A value between quotes, each quote in it doubled: the form of a quoted
// value of a connection string (") and of a text in SQL (').
std::string Enclosed(const std::string& value, char quote) {
    std::string q(1, quote);
    for (char c : value) {
        if (c == quote) q += quote;
        q += c;
    }
    return q + quote;
}
std::string Quoted(const std::string& value) { return Enclosed(value, '"'); }
std::string SqlText(const std::string& value) { return Enclosed(value, '\''); }
}  // namespace

Session::Session(const Options& options) : log_(options.log) {
    std::string cadena;
    if (options.connect) {
        cadena = *options.connect;
        donde_ = "the server of --connect";
    } else {
        const std::string carpeta = options.db.value_or("zaro-data");
        cadena = "DataDir=" + Quoted(carpeta);
        donde_ = "the embedded database in " + carpeta;
    }
    conexion_ = std::make_shared<ADODB::Connection>();
    try {
        conexion_->Open(cadena);
    } catch (const Error& e) {
        throw DataError("can not open " + donde_ + ": " + DescribeError(e));
    }
    registro_ = std::make_shared<DataAdapters>();
    registro_->Conexion = conexion_;
    if (VariosServidores()) {
        std::string lista;
        for (const std::string& s : conexion_->Servers()) lista += (lista.empty() ? "" : ", ") + s;
        AnotarConexion("opened on " + Servidor() + ", the first that answered of " + lista);
    }
    // What the embedded engine prints from now on goes to the log file in its
    // data folder, not to the terminal.
    if (conexion_->IsEmbedded()) {
        try {
            std::string carpeta = CStr(Valor("select @@datadir"));
            while (carpeta.size() > 1 && carpeta.back() == '/') carpeta.pop_back();
            SendEngineMessagesTo(carpeta + "/zaro-engine.log");
        } catch (const Error&) {
            // The messages stay on standard error.
        }
    }
}

std::string Session::Donde() const {
    if (!VariosServidores()) return donde_;
    return "the server " + Servidor() + " of --connect";
}

bool Session::VariosServidores() const { return conexion_->Servers().size() > 1; }

std::string Session::Servidor() const { return conexion_->CurrentServer(); }

bool Session::EnCluster() {
    if (!cluster_) {
        // The embedded database and other makes of server have no such variable.
        try {
            cluster_ = !conexion_->IsEmbedded() &&
                       CDbl(Valor("select count(*) from information_schema.global_variables where "
                                  "variable_name = 'WSREP_ON' and variable_value = 'ON'")) > 0;
        } catch (const Error&) {
            cluster_ = false;
        }
    }
    return *cluster_;
}

void Session::AnotarConexion(const std::string& linea) { notasConexion_.push_back(linea); }

void Session::RequireDatabase() {
    if (conexion_->IsEmbedded()) return;  // the embedded road always has one
    Variant db;
    try {
        db = Valor("select database()");
    } catch (const Error& e) {
        throw DataError("can not ask " + Donde() + " for its database: " + DescribeError(e));
    }
    if (db.IsNull() || (db.IsString() && db.Get<std::string>().empty()))
        throw DataError("no database is selected on " + Donde() +
                        ": give one with Database=NAME in the connection string");
}

Session::~Session() {
    if (log_) {
        try {
            EscribirLog(std::cerr);
        } catch (...) {
            // A log that can not be written is no reason to fail the command.
        }
    }
    // The adapters go first; then the connection closes.
    registro_.reset();
    try {
        if (conexion_->State() == ADODB::adStateOpen) conexion_->Close();
    } catch (...) {
        // Closing at the end: nothing left to report it to.
    }
}

void Session::Ejecutar(const std::string& sql) {
    std::string texto = sql;
    BasTroquel::EjecutarSQL(conexion_, texto);
}

Variant Session::Valor(const std::string& sql) {
    std::string texto = sql;
    std::string campo;
    return BasTroquel::ObtenerValorSQL(conexion_, texto, campo);
}

bool Session::TablaExiste(const std::string& tabla) {
    return CDbl(Valor("select count(*) from information_schema.tables where table_schema = database() and "
                      "table_name = " + SqlText(tabla))) > 0;
}

bool Session::ColumnaExiste(const std::string& tabla, const std::string& columna) {
    return CDbl(Valor("select count(*) from information_schema.columns where table_schema = database() and "
                      "table_name = " + SqlText(tabla) + " and column_name = " + SqlText(columna))) > 0;
}

int64_t Session::Filas(const std::string& tabla) {
    return static_cast<int64_t>(CDbl(Valor("select count(*) from `" + tabla + "`")));
}

std::string Session::Motor(const std::string& tabla) {
    return CStr(Valor("select engine from information_schema.tables where table_schema = database() and "
                      "table_name = " + SqlText(tabla)));
}

void Session::EscribirLog(std::ostream& out) {
    if (!notasConexion_.empty()) {
        for (const std::string& nota : notasConexion_) out << "[connection] " << nota << "\n";
        out << "[connection] on " << Servidor() << " at the end\n";
    }
    for (std::string tabla : TableList(*registro_)) {
        auto adapter = std::dynamic_pointer_cast<AdapterBase>(registro_->DataAdapter(tabla));
        if (!adapter || !adapter->LogSQL) continue;
        for (const Variant& sql : *adapter->LogSQL) out << "[" << tabla << "] " << CStr(sql) << "\n";
    }
    out.flush();
}

std::vector<std::string> TableList(DataAdapters& registro) {
    std::vector<std::string> nombres;
    CollectionRef tablas = registro.Tablas();  // a new collection on each call
    for (const Variant& nombre : *tablas) nombres.push_back(CStr(nombre));
    return nombres;
}

std::string TableNames(DataAdapters& registro) {
    std::string nombres;
    for (const std::string& nombre : TableList(registro)) nombres += (nombres.empty() ? "" : ", ") + nombre;
    return nombres;
}

void CheckTable(const std::string& tabla) {
    DataAdapters registro;  // no connection: it only names the tables
    std::string nombre = tabla;
    if (!registro.DataAdapter(nombre))
        throw UsageError("unknown table '" + tabla + "'; the tables are " + TableNames(registro));
}

// ---------------------------------------------------------------- files

std::string ReadFile(const std::string& path) {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) throw DataError("can not read " + path + ": it is a folder");
    std::ifstream in(path, std::ios::binary);
    if (!in) throw DataError("can not read " + path + ": " + std::strerror(errno));
    std::ostringstream text;
    text << in.rdbuf();
    if (in.bad()) throw DataError("can not read " + path + ": " + std::strerror(errno));
    return text.str();
}

void WriteFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw DataError("can not write " + path + ": " + std::strerror(errno));
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out) throw DataError("can not write " + path + ": " + std::strerror(errno));
}

std::string DefaultSampleFolder() {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path program = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        const fs::path installed = (program.parent_path() / ZARO_SAMPLE_FROM_BINDIR).lexically_normal();
        if (fs::is_directory(installed, ec)) return installed.string();
    }
    return ZARO_SAMPLE_DIR;
}

void MakeFolder(const std::string& path) {
    std::error_code ec;
    std::filesystem::create_directories(path, ec);
    if (ec || !std::filesystem::is_directory(path))
        throw DataError("can not make the folder " + path + ": " + (ec ? ec.message() : "a file is in the way"));
}

std::string Separator(const Options& options) {
    std::string sep = options.sep.value_or(";");
    if (sep.empty()) throw UsageError("the separator of --sep is empty; give one or more characters");
    // "\t" on the command line stands for a tab, which a shell makes hard to type.
    if (sep == "\\t") sep = "\t";
    return sep;
}

// ---------------------------------------------------------------- numbers

std::string Amount(double value) { return CStr(Format(Variant(value), "#,##0.00")); }

std::string Number(double value) { return CStr(Variant(value)); }

// ---------------------------------------------------------------- TextTable

namespace {
// The width of UTF-8 text on a terminal: one column per character.
size_t Width(const std::string& s) {
    size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}
}  // namespace

TextTable::TextTable(std::vector<std::string> header, std::vector<bool> right)
    : header_(std::move(header)), right_(std::move(right)) {
    right_.resize(header_.size(), false);
}

void TextTable::Row(std::vector<std::string> cells) {
    cells.resize(header_.size());
    rows_.push_back(std::move(cells));
}

void TextTable::Rule() { rows_.emplace_back(); }

void TextTable::Print(std::ostream& out, const std::string& indent) const {
    std::vector<size_t> widths(header_.size());
    for (size_t c = 0; c < header_.size(); ++c) widths[c] = Width(header_[c]);
    for (const auto& row : rows_)
        for (size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], Width(row[c]));
    auto line = [&](const std::vector<std::string>& cells) {
        std::string text = indent;
        for (size_t c = 0; c < cells.size(); ++c) {
            const std::string pad(widths[c] - Width(cells[c]), ' ');
            if (c) text += "  ";
            text += right_[c] ? pad + cells[c] : cells[c] + pad;
        }
        while (!text.empty() && text.back() == ' ') text.pop_back();
        out << text << "\n";
    };
    line(header_);
    for (const auto& row : rows_) {
        if (!row.empty()) {
            line(row);
            continue;
        }
        std::vector<std::string> rule;
        for (size_t w : widths) rule.emplace_back(w, '-');
        line(rule);
    }
}

}  // namespace zaro
