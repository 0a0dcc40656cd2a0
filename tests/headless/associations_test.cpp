// What Enter, the viewer keys and the editor keys do with a file, by rules and settings.
#include "tests/headless/box_rows.h"
#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class Associations : public CommandRuns {
protected:
    SessionOptions With(const std::string& configuration) {
        home.File("own.ini", configuration);
        SessionOptions options = InTree();
        options.arguments = {home.PathOf("own.ini")};
        return options;
    }
    // Puts the cursor on the entry.
    static void GoTo(Session& session, const std::string& name) {
        session.Press("Home");
        for (int i = 0; i < 30 && PanelView(session, 0).BarName() != name; i++)
            session.Press("Down");
        ASSERT_EQ(PanelView(session, 0).BarName(), name);
    }
    static void Run(Session& session, const std::string& name, std::string_view key) {
        GoTo(session, name);
        session.Press(key);
        EXPECT_TRUE(WaitForPanels(session));
    }
    static void OpenMenuWith(Session& session, const char* entry) {
        session.Press({"F9", "Down"});
        for (int i = 0; i < 5 && session.Text().find(entry) == std::string::npos; i++)
            session.Press("Right");
        ASSERT_THAT(session.Text(), HasSubstr(entry));
    }
    std::string Out() {
        const std::string text = tree.Exists("out") ? tree.Content("out") : "";
        tree.Remove("out");
        return text;
    }
};

TEST_F(Associations, EnterRunsTheRuleThatMatches) {
    tree.File("a b.txt").File("-x.txt").File("big", std::string(2000, 'x'));
    Session session(
        With("[Associations]\n*.txt: echo text !f > out\n%size>1k: echo big !b > out\n"));
    Run(session, "a b.txt", "Enter");
    EXPECT_EQ(Out(), "text a b.txt\n");
    Run(session, "-x.txt", "Enter");
    EXPECT_EQ(Out(), "text ./-x.txt\n");
    Run(session, "big", "Enter");
    EXPECT_EQ(Out(), "big big\n");
}

TEST_F(Associations, ARuleWithoutAPlaceForTheFileGetsItAtItsEnd) {
    tree.File("a b.txt", "content\n");
    Session session(With("[Associations]\n*.txt: cat > out\n"));
    Run(session, "a b.txt", "Enter");
    EXPECT_EQ(Out(), "content\n");
}

TEST_F(Associations, SeveralRulesMakeAMenu) {
    tree.File("x.txt");
    Session session(
        With("[Associations]\n*.txt:: echo one !f > out\n*.c:: echo c !f > out\n"
             "x*:: echo two !f > out\n*: echo plain !f > out\n*:: echo behind > out\n"));
    GoTo(session, "x.txt");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr(" Choose command "));
    EXPECT_THAT(session.Text(), HasSubstr("echo one !f > out"));
    EXPECT_THAT(session.Text(), HasSubstr("echo two !f > out"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("echo c")));
    EXPECT_THAT(session.Text(), Not(HasSubstr("plain")));
    EXPECT_THAT(session.Text(), Not(HasSubstr("behind")));
    session.Press({"Down", "Enter"});
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(Out(), "two x.txt\n");
    session.Press({"Enter", "Esc"});
    EXPECT_FALSE(tree.Exists("out"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("Choose")));
}

TEST_F(Associations, TheChoiceIsAsWideAsItsCommands) {
    tree.File("x.txt").File("x.c").File("x.h");
    Session session(
        With("[Associations]\n*.txt:: one\n*.txt:: two\n*.c:: echo 1234567890 one\n*.c:: echo\n"
             "*.h:: " +
             std::string(90, 'h') + "\n*.h:: echo\n"));
    GoTo(session, "x.txt");
    session.Press("Enter");
    EXPECT_THAT(BoxRows(session, 29, 10, 22, 4), ElementsAre("╔══ Choose command ══╗",  //
                                                             "║one                 ║",  //
                                                             "║two                 ║",  //
                                                             "╚════════════════════╝"));
    session.Press("Esc");
    GoTo(session, "x.c");
    session.Press("Enter");
    EXPECT_EQ(session.Piece(29, 11, 21), "║echo 1234567890 one ");
    session.Press("Esc");
    GoTo(session, "x.h");
    session.Press("Enter");
    EXPECT_EQ(session.Piece(2, 11, 76), "║" + std::string(74, 'h') + "║");
    session.DoubleClick(Mouse::kLeft, 5, 12);
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_THAT(BehindThePanels(session), HasSubstr("x.h"));
}

TEST_F(Associations, AMultipleRuleAloneRunsAtOnce) {
    tree.File("x.txt");
    Session session(With("[Associations]\n*.txt:: echo one !f > out\n"));
    Run(session, "x.txt", "Enter");
    EXPECT_EQ(Out(), "one x.txt\n");
}

TEST_F(Associations, ABadRuleIsReportedAndTheRestCounts) {
    tree.File("x.txt");
    SessionOptions options =
        With("[Associations]\n%foo=1: echo bad > out\n*.txt: echo good !f > out\n");
    Session session(options);
    EXPECT_THAT(session.Text(), HasSubstr("Error in association"));
    EXPECT_THAT(session.Text(), HasSubstr("Unknown operator '%foo'"));
    session.Press("Enter");
    Run(session, "x.txt", "Enter");
    EXPECT_EQ(Out(), "good x.txt\n");
}

TEST_F(Associations, AnExecutableRunsAndOtherFilesDoNot) {
    tree.File("run it*", "#!/bin/sh\necho ran > out\n").Mode("run it*", 0755).File("plain");
    Session session(With(""));
    Run(session, "run it*", "Enter");
    EXPECT_EQ(Out(), "ran\n");
    const std::string before = session.Text();
    Run(session, "plain", "Enter");
    EXPECT_FALSE(tree.Exists("out"));
}

// Also where the choice among rules is given up.
TEST_F(Associations, ARuleGoesBeforeTheExecutable) {
    for (const char* name : {"a.sh", "b.run"})
        tree.File(name, "#!/bin/sh\necho ran > out\n").Mode(name, 0755);
    Session session(
        With("[Associations]\n*.sh: echo rule !f > out\n*.run:: echo 1 > out\n"
             "*.run:: echo 2 > out\n"));
    Run(session, "a.sh", "Enter");
    EXPECT_EQ(Out(), "rule a.sh\n");
    GoTo(session, "b.run");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr(" Choose command "));
    session.Press("Esc");
    RunTyped(session, "true");
    EXPECT_FALSE(tree.Exists("out"));
}

TEST_F(Associations, ADoubleClickIsEnter) {
    tree.File("x.txt");
    Session session(With("[Associations]\n*.txt: echo clicked !f > out\n"));
    session.DoubleClick(Mouse::kLeft, 3, 2);
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(Out(), "clicked x.txt\n");
}

TEST_F(Associations, TheCommandCanAskAndBeCancelled) {
    tree.File("x.txt");
    Session session(With("[Associations]\n*.txt: echo !{Say what?} > out\n"));
    GoTo(session, "x.txt");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Say what?"));
    session.Press("Esc");
    EXPECT_FALSE(tree.Exists("out"));
    session.Press("Enter");
    session.Type("hello");
    session.Press("Enter");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(Out(), "hello x.txt\n");
}

TEST_F(Associations, ViewerKeysFollowRulesAndSettings) {
    // Of a name alone no size is known: it is none.
    tree.File("x.txt", "text").File("y.bin", "bytes");
    Session session(
        With("[General Options]\nViewer=echo viewer !f > out; :\n"
             "Viewer2=echo second !f > out; :\nEditor=echo editor !f > out; :\n"
             "Editor2=echo editor2 !f > out; :\n"
             "[Viewer Associations]\n%size>0: echo never > out\n"
             "*.bin: echo binary !f > out\n"
             "[Editor Associations]\n*.bin: echo edit-binary !f > out\n"));
    const struct {
        const char* name;
        const char* key;
        const char* out;
    } rows[] = {
        {"x.txt", "F3", "viewer x.txt\n"},      {"y.bin", "F3", "binary y.bin\n"},
        {"x.txt", "Alt-F3", "second x.txt\n"},  {"y.bin", "Alt-F3", "second y.bin\n"},
        {"x.txt", "F4", "editor x.txt\n"},      {"y.bin", "F4", "edit-binary y.bin\n"},
        {"x.txt", "Alt-F4", "editor2 x.txt\n"},
    };
    for (const auto& row : rows) {
        Run(session, row.name, row.key);
        EXPECT_EQ(Out(), row.out) << row.key;
    }
    for (const char* key : {"Ctrl-Shift-F3", "Ctrl-Shift-F4"}) {
        Run(session, "x.txt", key);
        EXPECT_FALSE(tree.Exists("out")) << key;
    }
}

TEST_F(Associations, ViewerAndEditorAskForAName) {
    tree.File("x.txt").File("sub dir/other");
    Session session(With("[General Options]\nViewer=cat !f > out; :\nEditor=touch\n"));
    GoTo(session, "x.txt");
    session.Press("Shift-F3");
    EXPECT_THAT(session.Text(), HasSubstr("View the file:"));
    EXPECT_THAT(session.Text(), HasSubstr("x.txt "));
    session.Press("Esc");
    EXPECT_FALSE(tree.Exists("out"));
    session.Press("Shift-F3");
    session.Type("sub dir/other");
    session.Press("Enter");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_TRUE(tree.Exists("out"));
    session.Press("Shift-F4");
    EXPECT_THAT(session.Text(), HasSubstr("Edit the file:"));
    session.Type("made new");
    session.Press("Enter");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_TRUE(tree.Exists("made new"));
    EXPECT_EQ(PanelView(session, 0).BarName(), "made new");
}

TEST_F(Associations, ListsOfTaggedFilesAreGoneAfterwards) {
    tree.File("1").File("2").File("x.txt");
    SessionOptions options = With("[Associations]\n*.txt: cp !l out; echo !l > name\n");
    options.environment["TMP"] = home.Path();
    Session session(options);
    session.Press({"Down", "Ins", "Ins"});
    Run(session, "x.txt", "Enter");
    EXPECT_EQ(Out(), "1\n2\n");
    const std::string list = tree.Content("name");
    EXPECT_EQ(list.rfind(home.Path() + "/ztlist.", 0), 0u) << list;
    EXPECT_THAT(home.Names(), Not(testing::Contains(testing::StartsWith("ztlist"))));
}

TEST_F(Associations, TheMenuEditsTheConfigurationAndReadsItAgain) {
    tree.File("x.txt");
    home.File("edit.sh", "echo '*.txt: echo added !f > out' >> \"$1\"\n");
    Session session(With("[General Options]\nEditor=sh ~/edit.sh\n[Associations]\n"));
    OpenMenuWith(session, "Edit Associations");
    session.Type("a");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_THAT(home.Content("own.ini"), HasSubstr("*.txt: echo added"));
    Run(session, "x.txt", "Enter");
    EXPECT_EQ(Out(), "added x.txt\n");
}

TEST_F(Associations, EditingThemLeavesUnsavedSettingsAlone) {
    Session session(With("Editor=true\nPathPrompt=off\n[Associations]\n"));
    session.Send(WireEvent{0, 0x10012F, 0, 0, 0, 0});
    ASSERT_TRUE(session.WaitForQuiet());
    const std::string prompt = session.Row(session.Rows() - 2);
    ASSERT_EQ(prompt, tree.Path() + ">");
    OpenMenuWith(session, "Edit Associations");
    session.Type("a");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(session.Row(session.Rows() - 2), prompt);
}

TEST_F(Associations, TheMenuEditsTheUserMenu) {
    Session session(With("[General Options]\nEditor=echo edited !p > out; :\n"));
    OpenMenuWith(session, "Edit User Menu");
    session.Type("m");
    EXPECT_TRUE(WaitForPanels(session));
    EXPECT_EQ(Out(), "edited " + home.PathOf("own.mnu") + "\n");
}

}  // namespace
}  // namespace zt::headless
