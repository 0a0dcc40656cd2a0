// What the session around a remote connection does at the handshake. Owned by the session; called
// on the thread that feeds the connection. However often the far end repeats the handshake,
// Connected and StartEvents come once.
#pragma once

namespace zt {

class IDisplaySession {
public:
    virtual ~IDisplaySession() = default;

    // The far end speaks the protocol: from now on typing goes to the event queue, and a standard
    // output that is a terminal becomes raw.
    virtual void Connected() = 0;
    // Input events are to be sent from now on (CRemoteConnection::SendEvent). Comes before the
    // handshake's reply leaves.
    virtual void StartEvents() = 0;
    // The far end speaks another version; the two quit events have been sent. The session goes on
    // until the far end closes it.
    virtual void ShowWrongVersion() = 0;
    // Asked while an answer waits for room on the way out. When the user does not want to wait,
    // nothing that comes is carried out any more.
    virtual bool UserHasLeft() const { return false; }
};

}  // namespace zt
