// What the shell makes of escaped text is the text itself.
#include "foundation/shell_text.h"

#include <cstdio>
#include <memory>
#include <string>

namespace zt {
namespace {

TEST(ShellEscape, PutsABackslashBeforeEachSpecialCharacter) {
    EXPECT_STREQ(L"plain-name_1.txt", ShellEscape(L"plain-name_1.txt").c_str());
    EXPECT_STREQ(L"a\\ b", ShellEscape(L"a b").c_str());
    EXPECT_STREQ(L"\\$\\(x\\)\\;\\&\\|\\#\\!\\~\\`", ShellEscape(L"$(x);&|#!~`").c_str());
    EXPECT_STREQ(L"\\[\\]\\{\\}\\<\\>\\'\\\"\\\\", ShellEscape(L"[]{}<>'\"\\").c_str());
    EXPECT_STREQ(L"", ShellEscape(L"").c_str());
}

TEST(ShellEscape, QuotesATextWithALineFeed) {
    EXPECT_STREQ(L"'a\nb'", ShellEscape(L"a\nb").c_str());
    EXPECT_STREQ(L"'a\n'\\''b'", ShellEscape(L"a\n'b").c_str());
}

TEST(ShellEscape, GivesOneWordToTheShell) {
    for (const wchar_t* text : {L"a b", L"$(x)", L"it's", L"new\nline", L"\\back", L"\"q\"",
                                L"x;y&z|w", L"{a}[b]<c>", L"#!~`", L"q'\n'q"}) {
        const std::string command =
            std::string("printf '%s|' ") + ShellEscape(text).ToUtf8().c_str();
        const std::unique_ptr<FILE, decltype(&pclose)> pipe(popen(command.c_str(), "r"), &pclose);
        ASSERT_NE(nullptr, pipe);
        char output[100] = {};
        const size_t n = fread(output, 1, sizeof output - 1, pipe.get());
        EXPECT_EQ(std::string(Westring(text).ToUtf8().c_str()) + "|", std::string(output, n));
    }
}

}  // namespace
}  // namespace zt
