// What the keys Alt-D, F5 and F6 do to a destination that is being typed: they change it between a
// bare name and the same name in the other panel's directory. A pure function; any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Exit codes of the three keys.
inline constexpr int kToggleKeys[] = {0x10020, 0x1003F, 0x10040};

constexpr bool IsToggleKey(int code) {
    return code == kToggleKeys[0] || code == kToggleKeys[1] || code == kToggleKeys[2];
}

// A text with a '/' loses everything up to the last one; any other gets `otherDirectory` and a '/'
// in front.
Westring ToggleDestination(const Westring& text, const Westring& otherDirectory);

// The directory with exactly one '/' behind it, as destinations are suggested; nothing stays
// nothing.
Westring WithTrailingSlash(const Westring& directory);

}  // namespace zt
