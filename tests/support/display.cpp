// Carrying out the requests of a remote session.
#include "tests/support/display.h"

#include <optional>
#include <utility>

#include "tests/support/text_codes.h"

namespace zt::headless {

// The forms of the requests. A letter a parameter: i integer, s bytes, u text, a attribute,
// c cells.
struct RequestTable {
    struct Row {
        int opcode;
        std::string_view form;
        void (Display::*carry)(const Display::Values&);
    };

    static constexpr Row kRows[] = {
        {0, "i", &Display::Handshake},
        {1, "", &Display::BeginUpdate},
        {2, "", &Display::EndUpdate},
        {3, "", &Display::GetCursor},
        {4, "ii", &Display::SetCursor},
        {5, "i", &Display::SetCodePage},
        {6, "", &Display::GetSize},
        {7, "ii", &Display::Resize},
        {7, "iisi", &Display::Resize},
        {8, "", &Display::Clear},
        {8, "iiiia", &Display::FillRect},
        {9, "iiiiia", &Display::ScrollUp},
        {10, "iiiiia", &Display::ScrollDown},
        {11, "s", &Display::SetTitle},
        {11, "u", &Display::SetTitle},
        {12, "i", &Display::SetCursorSize},
        {13, "", &Display::GetCursorSize},
        {14, "a", &Display::SetFillAttribute},
        {15, "iisa", &Display::WriteText},
        {15, "iiua", &Display::WriteText},
        {15, "iic", &Display::WriteCellString},
        {16, "iiic", &Display::FillChar},
        {17, "iiia", &Display::SetAttributes},
        {18, "iiii", &Display::ReadCells},
        {19, "iiiic", &Display::WriteCells},
        {20, "s", &Display::SetClipboardText},
        {20, "u", &Display::SetClipboardText},
        {21, "", &Display::GetClipboardText},
        {22, "s", &Display::WriteStream},
        {23, "", &Display::Beep},
        {24, "iiii", &Display::SetSelectable},
        {25, "", &Display::GetSelectable},
        {26, "", &Display::ClearSelectable},
    };

    static const Row* Find(int opcode, std::string_view form) {
        for (const Row& row : kRows) {
            if (row.opcode == opcode && row.form == form) return &row;
        }
        return nullptr;
    }
};

namespace {

constexpr int kVersion = 1;
constexpr std::string_view kTypeLetters = "isuac";

std::string FormOf(const WireRequest& request) {
    std::string form;
    for (const WireValue& value : request.values) {
        form += kTypeLetters[static_cast<size_t>(value.type)];
    }
    return form;
}

CellArea AreaOf(const std::vector<WireValue>& values) {
    return {values[0].integer, values[1].integer, values[2].integer, values[3].integer};
}

uint8_t AttributeOf(const WireValue& value) {
    return static_cast<uint8_t>(value.integer);
}

}  // namespace

std::string Display::Take(std::string_view bytes) {
    traffic.bytes += bytes.size();
    reader.Append(bytes);
    WireRequest request;
    while (reader.Next(request))
        Carry(request);
    return std::exchange(replies, {});
}

void Display::Problem(const WireRequest& request, const std::string& text) {
    problems.push_back("opcode " + std::to_string(request.opcode) + " (" + FormOf(request) +
                       "): " + text);
}

void Display::Carry(const WireRequest& request) {
    traffic.requests++;
    const RequestTable::Row* row = RequestTable::Find(request.opcode, FormOf(request));
    if (!row) return Problem(request, "no such request");
    if (!connected && request.opcode != 0) Problem(request, "before the handshake");
    (this->*row->carry)(request.values);
}

Traffic Display::SinceReset() const {
    Traffic out = traffic;
    out.changedCells = grid.ChangedCells();
    return out;
}

void Display::ResetTraffic() {
    traffic = {};
    grid.ResetChangedCells();
}

std::vector<std::string> Display::Problems() const {
    std::vector<std::string> all = problems;
    all.insert(all.end(), reader.Problems().begin(), reader.Problems().end());
    return all;
}

std::u32string Display::TextOf(const WireValue& value) const {
    return value.type == WireType::kBytes ? FromCodePage(value.bytes, codePage) : value.text;
}

void Display::Handshake(const Values& values) {
    if (connected) problems.push_back("a second handshake");
    connected = true;
    version = values[0].integer;
    const int truth = version == kVersion ? 1 : 0;
    Reply({WireValue::Integer(handshakeAnswer < 0 ? truth : handshakeAnswer)});
}

void Display::BeginUpdate(const Values&) {
    updateDepth++;
}

void Display::EndUpdate(const Values&) {
    if (updateDepth == 0) problems.push_back("an end of update without its beginning");
    if (updateDepth > 0) updateDepth--;
}

void Display::GetCursor(const Values&) {
    Reply({WireValue::Integer(cursorColumn), WireValue::Integer(cursorRow)});
}

void Display::SetCursor(const Values& values) {
    cursorColumn = values[0].integer;
    cursorRow = values[1].integer;
}

void Display::SetCodePage(const Values& values) {
    if (values[0].integer != 0) codePage = values[0].integer;
}

void Display::GetSize(const Values&) {
    Reply({WireValue::Integer(grid.Columns()), WireValue::Integer(grid.Rows())});
}

void Display::Resize(const Values& values) {
    constexpr int kMost = 1000;
    const int columns = values[0].integer;
    const int rows = values[1].integer;
    const bool good = columns > 0 && rows > 0 && columns <= kMost && rows <= kMost;
    if (good) grid.Resize(columns, rows);
    Reply({WireValue::Integer(good ? 1 : 0)});
}

void Display::FillRect(const Values& values) {
    grid.Fill(AreaOf(values), AttributeOf(values[4]));
}

void Display::Clear(const Values&) {
    grid.Fill({0, 0, grid.Columns(), grid.Rows()}, fillAttribute);
}

void Display::ScrollUp(const Values& values) {
    grid.Scroll(AreaOf(values), values[4].integer, AttributeOf(values[5]));
}

void Display::ScrollDown(const Values& values) {
    grid.Scroll(AreaOf(values), -values[4].integer, AttributeOf(values[5]));
}

void Display::SetTitle(const Values& values) {
    title = ToUtf8(TextOf(values[0]));
}

void Display::SetCursorSize(const Values& values) {
    const int size = values[0].integer;
    if (size > 0 && cursorSize == 0) traffic.cursorShown++;
    if (size == 0 && cursorSize > 0) traffic.cursorHidden++;
    cursorSize = size;
}

void Display::GetCursorSize(const Values&) {
    Reply({WireValue::Integer(cursorSize)});
}

void Display::SetFillAttribute(const Values& values) {
    fillAttribute = AttributeOf(values[0]);
}

void Display::WriteText(const Values& values) {
    std::vector<ScreenCell> cells;
    for (char32_t character : TextOf(values[2])) {
        cells.push_back({character, AttributeOf(values[3])});
    }
    grid.Write(values[0].integer, values[1].integer, cells);
}

void Display::WriteCellString(const Values& values) {
    grid.Write(values[0].integer, values[1].integer, values[2].cells);
}

void Display::FillChar(const Values& values) {
    if (values[3].cells.empty()) return problems.push_back("a character to repeat is missing");
    grid.Repeat(values[0].integer, values[1].integer, values[2].integer, values[3].cells[0]);
}

void Display::SetAttributes(const Values& values) {
    grid.SetAttributes(values[0].integer, values[1].integer, values[2].integer,
                       AttributeOf(values[3]));
}

void Display::ReadCells(const Values& values) {
    Reply({WireValue::Cells(grid.Get(AreaOf(values)))});
}

void Display::WriteCells(const Values& values) {
    const CellArea area = AreaOf(values);
    const int asked = area.width * area.height;
    if (asked != static_cast<int>(values[4].cells.size())) {
        problems.push_back("an area of " + std::to_string(asked) + " cells is given " +
                           std::to_string(values[4].cells.size()));
    }
    grid.Put(area, values[4].cells);
}

void Display::SetClipboardText(const Values& values) {
    clipboard = ToUtf8(TextOf(values[0]));
}

void Display::GetClipboardText(const Values&) {
    const std::optional<std::u32string> text = FromUtf8(clipboard);
    Reply({WireValue::Integer(text ? 1 : 0), WireValue::Text(text.value_or(U""))});
}

void Display::WriteStream(const Values& values) {
    const std::optional<std::u32string> text = FromUtf8(values[0].bytes);
    if (!text) return problems.push_back("a stream that is no UTF-8");
    grid.Stream(*text, cursorColumn, cursorRow, fillAttribute);
}

void Display::Beep(const Values&) {
    beeps++;
}

void Display::SetSelectable(const Values& values) {
    const int left = values[0].integer;
    const int top = values[1].integer;
    selectable = {left, top, values[2].integer - left, values[3].integer - top};
}

void Display::GetSelectable(const Values&) {
    Reply({WireValue::Integer(selectable.left), WireValue::Integer(selectable.top),
           WireValue::Integer(selectable.left + selectable.width),
           WireValue::Integer(selectable.top + selectable.height)});
}

void Display::ClearSelectable(const Values&) {
    selectable = {};
}

}  // namespace zt::headless
