// The shared grid: everything about the screen that is not painting. It holds the cells, the
// cursor, the update freeze, the teletype output and the mouse selection of text, and tells its
// heir through a few hooks what to paint.
//
// One mutex guards the grid. It is held for the length of a memory copy and no longer, so neither
// the thread that draws nor the thread that paints ever waits for the other's work.
#pragma once

#include <mutex>

#include "console/console_interface.h"
#include "console/terminal_sink.h"

namespace zt {

class GridConsole : public IConsole {
public:
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
    void ReadCellString(int column, int row, int width, int height, CellString& out) override;
    void SetAttributes(int column, int row, int count, Attribute attribute) override;
    void FillChar(int column, int row, int count, Cell cell) override;
    void WriteCellString(int column, int row, const Cell* zeroEnded) override;
    void WriteWide(int column, int row, const wchar_t* text, Attribute attribute) override;
    void WriteBytes(int column, int row, const char* text, Attribute attribute) override;
    void WriteStream(const char* utf8) override;
    void ScrollUp(int column, int row, int width, int height, int lines,
                  Attribute attribute) override;
    void ScrollDown(int column, int row, int width, int height, int lines,
                    Attribute attribute) override;
    void BeginUpdate() override;
    void EndUpdate() override;
    void Invalidate(int column, int row, int width, int height) override;

    void SetSelectableRect(int left, int top, int width, int height, bool dropSelection) override;
    void SetSelectableRect(const CellRect& rect, bool dropSelection) override;
    CellRect GetSelectableRect() override;
    void ClearSelectableRect() override;

    // While a sink is set, teletype text goes there, and so do keys (the heir asks for it).
    void SetTerminalSink(ITerminalSink* sink);
    ITerminalSink* TerminalSink();
    void SetScrollBackSink(IScrollBackSink* sink);

    // The mouse selection, driven by whoever takes the mouse. Each gives true when the event was
    // part of a selection and goes no further.
    bool SelectionPress(int column, int row);
    bool SelectionMotion(int column, int row);
    // True with the selected text when a selection was shown; it is no longer shown then.
    bool SelectionRelease(Westring& text);

protected:
    GridConsole(int columns, int rows);

    // New blank cells (space, attribute 7) of a new size; the old contents are gone.
    void Rebuild(int columns, int rows);

    // Hooks, called with `gridLock` held. They must not call back into the console.
    //
    // The cells of `rect` are to be painted. Never called while frozen: the last EndUpdate calls
    // it with all that changed meanwhile.
    virtual void CellsChanged(const CellRect& rect) = 0;
    // The rows of `rect` have moved by `lines` (positive: up) and the freed rows are blank. True:
    // the heir has seen to all of it. False: all of `rect` counts as changed.
    virtual bool RowsMoved(const CellRect& rect, int lines, Attribute attribute, bool frozen) = 0;
    // The cursor has left oldColumn, oldRow, or its size changed. Called while frozen too.
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
    // Private parts are this file's own affair.
    struct State;
    State* state;
    Cell* cells = nullptr;
    int freezeCount = 0;
};

}  // namespace zt
