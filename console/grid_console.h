// The shared grid: everything about the screen that is not painting. It holds the cells, the
// cursor, the update freeze, the teletype output and the mouse selection of text, and tells its
// heir through a few hooks what to paint.
//
// One mutex guards the grid. It is held for the length of a memory copy and no longer, so neither
// the thread that draws nor the thread that paints ever waits for the other's work. Whatever the
// callers hand in, every cell of the grid holds a character that can be painted
// (code_page_437.h: ShownGlyph for text; FillChar and WriteCells let the codes 127 to 159 through
// as they are, so that what was read from the grid goes back unchanged).
#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "console/console_interface.h"
#include "console/terminal_sink.h"

namespace zt {

class GridConsole : public IConsole {
public:
    // A grid has at least one column and one row, and at most this many of each.
    static constexpr int kLargestSide = 4096;

    ~GridConsole() override;

    void GetSize(int& columns, int& rows) override;
    void GetCursor(int& column, int& row) override;
    void SetCursor(int column, int row) override;
    int GetCursorSize() override;
    void SetCursorSize(int percent) override;
    Attribute GetFillAttribute() override;
    void SetFillAttribute(Attribute attribute) override;
    void SetCodePage(int codePage) override;
    void SetTitleBytes(const Estring& title) override;
    void SetClipboardBytes(const Estring& text) override;

    void Clear() override;
    void FillRect(int column, int row, int width, int height, Attribute attribute) override;
    void WriteCells(int column, int row, int width, int height, const Cell* cells) override;
    Cell* ReadCells(int column, int row, int width, int height) override;
    // At most kLargestSide columns and rows; `out` then is that much shorter.
    void ReadCellString(int column, int row, int width, int height, CellString& out) override;
    void SetAttributes(int column, int row, int count, Attribute attribute) override;
    void FillChar(int column, int row, int count, Cell cell) override;
    void WriteCellString(int column, int row, const Cell* zeroEnded) override;
    void WriteWide(int column, int row, const wchar_t* text, Attribute attribute) override;
    void WriteBytes(int column, int row, const char* text, Attribute attribute) override;
    // A long text is written in stretches, between which other threads get at the grid.
    void WriteStream(const char* utf8) override;
    void ScrollUp(int column, int row, int width, int height, int lines,
                  Attribute attribute) override;
    void ScrollDown(int column, int row, int width, int height, int lines,
                    Attribute attribute) override;
    void BeginUpdate() override;
    void EndUpdate() override;
    void Invalidate(int column, int row, int width, int height) override;

    // The selectable rectangle is a CellRect like any other: left, top, and the first column and
    // row behind it. These four numbers, as they stand, are what goes over the wire.
    void SetSelectableRect(int left, int top, int width, int height, bool dropSelection) override;
    void SetSelectableRect(const CellRect& rect, bool dropSelection) override;
    CellRect GetSelectableRect() override;
    void ClearSelectableRect() override;

    // While a sink is set, teletype text and keys go there. First thread only. When the call that
    // takes a sink away has returned, the sink is in no other thread's hands any more.
    void SetTerminalSink(ITerminalSink* sink);
    ITerminalSink* TerminalSink();
    void SetScrollBackSink(IScrollBackSink* sink) override;
    void OpenTerminal(int fd) override;
    void CloseTerminal() override;
    CTerminal* Terminal() override { return terminal.get(); }
    // Any thread: true when a sink is set and has taken the key or the character.
    bool GiveKeyToSink(int32_t code, int32_t modifiers, int32_t unicode);
    bool GiveCharacterToSink(int32_t character);
    bool HasTerminalSink();

    // The mouse selection, driven by whoever takes the mouse. Each gives true when the event was
    // part of a selection and goes no further. A press takes a shown selection away first; the new
    // one shows from the first motion on, and motion counts only after a press inside.
    bool SelectionPress(int column, int row);
    bool SelectionMotion(int column, int row);
    // True with the selected text when a selection was shown; it is no longer shown then.
    bool SelectionRelease(Westring& text);

protected:
    GridConsole(int columns, int rows);

    // New blank cells (space, attribute 7) of a new size; the old contents are gone. Calls
    // CellsChanged for the whole grid. Sizes beyond the limits are brought within them.
    void Rebuild(int columns, int rows);

    // Hooks, called with `gridLock` held. They must not call back into the console.
    //
    // The cells of `rect` are to be painted. Never called while frozen: the last EndUpdate calls
    // it, as often as there are separate areas, with all that changed meanwhile.
    virtual void CellsChanged(const CellRect& rect) = 0;
    // The rows of `rect` have moved by `lines` (positive: up) and the freed rows are blank. True:
    // the heir has seen to all of it. False: all of `rect` counts as changed. The cursor and the
    // marks of a shown selection do not move with the cells; where a selection lies in `rect`,
    // CellsChanged follows in any case.
    virtual bool RowsMoved(const CellRect& rect, int lines, Attribute attribute, bool frozen) = 0;
    // The cursor has left oldColumn, oldRow, or its size changed. Called while frozen too. The
    // cursor may stand outside the grid; it is not to be seen then.
    virtual void CursorChanged(int oldColumn, int oldRow) = 0;
    // The outermost freeze began, or ended (after CellsChanged).
    virtual void FreezeChanged(bool /*frozen*/) {}
    virtual void SelectableChanged(const CellRect& /*rect*/, bool /*dropSelection*/) {}

    // For the heir, with `gridLock` held.
    int Columns() const { return columns; }
    int Rows() const { return rows; }
    const Cell* RowCells(int row) const;
    bool IsSelected(int column, int row) const;
    bool IsFrozen() const { return freezeCount > 0; }
    int CodePage() const { return codePage; }

    std::recursive_mutex gridLock;
    int columns;
    int rows;
    int cursorColumn = 0;
    int cursorRow = 0;
    int cursorSize = 0;
    Attribute fillAttribute;
    int codePage = 850;
    CellRect selectable;
    bool selecting = false;

private:
    struct RowSpan {
        int left = 0;
        int right = 0;
    };
    // All four edges belong to it.
    struct Selection {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };
    class Teletype;
    using Guard = std::lock_guard<std::recursive_mutex>;

    Cell* RowAt(int row);
    CellRect Clip(int64_t column, int64_t row, int64_t width, int64_t height) const;
    CellRect WholeGrid() const { return CellRect{0, 0, columns, rows}; }
    void Allocate(int newColumns, int newRows);
    void MarkChanged(const CellRect& rect);
    void PaintDirty();
    void Scroll(const CellRect& rect, int lines, Attribute attribute);
    template <class CellSource>
    CellRect StoreRow(int column, int row, int count, CellSource source);
    template <class CellSource>
    void WriteRun(int column, int row, int64_t count, CellSource source);
    template <class Visit>
    void VisitRead(int column, int row, int width, int height, Visit visit);
    Westring DecodeBytes(const char* text);
    CellRect SelectionRect() const;
    void DropSelection();

    std::vector<Cell> cells;     // row by row
    std::vector<RowSpan> dirty;  // what each row has waiting to be painted, while frozen
    int freezeCount = 0;

    bool selectionPressed = false;
    Selection selection;
    bool selectionGrowsRight = true;
    bool selectionGrowsDown = true;

    // Apart from the grid's, and never taken inside it: a sink may draw.
    std::recursive_mutex sinkLock;
    ITerminalSink* terminalSink = nullptr;
    IScrollBackSink* scrollBackSink = nullptr;
    std::unique_ptr<CTerminal> terminal;
};

}  // namespace zt
