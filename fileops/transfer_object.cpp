// Finds out what the source is.
#include "fileops/transfer_object.h"

#include <memory>

#include "fileops/abort_guard.h"
#include "fileops/target_look.h"
#include "fileops/transfer.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"

namespace zt {

int TransferObject(FileOperation& operation, const Westring& source, const Westring& target,
                   bool overwrite, bool move, CopyProgress* progress, StdFile& descriptions,
                   int transferFlags) {
    const AbortGuard guard;
    if (progress) progress->dirty.store(true, std::memory_order_relaxed);
    const std::unique_ptr<Transfer> transfer(
        new Transfer{operation, source, target, overwrite, move, progress, descriptions,
                     transferFlags, NameToBytes(source), NameToBytes(target)});
    int code = LinkStatus(transfer->sourcePath, transfer->status);
    if (code != kDone) return code;
    if (S_ISLNK(transfer->status.st_mode)) {
        if (!transfer->Has(kTransferDereference)) return TransferLink(*transfer);
        code = FollowedStatus(transfer->sourcePath, transfer->status);
        if (code != kDone) return code;
    }
    return S_ISDIR(transfer->status.st_mode) ? TransferDirectory(*transfer)
                                             : TransferFile(*transfer);
}

}  // namespace zt
