// Starting and ending the process that carries a remote session.
#include "console/program/connect_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

namespace zt {

namespace {

constexpr int kReportFd = STDERR_FILENO + 1;
constexpr int kLookMilliseconds = 5;
constexpr int kHangUpMilliseconds = 1000;
// What the user does while the connection stalls waits in the pipe: some 20,000 events.
constexpr int kPipeBytes = 1 << 20;

void CloseEnd(int& fd) {
    if (fd >= 0) close(fd);
    fd = -1;
}

struct Pipe {
    int ends[2] = {-1, -1};

    int Open() { return pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno; }
    int Take(int which) {
        const int fd = ends[which];
        ends[which] = -1;
        return fd;
    }
    ~Pipe() {
        CloseEnd(ends[0]);
        CloseEnd(ends[1]);
    }
};

// The words as execvpe takes them.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> EnvironmentOfXterm() {
    std::vector<std::string> texts;
    for (char** at = environ; at != nullptr && *at != nullptr; at++) {
        if (strncmp(*at, "TERM=", 5) != 0) texts.emplace_back(*at);
    }
    texts.emplace_back("TERM=xterm");
    return texts;
}

struct ChildEnds {
    int input;
    int output;
    int terminal;
    int report;  // gets the errno value of an exec that fails
};

// In the child: only what is safe between fork and exec. All the descriptors are above the
// standard ones, which the window system's connection follows.
[[noreturn]] void BecomeProgram(const ChildEnds& ends, char* const* words,
                                char* const* environment) {
    for (int number = 1; number < NSIG; number++)
        signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    setsid();
    ioctl(ends.terminal, TIOCSCTTY, 0);
    dup2(ends.input, STDIN_FILENO);
    dup2(ends.output, STDOUT_FILENO);
    dup2(ends.terminal, STDERR_FILENO);
    if (ends.report != kReportFd) dup3(ends.report, kReportFd, O_CLOEXEC);
    close_range(kReportFd + 1, UINT_MAX, 0);
    execvpe(words[0], words, environment);
    const int error = errno;
    [[maybe_unused]] const ssize_t told = write(kReportFd, &error, sizeof error);
    _exit(255);
}

pid_t Fork(const ChildEnds& ends, char* const* words, char* const* environment) {
    // A signal for this process must not run its handlers in the child.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t pid = fork();
    if (pid == 0) BecomeProgram(ends, words, environment);
    const int error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return pid;
}

// Ends as soon as the program runs, which closes the other end.
int ReadReport(int fd) {
    int error = 0;
    ssize_t got;
    do {
        got = read(fd, &error, sizeof error);
    } while (got < 0 && errno == EINTR);
    return got == static_cast<ssize_t>(sizeof error) ? error : 0;
}

}  // namespace

ConnectProcess::~ConnectProcess() {
    End();
    CloseEnd(input);
    CloseEnd(output);
}

int ConnectProcess::Start(const std::vector<std::string>& words, int columns, int rows) {
    if (words.empty()) return ENOENT;
    Pipe toProgram, fromProgram, report;
    for (Pipe* one : {&toProgram, &fromProgram, &report}) {
        if (const int error = one->Open(); error != 0) return error;
    }
    if (const int error = terminal.Open(columns, rows); error != 0) return error;
    fcntl(toProgram.ends[1], F_SETPIPE_SZ, kPipeBytes);
    const std::vector<std::string> environment = EnvironmentOfXterm();
    const ChildEnds ends = {toProgram.ends[0], fromProgram.ends[1], terminal.Slave(),
                            report.ends[1]};
    pid = Fork(ends, Pointers(words).data(), Pointers(environment).data());
    if (pid < 0) return errno;
    terminal.CloseSlave();
    CloseEnd(report.ends[1]);
    const int error = ReadReport(report.ends[0]);
    input = toProgram.Take(1);
    output = fromProgram.Take(0);
    if (error != 0) WaitForEnd(kHangUpMilliseconds);
    return error;
}

int ConnectProcess::TakeInput() {
    const int fd = input;
    input = -1;
    return fd;
}

int ConnectProcess::LookForEnd() {
    if (HasEnded()) return 0;
    const pid_t found = waitpid(pid, &status, WNOHANG);
    if (found == 0 || (found < 0 && errno == EINTR)) return 0;
    pid = -1;
    return found < 0 ? errno : 0;
}

int ConnectProcess::WaitForEnd(int milliseconds) {
    int error = LookForEnd();
    for (int waited = 0; !HasEnded() && waited < milliseconds; waited += kLookMilliseconds) {
        poll(nullptr, 0, kLookMilliseconds);
        error = LookForEnd();
    }
    return error;
}

void ConnectProcess::End() {
    terminal.Close();
    if (HasEnded()) return;
    kill(-pid, SIGHUP);
    WaitForEnd(kHangUpMilliseconds);
    if (HasEnded()) return;
    kill(-pid, SIGKILL);
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    pid = -1;
}

}  // namespace zt
