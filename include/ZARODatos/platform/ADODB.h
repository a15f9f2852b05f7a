// ADODB: the platform's database objects over MariaDB.
//
// Connection, Recordset, Fields and Field, with the platform's names, type
// codes and errors. One engine library serves two roads, chosen by the
// connection string (see README.md, "Connection strings"):
//   - embedded (the default): a MariaDB server inside this process, on a data
//     folder that is created and bootstrapped on first use, whole or not at
//     all. The server starts once per process, when the first embedded
//     connection opens; every embedded connection shares it; a process holds
//     one data folder.
//   - server: a MariaDB/MySQL server reached by host and port or by socket.
// Every session is set up the same way on both roads: character set utf8mb4
// on the connection, and NO_BACKSLASH_ESCAPES added to the session's sql_mode.
// A statement that turns NO_BACKSLASH_ESCAPES off shows it in its reply; the
// session turns it back on before its next statement.
//
// Threads: an object belongs to one thread at a time; a connection (and the
// recordsets opened on it) called by a second thread while a call of the
// first runs on it raises 3711 (AdoErr::UsedByTwoThreads) instead of racing;
// the first call goes on undisturbed. Handing a connection from one thread to
// another between calls is fine. Two
// connections may run on two threads at once. An embedded connection runs
// every engine call on a thread of its own (the engine is much slower on a
// process's main thread); each call is still synchronous for the caller. A
// server connection calls the engine on the caller's thread. An embedded
// connection keeps the memory of its last large result (1,000 rows or more)
// after the result is freed, for the next one, until it closes.
//
// What the embedded road does to the process, once, when the first embedded
// connection opens, and for as long as the process lives:
//   - the in-process server starts on the data folder and runs until the
//     process exits; it can not be stopped or moved to another folder
//     (EmbeddedEngineStarted tells whether it runs);
//   - it gets a temp folder of its own, zaro-embedded-<pid>-XXXXXX under the
//     system's temp folder (TMPDIR, else /tmp): a server that starts removes
//     the temp table files it finds in its temp folder, so no two processes
//     share one. TMPDIR is set to it while the server starts, then put back;
//   - on the way, temp folders of that name left by processes that no longer
//     run (killed, so their exit handler never ran) are removed;
//   - an exit handler (atexit) closes the sessions still open, ends the
//     server and removes the temp folder; a process that ends by _exit or a
//     signal leaves the folder for the next process's sweep;
//   - a watch thread with a session of its own looks once a second, while an
//     embedded call runs, for statements waiting for disk space (see 1021
//     below).
// A process that only reaches servers does none of this. There, once the
// first server connection with a CommandTimeout opens, a watch thread looks
// five times a second at the calls under way, and shuts the socket of one
// whose thread has waited for its server without running for CommandTimeout
// (the call raises 2013); it runs until the process exits.
//
// Ownership: the caller owns a Connection and the Recordsets it opens or gets
// back. A Recordset keeps the connection's session alive while it is open, so
// it outlives a Connection that is released. Closing a Connection closes the
// Recordsets opened on it.
//
// Failures: every failure raises OVT_ZARO::Error.
//   - a statement the database refuses: the database's number and text, source
//     "ADODB.Connection" (Execute) or "ADODB.Recordset" (Open, moving);
//   - a lost server: the client's number (2006, 2013) and text; the next call
//     on the connection opens the session again;
//   - no current row 3021, a closed object 3704, an open object 3705, a
//     missing or closed connection 3709, a missing field 3265, an operation a
//     forward-only recordset can not do 3219, a bad connection string (keys,
//     refused EmbeddedOptions) or a second embedded data folder 3001; with the
//     platform's texts;
//   - a data folder that can not be made, is half-made or will not start
//     2000, in one line with the engine's own words (its messages go to
//     zaro-engine.log in the data folder);
//   - a statement that waited for space on a full disk of the embedded road
//     1021 "Disk full: ...", within about two seconds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ZARODatos/platform/Object.h"
#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO::ADODB {

enum CursorTypeEnum { adOpenUnspecified = -1, adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
enum LockTypeEnum { adLockUnspecified = -1, adLockReadOnly = 1 };
enum CursorLocationEnum { adUseServer = 2, adUseClient = 3 };
enum ObjectStateEnum { adStateClosed = 0, adStateOpen = 1 };
enum ExecuteOptionEnum { adOptionUnspecified = -1, adCmdText = 1, adExecuteNoRecords = 128 };
enum DataTypeEnum {
    adEmpty = 0,
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBoolean = 11,
    adDecimal = 14,
    adTinyInt = 16,
    adBigInt = 20,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adBinary = 128,
    adVarBinary = 204,
    adLongVarBinary = 205
};

// Error numbers of the database objects (the platform's).
namespace AdoErr {
inline constexpr int32_t InvalidArgument = 3001;   // bad connection string, second data folder
inline constexpr int32_t NoCurrentRecord = 3021;
inline constexpr int32_t NotAllowed = 3219;        // "Operation is not allowed in this context."
inline constexpr int32_t ItemNotFound = 3265;
inline constexpr int32_t ObjectClosed = 3704;
inline constexpr int32_t ObjectOpen = 3705;
inline constexpr int32_t ConnectionUnusable = 3709;
inline constexpr int32_t UsedByTwoThreads = 3711;  // a call while a call of another thread runs
}  // namespace AdoErr

// The platform's text of an error number of the database objects; empty for
// a number it does not know.
std::string AdoErrorText(int32_t number);

// True once the in-process server of the embedded road has started in this
// process (it then runs until the process exits).
bool EmbeddedEngineStarted();

class Connection;
class Recordset;

namespace detail {
class Session;
class RecordsetImpl;
// The current row of an open recordset, as Fields read it. Cells are text as
// the database gives it; a null pointer is SQL NULL.
struct RowState {
    bool open = false;
    bool hasRow = false;
    const char* const* cells = nullptr;
    const unsigned long* lengths = nullptr;
};
// How a column's text becomes a value (see the type table in Fields.cpp).
enum class ValueKind : uint8_t { Null, Long, LongLong, UnsignedLongLong, Double, Date, DateTime, Time, Boolean, Bit,
                                 String, Bytes };
// The library's own way into the members below that only it uses (making
// fields, typed reads of a cell, a connection's session); defined in a
// private header.
struct Access;
}  // namespace detail

// One column of a recordset. Name and Type are known while the recordset is
// open; Value reads the current row (no current row raises 3021; a closed
// recordset 3704).
// Values: NULL is Null; integers up to 32 bits Long; BIGINT and INT UNSIGNED
// LongLong; DECIMAL, DOUBLE and FLOAT Double; DATE, DATETIME, TIMESTAMP and
// TIME Date (the zero date '0000-00-00' and dates with a zero month or day are
// Null); TINYINT(1) and BIT(1) Boolean; text String (UTF-8); binary columns
// a byte array.
class Field {
public:
    const std::string& Name() const { return name_; }
    Variant Value() const;
    int Type() const { return type_; }
    // The declared size in characters (text) or digits, as the server says.
    int32_t DefinedSize() const { return definedSize_; }

private:
    friend struct detail::Access;
    Field(std::string name, int type, detail::ValueKind kind, int32_t definedSize, int32_t index,
          const detail::RowState* row)
        : name_(std::move(name)), type_(type), kind_(kind), definedSize_(definedSize), index_(index), row_(row) {}

    // For loaders of typed members: the current cell read straight into a
    // value of one type, without a Variant. Null: the cell is SQL NULL (or,
    // for a date, a value Value gives as Null); Done: out holds what Value
    // would give, of that type; Other: Value would give another type, so the
    // loader goes through Value. Raises as Value does.
    enum class Read : uint8_t { Done, Null, Other };
    Read ReadLong(int32_t& out) const;      // an integer column of up to 32 bits
    Read ReadDouble(double& out) const;     // DECIMAL, DOUBLE, FLOAT, and integers of up to 32 bits
    Read ReadDate(Date& out) const;         // DATE, DATETIME, TIMESTAMP
    Read ReadText(std::string& out) const;  // a text column
    // True when Value has a current row to read.
    bool HasValue() const { return row_->open && row_->hasRow; }

    std::string name_;
    int type_;
    detail::ValueKind kind_;
    int32_t definedSize_;
    int32_t index_;
    const detail::RowState* row_;
};

// The columns of a recordset, zero-based. Item by name ignores case (also
// for accented letters) and costs no allocation; with two columns of one
// name, the first is found. A missing name or position raises 3265.
class Fields : public Object {
public:
    int32_t Count() const { return static_cast<int32_t>(fields_.size()); }
    Field& Item(int32_t index);
    Field& Item(std::string_view name);
    Field& Item(const char* name) { return Item(std::string_view(name)); }
    Field& Item(const std::string& name) { return Item(std::string_view(name)); }
    // A number is a position, a string a name; anything else raises 3265.
    Field& Item(const Variant& index);
    // The position of a name, or -1.
    int32_t IndexOf(std::string_view name) const;
    std::vector<Field>::iterator begin() { return fields_.begin(); }
    std::vector<Field>::iterator end() { return fields_.end(); }
    std::string TypeName() const override { return "Fields"; }

private:
    friend struct detail::Access;
    // The recordset sets the columns when it opens.
    void Reset(std::vector<Field> fields);
    // The positions (IndexOf) of a reader's count names, name(reader, i) for
    // i from 0, among these columns; worked out once for as long as the
    // columns and the reader stay, so that a loader reading every row of a
    // recordset looks its names up once.
    const std::vector<int32_t>& PositionsFor(const void* reader, size_t count,
                                             std::string_view (*name)(const void* reader, size_t i));

    void BuildIndex() const;
    std::vector<Field> fields_;
    mutable std::vector<int32_t> slots_;  // open-addressing index by case-folded name
    mutable uint32_t mask_ = 0;
    mutable bool indexed_ = false;
    const void* positionsReader_ = nullptr;
    std::vector<int32_t> positions_;
};

// A result of a statement.
// Cursor types: forward-only (0) streams its rows from the server in chunks,
// so memory stays flat however many rows there are; static (3) holds the
// whole result and MoveFirst works. A client cursor location (3), and the
// keyset (1) and dynamic (2) types, give a static recordset, as the platform
// does. A recordset with no rows opens with BOF and EOF both true; otherwise
// on its first row. MoveNext at EOF and MoveFirst on an empty recordset raise
// 3021; MoveFirst on a forward-only recordset that has moved raises 3219.
class Recordset : public Object {
public:
    Recordset();
    ~Recordset() override;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    int CursorLocation = adUseServer;    // Default: server, as the platform.
    int CursorType = adOpenForwardOnly;  // Used when Open is given adOpenUnspecified; after Open, the type it got.
    int LockType = adLockReadOnly;       // Read-only whatever is asked: recordsets do not write.

    // Runs Source (SQL text) on the connection. A statement that gives no rows
    // leaves the recordset closed. Options is accepted and not used.
    void Open(const std::string& Source, const std::shared_ptr<Connection>& ActiveConnection,
              int CursorType = adOpenUnspecified, int LockType = adLockUnspecified, int Options = -1);
    // Closing a closed recordset raises 3704.
    void Close();
    int State() const;
    bool BOF() const;
    bool EOF_() const;  // EOF is a C macro, so the end flag is EOF_
    void MoveFirst();
    void MoveNext();
    ADODB::Fields& Fields();
    // The number of rows of a static recordset; -1 for forward-only.
    int32_t RecordCount() const;
    std::string TypeName() const override { return "Recordset"; }

private:
    friend class Connection;
    std::unique_ptr<detail::RecordsetImpl> impl_;
};

// A session with a database. Open with a connection string (empty: the
// embedded database in the folder "zaro-data" of the current directory).
class Connection : public Object {
public:
    Connection();
    ~Connection() override;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens with ConnectionString when the argument is empty. Opening an open
    // connection raises 3705; a bad key 3001; a refused connection the
    // client's or server's number and text.
    void Open(const std::string& ConnectionString = {});
    // Closes the session and the recordsets opened on it. Closing a closed
    // connection raises 3704.
    void Close();
    int State() const;
    // Runs one statement. Gives a static Recordset for a statement that gives
    // rows, nullptr for one that does not (and with adExecuteNoRecords).
    std::shared_ptr<Recordset> Execute(const std::string& CommandText, int Options = -1);
    // The rows the last statement changed, as the database counts them (-1 unknown).
    int64_t RecordsAffected() const;
    // True when the session runs on the embedded database.
    bool IsEmbedded() const;
    // The server the session is on, as "host:port" (the socket's path over a
    // socket alone); empty on the embedded road and while closed. With a list
    // of servers it changes when a lost server makes the next call open on
    // another one of the list; until then it names the lost one.
    std::string CurrentServer() const;
    // The servers of the connection string, "host:port" each, in the order
    // they are tried; empty on the embedded road and while closed.
    std::vector<std::string> Servers() const;

    std::string ConnectionString;
    std::string TypeName() const override { return "Connection"; }

private:
    friend struct detail::Access;
    std::shared_ptr<detail::Session> session_;
};

}  // namespace OVT_ZARO::ADODB
