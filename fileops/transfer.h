// One transfer under way: what TransferObject was given, and what its parts for files, links and
// directories need besides. Lives on the heap: trees nest deeply. First thread only.
#pragma once

#include <sys/stat.h>

#include "fileops/transfer_object.h"
#include "foundation/estring.h"

namespace zt {

struct Transfer {
    FileOperation& operation;
    const Westring& source;
    const Westring& target;
    const bool overwrite;
    const bool move;
    CopyProgress* const progress;
    StdFile& descriptions;
    const int flags;

    Estring sourcePath, targetPath;  // the names as the system has them
    struct stat status {};           // of the source; of what a link points to when that counts

    bool Has(int flag) const { return (flags & flag) != 0; }
};

// Each gives what TransferObject gives.
[[nodiscard]] int TransferFile(Transfer& transfer);
[[nodiscard]] int TransferLink(Transfer& transfer);
[[nodiscard]] int TransferDirectory(Transfer& transfer);

// CopyWithPrompts where nobody may want to see the progress.
[[nodiscard]] int CopyWithQuestions(FileOperation& operation, const Westring& source,
                                    const Westring& target, int index, int total,
                                    CopyProgress* progress, StdFile& descriptions,
                                    int transferFlags);

}  // namespace zt
