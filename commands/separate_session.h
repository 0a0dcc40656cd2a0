// Commands in a terminal of their own.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The command as the setting for separate sessions has it: in place of the first "!", or behind
// the setting and a blank when that has none. First thread only.
Westring SeparateSessionCommand(const Westring& command);

}  // namespace zt
