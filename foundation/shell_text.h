// Text on its way to and from the shell. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The text as the shell takes it for one word: a backslash in front of each character that means
// something to it. A text with a line feed, which no backslash protects, goes into single quotes.
Westring ShellEscape(const Westring& text);
// A name as one word of a command, whatever it holds: also patterns and control characters, which
// ShellEscape lets through, stand for themselves, and no dash begins the word.
Westring ShellWord(const Westring& name);

}  // namespace zt
