// Moves one object, by renaming or by copying, and asks where that does not go by itself.
#include <sys/stat.h>
#include <unistd.h>

#include <strings.h>
#include <cerrno>
#include <cstring>
#include <memory>

#include "fileops/abort_guard.h"
#include "fileops/copy.h"
#include "fileops/descriptions.h"
#include "fileops/name_list.h"
#include "fileops/panel_paths.h"
#include "fileops/rename_object.h"
#include "fileops/target_look.h"
#include "fileops/transfer.h"
#include "fileops/transfer_questions.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"
#include "ui/message_box.h"

namespace zt {

namespace {

class MoveWork {
public:
    MoveWork(FileOperation& operation, const Westring& source, const Westring& target, int index,
             int total, CopyProgress* progress, StdFile& descriptions, bool sameFileSystem)
        : operation_(operation),
          source_(source),
          target_(target),
          index_(index),
          total_(total),
          progress_(progress),
          descriptions_(descriptions),
          renames_(sameFileSystem) {}

    int Run();

private:
    int Rename();
    int Copy();
    Decision Decide(int code);
    Decision Tell(int code);
    Decision TargetInTheWay(int code);
    int Merge();
    int RemoveSourceDirectory(bool isLeft);

    FileOperation& operation_;
    const Westring& source_;
    const Westring& target_;
    const int index_;
    const int total_;
    CopyProgress* progress_;
    StdFile& descriptions_;
    bool renames_;
    int flags_ = 0;
};

int MoveWork::Run() {
    if (operation_.copyOpenFiles > 0) flags_ |= kTransferOpenFiles;
    for (;;) {
        const int code = renames_ ? Rename() : Copy();
        if (code == kDone) return kDone;
        if (progress_) progress_->Stop();
        const Decision decision = Decide(code);
        if (!decision.again) return decision.code;
    }
}

// The bar counts objects while nothing is copied.
int MoveWork::Rename() {
    if (progress_ && total_ >= 2) {
        progress_->PaintCount(static_cast<uint64_t>(index_), static_cast<uint64_t>(total_));
    }
    if (AbortGuard::Asked()) return kRenameAborted;
    const Estring source = NameToBytes(source_), target = NameToBytes(target_);
    const bool replaces = (flags_ & kTransferMayReplace) != 0;
    const int code = replaces ? RenameOver(source, target) : RenameNew(source, target);
    if (code == kDone) CarryAndRemoveDescription(source_, target_, descriptions_);
    return code;
}

int MoveWork::Copy() {
    if (progress_) progress_->Start();
    operation_.toldReadError = false;
    const bool overwrite =
        (flags_ & kTransferMayReplace) != 0 || operation_.overwrite == OverwriteMode::kAlways;
    return TransferObject(operation_, source_, target_, overwrite, true, progress_, descriptions_,
                          flags_);
}

Decision MoveWork::Tell(int code) {
    return AskAboutError(operation_, progress_, code, source_, target_);
}

Decision MoveWork::Decide(int code) {
    switch (code) {
        case kCancelled:
        case kRenameAborted:
            return Decision::End(kCancelled);
        case kSkipped:
            return Decision::End(code);
        case kOpenForWriting:
            return AskAboutOpenFile(operation_, progress_, source_, flags_);
        case EXDEV:
            if (!renames_) return Tell(code);
            renames_ = false;
            return Decision::Again();
        case EACCES:
        case EEXIST:
            return TargetInTheWay(code);
        case EIO:
            if (!renames_ && operation_.toldReadError) return Decision::End(code);
            [[fallthrough]];
        default:
            return Tell(code);
    }
}

Decision MoveWork::TargetInTheWay(int code) {
    Westring from = source_, to = target_;
    const bool known = MakeAbsolute(from, nullptr) == 0 && MakeAbsolute(to, nullptr) == 0;
    const TargetLook target = LookAtTarget(NameToBytes(target_));
    const bool asked = (flags_ & kTransferMayReplace) != 0;
    if (!known || asked || !target.Stands() || from == to ||
        IsSameEntry(NameToBytes(source_), NameToBytes(target_))) {
        return Tell(code);
    }
    const TargetLook source = LookAtTarget(NameToBytes(source_));
    const bool isDirectory = source.Stands() && source.isDirectory && !source.isLink;
    if (isDirectory && target.isDirectory) return Decision::End(Merge());
    // A move does not compare times.
    return AskToOverwrite(operation_, progress_, code, target_, kBoxOkCancelSkipAllNone, flags_);
}

// What a merging needs for each level of a tree stands on the heap.
struct MergeLevel {
    NameList names;
    StdFile descriptions;
    struct stat status {};
    Westring source, target;
};

int MoveWork::Merge() {
    const auto level = std::make_unique<MergeLevel>();
    const Estring path = NameToBytes(source_);
    int code = LinkStatus(path, level->status);
    if (code == kDone) {
        code =
            RefuseInsideItself(operation_, progress_, source_, target_, IdentityOf(level->status));
    }
    while (code == kDone && (code = level->names.Read(path)) != kDone) {
        const Decision decision = Tell(code);
        code = decision.code;
    }
    if (code != kDone) return code;
    OpenDescriptions(level->descriptions, source_);
    NameList::Name name;
    bool isLeft = false;
    while (level->names.Next(name)) {
        if (strcasecmp(name.bytes, kDescriptionFileName) == 0) continue;
        level->source = PathInDirectory(source_, NameFromBytes(name.bytes));
        level->target = PathInDirectory(target_, NameFromBytes(name.bytes));
        code = MoveWithPrompts(operation_, level->source, level->target, 1, 1, progress_,
                               level->descriptions, renames_);
        if (code < 0 || AbortGuard::Asked(operation_)) return kCancelled;
        isLeft = isLeft || code > 0;
    }
    level->descriptions.Close();
    return RemoveSourceDirectory(isLeft);
}

// `isLeft`: something in it did not go.
int MoveWork::RemoveSourceDirectory(bool isLeft) {
    for (;;) {
        const Estring path = NameToBytes(source_);
        const int removed = Uninterrupted([&] { return rmdir(path.c_str()); });
        if (removed == 0) return kDone;
        if (errno == EACCES) return isLeft ? kSkipped : kDone;
        const Decision decision = Tell(errno);
        if (!decision.again) return decision.code;
    }
}

}  // namespace

int MoveWithPrompts(FileOperation& operation, const Westring& source, const Westring& target,
                    int index, int total, CopyProgress* progress, StdFile& descriptions,
                    bool sameFileSystem) {
    const AbortGuard guard;
    if (progress) progress->ShowObject(source, target, index, total, true);
    return MoveWork(operation, source, target, index, total, progress, descriptions, sameFileSystem)
        .Run();
}

}  // namespace zt
