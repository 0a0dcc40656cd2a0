// The program with a window of its own.

#include <cstdio>

#include "console/program/application.h"
#include "console/program_state.h"
#include "console/window/window_console.h"

int main(int argc, char** argv) {
    using namespace zt;

    const Estring programPath = argv[0];
    const std::unique_ptr<WindowConsole> window = OpenWindowConsole(argc, argv);
    if (!window) {
        fputs("zt: no display to open a window on\n", stderr);
        return 1;
    }
    ProgramOptions options;
    const OptionsResult parsed = ParseOptions(argc, argv, true, options);
    if (parsed != OptionsResult::kRun) {
        fputs(OptionsMessage(parsed).c_str(), stdout);
        return 1;
    }
    const Estring missing = MissingFeature(options);
    if (!missing.IsEmpty()) {
        fprintf(stderr, "zt: %s", missing.c_str());
        return 1;
    }
    console = &window->Console();
    window->SetRemoteHost(options.remoteHost);
    const int status = Application(programPath, false, options).Run();
    console = nullptr;
    return status;
}
