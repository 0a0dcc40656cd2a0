// The system calls behind the attribute dialog.
#include "fileops/file_attributes_change.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "foundation/file_name.h"
#include "panels/entry_rules.h"
#include "panels/panel.h"

namespace zt {

namespace {

constexpr uint16_t kPermissionBits = 07777;
constexpr uid_t kSameUser = static_cast<uid_t>(-1);
constexpr gid_t kSameGroup = static_cast<gid_t>(-1);

// 1 when it was changed, 0 when it is as wanted already, or minus an errno value.
int ChangeOwner(const char* path, const AttributeChange& change) {
    if (!change.user && !change.group) return 0;
    struct stat own;
    if (lstat(path, &own) != 0) return -errno;
    const uid_t user = change.user && *change.user != own.st_uid ? *change.user : kSameUser;
    const gid_t group = change.group && *change.group != own.st_gid ? *change.group : kSameGroup;
    if (user == kSameUser && group == kSameGroup) return 0;
    return chown(path, user, group) == 0 ? 1 : -errno;
}

}  // namespace

int ChangeAttributes(const Westring& path, uint16_t mode, const AttributeChange& change) {
    const Estring bytes = NameToBytes(path);
    const int owned = ChangeOwner(bytes.c_str(), change);
    if (owned < 0) return -owned;
    unsigned current = mode;
    struct stat now;
    if (owned > 0 && stat(bytes.c_str(), &now) == 0) current = now.st_mode;
    const unsigned wanted = ModeWithStates(mode, change.states, change.isGroup);
    if (((wanted ^ current) & kPermissionBits) == 0) return 0;
    return chmod(bytes.c_str(), wanted & kPermissionBits) == 0 ? 0 : errno;
}

void RefreshEntry(CPanel& panel, entry& item, const Westring& path) {
    const Estring bytes = NameToBytes(path);
    struct stat own, target;
    if (lstat(bytes.c_str(), &own) != 0) return;
    const bool hasTarget = S_ISLNK(own.st_mode) && stat(bytes.c_str(), &target) == 0;
    const uint64_t size = item.size;
    FillEntry(item, own, hasTarget ? &target : nullptr, ProcessIdentity::OfThisProcess());
    if (item.IsDirectory()) item.size = size;
    if (item.tagged) panel.taggedBytes += item.size - size;
}

std::optional<uid_t> UserOfName(const Westring& name) {
    const struct passwd* account = getpwnam(NameToBytes(name).c_str());
    return account ? std::optional<uid_t>(account->pw_uid) : std::nullopt;
}

std::optional<gid_t> GroupOfName(const Westring& name) {
    const struct group* found = getgrnam(NameToBytes(name).c_str());
    return found ? std::optional<gid_t>(found->gr_gid) : std::nullopt;
}

OwnerTexts OwnersOfFile(const Westring& path) {
    OwnerTexts texts;
    struct stat own;
    if (lstat(NameToBytes(path).c_str(), &own) != 0) return texts;
    if (const struct passwd* account = getpwuid(own.st_uid)) {
        texts.user = NameFromBytes(account->pw_name);
    }
    if (const struct group* found = getgrgid(own.st_gid)) {
        texts.group = NameFromBytes(found->gr_name);
    }
    return texts;
}

}  // namespace zt
