// Attributed text: storage, growth, the pieces cut from it.
#include "console/cell_string.h"

#include <gtest/gtest.h>

#include <string>

namespace zt {
namespace {

std::string TextOf(const CellString& text) {
    std::string result;
    for (int i = 0; i < text.Length(); i++)
        result += static_cast<char>(text.At(i).character);
    return result;
}

TEST(CellStringTest, TwentyCellsStayInline) {
    CellString text("12345678901234567890", 7);
    EXPECT_EQ(text.Length(), 20);
    EXPECT_EQ(text.Capacity(), 20);
}

TEST(CellStringTest, TheTwentyFirstCellMovesItToThirtyOne) {
    CellString text("12345678901234567890", 7);
    text.Append('x');
    EXPECT_EQ(text.Length(), 21);
    EXPECT_EQ(text.Capacity(), 31);
    EXPECT_EQ(TextOf(text), "12345678901234567890x");
}

TEST(CellStringTest, GrowsByHalfAgainOfWhatIsNeeded) {
    CellString text;
    text.SetLength(100);
    EXPECT_EQ(text.Capacity(), 150);
    text.SetLength(150);
    EXPECT_EQ(text.Capacity(), 150);
    text.SetLength(151);
    EXPECT_EQ(text.Capacity(), 226);
}

TEST(CellStringTest, DecodesUtf8IntoOneCellACharacter) {
    CellString text("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 0x1E);
    ASSERT_EQ(text.Length(), 4);
    EXPECT_EQ(text.At(1).character, 0xE9u);
    EXPECT_EQ(text.At(2).character, 0x20ACu);
    EXPECT_EQ(text.At(3).character, 0x1F600u);
    EXPECT_EQ(text.At(3).attribute, 0x1E);
}

TEST(CellStringTest, TakesWideText) {
    const CellString plain(L"\x20AC!", 0x4E);
    ASSERT_EQ(plain.Length(), 2);
    EXPECT_EQ(plain.At(0), (Cell{0x20AC, 0x4E}));
    const CellString text(Westring("\xE2\x82\xAC!"), 0x4E);
    ASSERT_EQ(text.Length(), 2);
    EXPECT_EQ(text.At(1), (Cell{U'!', 0x4E}));
    EXPECT_EQ(text.DefaultAttribute(), 0x4E);
    EXPECT_EQ(CellString(static_cast<const wchar_t*>(nullptr), 7).Length(), 0);
    EXPECT_EQ(CellString(static_cast<const char*>(nullptr), 7).Length(), 0);
}

TEST(CellStringTest, TakesBytesOneByOne) {
    CellString text = CellString::FromBytes("\xC3\xA9", 3);
    ASSERT_EQ(text.Length(), 2);
    EXPECT_EQ(text.At(0).character, 0xC3u);
    EXPECT_EQ(text.At(1).character, 0xA9u);
    EXPECT_EQ(CellString::FromBytes(nullptr, 3).Length(), 0);
}

TEST(CellStringTest, AppendsInItsOwnAttributeOrInTheGivenOne) {
    CellString text(0x17);
    text.Append(U'a');
    text.Append(Cell{U'b', 0x4F});
    text.Append(Westring("c"));
    text.Append(L"def", 0x30, 2);
    text.Append(L"g", 0x31);
    text.Append(static_cast<const wchar_t*>(nullptr), 0x31);
    EXPECT_EQ(TextOf(text), "abcdeg");
    const int attributes[] = {0x17, 0x4F, 0x17, 0x30, 0x30, 0x31};
    for (int i = 0; i < 6; i++)
        EXPECT_EQ(text.At(i).attribute, attributes[i]) << "cell " << i;
}

TEST(CellStringTest, AppendsItself) {
    CellString text("0123456789abcdef", 7);
    text.Append(text);
    EXPECT_EQ(TextOf(text), "0123456789abcdef0123456789abcdef");
}

TEST(CellStringTest, CopiesTextAndAttribute) {
    CellString text("abcdefghijklmnopqrstuvwxyz", 0x2A);
    CellString copy(text);
    EXPECT_EQ(TextOf(copy), TextOf(text));
    EXPECT_EQ(copy.DefaultAttribute(), 0x2A);
    CellString assigned("some longer text that was there before it", 1);
    assigned = text;
    EXPECT_EQ(TextOf(assigned), TextOf(text));
    assigned.Append('!');
    EXPECT_EQ(text.Length(), 26);
    EXPECT_EQ(assigned.At(26).attribute, 0x2A);
}

struct PieceCase {
    int start;
    int n;
    const char* expected;
};

TEST(CellStringTest, CutsTheMiddle) {
    const CellString text("abcdef", 7);
    const PieceCase cases[] = {{0, 2, "ab"},    {2, 3, "cde"},   {2, -1, "cdef"},
                               {2, 99, "cdef"}, {2, -5, "cdef"}, {6, 1, ""},
                               {9, 1, ""},      {2, 0, ""},      {-3, 2, "ab"}};
    for (const PieceCase& c : cases) {
        EXPECT_EQ(TextOf(text.Mid(c.start, c.n)), c.expected) << c.start << ", " << c.n;
    }
}

TEST(CellStringTest, CutsTheLeft) {
    const CellString text("abcdef", 7);
    EXPECT_EQ(TextOf(text.Left(2)), "ab");
    EXPECT_EQ(TextOf(text.Left(0)), "");
    EXPECT_EQ(TextOf(text.Left(-1)), "");
    EXPECT_EQ(TextOf(text.Left(99)), "abcdef");
}

TEST(CellStringTest, PadsWithBlanksInItsAttributeOrCuts) {
    CellString text(0x4F);
    text.Append(L"abc", 0x07);
    const CellString padded = text.Padded(5);
    EXPECT_EQ(TextOf(padded), "abc  ");
    EXPECT_EQ(padded.At(2).attribute, 0x07);
    EXPECT_EQ(padded.At(4).attribute, 0x4F);
    EXPECT_EQ(TextOf(text.Padded(2)), "ab");
    EXPECT_EQ(TextOf(text.Padded(-1)), "");
}

TEST(CellStringTest, FindsTheLastOfACharacter) {
    const CellString text("a/b/c", 7);
    EXPECT_EQ(text.FindLast('/'), 3);
    EXPECT_EQ(text.FindLast('a'), 0);
    EXPECT_EQ(text.FindLast('x'), -1);
    EXPECT_EQ(CellString().FindLast('x'), -1);
}

TEST(CellStringTest, SetLengthKeepsWhatWasThere) {
    CellString text("abc", 7);
    text.SetLength(200);
    EXPECT_EQ(TextOf(text.Left(3)), "abc");
    text.SetLength(2);
    EXPECT_EQ(TextOf(text), "ab");
    text.SetLength(-4);
    EXPECT_EQ(text.Length(), 0);
}

}  // namespace
}  // namespace zt
