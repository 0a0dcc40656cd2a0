#include "commands/run_command.h"

#include <cstring>
#include <cwchar>

#include "commands/find_program.h"
#include "commands/shell_launch.h"
#include "console/program_state.h"
#include "console/terminal/program_run.h"
#include "ui/message_box.h"

namespace zt {

namespace {

IOwnTools* ownTools = nullptr;

RunKind KindOf(const CommandParts& parts) {
    if (parts.program == L"$view") return RunKind::kViewer;
    if (parts.program == L"$edit") return RunKind::kEditor;
    Westring found;
    if (parts.place == RunPlace::kConsole || !FindProgram(parts.program, found))
        return RunKind::kConsole;
    if (parts.place == RunPlace::kDetached || IsGuiProgram(found)) return RunKind::kDetached;
    return RunKind::kConsole;
}

int RunInConsole(const ShellLaunch& launch, int& forkError) {
    const ProgramEnd end = RunProgram(*console, launch.Start());
    if (end.kind == ProgramEndKind::kNotForked) {
        forkError = end.value;
    } else if (end.kind == ProgramEndKind::kNotWaited && end.value != 0) {
        const Estring text = Estring::Format("Error %d waiting for child", end.value);
        MessageBox(text, nullptr, kBoxOk);
    }
    return end.Status();
}

}  // namespace

RunPlan::RunPlan(const Westring& text) : parts(SplitCommand(text)), kind(KindOf(parts)) {}

void SetOwnTools(IOwnTools* tools) {
    ownTools = tools;
}

void ViewByOwnTool(const Westring& path) {
    if (ownTools) ownTools->View(path);
}

void EditByOwnTool(const Westring& path) {
    if (ownTools) ownTools->Edit(path);
}

void TellOfFork(int code) {
    if (code == 0) return;
    MessageBox("Error forking child process", Westring(strerror(code)).c_str(), kBoxOk);
}

int RunPlanned(const RunPlan& plan, int& forkError) {
    forkError = 0;
    if (plan.kind == RunKind::kViewer || plan.kind == RunKind::kEditor) {
        const Westring path = Unescape(plan.parts.arguments);
        plan.kind == RunKind::kViewer ? ViewByOwnTool(path) : EditByOwnTool(path);
        return 0;
    }
    const ShellLaunch launch(plan.parts.command);
    if (plan.kind == RunKind::kConsole) return RunInConsole(launch, forkError);
    forkError = RunDetached(launch);
    return forkError == 0 ? 0 : -1;
}

int RunCommand(const Westring& command) {
    int forkError;
    const int result = RunPlanned(RunPlan(command), forkError);
    TellOfFork(forkError);
    return result;
}

Westring WithLists(const Westring& command, TemporaryLists& lists) {
    if (lists.IsEmpty()) return command;
    const RunPlan plan(command);
    if (plan.kind != RunKind::kDetached) return command;
    const wchar_t* mark = plan.parts.place == RunPlace::kDetached ? L" &" : L"";
    return plan.parts.command + L"\n" + lists.RemovalCommand() + mark;
}

}  // namespace zt
