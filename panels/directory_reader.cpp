// The steps of reading a directory.
#include "panels/directory_reader.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <memory>
#include <vector>

#include "console/program_state.h"
#include "foundation/case_fold.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/directory_scanner.h"
#include "panels/entry_sorting.h"
#include "panels/mount_table.h"
#include "panels/navigation.h"
#include "panels/panel_pair.h"
#include "ui/directory_progress.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kFileSystemCharacters = 29;

// While it lives the Break key may ask for the end of what runs.
class AbortScope {
public:
    AbortScope() { abortState.store(kAbortPossible, std::memory_order_relaxed); }
    ~AbortScope() { abortState.store(kAbortIdle, std::memory_order_relaxed); }
    AbortScope(const AbortScope&) = delete;
    AbortScope& operator=(const AbortScope&) = delete;

    static bool Asked() { return abortState.load(std::memory_order_relaxed) == kAbortRequested; }
};

bool SamePath(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

class DirectoryRead {
public:
    explicit DirectoryRead(CPanel& panel)
        : panel_(panel),
          seams_(panel.pair->seams),
          isRoot_(SamePath(panel.path, L"/")),
          isFiltered_(panel.pair->seams.filter && !SamePath(panel.filter, L"*")) {}

    void Run();

private:
    // True when the other panel's list is just what a read would give.
    bool CanTakeOver() const;
    void TakeOver();
    void FindFileSystem();
    bool ReadFromDisk();
    void SetOldListAside();
    // False when the reading ends here: the error is shown, or the panel is already elsewhere.
    bool TakeFirst(entry*& found);
    void ReadEntries(entry* found);
    void Take(entry& found);
    // A copy in the panel's list; null when memory ran out.
    entry* Keep(const entry& found);
    bool IsSkipped(const entry& found) const;
    void FoldName(entry& found) const;
    void AddParentEntry();
    void RestoreTags();
    void TellNeighbours(bool hasTotal);
    void PlaceCursorAgain();

    CPanel& panel_;
    const PanelSeams& seams_;
    const bool isRoot_;
    const bool isFiltered_;
    bool isReread_ = false;
    bool foldNames_ = false;
    bool sawParent_ = false;
    Westring rememberedName_;           // under the cursor before a re-read
    entry* rememberedEntry_ = nullptr;  // the new entry of that name
    EntryArray tagged_;                 // what had a tag, or was to get one back, before a re-read
    uint64_t filesTotal_ = 0;
    std::unique_ptr<IEntryScanner> scanner_;
    std::unique_ptr<DirReadProgress> progress_;
};

void DirectoryRead::FindFileSystem() {
    panel_.fileSystem.Clear();
    panel_.mountPoint.Clear();
    if (panel_.archive || panel_.path[0] != L'/') return;
    LookUpMount(panel_.path, panel_.fileSystem, panel_.mountPoint);
    panel_.fileSystem = panel_.fileSystem.Left(kFileSystemCharacters);
    foldNames_ = FoldsCase(panel_);
}

void DirectoryRead::SetOldListAside() {
    isReread_ = SamePath(panel_.path, panel_.readPath);
    if (isReread_) {
        if (const entry* current = panel_.Current()) rememberedName_ = current->name;
        for (int i = 0; i < panel_.Count(); ++i) {
            const entry* e = panel_.entries.At(i);
            if (e->tagged || e->wasTagged) tagged_.Append(*e);
        }
    }
    panel_.entries.Clear();
    panel_.taggedCount = 0;
    panel_.taggedBytes = 0;
    panel_.subdirectories.Clear();
    panel_.linkTargets.Clear();
}

bool DirectoryRead::TakeFirst(entry*& found) {
    const int error = scanner_->First(found);
    if (error == kNoMoreEntries || error == ENOENT) {
        found = nullptr;
        return true;
    }
    if (error == kDone) return true;
    progress_.reset();  // the box has the screen for itself
    if (error != kDriveNotReady) {
        MessageBox(Westring(Estring::ErrorText(error)), panel_.path.c_str(), kBoxOk);
    }
    const bool mayNotEnter = error == EACCES || error == ENOTDIR || error == ENAMETOOLONG;
    if (mayNotEnter && !isRoot_) {
        scanner_.reset();
        StepToParent(panel_);
    } else {
        panel_.readError = error;
        panel_.top = panel_.cursor = 0;
    }
    return false;
}

bool DirectoryRead::IsSkipped(const entry& found) const {
    const bool parentToShow = found.IsDotDot() && !isRoot_;
    if (settings.hidden || !found.IsHidden()) {
        return found.IsDot() || (found.IsDotDot() && isRoot_);
    }
    return !parentToShow;
}

void DirectoryRead::FoldName(entry& found) const {
    for (wchar_t* ch = found.name; *ch; ++ch) {
        *ch = found.IsDirectory() ? UpperCaseOf(*ch) : LowerCaseOf(*ch);
    }
}

void DirectoryRead::Take(entry& found) {
    const bool isPlainDirectory = found.IsDirectory() && !found.IsLink();
    if (!found.IsDirectory() && !found.IsLink()) filesTotal_ += found.size;
    if (isPlainDirectory && !found.IsDot() && !found.IsDotDot()) {
        panel_.subdirectories.AddCopy(found.name);
    }
    if (IsSkipped(found)) return;
    if (isFiltered_ && !found.IsDirectory() && !seams_.filter->Accepts(panel_, found)) return;
    found.group = GroupOf(found);
    if (found.IsDotDot()) sawParent_ = true;
    if (foldNames_) FoldName(found);
    entry* kept = Keep(found);
    if (!kept || !settings.retainCount || !panel_.tree || !seams_.tree) return;
    if (kept->IsDirectory() && seams_.tree->KnownTotal(panel_, kept->name, kept->size)) {
        kept->level = 1;
    }
}

// The entry under the cursor is looked for here, where each name is at hand, and not in the sorted
// list, whose names lie all over the memory.
entry* DirectoryRead::Keep(const entry& found) {
    entry* kept = panel_.entries.Append(found);
    if (kept && isReread_ && wcscmp(kept->name, rememberedName_.c_str()) == 0) {
        rememberedEntry_ = kept;
    }
    return kept;
}

void DirectoryRead::ReadEntries(entry* found) {
    const AbortScope abortable;
    // Thousands of subdirectories are put in order once, not one by one.
    panel_.subdirectories.bulkMode = true;
    int result = found ? kDone : kNoMoreEntries;
    while (result == kDone) {
        Take(*found);
        if (AbortScope::Asked()) break;
        result = scanner_->Next(found);
    }
    panel_.readWhole = result == kNoMoreEntries;
    panel_.subdirectories.bulkMode = false;
    panel_.subdirectories.Sort();
}

void DirectoryRead::AddParentEntry() {
    if (sawParent_ || isRoot_) return;
    entry* parent = NewEntry(L"..");
    parent->flags = kDirectory;
    parent->group = kGroupParent;
    entry* kept = panel_.entries.InsertAtStart(*parent);
    if (isReread_ && SamePath(rememberedName_, parent->name)) rememberedEntry_ = kept;
    FreeEntry(parent);
}

void DirectoryRead::RestoreTags() {
    if (tagged_.Count() == 0) return;
    std::vector<entry*> byName(panel_.entries.Items(), panel_.entries.Items() + panel_.Count());
    const auto before = [](const entry* a, const entry* b) { return wcscmp(a->name, b->name) < 0; };
    std::sort(byName.begin(), byName.end(), before);
    for (int i = 0; i < tagged_.Count(); ++i) {
        entry* saved = tagged_.At(i);
        const auto hit = std::lower_bound(byName.begin(), byName.end(), saved, before);
        if (hit == byName.end() || wcscmp((*hit)->name, saved->name) != 0) continue;
        (*hit)->tagged = saved->tagged;
        (*hit)->wasTagged = saved->wasTagged;
        if (!saved->tagged) continue;
        ++panel_.taggedCount;
        panel_.taggedBytes += (*hit)->size;
    }
}

// A list that was taken over has no total of its own; the tree has had it from the other panel.
void DirectoryRead::TellNeighbours(bool hasTotal) {
    CPanel& other = panel_.Other();
    if (seams_.tree) {
        if (other.IsTree()) seams_.tree->Follow(other, panel_.path);
        if (panel_.tree && hasTotal) seams_.tree->ReadDone(panel_, filesTotal_);
    }
    if (other.kind == kKindInfo && seams_.info) seams_.info->Draw(other);
}

void DirectoryRead::PlaceCursorAgain() {
    if (!isReread_) {
        panel_.top = panel_.cursor = 0;
        return;
    }
    ClampCursor(panel_);
    if (rememberedEntry_) PlaceCursor(panel_, panel_.entries.IndexOf(rememberedEntry_));
}

bool DirectoryRead::CanTakeOver() const {
    const CPanel& other = panel_.Other();
    const bool isSameList =
        other.showing && other.IsFiles() && !other.IsTree() && SamePath(other.path, panel_.path) &&
        SamePath(other.readPath, panel_.path) && SamePath(other.filter, panel_.filter);
    const bool hasDiskOrder = other.sort % kReversed == kSortUnsorted;
    const bool wantsDiskOrder = panel_.sort % kReversed == kSortUnsorted;
    return panel_.pair->sharesReads && isSameList && other.readWhole && !other.needRead &&
           !other.archive && !panel_.archive && hasDiskOrder == wantsDiskOrder;
}

void DirectoryRead::TakeOver() {
    CPanel& other = panel_.Other();
    for (int i = 0; i < other.Count(); ++i) {
        entry* kept = Keep(*other.entries.At(i));
        if (!kept) break;
        kept->tagged = kept->wasTagged = 0;
    }
    panel_.subdirectories.bulkMode = true;
    for (int i = 0; i < other.subdirectories.Count(); ++i) {
        panel_.subdirectories.AddCopy(*other.subdirectories.Peek(i));
    }
    panel_.subdirectories.bulkMode = false;
    panel_.readWhole = true;
    panel_.entries.SetOrder(other.entries.Order());
    if (panel_.sort != other.sort) SortPanel(panel_);
}

// False when the reading has ended early.
bool DirectoryRead::ReadFromDisk() {
    progress_ = std::make_unique<DirReadProgress>(panel_.entries.CountAddress());
    if (panel_.archive && seams_.archives) {
        scanner_ = seams_.archives->OpenListing(panel_);
    } else {
        scanner_ = std::make_unique<DirectoryScanner>(panel_.path);
    }
    if (isFiltered_) seams_.filter->BeginRead(panel_);
    entry* found = nullptr;
    if (!TakeFirst(found)) return false;
    ReadEntries(found);
    scanner_.reset();
    AddParentEntry();
    SortPanel(panel_);
    return true;
}

void DirectoryRead::Run() {
    if (seams_.archives && panel_.archive) seams_.archives->CloseLeft(panel_);
    FindFileSystem();
    if (panel_.IsTree() && seams_.tree) {
        seams_.tree->BuildRows(panel_);
        return;
    }
    SetOldListAside();
    panel_.readError = 0;
    panel_.readWhole = false;
    if (seams_.tree) seams_.tree->Link(panel_);
    const bool takesOver = CanTakeOver();
    if (takesOver) {
        TakeOver();
    } else if (!ReadFromDisk()) {
        return;
    }
    RestoreTags();
    progress_.reset();
    TellNeighbours(!takesOver);
    PlaceCursorAgain();
}

}  // namespace

// A read that is put off must not leave the entries of another directory behind: with the new path
// in front of them they would name files that are not meant.
static void PutOffRead(CPanel& panel) {
    panel.needRead = true;
    if (SamePath(panel.path, panel.readPath)) return;
    panel.entries.Clear();
    panel.taggedCount = 0;
    panel.taggedBytes = 0;
    panel.subdirectories.Clear();
    panel.linkTargets.Clear();
    panel.top = panel.cursor = 0;
}

bool FoldsCase(const CPanel& panel) {
    return !panel.fileSystem.IsEmpty() && settings.caseFilter.FindNoCase(panel.fileSystem) >= 0;
}

int ReadDirectory(CPanel& panel) {
    if (!panel.showing || panel.kind == kKindInfo) {
        PutOffRead(panel);
        return 0;
    }
    panel.needRead = false;
    panel.needPaint = true;
    DirectoryRead(panel).Run();
    return 0;
}

}  // namespace zt
