// How a command gets to the shell. Everything is made ready beforehand, so that the child between
// fork and exec only makes system calls. First thread only.
#pragma once

#include <string>
#include <vector>

#include "console/terminal/program_start.h"
#include "foundation/westring.h"

namespace zt {

class ShellLaunch {
public:
    // $SHELL -c command, in the environment of program_environment.h, with the directories of the
    // setting behind PATH and TERM as the embedded terminal is.
    explicit ShellLaunch(const Westring& command);
    ShellLaunch(const ShellLaunch&) = delete;
    ShellLaunch& operator=(const ShellLaunch&) = delete;

    // What starts it. Borrows from this.
    ProgramStart Start() const;

    const std::string& Shell() const { return shell; }
    const std::vector<std::string>& Variables() const { return variables; }  // NAME=value

private:
    std::string command;
    std::string shell;
    std::vector<std::string> variables;
    std::vector<const char*> arguments;  // both lists are ended by a null pointer
    std::vector<const char*> environment;
};

// Starts the shell in a session of its own and does not wait: it is nobody's child. 0 or the errno
// value of a failed fork.
[[nodiscard]] int RunDetached(const ShellLaunch& launch);

}  // namespace zt
