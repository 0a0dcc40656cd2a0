// The delete command: its questions, and the walk over the tagged entries.
#include "fileops/delete_command.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "fileops/abort_guard.h"
#include "fileops/delete_dialog.h"
#include "fileops/delete_object.h"
#include "fileops/panel_paths.h"
#include "fileops/raw_listing.h"
#include "fileops/screen_user.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"

namespace zt {

namespace {

constexpr int kFirstUnasked = 1, kGroupUnasked = 2;  // bits of settings.confirmations
constexpr int kDriveCharacters = 3;
constexpr int kManyTagged = 1000;

// The places that an undelete tool watches, if one is there.
bool OffersUndelete(const CPanel& panel) {
    const char* places = getenv("DELDIR");
    if (!places || panel.archive) return false;
    return strstr(places, panel.path.Left(kDriveCharacters).ToNarrow().c_str()) != nullptr;
}

bool IsRealDirectory(const entry& item) {
    return item.IsDirectory() && !item.IsLink();
}

bool ConfirmSingle(FileOperation& operation, const CPanel& panel, const entry& item) {
    if (settings.confirmations & kFirstUnasked) return true;
    CDeleteDlg::Form form;
    form.lines[0] = "Do you wish to delete";
    form.lines[1] =
        ShownInQuestion(panel.IsTree() ? PathOfEntry(panel, item) : Westring(item.name));
    form.asksReadOnly = item.IsDirectory();
    form.asksUndelete = OffersUndelete(panel);
    return CDeleteDlg(form).Ask(operation);
}

bool ConfirmGroup(FileOperation& operation, const CPanel& panel) {
    const int count = panel.taggedCount;
    if (!(settings.confirmations & kFirstUnasked)) {
        CDeleteDlg::Form form;
        form.lines[0] = Estring::Format("You have selected %d file%s", count, count > 1 ? "s" : "");
        form.lines[1] = "Delete?";
        form.asksReadOnly = true;
        form.asksUndelete = OffersUndelete(panel);
        if (!CDeleteDlg(form).Ask(operation)) return false;
    }
    return settings.confirmations & kGroupUnasked || ConfirmDeleteGroup(count, panel.path);
}

bool Confirm(FileOperation& operation, const CPanel& panel) {
    if (panel.taggedCount > 0) return ConfirmGroup(operation, panel);
    const entry* current = panel.Current();
    return current && !current->IsDotDot() && ConfirmSingle(operation, panel, *current);
}

void DeleteSingle(FileOperation& operation, CPanel& panel) {
    const entry* current = panel.Current();
    if (!current || current->IsDotDot()) return;
    const Westring path = PathOfEntry(panel, *current);
    if (!IsRealDirectory(*current)) {
        static_cast<void>(DeleteFile(operation, path, DeleteFileMode::kSingle, nullptr));
        return;
    }
    static_cast<void>(DeleteDirectory(operation, panel.pair, path, nullptr, nullptr));
    SaveTree(panel);
}

// The tagged entries in the order of the list. Files are deleted in the directory that the panel
// shows, which is held open.
class GroupDeletion {
public:
    GroupDeletion(FileOperation& operation, CPanel& panel)
        : operation_(operation),
          panel_(panel),
          directory_(open(NameToBytes(panel.path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          removals_(directory_ >= 0 && HasDescriptions(directory_)) {
        if (panel.taggedCount >= kManyTagged) BringListToMemory();
    }
    ~GroupDeletion() {
        if (directory_ >= 0) close(directory_);
    }
    GroupDeletion(const GroupDeletion&) = delete;
    GroupDeletion& operator=(const GroupDeletion&) = delete;

    void Run() {
        for (int i = 0; i < panel_.Count(); i++) {
            const entry& item = *panel_.entries.At(i);
            if (!item.tagged) continue;
            if (operation_.user.EscapePressed() || Delete(item) < 0 || AbortGuard::Asked()) break;
        }
        if (directory_ >= 0) removals_.Apply(directory_);
    }
    bool HadDirectory() const { return hadDirectory_; }

private:
    // Looking names up one by one reads a large directory in no order; reading it through is quick,
    // and costs next to nothing where it is in memory anyway.
    void BringListToMemory() {
        const int list = openat(directory_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (list < 0) return;
        static_cast<void>(RawListing().Read(list));
        close(list);
    }
    int Delete(const entry& item) {
        const Westring path = PathInDirectory(panel_.path, item.name);
        if (IsRealDirectory(item)) {
            hadDirectory_ = true;
            return DeleteDirectory(operation_, panel_.pair, path, nullptr, nullptr);
        }
        constexpr auto kMode = DeleteFileMode::kOneOfMany;
        if (directory_ < 0) return DeleteFile(operation_, path, kMode, nullptr);
        const Estring name = NameToBytes(item.name);
        return DeleteFileIn(operation_, {directory_, name.c_str(), path}, kMode, nullptr,
                            &removals_);
    }

    FileOperation& operation_;
    CPanel& panel_;
    const int directory_;
    DescriptionRemovals removals_;
    bool hadDirectory_ = false;
};

}  // namespace

void SaveTree(CPanel& panel) {
    ITreeKeeper* trees = panel.pair->seams.trees;
    if (trees && panel.tree) trees->Save(panel);
}

void DeleteExecute(FileOperation& operation, CPanel& panel) {
    if (panel.archive) return;  // its members are deleted by what keeps the archives
    if (panel.taggedCount == 0) return DeleteSingle(operation, panel);
    bool hadDirectory = false;
    if (panel.Count() > 0 && !AbortGuard::Asked()) {
        GroupDeletion group(operation, panel);
        group.Run();
        hadDirectory = group.HadDirectory();
    }
    operation.user.HideDeleting();
    if (hadDirectory) SaveTree(panel.IsTree() ? panel.Other() : panel);
}

void DeleteCommand(CPanel& panel) {
    if (panel.Count() == 0) return;
    {
        ScreenUser user;
        FileOperation operation(user);
        const AbortGuard abortable;
        if (!Confirm(operation, panel)) return;
        DeleteExecute(operation, panel);
    }
    RereadBoth(*panel.pair);
}

}  // namespace zt
