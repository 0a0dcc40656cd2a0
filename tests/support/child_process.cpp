// Starting a program on pipes, and telling whether it waits.
#include "tests/support/child_process.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zt::headless {

namespace {

constexpr int kCannotStart = 125;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> out;
    for (std::string& text : texts)
        out.push_back(text.data());
    out.push_back(nullptr);
    return out;
}

bool MakePipe(int (&ends)[2]) {
    return pipe2(ends, O_CLOEXEC) == 0;
}

[[noreturn]] void GiveUp(const char* what) {
    dprintf(STDERR_FILENO, "cannot start the program: %s: %s\n", what, strerror(errno));
    _exit(kCannotStart);
}

void BecomeUser(uid_t user) {
    if (geteuid() != 0) return;
    if (setgroups(0, nullptr) != 0) GiveUp("setgroups");
    if (setresgid(user, user, user) != 0) GiveUp("setresgid");
    if (setresuid(user, user, user) != 0) GiveUp("setresuid");
}

// In the child, between fork and exec. The program is opened before the rights are given away,
// for the tree that it was built in may be closed to others.
[[noreturn]] void Become(const ProcessOptions& options, char** arguments, char** environment,
                         const int (&streams)[3]) {
    for (int i = 0; i < 3; i++) {
        if (dup2(streams[i], i) < 0) GiveUp("dup2");
    }
    signal(SIGPIPE, SIG_DFL);
    const int program = open(options.program.c_str(), O_PATH | O_CLOEXEC);
    if (program < 0) GiveUp(options.program.c_str());
    if (options.user) BecomeUser(*options.user);
    if (!options.directory.empty()) {
        if (chdir(options.directory.c_str()) != 0) GiveUp(options.directory.c_str());
        if (options.removeDirectory && rmdir(options.directory.c_str()) != 0) GiveUp("rmdir");
    }
    fexecve(program, arguments, environment);
    GiveUp("fexecve");
}

// State letter, how often it was switched: of one thread.
std::string ThreadState(const std::filesystem::path& folder) {
    std::ifstream file(folder / "status");
    std::string line, state, out;
    while (std::getline(file, line)) {
        if (line.starts_with("State:")) state = line.substr(7, 1);
        if (line.find("ctxt_switches:") != std::string::npos) out += line;
    }
    return state + out;
}

// Of all threads of the process and its children; empty when the process is gone, or when one of
// them runs.
std::string SleepingState(pid_t id) {
    namespace fs = std::filesystem;
    std::string all;
    std::error_code error;
    const fs::path tasks = "/proc/" + std::to_string(id) + "/task";
    for (fs::directory_iterator thread(tasks, error), end; !error && thread != end;
         thread.increment(error)) {
        const std::string state = ThreadState(thread->path());
        // Asleep, stopped by a shell's job control, or ended.
        if (state.empty() || std::string("STZ").find(state[0]) == std::string::npos) return {};
        all += thread->path().filename().string() + state;
        std::ifstream children(thread->path() / "children");
        for (pid_t child; children >> child;) {
            const std::string below = SleepingState(child);
            if (below.empty()) return {};
            all += below;
        }
    }
    return all;
}

}  // namespace

bool IsProcessWaiting(pid_t id) {
    const std::string first = SleepingState(id);
    return !first.empty() && SleepingState(id) == first;
}

bool ChildProcess::IsWaiting() const {
    return IsProcessWaiting(id);
}

long PeakKilobytesOf(pid_t id) {
    std::ifstream file("/proc/" + std::to_string(id) + "/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
    }
    return 0;
}

bool ChildProcess::Start(const ProcessOptions& options) {
    int toProgram[2], fromProgram[2], errorPipe[2];
    if (!MakePipe(toProgram) || !MakePipe(fromProgram) || !MakePipe(errorPipe)) {
        perror("pipe");
        return false;
    }
    std::vector<std::string> words{options.name.empty() ? options.program : options.name};
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    std::vector<std::string> variables;
    for (const auto& [name, value] : options.environment)
        variables.push_back(name + "=" + value);
    std::vector<char*> arguments = Pointers(words);
    std::vector<char*> environment = Pointers(variables);
    id = fork();
    if (id == 0) {
        Become(options, arguments.data(), environment.data(),
               {toProgram[0], fromProgram[1], errorPipe[1]});
    }
    close(toProgram[0]);
    close(fromProgram[1]);
    close(errorPipe[1]);
    input = toProgram[1];
    output = fromProgram[0];
    errors = errorPipe[0];
    fcntl(input, F_SETFL, O_NONBLOCK);
    if (id < 0) perror("fork");
    return id > 0;
}

ChildProcess::~ChildProcess() {
    CloseInput();
    CloseOutput();
    CloseErrors();
    if (id > 0 && !HasEnded()) {
        Kill();
        waitpid(id, nullptr, 0);
    }
}

namespace {

void CloseOnce(int& fd) {
    if (fd >= 0) close(fd);
    fd = -1;
}

}  // namespace

void ChildProcess::CloseInput() {
    CloseOnce(input);
}

void ChildProcess::CloseOutput() {
    CloseOnce(output);
}

void ChildProcess::CloseErrors() {
    CloseOnce(errors);
}

void ChildProcess::Kill() {
    if (id > 0 && !ended) kill(id, SIGKILL);
}

bool ChildProcess::HasEnded() {
    if (ended || id <= 0) return true;
    int raw = 0;
    rusage usage{};
    if (wait4(id, &raw, WNOHANG, &usage) != id) return false;
    ended = true;
    status = WIFSIGNALED(raw) ? -WTERMSIG(raw) : WEXITSTATUS(raw);
    peakKilobytes = usage.ru_maxrss;
    return true;
}

int ChildProcess::UnreadInput() const {
    int waiting = 0;
    if (input < 0 || ioctl(input, FIONREAD, &waiting) != 0) return 0;
    return waiting;
}

}  // namespace zt::headless
