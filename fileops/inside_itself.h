// Whether something would go into itself. Any thread.
#pragma once

#include "fileops/file_operation.h"
#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// By the names alone: both absolute and without superfluous parts. True for equal paths; "/x/ab"
// does not lie in "/x/a".
bool PathLiesIn(const Westring& path, const Westring& directory);

// By the directories that the names lead to, through links and mounts: the directory at `path`, or
// that in which it is to be made, is `directory` or lies below it.
bool LeadsInto(const Estring& path, const FileIdentity& directory);

}  // namespace zt
