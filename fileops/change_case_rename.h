// Giving an object another name in its directory without ever taking the name of another one.
// First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Both paths lie in one directory. EEXIST when another object has the new name; where the file
// system does not tell cases apart, the object's own name in another case is no other object.
// 0 or an errno value.
[[nodiscard]] int RenameWithoutReplacing(const Westring& oldPath, const Westring& newPath);

}  // namespace zt
