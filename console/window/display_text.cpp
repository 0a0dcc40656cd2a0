// Characters and text as they may be handed to the toolkit.
#include "console/window/display_text.h"

#include "foundation/file_name.h"

namespace zt {

namespace {

constexpr uint32_t kReplacement = 0xFFFD;

bool IsControl(uint32_t value) {
    return value < 0x20 || (value >= 0x7F && value < 0xA0);
}

uint32_t ValidCharacter(uint32_t value) {
    if (value > 0x7FFFFFFF) return kReplacement;
    const auto shown = static_cast<uint32_t>(ShownCharacter(static_cast<wchar_t>(value)));
    if (shown > 0x10FFFF || (shown >= 0xD800 && shown <= 0xDFFF)) return kReplacement;
    return shown;
}

}  // namespace

uint32_t DisplayCharacter(uint32_t value) {
    const uint32_t shown = ValidCharacter(value);
    return IsControl(shown) ? U' ' : shown;
}

int EncodeUtf8(uint32_t character, char* utf8) {
    const auto put = [utf8](int index, uint32_t byte) { utf8[index] = static_cast<char>(byte); };
    const auto tail = [&](int index, unsigned shift) {
        put(index, 0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        put(0, character);
        return 1;
    }
    if (character < 0x800) {
        put(0, 0xC0 | (character >> 6));
        tail(1, 0);
        return 2;
    }
    if (character < 0x10000) {
        put(0, 0xE0 | (character >> 12));
        tail(1, 6);
        tail(2, 0);
        return 3;
    }
    put(0, 0xF0 | (character >> 18));
    tail(1, 12);
    tail(2, 6);
    tail(3, 0);
    return 4;
}

std::string DisplayText(const Westring& text) {
    std::string result;
    result.reserve(static_cast<size_t>(text.Length()));
    char utf8[kMaxUtf8Bytes];
    for (int i = 0; i < text.Length(); i++) {
        const uint32_t character = ValidCharacter(static_cast<uint32_t>(text.c_str()[i]));
        result.append(utf8, static_cast<size_t>(EncodeUtf8(character, utf8)));
    }
    return result;
}

}  // namespace zt
