// The program from its first screen to its last, on whatever console it was given: start-up in
// order, the main loop, exit in order. Made by each main function; first thread only.
#pragma once

#include "commands/history_windows.h"
#include "commands/loop_state.h"
#include "commands/program_configuration.h"
#include "console/program/program_options.h"
#include "console/program/scroll_back_viewer.h"
#include "panels/colour_rules.h"
#include "panels/panel_filter.h"

namespace zt {

class Application {
public:
    // `options` must outlive the application. The console must stand. `farEnd`: the screen is that
    // of a remote session.
    Application(const Estring& programPath, bool farEnd, const ProgramOptions& options);
    ~Application();

    // Gives the exit status of the program.
    [[nodiscard]] int Run();

private:
    [[nodiscard]] int RunDisplay();
    void LoadIcons();
    void FillSeams();
    void SetUpLocale();
    void EnforceMinimumSize();
    void OpenPanels();
    void LeaveScreen();

    const Estring programPath;  // argv[0]
    const bool farEnd;
    const ProgramOptions& options;
    PanelFilter filter;
    ColourRules colours;
    CScrollBackBuffer scrollBack;
    ScrollBackCommand scrollBackCommand{scrollBack};
    LoopState state;
    ProgramConfiguration configuration;
    DirectoryChooser directoryChooser;
};

}  // namespace zt
