// The dialog that asks where a copy or a move goes. First thread only; modal.
#pragma once

#include "fileops/destination_dialog.h"
#include "fileops/file_operation.h"
#include "panels/panel_pair.h"

namespace zt {

class CCopyDlg : public CDestinationDialog {
public:
    // What the dialog is for. The panels are borrowed.
    struct Form {
        CPanel& source;
        CPanel& other;
        bool moving = false;
        int group = 0;                  // how many tagged objects; 0: the current one
        const entry* single = nullptr;  // which, when there is no group
    };
    // What it works on, and gives back when it is accepted.
    struct Choice {
        Westring destination;
        int overwrite = static_cast<int>(OverwriteMode::kAsk);
        bool dereference = false;
    };

    CCopyDlg(const Form& form, Choice& choice);
    // True when the user accepted.
    [[nodiscard]] bool Ask();

private:
    void AddElements();

    Form form;
    Choice& choice;
};

}  // namespace zt
