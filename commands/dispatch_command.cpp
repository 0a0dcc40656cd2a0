#include "commands/dispatch_command.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "commands/change_directory.h"
#include "commands/panels_away.h"
#include "commands/program_environment.h"
#include "commands/run_command.h"
#include "console/program_state.h"
#include "foundation/file_name.h"
#include "foundation/wild_match.h"
#include "panels/navigation.h"
#include "ui/message_box.h"
#include "ui/update_freeze.h"
#include "ui/window_title.h"

namespace zt {

namespace {

constexpr int kCursorPercent = 15;
constexpr int kSetLength = 4;  // of "set "

// "set NAME=value"; an empty value takes the variable away.
int SetVariable(const Westring& text) {
    const Westring rest = text.Right(text.Length() - kSetLength).Trim();
    const int equals = rest.Find(L'=');
    const Estring name = NameToBytes(rest.Left(equals));
    const Estring value = NameToBytes(rest.Right(rest.Length() - equals - 1));
    SessionEnvironment().Set(name.c_str(), value.IsEmpty() ? nullptr : value.c_str());
    return 0;
}

bool EnterPanelDirectory(const CPanel& panel) {
    const Westring directory = RealDirectory(panel);
    if (chdir(NameToBytes(directory).c_str()) == 0) return true;
    const Westring reason = strerror(errno);
    MessageBox(reason, directory.c_str(), kBoxOk);
    return false;
}

// The console as a program that runs in it has it, and back.
class ProgramScreen {
public:
    ProgramScreen(const Westring& prompt, const Westring& title)
        : fill(console->GetFillAttribute()), selectable(console->GetSelectableRect()) {
        const Attribute colour = Colour(ColourClass::kCommandLine);
        console->SetFillAttribute(colour);
        console->SetCursorSize(kCursorPercent);
        const int promptRow = screenLines - 2;
        console->WriteWide(0, promptRow, prompt.Left(screenColumns).PadRight(screenColumns).c_str(),
                           colour);
        console->FillRect(0, screenLines - 1, screenColumns, 1, colour);
        console->SetCursor(0, prompt.IsEmpty() ? promptRow : screenLines - 1);
        console->SetSelectableRect(0, 0, screenColumns, screenLines, false);
        SetWindowTitle(title.c_str());
    }
    ~ProgramScreen() {
        console->SetFillAttribute(fill);
        console->SetSelectableRect(selectable, false);
        SetWindowTitle(nullptr);
        console->SetCursorSize(0);
    }
    ProgramScreen(const ProgramScreen&) = delete;
    ProgramScreen& operator=(const ProgramScreen&) = delete;

    // What follows begins on a line of its own, behind so many empty ones.
    void EndOutput(int emptyLines) const {
        int column, row;
        console->GetCursor(column, row);
        for (int i = column != 0 ? -1 : 0; i < emptyLines; i++)
            console->WriteStream("\n");
    }

private:
    const Attribute fill;
    const CellRect selectable;
};

int RunOutside(LoopState& state, const Westring& text, int side, const Westring& prompt,
               int flags) {
    if (!(flags & kRunHere) && !EnterPanelDirectory(state.panels.panel[side])) return -1;
    const RunPlan plan(text);
    const int emptyLines = 1 + !!(flags & kRunTwoNewlines) + !!(flags & kRunTyped);
    int result, forkError;
    {
        // Frozen but for the run itself: a program with windows of its own is started unseen.
        auto freeze = std::make_unique<UpdateFreeze>();
        const PanelsAway away(state);
        const ProgramScreen screen(prompt, text);
        if (plan.kind != RunKind::kDetached) freeze.reset();
        result = RunPlanned(plan, forkError);
        if (!freeze) freeze = std::make_unique<UpdateFreeze>();
        screen.EndOutput(emptyLines);
    }
    for (CPanel& panel : state.panels.panel)
        panel.needRead = true;
    TellOfFork(forkError);
    return result;
}

}  // namespace

int DispatchCommand(LoopState& state, const Westring& text, int side, const Westring& prompt,
                    int flags) {
    const wchar_t* command = text.c_str();
    if (IsChangeDirectory(text)) return ChangeDirectoryCommand(state, text, side);
    if (WildMatchWide(L"vcd", command) || WildMatchWide(L"vcd[\\ ]*", command))
        return ChooseDirectoryCommand(state, text, side);
    if (WildMatchWide(L"set *=*", command)) return SetVariable(text);
    return RunOutside(state, text, side, prompt, flags);
}

}  // namespace zt
