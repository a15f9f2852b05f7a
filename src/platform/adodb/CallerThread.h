// CallerThread (internal): the server road calls the engine library on the
// caller's own thread. Such a thread is announced to the library before its
// first call (the library's client side is set up first when it is not yet),
// and leaves it when the thread ends, so that the library's end at process
// exit finds no thread still announced.
#pragma once

namespace OVT_ZARO::ADODB::detail {

// Announces the calling thread for the length of one call: a no-op after the
// thread's first call. A call made after the thread's end has passed (a
// static's destructor at process exit) announces the thread for that call
// only.
class CallerThread {
public:
    CallerThread() : once_(Enter()) {}
    ~CallerThread() {
        if (once_) Leave();
    }
    CallerThread(const CallerThread&) = delete;
    CallerThread& operator=(const CallerThread&) = delete;

    // The threads announced so far that have not ended yet.
    static int Announced();
    // At process exit, on the exiting thread: its thread-local ends have run
    // (or can no longer be set up), so a call from here on announces the
    // thread for that call only.
    static void ProcessExiting();

private:
    // True when the thread must leave again after the call.
    static bool Enter();
    static void Leave();
    bool once_;
};

}  // namespace OVT_ZARO::ADODB::detail
