#include "commands/shell_launch.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "commands/program_environment.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"

namespace zt {

namespace {

constexpr const char* kTerminalType = "xterm";
constexpr const char* kDefaultShell = "/bin/sh";

void AppendToPath(Environment& variables) {
    if (settings.pathAppend.IsEmpty()) return;
    const char* found = variables.Get("PATH");
    Estring path = found ? found : "";
    if (!path.IsEmpty() && path[path.Length() - 1] != ':') path += ':';
    path += NameToBytes(settings.pathAppend);
    variables.Set("PATH", path.c_str());
}

}  // namespace

ShellLaunch::ShellLaunch(const Westring& text) : command(NameToBytes(text).c_str()) {
    Environment flat;
    SessionEnvironment().Flatten(flat);
    AppendToPath(flat);
    flat.Set("TERM", kTerminalType);
    const char* wanted = flat.Get("SHELL");
    shell = wanted && *wanted ? wanted : kDefaultShell;
    for (const KeyedValue* item = flat.First(); item; item = flat.Next()) {
        if (item->key.IsEmpty()) continue;  // of "set =x"
        variables.push_back(std::string(item->key.c_str()) + '=' + item->value.c_str());
    }
    for (const std::string& variable : variables)
        environment.push_back(variable.c_str());
    environment.push_back(nullptr);
    arguments = {shell.c_str(), "-c", command.c_str(), nullptr};
}

ProgramStart ShellLaunch::Start() const {
    return {shell.c_str(), arguments.data(), environment.data(), nullptr};
}

namespace {

// What it writes goes nowhere: it must not keep a display's connection open, nor write into the
// terminal that this program was started from.
void LeaveStandardStreams() {
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere < 0) return;
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; fd++)
        dup2(nowhere, fd);
    if (nowhere > STDERR_FILENO) close(nowhere);
}

// Neither the signals that this program ignores nor what it has open are for another.
[[noreturn]] void BecomeProgram(const ProgramStart& start) {
    LeaveStandardStreams();
    close_range(STDERR_FILENO + 1, UINT_MAX, 0);
    for (int number = 1; number < NSIG; number++)
        signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execve(start.path, const_cast<char* const*>(start.arguments),
           const_cast<char* const*>(start.environment));
    _exit(kExitNotStarted);
}

}  // namespace

int RunDetached(const ShellLaunch& launch) {
    const ProgramStart start = launch.Start();
    const pid_t child = fork();
    if (child < 0) return errno;
    if (child == 0) {
        // The one between ends at once, so that the system takes the shell over and nothing is
        // left to be waited for here.
        setsid();
        if (fork() == 0) BecomeProgram(start);
        _exit(0);
    }
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return 0;
}

}  // namespace zt
