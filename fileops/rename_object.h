// Renaming that never takes the place of something unasked, and renaming that does. Paths are bytes
// as file_name.h gives them. Any thread.
#pragma once

#include "foundation/estring.h"

namespace zt {

// 0 or an errno value: EEXIST, with nothing done, when anything stands at the target, be it a link
// to nothing.
[[nodiscard]] int RenameNew(const Estring& source, const Estring& target);

// Puts `source` in the place of what stands at `target`, which is no directory. Until the new one
// has the name the old one has it. Two hard links of one file become the one at the target. 0 or
// an errno value.
[[nodiscard]] int RenameOver(const Estring& source, const Estring& target);

}  // namespace zt
