// How any outside command leaves the program: a text in, an exit status out. First thread only.
#pragma once

#include "commands/command_parts.h"
#include "commands/temporary_list.h"
#include "foundation/westring.h"

namespace zt {

enum class RunKind { kViewer, kEditor, kDetached, kConsole };

// Where a command runs, decided before anything of it is done.
struct RunPlan {
    explicit RunPlan(const Westring& text);

    CommandParts parts;
    RunKind kind = RunKind::kConsole;
};

// The program's own viewer and editor, for the commands "$view" and "$edit". Filled in at start-up;
// without it they do nothing.
class IOwnTools {
public:
    virtual ~IOwnTools() = default;
    virtual void View(const Westring& path) = 0;
    virtual void Edit(const Westring& path) = 0;
};
void SetOwnTools(IOwnTools* tools);
void ViewByOwnTool(const Westring& path);
void EditByOwnTool(const Westring& path);

// The exit code; -1 for a program that a signal ended, or that had no terminal; 0 for one that runs
// on by itself. What keeps it from running is told in a box, but for the errno value of a process
// that could not be made: the caller may have the screen frozen, and tells of it later.
int RunPlanned(const RunPlan& plan, int& forkError);
void TellOfFork(int code);  // nothing for 0
int RunCommand(const Westring& command);

// The command, made to remove the lists itself when it goes on by itself after its start.
Westring WithLists(const Westring& command, TemporaryLists& lists);

}  // namespace zt
