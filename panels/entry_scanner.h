// The one way to list a directory: a scanner is asked for the first and for each next entry. A
// real directory is one scanner, an archive another. First thread only.
#pragma once

#include "panels/entry.h"

namespace zt {

class IEntryScanner {
public:
    virtual ~IEntryScanner() = default;
    // 0 with the entry, kNoMoreEntries, or an errno value. The entry is the scanner's own and
    // stands until the next call: size, flags, mode, uid, gid, time and name are filled, the rest
    // is cleared. It may be changed, but not beyond the length of its name.
    [[nodiscard]] virtual int First(entry*& found) = 0;
    [[nodiscard]] virtual int Next(entry*& found) = 0;
};

}  // namespace zt
