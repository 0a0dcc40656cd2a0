// The renaming of an entry, and the way down into directories.
#include "fileops/change_case_entry.h"

#include <cerrno>
#include <cwchar>

#include "fileops/change_case.h"
#include "fileops/change_case_rename.h"
#include "fileops/panel_paths.h"
#include "fileops/screen_user.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "panels/directory_scanner.h"
#include "panels/entry_lists.h"
#include "ui/abbreviate_path.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"

namespace zt {

namespace {

constexpr int kPathWidth = 36;

struct CaseModes {
    char name;
    char extension;
};

int Rename(const Westring& directory, const Westring& name, const CaseModes& modes) {
    const Westring changed = NameInCase(name, modes.name, modes.extension);
    if (wcscmp(changed.c_str(), name.c_str()) == 0) return kDone;
    const Westring from = PathInDirectory(directory, name);
    const Westring to = PathInDirectory(directory, changed);
    for (;;) {
        int code = RenameWithoutReplacing(from, to);
        if (code == 0) return kDone;
        bool stop = false;
        FileErrorBox(code, stop, from.c_str(), to.c_str());
        if (stop) return code == kCancelled ? kCancelled : kDone;
    }
}

// All of the directory before anything in it is renamed: a listing that goes on meanwhile may give
// an entry again under its new name. 0 or an errno value.
int ReadAll(const Westring& directory, EntryStore& items) {
    DirectoryScanner scanner(directory);
    entry* found = nullptr;
    int code = scanner.First(found);
    for (; code == kDone; code = scanner.Next(found)) {
        if (!found->IsDot() && !found->IsDotDot()) items.Append(CopyEntry(*found));
    }
    return code == kNoMoreEntries ? kDone : code;
}

// A directory that is not there under this name has been renamed itself, and is left alone.
int ReadAllWithRetry(const Westring& directory, EntryStore& items) {
    for (;;) {
        items.Clear();
        int code = ReadAll(directory, items);
        if (code == kDone || code == ENOENT) return kDone;
        bool stop = false;
        FileErrorBox(code, stop, directory.c_str());
        if (stop) return code == kCancelled ? kCancelled : kDone;
    }
}

int ChangeCaseBelow(const Westring& directory, const CaseModes& modes) {
    Dialog window(-1, -2, 60, 5, Colour(ColourClass::kMessages));
    window.SetTitle(" Changing file case ");
    Westring shown = directory;
    AbbreviatePath(shown, kPathWidth);
    window.Print(1, 0, "Processing files in " + shown);

    EntryStore items;
    if (ReadAllWithRetry(directory, items) != kDone) return kCancelled;
    for (int i = 0; i < items.Count(); ++i) {
        window.Print(1, 2, Estring::FromInteger(i + 1));
        if (ChangeCaseEntry(directory, *items.At(i), modes.name, modes.extension) < 0) {
            return kCancelled;
        }
        if (StopAsked()) return kCancelled;
    }
    return kDone;
}

}  // namespace

int ChangeCaseEntry(const Westring& directory, const entry& item, char nameMode,
                    char extensionMode) {
    if (item.IsDot() || item.IsDotDot()) return kDone;
    const CaseModes modes = {nameMode, extensionMode};
    if (item.IsDirectory() ? settings.caseModDirs : settings.caseModFiles) {
        if (Rename(directory, item.name, modes) != kDone) return kCancelled;
    }
    if (!settings.caseModRecurse || !item.IsDirectory() || item.IsLink()) return kDone;
    return ChangeCaseBelow(PathInDirectory(directory, item.name), modes);
}

bool StopAsked() {
    return ScreenUser().EscapePressed();
}

}  // namespace zt
