// Deleting by a typed name.
#include "fileops/delete_named_command.h"

#include <sys/stat.h>

#include <algorithm>

#include "fileops/abort_guard.h"
#include "fileops/delete.h"
#include "fileops/delete_command.h"
#include "fileops/delete_dialog.h"
#include "fileops/panel_paths.h"
#include "fileops/screen_user.h"
#include "foundation/colour_classes.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/settings.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kUnasked = 1;  // bit of settings.confirmations
constexpr int kPlacement = -4;
constexpr int kWidth = 76, kHeight = 7;
constexpr int kFieldColumns = 72, kFieldLimit = 512;
constexpr int kLeastQuestionWidth = 21, kQuestionHeight = 6;

Westring Suggestion(const CPanel& panel) {
    const entry* current = panel.Current();
    if (!current || current->IsDotDot()) return Westring();
    return panel.IsTree() ? PathOfEntry(panel, *current) : Westring(current->name);
}

// What is wrong with the text, or null; then `path` is what it names and `found` what that is.
const char* Trouble(const CPanel& panel, const Westring& text, Westring& path, struct stat& found) {
    // No name at all would be the panel's own directory.
    if (text.IsEmpty()) return "File not found";
    path = text;
    if (NormalizePath(path, panel.path.c_str()) != 0) return "Invalid Path";
    return lstat(NameToBytes(path).c_str(), &found) == 0 ? nullptr : "File not found";
}

// False on Esc.
bool AskName(const CPanel& panel, Westring& path, struct stat& found) {
    Westring text = Suggestion(panel);
    Dialog dialog(-1, kPlacement, kWidth, kHeight, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, "Delete the file:");
    dialog.AddString(1, 2, true, text, kFieldColumns, kFieldLimit, kNoHistory);
    dialog.AddOkCancel(-1, -1, true);
    for (;;) {
        if (dialog.Run() != kExitEnter) return false;
        const char* trouble = Trouble(panel, text, path, found);
        if (!trouble) return true;
        MessageBox(trouble, ShownText(text).c_str(), kBoxOk);
    }
}

bool Confirm(const Westring& path) {
    if (settings.confirmations & kUnasked) return true;
    const Westring shown = ShownInQuestion(path);
    const int width = std::max(shown.Length(), kLeastQuestionWidth);
    Dialog dialog(-1, kPlacement, width + width % 2 + 4, kQuestionHeight,
                  Colour(ColourClass::kMessages));
    dialog.AddText(-1, 0, "Do you wish to delete");
    dialog.AddText(-1, 1, shown);
    dialog.AddOkCancel(-1, -1, true);
    return dialog.Run() == kExitEnter;
}

}  // namespace

void DeleteNamedCommand(CPanel& panel) {
    if (panel.archive) return;
    Westring path;
    struct stat found;
    if (!AskName(panel, path, found) || !Confirm(path)) return;
    {
        ScreenUser user;
        FileOperation operation(user);
        const AbortGuard abortable;
        if (S_ISDIR(found.st_mode)) {
            static_cast<void>(DeleteDirectory(operation, panel.pair, path, nullptr, nullptr));
            SaveTree(panel);
        } else {
            static_cast<void>(DeleteFile(operation, path, DeleteFileMode::kSingle, nullptr));
        }
    }
    RereadBoth(*panel.pair);
}

}  // namespace zt
