// Templates of commands: each macro, and what the shell makes of the names.
#include "commands/command_template.h"

#include <unistd.h>

#include <fstream>
#include <iterator>

#include "panels/cursor_movement.h"
#include "panels/tagging.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class CommandTemplateTest : public PanelFixture {
protected:
    void SetUp() override {
        for (const char* folder : {"here", "there"})
            tree.Folder(folder);
        for (const char* file : {"here/a b.tar.gz", "here/-x", "here/n.rc", "there/other one"})
            tree.File(file);
        Start("here", "there");
        ASSERT_TRUE(PutCursor(left, "a b.tar.gz"));
        ASSERT_TRUE(PutCursor(right, "other one"));
    }
    static bool PutCursor(CPanel& panel, const char* name) {
        const int index = panel.entries.Find(NameFromBytes(name).c_str());
        if (index < 0) return false;
        PlaceCursor(panel, index);
        return true;
    }
    TemplateSource Source() {
        return {left, right, [this](const Westring& prompt, Westring& answer) {
                    asked = NameToBytes(prompt).c_str();
                    answer = userAnswer.c_str();
                    return userAnswers;
                }};
    }
    // For the entry under the left panel's cursor.
    std::string Expand(const std::string& text) { return Expand(text, left.Current()->name); }
    std::string Expand(const std::string& text, const Westring& name) {
        CommandTemplate command(NameFromBytes(text.c_str()));
        if (!command.ExpandCommon(Source(), lists)) return "cancelled";
        return NameToBytes(command.ExpandFor(Source(), name)).c_str();
    }
    std::string Here() { return NameToBytes(left.path).c_str(); }
    std::string There() { return NameToBytes(right.path).c_str(); }
    void Tag(const char* name) {
        TagEntry(left, left.entries.Find(NameFromBytes(name).c_str()), TagMode::kSet);
    }

    TemporaryLists lists;
    std::string asked;
    std::string userAnswer;
    bool userAnswers = true;
};

TEST_F(CommandTemplateTest, ExpandsTheMacrosOfAFile) {
    EXPECT_EQ(Expand("[!f]"), "[a\\ b.tar.gz]");
    EXPECT_EQ(Expand("[!b]"), "[a\\ b.tar]");
    EXPECT_EQ(Expand("[!e]"), "[gz]");
    EXPECT_EQ(Expand("[!p]"), "[" + Here() + "/a\\ b.tar.gz]");
}

TEST_F(CommandTemplateTest, CutsNamesAtTheLastDot) {
    EXPECT_EQ(Expand("[!b][!e]", L"plain"), "[plain][]");
    EXPECT_EQ(Expand("[!b][!e]", L".rc"), "[][rc]");
    EXPECT_EQ(Expand("[!b][!e]", L"end."), "[end][]");
    EXPECT_EQ(Expand("!e", L"a.*b"), "\\*b");
    EXPECT_EQ(Expand("!e", L"a.--x?"), "--x\\?");
}

TEST_F(CommandTemplateTest, ANameWithADashInFrontIsNoOption) {
    EXPECT_EQ(Expand("!f", L"-x"), "./-x");
    EXPECT_EQ(Expand("!b", L"-x.c"), "./-x");
    EXPECT_EQ(Expand("!p", L"-x"), Here() + "/-x");
    Tag("-x");
    EXPECT_EQ(Expand("!t"), "./-x");
}

TEST_F(CommandTemplateTest, ExpandsThePanels) {
    EXPECT_EQ(Expand("!d"), Here());
    EXPECT_EQ(Expand("!D"), There());
    EXPECT_EQ(Expand("!o"), "other\\ one");
    EXPECT_EQ(Expand("!O"), There() + "/other\\ one");
}

TEST_F(CommandTemplateTest, TakesTheTaggedEntriesOrElseTheCurrentOne) {
    EXPECT_EQ(Expand("!t|!T"), "a\\ b.tar.gz|" + Here() + "/a\\ b.tar.gz");
    Tag("n.rc");
    Tag("-x");
    EXPECT_EQ(Expand("!t"), "./-x n.rc");
    EXPECT_EQ(Expand("!T"), Here() + "/-x " + Here() + "/n.rc");
}

TEST_F(CommandTemplateTest, ListsNamesInAFileThatGoes) {
    Tag("n.rc");
    Tag("-x");
    std::string path;
    {
        TemporaryLists own;
        CommandTemplate command(L"!L");
        ASSERT_TRUE(command.ExpandCommon(Source(), own));
        path = NameToBytes(command.ExpandFor(Source(), Westring())).c_str();
        std::ifstream in(path);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}),
                  Here() + "/-x\n" + Here() + "/n.rc\n");
    }
    EXPECT_NE(access(path.c_str(), F_OK), 0) << path;
    const std::string names = Expand("!l");
    std::ifstream in(names);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "-x\nn.rc\n");
}

TEST_F(CommandTemplateTest, TheCommandItselfCanRemoveTheLists) {
    const std::string path = Expand("!l");
    ASSERT_EQ(access(path.c_str(), F_OK), 0);
    EXPECT_EQ(NameToBytes(lists.RemovalCommand()), Estring("rm -f -- ") + path.c_str());
    EXPECT_TRUE(lists.IsEmpty());
    EXPECT_EQ(unlink(path.c_str()), 0);
}

TEST_F(CommandTemplateTest, AsksTheUser) {
    userAnswer = "-l | wc";
    EXPECT_EQ(Expand("ls !{Options for ls:} !f"), "ls -l | wc a\\ b.tar.gz");
    EXPECT_EQ(asked, "Options for ls:");
    EXPECT_EQ(Expand("!{}"), "-l | wc");
    EXPECT_EQ(asked, "");
    userAnswers = false;
    EXPECT_EQ(Expand("ls !{Options}"), "cancelled");
}

TEST_F(CommandTemplateTest, LeavesEverythingElseAsItStands) {
    for (const char* text : {"", "!", "a!", "!x!", "!{open", "100%", "!1", "! f"})
        EXPECT_EQ(Expand(text), text) << text;
    EXPECT_EQ(Expand("!!f"), "!f");
    EXPECT_EQ(Expand("!!!!"), "!!");
    EXPECT_EQ(Expand("!!!f"), "!a\\ b.tar.gz");
}

TEST_F(CommandTemplateTest, DoesNotExpandWhatAnExpansionBrought) {
    userAnswer = "!f !d";
    EXPECT_EQ(Expand("!{?}"), "!f !d");
    tree.File("here/!f");
    GoTo(*panels, 0, Westring());
    Tag("!f");
    EXPECT_EQ(Expand("!t !f", L"x"), "\\!f x");
}

TEST_F(CommandTemplateTest, FollowsTheCharacterOfTheSettings) {
    settings.cmdChar = '%';
    EXPECT_EQ(Expand("%f !f %%"), "a\\ b.tar.gz !f %");
}

TEST_F(CommandTemplateTest, KnowsWhetherItNamesFiles) {
    const struct {
        const wchar_t* text;
        bool file;
        bool any;
    } rows[] = {
        {L"ls", false, false},   {L"x !f", true, true},   {L"!b", true, true},
        {L"!e", true, true},     {L"!p", true, true},     {L"!t", false, true},
        {L"!T", false, true},    {L"!l", false, true},    {L"!L", false, true},
        {L"!d!D", false, false}, {L"!o!O", false, false}, {L"!!f", false, false},
        {L"!{f}", false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CommandTemplate(row.text).HasFileMacros(), row.file)
            << Westring(row.text).ToUtf8().c_str();
        EXPECT_EQ(CommandTemplate(row.text).NamesFiles(), row.any)
            << Westring(row.text).ToUtf8().c_str();
    }
    CommandTemplate viewer(L"less");
    viewer.AppendFileName();
    EXPECT_STREQ(viewer.ExpandFor(Source(), L"a b").c_str(), L"less a\\ b");
}

TEST_F(CommandTemplateTest, WithoutEntriesNamesAreEmpty) {
    left.entries.Clear();
    right.entries.Clear();
    EXPECT_EQ(Expand("[!t][!o][!O][!f][!p]", Westring()), "[][][][][]");
}

}  // namespace
}  // namespace zt
