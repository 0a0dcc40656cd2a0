// Comparing names, and the same order as bytes.
#include "panels/sort_key.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "foundation/file_name.h"

namespace zt {
namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

struct NameRow {
    const wchar_t* a;
    const wchar_t* b;
    int plain;
    int natural;
};

constexpr NameRow kNameRows[] = {
    {L"", L"", 0, 0},
    {L"", L"a", -1, -1},
    {L"a", L"A", 0, 0},
    {L"ä", L"Ä", 0, 0},
    {L"a", L"ab", -1, -1},
    {L"b", L"ab", 1, 1},
    {L"_a", L"a", -1, -1},
    {L"_a", L"0", -1, -1},
    {L"_a", L" a", -1, -1},
    {L"a_b", L"a.b", -1, -1},
    {L"file9", L"file10", 1, -1},
    {L"file10", L"file9b", -1, 1},
    {L"a01", L"a1", -1, 0},
    {L"a01b", L"a1c", -1, -1},
    {L"a001", L"a01", -1, 0},
    {L"1a", L"a1", -1, -1},
    {L"5", L"/", 1, 1},
    {L"5", L":", -1, -1},
    {L"10", L":", -1, -1},
    {L"x4294967296", L"x1", 1, 1},  // the difference has no 32-bit form
    {L"x1", L"x4294967297", -1, -1},
    {L"x99999999999999999999", L"x99999999999999999998", 1, 0},  // both count as the largest
    {L"Я", L"я", 0, 0},
    {L"z", L"я", -1, -1},
    {L"\U0001F600", L"я", 1, 1},
};

TEST(SortKey, ComparesNamesInBothForms) {
    for (const NameRow& row : kNameRows) {
        EXPECT_EQ(Sign(CompareNames(row.a, row.b, false)), row.plain) << row.a << " " << row.b;
        EXPECT_EQ(Sign(CompareNames(row.b, row.a, false)), -row.plain) << row.b << " " << row.a;
        EXPECT_EQ(Sign(CompareNames(row.a, row.b, true)), row.natural) << row.a << " " << row.b;
        EXPECT_EQ(Sign(CompareNames(row.b, row.a, true)), -row.natural) << row.b << " " << row.a;
    }
}

TEST(SortKey, GivesTheDifferenceOfKeysOrNumbers) {
    EXPECT_EQ(CompareNames(L"a", L"d", false), -3);
    EXPECT_EQ(CompareNames(L"_", L"B", false), 1 - 'B');
    EXPECT_EQ(CompareNames(L"n17", L"n9", true), 8);
}

TEST(SortKey, SortsARawByteAsTheCharacterOfItsValue) {
    const Westring raw = NameFromBytes("\xE9");        // no UTF-8
    const Westring whole = NameFromBytes("\xC3\xA9");  // U+00E9
    ASSERT_NE(raw[0], whole[0]);
    EXPECT_EQ(CompareNames(raw.c_str(), whole.c_str(), false), 0);
    EXPECT_EQ(ToSortKey(raw[0]), L'\u00C9');
}

TEST(SortKey, FindsTheExtension) {
    EXPECT_STREQ(ExtensionOf(L"a.b.c"), L"c");
    EXPECT_STREQ(ExtensionOf(L"abc"), L"");
    EXPECT_STREQ(ExtensionOf(L"abc."), L"");
    EXPECT_STREQ(ExtensionOf(L".profile"), L"profile");
}

int CompareBytes(const std::wstring& a, const std::wstring& b, bool natural) {
    std::vector<uint8_t> bytesA, bytesB;
    AppendSortBytes(a.c_str(), natural, bytesA);
    AppendSortBytes(b.c_str(), natural, bytesB);
    for (const auto* bytes : {&bytesA, &bytesB}) {
        for (const uint8_t byte : *bytes)
            EXPECT_NE(byte, 0);
    }
    return (bytesA > bytesB) - (bytesA < bytesB);
}

TEST(SortKey, BytesCompareAsNamesDo) {
    for (const NameRow& row : kNameRows) {
        EXPECT_EQ(CompareBytes(row.a, row.b, false), row.plain) << row.a << " " << row.b;
        EXPECT_EQ(CompareBytes(row.a, row.b, true), row.natural) << row.a << " " << row.b;
    }
    std::mt19937 random(1);
    const std::wstring letters =
        L"aAbB_019.-/:ÄäЯ\x7F\x80\x7FF\x800\xFFFF\x10000\U0010FFFF\x1100E9";
    const auto name = [&] {
        std::wstring text;
        for (auto n = random() % 7; n > 0; --n)
            text += letters[random() % letters.size()];
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::wstring a = name(), b = name();
        for (const bool natural : {false, true}) {
            ASSERT_EQ(CompareBytes(a, b, natural),
                      Sign(CompareNames(a.c_str(), b.c_str(), natural)))
                << "round " << i << (natural ? " natural" : " plain");
        }
    }
}

}  // namespace
}  // namespace zt
