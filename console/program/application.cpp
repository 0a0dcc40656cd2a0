#include "console/program/application.h"

#include <unistd.h>
#include <cstdlib>

#include "commands/application_paths.h"
#include "commands/histories.h"
#include "commands/screen_commands.h"
#include "console/program/exit_script.h"
#include "console/program/main_loop.h"
#include "console/program/remote_session.h"
#include "console/program/working_directory.h"
#include "console/program_state.h"
#include "foundation/file_name.h"
#include "foundation/locale_formats.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "panels/panel_switching.h"
#include "panels/panel_window.h"
#include "ui/clock_window.h"
#include "ui/field_history.h"
#include "ui/window_title.h"

namespace zt {

namespace {

constexpr const char* kIconPaths[] = {
    "/usr/share/icons/hicolor/16x16/apps/zanthe.png",
    "/usr/share/icons/hicolor/scalable/apps/zanthe.svg",
};
constexpr int kLeastColumns = 80;
constexpr int kLeastLines = 25;
constexpr int kCursorAtExitPercent = 15;

}  // namespace

Application::Application(const Estring& path, bool isFarEnd, const ProgramOptions& programOptions)
    : programPath(path), farEnd(isFarEnd), options(programOptions), configuration(state) {
    console->SetScrollBackSink(&scrollBack);
    state.scrollBack = &scrollBackCommand;
}

Application::~Application() {
    console->SetScrollBackSink(nullptr);
}

int Application::Run() {
    LoadIcons();
    FillSeams();
    abortState = kAbortIdle;
    modifiersDrawn = 0;
    modifiersSeen = 0;
    clockTick = TickClockWindow;
    SetUpLocale();
    SetProgramPath(programPath.c_str(), farEnd);
    SetConfigurationFile(NameFromBytes(options.iniFile.c_str()));
    RefreshScreenSize();
    configuration.Read();
    if (!options.remoteHost.IsEmpty()) return RunDisplay();
    EnforceMinimumSize();
    SetUpLocale();
    LoadHistory(state.history);
    SetFieldHistoryKeeper(AddFieldHistory);
    state.panels.seams.history = &directoryChooser;
    MakeFunctionKeyBar(state);
    OpenPanels();
    RunMainLoop(state);
    if (settings.autoSave) configuration.Write();
    LeaveScreen();
    if (!options.exitScript.IsEmpty()) {
        WriteExitScript(options.exitScript, RealDirectory(state.Active()));
    }
    return 0;
}

// Nothing of the program itself runs: it is the display of another one.
int Application::RunDisplay() {
    OpenConnection(*console, options.remoteHost);
    RefreshScreenSize();
    LeaveScreen();
    return 0;
}

void Application::LoadIcons() {
    EstringStore paths;
    for (const char* path : kIconPaths)
        paths.Append(new Estring(path));
    console->SetIconList(paths);
}

void Application::SetUpLocale() {
    InitLocaleFormats();
    console->SetCodePage(ConsoleCodePage(settings.codePage));
}

// Where a room below reaches what it may not include.
void Application::FillSeams() {
    state.panels.seams.filter = &filter;
    state.panels.seams.colours = &colours;
}

// The lines stay as they are, even when they are few: only the columns are mended.
void Application::EnforceMinimumSize() {
    RefreshScreenSize();
    if (screenColumns < kLeastColumns || screenLines < kLeastLines) {
        ResizeScreen(state, screenLines, kLeastColumns);
    }
}

void Application::OpenPanels() {
    const Westring start = StartDirectory();
    for (int side = 0; side < 2; side++) {
        CPanel& panel = state.panels.panel[side];
        panel.path = start;
        const Westring& wanted = options.directories[side].IsEmpty()
                                     ? settings.sides[side].directory
                                     : options.directories[side];
        if (!wanted.IsEmpty() && !ChangeDirectory(panel, wanted)) console->Beep();
    }
    console->WriteStream("\n\n");
    for (int side = 0; side < 2; side++)
        InitFromSettings(state.panels.panel[side], side);
    UpdateSelectableRect(state.panels);
    state.panels.active = settings.startupSide == 'R' ? 1 : 0;
    SetWindowTitle(nullptr);
    Activate(state.panels, state.panels.active);
}

void Application::LeaveScreen() {
    DeleteClockWindow();
    for (CPanel& panel : state.panels.panel)
        panel.window.reset();
    state.functionKeys.reset();
    console->FillRect(0, screenLines - 2, screenColumns, 2, console->GetFillAttribute());
    console->SetCursorSize(kCursorAtExitPercent);
    console->SetTitle(Westring());
    console->SetCursor(0, screenLines - 1);
}

}  // namespace zt
