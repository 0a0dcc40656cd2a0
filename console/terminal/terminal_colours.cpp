#include "console/terminal/terminal_colours.h"

namespace zt {

namespace {

// The terminal counts red, green, blue from bit 0 on; an attribute blue, green, red.
constexpr Attribute kColourOfNumber[8] = {0, 4, 2, 6, 1, 5, 3, 7};
constexpr Attribute kBright = 8;
constexpr Attribute kBoldBit = 0x08;
constexpr Attribute kUnderlineBit = 0x80;
constexpr int32_t kForegroundForm = 38;
constexpr int32_t kBackgroundForm = 48;

Attribute Colour(int32_t number) {
    return kColourOfNumber[number & 7];
}

// How many numbers behind 38 or 48 tell a colour of a larger palette: 5 and its number, or 2 and
// three channels. These colours are left out, and their numbers are no parameters.
int NumbersOfForm(int32_t kind) {
    if (kind == 5) return 2;
    return kind == 2 ? 4 : 0;
}

}  // namespace

TerminalColours::TerminalColours(Attribute defaultAttribute_)
    : defaultAttribute(defaultAttribute_),
      attribute(defaultAttribute_),
      foreground(defaultAttribute_ & 15),
      background(defaultAttribute_ >> 4) {}

void TerminalColours::Apply(const CsiSequence& sequence) {
    if (sequence.count == 0) return ApplyOne(0);
    for (int i = 0; i < sequence.count; i++) {
        const int32_t parameter = sequence.NumberOr(i, 0);
        if (parameter == kForegroundForm || parameter == kBackgroundForm) {
            i += NumbersOfForm(sequence.Number(i + 1));
        } else {
            ApplyOne(parameter);
        }
    }
}

void TerminalColours::ApplyOne(int32_t parameter) {
    const Attribute defaultForeground = defaultAttribute & 15;
    const Attribute defaultBackground = defaultAttribute >> 4;
    if (parameter == 0) {
        reverse = bold = underline = false;
        foreground = defaultForeground;
        background = defaultBackground;
    } else if (parameter == 1) {
        bold = true;
    } else if (parameter == 4 || parameter == 24) {
        underline = parameter == 4;
    } else if (parameter == 7 || parameter == 27) {
        reverse = parameter == 7;
    } else if (parameter >= 30 && parameter <= 37) {
        foreground = Colour(parameter - 30);
    } else if (parameter >= 40 && parameter <= 47) {
        background = Colour(parameter - 40);
    } else if (parameter >= 90 && parameter <= 97) {
        foreground = Colour(parameter - 90) | kBright;
    } else if (parameter >= 100 && parameter <= 107) {
        background = Colour(parameter - 100) | kBright;
    } else if (parameter == 39 || parameter == 99) {
        foreground = defaultForeground;
    } else if (parameter == 49 || parameter == 109) {
        background = defaultBackground;
    }
    Rebuild();
}

void TerminalColours::Rebuild() {
    const Attribute low = reverse ? background : foreground;
    const Attribute high = reverse ? foreground : background;
    attribute = static_cast<Attribute>(high << 4 | low);
    if (bold) attribute |= kBoldBit;
    if (underline) attribute |= kUnderlineBit;
}

}  // namespace zt
