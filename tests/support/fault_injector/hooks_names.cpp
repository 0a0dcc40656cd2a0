// Hooks of what makes, changes and takes away names. Any thread.
#include <fcntl.h>
#include <sys/types.h>

#include "tests/support/fault_injector/hook.h"

namespace zt::faults {

ZT_HOOK(int, rename, const char* from, const char* to) {
    ZT_REAL(rename, int(const char*, const char*));
    return Guarded(JudgePaths(Call::kRename, AT_FDCWD, from, AT_FDCWD, to),
                   [&] { return real(from, to); });
}

ZT_HOOK(int, renameat, int fromFolder, const char* from, int toFolder, const char* to) {
    ZT_REAL(renameat, int(int, const char*, int, const char*));
    return Guarded(JudgePaths(Call::kRename, fromFolder, from, toFolder, to),
                   [&] { return real(fromFolder, from, toFolder, to); });
}

ZT_HOOK(int, renameat2, int fromFolder, const char* from, int toFolder, const char* to,
        unsigned flags) {
    ZT_REAL(renameat2, int(int, const char*, int, const char*, unsigned));
    return Guarded(JudgePaths(Call::kRename, fromFolder, from, toFolder, to),
                   [&] { return real(fromFolder, from, toFolder, to, flags); });
}

ZT_HOOK(int, link, const char* from, const char* to) {
    ZT_REAL(link, int(const char*, const char*));
    return Guarded(JudgePaths(Call::kLink, AT_FDCWD, from, AT_FDCWD, to),
                   [&] { return real(from, to); });
}

ZT_HOOK(int, linkat, int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    ZT_REAL(linkat, int(int, const char*, int, const char*, int));
    return Guarded(JudgePaths(Call::kLink, fromFolder, from, toFolder, to),
                   [&] { return real(fromFolder, from, toFolder, to, flags); });
}

ZT_HOOK(int, symlink, const char* text, const char* path) {
    ZT_REAL(symlink, int(const char*, const char*));
    return Guarded(JudgePath(Call::kSymlink, AT_FDCWD, path), [&] { return real(text, path); });
}

ZT_HOOK(int, symlinkat, const char* text, int folder, const char* path) {
    ZT_REAL(symlinkat, int(const char*, int, const char*));
    return Guarded(JudgePath(Call::kSymlink, folder, path),
                   [&] { return real(text, folder, path); });
}

ZT_HOOK(int, unlink, const char* path) {
    ZT_REAL(unlink, int(const char*));
    return Guarded(JudgePath(Call::kUnlink, AT_FDCWD, path), [&] { return real(path); });
}

ZT_HOOK(int, unlinkat, int folder, const char* path, int flags) {
    ZT_REAL(unlinkat, int(int, const char*, int));
    const Call call = flags & AT_REMOVEDIR ? Call::kRemoveDirectory : Call::kUnlink;
    return Guarded(JudgePath(call, folder, path), [&] { return real(folder, path, flags); });
}

ZT_HOOK(int, remove, const char* path) {
    ZT_REAL(remove, int(const char*));
    return Guarded(JudgePath(Call::kUnlink, AT_FDCWD, path), [&] { return real(path); });
}

ZT_HOOK(int, mkdir, const char* path, mode_t mode) {
    ZT_REAL(mkdir, int(const char*, mode_t));
    return Guarded(JudgePath(Call::kMakeDirectory, AT_FDCWD, path),
                   [&] { return real(path, mode); });
}

ZT_HOOK(int, mkdirat, int folder, const char* path, mode_t mode) {
    ZT_REAL(mkdirat, int(int, const char*, mode_t));
    return Guarded(JudgePath(Call::kMakeDirectory, folder, path),
                   [&] { return real(folder, path, mode); });
}

ZT_HOOK(int, rmdir, const char* path) {
    ZT_REAL(rmdir, int(const char*));
    return Guarded(JudgePath(Call::kRemoveDirectory, AT_FDCWD, path), [&] { return real(path); });
}

ZT_HOOK(int, mknod, const char* path, mode_t mode, dev_t device) {
    ZT_REAL(mknod, int(const char*, mode_t, dev_t));
    return Guarded(JudgePath(Call::kMakeNode, AT_FDCWD, path),
                   [&] { return real(path, mode, device); });
}

ZT_HOOK(int, mknodat, int folder, const char* path, mode_t mode, dev_t device) {
    ZT_REAL(mknodat, int(int, const char*, mode_t, dev_t));
    return Guarded(JudgePath(Call::kMakeNode, folder, path),
                   [&] { return real(folder, path, mode, device); });
}

ZT_HOOK(ssize_t, readlink, const char* path, char* to, size_t room) {
    ZT_REAL(readlink, ssize_t(const char*, char*, size_t));
    return Guarded(JudgePath(Call::kReadLink, AT_FDCWD, path),
                   [&] { return real(path, to, room); });
}

ZT_HOOK(ssize_t, readlinkat, int folder, const char* path, char* to, size_t room) {
    ZT_REAL(readlinkat, ssize_t(int, const char*, char*, size_t));
    return Guarded(JudgePath(Call::kReadLink, folder, path),
                   [&] { return real(folder, path, to, room); });
}

}  // namespace zt::faults
