// Looks by lstat, and by stat where a link stands.
#include "fileops/target_look.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "foundation/system_call.h"

namespace zt {

namespace {

bool IsWrittenAsItIs(mode_t mode) {
    return S_ISCHR(mode) || S_ISBLK(mode) || S_ISFIFO(mode) || S_ISSOCK(mode);
}

struct SplitPath {
    std::string parent, name;

    explicit SplitPath(const Estring& path) {
        const char* slash = std::strrchr(path.c_str(), '/');
        name = slash ? slash + 1 : path.c_str();
        parent = slash ? std::string(path.c_str(), slash + 1) : ".";
    }
};

}  // namespace

int LinkStatus(const Estring& path, struct stat& status) {
    return Uninterrupted([&] { return lstat(path.c_str(), &status); }) < 0 ? errno : 0;
}

int FollowedStatus(const Estring& path, struct stat& status) {
    return Uninterrupted([&] { return stat(path.c_str(), &status); }) < 0 ? errno : 0;
}

TargetLook LookAtTarget(const Estring& path) {
    TargetLook look;
    look.error = LinkStatus(path, look.status);
    if (!look.Stands()) return look;
    look.modified = look.status.st_mtim;
    mode_t mode = look.status.st_mode;
    look.isLink = S_ISLNK(mode);
    struct stat followed;
    if (look.isLink && FollowedStatus(path, followed) == 0) {
        mode = followed.st_mode;
        look.modified = followed.st_mtim;
    }
    look.isDirectory = S_ISDIR(mode);
    look.isDevice = IsWrittenAsItIs(mode);
    return look;
}

bool IsSameEntry(const Estring& one, const Estring& other) {
    struct stat first, second;
    if (LinkStatus(one, first) != 0 || LinkStatus(other, second) != 0) return false;
    if (IdentityOf(first) != IdentityOf(second)) return false;
    if (S_ISDIR(first.st_mode) || first.st_nlink < 2) return true;  // it has no second name
    const SplitPath a(one), b(other);
    if (strcasecmp(a.name.c_str(), b.name.c_str()) != 0) return false;
    struct stat parentOfFirst, parentOfSecond;
    return FollowedStatus(a.parent.c_str(), parentOfFirst) == 0 &&
           FollowedStatus(b.parent.c_str(), parentOfSecond) == 0 &&
           IdentityOf(parentOfFirst) == IdentityOf(parentOfSecond);
}

}  // namespace zt
