// A list of directories, as a search path has it, edited entry by entry. First thread; modal.
#pragma once

#include "foundation/westring.h"

namespace zt {

// `path` holds entries separated by ':'. It is changed when the user accepts; empty entries go.
void EditPathList(Westring& path, const char* title);

}  // namespace zt
