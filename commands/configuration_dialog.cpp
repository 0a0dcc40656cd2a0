#include "commands/configuration_dialog.h"

#include "commands/path_editor.h"
#include "commands/screen_commands.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/locale_formats.h"
#include "foundation/settings.h"
#include "panels/panel_window.h"
#include "ui/clock_window.h"
#include "ui/colours_dialog.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kFieldColumn = 28;
constexpr int kFieldWidth = 20;
constexpr int kBoxColumn = 51;
constexpr int kNumberColumn = 65;
constexpr int kNumberWidth = 3;
constexpr int kRadioColumn = 61;
constexpr int kPathExtensionElement = 9;
constexpr char kQuickKeys[] = "viedlrxtcpabszunoy12k";

constexpr ButtonRow kButtons[] = {
    {kExitEnter, "_OK"}, {kExitEscape, "Cancel"}, {kKeyF1, "Help"}, {0, nullptr}};

class CConfigDlg : public Dialog {
public:
    CConfigDlg();
    void FocusChanged() override;

private:
    void AddTextRow(int y, Westring& value, const char* label);
    void AddNumberRow(int y, int32_t& value, const char* label);
    void PrintLabel(int rightColumn, int y, const char* label, int element);

    bool hintShown = false;
};

CConfigDlg::CConfigDlg() : Dialog(-1, -3, 76, 19, Colour(ColourClass::kMessages)) {
    SetTitle(" Configuration ");
    AddTextRow(1, settings.viewer, "Viewer:");
    AddTextRow(2, settings.viewer2, "Alternate Viewer:");
    AddTextRow(3, settings.editor, "Editor:");
    AddTextRow(4, settings.editor2, "Alternate Editor:");
    AddTextRow(6, settings.sides[0].directory, "Left Startup Directory:");
    AddTextRow(7, settings.sides[1].directory, "Right Startup Directory:");
    AddTextRow(9, settings.background, "Separate Session Prefix:");
    AddTextRow(10, settings.treeDir, "Tree Data Directory:");
    AddTextRow(11, settings.caseFilter, "Case Filter File Systems:");
    AddTextRow(12, settings.pathAppend, "Path Extension:");
    AddCheck(kBoxColumn, 1, true, settings.autoSave, "_Auto Save", true);
    AddCheck(kBoxColumn, 2, true, settings.pmClip, "Use X clip_board", true);
    AddCheck(kBoxColumn, 3, true, settings.escPanelSwitch, "E_SC Panel Switch", true);
    AddCheck(kBoxColumn, 4, true, settings.sizeCountPause, "Si_ze Count Pause", true);
    AddCheck(kBoxColumn, 5, true, settings.naturalSort, "Nat_ural Sort", true);
    AddNumberRow(7, settings.lines, "Lines");
    AddNumberRow(8, settings.columns, "Columns");
    AddNumberRow(9, settings.scrollDelay, "Scroll Delay");
    AddRadio(kRadioColumn, 11, true, settings.timeMode, 12, "12 HR");
    AddRadio(kRadioColumn, 12, false, settings.timeMode, 24, "24 HR");
    Print(kRadioColumn - 10, 11, "Time Mode");
    AddButtons(-1, -1, true, kButtons);
    AddExitKey(kKeyF4);
    SetQuickKeys(kQuickKeys);
}

void CConfigDlg::AddTextRow(int y, Westring& value, const char* label) {
    PrintLabel(kFieldColumn - 1, y, label, ElementCount());
    AddString(kFieldColumn, y, true, value, kFieldWidth, -1, kNoHistory);
}

void CConfigDlg::AddNumberRow(int y, int32_t& value, const char* label) {
    PrintLabel(kNumberColumn - 1, y, label, ElementCount());
    AddInteger(kNumberColumn, y, true, value, kNumberWidth, false, kNoHistory);
}

void CConfigDlg::PrintLabel(int rightColumn, int y, const char* label, int element) {
    const Westring text = label;
    const char hotKey[] = {kQuickKeys[element], 0};
    PrintHot(rightColumn - text.Length(), y, text, hotKey);
}

// The bottom of the frame tells of F4 while it means something.
void CConfigDlg::FocusChanged() {
    const bool wanted = CurrentElement() == kPathExtensionElement;
    if (wanted == hintShown) return;
    hintShown = wanted;
    const Westring hint = " F4=Edit ";
    Print(ClientWidth() - hint.Length(), ClientHeight(),
          wanted ? hint : Westring::Repeat(L'\u2550', hint.Length()));
}

// F1 and F4 end the dialog for a moment; it goes on with its focus where it was.
bool RunUntilDecided(CConfigDlg& dialog) {
    for (;;) {
        dialog.SetExitCode(0);
        const int code = dialog.Run();
        if (code == kKeyF4) {
            if (dialog.CurrentElement() == kPathExtensionElement) {
                EditPathList(settings.pathAppend, " Path Append ");
            }
        } else if (code != kKeyF1) {
            return code == kExitEnter;
        }
    }
}

void FollowChange(LoopState& state, const Settings& before) {
    InitLocaleFormats();
    console->SetCodePage(ConsoleCodePage(settings.codePage));
    DeleteClockWindow();  // its width goes by the time mode
    if (settings.codePage != before.codePage) RereadBoth(state.panels);
    if (settings.lines != before.lines || settings.columns != before.columns) {
        ResizeAndReopen(state, settings.lines > 0 ? settings.lines : screenLines,
                        settings.columns > 0 ? settings.columns : screenColumns);
    }
    RefreshPanels(state.panels, true);
}

}  // namespace

void ConfigurationDialog(LoopState& state, const KeyPress&) {
    const Settings before = settings;
    bool accepted;
    {
        CConfigDlg dialog;
        accepted = RunUntilDecided(dialog);
    }
    if (accepted) {
        FollowChange(state, before);
    } else {
        settings = before;
    }
    state.DrawAll();
}

void ColoursCommand(LoopState& state, const KeyPress&) {
    if (!RunColoursDialog()) return;
    ReopenPanelWindows(state.panels);
    state.DrawAll();
}

}  // namespace zt
