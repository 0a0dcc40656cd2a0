// Hooks of what is asked and set about files: status, rights, times. Any thread.
#include <fcntl.h>
#include <sys/types.h>

#include "tests/support/fault_injector/hook.h"

struct stat;
struct stat64;
struct statx;
struct timespec;
struct timeval;

namespace zt::faults {

#define ZT_STATUS(symbol, type)                                                                    \
    ZT_HOOK(int, symbol, const char* path, struct type* out) {                                     \
        ZT_REAL(symbol, int(const char*, struct type*));                                           \
        return Guarded(JudgePath(Call::kStatus, AT_FDCWD, path), [&] { return real(path, out); }); \
    }
#define ZT_FSTAT(symbol, type)                                     \
    ZT_HOOK(int, symbol, int descriptor, struct type* out) {       \
        ZT_REAL(symbol, int(int, struct type*));                   \
        return Guarded(JudgeDescriptor(Call::kStatus, descriptor), \
                       [&] { return real(descriptor, out); });     \
    }
#define ZT_FSTATAT(symbol, type)                                                      \
    ZT_HOOK(int, symbol, int folder, const char* path, struct type* out, int flags) { \
        ZT_REAL(symbol, int(int, const char*, struct type*, int));                    \
        return Guarded(JudgePath(Call::kStatus, folder, path),                        \
                       [&] { return real(folder, path, out, flags); });               \
    }

ZT_STATUS(stat, stat)
ZT_STATUS(stat64, stat64)
ZT_STATUS(lstat, stat)
ZT_STATUS(lstat64, stat64)
ZT_FSTAT(fstat, stat)
ZT_FSTAT(fstat64, stat64)
ZT_FSTATAT(fstatat, stat)
ZT_FSTATAT(fstatat64, stat64)

ZT_HOOK(int, statx, int folder, const char* path, int flags, unsigned mask, struct statx* out) {
    ZT_REAL(statx, int(int, const char*, int, unsigned, struct statx*));
    return Guarded(JudgePath(Call::kStatus, folder, path),
                   [&] { return real(folder, path, flags, mask, out); });
}

ZT_HOOK(int, access, const char* path, int mode) {
    ZT_REAL(access, int(const char*, int));
    return Guarded(JudgePath(Call::kAccess, AT_FDCWD, path), [&] { return real(path, mode); });
}

ZT_HOOK(int, faccessat, int folder, const char* path, int mode, int flags) {
    ZT_REAL(faccessat, int(int, const char*, int, int));
    return Guarded(JudgePath(Call::kAccess, folder, path),
                   [&] { return real(folder, path, mode, flags); });
}

ZT_HOOK(int, chmod, const char* path, mode_t mode) {
    ZT_REAL(chmod, int(const char*, mode_t));
    return Guarded(JudgePath(Call::kMode, AT_FDCWD, path), [&] { return real(path, mode); });
}

ZT_HOOK(int, fchmod, int descriptor, mode_t mode) {
    ZT_REAL(fchmod, int(int, mode_t));
    return Guarded(JudgeDescriptor(Call::kMode, descriptor),
                   [&] { return real(descriptor, mode); });
}

ZT_HOOK(int, fchmodat, int folder, const char* path, mode_t mode, int flags) {
    ZT_REAL(fchmodat, int(int, const char*, mode_t, int));
    return Guarded(JudgePath(Call::kMode, folder, path),
                   [&] { return real(folder, path, mode, flags); });
}

ZT_HOOK(int, futimens, int descriptor, const timespec* times) {
    ZT_REAL(futimens, int(int, const timespec*));
    return Guarded(JudgeDescriptor(Call::kTime, descriptor),
                   [&] { return real(descriptor, times); });
}

ZT_HOOK(int, utimensat, int folder, const char* path, const timespec* times, int flags) {
    ZT_REAL(utimensat, int(int, const char*, const timespec*, int));
    return Guarded(JudgePath(Call::kTime, folder, path),
                   [&] { return real(folder, path, times, flags); });
}

ZT_HOOK(int, utimes, const char* path, const timeval* times) {
    ZT_REAL(utimes, int(const char*, const timeval*));
    return Guarded(JudgePath(Call::kTime, AT_FDCWD, path), [&] { return real(path, times); });
}

ZT_HOOK(int, truncate, const char* path, off_t size) {
    ZT_REAL(truncate, int(const char*, off_t));
    return Guarded(JudgePath(Call::kTruncate, AT_FDCWD, path), [&] { return real(path, size); });
}

}  // namespace zt::faults
