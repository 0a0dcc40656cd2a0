// Mounting a file system in memory for one test.
#include "tests/support/small_file_system.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>

namespace zt::headless {

namespace {

// Why the process has no name space of its own; empty: it has.
std::string LeaveTheCommonMounts() {
    if (geteuid() != 0) return "only root may mount";
    if (unshare(CLONE_NEWNS) != 0) return std::string("unshare: ") + strerror(errno);
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        return std::string("making the mounts private: ") + strerror(errno);
    }
    return {};
}

}  // namespace

SmallFileSystem::SmallFileSystem(const std::string& where, uint64_t bytes) : folder(where) {
    static const std::string hindrance = LeaveTheCommonMounts();
    reason = hindrance;
    if (!reason.empty()) return;
    const std::string options = "mode=0755,size=" + std::to_string(bytes);
    mounted = mount("zt-test", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
    if (!mounted) reason = std::string("mount: ") + strerror(errno);
}

SmallFileSystem::~SmallFileSystem() {
    if (mounted) umount2(folder.c_str(), MNT_DETACH);
}

bool SmallFileSystem::MakeReadOnly() {
    return mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

uint64_t SmallFileSystem::FreeBytes() const {
    struct statvfs info {};
    return statvfs(folder.c_str(), &info) == 0 ? info.f_bavail * info.f_frsize : 0;
}

}  // namespace zt::headless
