// Where a copy goes: the destination that the user typed, applied to one source.
#pragma once

#include "foundation/westring.h"

namespace zt {

// A name with '*' or '?' in it, which makes other names.
bool IsMask(const Westring& name);

// A destination whose last part holds '*' or '?' makes the name by that mask; one that ends in a
// slash or is an existing directory gets the source's name; any other is the new name itself.
Westring MapTargetName(const Westring& source, const Westring& destination);

}  // namespace zt
