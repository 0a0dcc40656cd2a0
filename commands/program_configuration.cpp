#include "commands/program_configuration.h"

#include "commands/configuration_reader.h"
#include "commands/configuration_writer.h"
#include "commands/program_environment.h"
#include "commands/screen_commands.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/filter_compiled.h"
#include "ui/message_box.h"

namespace zt {

void ProgramConfiguration::Read() {
    ReadConfiguration(false, *this);
}

void ProgramConfiguration::ReadLists() {
    ReadConfiguration(true, *this);
}

void ProgramConfiguration::Write() {
    WriteConfiguration(*this);
}

void ProgramConfiguration::ShowMessage(const Westring& message, const wchar_t* name) {
    MessageBox(message, name, kBoxOk);
}

// Any name will do: what counts is whether the mask can be evaluated.
bool ProgramConfiguration::CheckRule(const Westring& mask, Westring& error) {
    CompiledFilter filter(mask);
    if (filter.EvaluateName(L"test") >= 0) return true;
    error = filter.errorText;
    return false;
}

void ProgramConfiguration::ExpandVariables(Westring& text) {
    zt::ExpandVariables(text);
}

void ProgramConfiguration::ScreenSettingsChanged() {
    ResizeAndReopen(state_, settings.lines > 0 ? settings.lines : screenLines,
                    settings.columns > 0 ? settings.columns : screenColumns);
}

int ProgramConfiguration::ScreenRows() {
    return screenLines;
}

void ProgramConfiguration::CopyPanelState() {
    for (int side = 0; side < 2; side++) {
        const CPanel& panel = state_.panels.panel[side];
        SideSettings& kept = settings.sides[side];
        kept.style = panel.style;
        kept.sort = panel.sort;
        kept.type = panel.kind;
        kept.width = panel.width;
        kept.filter = panel.filter;
        kept.showing = panel.showing;
    }
}

void SaveConfiguration(LoopState& state, const KeyPress&) {
    ProgramConfiguration(state).Write();
}

}  // namespace zt
