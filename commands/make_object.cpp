#include "commands/make_object.h"

#include <sys/stat.h>

#include <string>

#include "commands/find_program.h"
#include "commands/launcher_file.h"
#include "fileops/command_targets.h"
#include "foundation/file_name.h"
#include "panels/panel.h"
#include "panels/panel_window.h"
#include "panels/tagging.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kWidth = 46;
constexpr int kTitleColumns = 33;
constexpr int kTitleCharacters = 250;

struct Answers {
    Westring title;  // of a single entry
    bool terminal = false;
};

Westring Question(const CommandTargets& targets) {
    if (!targets.IsGroup()) return "Make an object for";
    return Estring::Format("Make %d objects", targets.Count());
}

bool AnyExecutable(const CommandTargets& targets) {
    for (int i = 0; i < targets.Count(); i++) {
        if (IsExecutable(targets.PathAt(i))) return true;
    }
    return false;
}

class CObjectDialog : public Dialog {
public:
    CObjectDialog(const CommandTargets& targets, bool canRun, Answers& answers);
};

CObjectDialog::CObjectDialog(const CommandTargets& targets, bool canRun, Answers& answers)
    : Dialog(-1, -4, kWidth, 7 + (targets.IsGroup() ? 0 : 1) + (canRun ? 1 : 0),
             Colour(ColourClass::kMessages)) {
    int row = 0;
    AddText(-1, row++, Question(targets));
    if (!targets.IsGroup()) {
        AddText(-1, row++, targets.Caption(kWidth - 4));
        AddText(1, ++row, "Title:");
        AddString(8, row, true, answers.title, kTitleColumns, kTitleCharacters, kNoHistory);
    }
    int check = -1;
    if (canRun) check = AddCheck(1, ++row, true, answers.terminal, "Terminal session", true);
    AddOkCancel(-1, -1, true);
    std::string letters(static_cast<size_t>(ElementCount()), ' ');
    if (check >= 0) letters[static_cast<size_t>(check)] = 'f';
    SetQuickKeys(letters.c_str());
}

bool MayReplace(const Westring& title) {
    const Westring path = LauncherPath(title);
    struct stat found = {};
    if (lstat(NameToBytes(path).c_str(), &found) != 0) return true;
    return MessageBox("This object exists. Replace it ?", path.c_str(), kBoxOkCancel) == 'y';
}

// False when the user stops.
bool MakeObject(CPanel& panel, const CommandTargets& targets, int i, const Answers& answers) {
    Launcher launcher;
    launcher.target = targets.PathAt(i);
    launcher.executable = IsExecutable(launcher.target);
    launcher.terminal = launcher.executable && answers.terminal;
    launcher.title = answers.title;
    if (launcher.title.IsEmpty()) launcher.title = LauncherTitle(targets.At(i).name);
    if (!MayReplace(launcher.title)) return false;
    bool opened = false;
    int code = WriteLauncher(launcher, opened);
    if (code == 0) {
        TagEntry(panel, targets.IndexAt(i), TagMode::kClear);
    } else if (opened) {
        bool stop = false;
        FileErrorBox(code, stop, LauncherPath(launcher.title).c_str());
        return false;
    }
    return true;
}

}  // namespace

void MakeObjectKey(LoopState& state, const KeyPress&) {
    CPanel& panel = state.Active();
    const CommandTargets targets(panel);
    if (targets.IsEmpty() || (!targets.IsGroup() && targets.At(0).IsDotDot())) return;
    state.DrawAll();
    Answers answers;
    answers.terminal = state.objectsInTerminal;
    if (!targets.IsGroup()) answers.title = LauncherTitle(targets.At(0).name);
    if (CObjectDialog(targets, AnyExecutable(targets), answers).Run() != kExitEnter) return;
    state.objectsInTerminal = answers.terminal;
    for (int i = 0; i < targets.Count(); i++) {
        if (!MakeObject(panel, targets, i, answers)) break;
    }
    RereadBoth(state.panels);
}

}  // namespace zt
