// From the panel's entries to the form.
#include "fileops/file_attributes_command.h"

#include "fileops/file_attributes_dialog.h"

namespace zt {

void FileAttributesCommand(CPanel& panel) {
    const CommandTargets targets(panel);
    if (targets.IsEmpty()) return;
    AttributeForm form(targets);
    CFileAttributeDialog(panel, targets, form).Ask();
    panel.needPaint = true;
}

}  // namespace zt
