// From the system's record of a file to the panel's.
#include "panels/entry_rules.h"

#include <unistd.h>

namespace zt {

ProcessIdentity ProcessIdentity::OfThisProcess() {
    return {geteuid(), getegid()};
}

bool IsReadOnlyFor(const ProcessIdentity& who, mode_t mode, uid_t owner, gid_t group) {
    if (mode & S_IWOTH) return false;
    if ((mode & S_IWGRP) && group == who.group) return false;
    if ((mode & S_IWUSR) && owner == who.user) return false;
    return true;
}

bool IsHiddenName(const wchar_t* name) {
    return name[0] == L'.' && (name[1] != L'.' || name[2] != 0);
}

char GroupOf(const entry& e) {
    if (e.IsDotDot()) return kGroupParent;
    if (e.IsDirectory()) return kGroupDirectory;
    return e.IsHidden() ? kGroupHiddenFile : kGroupFile;
}

void FillEntry(entry& e, const struct stat& own, const struct stat* target,
               const ProcessIdentity& who) {
    const bool isLink = S_ISLNK(own.st_mode);
    const struct stat& data = isLink && target ? *target : own;
    unsigned flags = 0;
    if (IsHiddenName(e.name)) flags |= kHidden;
    if (isLink) flags |= kSymbolicLink;
    if (isLink && !target) flags |= kBrokenLink;
    if (S_ISDIR(data.st_mode)) flags |= kDirectory;
    if (IsReadOnlyFor(who, data.st_mode, own.st_uid, own.st_gid)) flags |= kReadOnlyForUser;
    e.flags = static_cast<uint16_t>(flags);
    e.size = S_ISDIR(data.st_mode) ? 0 : static_cast<uint64_t>(data.st_size);
    e.mode = static_cast<uint16_t>(data.st_mode);
    e.uid = static_cast<uint16_t>(own.st_uid);
    e.gid = static_cast<uint16_t>(own.st_gid);
    e.time.seconds = own.st_mtim.tv_sec;
    e.time.nanoseconds = static_cast<int32_t>(own.st_mtim.tv_nsec);
}

}  // namespace zt
