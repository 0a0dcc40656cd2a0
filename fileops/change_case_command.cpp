// The case dialog, and the walk over the entries.
#include "fileops/change_case_command.h"

#include <cstring>

#include "fileops/change_case.h"
#include "fileops/change_case_entry.h"
#include "fileops/command_targets.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "panels/panel.h"
#include "panels/panel_window.h"
#include "ui/abbreviate_path.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kCaptionWidth = 26;
constexpr int kBarWidth = 56;
constexpr int kFirstRadioRow = 5;

constexpr char kModes[] = {kLowerCase, kUpperCase, kMixedCase, kSameCase};
constexpr int kModeCount = sizeof kModes;
// With a blank in front they stand a cell further right.
constexpr const char* kNameLabels[kModeCount] = {" Lower", " Upper", " Mixed", " None"};
constexpr const char* kExtensionLabels[kModeCount] = {"Lower", "Upper", "Mixed", "None"};
// The elements in order: two rows of radio buttons, three boxes, the buttons.
constexpr char kQuickKeys[] = "lumnwpierdfo";

int IndexOfMode(char mode) {
    for (int i = 0; i < kModeCount; ++i) {
        if (kModes[i] == mode) return i;
    }
    return kModeCount - 1;
}

class CCaseDialog : public Dialog {
public:
    CCaseDialog(const Westring& caption, int32_t& nameMode, int32_t& extensionMode);
};

CCaseDialog::CCaseDialog(const Westring& caption, int32_t& nameMode, int32_t& extensionMode)
    : Dialog(-1, -4, 36, 17, Colour(ColourClass::kMessages)) {
    PrintCentred(0, "Change case of");
    PrintCentred(1, caption);
    Print(2, 3, "Name");
    for (int i = 0; i < kModeCount; ++i)
        AddRadio(2, kFirstRadioRow + i, i == 0, nameMode, i, kNameLabels[i]);
    Print(15, 3, "Extension");
    for (int i = 0; i < kModeCount; ++i)
        AddRadio(15, kFirstRadioRow + i, i == 0, extensionMode, i, kExtensionLabels[i]);
    AddCheck(2, 10, true, settings.caseModRecurse, "Recurse into directories", true);
    AddCheck(2, 11, false, settings.caseModDirs, "Change directories", true);
    AddCheck(2, 12, false, settings.caseModFiles, "Change files", true);
    AddButton(8, 14, true, kExitEnter, "_OK");
    AddButton(16, 14, false, kExitEscape, "Cancel");
    SetQuickKeys(kQuickKeys);
}

// False for Esc. The modes go into the settings either way.
bool AskForModes(const Westring& caption) {
    Estring& modes = settings.caseMod;
    int32_t name = IndexOfMode(modes.Length() > 0 ? modes[0] : kSameCase);
    int32_t extension = IndexOfMode(modes.Length() > 1 ? modes[1] : kSameCase);
    const int code = CCaseDialog(caption, name, extension).Run();
    const char chosen[] = {kModes[name], kModes[extension], 0};
    modes = chosen;
    return code != kExitEscape;
}

int ChangeTarget(const Westring& path, const entry& item) {
    return ChangeCaseEntry(ParentOfPath(path), item, settings.caseMod[0], settings.caseMod[1]);
}

void ChangeGroup(const CPanel& panel, const CommandTargets& targets) {
    float fraction = 0;
    Dialog window(-1, -4, 60, 5, Colour(ColourClass::kMessages));
    window.SetTitle(" Changing file case ");
    Westring path = panel.path;
    AbbreviatePath(path, kBarWidth);
    window.Print(1, 0, path);
    window.AddProgress(1, 2, kBarWidth, &fraction);
    for (int i = 0; i < targets.Count(); ++i) {
        if (ChangeTarget(targets.PathAt(i), targets.At(i)) < 0) return;
        fraction = static_cast<float>(i + 1) / static_cast<float>(targets.Count());
        window.Redraw(-1);
        if (StopAsked()) return;
    }
}

}  // namespace

void ChangeCaseCommand(CPanel& panel) {
    const CommandTargets targets(panel);
    if (targets.IsEmpty() || !AskForModes(targets.Caption(kCaptionWidth))) return;
    if (targets.IsGroup()) {
        ChangeGroup(panel, targets);
    } else {
        // Its result only says whether to go on.
        static_cast<void>(ChangeTarget(targets.PathAt(0), targets.At(0)));
    }
    RereadBoth(*panel.pair);
}

}  // namespace zt
