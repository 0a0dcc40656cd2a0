// Taking the quick key out of a label.
#include "ui/label.h"

#include "ui/hot_keys.h"

namespace zt {

Label::Label(const char* written) : text(written) {
    const int mark = text.Find(L'_');
    if (mark < 0) return;
    const wchar_t letter = text[mark + 1];
    text = text.Left(mark) + text.Right(text.Length() - mark - 1);
    if (letter > 0 && letter < 256) {
        quickKey = static_cast<char>(LowerByte(static_cast<uint8_t>(letter)));
    }
}

}  // namespace zt
