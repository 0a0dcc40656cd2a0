// What the dialogs that ask for a destination have in common: the field, and the keys and buttons
// that fill it. First thread only; modal.
#pragma once

#include "console/key_codes.h"
#include "ui/dialog.h"

namespace zt {

struct CPanel;

class CDestinationDialog : public Dialog {
protected:
    // Exit codes of the buttons that open the tree and the history of directories.
    static constexpr int kPickFromTree = kKeyF10;
    static constexpr int kPickFromHistory = 0x1002B;

    // `destination` outlives the dialog. `panel` is the one whose tree and history are asked, and
    // `otherDirectory` what the toggle puts in front of a name.
    CDestinationDialog(CPanel& panel, const Westring& otherDirectory, int height,
                       Westring& destination);

    void AddField(const Westring& title);
    void AddToggle();  // Alt-D, F5 and F6
    // True when the code was one of those that fill the field, and the dialog is to go on. After
    // a new text the cursor is behind it, so that what is typed is added to it.
    [[nodiscard]] bool FillField(int code);

private:
    void Fill(const Westring& text);
    void PickFromTree();
    void PickFromHistory();

    CPanel& panel;
    const Westring otherDirectory;
    Westring& destination;
    int field = 0;
};

}  // namespace zt
