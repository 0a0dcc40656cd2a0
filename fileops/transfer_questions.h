// What copying and moving ask alike when a transfer did not go through. First thread only.
#pragma once

#include "fileops/file_operation.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr int kAnswerEscape = 27;

// What a question leads to: the transfer is tried again, or the object is finished with `code`.
struct Decision {
    bool again;
    int code;

    static Decision Again() { return {true, 0}; }
    static Decision End(int code) { return {false, code}; }
};

// The file error box with both names.
Decision AskAboutError(FileOperation& operation, IPausablePainter* painter, int code,
                       const Westring& source, const Westring& target);

// The source is open for writing. Again, with kTransferOpenFiles among `flags`, or an end.
Decision AskAboutOpenFile(FileOperation& operation, IPausablePainter* painter,
                          const Westring& source, int& flags);

// The user agreed to overwrite: Again, with kTransferMayReplace among `flags`, when what stands at
// the target may go, or an end with 1 or kCancelled.
Decision AskToClear(FileOperation& operation, IPausablePainter* painter, const Westring& target,
                    int& flags);

}  // namespace zt
