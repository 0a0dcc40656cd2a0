// The interpreter that an ELF executable names ("System V Application Binary Interface",
// chapter 5: the program header of type PT_INTERP). Any thread.
#pragma once

#include <string>

namespace zt {

// Reads the file at `path`. False for anything that is no executable of this machine's byte order
// with an interpreter; a script is none.
[[nodiscard]] bool ReadInterpreter(const char* path, std::string& interpreter);

}  // namespace zt
