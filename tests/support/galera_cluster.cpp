#include "support/galera_cluster.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "support/mariadb_server.h"

namespace zaro_test {

namespace fs = std::filesystem;

namespace {

const char* const kProviders[] = {"/usr/lib/galera/libgalera_smm.so", "/usr/lib/libgalera_smm.so",
                                  "/usr/lib/galera-4/libgalera_smm.so"};

std::string Provider() {
    for (const char* p : kProviders)
        if (access(p, R_OK) == 0) return p;
    return {};
}

std::string Program(const std::string& name) {
    std::string path = std::getenv("PATH") ? std::getenv("PATH") : "";
    path += ":/usr/sbin:/usr/bin:/usr/local/sbin:/usr/local/bin";
    std::stringstream ss(path);
    std::string dir;
    while (std::getline(ss, dir, ':')) {
        if (dir.empty()) continue;
        const std::string p = dir + "/" + name;
        if (access(p.c_str(), X_OK) == 0) return p;
    }
    return {};
}

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

// Gives a folder and everything in it to the user.
void GiveTo(const std::string& path, unsigned uid, unsigned gid) {
    if (lchown(path.c_str(), uid, gid) != 0) throw std::runtime_error("chown " + path + ": " + std::strerror(errno));
    std::error_code ec;
    for (const auto& e : fs::recursive_directory_iterator(path, ec))
        if (lchown(e.path().c_str(), uid, gid) != 0)
            throw std::runtime_error("chown " + e.path().string() + ": " + std::strerror(errno));
}

}  // namespace

bool GaleraCluster::Available(std::string& why) {
    for (const char* program : {"mariadbd", "mariadb-install-db"})
        if (Program(program).empty()) {
            why = std::string(program) + " is not installed (package mariadb-server)";
            return false;
        }
    if (Provider().empty()) {
        why = "the Galera library libgalera_smm.so is not installed (package galera-4)";
        return false;
    }
    for (const char* program : {"rsync", "wsrep_sst_rsync"})
        if (Program(program).empty()) {
            why = std::string(program) + " is not installed (packages rsync, mariadb-server)";
            return false;
        }
    if (geteuid() == 0 && !getpwnam("mysql")) {
        why = "running as root, and there is no user mysql for the nodes to run as (package mariadb-server makes it)";
        return false;
    }
    return true;
}

GaleraCluster::GaleraCluster(int nodes) {
    std::string why;
    if (!Available(why)) throw std::runtime_error("no Galera cluster on this machine: " + why);
    if (geteuid() == 0) {
        const passwd* pw = getpwnam("mysql");
        uid_ = pw->pw_uid;
        gid_ = pw->pw_gid;
        switchUser_ = true;
    } else {
        uid_ = geteuid();
        gid_ = getegid();
    }
    dir_ = MakeTempFolder();
    try {
        // The folder is the nodes' user's, from the install on.
        chmod(dir_.c_str(), 0755);
        GiveTo(dir_, uid_, gid_);
        std::vector<std::string> install{Program("mariadb-install-db"),
                                         "--no-defaults",
                                         "--datadir=" + dir_ + "/template",
                                         "--auth-root-authentication-method=normal",
                                         "--skip-test-db",
                                         "--skip-name-resolve",
                                         "--tmpdir=" + dir_,
                                         "--innodb-log-file-size=8M",
                                         "--innodb-buffer-pool-size=16M"};
        if (switchUser_) install.push_back("--user=mysql");
        const int rc = RunProgram(install, dir_ + "/install.log");
        if (rc != 0)
            throw std::runtime_error("mariadb-install-db failed (" + std::to_string(rc) +
                                     "): " + ReadAll(dir_ + "/install.log"));
        nodes_.resize(static_cast<size_t>(nodes));
        for (int i = 0; i < nodes; ++i) {
            Node& n = nodes_[static_cast<size_t>(i)];
            n.port = FreeLoopbackPort();
            n.groupPort = FreeLoopbackPort();
            n.istPort = FreeLoopbackPort();
            n.sstPort = FreeLoopbackPort();
            const std::string folder = dir_ + "/node" + std::to_string(i + 1);
            fs::create_directories(folder);
            n.dataDir = folder + "/data";
            n.errorLog = folder + "/error.log";
            fs::copy(dir_ + "/template", n.dataDir, fs::copy_options::recursive);
        }
        RemoveFolder(dir_ + "/template");
        GiveTo(dir_, uid_, gid_);
        // One node after the other: a node joins by a full state transfer
        // from a synced one.
        for (int i = 0; i < nodes; ++i) {
            Launch(i, i == 0);
            WaitSynced(i, 120);
        }
    } catch (...) {
        Stop();
        RemoveFolder(dir_);
        throw;
    }
}

GaleraCluster::~GaleraCluster() {
    Stop();
    RemoveFolder(dir_);
}

int GaleraCluster::Port(int i) const { return nodes_.at(static_cast<size_t>(i)).port; }

std::string GaleraCluster::Address(int i) const { return "127.0.0.1:" + std::to_string(Port(i)); }

std::string GaleraCluster::ConnectionString(const std::vector<int>& order, const std::string& database) const {
    std::string servers;
    for (int i : order) servers += (servers.empty() ? "" : ",") + Address(i);
    return "Server=" + servers + ";User=root;Database=" + database;
}

int GaleraCluster::NodeOfPort(int port) const {
    for (int i = 0; i < Size(); ++i)
        if (Port(i) == port) return i;
    return -1;
}

void GaleraCluster::Launch(int i, bool bootstrap) {
    Node& n = nodes_.at(static_cast<size_t>(i));
    std::string members;
    for (const Node& m : nodes_) members += (members.empty() ? "" : ",") + ("127.0.0.1:" + std::to_string(m.groupPort));
    const std::string folder = fs::path(n.dataDir).parent_path().string();
    std::vector<std::string> args{
        Program("mariadbd"),
        "--no-defaults",
        "--datadir=" + n.dataDir,
        "--socket=" + folder + "/mysqld.sock",
        "--port=" + std::to_string(n.port),
        "--bind-address=127.0.0.1",
        "--skip-name-resolve",
        "--log-error=" + n.errorLog,
        "--pid-file=" + folder + "/mysqld.pid",
        "--tmpdir=" + folder,
        "--innodb-log-file-size=16M",
        "--innodb-buffer-pool-size=128M",
        "--innodb-flush-log-at-trx-commit=2",
        "--innodb-autoinc-lock-mode=2",
        "--binlog-format=ROW",
        "--wsrep-on=ON",
        "--wsrep-provider=" + Provider(),
        "--wsrep-cluster-name=zaro-test",
        "--wsrep-cluster-address=gcomm://" + members,
        "--wsrep-node-name=node" + std::to_string(i + 1),
        "--wsrep-node-address=127.0.0.1:" + std::to_string(n.groupPort),
        "--wsrep-sst-method=rsync",
        "--wsrep-sst-receive-address=127.0.0.1:" + std::to_string(n.sstPort),
        "--wsrep-provider-options=gmcast.listen_addr=tcp://127.0.0.1:" + std::to_string(n.groupPort) +
            ";ist.recv_addr=127.0.0.1:" + std::to_string(n.istPort) +
            ";evs.keepalive_period=PT0.5S;evs.suspect_timeout=PT3S;evs.inactive_check_period=PT0.5S"
            ";evs.inactive_timeout=PT10S;gcache.size=64M"};
    if (bootstrap) args.push_back("--wsrep-new-cluster");
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    const std::string out = folder + "/server.out";
    const pid_t parent = getpid();
    const unsigned uid = uid_, gid = gid_;
    const bool switchUser = switchUser_;
    const gid_t groups[1] = {static_cast<gid_t>(gid_)};
    const pid_t pid = fork();
    if (pid < 0) throw std::runtime_error("fork failed: " + std::string(std::strerror(errno)));
    if (pid == 0) {
        // Only async-signal-safe calls until exec. A group of its own, so that
        // what the node starts (its state transfer) can be stopped with it;
        // the user first, since a change of user clears the signal on the
        // parent's death.
        setpgid(0, 0);
        if (switchUser && (setgroups(1, groups) != 0 || setgid(gid) != 0 || setuid(uid) != 0)) _exit(126);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(127);
        ChildOutputTo(out.c_str());
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    setpgid(pid, pid);  // either side may set it first
    n.pid = pid;
}

void GaleraCluster::WaitSynced(int i, double seconds) {
    using namespace std::chrono;
    Node& n = nodes_.at(static_cast<size_t>(i));
    const auto deadline = steady_clock::now() + duration_cast<steady_clock::duration>(duration<double>(seconds));
    std::string last;
    while (steady_clock::now() < deadline) {
        int status = 0;
        if (n.pid > 0 && waitpid(n.pid, &status, WNOHANG) == n.pid) {
            n.pid = -1;
            throw std::runtime_error("node " + std::to_string(i + 1) + " ended while starting: " + LogTail(i));
        }
        if (n.pid <= 0) throw std::runtime_error("node " + std::to_string(i + 1) + " is not running");
        last = Status(i, "wsrep_local_state_comment");
        if (last == "Synced") return;
        std::this_thread::sleep_for(milliseconds(100));
    }
    throw std::runtime_error("node " + std::to_string(i + 1) + " was not synced within " + std::to_string(seconds) +
                             " s (" + (last.empty() ? std::string("no answer") : last) + "): " + LogTail(i));
}

std::string GaleraCluster::Status(int i, const std::string& name) const {
    try {
        OVT_ZARO::ADODB::Connection cn;
        cn.Open("Server=" + Address(i) + ";User=root;ConnectTimeout=2;CommandTimeout=5");
        auto rs = cn.Execute("SHOW GLOBAL STATUS LIKE '" + name + "'");
        if (!rs || rs->EOF_()) return {};
        return OVT_ZARO::CStr(rs->Fields().Item(int32_t{1}).Value());
    } catch (const OVT_ZARO::Error&) {
        return {};
    }
}

bool GaleraCluster::Running(int i) const { return nodes_.at(static_cast<size_t>(i)).pid > 0; }

void GaleraCluster::Kill(int i) {
    Node& n = nodes_.at(static_cast<size_t>(i));
    if (n.pid <= 0) return;
    kill(n.pid, SIGKILL);
    int status = 0;
    while (waitpid(n.pid, &status, 0) < 0 && errno == EINTR) {
    }
    kill(-n.pid, SIGKILL);  // what it started, if anything is left
    n.pid = -1;
}

void GaleraCluster::Start(int i) {
    if (Running(i)) return;
    Launch(i, false);
}

void GaleraCluster::StopNode(int i, double seconds) {
    using namespace std::chrono;
    Node& n = nodes_.at(static_cast<size_t>(i));
    if (n.pid <= 0) return;
    const auto deadline = steady_clock::now() + duration_cast<steady_clock::duration>(duration<double>(seconds));
    int status = 0;
    while (steady_clock::now() < deadline) {
        const pid_t r = waitpid(n.pid, &status, WNOHANG);
        if (r == n.pid || (r < 0 && errno == ECHILD)) {
            kill(-n.pid, SIGKILL);
            n.pid = -1;
            return;
        }
        std::this_thread::sleep_for(milliseconds(20));
    }
    Kill(i);
}

void GaleraCluster::Stop() {
    // All at once: a node that waits for the others to leave would wait long.
    for (Node& n : nodes_)
        if (n.pid > 0) kill(n.pid, SIGTERM);
    for (int i = 0; i < Size(); ++i) StopNode(i, 30);
}

std::string GaleraCluster::LogTail(int i, size_t bytes) const {
    const std::string log = ReadAll(nodes_.at(static_cast<size_t>(i)).errorLog);
    return log.size() <= bytes ? log : log.substr(log.size() - bytes);
}

}  // namespace zaro_test
