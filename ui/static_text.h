// A text in a dialog. It never takes the focus. Owned by its dialog.
#pragma once

#include "foundation/westring.h"
#include "ui/dialog_element.h"

namespace zt {

class StaticText : public DialogElement {
public:
    // The text is borrowed and read at each Draw. Attribute 0 is the dialog's; x below 0 centres.
    StaticText(int x, int y, const char* text, uint8_t attribute);
    StaticText(int x, int y, const wchar_t* text, uint8_t attribute);
    StaticText(int x, int y, const Westring& text, uint8_t attribute);  // keeps a copy

    ElementType Type() const override { return ElementType::kStaticText; }
    void Draw() override;
    void SetText(const Westring& text);  // draws nothing

private:
    const char* bytes = nullptr;
    const wchar_t* wide = nullptr;
    Westring own;
    uint8_t attribute;
};

}  // namespace zt
