// The configuration as the running program reads and writes it: messages go into boxes, panels and
// screen give and take their state. Owned by the application; first thread only.
#pragma once

#include "commands/configuration_host.h"
#include "commands/loop_state.h"

namespace zt {

class ProgramConfiguration : public IConfigurationHost {
public:
    explicit ProgramConfiguration(LoopState& state) : state_(state) {}

    void Read();
    // Rules, variables and archivers as the file now has them; the settings stay.
    void ReadLists();
    void Write();

    void ShowMessage(const Westring& message, const wchar_t* name) override;
    bool CheckRule(const Westring& mask, Westring& error) override;
    void ExpandVariables(Westring& text) override;
    void ScreenSettingsChanged() override;
    int ScreenRows() override;
    void CopyPanelState() override;

private:
    LoopState& state_;
};

// Shift-F9.
void SaveConfiguration(LoopState& state, const KeyPress& key);

}  // namespace zt
