// Where programs are and what kind they are. Any thread, but for the settings.
#pragma once

#include "foundation/westring.h"

namespace zt {

// A name with a '/' that exists is taken as it stands. Otherwise the first directory of PATH and
// of the setting for further directories that holds the name; it need not be executable.
[[nodiscard]] bool FindProgram(const Westring& name, Westring& found);

// Any of the three execute bits.
bool IsExecutable(const Westring& path);

// Whether the program opens windows of its own: it links the client library of X or of Wayland,
// itself or through another library. Its own interpreter is asked for the list; the program does
// not run. A file that is no dynamic executable has no windows.
bool IsGuiProgram(const Westring& path);

}  // namespace zt
