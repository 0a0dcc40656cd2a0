#include "commands/file_viewing.h"

#include <cwchar>

#include "commands/application_paths.h"
#include "commands/associations.h"
#include "commands/execute_command.h"
#include "commands/program_configuration.h"
#include "commands/run_command.h"
#include "commands/selection_commands.h"
#include "console/key_codes.h"
#include "foundation/configuration.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/navigation.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int32_t kAltF3 = kKeyAltF1 + 2;
constexpr int32_t kAltF4 = kKeyAltF1 + 3;
constexpr int32_t kCtrlShiftF3 = kKeyCtrlShiftF1 + 2;
constexpr int32_t kCtrlShiftF4 = kKeyCtrlShiftF1 + 3;

// One of the two things that are done with a file.
struct Tool {
    RuleList rules;
    const Westring& setting;
    const Westring& second;
    int32_t secondKey;
    int32_t ownKey;  // takes the program's own tool, whatever is set
    void (*own)(const Westring& path);
    const char* question;
};

Tool Viewer() {
    return {kViewerRules, settings.viewer, settings.viewer2, kAltF3,
            kCtrlShiftF3, ViewByOwnTool,   "View the file:"};
}

Tool Editor() {
    return {kEditorRules, settings.editor, settings.editor2, kAltF4,
            kCtrlShiftF4, EditByOwnTool,   "Edit the file:"};
}

// The template for the file; empty for the program's own tool.
Westring TemplateFor(const Tool& tool, const Westring& name, int32_t key) {
    if (key == tool.ownKey) return Westring();
    if (key == tool.secondKey) return tool.second;
    Westring command;
    const Westring bare = NameOfPath(name);
    if (FindFirstAssociation(configuration.rules[tool.rules], bare.c_str(), command))
        return command;
    return tool.setting;
}

// `name` is one of the active panel's, or an absolute path.
void Use(LoopState& state, const Tool& tool, const Westring& name, int32_t key) {
    const Westring text = TemplateFor(tool, name, key);
    TemporaryLists lists;
    Westring command;
    if (text.IsEmpty()) {
        tool.own(name);
    } else if (ExpandForFile(state, text, name, lists, command)) {
        RunBehindPrompt(state, WithLists(command, lists), state.panels.active, 0);
    } else {
        return;
    }
    for (CPanel& panel : state.panels.panel)
        panel.needRead = true;
    state.DrawAll();
}

void UseOnCurrent(LoopState& state, const Tool& tool, int32_t key) {
    const entry* current = state.Active().Current();
    if (current && !current->IsDirectory()) Use(state, tool, Westring(current->name), key);
}

bool AskForName(const CPanel& panel, const char* question, Westring& name) {
    constexpr int kWidth = 74;
    const entry* current = panel.Current();
    if (current && !current->IsDotDot()) name = current->name;
    Dialog dialog(-1, -4, kWidth, 7, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, question);
    dialog.AddString(1, 2, true, name, kWidth - 4, 512, kNoHistory);
    dialog.AddOkCancel(-1, -1, true);
    const bool accepted = dialog.Run() == kExitEnter;
    return accepted && !name.IsEmpty();
}

}  // namespace

void ViewKey(LoopState& state, const KeyPress& key) {
    const entry* current = state.Active().Current();
    if (current && current->IsDirectory()) return DirectorySizesKey(state, key);
    UseOnCurrent(state, Viewer(), key.code);
}

void EditKey(LoopState& state, const KeyPress& key) {
    if (state.Active().IsShowingFiles()) UseOnCurrent(state, Editor(), key.code);
}

void ViewNamedKey(LoopState& state, const KeyPress& key) {
    Westring name;
    if (AskForName(state.Active(), Viewer().question, name)) Use(state, Viewer(), name, key.code);
    state.DrawAll();
}

// A file of the panel's directory is then under the cursor bar.
void EditNamedKey(LoopState& state, const KeyPress& key) {
    Westring name;
    if (AskForName(state.Active(), Editor().question, name)) {
        Use(state, Editor(), name, key.code);
        Westring path = name;
        CPanel& panel = state.Active();
        if (MakeAbsolute(path, panel.path.c_str()) == 0 &&
            wcscmp(ParentOfPath(path).c_str(), panel.path.c_str()) == 0) {
            GoTo(state.panels, state.panels.active, Westring(), true);
            FindName(panel, NameOfPath(path).c_str());
            panel.needPaint = true;
        }
    }
    state.DrawAll();
}

void EditAssociations(LoopState& state, const KeyPress& key) {
    Use(state, Editor(), ConfigFilePath(false), key.code);
    ProgramConfiguration(state).ReadLists();
}

void EditUserMenu(LoopState& state, const KeyPress& key) {
    Use(state, Editor(), ApplicationFilePath(ApplicationFile::kUserMenu), key.code);
}

}  // namespace zt
