// What a test and the fault injector inside a program share: a file that both have mapped. The test
// writes the plan while it is not armed, the injector writes what it saw; any thread.
//
// The injector is loaded with LD_PRELOAD. ZT_FAULT_PLAN names the mapped file, ZT_FAULT_FOLDER the
// folder: only calls on paths below it count, and calls on descriptors that were opened there.
// ZT_FAULT_APART may name a folder that is to seem a file system of its own: renaming and linking
// into it and out of it fails with EXDEV, always and without counting.
#pragma once

#include <atomic>
#include <cstdint>

namespace zt::faults {

inline constexpr const char* kPlanVariable = "ZT_FAULT_PLAN";
inline constexpr const char* kFolderVariable = "ZT_FAULT_FOLDER";
inline constexpr const char* kApartVariable = "ZT_FAULT_APART";

enum class Call : uint32_t {
    kOpen,
    kRead,
    kWrite,
    kSeek,
    kClose,
    kRename,
    kLink,
    kSymlink,
    kUnlink,
    kMakeDirectory,
    kRemoveDirectory,
    kStatus,
    kMode,
    kTime,
    kSync,
    kTruncate,
    kReadLink,
    kOpenDirectory,
    kReadDirectory,
    kCopyRange,
    kAccess,
    kControl,
    kMakeNode,
    kCount,
};

inline constexpr const char* kCallNames[] = {
    "open",    "read",      "write",    "lseek",   "close",   "rename",          "link",
    "symlink", "unlink",    "mkdir",    "rmdir",   "stat",    "chmod",           "utimens",
    "fsync",   "ftruncate", "readlink", "opendir", "readdir", "copy_file_range", "access",
    "ioctl",   "mknod",
};
static_assert(std::size(kCallNames) == static_cast<size_t>(Call::kCount));

constexpr uint32_t BitOf(Call call) {
    return 1u << static_cast<uint32_t>(call);
}
inline constexpr uint32_t kAllCalls = (1u << static_cast<uint32_t>(Call::kCount)) - 1;

enum class Fault : uint32_t {
    kNone,   // only counts
    kError,  // the call fails with `error`; a close closes all the same, as the system's does
    kShort,  // a read or write moves half of what was asked for
    kPause,  // the call waits before it is carried out, until the test lets it go on
    kKill,   // the program is killed before the call
};

// One call that counted.
struct CallRecord {
    uint32_t call = 0;
    char path[124] = {};  // its end, when it is longer
};

struct FaultPlan {
    static constexpr uint32_t kRecords = 4096;

    // The test's.
    std::atomic<uint32_t> armed;  // calls count; the last word that the test writes
    std::atomic<uint32_t> fault;
    std::atomic<int32_t> error;      // an errno value
    std::atomic<uint32_t> firstHit;  // the call, counted from 1, with which the faults begin
    std::atomic<uint32_t> lastHit;   // and with which they end
    std::atomic<uint32_t> calls;     // BitOf those that count
    // Only calls on a path with this ending count. Empty: all.
    char ending[256];
    // Listing exactly this folder (not one below it) disarms the plan before the call counts: so a
    // panel that is read again ends the walk. Empty: none.
    char untilListed[512];

    // The injector's.
    std::atomic<uint32_t> loaded;   // 1 when it stands in the program
    std::atomic<uint32_t> seen;     // calls that counted since it was armed
    std::atomic<uint32_t> hits;     // faults that it made
    std::atomic<uint32_t> pausing;  // number of the call that waits; 0: none
    std::atomic<uint32_t> goOn;     // the test's again: a word to wake it by
    CallRecord records[kRecords];   // of the calls 1 to kRecords
};

static_assert(std::atomic<uint32_t>::is_always_lock_free);

}  // namespace zt::faults
