// Texts of dialogs.
#include "ui/static_text.h"

#include "ui/dialog.h"

namespace zt {

StaticText::StaticText(int x_, int y_, const char* text, uint8_t attribute_)
    : DialogElement(x_, y_, false), bytes(text), attribute(attribute_) {}

StaticText::StaticText(int x_, int y_, const wchar_t* text, uint8_t attribute_)
    : DialogElement(x_, y_, false), wide(text), attribute(attribute_) {}

StaticText::StaticText(int x_, int y_, const Westring& text, uint8_t attribute_)
    : DialogElement(x_, y_, false), own(text), attribute(attribute_) {}

void StaticText::SetText(const Westring& text) {
    own = text;
    bytes = nullptr;
    wide = nullptr;
}

void StaticText::Draw() {
    const Westring text = bytes ? Westring(bytes) : wide ? Westring(wide) : own;
    const Attribute colour = attribute ? attribute : dialog->DialogAttribute(DialogColour::kText);
    if (x < 0) {
        dialog->PrintCentred(y, text, colour);
    } else {
        dialog->Print(x, y, text, colour);
    }
}

}  // namespace zt
