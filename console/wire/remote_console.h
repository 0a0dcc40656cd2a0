// The far end of a remote session: the console of a program whose screen is somewhere else. It
// draws by requests on one descriptor and is driven by the replies and events that come on the
// other. The grid that it keeps is what the program wants shown; beside it stands what the display
// shows, so that only the difference is sent, and nothing but the clipboard is ever asked back.
//
// Owned by the main function. Any thread may draw; the first thread reads events and asks for the
// clipboard. A thread of its own takes what the display sends.
#pragma once

#include <atomic>
#include <memory>
#include <thread>

#include "console/event_queue.h"
#include "console/grid_console.h"
#include "console/wire/display_input.h"
#include "console/wire/display_mirror.h"
#include "console/wire/frame_buffer.h"
#include "console/wire/reply_queue.h"
#include "console/wire/wire_output.h"

namespace zt {

enum class RemoteStart {
    kStarted,
    kWrongVersion,  // the display answered the handshake with something other than 1
    kNoAnswer,      // the input ended, or the display kept silent
    kNoSize,        // the display has no usable grid size
};

// For standard error; empty for kStarted.
const char* DescribeRemoteStart(RemoteStart result);

class RemoteConsole : public GridConsole, private IDisplayListener {
public:
    // How long the display may take for an answer.
    struct Patience {
        int clipboardMilliseconds = 3000;
        int handshakeMilliseconds = 60000;  // and for its size
    };

    // Borrows the descriptors.
    RemoteConsole(int readFrom, int writeTo) : RemoteConsole(readFrom, writeTo, Patience()) {}
    RemoteConsole(int readFrom, int writeTo, const Patience& patience);
    ~RemoteConsole() override;
    RemoteConsole(const RemoteConsole&) = delete;
    RemoteConsole& operator=(const RemoteConsole&) = delete;

    // The handshake; then the grid takes the display's size and the display is wiped. To be called
    // once; nothing is sent before it. From now on SIGPIPE does nothing to the process.
    [[nodiscard]] RemoteStart Start();

    // After the end of the input every read gives the quit event at once, for ever.
    bool ReadEvent(TEvent& event, int timeoutMilliseconds) override;
    int PendingEvents() override;
    bool HasEnded() override { return hasEnded; }

    void SetTitle(const Westring& title) override;
    void SetCodePage(int codePage) override;
    void SetFillAttribute(Attribute attribute) override;
    void SetIconList(EstringStore& paths) override;  // the display has its own
    void Beep() override;
    // Does not wait for the display. 1, or 0 for a size that no grid can have, which is not sent.
    int Resize(int columns, int rows, const char* fontFamily, int fontSize) override;
    void WriteStream(const char* utf8) override;
    // The only call that waits for the display. False when no text came in time.
    bool GetClipboardText(Westring& text) override;
    void SetClipboardText(const Westring& text) override;

protected:
    void CellsChanged(const CellRect& rect) override;
    bool RowsMoved(const CellRect& rect, int lines, Attribute attribute, bool frozen) override;
    void CursorChanged(int oldColumn, int oldRow) override;
    void FreezeChanged(bool frozen) override;
    void SelectableChanged(const CellRect& rect, bool dropSelection) override;

private:
    // What the display has been told beside the cells.
    struct DisplayState {
        int cursorColumn = 0;
        int cursorRow = 0;
        int cursorSize = 0;
        int codePage = 0;
        Attribute fillAttribute = 0;
        CellRect selectable;
    };

    void TakeReply(std::unique_ptr<CParameterList> reply) override;
    void TakeEvent(const TEvent& event) override;

    void ReadInput();
    bool ReadOnce();
    RemoteStart Handshake();
    // Sends the request and gives its reply, or null.
    std::unique_ptr<CParameterList> Ask(const FrameBuffer& request, int milliseconds);
    void ShowEverything();

    // All with gridLock held.
    void WantCells(const CellRect& rect);
    void Update();
    void AppendSettings();
    void AppendCells();
    void AppendCursor(FrameBuffer& to);
    void AppendTitle();
    void AppendSelectable();

    const int inputFd;
    const Patience waits;
    const int wakeFd;  // an event counter that ends the reader
    WireOutput output;
    DisplayMirror mirror;
    DisplayState told;
    FrameBuffer out;     // an update on its way; kept for its memory
    FrameBuffer update;  // the cells and the cursor in it
    Westring title;
    bool hasTitle = false;
    bool isTitleNew = false;
    bool isCursorNew = false;
    bool isSelectableNew = false;
    bool isSelectionDropped = false;  // since the selectable rectangle was told last
    bool isFrozen = false;
    bool isStarted = false;

    CEventQueue events;
    ReplyQueue replies;
    DisplayInput input;
    std::atomic<bool> hasEnded{false};
    std::thread reader;
};

}  // namespace zt
