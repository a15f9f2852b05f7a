#include "platform/adodb/EngineThread.h"

#include <linux/futex.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <climits>

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

}  // namespace

// Whether spinning pays now. On a machine with more runnable threads than
// processors a spinning thread is preempted, and takes the processor from
// the very thread it waits for: then sleeping at once hands over faster. The
// sign is the waiting thread's own involuntary context switches, sampled
// every 64 waits; after a busy sample the side sleeps at once for the next
// 1,024 waits, then tries spinning again.
int64_t EngineThread::SpinGauge::Budget() {
    if ((++waits & 63) != 0) return budgetNs;
    rusage ru{};
    getrusage(RUSAGE_THREAD, &ru);
    const long preempted = ru.ru_nivcsw;
    if (lastPreempted >= 0) {
        if (preempted - lastPreempted > 2) {
            budgetNs = 0;
            hold = 16;
        } else if (hold > 0) {
            --hold;
        } else {
            budgetNs = kSpinNs;
        }
    }
    lastPreempted = preempted;
    return budgetNs;
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
    fn_ = fn;
    arg_ = arg;
    const uint32_t seq = posted_.load(std::memory_order_relaxed) + 1;
    posted_.store(seq, std::memory_order_seq_cst);
    if (workerSleeping_.load(std::memory_order_seq_cst)) FutexWake(posted_);
    uint32_t d = done_.load(std::memory_order_acquire);
    const int64_t budget = callerGauge_.Budget();
    while (d != seq) d = WaitChange(done_, d, callerSleeping_, budget);
}

void EngineThread::Loop() {
    // Every thread that calls the engine announces itself to it, and leaves.
    mysql_thread_init();
    uint32_t seen = 0;
    for (;;) {
        const uint32_t seq = WaitChange(posted_, seen, workerSleeping_, workerGauge_.Budget());
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
