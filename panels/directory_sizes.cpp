// Which directories are added up, and what becomes of their totals.
#include "panels/directory_sizes.h"

#include <chrono>

#include "console/key_codes.h"
#include "console/read_key.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/directory_sizes_window.h"
#include "panels/directory_walk.h"
#include "panels/entry_sorting.h"
#include "panels/panel_drawing.h"
#include "panels/panel_pair.h"

namespace zt {

namespace {

// Listens for Esc while the work goes on. The clock in the corner lives on reads, so that there is
// one now and then even when nothing was typed.
class EscListener {
public:
    bool Heard();

private:
    using Clock = std::chrono::steady_clock;
    static constexpr auto kBetweenReads = std::chrono::milliseconds(250);

    Clock::time_point lastRead_ = Clock::now();
};

// Takes what was typed off the queue; true for Esc, and at the end of the program.
bool EscListener::Heard() {
    if (!KeyWaiting()) {
        const Clock::time_point now = Clock::now();
        if (now - lastRead_ < kBetweenReads) return false;
        lastRead_ = now;
    }
    do {
        const int32_t key = ReadKey(nullptr, 0);
        if (key == kKeyEsc || key == kKeyQuit) return true;
    } while (KeyWaiting());
    return false;
}

bool IsOwnDirectory(const entry& e) {
    return e.IsDirectory() && !e.IsLink() && !e.IsDotDot();
}

class SizeCalculation {
public:
    explicit SizeCalculation(CPanel& panel)
        : panel_(panel), seams_(panel.pair->seams), byTags_(panel.taggedCount != 0) {}

    bool HasWork() const;
    // False when the user stopped it.
    bool Run();
    const WalkProgress& Progress() const { return progress_; }

private:
    bool IsMeant(const entry& e) const { return IsOwnDirectory(e) && (!byTags_ || e.tagged); }
    bool AddUp(entry& directory);
    int64_t TotalOf(const Westring& path);

    CPanel& panel_;
    const PanelSeams& seams_;
    const bool byTags_;
    EscListener escape_;
    WalkProgress progress_;
};

bool SizeCalculation::HasWork() const {
    if (!byTags_) return panel_.Current() && IsMeant(*panel_.Current());
    for (int i = 0; i < panel_.Count(); ++i) {
        if (IsMeant(*panel_.entries.At(i))) return true;
    }
    return false;
}

bool SizeCalculation::Run() {
    if (!byTags_) return AddUp(*panel_.Current());
    for (int i = 0; i < panel_.Count(); ++i) {
        entry& e = *panel_.entries.At(i);
        if (IsMeant(e) && !AddUp(e)) return false;
    }
    return true;
}

// Nothing changes for a directory that was not added up to its end.
bool SizeCalculation::AddUp(entry& directory) {
    Westring path = panel_.path;
    path.AddTrailingSlash();
    path += directory.name;
    const int64_t total = TotalOf(path);
    if (total < 0) return false;
    if (byTags_) panel_.taggedBytes += static_cast<uint64_t>(total) - directory.size;
    directory.size = static_cast<uint64_t>(total);
    directory.level = 1;
    return true;
}

int64_t SizeCalculation::TotalOf(const Westring& path) {
    const StopWanted stopWanted = [this] { return escape_.Heard(); };
    if (panel_.archive && seams_.archives) {
        return seams_.archives->DirectoryTotal(panel_, path, progress_, stopWanted);
    }
    ITreeTotals* totals = panel_.tree ? seams_.totals : nullptr;
    DirectoryWalk walk(progress_, stopWanted, totals);
    return walk.Total(NameToBytes(path).c_str(), totals ? totals->NodeOf(panel_, path) : nullptr);
}

void SaveChangedTree(CPanel& panel) {
    const PanelSeams& seams = panel.pair->seams;
    if (!panel.tree || !seams.totals || !seams.totals->HasChanged(panel)) return;
    if (seams.trees) seams.trees->Save(panel);
    if (panel.Other().IsTree()) panel.Other().needRead = true;
}

void ShowSizes(CPanel& panel) {
    SaveChangedTree(panel);
    if (panel.sort % kReversed == kSortSize) SetSort(panel, panel.sort);
    DrawPanel(panel);
    DrawStatusRow(panel);
}

}  // namespace

bool CalculateDirSizes(CPanel& panel, bool quiet) {
    if (panel.Count() == 0 || !panel.IsShowingFiles() || panel.IsTree()) return true;
    SizeCalculation calculation(panel);
    bool isWhole = true;
    if (calculation.HasWork()) {
        DirectorySizesWindow window(calculation.Progress());
        isWhole = calculation.Run();
        window.Finish(!quiet && settings.sizeCountPause);
    }
    ShowSizes(panel);
    return isWhole;
}

}  // namespace zt
