// The data folder of the embedded database (internal): what a folder holds,
// and how a new one is made so that it appears whole or not at all.
//
// A new folder is made beside its place, under a hidden name
// (".zaro-new-<pid>-XXXXXX"), by a child process that starts the engine on
// it, creates the system tables and ends the engine cleanly; only then is it
// renamed into place. A process killed at any moment leaves either no data
// folder or a complete one; the hidden folder it leaves is removed by the
// next process that makes a folder there.
#pragma once

#include <string>
#include <vector>

namespace OVT_ZARO::ADODB::detail::engine {

enum class FolderKind {
    Missing,     // nothing at the path
    Empty,       // an empty folder
    DataFolder,  // a data folder: it holds the system database "mysql"
    HalfMade,    // the engine's files without the system database: a first start that was cut short
    Foreign,     // other files, none of the engine's
    NotAFolder,  // a file
};

// What the path holds. A folder that can not be read raises 2000 naming it.
FolderKind InspectFolder(const std::string& dir);

// Makes a new data folder at dir (missing, or an empty folder) with the
// engine's system tables, started with the given server options. On failure
// nothing is left at dir (an empty folder stays empty) and 2000 is raised
// with the engine's reason in one line.
// REQUIRES: the embedded server has not started in this process; called on
// an engine thread.
void CreateDataFolder(const std::string& dir, const std::vector<std::string>& options, const std::string& tmpDir);

// Whether a data folder lacks the last of the system tables (one made by a
// build that did not make folders whole, and was cut short).
bool SystemTablesIncomplete(const std::string& dir);

// Creates the engine's system tables on the running embedded server (what
// is there already stays). Raises on failure.
// REQUIRES: the embedded server runs; called on an engine thread.
void CreateSystemTables(const std::string& dir);

// The file where the engine's own messages go, in the data folder.
std::string EngineLogPath(const std::string& dir);

}  // namespace OVT_ZARO::ADODB::detail::engine
