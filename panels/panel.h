// One of the two file panels: its path, its entries as the last read found them, where its cursor
// stands and how it shows. PanelPair owns both. First thread only.
#pragma once

#include <memory>

#include "foundation/string_lists.h"
#include "foundation/westring.h"
#include "panels/column_layout.h"
#include "panels/entry_array.h"
#include "panels/link_targets.h"
#include "panels/panel_kinds.h"
#include "panels/position_stack.h"
#include "ui/win.h"

namespace zt {

class ArchiveFile;
class CTree;
struct PanelPair;

struct CPanel {
    CPanel(PanelPair& owner, int ownSide) : pair(&owner), side(ownSide) {}
    CPanel(const CPanel&) = delete;
    CPanel& operator=(const CPanel&) = delete;

    PanelPair* const pair;
    const int side;  // 0 left, 1 right

    Westring path;      // below kPathLimit characters; inside an archive its outer path goes first
    Westring readPath;  // of the last completed read; reading it again is a re-read
    int savedTop = 0;   // copies made at each pass of the main loop
    int savedCursor = 0;
    Westring lastPath;  // the directory before the last change
    int lastTop = 0;
    int lastCursor = 0;
    int cursor = 0;  // row within the visible entries
    int top = 0;     // index of the first visible entry
    bool showing = false;
    bool needRead = false;   // a read was put off while hidden or not files
    bool needPaint = false;  // the list changed
    bool offByUser = false;
    std::unique_ptr<Win> window;  // null while hidden
    CPosStack positions;
    EntryArray entries;
    int taggedCount = 0;
    uint64_t taggedBytes = 0;
    Westring searchText;  // quick search; empty when off
    int sort = kSortName;
    int kind = kKindFiles;
    int style = kStyleFull;
    int width = kWidthHalf;
    Westring filter = "*";
    int visibleEntries = 0;
    Westring fileSystem;  // type, at most 29 characters
    Westring mountPoint;
    int readError = 0;       // errno or a private code of the last read
    bool readWhole = false;  // the last read came to the end of the directory
    CTree* tree = nullptr;   // shared; counted by its set
    bool treeFollowsPath = false;
    ArchiveFile* archive = nullptr;  // innermost open archive
    int nameShift = 0;
    int nameShiftIndex = -1;  // the entry that nameShift belongs to
    FnStringCollection subdirectories;
    CLinkTargetCache linkTargets;
    ColumnLayout columns;  // for the width that the window was opened with

    int Count() const { return entries.Count(); }
    int CurrentIndex() const { return top + cursor; }
    // Null when the list is empty or the cursor is off it.
    entry* Current() const { return entries.At(CurrentIndex()); }
    bool IsFiles() const { return kind == kKindFiles; }
    bool IsTree() const { return IsFiles() && style == kStyleTree; }
    bool IsShowingFiles() const { return showing && IsFiles(); }
    CPanel& Other() const;
};

}  // namespace zt
