// renameat2, with what stands in for it where a file system has less.
#include "fileops/rename_object.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "fileops/target_look.h"
#include "fileops/temporary_name.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

int RenameWith(const Estring& source, const Estring& target, unsigned flags) {
    auto call = [&] {
        return renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), flags);
    };
    return Uninterrupted(call) < 0 ? errno : 0;
}

// A file system that does not know the flag. EINVAL may mean other things too, and then comes
// again.
bool IsUnknown(int code) {
    return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP;
}

int Unlink(const Estring& path) {
    return Uninterrupted([&] { return unlink(path.c_str()); }) < 0 ? errno : 0;
}

// By a second hard link, or, where there are none, by a look and a renaming.
int RenameNewInSteps(const Estring& source, const Estring& target) {
    struct stat status;
    if (LinkStatus(target, status) == 0) return EEXIST;
    const int examined = LinkStatus(source, status);
    if (examined != 0) return examined;
    if (S_ISREG(status.st_mode)) {
        const bool linked = link(source.c_str(), target.c_str()) == 0;
        if (!linked && errno == EEXIST) return EEXIST;
        if (linked) {
            const int code = Unlink(source);
            if (code != 0) Unlink(target);
            return code;
        }
    }
    return RenameWith(source, target, 0);
}

// The old file goes aside first: the system renames no directory over a file. One that cannot be
// removed then comes back to its place, and nothing is done.
int RenameDirectoryOverFile(const Estring& directory, const Estring& file) {
    int code = RenameWith(directory, file, RENAME_EXCHANGE);
    if (code == 0) {
        code = Unlink(directory);
        if (code != 0) (void)RenameWith(directory, file, RENAME_EXCHANGE);
        return code;
    }
    if (!IsUnknown(code)) return code;
    Estring aside;
    code = MakeTemporary(file, aside, [&](const char* path) { return RenameNew(file, path); });
    if (code != 0) return code;
    code = RenameNew(directory, file);
    if (code == 0) {
        code = Unlink(aside);
        if (code == 0 || RenameNew(file, directory) != 0) return code;
    }
    const int back = RenameNew(aside, file);
    return back != 0 ? back : code;
}

}  // namespace

int RenameNew(const Estring& source, const Estring& target) {
    const int code = RenameWith(source, target, RENAME_NOREPLACE);
    return IsUnknown(code) ? RenameNewInSteps(source, target) : code;
}

int RenameOver(const Estring& source, const Estring& target) {
    struct stat from, to;
    int code = LinkStatus(source, from);
    if (code == 0) code = LinkStatus(target, to);
    if (code == ENOENT) return RenameNew(source, target);
    if (code != 0) return code;
    if (S_ISDIR(to.st_mode)) return EISDIR;
    if (S_ISDIR(from.st_mode)) return RenameDirectoryOverFile(source, target);
    code = RenameWith(source, target, 0);
    if (code != 0 || IdentityOf(from) != IdentityOf(to)) return code;
    // Two names of one file: the system leaves both as they are, and calls that done.
    const bool stands = LinkStatus(source, to) == 0 && IdentityOf(from) == IdentityOf(to);
    return stands && !IsSameEntry(source, target) ? Unlink(source) : 0;
}

}  // namespace zt
