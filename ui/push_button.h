// A button of a dialog, and the key that ends a dialog unseen. Owned by their dialog.
#pragma once

#include "foundation/westring.h"
#include "ui/dialog_element.h"

namespace zt {

// Drawn as "[ label ]". Pressing it ends the dialog with its code; the code taken as a key presses
// it too.
class PushButton : public DialogElement {
public:
    PushButton(int x, int y, int code, const Westring& label);

    int HandleEvent(const DialogEvent& event) override;
    void Activate() override;
    ElementType Type() const override { return ElementType::kPushButton; }
    void Draw() override;
    int Code() const { return code; }

private:
    int Width() const;

    int32_t code;
    Westring label;
};

// Invisible: its key ends the dialog with the key as exit code.
class ExitKey : public DialogElement {
public:
    explicit ExitKey(int key);

    void Activate() override;
    ElementType Type() const override { return ElementType::kExitKey; }

private:
    int32_t code;
};

}  // namespace zt
