// The directories that the user has been in, in visiting order, each of them once.
// Owned by the pair of panels. First thread only.
#pragma once

#include "foundation/string_lists.h"

namespace zt {

inline constexpr int kDirectoryHistoryLimit = 100;

class DirectoryHistory : public WestringStore {
public:
    // The path becomes the newest item; an older equal one goes, and the oldest when there are
    // too many. Paths that differ in case are two.
    void Record(const Westring& path);
    // Takes the newest item off when it is this path.
    void DropNewest(const Westring& path);
};

}  // namespace zt
