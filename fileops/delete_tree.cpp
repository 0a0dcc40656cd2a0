// Deleting a directory with all that is in it.
//
// The walk holds directories by descriptors and never looks a path up again, so that a directory
// that is swapped for a link meanwhile is not followed. How deep it goes is limited by memory
// alone: its levels are kept in a list and not on the stack, and only the deepest few directories
// stay open; an outer one is opened again through "..", and must be the very one that it was.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>
#include <vector>

#include "console/program_state.h"
#include "fileops/delete_object.h"
#include "fileops/raw_listing.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "foundation/wild_match.h"

namespace zt {

namespace {

constexpr int kTreesUnasked = 4;  // bit of settings.confirmations
constexpr size_t kOpenLevels = 32;
constexpr int kFinished = 0, kStopped = 1;

int OpenDirectoryAt(int directory, const char* name) {
    return openat(directory, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

class TreeDeletion {
public:
    TreeDeletion(FileOperation& operation, PanelPair* panels, const DeleteSubject& top,
                 const Westring* mask, IPausablePainter* painter)
        : operation_(operation),
          panels_(panels),
          top_(top),
          mask_(mask),
          painter_(painter),
          path_(top.path) {}
    ~TreeDeletion();
    TreeDeletion(const TreeDeletion&) = delete;
    TreeDeletion& operator=(const TreeDeletion&) = delete;

    int Run();

private:
    struct Level {
        int descriptor = -1;  // below 0 while closed
        dev_t device = 0;
        ino_t inode = 0;
        std::string name;    // in the level above, or the top's
        int pathLength = 0;  // of path_ with this directory's name at its end
        RawListing listing;
        DescriptionRemovals removals{false};
    };

    bool IsStopped();
    // False when the directory cannot be read.
    bool Enter(int directory, const char* name);
    // False when the walk is to stop.
    bool DealWith(const char* name);
    bool IsRealDirectory(const char* name) const;
    bool PassesMask(const char* name) const;
    // Ends the deepest level and removes its directory; false when the walk is to stop.
    bool Leave();
    // Ends all levels and removes nothing more.
    void Abandon();
    bool Reopen(size_t index);
    bool ReopenOrTell(size_t index);
    void RemoveDirectoryOf(int directory, const char* name);
    void AppendToPath(const char* name);
    void CutPath(int length);

    FileOperation& operation_;
    PanelPair* const panels_;
    const DeleteSubject& top_;
    const Westring* const mask_;
    IPausablePainter* const painter_;
    Westring path_;  // of what is being dealt with
    std::vector<Level> levels_;
};

TreeDeletion::~TreeDeletion() {
    for (const Level& level : levels_) {
        if (level.descriptor >= 0) close(level.descriptor);
    }
}

int TreeDeletion::Run() {
    if (!Enter(top_.directory, top_.name)) {
        RemoveDirectoryOf(top_.directory, top_.name);
        return kFinished;
    }
    bool goesOn = true;
    while (goesOn && !levels_.empty()) {
        const char* name = levels_.back().listing.Next();
        if (!name) {
            goesOn = Leave();
        } else {
            goesOn = !IsStopped() && DealWith(name);
        }
    }
    if (!goesOn) Abandon();
    return goesOn ? kFinished : kStopped;
}

bool TreeDeletion::IsStopped() {
    return abortState.load(std::memory_order_relaxed) == kAbortRequested ||
           operation_.user.EscapePressed();
}

bool TreeDeletion::Enter(int directory, const char* name) {
    Level level;
    level.descriptor = OpenDirectoryAt(directory, name);
    if (level.descriptor < 0) return false;
    struct stat found;
    if (fstat(level.descriptor, &found) != 0 || !level.listing.Read(level.descriptor)) {
        close(level.descriptor);
        return false;
    }
    level.device = found.st_dev;
    level.inode = found.st_ino;
    level.name = name;
    level.pathLength = path_.Length();
    level.removals = DescriptionRemovals(level.listing.Has(kDescriptionFileName));
    levels_.push_back(std::move(level));
    if (levels_.size() > kOpenLevels) {
        Level& outer = levels_[levels_.size() - 1 - kOpenLevels];
        if (outer.descriptor >= 0) close(outer.descriptor);
        outer.descriptor = -1;
    }
    return true;
}

bool TreeDeletion::DealWith(const char* name) {
    Level& level = levels_.back();
    AppendToPath(name);
    if (IsRealDirectory(name)) {
        const int outerLength = level.pathLength;
        if (Enter(level.descriptor, name)) return true;  // the path stays longer until Leave
        RemoveDirectoryOf(level.descriptor, name);
        CutPath(outerLength);
        return true;
    }
    int result = 0;
    if (PassesMask(name)) {
        result = DeleteFileIn(operation_, {level.descriptor, name, path_},
                              DeleteFileMode::kOneOfMany, painter_, &level.removals);
    }
    CutPath(level.pathLength);
    return result >= 0;
}

bool TreeDeletion::IsRealDirectory(const char* name) const {
    const Level& level = levels_.back();
    if (level.listing.Type() != DT_UNKNOWN) return level.listing.Type() == DT_DIR;
    struct stat found;
    return fstatat(level.descriptor, name, &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(found.st_mode);
}

bool TreeDeletion::PassesMask(const char* name) const {
    return !mask_ || WildMatchWide(mask_->c_str(), NameFromBytes(name).c_str());
}

bool TreeDeletion::Leave() {
    Level& level = levels_.back();
    level.removals.Apply(level.descriptor);
    const bool isTop = levels_.size() == 1;
    if (!isTop && !ReopenOrTell(levels_.size() - 2)) return false;
    close(level.descriptor);
    const std::string name = std::move(level.name);
    levels_.pop_back();
    RemoveDirectoryOf(isTop ? top_.directory : levels_.back().descriptor, name.c_str());
    if (!isTop) CutPath(levels_.back().pathLength);
    return true;
}

void TreeDeletion::Abandon() {
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (level.descriptor < 0) return;
        level.removals.Apply(level.descriptor);
        if (levels_.size() > 1) static_cast<void>(Reopen(levels_.size() - 2));
        close(level.descriptor);
        levels_.pop_back();
    }
}

// The directory of that level is the parent of the level below it, unless that one was moved.
bool TreeDeletion::Reopen(size_t index) {
    Level& outer = levels_[index];
    if (outer.descriptor >= 0) return true;
    const int descriptor = OpenDirectoryAt(levels_[index + 1].descriptor, "..");
    if (descriptor < 0) return false;
    struct stat found;
    if (fstat(descriptor, &found) != 0 || found.st_dev != outer.device ||
        found.st_ino != outer.inode) {
        close(descriptor);
        return false;
    }
    outer.descriptor = descriptor;
    return true;
}

bool TreeDeletion::ReopenOrTell(size_t index) {
    while (!Reopen(index)) {
        int code = ESTALE;
        bool stop = true;
        operation_.user.TellError(painter_, code, stop, path_, Westring());
        if (stop) return false;
    }
    return true;
}

void TreeDeletion::RemoveDirectoryOf(int directory, const char* name) {
    // One that stays has been told of, or is left as not empty.
    static_cast<void>(
        DeleteDirectoryIn(operation_, panels_, {directory, name, path_}, nullptr, painter_));
}

void TreeDeletion::AppendToPath(const char* name) {
    const Westring part = NameFromBytes(name);
    const int needed = path_.Length() + 1 + part.Length();
    if (needed > path_.Capacity()) {
        // Room for twice as much, so that depth costs no copy a level.
        Westring longer(2 * needed);
        longer += path_;
        path_ = std::move(longer);
    }
    if (path_.IsEmpty() || path_[path_.Length() - 1] != L'/') path_ += L'/';
    path_ += part;
}

void TreeDeletion::CutPath(int length) {
    if (length < path_.Length()) path_.SetAt(length, 0);
}

bool IsConfirmed(FileOperation& operation, const Westring& path, IPausablePainter* painter) {
    if (settings.confirmations & kTreesUnasked || operation.deleteTreeAll) return true;
    if (painter) painter->Stop();
    const int answer = operation.user.AskDeleteTree(path);
    if (answer == 'a') operation.deleteTreeAll = true;
    return answer == 'a' || answer == 'y';
}

}  // namespace

int DeleteTreeContents(FileOperation& operation, PanelPair* panels, const DeleteSubject& subject,
                       const Westring* mask, IPausablePainter* painter) {
    return TreeDeletion(operation, panels, subject, mask, painter).Run();
}

int DeleteTreePrompt(FileOperation& operation, PanelPair* panels, const DeleteSubject& subject,
                     const Westring* mask, IPausablePainter* painter) {
    // Inside a deletion that is running nothing more is asked: what is not empty stays.
    if (operation.deleteTreeDepth > 0) return 0;
    if (!IsConfirmed(operation, subject.path, painter)) return kCancelled;
    operation.deleteTreeDepth++;
    const int stopped = DeleteTreeContents(operation, panels, subject, mask, painter);
    operation.user.HideDeleting();
    operation.deleteTreeDepth--;
    return stopped == kFinished ? 1 : kCancelled;
}

}  // namespace zt
