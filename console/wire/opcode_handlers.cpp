// The table of requests and their handlers.
#include "console/wire/opcode_handlers.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "console/wire/frame_buffer.h"

namespace zt {

bool RequestArguments::Integer(int index, int& value) const {
    return CParameterList::GetInteger(list_.Peek(index), value);
}

bool RequestArguments::Cells(int index, int& value) const {
    int whole = 0;
    if (!Integer(index, whole)) return false;
    value = std::clamp<int>(whole, std::numeric_limits<int16_t>::min(),
                            std::numeric_limits<int16_t>::max());
    return true;
}

bool RequestArguments::Rectangle(int& column, int& row, int& width, int& height) const {
    return Cells(0, column) && Cells(1, row) && Cells(2, width) && Cells(3, height);
}

bool RequestArguments::String(int index, Estring& value) const {
    return CParameterList::GetString(list_.Peek(index), value);
}

bool RequestArguments::UnicodeString(int index, Westring& value) const {
    return CParameterList::GetUnicodeString(list_.Peek(index), value);
}

bool RequestArguments::AttributeAt(int index, Attribute& value) const {
    return CParameterList::GetAttribute(list_.Peek(index), value);
}

bool RequestArguments::CellStringAt(int index, CellString& value) const {
    return CParameterList::GetCellString(list_.Peek(index), value);
}

namespace {

struct Request {
    const RequestArguments& arguments;
    IConsole& console;
    FrameWriter& writer;
};

void ReplyIntegers(Request& request, std::initializer_list<int> values) {
    CParameterList reply;
    for (int value : values)
        reply.AddInteger(value);
    request.writer.WriteReply(reply);
}

void BeginUpdate(Request& request) {
    if (request.arguments.Count() == 0) request.console.BeginUpdate();
}

void EndUpdate(Request& request) {
    if (request.arguments.Count() == 0) request.console.EndUpdate();
}

void GetCursor(Request& request) {
    int column = 0;
    int row = 0;
    request.console.GetCursor(column, row);
    ReplyIntegers(request, {column, row});
}

void SetCursor(Request& request) {
    int column = 0;
    int row = 0;
    const RequestArguments& arguments = request.arguments;
    if (arguments.Count() == 2 && arguments.Cells(0, column) && arguments.Cells(1, row))
        request.console.SetCursor(column, row);
}

void SetCodePage(Request& request) {
    int codePage = 0;
    if (request.arguments.Count() == 1 && request.arguments.Integer(0, codePage))
        request.console.SetCodePage(codePage);
}

void GetSize(Request& request) {
    int columns = 0;
    int rows = 0;
    request.console.GetSize(columns, rows);
    ReplyIntegers(request, {columns, rows});
}

int CarryOutResize(Request& request) {
    const RequestArguments& arguments = request.arguments;
    const bool withFont = arguments.Count() == 4;
    if (arguments.Count() != 2 && !withFont) return 0;
    int columns = 0;
    int rows = 0;
    if (!arguments.Integer(0, columns) || !arguments.Integer(1, rows)) return 0;
    Estring family;
    int size = 0;
    if (withFont && (!arguments.String(2, family) || !arguments.Integer(3, size))) return 0;
    // A size from outside is not a reason to ask for all the memory.
    if (!IsGridSize(columns, rows)) return 0;
    return request.console.Resize(columns, rows, family.c_str(), size) & 0xFF;
}

void Resize(Request& request) {
    ReplyIntegers(request, {CarryOutResize(request)});
}

void FillRect(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, width = 0, height = 0;
    Attribute attribute = 0;
    if (arguments.Count() == 0) request.console.Clear();
    if (arguments.Count() != 5) return;
    if (arguments.Rectangle(column, row, width, height) && arguments.AttributeAt(4, attribute))
        request.console.FillRect(column, row, width, height, attribute);
}

using ScrollFunction = void (IConsole::*)(int, int, int, int, int, Attribute);

void Scroll(Request& request, ScrollFunction scroll) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, width = 0, height = 0, lines = 0;
    Attribute attribute = 0;
    if (arguments.Count() == 6 && arguments.Rectangle(column, row, width, height) &&
        arguments.Cells(4, lines) && arguments.AttributeAt(5, attribute))
        (request.console.*scroll)(column, row, width, height, lines, attribute);
}

void ScrollUp(Request& request) {
    Scroll(request, &IConsole::ScrollUp);
}

void ScrollDown(Request& request) {
    Scroll(request, &IConsole::ScrollDown);
}

void SetTitle(Request& request) {
    Estring bytes;
    Westring text;
    if (request.arguments.Count() != 1) return;
    if (request.arguments.String(0, bytes)) request.console.SetTitleBytes(bytes);
    if (request.arguments.UnicodeString(0, text)) request.console.SetTitle(text);
}

void SetCursorSize(Request& request) {
    int percent = 0;
    if (request.arguments.Count() == 1 && request.arguments.Integer(0, percent))
        request.console.SetCursorSize(std::clamp(percent, 0, 100));
}

void GetCursorSize(Request& request) {
    ReplyIntegers(request, {request.console.GetCursorSize()});
}

void SetFillAttribute(Request& request) {
    Attribute attribute = 0;
    if (request.arguments.Count() == 1 && request.arguments.AttributeAt(0, attribute))
        request.console.SetFillAttribute(attribute);
}

void WriteCellText(Request& request, int column, int row) {
    CellString cells;
    if (!request.arguments.CellStringAt(2, cells)) return;
    cells.Append(Cell{0, 0});
    request.console.WriteCellString(column, row, cells.Cells());
}

void WriteText(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0;
    int row = 0;
    if (!arguments.Cells(0, column) || !arguments.Cells(1, row)) return;
    if (arguments.Count() == 3) WriteCellText(request, column, row);
    Attribute attribute = 0;
    if (arguments.Count() != 4 || !arguments.AttributeAt(3, attribute)) return;
    Estring bytes;
    Westring text;
    if (arguments.String(2, bytes))
        request.console.WriteBytes(column, row, bytes.c_str(), attribute);
    if (arguments.UnicodeString(2, text))
        request.console.WriteWide(column, row, text.c_str(), attribute);
}

void FillChar(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, count = 0;
    CellString cells;
    if (arguments.Count() == 4 && arguments.Cells(0, column) && arguments.Cells(1, row) &&
        arguments.Cells(2, count) && arguments.CellStringAt(3, cells) && cells.Length() > 0)
        request.console.FillChar(column, row, count, cells.At(0));
}

void SetAttributes(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, count = 0;
    Attribute attribute = 0;
    if (arguments.Count() == 4 && arguments.Cells(0, column) && arguments.Cells(1, row) &&
        arguments.Cells(2, count) && arguments.AttributeAt(3, attribute))
        request.console.SetAttributes(column, row, count, attribute);
}

// A cell is at least two bytes on the wire, so a larger area than this never fits a reply.
constexpr int kMostReplyCells = kLongestPayload / 2;

bool FitsOnePayload(const CellString& cells) {
    int length = 1;
    for (int i = 0; i < cells.Length() && length <= kLongestPayload; i++)
        length += Utf8Bytes(WireCode(cells.At(i).character)) + 1;
    return length <= kLongestPayload;
}

void ReadCellString(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, width = 0, height = 0;
    CParameterList reply;
    if (arguments.Count() == 4 && arguments.Rectangle(column, row, width, height) && width > 0 &&
        height > 0 && width * height <= kMostReplyCells) {
        CellString cells;
        request.console.ReadCellString(column, row, width, height, cells);
        // Part of an area would be taken for the whole of it.
        if (FitsOnePayload(cells)) reply.AddCellString(cells);
    }
    request.writer.WriteReply(reply);
}

void WriteCells(Request& request) {
    const RequestArguments& arguments = request.arguments;
    int column = 0, row = 0, width = 0, height = 0;
    CellString cells;
    if (arguments.Count() == 5 && arguments.Rectangle(column, row, width, height) &&
        arguments.CellStringAt(4, cells) && width > 0 && height > 0 &&
        width * height <= cells.Length())
        request.console.WriteCells(column, row, width, height, cells.Cells());
}

void SetClipboardText(Request& request) {
    Estring bytes;
    Westring text;
    if (request.arguments.Count() != 1) return;
    if (request.arguments.String(0, bytes)) request.console.SetClipboardBytes(bytes);
    if (request.arguments.UnicodeString(0, text)) request.console.SetClipboardText(text);
}

void GetClipboardText(Request& request) {
    Westring text;
    const bool found = request.console.GetClipboardText(text);
    CParameterList reply;
    reply.AddInteger(found ? 1 : 0);
    reply.AddUnicodeString(text);
    request.writer.WriteReply(reply);
}

void WriteStream(Request& request) {
    Estring text;
    if (request.arguments.Count() == 1 && request.arguments.String(0, text))
        request.console.WriteStream(text.c_str());
}

void Beep(Request& request) {
    if (request.arguments.Count() == 0) request.console.Beep();
}

void SetSelectableRect(Request& request) {
    const RequestArguments& arguments = request.arguments;
    CellRect rect;
    if (arguments.Count() == 4 && arguments.Rectangle(rect.left, rect.top, rect.right, rect.bottom))
        // A selection that was begun in the old area has lost its meaning.
        request.console.SetSelectableRect(rect, true);
}

void GetSelectableRect(Request& request) {
    const CellRect rect = request.console.GetSelectableRect();
    ReplyIntegers(request, {rect.left, rect.top, rect.right, rect.bottom});
}

void ClearSelectableRect(Request& request) {
    if (request.arguments.Count() == 0) request.console.ClearSelectableRect();
}

struct OpcodeRow {
    Opcode opcode;
    void (*handler)(Request& request);
};

// The handshake changes the connection itself, which has its handler.
constexpr OpcodeRow kOpcodes[] = {
    {Opcode::kHandshake, nullptr},
    {Opcode::kBeginUpdate, BeginUpdate},
    {Opcode::kEndUpdate, EndUpdate},
    {Opcode::kGetCursor, GetCursor},
    {Opcode::kSetCursor, SetCursor},
    {Opcode::kSetCodePage, SetCodePage},
    {Opcode::kGetSize, GetSize},
    {Opcode::kResize, Resize},
    {Opcode::kFillRect, FillRect},
    {Opcode::kScrollUp, ScrollUp},
    {Opcode::kScrollDown, ScrollDown},
    {Opcode::kSetTitle, SetTitle},
    {Opcode::kSetCursorSize, SetCursorSize},
    {Opcode::kGetCursorSize, GetCursorSize},
    {Opcode::kSetFillAttribute, SetFillAttribute},
    {Opcode::kWriteText, WriteText},
    {Opcode::kFillChar, FillChar},
    {Opcode::kSetAttributes, SetAttributes},
    {Opcode::kReadCellString, ReadCellString},
    {Opcode::kWriteCells, WriteCells},
    {Opcode::kSetClipboardText, SetClipboardText},
    {Opcode::kGetClipboardText, GetClipboardText},
    {Opcode::kWriteStream, WriteStream},
    {Opcode::kBeep, Beep},
    {Opcode::kSetSelectableRect, SetSelectableRect},
    {Opcode::kGetSelectableRect, GetSelectableRect},
    {Opcode::kClearSelectableRect, ClearSelectableRect},
};
static_assert(std::size(kOpcodes) == kOpcodeCount);

constexpr bool RowsStandInOrder() {
    for (size_t i = 0; i < std::size(kOpcodes); i++)
        if (static_cast<size_t>(kOpcodes[i].opcode) != i) return false;
    return true;
}
static_assert(RowsStandInOrder());

}  // namespace

void CarryOut(int opcode, CParameterList& parameters, IConsole& console, FrameWriter& writer) {
    if (opcode < 0 || opcode >= kOpcodeCount) return;
    const RequestArguments arguments(parameters);
    Request request{arguments, console, writer};
    if (const auto handler = kOpcodes[opcode].handler) handler(request);
}

}  // namespace zt
