// The walk. A directory is read to its end when it is entered: its files are added up, the names of
// its subdirectories are put on a stack. So nothing of a directory need be kept open but its
// descriptor, and that only to reach the subdirectories; of a deep way down the outer descriptors
// are closed, and had again through ".." on the way back.
#include "panels/directory_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cstring>
#include <utility>

#include "foundation/file_name.h"

namespace zt {

namespace {

constexpr int kOpenDirectory = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr size_t kBatchBytes = 64 * 1024;
constexpr size_t kOpenLevels = 32;  // descriptors of the way down that stay open
constexpr int kEntriesBetweenAsks = 64;

struct Closer {
    int descriptor;
    ~Closer() {
        if (descriptor >= 0) close(descriptor);
    }
};

bool IsDots(const char* name) {
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

}  // namespace

DirectoryWalk::DirectoryWalk(WalkProgress& progress, StopWanted stopWanted, ITreeTotals* totals)
    : progress_(progress),
      stopWanted_(std::move(stopWanted)),
      totals_(totals),
      batch_(kBatchBytes) {}

DirectoryWalk::~DirectoryWalk() {
    CloseAll();
}

void DirectoryWalk::CloseAll() {
    for (Level& level : levels_) {
        if (level.descriptor >= 0) close(level.descriptor);
    }
    levels_.clear();
    names_.clear();
}

int64_t DirectoryWalk::Total(const char* directory, TREENODE* node) {
    progress_.SetPath(directory);
    if (stopWanted_()) return kStopped;
    progress_.AddDirectory();
    Level top;
    top.node = node;
    top.descriptor = open(directory, kOpenDirectory);
    struct stat data;
    if (top.descriptor < 0) return 0;
    if (fstat(top.descriptor, &data) == 0) top.place = {data.st_dev, data.st_ino};
    levels_.push_back(top);
    bool goesOn = ReadLevel();
    uint64_t total = 0;
    while (goesOn && !levels_.empty()) {
        Level& level = levels_.back();
        if (level.waiting > 0) {
            const size_t depth = levels_.size();
            EnterNext();
            if (levels_.size() > depth) goesOn = ReadLevel();
        } else {
            total = level.total;
            LeaveLevel();
        }
        goesOn = goesOn && !stopWanted_();
    }
    // A stop that is asked for when all is done is too late.
    const bool isDone = levels_.empty();
    CloseAll();
    return isDone ? static_cast<int64_t>(total) : kStopped;
}

// Reads the directory that was entered last. False when the walk is to stop.
bool DirectoryWalk::ReadLevel() {
    for (;;) {
        const ssize_t length = getdents64(levels_.back().descriptor, batch_.data(), batch_.size());
        if (length <= 0) return true;
        if (!TakeBatch(batch_.data(), static_cast<size_t>(length))) return false;
    }
}

bool DirectoryWalk::TakeBatch(const char* batch, size_t length) {
    int untilAsk = kEntriesBetweenAsks;
    for (size_t at = 0; at < length;) {
        const auto* listed = reinterpret_cast<const struct dirent64*>(batch + at);
        at += listed->d_reclen;
        if (!IsDots(listed->d_name)) TakeEntry(listed->d_name, listed->d_type);
        if (--untilAsk > 0) continue;
        if (stopWanted_()) return false;
        untilAsk = kEntriesBetweenAsks;
    }
    return true;
}

void DirectoryWalk::TakeEntry(const char* name, unsigned char type) {
    if (type == DT_LNK) return;
    if (type == DT_DIR) {
        TakeWaiting(name);
    } else {
        TakeFile(name);
    }
}

// A file, or something of which the listing does not say what it is.
void DirectoryWalk::TakeFile(const char* name) {
    Level& level = levels_.back();
    struct stat data;
    if (fstatat(level.descriptor, name, &data, AT_SYMLINK_NOFOLLOW) != 0) return;
    if (S_ISLNK(data.st_mode)) return;
    if (S_ISDIR(data.st_mode)) return TakeWaiting(name);
    const auto size = static_cast<uint64_t>(data.st_size);
    level.total += size;
    progress_.AddFile(size);
}

void DirectoryWalk::TakeWaiting(const char* name) {
    names_.insert(names_.end(), name, name + strlen(name) + 1);
    ++levels_.back().waiting;
}

// The last name on the stack, which belongs to the deepest level.
std::string DirectoryWalk::NextWaiting() {
    size_t start = names_.size() - 1;
    while (start > 0 && names_[start - 1] != 0)
        --start;
    std::string name(&names_[start]);
    names_.resize(start);
    --levels_.back().waiting;
    return name;
}

// Makes the next waiting subdirectory the deepest level, unless it is gone or a mount point. One
// that may not be read counts as a directory with nothing in it.
void DirectoryWalk::EnterNext() {
    const std::string name = NextWaiting();
    const Level& parent = levels_.back();
    struct statx data;
    if (parent.descriptor < 0 ||
        statx(parent.descriptor, name.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT,
              STATX_TYPE | STATX_INO, &data) != 0) {
        return;
    }
    const dev_t device = makedev(data.stx_dev_major, data.stx_dev_minor);
    const bool tellsMounts = (data.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
    const bool isMount = tellsMounts ? (data.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0
                                     : device != parent.place.device;
    if (isMount || !S_ISDIR(data.stx_mode)) return;
    progress_.AddDirectory();
    Level level;
    level.descriptor = openat(parent.descriptor, name.c_str(), kOpenDirectory);
    if (level.descriptor < 0) return;
    level.place = {device, static_cast<ino_t>(data.stx_ino)};
    if (totals_ && parent.node) {
        level.node = totals_->ChildOf(*parent.node, NameFromBytes(name.c_str()).c_str());
    }
    progress_.EnterName(name.c_str());
    levels_.push_back(level);
    // The outermost one stays: the way down begins there.
    if (levels_.size() <= kOpenLevels + 1) return;
    Level& far = levels_[levels_.size() - 1 - kOpenLevels];
    if (far.descriptor >= 0) close(far.descriptor);
    far.descriptor = -1;
}

void DirectoryWalk::LeaveLevel() {
    const Level left = levels_.back();
    const Closer closer{left.descriptor};
    levels_.pop_back();
    if (totals_ && left.node) totals_->SetTotal(*left.node, left.total);
    if (levels_.empty()) return;
    progress_.LeaveName();
    Level& parent = levels_.back();
    parent.total += left.total;
    if (parent.descriptor < 0) ReturnTo(parent, left.descriptor);
}

// Opens a level again. When it is no longer above the child, because something was moved
// meanwhile, its own names are followed once more; what cannot be found again adds nothing more.
void DirectoryWalk::ReturnTo(Level& level, int child) {
    const auto isThere = [&level](int descriptor) {
        struct stat data;
        return descriptor >= 0 && fstat(descriptor, &data) == 0 &&
               Place{data.st_dev, data.st_ino} == level.place;
    };
    level.descriptor = child >= 0 ? openat(child, "..", kOpenDirectory) : -1;
    if (isThere(level.descriptor)) return;
    if (level.descriptor >= 0) close(level.descriptor);
    level.descriptor = WayDown(levels_.size() - 1);
    if (isThere(level.descriptor)) return;
    if (level.descriptor >= 0) close(level.descriptor);
    level.descriptor = -1;
}

// From the outermost level down by `depth` names; a descriptor or -1.
int DirectoryWalk::WayDown(size_t depth) const {
    int descriptor = openat(levels_.front().descriptor, ".", kOpenDirectory);
    const std::vector<std::string> names = progress_.NamesEntered();
    for (size_t i = 0; i < depth && i < names.size() && descriptor >= 0; ++i) {
        const Closer closer{descriptor};
        descriptor = openat(descriptor, names[i].c_str(), kOpenDirectory);
    }
    return descriptor;
}

}  // namespace zt
