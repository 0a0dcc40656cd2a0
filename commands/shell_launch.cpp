#include "commands/shell_launch.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "commands/program_environment.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"

namespace zt {

namespace {

constexpr const char* kTerminalType = "xterm";
constexpr const char* kDefaultShell = "/bin/sh";
constexpr int kCannotRun = 127;

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
    for (const KeyedValue* item = flat.First(); item; item = flat.Next())
        variables.push_back(std::string(item->key.c_str()) + '=' + item->value.c_str());
    for (std::string& variable : variables)
        block.push_back(variable.data());
    block.push_back(nullptr);
}

void ShellLaunch::Exec() const {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const char* const arguments[] = {shell.c_str(), "-c", command.c_str(), nullptr};
    execve(shell.c_str(), const_cast<char* const*>(arguments), block.data());
    dprintf(STDERR_FILENO, "%s: %s\r\n", shell.c_str(), strerror(errno));
    _exit(kCannotRun);
}

int RunDetached(const ShellLaunch& launch) {
    const pid_t child = fork();
    if (child < 0) return errno;
    if (child == 0) {
        // The one between ends at once, so that the system takes the shell over and nothing is
        // left to be waited for here.
        setsid();
        if (fork() == 0) launch.Exec();
        _exit(0);
    }
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return 0;
}

}  // namespace zt
