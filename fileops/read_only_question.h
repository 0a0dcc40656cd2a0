// The question about a file that is read-only and is to go. First thread only.
#pragma once

#include "fileops/file_operation.h"
#include "foundation/westring.h"

namespace zt {

// 1 when the file at `path` may go, 0 when it is to stay, kCancelled. Answers that hold for the
// rest of the command are remembered in the operation, and then nothing is asked.
[[nodiscard]] int AskAboutReadOnly(FileOperation& operation, const Westring& path,
                                   IPausablePainter* painter);

}  // namespace zt
