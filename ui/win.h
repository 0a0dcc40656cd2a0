// A rectangle of the screen that remembers what lay under it: panels, dialogs, pop-ups, menus.
// Windows stack by lifetime alone. Whoever makes one owns it, and must destroy it before any
// window made earlier over the same area, for its destructor puts back a picture of the past.
// First thread, or a progress thread with a window of its own; there is no lock here.
#pragma once

#include <memory>

#include "console/cell.h"
#include "console/cell_string.h"
#include "foundation/colour_classes.h"
#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

struct Point {
    int x = 0;
    int y = 0;
};

// In place of an attribute: the window's own attribute when printing, no frame or the console's
// fill attribute when making a window.
inline constexpr int kNoAttribute = -1;

class Win {
public:
    // x >= 0: left and right edge. x < 0: centred, and `rightOrWidth` is a width.
    // y >= 0: top and bottom edge. y < 0: `bottomOrHeight` is a height, and the free rows are
    // divided by -y: -1 at the bottom, -2 centred, -3 a third of the way down.
    // Edges are inclusive. `attribute` below 0: the console's fill attribute, and nothing is
    // cleared. `frameAttribute` below 0: no frame. A framed window has a shadow where there is
    // room for one and the settings want it, unless `noShadow` is not 0.
    Win(int x, int y, int rightOrWidth, int bottomOrHeight, int attribute,
        int frameAttribute = kNoAttribute, int noShadow = 0);
    virtual ~Win();
    Win(const Win&) = delete;
    Win& operator=(const Win&) = delete;

    // All coordinates are cells of the client area (the outer rectangle less the frame). 8-bit
    // text is UTF-8. Printing leaves the print position behind the text.
    void Print(int x, int y, const char* text, int textAttribute = kNoAttribute);
    void Print(int x, int y, const wchar_t* text, int textAttribute = kNoAttribute);
    void Print(int x, int y, const Westring& text, int textAttribute = kNoAttribute);
    void Print(int x, int y, const CellString& text);
    void Print(const char* text, int textAttribute = kNoAttribute);
    void Print(const wchar_t* text, int textAttribute = kNoAttribute);
    void Print(const Westring& text, int textAttribute = kNoAttribute);
    void Print(const CellString& text);
    void PrintCentred(int y, const char* text, int textAttribute = kNoAttribute);
    void PrintCentred(int y, const wchar_t* text, int textAttribute = kNoAttribute);
    void PrintCentred(int y, const Westring& text, int textAttribute = kNoAttribute);
    // The text ends just before column x. A text longer than x starts left of the window.
    void PrintRightAligned(int x, int y, const char* text, int textAttribute = kNoAttribute);
    void PrintRightAligned(int x, int y, const Westring& text, int textAttribute = kNoAttribute);
    // The first place of each byte of `hotKeys` in the text, upper case before lower case, is
    // shown in a colour that stands out. 0 bytes end `hotKeys`.
    void PrintHot(int x, int y, const Westring& text, const char* hotKeys,
                  int textAttribute = kNoAttribute);
    // Folds at blanks; lines after the first begin at column 0.
    void PrintWrapped(int x, int y, const Westring& text);
    void ClearToEndOfLine(int textAttribute = kNoAttribute);
    // The client area, less some rows at its top and bottom, becomes blank.
    void Clear() { Clear(0, 0); }
    void Clear(int topMargin, int bottomMargin);
    // The region moves up by `lines`, or down by -lines; the rows left free become blank.
    void Scroll(int x, int y, int width, int height, int lines);
    // Draws a double line at the outer rectangle and moves the origin inside it.
    void DrawFrame(Attribute frameAttribute);
    // Swaps the window with what lies under it. A second call with the same value does nothing.
    void SetHidden(bool value);
    // Makes a screen position relative to the origin; true when it lay inside the window.
    bool ScreenToWindow(Point& point) const;

    int Left() const { return edges.left; }
    int Top() const { return edges.top; }
    int Right() const { return edges.right; }
    int Bottom() const { return edges.bottom; }
    int OriginX() const { return originX; }
    int OriginY() const { return originY; }
    int ClientWidth() const { return edges.right - edges.left + 1 - 2 * (originX - edges.left); }
    int ClientHeight() const { return edges.bottom - edges.top + 1 - 2 * (originY - edges.top); }
    int CursorX() const { return cursorX; }
    int CursorY() const { return cursorY; }
    void SetCursor(int x, int y);  // the print position
    Attribute OwnAttribute() const { return ownAttribute; }
    void SetOwnAttribute(Attribute value) { ownAttribute = value; }
    bool HasShadow() const { return hasShadow; }
    bool HasFrame() const { return hasFrame; }
    bool IsHidden() const { return hidden; }
    int SavedCells() const;  // how many cells are kept, the shadow's area included

private:
    // The outer rectangle in screen coordinates, inclusive.
    struct Edges {
        int32_t left, top, right, bottom;
    };

    int SavedWidth() const { return edges.right - edges.left + 1 + (hasShadow ? 2 : 0); }
    int SavedHeight() const { return edges.bottom - edges.top + 1 + (hasShadow ? 1 : 0); }
    Attribute Resolve(int textAttribute) const;
    void DrawShadow() const;

    std::unique_ptr<Cell[]> saved;
    Edges edges;
    int32_t originX, originY;
    int32_t cursorX = 0, cursorY = 0;
    Attribute ownAttribute;
    bool hasShadow;
    bool hasFrame;
    bool hidden = false;
};

}  // namespace zt
