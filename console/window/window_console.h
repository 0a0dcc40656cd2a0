// The console of the window: what a program sees of it without seeing the toolkit. Owned by the
// main function; made, used and deleted on the first thread. One at a time in a process.
#pragma once

#include <cstdint>
#include <memory>

#include "console/grid_console.h"
#include "foundation/estring.h"

namespace zt {

class WindowConsole {
public:
    // Closes the window; returns when its threads have ended.
    virtual ~WindowConsole() = default;

    virtual GridConsole& Console() = 0;
    // The host that stands in the title as "Remote (host) "; empty for none.
    virtual void SetRemoteHost(const Estring& host) = 0;

    // Returns when all that was written before stands on the screen. For pictures, measurements
    // and tests: nothing else has to wait for painting.
    virtual void WaitPainted() = 0;
    // How many cells have been drawn anew since the window opened; moved and copied ones are none.
    virtual int64_t CellsPainted() = 0;
};

// Opens a blank window of 80x25 cells that lives from here on. Takes the arguments that the
// toolkit knows out of argc and argv. Null when there is no display to open it on.
[[nodiscard]] std::unique_ptr<WindowConsole> OpenWindowConsole(int& argc, char**& argv);

}  // namespace zt
