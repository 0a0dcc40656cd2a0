// Opening and reading the source of a copy.
#include "fileops/copy_source.h"

#include <fcntl.h>
#include <poll.h>

#include <cerrno>

#include "fileops/abort_guard.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

constexpr int kWaitMilliseconds = 50;
constexpr int kMostReadFailures = 3;

}  // namespace

int WaitReady(FileOperation& operation, int descriptor, short events) {
    for (;;) {
        if (AbortGuard::Asked(operation)) return kCancelled;
        pollfd wait{descriptor, events, 0};
        const int ready = poll(&wait, 1, kWaitMilliseconds);
        if (ready > 0 || (ready == 0 && descriptor < 0)) return kDone;
        if (ready < 0 && errno != EINTR) return errno;
    }
}

int CopySource::OpenOnce(const char* path) {
    const int descriptor = Uninterrupted([&] { return open(path, systemFlags_); });
    return descriptor < 0 ? errno : file_.Attach(descriptor);
}

// Another program's lease on the file ends when it gives it back, or after a time that the system
// sets.
int CopySource::OpenPatiently(const char* path) {
    for (;;) {
        const int code = OpenOnce(path);
        if (code != EAGAIN) return code;
        const int waited = WaitReady(operation_, -1, 0);
        if (waited != kDone) return waited;
    }
}

int CopySource::Open(const Estring& path, const struct stat& found, bool evenWhenWritten,
                     bool followLinks) {
    systemFlags_ = O_RDONLY | O_CLOEXEC | O_NOCTTY;
    // A drive is asked for its medium; anything else is opened without waiting.
    if (!S_ISBLK(found.st_mode)) systemFlags_ |= O_NONBLOCK;
    if (!followLinks) systemFlags_ |= O_NOFOLLOW;
    int code = evenWhenWritten ? OpenPatiently(path.c_str()) : OpenOnce(path.c_str());
    if (!evenWhenWritten && (code == EACCES || code == EAGAIN)) {
        code = OpenPatiently(path.c_str());
        if (code == kDone) {
            file_.Close();
            return kOpenForWriting;
        }
    }
    if (code == kDone) code = Examine(status_);
    waits_ = !S_ISREG(status_.st_mode) && !S_ISBLK(status_.st_mode);
    return code;
}

int CopySource::Examine(struct stat& now) const {
    return Uninterrupted([&] { return fstat(file_.Handle(), &now); }) < 0 ? errno : 0;
}

int CopySource::AskAboutReadError() {
    int code = EIO;
    bool stop = true;
    operation_.user.TellError(progress_, code, stop, name_, Westring());
    if (stop) {
        operation_.toldReadError = true;
        return code;
    }
    failures_ = 0;
    if (progress_) progress_->Start();
    return kDone;
}

int CopySource::Read(char* block, int size, int* got) {
    *got = 0;
    for (;;) {
        // A FIFO that nobody has written to yet reads as one that is at its end.
        int code = waits_ ? WaitReady(operation_, file_.Handle(), POLLIN) : kDone;
        if (code != kDone) return code;
        code = file_.Read(block, size, got);
        if (*got > 0 || code == StdFile::kEndOfFile) {
            if (*got > 0) failures_ = 0;
            // What came before a failure counts; the failure comes again at the next read.
            if (code != kDone) file_.Flush();
            return kDone;
        }
        file_.Flush();  // takes the failure back
        if (code == EIO) code = ++failures_ < kMostReadFailures ? kDone : AskAboutReadError();
        if (code == EAGAIN && waits_) code = kDone;
        if (code != kDone) return code;
    }
}

}  // namespace zt
