// Asking for the name, mkdir, and what the panels and the tree get to know of it.
#include "fileops/make_directory.h"

#include <sys/stat.h>

#include <cerrno>

#include "fileops/panel_paths.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kNameWidth = 72;
constexpr int kNameCharacters = 512;
constexpr mode_t kDirectoryMode = 0777;  // less the umask

// False when nothing is to be made.
bool AskName(Westring& name) {
    Dialog dialog(-1, -4, 76, 6, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, "Create the directory");
    dialog.AddString(1, 1, true, name, kNameWidth, kNameCharacters, kNoHistory);
    dialog.AddButton(28, 3, true, kExitEnter, "_OK");
    dialog.AddButton(36, 3, false, kExitEscape, "Cancel");
    if (dialog.Run() == kExitEscape) return false;
    name = name.Trim();
    return !name.IsEmpty();
}

enum class Made { kYes, kNo, kExists };

// What stands in the way is named; other failures may be tried again.
Made MakeWithRetry(const Westring& path) {
    const Estring bytes = NameToBytes(path);
    for (;;) {
        if (mkdir(bytes.c_str(), kDirectoryMode) == 0) return Made::kYes;
        int code = errno;
        struct stat found;
        const bool mayExist = code == EACCES || code == EEXIST;
        if (mayExist && lstat(bytes.c_str(), &found) == 0) {
            const bool isDirectory = S_ISDIR(found.st_mode);
            MessageBox(isDirectory ? "Directory already exists" : "File already exists named",
                       path.c_str(), kBoxOk);
            return Made::kExists;
        }
        bool stop = false;
        FileErrorBox(code, stop, path.c_str());
        if (stop) return Made::kNo;
    }
}

// In the tree its path leads to it; a list shows its name as the tree knows it.
void FindMade(CPanel& panel, const Westring& path, const Westring& name) {
    if (panel.IsTree()) {
        if (IPanelTree* tree = panel.pair->seams.tree) tree->Follow(panel, path);
        return;
    }
    FindName(panel, name.c_str());
    panel.needPaint = true;
}

}  // namespace

void MakeDirectoryCommand(PanelPair& panels, int side) {
    CPanel& own = panels.panel[side];
    CPanel& panel = own.IsFiles() ? own : own.Other();
    Westring name;
    if (panel.archive || !AskName(name)) return;
    const Westring base = PanelDirectory(panel);
    const Made made = MakeWithRetry(PathInDirectory(base, name));
    if (made == Made::kExists) return;
    const Westring knownName = WithoutTrailingSlash(FoldsCase(panel) ? name.ToUpper() : name);
    const Westring known = PathInDirectory(base, knownName);
    if (ITreeKeeper* trees = panels.seams.trees; trees && made == Made::kYes) {
        trees->DirectoryAdded(panel, known);
        trees->Save(panel);
    }
    RereadBoth(panels);
    if (made == Made::kYes) FindMade(panel, known, knownName);
}

}  // namespace zt
