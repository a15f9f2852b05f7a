#include "platform/adodb/DataFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <mysql.h>

#include "ZARODatos/platform/Error.h"
#include "platform/adodb/Engine.h"
#include "platform/adodb/EngineChild.h"

namespace OVT_ZARO::ADODB::detail::engine {

namespace fs = std::filesystem;

namespace {

const char* const kSource = "ADODB.Connection";
// The client's "unknown error": the number of the in-process server's failures.
constexpr int32_t kEmbeddedFailure = 2000;
const char* const kNewPrefix = ".zaro-new-";
const char* const kDoneMark = ".zaro-complete";
// Making a folder takes a second or two; a child still at it after this is stuck.
constexpr int kCreateSeconds = 120;

[[noreturn]] void Fail(const std::string& text) { throw Error(kEmbeddedFailure, kSource, text); }

// Files the engine writes at the top of a data folder.
bool IsEngineFile(const std::string& name) {
    for (const char* prefix : {"ibdata", "ib_", "ibtmp", "undo0", "aria_log", "ddl_recovery", "zaro-engine.log",
                               "#", "tc.log", "multi-master.info"})
        if (name.rfind(prefix, 0) == 0) return true;
    return false;
}

// A hidden folder of a creation whose process is gone.
bool IsStaleNewFolder(const std::string& name) {
    if (name.rfind(kNewPrefix, 0) != 0) return false;
    const long pid = std::strtol(name.c_str() + std::strlen(kNewPrefix), nullptr, 10);
    return pid > 0 && pid != getpid() && kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

void RemoveStaleNewFolders(const fs::path& parent) {
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(parent, ec)) {
        const std::string name = e.path().filename().string();
        if (IsStaleNewFolder(name)) fs::remove_all(e.path(), ec);
    }
}

mode_t ProcessUmask() {
    std::ifstream in("/proc/self/status");
    for (std::string line; std::getline(in, line);)
        if (line.rfind("Umask:", 0) == 0) return static_cast<mode_t>(std::strtol(line.c_str() + 6, nullptr, 8));
    return 022;
}

void SyncFolder(const fs::path& dir) {
    const int fd = open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

bool DiskFullAt(const fs::path& dir) {
    struct statvfs s {};
    if (statvfs(dir.c_str(), &s) != 0) return false;
    const unsigned long long free = (geteuid() == 0 ? s.f_bfree : s.f_bavail) * s.f_frsize;
    return free < 1024 * 1024;
}

// The engine's own script of the system tables, where the engine's share
// folder holds it.
std::string SystemTablesScript() {
    for (const char* p : {"/usr/share/mysql/mysql_system_tables.sql", "/usr/share/mariadb/mysql_system_tables.sql"}) {
        std::ifstream in(p, std::ios::binary);
        if (!in) continue;
        std::ostringstream ss;
        ss << in.rdbuf();
        return ss.str();
    }
    return {};
}

// Why a creation failed, in one line, from the child's outcome and output.
std::string CreationFailure(const ChildOutcome& r, const std::string& output, const fs::path& parent) {
    std::string why;
    const std::string said = FirstEngineMessage(output);
    if (TellsOfFullDisk(output) || DiskFullAt(parent)) why = "the disk is full";
    if (r.kind == ChildOutcome::TimedOut)
        why += std::string(why.empty() ? "" : "; ") + "the engine did not finish in " +
               std::to_string(kCreateSeconds) + " s";
    else if (r.kind == ChildOutcome::Crashed)
        why += std::string(why.empty() ? "" : "; ") + "the engine crashed (signal " + std::to_string(r.code) + ")";
    else if (r.kind == ChildOutcome::NotStarted)
        why += std::string(why.empty() ? "" : "; ") + "no process could be started for it";
    if (!said.empty()) why += std::string(why.empty() ? "" : "; ") + "the engine said: " + said;
    return why.empty() ? std::string("the engine gave no reason") : why;
}

}  // namespace

std::string EngineLogPath(const std::string& dir) { return (fs::path(dir) / "zaro-engine.log").string(); }

FolderKind InspectFolder(const std::string& dir) {
    std::error_code ec;
    const fs::file_status st = fs::status(dir, ec);
    if (ec && st.type() != fs::file_type::not_found)
        Fail("The data folder '" + dir + "' can not be read: " + ec.message());
    if (st.type() == fs::file_type::not_found) return FolderKind::Missing;
    if (!fs::is_directory(st)) return FolderKind::NotAFolder;
    bool system = false, engine = false, other = false;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (IsStaleNewFolder(name)) {
            std::error_code rm;
            fs::remove_all(it->path(), rm);
            continue;
        }
        if (name == "mysql") system = true;
        else if (IsEngineFile(name) || name.rfind(kNewPrefix, 0) == 0) engine = true;
        else other = true;
    }
    if (ec) Fail("The data folder '" + dir + "' can not be read: " + ec.message());
    if (system) return FolderKind::DataFolder;
    if (engine) return FolderKind::HalfMade;
    return other ? FolderKind::Foreign : FolderKind::Empty;
}

void CreateDataFolder(const std::string& dir, const std::vector<std::string>& options, const std::string& tmpDir) {
    const fs::path target(dir);
    const fs::path parent = target.parent_path();
    std::error_code ec;
    fs::create_directories(parent, ec);
    if (ec) Fail("The data folder '" + dir + "' can not be created: " + ec.message());
    RemoveStaleNewFolders(parent);

    // Beside its place when the parent folder can be written; else, for an
    // empty folder that exists, inside it.
    const std::string name = std::string(kNewPrefix) + std::to_string(getpid()) + "-XXXXXX";
    std::string temp = (parent / name).string();
    bool inside = false;
    if (!mkdtemp(temp.data())) {
        const int err = errno;
        if ((err == EACCES || err == EPERM || err == EROFS) && fs::is_directory(target, ec)) {
            temp = (target / name).string();
            if (!mkdtemp(temp.data())) Fail("The data folder '" + dir + "' can not be created: " + std::strerror(errno));
            inside = true;
        } else {
            Fail("The data folder '" + dir + "' can not be created: " +
                 (err == ENOSPC ? std::string("the disk is full") : std::strerror(err)));
        }
    }
    chmod(temp.c_str(), 0777 & ~ProcessUmask());
    const fs::path tempPath(temp);
    const std::string log = EngineLogPath(temp);
    const std::vector<std::string> args = ServerArguments(temp, options);
    const ChildOutcome r = RunInChild(
        [&] {
            if (StartServer(args, tmpDir) != 0) return 3;
            CreateSystemTables(temp);
            mysql_library_end();
            std::ofstream done(tempPath / kDoneMark);
            return done ? 0 : 4;
        },
        log, kCreateSeconds);
    const bool made = fs::exists(tempPath / kDoneMark, ec) &&
                      (r.kind == ChildOutcome::Lost || (r.kind == ChildOutcome::Exited && r.code == 0));
    if (!made) {
        const std::string output = ReadFileFrom(log);
        fs::remove_all(tempPath, ec);
        Fail("The new data folder '" + dir + "' could not be created (" + CreationFailure(r, output, parent) +
             "); nothing was left in its place.");
    }
    fs::remove(tempPath / kDoneMark, ec);
    SyncFolder(tempPath);

    if (!inside) {
        if (rename(temp.c_str(), dir.c_str()) != 0) {
            const int err = errno;
            fs::remove_all(tempPath, ec);
            // Another process put its own new folder there first.
            if ((err == ENOTEMPTY || err == EEXIST) && InspectFolder(dir) == FolderKind::DataFolder) return;
            Fail("The new data folder '" + dir + "' could not be put in place: " + std::strerror(err));
        }
        SyncFolder(parent);
        return;
    }
    // Inside the folder: its entries move up one by one, the system database
    // last, so that a folder cut short is recognised as half-made.
    for (const auto& e : fs::directory_iterator(tempPath, ec)) {
        if (e.path().filename() == "mysql") continue;
        fs::rename(e.path(), target / e.path().filename(), ec);
        if (ec) break;
    }
    if (!ec) fs::rename(tempPath / "mysql", target / "mysql", ec);
    if (ec) {
        fs::remove_all(tempPath, ec);
        Fail("The new data folder '" + dir + "' could not be put in place: " + ec.message());
    }
    fs::remove(tempPath, ec);
    SyncFolder(target);
}

bool SystemTablesIncomplete(const std::string& dir) {
    const std::string script = SystemTablesScript();
    const std::string create = "CREATE TABLE IF NOT EXISTS ";
    const size_t at = script.rfind(create);
    if (at == std::string::npos) return false;
    size_t b = at + create.size(), e = b;
    while (e < script.size() && (std::isalnum(static_cast<unsigned char>(script[e])) || script[e] == '_')) ++e;
    if (e == b) return false;
    std::error_code ec;
    return !fs::exists(fs::path(dir) / "mysql" / (script.substr(b, e - b) + ".frm"), ec);
}

void CreateSystemTables(const std::string& dir) {
    MYSQL* m = mysql_init(nullptr);
    if (!m) Fail("The embedded database is out of memory.");
    mysql_options(m, MYSQL_OPT_USE_EMBEDDED_CONNECTION, nullptr);
    if (!mysql_real_connect(m, nullptr, nullptr, nullptr, nullptr, 0, nullptr, CLIENT_MULTI_STATEMENTS)) {
        Error e(static_cast<int32_t>(mysql_errno(m)), kSource, mysql_error(m));
        mysql_close(m);
        throw e;
    }
    std::string sql = "CREATE DATABASE IF NOT EXISTS mysql;\nUSE mysql;\n" + SystemTablesScript();
    int32_t errNo = 0;
    std::string errText;
    if (mysql_real_query(m, sql.data(), sql.size())) {
        errNo = static_cast<int32_t>(mysql_errno(m));
        errText = mysql_error(m);
    } else {
        for (;;) {
            if (MYSQL_RES* r = mysql_store_result(m)) mysql_free_result(r);
            const int st = mysql_next_result(m);
            if (st > 0) {
                errNo = static_cast<int32_t>(mysql_errno(m));
                errText = mysql_error(m);
                break;
            }
            if (st < 0) break;
        }
    }
    mysql_close(m);
    if (errNo)
        throw Error(errNo, kSource, "The system tables of the data folder '" + dir + "' could not be created: " + errText);
}

}  // namespace OVT_ZARO::ADODB::detail::engine
