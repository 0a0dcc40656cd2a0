// Westring's conversions: UTF-8 both ways, Latin-1, UTF-16 and code pages.
#include <vector>

#include "foundation/code_page.h"
#include "foundation/westring.h"

namespace zt {
namespace {

std::vector<uint32_t> Codes(const Westring& text) {
    std::vector<uint32_t> codes;
    for (int i = 0; i < text.Length(); i++) {
        codes.push_back(static_cast<uint32_t>(static_cast<wchar_t>(text[i])));
    }
    return codes;
}

struct DecodingRow {
    const char* bytes;
    bool wellFormed;
    std::vector<uint32_t> codes;
};

const DecodingRow kDecodings[] = {
    {"", true, {}},
    {"az\x01\x7F", true, {'a', 'z', 1, 0x7F}},
    {"\xC3\xA9", true, {0xE9}},
    {"\xE2\x82\xAC", true, {0x20AC}},
    {"\xF0\x9F\x98\x80", true, {0x1F600}},
    {"\xE9"
     "a",
     false,
     {0xE9, 'a'}},                      // Latin-1 stays readable
    {"\xA9", false, {0xA9}},            // a continuation without a lead
    {"\xC3", false, {0xC3}},            // cut short at the end
    {"\xE2\x82", false, {0xE2, 0x82}},  // only the lead is taken as itself
    {"\xE2\x82"
     "a",
     false,
     {0xE2, 0x82, 'a'}},
    {"\xF0\x9F\x98", false, {0xF0, 0x9F, 0x98}},
    {"\xC3\xC3\xA9", false, {0xC3, 0xE9}},  // decoding goes on at the next byte
    {"\xF8\x88\x80\x80\x80", false, {0xF8, 0x88, 0x80, 0x80, 0x80}},
    {"\xFF", false, {0xFF}},
    {"\xC1\x81", true, {0x41}},  // overlong forms are taken
    {"\xE0\x81\x81", true, {0x41}},
    {"\xED\xA0\x80", true, {0xD800}},  // and so are surrogates
    {"\xF7\xBF\xBF\xBF", true, {0x1FFFFF}},
    {"a\xC0\x80"
     "b",
     false,
     {'a', 0xFFFFFFFF, 'b'}},  // an overlong NUL
    {"\xF0\x80\x80\x80", false, {0xFFFFFFFF}},
};

TEST(WestringUtf8, Decodes) {
    for (const DecodingRow& row : kDecodings) {
        Westring text(L"what was there before");
        EXPECT_EQ(text.AssignUtf8(row.bytes), row.wellFormed) << row.bytes;
        EXPECT_EQ(Codes(text), row.codes) << row.bytes;
        EXPECT_EQ(Codes(Westring(row.bytes)), row.codes) << row.bytes;
        EXPECT_EQ(Codes(Westring(Estring(row.bytes))), row.codes) << row.bytes;
    }
}

TEST(WestringUtf8, DecodesSoManyBytes) {
    Westring text;
    EXPECT_TRUE(text.AssignUtf8("\xC3\xA9z", 2));
    EXPECT_STREQ(text.c_str(), L"\u00E9");
    EXPECT_FALSE(text.AssignUtf8("\xC3\xA9", 1)) << "the byte behind the end does not count";
    EXPECT_STREQ(text.c_str(), L"\u00C3");
    EXPECT_TRUE(text.AssignUtf8("ab\0cd", 5));
    EXPECT_EQ(text.Length(), 2);
    EXPECT_TRUE(text.AssignUtf8(nullptr));
    EXPECT_EQ(text.Length(), 0);
    EXPECT_TRUE(text.AssignUtf8("abc", -1));
    EXPECT_EQ(text.Length(), 0);
}

TEST(WestringUtf8, SizesTheTargetByTheBytes) {
    Westring text;
    std::string thirty;
    for (int i = 0; i < 30; i++)
        thirty += "\xC3\xA9";
    text.AssignUtf8(thirty.c_str());
    EXPECT_EQ(text.Length(), 30);
    EXPECT_EQ(text.Capacity(), 61);
}

TEST(WestringUtf8, Encodes) {
    struct {
        std::vector<uint32_t> codes;
        const char* bytes;
    } rows[] = {
        {{'a', 0x7F}, "a\x7F"},          {{0x80}, "\xC2\x80"},
        {{0x7FF}, "\xDF\xBF"},           {{0x800}, "\xE0\xA0\x80"},
        {{0xD800}, "\xED\xA0\x80"},      {{0xFFFF}, "\xEF\xBF\xBF"},
        {{0x10000}, "\xF0\x90\x80\x80"}, {{0x1FFFFF}, "\xF7\xBF\xBF\xBF"},
        {{0xFFFFFFFF}, "\xFF"},          {{0xFFFFFFE9}, "\xE9"},
    };
    for (const auto& row : rows) {
        Westring text;
        for (uint32_t code : row.codes)
            text += static_cast<wchar_t>(code);
        EXPECT_STREQ(text.ToUtf8().c_str(), row.bytes);
    }
}

TEST(WestringUtf8, RoundTripsEveryCodePoint) {
    Westring text;
    for (wchar_t code = 1; code < 0x110000; code += code < 0x11000 ? 1 : 977)
        text += code;
    Westring back;
    EXPECT_TRUE(back.AssignUtf8(text.ToUtf8().c_str()));
    EXPECT_STREQ(back.c_str(), text.c_str());
}

TEST(WestringUtf8, LatinOneDoesNotSurvive) {
    EXPECT_STREQ(Westring("\xE9"
                          "a")
                     .ToUtf8()
                     .c_str(),
                 "\xC3\xA9"
                 "a");
}

TEST(WestringNarrow, CutsAndWidens) {
    EXPECT_STREQ(Westring(L"a\u00E9\u0141").ToNarrow().c_str(), "a\xE9\x41");
    EXPECT_STREQ(Westring::FromWiden("a\xE9\xFF").c_str(), L"a\u00E9\u00FF");
}

TEST(WestringUtf16, JoinsSurrogatePairs) {
    const uint16_t pair[] = {'a', 0xD83D, 0xDE00, 'b', 0};
    EXPECT_EQ(Codes(Westring::FromUtf16(pair)), (std::vector<uint32_t>{'a', 0x1F600, 'b'}));
    const uint16_t lone[] = {0xD83D, 'a', 0xDE00, 0xD83D, 0};
    EXPECT_EQ(Codes(Westring::FromUtf16(lone)),
              (std::vector<uint32_t>{0xD83D, 'a', 0xDE00, 0xD83D}));
    const uint16_t none[] = {0};
    EXPECT_EQ(Westring::FromUtf16(none).Length(), 0);
    EXPECT_EQ(Westring::FromUtf16(nullptr).Length(), 0);
}

TEST(CodePages, HaveIconvNames) {
    EXPECT_STREQ(CodePageName(878).c_str(), "KOI8-R");
    EXPECT_STREQ(CodePageName(20866).c_str(), "KOI8-R");
    EXPECT_STREQ(CodePageName(819).c_str(), "ISO-8859-1");
    EXPECT_STREQ(CodePageName(1252).c_str(), "CP1252");
}

TEST(CodePages, Decode) {
    struct {
        int codePage;
        const char* bytes;
        bool clean;
        const wchar_t* expected;
    } rows[] = {
        {437, "\xC9\x81z", true, L"\u2554\u00FCz"},
        {819, "\xE9", true, L"\u00E9"},
        {878, "\xC1", true, L"\u0430"},
        {1252, "\x80", true, L"\u20AC"},
        {1252,
         "a\x81"
         "b\x81",
         false, L"a\u2302b\u2302"},
        {932, "\x82\xA0", true, L"\u3042"},
        {932, "a\x82", false, L"a\u2302"},  // half a character at the end
        {1255, "a\xE0", true, L"a\u05D0"},  // a letter that might have taken a point
        {437, "", true, L""},
    };
    for (const auto& row : rows) {
        Westring text(L"before");
        EXPECT_EQ(Westring::FromCodePage(row.bytes, row.codePage, text), row.clean) << row.codePage;
        EXPECT_STREQ(text.c_str(), row.expected) << row.codePage;
    }
}

TEST(CodePages, RefuseAnUnknownOne) {
    Westring text(L"before");
    EXPECT_FALSE(Westring::FromCodePage("abc", 99999, text));
    EXPECT_EQ(text.Length(), 0);
    EXPECT_STREQ(Westring(L"abc").ToCodePage(99999).c_str(), "");
}

TEST(CodePages, Encode) {
    EXPECT_STREQ(Westring(L"\u2554\u00FC").ToCodePage(437).c_str(), "\xC9\x81");
    EXPECT_STREQ(Westring(L"ab\u3042"
                          L"c")
                     .ToCodePage(437)
                     .c_str(),
                 "ab");
    EXPECT_STREQ(Westring(L"\u3042\u3042").ToCodePage(932).c_str(), "\x82\xA0")
        << "only as many bytes as characters";
    EXPECT_STREQ(Westring(L"").ToCodePage(437).c_str(), "");
}

}  // namespace
}  // namespace zt
