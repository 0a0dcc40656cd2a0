// Check boxes of two and of three states. Owned by their dialog.
#pragma once

#include "foundation/westring.h"
#include "ui/dialog_element.h"

namespace zt {

// "[X]" or "[ ]" with its label on one side. Space toggles, Ins sets, Del clears.
class CheckBox : public DialogElement {
public:
    CheckBox(int x, int y, bool* variable, const Westring& label, bool labelRight);

    int HandleEvent(const DialogEvent& event) override;
    void Activate() override;
    ElementType Type() const override { return ElementType::kCheckBox; }
    void SetFocus(bool focused) override;
    void Draw() override;

protected:
    virtual bool IsSet() const { return *variable; }
    virtual void Change(bool value) { *variable = value; }
    virtual wchar_t Mark() const { return *variable ? L'X' : L' '; }

private:
    int LabelX() const;
    bool Hit(const DialogEvent& event) const;
    void Set(bool value);

    bool* variable;
    Westring label;
    bool labelRight;
};

// 0 shows a blank, 1 a middle dot, 2 an X. Whatever changes a plain box steps it by one.
class CheckBox3S : public CheckBox {
public:
    CheckBox3S(int x, int y, uint8_t* state, const Westring& label, bool labelRight);

    ElementType Type() const override { return ElementType::kCheckBox3S; }

protected:
    bool IsSet() const override { return *state != 0; }
    void Change(bool value) override;
    wchar_t Mark() const override;

private:
    uint8_t* state;
};

}  // namespace zt
