// What the program asks of its console, and what of it goes to the display.
#include "console/wire/remote_console.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cwchar>

namespace zt {

namespace {

// The grid that stands until the display has told its own.
constexpr int kFirstColumns = 80;
constexpr int kFirstRows = 25;

using Hold = std::lock_guard<std::recursive_mutex>;

bool SameRect(const CellRect& a, const CellRect& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

}  // namespace

RemoteConsole::RemoteConsole(int readFrom, int writeTo, const Patience& patience)
    : GridConsole(kFirstColumns, kFirstRows),
      inputFd(readFrom),
      waits(patience),
      wakeFd(eventfd(0, EFD_CLOEXEC)),
      output(writeTo),
      input(*this) {}

RemoteConsole::~RemoteConsole() {
    if (reader.joinable()) {
        const uint64_t one = 1;
        while (write(wakeFd, &one, sizeof(one)) < 0 && errno == EINTR) {
        }
        reader.join();
    }
    close(wakeFd);
}

void RemoteConsole::SetTitle(const Westring& text) {
    const Hold hold(gridLock);
    if (hasTitle && std::wcscmp(text.c_str(), title.c_str()) == 0) return;
    hasTitle = true;
    isTitleNew = true;
    title = text;
    Update();
}

void RemoteConsole::SetCodePage(int newCodePage) {
    const Hold hold(gridLock);
    GridConsole::SetCodePage(newCodePage);
    Update();
}

void RemoteConsole::SetFillAttribute(Attribute attribute) {
    const Hold hold(gridLock);
    GridConsole::SetFillAttribute(attribute);
    Update();
}

void RemoteConsole::SetIconList(EstringStore& /*paths*/) {}

void RemoteConsole::Beep() {
    FrameBuffer request;
    request.BeginRequest(Opcode::kBeep, 0);
    const Hold hold(gridLock);
    if (isStarted) output.Send(request);
}

int RemoteConsole::Resize(int newColumns, int newRows, const char* fontFamily, int fontSize) {
    if (!IsGridSize(newColumns, newRows)) return 0;
    const bool hasFamily = fontFamily != nullptr && fontFamily[0] != 0;
    const bool withFont = hasFamily || fontSize != 0;
    FrameBuffer request;
    request.BeginRequest(Opcode::kResize, withFont ? 4 : 2);
    request.AddInteger(newColumns);
    request.AddInteger(newRows);
    if (withFont) {
        request.AddString(hasFamily ? fontFamily : "");
        request.AddInteger(fontSize);
    }
    const Hold hold(gridLock);
    if (isStarted) {
        replies.Expect();
        output.Send(request);
        mirror.Resize(newColumns, newRows);
        isCursorNew = true;
    }
    Rebuild(newColumns, newRows);
    Update();
    return 1;
}

void RemoteConsole::WriteStream(const char* utf8) {
    if (HasTerminalSink()) {
        GridConsole::WriteStream(utf8);
        return;
    }
    // Each line of it would otherwise leave by itself.
    BeginUpdate();
    GridConsole::WriteStream(utf8);
    EndUpdate();
}

bool RemoteConsole::GetClipboardText(Westring& text) {
    FrameBuffer request;
    request.BeginRequest(Opcode::kGetClipboardText, 0);
    const std::unique_ptr<CParameterList> reply = Ask(request, waits.clipboardMilliseconds);
    int32_t result = 0;
    return reply != nullptr && CParameterList::GetInteger(reply->Peek(0), result) && result != 0 &&
           CParameterList::GetUnicodeString(reply->Peek(1), text);
}

void RemoteConsole::SetClipboardText(const Westring& text) {
    FrameBuffer request;
    request.BeginRequest(Opcode::kSetClipboardText, 1);
    request.AddUnicodeString(text);
    const Hold hold(gridLock);
    if (isStarted) output.Send(request);
}

std::unique_ptr<CParameterList> RemoteConsole::Ask(const FrameBuffer& request, int milliseconds) {
    ReplyQueue::Ticket ticket;
    {
        const Hold hold(gridLock);
        if (hasEnded || output.IsBroken() || !reader.joinable()) return nullptr;
        ticket = replies.Expect();
        output.Send(request);
        // What the display did not get it will not answer.
        if (output.IsBroken()) return nullptr;
    }
    return replies.Wait(ticket, milliseconds);
}

void RemoteConsole::CellsChanged(const CellRect& rect) {
    WantCells(rect);
    Update();
}

bool RemoteConsole::RowsMoved(const CellRect& rect, int lines, Attribute attribute,
                              bool /*frozen*/) {
    if (!isStarted) return true;
    WantCells(rect);
    mirror.Scroll(rect, lines, attribute);
    Update();
    return true;
}

void RemoteConsole::CursorChanged(int /*oldColumn*/, int /*oldRow*/) {
    Update();
}

// At the end of a freeze all that changed has been given to CellsChanged before.
void RemoteConsole::FreezeChanged(bool frozen) {
    isFrozen = frozen;
    Update();
}

void RemoteConsole::SelectableChanged(const CellRect& rect, bool dropSelection) {
    // Whether a selection is shown is known to the display alone.
    if (dropSelection) isSelectionDropped = true;
    if (dropSelection || !SameRect(rect, told.selectable)) isSelectableNew = true;
    Update();
}

void RemoteConsole::WantCells(const CellRect& rect) {
    if (!isStarted) return;
    for (int row = rect.top; row < rect.bottom; row++)
        mirror.Want(row, rect.left, RowCells(row) + rect.left, rect.right - rect.left);
}

// Sends what the display does not know yet, in one write.
void RemoteConsole::Update() {
    if (!isStarted || isFrozen) return;
    out.Clear();
    AppendSettings();
    AppendCells();
    AppendTitle();
    AppendSelectable();
    if (!out.IsEmpty()) output.Send(out);
}

void RemoteConsole::AppendSettings() {
    if (fillAttribute != told.fillAttribute) {
        out.BeginRequest(Opcode::kSetFillAttribute, 1);
        out.AddAttribute(fillAttribute);
        mirror.SetFillAttribute(fillAttribute);
        told.fillAttribute = fillAttribute;
    }
    if (codePage != told.codePage) {
        out.BeginRequest(Opcode::kSetCodePage, 1);
        out.AddInteger(codePage);
        told.codePage = codePage;
    }
}

void RemoteConsole::AppendCells() {
    update.Clear();
    const bool isOneFrame = mirror.Encode(update) <= 1;
    AppendCursor(update);
    if (!isOneFrame) out.BeginRequest(Opcode::kBeginUpdate, 0);
    out.Append(update);
    if (!isOneFrame) out.BeginRequest(Opcode::kEndUpdate, 0);
}

void RemoteConsole::AppendCursor(FrameBuffer& to) {
    if (isCursorNew || cursorColumn != told.cursorColumn || cursorRow != told.cursorRow) {
        to.BeginRequest(Opcode::kSetCursor, 2);
        to.AddInteger(cursorColumn);
        to.AddInteger(cursorRow);
    }
    if (isCursorNew || cursorSize != told.cursorSize) {
        to.BeginRequest(Opcode::kSetCursorSize, 1);
        to.AddInteger(cursorSize);
    }
    told.cursorColumn = cursorColumn;
    told.cursorRow = cursorRow;
    told.cursorSize = cursorSize;
    isCursorNew = false;
}

void RemoteConsole::AppendTitle() {
    if (!isTitleNew) return;
    out.BeginRequest(Opcode::kSetTitle, 1);
    out.AddUnicodeString(title);
    isTitleNew = false;
}

// Only setting the rectangle takes a shown selection away, not clearing it.
void RemoteConsole::AppendSelectable() {
    if (!isSelectableNew) return;
    if (SameRect(selectable, CellRect{}) && !isSelectionDropped) {
        out.BeginRequest(Opcode::kClearSelectableRect, 0);
    } else {
        out.BeginRequest(Opcode::kSetSelectableRect, 4);
        for (int edge : {selectable.left, selectable.top, selectable.right, selectable.bottom})
            out.AddInteger(edge);
    }
    told.selectable = selectable;
    isSelectableNew = false;
    isSelectionDropped = false;
}

}  // namespace zt
