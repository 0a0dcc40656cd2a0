// An input field for a number that is not negative. Owned by its dialog.
#pragma once

#include "ui/string_field.h"

namespace zt {

class IntegerField : public StringField {
public:
    static constexpr int kMaxDigits = 18;

    // keepTyped: the digits stay as typed as long as they mean the variable's value.
    IntegerField(int x, int y, int32_t* variable, int width, bool keepTyped, int history);

    ElementType Type() const override { return ElementType::kIntegerField; }
    void Draw() override;

protected:
    bool Accepts(wchar_t character) const override {
        return character >= L'0' && character <= L'9';
    }
    int CursorRoom() const override { return width; }
    void TextChanged() override;

private:
    int32_t Parsed() const;

    int32_t* variable;
    bool keepTyped;
    Westring text;
};

}  // namespace zt
