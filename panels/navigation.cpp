// Changing a panel's directory.
#include "panels/navigation.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cwchar>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "ui/message_box.h"

namespace zt {

namespace {

bool SamePath(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

bool FitsPathLimit(const Westring& path) {
    if (path.Length() < kPathLimit) return true;
    MessageBox("Name too long", path.c_str(), kBoxOk);
    return false;
}

bool IsDirectoryOnDisk(const Westring& path) {
    struct stat data;
    return stat(NameToBytes(path).c_str(), &data) == 0 && S_ISDIR(data.st_mode);
}

// The length of the longest directory that both paths lie in, without its slash.
int CommonPrefix(const Westring& a, const Westring& b) {
    int common = 0;
    for (int i = 0;; ++i) {
        const bool endA = a[i] == L'/' || i == a.Length();
        const bool endB = b[i] == L'/' || i == b.Length();
        if (endA && endB) common = i;
        if (i == a.Length() || i == b.Length() || a[i] != b[i]) return common;
    }
}

bool EnterComponent(CPanel& panel, const Westring& path) {
    IPanelArchives* archives = panel.pair->seams.archives;
    if (panel.archive) {
        return archives && (archives->HasDirectory(panel, path) || archives->Open(panel, path));
    }
    return IsDirectoryOnDisk(path) || (archives && archives->Open(panel, path));
}

bool WalkComponents(CPanel& panel, const Westring& path) {
    int at = CommonPrefix(panel.path, path);
    while (at < path.Length()) {
        const Westring rest = path.Mid(at + 1);
        const int next = rest.Find(L'/');
        at = next < 0 ? path.Length() : at + 1 + next;
        if (!EnterComponent(panel, path.Left(at))) return false;
    }
    return true;
}

void RecordDeparture(PanelPair& panels, CPanel& panel) {
    if (!panel.readPath.IsEmpty()) panels.directoryHistory.Record(panel.readPath);
    panel.lastPath = panel.readPath;
    panel.lastTop = panel.savedTop;
    panel.lastCursor = panel.savedCursor;
}

void ClearTags(CPanel& panel) {
    const bool hadTags = panel.taggedCount != 0;
    panel.taggedCount = 0;
    panel.taggedBytes = 0;
    if (!hadTags) return;  // a long list is not gone through for nothing
    for (int i = 0; i < panel.Count(); ++i)
        panel.entries.At(i)->tagged = 0;
}

// False, after a word to the user, when the path would be too long.
bool JoinPath(const Westring& directory, const Westring& name, Westring& joined) {
    joined = directory;
    joined.AddTrailingSlash();
    joined += name;
    return FitsPathLimit(joined);
}

void StoreAndEnter(CPanel& panel, const Westring& path) {
    const entry* current = panel.Current();
    panel.positions.Store(panel.path, panel.top, current ? Westring(current->name) : Westring());
    panel.path = path;
    panel.top = panel.cursor = 0;
}

void FindChild(CPanel& panel, const Westring& child) {
    const entry* current = panel.Current();
    if (current && wcscmp(current->name, child.c_str()) == 0) return;
    const int index = panel.entries.Find(child.c_str());
    panel.top = panel.cursor = 0;
    if (index < 0) return;
    if (index < panel.visibleEntries) {
        panel.cursor = index;
    } else {
        panel.top = index - panel.visibleEntries + 1;
        panel.cursor = panel.visibleEntries - 1;
    }
}

}  // namespace

Westring RealDirectory(const CPanel& panel) {
    IPanelArchives* archives = panel.pair->seams.archives;
    return panel.archive && archives ? archives->RealDirectory(panel) : panel.path;
}

void EnterRealDirectory(const CPanel& panel) {
    const Westring directory = RealDirectory(panel);
    const bool isNetwork = directory[0] == L'/' && directory[1] == L'/';
    if (directory.IsEmpty() || isNetwork) return;
    // A directory that cannot be entered leaves the process where it is; the panel's own reading
    // has told the user.
    if (chdir(NameToBytes(directory).c_str()) != 0) return;
}

void EnterActiveDirectory(PanelPair& panels) {
    const CPanel& active = panels.Active();
    const bool showsItsPath = active.IsFiles() && !active.IsTree();
    const CPanel& counting = showsItsPath ? active : panels.Inactive();
    if (counting.readError == 0 && counting.IsFiles()) EnterRealDirectory(counting);
}

void GoTo(PanelPair& panels, int side, const Westring& name, bool keepTags, int top, int cursor) {
    CPanel& panel = panels.panel[side];
    const bool isUp = name.Length() == 2 && name[0] == L'.' && name[1] == L'.';
    if (isUp && SamePath(panel.path, L"/")) return;
    Westring entered = panel.path;
    if (!isUp && !name.IsEmpty() && !JoinPath(panel.path, name, entered)) return;
    panel.readError = 0;
    if (!name.IsEmpty() || !SamePath(panel.path, panel.readPath)) RecordDeparture(panels, panel);
    if (isUp) {
        StepToParent(panel);
    } else {
        if (!keepTags) ClearTags(panel);
        if (!name.IsEmpty()) StoreAndEnter(panel, entered);
        ReadDirectory(panel);
    }
    if (top >= 0) {
        panel.top = top;
        panel.cursor = cursor;
        ClampCursor(panel);
    }
    panel.searchText.Clear();
    CPanel& other = panel.Other();
    if (other.IsTree() && panels.seams.tree) panels.seams.tree->Follow(other, panel.path);
    panel.readPath = panel.path;
    EnterRealDirectory(panel);
}

void GoToParent(PanelPair& panels, int side) {
    GoTo(panels, side, L"..");
}

void StepToParent(CPanel& panel) {
    if (panel.path.IsEmpty() || SamePath(panel.path, L"/")) return;
    const Westring child = NameOfPath(panel.path);
    panel.path = ParentOfPath(panel.path);
    const Westring parent = panel.path;
    ClearTags(panel);
    ReadDirectory(panel);
    if (!SamePath(panel.path, parent)) return;  // not to be read either: the read has gone on up
    if (const TPanelPosition* position = panel.positions.Lookup(panel.path)) {
        panel.top = position->top;
        FindName(panel, position->name.c_str());
    }
    if (panel.CurrentIndex() >= panel.Count()) panel.top = panel.cursor = 0;
    if (panel.Count() > 0) FindChild(panel, child);
}

bool ChangeDirectory(CPanel& panel, const Westring& wanted) {
    Westring path = wanted;
    if (NormalizePath(path, panel.path.IsEmpty() ? nullptr : panel.path.c_str()) != 0) return false;
    if (!FitsPathLimit(path)) return false;
    IPanelArchives* archives = panel.pair->seams.archives;
    if (panel.archive && archives) archives->CloseBeside(panel, path);
    const bool isOnDisk = !panel.archive && IsDirectoryOnDisk(path);
    if (!isOnDisk && !WalkComponents(panel, path)) return false;
    panel.path = path;
    return true;
}

bool GoBack(PanelPair& panels, int side) {
    CPanel& panel = panels.panel[side];
    if (panel.lastPath.IsEmpty()) return false;
    const Westring path = panel.lastPath;
    const int top = panel.lastTop;
    const int cursor = panel.lastCursor;
    if (!ChangeDirectory(panel, path)) return false;
    panels.directoryHistory.DropNewest(path);
    GoTo(panels, side, Westring(), false, top, cursor);
    return true;
}

}  // namespace zt
