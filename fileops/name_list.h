// The names in a directory, read at once: whoever works through them holds no descriptor open
// meanwhile, however deep the tree, and does not meet what he puts there himself. Any thread.
#pragma once

#include <cstddef>

#include <vector>

#include "foundation/estring.h"

namespace zt {

class NameList {
public:
    struct Name {
        const char* bytes;   // zero-ended, in the list's memory
        unsigned char type;  // as readdir tells: DT_DIR, DT_UNKNOWN and so on
    };

    // All but "." and "..". 0 or an errno value; after a failure the list is empty.
    [[nodiscard]] int Read(const Estring& directory);

    // Walks the names in the order of the disk: false at the end.
    bool Next(Name& name);
    void Rewind() { at_ = 0; }
    bool IsEmpty() const { return names_.empty(); }
    // Whether every name of this list is in `other` as well.
    bool IsPartOf(NameList& other);

private:
    std::vector<char> names_;  // a type, the bytes, a zero; and the next
    size_t at_ = 0;
};

}  // namespace zt
