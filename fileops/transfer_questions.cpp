// Questions and what their answers mean.
#include "fileops/transfer_questions.h"

#include "fileops/copy.h"
#include "fileops/replace_question.h"
#include "foundation/case_fold.h"
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

Decision AskToClear(FileOperation& operation, IPausablePainter* painter, const Westring& target,
                    int& flags) {
    const int answer = AskToReplace(operation, target, painter);
    if (answer < 0) return Decision::End(answer);
    if (answer == 0) return Decision::End(kLeftAlone);
    flags |= kTransferMayReplace;
    return Decision::Again();
}

}  // namespace zt
