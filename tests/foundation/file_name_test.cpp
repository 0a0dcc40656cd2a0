// Names that come from the file system and go back to it: no byte of any name may change.
#include "foundation/file_name.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <vector>

namespace zt {
namespace {

using Codes = std::vector<uint32_t>;

Codes CodesOf(const Westring& text) {
    Codes codes;
    for (int i = 0; i < text.Length(); i++) {
        codes.push_back(static_cast<uint32_t>(static_cast<wchar_t>(text[i])));
    }
    return codes;
}

constexpr uint32_t Raw(uint32_t byte) {
    return 0x110000 + byte;
}

struct NameRow {
    const char* bytes;
    Codes codes;
};
const NameRow kNames[] = {
    {"", {}},
    {"plain name", {'p', 'l', 'a', 'i', 'n', ' ', 'n', 'a', 'm', 'e'}},
    {"\x01\n\x7F", {1, '\n', 0x7F}},
    {"\xC3\xA9", {0xE9}},
    {"\xE9", {Raw(0xE9)}},  // Latin-1
    {"\xE9"
     "a",
     {Raw(0xE9), 'a'}},
    {"\x80", {Raw(0x80)}},  // no lead before it
    {"\xC2\x80", {0x80}},   // the least of two bytes
    {"\xDF\xBF", {0x7FF}},
    {"\xC0\x80", {Raw(0xC0), Raw(0x80)}},  // overlong
    {"\xC1\xBF", {Raw(0xC1), Raw(0xBF)}},
    {"\xE0\x9F\xBF", {Raw(0xE0), Raw(0x9F), Raw(0xBF)}},
    {"\xE0\xA0\x80", {0x800}},
    {"\xED\x9F\xBF", {0xD7FF}},
    {"\xED\xA0\x80", {Raw(0xED), Raw(0xA0), Raw(0x80)}},  // surrogates
    {"\xED\xBF\xBF", {Raw(0xED), Raw(0xBF), Raw(0xBF)}},
    {"\xEE\x80\x80", {0xE000}},
    {"\xEF\xBF\xBF", {0xFFFF}},
    {"\xF0\x8F\xBF\xBF", {Raw(0xF0), Raw(0x8F), Raw(0xBF), Raw(0xBF)}},
    {"\xF0\x90\x80\x80", {0x10000}},
    {"\xF4\x8F\xBF\xBF", {0x10FFFF}},
    {"\xF4\x90\x80\x80", {Raw(0xF4), Raw(0x90), Raw(0x80), Raw(0x80)}},  // above U+10FFFF
    {"\xF4\x90\x83\xA9", {Raw(0xF4), Raw(0x90), Raw(0x83), Raw(0xA9)}},  // a private code's form
    {"\xF5\x80\x80\x80", {Raw(0xF5), Raw(0x80), Raw(0x80), Raw(0x80)}},
    {"\xFE\xFF", {Raw(0xFE), Raw(0xFF)}},
    {"\xE2\x82", {Raw(0xE2), Raw(0x82)}},  // cut short
    {"\xE2\x82"
     "a",
     {Raw(0xE2), Raw(0x82), 'a'}},
    {"\xE2\xE2\x82\xAC", {Raw(0xE2), 0x20AC}},
    {"\xF0\x9F\x98", {Raw(0xF0), Raw(0x9F), Raw(0x98)}},
    {"12345678\xE9"
     "12345678",
     {'1', '2', '3', '4', '5', '6', '7', '8', Raw(0xE9), '1', '2', '3', '4', '5', '6', '7', '8'}},
};

TEST(FileNames, DecodeOnlyWellFormedSequences) {
    for (const NameRow& row : kNames) {
        Westring name = NameFromBytes(row.bytes);
        EXPECT_EQ(CodesOf(name), row.codes) << row.bytes;
        EXPECT_STREQ(NameToBytes(name).c_str(), row.bytes);
        EXPECT_STREQ(NameToBytes(name.c_str()).c_str(), row.bytes);
    }
}

TEST(FileNames, NullIsEmpty) {
    EXPECT_EQ(NameFromBytes(nullptr).Length(), 0);
    EXPECT_EQ(NameToBytes(static_cast<const wchar_t*>(nullptr)).Length(), 0);
}

// Decodes into a target that has exactly the promised room, and compares both forms.
void ExpectRoundTrip(const std::string& bytes) {
    std::vector<wchar_t> exact(bytes.size() + 1, L'?');
    int stored = NameFromBytes(bytes.c_str(), exact.data());
    ASSERT_LE(static_cast<size_t>(stored), bytes.size());
    ASSERT_EQ(exact[static_cast<size_t>(stored)], 0);
    Westring name = NameFromBytes(bytes.c_str());
    ASSERT_STREQ(name.c_str(), exact.data());
    ASSERT_EQ(name.Length(), stored);
    ASSERT_EQ(NameToBytes(name).c_str(), bytes);
}

TEST(FileNames, EveryPairOfBytesComesBack) {
    for (unsigned a = 1; a < 256; a++) {
        for (unsigned b = 1; b < 256; b++) {
            ExpectRoundTrip({static_cast<char>(a), static_cast<char>(b)});
        }
    }
}

TEST(FileNames, EveryTripleOfHighBytesComesBack) {
    for (unsigned a = 0xC0; a < 256; a++) {
        for (unsigned b = 0x70; b < 256; b++) {
            for (unsigned c : {0x01u, 0x7Fu, 0x80u, 0x9Fu, 0xA0u, 0xBFu, 0xC0u, 0xFFu}) {
                ExpectRoundTrip({static_cast<char>(a), static_cast<char>(b), static_cast<char>(c)});
            }
        }
    }
}

TEST(FileNames, RandomNamesComeBack) {
    std::minstd_rand engine(11);
    auto random = [&engine] { return static_cast<unsigned>(engine() >> 4); };
    for (int round = 0; round < 5000; round++) {
        std::string bytes;
        for (size_t n = random() % 300; n > 0; n--) {
            unsigned kind = random() % 3;
            unsigned byte = kind == 0   ? 1 + random() % 255
                            : kind == 1 ? 0x80 + random() % 0x80
                                        : 'a' + random() % 26;
            bytes += static_cast<char>(byte);
        }
        ExpectRoundTrip(bytes);
    }
}

TEST(FileNames, LookAlikesStayTwo) {
    Westring proper = NameFromBytes("\xC3\xA9");
    Westring raw = NameFromBytes("\xE9");
    EXPECT_STRNE(proper.c_str(), raw.c_str());
    EXPECT_TRUE(proper != raw);
    EXPECT_STREQ(ShownText(proper).c_str(), ShownText(raw).c_str());
}

TEST(FileNames, PrivateCodesShowAsTheirByte) {
    EXPECT_FALSE(IsRawByte(0x11007F));
    EXPECT_TRUE(IsRawByte(0x110080));
    EXPECT_TRUE(IsRawByte(0x1100FF));
    EXPECT_FALSE(IsRawByte(0x110100));
    EXPECT_FALSE(IsRawByte(0xE9));
    EXPECT_EQ(ShownCharacter(0x1100E9), 0xE9);
    EXPECT_EQ(ShownCharacter(0x20AC), 0x20AC);
    EXPECT_STREQ(ShownText(NameFromBytes("a\xE9\xFF")).c_str(), L"a\u00E9\u00FF");
}

TEST(FileNames, SurviveAWayThroughUtf8) {
    // The settings and histories keep names as UTF-8 text of the private codes.
    Westring name = NameFromBytes("a\xE9\xC3\xA9");
    Westring back(name.ToUtf8().c_str());
    EXPECT_STREQ(NameToBytes(back).c_str(), "a\xE9\xC3\xA9");
}

TEST(FileNames, CutPathsAtSlashesOnly) {
    const struct {
        const char* path;
        const char* parent;
        const char* name;
    } rows[] = {
        {"/a/b", "/a", "b"},
        {"/a", "/", "a"},
        {"/", "/", ""},
        {"a/b", "a", "b"},
        {"a", "", "a"},
        {"", "", ""},
        {"/a/b/", "/a/b", ""},
        {"/a\\b", "/", "a\\b"},
        {"/x/a\\b/c", "/x/a\\b", "c"},
        {"/x/c:/d", "/x/c:", "d"},
        {"c:/x", "c:", "x"},
        {"/x/...", "/x", "..."},
        {"//a", "/", "a"},
        {"/\xE9/\xE9", "/\xE9", "\xE9"},
    };
    for (const auto& row : rows) {
        const Westring path = NameFromBytes(row.path);
        EXPECT_STREQ(NameToBytes(ParentOfPath(path)).c_str(), row.parent) << row.path;
        EXPECT_STREQ(NameToBytes(NameOfPath(path)).c_str(), row.name) << row.path;
    }
}

TEST(FileNames, ReachTheFileSystem) {
    char folder[] = "/tmp/zt-names-XXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    Westring path = NameFromBytes(folder);
    for (const char* name : {"\xE9", "\xC3\xA9", "\xFF\xFE", "new\nline", "\xED\xA0\x80"}) {
        Westring full = path + L"/" + NameFromBytes(name);
        int file = open(NameToBytes(full).c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600);
        EXPECT_GE(file, 0) << name;
        close(file);
        struct stat status;
        EXPECT_EQ(stat((std::string(folder) + "/" + name).c_str(), &status), 0) << name;
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zt
