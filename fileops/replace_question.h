// The question before something goes that a new file or a copy takes the place of, without the
// going: it stays until the new one is whole. First thread only.
#pragma once

#include "fileops/file_operation.h"
#include "foundation/westring.h"

namespace zt {

// 1 when what stands at `path` may go, 0 when it is to stay, kCancelled. Only read-only files and
// what cannot go at all bring up a box; the answers about read-only files are remembered in the
// operation.
[[nodiscard]] int AskToReplace(FileOperation& operation, const Westring& path,
                               IPausablePainter* painter);

}  // namespace zt
