#include "process.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <streambuf>
#include <thread>

namespace zaro {

namespace {

std::atomic<int> g_stop{0};
std::atomic<int> g_interruptible{0};
int g_messageFd = 2;

// std::cerr onto zaro's own copy of standard error, unbuffered as cerr is.
class FdBuf : public std::streambuf {
public:
    explicit FdBuf(int fd) : fd_(fd) {}

protected:
    int_type overflow(int_type c) override {
        if (c == traits_type::eof()) return traits_type::not_eof(c);
        const char ch = static_cast<char>(c);
        return WriteAll(&ch, 1) ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* s, std::streamsize n) override {
        return WriteAll(s, static_cast<size_t>(n)) ? n : 0;
    }

private:
    bool WriteAll(const char* s, size_t n) {
        while (n > 0) {
            const ssize_t w = write(fd_, s, n);
            if (w < 0) {
                if (errno == EINTR) continue;
                return false;
            }
            s += w;
            n -= static_cast<size_t>(w);
        }
        return true;
    }
    int fd_;
};

void Die(int sig) {
    signal(sig, SIG_DFL);
    sigset_t one;
    sigemptyset(&one);
    sigaddset(&one, sig);
    pthread_sigmask(SIG_UNBLOCK, &one, nullptr);
    raise(sig);
    _exit(128 + sig);
}

void WaitForSignals(sigset_t set) {
    for (;;) {
        int sig = 0;
        if (sigwait(&set, &sig) != 0) continue;
        if (g_interruptible.load() > 0 && g_stop.load() == 0) {
            g_stop.store(sig);
            continue;
        }
        if (g_stop.load() != 0) {
            const std::string line = "zaro: " + SignalName(sig) +
                                     " again: stopping at once; the row in progress may or may not be saved\n";
            if (write(g_messageFd, line.data(), line.size()) < 0) {
            }
        }
        Die(sig);
    }
}

}  // namespace

void SetUpProcess() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    std::thread(WaitForSignals, set).detach();
    const int copy = fcntl(2, F_DUPFD_CLOEXEC, 3);
    if (copy >= 0) {
        g_messageFd = copy;
        static FdBuf* buf = new FdBuf(copy);
        std::cerr.rdbuf(buf);
    }
}

bool SendEngineMessagesTo(const std::string& path) {
    if (g_messageFd == 2) return false;
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0640);
    if (fd < 0) return false;
    std::fflush(stderr);
    const bool ok = dup2(fd, 2) >= 0;
    close(fd);
    return ok;
}

int MessageFd() { return g_messageFd; }

Interruptible::Interruptible() { g_interruptible.fetch_add(1); }
Interruptible::~Interruptible() { g_interruptible.fetch_sub(1); }

int StopSignal() { return g_stop.load(std::memory_order_relaxed); }

std::string SignalName(int sig) {
    if (sig == SIGINT) return "SIGINT";
    if (sig == SIGTERM) return "SIGTERM";
    return "signal " + std::to_string(sig);
}

}  // namespace zaro
