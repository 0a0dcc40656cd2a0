// Hooks of the listing of folders. Any thread.
#include <fcntl.h>
#include <sys/types.h>

#include "tests/support/fault_injector/hook.h"

struct dirent;
struct dirent64;
struct __dirstream;

namespace zt::faults {

using Stream = __dirstream;

namespace {

int DescriptorOf(Stream* stream) {
    static constinit RealCall<int(Stream*)> real{"dirfd"};
    return real(stream);
}

template <class Entry, class Carry>
Entry* Listed(Stream* stream, Carry carry) {
    const Verdict verdict = JudgeDescriptor(Call::kReadDirectory, DescriptorOf(stream));
    if (verdict.error != 0) {
        errno = verdict.error;
        return nullptr;
    }
    return carry();
}

}  // namespace

ZT_HOOK(Stream*, opendir, const char* path) {
    ZT_REAL(opendir, Stream * (const char*));
    const Verdict verdict = JudgeListing(AT_FDCWD, path);
    if (verdict.error != 0) {
        errno = verdict.error;
        return nullptr;
    }
    Stream* const stream = real(path);
    if (stream) Watch(DescriptorOf(stream), AT_FDCWD, path);
    return stream;
}

ZT_HOOK(Stream*, fdopendir, int descriptor) {
    ZT_REAL(fdopendir, Stream * (int));
    const Verdict verdict = JudgeDescriptor(Call::kOpenDirectory, descriptor);
    if (verdict.error != 0) {
        errno = verdict.error;
        return nullptr;
    }
    return real(descriptor);
}

ZT_HOOK(dirent*, readdir, Stream* stream) {
    ZT_REAL(readdir, dirent * (Stream*));
    return Listed<dirent>(stream, [&] { return real(stream); });
}

ZT_HOOK(dirent64*, readdir64, Stream* stream) {
    ZT_REAL(readdir64, dirent64 * (Stream*));
    return Listed<dirent64>(stream, [&] { return real(stream); });
}

ZT_HOOK(ssize_t, getdents64, int descriptor, void* to, size_t room) {
    ZT_REAL(getdents64, ssize_t(int, void*, size_t));
    return Guarded(JudgeDescriptor(Call::kReadDirectory, descriptor),
                   [&] { return real(descriptor, to, room); });
}

ZT_HOOK(int, closedir, Stream* stream) {
    ZT_REAL(closedir, int(Stream*));
    const int descriptor = DescriptorOf(stream);
    const Verdict verdict = JudgeDescriptor(Call::kClose, descriptor);
    Forget(descriptor);
    const int result = real(stream);
    return Guarded(verdict, [&] { return result; });
}

}  // namespace zt::faults
