// The one path normaliser of the program: used by copy, move, archive and filter code. Any thread
// (the working directory belongs to the process).
#pragma once

#include "foundation/westring.h"

namespace zt {

// For a path that somebody wrote. Makes it absolute and takes out what is superfluous: a backslash
// separates as '/' does, empty parts, "." and a trailing slash go, a part of n dots (n at least 2)
// goes up n - 1 levels, and nothing at all becomes "/". A part with a backslash, or of more than
// two dots, stands for the name that it is where something of that very name exists: so every name
// can be reached. A relative path stands below `base`, an absolute directory that the system gave,
// or below the working directory when `base` is null.
// 0, or -1 with the path unchanged: the way up led past "/", or there is no directory to start at.
[[nodiscard]] int NormalizePath(Westring& path, const wchar_t* base);

// For a path that the system gave, as a link's target or a word of the command line: the same, but
// its parts are names, whatever they look like. Only "." and ".." are resolved, and the way up ends
// at "/", as it does for the system. 0, or -1 when there is no directory to start at.
[[nodiscard]] int MakeAbsolute(Westring& path, const wchar_t* base);

// The working directory of the process; empty when it cannot be told.
Westring WorkingDirectory();

}  // namespace zt
