// Numbers in dialogs: between the variable and its digits.
#include "ui/integer_field.h"

#include <wchar.h>

#include <algorithm>
#include <cstdint>

namespace zt {

IntegerField::IntegerField(int x_, int y_, int32_t* variable_, int width_, bool keepTyped_,
                           int history_)
    : StringField(x_, y_, &text, width_, std::min(width_, kMaxDigits), history_),
      variable(variable_),
      keepTyped(keepTyped_) {}

// What is too large for the variable becomes the largest it can hold.
int32_t IntegerField::Parsed() const {
    const long number = wcstol(text.c_str(), nullptr, 10);
    return static_cast<int32_t>(std::clamp<long>(number, INT32_MIN, INT32_MAX));
}

void IntegerField::TextChanged() {
    *variable = Parsed();
}

void IntegerField::Draw() {
    if (!keepTyped || Parsed() != *variable) {
        const Westring digits = Estring::FromInteger(*variable);
        // The 0 that stands for nothing typed must not become part of what is typed next.
        if (text.IsEmpty()) BeginAnew();
        if (wcscmp(digits.c_str(), text.c_str()) != 0) text = digits;
    }
    StringField::Draw();
}

}  // namespace zt
