// Rules as lines of text.
#include "commands/rule_line.h"

#include <gtest/gtest.h>

#include "foundation/file_name.h"

namespace zt {
namespace {

struct RuleRow {
    const char* line;
    bool mayBeMultiple;
    const char* mask;
    const char* command;
    bool multiple;
    const char* written;
};

constexpr RuleRow kRules[] = {
    {"*.txt: less !", true, "*.txt", "less !", false, "*.txt: less !"},
    {"*.txt:less !", true, "*.txt", "less !", false, "*.txt: less !"},
    {"*.txt  ::  less !", true, "*.txt", "less !", true, "*.txt:: less !"},
    {"*.txt::less", false, "*.txt", ":less", false, "*.txt: :less"},
    {"*.txt: :less", true, "*.txt", ":less", false, "*.txt: :less"},
    {"*.txt:::less", true, "*.txt", ":less", true, "*.txt:: :less"},
    {"%size>1k & *.c: a:b", true, "%size>1k & *.c", "a:b", false, "%size>1k & *.c: a:b"},
    {":", true, "", "", false, ": "},
    {"::", true, "", "", true, ":: "},
    {"*.\xE4: \xE4", true, "*.\xE4", "\xE4", false, "*.\xE4: \xE4"},
};

TEST(RuleLine, IsCutAtItsFirstColon) {
    for (const RuleRow& row : kRules) {
        SCOPED_TRACE(row.line);
        Association rule;
        ASSERT_TRUE(ParseRuleLine(row.line, row.mayBeMultiple, rule));
        EXPECT_STREQ(NameToBytes(rule.mask).c_str(), row.mask);
        EXPECT_STREQ(NameToBytes(rule.command).c_str(), row.command);
        EXPECT_EQ(rule.multiple, row.multiple);
        EXPECT_STREQ(RuleLine(rule).c_str(), row.written);
    }
}

TEST(RuleLine, IsReadBackAsItWasWritten) {
    for (const RuleRow& row : kRules) {
        Association rule, again;
        ASSERT_TRUE(ParseRuleLine(row.line, row.mayBeMultiple, rule));
        ASSERT_TRUE(ParseRuleLine(RuleLine(rule), row.mayBeMultiple, again));
        EXPECT_STREQ(again.mask.c_str(), rule.mask.c_str());
        EXPECT_STREQ(again.command.c_str(), rule.command.c_str());
        EXPECT_EQ(again.multiple, rule.multiple);
    }
}

TEST(RuleLine, RefusesALineWithoutColon) {
    Association rule;
    EXPECT_FALSE(ParseRuleLine("", true, rule));
    EXPECT_FALSE(ParseRuleLine("*.txt = less", true, rule));
}

}  // namespace
}  // namespace zt
