// The watch of the server road's command timeout reads a thread's run time
// from its schedstat text, and finds it for a thread of this process.
#include <gtest/gtest.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "platform/adodb/CallWatch.h"

using OVT_ZARO::ADODB::detail::RunNs;

namespace {
int64_t Parse(const std::string& text) { return RunNs(text.data(), text.size()); }
}  // namespace

TEST(CallWatch, AThreadsRunTimeIsReadFromItsSchedstatText) {
    EXPECT_EQ(Parse("1532781 20481 37\n"), 1532781);
    EXPECT_EQ(Parse("0 0 0"), 0);
    EXPECT_EQ(Parse("98765432101234 1 77"), 98765432101234);
}

TEST(CallWatch, ASchedstatTextWithoutARunTimeGivesMinusOne) {
    EXPECT_EQ(Parse(""), -1);
    EXPECT_EQ(Parse("1532781"), -1);
    EXPECT_EQ(Parse("x 1 2"), -1);
    EXPECT_EQ(Parse("-5 1 2"), -1);
    EXPECT_EQ(Parse(" 5 1 2"), -1);
}

TEST(CallWatch, AThreadOfThisProcessHasARunTimeThatGrowsAsItRuns) {
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/task/%ld/schedstat", static_cast<long>(syscall(SYS_gettid)));
    auto read = [&] {
        char text[96] = {};
        FILE* f = std::fopen(path, "r");
        if (!f) return int64_t{-2};
        const size_t n = std::fread(text, 1, sizeof text - 1, f);
        std::fclose(f);
        return RunNs(text, n);
    };
    const int64_t before = read();
    ASSERT_GE(before, 0);
    volatile uint64_t spin = 0;
    for (int i = 0; i < 20000000; ++i) spin = spin + i;
    EXPECT_GT(read(), before);
}
