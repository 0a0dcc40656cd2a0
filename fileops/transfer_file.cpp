// A plain file or a device: opened, read, written beside the target, and put in its place.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "fileops/copy_data.h"
#include "fileops/copy_source.h"
#include "fileops/delete.h"
#include "fileops/descriptions.h"
#include "fileops/new_target.h"
#include "fileops/replace_question.h"
#include "fileops/target_look.h"
#include "fileops/transfer.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

class FileTransfer {
public:
    explicit FileTransfer(Transfer& transfer)
        : transfer_(transfer),
          source_(transfer.operation, transfer.source, transfer.progress),
          look_(LookAtTarget(transfer.targetPath)),
          target_(transfer.operation, transfer.targetPath, look_, transfer.overwrite) {}

    int Run();

private:
    int CheckTarget();
    int Copy();
    int CheckSource(const struct stat& now);
    int CheckSourceAgain();
    int AskForSource();
    int Conclude();
    int TakeBack(int code);

    Transfer& transfer_;
    CopySource source_;
    const TargetLook look_;
    NewTarget target_;
    bool sourceGoes_ = false;
    uint64_t doneBefore_ = 0;  // as the progress has it
};

int FileTransfer::Run() {
    if (transfer_.progress) doneBefore_ = transfer_.progress->bytesDone;
    int code = source_.Open(transfer_.sourcePath, transfer_.status,
                            transfer_.Has(kTransferOpenFiles), transfer_.Has(kTransferDereference));
    if (code == kDone) code = CheckTarget();
    if (code == kDone) code = Copy();
    return code == kDone ? Conclude() : TakeBack(code);
}

// EACCES is the answer that brings up the question about the target.
int FileTransfer::CheckTarget() {
    if (!look_.Stands()) return look_.error == ENOENT ? kDone : look_.error;
    if (look_.Identity() == IdentityOf(source_.Status())) return EEXIST;
    if (look_.isDevice) return kDone;
    if (!transfer_.overwrite) return EACCES;
    if (look_.isDirectory) return EISDIR;
    if (transfer_.Has(kTransferMayReplace)) return kDone;
    constexpr int kFlags = AT_SYMLINK_NOFOLLOW | AT_EACCESS;
    const int asked = Uninterrupted(
        [&] { return faccessat(AT_FDCWD, transfer_.targetPath.c_str(), W_OK, kFlags); });
    return asked < 0 && errno != ENOENT ? errno : kDone;
}

int FileTransfer::Copy() {
    int code = target_.Open();
    if (code == kDone) code = CopyData(transfer_.operation, source_, target_, transfer_.progress);
    struct stat now;
    if (code == kDone) code = source_.Examine(now);
    if (code == kDone && transfer_.move) code = CheckSource(now);
    // The new file is soon the only one that there is.
    if (code == kDone) code = target_.Finish(now, transfer_.move);
    if (code == kDone && transfer_.move) code = AskForSource();
    if (code == kDone) code = target_.Commit();
    return code;
}

// A file that somebody wrote to or put another in the place of while it was read does not go.
int FileTransfer::CheckSource(const struct stat& now) {
    if (!source_.IsRegular()) return kDone;
    const struct stat& before = source_.Status();
    const bool changed = now.st_size != before.st_size ||
                         now.st_mtim.tv_sec != before.st_mtim.tv_sec ||
                         now.st_mtim.tv_nsec != before.st_mtim.tv_nsec;
    if (changed) return EBUSY;
    if (transfer_.Has(kTransferDereference)) return kDone;
    struct stat named;
    const int code = LinkStatus(transfer_.sourcePath, named);
    return code == kDone && IdentityOf(named) != IdentityOf(now) ? EBUSY : code;
}

// The question may have stood on the screen for long. One that is gone is no concern of ours.
int FileTransfer::CheckSourceAgain() {
    struct stat now;
    int code = source_.Examine(now);
    if (code == kDone) code = CheckSource(now);
    return code == ENOENT ? kDone : code;
}

// The question about a read-only source comes while what stands at the target still stands.
int FileTransfer::AskForSource() {
    const int answer = AskToReplace(transfer_.operation, transfer_.source, transfer_.progress);
    if (answer < 0) return answer;
    sourceGoes_ = answer > 0;
    return kDone;
}

int FileTransfer::Conclude() {
    if (!sourceGoes_) {
        CarryDescription(transfer_.source, transfer_.target, transfer_.descriptions);
        return kDone;
    }
    const int changed = CheckSourceAgain();
    if (changed != kDone) return changed;
    CarryAndRemoveDescription(transfer_.source, transfer_.target, transfer_.descriptions);
    const ReadOnlyMode before = transfer_.operation.deleteReadOnly;
    transfer_.operation.deleteReadOnly = ReadOnlyMode::kAlways;
    const int gone = DeleteFile(transfer_.operation, transfer_.source, DeleteFileMode::kNoWindow,
                                transfer_.progress);
    transfer_.operation.deleteReadOnly = before;
    return gone < 0 ? gone : kDone;
}

// What was counted counts again when it is tried again. The removal of a partial file is a quiet
// deletion, with what that means for the questions that follow.
int FileTransfer::TakeBack(int code) {
    if (transfer_.progress) transfer_.progress->bytesDone = doneBefore_;
    if (!target_.IsPartial()) return code;
    transfer_.operation.deleteReadOnly = ReadOnlyMode::kAlways;
    if (target_.Abandon() != kDone) {
        const Westring partial = NameFromBytes(target_.Temporary().c_str());
        (void)DeleteFile(transfer_.operation, partial, DeleteFileMode::kQuiet, transfer_.progress);
    }
    return code;
}

}  // namespace

int TransferFile(Transfer& transfer) {
    return FileTransfer(transfer).Run();
}

}  // namespace zt
