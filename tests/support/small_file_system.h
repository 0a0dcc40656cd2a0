// A small file system of a test's own, mounted on a folder for as long as the object lives. Belongs
// to the test's thread. The mount is seen by the test and by the programs that it starts, by nobody
// else: the first one takes the test's process into a name space of its own.
#pragma once

#include <cstdint>
#include <string>

namespace zt::headless {

class SmallFileSystem {
public:
    // Room for about `bytes`. `folder` must exist; what it holds is hidden meanwhile.
    SmallFileSystem(const std::string& folder, uint64_t bytes);
    ~SmallFileSystem();

    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    // Only root may mount, and not everywhere. Where it failed Reason tells why: the test uses two
    // folders of one file system, or is skipped with that text.
    bool IsMounted() const { return mounted; }
    const std::string& Reason() const { return reason; }

    // From now on nothing can be written. False when that failed.
    bool MakeReadOnly();
    uint64_t FreeBytes() const;

private:
    std::string folder;
    bool mounted = false;
    std::string reason;
};

}  // namespace zt::headless
