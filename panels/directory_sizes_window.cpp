// What the window of directory sizes shows, and its thread.
#include "panels/directory_sizes_window.h"

#include <cerrno>

#include "foundation/file_name.h"
#include "foundation/start_thread.h"
#include "panels/entry_fields.h"
#include "ui/abbreviate_path.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr uint32_t kPeriodMilliseconds = 100;
constexpr int kWidth = 54;
constexpr int kHeight = 8;
constexpr int kCountsRow = 2;
constexpr int kSizeRow = 3;
constexpr int kPathRow = 4;
constexpr int kButtonRow = 5;
constexpr int kButtonColumn = 23;
constexpr int kPathColumns = 50;
constexpr int kCountColumns = 14;
constexpr int kSizeColumns = 30;
constexpr int kShortSizeColumns = 6;

// A short form in units stands behind a number that has many digits.
Westring SizeText(uint64_t bytes) {
    const Westring whole = FormatSize(bytes, kSizeColumns);
    const Westring brief = FormatSize(bytes, kShortSizeColumns);
    Westring text = L"Total Size: " + whole;
    if (brief.Length() != whole.Length()) text += L" (" + brief + L")";
    return text;
}

}  // namespace

DirectorySizesWindow::DirectorySizesWindow(const WalkProgress& progress)
    : progress_(progress), dialog_(-1, -2, kWidth, kHeight, Colour(ColourClass::kMessages)) {
    dialog_.SetTitle(" Reading Directories ");
    // Without it the counts are drawn at the end only.
    static_cast<void>(StartThread(painter_, [this] { Loop(); }));
}

DirectorySizesWindow::~DirectorySizesWindow() {
    stop_.Set();
    if (painter_.joinable()) painter_.join();
}

void DirectorySizesWindow::Finish(bool pause) {
    stop_.Set();
    if (painter_.joinable()) painter_.join();
    {
        const UpdateFreeze freeze;
        DrawCounts();
        DrawRow(kPathRow, Westring());
        if (pause) dialog_.AddButton(kButtonColumn, kButtonRow, true, kExitEnter, "_OK");
    }
    if (pause) dialog_.Run();
}

void DirectorySizesWindow::Loop() {
    while (!stop_.IsSet()) {
        {
            const UpdateFreeze freeze;
            DrawCounts();
            DrawPath();
        }
        stop_.Wait(kPeriodMilliseconds);
    }
}

void DirectorySizesWindow::DrawCounts() {
    Westring counts = L"Directories: " + FormatSize(progress_.Directories(), kCountColumns);
    counts += L"   Files: " + FormatSize(progress_.Files(), kCountColumns);
    DrawRow(kCountsRow, counts);
    DrawRow(kSizeRow, SizeText(progress_.Bytes()));
}

void DirectorySizesWindow::DrawPath() {
    Westring path = NameFromBytes(progress_.Path().c_str());
    AbbreviatePath(path, kPathColumns);
    DrawRow(kPathRow, path);
}

// In the middle of the row, which holds nothing else.
void DirectorySizesWindow::DrawRow(int row, const Westring& text) {
    const int left = (dialog_.ClientWidth() - text.Length()) / 2;
    const Westring line = Westring::Repeat(L' ', left) + text;
    dialog_.Print(0, row, line.PadRight(dialog_.ClientWidth()));
}

}  // namespace zt
