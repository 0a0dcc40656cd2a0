// Temporary file beside the target, the target in place, or a device.
#include "fileops/new_target.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "fileops/abort_guard.h"
#include "fileops/copy_block.h"
#include "fileops/copy_source.h"
#include "fileops/rename_object.h"
#include "fileops/temporary_name.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

constexpr mode_t kPrivateFile = 0600;
constexpr mode_t kPermissions = 07777;

// The directory has no room for another name, or for this one.
bool IsRefusal(int code) {
    return code == EACCES || code == EPERM || code == EROFS;
}

// What some file systems cannot do at all is no failure of the copy.
bool IsBeyondTheFileSystem(int code) {
    return code == EPERM || code == EACCES || code == EINVAL || code == ENOSYS ||
           code == EOPNOTSUPP || code == EROFS;
}

// The disk begins at once, and nobody waits for it. The end of this program loses nothing: the
// system has the data by now. Only a power cut could, in the seconds until the disk has it, and
// this keeps them few; to wait for each file would make the moving of many small ones many times
// slower. Where it cannot be done, the system writes in its own time.
void StartWritingBack(int descriptor) {
    (void)sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
}

// Rights to act as the owner or group count only for the owner and group that gave them.
mode_t ModeFor(const struct stat& source, int descriptor) {
    mode_t mode = source.st_mode & kPermissions;
    if ((mode & (S_ISUID | S_ISGID)) == 0) return mode;
    struct stat own;
    if (fstat(descriptor, &own) != 0) return mode & ~static_cast<mode_t>(S_ISUID | S_ISGID);
    if (own.st_uid != source.st_uid) mode &= ~static_cast<mode_t>(S_ISUID);
    if (own.st_gid != source.st_gid) mode &= ~static_cast<mode_t>(S_ISGID);
    return mode;
}

}  // namespace

int NewTarget::Open() {
    if (look_.Stands() && look_.isDevice) return OpenDevice();
    int code = OpenBeside();
    if (IsRefusal(code) && replaces_ && look_.Stands()) {
        const int inPlace = OpenInPlace();
        if (inPlace != ELOOP) code = inPlace;
    }
    return code;
}

int NewTarget::OpenBeside() {
    const auto make = [this](const char* path) {
        constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
        const int made = Uninterrupted([&] { return open(path, kFlags, kPrivateFile); });
        return made < 0 ? errno : file_.Attach(made);
    };
    int code = MakeTemporary(path_, temporary_, make);
    if (code == ENAMETOOLONG) code = MakeTemporary(ShortPath(), temporary_, make);
    if (code == kDone) how_ = How::kBeside;
    return code;
}

// The target by way of its open directory: a path that is as long as paths may be has no room for
// a temporary name.
Estring NewTarget::ShortPath() {
    const int cut = path_.FindLast('/') + 1;
    constexpr int kFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    if (cut > 0) directory_ = open(path_.Left(cut).c_str(), kFlags);
    if (directory_ < 0) return path_;
    return Estring::Format("/proc/self/fd/%d/", directory_) + path_.Mid(cut);
}

// Never through a link: what that points to is not what the user agreed to lose.
int NewTarget::OpenInPlace() {
    constexpr int kFlags = O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NOCTTY | O_NONBLOCK;
    const int found = Uninterrupted([&] { return open(path_.c_str(), kFlags); });
    if (found < 0) return errno;
    int code = file_.Attach(found);
    struct stat status;
    if (code == kDone && fstat(file_.Handle(), &status) != 0) code = errno;
    if (code == kDone && IdentityOf(status) != look_.Identity()) code = EEXIST;
    if (code == kDone) code = file_.Truncate(0);
    if (code == kDone) how_ = How::kInPlace;
    return code;
}

int NewTarget::OpenDevice() {
    int flags = O_CLOEXEC | O_NOCTTY;
    const mode_t mode = look_.isLink ? 0 : look_.status.st_mode;
    if (!S_ISBLK(mode)) flags |= O_NONBLOCK;
    for (;;) {
        const int found = Uninterrupted([&] { return open(path_.c_str(), flags | O_WRONLY); });
        if (found >= 0) {
            how_ = How::kDevice;
            return file_.Attach(found);
        }
        // Nobody reads the FIFO yet; a socket cannot be written in this way at all.
        struct stat status;
        if (errno != ENXIO) return errno;
        if (FollowedStatus(path_, status) != 0 || !S_ISFIFO(status.st_mode)) return ENXIO;
        const int waited = WaitReady(operation_, -1, 0);
        if (waited != kDone) return waited;
    }
}

int NewTarget::Write(const char* block, int n) {
    return IsDevice() ? WriteToDevice(block, n) : file_.Write(block, n);
}

int NewTarget::WriteToDevice(const char* block, int n) {
    while (n > 0) {
        const ssize_t written =
            Uninterrupted([&] { return write(file_.Handle(), block, static_cast<size_t>(n)); });
        if (written > 0) {
            block += written;
            n -= static_cast<int>(written);
            continue;
        }
        if (written == 0) return ENOSPC;
        if (errno != EAGAIN) return errno;
        const int waited = WaitReady(operation_, file_.Handle(), POLLOUT);
        if (waited != kDone) return waited;
    }
    return kDone;
}

int NewTarget::SetModeAndTime(const struct stat& source) {
    const timespec times[2] = {{0, UTIME_NOW}, source.st_mtim};
    int code = Uninterrupted([&] { return futimens(file_.Handle(), times); }) < 0 ? errno : 0;
    if (code != 0 && !IsBeyondTheFileSystem(code)) return code;
    const mode_t mode = ModeFor(source, file_.Handle());
    code = Uninterrupted([&] { return fchmod(file_.Handle(), mode); }) < 0 ? errno : 0;
    return IsBeyondTheFileSystem(code) ? kDone : code;
}

int NewTarget::Finish(const struct stat& source, bool hurries) {
    source_ = source;
    if (!IsDevice()) {
        int code = file_.Flush();
        if (code == kDone) code = SetModeAndTime(source);
        if (code != kDone) return code;
        if (hurries) StartWritingBack(file_.Handle());
    }
    return file_.Close();
}

int NewTarget::Commit() {
    int code = kDone;
    if (how_ == How::kBeside) {
        code = replaces_ && look_.Stands() ? RenameOver(temporary_, path_)
                                           : RenameNew(temporary_, path_);
        // A name that may not change though its file may: one of another user in a directory for
        // all, or a mount point.
        const bool refused = IsRefusal(code) || code == EBUSY;
        if (refused && replaces_ && look_.Stands() && !look_.isLink) return CopyOver();
    }
    if (code == kDone) how_ = How::kNone;
    return code;
}

// Writes what the temporary file holds into the target itself.
int NewTarget::CopyOver() {
    const Estring temporary = temporary_;
    StdFile from;
    int code = from.Open(temporary.c_str(), 0);
    if (code == kDone) code = OpenInPlace();
    while (code == kDone) {
        int got = 0;
        code = from.Read(CopyBlock(operation_), kCopyBlockBytes, &got);
        if (code == StdFile::kEndOfFile) break;
        if (code == kDone) code = file_.Write(CopyBlock(operation_), got);
        if (code == kDone && AbortGuard::Asked(operation_)) code = kCancelled;
    }
    if (code == StdFile::kEndOfFile) code = Finish(source_, false);
    how_ = How::kBeside;  // which is what goes now, one way or the other
    Abandon();
    return code;
}

int NewTarget::Abandon() {
    if (how_ == How::kNone) return kDone;
    file_.Close();
    int code = kDone;
    if (how_ == How::kBeside) {
        const int gone = Uninterrupted([this] { return unlink(temporary_.c_str()); });
        if (gone < 0 && errno != ENOENT) code = errno;
    }
    how_ = How::kNone;
    return code;
}

NewTarget::~NewTarget() {
    Abandon();
    if (directory_ >= 0) close(directory_);
}

}  // namespace zt
