// Where the program starts. First thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The working directory; where it no longer exists, the nearest directory above it that does.
Westring StartDirectory();

}  // namespace zt
