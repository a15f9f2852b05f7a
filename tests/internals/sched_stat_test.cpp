// A thread's scheduler figures, read from its schedstat text: the engine
// thread's hand-over chooses between spinning and sleeping by the time in
// the run queue, and the server road's command-timeout watch tells a thread
// that waits from one that runs by the time on a processor.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>

#include "platform/adodb/SchedStat.h"

using OVT_ZARO::ADODB::detail::ParseSchedStat;
using OVT_ZARO::ADODB::detail::ReadSchedStat;

TEST(SchedStat, TheRunTimeAndTheRunQueueTimeAreTheFirstTwoNumbers) {
    const auto s = ParseSchedStat("1532781 20481 37\n");
    ASSERT_TRUE(s);
    EXPECT_EQ(s->runNs, 1532781);
    EXPECT_EQ(s->queuedNs, 20481);
    EXPECT_EQ(ParseSchedStat("0 0 0")->queuedNs, 0);
    EXPECT_EQ(ParseSchedStat("98765432101234 12345678901234 77")->runNs, 98765432101234);
    EXPECT_EQ(ParseSchedStat("98765432101234 12345678901234 77")->queuedNs, 12345678901234);
}

TEST(SchedStat, ATextWithoutBothNumbersGivesNone) {
    for (const char* text : {"", "1532781", "1532781 ", "1532781 20481", "1532781 x 37", "1532781 -5 37", "x 1 2",
                             "-5 1 2", " 5 1 2"})
        EXPECT_FALSE(ParseSchedStat(text)) << '"' << text << '"';
}

TEST(SchedStat, AThreadOfThisProcessHasARunTimeThatGrowsAsItRuns) {
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/task/%ld/schedstat", static_cast<long>(syscall(SYS_gettid)));
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    ASSERT_GE(fd, 0) << path;
    const auto before = ReadSchedStat(fd);
    ASSERT_TRUE(before);
    EXPECT_GE(before->queuedNs, 0);
    volatile uint64_t spin = 0;
    for (int i = 0; i < 20000000; ++i) spin = spin + i;
    const auto after = ReadSchedStat(fd);  // read again from the start
    close(fd);
    ASSERT_TRUE(after);
    EXPECT_GT(after->runNs, before->runNs);
}

TEST(SchedStat, NoFileGivesNone) { EXPECT_FALSE(ReadSchedStat(-1)); }
