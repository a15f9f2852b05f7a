// RecordsetImpl (internal): the rows of an open recordset.
//
// Two sources of rows:
//   - a stored text result (static cursors, and statements that are not
//     queries): every row held, walked on the caller's thread;
//   - a prepared statement with a read-only server cursor (forward-only
//     queries): rows come in chunks of kChunkRows from the engine thread and
//     are rendered as text into one reused buffer, so memory stays flat.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <mysql.h>

#include "ZARODatos/platform/ADODB.h"

namespace OVT_ZARO::ADODB::detail {

class Session;

// The ADO type code and value kind of a column (one table, in Fields.cpp).
struct ColumnType {
    int ado;
    ValueKind kind;
};
ColumnType MapColumnType(const MYSQL_FIELD& f);

// True when the statement is a query (SELECT, WITH or a parenthesised
// SELECT), after blanks and comments.
bool IsQueryText(const std::string& sql);

class StmtReader {
public:
    static constexpr unsigned kChunkRows = 256;
    StmtReader() = default;
    ~StmtReader();
    StmtReader(const StmtReader&) = delete;
    StmtReader& operator=(const StmtReader&) = delete;

    enum class OpenResult { Rows, NoRows, NotPreparable };
    // Prepares and runs sql with a read-only cursor and reads the first chunk.
    // REQUIRES: on the engine thread.
    OpenResult Open(Session& session, const std::string& sql, const char* source);
    // Reads the next chunk (rows() is 0 at the end).
    // REQUIRES: on the engine thread.
    void Fill(Session& session, const char* source);
    // REQUIRES: on the engine thread.
    void Release();

    MYSQL_FIELD* FieldsMeta() const;
    unsigned FieldCount() const { return static_cast<unsigned>(cols_.size()); }
    size_t Rows() const { return rows_; }
    bool Done() const { return done_; }
    const char* const* RowCells(size_t i) const { return ptrs_.data() + i * cols_.size(); }
    const unsigned long* RowLengths(size_t i) const { return lens_.data() + i * cols_.size(); }

private:
    struct Col {
        enum_field_types fieldType;
        bool isUnsigned;
        long long i = 0;
        double d = 0;
        float f = 0;
        MYSQL_TIME t{};
        std::vector<char> buf;
        unsigned long length = 0;
        my_bool isNull = 0;
        my_bool error = 0;
    };
    void AppendCell(size_t c);

    MYSQL_STMT* stmt_ = nullptr;
    MYSQL_RES* meta_ = nullptr;
    std::vector<Col> cols_;
    std::vector<MYSQL_BIND> binds_;
    std::string text_;                 // the chunk's cells, end to end
    std::vector<size_t> offsets_;      // per cell; SIZE_MAX for NULL
    std::vector<const char*> ptrs_;    // per cell, into text_
    std::vector<unsigned long> lens_;  // per cell
    size_t rows_ = 0;
    bool done_ = false;
};

class RecordsetImpl {
public:
    RecordsetImpl();
    ~RecordsetImpl();

    // Opens on a session; raises on failure. Returns false when the statement
    // gave no rows (the recordset stays closed).
    bool Open(const std::shared_ptr<Session>& session, const std::string& sql, bool forwardOnly, const char* source);
    // Takes a stored result of Connection.Execute.
    void Adopt(const std::shared_ptr<Session>& session, MYSQL_RES* res);
    void Next(const char* source);
    void First(const char* source);
    // Frees the engine's resources and closes.
    void Close();
    // The session is closing: frees on its engine thread (the caller is on it).
    void CloseFromSession();

    bool IsOpen() const { return row.open; }
    RowState row;
    std::shared_ptr<ADODB::Fields> fields;
    bool forwardOnly = false;
    bool bof = true;
    bool eof = true;
    bool moved = false;
    int32_t recordCount = -1;

private:
    void BuildFields(MYSQL_FIELD* meta, unsigned count);
    void FetchStatic();
    void ShowChunkRow();
    void ReleaseEngine();  // on the engine thread

    std::shared_ptr<Session> session_;
    MYSQL_RES* res_ = nullptr;
    std::unique_ptr<StmtReader> stmt_;
    size_t chunkPos_ = 0;
};

}  // namespace OVT_ZARO::ADODB::detail
