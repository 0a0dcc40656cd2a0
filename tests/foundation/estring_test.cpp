// Estring: storage, appending, cutting, searching, comparing and the texts made from values.
#include "foundation/estring.h"

#include <cerrno>
#include <cstring>

#include <limits>

namespace zt {
namespace {

TEST(EstringStorage, KeepsTwentyCharactersInline) {
    Estring text(std::string(20, 'x').c_str());
    EXPECT_EQ(text.Length(), 20);
    EXPECT_EQ(text.Capacity(), 21);
    auto* object = reinterpret_cast<const char*>(&text);
    EXPECT_TRUE(text.c_str() >= object && text.c_str() < object + sizeof text);
}

TEST(EstringStorage, TakesABlockForTwentyOneCharacters) {
    Estring text(std::string(21, 'x').c_str());
    EXPECT_EQ(text.Length(), 21);
    EXPECT_EQ(text.Capacity(), 22);
    auto* object = reinterpret_cast<const char*>(&text);
    EXPECT_FALSE(text.c_str() >= object && text.c_str() < object + sizeof text);
}

TEST(EstringStorage, GrowsByAQuarterWhenAppending) {
    Estring text(std::string(20, 'x').c_str());
    text += 'y';
    EXPECT_EQ(text.Capacity(), 21 + 21 / 4 + 1);
    text += std::string(10, 'z').c_str();
    EXPECT_EQ(text.Capacity(), 31 + 31 / 4 + 1);
    EXPECT_STREQ(text.c_str(), "xxxxxxxxxxxxxxxxxxxxyzzzzzzzzzz");
}

TEST(EstringStorage, ConcatenatesIntoExactlyTheSum) {
    Estring a(std::string(30, 'a').c_str());
    Estring b(std::string(12, 'b').c_str());
    EXPECT_EQ((a + b).Capacity(), 43);
    EXPECT_EQ((a + "bb").Capacity(), 33);
    EXPECT_EQ(("bb" + a).Capacity(), 33);
}

TEST(EstringStorage, NeverShrinks) {
    Estring text(std::string(100, 'x').c_str());
    text = "short";
    EXPECT_EQ(text.Capacity(), 101);
    text.Clear();
    EXPECT_EQ(text.Capacity(), 101);
    EXPECT_STREQ(text.c_str(), "");
}

TEST(EstringStorage, ReservesWithoutText) {
    Estring text(100);
    EXPECT_EQ(text.Length(), 0);
    EXPECT_EQ(text.Capacity(), 101);
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_EQ(Estring(20).Capacity(), 21);
    EXPECT_EQ(Estring(-5).Capacity(), 21);
}

TEST(EstringStorage, CopiesAreApart) {
    for (const char* start : {"short", "a text that is longer than the inline buffer"}) {
        Estring first(start);
        Estring second(first);
        second.SetAt(0, '!');
        EXPECT_STREQ(first.c_str(), start);
        EXPECT_EQ(second[0], '!');
        first = second;
        EXPECT_STREQ(first.c_str(), second.c_str());
    }
}

TEST(EstringStorage, MovedFromStringIsEmptyAndUsable) {
    for (const char* start : {"short", "a text that is longer than the inline buffer"}) {
        Estring first(start);
        Estring second(std::move(first));
        EXPECT_STREQ(second.c_str(), start);
        EXPECT_STREQ(first.c_str(), "");  // NOLINT: that is what is tested
        first += "again";
        EXPECT_STREQ(first.c_str(), "again");
        second = std::move(first);
        EXPECT_STREQ(second.c_str(), "again");
    }
}

TEST(EstringStorage, SurvivesPiecesOfItself) {
    Estring text("abcdefghijklmnopqrst");
    text += text;
    EXPECT_STREQ(text.c_str(), "abcdefghijklmnopqrstabcdefghijklmnopqrst");
    Estring doubled(text);
    doubled += doubled;  // from a block that goes into one that comes
    EXPECT_EQ(doubled.Length(), 80);
    EXPECT_STREQ(doubled.Mid(40, 20).c_str(), "abcdefghijklmnopqrst");
    text += text.c_str() + 38;
    EXPECT_STREQ(text.Right(4).c_str(), "stst");
    text = text.c_str() + 40;
    EXPECT_STREQ(text.c_str(), "st");
    text = *&text;
    EXPECT_STREQ(text.c_str(), "st");
}

TEST(EstringStorage, NullIsEmpty) {
    const char* null = nullptr;
    Estring text(null);
    EXPECT_EQ(text.Length(), 0);
    text = "x";
    text += null;
    EXPECT_STREQ(text.c_str(), "x");
    EXPECT_STREQ((text + null).c_str(), "x");
    EXPECT_STREQ((null + text).c_str(), "x");
    text = null;
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_TRUE(text == null);
    text.Assign(nullptr, 7);
    EXPECT_EQ(text.Length(), 0);
}

TEST(EstringStorage, AssignTakesSoManyBytesUpToANul) {
    Estring text;
    text.Assign("abcdef", 3);
    EXPECT_STREQ(text.c_str(), "abc");
    text.Assign("ab\0cd", 5);
    EXPECT_EQ(text.Length(), 2);
    text.Assign("abc", -1);
    EXPECT_EQ(text.Length(), 0);
}

TEST(EstringStorage, DropsAnAppendedNul) {
    Estring text("ab");
    text += '\0';
    EXPECT_EQ(text.Length(), 2);
    text.Append("c\0d", 3);
    EXPECT_STREQ(text.c_str(), "abc");
    EXPECT_EQ(text.Length(), 3);
}

TEST(EstringReader, ClampsToTheCapacity) {
    Estring text("abc");
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text[2], 'c');
    EXPECT_EQ(text[3], '\0');
    EXPECT_EQ(text[-1], 'a');
    EXPECT_EQ(text[std::numeric_limits<int>::max()], '\0');
    Estring full(std::string(30, 'x').c_str());
    EXPECT_EQ(full[1000], '\0');
    // Behind the terminator the block still shows what it held.
    full.SetAt(1, 0);
    EXPECT_EQ(full[2], 'x');
}

TEST(EstringSetAt, StoresGrowsAndCuts) {
    Estring text("abc");
    text.SetAt(1, 'X');
    EXPECT_STREQ(text.c_str(), "aXc");
    text.SetAt(3, 'd');
    EXPECT_STREQ(text.c_str(), "aXcd");
    EXPECT_EQ(text.Length(), 4);
    text.SetAt(2, 0);
    EXPECT_STREQ(text.c_str(), "aX");
    EXPECT_EQ(text.Length(), 2);
    text.SetAt(99, 'z');
    EXPECT_EQ(text.Length(), 100);
    EXPECT_EQ(text[99], 'z');
    EXPECT_EQ(text.c_str()[100], 0);
    EXPECT_EQ(text[3], 'd') << "the bytes between stay as they were";
}

TEST(EstringSetAt, RefusesNegativeIndexAndNulBehindTheEnd) {
    Estring text("abc");
    text.SetAt(-1, 'x');
    text.SetAt(3, 0);
    text.SetAt(10, 0);
    EXPECT_STREQ(text.c_str(), "abc");
    EXPECT_EQ(text.Length(), 3);
}

TEST(EstringParts, CutAsAsked) {
    Estring text("abcdef");
    struct {
        Estring got;
        const char* expected;
    } rows[] = {
        {text.Left(2), "ab"},
        {text.Left(0), ""},
        {text.Left(-1), ""},
        {text.Left(99), "abcdef"},
        {text.Mid(2, 2), "cd"},
        {text.Mid(2), "cdef"},
        {text.Mid(2, 0), "cdef"},
        {text.Mid(4, 99), "ef"},
        {text.Mid(6, 0), ""},
        {text.Mid(99, 1), ""},
        {text.Mid(-3, 2), "ab"},
        {text.Mid(1, 2147483647), "bcdef"},
        {text.Right(2), "ef"},
        {text.Right(99), "abcdef"},
        {text.Right(0), ""},
        {text.Right(-1), ""},
        {text.DropRight(2), "abcd"},
        {text.DropRight(0), "abcdef"},
        {text.DropRight(99), ""},
        {text.DropRight(-2), "abcdef"},
        {text.PadRight(8, '.'), "abcdef.."},
        {text.PadRight(3, '.'), "abc"},
        {text.PadRight(0, '.'), ""},
        {text.PadRight(-1, '.'), ""},
        {text.PadLeft(8, '.'), "..abcdef"},
        {text.PadLeft(3, '.'), "def"},
        {text.PadLeft(0, '.'), ""},
        {text.PadLeft(6, '.'), "abcdef"},
        {Estring::Repeat('x', 3), "xxx"},
        {Estring::Repeat('x', 0), ""},
        {Estring::Repeat('x', -9), ""},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(row.got.c_str(), row.expected);
    EXPECT_EQ(Estring::Repeat('x', 50).Length(), 50);
}

TEST(EstringFind, FindsCharacters) {
    Estring text("a,b,c");
    EXPECT_EQ(text.Find(','), 1);
    EXPECT_EQ(text.FindLast(','), 3);
    EXPECT_EQ(text.Find('x'), -1);
    EXPECT_EQ(text.FindLast('x'), -1);
    EXPECT_EQ(text.Find(0), -1);
    EXPECT_EQ(text.FindLast(0), -1);
}

TEST(EstringFind, LooksOutsideQuotes) {
    EXPECT_EQ(Estring("\"a,b\",c").FindOutsideQuotes(','), 5);
    EXPECT_EQ(Estring("'a,b',c").FindOutsideQuotes(',', '\''), 5);
    EXPECT_EQ(Estring("'a,b',c").FindOutsideQuotes(','), 2);
    EXPECT_EQ(Estring("\"a,b").FindOutsideQuotes(','), -1);
    EXPECT_EQ(Estring("abc").FindOutsideQuotes(0), -1);
}

TEST(EstringTrim, DropsBlanks) {
    Estring text(" \t\n a b \r\v\f ");
    EXPECT_STREQ(text.TrimLeft().c_str(), "a b \r\v\f ");
    EXPECT_STREQ(text.TrimRight().c_str(), " \t\n a b");
    EXPECT_STREQ(text.Trim().c_str(), "a b");
    EXPECT_STREQ(Estring("   ").Trim().c_str(), "");
    EXPECT_STREQ(Estring("\xE9").Trim().c_str(), "\xE9");
}

TEST(EstringFormat, FormatsAndCutsAt1023) {
    EXPECT_STREQ(Estring::Format("%d-%s", 7, "x").c_str(), "7-x");
    std::string longText(2000, 'y');
    Estring cut = Estring::Format("%s", longText.c_str());
    EXPECT_EQ(cut.Length(), 1023);
    EXPECT_EQ(cut.c_str(), longText.substr(0, 1023));
    EXPECT_EQ(Estring::Format("%s", longText.substr(0, 1023).c_str()).Length(), 1023);
}

TEST(EstringRelations, IgnoreCase) {
    Estring a("a");
    EXPECT_TRUE(a == Estring("A"));
    EXPECT_TRUE(a == "A");
    EXPECT_FALSE(a != Estring("A"));
    EXPECT_FALSE(a != "A");
    EXPECT_TRUE(a < Estring("B"));
    EXPECT_TRUE(a < "B");
    EXPECT_FALSE(a < "A");
    EXPECT_TRUE(a <= Estring("A"));
    EXPECT_TRUE(a <= "A");
    EXPECT_TRUE(Estring("B") > a);
    EXPECT_TRUE(Estring("B") > "a");
    EXPECT_TRUE(a >= Estring("A"));
    EXPECT_TRUE(a >= "A");
    EXPECT_FALSE(a >= "b");
}

TEST(EstringNumbers, WriteEveryRadix) {
    struct {
        Estring got;
        const char* expected;
    } rows[] = {
        {Estring::FromInteger(0), "0"},
        {Estring::FromInteger(-1), "-1"},
        {Estring::FromInteger(255, 16), "FF"},
        {Estring::FromInteger(-255, 16), "-FF"},
        {Estring::FromInteger(35, 36), "Z"},
        {Estring::FromInteger(5, 2), "101"},
        {Estring::FromInteger(std::numeric_limits<int32_t>::min()), "-2147483648"},
        {Estring::FromUnsigned(0), "0"},
        {Estring::FromUnsigned(0xFFFFFFFF), "4294967295"},
        {Estring::FromUnsigned(0xFFFFFFFF, 16), "FFFFFFFF"},
        {Estring::FromInteger64(std::numeric_limits<int64_t>::min()), "-9223372036854775808"},
        {Estring::FromInteger64(std::numeric_limits<int64_t>::max()), "9223372036854775807"},
        {Estring::FromInteger64(std::numeric_limits<int64_t>::min(), 2),
         "-1000000000000000000000000000000000000000000000000000000000000000"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(row.got.c_str(), row.expected);
}

TEST(EstringNumbers, TakeAnImpossibleRadixAsTen) {
    for (int radix : {-2, 0, 1, 37})
        EXPECT_STREQ(Estring::FromInteger(42, radix).c_str(), "42");
}

TEST(EstringPaths, AddTrailingSlash) {
    struct {
        const char* text;
        const char* expected;
    } rows[] = {{"", ""}, {"a", "a/"}, {"a/", "a/"}, {"/", "/"}, {"a\\", "a\\/"}};
    for (const auto& row : rows) {
        Estring text(row.text);
        text.AddTrailingSlash();
        EXPECT_STREQ(text.c_str(), row.expected) << row.text;
    }
}

TEST(EstringPaths, RemoveTrailingSlash) {
    struct {
        const char* text;
        const char* expected;
    } rows[] = {{"", ""},        {"/", ""},      {"//", "//"},   {"c:/", "c:"},
                {"a/", "a/"},    {"a/b", "a/b"}, {"ab/", "ab"},  {"///", "///"},
                {"a/b/", "a/b"}, {"x//", "x//"}, {"////", "///"}};
    for (const auto& row : rows) {
        Estring text(row.text);
        text.RemoveTrailingSlash();
        EXPECT_STREQ(text.c_str(), row.expected) << row.text;
    }
}

TEST(EstringPaths, SplitAtTheLastSlash) {
    struct {
        const char* path;
        int slash;
        const char* directory;
        const char* name;
    } rows[] = {
        {"c:/x", 2, "c:/", "x"}, {"/x", 0, "", "x"},        {"x", -1, "", "x"},
        {"", -1, "", ""},        {"a/b/c", 3, "a/b", "c"},  {"a/b/", 3, "a/b", ""},
        {"a\\b", 1, "a", "b"},   {"a/b\\c", 3, "a/b", "c"}, {"c:\\x", 2, "c:\\", "x"},
        {"ab/x", 2, "ab", "x"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Estring::LastSlash(row.path), row.slash) << row.path;
        EXPECT_STREQ(Estring(row.path).DirectoryPart().c_str(), row.directory) << row.path;
        EXPECT_STREQ(Estring(row.path).FileNamePart().c_str(), row.name) << row.path;
    }
}

TEST(EstringTexts, FromBufferTrimsTheRightEnd) {
    EXPECT_STREQ(Estring::FromBuffer("  ab  cd", 6).c_str(), "  ab");
    EXPECT_STREQ(Estring::FromBuffer("ab\n\0cd", 6).c_str(), "ab");
    EXPECT_STREQ(Estring::FromBuffer("ab", 0).c_str(), "");
}

TEST(EstringTexts, ErrorTextIsTheSystems) {
    EXPECT_STREQ(Estring::ErrorText(ENOENT).c_str(), std::strerror(ENOENT));
    EXPECT_GT(Estring::ErrorText(999999).Length(), 0);
}

TEST(EstringTexts, ExpandTabsStopsOneShort) {
    struct {
        const char* text;
        int tabSize;
        const char* expected;
    } rows[] = {
        {"\tx", 8, "       x"},      // 7 blanks, not 8
        {"ab\tc", 8, "ab     c"},    // 5 blanks
        {"\t\tx", 4, "   x"},        // the second tab stands at column 3 and is worth nothing
        {"a\tb\tc", 4, "a  b   c"},  // column 4 begins a stop again
        {"plain", 8, "plain"},      {"a\tb", 1, "ab"}, {"a\tb", 0, "ab"}, {"", 8, ""},
    };
    for (const auto& row : rows) {
        EXPECT_STREQ(Estring::ExpandTabs(row.text, row.tabSize).c_str(), row.expected) << row.text;
    }
}

}  // namespace
}  // namespace zt
