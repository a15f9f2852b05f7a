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
// REQUIRES: called on an engine thread.
void EnsureClientLibrary();

// Starts the embedded server on dataDir (created and bootstrapped on first
// use) with the extra server options, once per process. A later call with
// another folder or other options raises 3001.
// REQUIRES: called on an engine thread.
void EnsureEmbeddedServer(const std::string& dataDir, const std::vector<std::string>& serverOptions);

// Whether the embedded server has been started in this process.
bool EmbeddedServerStarted();

// The sessions alive in the process, closed when it exits.
void Register(Session* s);
void Unregister(Session* s);

}  // namespace engine
}  // namespace OVT_ZARO::ADODB::detail
