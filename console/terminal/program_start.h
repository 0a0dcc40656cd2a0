// Starting a program on a pseudo-terminal, as the leader of a session of its own.
#pragma once

#include <sys/types.h>

namespace zt {

class PseudoTerminal;

// All of it must be made before: between fork and exec nothing is allocated.
struct ProgramStart {
    const char* path = nullptr;                // the file that is executed; PATH is not searched
    const char* const* arguments = nullptr;    // with the program's own name, ended by null
    const char* const* environment = nullptr;  // "NAME=value", ended by null
    const char* directory = nullptr;           // null: where this process is
};

// What an exec that fails gives as exit code, as exit(-1) would.
inline constexpr int kExitNotStarted = 255;

// The process, or -1 with errno set. Standard input, output and error of the program are the
// slave; it inherits no other descriptor, no blocked and no ignored signal. The slave is closed
// here afterwards.
[[nodiscard]] pid_t StartProgram(const ProgramStart& start, PseudoTerminal& terminal);

}  // namespace zt
