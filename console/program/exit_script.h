// The change-directory script that a caller may ask for at exit. First thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Writes the script for `path` to `file`. Its form is that of systems with drive letters, whatever
// the path: the first character alone with a colon, then `cd` with the rest.
void WriteExitScript(const Westring& file, const Westring& path);

}  // namespace zt
