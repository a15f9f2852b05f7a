#include "platform/adodb/EngineChild.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

namespace OVT_ZARO::ADODB::detail::engine {

ChildOutcome RunInChild(const std::function<int()>& body, const std::string& outputPath, int timeoutSeconds) {
    using namespace std::chrono;
    ChildOutcome r;
    const pid_t parent = getpid();
    const char* out = outputPath.c_str();
    const auto start = steady_clock::now();
    const pid_t pid = fork();
    if (pid < 0) return r;
    if (pid == 0) {
        // The child dies with the thread that made it, and not from the
        // terminal's signals: a host that catches Ctrl-C finds the work done.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(98);
        sigset_t quiet;
        sigemptyset(&quiet);
        for (int s : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP}) sigaddset(&quiet, s);
        pthread_sigmask(SIG_BLOCK, &quiet, nullptr);
        const int fd = open(out, O_WRONLY | O_CREAT | O_APPEND, 0640);
        if (fd >= 0) {
            dup2(fd, 1);
            dup2(fd, 2);
            if (fd > 2) close(fd);
        }
        const int in = open("/dev/null", O_RDONLY);
        if (in >= 0) {
            dup2(in, 0);
            if (in > 2) close(in);
        }
        int code = 99;
        try {
            code = body();
        } catch (...) {
        }
        std::fflush(stdout);
        std::fflush(stderr);
        _exit(code);
    }
    const auto deadline = start + seconds(timeoutSeconds);
    auto pause = microseconds(500);
    for (;;) {
        int status = 0;
        const pid_t w = waitpid(pid, &status, WNOHANG);
        if (w == pid) {
            if (WIFEXITED(status)) {
                r.kind = ChildOutcome::Exited;
                r.code = WEXITSTATUS(status);
            } else {
                r.kind = ChildOutcome::Crashed;
                r.code = WIFSIGNALED(status) ? WTERMSIG(status) : -1;
            }
            break;
        }
        if (w < 0 && errno != EINTR) {
            // Someone else collected the child (a host's own handler).
            r.kind = ChildOutcome::Lost;
            break;
        }
        if (steady_clock::now() > deadline) {
            kill(pid, SIGKILL);
            while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
            }
            r.kind = ChildOutcome::TimedOut;
            break;
        }
        std::this_thread::sleep_for(pause);
        if (pause < milliseconds(16)) pause *= 2;
    }
    r.seconds = duration<double>(steady_clock::now() - start).count();
    return r;
}

StderrToFile::StderrToFile(const std::string& path) : path_(path) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0640);
    if (fd < 0) return;
    start_ = lseek(fd, 0, SEEK_END);
    std::fflush(stderr);
    saved_ = fcntl(2, F_DUPFD_CLOEXEC, 3);
    if (saved_ < 0 || dup2(fd, 2) < 0) {
        if (saved_ >= 0) close(saved_);
        saved_ = -1;
    }
    close(fd);
}

StderrToFile::~StderrToFile() { Finish(); }

std::string StderrToFile::Finish() {
    if (saved_ < 0) return {};
    std::fflush(stderr);
    dup2(saved_, 2);
    close(saved_);
    saved_ = -1;
    return ReadFileFrom(path_, start_);
}

std::string ReadFileFrom(const std::string& path, long long offset) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    in.seekg(offset);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

namespace {

std::string Trimmed(std::string s) {
    for (char& c : s)
        if (c == '\r' || c == '\t') c = ' ';
    while (!s.empty() && s.back() == ' ') s.pop_back();
    size_t b = 0;
    while (b < s.size() && s[b] == ' ') ++b;
    s.erase(0, b);
    for (const char* prefix : {"mysql_embedded: ", "unknown: "})
        if (s.rfind(prefix, 0) == 0) s.erase(0, std::char_traits<char>::length(prefix));
    return s;
}

}  // namespace

std::string FirstEngineMessage(const std::string& output) {
    std::istringstream lines(output);
    std::string first;
    for (std::string line; std::getline(lines, line);) {
        // "Got ERROR: "<message>" errno: 2000": the engine's errors.
        if (line.rfind("Got ERROR: \"", 0) == 0) {
            const size_t end = line.rfind("\" errno:");
            return Trimmed(line.substr(12, end == std::string::npos || end < 12 ? std::string::npos : end - 12));
        }
        if (first.empty() && line.rfind("Got ", 0) != 0) first = Trimmed(line);
    }
    return first;
}

bool TellsOfFullDisk(const std::string& output) {
    return output.find("No space left on device") != std::string::npos ||
           output.find("failed with error 28") != std::string::npos ||
           output.find("Errcode: 28") != std::string::npos || output.find("errno: 28") != std::string::npos;
}

}  // namespace OVT_ZARO::ADODB::detail::engine
