// Copies one object, and asks where that does not go by itself.
#include <cerrno>
#include <cwchar>

#include "fileops/abort_guard.h"
#include "fileops/copy.h"
#include "fileops/panel_paths.h"
#include "fileops/target_look.h"
#include "fileops/transfer.h"
#include "fileops/transfer_questions.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/result_codes.h"
#include "ui/message_box.h"

namespace zt {

namespace {

bool SameName(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

bool IsLater(const timespec& time, const timespec& other) {
    return time.tv_sec != other.tv_sec ? time.tv_sec > other.tv_sec : time.tv_nsec > other.tv_nsec;
}

class CopyWork {
public:
    CopyWork(FileOperation& operation, const Westring& source, const Westring& target,
             CopyProgress* progress, StdFile& descriptions, int flags)
        : operation_(operation),
          source_(source),
          target_(target),
          progress_(progress),
          descriptions_(descriptions),
          flags_(flags) {}

    int Run();

private:
    // Decided for this object.
    bool Overwrites() const { return isOlder_ || (flags_ & kTransferMayReplace) != 0; }
    bool IsOlderThanTarget();
    int Try();
    Decision Decide(int code);
    Decision TargetInTheWay(int code);
    Decision TellItIsItself(const Westring& shown, int code);
    bool IsItself(const TargetLook& look) const;

    FileOperation& operation_;
    const Westring& source_;
    const Westring& target_;
    CopyProgress* progress_;
    StdFile& descriptions_;
    int flags_;
    bool isOlder_ = false;  // what stands at the target, which decides for this object
};

int CopyWork::Run() {
    if (operation_.copyOpenFiles > 0) flags_ |= kTransferOpenFiles;
    for (;;) {
        if (IsOlderThanTarget()) return kDone;
        const int code = Try();
        if (code == kDone) return kDone;
        if (progress_) progress_->Stop();
        const Decision decision = Decide(code);
        if (!decision.again) return decision.code;
    }
}

// Where older files only are overwritten: true when this one is to be left alone. A source that is
// later decides for overwriting; times that cannot be told decide nothing.
bool CopyWork::IsOlderThanTarget() {
    if (Overwrites() || operation_.overwrite != OverwriteMode::kIfOlder) return false;
    const TargetLook target = LookAtTarget(NameToBytes(target_));
    if (!target.Stands() || target.isDirectory) return false;
    const TargetLook source = LookAtTarget(NameToBytes(source_));
    if (!source.Stands()) return false;
    isOlder_ = IsLater(source.modified, target.modified);
    return !isOlder_;
}

int CopyWork::Try() {
    if (progress_) progress_->Start();
    operation_.toldReadError = false;
    const bool overwrite = Overwrites() || operation_.overwrite == OverwriteMode::kAlways;
    return TransferObject(operation_, source_, target_, overwrite, false, progress_, descriptions_,
                          flags_);
}

Decision CopyWork::Decide(int code) {
    switch (code) {
        case kCancelled:
        case kRenameAborted:
            return Decision::End(kCancelled);
        case kSkipped:
            return Decision::End(code);
        case kOpenForWriting:
            return AskAboutOpenFile(operation_, progress_, source_, flags_);
        case EACCES:
        case EEXIST:
            return TargetInTheWay(code);
        case EIO:
            if (operation_.toldReadError) return Decision::End(code);
            [[fallthrough]];
        default:
            return AskAboutError(operation_, progress_, code, source_, target_);
    }
}

// The same name, or the same file by another one.
bool CopyWork::IsItself(const TargetLook& look) const {
    if (!look.Stands() || look.isDirectory) return false;
    struct stat status;
    const Estring path = NameToBytes(source_);
    const bool follows = (flags_ & kTransferDereference) != 0;
    const int code = follows ? FollowedStatus(path, status) : LinkStatus(path, status);
    return code == kDone && IdentityOf(status) == look.Identity();
}

Decision CopyWork::TargetInTheWay(int code) {
    Westring absolute = source_;
    if (source_[0] != '/') absolute = PathInDirectory(WorkingDirectory(), source_);
    const TargetLook look = LookAtTarget(NameToBytes(target_));
    if (SameName(absolute, target_) || SameName(source_, target_) || IsItself(look)) {
        return TellItIsItself(absolute, code);
    }
    // A target that was agreed to go and is still in the way is not what the failure is about.
    const bool asked = (flags_ & kTransferMayReplace) != 0;
    if (asked || !look.Stands() || look.isDirectory) {
        return AskAboutError(operation_, progress_, code, source_, target_);
    }
    return AskToOverwrite(operation_, progress_, code, target_, kBoxOkCancelSkipAllNoneAllOlder,
                          flags_);
}

Decision CopyWork::TellItIsItself(const Westring& shown, int code) {
    const int answer =
        operation_.user.Ask(progress_, L"File cannot overwrite itself", shown, kBoxOkCancel);
    return Decision::End(answer == kAnswerEscape ? kCancelled : code);
}

}  // namespace

int CopyWithQuestions(FileOperation& operation, const Westring& source, const Westring& target,
                      int index, int total, CopyProgress* progress, StdFile& descriptions,
                      int transferFlags) {
    const AbortGuard guard;
    if (progress) progress->ShowObject(source, target, index, total, false);
    return CopyWork(operation, source, target, progress, descriptions, transferFlags).Run();
}

int CopyWithPrompts(FileOperation& operation, const Westring& source, const Westring& target,
                    int index, int total, CopyProgress& progress, StdFile& descriptions,
                    int transferFlags) {
    return CopyWithQuestions(operation, source, target, index, total, &progress, descriptions,
                             transferFlags);
}

}  // namespace zt
