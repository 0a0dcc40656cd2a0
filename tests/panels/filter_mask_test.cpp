// Masks made ready match what the matcher itself matches.
#include "panels/filter_mask.h"

#include <gtest/gtest.h>

#include <random>

#include "foundation/file_name.h"
#include "foundation/wild_match.h"

namespace zt {
namespace {

TEST(FilterMask, MatchesByItsPieces) {
    const struct {
        const wchar_t* mask;
        const wchar_t* name;
        bool matches;
    } rows[] = {
        {L"", L"", true},
        {L"", L"a", false},
        {L"*", L"", true},
        {L"**", L"", true},
        {L"*", L"abc", true},
        {L"abc", L"ABC", true},
        {L"abc", L"abcd", false},
        {L"abcd", L"abc", false},
        {L"a*", L"a", true},
        {L"*a", L"a", true},
        {L"a*a", L"a", false},
        {L"a*a", L"aa", true},
        {L"ab*ba", L"aba", false},
        {L"ab*ba", L"abba", true},
        {L"*.txt", L"a.txt", true},
        {L"*.txt", L".txt", true},
        {L"*.txt", L"atxt", false},
        {L"*b*", L"abc", true},
        {L"*b*", L"acc", false},
        {L"*b*c*", L"cb", false},
        {L"a*b*c", L"axbxc", true},
        {L"a*b*c", L"axbxcx", false},
        {L"*ab*ab", L"abab", true},
        {L"*ab*ab", L"aab", false},
        {L"?", L"", false},
        {L"?", L"a", true},
        {L"*?", L"", false},
        {L"*?", L"a", true},
        {L"?*?", L"a", false},
        {L"?*?", L"ab", true},
        {L"*.?", L"a.c", true},
        {L"*.?", L"a.cc", false},
        {L"*a?c*", L"xabcx", true},
        {L"*aab*", L"aaab", true},
        {L"\u00E9*", L"\u00C9t\u00E9", true},
        {L"*\u0131", L"I", true},
        {L"*[ab]", L"xb", true},
        {L"{a,b}*", L"bx", true},
        {L"*[ab", L"x[ab", true},
        {L"*?\u00E9", L"x\x1100E9", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FilterMask(row.mask).Matches(row.name), row.matches)
            << Westring(row.mask).ToUtf8().c_str() << " " << Westring(row.name).ToUtf8().c_str();
        EXPECT_EQ(WildMatchWide(row.mask, row.name), row.matches)
            << Westring(row.mask).ToUtf8().c_str() << " " << Westring(row.name).ToUtf8().c_str();
    }
}

TEST(FilterMask, MatchesByItsAlternatives) {
    const struct {
        const wchar_t* mask;
        const wchar_t* name;
        bool matches;
    } rows[] = {
        {L"*.{c,h}", L"a.C", true},
        {L"*.{c,h}", L"a.o", false},
        {L"*.{c,h}", L"a.{c,h}", true},
        {L"A{,X}d", L"ad", true},
        {L"A{,X}d", L"axd", true},
        {L"A{X,}d", L"ad", false},
        {L"a{}b", L"ab", false},
        {L"a{}b", L"a{}b", true},
        {L"a{b", L"a{b", true},
        {L"{a*,b}c", L"a*c", true},
        {L"{a*,b}c", L"axc", false},
        {L"{a*,b}c", L"{ax,b}c", true},
        {L"{[a-c],?x}*", L"b", true},
        {L"{[a-c],?x}*", L"d", false},
        {L"{[,],y}", L",", true},
        {L"{a,b}{c,d}", L"bc", true},
        {L"{a,b}{c,d}", L"ba", false},
        {L"[a-m]*[0-9]", L"b7", true},
        {L"[^a-m]*", L"b7", false},
        {L"[^a-m]*", L"\u0416", true},
        {L"[]x]", L"x]", false},
        {L"{a}{a}{a}{a}{a}{a}{a}", L"aaaaaaa", true},
        {L"{a,b,c,d}{a,b,c,d}{a,b,c,d}{a,b,c,d}*", L"dcbaz", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FilterMask(row.mask).Matches(row.name), row.matches)
            << Westring(row.mask).ToUtf8().c_str() << " " << Westring(row.name).ToUtf8().c_str();
        EXPECT_EQ(WildMatchWide(row.mask, row.name), row.matches)
            << Westring(row.mask).ToUtf8().c_str() << " " << Westring(row.name).ToUtf8().c_str();
    }
}

TEST(FilterMask, FoldsEachCharacterAsTheMatcherDoes) {
    for (int code = 1; code < 0x600; ++code) {
        const wchar_t mask[] = {static_cast<wchar_t>(code), L'*', 0};
        const FilterMask ready(mask);
        if (code == '[' || code == '{') continue;
        for (const int other : {code, code ^ 0x20, code + 1, code - 1, code + 0x50}) {
            const wchar_t name[] = {static_cast<wchar_t>(other), 0};
            EXPECT_EQ(ready.Matches(name), WildMatchWide(mask, name)) << code << " " << other;
        }
    }
}

TEST(FilterMask, MatchesWhatTheMatcherMatches) {
    std::mt19937 random(20);
    const auto pick = [&](const std::wstring& from, size_t longest) {
        std::wstring text(random() % (longest + 1), L' ');
        for (wchar_t& ch : text)
            ch = from[random() % from.size()];
        return text;
    };
    int matches = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::wstring mask = pick(L"aAb*?*.\u00E9[]{,}-^{,}", i % 3 ? 8 : 20);
        const std::wstring name = pick(L"aAbB.\u00E9\u00C9\x1100E9[", 10);
        const bool wanted = WildMatchWide(mask.c_str(), name.c_str());
        ASSERT_EQ(FilterMask(mask.c_str()).Matches(name.c_str()), wanted)
            << Westring(mask.c_str()).ToUtf8().c_str() << "   "
            << NameToBytes(name.c_str()).c_str();
        matches += wanted;
    }
    EXPECT_GT(matches, 500);
}

}  // namespace
}  // namespace zt
