// Programs that stand in for those of a desktop: each notes how it was called. They are found by a
// PATH that holds nothing else.
#pragma once

#include <string>
#include <vector>

#include "tests/support/session.h"

namespace zt::headless {

class StandIns {
public:
    // The programs run until Release, so that a session that waits for one is seen waiting.
    void Add(const std::string& name) {
        tools.File(name, "#!/bin/sh\nuntil test -e " + tools.PathOf("go") +
                             "; do /bin/sleep 0.01; done\n{ echo \"${0##*/}\"; printf '%s\\n' "
                             "\"$@\"; } > " +
                             tools.PathOf("note.new") + "\n/bin/mv " + tools.PathOf("note.new") +
                             " " + tools.PathOf("note") + "\n");
        tools.Mode(name, 0755);
    }
    void Release() { tools.File("go"); }
    const std::string& Path() const { return tools.Path(); }
    // The name of the program that was run and its arguments, a line each. Empty: none was.
    std::string Note(Session& session) {
        Release();
        EXPECT_TRUE(session.WaitFor([this] { return tools.Exists("note"); }, "the program's note"));
        const std::string note = tools.Exists("note") ? tools.Content("note") : "";
        tools.Remove("note");
        tools.Remove("go");
        return note;
    }

private:
    FileTree tools;
};

}  // namespace zt::headless
