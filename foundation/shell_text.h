// Text on its way to and from the shell. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The text as the shell takes it for one word: a backslash in front of each character that means
// something to it. A text with a line feed, which no backslash protects, goes into single quotes.
Westring ShellEscape(const Westring& text);

}  // namespace zt
