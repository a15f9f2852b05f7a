#include "platform/adodb/EngineThread.h"
#include "platform/adodb/SchedStat.h"

#include <fcntl.h>
#include <linux/futex.h>
#include <sched.h>
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

namespace {

// The calling thread's own /proc/thread-self/schedstat, open for its life.
struct OwnSchedStat {
    int fd = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
    ~OwnSchedStat() {
        if (fd >= 0) close(fd);
    }
};

// How long the calling thread has waited for a processor so far, in
// nanoseconds; -1 when the system does not tell. who: the thread.
int64_t OwnQueuedNs(const void** who) {
    thread_local OwnSchedStat own;
    *who = &own;
    const auto s = ReadSchedStat(own.fd);
    return s ? s->queuedNs : -1;
}

}  // namespace

// Whether spinning pays now. It does while the waiting thread gets a
// processor whenever it wants one; when it waits for one more than a quarter
// of the time (its own time in the run queue, sampled every 64 waits), the
// machine has more runnable threads than processors, a spinning side takes
// the processor from a thread in line for it, maybe the very one it waits
// for, and sleeping at once hands over faster. After such a sample the side
// sleeps at once until 16 samples in a row (1,024 waits) find it served
// again. Where the system does not tell, the side sleeps at once. (A
// thread's involuntary context switches are no such sign: they count the
// spin's own yields, and while sleeping every wake-up.)
int64_t EngineThread::SpinGauge::Budget() {
    if ((++waits & 63) != 0) return budgetNs;
    const void* who = nullptr;
    const int64_t queued = OwnQueuedNs(&who);
    const int64_t now = SteadyNowNs();
    if (queued < 0) return budgetNs = 0;
    if (who == thread && now > lastNs) {
        if ((queued - lastQueuedNs) * 4 > now - lastNs) {
            budgetNs = 0;
            hold = 16;
        } else if (hold > 0 && --hold == 0) {
            budgetNs = kSpinNs;
        }
    }
    thread = who;  // a caller on another thread starts afresh
    lastNs = now;
    lastQueuedNs = queued;
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
// A side on the processor of the other side's last call does not spin: the
// other side cannot run before it stops.
uint32_t WaitChange(std::atomic<uint32_t>& word, uint32_t old, std::atomic<uint32_t>& sleeping, int64_t budget,
                    const std::atomic<int>& otherCpu) {
    uint32_t v = word.load(std::memory_order_acquire);
    if (v != old) return v;
    if (budget > 0 && otherCpu.load(std::memory_order_relaxed) != sched_getcpu()) {
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
    callerCpu_.store(sched_getcpu(), std::memory_order_relaxed);
    const uint32_t seq = posted_.load(std::memory_order_relaxed) + 1;
    posted_.store(seq, std::memory_order_seq_cst);
    if (workerSleeping_.load(std::memory_order_seq_cst)) FutexWake(posted_);
    uint32_t d = done_.load(std::memory_order_acquire);
    const int64_t budget = callerGauge_.Budget();
    while (d != seq) d = WaitChange(done_, d, callerSleeping_, budget, workerCpu_);
}

void EngineThread::Loop() {
    // Every thread that calls the engine announces itself to it, and leaves.
    mysql_thread_init();
    uint32_t seen = 0;
    for (;;) {
        const uint32_t seq = WaitChange(posted_, seen, workerSleeping_, workerGauge_.Budget(), callerCpu_);
        seen = seq;
        workerCpu_.store(sched_getcpu(), std::memory_order_relaxed);
        const bool last = stop_;
        fn_(arg_);
        if (last) mysql_thread_end();
        done_.store(seq, std::memory_order_seq_cst);
        if (callerSleeping_.load(std::memory_order_seq_cst)) FutexWake(done_);
        if (last) return;
    }
}

}  // namespace OVT_ZARO::ADODB::detail
