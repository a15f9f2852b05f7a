#include "platform/adodb/CallWatch.h"
#include "platform/adodb/SchedStat.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace OVT_ZARO::ADODB::detail {

namespace {

pid_t CurrentTid() {
    thread_local const pid_t tid = static_cast<pid_t>(syscall(SYS_gettid));
    return tid;
}

// The run time of a thread of this process; -1 when the system does not tell.
int64_t ThreadRunNs(pid_t tid) {
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/task/%d/schedstat", static_cast<int>(tid));
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    const auto s = ReadSchedStat(fd);
    if (fd >= 0) close(fd);
    return s ? s->runNs : -1;
}

// How often the watch looks at the calls under way.
constexpr auto kLookEvery = std::chrono::milliseconds(200);

}  // namespace

// The one watch thread of the process, started with the first watched
// session. It lives to the process's end (sessions held by statics close
// after the ends of other statics).
class Watcher {
public:
    static Watcher& Get() {
        static Watcher* w = new Watcher;
        return *w;
    }

    void Add(CallWatch* c) {
        const std::lock_guard<std::mutex> g(m_);
        watched_.push_back(c);
        if (!started_) {
            started_ = true;
            std::thread([this] { Loop(); }).detach();
        }
    }

    void Remove(CallWatch* c) {
        const std::lock_guard<std::mutex> g(m_);
        watched_.erase(std::remove(watched_.begin(), watched_.end(), c), watched_.end());
    }

private:
    [[noreturn]] void Loop() {
        for (;;) {
            std::this_thread::sleep_for(kLookEvery);
            const std::lock_guard<std::mutex> g(m_);
            const int64_t now = SteadyNowNs();
            for (CallWatch* c : watched_) Look(*c, now);
        }
    }

    // Ends the call of c when its thread has not run for the command
    // timeout, once.
    static void Look(CallWatch& c, int64_t now) {
        const uint64_t call = c.call_.load(std::memory_order_acquire);
        if (call == 0) {
            c.seenCall_ = 0;
            return;
        }
        const int64_t run = ThreadRunNs(c.tid_.load(std::memory_order_relaxed));
        if (run < 0) return;
        if (call != c.seenCall_ || run != c.seenRunNs_) {
            c.seenCall_ = call;
            c.seenRunNs_ = run;
            c.stillSinceNs_ = now;
            return;
        }
        if (now - c.stillSinceNs_ < static_cast<int64_t>(c.timeoutS_) * 1000000000) return;
        const std::lock_guard<std::mutex> g(c.mutex_);
        if (c.call_.load(std::memory_order_relaxed) == call && c.fd_ >= 0) shutdown(c.fd_, SHUT_RDWR);
        c.stillSinceNs_ = INT64_MAX / 2;  // not again for this call
    }

    std::mutex m_;
    std::vector<CallWatch*> watched_;
    bool started_ = false;
};

CallWatch::~CallWatch() {
    if (registered_) Watcher::Get().Remove(this);
}

void CallWatch::SetSocket(int fd) {
    {
        const std::lock_guard<std::mutex> g(mutex_);
        fd_ = fd;
    }
    if (fd >= 0 && !registered_) {
        Watcher::Get().Add(this);
        registered_ = true;
    }
}

CallWatch::Scope::Scope(CallWatch& w) {
    if (!w.On() || w.call_.load(std::memory_order_relaxed) != 0) return;
    w.tid_.store(CurrentTid(), std::memory_order_relaxed);
    w.call_.store(++w.calls_, std::memory_order_release);
    w_ = &w;
}

CallWatch::Scope::~Scope() {
    if (!w_) return;
    const std::lock_guard<std::mutex> g(w_->mutex_);
    w_->call_.store(0, std::memory_order_release);
}

}  // namespace OVT_ZARO::ADODB::detail
