// The program without a window: its screen is at the other end of standard input and output, which
// carry nothing but frames. What has to be said otherwise goes to standard error.

#include <cstdio>

#include "console/program/application.h"
#include "console/program_state.h"
#include "console/wire/remote_console.h"
#include "console/wire/standard_streams.h"

int main(int argc, char** argv) {
    using namespace zt;

    ProgramOptions options;
    const OptionsResult parsed = ParseOptions(argc, argv, false, options);
    if (parsed != OptionsResult::kRun) {
        fputs(OptionsMessage(parsed).c_str(), stderr);
        return 1;
    }
    const Estring missing = MissingFeature(options);
    if (!missing.IsEmpty()) {
        fprintf(stderr, "zt-remote: %s", missing.c_str());
        return 1;
    }
    WireDescriptors wire;
    if (!ClaimStandardStreams(wire)) {
        perror("zt-remote");
        return 1;
    }
    RemoteConsole remote(wire.input, wire.output);
    const RemoteStart started = remote.Start();
    if (started != RemoteStart::kStarted) {
        fprintf(stderr, "zt-remote: %s\n", DescribeRemoteStart(started));
        return 1;
    }
    console = &remote;
    const int status = Application(argv[0], true, options).Run();
    console = nullptr;
    return status;
}
