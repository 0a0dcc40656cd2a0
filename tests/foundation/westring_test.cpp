// Westring: storage, appending, cutting, searching, replacing, case and paths.
#include "foundation/westring.h"

#include <clocale>

#include <limits>

namespace zt {
namespace {

const std::wstring kLong(40, L'x');

TEST(WestringStorage, KeepsTwentyCharactersInline) {
    Westring text(std::wstring(20, L'x').c_str());
    EXPECT_EQ(text.Capacity(), 21);
    Westring longer(std::wstring(21, L'x').c_str());
    EXPECT_EQ(longer.Capacity(), 22);
    EXPECT_EQ(longer.Length(), 21);
}

TEST(WestringStorage, GrowsByAQuarterWhenAppending) {
    Westring text(std::wstring(20, L'x').c_str());
    text += L'y';
    EXPECT_EQ(text.Capacity(), 21 + 21 / 4 + 1);
    EXPECT_EQ((Westring(kLong.c_str()) + L"ab").Capacity(), 43);
}

TEST(WestringStorage, NeverShrinks) {
    Westring text(std::wstring(100, L'x').c_str());
    text = L"short";
    EXPECT_EQ(text.Capacity(), 101);
    text.Clear();
    EXPECT_EQ(text.Capacity(), 101);
    EXPECT_STREQ(text.c_str(), L"");
}

TEST(WestringStorage, ReservesWithoutText) {
    Westring text(100);
    EXPECT_EQ(text.Length(), 0);
    EXPECT_EQ(text.Capacity(), 101);
    EXPECT_STREQ(text.c_str(), L"");
    EXPECT_EQ(Westring(20).Capacity(), 21);
    EXPECT_EQ(Westring(-5).Capacity(), 21);
}

TEST(WestringStorage, AssignTakesSoManyCharactersUpToANul) {
    Westring text;
    text.Assign(L"abcdef", 3);
    EXPECT_STREQ(text.c_str(), L"abc");
    text.Assign(L"ab\0cd", 5);
    EXPECT_EQ(text.Length(), 2);
    text.Assign(L"abc", -1);
    EXPECT_EQ(text.Length(), 0);
    text.Assign(nullptr, 7);
    EXPECT_EQ(text.Length(), 0);
}

TEST(WestringStorage, CopiesAndMoves) {
    for (const wchar_t* start : {L"short", kLong.c_str()}) {
        Westring first(start);
        Westring second(first);
        second.SetAt(0, L'!');
        EXPECT_STREQ(first.c_str(), start);
        Westring third(std::move(second));
        EXPECT_STREQ(second.c_str(), L"");  // NOLINT: that is what is tested
        EXPECT_EQ(third[0], L'!');
        second = L"again";
        third = std::move(second);
        EXPECT_STREQ(third.c_str(), L"again");
        third = first;
        EXPECT_STREQ(third.c_str(), start);
    }
}

TEST(WestringStorage, SurvivesPiecesOfItself) {
    Westring text(L"abcdefghijklmnopqrst");
    text += text;
    EXPECT_STREQ(text.c_str(), L"abcdefghijklmnopqrstabcdefghijklmnopqrst");
    text += text;  // from a block that goes into one that comes
    EXPECT_EQ(text.Length(), 80);
    EXPECT_STREQ(text.Mid(40, 20).c_str(), L"abcdefghijklmnopqrst");
    text = text.c_str() + 78;
    EXPECT_STREQ(text.c_str(), L"st");
    text.ReplaceAll(text, text);
    EXPECT_STREQ(text.c_str(), L"st");
}

TEST(WestringStorage, NullIsEmpty) {
    const wchar_t* null = nullptr;
    const char* narrowNull = nullptr;
    EXPECT_EQ(Westring(null).Length(), 0);
    EXPECT_EQ(Westring(narrowNull).Length(), 0);
    Westring text(L"x");
    text += null;
    text += narrowNull;
    EXPECT_STREQ((null + text + null).c_str(), L"x");
    EXPECT_TRUE(Westring() == null);
    text = null;
    EXPECT_EQ(text.Length(), 0);
    text = L"x";
    text = narrowNull;
    EXPECT_EQ(text.Length(), 0);
}

TEST(WestringStorage, AppendsEveryKind) {
    Westring text(L"a");
    text += Westring(L"b");
    text += L"c";
    text += "\xC3\xA9";
    text += L'\x263A';
    text += 'd';
    EXPECT_STREQ(text.c_str(),
                 L"abc\u00E9\x263A"
                 L"d");
    text.Append(L"xyz", 2);
    EXPECT_STREQ(text.Right(2).c_str(), L"xy");
    text += L'\0';
    EXPECT_EQ(text.Length(), 8);
}

TEST(WestringStorage, SignExtendsAnAppendedChar) {
    Westring text;
    text += '\xE9';
    EXPECT_EQ(static_cast<uint32_t>(static_cast<wchar_t>(text[0])), 0xFFFFFFE9u);
}

TEST(WestringStorage, ConcatenatesEveryPair) {
    Westring text(L"b");
    EXPECT_STREQ((text + text).c_str(), L"bb");
    EXPECT_STREQ((L"a" + text).c_str(), L"ab");
    EXPECT_STREQ((text + L"c").c_str(), L"bc");
    EXPECT_STREQ(("\xC3\xA9" + text).c_str(),
                 L"\u00E9"
                 L"b");
    EXPECT_STREQ((text + "\xC3\xA9").c_str(), L"b\u00E9");
}

TEST(WestringReader, ClampsToTheCapacity) {
    Westring text(L"abc");
    EXPECT_EQ(text[2], L'c');
    EXPECT_EQ(text[3], L'\0');
    EXPECT_EQ(text[-1], L'a');
    EXPECT_EQ(text[std::numeric_limits<int>::max()], L'\0');
}

TEST(WestringSetAt, StoresGrowsAndCuts) {
    Westring text(L"abc");
    text.SetAt(1, L'X');
    text.SetAt(3, L'd');
    EXPECT_STREQ(text.c_str(), L"aXcd");
    text.SetAt(2, 0);
    EXPECT_STREQ(text.c_str(), L"aX");
    text.SetAt(50, L'z');
    EXPECT_EQ(text.Length(), 51);
    text.SetAt(-1, L'q');
    text.SetAt(51, 0);
    EXPECT_EQ(text.Length(), 51);
}

TEST(WestringParts, CutAsAsked) {
    Westring text(L"abcdef");
    struct {
        Westring got;
        const wchar_t* expected;
    } rows[] = {
        {text.Left(2), L"ab"},
        {text.Left(-1), L""},
        {text.Left(99), L"abcdef"},
        {text.Mid(2, 2), L"cd"},
        {text.Mid(2), L"cdef"},
        {text.Mid(4, 99), L"ef"},
        {text.Mid(6, 0), L""},
        {text.Mid(99, 1), L""},
        {text.Mid(-3, 2), L"ab"},
        {text.Right(2), L"ef"},
        {text.Right(99), L"abcdef"},
        {text.Right(-1), L""},
        {text.DropRight(2), L"abcd"},
        {text.DropRight(99), L""},
        {text.DropRight(-1), L"abcdef"},
        {text.PadRight(8), L"abcdef  "},
        {text.PadRight(3, L'.'), L"abc"},
        {text.PadLeft(8, L'.'), L"..abcdef"},
        {text.PadLeft(3, L'.'), L"def"},
        {Westring::Repeat(L'\x2500', 3), L"\x2500\x2500\x2500"},
        {Westring::Repeat(L'x', 0), L""},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(row.got.c_str(), row.expected);
}

TEST(WestringFind, FindsCharactersAndTexts) {
    Westring text(L"one two one");
    EXPECT_EQ(text.Find(L'o'), 0);
    EXPECT_EQ(text.FindLast(L'o'), 8);
    EXPECT_EQ(text.Find(L'\0'), -1);
    EXPECT_EQ(text.FindLast(L'\0'), -1);
    EXPECT_EQ(text.Find(Westring(L"one")), 0);
    EXPECT_EQ(text.Find(Westring(L"one"), 1), 8);
    EXPECT_EQ(text.Find(Westring(L"one"), -4), 0);
    EXPECT_EQ(text.Find(Westring(L"one"), 9), -1);
    EXPECT_EQ(text.Find(Westring(L""), 11), 11);
    EXPECT_EQ(text.Find(Westring(L""), 12), -1);
    EXPECT_EQ(text.Find(Westring(L"ONE")), -1);
    EXPECT_EQ(text.FindNoCase(Westring(L"TWO")), 4);
    EXPECT_EQ(Westring(L"gr\u00FC\u00DF").FindNoCase(Westring(L"\u00DC")), 2);
    EXPECT_EQ(text.FindNoCase(Westring(L"three")), -1);
}

TEST(WestringFind, CountsOccurrencesFromOne) {
    Westring text(L"a/b/c");
    EXPECT_EQ(text.FindNth(L'/', 1), 1);
    EXPECT_EQ(text.FindNth(L'/', 2), 3);
    EXPECT_EQ(text.FindNth(L'/', 3), -1);
    EXPECT_EQ(text.FindNth(L'/', 0), -1);
    EXPECT_EQ(text.FindNth(L'\0', 1), -1);
}

TEST(WestringFind, LooksOutsideQuotes) {
    EXPECT_EQ(Westring(L"\"a,b\",c").FindOutsideQuotes(L','), 5);
    EXPECT_EQ(Westring(L"\"a,b").FindOutsideQuotes(L','), -1);
    EXPECT_EQ(Westring(L"abc").FindOutsideQuotes(L'\0'), -1);
}

TEST(WestringReplace, ReplacesTheFirst) {
    Westring text(L"a-b-c");
    EXPECT_TRUE(text.ReplaceFirst(L"-", L"--"));
    EXPECT_STREQ(text.c_str(), L"a--b-c");
    EXPECT_FALSE(text.ReplaceFirst(L"x", L"y"));
    EXPECT_FALSE(text.ReplaceFirst(L"", L"y"));
    EXPECT_STREQ(text.c_str(), L"a--b-c");
}

TEST(WestringReplace, ReplacesAllWithoutLooping) {
    Westring text(L"a-b-c");
    EXPECT_TRUE(text.ReplaceAll(L"-", L"<->"));
    EXPECT_STREQ(text.c_str(), L"a<->b<->c");
    EXPECT_TRUE(text.ReplaceAll(L"<->", L""));
    EXPECT_STREQ(text.c_str(), L"abc");
    EXPECT_FALSE(text.ReplaceAll(L"-", L"+"));
    EXPECT_FALSE(text.ReplaceAll(L"", L"+"));
    Westring overlapping(L"aaaaa");
    EXPECT_TRUE(overlapping.ReplaceAll(L"aa", L"b"));
    EXPECT_STREQ(overlapping.c_str(), L"bba");
}

TEST(WestringTrim, DropsBlanks) {
    Westring text(L" \t a b \n");
    EXPECT_STREQ(text.TrimLeft().c_str(), L"a b \n");
    EXPECT_STREQ(text.TrimRight().c_str(), L" \t a b");
    EXPECT_STREQ(text.Trim().c_str(), L"a b");
    EXPECT_STREQ(Westring(L"  ").Trim().c_str(), L"");
}

TEST(WestringCase, FoldsThroughTheCaseTable) {
    EXPECT_STREQ(Westring(L"gr\u00FC\u00DFe \u03B1").ToUpper().c_str(), L"GR\u00DC\u00DFE \u0391");
    EXPECT_STREQ(Westring(L"\u0416\u00C9 1").ToLower().c_str(), L"\u0436\u00E9 1");
}

TEST(WestringRelations, IgnoreCase) {
    Westring text(L"Abc");
    EXPECT_TRUE(text == Westring(L"aBC"));
    EXPECT_TRUE(text == L"aBC");
    EXPECT_FALSE(text != Westring(L"aBC"));
    EXPECT_FALSE(text != L"aBC");
    EXPECT_TRUE(text != L"abd");
}

class InAUtf8Locale : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(setlocale(LC_ALL, "C.UTF-8")); }
    void TearDown() override { setlocale(LC_ALL, "C"); }
};

TEST_F(InAUtf8Locale, RelationsIgnoreTheCaseOfAnyLetter) {
    EXPECT_TRUE(Westring(L"\u00E9\u0436") == L"\u00C9\u0416");
    EXPECT_TRUE(Westring(L"\u00E9") != L"e");
}

TEST_F(InAUtf8Locale, TrimDropsWideBlanks) {
    EXPECT_STREQ(Westring(L"\u3000 a\u2003").Trim().c_str(), L"a");
    EXPECT_STREQ(Westring(L"\u00A0a\u00A0").Trim().c_str(), L"\u00A0a\u00A0") << "these stay";
}

TEST(WestringPaths, TrailingSlashes) {
    struct {
        const wchar_t* text;
        const wchar_t* added;
        const wchar_t* removed;
    } rows[] = {{L"", L"", L""},         {L"/", L"/", L""},     {L"//", L"//", L"//"},
                {L"c:/", L"c:/", L"c:"}, {L"a/", L"a/", L"a/"}, {L"ab/", L"ab/", L"ab"},
                {L"ab", L"ab/", L"ab"}};
    for (const auto& row : rows) {
        Westring added(row.text);
        added.AddTrailingSlash();
        EXPECT_STREQ(added.c_str(), row.added) << row.text;
        Westring removed(row.text);
        removed.RemoveTrailingSlash();
        EXPECT_STREQ(removed.c_str(), row.removed) << row.text;
    }
}

TEST(WestringPaths, SplitAtTheLastSlash) {
    struct {
        const wchar_t* path;
        int slash;
        const wchar_t* directory;
        const wchar_t* name;
    } rows[] = {
        {L"c:/x", 2, L"c:/", L"x"},   {L"/x", 0, L"", L"x"}, {L"x", -1, L"", L"x"},
        {L"a/b\\c", 3, L"a/b", L"c"}, {L"", -1, L"", L""},   {L"a/b/", 3, L"a/b", L""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Westring::LastSlash(row.path), row.slash) << row.path;
        EXPECT_STREQ(Westring(row.path).DirectoryPart().c_str(), row.directory) << row.path;
        EXPECT_STREQ(Westring(row.path).FileNamePart().c_str(), row.name) << row.path;
    }
}

}  // namespace
}  // namespace zt
