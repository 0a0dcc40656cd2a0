// What copying and moving ask alike when a transfer did not go through. First thread only.
#pragma once

#include "fileops/file_operation.h"
#include "foundation/westring.h"

namespace zt {

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

// A file stands at the target, which is what `code` is about; `type` is the box's, with or without
// the answer that brings in the times. Again, with kTransferMayReplace among `flags`, when the user
// agreed and what stands there may go; Again when the times are to decide; or an end with `code`,
// with 1 when the target is to stay after all, or kCancelled.
Decision AskToOverwrite(FileOperation& operation, IPausablePainter* painter, int code,
                        const Westring& target, int type, int& flags);

// kDone, or kCancelled after a box: `source`, a directory, is not to go into itself.
[[nodiscard]] int RefuseInsideItself(FileOperation& operation, IPausablePainter* painter,
                                     const Westring& source, const Westring& target,
                                     const FileIdentity& identity);

}  // namespace zt
