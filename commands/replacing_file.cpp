#include "commands/replacing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "foundation/file_name.h"

namespace zt {

namespace {

constexpr wchar_t kTemporaryEnd[] = L"!!!";
constexpr int kTemporaryEndLength = 3;
constexpr mode_t kNewFileMode = 0664;
constexpr int kOpenTries = 10;

// Why a file that is there cannot be replaced; 0 for an ordinary file, a link and for none.
int Irreplaceable(const char* path) {
    struct stat found = {};
    if (lstat(path, &found) != 0 || S_ISREG(found.st_mode) || S_ISLNK(found.st_mode)) return 0;
    return S_ISDIR(found.st_mode) ? EISDIR : EOPNOTSUPP;
}

// Some file systems have nothing to bring to a disk, and say so.
bool BringToDisk(int descriptor) {
    return fsync(descriptor) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
}

// Makes a new name in the directory last, as far as the file system lets us.
void BringNameToDisk(const Estring& path) {
    Estring directory = path.Left(path.FindLast('/') + 1);
    if (directory.IsEmpty()) directory = ".";
    const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    static_cast<void>(fsync(descriptor));
    close(descriptor);
}

}  // namespace

ReplacingFile::~ReplacingFile() {
    if (descriptor_ < 0) return;
    unlink(temporary_.c_str());
    Close();
}

Westring ReplacingFile::TemporaryName(const Westring& target) {
    const int nameStart = target.FindLast('/') + 1;
    const int nameLength = target.Length() - nameStart;
    const int replaced = nameLength < kTemporaryEndLength ? nameLength : kTemporaryEndLength;
    Westring name = target.DropRight(replaced) + kTemporaryEnd;
    if (target.Right(nameLength) == name.Right(name.Length() - nameStart)) name += L'!';
    return name;
}

int ReplacingFile::Open(const Westring& target) {
    target_ = NameToBytes(target);
    temporary_ = NameToBytes(TemporaryName(target));
    if (const int reason = Irreplaceable(target_.c_str())) return reason;
    for (int i = 0; i < kOpenTries; i++) {
        int result = OpenTemporary();
        if (result == 0) result = LockedAndNamed();
        if (result == 0 && ftruncate(descriptor_, 0) != 0) result = errno;
        if (result == 0) {
            TakeModeOf(target_.c_str());
            return 0;
        }
        Close();
        if (result != ESTALE) return result;
    }
    return EAGAIN;
}

// A left-over of an earlier time is taken over, unless it is a link or anything else odd.
int ReplacingFile::OpenTemporary() {
    if (const int reason = Irreplaceable(temporary_.c_str())) return reason;
    constexpr int kFlags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    descriptor_ = open(temporary_.c_str(), kFlags, kNewFileMode);
    if (descriptor_ < 0 && errno == ELOOP && unlink(temporary_.c_str()) == 0) return ESTALE;
    return descriptor_ < 0 ? errno : 0;
}

// Two programs may save at the same time: only the one that holds the lock writes, and only into
// the file that still has the name. ESTALE when the other one has just renamed it.
int ReplacingFile::LockedAndNamed() const {
    if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return EAGAIN;
    struct stat held = {};
    struct stat named = {};
    if (fstat(descriptor_, &held) != 0) return errno;
    if (lstat(temporary_.c_str(), &named) != 0) return ESTALE;
    return held.st_ino == named.st_ino && held.st_dev == named.st_dev ? 0 : ESTALE;
}

void ReplacingFile::TakeModeOf(const char* path) const {
    struct stat found = {};
    if (lstat(path, &found) != 0 || !S_ISREG(found.st_mode)) return;
    // Where this fails the file belongs to its writer, as any new file does.
    static_cast<void>(fchown(descriptor_, found.st_uid, found.st_gid) == 0 &&
                      fchmod(descriptor_, found.st_mode & 07777) == 0);
}

int ReplacingFile::WriteOut(const char* bytes, int n) const {
    while (n > 0) {
        const ssize_t written = write(descriptor_, bytes, static_cast<size_t>(n));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        bytes += written;
        n -= static_cast<int>(written);
    }
    return 0;
}

int ReplacingFile::Commit(const Estring& text) {
    if (descriptor_ < 0) return EBADF;
    if (const int result = WriteOut(text.c_str(), text.Length())) return result;
    if (!BringToDisk(descriptor_)) return errno;
    int result = Irreplaceable(target_.c_str());
    if (result == 0 && rename(temporary_.c_str(), target_.c_str()) != 0) result = errno;
    if (result == 0) BringNameToDisk(target_);
    Close();
    return result;
}

void ReplacingFile::Close() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
}

}  // namespace zt
