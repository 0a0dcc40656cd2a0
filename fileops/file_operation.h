// What one command on files remembers from object to object: the answers that hold for the rest of
// the command, and whom it asks. The command makes one on its stack; first thread only.
#pragma once

#include <sys/types.h>

#include <cstdint>

#include <memory>
#include <vector>

#include "fileops/operation_user.h"

namespace zt {

struct PanelPair;

// What happens to a file that stands where a copy is to go. The numbers are those of the dialog's
// radio buttons.
enum class OverwriteMode : int32_t { kAsk = 0, kAlways = 1, kNever = 2, kIfOlder = 3 };

// What happens to an object that is read-only and is to be deleted.
enum class ReadOnlyMode : int32_t { kAsk = 0, kAlways = 1, kNever = 2 };

// Which file it is, whatever its names.
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

struct FileOperation {
    explicit FileOperation(IOperationUser& who) : user(who) {}
    FileOperation(const FileOperation&) = delete;
    FileOperation& operator=(const FileOperation&) = delete;

    IOperationUser& user;
    PanelPair* panels = nullptr;  // whose trees follow when a directory goes; null for none

    OverwriteMode overwrite = OverwriteMode::kAsk;
    bool mergeAll = false;             // further directories are merged silently
    int8_t copyOpenFiles = 0;          // files open for writing: 0 ask, 1 copy, negative leave
    bool caseFilterSource = false;     // the source's file system folds the case of names
    bool readOnlyMediaSource = false;  // the source is a disc that cannot be written

    ReadOnlyMode deleteReadOnly = ReadOnlyMode::kAsk;
    bool deleteTreeAll = false;  // no more questions about directories that are not empty
    bool noUndelete = false;     // from the dialog; nothing depends on it on this platform
    int deleteTreeDepth = 0;     // how many deletions of whole trees are running

    // The engine's own. The directories that it is in the middle of, from the outermost in; whether
    // the user has been told of the last EIO; and the block that data goes through.
    std::vector<FileIdentity> directories;
    bool toldReadError = false;
    std::unique_ptr<char[]> block;
};

}  // namespace zt
