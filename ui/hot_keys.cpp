// The byte case tables and the colours of hot keys.
#include "ui/hot_keys.h"

#include <array>
#include <cctype>
#include <cstddef>

namespace zt {

namespace {

using ByteTable = std::array<uint8_t, 256>;

ByteTable MakeTable(int (*fold)(int)) {
    ByteTable table;
    for (int i = 0; i < 256; ++i) {
        table[static_cast<size_t>(i)] = static_cast<uint8_t>(fold(i));
    }
    return table;
}

const ByteTable kUpper = MakeTable(std::toupper);
const ByteTable kLower = MakeTable(std::tolower);

constexpr Attribute kBrightYellow = 14;
constexpr Attribute kBrightWhite = 15;
constexpr Attribute kBrightBlue = 9;
constexpr Attribute kBlack = 0;
constexpr Attribute kLightBackground = 0x60;  // yellow and white, bright or not

}  // namespace

uint8_t UpperByte(uint8_t byte) {
    return kUpper[byte];
}
uint8_t LowerByte(uint8_t byte) {
    return kLower[byte];
}

Attribute HotAttribute(Attribute text) {
    const Attribute foreground = text & 0x0F;
    Attribute hot;
    if ((text & kLightBackground) == kLightBackground) {
        hot = kBrightBlue;
        if (foreground == kBrightBlue) hot = text > 127 ? kBlack : kBrightWhite;
    } else {
        hot = foreground == kBrightYellow ? kBrightWhite : kBrightYellow;
    }
    return static_cast<Attribute>((text & 0xF0) | hot);
}

int FindHotKey(const Westring& text, char hotKey) {
    const auto key = static_cast<uint8_t>(hotKey);
    if (key == 0) return -1;
    const int at = text.Find(static_cast<wchar_t>(UpperByte(key)));
    return at >= 0 ? at : text.Find(static_cast<wchar_t>(LowerByte(key)));
}

}  // namespace zt
