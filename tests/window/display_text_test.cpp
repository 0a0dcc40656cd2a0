// Characters and text for the toolkit: whatever comes in, valid UTF-8 goes out.
#include "console/window/display_text.h"

#include <gtest/gtest.h>

#include <string>

namespace zt {

TEST(DisplayText, MakesACharacterOfAnyValue) {
    struct Row {
        uint32_t value;
        uint32_t shown;
    };
    const Row kRows[] = {
        {'a', 'a'},
        {0, ' '},
        {9, ' '},
        {0x7F, ' '},
        {0x9F, ' '},
        {0xA0, 0xA0},
        {0xD7FF, 0xD7FF},
        {0xD800, 0xFFFD},
        {0xDFFF, 0xFFFD},
        {0xE000, 0xE000},
        {0x10FFFF, 0x10FFFF},
        {0x110000, 0xFFFD},
        {0x1100E9, 0xE9},
        {0x110080, ' '},
        {0x7FFFFFFF, 0xFFFD},
        {0xFFFFFFFF, 0xFFFD},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(DisplayCharacter(row.value), row.shown) << row.value;
}

TEST(DisplayText, EncodesEveryLength) {
    struct Row {
        uint32_t character;
        const char* utf8;
    };
    const Row kRows[] = {
        {0x24, "$"},       {0x7F, "\x7F"},     {0x80, "\u0080"},        {0x7FF, "\u07FF"},
        {0x800, "\u0800"}, {0xFFFD, "\uFFFD"}, {0x10000, "\U00010000"}, {0x10FFFF, "\U0010FFFF"}};
    for (const Row& row : kRows) {
        char utf8[kMaxUtf8Bytes];
        const int length = EncodeUtf8(row.character, utf8);
        EXPECT_EQ(std::string(utf8, static_cast<size_t>(length)), row.utf8) << row.character;
    }
}

TEST(DisplayText, KeepsLinesAndTabsOfAText) {
    EXPECT_EQ(DisplayText(L"a\tb\nc"), "a\tb\nc");
    EXPECT_EQ(DisplayText(L""), "");
}

}  // namespace zt
