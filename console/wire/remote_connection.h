// The display side of a remote session: takes the bytes that come from the far end, carries the
// requests among them out on the console, and sends replies and events back. Owned by the session
// around it. Feed belongs to the session's thread; SendEvent may come from another one.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "console/console_interface.h"
#include "console/wire/display_session.h"
#include "console/wire/frame_writer.h"
#include "console/wire/parameter.h"
#include "foundation/recursive_mutex.h"
#include "foundation/std_file.h"

namespace zt {

class CRemoteConnection {
public:
    // Borrows the console and the session. `outputFd`, the write end towards the far end, is
    // owned from now on, and is made blocking. The console gets fill attribute 7 and cursor size
    // 15, and the colour classes their defaults.
    CRemoteConnection(IConsole& console, IDisplaySession& session, int outputFd);
    CRemoteConnection(const CRemoteConnection&) = delete;
    CRemoteConnection& operator=(const CRemoteConnection&) = delete;

    // Takes the next `n` bytes, however they are cut. What is no frame before the handshake is
    // shown as teletype text, its last byte twice (the byte could be the beginning of a frame, and
    // so is kept as well); afterwards it is dropped. A frame with a parameter of an unknown type
    // stalls the session for good.
    void Feed(const char* data, int n);

    bool IsConnected() const { return connected; }
    // False, and nothing is sent, while half of the pipe is full. It never waits for the far end.
    [[nodiscard]] bool SendEvent(const TEvent& event);

private:
    int Parse(const uint8_t* data, int n, std::string& plainText);
    // The bytes that the frame at `data` takes, carried out, or 0 when it has to wait.
    int TakeFrame(const uint8_t* data, int n);
    bool HasRoom(int quarters) const;
    bool WaitForRoom();
    void Dispatch(int opcode, CParameterList& parameters);
    void Handshake(CParameterList& parameters);
    bool AppendToBuffer(const char* data, int n);
    void Keep(const uint8_t* data, int n, bool inBuffer);

    std::unique_ptr<uint8_t[]> buffer;  // an incomplete frame between reads
    uint32_t capacity;
    uint32_t pending = 0;  // bytes kept in `buffer`
    int32_t outputFd;
    StdFile output;
    CRecursiveMutex lock;  // one writer at a time
    bool connected = false;

    bool stalled = false;  // nothing that comes can be parsed any more
    IConsole& console;
    IDisplaySession& session;
    FrameWriter writer;
};

}  // namespace zt
