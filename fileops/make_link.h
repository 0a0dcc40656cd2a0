// Making one symbolic link. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The text of a link in `linkDirectory` that leads to `target`: up to the last directory that both
// paths begin with, and down again. Both are absolute and hold neither "." nor "..". Pure.
Westring RelativeLinkText(const Westring& linkDirectory, const Westring& target);

// Makes the link and tells of a failure, which may be tried again. Both paths are absolute; with
// `relative` the link says how to get from its directory to the target. `isDirectory`: the target
// is one; for file systems whose links know it. 1 to go on, 0 to stop.
[[nodiscard]] int MakeLink(const Westring& linkPath, const Westring& targetPath, bool relative,
                           bool isDirectory);

}  // namespace zt
