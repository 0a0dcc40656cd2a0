// The names in an open directory, read in one go without looking at any of them: what a walk that
// deletes needs, and no more memory than the names take. First thread only.
#pragma once

#include <string>
#include <vector>

namespace zt {

class RawListing {
public:
    // Reads the directory open at `directory`, "." and ".." left out, in the order of the disk.
    // False when not even its beginning could be read.
    [[nodiscard]] bool Read(int directory);

    // The next name, in bytes, or null at the end. It stays good until the listing goes.
    const char* Next();
    // What the last name given is, as far as the listing tells: a DT_ value.
    unsigned char Type() const { return type_; }

    bool IsEmpty() const { return rows_.empty(); }
    bool Has(const char* name) const;

private:
    std::vector<char> rows_;  // a DT_ value and a zero-ended name each
    size_t next_ = 0;
    unsigned char type_ = 0;
};

}  // namespace zt
