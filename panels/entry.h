// One row of a panel: a file or directory as the last read found it.
// An entry is one block of memory, the fixed part with the name behind it. Those of a panel live
// in its EntryPool; single ones come from NewEntry and go with FreeEntry. First thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "foundation/date_time.h"

namespace zt {

struct TREENODE;

// Bits of entry::flags.
inline constexpr uint16_t kReadOnlyForUser = 0x0001;
inline constexpr uint16_t kHidden = 0x0002;
inline constexpr uint16_t kHiddenByArchive = 0x0004;  // counts as hidden; no real read sets it
inline constexpr uint16_t kDirectory = 0x0010;
inline constexpr uint16_t kSymbolicLink = 0x0100;
inline constexpr uint16_t kBrokenLink = 0x0200;  // the target could not be examined

// The first sort key of every order.
inline constexpr char kGroupParent = '1';  // ".."
inline constexpr char kGroupDirectory = 'A';
inline constexpr char kGroupHiddenFile = 'B';
inline constexpr char kGroupFile = 'C';

// In an order that leaves no gaps: a directory may have millions of them.
struct entry {
    uint64_t size;   // bytes; 0 for a directory unless its total is known (level is then 1)
    TTime time;      // of the last modification
    TREENODE* node;  // tree style: the row's directory; borrowed
    uint16_t flags;
    uint16_t mode;  // low 16 bits of st_mode
    uint16_t uid;   // low 16 bits
    uint16_t gid;
    uint8_t tagged;     // 1 when tagged
    uint8_t wasTagged;  // what a restored selection goes back to
    int8_t level;       // tree style: depth of the row; file styles: 1 = size is a known total
    char group;         // a kGroup character
    wchar_t name[1];    // zero-ended, no path; the block goes on behind

    bool IsDirectory() const { return (flags & kDirectory) != 0; }
    bool IsLink() const { return (flags & kSymbolicLink) != 0; }
    bool IsHidden() const { return (flags & (kHidden | kHiddenByArchive)) != 0; }
    bool IsDotDot() const { return name[0] == L'.' && name[1] == L'.' && name[2] == 0; }
    bool IsDot() const { return name[0] == L'.' && name[1] == 0; }
};

// Bytes of an entry whose name has `nameLength` characters.
constexpr size_t EntryBytes(size_t nameLength) {
    return offsetof(entry, name) + (nameLength + 1) * sizeof(wchar_t);
}

// Everything but the name becomes zero.
void ClearEntry(entry& e);
// An entry with a block of its own, cleared, with room for exactly this name.
[[nodiscard]] entry* NewEntry(const wchar_t* name);
[[nodiscard]] entry* CopyEntry(const entry& from);
void FreeEntry(entry* e);

struct EntryFreer {
    void operator()(entry* e) const { FreeEntry(e); }
};
using OwnedEntry = std::unique_ptr<entry, EntryFreer>;

}  // namespace zt
