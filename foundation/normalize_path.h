// The one path normaliser of the program: used by copy, move, archive and filter code. Any thread
// (the working directory belongs to the process).
#pragma once

#include "foundation/westring.h"

namespace zt {

// Makes `path` absolute and takes out what is superfluous: every backslash becomes '/', empty
// parts, "." and a trailing slash go, a part of n dots (n at least 2) goes up n - 1 levels, and
// nothing at all becomes "/". A relative path stands below `base`, an absolute directory, or below
// the working directory when `base` is null. Of the base only "." and ".." are resolved: it is a
// directory that exists, whose names may well hold backslashes or be made of dots.
// 0, or -1 with the path unchanged: the way up led past "/", or there is no directory to start at.
[[nodiscard]] int NormalizePath(Westring& path, const wchar_t* base);

// The working directory of the process; empty when it cannot be told.
Westring WorkingDirectory();

}  // namespace zt
