// The questions before a deletion begins. First thread only; modal.
#pragma once

#include "fileops/file_operation.h"
#include "ui/dialog.h"

namespace zt {

class CDeleteDlg : public Dialog {
public:
    struct Form {
        Westring lines[2];          // of names, private codes already replaced
        bool asksReadOnly = false;  // what to do about read-only objects
        bool asksUndelete = false;
    };

    explicit CDeleteDlg(const Form& form);

    // True on Enter, when the operation has taken the answers over.
    [[nodiscard]] bool Ask(FileOperation& operation);

private:
    int readOnlyMode_ = 0;
    bool noUndelete_ = false;
};

// The second question about a group, in the colour of alerts; true on Enter.
[[nodiscard]] bool ConfirmDeleteGroup(int count, const Westring& directory);

// A path or name as a question shows it: in columns - 10 at most.
Westring ShownInQuestion(const Westring& path);

}  // namespace zt
