// Hooks of what makes descriptors and what gives them up. Any thread.
#include <fcntl.h>
#include <sys/types.h>

#include <cstdarg>

#include "tests/support/fault_injector/hook.h"

namespace zt::faults {

namespace {

template <class Carry>
int Opened(int directory, const char* path, Carry carry) {
    const int descriptor = Guarded(JudgePath(Call::kOpen, directory, path), carry);
    Watch(descriptor, directory, path);
    return descriptor;
}

mode_t ModeOf(int flags, va_list rest) {
    const bool makes = (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? va_arg(rest, mode_t) : 0;
}

}  // namespace

#define ZT_OPEN(symbol)                                                         \
    ZT_HOOK(int, symbol, const char* path, int flags, ...) {                    \
        ZT_REAL(symbol, int(const char*, int, ...));                            \
        va_list rest;                                                           \
        va_start(rest, flags);                                                  \
        const mode_t mode = ModeOf(flags, rest);                                \
        va_end(rest);                                                           \
        return Opened(AT_FDCWD, path, [&] { return real(path, flags, mode); }); \
    }
#define ZT_OPENAT(symbol)                                                                   \
    ZT_HOOK(int, symbol, int directory, const char* path, int flags, ...) {                 \
        ZT_REAL(symbol, int(int, const char*, int, ...));                                   \
        va_list rest;                                                                       \
        va_start(rest, flags);                                                              \
        const mode_t mode = ModeOf(flags, rest);                                            \
        va_end(rest);                                                                       \
        return Opened(directory, path, [&] { return real(directory, path, flags, mode); }); \
    }
#define ZT_CREAT(symbol)                                                 \
    ZT_HOOK(int, symbol, const char* path, mode_t mode) {                \
        ZT_REAL(symbol, int(const char*, mode_t));                       \
        return Opened(AT_FDCWD, path, [&] { return real(path, mode); }); \
    }
// What the C library's headers make of them when they check more.
#define ZT_OPEN_2(symbol)                                                 \
    ZT_HOOK(int, symbol, const char* path, int flags) {                   \
        ZT_REAL(symbol, int(const char*, int));                           \
        return Opened(AT_FDCWD, path, [&] { return real(path, flags); }); \
    }
#define ZT_OPENAT_2(symbol)                                                           \
    ZT_HOOK(int, symbol, int directory, const char* path, int flags) {                \
        ZT_REAL(symbol, int(int, const char*, int));                                  \
        return Opened(directory, path, [&] { return real(directory, path, flags); }); \
    }

ZT_OPEN(open)
ZT_OPEN(open64)
ZT_OPENAT(openat)
ZT_OPENAT(openat64)
ZT_CREAT(creat)
ZT_CREAT(creat64)
ZT_OPEN_2(__open_2)
ZT_OPEN_2(__open64_2)
ZT_OPENAT_2(__openat_2)
ZT_OPENAT_2(__openat64_2)

// A close that fails has closed nevertheless.
ZT_HOOK(int, close, int descriptor) {
    ZT_REAL(close, int(int));
    const Verdict verdict = JudgeDescriptor(Call::kClose, descriptor);
    Forget(descriptor);
    const int result = real(descriptor);
    return Guarded(verdict, [&] { return result; });
}

ZT_HOOK(int, dup, int descriptor) {
    ZT_REAL(dup, int(int));
    const int copy = real(descriptor);
    WatchAs(copy, descriptor);
    return copy;
}

ZT_HOOK(int, dup2, int descriptor, int copy) {
    ZT_REAL(dup2, int(int, int));
    if (copy != descriptor) Forget(copy);
    const int result = real(descriptor, copy);
    WatchAs(result, descriptor);
    return result;
}

ZT_HOOK(int, dup3, int descriptor, int copy, int flags) {
    ZT_REAL(dup3, int(int, int, int));
    Forget(copy);
    const int result = real(descriptor, copy, flags);
    WatchAs(result, descriptor);
    return result;
}

#define ZT_FCNTL(symbol)                                                                   \
    ZT_HOOK(int, symbol, int descriptor, int command, ...) {                               \
        ZT_REAL(symbol, int(int, int, ...));                                               \
        va_list rest;                                                                      \
        va_start(rest, command);                                                           \
        void* const argument = va_arg(rest, void*);                                        \
        va_end(rest);                                                                      \
        const int result = real(descriptor, command, argument);                            \
        if (command == F_DUPFD || command == F_DUPFD_CLOEXEC) WatchAs(result, descriptor); \
        return result;                                                                     \
    }

ZT_FCNTL(fcntl)
ZT_FCNTL(fcntl64)

}  // namespace zt::faults
