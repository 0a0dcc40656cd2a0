// How a command gets to the shell. Everything is made ready beforehand, so that the child between
// fork and exec only makes system calls. First thread only.
#pragma once

#include <string>
#include <vector>

#include "foundation/westring.h"

namespace zt {

class ShellLaunch {
public:
    // $SHELL -c command, in the environment of program_environment.h, with the directories of the
    // setting behind PATH and TERM as the embedded terminal is.
    explicit ShellLaunch(const Westring& command);

    // In the child: becomes the shell, or ends with status 127 and a line on standard error.
    [[noreturn]] void Exec() const;

    const std::string& Shell() const { return shell; }
    const std::vector<std::string>& Variables() const { return variables; }  // NAME=value

private:
    std::string command;
    std::string shell;
    std::vector<std::string> variables;
    std::vector<char*> block;  // into `variables`, ended by a null pointer
};

// Starts the shell in a session of its own and does not wait: it is nobody's child. 0 or the errno
// value of a failed fork.
[[nodiscard]] int RunDetached(const ShellLaunch& launch);

}  // namespace zt
