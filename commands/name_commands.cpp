#include "commands/name_commands.h"

#include <cwctype>

#include "console/program_state.h"
#include "foundation/file_name.h"
#include "foundation/shell_text.h"

namespace zt {

namespace {

void InsertPath(LoopState& state, int side) {
    Westring path = state.panels.panel[side].path;
    path.AddTrailingSlash();
    state.line.Insert(path);
    state.drawLine = kDrawCommandLine;
}

Westring FullPath(LoopState& state, const entry& current) {
    CPanel& panel = state.Active();
    if (panel.IsTree() && state.panels.seams.tree)
        return state.panels.seams.tree->SelectedPath(panel);
    Westring path = panel.path;
    path.AddTrailingSlash();
    return path + current.name;
}

// The word that ends at the insertion point, as the shell would read it, and where it begins.
struct LineWord {
    Westring text;
    int start = 0;
};

LineWord WordBefore(const CommandLine& line) {
    LineWord word;
    for (int i = 0; i < line.Position(); i++) {
        wchar_t ch = line.Text()[i];
        if (ch == L'\\' && i + 1 < line.Position()) {
            ch = line.Text()[++i];
        } else if (ch == L' ' || ch == L'<' || ch == L'>') {
            word.text.Clear();
            word.start = i + 1;
            continue;
        }
        word.text += ch;
    }
    return word;
}

void InsertName(LoopState& state, const entry& current) {
    const LineWord word = WordBefore(state.line);
    if (!word.text.IsEmpty() && word.text[word.text.Length() - 1] == L'/') {
        state.line.Replace(word.start, state.line.Position(), ShellWord(word.text + current.name));
        return;
    }
    Westring name = ShellWord(current.name);
    if (name[name.Length() - 1] != L'/') name += L' ';
    if (state.line.Text().Length() + name.Length() < CommandLine::kMaxLength) {
        state.line.Insert(name);
    }
}

}  // namespace

void InsertFullPath(LoopState& state, const KeyPress& key) {
    const entry* current = state.Active().Current();
    if (!current) return;
    const Westring path = FullPath(state, *current);
    if (key.HasShift()) {
        console->SetClipboardText(ShownText(path));
        return;
    }
    state.line.Insert(ShellWord(path));
    state.drawLine = kDrawCommandLine;
}

void CompleteName(LoopState& state, const KeyPress& key) {
    const entry* current = state.Active().Current();
    if (!current || !state.Active().IsShowingFiles()) return;
    if (key.HasShift()) {
        console->SetClipboardText(ShownText(current->name));
        return;
    }
    InsertName(state, *current);
    state.drawLine = kDrawCommandLine;
}

void CompleteLine(LoopState& state, const KeyPress& key) {
    const int position = state.line.Position();
    if (position > 0 && iswalnum(static_cast<wint_t>(state.line.Text()[position - 1]))) {
        state.history.Complete(state.line, key.HasShift() ? -1 : 1);
        state.drawLine = kDrawCommandLine;
        return;
    }
    CompleteName(state, key);
}

void InsertLeftPath(LoopState& state, const KeyPress&) {
    InsertPath(state, 0);
}

void InsertRightPath(LoopState& state, const KeyPress&) {
    InsertPath(state, 1);
}

}  // namespace zt
