// Reading and replacing description files.
#include "fileops/descriptions.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

#include "fileops/description_lines.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

constexpr char kTemporaryName[] = "descript.ion.zt@@@.tmp";
constexpr int kOpenAttempts = 100;
constexpr useconds_t kOpenPauseMicroseconds = 50'000;
constexpr int kLockAttempts = 100;
constexpr useconds_t kLockPauseMicroseconds = 10'000;
constexpr int kUnlinkAttempts = 2;
constexpr off_t kMostBytes = 64 << 20;  // a longer file is none of descriptions
constexpr mode_t kNewFileMode = 0664;

// Owns a descriptor.
class Descriptor {
public:
    explicit Descriptor(int value = -1) : value_(value) {}
    ~Descriptor() { Reset(-1); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    void Reset(int value) {
        if (value_ >= 0) close(value_);
        value_ = value;
    }
    int Release() {
        const int value = value_;
        value_ = -1;
        return value;
    }
    operator int() const { return value_; }

private:
    int value_;
};

// The place of a directory: what its descriptor and a prefix of names make together.
struct Folder {
    int descriptor = AT_FDCWD;
    std::string prefix;  // empty, or with '/' at its end

    std::string PathOf(const char* name) const { return prefix + name; }
};

struct Place {
    Folder folder;
    std::string name;
};

Place PlaceOf(const Westring& path) {
    const std::string bytes = NameToBytes(path).c_str();
    const size_t start = bytes.rfind('/') + 1;  // 0 when there is none
    return {{AT_FDCWD, bytes.substr(0, start)}, bytes.substr(start)};
}

// Only a regular file: opening a FIFO of that name must not wait for its other end. -1 with errno.
int OpenForReading(const Folder& folder) {
    const std::string path = folder.PathOf(kDescriptionFileName);
    Descriptor file(openat(folder.descriptor, path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file < 0) return -1;
    struct stat found;
    if (fstat(file, &found) != 0) return -1;
    if (S_ISREG(found.st_mode)) return file.Release();
    errno = EINVAL;  // ENOENT would say that there is nothing to keep
    return -1;
}

// From its start, wherever it is being read by others.
[[nodiscard]] bool ReadAll(int file, std::string& content) {
    struct stat found;
    if (fstat(file, &found) != 0 || !S_ISREG(found.st_mode)) return false;
    if (found.st_size > kMostBytes) return false;
    content.resize(static_cast<size_t>(found.st_size));
    size_t done = 0;
    while (done < content.size()) {
        const ssize_t got =
            pread(file, content.data() + done, content.size() - done, static_cast<off_t>(done));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        done += static_cast<size_t>(got);
    }
    content.resize(done);
    return true;
}

[[nodiscard]] bool WriteAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        content.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

// The file that is to take the description file's name. Whoever holds its lock is the only one who
// changes the descriptions of the directory.
class Replacement {
public:
    explicit Replacement(const Folder& folder)
        : folder_(folder), path_(folder.PathOf(kTemporaryName)) {}
    ~Replacement() {
        if (file_ < 0 || isRenamed_) return;
        // What is left over would keep its directory from going: one failure is not the end.
        for (int i = 0; i < kUnlinkAttempts; i++) {
            if (unlinkat(folder_.descriptor, path_.c_str(), 0) == 0 || errno == ENOENT) break;
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    [[nodiscard]] bool Open() {
        for (int i = 0; i < kLockAttempts; i++) {
            if (TryOpen()) return ftruncate(file_, 0) == 0;
            if (file_ < 0) return false;
            file_.Reset(-1);
            usleep(kLockPauseMicroseconds);
        }
        return false;
    }
    // `old` is the file that is replaced, or below 0.
    [[nodiscard]] bool Commit(std::string_view content, int old) {
        struct stat found;
        if (old >= 0 && fstat(old, &found) == 0) TakeAfter(found);
        if (!WriteAll(file_, content)) return false;
        const std::string target = folder_.PathOf(kDescriptionFileName);
        isRenamed_ =
            renameat(folder_.descriptor, path_.c_str(), folder_.descriptor, target.c_str()) == 0;
        return isRenamed_;
    }

private:
    // False with the file open: another program is at it.
    bool TryOpen() {
        constexpr int kFlags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        file_.Reset(openat(folder_.descriptor, path_.c_str(), kFlags, kNewFileMode));
        if (file_ < 0 || flock(file_, LOCK_EX | LOCK_NB) != 0) return false;
        struct stat held, named;
        return fstat(file_, &held) == 0 && S_ISREG(held.st_mode) &&
               fstatat(folder_.descriptor, path_.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
               held.st_ino == named.st_ino && held.st_dev == named.st_dev;
    }
    // Where the owner cannot be kept the file belongs to its writer, as any new file does.
    void TakeAfter(const struct stat& found) {
        static_cast<void>(fchown(file_, found.st_uid, found.st_gid) == 0);
        static_cast<void>(fchmod(file_, found.st_mode & 07777) == 0);
    }

    const Folder& folder_;
    const std::string path_;
    Descriptor file_;
    bool isRenamed_ = false;
};

// A description file that is a link or no file is not replaced.
bool IsReplaceable(const Folder& folder) {
    struct stat found;
    const std::string path = folder.PathOf(kDescriptionFileName);
    if (fstatat(folder.descriptor, path.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT;
    return S_ISREG(found.st_mode);
}

// Puts what `change` makes of the directory's descriptions in their place. False when that failed
// and they are as they were.
[[nodiscard]] bool Rewrite(const Folder& folder,
                           const std::function<std::string(std::string_view)>& change) {
    Replacement replacement(folder);
    if (!IsReplaceable(folder) || !replacement.Open()) return false;
    std::string content;
    const Descriptor old(OpenForReading(folder));
    if (old < 0 && errno != ENOENT) return false;
    if (old >= 0 && !ReadAll(old, content)) return false;
    const std::string changed = change(content);
    if (changed == content) return true;
    if (!changed.empty()) return replacement.Commit(changed, old);
    return unlinkat(folder.descriptor, folder.PathOf(kDescriptionFileName).c_str(), 0) == 0;
}

void RemoveNames(const Folder& folder, const std::unordered_set<std::string>& names) {
    const Descriptor file(OpenForReading(folder));
    std::string content;
    if (file < 0 || !ReadAll(file, content)) return;
    if (WithoutDescriptions(content, names) == content) return;
    // What cannot be written stays: a line too many does no harm.
    static_cast<void>(
        Rewrite(folder, [&](std::string_view text) { return WithoutDescriptions(text, names); }));
}

// True when the target's directory has the line.
[[nodiscard]] bool Carry(const Westring& source, const Westring& target, StdFile& descriptions) {
    std::string content;
    if (!descriptions.IsOpen() || !ReadAll(descriptions.Handle(), content)) return false;
    const DescriptionLine line = FindDescription(content, PlaceOf(source).name);
    const Place to = PlaceOf(target);
    std::string written;
    if (line.whole.empty() || !WrittenName(to.name, written)) return false;
    return Rewrite(to.folder, [&](std::string_view text) {
        return WithDescription(text, to.name, written, line.rest);
    });
}

}  // namespace

bool OpenDescriptions(StdFile& file, const Westring& directory) {
    file.Close();
    Folder folder;
    if (!directory.IsEmpty()) folder.prefix = std::string(NameToBytes(directory).c_str()) + '/';
    int descriptor = OpenForReading(folder);
    for (int i = 1; descriptor < 0 && errno == EACCES && i < kOpenAttempts; i++) {
        usleep(kOpenPauseMicroseconds);
        descriptor = OpenForReading(folder);
    }
    return descriptor >= 0 && file.Attach(descriptor) == 0;
}

void CarryDescription(const Westring& source, const Westring& target, StdFile& descriptions) {
    static_cast<void>(Carry(source, target, descriptions));
}

void CarryAndRemoveDescription(const Westring& source, const Westring& target,
                               StdFile& descriptions) {
    if (Carry(source, target, descriptions)) RemoveDescription(source);
}

void RemoveDescription(const Westring& path) {
    const Place place = PlaceOf(path);
    RemoveNames(place.folder, {place.name});
}

bool HasDescriptions(int directory) {
    return faccessat(directory, kDescriptionFileName, F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

void DescriptionRemovals::Apply(int directory) {
    if (!names_.empty()) RemoveNames({directory, ""}, names_);
    names_.clear();
}

}  // namespace zt
