// The names in an open directory, read in one go without looking at any of them: what a walk that
// deletes needs, and no more memory than the names take. First thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zt {

class RawListing {
public:
    // A list longer than this is put in the order of the inodes: going through a large directory in
    // the order in which it lists its names is slow where the inodes are not in memory yet.
    static constexpr size_t kSortedFrom = 10000;

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
    void SortByInode();

    std::vector<std::pair<uint64_t, size_t>> inodes_;  // each with its row's place
    std::vector<char> rows_;                           // a DT_ value and a zero-ended name each
    size_t next_ = 0;
    unsigned char type_ = 0;
};

}  // namespace zt
