// Deleting files and directory trees, with the questions that belong to it. First thread only.
// Paths are absolute names of file_name.h, or relative to the working directory.
#pragma once

#include "fileops/file_operation.h"

namespace zt {

struct PanelPair;

enum class DeleteFileMode {
    kSingle = 0,       // the window is shown, and goes at the end
    kOneOfMany = 1,    // the window stays for the next one
    kCloseWindow = 2,  // only takes the window down
    kNoWindow = 3,     // no window; questions stand
    kQuiet = 4,  // as kNoWindow; read-only objects go from here on without a question, and one
                 // that is not there is no failure
};

// 1 when the file is gone, 0 when it was left, kCancelled. `painter` is stopped before any box; it
// may be null.
[[nodiscard]] int DeleteFile(FileOperation& operation, const Westring& path, DeleteFileMode mode,
                             IPausablePainter* painter);

// 1 when the directory was removed, 0 when it was left, kCancelled. `mask` null means all files.
// The trees of the panels follow; `panels` may be null.
[[nodiscard]] int DeleteDirectory(FileOperation& operation, PanelPair* panels, const Westring& path,
                                  const Westring* mask, IPausablePainter* painter);

}  // namespace zt
