// The program from its first screen to its last, on whatever console it was given: start-up in
// order, the main loop, exit in order. Made by each main function; first thread only.
#pragma once

#include "commands/loop_state.h"
#include "console/program/program_options.h"

namespace zt {

class Application {
public:
    // `options` must outlive the application. The console must stand.
    Application(const Estring& programPath, const ProgramOptions& options);
    ~Application();

    // Gives the exit status of the program.
    [[nodiscard]] int Run();

private:
    void LoadIcons();
    void SetUpLocale();
    void EnforceMinimumSize();
    void OpenPanels();
    void LeaveScreen();

    const Estring programPath;
    const ProgramOptions& options;
    LoopState state;
};

}  // namespace zt
