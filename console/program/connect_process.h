// The process that carries a remote session, ssh as a rule: two pipes for the wire, and a
// pseudo-terminal on which it asks and warns. Owns the process and the descriptors; belongs to the
// session's thread.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "console/terminal/pseudo_terminal.h"

namespace zt {

class ConnectProcess {
public:
    ConnectProcess() = default;
    ~ConnectProcess();  // ends what still runs
    ConnectProcess(const ConnectProcess&) = delete;
    ConnectProcess& operator=(const ConnectProcess&) = delete;

    // Starts the program, found by PATH, as the leader of a session of its own, with standard
    // error on the terminal and TERM as "xterm". 0, or the errno value for which it does not run.
    [[nodiscard]] int Start(const std::vector<std::string>& words, int columns, int rows);

    PseudoTerminal& Terminal() { return terminal; }
    int Output() const { return output; }  // what the program writes is read here
    // The end to write to, which the caller owns from then on.
    int TakeInput();

    // Sees whether the process has ended; 0, or the errno value of a wait that failed, after which
    // the process counts as ended.
    [[nodiscard]] int LookForEnd();
    bool HasEnded() const { return pid <= 0; }
    // As waitpid gives it; only after the end.
    int Status() const { return status; }

    // Waits so long for the process to end by itself; gives what LookForEnd gives.
    int WaitForEnd(int milliseconds);
    // Hangs the terminal up, and kills what does not end of it.
    void End();

private:
    pid_t pid = -1;
    int status = 0;
    int input = -1;
    int output = -1;
    PseudoTerminal terminal;
};

}  // namespace zt
