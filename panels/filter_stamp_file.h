// The file that a time stamp test names with '@'. First thread only.
#pragma once

#include <cstdint>

#include "foundation/westring.h"

namespace zt {

// The whole path of what stands behind the '@', from the working directory; as it is written when
// it leads nowhere.
Westring StampFilePath(const Westring& written);
// Of its last modification, a link's own, in seconds since the epoch; false, with 0, when there is
// no such file.
bool StampFileTime(const Westring& path, int64_t& seconds);
Westring StampFileMissing(const Westring& path);  // the error text

}  // namespace zt
