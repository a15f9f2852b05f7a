#include "support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>

#include "support/roads.h"

namespace zaro_test {

namespace {

struct Started {
    std::string out, err;
    std::chrono::steady_clock::time_point at;
};

std::mutex g_mu;
std::map<pid_t, Started>& Children() {
    static auto* m = new std::map<pid_t, Started>();
    return *m;
}

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

}  // namespace

bool ChildRun::Passed() const { return status == 0 && out.find("[  PASSED  ] 1 test") != std::string::npos; }

bool ChildRun::Skipped() const { return out.find("[  SKIPPED ] 1 test") != std::string::npos; }

std::string ChildRun::SkipReason() const {
    const size_t at = out.find("Skipped\n");
    if (at == std::string::npos) return {};
    const size_t end = out.find('\n', at + 8);
    return out.substr(at + 8, end == std::string::npos ? std::string::npos : end - at - 8);
}

pid_t StartChild(const std::vector<std::string>& argvIn, const Env& extra, const std::string& cwd) {
    static int counter = 0;
    const std::string base = ProgramTempFolder() + "/child" + std::to_string(getpid()) + "-" + std::to_string(++counter);
    Started s{base + ".out", base + ".err", std::chrono::steady_clock::now()};
    // Everything the child needs is made before the fork: after it, in a
    // process with threads, only async-signal-safe calls.
    std::vector<std::string> argvText = argvIn;
    std::vector<char*> argv;
    for (auto& a : argvText) argv.push_back(a.data());
    argv.push_back(nullptr);
    std::vector<std::string> envText;
    for (char** e = environ; *e; ++e) {
        const std::string entry(*e);
        bool replaced = false;
        for (const auto& [k, v] : extra) replaced = replaced || entry.rfind(k + "=", 0) == 0;
        if (!replaced) envText.push_back(entry);
    }
    for (const auto& [k, v] : extra) envText.push_back(k + "=" + v);
    std::vector<char*> envp;
    for (auto& e : envText) envp.push_back(e.data());
    envp.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t pid = fork();
    if (pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(125);
        if (!cwd.empty() && chdir(cwd.c_str()) != 0) _exit(126);
        const int o = open(s.out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int e = open(s.err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int in = open("/dev/null", O_RDONLY);
        if (o < 0 || e < 0 || in < 0) _exit(126);
        dup2(in, 0);
        dup2(o, 1);
        dup2(e, 2);
        // Signals as a fresh program has them.
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        for (int sig : {SIGINT, SIGTERM, SIGPIPE}) signal(sig, SIG_DFL);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    if (pid > 0) {
        std::lock_guard<std::mutex> lock(g_mu);
        Children()[pid] = s;
    }
    return pid;
}

std::string ChildOutputFile(pid_t pid) {
    std::lock_guard<std::mutex> lock(g_mu);
    auto it = Children().find(pid);
    return it == Children().end() ? std::string() : it->second.out;
}

pid_t StartTestChild(const std::string& test, const Env& env) {
    char self[4096];
    const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
    if (n <= 0) return -1;
    self[n] = 0;
    return StartChild({self, "--gtest_filter=" + test, "--gtest_also_run_disabled_tests"}, env);
}

ChildRun WaitChild(pid_t pid, double timeoutSeconds) {
    using namespace std::chrono;
    ChildRun r;
    r.pid = pid;
    if (pid <= 0) return r;
    Started s;
    {
        std::lock_guard<std::mutex> lock(g_mu);
        s = Children()[pid];
        Children().erase(pid);
    }
    const auto deadline = s.at + duration_cast<steady_clock::duration>(duration<double>(timeoutSeconds));
    int status = 0;
    for (;;) {
        const pid_t w = waitpid(pid, &status, WNOHANG);
        if (w == pid) break;
        if (w < 0 && errno != EINTR) break;
        if (steady_clock::now() > deadline) {
            r.timedOut = true;
            kill(pid, SIGKILL);
            while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
            }
            break;
        }
        std::this_thread::sleep_for(milliseconds(5));
    }
    r.seconds = duration<double>(steady_clock::now() - s.at).count();
    r.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    r.out = ReadAll(s.out);
    r.err = ReadAll(s.err);
    return r;
}

ChildRun RunTestChild(const std::string& test, const Env& env, double timeoutSeconds) {
    return WaitChild(StartTestChild(test, env), timeoutSeconds);
}

ChildRun RunChild(const std::vector<std::string>& argv, const Env& env, double timeoutSeconds,
                  const std::string& cwd) {
    return WaitChild(StartChild(argv, env, cwd), timeoutSeconds);
}

}  // namespace zaro_test
