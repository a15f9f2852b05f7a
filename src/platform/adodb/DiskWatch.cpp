#include "platform/adodb/DiskWatch.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <set>
#include <string>
#include <thread>

#include <mysql.h>

#include "platform/adodb/Engine.h"

namespace OVT_ZARO::ADODB::detail::engine::diskwatch {

namespace {

// The engine's name of the wait for free space (its processlist state).
const char* const kWaitingQuery =
    "SELECT ID FROM information_schema.PROCESSLIST WHERE STATE = 'Waiting for someone to free space'";

// Never destroyed: used by the exit handler.
struct Watch {
    std::mutex mu;
    std::condition_variable cv;
    bool running = false;
    bool ready = false;
    bool stop = false;
    std::thread thread;
    std::set<unsigned long> stopped;
    std::string dataDir;
};

Watch& W() {
    static Watch* w = new Watch();
    return *w;
}

bool Run(MYSQL* m, const std::string& sql) {
    if (mysql_real_query(m, sql.data(), sql.size())) return false;
    if (MYSQL_RES* r = mysql_store_result(m)) mysql_free_result(r);
    return true;
}

// Stops the statements that wait for free space.
void StopWaiting(MYSQL* m) {
    if (mysql_real_query(m, kWaitingQuery, std::char_traits<char>::length(kWaitingQuery))) return;
    MYSQL_RES* r = mysql_store_result(m);
    if (!r) return;
    std::set<unsigned long> ids;
    while (MYSQL_ROW row = mysql_fetch_row(r))
        if (row[0]) ids.insert(std::strtoul(row[0], nullptr, 10));
    mysql_free_result(r);
    for (unsigned long id : ids) {
        {
            std::lock_guard<std::mutex> lock(W().mu);
            W().stopped.insert(id);
        }
        Run(m, "KILL QUERY " + std::to_string(id));
    }
}

void Loop() {
    Watch& w = W();
    mysql_thread_init();
    MYSQL* m = mysql_init(nullptr);
    if (m) {
        mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
        // The watch's own statements stay out of the general query log.
        if (!mysql_real_connect(m, nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0) ||
            !Run(m, "SET SESSION sql_log_off = 1")) {
            mysql_close(m);
            m = nullptr;
        }
    }
    std::unique_lock<std::mutex> lock(w.mu);
    w.ready = true;
    w.cv.notify_all();
    while (!w.stop && m) {
        w.cv.wait_for(lock, std::chrono::seconds(1));
        if (w.stop) break;
        lock.unlock();
        if (AnyEmbeddedCallRunning()) StopWaiting(m);
        lock.lock();
    }
    lock.unlock();
    if (m) mysql_close(m);
    mysql_thread_end();
}

}  // namespace

void Start(const std::string& dataDir) {
    Watch& w = W();
    std::unique_lock<std::mutex> lock(w.mu);
    if (w.running) return;
    w.running = true;
    w.dataDir = dataDir;
    w.thread = std::thread(Loop);
    w.cv.wait(lock, [&] { return w.ready; });
}

void Stop() {
    Watch& w = W();
    {
        std::lock_guard<std::mutex> lock(w.mu);
        if (!w.running) return;
        w.stop = true;
    }
    w.cv.notify_all();
    if (w.thread.joinable()) w.thread.join();
    std::lock_guard<std::mutex> lock(w.mu);
    w.running = false;
}

bool TakeStopped(unsigned long sessionId) {
    std::lock_guard<std::mutex> lock(W().mu);
    return W().stopped.erase(sessionId) > 0;
}

std::string DataDir() {
    std::lock_guard<std::mutex> lock(W().mu);
    return W().dataDir;
}

}  // namespace OVT_ZARO::ADODB::detail::engine::diskwatch
