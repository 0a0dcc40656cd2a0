// The display of a program on another machine: a remote session from the start of ssh to its end.
// First thread only; blocks it for the whole session.
#pragma once

#include "foundation/estring.h"

namespace zt {

class IConsole;

// Runs the whole session with `host` on the console and returns when it has ended. Until the far
// end has said who it is, the console is the terminal on which ssh asks and warns. What went wrong
// is told in a box. A window that is closed ends the session: at once before the far end is there,
// through the far end afterwards, and at once again when the user asks a second time.
void OpenConnection(IConsole& console, const Estring& host);

}  // namespace zt
