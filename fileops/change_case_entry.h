// Changing the case of one entry's name, and of all names below it where the settings say so, with
// the questions and the window that belong to it. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

struct entry;

// `item` is in `directory`. Which kinds are renamed, and whether directories are entered, is in the
// settings; "." and ".." are left alone, and links to directories are not entered. 0, or
// kCancelled when the user wants no more.
[[nodiscard]] int ChangeCaseEntry(const Westring& directory, const entry& item, char nameMode,
                                  char extensionMode);

// Takes what has been typed off the queue: true when the user wants no more.
bool StopAsked();

}  // namespace zt
