// Asks, or knows the answer.
#include "fileops/read_only_question.h"

#include "foundation/case_fold.h"
#include "foundation/result_codes.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kStays = 0, kMayGo = 1;

}  // namespace

int AskAboutReadOnly(FileOperation& operation, const Westring& path, IPausablePainter* painter) {
    if (operation.deleteReadOnly == ReadOnlyMode::kAlways) return kMayGo;
    if (operation.deleteReadOnly == ReadOnlyMode::kNever) return kStays;
    const int answer = operation.user.Ask(painter, L"File is Read Only, Delete anyway?", path,
                                          kBoxOkCancelSkipAllNone);
    switch (LowerCaseOf(answer)) {
        case 'a':
            operation.deleteReadOnly = ReadOnlyMode::kAlways;
            return kMayGo;
        case 'y':
            return kMayGo;
        case 'e':
            operation.deleteReadOnly = ReadOnlyMode::kNever;
            return kStays;
        case kAnswerEscape:
            return kCancelled;
        default:
            return kStays;
    }
}

}  // namespace zt
