#include "platform/adodb/Engine.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <sstream>
#include <thread>

#include <mysql.h>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/Session.h"

// The server side of the engine library: starts the in-process server. It is
// what the library's own initialisation would call; calling it ourselves lets
// the client side start without it.
extern "C" int init_embedded_server(int argc, char** argv, char** groups);

namespace OVT_ZARO::ADODB::detail::engine {

namespace fs = std::filesystem;

namespace {

const char* const kSource = "ADODB.Connection";
// Number of the failures of the in-process server: the client's "unknown error".
constexpr int32_t kEmbeddedFailure = 2000;

// Never destroyed: they serve the exit handler, which runs among the static
// destructors.
std::mutex& Mutex() {
    static std::mutex* m = new std::mutex();
    return *m;
}
std::once_flag g_clientOnce;
bool g_started = false;
bool g_failed = false;
std::string g_dataDir;
std::vector<std::string> g_options;
std::vector<Session*>& Sessions() {
    static std::vector<Session*>* v = new std::vector<Session*>();
    return *v;
}

// The engine keeps pointers into its arguments for as long as it runs.
std::vector<std::string>& ArgStorage() {
    static std::vector<std::string>* v = new std::vector<std::string>();
    return *v;
}

// The server's own temp folder: private to the process, because a server
// that starts removes every temp table file ("#sql...") it finds in its temp
// folder, and would remove those of another process sharing it.
std::string* g_tmpDir = nullptr;

void RemoveStaleTempFolders(const fs::path& base) {
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(base, ec)) {
        const std::string name = e.path().filename().string();
        if (name.rfind("zaro-embedded-", 0) != 0) continue;
        const long pid = std::strtol(name.c_str() + 14, nullptr, 10);
        if (pid > 0 && kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) fs::remove_all(e.path(), ec);
    }
}

std::string MakePrivateTempFolder() {
    std::error_code ec;
    fs::path base = fs::temp_directory_path(ec);
    if (ec) base = "/tmp";
    RemoveStaleTempFolders(base);
    std::string tmpl = (base / ("zaro-embedded-" + std::to_string(getpid()) + "-XXXXXX")).string();
    if (!mkdtemp(tmpl.data())) return {};
    return tmpl;
}

void AtExit() {
    std::vector<Session*> sessions;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        sessions = Sessions();
    }
    for (Session* s : sessions) s->CloseForExit();
    // The server ends on a thread announced to the engine, as every call.
    std::thread([] {
        mysql_thread_init();
        mysql_library_end();
    }).join();
    if (g_tmpDir) {
        std::error_code ec;
        fs::remove_all(*g_tmpDir, ec);
    }
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

// Creates the system database of a new data folder, with the engine's system
// tables when its script is installed.
void Bootstrap(const std::string& dataDir) {
    MYSQL* m = mysql_init(nullptr);
    if (!m) throw Error(kEmbeddedFailure, kSource, "The embedded database is out of memory.");
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
        throw Error(errNo, kSource,
                    "The system tables of the new data folder '" + dataDir + "' could not be created: " + errText);
}

}  // namespace

void EnsureClientLibrary() {
    std::call_once(g_clientOnce, [] {
        // -1: the client side only; the in-process server starts on demand.
        if (mysql_library_init(-1, nullptr, nullptr))
            throw Error(kEmbeddedFailure, kSource, "The database client library could not start.");
    });
}

bool EmbeddedServerStarted() {
    std::lock_guard<std::mutex> lock(Mutex());
    return g_started;
}

void EnsureEmbeddedServer(const std::string& dataDirIn, const std::vector<std::string>& serverOptions) {
    EnsureClientLibrary();
    std::error_code ec;
    fs::path dir = fs::absolute(fs::path(dataDirIn), ec);
    if (ec) throw Error(AdoErr::InvalidArgument, kSource, "The data folder '" + dataDirIn + "' is not a valid path.");
    dir = dir.lexically_normal();
    std::string dirText = dir.string();
    while (dirText.size() > 1 && dirText.back() == '/') dirText.pop_back();

    std::lock_guard<std::mutex> lock(Mutex());
    if (g_started) {
        if (g_dataDir != dirText)
            throw Error(AdoErr::InvalidArgument, kSource,
                        "The embedded database of this process runs on the data folder '" + g_dataDir +
                            "'; a process can open one data folder only, so '" + dirText + "' can not be opened.");
        if (g_options != serverOptions)
            throw Error(AdoErr::InvalidArgument, kSource,
                        "The embedded database of this process was started with other EmbeddedOptions; they can "
                        "not change while the process runs.");
        return;
    }
    if (g_failed)
        throw Error(kEmbeddedFailure, kSource,
                    "The embedded database failed to start earlier in this process and can not be started again.");

    fs::create_directories(dir, ec);
    if (ec || !fs::is_directory(dir))
        throw Error(kEmbeddedFailure, kSource,
                    "The data folder '" + dirText + "' can not be created: " + (ec ? ec.message() : "not a folder"));
    const bool fresh = !fs::exists(dir / "mysql");

    auto& store = ArgStorage();
    store.clear();
    store.push_back("ZARODatos");
    // No option file is read: the process's settings are the connection string's.
    store.push_back("--no-defaults");
    store.push_back("--datadir=" + dirText);
    // The embedded server has no users; this also skips the plugin and
    // function tables, so that a new folder starts without warnings.
    store.push_back("--skip-grant-tables");
    std::string tmpDir;
    for (const auto& o : serverOptions) {
        store.push_back(o);
        if (o.rfind("--tmpdir=", 0) == 0) tmpDir = o.substr(9);
    }
    if (tmpDir.empty()) {
        if (!g_tmpDir) {
            const std::string tmp = MakePrivateTempFolder();
            if (!tmp.empty()) g_tmpDir = new std::string(tmp);
        }
        if (g_tmpDir) tmpDir = *g_tmpDir;
    }
    static std::vector<char*>* argv = new std::vector<char*>();
    argv->clear();
    for (auto& s : store) argv->push_back(s.data());
    argv->push_back(nullptr);
    static char group0[] = "zarodatos_embedded";
    static char* groups[] = {group0, nullptr};
    // The in-process server takes its temp folder from TMPDIR only (it
    // ignores --tmpdir): set for the start, then put back.
    const char* oldTmp = std::getenv("TMPDIR");
    const std::string savedTmp = oldTmp ? oldTmp : "";
    if (!tmpDir.empty()) setenv("TMPDIR", tmpDir.c_str(), 1);
    const int rc = init_embedded_server(static_cast<int>(store.size()), argv->data(), groups);
    if (!tmpDir.empty()) {
        if (oldTmp) setenv("TMPDIR", savedTmp.c_str(), 1);
        else unsetenv("TMPDIR");
    }
    if (rc) {
        g_failed = true;
        if (g_tmpDir) {
            std::error_code rmEc;
            fs::remove_all(*g_tmpDir, rmEc);
        }
        throw Error(kEmbeddedFailure, kSource,
                    "The embedded database could not start on the data folder '" + dirText +
                        "' (the engine's messages are on standard error).");
    }
    g_started = true;
    g_dataDir = dirText;
    g_options = serverOptions;
    std::atexit(AtExit);
    if (fresh) Bootstrap(dirText);
}

void Register(Session* s) {
    std::lock_guard<std::mutex> lock(Mutex());
    Sessions().push_back(s);
}

void Unregister(Session* s) {
    std::lock_guard<std::mutex> lock(Mutex());
    auto& v = Sessions();
    v.erase(std::remove(v.begin(), v.end(), s), v.end());
}

}  // namespace OVT_ZARO::ADODB::detail::engine
