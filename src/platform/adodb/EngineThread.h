// EngineThread (internal): a thread that runs a connection's engine calls.
//
// Run(f) hands f to the thread and waits for it; f's result or exception
// comes back to the caller. Both sides spin briefly (150 microseconds) before
// they sleep, so that on an idle machine a call that follows another costs
// about a microsecond of hand-over; on a machine with more runnable threads
// than processors (a side finds itself waiting for a processor), or when
// both sides are on one processor, they sleep at once, which is faster there.
// REQUIRES: one caller at a time.
#pragma once

#include <atomic>
#include <cstdint>
#include <exception>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

namespace OVT_ZARO::ADODB::detail {

class EngineThread {
public:
    EngineThread();
    ~EngineThread();
    EngineThread(const EngineThread&) = delete;
    EngineThread& operator=(const EngineThread&) = delete;

    template <class F>
    auto Run(F&& f) -> std::invoke_result_t<F&> {
        using R = std::invoke_result_t<F&>;
        if constexpr (std::is_void_v<R>) {
            struct Ctx {
                F* f;
                std::exception_ptr error;
            } ctx{&f, nullptr};
            Dispatch(
                [](void* p) {
                    auto* c = static_cast<Ctx*>(p);
                    try {
                        (*c->f)();
                    } catch (...) {
                        c->error = std::current_exception();
                    }
                },
                &ctx);
            if (ctx.error) std::rethrow_exception(ctx.error);
        } else {
            struct Ctx {
                F* f;
                std::optional<R> result;
                std::exception_ptr error;
            } ctx{&f, std::nullopt, nullptr};
            Dispatch(
                [](void* p) {
                    auto* c = static_cast<Ctx*>(p);
                    try {
                        c->result.emplace((*c->f)());
                    } catch (...) {
                        c->error = std::current_exception();
                    }
                },
                &ctx);
            if (ctx.error) std::rethrow_exception(ctx.error);
            return std::move(*ctx.result);
        }
    }

    // True while a call runs (read from any thread; a glance, not a lock).
    bool Busy() const {
        return posted_.load(std::memory_order_relaxed) != done_.load(std::memory_order_relaxed);
    }

private:
    // Whether a waiting side spins, and for how long (see the .cpp).
    struct SpinGauge {
        int64_t Budget();
        int64_t budgetNs = 150000;
        uint32_t waits = 0;
        int hold = 0;                   // samples still to sleep at once
        const void* thread = nullptr;   // the thread of the last sample
        int64_t lastNs = 0;             // the time of the last sample
        int64_t lastQueuedNs = 0;       // the thread's run-queue time then
    };

    void Dispatch(void (*fn)(void*), void* arg);
    void Loop();

    void (*fn_)(void*) = nullptr;
    void* arg_ = nullptr;
    bool stop_ = false;
    std::atomic<uint32_t> posted_{0};
    std::atomic<uint32_t> done_{0};
    std::atomic<uint32_t> workerSleeping_{0};
    std::atomic<uint32_t> callerSleeping_{0};
    // The processor each side last ran a call's hand-over on.
    std::atomic<int> callerCpu_{-1};
    std::atomic<int> workerCpu_{-1};
    SpinGauge callerGauge_;  // used by the caller only
    SpinGauge workerGauge_;  // used by the engine thread only
    std::thread thread_;
};

}  // namespace OVT_ZARO::ADODB::detail
