// CallWatch (internal): on the server road, the command timeout of a
// session's reads. The client library's own read timeout makes it wait for
// each reply with a receive that does not wait and then a poll; a session
// with a command timeout reads with plain blocking receives instead, and a
// watch thread ends a call whose thread has not run for the command timeout
// (it waits for a server that stopped answering) by shutting the session's
// socket. The client then reports the lost server (2013), as its own
// timeout would. A call that is still receiving rows runs between its reads
// and is never ended.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace OVT_ZARO::ADODB::detail {

class CallWatch {
public:
    // timeoutS 0: no watch.
    explicit CallWatch(unsigned timeoutS) : timeoutS_(timeoutS) {}
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    bool On() const { return timeoutS_ != 0; }
    // The socket of the session's open handle (-1: none). Once set, the
    // session's calls are watched.
    void SetSocket(int fd);

    // A call of the calling thread, from construction to destruction (a
    // call within a call leaves it to the outer one).
    class Scope {
    public:
        explicit Scope(CallWatch& w);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        CallWatch* w_ = nullptr;
    };

private:
    friend class Watcher;
    const unsigned timeoutS_;
    std::mutex mutex_;  // guards fd_, and ending a call against its socket
    int fd_ = -1;
    std::atomic<uint64_t> call_{0};  // the call under way (0: none)
    std::atomic<pid_t> tid_{0};      // its thread
    uint64_t calls_ = 0;             // calls begun, on the calling side
    bool registered_ = false;
    // The watch's own: the call last seen, its thread's run time then, and
    // since when that run time has not changed.
    uint64_t seenCall_ = 0;
    int64_t seenRunNs_ = -1;
    int64_t stillSinceNs_ = 0;
};

}  // namespace OVT_ZARO::ADODB::detail
