#include "platform/adodb/EngineThread.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <climits>

#include <mysql.h>

namespace OVT_ZARO::ADODB::detail {

namespace {

// How long a side spins before it sleeps: long enough to cover a short
// statement and the gap between two calls, short enough not to matter.
constexpr auto kSpin = std::chrono::microseconds(150);

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

// Waits until word differs from old; spins first, then sleeps with the flag
// raised so that the other side knows to wake it.
uint32_t WaitChange(std::atomic<uint32_t>& word, uint32_t old, std::atomic<uint32_t>& sleeping) {
    uint32_t v = word.load(std::memory_order_acquire);
    if (v != old) return v;
    const auto start = std::chrono::steady_clock::now();
    for (unsigned i = 1;; ++i) {
        CpuRelax();
        v = word.load(std::memory_order_acquire);
        if (v != old) return v;
        if ((i & 63) == 0 && std::chrono::steady_clock::now() - start > kSpin) break;
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
    while (d != seq) d = WaitChange(done_, d, callerSleeping_);
}

void EngineThread::Loop() {
    // Every thread that calls the engine announces itself to it, and leaves.
    mysql_thread_init();
    uint32_t seen = 0;
    for (;;) {
        const uint32_t seq = WaitChange(posted_, seen, workerSleeping_);
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
