// The options of the in-process server that a connection string may give
// (EmbeddedOptions), checked before the engine sees them (internal).
//
// The engine answers some options by printing and ending the process (its
// help, its version), or by crashing, and some bad values by ending the
// process with a status of its own. None of that may reach a host: such an
// option raises 3001 naming it, and the process goes on.
#pragma once

#include <string>
#include <vector>

namespace OVT_ZARO::ADODB::detail {

// Refuses, with 3001 naming the option, what can not be given at all: a word
// that is not a long option (--name or --name=value), and by name the
// options that print and exit (--help, --version ...), that read option
// files, that make the engine run files or load code (--init-file,
// --plugin-load ...), and those that would take over the process or the
// data folder (--log-error, --user, --chroot, --datadir ...). A name is
// matched as the engine matches it: '_' for '-', the prefixes loose-,
// maximum-, skip-, enable- and disable- dropped, and any unique start of a
// name standing for the whole name.
void CheckEmbeddedOptionNames(const std::vector<std::string>& options);

namespace engine {

// Lets the engine read the options in a child process that ends before it
// touches any data folder. An option the engine answers by ending or
// crashing the child raises 3001 naming it, with the engine's own words.
// REQUIRES: the embedded server has not started in this process; called on
// an engine thread.
void CheckEmbeddedOptionValues(const std::vector<std::string>& options, const std::string& tmpDir);

}  // namespace engine
}  // namespace OVT_ZARO::ADODB::detail
