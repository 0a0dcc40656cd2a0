// The commands that were run, and stepping through them on the command line. Owned by the main
// loop; first thread only.
#pragma once

#include "commands/command_line.h"
#include "foundation/string_lists.h"

namespace zt {

class CommandHistory {
public:
    // The newest; equal older ones go.
    void Add(const Westring& command);
    // The newest, for one that is known to be new.
    void Append(const Westring& command) { commands.Append(new Westring(command)); }
    void Remove(const Westring& command);
    int Count() const { return commands.Count(); }
    // Oldest first.
    WestringStore& Commands() { return commands; }

    // Older and newer commands take the place of the line. The user's own text comes back behind
    // the newest.
    void RecallOlder(CommandLine& line);
    void RecallNewer(CommandLine& line);
    // The next command in the direction (+1 older, -1 newer), once around, that begins as the line
    // does up to its insertion point, which stays. Without one the line stays.
    void Complete(CommandLine& line, int direction);
    // The next recall begins with the newest again.
    void ForgetPlace() { historyIndex = 0; }

private:
    Westring TextAt(int index);
    void LeaveOwnText(const CommandLine& line);

    WestringStore commands;  // oldest first
    int historyIndex = 0;    // 0: the user's own text; n: the n-th newest command
    Westring ownText;
};

}  // namespace zt
