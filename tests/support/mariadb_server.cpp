#include "support/mariadb_server.h"

#include <arpa/inet.h>
#include <dirent.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"

namespace zaro_test {

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::string Tail(const std::string& text, size_t n) { return text.size() <= n ? text : text.substr(text.size() - n); }

// Starts a program in the background with its output in logFile; it dies
// with the calling thread. Gives its pid.
pid_t Spawn(const std::vector<std::string>& argv, const std::string& logFile) {
    std::vector<char*> args;
    for (const auto& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t pid = fork();
    if (pid < 0) throw std::runtime_error("fork failed: " + std::string(std::strerror(errno)));
    if (pid == 0) {
        // Only async-signal-safe calls until exec.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(127);
        ChildOutputTo(logFile.c_str());
        execv(args[0], args.data());
        _exit(127);
    }
    return pid;
}

bool IsRoot() { return geteuid() == 0; }

// A program by name on PATH, or in the folders the server packages use.
std::string FindProgram(const std::string& name) {
    std::string path = std::getenv("PATH") ? std::getenv("PATH") : "";
    path += ":/usr/sbin:/usr/bin:/usr/local/sbin:/usr/local/bin";
    std::stringstream ss(path);
    std::string dir;
    while (std::getline(ss, dir, ':')) {
        if (dir.empty()) continue;
        const std::string p = dir + "/" + name;
        if (access(p.c_str(), X_OK) == 0) return p;
    }
    throw std::runtime_error(name + " is not installed (package mariadb-server)");
}

}  // namespace

std::string MakeTempFolder() {
    // Folders of test programs that died without cleaning up.
    if (DIR* d = opendir("/tmp")) {
        while (dirent* e = readdir(d)) {
            const std::string name = e->d_name;
            if (name.rfind("zaro-test-", 0) != 0) continue;
            const long pid = std::strtol(name.c_str() + 10, nullptr, 10);
            if (pid > 0 && kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) RemoveFolder("/tmp/" + name);
        }
        closedir(d);
    }
    std::string tmpl = "/tmp/zaro-test-" + std::to_string(getpid()) + "-XXXXXX";
    if (!mkdtemp(tmpl.data())) throw std::runtime_error("mkdtemp failed: " + std::string(std::strerror(errno)));
    return tmpl;
}

void RemoveFolder(const std::string& path) {
    std::error_code ec;
    fs::remove_all(path, ec);
}

void ChildOutputTo(const char* path) {
    const int fd = open(path, O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (fd >= 0) {
        dup2(fd, 1);
        dup2(fd, 2);
        close(fd);
    }
    const int devnull = open("/dev/null", O_RDONLY);
    if (devnull >= 0) {
        dup2(devnull, 0);
        close(devnull);
    }
}

int FreeLoopbackPort() {
    const int s = socket(AF_INET, SOCK_STREAM, 0);
    if (s < 0) throw std::runtime_error("socket failed");
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    a.sin_port = 0;
    socklen_t len = sizeof a;
    if (bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 ||
        getsockname(s, reinterpret_cast<sockaddr*>(&a), &len) != 0) {
        close(s);
        throw std::runtime_error("no free loopback port");
    }
    close(s);
    return ntohs(a.sin_port);
}

int RunProgram(const std::vector<std::string>& argv, const std::string& logFile) {
    const pid_t pid = Spawn(argv, logFile);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

namespace {

std::string* g_template = nullptr;

void RemoveTemplate() {
    if (g_template) RemoveFolder(*g_template);
}

// A data folder made once per test program by mariadb-install-db; each
// server starts on a copy of it.
const std::string& InstalledTemplate() {
    if (g_template) return *g_template;
    const std::string dir = MakeTempFolder();
    std::vector<std::string> install{FindProgram("mariadb-install-db"),
                                     "--no-defaults",
                                     "--datadir=" + dir + "/data",
                                     "--auth-root-authentication-method=normal",
                                     "--skip-test-db",
                                     "--skip-name-resolve",
                                     // Its own temp folder: a server starting elsewhere clears /tmp's temp tables.
                                     "--tmpdir=" + dir,
                                     "--innodb-log-file-size=8M",
                                     "--innodb-buffer-pool-size=16M"};
    if (IsRoot()) install.push_back("--user=root");
    const int rc = RunProgram(install, dir + "/install.log");
    if (rc != 0) {
        const std::string log = Tail(ReadAll(dir + "/install.log"), 2000);
        RemoveFolder(dir);
        throw std::runtime_error("mariadb-install-db failed (" + std::to_string(rc) + "): " + log);
    }
    g_template = new std::string(dir);
    std::atexit(RemoveTemplate);
    return *g_template;
}

}  // namespace

MariaDbServer::MariaDbServer(int port) {
    dir_ = MakeTempFolder();
    try {
        dataDir_ = dir_ + "/data";
        socket_ = dir_ + "/mysqld.sock";
        generalLog_ = dir_ + "/general.log";
        errorLog_ = dir_ + "/error.log";
        fs::copy(InstalledTemplate() + "/data", dataDir_, fs::copy_options::recursive);
        port_ = port > 0 ? port : FreeLoopbackPort();
        Start();
    } catch (...) {
        if (pid_ > 0) Kill();
        RemoveFolder(dir_);
        throw;
    }
}

MariaDbServer::~MariaDbServer() {
    try {
        Stop();
    } catch (...) {
    }
    RemoveFolder(dir_);
}

void MariaDbServer::Launch() {
    std::vector<std::string> args{FindProgram("mariadbd"),
                                  "--no-defaults",
                                  "--datadir=" + dataDir_,
                                  "--socket=" + socket_,
                                  "--port=" + std::to_string(port_),
                                  "--bind-address=127.0.0.1",
                                  "--skip-name-resolve",
                                  "--general-log=1",
                                  "--general-log-file=" + generalLog_,
                                  "--log-error=" + errorLog_,
                                  "--pid-file=" + dir_ + "/mysqld.pid",
                                  // A temp folder of its own: a server that starts clears the temp
                                  // tables it finds there, another process's included.
                                  "--tmpdir=" + dir_,
                                  "--innodb-log-file-size=8M",
                                  "--innodb-buffer-pool-size=16M"};
    if (IsRoot()) args.push_back("--user=root");
    pid_ = Spawn(args, dir_ + "/server.out");
}

void MariaDbServer::WaitReady() {
    using namespace std::chrono;
    const auto deadline = steady_clock::now() + seconds(120);
    std::string last;
    while (steady_clock::now() < deadline) {
        int status = 0;
        if (waitpid(pid_, &status, WNOHANG) == pid_) {
            pid_ = -1;
            throw std::runtime_error("mariadbd exited while starting: " + Tail(ReadAll(errorLog_), 3000));
        }
        try {
            auto cn = std::make_shared<OVT_ZARO::ADODB::Connection>();
            cn->Open("Server=127.0.0.1;Port=" + std::to_string(port_) + ";User=root;ConnectTimeout=2");
            cn->Execute("CREATE DATABASE IF NOT EXISTS zaro_test");
            cn->Close();
            return;
        } catch (const OVT_ZARO::Error& e) {
            last = std::to_string(e.Number) + " " + e.Description;
        }
        std::this_thread::sleep_for(milliseconds(50));
    }
    Kill();
    throw std::runtime_error("mariadbd did not answer in time (" + last + "): " + Tail(ReadAll(errorLog_), 3000));
}

void MariaDbServer::Start() {
    if (pid_ > 0) return;
    Launch();
    WaitReady();
}

void MariaDbServer::Stop() {
    if (pid_ <= 0) return;
    kill(pid_, SIGCONT);
    kill(pid_, SIGTERM);
    using namespace std::chrono;
    const auto deadline = steady_clock::now() + seconds(30);
    int status = 0;
    while (steady_clock::now() < deadline) {
        const pid_t r = waitpid(pid_, &status, WNOHANG);
        if (r == pid_ || (r < 0 && errno == ECHILD)) {
            pid_ = -1;
            return;
        }
        std::this_thread::sleep_for(milliseconds(20));
    }
    Kill();
}

void MariaDbServer::Pause() {
    if (pid_ <= 0) return;
    kill(pid_, SIGSTOP);
    // The stop reaches each thread in turn: wait until all have stopped.
    const std::string tasks = "/proc/" + std::to_string(pid_) + "/task";
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (std::chrono::steady_clock::now() < deadline) {
        bool all = true;
        std::error_code ec;
        for (const auto& t : fs::directory_iterator(tasks, ec)) {
            const std::string stat = ReadAll(t.path().string() + "/stat");
            const size_t close = stat.rfind(')');
            if (close == std::string::npos || close + 2 >= stat.size()) continue;
            const char state = stat[close + 2];
            if (state != 'T' && state != 't') all = false;
        }
        if (all) return;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void MariaDbServer::Resume() {
    if (pid_ > 0) kill(pid_, SIGCONT);
}

void MariaDbServer::Kill() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
}

std::string MariaDbServer::ConnectionString(const std::string& database) const {
    std::string s = "Server=127.0.0.1;Port=" + std::to_string(port_) + ";User=root;Password=";
    if (!database.empty()) s += ";Database=" + database;
    return s;
}

}  // namespace zaro_test
