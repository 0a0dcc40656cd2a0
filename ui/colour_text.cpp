// The words of colour values.
#include "ui/colour_text.h"

#include <strings.h>

#include <cctype>

#include "foundation/estring.h"

namespace zt {

namespace {

constexpr const char* kColourWords[8] = {"bla", "blu", "gre", "cya", "red", "mag", "yel", "whi"};
constexpr const char* kBright = "bri";
constexpr const char* kOn = "on";
constexpr int kCountingLetters = 3;
constexpr int kBrightBit = 8;
constexpr int kBackgroundShift = 4;

// Takes the next word off the text, cut to the letters that count; empty at the end.
Estring NextWord(const char*& text) {
    const auto isBlank = [](char ch) { return isspace(static_cast<unsigned char>(ch)) != 0; };
    while (*text && isBlank(*text))
        ++text;
    const char* begin = text;
    while (*text && !isBlank(*text))
        ++text;
    Estring word;
    word.Assign(begin, static_cast<int>(text - begin));
    return word.Left(kCountingLetters);
}

// The value of a colour word or of "bri"; -1 for any other.
int ColourOf(const Estring& word) {
    if (strcasecmp(word.c_str(), kBright) == 0) return kBrightBit;
    for (int i = 0; i < 8; ++i) {
        if (strcasecmp(word.c_str(), kColourWords[i]) == 0) return i;
    }
    return -1;
}

}  // namespace

Attribute ParseColourText(const char* text, Attribute start) {
    int value = start;
    bool background = false;
    bool foregroundNamed = false;
    for (Estring word = NextWord(text); !word.IsEmpty(); word = NextWord(text)) {
        if (strcasecmp(word.c_str(), kOn) == 0) {
            value &= 0x0F;
            background = true;
            continue;
        }
        const int colour = ColourOf(word);
        if (colour < 0) continue;
        if (!background && !foregroundNamed) value &= 0xF0;
        foregroundNamed = true;
        value |= background ? colour << kBackgroundShift : colour;
    }
    return static_cast<Attribute>(value);
}

}  // namespace zt
