// Running a program on a pty.
#include "bench/pty_program.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>

#include "tests/support/child_process.h"

namespace zt::bench {

namespace {

constexpr size_t kKept = 1 << 16;  // of the output, for looking for a text

[[noreturn]] void Become(const std::vector<std::string>& words, const std::string& directory,
                         const std::map<std::string, std::string>& environment) {
    clearenv();
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    if (chdir(directory.c_str()) != 0) _exit(126);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

}  // namespace

PtyProgram::PtyProgram(const std::vector<std::string>& words, const std::string& directory,
                       const std::map<std::string, std::string>& environment) {
    winsize size{25, 80, 0, 0};
    start = last = Clock::now();
    id = forkpty(&terminal, nullptr, nullptr, &size);
    if (id == 0) Become(words, directory, environment);
}

PtyProgram::~PtyProgram() {
    if (id > 0) kill(id, SIGKILL);
    if (terminal >= 0) close(terminal);
    if (id > 0) waitpid(id, nullptr, 0);
}

bool PtyProgram::Take(int milliseconds) {
    pollfd fd{terminal, POLLIN, 0};
    if (ended || poll(&fd, 1, milliseconds) <= 0) return false;
    char bytes[65536];
    const ssize_t count = read(terminal, bytes, sizeof bytes);
    if (count <= 0) {
        ended = true;
        return false;
    }
    last = Clock::now();
    output.append(bytes, static_cast<size_t>(count));
    return true;
}

double PtyProgram::MillisecondsToRest(const std::string& text, int limitSeconds) {
    const Clock::time_point end = Clock::now() + std::chrono::seconds(limitSeconds);
    bool seen = false;
    while (!ended && Clock::now() < end) {
        if (Take(1)) {
            seen = seen || output.find(text) != std::string::npos;
            if (output.size() > kKept) output.erase(0, output.size() - kKept / 2);
            continue;
        }
        if (seen && headless::IsProcessWaiting(id) && !Take(0)) {
            return std::chrono::duration<double, std::milli>(last - start).count();
        }
    }
    return -1;
}

void PtyProgram::Send(const std::string& keys) {
    output.clear();
    start = last = Clock::now();
    if (write(terminal, keys.data(), keys.size()) < 0) ended = true;
}

long PtyProgram::PeakKilobytes() const {
    return headless::PeakKilobytesOf(id);
}

}  // namespace zt::bench
