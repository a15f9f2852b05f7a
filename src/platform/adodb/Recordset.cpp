#include <mysqld_error.h>

#include <charconv>
#include <cstdio>
#include <cstring>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/ConversionsDetail.h"
#include "platform/adodb/Access.h"
#include "platform/adodb/RecordsetImpl.h"
#include "platform/adodb/Session.h"

namespace OVT_ZARO::ADODB {

namespace {
const char* const kSource = "ADODB.Recordset";
[[noreturn]] void Raise(int32_t number) { throw Error(number, kSource, AdoErrorText(number)); }
}  // namespace

namespace detail {

// ---------------------------------------------------------------- statements

bool IsQueryText(const std::string& sql) {
    size_t i = 0;
    const size_t n = sql.size();
    for (;;) {
        while (i < n && (sql[i] == ' ' || sql[i] == '\t' || sql[i] == '\n' || sql[i] == '\r' || sql[i] == '('))
            ++i;
        if (i + 1 < n && sql[i] == '/' && sql[i + 1] == '*') {
            // A comment, but not an executable one ("/*!"), which may hold anything.
            if (i + 2 < n && (sql[i + 2] == '!' || sql[i + 2] == 'M')) return false;
            const size_t e = sql.find("*/", i + 2);
            if (e == std::string::npos) return false;
            i = e + 2;
            continue;
        }
        if (sql[i] == '#' || (i + 2 < n && sql[i] == '-' && sql[i + 1] == '-' && (sql[i + 2] == ' ' || sql[i + 2] == '\t'))) {
            const size_t e = sql.find('\n', i);
            if (e == std::string::npos) return false;
            i = e + 1;
            continue;
        }
        break;
    }
    auto word = [&](const char* w) {
        const size_t len = std::strlen(w);
        if (i + len > n) return false;
        for (size_t k = 0; k < len; ++k) {
            char c = sql[i + k];
            if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
            if (c != w[k]) return false;
        }
        if (i + len == n) return true;
        const char next = sql[i + len];
        return !((next >= 'A' && next <= 'Z') || (next >= 'a' && next <= 'z') || (next >= '0' && next <= '9') ||
                 next == '_' || next == '$');
    };
    return word("SELECT") || word("WITH");
}

StmtReader::~StmtReader() {
    // Released on the engine thread by the owner; here only what is left.
    if (meta_) mysql_free_result(meta_);
    if (stmt_) mysql_stmt_close(stmt_);
}

MYSQL_FIELD* StmtReader::FieldsMeta() const { return meta_ ? mysql_fetch_fields(meta_) : nullptr; }

StmtReader::OpenResult StmtReader::Open(Session& session, const std::string& sql, const char* source) {
    MYSQL* m = session.Handle();
    stmt_ = mysql_stmt_init(m);
    if (!stmt_) session.RaiseLast(source);
    if (mysql_stmt_prepare(stmt_, sql.data(), sql.size())) {
        if (mysql_stmt_errno(stmt_) == ER_UNSUPPORTED_PS) {
            Release();
            return OpenResult::NotPreparable;
        }
        const unsigned e = mysql_stmt_errno(stmt_);
        std::string text = mysql_stmt_error(stmt_);
        Release();
        session.NoteError(e);
        throw Error(static_cast<int32_t>(e), source, std::move(text));
    }
    // A '?' outside a literal is no placeholder in a text statement: the
    // text road gives the database's own answer to it.
    if (mysql_stmt_param_count(stmt_) > 0) {
        Release();
        return OpenResult::NotPreparable;
    }
    unsigned long cursor = CURSOR_TYPE_READ_ONLY;
    unsigned long prefetch = kChunkRows;
    mysql_stmt_attr_set(stmt_, STMT_ATTR_CURSOR_TYPE, &cursor);
    mysql_stmt_attr_set(stmt_, STMT_ATTR_PREFETCH_ROWS, &prefetch);
    if (mysql_stmt_execute(stmt_)) {
        const unsigned e = mysql_stmt_errno(stmt_);
        std::string text = mysql_stmt_error(stmt_);
        Release();
        session.NoteError(e);
        throw Error(static_cast<int32_t>(e), source, std::move(text));
    }
    session.lastAffected = -1;
    session.NoteMode();
    const unsigned count = mysql_stmt_field_count(stmt_);
    if (count == 0) {
        Release();
        return OpenResult::NoRows;
    }
    meta_ = mysql_stmt_result_metadata(stmt_);
    if (!meta_) session.RaiseStmt(stmt_, source);
    // Without a cursor (the server chose to send the rows at once) the rows
    // are read now, so that the session is free for other statements.
    if (!(m->server_status & SERVER_STATUS_CURSOR_EXISTS)) {
        if (mysql_stmt_store_result(stmt_)) session.RaiseStmt(stmt_, source);
    }
    MYSQL_FIELD* fields = mysql_fetch_fields(meta_);
    cols_.resize(count);
    binds_.assign(count, MYSQL_BIND{});
    for (unsigned c = 0; c < count; ++c) {
        Col& col = cols_[c];
        MYSQL_BIND& b = binds_[c];
        col.fieldType = fields[c].type;
        col.isUnsigned = (fields[c].flags & UNSIGNED_FLAG) != 0;
        b.is_null = &col.isNull;
        b.error = &col.error;
        b.length = &col.length;
        switch (fields[c].type) {
            case MYSQL_TYPE_TINY:
            case MYSQL_TYPE_SHORT:
            case MYSQL_TYPE_INT24:
            case MYSQL_TYPE_LONG:
            case MYSQL_TYPE_LONGLONG:
            case MYSQL_TYPE_YEAR:
                b.buffer_type = MYSQL_TYPE_LONGLONG;
                b.buffer = &col.i;
                b.is_unsigned = col.isUnsigned;
                break;
            case MYSQL_TYPE_FLOAT:
                b.buffer_type = MYSQL_TYPE_FLOAT;
                b.buffer = &col.f;
                break;
            case MYSQL_TYPE_DOUBLE:
                b.buffer_type = MYSQL_TYPE_DOUBLE;
                b.buffer = &col.d;
                break;
            case MYSQL_TYPE_DATE:
            case MYSQL_TYPE_NEWDATE:
                b.buffer_type = MYSQL_TYPE_DATE;
                b.buffer = &col.t;
                break;
            case MYSQL_TYPE_TIME:
            case MYSQL_TYPE_TIME2:
                b.buffer_type = MYSQL_TYPE_TIME;
                b.buffer = &col.t;
                break;
            case MYSQL_TYPE_DATETIME:
            case MYSQL_TYPE_DATETIME2:
            case MYSQL_TYPE_TIMESTAMP:
            case MYSQL_TYPE_TIMESTAMP2:
                b.buffer_type = MYSQL_TYPE_DATETIME;
                b.buffer = &col.t;
                break;
            default:
                // Text, decimals, bits and bytes come as the server writes them.
                col.buf.resize(64);
                b.buffer_type = MYSQL_TYPE_STRING;
                b.buffer = col.buf.data();
                b.buffer_length = col.buf.size();
                break;
        }
    }
    if (mysql_stmt_bind_result(stmt_, binds_.data())) session.RaiseStmt(stmt_, source);
    Fill(session, source);
    return OpenResult::Rows;
}

namespace {

// A time value in the server's text form.
void AppendTime(std::string& s, const MYSQL_TIME& t) {
    if (t.time_type == MYSQL_TIMESTAMP_TIME) {
        if (t.neg) s.push_back('-');
        char tmp[16];
        auto [p, ec] = std::to_chars(tmp, tmp + sizeof tmp, t.day * 24u + t.hour);
        (void)ec;
        if (p - tmp < 2) s.push_back('0');
        s.append(tmp, p);
    } else {
        convdetail::AppendYear4(s, t.year % 10000);
        s.push_back('-');
        convdetail::Append2(s, t.month);
        s.push_back('-');
        convdetail::Append2(s, t.day);
        if (t.time_type == MYSQL_TIMESTAMP_DATE) return;
        s.push_back(' ');
        convdetail::Append2(s, t.hour);
    }
    s.push_back(':');
    convdetail::Append2(s, t.minute);
    s.push_back(':');
    convdetail::Append2(s, t.second);
    if (t.second_part) {
        char tmp[8];
        std::snprintf(tmp, sizeof tmp, "%06lu", t.second_part % 1000000);
        s.push_back('.');
        s.append(tmp, 6);
    }
}

}  // namespace

void StmtReader::AppendCell(size_t c) {
    Col& col = cols_[c];
    if (col.isNull) {
        offsets_.push_back(SIZE_MAX);
        lens_.push_back(0);
        return;
    }
    const size_t start = text_.size();
    offsets_.push_back(start);
    char tmp[64];
    switch (binds_[c].buffer_type) {
        case MYSQL_TYPE_LONGLONG: {
            auto [p, ec] = col.isUnsigned ? std::to_chars(tmp, tmp + sizeof tmp, static_cast<unsigned long long>(col.i))
                                          : std::to_chars(tmp, tmp + sizeof tmp, col.i);
            (void)ec;
            text_.append(tmp, p);
            break;
        }
        case MYSQL_TYPE_FLOAT: {
            // The shortest text that gives the float back: what the text
            // protocol shows for a FLOAT column.
            auto [p, ec] = std::to_chars(tmp, tmp + sizeof tmp, col.f);
            (void)ec;
            text_.append(tmp, p);
            break;
        }
        case MYSQL_TYPE_DOUBLE: {
            auto [p, ec] = std::to_chars(tmp, tmp + sizeof tmp, col.d);
            (void)ec;
            text_.append(tmp, p);
            break;
        }
        case MYSQL_TYPE_DATE:
        case MYSQL_TYPE_TIME:
        case MYSQL_TYPE_DATETIME:
            AppendTime(text_, col.t);
            break;
        default:
            text_.append(col.buf.data(), col.length);
            break;
    }
    lens_.push_back(static_cast<unsigned long>(text_.size() - start));
}

void StmtReader::Fill(Session& session, const char* source) {
    text_.clear();
    offsets_.clear();
    lens_.clear();
    ptrs_.clear();
    rows_ = 0;
    const size_t nc = cols_.size();
    size_t rows = 0;
    try {
        while (!done_ && rows < kChunkRows) {
            const int rc = mysql_stmt_fetch(stmt_);
            if (rc == MYSQL_NO_DATA) {
                done_ = true;
                break;
            }
            if (rc == 1) session.RaiseStmt(stmt_, source);
            if (rc == MYSQL_DATA_TRUNCATED) {
                for (unsigned c = 0; c < nc; ++c) {
                    Col& col = cols_[c];
                    MYSQL_BIND& b = binds_[c];
                    if (!col.error || b.buffer_type != MYSQL_TYPE_STRING) continue;
                    col.buf.resize(col.length);
                    b.buffer = col.buf.data();
                    b.buffer_length = col.buf.size();
                    if (mysql_stmt_fetch_column(stmt_, &b, c, 0)) session.RaiseStmt(stmt_, source);
                    col.error = 0;
                }
                // The larger buffers serve the next rows.
                if (mysql_stmt_bind_result(stmt_, binds_.data())) session.RaiseStmt(stmt_, source);
            }
            for (unsigned c = 0; c < nc; ++c) AppendCell(c);
            ++rows;
        }
    } catch (...) {
        // A failed read ends the rows.
        done_ = true;
        text_.clear();
        offsets_.clear();
        lens_.clear();
        throw;
    }
    ptrs_.resize(rows * nc);
    for (size_t k = 0; k < rows * nc; ++k) ptrs_[k] = offsets_[k] == SIZE_MAX ? nullptr : text_.data() + offsets_[k];
    rows_ = rows;
}

void StmtReader::Release() {
    if (meta_) mysql_free_result(meta_);
    meta_ = nullptr;
    if (stmt_) mysql_stmt_close(stmt_);
    stmt_ = nullptr;
}

// ---------------------------------------------------------------- recordset

RecordsetImpl::RecordsetImpl() : fields(std::make_shared<ADODB::Fields>()) {}

RecordsetImpl::~RecordsetImpl() {
    try {
        if (row.open) Close();
    } catch (...) {
    }
}

void RecordsetImpl::BuildFields(MYSQL_FIELD* meta, unsigned count) {
    std::vector<Field> list;
    list.reserve(count);
    for (unsigned c = 0; c < count; ++c) {
        const ColumnType t = MapColumnType(meta[c]);
        list.push_back(Access::MakeField(std::string(meta[c].name, meta[c].name_length), t.ado, t.kind,
                                         static_cast<int32_t>(meta[c].length > INT32_MAX ? INT32_MAX : meta[c].length),
                                         static_cast<int32_t>(c), &row));
    }
    Access::Reset(*fields, std::move(list));
}

bool RecordsetImpl::Open(const std::shared_ptr<Session>& session, const std::string& sql, bool fwd,
                         const char* source) {
    std::unique_ptr<StmtReader> reader;
    MYSQL_RES* res = nullptr;
    bool rows = session->Call([&] {
        session->EnsureConnected(source);
        if (fwd && IsQueryText(sql)) {
            reader = std::make_unique<StmtReader>();
            StmtReader::OpenResult r;
            try {
                r = reader->Open(*session, sql, source);
            } catch (...) {
                reader->Release();  // on this thread, the engine's
                reader.reset();
                throw;
            }
            switch (r) {
                case StmtReader::OpenResult::Rows: return true;
                case StmtReader::OpenResult::NoRows: reader.reset(); return false;
                case StmtReader::OpenResult::NotPreparable: reader.reset(); break;
            }
        }
        res = session->QueryStored(sql, source);
        return res != nullptr;
    });
    if (!rows) return false;
    session_ = session;
    forwardOnly = fwd;
    moved = false;
    if (reader) {
        stmt_ = std::move(reader);
        BuildFields(stmt_->FieldsMeta(), stmt_->FieldCount());
        recordCount = -1;
        row.open = true;
        chunkPos_ = 0;
        ShowChunkRow();
    } else {
        res_ = res;
        BuildFields(mysql_fetch_fields(res_), mysql_num_fields(res_));
        recordCount = fwd ? -1 : static_cast<int32_t>(mysql_num_rows(res_));
        row.open = true;
        FetchStatic();
    }
    bof = eof = !row.hasRow;
    session_->AddRecordset(this);
    return true;
}

void RecordsetImpl::Adopt(const std::shared_ptr<Session>& session, MYSQL_RES* res) {
    session_ = session;
    forwardOnly = false;
    moved = false;
    res_ = res;
    BuildFields(mysql_fetch_fields(res_), mysql_num_fields(res_));
    recordCount = static_cast<int32_t>(mysql_num_rows(res_));
    row.open = true;
    FetchStatic();
    bof = eof = !row.hasRow;
    session_->AddRecordset(this);
}

void RecordsetImpl::FetchStatic() {
    MYSQL_ROW r = mysql_fetch_row(res_);
    if (r) {
        row.cells = r;
        row.lengths = mysql_fetch_lengths(res_);
        row.hasRow = true;
    } else {
        row.cells = nullptr;
        row.lengths = nullptr;
        row.hasRow = false;
    }
}

void RecordsetImpl::ShowChunkRow() {
    if (chunkPos_ < stmt_->Rows()) {
        row.cells = stmt_->RowCells(chunkPos_);
        row.lengths = stmt_->RowLengths(chunkPos_);
        row.hasRow = true;
    } else {
        row.cells = nullptr;
        row.lengths = nullptr;
        row.hasRow = false;
    }
}

void RecordsetImpl::Next(const char* source) {
    if (!row.open) Raise(AdoErr::ObjectClosed);
    if (!row.hasRow) Raise(AdoErr::NoCurrentRecord);
    moved = true;
    bof = false;
    if (stmt_) {
        ++chunkPos_;
        if (chunkPos_ >= stmt_->Rows() && !stmt_->Done()) {
            StmtReader* reader = stmt_.get();
            Session* s = session_.get();
            chunkPos_ = 0;
            try {
                s->Call([&] { reader->Fill(*s, source); });
            } catch (...) {
                ShowChunkRow();
                eof = true;
                throw;
            }
        }
        ShowChunkRow();
    } else {
        FetchStatic();
    }
    eof = !row.hasRow;
}

void RecordsetImpl::First(const char*) {
    if (!row.open) Raise(AdoErr::ObjectClosed);
    if (bof && eof) Raise(AdoErr::NoCurrentRecord);
    if (forwardOnly) {
        if (moved) Raise(AdoErr::NotAllowed);
        return;
    }
    mysql_data_seek(res_, 0);
    FetchStatic();
    bof = false;
    eof = !row.hasRow;
    moved = false;
}

void RecordsetImpl::ReleaseEngine() {
    if (res_) mysql_free_result(res_);
    res_ = nullptr;
    if (stmt_) stmt_->Release();
    stmt_.reset();
}

void RecordsetImpl::CloseFromSession() {
    ReleaseEngine();
    row = RowState{};
    bof = eof = true;
}

void RecordsetImpl::Close() {
    if (session_) {
        if (row.open) {
            Session* s = session_.get();
            s->RemoveRecordset(this);
            if (s->IsOpen() && res_ && !stmt_) {
                s->FreeLater(res_);  // a stored result: freed with the session's next call
                res_ = nullptr;
            } else if (s->IsOpen() && (res_ || stmt_)) {
                s->Call([&] { ReleaseEngine(); });
            }
        }
    }
    // Whatever is left (a session that closed) is freed here.
    if (res_) mysql_free_result(res_);
    res_ = nullptr;
    stmt_.reset();
    row = RowState{};
    bof = eof = true;
    session_.reset();
}

}  // namespace detail

// ---------------------------------------------------------------- Recordset

Recordset::Recordset() : impl_(std::make_unique<detail::RecordsetImpl>()) {}

Recordset::~Recordset() = default;

void Recordset::Open(const std::string& Source, const std::shared_ptr<Connection>& ActiveConnection, int cursorType,
                     int lockType, int Options) {
    (void)Options;
    if (impl_->IsOpen()) Raise(AdoErr::ObjectOpen);
    if (!ActiveConnection || ActiveConnection->State() != adStateOpen)
        throw Error(AdoErr::ConnectionUnusable, kSource, AdoErrorText(AdoErr::ConnectionUnusable));
    if (cursorType == adOpenUnspecified) cursorType = CursorType;
    if (cursorType < adOpenForwardOnly || cursorType > adOpenStatic)
        throw Error(AdoErr::InvalidArgument, kSource, AdoErrorText(AdoErr::InvalidArgument));
    if (lockType != adLockUnspecified) LockType = lockType;
    // A client cursor holds the rows, as the platform's does: it is static.
    const bool forwardOnly = cursorType == adOpenForwardOnly && CursorLocation != adUseClient;
    if (impl_->Open(detail::Access::SessionOf(*ActiveConnection), Source, forwardOnly, kSource))
        CursorType = forwardOnly ? adOpenForwardOnly : adOpenStatic;
}

void Recordset::Close() {
    if (!impl_->IsOpen()) Raise(AdoErr::ObjectClosed);
    impl_->Close();
}

int Recordset::State() const { return impl_->IsOpen() ? adStateOpen : adStateClosed; }

bool Recordset::BOF() const {
    if (!impl_->IsOpen()) Raise(AdoErr::ObjectClosed);
    return impl_->bof;
}

bool Recordset::EOF_() const {
    if (!impl_->IsOpen()) Raise(AdoErr::ObjectClosed);
    return impl_->eof;
}

void Recordset::MoveFirst() { impl_->First(kSource); }

void Recordset::MoveNext() { impl_->Next(kSource); }

ADODB::Fields& Recordset::Fields() {
    if (!impl_->IsOpen()) Raise(AdoErr::ObjectClosed);
    return *impl_->fields;
}

int32_t Recordset::RecordCount() const {
    if (!impl_->IsOpen()) Raise(AdoErr::ObjectClosed);
    return impl_->recordCount;
}

}  // namespace OVT_ZARO::ADODB
