// A small disk for a test: a tmpfs of a given size mounted in a mount
// namespace of the calling process alone, so that nothing outside sees it and
// it goes away with the process. Needs the right to mount (root, or user
// namespaces that the system allows).
#pragma once

#include <string>

namespace zaro_test {

// Mounts a tmpfs of sizeMb at folder (made when missing). False, with the
// reason, when this machine does not let the process mount one.
// REQUIRES: the process has one thread (before any database opens).
bool MountSmallDisk(const std::string& folder, int sizeMb, std::string& why);

// Fills the disk of folder with a file there, so that about leaveKb stay free.
// False when it can not.
bool FillDisk(const std::string& folder, long long leaveKb);

// The space left on the disk of folder, in kB (as a root process may use it).
long long FreeKb(const std::string& folder);

}  // namespace zaro_test
