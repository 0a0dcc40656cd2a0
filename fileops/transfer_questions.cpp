// Questions and what their answers mean.
#include "fileops/transfer_questions.h"

#include "fileops/copy.h"
#include "fileops/inside_itself.h"
#include "fileops/replace_question.h"
#include "foundation/case_fold.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/result_codes.h"
#include "ui/message_box.h"

namespace zt {

static constexpr int kLeftAlone = 1;

Decision AskAboutError(FileOperation& operation, IPausablePainter* painter, int code,
                       const Westring& source, const Westring& target) {
    bool stop = true;
    operation.user.TellError(painter, code, stop, source, target);
    return stop ? Decision::End(code) : Decision::Again();
}

Decision AskAboutOpenFile(FileOperation& operation, IPausablePainter* painter,
                          const Westring& source, int& flags) {
    if (operation.copyOpenFiles < 0) return Decision::End(kOpenForWriting);
    const int answer = operation.user.Ask(painter, L"File is open for writing, copy anyway?",
                                          source, kBoxOkCancelSkipAllNone);
    switch (LowerCaseOf(answer)) {
        case 'a':
            operation.copyOpenFiles = 1;
            [[fallthrough]];
        case 'y':
            flags |= kTransferOpenFiles;
            return Decision::Again();
        case kAnswerEscape:
            return Decision::End(kCancelled);
        case 'e':
            operation.copyOpenFiles = -1;
            [[fallthrough]];
        default:
            return Decision::End(kOpenForWriting);
    }
}

// What stands at the target stays until the new one is whole; asked now is whether it may go then.
static Decision AskToClear(FileOperation& operation, IPausablePainter* painter,
                           const Westring& target, int& flags) {
    const int answer = AskToReplace(operation, target, painter);
    if (answer < 0) return Decision::End(answer);
    if (answer == 0) return Decision::End(kLeftAlone);
    flags |= kTransferMayReplace;
    return Decision::Again();
}

Decision AskToOverwrite(FileOperation& operation, IPausablePainter* painter, int code,
                        const Westring& target, int type, int& flags) {
    int answer = 'y';
    if (operation.overwrite == OverwriteMode::kNever) {
        answer = 's';
    } else if (operation.overwrite != OverwriteMode::kAlways) {
        answer = operation.user.Ask(painter, L"File already exists, Overwrite?", target, type);
    }
    switch (LowerCaseOf(answer)) {
        case 'a':
            operation.overwrite = OverwriteMode::kAlways;
            [[fallthrough]];
        case 'y':
            return AskToClear(operation, painter, target, flags);
        case 'd':
            operation.overwrite = OverwriteMode::kIfOlder;
            return Decision::Again();
        case kAnswerEscape:
            return Decision::End(kCancelled);
        case 'e':
            operation.overwrite = OverwriteMode::kNever;
            [[fallthrough]];
        default:
            return Decision::End(code);
    }
}

int RefuseInsideItself(FileOperation& operation, IPausablePainter* painter, const Westring& source,
                       const Westring& target, const FileIdentity& identity) {
    Westring from = source, to = target;
    const Westring* wrong = nullptr;
    if (MakeAbsolute(from, nullptr) != 0) wrong = &source;
    if (!wrong && MakeAbsolute(to, nullptr) != 0) wrong = &target;
    if (wrong) {
        operation.user.Ask(painter, L"Invalid Path", *wrong, kBoxOk);
        return kCancelled;
    }
    if (!PathLiesIn(to, from) && !LeadsInto(NameToBytes(to), identity)) return kDone;
    operation.user.Ask(painter, L"Directory cannot be copied into itself", source, kBoxOk);
    return kCancelled;
}

}  // namespace zt
