#include "commands/confirmations_dialog.h"

#include "console/key_codes.h"
#include "foundation/settings.h"
#include "ui/dialog.h"

namespace zt {

namespace {

// One box for each bit of the setting, in bit order.
constexpr const char* kQuestions[] = {
    "Delete File/Empty Directory",
    "Delete Tagged Files",
    "Delete Non-empty Directory",
    "Quit Zanthe",
    "\"YES\" prompt for Non-Empty Directory",
};
constexpr int kQuestionCount = sizeof(kQuestions) / sizeof(kQuestions[0]);

constexpr ButtonRow kButtons[] = {
    {kExitEnter, "_OK"}, {kExitEscape, "Cancel"}, {kKeyF1, "Help"}, {0, nullptr}};

}  // namespace

void ConfirmationsDialog(LoopState&, const KeyPress&) {
    bool asked[kQuestionCount];
    for (int bit = 0; bit < kQuestionCount; bit++)
        asked[bit] = !(settings.confirmations >> bit & 1);

    Dialog dialog(-1, -3, 44, 14, Colour(ColourClass::kMessages));
    dialog.SetTitle(" Confirmations ");
    for (int bit = 0; bit < kQuestionCount; bit++) {
        dialog.AddCheck(1, 1 + 2 * bit, bit == 0, asked[bit], kQuestions[bit], true);
    }
    dialog.AddButtons(-1, -1, true, kButtons);
    int code = kKeyF1;
    while (code == kKeyF1) {
        dialog.SetExitCode(0);
        code = dialog.Run();
    }
    if (code != kExitEnter) return;
    for (int bit = 0; bit < kQuestionCount; bit++) {
        settings.confirmations &= ~(1 << bit);
        if (!asked[bit]) settings.confirmations |= 1 << bit;
    }
}

}  // namespace zt
