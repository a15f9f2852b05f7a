#include "platform/adodb/EngineOptions.h"

#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Error.h"
#include "platform/adodb/Engine.h"
#include "platform/adodb/EngineChild.h"

namespace OVT_ZARO::ADODB::detail {

namespace {

const char* const kSource = "ADODB.Connection";

[[noreturn]] void Refuse(const std::string& what) {
    throw Error(AdoErr::InvalidArgument, kSource, "EmbeddedOptions: " + what);
}

struct Refused {
    const char* name;
    const char* why;
};

const char* const kPrintsAndExits = "makes the engine print and end the process";
const char* const kOptionFiles = "reads option files, which the library never does";
const char* const kRunsFiles = "makes the engine run a file or load code; the library does not allow it";
const char* const kProcess = "acts on the whole process, not on the database";

const Refused kRefused[] = {
    {"help", kPrintsAndExits},
    {"version", kPrintsAndExits},
    {"print-defaults", kPrintsAndExits},
    {"no-defaults", kOptionFiles},
    {"defaults-file", kOptionFiles},
    {"defaults-extra-file", kOptionFiles},
    {"defaults-group-suffix", kOptionFiles},
    {"init-file", kRunsFiles},
    {"bootstrap", kRunsFiles},
    {"plugin-load", kRunsFiles},
    {"plugin-load-add", kRunsFiles},
    {"plugin-dir", kRunsFiles},
    {"log-error", "sends the standard error of the whole process to a file"},
    {"user", kProcess},
    {"chroot", kProcess},
    {"memlock", kProcess},
    {"core-file", kProcess},
    {"gdb", kProcess},
    {"datadir", "chooses another data folder; the data folder is the key DataDir"},
};

// The name of a long option as the engine reads it: '_' is '-', and the
// prefixes that only say how to take the option are dropped.
std::string EngineName(const std::string& option) {
    std::string name = option.substr(2, option.find('=') == std::string::npos ? std::string::npos
                                                                               : option.find('=') - 2);
    for (char& c : name) {
        if (c == '_') c = '-';
        else if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    for (bool again = true; again;) {
        again = false;
        for (const char* prefix : {"loose-", "maximum-"})
            if (name.rfind(prefix, 0) == 0) {
                name.erase(0, std::strlen(prefix));
                again = true;
            }
    }
    for (const char* prefix : {"skip-", "enable-", "disable-"})
        if (name.rfind(prefix, 0) == 0) {
            name.erase(0, std::strlen(prefix));
            break;
        }
    return name;
}

}  // namespace

void CheckEmbeddedOptionNames(const std::vector<std::string>& options) {
    for (const std::string& o : options) {
        if (o.size() < 3 || o.rfind("--", 0) != 0 || o[2] == '=' || o[2] == '-')
            Refuse("'" + o + "' is not an option of the form --name or --name=value");
        const std::string name = EngineName(o);
        if (name.empty()) Refuse("'" + o + "' names no option");
        for (const Refused& r : kRefused) {
            // The engine takes any unique start of a name for the whole name.
            if (std::string_view(r.name).substr(0, name.size()) == name)
                Refuse("the option '" + o + "' is refused: it " + r.why);
        }
    }
}

namespace engine {

namespace {

// A locale that does not exist: the engine checks it right after reading
// its options and before it touches any folder, and stops there.
const char* const kStopLocale = "zaro_options_read";

enum class Verdict { Accepted, Refused, Unknown };

Verdict TryOptions(const std::vector<std::string>& options, const std::string& scratch, std::string& why) {
    const std::string out = scratch + "/engine-" + std::to_string(getpid()) + ".out";
    std::vector<std::string> args = ServerArguments(scratch, options);
    args.push_back(std::string("--lc-messages=") + kStopLocale);
    const ChildOutcome r = RunInChild([&] { return StartServer(args, scratch) == 0 ? 3 : 0; }, out, 60);
    const std::string text = ReadFileFrom(out);
    std::error_code ec;
    std::filesystem::remove(out, ec);
    const bool stopped = text.find(std::string("Unknown locale: '") + kStopLocale + "'") != std::string::npos;
    // The engine reached the locale: it read every option. (A child that a
    // host's own handler collected is judged by its words alone.)
    if (stopped && (r.kind == ChildOutcome::Lost || (r.kind == ChildOutcome::Exited && r.code == 0)))
        return Verdict::Accepted;
    if (r.kind == ChildOutcome::NotStarted) return Verdict::Unknown;
    const std::string said = FirstEngineMessage(text);
    if (r.kind == ChildOutcome::TimedOut) why = "the engine did not finish reading it in 60 s";
    // (A build with the address sanitizer reports a crash as "ERROR: AddressSanitizer"
    // and a leak check at the engine's exit as "ERROR: LeakSanitizer".)
    else if (text.find("ERROR: AddressSanitizer") != std::string::npos || r.kind == ChildOutcome::Crashed)
        why = "it makes the engine crash" +
              (r.kind == ChildOutcome::Crashed ? " (signal " + std::to_string(r.code) + ")" : std::string());
    else if (r.kind == ChildOutcome::Exited && r.code != 0)
        why = "the engine ends the process on it (status " + std::to_string(r.code) + ")" +
              (said.empty() ? std::string() : ": " + said);
    else why = said.empty() ? std::string("the engine does not start with it") : said;
    return Verdict::Refused;
}

}  // namespace

void CheckEmbeddedOptionValues(const std::vector<std::string>& options, const std::string& tmpDir) {
    if (options.empty()) return;
    namespace fs = std::filesystem;
    std::error_code ec;
    std::string base = tmpDir.empty() ? fs::temp_directory_path(ec).string() : tmpDir;
    if (base.empty()) base = "/tmp";
    std::string scratch = base + "/options-XXXXXX";
    if (!mkdtemp(scratch.data())) return;  // no room to try them: the start will tell
    std::string why;
    const Verdict all = TryOptions(options, scratch, why);
    if (all != Verdict::Refused) {
        fs::remove_all(scratch, ec);
        return;
    }
    // Name the option: the first one the engine refuses on its own.
    std::string culprit;
    if (options.size() > 1) {
        for (const std::string& o : options) {
            std::string alone;
            if (TryOptions({o}, scratch, alone) == Verdict::Refused) {
                culprit = o;
                why = alone;
                break;
            }
        }
    } else {
        culprit = options[0];
    }
    fs::remove_all(scratch, ec);
    if (culprit.empty()) {
        std::string all_;
        for (const std::string& o : options) all_ += (all_.empty() ? "" : " ") + o;
        Refuse("the engine refuses the options '" + all_ + "' together: " + why);
    }
    Refuse("the engine refuses the option '" + culprit + "': " + why);
}

}  // namespace engine
}  // namespace OVT_ZARO::ADODB::detail
