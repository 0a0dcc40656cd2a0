// The title of the console's window as the program sets it. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Null: the program's own title. A text gets the program's name in front of it.
void SetWindowTitle(const wchar_t* text);

}  // namespace zt
