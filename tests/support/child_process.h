// Child processes of a test program, bounded in time: this test program run
// again with one of its DISABLED_ tests chosen (a body that needs a process
// of its own), or any program. A child dies with the thread that started it,
// and one still running at its time limit is killed.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

namespace zaro_test {

struct ChildRun {
    pid_t pid = -1;
    int status = -1;         // the exit status, or 128 + the signal that ended it
    bool timedOut = false;   // killed at its time limit
    double seconds = 0;      // how long it ran
    std::string out, err;    // its standard output and error
    // Whether the chosen test of this program passed in the child.
    bool Passed() const;
    // Whether it skipped, and the reason it gave.
    bool Skipped() const;
    std::string SkipReason() const;
};

using Env = std::vector<std::pair<std::string, std::string>>;

// Starts a program (argv[0] a path) with extra environment variables; its
// output goes to files of the program's temp folder. Gives its pid.
pid_t StartChild(const std::vector<std::string>& argv, const Env& env = {}, const std::string& cwd = {});
// The file that receives the standard output of a child started above and
// not yet waited for (empty for another pid).
std::string ChildOutputFile(pid_t pid);
// Starts this test program with one test (for example
// "Suite.DISABLED_Body") and extra environment variables.
pid_t StartTestChild(const std::string& test, const Env& env = {});
// Waits for a child started above, at most timeoutSeconds (then it is killed).
ChildRun WaitChild(pid_t pid, double timeoutSeconds);
// Both at once.
ChildRun RunTestChild(const std::string& test, const Env& env, double timeoutSeconds);
ChildRun RunChild(const std::vector<std::string>& argv, const Env& env, double timeoutSeconds,
                  const std::string& cwd = {});

}  // namespace zaro_test
