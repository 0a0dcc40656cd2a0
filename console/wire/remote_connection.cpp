// The frame parser of the display side, and the handshake.
#include "console/wire/remote_connection.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>

#include <cstring>

#include "console/wire/opcode_handlers.h"
#include "console/wire/parameter_reader.h"
#include "foundation/colour_classes.h"

namespace zt {

namespace {

constexpr uint32_t kFirstCapacity = 0x10000;
// A frame of every parameter that any request takes is far below this. What is longer comes from a
// corrupt stream, which stalls anyway, and is not worth the memory.
constexpr uint32_t kMostKeptBytes = 4 << 20;

constexpr Attribute kRemoteFillAttribute = 7;
constexpr int kRemoteCursorSize = 15;

// How much of the way out may be full. Events leave room for answers, and answers for the longest
// of them, so that the lock is never held by a thread that waits for the far end.
constexpr int kEventQuarters = 2;
constexpr int kReplyQuarters = 3;
constexpr int kLookMilliseconds = 20;

int Get16(const uint8_t* bytes) {
    return bytes[0] | bytes[1] << 8;
}

void MakeBlocking(int fd) {
    const int flags = fcntl(fd, F_GETFL);
    if (flags >= 0 && (flags & O_NONBLOCK) != 0) fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);
}

}  // namespace

CRemoteConnection::CRemoteConnection(IConsole& screen, IDisplaySession& around, int fd)
    : buffer(new uint8_t[kFirstCapacity + 1]),
      capacity(kFirstCapacity),
      outputFd(fd),
      console(screen),
      session(around),
      writer(output, lock) {
    MakeBlocking(outputFd);
    output.Attach(outputFd);
    console.SetFillAttribute(kRemoteFillAttribute);
    ResetColours();
    console.SetCursorSize(kRemoteCursorSize);
}

void CRemoteConnection::Feed(const char* data, int n) {
    if (n <= 0 || stalled) return;
    const auto* bytes = reinterpret_cast<const uint8_t*>(data);
    int count = n;
    const bool inBuffer = pending > 0;
    if (inBuffer) {
        if (!AppendToBuffer(data, n)) return;
        bytes = buffer.get();
        count = static_cast<int>(pending);
    }
    std::string plainText;
    const int taken = Parse(bytes, count, plainText);
    if (!connected && !plainText.empty()) console.WriteStream(plainText.c_str());
    Keep(bytes + taken, count - taken, inBuffer);
}

// Gives the bytes that are done with; the rest is to be kept.
int CRemoteConnection::Parse(const uint8_t* data, int n, std::string& plainText) {
    int at = 0;
    while (at < n) {
        const bool isLast = at + 1 == n;
        if (!isLast && Get16(data + at) == kRequestMagic) {
            const int taken = TakeFrame(data + at, n - at);
            if (taken == 0) return at;
            at += taken;
            continue;
        }
        // A NUL would end the text for the console.
        if (data[at] != 0) plainText += static_cast<char>(data[at]);
        if (isLast) return at;
        at++;
    }
    return at;
}

int CRemoteConnection::TakeFrame(const uint8_t* data, int n) {
    constexpr int kHeadBytes = kMagicBytes + 4;
    if (n < kHeadBytes) return 0;
    const int opcode = Get16(data + kMagicBytes);
    const int count = Get16(data + kMagicBytes + 2);
    CParameterList parameters;
    int length = 0;
    switch (ReadParameters(data + kHeadBytes, n - kHeadBytes, count, parameters, length)) {
        case ReadResult::kIncomplete:
            return 0;
        case ReadResult::kFailure:
            // It fails in the same way each time it is tried again, so it is not kept at all.
            stalled = true;
            return 0;
        case ReadResult::kComplete:
            break;
    }
    if (!WaitForRoom()) {
        stalled = true;
        return 0;
    }
    Dispatch(opcode, parameters);
    return kHeadBytes + length;
}

// Whether less than so many quarters of the pipe wait for its reader. Without a reader there is
// room, as the writing fails at once.
bool CRemoteConnection::HasRoom(int quarters) const {
    const int size = fcntl(outputFd, F_GETPIPE_SZ);
    int waiting = 0;
    if (size <= 0 || ioctl(outputFd, FIONREAD, &waiting) != 0) return true;
    if (waiting < size / 4 * quarters) return true;
    pollfd end{outputFd, 0, 0};
    return poll(&end, 1, 0) > 0 && (end.revents & POLLERR) != 0;
}

// False when the user did not want to wait.
bool CRemoteConnection::WaitForRoom() {
    while (!HasRoom(kReplyQuarters)) {
        if (session.UserHasLeft()) return false;
        poll(nullptr, 0, kLookMilliseconds);
    }
    return true;
}

void CRemoteConnection::Dispatch(int opcode, CParameterList& parameters) {
    if (opcode == static_cast<int>(Opcode::kHandshake)) {
        Handshake(parameters);
    } else {
        CarryOut(opcode, parameters, console, writer);
    }
}

void CRemoteConnection::Handshake(CParameterList& parameters) {
    // A far end that says it twice gets its answer twice, but events have one sender.
    const bool isFirst = !connected;
    connected = true;
    if (isFirst) session.Connected();
    int32_t version = 0;
    const bool isOurs =
        CParameterList::GetInteger(parameters.Peek(0), version) && version == kProtocolVersion;
    if (isFirst) session.StartEvents();
    CParameterList reply;
    reply.AddInteger(isOurs ? 1 : 0);
    writer.WriteReply(reply);
    if (isOurs) return;
    // The first of the two is one field short; the far end is used to that.
    CParameterList quit;
    quit.AddInteger(static_cast<int32_t>(EventKind::kQuit));
    while (quit.Count() < kEventFields - 1)
        quit.AddInteger(0);
    writer.WriteEvent(quit);
    quit.AddInteger(0);
    writer.WriteEvent(quit);
    session.ShowWrongVersion();
}

bool CRemoteConnection::SendEvent(const TEvent& event) {
    if (!HasRoom(kEventQuarters)) return false;
    CParameterList fields;
    for (int32_t field :
         {event.kind, event.code, event.modifiers, event.column, event.row, event.unicode})
        fields.AddInteger(field);
    writer.WriteEvent(fields);
    return true;
}

// False when there is more than any frame can be.
bool CRemoteConnection::AppendToBuffer(const char* data, int n) {
    const auto more = static_cast<uint32_t>(n);
    if (more > kMostKeptBytes - pending) {
        stalled = true;
        return false;
    }
    const uint32_t needed = pending + more;
    if (needed > capacity) {
        std::unique_ptr<uint8_t[]> larger(new uint8_t[needed + 1]);
        std::memcpy(larger.get(), buffer.get(), pending);
        buffer = std::move(larger);
        capacity = needed;
    }
    std::memcpy(buffer.get() + pending, data, more);
    pending = needed;
    return true;
}

void CRemoteConnection::Keep(const uint8_t* data, int n, bool inBuffer) {
    pending = 0;
    if (stalled || n == 0) return;
    if (inBuffer) {
        std::memmove(buffer.get(), data, static_cast<size_t>(n));
        pending = static_cast<uint32_t>(n);
    } else {
        AppendToBuffer(reinterpret_cast<const char*>(data), n);
    }
}

}  // namespace zt
