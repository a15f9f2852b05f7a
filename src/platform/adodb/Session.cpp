#include "platform/adodb/Session.h"

#include <errmsg.h>

#include <algorithm>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/Engine.h"
#include "platform/adodb/RecordsetImpl.h"

namespace OVT_ZARO::ADODB::detail {

namespace {

const char* const kConnSource = "ADODB.Connection";

std::string Backticked(const std::string& name) {
    std::string out = "`";
    for (char c : name) {
        if (c == '`') out.push_back('`');
        out.push_back(c);
    }
    out.push_back('`');
    return out;
}

}  // namespace

Session::Session(const ConnectionOptions& options) : options_(options), thread_(std::make_unique<EngineThread>()) {}

std::shared_ptr<Session> Session::Open(const ConnectionOptions& options) {
    std::shared_ptr<Session> s(new Session(options));
    s->Call([&] { s->Connect(); });
    engine::Register(s.get());
    s->registered_ = true;
    return s;
}

Session::~Session() {
    if (registered_) engine::Unregister(this);
    if (!exited_ && mysql_) {
        try {
            Close();
        } catch (...) {
        }
    }
    if (!exited_ && thread_ && !pendingFree_.empty()) {
        try {
            Call([] {});
        } catch (...) {
        }
    }
    thread_.reset();
}

void Session::FreePending() {
    for (MYSQL_RES* r : pendingFree_) mysql_free_result(r);
    pendingFree_.clear();
}

void Session::Connect() {
    engine::EnsureClientLibrary();
    if (options_.embedded) engine::EnsureEmbeddedServer(options_.dataDir, options_.serverOptions);
    MYSQL* m = mysql_init(nullptr);
    if (!m) throw Error(CR_OUT_OF_MEMORY, kConnSource, "The database client is out of memory.");
    if (options_.embedded) {
        mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
    } else {
        mysql_options(m, MYSQL_OPT_USE_REMOTE_CONNECTION, nullptr);
        // A stopped or silent server gives an error after these, never a hang.
        if (options_.connectTimeout) mysql_options(m, MYSQL_OPT_CONNECT_TIMEOUT, &options_.connectTimeout);
        if (options_.commandTimeout) {
            mysql_options(m, MYSQL_OPT_READ_TIMEOUT, &options_.commandTimeout);
            mysql_options(m, MYSQL_OPT_WRITE_TIMEOUT, &options_.commandTimeout);
        }
    }
    mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    const char* host = options_.host.empty() ? nullptr : options_.host.c_str();
    const char* sock = options_.socket.empty() ? nullptr : options_.socket.c_str();
    const char* db = (options_.embedded || options_.database.empty()) ? nullptr : options_.database.c_str();
    if (!mysql_real_connect(m, host, options_.embedded ? nullptr : options_.user.c_str(),
                            options_.embedded ? nullptr : options_.password.c_str(), db,
                            options_.embedded ? 0 : options_.port, sock, CLIENT_MULTI_RESULTS)) {
        Error e(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
        mysql_close(m);
        throw e;
    }
    // The same session on both roads: UTF-8 text, and a backslash stored as typed.
    std::string setup = "SET NAMES utf8mb4";
    if (options_.noBackslashEscapes)
        setup += ", SESSION sql_mode = CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'NO_BACKSLASH_ESCAPES')";
    std::vector<std::string> steps{setup};
    if (options_.embedded) steps.push_back("CREATE DATABASE IF NOT EXISTS " + Backticked(options_.database));
    for (const auto& sql : steps) {
        if (mysql_real_query(m, sql.data(), sql.size())) {
            Error e(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
            mysql_close(m);
            throw e;
        }
    }
    if (options_.embedded && mysql_select_db(m, options_.database.c_str())) {
        Error e(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
        mysql_close(m);
        throw e;
    }
    mysql_ = m;
    lost_ = false;
}

void Session::Disconnect() {
    if (mysql_) mysql_close(mysql_);
    mysql_ = nullptr;
}

void Session::NoteError(unsigned errNo) {
    if (!options_.embedded && (errNo == CR_SERVER_GONE_ERROR || errNo == CR_SERVER_LOST ||
                               errNo == CR_SERVER_LOST_EXTENDED || errNo == CR_CONN_HOST_ERROR))
        lost_ = true;
}

void Session::RaiseLast(const char* source) {
    const unsigned e = mysql_errno(mysql_);
    std::string text = mysql_error(mysql_);
    NoteError(e);
    throw Error(static_cast<int32_t>(e), source, std::move(text));
}

void Session::RaiseStmt(MYSQL_STMT* stmt, const char* source) {
    const unsigned e = mysql_stmt_errno(stmt);
    std::string text = mysql_stmt_error(stmt);
    NoteError(e);
    throw Error(static_cast<int32_t>(e), source, std::move(text));
}

void Session::EnsureConnected(const char* source) {
    if (!lost_ && mysql_) return;
    // The server went away: the recordsets of the old session go with it,
    // and the session is opened again with the same settings.
    for (RecordsetImpl* r : std::vector<RecordsetImpl*>(recordsets_)) r->CloseFromSession();
    recordsets_.clear();
    Disconnect();
    try {
        Connect();
    } catch (const Error& e) {
        lost_ = true;
        throw Error(e.Number, source, e.Description);
    }
}

MYSQL_RES* Session::QueryStored(const std::string& sql, const char* source) {
    EnsureConnected(source);
    MYSQL* m = mysql_;
    if (mysql_real_query(m, sql.data(), sql.size())) RaiseLast(source);
    MYSQL_RES* res = mysql_store_result(m);
    if (!res && mysql_field_count(m) != 0) RaiseLast(source);
    lastAffected = res ? -1 : static_cast<int64_t>(mysql_affected_rows(m));
    // A procedure may give more results; the first with rows is kept.
    while (mysql_more_results(m)) {
        const int st = mysql_next_result(m);
        if (st > 0) {
            if (res) mysql_free_result(res);
            RaiseLast(source);
        }
        if (st < 0) break;
        MYSQL_RES* more = mysql_store_result(m);
        if (more) {
            if (!res) res = more;
            else mysql_free_result(more);
        }
    }
    return res;
}

void Session::CloseRecordsets() {
    for (RecordsetImpl* r : std::vector<RecordsetImpl*>(recordsets_)) r->CloseFromSession();
    recordsets_.clear();
}

void Session::Close() {
    if (exited_) return;
    Call([&] {
        CloseRecordsets();
        Disconnect();
    });
    lost_ = false;
}

void Session::CloseForExit() {
    if (exited_) return;
    try {
        Close();
    } catch (...) {
    }
    exited_ = true;
    thread_.reset();
}

void Session::AddRecordset(RecordsetImpl* r) { recordsets_.push_back(r); }

void Session::RemoveRecordset(RecordsetImpl* r) {
    recordsets_.erase(std::remove(recordsets_.begin(), recordsets_.end(), r), recordsets_.end());
}

}  // namespace OVT_ZARO::ADODB::detail
