// An X server without a screen for the tests of the window: one for the whole test program.
#pragma once

#include <sys/types.h>

#include <string>

namespace zt::testing {

class XServer {
public:
    // Starts Xvfb on a free display. `extraOption` may name an extension to do without.
    explicit XServer(const char* extraOption = nullptr);
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    bool IsRunning() const { return !display.empty(); }
    // As the environment variable DISPLAY has it.
    const std::string& Display() const { return display; }

private:
    pid_t process = -1;
    std::string display;
};

// The server of this test program; started, and put into DISPLAY, at the first call.
const XServer& TheXServer();

}  // namespace zt::testing
