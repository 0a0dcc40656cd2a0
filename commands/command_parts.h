// A command line taken apart as far as it takes to decide where it runs. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

enum class RunPlace { kFree, kConsole, kDetached };

struct CommandParts {
    RunPlace place = RunPlace::kFree;  // '#' in front or '&' behind force one
    Westring command;                  // without that mark: what the shell gets
    Westring program;                  // its first word, without the backslashes that escape
    Westring arguments;                // what stands behind it, trimmed
};

CommandParts SplitCommand(const Westring& text);

// Without the backslashes that escape.
Westring Unescape(const Westring& text);

}  // namespace zt
