// Running a program in the console: on a pseudo-terminal, its output in the console's cells, the
// user's keys to it, until it ends. First thread only; blocks it for the whole run.
#pragma once

#include "console/terminal/program_start.h"

namespace zt {

class IConsole;

enum class ProgramEndKind {
    kExited,      // `value`: its exit code
    kSignalled,   // `value`: the signal that ended it
    kNoTerminal,  // there was no pseudo-terminal; `value`: an errno value
    kNotForked,   // `value`: an errno value
    kNotWaited,   // it ran, but its end cannot be told; `value`: an errno value, or 0 when it
                  // goes on without the terminal
};

struct ProgramEnd {
    ProgramEndKind kind = ProgramEndKind::kNotWaited;
    int value = 0;

    // The exit code; -1 where there is none.
    int Status() const { return kind == ProgramEndKind::kExited ? value : -1; }
};

// The run ends when the program has ended and all that it wrote is shown; when nobody has the
// terminal open any more; or when the console has ended or is to close, which hangs the terminal
// up. A new size of the console is told to the program. Meanwhile SIGCHLD is blocked in this
// thread.
[[nodiscard]] ProgramEnd RunProgram(IConsole& console, const ProgramStart& start);

}  // namespace zt
