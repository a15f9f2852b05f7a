#include "platform/adodb/CallerThread.h"

#include <atomic>

#include <mysql.h>

#include "platform/adodb/Engine.h"

namespace OVT_ZARO::ADODB::detail {

namespace {

enum class State : unsigned char { Fresh, Announced, Ended };
thread_local State t_state = State::Fresh;
std::atomic<int> g_announced{0};

// Leaves the library when the thread ends.
struct Farewell {
    ~Farewell() {
        if (t_state == State::Announced) {
            mysql_thread_end();
            g_announced.fetch_sub(1, std::memory_order_relaxed);
        }
        t_state = State::Ended;
    }
};

}  // namespace

bool CallerThread::Enter() {
    if (t_state == State::Announced) return false;
    engine::EnsureClientLibrary();
    mysql_thread_init();
    if (t_state == State::Ended) return true;
    thread_local Farewell farewell;
    (void)farewell;
    t_state = State::Announced;
    g_announced.fetch_add(1, std::memory_order_relaxed);
    return false;
}

int CallerThread::Announced() { return g_announced.load(std::memory_order_relaxed); }

void CallerThread::ProcessExiting() {
    if (t_state == State::Fresh) t_state = State::Ended;
}

void CallerThread::Leave() { mysql_thread_end(); }

}  // namespace OVT_ZARO::ADODB::detail
