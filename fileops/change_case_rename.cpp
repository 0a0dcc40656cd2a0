// renameat2, and what to do where a file system or the case of names stands in its way.
#include "fileops/change_case_rename.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "foundation/file_name.h"

namespace zt {

namespace {

// Whether the directory lists exactly this name. Looking the name up would not tell, where another
// case of it is found as well. A directory that cannot be listed counts as one that has it.
bool IsListed(const Westring& path) {
    const Westring directory = ParentOfPath(path);
    DIR* stream = opendir(directory.IsEmpty() ? "." : NameToBytes(directory).c_str());
    if (!stream) return true;
    const Estring name = NameToBytes(NameOfPath(path));
    bool found = false;
    while (const struct dirent64* listed = readdir64(stream)) {
        if (strcmp(listed->d_name, name.c_str()) != 0) continue;
        found = true;
        break;
    }
    closedir(stream);
    return found;
}

// Two names of one object are either two links to it, or one link found under either case.
bool IsOneName(const Westring& oldPath, const Westring& newPath) {
    struct stat before, after;
    if (lstat(NameToBytes(oldPath).c_str(), &before) != 0) return false;
    if (lstat(NameToBytes(newPath).c_str(), &after) != 0) return false;
    const bool isOneObject = before.st_dev == after.st_dev && before.st_ino == after.st_ino;
    return isOneObject && !(IsListed(oldPath) && IsListed(newPath));
}

bool Exists(const Westring& path) {
    struct stat found;
    return lstat(NameToBytes(path).c_str(), &found) == 0;
}

}  // namespace

int RenameWithoutReplacing(const Westring& oldPath, const Westring& newPath) {
    const Estring from = NameToBytes(oldPath);
    const Estring to = NameToBytes(newPath);
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    const int error = errno;
    const bool isUnknown = error == EINVAL || error == ENOSYS || error == ENOTSUP;
    if (!isUnknown && error != EEXIST) return error;
    if (Exists(newPath) && !IsOneName(oldPath, newPath)) return EEXIST;
    return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace zt
