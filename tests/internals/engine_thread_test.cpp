// The hand-over of calls to an embedded connection's engine thread: each
// call runs there, once, in order; what the caller wrote before is seen
// there and what the call wrote is seen by the caller after; results and
// exceptions come back; Busy tells a call is under way. Also run under
// ThreadSanitizer by the test command.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/adodb/EngineThread.h"

using OVT_ZARO::ADODB::detail::EngineThread;

TEST(EngineThread, EveryCallRunsOnTheEngineThreadOnceAndInOrder) {
    EngineThread t;
    const std::thread::id caller = std::this_thread::get_id();
    std::thread::id there;
    t.Run([&] { there = std::this_thread::get_id(); });
    EXPECT_NE(there, caller);
    std::vector<int> order;
    for (int i = 0; i < 5000; ++i) t.Run([&, i] { order.push_back(i); });
    ASSERT_EQ(order.size(), 5000u);
    for (int i = 0; i < 5000; ++i) ASSERT_EQ(order[i], i);
}

TEST(EngineThread, WhatEachSideWroteIsSeenByTheOther) {
    EngineThread t;
    std::string text;  // plain memory, handed back and forth
    for (int i = 0; i < 2000; ++i) {
        text += 'a';
        const size_t seen = t.Run([&] {
            const size_t n = text.size();
            text += 'b';
            return n;
        });
        ASSERT_EQ(seen, static_cast<size_t>(2 * i + 1));
        ASSERT_EQ(text.back(), 'b');
    }
}

TEST(EngineThread, ResultsAndExceptionsComeBackToTheCaller) {
    EngineThread t;
    EXPECT_EQ(t.Run([] { return std::string("hecho"); }), "hecho");
    EXPECT_THROW(t.Run([]() -> int { throw std::runtime_error("fallo"); }), std::runtime_error);
    EXPECT_THROW(t.Run([] { throw std::logic_error("fallo"); }), std::logic_error);
    EXPECT_EQ(t.Run([] { return 7; }), 7);  // the thread goes on after a failure
}

TEST(EngineThread, BusyIsTrueWhileACallRunsAndFalseAfter) {
    EngineThread t;
    EXPECT_FALSE(t.Busy());
    std::atomic<bool> inside{false}, release{false};
    std::atomic<bool> seenBusy{false};
    std::thread caller([&] {
        t.Run([&] {
            inside = true;
            while (!release) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        });
    });
    while (!inside) std::this_thread::yield();
    seenBusy = t.Busy();
    release = true;
    caller.join();
    EXPECT_TRUE(seenBusy);
    EXPECT_FALSE(t.Busy());
}

TEST(EngineThread, CallersOnThreadsThatComeAndGoAreServedOneAfterAnother) {
    EngineThread t;
    int total = 0;  // touched only on the engine thread
    for (int k = 0; k < 8; ++k)
        std::thread([&] {
            for (int i = 0; i < 500; ++i) t.Run([&] { ++total; });
        }).join();
    EXPECT_EQ(t.Run([&] { return total; }), 4000);
}
