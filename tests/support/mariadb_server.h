// A real MariaDB server for tests: mariadbd on a private socket and a free
// loopback port, with a general query log, under a temp folder of its own.
//
// The server's data folder is made by mariadb-install-db; the server runs
// until Stop or the end of the object (or of the test program: it dies with
// the thread that started it), and the temp folder is removed at the end.
// Raises std::runtime_error when the server can not be set up or started.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zaro_test {

class MariaDbServer {
public:
    // Installs a data folder and starts the server on port (0: a free one).
    explicit MariaDbServer(int port = 0);
    // Stops the server and removes the temp folder.
    ~MariaDbServer();
    MariaDbServer(const MariaDbServer&) = delete;
    MariaDbServer& operator=(const MariaDbServer&) = delete;

    // Starts the server again (same folder, port and socket) after a Stop or Kill.
    void Start();
    // Stops the server cleanly (SIGTERM, then SIGKILL after 30 s).
    void Stop();
    // Kills the server at once (SIGKILL), as a crash would.
    void Kill();
    // Freezes the server (SIGSTOP) and lets it go on (SIGCONT): a server that
    // no longer answers.
    void Pause();
    void Resume();
    bool Running() const { return pid_ > 0; }

    int Port() const { return port_; }
    const std::string& Socket() const { return socket_; }
    const std::string& Folder() const { return dir_; }
    const std::string& GeneralLog() const { return generalLog_; }
    // A connection string over TCP for the database (created at start when
    // not empty).
    std::string ConnectionString(const std::string& database) const;

private:
    void Launch();
    void WaitReady();
    std::string dir_, dataDir_, socket_, generalLog_, errorLog_;
    int port_ = 0;
    pid_t pid_ = -1;
};

// A new temp folder "/tmp/zaro-test-<pid>-XXXXXX". Folders of this form left
// by test programs that died are removed first.
std::string MakeTempFolder();
// Removes a folder and everything in it; quietly.
void RemoveFolder(const std::string& path);
// A TCP port on 127.0.0.1 that is free now.
int FreeLoopbackPort();
// In a forked child, before exec (async-signal-safe): standard output and
// error appended to the file at path, standard input empty.
void ChildOutputTo(const char* path);
// Runs a program with arguments; its output goes to logFile. Gives the exit status.
int RunProgram(const std::vector<std::string>& argv, const std::string& logFile);

}  // namespace zaro_test
