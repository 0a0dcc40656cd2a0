// Where the keys go that move by words in a line of text. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The start of the word at `from`, or of the one before it.
int WordLeft(const Westring& text, int from);
// With the setting `briefWordRight` behind the word at hand or the next one; otherwise to where
// the next word begins.
int WordRight(const Westring& text, int from);

}  // namespace zt
