// The rules of file masks, for both widths of characters.
#include "foundation/wild_match.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <clocale>
#include <iterator>
#include <ostream>
#include <random>
#include <string>

#include "foundation/file_name.h"
#include "foundation/westring.h"

namespace zt {
namespace {

struct MatchRow {
    const char* mask;
    const char* text;
    bool matches;
};

void PrintTo(const MatchRow& row, std::ostream* out) {
    *out << '"' << row.mask << "\" on \"" << row.text << "\" -> " << row.matches;
}

class BothMatchers : public testing::TestWithParam<MatchRow> {};

TEST_P(BothMatchers, Agree) {
    const MatchRow& row = GetParam();
    EXPECT_EQ(WildMatch(row.mask, row.text), row.matches);
    EXPECT_EQ(WildMatchWide(Westring(row.mask).c_str(), Westring(row.text).c_str()), row.matches);
}

constexpr MatchRow kEnds[] = {
    {"", "", true},     {"*", "", true},    {"**", "", true},   {"?", "", false},
    {"a", "", false},   {"", "a", false},   {"[a]", "", false}, {"[^a]", "", false},
    {"?", "x", true},   {"??", "x", false}, {"?", "xy", false}, {"*?", "", false},
    {"{,a}", "", true}, {"{a}", "", false},
};
INSTANTIATE_TEST_SUITE_P(Ends, BothMatchers, testing::ValuesIn(kEnds));

constexpr MatchRow kPlain[] = {
    {"abc", "abc", true},   {"abc", "aBC", true},   {"ABC", "abc", true},  {"abc", "abd", false},
    {"abc", "abcd", false}, {"abcd", "abc", false}, {"a.c", "abc", false}, {"]", "]", true},
    {"}", "}", true},       {"a-b", "a-b", true},   {",", ",", true},
};
INSTANTIATE_TEST_SUITE_P(PlainCharacters, BothMatchers, testing::ValuesIn(kPlain));

constexpr MatchRow kStars[] = {
    {"*", "anything", true},    {"*.*", "name.ext", true},  {"*.*", "name", false},
    {"*.*", ".", true},         {"*.c", "a.c", true},       {"*.c", "a.cc", false},
    {"*.c", "a.c.c", true},     {"a*b*c", "aXbYbZc", true}, {"a*b*c", "aXcYb", false},
    {"*ab", "aab", true},       {"*aab", "aaab", true},     {"a*", "a", true},
    {"a**b", "ab", true},       {"*?b", "ab", true},        {"*?b", "b", false},
    {"*[bc]*x", "aabcx", true}, {"*[bc]x", "aabbx", true},  {"*a?c*", "zzabcabd", true},
};
INSTANTIATE_TEST_SUITE_P(Stars, BothMatchers, testing::ValuesIn(kStars));

constexpr MatchRow kSets[] = {
    {"[abc]", "b", true},
    {"[abc]", "B", true},
    {"[ABC]", "b", true},
    {"[abc]", "d", false},
    {"[a-c]", "b", true},
    {"[a-c]", "d", false},
    {"[^a-c]", "B", false},
    {"[^a-c]", "d", true},
    {"[A-C]", "b", true},
    {"x[0-9]y", "x5y", true},
    {"x[0-9]y", "xay", false},
    // Never closed: compared as plain characters.
    {"[a-", "[a-", true},
    {"[a-", "a", false},
    {"[", "[", true},
    {"a]b[c", "a]b[c", true},
    {"][a", "][a", true},
    // No member at all, and none taken away.
    {"[]", "a", false},
    {"[]", "]", false},
    {"[^]", "a", true},
    {"[]a]", "a]", false},
    {"[^]a]", "xa]", true},
    // '^' further on flips what follows it.
    {"[a^b]", "a", true},
    {"[a^b]", "b", false},
    {"[^a^a]", "a", true},
    {"[a-z^m]", "m", false},
    {"[a-z^m]", "n", true},
    {"[^^a]", "a", true},
    // A '-' in front ranges from 0, one at the end to 255.
    {"[-a]", "a", true},
    {"[-a]", "!", true},
    {"[-a]", "b", true /* 'B' < 'a' */},
    {"[-a]", "{", false},
    {"[x-]", "z", true},
    {"[x-]", "-", false},
    {"[-]", "q", true},
    {"[b-a]", "a", false},
    {"[b-a]", "b", true /* on its own */},
    // The end of a range is the start of the next one.
    {"[c-a-e]", "d", true},
    {"[!--]", "-", true},
    {"[!--]", ".", false},
    // The ']' may stand anywhere behind, and '*', '?' and '{' mean nothing in a set.
    {"[*?]", "?", true},
    {"[*?]", "a", false},
    {"[{]}", "{}", true},
    {"[*]*]", "*]", true},
    {"[*]*]", "x]", false},
};
INSTANTIATE_TEST_SUITE_P(Sets, BothMatchers, testing::ValuesIn(kSets));

constexpr MatchRow kAlternatives[] = {
    {"a{b,c}d", "abd", true},
    {"a{b,c}d", "acd", true},
    {"a{b,c}d", "aed", false},
    {"a{b,c}d", "abcd", false},
    {"A{,X}d", "ad", true},
    {"A{,X}d", "axd", true},
    {"a{b,,c}d", "ad", true},
    {"a{b}d", "abd", true},
    // An empty alternative in front of the '}' does not count, nor does an empty list.
    {"a{b,}d", "ad", false},
    {"a{}d", "ad", false},
    {"a{}d", "a{}d", true},
    // The longer one is found when the shorter leads nowhere, and the other way round.
    {"{a,ab}c", "abc", true},
    {"{ab,a}bc", "abc", true},
    {"{a,aa}{a,aa}b", "aaab", true},
    {"{a,aa}{a,aa}b", "aaaaab", false},
    {"{?x,[ab]y}", "qx", true},
    {"{?x,[ab]y}", "by", true},
    {"{?x,[ab]y}", "cy", false},
    {"{*}", "*", true},
    {"{*}", "ab", false},
    {"{a*}", "a*", true},
    {"*.{c,h}", "x.h", true},
    {"*.{c,h}", "x.o", false},
    {"*{abc,a}*c", "abc", true},
    {"{a,b}*", "bcd", true},
    {"*{ab,b}", "xab", true},
    {"{[a,b]x,c}", "ax", true},
    {"{[a,b]x,c}", ",x", true},
    {"{[a,b]x,c}", "c", true},
    {"{[a,b]x,c}", "b", false},
    // With no alternative that leads to a match, and without an end: itself.
    {"{a,b}", "{a,b}", true},
    {"{a", "{a", true},
    {"{a", "a", false},
    {"{a,b}c", "{a,b}c", true},
    {"{a[b}c]", "{ac", true},
    {"{{a,b}", "{a", true},
    {"{{a,b}", "b", true},
    {"{{a,b}", "{b", true},
    {"{?,b}", "{x,b}", true},
    {"{*,b}", "{anything,b}", true},
    {"{a,b}{c,d}", "bd", true},
    {"{a,b}{c,d}", "b", false},
};
INSTANTIATE_TEST_SUITE_P(Alternatives, BothMatchers, testing::ValuesIn(kAlternatives));

struct WideRow {
    const wchar_t* mask;
    const wchar_t* text;
    bool matches;
};

class WideMatcher : public testing::TestWithParam<WideRow> {};

TEST_P(WideMatcher, FoldsByItsOwnTable) {
    EXPECT_EQ(WildMatchWide(GetParam().mask, GetParam().text), GetParam().matches);
}

constexpr WideRow kWide[] = {
    {L"Ä*", L"äx", true},
    {L"ж", L"Ж", true},
    {L"[а-в]", L"Б", true},
    {L"[а-в]", L"Д", false},
    {L"[^а-в]", L"Б", false},
    // Micro sign and Greek mu have one upper case form, and so have s and long s.
    {L"[\u03bc]", L"\u00b5", true},
    {L"[p-t]", L"\u017f", true},
    {L"[\u0170-\u0180]", L"S", true},
    {L"[\u0170-\u0180]", L"T", false},
    // Above the first plane: in no set, but in every inverted one; plain and '?' as ever.
    {L"[\U0001F600]", L"\U0001F600", false},
    {L"[a-\U0001F600]", L"\U0001F600", false},
    {L"[a-\U0001F600]", L"\u4e00", true},
    {L"[^a]", L"\U0001F600", true},
    {L"[^\U0001F600]", L"\U0001F600", true},
    {L"[^a^b]", L"\U0001F600", true},
    {L"\U0001F600", L"\U0001F600", true},
    {L"?", L"\U0001F600", true},
    {L"\U00010428", L"\U00010400", true},
    // An open range ends at 255 here too.
    {L"[a-]", L"\u00ff", true},
    {L"[a-]", L"\u4e00", false},
    {L"[\u00e9-]", L"\u00ff", true},
};
INSTANTIATE_TEST_SUITE_P(Wide, WideMatcher, testing::ValuesIn(kWide));

TEST(WildMatchWide, TakesRawBytesForTheCharactersTheyShow) {
    const Westring name = NameFromBytes("caf\xE9.txt");  // é as one byte of Latin-1
    EXPECT_TRUE(WildMatchWide(L"café.*", name.c_str()));
    EXPECT_TRUE(WildMatchWide(L"CAFÉ.*", name.c_str()));
    EXPECT_TRUE(WildMatchWide(L"caf[é].*", name.c_str()));
    EXPECT_TRUE(WildMatchWide(L"caf[\u00e0-\u00f0].*", name.c_str()));
    EXPECT_FALSE(WildMatchWide(L"caf[^é].*", name.c_str()));
    EXPECT_FALSE(WildMatchWide(L"cafe.*", name.c_str()));
    EXPECT_TRUE(WildMatchWide(name.c_str(), L"café.txt"));
}

TEST(WildMatch, TakesMinusAsAMemberBehindAByteAbove127) {
    EXPECT_TRUE(WildMatch("[\xE9-z]", "-"));
    EXPECT_TRUE(WildMatch("[\xE9-z]", "z"));
    EXPECT_FALSE(WildMatch("[\xE9-z]", "\xF0"));
    EXPECT_TRUE(WildMatch("[a-\xE9]", "\xE0"));
    EXPECT_FALSE(WildMatch("[a-\xE9]", "\xF0"));
    EXPECT_TRUE(WildMatch("[a-]", "\xFF"));
    EXPECT_FALSE(WildMatchWide(L"[\u00e9-z]", L"z"));  // a range that is empty
    EXPECT_FALSE(WildMatchWide(L"[\u00e9-z]", L"-"));
}

TEST(WildMatch, TakesTheCaseOfTheLocale) {
    ASSERT_TRUE(setlocale(LC_ALL, "de_DE.ISO-8859-1") || setlocale(LC_ALL, "de_DE"));
    EXPECT_TRUE(WildMatch("\xE4", "\xC4"));
    EXPECT_TRUE(WildMatch("[\xE4]", "\xC4"));
    setlocale(LC_ALL, "C");
    EXPECT_FALSE(WildMatch("\xE4", "\xC4"));
}

// The rules word by word, for random masks; far too slow for long ones.
bool Slow(const std::string& mask, const std::string& text, size_t m = 0, size_t t = 0);

bool InSlowSet(const std::string& members, char ch) {
    bool flags[256];
    size_t i = members.size() > 0 && members[0] == '^' ? 1 : 0;
    bool sense = i == 0;
    std::fill(std::begin(flags), std::end(flags), i == 1);
    int previous = 0;
    for (; i < members.size(); i++) {
        if (members[i] == '^') {
            sense = !sense;
        } else if (members[i] == '-') {
            int last = i + 1 < members.size() ? members[++i] : 255;
            for (int c = previous; c <= last; c++)
                flags[tolower(c)] = sense;
            previous = last;
        } else {
            flags[tolower(members[i])] = sense;
            previous = members[i];
        }
    }
    return flags[tolower(ch)];
}

// One '?', set or plain character at m against the text at t; m goes behind it.
bool SlowOne(const std::string& mask, size_t& m, const std::string& text, size_t t) {
    const char ch = t < text.size() ? text[t] : '\0';
    const size_t end = mask[m] == '[' ? mask.find(']', m) : std::string::npos;
    if (end != std::string::npos) {
        const std::string members = mask.substr(m + 1, end - m - 1);
        m = end + 1;
        return ch && InSlowSet(members, ch);
    }
    const char want = mask[m++];
    return ch && (want == '?' || toupper(want) == toupper(ch));
}

bool SlowList(const std::string& mask, const std::string& text, size_t m, size_t t) {
    size_t end = m + 1;
    for (size_t unused = 0; end < mask.size() && mask[end] != '}';)
        SlowOne(mask, end, text, unused);
    if (end >= mask.size()) return false;
    for (size_t p = m + 1; p < end; p++) {
        bool holds = true;
        size_t at = t;
        while (p < end && mask[p] != ',') {
            const bool fits = SlowOne(mask, p, text, at);
            holds = holds && fits;
            at++;
        }
        if (holds && Slow(mask, text, end + 1, at)) return true;
    }
    return false;
}

bool Slow(const std::string& mask, const std::string& text, size_t m, size_t t) {
    while (m < mask.size()) {
        if (mask[m] == '*') {
            for (size_t i = t; i <= text.size(); i++) {
                if (Slow(mask, text, m + 1, i)) return true;
            }
            return false;
        }
        if (mask[m] == '{' && SlowList(mask, text, m, t)) return true;
        if (!SlowOne(mask, m, text, t)) return false;
        t++;
    }
    return t == text.size();
}

TEST(WildMatch, AgreesWithTheRulesTakenWordByWord) {
    std::mt19937 random(20240506);
    const std::string alphabet = "ab*?[]{},-^";
    auto make = [&](const std::string& from, size_t most) {
        std::string made(random() % (most + 1), ' ');
        for (char& ch : made)
            ch = from[random() % from.size()];
        return made;
    };
    int matched = 0;
    for (int i = 0; i < 200000; i++) {
        const std::string mask = make(alphabet, 11);
        const std::string text = make(i % 2 ? "ab" : "aB{,}-", 7);
        const bool expected = Slow(mask, text);
        matched += expected;
        ASSERT_EQ(WildMatch(mask.c_str(), text.c_str()), expected) << mask << " on " << text;
        ASSERT_EQ(WildMatchWide(Westring(mask.c_str()).c_str(), Westring(text.c_str()).c_str()),
                  expected)
            << mask << " on " << text;
    }
    EXPECT_GT(matched, 2000);  // or the comparison would say little
}

// Each of these would take longer than the life of the machine by trying every way.
TEST(WildMatch, EndsSoonForMasksOfManyChoices) {
    std::string stars, lists;
    for (int i = 0; i < 60; i++) {
        stars += "*a";
        lists += "{a,aa}";
    }
    const std::string text(250, 'a');
    EXPECT_FALSE(WildMatch((stars + "b").c_str(), text.c_str()));
    EXPECT_TRUE(WildMatch(stars.c_str(), text.c_str()));
    EXPECT_FALSE(WildMatch((lists + "b").c_str(), text.c_str()));
    EXPECT_TRUE(WildMatch(lists.c_str(), text.substr(0, 100).c_str()));
    EXPECT_FALSE(WildMatch(lists.c_str(), text.c_str()));
    EXPECT_FALSE(WildMatch((stars + lists + stars + "b").c_str(), text.c_str()));
    EXPECT_FALSE(WildMatch(std::string(4000, '{').append("a}").c_str(), text.c_str()));
    EXPECT_FALSE(WildMatch(std::string(4000, '[').append("a").c_str(), text.c_str()));
}

}  // namespace
}  // namespace zt
