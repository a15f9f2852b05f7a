// What zaro does to its own process: where its messages go, and how Ctrl-C
// and SIGTERM stop it.
//
// Messages. The embedded engine prints its own messages on the process's
// standard error. zaro keeps a copy of standard error for itself (std::cerr
// writes there, and the progress bar) and, once an embedded database is
// open, sends what is left of standard error, the engine's words, to the log
// file in the data folder. The person at the terminal sees zaro's lines only.
//
// Signals. SIGINT and SIGTERM are taken by one thread of their own (every
// other thread has them blocked, so no call of the engine is cut short).
// While a command that saves or writes row by row runs (import, export,
// demo), the first signal asks it to stop after the row in progress; it then
// reports where it stopped, as any other stop, and zaro exits with 128 and
// the signal (130, 143). A second signal, or a signal during any other
// command, ends the process at once, as the signal would.
#pragma once

#include <string>

namespace zaro {

// Sets the process up. REQUIRES: called first in main, before any thread.
void SetUpProcess();

// From now on the engine's messages go to this file (appended to); zaro's
// own lines stay on the terminal's standard error. False when it can not be
// opened (the messages stay on standard error).
bool SendEngineMessagesTo(const std::string& path);

// The file descriptor of zaro's own standard error.
int MessageFd();

// While one lives, a signal asks the command to stop instead of ending the process.
class Interruptible {
public:
    Interruptible();
    ~Interruptible();
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;
};

// The signal that asked the command to stop (SIGINT, SIGTERM), or 0.
int StopSignal();
// "SIGINT", "SIGTERM".
std::string SignalName(int sig);

// A command that stopped on a signal: its report is the message; zaro exits
// with 128 and the signal.
struct Interrupted {
    int signal;
    std::string message;
};

}  // namespace zaro
