// The program without a window: its screen is at the other end of standard input and output, which
// carry nothing but frames. What has to be said otherwise goes to standard error.

#include <unistd.h>
#include <cstdio>

#include "console/program/application.h"
#include "console/program_state.h"
#include "console/wire/remote_console.h"

int main(int argc, char** argv) {
    using namespace zt;

    ProgramOptions options;
    const OptionsResult parsed = ParseOptions(argc, argv, false, options);
    if (parsed != OptionsResult::kRun) {
        fputs(OptionsMessage(parsed, false).c_str(), stderr);
        return 1;
    }
    RemoteConsole remote(STDIN_FILENO, STDOUT_FILENO);
    if (!remote.Start()) {
        fputs("zt-remote: the display speaks another version of the protocol\n", stderr);
        return 1;
    }
    console = &remote;
    const int status = Application(argv[0], options).Run();
    console = nullptr;
    return status;
}
