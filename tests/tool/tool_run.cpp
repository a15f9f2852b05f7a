#include "tool/tool_run.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/roads.h"

namespace zaro_tool_test {

namespace {

const char* const kZaro = ZARO_BINARY_DIR "/zaro";

std::vector<char*> Argv(std::vector<std::string>& args) {
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    return argv;
}

int ExitStatus(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Runs the program with its output in two files of the work folder, or its
// standard output in stdoutPath when one is given.
Outcome Spawn(std::vector<std::string> args, const std::string& cwd, const std::string& stdoutPath = {}) {
    static int counter = 0;
    const std::string base = cwd + "/.run" + std::to_string(++counter);
    const std::string outFile = stdoutPath.empty() ? base + ".out" : stdoutPath, errFile = base + ".err";
    std::vector<char*> argv = Argv(args);
    const pid_t pid = fork();
    if (pid == 0) {
        // Only async-signal-safe calls between fork and exec.
        if (chdir(cwd.c_str()) != 0) _exit(126);
        const int out = open(outFile.c_str(), O_WRONLY | O_CREAT | (stdoutPath.empty() ? O_TRUNC : 0), 0644);
        const int err = open(errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int in = open("/dev/null", O_RDONLY);
        if (out < 0 || err < 0 || in < 0) _exit(126);
        dup2(in, 0);
        dup2(out, 1);
        dup2(err, 2);
        execv(argv[0], argv.data());
        _exit(127);
    }
    Outcome r;
    if (pid < 0) return r;
    r.status = ExitStatus(pid);
    if (stdoutPath.empty()) r.out = ReadText(outFile);
    r.err = ReadText(errFile);
    return r;
}

// Runs the program on a pseudo-terminal and gives all that it showed.
Outcome SpawnOnTerminal(std::vector<std::string> args, const std::string& cwd) {
    std::vector<char*> argv = Argv(args);
    int master = -1;
    const pid_t pid = forkpty(&master, nullptr, nullptr, nullptr);
    if (pid == 0) {
        if (chdir(cwd.c_str()) != 0) _exit(126);
        execv(argv[0], argv.data());
        _exit(127);
    }
    Outcome r;
    if (pid < 0) return r;
    char buf[4096];
    for (;;) {
        const ssize_t n = read(master, buf, sizeof buf);
        if (n > 0) r.terminal.append(buf, static_cast<size_t>(n));
        else if (n < 0 && errno == EINTR) continue;
        else break;  // EIO once the program has closed the terminal
    }
    close(master);
    r.status = ExitStatus(pid);
    return r;
}

}  // namespace

std::vector<ToolRoad> ToolRoads() { return {{"embedded"}, {"server"}}; }

std::string ToolRoadName(const ::testing::TestParamInfo<ToolRoad>& info) { return info.param.name; }

void ToolTest::SetUp() {
    static int counter = 0;
    work_ = zaro_test::ProgramTempFolder() + "/work" + std::to_string(++counter) + "-" + GetParam().name;
    std::filesystem::create_directories(work_);
    if (GetParam().name == "embedded") {
        roadOptions_ = {"--db", work_ + "/data"};
        return;
    }
    for (const zaro_test::Road& road : zaro_test::AllRoads()) {
        if (road.name != "server") continue;
        auto cn = zaro_test::OpenRoad(road);
        zaro_test::DropAllTables(*cn);
        cn->Close();
        roadOptions_ = {"--connect", road.connectionString};
    }
    ASSERT_FALSE(roadOptions_.empty());
}

Outcome ToolTest::Zaro(std::vector<std::string> args) {
    args.insert(args.begin(), roadOptions_.begin(), roadOptions_.end());
    return ZaroBare(std::move(args));
}

Outcome ToolTest::ZaroOnTerminal(std::vector<std::string> args) {
    args.insert(args.begin(), roadOptions_.begin(), roadOptions_.end());
    args.insert(args.begin(), kZaro);
    return SpawnOnTerminal(std::move(args), work_);
}

Outcome ToolTest::ZaroWritingTo(const std::string& stdoutPath, std::vector<std::string> args) {
    args.insert(args.begin(), roadOptions_.begin(), roadOptions_.end());
    args.insert(args.begin(), kZaro);
    return Spawn(std::move(args), work_, stdoutPath);
}

std::vector<std::string> ToolTest::ZaroCommand(std::vector<std::string> args) const {
    args.insert(args.begin(), roadOptions_.begin(), roadOptions_.end());
    args.insert(args.begin(), kZaro);
    return args;
}

Outcome ToolTest::ZaroBare(std::vector<std::string> args) {
    args.insert(args.begin(), kZaro);
    return Spawn(std::move(args), work_);
}

std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
}

bool Exists(const std::string& path) { return std::filesystem::exists(path); }

size_t Occurrences(const std::string& text, const std::string& needle) {
    size_t n = 0;
    for (size_t at = text.find(needle); at != std::string::npos; at = text.find(needle, at + needle.size())) ++n;
    return n;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::string SampleFolder() { return ZARO_SOURCE_DIR "/tools/zaro/sample"; }

}  // namespace zaro_tool_test
