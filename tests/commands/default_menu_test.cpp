// The menu and the rules that come with the program, as its own readers see them.
#include <sys/wait.h>

#include <fstream>
#include <set>

#include "commands/command_template.h"
#include "commands/menu_file.h"
#include "panels/filter_compiled.h"
#include "tests/commands/configuration_fixture.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

constexpr char kMenu[] = ZT_DATA "/zt.mnu";
constexpr char kRules[] = ZT_DATA "/associations.ini";

// Whether every macro character has something behind it that a template knows, and what is asked
// is closed.
bool IsWellFormed(const std::string& text) {
    for (size_t i = 0; i < text.size(); i++) {
        if (text[i] != '!') continue;
        const char next = i + 1 < text.size() ? text[i + 1] : ' ';
        const size_t close = text.find('}', i);
        const bool asks = next == '{' && close != std::string::npos && close > i + 2;
        if (!asks && std::string("fbepdDoOtTlL!").find(next) == std::string::npos) return false;
        i++;
    }
    return true;
}

// Whether the shell takes the text for commands, without running any.
testing::AssertionResult IsForTheShell(const std::string& command) {
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "/bin/sh", "-n", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    if (waitpid(child, &status, 0) == child && status == 0) return testing::AssertionSuccess();
    return testing::AssertionFailure() << command;
}

class DefaultMenu : public PanelFixture {
protected:
    void SetUp() override {
        for (const char* name :
             {"x.tar.gz", "x.zip", "x.gz", "x.xz", "x.bz2", "$(odd) 'name", "-x", "a\nb"})
            tree.File(name);
        Start();
    }
    std::string Expand(const Westring& text, const Westring& name) {
        const TemplateSource source{left, right, [](const Westring&, Westring& answer) {
                                        answer = L"answer";
                                        return true;
                                    }};
        CommandTemplate command(text);
        TemporaryLists lists;
        EXPECT_TRUE(command.ExpandCommon(source, lists));
        return NameToBytes(command.ExpandFor(source, name)).c_str();
    }
    testing::AssertionResult IsRight(const Westring& text) {
        const std::string bytes = NameToBytes(text).c_str();
        if (!IsWellFormed(bytes)) return testing::AssertionFailure() << bytes;
        for (int i = 0; i < left.Count(); i++) {
            const testing::AssertionResult result =
                IsForTheShell(Expand(text, left.entries.At(i)->name));
            if (!result) return result;
        }
        return testing::AssertionSuccess();
    }
    // Each key once in a menu, and each entry with what it is there for.
    void CheckMenu(MenuStore& menu) {
        std::set<int32_t> keys;
        EXPECT_GT(menu.Count(), 0);
        for (int i = 0; i < menu.Count(); i++) {
            const MenuEntry& e = *menu.Peek(i);
            const std::string text = NameToBytes(e.text).c_str();
            EXPECT_FALSE(text.empty());
            EXPECT_TRUE(keys.insert(e.key).second) << text;
            EXPECT_EQ(e.subMenu == nullptr, e.commands.Count() > 0) << text;
            if (seen.insert(text).second) {
                for (int k = 0; k < e.commands.Count(); k++)
                    EXPECT_TRUE(IsRight(*e.commands.Peek(k)));
            }
            if (e.subMenu) CheckMenu(*e.subMenu);
        }
    }
    // For each file of the panel under the cursor, and for none.
    void CheckAllMenus() {
        for (int i = -1; i < left.Count(); i++) {
            MenuStore menu;
            ASSERT_TRUE(ReadMenuFile(NameFromBytes(kMenu), left.entries.At(i), menu));
            CheckMenu(menu);
        }
    }

    std::set<std::string> seen;  // the descriptions
};

// No line is passed over: each that is meant as an entry is one for some file.
TEST_F(DefaultMenu, IsReadWholeAndFitsTheShell) {
    CheckAllMenus();
    std::ifstream file(kMenu);
    int entries = 0;
    for (std::string line; std::getline(file, line);) {
        const bool isNone = line.empty() || line == "{" || line == "}" || line[0] == '\t';
        if (isNone || line.rfind("//", 0) == 0) continue;
        const size_t colon = line.find(": ");
        ASSERT_NE(colon, std::string::npos) << line;
        EXPECT_TRUE(seen.count(line.substr(colon + 2))) << line;
        entries++;
    }
    EXPECT_GT(entries, 40);
}

TEST_F(DefaultMenu, OfAnArchiveHasItsCommands) {
    const struct {
        const char* name;
        const char* text;
    } rows[] = {{"x.tar.gz", "Unpack with tar"},  {"x.zip", "Unpack with unzip"},
                {"x.gz", "Unpack with gunzip"},   {"x.xz", "Unpack with unxz"},
                {"x.bz2", "Unpack with bunzip2"}, {"-x", "none"}};
    for (const auto& row : rows) {
        MenuStore menu;
        ASSERT_TRUE(ReadMenuFile(NameFromBytes(kMenu), Find(left, row.name), menu));
        std::string found = "none";
        for (int i = 0; i < menu.Count(); i++) {
            if (menu.Peek(i)->key == 'X') found = NameToBytes(menu.Peek(i)->text).c_str();
        }
        EXPECT_EQ(found, row.text) << row.name;
    }
}

// Checks rules as the program does.
struct CheckingHost : NotingHost {
    bool CheckRule(const Westring& mask, Westring& error) override {
        CompiledFilter filter(mask);
        if (filter.EvaluateName(L"test") >= 0) return true;
        error = filter.errorText;
        return false;
    }
};

TEST_F(DefaultMenu, ComesWithRulesThatAreReadWhole) {
    CheckingHost host;
    Configuration target;
    ConfigurationReader reader(true, host, target);
    std::ifstream file(kRules);
    int expected = 0;
    bool inRules = false;
    for (std::string line; std::getline(file, line);) {
        inRules = inRules || line.rfind('[', 0) == 0;
        if (inRules && !line.empty() && line[0] != '[') expected++;
        reader.TakeLine(line.c_str());
    }
    EXPECT_THAT(host.messages, testing::IsEmpty());
    int count = 0;
    for (const RuleList list : {kRunRules, kViewerRules}) {
        AssociationSet& set = target.rules[list];
        EXPECT_GT(set.Count(), 5);
        count += set.Count();
        for (int i = 0; i < set.Count(); i++) {
            EXPECT_TRUE(CommandTemplate(set.Peek(i)->command).NamesFiles()) << i;
            EXPECT_TRUE(IsRight(set.Peek(i)->command));
        }
    }
    EXPECT_EQ(count, expected);
}

}  // namespace
}  // namespace zt
