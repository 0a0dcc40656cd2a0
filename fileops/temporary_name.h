// The names under which new files are written until they are whole: the target's with ".zt@@@.tmp"
// behind it, in the same directory. A file that has such a name already, a user's own or one that a
// killed program left, is never touched: the next name has a number in it. Any thread.
#pragma once

#include <functional>

#include "foundation/estring.h"

namespace zt {

inline constexpr char kTemporarySuffix[] = ".zt@@@.tmp";
inline constexpr int kMostTemporaryNames = 1000;

// The n-th temporary name, from 0, for the name `name` (no path), of at most `limit` bytes: what is
// too long loses the end of its own part, between two characters of UTF-8.
Estring TemporaryName(const char* name, int n, int limit);

// Calls `make` with one temporary path after another until the result is not EEXIST, and gives that
// result. Where the system calls a path too long, shorter names are tried. `path` is the target's;
// `temporary` is the last path tried.
int MakeTemporary(const Estring& path, Estring& temporary,
                  const std::function<int(const char*)>& make);

}  // namespace zt
