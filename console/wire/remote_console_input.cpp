// The far end's start, and what comes from the display: the thread that reads it, the events and
// the end.
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "console/program_state.h"
#include "console/wire/remote_console.h"

namespace zt {

namespace {

constexpr int kReadBytes = 65536;
// A display that sends without end while the program is busy does not get all the memory.
constexpr int kMostWaitingEvents = 65536;

TEvent QuitEvent() {
    TEvent event;
    event.kind = static_cast<int32_t>(EventKind::kQuit);
    return event;
}

// Text from the display's input method comes as a key that is its own character.
bool IsTypedText(const TEvent& event) {
    return event.modifiers == 0 && event.code != 0 && event.code == event.unicode;
}

// A handler that does nothing, rather than ignoring the signal: programs started from here do not
// inherit it, and end as usual when nobody reads what they write.
void OutliveBrokenPipes() {
    struct sigaction nothing {};
    nothing.sa_handler = [](int) {};
    nothing.sa_flags = SA_RESTART;
    sigaction(SIGPIPE, &nothing, nullptr);
}

}  // namespace

const char* DescribeRemoteStart(RemoteStart result) {
    switch (result) {
        case RemoteStart::kStarted:
            return "";
        case RemoteStart::kWrongVersion:
            return "The display speaks another version of the protocol";
        case RemoteStart::kNoAnswer:
            return "No answer from the display";
        case RemoteStart::kNoSize:
            return "The display has no usable size";
    }
    return "";
}

RemoteStart RemoteConsole::Start() {
    OutliveBrokenPipes();
    reader = std::thread(&RemoteConsole::ReadInput, this);
    const RemoteStart result = Handshake();
    if (result == RemoteStart::kStarted) ShowEverything();
    return result;
}

RemoteStart RemoteConsole::Handshake() {
    FrameBuffer hello;
    hello.BeginRequest(Opcode::kHandshake, 1);
    hello.AddInteger(kProtocolVersion);
    std::unique_ptr<CParameterList> reply = Ask(hello, waits.handshakeMilliseconds);
    if (reply == nullptr) return RemoteStart::kNoAnswer;
    int32_t accepted = 0;
    if (!CParameterList::GetInteger(reply->Peek(0), accepted) || accepted != 1)
        return RemoteStart::kWrongVersion;

    FrameBuffer sizeRequest;
    sizeRequest.BeginRequest(Opcode::kGetSize, 0);
    reply = Ask(sizeRequest, waits.handshakeMilliseconds);
    if (reply == nullptr) return RemoteStart::kNoAnswer;
    int32_t displayColumns = 0;
    int32_t displayRows = 0;
    if (!CParameterList::GetInteger(reply->Peek(0), displayColumns) ||
        !CParameterList::GetInteger(reply->Peek(1), displayRows) ||
        !IsGridSize(displayColumns, displayRows))
        return RemoteStart::kNoSize;
    Rebuild(displayColumns, displayRows);
    return RemoteStart::kStarted;
}

// Nothing is known of what the display shows, so it is wiped, and so is the grid here; cursor and
// selectable rectangle are told whatever they are.
void RemoteConsole::ShowEverything() {
    const std::lock_guard<std::recursive_mutex> hold(gridLock);
    Clear();
    FrameBuffer wipe;
    wipe.BeginRequest(Opcode::kSetFillAttribute, 1);
    wipe.AddAttribute(fillAttribute);
    wipe.BeginRequest(Opcode::kFillRect, 0);
    output.Send(wipe);
    told.fillAttribute = fillAttribute;
    told.codePage = codePage;
    mirror.Resize(columns, rows);
    mirror.Wipe(fillAttribute);
    isCursorNew = true;
    isSelectableNew = true;
    isStarted = true;
    Update();
}

bool RemoteConsole::ReadEvent(TEvent& event, int timeoutMilliseconds) {
    if (hasEnded && events.Pending() == 0) {
        event = QuitEvent();
        return true;
    }
    return events.Pop(event, timeoutMilliseconds);
}

int RemoteConsole::PendingEvents() {
    const int pending = events.Pending();
    return pending == 0 && hasEnded ? 1 : pending;
}

void RemoteConsole::TakeReply(std::unique_ptr<CParameterList> reply) {
    replies.Deliver(std::move(reply));
}

void RemoteConsole::TakeEvent(const TEvent& event) {
    const auto kind = static_cast<EventKind>(event.kind);
    if (kind == EventKind::kKey) {
        modifiersLive = event.modifiers;
        const bool isTaken = IsTypedText(event)
                                 ? GiveCharacterToSink(event.code)
                                 : GiveKeyToSink(event.code, event.modifiers, event.unicode);
        if (isTaken) return;
    } else if (kind != EventKind::kQuit && HasTerminalSink()) {
        return;  // a program in the embedded terminal gets no mouse
    }
    if (kind == EventKind::kQuit || events.Pending() < kMostWaitingEvents) events.Push(event);
}

void RemoteConsole::ReadInput() {
    while (ReadOnce()) {
    }
    hasEnded = true;
    replies.End();
    events.Push(QuitEvent());
}

// False at the end of the input, and when the console is being closed.
bool RemoteConsole::ReadOnce() {
    pollfd wait[] = {{inputFd, POLLIN, 0}, {wakeFd, POLLIN, 0}};
    if (poll(wait, 2, -1) < 0) return errno == EINTR;
    if (wait[1].revents != 0) return false;
    if (wait[0].revents == 0) return true;
    uint8_t bytes[kReadBytes];
    const ssize_t got = read(inputFd, bytes, sizeof(bytes));
    if (got > 0) input.Feed(bytes, static_cast<int>(got));
    return got > 0 || (got < 0 && (errno == EINTR || errno == EAGAIN));
}

}  // namespace zt
