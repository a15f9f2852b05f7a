#include "platform/adodb/Session.h"

#include <errmsg.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <chrono>
#include <filesystem>
#include <new>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/DiskWatch.h"
#include "platform/adodb/Engine.h"
#include "platform/adodb/RecordsetImpl.h"

// The engine's number of an in-process session (a server function; the
// client's mysql_thread_id is 0 on the embedded road).
extern "C" unsigned long thd_get_thread_id(const void* thd);
// The client's read timeout of an open handle, in seconds; one too large
// for the client to count in milliseconds means none.
extern "C" void my_net_set_read_timeout(NET* net, unsigned int timeout);
constexpr unsigned kNoReadTimeout = INT_MAX;

namespace OVT_ZARO::ADODB::detail {

namespace {

const char* const kConnSource = "ADODB.Connection";
// Adds NO_BACKSLASH_ESCAPES to the session's sql_mode, keeping the rest.
const char* const kNoBackslashEscapes =
    "SESSION sql_mode = CONCAT_WS(',', NULLIF(@@SESSION.sql_mode, ''), 'NO_BACKSLASH_ESCAPES')";
// The database's number for a full disk.
constexpr int32_t kDiskFull = 1021;
// A cluster node's answer while it is not ready for statements.
constexpr unsigned kNodeNotReady = 1047;

unsigned LocalPort(MYSQL* m) {
    sockaddr_storage a{};
    socklen_t len = sizeof a;
    if (getsockname(static_cast<int>(m->net.fd), reinterpret_cast<sockaddr*>(&a), &len) != 0) return 0;
    if (a.ss_family == AF_INET) return ntohs(reinterpret_cast<sockaddr_in*>(&a)->sin_port);
    if (a.ss_family == AF_INET6) return ntohs(reinterpret_cast<sockaddr_in6*>(&a)->sin6_port);
    return 0;
}

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

void Session::RaiseUsedByTwoThreads() {
    throw Error(AdoErr::UsedByTwoThreads, "ADODB.Connection", AdoErrorText(AdoErr::UsedByTwoThreads));
}

// Only the embedded road has an engine thread: the in-process engine is much
// slower on a process's main thread; a client of a server is not.
Session::Session(const ConnectionOptions& options)
    : options_(options),
      thread_(options.embedded ? std::make_unique<EngineThread>() : nullptr),
      watch_(options.embedded ? 0 : options.commandTimeout) {}

std::shared_ptr<Session> Session::Open(const ConnectionOptions& options) {
    std::shared_ptr<Session> s(new Session(options));
    s->Call([&] { s->Connect(0); });
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
    if (!exited_ && !pendingFree_.empty()) {
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

void Session::Connect(size_t first) {
    engine::EnsureClientLibrary();
    if (options_.embedded) engine::EnsureEmbeddedServer(options_.dataDir, options_.serverOptions);
    MYSQL* m = options_.servers.size() > 1 ? OpenFromList(first)
                                           : OpenHandle(options_.host.empty() ? nullptr : options_.host.c_str(),
                                                        options_.embedded ? 0 : options_.port);
    mysql_ = m;
    lost_ = false;
    modeLost_ = false;
    if (options_.embedded) {
        sessionId_ = m->thd ? thd_get_thread_id(m->thd) : 0;
    } else {
        sessionId_ = mysql_thread_id(m);
        localPort_ = options_.socket.empty() ? LocalPort(m) : 0;
        // Once open, the session's reads block, and the watch keeps their
        // command timeout (see CallWatch.h).
        if (watch_.On()) {
            my_net_set_read_timeout(&m->net, kNoReadTimeout);
            watch_.SetSocket(mysql_get_socket(m));
        }
    }
}

MYSQL* Session::OpenHandle(const char* host, unsigned port) {
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
    const char* sock = options_.socket.empty() ? nullptr : options_.socket.c_str();
    const char* db = (options_.embedded || options_.database.empty()) ? nullptr : options_.database.c_str();
    if (!mysql_real_connect(m, host, options_.embedded ? nullptr : options_.user.c_str(),
                            options_.embedded ? nullptr : options_.password.c_str(), db, port, sock,
                            CLIENT_MULTI_RESULTS)) {
        Error e(static_cast<int32_t>(mysql_errno(m)), kConnSource, mysql_error(m));
        mysql_close(m);
        throw e;
    }
    // The same session on both roads: UTF-8 text, and a backslash stored as
    // typed, so that the apostrophe rule is a complete guard for literals.
    std::vector<std::string> steps{std::string("SET NAMES utf8mb4, ") + kNoBackslashEscapes};
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
    return m;
}

void Session::Disconnect() {
    watch_.SetSocket(-1);
    if (mysql_) mysql_close(mysql_);
    mysql_ = nullptr;
}

void Session::NoteError(unsigned errNo) {
    if (!options_.embedded && (errNo == CR_SERVER_GONE_ERROR || errNo == CR_SERVER_LOST ||
                               errNo == CR_SERVER_LOST_EXTENDED || errNo == CR_CONN_HOST_ERROR))
        lost_ = true;
    // With a list of servers, a cluster node that is no longer ready for
    // statements (1047) is left for the next one too.
    if (options_.servers.size() > 1 && errNo == kNodeNotReady) lost_ = true;
}

namespace {
// Whether the disk of a table's file has room to rebuild its index: twice
// the index file and a megabyte.
bool RoomToRepair(const std::string& file) {
    struct statvfs s {};
    if (statvfs(file.c_str(), &s) != 0) return false;
    const unsigned long long free = (geteuid() == 0 ? s.f_bfree : s.f_bavail) * s.f_frsize;
    std::error_code ec;
    const std::filesystem::path index = std::filesystem::path(file).replace_extension(".MYI");
    const auto size = std::filesystem::file_size(index, ec);
    return free > (ec ? 0 : 2 * size) + (1u << 20);
}

// The file the engine could not write, from its message ("... writing
// '/data/zaro/articulo.MYD' ..."); empty when it names none.
std::string FileWritten(const std::string& engineText) {
    const size_t at = engineText.find("writing '");
    if (at == std::string::npos) return {};
    const size_t end = engineText.find('\'', at + 9);
    return end == std::string::npos ? std::string() : engineText.substr(at + 9, end - at - 9);
}
}  // namespace

void Session::RaiseDiskFull(const char* source, const std::string& engineText) {
    const std::string dir = engine::diskwatch::DataDir();
    const std::string file = FileWritten(engineText);
    // A table whose row write was stopped is marked as crashed by its engine:
    // it is closed before a later statement, once there is room to repair it,
    // so that the engine repairs it when it opens it again.
    if (file.rfind(dir + "/", 0) == 0) {
        flushFile_ = file;
        const std::string rest = file.substr(dir.size() + 1);
        const size_t slash = rest.find('/');
        const size_t dot = rest.rfind('.');
        if (slash != std::string::npos && dot != std::string::npos && dot > slash)
            flushTable_ = Backticked(rest.substr(0, slash)) + "." + Backticked(rest.substr(slash + 1, dot - slash - 1));
    }
    throw Error(kDiskFull, source,
                "Disk full: the disk of the data folder '" + dir + "' has no free space" +
                    (file.empty() ? std::string() : " (writing " + file + ")") +
                    ", and the statement that waited for it was stopped; free some space, then run it again");
}

void Session::RaiseLast(const char* source) {
    const unsigned e = mysql_errno(mysql_);
    std::string text = mysql_error(mysql_);
    NoteError(e);
    if (options_.embedded && engine::diskwatch::TakeStopped(sessionId_)) RaiseDiskFull(source, text);
    throw Error(static_cast<int32_t>(e), source, std::move(text));
}

void Session::RaiseStmt(MYSQL_STMT* stmt, const char* source) {
    const unsigned e = mysql_stmt_errno(stmt);
    std::string text = mysql_stmt_error(stmt);
    NoteError(e);
    if (options_.embedded && engine::diskwatch::TakeStopped(sessionId_)) RaiseDiskFull(source, text);
    throw Error(static_cast<int32_t>(e), source, std::move(text));
}

void Session::EnsureConnected(const char* source) {
    if (!lost_ && mysql_) {
        // A table whose write a full disk stopped is closed once there is
        // room again to repair it: the engine repairs it as it opens it.
        if (!flushTable_.empty() && RoomToRepair(flushFile_)) {
            const std::string flush = "FLUSH TABLES " + flushTable_;
            flushTable_.clear();
            if (mysql_real_query(mysql_, flush.data(), flush.size()) == 0) {
                if (MYSQL_RES* r = mysql_store_result(mysql_)) mysql_free_result(r);
            }
        }
        if (modeLost_) RestoreMode(source);
        return;
    }
    // The server went away: the recordsets of the old session go with it,
    // and the session is opened again with the same settings.
    for (RecordsetImpl* r : std::vector<RecordsetImpl*>(recordsets_)) r->CloseFromSession();
    recordsets_.clear();
    // (A session that was lost while it waited for an earlier lost one ran no
    // statement of the caller's: the earlier one is still the one to wait for.)
    if (!options_.embedded && mysql_ && sessionId_ && !lostId_) {
        lostId_ = sessionId_;
        lostPort_ = localPort_;
        lostServer_ = server_;
    }
    Disconnect();
    try {
        // With a list of servers, the next one first, the lost one last.
        Connect(NextServer());
    } catch (const Error& e) {
        lost_ = true;
        throw Error(e.Number, source, e.Description);
    }
    // The lost session can be ended only from its own server; on another
    // server of the list there is nothing of it to wait for.
    if (lostId_ && server_ != lostServer_) {
        lostId_ = 0;
        lostPort_ = 0;
    }
    if (lostId_) EndLostSession(source);
}

// The lost session may still be on the server, with a statement it read
// before the client gave up on it (a server that paused, a network that
// stalled). It is ended before this session runs anything, so that such a
// statement is applied before the new session looks, or not at all: what the
// new session reads after a lost connection is what stays. Over TCP the lost
// session is known by its number and its client port; over a socket by its
// number alone, and then it is only waited for.
void Session::EndLostSession(const char* source) {
    using namespace std::chrono;
    const std::string find = "SELECT HOST FROM information_schema.PROCESSLIST WHERE ID = " + std::to_string(lostId_);
    const auto deadline =
        steady_clock::now() + seconds(std::max(5u, options_.commandTimeout ? options_.commandTimeout : 30u));
    bool killed = false;
    for (;;) {
        MYSQL_RES* r = QueryStoredRaw(find, source);
        MYSQL_ROW row = r ? mysql_fetch_row(r) : nullptr;
        const std::string host = row && row[0] ? row[0] : "";
        const bool present = row != nullptr;
        if (r) mysql_free_result(r);
        const std::string port = ":" + std::to_string(lostPort_);
        const bool ours = present && (lostPort_ == 0 || (host.size() > port.size() &&
                                                         host.compare(host.size() - port.size(), port.size(),
                                                                      port) == 0));
        if (!ours) break;
        if (!killed && lostPort_ != 0) {
            const std::string kill = "KILL CONNECTION " + std::to_string(lostId_);
            if (mysql_real_query(mysql_, kill.data(), kill.size()) == 0) {
                if (MYSQL_RES* k = mysql_store_result(mysql_)) mysql_free_result(k);
            }
            killed = true;
        }
        if (steady_clock::now() > deadline) {
            // Said once: the next call goes on.
            const unsigned long id = lostId_;
            lostId_ = 0;
            lostPort_ = 0;
            throw Error(CR_SERVER_LOST, source,
                        "The connection to the server was lost, and the session that was lost still runs on the "
                        "server (number " + std::to_string(id) + "); its last statement may still be applied.");
        }
        std::this_thread::sleep_for(milliseconds(50));
    }
    lostId_ = 0;
    lostPort_ = 0;
}

void Session::RestoreMode(const char* source) {
    const std::string sql = std::string("SET ") + kNoBackslashEscapes;
    if (mysql_real_query(mysql_, sql.data(), sql.size())) RaiseLast(source);
    modeLost_ = false;
}

MYSQL_RES* Session::QueryStoredRaw(const std::string& sql, const char* source) {
    if (mysql_real_query(mysql_, sql.data(), sql.size())) RaiseLast(source);
    MYSQL_RES* res = mysql_store_result(mysql_);
    if (!res && mysql_field_count(mysql_) != 0) RaiseLast(source);
    return res;
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
    NoteMode();
    if (res && options_.embedded) KeepHeap(res);
    return res;
}

// The engine builds a result on the engine thread, in that thread's own heap;
// freed with nothing above it there, its memory goes back to the system and
// the next read faults it in again (a quarter of a large read's time). A
// block kept just above a large result keeps its memory for the next result.
// The C library makes a thread's heap of 64 MB regions and hands out free
// gaps lower down first, so blocks are taken until one lies in the region of
// the result's newest (largest) block, above every block of the result
// there. The kept blocks move with each large result and go with the
// session, so the session keeps at most its last large result's memory.
void Session::KeepHeap(MYSQL_RES* res) {
    constexpr my_ulonglong kLargeRows = 1000;
    // Below the allocator's smallest threshold for a block of its own.
    constexpr size_t kKeeperBytes = 64 * 1024;
    constexpr size_t kMaxKeepers = 128;
    constexpr uintptr_t kRegion = uintptr_t{64} << 20;
    if (mysql_num_rows(res) < kLargeRows || !res->data) return;
    const auto forEachBlock = [&](auto&& f) {
        for (const USED_MEM* list : {res->data->alloc.free, res->data->alloc.used})
            for (const USED_MEM* b = list; b; b = b->next) f(b);
    };
    const auto regionOf = [](const void* p) { return reinterpret_cast<uintptr_t>(p) & ~(kRegion - 1); };
    const USED_MEM* newest = nullptr;
    forEachBlock([&](const USED_MEM* b) {
        if (!newest || b->size > newest->size || (b->size == newest->size && b > newest)) newest = b;
    });
    if (!newest) return;
    const uintptr_t region = regionOf(newest);
    uintptr_t top = 0;
    forEachBlock([&](const USED_MEM* b) {
        if (regionOf(b) == region) top = std::max(top, reinterpret_cast<uintptr_t>(b) + b->size);
    });
    std::vector<std::unique_ptr<char[]>> keepers;
    keepers.reserve(kMaxKeepers);
    while (keepers.size() < kMaxKeepers) {
        std::unique_ptr<char[]> block(new (std::nothrow) char[kKeeperBytes]);
        if (!block) return;
        const bool above = regionOf(block.get()) == region && reinterpret_cast<uintptr_t>(block.get()) > top;
        keepers.push_back(std::move(block));
        if (above) {
            heapKeepers_ = std::move(keepers);
            return;
        }
    }
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
