// Copying and moving one object (a file, a link, a device or a whole tree) with all that is asked
// on the way. First thread only. Results are kDone, kCancelled, a positive errno value, kSkipped or
// kOpenForWriting.
#pragma once

#include "fileops/copy_progress.h"
#include "fileops/file_operation.h"
#include "foundation/std_file.h"

namespace zt {

// Bits of transferFlags.
inline constexpr int kTransferOpenFiles = 1;    // also when open for writing
inline constexpr int kTransferDereference = 4;  // what symbolic links point to, not the links
inline constexpr int kTransferMayReplace = 8;   // what stands at the target was agreed to go

// `index` of `total` objects of the command. `descriptions` is the open description file of the
// source's directory, or closed. The result is 1 when the target could not be cleared and was left.
[[nodiscard]] int CopyWithPrompts(FileOperation& operation, const Westring& source,
                                  const Westring& target, int index, int total,
                                  CopyProgress& progress, StdFile& descriptions, int transferFlags);
// `progress` may be null.
[[nodiscard]] int MoveWithPrompts(FileOperation& operation, const Westring& source,
                                  const Westring& target, int index, int total,
                                  CopyProgress* progress, StdFile& descriptions,
                                  bool sameFileSystem);

}  // namespace zt
