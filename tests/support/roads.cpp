#include "support/roads.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <mutex>
#include <regex>
#include <stdexcept>

#include "ZARODatos/platform/Conversions.h"
#include "support/mariadb_server.h"

namespace zaro_test {

namespace {

struct ProgramState {
    std::string temp;
    std::string embeddedDir;
    std::string embeddedLog;
    int serverPort = 0;
    std::unique_ptr<MariaDbServer> server;
};

// Never destroyed: the exit handlers below use it.
ProgramState& State() {
    static ProgramState* s = new ProgramState();
    return *s;
}

void RemoveProgramFolder() { RemoveFolder(State().temp); }
void StopSharedServer() { State().server.reset(); }

const char* const kDatabase = "zaro_test";

std::string ReadFrom(const std::string& path, size_t offset) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    in.seekg(0, std::ios::end);
    const auto size = static_cast<size_t>(in.tellg());
    if (offset >= size) return {};
    in.seekg(static_cast<std::streamoff>(offset));
    std::string text(size - offset, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    return text;
}

size_t FileSize(const std::string& path) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    return in ? static_cast<size_t>(in.tellg()) : 0;
}

const std::string& LogOf(const Road& road) {
    if (road.name == "embedded") return State().embeddedLog;
    return SharedServer().GeneralLog();
}

}  // namespace

const std::string& ProgramTempFolder() {
    static std::once_flag once;
    std::call_once(once, [] {
        State().temp = MakeTempFolder();
        // Registered before any database opens, so it runs after the engine
        // has ended at exit.
        std::atexit(RemoveProgramFolder);
    });
    return State().temp;
}

MariaDbServer& SharedServer() {
    ProgramState& s = State();
    if (!s.server) {
        ProgramTempFolder();
        if (!s.serverPort) s.serverPort = FreeLoopbackPort();
        s.server = std::make_unique<MariaDbServer>(s.serverPort);
        static bool registered = false;
        if (!registered) {
            std::atexit(StopSharedServer);
            registered = true;
        }
    }
    return *s.server;
}

std::string EmbeddedRoadSkipReason() {
#if defined(__SANITIZE_THREAD__)
    return "the in-process engine does not start under ThreadSanitizer (a new data folder is made in a forked "
           "child); the optimised and AddressSanitizer builds run this test";
#else
    return {};
#endif
}

std::vector<Road> AllRoads() {
    ProgramState& s = State();
    const std::string& temp = ProgramTempFolder();
    if (s.embeddedDir.empty()) {
        s.embeddedDir = temp + "/embedded";
        s.embeddedLog = temp + "/embedded-general.log";
    }
    if (!s.serverPort) s.serverPort = FreeLoopbackPort();
    const std::string embedded = "DataDir=" + s.embeddedDir + ";Database=" + kDatabase +
                                 ";EmbeddedOptions='--general-log=1 --general-log-file=" + s.embeddedLog +
                                 " --innodb-log-file-size=8M --innodb-buffer-pool-size=16M'";
    const std::string server = "Server=127.0.0.1;Port=" + std::to_string(s.serverPort) +
                               ";User=root;Password=;Database=" + kDatabase;
    return {{"embedded", embedded}, {"server", server}};
}

std::string RoadName(const ::testing::TestParamInfo<Road>& info) { return info.param.name; }

std::shared_ptr<OVT_ZARO::ADODB::Connection> OpenRoad(const Road& road) {
    if (road.name == "server") SharedServer();
    auto cn = std::make_shared<OVT_ZARO::ADODB::Connection>();
    cn->Open(road.connectionString);
    return cn;
}

void DropAllTables(OVT_ZARO::ADODB::Connection& cn) {
    std::vector<std::pair<std::string, bool>> names;
    if (auto rs = cn.Execute("SHOW FULL TABLES")) {
        while (!rs->EOF_()) {
            names.emplace_back(OVT_ZARO::CStr(rs->Fields().Item(int32_t{0}).Value()),
                               OVT_ZARO::CStr(rs->Fields().Item(int32_t{1}).Value()) == "VIEW");
            rs->MoveNext();
        }
        rs->Close();
    }
    for (const auto& [name, view] : names) {
        std::string quoted = "`";
        for (char c : name) {
            if (c == '`') quoted += '`';
            quoted += c;
        }
        quoted += '`';
        cn.Execute(std::string(view ? "DROP VIEW IF EXISTS " : "DROP TABLE IF EXISTS ") + quoted);
    }
}

size_t GeneralLogMark(const Road& road) {
    if (road.name == "server") SharedServer();
    return FileSize(LogOf(road));
}

namespace {
std::vector<std::string> LogEntries(const Road& road, size_t mark, bool prepared) {
    const std::string text = ReadFrom(LogOf(road), mark);
    // An entry: "[yymmdd hh:mm:ss]\t<blanks><id> <Command>\t<argument>";
    // lines that do not start an entry continue the argument before them.
    static const std::regex entry(R"(^(\d{6}\s+\d{1,2}:\d{2}:\d{2})?\t\s*\d+ ([A-Za-z][A-Za-z_ ]*)\t(.*)$)");
    std::vector<std::string> out;
    bool collecting = false;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(pos, end - pos);
        pos = end + 1;
        std::smatch m;
        if (std::regex_match(line, m, entry)) {
            const std::string command = m[2];
            collecting = command == "Query" || command == "Execute" || (prepared && command == "Prepare");
            if (collecting) out.push_back(m[3]);
        } else if (collecting && !out.empty()) {
            out.back() += "\n" + line;
        }
    }
    return out;
}

}  // namespace

std::vector<std::string> GeneralLogSince(const Road& road, size_t mark) { return LogEntries(road, mark, false); }

std::vector<std::string> GeneralLogWithPreparedSince(const Road& road, size_t mark) {
    return LogEntries(road, mark, true);
}

}  // namespace zaro_test
