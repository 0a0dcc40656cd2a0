// The case table: single characters, what is left alone, the system's opinion, and its making.
#include "foundation/case_fold.h"

#include <unistd.h>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwctype>

#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

namespace zt {
namespace {

struct CaseRow {
    wchar_t code, lower, upper;
};
constexpr CaseRow kCases[] = {
    {L'A', L'a', L'A'},
    {L'z', L'z', L'Z'},
    {L'5', L'5', L'5'},
    {0xE9, 0xE9, 0xC9},
    {0xDF, 0xDF, 0xDF},  // sharp s has no single capital
    {0xFF, 0xFF, 0x178},
    {0x130, L'i', 0x130},  // dotted capital i
    {0x131, 0x131, L'I'},
    {0x1C5, 0x1C6, 0x1C4},  // a title-case letter has both
    {0x416, 0x436, 0x416},
    {0x3C2, 0x3C2, 0x3A3},  // final sigma
    {0x10D0, 0x10D0, 0x1C90},
    {0x1E9E, 0xDF, 0x1E9E},
    {0x2C62, 0x26B, 0x2C62},
    {0xA64A, 0xA64B, 0xA64A},
    {0xFF21, 0xFF41, 0xFF21},
    {0x10400, 0x10428, 0x10400},
    {0x1044F, 0x1044F, 0x10427},
    {0x10450, 0x10450, 0x10450},
    {0x104B0, 0x104D8, 0x104B0},
    {0x10C80, 0x10C80, 0x10C80},  // beyond the pages
    {0x1E900, 0x1E900, 0x1E900},
    {0x4E00, 0x4E00, 0x4E00},
    {0x20041, 0x20041, 0x20041},
    {0x1100E9, 0x1100E9, 0x1100E9},
    {-1, -1, -1},
    {0, 0, 0},
};

TEST(CaseTable, MapsSimpleCases) {
    for (const CaseRow& row : kCases) {
        EXPECT_EQ(LowerCaseOf(row.code), row.lower) << std::hex << static_cast<long>(row.code);
        EXPECT_EQ(UpperCaseOf(row.code), row.upper) << std::hex << static_cast<long>(row.code);
    }
}

TEST(CaseTable, AgreesWithTheSystem) {
    locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (locale == nullptr) GTEST_SKIP() << "no locale C.UTF-8 here";
    int mapped = 0;
    for (wchar_t code = 1; code < 0x10500; code++) {
        auto wide = static_cast<wint_t>(code);
        auto lower = static_cast<wchar_t>(towlower_l(wide, locale));
        auto upper = static_cast<wchar_t>(towupper_l(wide, locale));
        // The system has its own ways with the few letters that have a title case.
        bool hasTitleCase = (code >= 0x1C4 && code <= 0x1CC) || (code >= 0x1F1 && code <= 0x1F3) ||
                            (code >= 0x1F80 && code <= 0x1FFC);
        // Georgian small letters have capitals that the system does not use.
        bool georgian = (code >= 0x10D0 && code <= 0x10FF) || (code >= 0x1C90 && code <= 0x1CBF);
        bool otherView = hasTitleCase || georgian || code == 0x130 || code == 0x131;
        if (otherView) continue;
        ASSERT_EQ(LowerCaseOf(code), lower) << std::hex << static_cast<long>(code);
        ASSERT_EQ(UpperCaseOf(code), upper) << std::hex << static_cast<long>(code);
        mapped += lower != code || upper != code;
    }
    EXPECT_GT(mapped, 2000);
    freelocale(locale);
}

TEST(CaseTable, IsMadeOnceByManyThreads) {
    std::vector<std::thread> threads;
    std::vector<const CUnicodeCaseFold*> seen(8);
    for (auto& instance : seen) {
        threads.emplace_back([&instance] { instance = &CUnicodeCaseFold::Instance(); });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const CUnicodeCaseFold* instance : seen)
        EXPECT_EQ(instance, seen[0]);
}

std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// The folder of the sources, by the name under which this file was compiled.
std::string SourceRoot() {
    std::string file = __FILE__;
    return file.substr(0, file.rfind("/tests/foundation/"));
}

TEST(CaseTable, IsWhatItsToolMakes) {
    std::string root = SourceRoot();
    std::string committed = ContentOf(root + "/foundation/case_table.inc");
    ASSERT_FALSE(committed.empty()) << root;
    if (access("/usr/share/unicode/UnicodeData.txt", R_OK) != 0) {
        GTEST_SKIP() << "package unicode-data is not installed";
    }
    std::string command = "'" + root + "/tools/make_case_table.py'";
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string made;
    char piece[4096];
    for (size_t n; (n = fread(piece, 1, sizeof piece, pipe)) > 0;)
        made.append(piece, n);
    ASSERT_EQ(pclose(pipe), 0) << "python3 and Blocks.txt are needed";
    std::string madeVersion = made.substr(0, made.find('\n'));
    std::string committedVersion = committed.substr(0, committed.find('\n'));
    if (madeVersion != committedVersion) {
        GTEST_SKIP() << "the installed data is another version: " << madeVersion;
    }
    EXPECT_TRUE(made == committed) << "run tools/make_case_table.py > foundation/case_table.inc";
}

}  // namespace
}  // namespace zt
