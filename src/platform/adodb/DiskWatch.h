// The full disk on the embedded road (internal).
//
// When a write finds no space, the engine does not fail the statement: it
// waits for someone to free space, checking once a minute, without a word.
// While the embedded server runs, a watch thread looks once a second, while
// some embedded connection of the process is in a call, for statements the
// engine holds in that wait ("Waiting for someone to free space"), marks
// them and stops them (KILL QUERY); the session then raises 1021 "Disk
// full" for the statement. The watch has a session of its own that is left
// out of the general query log.
#pragma once

#include <string>

namespace OVT_ZARO::ADODB::detail::engine::diskwatch {

// Starts the watch for the data folder; it has its session when this returns.
// REQUIRES: the embedded server runs.
void Start(const std::string& dataDir);
// Ends the watch and its session (at exit, before the server ends).
void Stop();
// Whether the statement of the engine session with this id was stopped for
// a full disk; the mark is cleared.
bool TakeStopped(unsigned long sessionId);
// The data folder watched (empty before Start).
std::string DataDir();

}  // namespace OVT_ZARO::ADODB::detail::engine::diskwatch
