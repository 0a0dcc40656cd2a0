// The display of a remote session, without a screen: it takes the bytes that the program sends,
// carries the requests out on its grid and gives back the replies. Belongs to the test's thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/display_grid.h"
#include "tests/support/display_wire.h"

namespace zt::headless {

// What came over the wire since the last ResetTraffic.
struct Traffic {
    size_t bytes = 0;
    int requests = 0;
    int changedCells = 0;
    int cursorShown = 0;   // the cursor's size went from 0 to something
    int cursorHidden = 0;  // and back to 0
};

class Display {
public:
    Display(int columns, int rows) : grid(columns, rows) {}

    // Any piece of the program's output. The result goes to its input.
    std::string Take(std::string_view bytes);

    const DisplayGrid& Grid() const { return grid; }
    bool Connected() const { return connected; }
    int ProtocolVersion() const { return version; }
    // What the handshake is answered with when it is not the true answer; for tests of refusal.
    void AnswerHandshakeWith(int answer) { handshakeAnswer = answer; }

    int CursorColumn() const { return cursorColumn; }
    int CursorRow() const { return cursorRow; }
    int CursorSize() const { return cursorSize; }
    const std::string& Title() const { return title; }  // in UTF-8
    const std::string& Clipboard() const { return clipboard; }
    void SetClipboard(std::string text) { clipboard = std::move(text); }
    int Beeps() const { return beeps; }
    int UpdateDepth() const { return updateDepth; }
    const CellArea& Selectable() const { return selectable; }
    uint8_t FillAttribute() const { return fillAttribute; }

    Traffic SinceReset() const;
    void ResetTraffic();

    // Everything that a careful peer would not have sent.
    std::vector<std::string> Problems() const;
    bool HasRest() const { return reader.HasRest(); }  // half a request is waiting

private:
    friend struct RequestTable;
    using Values = std::vector<WireValue>;

    void Carry(const WireRequest& request);
    void Problem(const WireRequest& request, const std::string& text);

    // The requests, by opcode. Each gets parameters that are of a form it takes.
    void Handshake(const Values& values);
    void BeginUpdate(const Values& values);
    void EndUpdate(const Values& values);
    void GetCursor(const Values& values);
    void SetCursor(const Values& values);
    void SetCodePage(const Values& values);
    void GetSize(const Values& values);
    void Resize(const Values& values);
    void FillRect(const Values& values);
    void Clear(const Values& values);
    void ScrollUp(const Values& values);
    void ScrollDown(const Values& values);
    void SetTitle(const Values& values);
    void SetCursorSize(const Values& values);
    void GetCursorSize(const Values& values);
    void SetFillAttribute(const Values& values);
    void WriteText(const Values& values);
    void WriteCellString(const Values& values);
    void FillChar(const Values& values);
    void SetAttributes(const Values& values);
    void ReadCells(const Values& values);
    void WriteCells(const Values& values);
    void SetClipboardText(const Values& values);
    void GetClipboardText(const Values& values);
    void WriteStream(const Values& values);
    void Beep(const Values& values);
    void SetSelectable(const Values& values);
    void GetSelectable(const Values& values);
    void ClearSelectable(const Values& values);

    std::u32string TextOf(const WireValue& value) const;
    void Reply(const Values& values) { replies += EncodeReply(values); }

    RequestReader reader;
    DisplayGrid grid;
    std::string replies;
    std::vector<std::string> problems;
    Traffic traffic;
    bool connected = false;
    int version = -1;
    int handshakeAnswer = -1;  // -1: the true one
    int cursorColumn = 0;
    int cursorRow = 0;
    int cursorSize = 0;
    int codePage = 850;
    uint8_t fillAttribute = 7;
    int updateDepth = 0;
    int beeps = 0;
    std::string title;
    std::string clipboard;
    CellArea selectable;
};

}  // namespace zt::headless
