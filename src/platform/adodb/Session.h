// Session (internal): one open session with a database, the recordsets open
// on it, and on the embedded road its engine thread.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <mysql.h>

#include "platform/adodb/CallWatch.h"
#include "platform/adodb/CallerThread.h"
#include "platform/adodb/ConnectionString.h"
#include "platform/adodb/EngineThread.h"

namespace OVT_ZARO::ADODB::detail {

class RecordsetImpl;

class Session : public std::enable_shared_from_this<Session> {
public:
    // Opens a session; raises on failure.
    static std::shared_ptr<Session> Open(const ConnectionOptions& options);
    ~Session();

    // Runs f after freeing the results left to free: on the embedded road on
    // the engine thread, on the server road on the caller's thread ("on the
    // engine thread" below means inside Call, on either road). A call made
    // while a call of another thread runs raises 3711 (source
    // "ADODB.Connection") and leaves that call alone.
    template <class F>
    auto Call(F&& f) {
        const CallOwner owner(*this);
        auto job = [&]() -> decltype(auto) {
            FreePending();
            return f();
        };
        if (thread_) return thread_->Run(std::move(job));
        CallerThread announced;
        const CallWatch::Scope watched(watch_);
        return job();
    }

    // A stored result to free with the next call, so that closing a static
    // recordset costs no hand-over of its own.
    void FreeLater(MYSQL_RES* res) { pendingFree_.push_back(res); }

    bool IsOpen() const { return mysql_ != nullptr || lost_; }
    bool Embedded() const { return options_.embedded; }
    // The server the session is on: "host:port", or the socket's path; empty
    // on the embedded road. After a lost server, the lost one until another
    // opens.
    std::string CurrentServer() const;
    // The servers of the connection string in the order they are tried.
    std::vector<std::string> ServerNames() const;
    MYSQL* Handle() const { return mysql_; }
    // True while an engine call of this session runs (embedded road).
    bool InCall() const { return thread_ && thread_->Busy(); }

    // Before a statement: a session whose server was lost is opened again
    // (its recordsets are closed), once the lost session has ended on the
    // server; a session whose sql_mode lost NO_BACKSLASH_ESCAPES gets it
    // back. Raises when that fails.
    // REQUIRES: on the engine thread.
    void EnsureConnected(const char* source);
    // After a statement: notes from the reply's status whether the session
    // still runs with NO_BACKSLASH_ESCAPES (no round trip).
    void NoteMode() {
        if (mysql_ && !(mysql_->server_status & SERVER_STATUS_NO_BACKSLASH_ESCAPES)) modeLost_ = true;
    }
    // Raises the error of the handle with source, noting a lost server.
    // REQUIRES: on the engine thread.
    [[noreturn]] void RaiseLast(const char* source);
    [[noreturn]] void RaiseStmt(MYSQL_STMT* stmt, const char* source);
    // Notes a lost server after a client error number.
    void NoteError(unsigned errNo);

    // Runs a statement as text and stores its first result (null when it has
    // none). Extra results are read and dropped.
    // REQUIRES: on the engine thread.
    MYSQL_RES* QueryStored(const std::string& sql, const char* source);
    // The same for a statement of the library's own: no checks before or
    // after it.
    MYSQL_RES* QueryStoredRaw(const std::string& sql, const char* source);

    // Closes the recordsets and the session.
    void Close();
    // At process exit: the same, and no engine call afterwards.
    void CloseForExit();

    void AddRecordset(RecordsetImpl* r);
    void RemoveRecordset(RecordsetImpl* r);

    int64_t lastAffected = -1;

private:
    // The thread in a call of this session, from entering Call to leaving it
    // (a call within a call of the same thread leaves it to the outer one).
    class CallOwner {
    public:
        explicit CallOwner(Session& s) : s_(s) {
            std::thread::id none;
            const std::thread::id me = std::this_thread::get_id();
            if (s_.caller_.compare_exchange_strong(none, me, std::memory_order_acquire)) outer_ = true;
            else if (none != me) RaiseUsedByTwoThreads();
        }
        ~CallOwner() {
            if (outer_) s_.caller_.store(std::thread::id(), std::memory_order_release);
        }
        CallOwner(const CallOwner&) = delete;
        CallOwner& operator=(const CallOwner&) = delete;

    private:
        Session& s_;
        bool outer_ = false;
    };
    [[noreturn]] static void RaiseUsedByTwoThreads();

    explicit Session(const ConnectionOptions& options);
    // Opens the session: the one server, or the first of the list that takes
    // it, from the server numbered first on (see ServerList.cpp).
    void Connect(size_t first);  // on the engine thread
    // A handle on one server with the session's settings, or an Error.
    MYSQL* OpenHandle(const char* host, unsigned port);  // on the engine thread
    MYSQL* OpenFromList(size_t first);                   // on the engine thread
    // Raises 1047 when the server is a cluster node not ready for statements.
    static void CheckReady(MYSQL* m);
    // The server to try first after a lost one: the next of the list.
    size_t NextServer() const { return options_.servers.empty() ? 0 : (server_ + 1) % options_.servers.size(); }
    void Disconnect();   // on the engine thread
    void CloseRecordsets();
    void FreePending();  // on the engine thread
    void RestoreMode(const char* source);    // on the engine thread
    [[noreturn]] void RaiseDiskFull(const char* source, const std::string& engineText);
    void EndLostSession(const char* source); // on the engine thread

    ConnectionOptions options_;
    std::unique_ptr<EngineThread> thread_;
    CallWatch watch_;  // server road: the command timeout of the session's reads
    MYSQL* mysql_ = nullptr;
    bool lost_ = false;
    bool modeLost_ = false;
    std::string flushTable_;  // a table to close before a later statement (after a full disk)
    std::string flushFile_;   // its file that could not be written
    // The session's number in the engine or on the server; on the server road
    // its local TCP port (0 over a socket), and those of a lost session not
    // yet seen to end.
    unsigned long sessionId_ = 0;
    unsigned localPort_ = 0;
    unsigned long lostId_ = 0;
    unsigned lostPort_ = 0;
    // The server of the list the session is on, and that of the lost session.
    size_t server_ = 0;
    size_t lostServer_ = 0;
    bool registered_ = false;
    bool exited_ = false;
    std::atomic<std::thread::id> caller_{};
    std::vector<RecordsetImpl*> recordsets_;
    std::vector<MYSQL_RES*> pendingFree_;
    // Embedded road: blocks taken on the engine thread after the last large
    // result, which keep that result's memory in the thread's heap when the
    // result is freed, so that the next one reuses it (see KeepHeap).
    std::vector<std::unique_ptr<char[]>> heapKeepers_;
    void KeepHeap(MYSQL_RES* res);  // on the engine thread
};

}  // namespace OVT_ZARO::ADODB::detail
