// What a command on files is about: the tagged entries of a panel in the order of its list, or
// else the one under the cursor. Made for the length of a command, during which the panel must not
// be read again. First thread only.
#pragma once

#include <cstddef>
#include <vector>

#include "foundation/westring.h"

namespace zt {

struct CPanel;
struct entry;

class CommandTargets {
public:
    explicit CommandTargets(CPanel& panel);

    bool IsEmpty() const { return indexes_.empty(); }
    bool IsGroup() const { return isGroup_; }  // of tagged entries, even if it is only one
    int Count() const { return static_cast<int>(indexes_.size()); }
    // `i` is below Count.
    int IndexAt(int i) const { return indexes_[static_cast<std::size_t>(i)]; }  // in the panel
    entry& At(int i) const;
    Westring PathAt(int i) const;  // absolute; in the tree style the row's directory
    // The entry's name, in at most `width` characters, or for a group how many files it has.
    Westring Caption(int width) const;

private:
    CPanel& panel_;
    std::vector<int> indexes_;
    bool isGroup_;
};

}  // namespace zt
