// What a program writes to the embedded terminal. The first byte tells how the rest is cut; it must
// make no difference to what is left on the screen and what is kept of the lines that left it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "console/code_page_437.h"
#include "console/grid_console.h"
#include "console/scroll_back.h"
#include "console/terminal/terminal.h"

namespace {

class BlindConsole : public zt::GridConsole {
public:
    BlindConsole() : zt::GridConsole(24, 7) {
        SetScrollBackSink(&scrollBack);
        OpenTerminal(-1);
    }
    ~BlindConsole() override { CloseTerminal(); }

    bool ReadEvent(zt::TEvent&, int) override { return false; }
    int PendingEvents() override { return 0; }
    void SetTitle(const zt::Westring&) override {}
    void SetIconList(zt::EstringStore&) override {}
    void Beep() override {}
    int Resize(int, int, const char*, int) override { return 0; }
    bool GetClipboardText(zt::Westring&) override { return false; }
    void SetClipboardText(const zt::Westring&) override {}

    void Write(const uint8_t* bytes, int n) {
        Terminal()->Write(reinterpret_cast<const char*>(bytes), n);
    }
    // Every cell can be painted, and the cursor stands on the screen or right behind a row.
    void Check() const {
        for (int row = 0; row < Rows(); row++) {
            for (int column = 0; column < Columns(); column++) {
                const uint32_t character = RowCells(row)[column].character;
                if (character != zt::ShownGlyph(character)) abort();
            }
        }
        if (cursorColumn < 0 || cursorColumn > Columns()) abort();
        if (cursorRow < 0 || cursorRow >= Rows()) abort();
    }
    bool IsLike(const BlindConsole& other) const {
        if (cursorColumn != other.cursorColumn || cursorRow != other.cursorRow) return false;
        if (cursorSize != other.cursorSize) return false;
        for (int row = 0; row < Rows(); row++)
            if (!std::equal(RowCells(row), RowCells(row) + Columns(), other.RowCells(row)))
                return false;
        return scrollBack.Count() == other.scrollBack.Count();
    }

    zt::CScrollBackBuffer scrollBack;

protected:
    void CellsChanged(const zt::CellRect&) override {}
    bool RowsMoved(const zt::CellRect&, int, zt::Attribute, bool) override { return true; }
    void CursorChanged(int, int) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    uint32_t cut = data[0];
    data++;
    const int count = static_cast<int>(size - 1);

    BlindConsole whole;
    BlindConsole pieces;
    whole.Write(data, count);
    for (int at = 0; at < count;) {
        cut = cut * 1664525 + 1013904223;
        const int n = std::min(count - at, static_cast<int>(cut >> 16 & 15) + 1);
        pieces.Write(data + at, n);
        at += n;
    }
    whole.Check();
    pieces.Check();
    if (!whole.IsLike(pieces)) abort();
    zt::CellString line;
    for (int64_t i = 0; i < whole.scrollBack.Count(); i++) {
        whole.scrollBack.ReadLine(i, line);
        if (line.Length() != 24) abort();
    }
    return 0;
}
