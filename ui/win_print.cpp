// The print family of a window: everything that puts text into its client area.
#include <cstring>
#include <vector>

#include "console/program_state.h"
#include "ui/hot_keys.h"
#include "ui/update_freeze.h"
#include "ui/win.h"

namespace zt {

Attribute Win::Resolve(int textAttribute) const {
    return textAttribute < 0 ? ownAttribute : static_cast<Attribute>(textAttribute);
}

void Win::SetCursor(int x, int y) {
    cursorX = x;
    cursorY = y;
}

void Win::Print(int x, int y, const wchar_t* text, int textAttribute) {
    console->WriteWide(originX + x, originY + y, text, Resolve(textAttribute));
    SetCursor(x + static_cast<int>(wcslen(text)), y);
}

void Win::Print(int x, int y, const Westring& text, int textAttribute) {
    Print(x, y, text.c_str(), textAttribute);
}

void Win::Print(int x, int y, const char* text, int textAttribute) {
    Print(x, y, Westring(text).c_str(), textAttribute);
}

void Win::Print(int x, int y, const CellString& text) {
    std::vector<Cell> zeroEnded(text.Cells(), text.Cells() + text.Length());
    zeroEnded.push_back(Cell{0, 0});
    console->WriteCellString(originX + x, originY + y, zeroEnded.data());
    SetCursor(x + text.Length(), y);
}

void Win::Print(const wchar_t* text, int textAttribute) {
    Print(cursorX, cursorY, text, textAttribute);
}
void Win::Print(const Westring& text, int textAttribute) {
    Print(cursorX, cursorY, text.c_str(), textAttribute);
}
void Win::Print(const char* text, int textAttribute) {
    Print(cursorX, cursorY, text, textAttribute);
}
void Win::Print(const CellString& text) {
    Print(cursorX, cursorY, text);
}

void Win::PrintCentred(int y, const wchar_t* text, int textAttribute) {
    Print((ClientWidth() - static_cast<int>(wcslen(text))) / 2, y, text, textAttribute);
}
void Win::PrintCentred(int y, const Westring& text, int textAttribute) {
    PrintCentred(y, text.c_str(), textAttribute);
}
void Win::PrintCentred(int y, const char* text, int textAttribute) {
    PrintCentred(y, Westring(text).c_str(), textAttribute);
}

void Win::PrintRightAligned(int x, int y, const Westring& text, int textAttribute) {
    Print(x - text.Length(), y, text.c_str(), textAttribute);
}
void Win::PrintRightAligned(int x, int y, const char* text, int textAttribute) {
    PrintRightAligned(x, y, Westring(text), textAttribute);
}

void Win::PrintHot(int x, int y, const Westring& text, const char* hotKeys, int textAttribute) {
    UpdateFreeze freeze;
    Print(x, y, text.c_str(), textAttribute);
    const Attribute hot = HotAttribute(Resolve(textAttribute));
    for (; hotKeys && *hotKeys; ++hotKeys) {
        const int at = FindHotKey(text, *hotKeys);
        if (at >= 0) console->SetAttributes(originX + x + at, originY + y, 1, hot);
    }
}

void Win::PrintWrapped(int x, int y, const Westring& text) {
    const int lastColumn = edges.right - edges.left + (edges.left - originX) * 2;
    Westring rest = text;
    for (int column = x, row = y; !rest.IsEmpty(); column = 0, ++row) {
        // At least one character a line, so that a window too narrow for any still ends.
        const int room = lastColumn > column ? lastColumn - column : 1;
        Westring line = rest.Left(room + 1);
        if (line.Length() > room) {
            const int blank = line.FindLast(L' ');
            line = line.Left(blank >= 0 ? blank : room);
        }
        Print(column, row, line.c_str());
        rest = rest.Right(rest.Length() - line.Length()).TrimLeft();
    }
}

void Win::ClearToEndOfLine(int textAttribute) {
    const int end = edges.right - (hasFrame ? 1 : 0);
    const int width = end - (originX + cursorX) + 1;
    if (width > 0) {
        console->FillRect(originX + cursorX, originY + cursorY, width, 1, Resolve(textAttribute));
    }
}

}  // namespace zt
