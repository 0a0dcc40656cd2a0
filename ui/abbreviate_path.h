// Shortens a path for the screen, keeping its root component and its tail. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Shortens in place to at most `maxWidth` characters; a path that fits stays as it is. Either the
// head (the first component with its slash) and the tail stay around "...", or, where there is no
// head or no room for both, the end is cut off and U+25BA marks the cut.
void AbbreviatePath(Westring& path, int maxWidth);

}  // namespace zt
