// Desktop launchers: files that a desktop shows as an icon and that start a command, in the
// Desktop Entry format. No screen. First thread only.
#pragma once

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

struct Launcher {
    Westring title;
    Westring target;          // absolute path of what it opens
    bool executable = false;  // the target is run itself, and not opened by the desktop
    bool terminal = false;
};

// The title that is suggested for a file: its name less the extension in lower case, with the
// first letter capitalized.
Westring LauncherTitle(const Westring& name);

// Where the launcher of that title stands: always a file of $HOME/Desktop itself, whose name is one
// that a file system takes.
Westring LauncherPath(const Westring& title);

// The file's text. Each value stays on its line, whatever the names hold.
Estring LauncherText(const Launcher& launcher);

// Writes the text to a new file that may be executed; what stood there goes. A failure to open it
// counts as `opened` false. 0 or an errno value; a file that could not be written whole is removed.
[[nodiscard]] int WriteLauncher(const Launcher& launcher, bool& opened);

}  // namespace zt
