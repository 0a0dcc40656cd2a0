// Compares names by their parts, and directories by walking up to the root.
#include "fileops/inside_itself.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cwchar>

#include "fileops/target_look.h"

namespace zt {

namespace {

constexpr int kFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

}  // namespace

bool PathLiesIn(const Westring& path, const Westring& directory) {
    Westring whole = directory;
    whole.RemoveTrailingSlash();
    const int length = whole.Length();
    if (wcsncmp(path.c_str(), whole.c_str(), static_cast<size_t>(length)) != 0) return false;
    return path[length] == 0 || path[length] == '/';
}

bool LeadsInto(const Estring& path, const FileIdentity& directory) {
    int at = open(path.c_str(), kFlags);
    if (at < 0) {
        const Estring parent = path.Left(path.FindLast('/') + 1);
        at = open(parent.IsEmpty() ? "." : parent.c_str(), kFlags);
    }
    bool found = false;
    FileIdentity last;
    for (int level = 0; at >= 0 && level < PATH_MAX; level++) {
        struct stat status;
        if (fstat(at, &status) != 0) break;
        found = IdentityOf(status) == directory;
        if (found || IdentityOf(status) == last) break;
        last = IdentityOf(status);
        const int above = openat(at, "..", kFlags);
        close(at);
        at = above;
    }
    if (at >= 0) close(at);
    return found;
}

}  // namespace zt
