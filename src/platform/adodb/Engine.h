// The process-wide state of the engine library (internal).
//
// The client side is set up once, without starting the in-process server, so
// that a process that only reaches a server pays nothing for it. The
// embedded server starts when the first embedded connection opens, on that
// connection's engine thread, and ends when the process exits.
#pragma once

#include <string>
#include <vector>

namespace OVT_ZARO::ADODB::detail {

class Session;

namespace engine {

// Sets up the client side of the engine library once per process.
// REQUIRES: called on an engine thread, or on a caller's thread of the
// server road.
void EnsureClientLibrary();

// Starts the embedded server on dataDir (created and bootstrapped on first
// use) with the extra server options, once per process. A later call with
// another folder or other options raises 3001.
// REQUIRES: called on an engine thread.
void EnsureEmbeddedServer(const std::string& dataDir, const std::vector<std::string>& serverOptions);

// Whether the embedded server has been started in this process.
bool EmbeddedServerStarted();

// The arguments of the in-process server on a data folder with the extra
// server options of a connection string.
std::vector<std::string> ServerArguments(const std::string& dataDir, const std::vector<std::string>& options);

// Starts the in-process server with these arguments and its temp tables in
// tmpDir (the engine's own default when empty); gives the engine's status,
// 0 when it runs. The arguments are kept for as long as the engine runs.
// REQUIRES: called on an engine thread, once per process.
int StartServer(const std::vector<std::string>& args, const std::string& tmpDir);

// The sessions alive in the process, closed when it exits.
void Register(Session* s);
void Unregister(Session* s);
// Whether some embedded session of the process is in an engine call now.
bool AnyEmbeddedCallRunning();

}  // namespace engine
}  // namespace OVT_ZARO::ADODB::detail
