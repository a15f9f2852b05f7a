// Work of the engine that must not risk the process (internal): a child
// process for it, and the engine's own messages caught in a file.
//
// The engine prints its messages on standard error and answers some faults
// by ending the process. What can end the process (reading the server
// options, making a new data folder) runs in a child; what the engine prints
// while it starts goes to a file, so that the host's standard error gets
// none of it and a failure can name the engine's words in one line.
#pragma once

#include <functional>
#include <string>

namespace OVT_ZARO::ADODB::detail::engine {

struct ChildOutcome {
    enum Kind { Exited, Crashed, TimedOut, Lost, NotStarted } kind = NotStarted;
    int code = -1;    // the exit status (Exited) or the signal (Crashed)
    double seconds = 0;
};

// Runs body in a child process, a copy of this one made by fork, with its
// standard output and error appended to outputPath and its standard input
// empty. The child ignores the signals of the terminal (it dies with the
// thread that started it), and ends with body's result; an exception ends
// it with 99. A child still running after timeoutSeconds is killed.
// REQUIRES: body calls nothing that waits on another thread of this process.
ChildOutcome RunInChild(const std::function<int()>& body, const std::string& outputPath, int timeoutSeconds);

// While it lives, what is written to standard error goes to the end of a
// file instead. If the file can not be opened, standard error stays as it is
// and Active() is false.
class StderrToFile {
public:
    explicit StderrToFile(const std::string& path);
    ~StderrToFile();
    StderrToFile(const StderrToFile&) = delete;
    StderrToFile& operator=(const StderrToFile&) = delete;
    bool Active() const { return saved_ >= 0; }
    // Puts standard error back and gives what was written in between.
    std::string Finish();

private:
    std::string path_;
    int saved_ = -1;
    long long start_ = 0;
};

// The text of a file from an offset (empty when it can not be read).
std::string ReadFileFrom(const std::string& path, long long offset = 0);

// The first message of the engine's output, in one line and without the
// engine's decoration ("Got ERROR: \"...\" errno: 2000", "mysql_embedded: ");
// empty when there is none.
std::string FirstEngineMessage(const std::string& output);

// Whether the engine's output tells of a full disk (error 28).
bool TellsOfFullDisk(const std::string& output);

}  // namespace OVT_ZARO::ADODB::detail::engine
