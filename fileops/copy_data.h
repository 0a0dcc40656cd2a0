// The bytes of one file, from the source to the new target, block by block. First thread only.
#pragma once

#include "fileops/copy_progress.h"
#include "fileops/copy_source.h"
#include "fileops/file_operation.h"
#include "fileops/new_target.h"

namespace zt {

// 0, kCancelled, or an errno value. The progress, which may be null, advances by block; Esc and the
// Break key are looked for after each. What the source leaves unwritten in the middle of a file,
// and its whole end, stays unwritten in the target; it counts as copied.
[[nodiscard]] int CopyData(FileOperation& operation, CopySource& source, NewTarget& target,
                           CopyProgress* progress);

}  // namespace zt
