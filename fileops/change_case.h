// Names in another letter case, by the program's own case table. Pure functions; any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The modes of a part of a name; any other leaves it as it is.
inline constexpr char kLowerCase = 'l';
inline constexpr char kUpperCase = 'u';
inline constexpr char kMixedCase = 'm';
inline constexpr char kSameCase = 'n';

// Every word begins with a capital, the rest of it is small. After a letter and an apostrophe a
// word begins again ("O'Brien"), but not what is short for another word ("I'm", "I'll", "I've").
Westring MixedCase(const Westring& text);

// The name is cut at its last full stop, which belongs to the extension, and each part converted
// by its mode. Bytes that are no characters stay.
Westring NameInCase(const Westring& name, char nameMode, char extensionMode);

}  // namespace zt
