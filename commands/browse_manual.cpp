#include "commands/browse_manual.h"

#include <sys/stat.h>

#include "commands/application_paths.h"
#include "commands/find_program.h"
#include "commands/run_command.h"
#include "foundation/file_name.h"
#include "foundation/shell_text.h"

namespace zt {

namespace {

constexpr const wchar_t* kBrowsers[] = {L"x-www-browser", L"firefox", L"mozilla-firefox",
                                        L"epiphany"};
constexpr wchar_t kInstalledManual[] = L"file:///usr/share/doc/zanthe/manual/index.html";

Westring Address() {
    const Westring manual = ApplicationFilePath(ApplicationFile::kManual);
    struct stat found = {};
    return stat(NameToBytes(manual).c_str(), &found) == 0 ? manual : Westring(kInstalledManual);
}

}  // namespace

void BrowseManual(LoopState& state, const KeyPress&) {
    state.drawLine = kDrawLineBarAndTitle;
    for (const wchar_t* browser : kBrowsers) {
        Westring program;
        if (!FindProgram(browser, program)) continue;
        RunCommand(ShellWord(program) + L" " + ShellWord(Address()) + L" &");
        return;
    }
}

}  // namespace zt
