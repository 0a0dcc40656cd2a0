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

// What printf prints of one word of a command.
std::string AsTheShellTakes(const Westring& word) {
    const std::string command = std::string("printf '%s|' ") + word.ToUtf8().c_str();
    const std::unique_ptr<FILE, decltype(&pclose)> pipe(popen(command.c_str(), "r"), &pclose);
    char output[100] = {};
    const size_t n = pipe ? fread(output, 1, sizeof output - 1, pipe.get()) : 0;
    return {output, n};
}

TEST(ShellEscape, GivesOneWordToTheShell) {
    for (const wchar_t* text : {L"a b", L"$(x)", L"it's", L"new\nline", L"\\back", L"\"q\"",
                                L"x;y&z|w", L"{a}[b]<c>", L"#!~`", L"q'\n'q"}) {
        EXPECT_EQ(std::string(Westring(text).ToUtf8().c_str()) + "|",
                  AsTheShellTakes(ShellEscape(text)));
    }
}

TEST(ShellWord, LetsNoPatternAndNoOptionThrough) {
    for (const wchar_t* text :
         {L"*", L"?", L"a*b", L"tab\there", L"cr\r", L"^x^y", L"it's *", L"plain", L"a b"}) {
        EXPECT_EQ(std::string(Westring(text).ToUtf8().c_str()) + "|",
                  AsTheShellTakes(ShellWord(text)));
    }
    EXPECT_STREQ(L"./-rf", ShellWord(L"-rf").c_str());
    EXPECT_STREQ(L"./-\\*", ShellWord(L"-*").c_str());
    EXPECT_STREQ(L"", ShellWord(L"").c_str());
}

}  // namespace
}  // namespace zt
