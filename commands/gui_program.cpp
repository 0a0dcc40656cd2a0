// Programs with windows of their own, told by the libraries that they link.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "commands/find_program.h"
#include "commands/program_interpreter.h"
#include "foundation/file_name.h"
#include "foundation/std_file.h"

namespace zt {

namespace {

constexpr const char* kWindowLibraries[] = {"libX11", "libwayland-client"};
constexpr int kLineBytes = 1024;

// Starts the interpreter's look at the program with its output on a pipe. The reading end, or -1.
int StartListing(const std::string& interpreter, const char* path, pid_t& child) {
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return -1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string program = interpreter;
    std::string list = "--list";
    std::string subject = path;
    char* arguments[] = {program.data(), list.data(), subject.data(), nullptr};
    const int result =
        posix_spawn(&child, interpreter.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (result == 0) return ends[0];
    close(ends[0]);
    return -1;
}

bool NamesWindowLibrary(const char* line) {
    for (const char* library : kWindowLibraries) {
        if (strstr(line, library)) return true;
    }
    return false;
}

}  // namespace

bool IsGuiProgram(const Westring& path) {
    const Estring bytes = NameToBytes(path);
    std::string interpreter;
    if (!ReadInterpreter(bytes.c_str(), interpreter)) return false;
    pid_t child = -1;
    const int output = StartListing(interpreter, bytes.c_str(), child);
    if (output < 0) return false;
    bool found = false;
    {
        StdFile file;
        char line[kLineBytes];
        if (file.Attach(output) == 0) {
            // To the end, so that the interpreter never writes to a closed pipe.
            while (file.ReadLine(line, sizeof line) == 0)
                found = found || NamesWindowLibrary(line);
        }
    }
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return found;
}

}  // namespace zt
