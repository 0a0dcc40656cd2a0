// The grid of the test display.
#include "tests/support/display_grid.h"

#include "tests/support/text_codes.h"

namespace zt::headless {

namespace {

// What code page 437 shows for 1 to 31.
constexpr char32_t kControlGlyphs[] = {
    U' ',   0x263A, 0x263B, 0x2665, 0x2666, 0x2663, 0x2660, 0x2022, 0x25D8, 0x25CB, 0x25D9,
    0x2642, 0x2640, 0x266A, 0x266B, 0x263C, 0x25BA, 0x25C4, 0x2195, 0x203C, 0x00B6, 0x00A7,
    0x25AC, 0x21A8, 0x2191, 0x2193, 0x2192, 0x2190, 0x221F, 0x2194, 0x25B2, 0x25BC};

char32_t ControlGlyph(char32_t character) {
    return character >= 1 && character < 32 ? kControlGlyphs[character] : character;
}

char32_t ShownAs(char32_t character) {
    if (character >= 127 && character <= 159) return 0x2302;
    return ControlGlyph(character);
}

}  // namespace

ScreenCell DisplayGrid::At(int column, int row) const {
    if (column < 0 || column >= columns || row < 0 || row >= rows) return {};
    return cells[static_cast<size_t>(row * columns + column)];
}

std::string DisplayGrid::Text(int left, int row, int width) const {
    std::string out;
    for (int i = 0; i < width; i++)
        out += ToUtf8(At(left + i, row).character);
    return out;
}

void DisplayGrid::Store(int column, int row, ScreenCell cell) {
    if (column < 0 || column >= columns || row < 0 || row >= rows) return;
    ScreenCell& place = cells[static_cast<size_t>(row * columns + column)];
    if (place == cell) return;
    place = cell;
    changed++;
}

void DisplayGrid::Resize(int newColumns, int newRows) {
    columns = newColumns;
    rows = newRows;
    cells.assign(static_cast<size_t>(columns * rows), ScreenCell{});
}

void DisplayGrid::Fill(const CellArea& area, uint8_t attribute) {
    for (int row = area.top; row < area.top + area.height; row++) {
        for (int i = 0; i < area.width; i++)
            Store(area.left + i, row, {U' ', attribute});
    }
}

void DisplayGrid::Put(const CellArea& area, const std::vector<ScreenCell>& source) {
    size_t at = 0;
    for (int row = area.top; row < area.top + area.height; row++) {
        for (int i = 0; i < area.width && at < source.size(); i++) {
            Store(area.left + i, row, source[at++]);
        }
    }
}

std::vector<ScreenCell> DisplayGrid::Get(const CellArea& area) const {
    std::vector<ScreenCell> out;
    for (int row = area.top; row < area.top + area.height; row++) {
        for (int i = 0; i < area.width; i++)
            out.push_back(At(area.left + i, row));
    }
    return out;
}

void DisplayGrid::Write(int column, int row, const std::vector<ScreenCell>& source) {
    for (ScreenCell cell : source) {
        cell.character = ShownAs(cell.character);
        Store(column++, row, cell);
    }
}

void DisplayGrid::Repeat(int column, int row, int count, ScreenCell cell) {
    cell.character = ControlGlyph(cell.character);
    for (int i = 0; i < count; i++)
        Store(column + i, row, cell);
}

void DisplayGrid::SetAttributes(int column, int row, int count, uint8_t attribute) {
    for (int i = 0; i < count; i++) {
        Store(column + i, row, {At(column + i, row).character, attribute});
    }
}

void DisplayGrid::Scroll(const CellArea& area, int lines, uint8_t attribute) {
    const std::vector<ScreenCell> old = Get(area);
    for (int y = 0; y < area.height; y++) {
        const int from = y + lines;
        const bool freed = from < 0 || from >= area.height;
        for (int x = 0; x < area.width; x++) {
            const auto source = static_cast<size_t>(from * area.width + x);
            Store(area.left + x, area.top + y, freed ? ScreenCell{U' ', attribute} : old[source]);
        }
    }
}

void DisplayGrid::Stream(std::u32string_view text, int& cursorColumn, int& cursorRow,
                         uint8_t attribute) {
    for (char32_t character : text) {
        if (character == U'\t') {
            cursorColumn = (cursorColumn | 7) + 1;
        } else if (character == U'\r') {
            cursorColumn = 0;
        } else if (character == U'\b') {
            if (cursorColumn > 0) cursorColumn--;
        } else if (character == U'\n') {
            cursorColumn = 0;
            cursorRow++;
        } else if (character >= 32 && character != 127) {
            Store(cursorColumn++, cursorRow, {character, attribute});
        }
        if (cursorColumn >= columns) {
            cursorColumn = 0;
            cursorRow++;
        }
        if (cursorRow >= rows) {
            cursorRow = rows - 1;
            Scroll({0, 0, columns, rows}, 1, attribute);
        }
    }
}

}  // namespace zt::headless
