// The form in which mode, owner and group of one file, or of the tagged ones, are set. Made and run
// by its command on the stack; first thread only.
#pragma once

#include "fileops/command_targets.h"
#include "fileops/file_attributes_change.h"
#include "panels/panel.h"
#include "ui/dialog.h"

namespace zt {

// What the fields of the form write to; outlives the dialog.
struct AttributeForm {
    explicit AttributeForm(const CommandTargets& targets);

    AttributeStates states{};
    Westring owner;
    Westring group;
    entry* single = nullptr;  // null for a group
};

class CFileAttributeDialog : public Dialog {
public:
    CFileAttributeDialog(CPanel& panel, const CommandTargets& targets, AttributeForm& form);

    // Until Esc, or until it has been applied: an apply that failed leaves the form standing.
    void Ask();

private:
    void AddBoxes(int row);
    void HandleKey(int key);
    void SetRowToDigit(int digit);
    void AdvanceColumn(int column, bool allRows);
    int FocusedRow() const;  // of the boxes; -1: the focus is elsewhere
    // False when the form is to stay: a name is unknown, or the user stopped the walk.
    bool Apply();
    bool LookUpOwners(AttributeChange& change);
    bool ApplyTo(int target, const AttributeChange& change);

    CPanel* panel;
    const CommandTargets& targets;
    AttributeForm& form;
    int boxes[kAttributeRows][kAttributeColumns];  // numbers of the elements
};

}  // namespace zt
