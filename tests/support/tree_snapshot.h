// What stands in a folder at one moment, to be compared with another moment. Names are bytes.
// Belongs to the test's thread; it reads by descriptors, so that no path is too long for it.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zt::headless {

struct FileState {
    mode_t type = 0;        // S_IFREG, S_IFDIR...
    mode_t rights = 0;      // the other bits of the mode
    uint64_t size = 0;      // of a regular file
    uint64_t contents = 0;  // a regular file's bytes as one number (FNV-1a)
    std::string link;       // a symbolic link's text
    timespec modified{};

    // Holds the same: type, bytes, link text.
    bool HoldsSameAs(const FileState& other) const;
    // And besides, for a regular file, its rights and its time.
    bool IsWholeCopyOf(const FileState& other) const;
    // All of it, a folder's time left out.
    bool operator==(const FileState& other) const;
};

// By the path from the folder; the folder itself is not in it.
using TreeSnapshot = std::map<std::string, FileState>;

TreeSnapshot TakeSnapshot(const std::string& folder);

// What differs, a line each; empty: nothing.
std::string Differences(const TreeSnapshot& before, const TreeSnapshot& after);

// The path in a form that a message can show.
std::string Shown(const std::string& path);

}  // namespace zt::headless
