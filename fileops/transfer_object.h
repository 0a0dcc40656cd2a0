// The core of copying and moving: one file, link, device or directory tree goes from one name to
// another, with no question about a file that stands at the target. First thread only.
//
// A file appears under its name by renaming, when it is whole: written beside the target under a
// temporary name, with its mode and time, and closed without error. Until then what stood there
// stays, and when the transfer fails nothing of it stays behind. Where no new file can be made
// beside a file that may be written, and for devices, the target itself is written.
#pragma once

#include "fileops/copy.h"
#include "fileops/copy_progress.h"
#include "fileops/file_operation.h"
#include "foundation/std_file.h"

namespace zt {

// kDone, kCancelled, kSkipped, kOpenForWriting or an errno value. EACCES or EEXIST also mean that
// something stands at the target: without `overwrite`, or when it is read-only and
// kTransferMayReplace is not among the flags. `progress` may be null. `descriptions` is the open
// description file of the source's directory, or closed. With `move` the source goes once the
// target is whole.
[[nodiscard]] int TransferObject(FileOperation& operation, const Westring& source,
                                 const Westring& target, bool overwrite, bool move,
                                 CopyProgress* progress, StdFile& descriptions, int transferFlags);

}  // namespace zt
