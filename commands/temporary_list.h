// Temporary files with lists of names for the commands that are given them. First thread only.
#pragma once

#include <vector>

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// The directory for temporary files: TMP, else TEMP, else "/tmp", as the process has them.
Westring TemporaryDirectory();

// Files that go with their owner.
class TemporaryLists {
public:
    TemporaryLists() = default;
    ~TemporaryLists();
    TemporaryLists(const TemporaryLists&) = delete;
    TemporaryLists& operator=(const TemporaryLists&) = delete;

    // Writes the names, bytes and all, one a line. 0 or an errno value; `path` is the new file's.
    [[nodiscard]] int Add(const std::vector<Westring>& names, Westring& path);
    bool IsEmpty() const { return files.empty(); }
    // A shell command that removes the files, for a command that goes on when its owner is gone;
    // the owner then leaves them.
    Westring RemovalCommand();

private:
    std::vector<Estring> files;
};

}  // namespace zt
