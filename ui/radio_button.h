// One of several buttons of which one is set. The buttons of one variable form a focus group.
// Owned by its dialog.
#pragma once

#include "foundation/westring.h"
#include "ui/dialog_element.h"

namespace zt {

// Moving the focus to it stores its value in the variable.
class RadioButton : public DialogElement {
public:
    RadioButton(int x, int y, int32_t* variable, int value, const Westring& label);

    int HandleEvent(const DialogEvent& event) override;
    ElementType Type() const override { return ElementType::kRadioButton; }
    void SetFocus(bool focused) override;
    void Draw() override;

private:
    void Choose();

    int32_t* variable;
    int32_t value;
    Westring label;
};

}  // namespace zt
