#include "support/small_disk.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

namespace zaro_test {

namespace {

bool WriteTo(const std::string& path, const std::string& text) {
    std::ofstream out(path);
    out << text;
    return static_cast<bool>(out);
}

}  // namespace

bool MountSmallDisk(const std::string& folder, int sizeMb, std::string& why) {
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    if (unshare(CLONE_NEWNS) != 0) {
        const int asRoot = errno;
        // Without the right to mount, a user namespace may give it.
        const uid_t uid = geteuid();
        const gid_t gid = getegid();
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            why = std::string("this machine lets the test mount no file system (unshare: ") + std::strerror(asRoot) +
                  "; in a user namespace: " + std::strerror(errno) + ")";
            return false;
        }
        WriteTo("/proc/self/setgroups", "deny");
        WriteTo("/proc/self/uid_map", "0 " + std::to_string(uid) + " 1");
        WriteTo("/proc/self/gid_map", "0 " + std::to_string(gid) + " 1");
    }
    // Mounts made here stay here.
    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    const std::string options = "size=" + std::to_string(sizeMb) + "m";
    if (mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) != 0) {
        why = std::string("this machine lets the test mount no tmpfs: ") + std::strerror(errno);
        return false;
    }
    return true;
}

long long FreeKb(const std::string& folder) {
    struct statvfs s {};
    if (statvfs(folder.c_str(), &s) != 0) return -1;
    return static_cast<long long>(s.f_bfree) * static_cast<long long>(s.f_frsize) / 1024;
}

bool FillDisk(const std::string& folder, long long leaveKb) {
    const long long free = FreeKb(folder);
    if (free < 0) return false;
    long long fill = free - leaveKb;
    if (fill <= 0) return true;
    const std::string path = folder + "/filler";
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (fd < 0) return false;
    std::vector<char> block(1024 * 64, 'f');
    while (fill > 0) {
        const long long kb = std::min<long long>(fill, 64);
        if (write(fd, block.data(), static_cast<size_t>(kb * 1024)) < 0) break;
        fill -= kb;
    }
    close(fd);
    return true;
}

}  // namespace zaro_test
