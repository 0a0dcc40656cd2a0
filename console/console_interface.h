// Everything that the application may ask of a screen. Two consoles implement it over the one
// shared grid (grid_console.h): the GTK window, and the far end of a remote session.
//
// Coordinates are cells from 0, 0 at the top left. Writing stops at the right edge of the grid;
// what lies outside it is cut off. Calls may come from the first thread and, for drawing, from the
// short-lived progress threads; each call is whole in itself.
#pragma once

#include "console/cell.h"
#include "console/cell_string.h"
#include "console/event.h"
#include "foundation/estring.h"
#include "foundation/string_lists.h"
#include "foundation/westring.h"

namespace zt {

class CTerminal;
class IScrollBackSink;

class IConsole {
public:
    virtual ~IConsole() = default;

    virtual void GetSize(int& columns, int& rows) = 0;
    virtual void GetCursor(int& column, int& row) = 0;
    virtual void SetCursor(int column, int row) = 0;
    virtual int GetCursorSize() = 0;
    virtual void SetCursorSize(int percent) = 0;  // of the cell's height; 0 hides the cursor
    virtual Attribute GetFillAttribute() = 0;
    virtual void SetFillAttribute(Attribute attribute) = 0;

    // True and the next event, or false when the time ran out. 0 polls, -1 waits for ever.
    virtual bool ReadEvent(TEvent& event, int timeoutMilliseconds) = 0;
    virtual int PendingEvents() = 0;

    virtual void SetTitle(const Westring& title) = 0;
    virtual void SetTitleBytes(const Estring& title) = 0;  // in the code page
    virtual void SetCodePage(int codePage) = 0;            // 0 leaves it unchanged
    virtual void SetIconList(EstringStore& paths) = 0;     // what cannot be loaded is left out
    virtual void Beep() = 0;
    // The contents are lost. Null or empty family, and size 0, keep the present font. The result
    // is 1 when the grid has the asked size.
    virtual int Resize(int columns, int rows, const char* fontFamily, int fontSize) = 0;

    virtual void Clear() = 0;  // the whole grid, with the fill attribute
    virtual void FillRect(int column, int row, int width, int height, Attribute attribute) = 0;
    virtual void WriteCells(int column, int row, int width, int height, const Cell* cells) = 0;
    // width x height cells, from new[], owned by the caller; what lies outside is blank.
    virtual Cell* ReadCells(int column, int row, int width, int height) = 0;
    virtual void ReadCellString(int column, int row, int width, int height, CellString& out) = 0;
    virtual void SetAttributes(int column, int row, int count, Attribute attribute) = 0;
    virtual void FillChar(int column, int row, int count, Cell cell) = 0;
    virtual void WriteCellString(int column, int row, const Cell* zeroEnded) = 0;
    virtual void WriteWide(int column, int row, const wchar_t* text, Attribute attribute) = 0;
    virtual void WriteBytes(int column, int row, const char* text, Attribute attribute) = 0;
    virtual void WriteStream(const char* utf8) = 0;  // teletype output at the cursor
    virtual void ScrollUp(int column, int row, int width, int height, int lines,
                          Attribute attribute) = 0;
    virtual void ScrollDown(int column, int row, int width, int height, int lines,
                            Attribute attribute) = 0;

    // Nesting freeze: what changes in between is painted at the last EndUpdate.
    virtual void BeginUpdate() = 0;
    virtual void EndUpdate() = 0;
    virtual void Invalidate(int column, int row, int width, int height) = 0;

    // The part of the grid in which the mouse selects text. `dropSelection` also takes a shown
    // selection away.
    virtual void SetSelectableRect(int left, int top, int width, int height,
                                   bool dropSelection) = 0;
    virtual void SetSelectableRect(const CellRect& rect, bool dropSelection) = 0;
    virtual CellRect GetSelectableRect() = 0;
    virtual void ClearSelectableRect() = 0;

    virtual bool GetClipboardText(Westring& text) = 0;
    virtual void SetClipboardText(const Westring& text) = 0;
    virtual void SetClipboardBytes(const Estring& text) = 0;  // in the code page

    // While a program runs in the console, its terminal (terminal/terminal.h) takes the keys and
    // the teletype text. `fd`, borrowed until CloseTerminal, is where the keys are written to.
    // Opening closes one that is open; closing gives back what its alternate screen covers. When
    // CloseTerminal has returned, no other thread uses the terminal or `fd` any more. First thread
    // only. Terminal gives null when none is open.
    virtual void OpenTerminal(int fd) = 0;
    virtual void CloseTerminal() = 0;
    virtual CTerminal* Terminal() = 0;
    // Borrowed; null for none. Takes the lines that leave the screen. First thread only.
    virtual void SetScrollBackSink(IScrollBackSink* sink) = 0;
    // Nobody sees this screen any more, nor types, and nobody will again.
    virtual bool HasEnded() { return false; }
    // The user wants the screen gone, and nobody has read it yet: what runs on it is hung up.
    virtual bool IsClosing() { return HasEnded(); }
};

}  // namespace zt
