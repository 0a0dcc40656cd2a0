// Hooks of what moves bytes and what belongs to an open file. Any thread.
#include <sys/types.h>

#include <cstdarg>

#include "tests/support/fault_injector/hook.h"

struct iovec;

namespace zt::faults {

ZT_HOOK(ssize_t, read, int descriptor, void* to, size_t n) {
    ZT_REAL(read, ssize_t(int, void*, size_t));
    return Transferred(JudgeDescriptor(Call::kRead, descriptor), n,
                       [&](size_t some) { return real(descriptor, to, some); });
}

ZT_HOOK(ssize_t, __read_chk, int descriptor, void* to, size_t n, size_t room) {
    ZT_REAL(__read_chk, ssize_t(int, void*, size_t, size_t));
    return Transferred(JudgeDescriptor(Call::kRead, descriptor), n,
                       [&](size_t some) { return real(descriptor, to, some, room); });
}

ZT_HOOK(ssize_t, write, int descriptor, const void* from, size_t n) {
    ZT_REAL(write, ssize_t(int, const void*, size_t));
    return Transferred(JudgeDescriptor(Call::kWrite, descriptor), n,
                       [&](size_t some) { return real(descriptor, from, some); });
}

#define ZT_PREAD(symbol)                                                                     \
    ZT_HOOK(ssize_t, symbol, int descriptor, void* to, size_t n, off_t offset) {             \
        ZT_REAL(symbol, ssize_t(int, void*, size_t, off_t));                                 \
        return Transferred(JudgeDescriptor(Call::kRead, descriptor), n,                      \
                           [&](size_t some) { return real(descriptor, to, some, offset); }); \
    }
#define ZT_PWRITE(symbol)                                                                      \
    ZT_HOOK(ssize_t, symbol, int descriptor, const void* from, size_t n, off_t offset) {       \
        ZT_REAL(symbol, ssize_t(int, const void*, size_t, off_t));                             \
        return Transferred(JudgeDescriptor(Call::kWrite, descriptor), n,                       \
                           [&](size_t some) { return real(descriptor, from, some, offset); }); \
    }

ZT_PREAD(pread)
ZT_PREAD(pread64)
ZT_PWRITE(pwrite)
ZT_PWRITE(pwrite64)

// These cannot be shortened without looking into the parts; they fail or succeed.
ZT_HOOK(ssize_t, readv, int descriptor, const iovec* parts, int count) {
    ZT_REAL(readv, ssize_t(int, const iovec*, int));
    return Guarded(JudgeDescriptor(Call::kRead, descriptor),
                   [&] { return real(descriptor, parts, count); });
}

ZT_HOOK(ssize_t, writev, int descriptor, const iovec* parts, int count) {
    ZT_REAL(writev, ssize_t(int, const iovec*, int));
    return Guarded(JudgeDescriptor(Call::kWrite, descriptor),
                   [&] { return real(descriptor, parts, count); });
}

#define ZT_SEEK(symbol)                                                 \
    ZT_HOOK(off_t, symbol, int descriptor, off_t offset, int from) {    \
        ZT_REAL(symbol, off_t(int, off_t, int));                        \
        return Guarded(JudgeDescriptor(Call::kSeek, descriptor),        \
                       [&] { return real(descriptor, offset, from); }); \
    }

ZT_SEEK(lseek)
ZT_SEEK(lseek64)

#define ZT_SYNC(symbol)                                          \
    ZT_HOOK(int, symbol, int descriptor) {                       \
        ZT_REAL(symbol, int(int));                               \
        return Guarded(JudgeDescriptor(Call::kSync, descriptor), \
                       [&] { return real(descriptor); });        \
    }

ZT_SYNC(fsync)
ZT_SYNC(fdatasync)
ZT_SYNC(syncfs)

#define ZT_FTRUNCATE(symbol)                                         \
    ZT_HOOK(int, symbol, int descriptor, off_t size) {               \
        ZT_REAL(symbol, int(int, off_t));                            \
        return Guarded(JudgeDescriptor(Call::kTruncate, descriptor), \
                       [&] { return real(descriptor, size); });      \
    }
#define ZT_FALLOCATE(symbol)                                                   \
    ZT_HOOK(int, symbol, int descriptor, int mode, off_t offset, off_t size) { \
        ZT_REAL(symbol, int(int, int, off_t, off_t));                          \
        return Guarded(JudgeDescriptor(Call::kTruncate, descriptor),           \
                       [&] { return real(descriptor, mode, offset, size); });  \
    }

ZT_FTRUNCATE(ftruncate)
ZT_FTRUNCATE(ftruncate64)
ZT_FALLOCATE(fallocate)
ZT_FALLOCATE(fallocate64)

// Copies within the system count for the file that they read.
ZT_HOOK(ssize_t, copy_file_range, int from, off_t* fromOffset, int to, off_t* toOffset, size_t n,
        unsigned flags) {
    ZT_REAL(copy_file_range, ssize_t(int, off_t*, int, off_t*, size_t, unsigned));
    return Transferred(JudgeDescriptor(Call::kCopyRange, from), n, [&](size_t some) {
        return real(from, fromOffset, to, toOffset, some, flags);
    });
}

#define ZT_SENDFILE(symbol)                                                            \
    ZT_HOOK(ssize_t, symbol, int to, int from, off_t* offset, size_t n) {              \
        ZT_REAL(symbol, ssize_t(int, int, off_t*, size_t));                            \
        return Transferred(JudgeDescriptor(Call::kCopyRange, from), n,                 \
                           [&](size_t some) { return real(to, from, offset, some); }); \
    }

ZT_SENDFILE(sendfile)
ZT_SENDFILE(sendfile64)

ZT_HOOK(ssize_t, splice, int from, off_t* fromOffset, int to, off_t* toOffset, size_t n,
        unsigned flags) {
    ZT_REAL(splice, ssize_t(int, off_t*, int, off_t*, size_t, unsigned));
    return Transferred(JudgeDescriptor(Call::kCopyRange, from), n, [&](size_t some) {
        return real(from, fromOffset, to, toOffset, some, flags);
    });
}

ZT_HOOK(int, ioctl, int descriptor, unsigned long request, ...) {
    ZT_REAL(ioctl, int(int, unsigned long, ...));
    va_list rest;
    va_start(rest, request);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    return Guarded(JudgeDescriptor(Call::kControl, descriptor),
                   [&] { return real(descriptor, request, argument); });
}

}  // namespace zt::faults
