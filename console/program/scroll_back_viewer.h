// The screen on which the user pages back through what programs have written. First thread only.
#pragma once

#include <cstdint>

#include "commands/loop_state.h"
#include "console/scroll_back.h"
#include "ui/win.h"

namespace zt {

// A window over the whole screen, opened on the newest lines.
class CScrollBackViewer : public Win {
public:
    explicit CScrollBackViewer(const CScrollBackBuffer& buffer);

    // Until Esc. Meanwhile the mouse selects text anywhere on the screen.
    void Run();

    int64_t Top() const { return top; }  // index of the line in the first row

private:
    void DrawPage();
    void DrawRow(int row);
    int64_t LastTop() const { return buffer.Count() - rows; }
    bool HasLinesBelow() const { return top < LastTop(); }
    void Step(int lines);
    void GoTo(int64_t newTop);
    void TakeKey(int32_t code);

    const CScrollBackBuffer& buffer;
    CellString line;  // the one that is drawn
    int columns;
    int rows;
    int64_t top;
};

// The command behind the key. What the console shows without the panels is, less its last two
// rows, part of the history while it is looked at.
class ScrollBackCommand : public IScrollBackCommand {
public:
    // Borrows the buffer.
    explicit ScrollBackCommand(CScrollBackBuffer& buffer_) : buffer(buffer_) {}
    void ShowScrollBack(LoopState& state) override;

private:
    CScrollBackBuffer& buffer;
};

}  // namespace zt
