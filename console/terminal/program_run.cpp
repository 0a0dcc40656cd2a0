#include "console/terminal/program_run.h"

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <memory>

#include "console/console_interface.h"
#include "console/terminal/pseudo_terminal.h"
#include "console/terminal/terminal.h"

namespace zt {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kReadBytes = 65535;
constexpr int kIdleMilliseconds = 100;
// How long a program may take to end after it has closed its terminal, or was hung up.
constexpr int kEndMilliseconds = 1000;
// Output of a busy program is shown this often.
constexpr std::chrono::milliseconds kFrame{16};

class BlockedChildSignal {
public:
    BlockedChildSignal() {
        sigset_t child;
        sigemptyset(&child);
        sigaddset(&child, SIGCHLD);
        pthread_sigmask(SIG_BLOCK, &child, &before);
    }
    ~BlockedChildSignal() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }
    BlockedChildSignal(const BlockedChildSignal&) = delete;
    BlockedChildSignal& operator=(const BlockedChildSignal&) = delete;

private:
    sigset_t before;
};

class Run {
public:
    Run(IConsole& console_, PseudoTerminal& pty_, pid_t pid_);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    ProgramEnd Loop();

private:
    void LookForEnd();
    void WaitForEnd();
    bool WaitForInput(int milliseconds);
    bool ReadAll();
    void FollowSize();
    void ShowGathered();
    int MillisecondsToFrame() const;

    IConsole& console;
    PseudoTerminal& pty;
    const pid_t pid;
    int pidFd;  // readable when the program has ended; -1 where the system does not know it
    bool hasEnded = false;
    ProgramEnd end;
    std::unique_ptr<char[]> buffer;
    bool isGathered = false;
    Clock::time_point lastShown{};
    Clock::time_point firstGathered{};
};

Run::Run(IConsole& console_, PseudoTerminal& pty_, pid_t pid_)
    : console(console_),
      pty(pty_),
      pid(pid_),
      pidFd(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0))),
      buffer(new char[kReadBytes]) {
    console.OpenTerminal(pty.Master());
}

Run::~Run() {
    console.CloseTerminal();
    if (pidFd >= 0) close(pidFd);
}

void Run::LookForEnd() {
    if (hasEnded) return;
    int status = 0;
    const pid_t found = waitpid(pid, &status, WNOHANG);
    if (found == 0 || (found < 0 && errno == EINTR)) return;
    hasEnded = true;
    if (found < 0) {
        end = {ProgramEndKind::kNotWaited, errno};
    } else if (WIFEXITED(status)) {
        end = {ProgramEndKind::kExited, WEXITSTATUS(status)};
    } else {
        end = {ProgramEndKind::kSignalled, WIFSIGNALED(status) ? WTERMSIG(status) : 0};
    }
}

// After the last of its output. A program that goes on without its terminal is left alone.
void Run::WaitForEnd() {
    const Clock::time_point limit = Clock::now() + std::chrono::milliseconds(kEndMilliseconds);
    for (LookForEnd(); !hasEnded && Clock::now() < limit; LookForEnd()) {
        pollfd wait{pidFd, POLLIN, 0};
        poll(&wait, 1, pidFd >= 0 ? kIdleMilliseconds : 5);
    }
}

// True when there is output, or nobody is left to give any.
bool Run::WaitForInput(int milliseconds) {
    pollfd wait[] = {{pty.Master(), POLLIN, 0}, {hasEnded ? -1 : pidFd, POLLIN, 0}};
    return poll(wait, 2, milliseconds) > 0 && wait[0].revents != 0;
}

// Reads what there is, for a frame at most. False at the end of the output.
bool Run::ReadAll() {
    for (;;) {
        const ssize_t got = read(pty.Master(), buffer.get(), kReadBytes);
        if (got < 0 && errno == EAGAIN) return true;
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        const Clock::time_point now = Clock::now();
        if (!isGathered) firstGathered = now;
        isGathered = true;
        console.Terminal()->Gather(buffer.get(), static_cast<int>(got));
        if (now - firstGathered >= kFrame) return true;
    }
}

void Run::FollowSize() {
    int columns, rows;
    console.GetSize(columns, rows);
    pty.SetSize(columns, rows);
}

void Run::ShowGathered() {
    if (!isGathered) return;
    console.Terminal()->Show();
    isGathered = false;
    lastShown = Clock::now();
}

int Run::MillisecondsToFrame() const {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(lastShown + kFrame - Clock::now());
    return static_cast<int>(std::clamp<int64_t>(left.count(), 0, kFrame.count()));
}

ProgramEnd Run::Loop() {
    while (!console.IsClosing()) {
        LookForEnd();
        FollowSize();
        const int idle = hasEnded ? 0 : kIdleMilliseconds;
        const bool hasInput = WaitForInput(isGathered ? MillisecondsToFrame() : idle);
        if (hasInput) {
            if (!ReadAll()) break;
            if (isGathered && Clock::now() - firstGathered >= kFrame) ShowGathered();
        } else if (isGathered) {
            if (MillisecondsToFrame() == 0) ShowGathered();
        } else if (hasEnded) {
            break;
        }
    }
    ShowGathered();
    console.CloseTerminal();
    // A program is hung up when nobody will look any more; one that has only closed its terminal
    // gets the time to end by itself first.
    if (console.IsClosing()) pty.Close();
    WaitForEnd();
    pty.Close();
    return end;
}

}  // namespace

ProgramEnd RunProgram(IConsole& console, const ProgramStart& start) {
    int columns, rows;
    console.GetSize(columns, rows);
    PseudoTerminal pty;
    const int error = pty.Open(columns, rows);
    if (error != 0) return {ProgramEndKind::kNoTerminal, error};
    const BlockedChildSignal blocked;
    const pid_t pid = StartProgram(start, pty);
    if (pid < 0) return {ProgramEndKind::kNotForked, errno};
    return Run(console, pty, pid).Loop();
}

}  // namespace zt
