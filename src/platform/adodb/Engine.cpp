#include "platform/adodb/Engine.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

#include <mysql.h>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/CallerThread.h"
#include "platform/adodb/DataFolder.h"
#include "platform/adodb/DiskWatch.h"
#include "platform/adodb/EngineChild.h"
#include "platform/adodb/EngineOptions.h"
#include "platform/adodb/Session.h"

// The server side of the engine library: starts the in-process server. It is
// what the library's own initialisation would call; calling it ourselves lets
// the client side start without it.
extern "C" int init_embedded_server(int argc, char** argv, char** groups);
// How long the engine library's end waits for threads still announced to it.
extern "C" unsigned int my_thread_end_wait_time;

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
    CallerThread::ProcessExiting();
    diskwatch::Stop();
    std::vector<Session*> sessions;
    {
        std::lock_guard<std::mutex> lock(Mutex());
        sessions = Sessions();
    }
    for (Session* s : sessions) s->CloseForExit();
    // A thread that called a server and still runs is still announced to
    // the engine library, whose end would wait five seconds for it: the
    // engine's own threads have ended by now, so the end does not wait.
    if (CallerThread::Announced() > 0) my_thread_end_wait_time = 0;
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

std::vector<std::string> ServerArguments(const std::string& dataDir, const std::vector<std::string>& options) {
    std::vector<std::string> args;
    args.push_back("ZARODatos");
    // No option file is read: the process's settings are the connection string's.
    args.push_back("--no-defaults");
    args.push_back("--datadir=" + dataDir);
    // The embedded server has no users; this also skips the plugin and
    // function tables, so that a new folder starts without warnings.
    args.push_back("--skip-grant-tables");
    for (const auto& o : options) args.push_back(o);
    return args;
}

int StartServer(const std::vector<std::string>& args, const std::string& tmpDir) {
    auto& store = ArgStorage();
    store = args;
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
    return rc;
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

    std::string tmpDir;
    for (const auto& o : serverOptions)
        if (o.rfind("--tmpdir=", 0) == 0) tmpDir = o.substr(9);
    if (tmpDir.empty()) {
        if (!g_tmpDir) {
            const std::string tmp = MakePrivateTempFolder();
            if (!tmp.empty()) g_tmpDir = new std::string(tmp);
        }
        if (g_tmpDir) tmpDir = *g_tmpDir;
    }

    // Options the engine would end the process on are tried in a child first.
    CheckEmbeddedOptionValues(serverOptions, tmpDir);

    switch (InspectFolder(dirText)) {
        case FolderKind::Missing:
        case FolderKind::Empty:
            CreateDataFolder(dirText, serverOptions, tmpDir);
            break;
        case FolderKind::DataFolder:
            break;
        case FolderKind::NotAFolder:
            throw Error(kEmbeddedFailure, kSource,
                        "The data folder '" + dirText + "' can not be created: a file is in its place.");
        case FolderKind::HalfMade:
            throw Error(kEmbeddedFailure, kSource,
                        "The data folder '" + dirText +
                            "' is half-made: it holds the engine's files but no system database, as a first start "
                            "that was cut short (a killed process, a full disk) leaves it; it holds no data, so "
                            "remove it and open it again.");
        case FolderKind::Foreign:
            throw Error(kEmbeddedFailure, kSource,
                        "The folder '" + dirText +
                            "' is not a data folder of the embedded database: it holds other files and no system "
                            "database; give a new or an empty folder.");
    }

    // What the engine prints while it starts goes to the folder's log.
    std::string log = EngineLogPath(dirText);
    std::optional<StderrToFile> capture(std::in_place, log);
    if (!capture->Active() && g_tmpDir) {
        capture.reset();
        log = *g_tmpDir + "/engine.log";
        capture.emplace(log);
    }
    const int rc = StartServer(ServerArguments(dirText, serverOptions), tmpDir);
    const std::string said = capture->Finish();
    if (rc) {
        g_failed = true;
        std::string why = FirstEngineMessage(said);
        const bool full = TellsOfFullDisk(said);
        if (full) why = "the disk is full" + (why.empty() ? std::string() : "; " + why);
        const bool inFolder = log.rfind(dirText + "/", 0) == 0;
        // What to do: a fault of the options, or of the folder.
        bool options = false;
        for (const char* word : {"option", "variable", "Unknown locale", "Unknown collation", "character set",
                                 "time zone", "Unknown/unsupported storage engine"})
            options = options || why.find(word) != std::string::npos;
        if (why.rfind("InnoDB: ", 0) == 0) options = false;
        const bool denied = said.find("Errcode: 13 ") != std::string::npos ||
                            said.find("Permission denied") != std::string::npos;
        throw Error(kEmbeddedFailure, kSource,
                    "The embedded database could not start on the data folder '" + dirText + "'" +
                        (why.empty() ? std::string() : ": " + why) +
                        (full      ? std::string(". Free some space on its disk and open it again")
                         : denied  ? std::string(". The process may not write the folder; open it as its owner")
                         : options ? std::string(". Check EmbeddedOptions")
                                   : std::string(". A folder damaged or left half-made (a first start cut short, a "
                                                 "full disk) that holds no data can be removed and made anew")) +
                        (inFolder ? "; the engine's messages are in " + log : std::string()) + ".");
    }
    g_started = true;
    g_dataDir = dirText;
    g_options = serverOptions;
    std::atexit(AtExit);
    // A folder of an older build that was cut short while making its system
    // tables gets the missing ones.
    // (A folder the script can not complete still serves the library's tables.)
    if (SystemTablesIncomplete(dirText)) {
        try {
            CreateSystemTables(dirText);
        } catch (const Error&) {
        }
    }
    diskwatch::Start(dirText);
}

void Register(Session* s) {
    std::lock_guard<std::mutex> lock(Mutex());
    Sessions().push_back(s);
}

bool AnyEmbeddedCallRunning() {
    std::lock_guard<std::mutex> lock(Mutex());
    for (const Session* s : Sessions())
        if (s->Embedded() && s->InCall()) return true;
    return false;
}

void Unregister(Session* s) {
    std::lock_guard<std::mutex> lock(Mutex());
    auto& v = Sessions();
    v.erase(std::remove(v.begin(), v.end(), s), v.end());
}

}  // namespace OVT_ZARO::ADODB::detail::engine
