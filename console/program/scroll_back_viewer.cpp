#include "console/program/scroll_back_viewer.h"

#include <algorithm>
#include <optional>

#include "console/program_state.h"
#include "console/read_key.h"
#include "ui/clock_window.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

// The command line and the function-key bar.
constexpr int kLastLines = 2;
// Lines of the old page that stay on the screen at a step of a page.
constexpr int kOverlap = 2;

// Takes the panels off the screen, and what lies over them, for the length of a scope.
class HiddenPanels {
public:
    explicit HiddenPanels(PanelPair& panels_) : panels(panels_) {
        DeleteClockWindow();
        SetHidden(true);
    }
    ~HiddenPanels() { SetHidden(false); }
    HiddenPanels(const HiddenPanels&) = delete;
    HiddenPanels& operator=(const HiddenPanels&) = delete;

private:
    void SetHidden(bool hidden) {
        for (CPanel& panel : panels.panel)
            if (panel.window) panel.window->SetHidden(hidden);
    }

    PanelPair& panels;
};

}  // namespace

CScrollBackViewer::CScrollBackViewer(const CScrollBackBuffer& buffer_)
    : Win(0, 0, screenColumns - 1, screenLines - 1, Colour(ColourClass::kCommandLine)),
      buffer(buffer_),
      columns(screenColumns),
      rows(screenLines),
      top(std::max<int64_t>(buffer_.Count() - screenLines, 0)) {
    DrawPage();
}

void CScrollBackViewer::DrawRow(int row) {
    buffer.ReadLine(top + row, line);
    Print(0, row, line);
    if (line.Length() < columns) ClearToEndOfLine();
}

void CScrollBackViewer::DrawPage() {
    const UpdateFreeze freeze;
    for (int row = 0; row < rows; row++)
        DrawRow(row);
}

void CScrollBackViewer::Step(int lines) {
    const UpdateFreeze freeze;
    top += lines;
    Scroll(0, 0, columns, rows, lines);
    DrawRow(lines > 0 ? rows - 1 : 0);
}

void CScrollBackViewer::GoTo(int64_t newTop) {
    top = newTop;
    DrawPage();
}

void CScrollBackViewer::TakeKey(int32_t code) {
    switch (code) {
        case kKeyUp:
            if (top > 0) Step(-1);
            break;
        case kKeyDown:
            if (HasLinesBelow()) Step(1);
            break;
        case kKeyPageUp:
            if (top > 0) GoTo(std::max<int64_t>(top + kOverlap - rows, 0));
            break;
        case kKeyPageDown:
            if (HasLinesBelow()) GoTo(std::min(top + rows - kOverlap, LastTop()));
            break;
        case kKeyHome:
            if (top > 0) GoTo(0);
            break;
        case kKeyEnd:
            if (HasLinesBelow()) GoTo(LastTop());
            break;
        default:
            break;
    }
}

void CScrollBackViewer::Run() {
    const CellRect selectable = console->GetSelectableRect();
    console->SetSelectableRect(OriginX(), OriginY(), ClientWidth(), ClientHeight(), true);
    for (int32_t key = 0; key != kKeyEsc && key != kKeyQuit;) {
        key = ReadKey(nullptr, -1);
        TakeKey(key);
    }
    console->SetSelectableRect(selectable, true);
}

// The screen changes in one step when the viewer comes, and in one when it goes.
void ScrollBackCommand::ShowScrollBack(LoopState& state) {
    std::optional<UpdateFreeze> freeze(std::in_place);
    const HiddenPanels hidden(state.panels);
    const int count = std::max(screenLines - kLastLines, 0);
    for (int row = 0; row < count; row++)
        buffer.AddScreenLine(*console, row);
    {
        CScrollBackViewer viewer(buffer);
        freeze.reset();
        viewer.Run();
        freeze.emplace();
    }
    for (int row = 0; row < count; row++)
        buffer.RemoveLast();
    state.DrawAll();
}

}  // namespace zt
