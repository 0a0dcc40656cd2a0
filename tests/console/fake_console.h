// A console for tests: the real grid, without a screen. It records what would have been painted,
// plays back the events that a test gives it, and lets the test look at the cells. While it lives
// it is the program's console. The test's thread owns it; events may come from any thread.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "console/event_queue.h"
#include "console/grid_console.h"
#include "console/key_codes.h"
#include "console/program_state.h"

namespace zt {

class FakeConsole : public GridConsole {
public:
    struct Move {
        CellRect rect;
        int lines;
        Attribute attribute;
        bool frozen;
    };

    explicit FakeConsole(int columnCount = 80, int rowCount = 25)
        : GridConsole(columnCount, rowCount), previous_(zt::console) {
        zt::console = this;
        screenColumns = columnCount;
        screenLines = rowCount;
        panelRows = rowCount - 6;
        modifiersLive = modifiersSeen = modifiersDrawn = 0;
        abortState = kAbortIdle;
        quitSeen = false;
    }
    ~FakeConsole() override { zt::console = previous_; }

    // --- What the test gives.
    void PushEvent(const TEvent& event) { events_.Push(event); }
    void PushKey(int32_t code, int32_t modifiers = 0, int32_t unicode = 0) {
        PushEvent(TEvent{0, code, modifiers, 0, 0, unicode});
    }
    void PushText(const std::string& text) {
        for (const char ch : text)
            PushKey(static_cast<unsigned char>(ch));
    }
    void PushMouse(EventKind kind, int32_t button, int column, int row, int32_t modifiers = 0) {
        PushEvent(TEvent{static_cast<int32_t>(kind), button, modifiers, column, row, 0});
    }
    // On: a read waits for events from another thread. Off: when the events have run out, a read
    // that would wait fails the test and gives the quit event, so that no modal loop hangs.
    void WaitForEvents(bool wait) { waits_ = wait; }
    // The next events running out ends the loop with the quit event without failing the test.
    void ExpectQuitWhenEmpty() { quitExpected_ = true; }

    // --- What the test sees.
    std::string RowText(int row) {  // UTF-8, blanks on the right included
        return Text(0, row, GridColumns());
    }
    std::string Text(int column, int row, int width) {
        CellString line;
        ReadCellString(column, row, width, 1, line);
        Westring wide;
        for (int i = 0; i < line.Length(); i++)
            wide += static_cast<wchar_t>(line.At(i).character);
        return wide.ToUtf8().c_str();
    }
    Cell CellAt(int column, int row) {
        CellString line;
        ReadCellString(column, row, 1, 1, line);
        return line.At(0);
    }
    uint32_t CharacterAt(int column, int row) { return CellAt(column, row).character; }
    int AttributeAt(int column, int row) { return CellAt(column, row).attribute; }
    bool Selected(int column, int row) {
        std::lock_guard<std::recursive_mutex> guard(gridLock);
        return IsSelected(column, row);
    }
    int PaintedCells() const {
        int sum = 0;
        for (const CellRect& r : painted)
            sum += (r.right - r.left) * (r.bottom - r.top);
        return sum;
    }
    void ForgetRecords() {
        painted.clear();
        moves.clear();
        cursorChanges = 0;
    }

    std::vector<CellRect> painted;  // one for each CellsChanged, in order
    std::vector<Move> moves;        // one for each RowsMoved
    std::vector<bool> freezes;      // one for each FreezeChanged
    std::vector<CellRect> selectableRects;
    int cursorChanges = 0;
    bool takesMoves = false;  // what RowsMoved answers
    std::string title;        // UTF-8
    Westring clipboard;
    bool clipboardWorks = true;
    int beeps = 0;
    std::vector<std::string> icons;
    std::string fontFamily;
    int fontSize = 0;

    // --- The console.
    bool ReadEvent(TEvent& event, int timeoutMilliseconds) override {
        if (waits_) return events_.Pop(event, timeoutMilliseconds);
        if (events_.Pop(event, 0)) return true;
        if (timeoutMilliseconds == 0) return false;
        if (!quitExpected_) ADD_FAILURE() << "the events have run out and more are read";
        if (++emptyReads_ > 1000) {
            std::fputs("a loop goes on after the quit event\n", stderr);
            std::abort();
        }
        event = TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0};
        return true;
    }
    int PendingEvents() override { return events_.Pending(); }
    void SetTitle(const Westring& text) override { title = text.ToUtf8().c_str(); }
    void SetIconList(EstringStore& paths) override {
        icons.clear();
        for (int i = 0; i < paths.Count(); i++)
            icons.push_back(paths.Peek(i)->c_str());
    }
    void Beep() override { beeps++; }
    int Resize(int columnCount, int rowCount, const char* family, int size) override {
        if (family != nullptr && *family != 0) fontFamily = family;
        if (size != 0) fontSize = size;
        Rebuild(columnCount, rowCount);
        return columns == columnCount && rows == rowCount;
    }
    bool GetClipboardText(Westring& text) override {
        if (clipboardWorks) text = clipboard;
        return clipboardWorks;
    }
    void SetClipboardText(const Westring& text) override { clipboard = text; }

protected:
    void CellsChanged(const CellRect& rect) override { painted.push_back(rect); }
    bool RowsMoved(const CellRect& rect, int lines, Attribute attribute, bool frozen) override {
        moves.push_back(Move{rect, lines, attribute, frozen});
        return takesMoves;
    }
    void CursorChanged(int, int) override { cursorChanges++; }
    void FreezeChanged(bool frozen) override { freezes.push_back(frozen); }
    void SelectableChanged(const CellRect& rect, bool) override { selectableRects.push_back(rect); }

private:
    int GridColumns() {
        int columnCount, rowCount;
        GetSize(columnCount, rowCount);
        return columnCount;
    }

    IConsole* previous_;
    CEventQueue events_;
    std::atomic<bool> waits_{false};
    bool quitExpected_ = false;
    int emptyReads_ = 0;
};

inline bool operator==(const CellRect& a, const CellRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline void PrintTo(const CellRect& rect, std::ostream* out) {
    *out << "columns " << rect.left << " to " << rect.right << ", rows " << rect.top << " to "
         << rect.bottom;
}
inline void PrintTo(const Cell& cell, std::ostream* out) {
    *out << "U+" << std::hex << cell.character << " in 0x" << static_cast<int>(cell.attribute)
         << std::dec;
}

}  // namespace zt
