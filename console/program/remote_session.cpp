// The loop around a remote session, and what it tells the user when something ends it.
#include "console/program/remote_session.h"

#include <poll.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <string>

#include "commands/screen_commands.h"
#include "console/console_interface.h"
#include "console/program/connect_command.h"
#include "console/program/connect_process.h"
#include "console/program/event_pump.h"
#include "console/program_state.h"
#include "console/wire/remote_connection.h"
#include "foundation/file_name.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr Attribute kSessionFillAttribute = 7;
constexpr int kReadBytes = 65535;
constexpr int kIdleMilliseconds = 200;
constexpr int kEndMilliseconds = 1000;
constexpr size_t kRemarkBytes = 512;

void ShowBox(const Westring& message, const wchar_t* name) {
    RefreshScreenSize();
    MessageBox(message, name, kBoxOk);
}

// A terminal that the program was started from sends its keys as they are while a session lasts.
class RawStandardOutput {
public:
    ~RawStandardOutput() {
        if (isSet) tcsetattr(STDOUT_FILENO, TCSADRAIN, &before);
    }
    void Set() {
        if (isSet || tcgetattr(STDOUT_FILENO, &before) != 0) return;
        termios raw = before;
        cfmakeraw(&raw);
        isSet = tcsetattr(STDOUT_FILENO, TCSADRAIN, &raw) == 0;
    }

private:
    termios before{};
    bool isSet = false;
};

class RemoteSession : public IDisplaySession {
public:
    RemoteSession(IConsole& screen, const Estring& host);
    ~RemoteSession() override;
    RemoteSession(const RemoteSession&) = delete;
    RemoteSession& operator=(const RemoteSession&) = delete;

    void Run(const std::vector<std::string>& words);

private:
    // IDisplaySession.
    void Connected() override;
    void StartEvents() override { pump.StartSending(); }
    void ShowWrongVersion() override;
    bool UserHasLeft() const override;

    void Loop();
    void TellFailedWait(int error);
    bool WaitForData();
    void TakeFromTerminal();
    void TakeFromPipe();
    void ShowRemark(char* text, int n);
    void TellEnd();
    Westring EndReason() const;

    IConsole& screen;
    const Estring host;
    ConnectProcess process;
    std::unique_ptr<CRemoteConnection> connection;
    EventPump pump;
    RawStandardOutput standardOutput;
    std::unique_ptr<char[]> buffer;
    std::string remarks;  // the last that ssh said beside the wire while the session stood
    bool terminalEnded = false;
    bool pipeEnded = false;
    bool terminalSpoke = false;
    bool wrongVersion = false;
};

RemoteSession::RemoteSession(IConsole& onScreen, const Estring& toHost)
    : screen(onScreen),
      host(toHost),
      pump(screen, [this](const TEvent& event) { return connection->SendEvent(event); }),
      buffer(new char[kReadBytes + 1]) {}

RemoteSession::~RemoteSession() {
    screen.CloseTerminal();
    process.End();
    pump.Stop();
}

void RemoteSession::Run(const std::vector<std::string>& words) {
    screen.SetFillAttribute(kSessionFillAttribute);
    int columns, rows;
    screen.GetSize(columns, rows);
    const int error = process.Start(words, columns, rows);
    if (error != 0) {
        ShowBox("Failed to start process in OpenConnection", Westring(strerror(error)).c_str());
        return;
    }
    const int input = process.TakeInput();
    connection = std::make_unique<CRemoteConnection>(screen, *this, input);
    screen.OpenTerminal(input);
    pump.Start();
    Loop();
    screen.CloseTerminal();
    if (!UserHasLeft()) TellFailedWait(process.WaitForEnd(kEndMilliseconds));
    process.End();
    pump.Stop();
    TellEnd();
}

void RemoteSession::Connected() {
    screen.CloseTerminal();
    standardOutput.Set();
}

// The box reads the keys itself.
void RemoteSession::ShowWrongVersion() {
    wrongVersion = true;
    pump.Stop();
    ShowBox("Incorrect protocol version", L"Error");
    pump.Start();
}

void RemoteSession::Loop() {
    while (!UserHasLeft() && !(terminalEnded && pipeEnded)) {
        TellFailedWait(process.LookForEnd());
        int columns, rows;
        screen.GetSize(columns, rows);
        process.Terminal().SetSize(columns, rows);
        if (!WaitForData() && process.HasEnded()) return;
    }
}

// `error`: 0 for a wait that did not fail.
void RemoteSession::TellFailedWait(int error) {
    if (error == 0) return;
    pump.Stop();
    ShowBox(Westring(("Error " + std::to_string(error) + " waiting for child").c_str()), nullptr);
    pump.Start();
}

// False when none came.
bool RemoteSession::WaitForData() {
    pollfd wait[] = {{terminalEnded ? -1 : process.Terminal().Master(), POLLIN, 0},
                     {pipeEnded ? -1 : process.Output(), POLLIN, 0}};
    if (poll(wait, 2, process.HasEnded() ? 0 : kIdleMilliseconds) <= 0) return false;
    if (wait[0].revents != 0) TakeFromTerminal();
    if (wait[1].revents != 0) TakeFromPipe();
    return true;
}

void RemoteSession::TakeFromTerminal() {
    const ssize_t got = read(process.Terminal().Master(), buffer.get(), kReadBytes);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got <= 0) {
        terminalEnded = true;
        return;
    }
    ShowRemark(buffer.get(), static_cast<int>(got));
}

// Before the handshake ssh speaks to the user. Afterwards the screen belongs to the far end, which
// must know what stands there; what ssh says then is kept for the end of the session.
void RemoteSession::ShowRemark(char* text, int n) {
    if (connection->IsConnected()) {
        remarks.append(text, static_cast<size_t>(n));
        if (remarks.size() > kRemarkBytes) remarks.erase(0, remarks.size() - kRemarkBytes);
        return;
    }
    // From its first word on it is the one that asks.
    if (!terminalSpoke) screen.OpenTerminal(process.Terminal().Master());
    terminalSpoke = true;
    text[n] = 0;
    screen.WriteStream(text);
}

void RemoteSession::TakeFromPipe() {
    const ssize_t got = read(process.Output(), buffer.get(), kReadBytes);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got <= 0) {
        pipeEnded = true;
        return;
    }
    connection->Feed(buffer.get(), static_cast<int>(got));
}

// A far end that stands is asked first, and is left without an answer only at the second time. A
// window closed on a box has nobody to ask.
bool RemoteSession::UserHasLeft() const {
    return quitSeen || pump.QuitCount() > (connection->IsConnected() ? 1 : 0);
}

void RemoteSession::TellEnd() {
    const bool wasGood = connection->IsConnected() && WIFEXITED(process.Status()) &&
                         WEXITSTATUS(process.Status()) == 0;
    if (wasGood || wrongVersion || pump.QuitCount() > 0) return;
    const Westring what = connection->IsConnected() ? "The session has ended on host "
                                                    : "No session could be opened on host ";
    ShowBox(what + NameFromBytes(host.c_str()), EndReason().c_str());
}

// The last line that ssh said, or else how it ended.
Westring RemoteSession::EndReason() const {
    const size_t last = remarks.find_last_not_of(" \t\r\n");
    if (last != std::string::npos) {
        const size_t before = remarks.find_last_of("\r\n", last);
        const size_t first = before == std::string::npos ? 0 : before + 1;
        std::string line = remarks.substr(first, last + 1 - first);
        for (char& ch : line) {
            if (static_cast<unsigned char>(ch) < ' ') ch = ' ';
        }
        return NameFromBytes(line.c_str());
    }
    const int status = process.Status();
    const std::string text =
        WIFSIGNALED(status)
            ? "The connecting program was ended by signal " + std::to_string(WTERMSIG(status))
            : "The connecting program ended with status " + std::to_string(WEXITSTATUS(status));
    return Westring(text.c_str());
}

}  // namespace

void OpenConnection(IConsole& screen, const Estring& host) {
    RemoteSession(screen, host).Run(SplitConnectCommand(BuildConnectCommand(host)));
}

}  // namespace zt
