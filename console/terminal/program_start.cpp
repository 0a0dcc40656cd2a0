#include "console/terminal/program_start.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>

#include "console/terminal/pseudo_terminal.h"

namespace zt {

namespace {

void ResetSignals() {
    for (int number = 1; number < NSIG; number++)
        signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// In the child: only what is safe there.
[[noreturn]] void BecomeProgram(const ProgramStart& start, int slave) {
    ResetSignals();
    setsid();
    ioctl(slave, TIOCSCTTY, 0);
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; fd++)
        dup2(slave, fd);
    close_range(STDERR_FILENO + 1, UINT_MAX, 0);
    const bool isThere = start.directory == nullptr || chdir(start.directory) == 0;
    if (isThere) {
        execve(start.path, const_cast<char* const*>(start.arguments),
               const_cast<char* const*>(start.environment));
    }
    _exit(kExitNotStarted);
}

}  // namespace

pid_t StartProgram(const ProgramStart& start, PseudoTerminal& terminal) {
    // A signal for this process must not run its handlers in the child.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t pid = fork();
    if (pid == 0) BecomeProgram(start, terminal.Slave());
    const int error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    terminal.CloseSlave();
    errno = error;
    return pid;
}

}  // namespace zt
