// Deleting a directory: an empty one at once, a full one by way of the question about its tree.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cwchar>

#include "fileops/delete_object.h"
#include "fileops/raw_listing.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/result_codes.h"
#include "panels/entry_rules.h"
#include "panels/panel_pair.h"
#include "ui/dialog.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kRemoved = 1, kLeft = 0;

int RemoveDirectory(const DeleteSubject& subject) {
    return unlinkat(subject.directory, subject.name, AT_REMOVEDIR) == 0 ? kDone : errno;
}

bool HoldsSomething(const DeleteSubject& subject) {
    const int directory = openat(subject.directory, subject.name,
                                 O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (directory < 0) return false;
    RawListing listing;
    const bool holds = listing.Read(directory) && !listing.IsEmpty();
    close(directory);
    return holds;
}

// What is in a directory counts before anything else that is in the way. Looking for it only after
// a failure comes to the same, since a directory that goes was empty.
int RemoveIfEmpty(const DeleteSubject& subject) {
    const int code = RemoveDirectory(subject);
    if (code == kDone || code == ENOTEMPTY) return code;
    return HoldsSomething(subject) ? ENOTEMPTY : code;
}

bool IsReadOnly(const DeleteSubject& subject) {
    struct stat found;
    if (fstatat(subject.directory, subject.name, &found, AT_SYMLINK_NOFOLLOW) != 0) return false;
    return IsReadOnlyFor(ProcessIdentity::OfThisProcess(), found.st_mode, found.st_uid,
                         found.st_gid);
}

// True when the deletion is to be tried again from its start, false when it ends here.
bool TriesReadOnlyAgain(FileOperation& operation, const DeleteSubject& subject,
                        IPausablePainter* painter) {
    if (operation.deleteReadOnly != ReadOnlyMode::kAlways) {
        const int answer = operation.user.Ask(painter, "Directory is Read Only, Delete anyway?",
                                              subject.path, kBoxOkCancelSkipAllNone);
        if (answer == kExitEscape || answer == 's' || answer == 'n') return false;
        if (answer == 'a') operation.deleteReadOnly = ReadOnlyMode::kAlways;
        if (answer != 'a' && answer != 'y') return true;
    }
    // A directory has no mark here that could be cleared: the same again is all there is.
    if (RemoveDirectory(subject) == kDone) return false;
    operation.deleteReadOnly = ReadOnlyMode::kAsk;
    return true;
}

// The trees of the panels follow, up to the first that knows nothing of the directory.
void TellTrees(PanelPair* panels, const Westring& path) {
    if (!panels || !panels->seams.trees) return;
    for (CPanel& panel : panels->panel) {
        if (!panel.tree || !panels->seams.trees->DirectoryRemoved(panel, path)) return;
    }
}

void AfterRemoval(PanelPair* panels, const Westring& path) {
    if (path.Find(L'/') >= 0) return TellTrees(panels, path);
    RemoveDescription(path);
    Westring absolute = path;
    if (MakeAbsolute(absolute, nullptr) == 0) TellTrees(panels, absolute);
}

int NoSuchDirectory(FileOperation& operation, PanelPair* panels, const Westring& path,
                    IPausablePainter* painter) {
    static_cast<void>(
        operation.user.Ask(painter, "Directory does not exist, cannot delete", path, kBoxOk));
    AfterRemoval(panels, path);
    return kLeft;
}

// The directory's own parent, held open: whatever becomes of the path meanwhile, the deletion stays
// where it began. AT_FDCWD when the path has none or it cannot be held.
class HeldParent {
public:
    explicit HeldParent(const Westring& path) {
        const Westring parent = ParentOfPath(path);
        const Westring own = NameOfPath(path);
        name_ = NameToBytes(path);
        if (parent.IsEmpty() || own.IsEmpty()) return;
        descriptor_ = open(NameToBytes(parent).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
        if (descriptor_ >= 0) name_ = NameToBytes(own);
    }
    ~HeldParent() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    HeldParent(const HeldParent&) = delete;
    HeldParent& operator=(const HeldParent&) = delete;

    int Directory() const { return descriptor_ >= 0 ? descriptor_ : AT_FDCWD; }
    const char* Name() const { return name_.c_str(); }

private:
    int descriptor_ = -1;
    Estring name_;
};

}  // namespace

int DeleteDirectoryIn(FileOperation& operation, PanelPair* panels, const DeleteSubject& subject,
                      const Westring* mask, IPausablePainter* painter) {
    for (;;) {
        int code = RemoveIfEmpty(subject);
        if (code == kDone) break;
        if (painter) painter->Stop();
        if (code == ENOTEMPTY) return DeleteTreePrompt(operation, panels, subject, mask, painter);
        if (code == ENOTDIR) return NoSuchDirectory(operation, panels, subject.path, painter);
        if (code == EACCES && IsReadOnly(subject)) {
            if (TriesReadOnlyAgain(operation, subject, painter)) continue;
            return kLeft;
        }
        bool stop = true;
        operation.user.TellError(painter, code, stop, subject.path, Westring());
        if (stop) return kLeft;
    }
    AfterRemoval(panels, subject.path);
    return kRemoved;
}

int DeleteDirectory(FileOperation& operation, PanelPair* panels, const Westring& path,
                    const Westring* mask, IPausablePainter* painter) {
    if (wcscmp(path.c_str(), L"..") == 0) return kLeft;
    Westring normalized = path;
    if (NormalizePath(normalized, nullptr) != 0) {
        if (painter) painter->Stop();
        return NoSuchDirectory(operation, panels, path, painter);
    }
    Westring own = path;
    while (own.Length() > 1 && own[own.Length() - 1] == L'/')
        own.SetAt(own.Length() - 1, 0);
    const HeldParent parent(own);
    return DeleteDirectoryIn(operation, panels, {parent.Directory(), parent.Name(), own}, mask,
                             painter);
}

}  // namespace zt
