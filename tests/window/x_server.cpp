// Starting and ending Xvfb.
#include "x_server.h"

#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace zt::testing {

namespace {

constexpr int kStartLimitMilliseconds = 30000;
constexpr const char* kScreen = "1600x1200x24";

[[noreturn]] void RunServer(int displayPipe, const char* extraOption) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const std::string pipeNumber = std::to_string(displayPipe);
    std::vector<const char*> arguments = {"Xvfb",      "-displayfd", pipeNumber.c_str(),
                                          "-screen",   "0",          kScreen,
                                          "-nolisten", "tcp",        "-noreset"};
    if (extraOption != nullptr) {
        arguments.push_back("-extension");
        arguments.push_back(extraOption);
    }
    arguments.push_back(nullptr);
    if (freopen("/dev/null", "w", stderr) == nullptr) _exit(127);
    execvp("Xvfb", const_cast<char* const*>(arguments.data()));
    _exit(127);
}

// The server writes the number of its display and a new line when it takes clients.
std::string ReadNumber(int pipe) {
    std::string number;
    char digit;
    pollfd waiting{pipe, POLLIN, 0};
    while (poll(&waiting, 1, kStartLimitMilliseconds) == 1 && read(pipe, &digit, 1) == 1) {
        if (digit == '\n') return number;
        number += digit;
    }
    return {};
}

}  // namespace

XServer::XServer(const char* extraOption) {
    int ends[2];
    if (pipe(ends) != 0) return;
    process = fork();
    if (process == 0) {
        close(ends[0]);
        RunServer(ends[1], extraOption);
    }
    close(ends[1]);
    const std::string number = ReadNumber(ends[0]);
    close(ends[0]);
    if (!number.empty()) display = ":" + number;
}

XServer::~XServer() {
    if (process <= 0) return;
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
}

const XServer& TheXServer() {
    // Never destroyed: the toolkit's connection lasts to the end of the process, and the server
    // ends with the process that started it.
    static const XServer* server = [] {
        auto* started = new XServer;
        setenv("DISPLAY", started->Display().c_str(), 1);
        return started;
    }();
    return *server;
}

}  // namespace zt::testing
