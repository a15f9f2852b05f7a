#include "platform/adodb/EngineThread.h"

#include <fcntl.h>
#include <linux/futex.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <climits>
#include <cstring>

#include <mysql.h>

namespace OVT_ZARO::ADODB::detail {

namespace {

// How long a side spins before it sleeps: long enough to cover a short
// statement and the gap between two calls (then the hand-over costs well
// under a microsecond), short enough not to matter beside a long one. Past
// the first microseconds the spinning side gives way to threads waiting for a
// processor.
constexpr int64_t kSpinNs = 150000;
constexpr int64_t kSpinAloneNs = 5000;
// How often the caller looks at the machine.
constexpr int64_t kLookEveryNs = 5000000;

}  // namespace

// Whether spinning pays now. A spinning side holds a processor while it
// waits: that pays when the machine has a processor to spare for each side
// (then the hand-over costs well under a microsecond), and costs dearly when
// it has not, since the spinning side then takes the processor from the very
// thread it waits for, or from the other work of the machine (then sleeping
// at once hands over faster). The sign is the number of threads of the
// machine running or waiting for a processor now, which the kernel gives in
// /proc/loadavg: looked at every 5 milliseconds by the caller, the sides spin
// while the machine's other threads leave a processor for each of them (and
// always for a caller of real-time priority, which those threads do not
// preempt).
// Where that file can not be read, the sign is the caller's own involuntary
// context switches, sampled every 64 waits: after a busy sample the sides
// sleep at once for the next 1,024 waits, then try spinning again.
EngineThread::SpinPolicy::SpinPolicy() : budgetNs_(kSpinNs) {
    loadFd_ = open("/proc/loadavg", O_RDONLY | O_CLOEXEC);
}

EngineThread::SpinPolicy::~SpinPolicy() {
    if (loadFd_ >= 0) close(loadFd_);
}

namespace {

int64_t NowNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// The threads of the machine running or waiting for a processor now (the
// fourth field of /proc/loadavg, "running/total"); -1 when unknown.
int RunnableThreads(int fd) {
    char buf[128];
    const ssize_t n = pread(fd, buf, sizeof buf - 1, 0);
    if (n <= 0) return -1;
    buf[n] = 0;
    const char* p = buf;
    for (int field = 0; field < 3; ++field) {
        p = std::strchr(p, ' ');
        if (!p) return -1;
        ++p;
    }
    int running = 0;
    auto [end, ec] = std::from_chars(p, buf + n, running);
    return ec == std::errc() && *end == '/' ? running : -1;
}

}  // namespace

int64_t EngineThread::SpinPolicy::Budget(bool workerAwake) {
    if (loadFd_ < 0) {
        budgetNs_.store(Preempted(), std::memory_order_relaxed);
        return Current();
    }
    const int64_t now = NowNs();
    if (now < nextLook_) return Current();
    nextLook_ = now + kLookEveryNs;
    // The processors the process may use, and none beyond the machine's.
    static const long processors = [] {
        long n = sysconf(_SC_NPROCESSORS_ONLN);
        cpu_set_t set;
        if (sched_getaffinity(0, sizeof set, &set) == 0) n = std::min<long>(n, CPU_COUNT(&set));
        return n;
    }();
    // A caller of real-time priority is not preempted by the machine's other
    // threads: its sides always have their processors.
    const int policy = sched_getscheduler(0);
    if (policy == SCHED_FIFO || policy == SCHED_RR) {
        budgetNs_.store(kSpinNs, std::memory_order_relaxed);
        return Current();
    }
    const int running = RunnableThreads(loadFd_);
    if (running < 0) {
        close(loadFd_);
        loadFd_ = -1;
        return Current();
    }
    // The caller runs; the engine thread counts when it is awake.
    const int others = running - 1 - (workerAwake ? 1 : 0);
    budgetNs_.store(others <= processors - 2 ? kSpinNs : 0, std::memory_order_relaxed);
    return Current();
}

int64_t EngineThread::SpinPolicy::Preempted() {
    if ((++waits_ & 63) != 0) return Current();
    rusage ru{};
    getrusage(RUSAGE_THREAD, &ru);
    const long preempted = ru.ru_nivcsw;
    int64_t budget = Current();
    if (lastPreempted_ >= 0) {
        if (preempted - lastPreempted_ > 2) {
            budget = 0;
            hold_ = 16;
        } else if (hold_ > 0) {
            --hold_;
        } else {
            budget = kSpinNs;
        }
    }
    lastPreempted_ = preempted;
    return budget;
}

namespace {

void FutexWait(std::atomic<uint32_t>& word, uint32_t expected) {
    syscall(SYS_futex, reinterpret_cast<uint32_t*>(&word), FUTEX_WAIT_PRIVATE, expected, nullptr, nullptr, 0);
}

void FutexWake(std::atomic<uint32_t>& word) {
    syscall(SYS_futex, reinterpret_cast<uint32_t*>(&word), FUTEX_WAKE_PRIVATE, INT_MAX, nullptr, nullptr, 0);
}

inline void CpuRelax() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

// Waits until word differs from old; spins for up to budget nanoseconds,
// then sleeps with the flag raised so that the other side knows to wake it.
uint32_t WaitChange(std::atomic<uint32_t>& word, uint32_t old, std::atomic<uint32_t>& sleeping, int64_t budget) {
    uint32_t v = word.load(std::memory_order_acquire);
    if (v != old) return v;
    if (budget > 0) {
        const auto start = std::chrono::steady_clock::now();
        for (unsigned i = 1;; ++i) {
            CpuRelax();
            v = word.load(std::memory_order_acquire);
            if (v != old) return v;
            if ((i & 63) == 0) {
                const int64_t spent = std::chrono::duration_cast<std::chrono::nanoseconds>(
                                          std::chrono::steady_clock::now() - start)
                                          .count();
                if (spent > budget) break;
                if (spent > kSpinAloneNs) sched_yield();
            }
        }
    }
    for (;;) {
        sleeping.store(1, std::memory_order_seq_cst);
        v = word.load(std::memory_order_seq_cst);
        if (v != old) {
            sleeping.store(0, std::memory_order_relaxed);
            return v;
        }
        FutexWait(word, old);
        sleeping.store(0, std::memory_order_relaxed);
        v = word.load(std::memory_order_acquire);
        if (v != old) return v;
    }
}

}  // namespace

EngineThread::EngineThread() { thread_ = std::thread([this] { Loop(); }); }

EngineThread::~EngineThread() {
    stop_ = true;
    Dispatch([](void*) {}, nullptr);
    thread_.join();
}

void EngineThread::Dispatch(void (*fn)(void*), void* arg) {
    const int64_t budget = spin_.Budget(!workerSleeping_.load(std::memory_order_relaxed));
    fn_ = fn;
    arg_ = arg;
    const uint32_t seq = posted_.load(std::memory_order_relaxed) + 1;
    posted_.store(seq, std::memory_order_seq_cst);
    if (workerSleeping_.load(std::memory_order_seq_cst)) FutexWake(posted_);
    uint32_t d = done_.load(std::memory_order_acquire);
    while (d != seq) d = WaitChange(done_, d, callerSleeping_, budget);
}

void EngineThread::Loop() {
    // Every thread that calls the engine announces itself to it, and leaves.
    mysql_thread_init();
    uint32_t seen = 0;
    for (;;) {
        const uint32_t seq = WaitChange(posted_, seen, workerSleeping_, spin_.Current());
        seen = seq;
        const bool last = stop_;
        fn_(arg_);
        if (last) mysql_thread_end();
        done_.store(seq, std::memory_order_seq_cst);
        if (callerSleeping_.load(std::memory_order_seq_cst)) FutexWake(done_);
        if (last) return;
    }
}

}  // namespace OVT_ZARO::ADODB::detail
