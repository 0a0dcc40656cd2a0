#include "commands/attribute_commands.h"

#include "fileops/change_case_command.h"
#include "fileops/change_date_command.h"
#include "fileops/file_attributes_command.h"
#include "fileops/file_information.h"
#include "fileops/panel_paths.h"

namespace zt {

void FileAttributesKey(LoopState& state, const KeyPress&) {
    FileAttributesCommand(state.Active());
    state.DrawAll();
}

void ChangeDateKey(LoopState& state, const KeyPress&) {
    ChangeDateCommand(state.Active());
    state.DrawAll();
}

void ChangeCaseKey(LoopState& state, const KeyPress&) {
    ChangeCaseCommand(state.Active());
    state.DrawAll();
}

void FileInformationKey(LoopState& state, const KeyPress&) {
    const CPanel& panel = state.Active();
    if (const entry* current = panel.Current()) FileInfoCommand(PathOfEntry(panel, *current));
}

}  // namespace zt
