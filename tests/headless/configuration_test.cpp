// Settings through the whole program: the file, its messages, the dialogs, saving.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class ConfigurationInUse : public testing::Test {
protected:
    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }
    void Settings(const char* text) { home.File(".ztx/zt.ini", text); }
    std::string Saved() { return home.Content(".ztx/zt.ini"); }

    // The n-th entry of the Options menu, from 1.
    static void ChooseOption(Session& session, const char* quickKey) {
        session.Press("F9");
        session.Type("o");
        session.Type(quickKey);
    }

    FileTree tree;
    FileTree home;
};

TEST_F(ConfigurationInUse, IsReadAtTheStart) {
    tree.File("plain").File(".hidden");
    tree.Time("plain", UtcTime(2020, 2, 3, 15, 4));
    Settings("Hidden=on\nTimeMode=24\nRightStyle=unix\nStartupSide=R\nLeftSort=rname\n");
    Session session(Here());
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_EQ(5u, Fields(PanelView(session, 1).Line(1)).size());
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", ".hidden", "plain"));
    EXPECT_EQ("15:04", PanelView(session, 0).FieldsOf("plain")[3]);
}

TEST_F(ConfigurationInUse, SortsNumbersByValueWhereThatIsWanted) {
    tree.File("file10").File("file9");
    Session plain(Here());
    EXPECT_THAT(PanelView(plain, 0).Names(), ElementsAre("..", "file10", "file9"));
    Settings("NaturalSort=on\n");
    Session natural(Here());
    EXPECT_THAT(PanelView(natural, 0).Names(), ElementsAre("..", "file9", "file10"));
}

TEST_F(ConfigurationInUse, TellsOfABadDirectiveWithItsLine) {
    Settings("Hidden=on\nd5=/tmp\nd55=x\n");
    SessionOptions options = Here();
    options.waitForPanels = false;
    Session session(options);
    EXPECT_TRUE(session.WaitForText("Bad directive (d55) in zt.ini, line 3"));
    session.Press("Enter");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    EXPECT_EQ("Hidden=on\nd5=/tmp\nd55=x\n", Saved());
}

TEST_F(ConfigurationInUse, BelongsToTheProgramsName) {
    tree.File(".hidden");
    Settings("Hidden=off\n");
    home.File(".ztx/xy.ini", "Hidden=on\n");
    SessionOptions options = Here();
    options.name = "/usr/bin/xy-remote";
    Session session(options);
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", ".hidden"));
}

TEST_F(ConfigurationInUse, ComesFromTheFileOnTheCommandLine) {
    tree.File(".hidden");
    home.File("my.ini", "Hidden=on\n");
    SessionOptions options = Here();
    options.arguments = {home.PathOf("my.ini")};
    Session session(options);
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", ".hidden"));
    session.Press("Shift-F9");
    EXPECT_THAT(home.Content("my.ini"), HasSubstr("Hidden=on\n"));
    EXPECT_FALSE(home.Exists(".ztx"));
}

TEST_F(ConfigurationInUse, IsSavedWithThePanelsAsTheyAre) {
    Session session(Here());
    session.Press({"Alt-Shift-F5", "Ctrl-F5", "Shift-F9"});
    const std::string saved = Saved();
    EXPECT_THAT(saved, HasSubstr("LeftStyle=unix\n"));
    EXPECT_THAT(saved, HasSubstr("LeftSort=time\n"));
    EXPECT_THAT(saved, HasSubstr("RightStyle=full\n"));
    EXPECT_FALSE(home.Exists(".ztx/zt.!!!"));
    Session again(Here());
    EXPECT_EQ(5u, Fields(PanelView(again, 0).Line(0)).size());
}

TEST_F(ConfigurationInUse, IsSavedAtTheEndWhereThatIsWanted) {
    for (const bool wanted : {true, false}) {
        Settings(wanted ? "AutoSave=on\n" : "AutoSave=off\n");
        Session session(Here());
        session.Press("Alt-Shift-F3");
        session.Press("F10");
        session.Press("Enter");
        EXPECT_TRUE(session.WaitForEnd());
        EXPECT_EQ(wanted, Saved().find("LeftStyle=wide\n") != std::string::npos);
    }
}

TEST_F(ConfigurationInUse, KeepsRulesAddedByHandButNotOptions) {
    Settings("[Associations]\n*.txt:less !f\n");
    Session session(Here());
    home.File(".ztx/zt.ini",
              "[Associations]\n*.txt:less !f\n*.c:cc !f\n[General Options]\nHidden=on\n");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("*.c: cc !f\n"));
    EXPECT_THAT(Saved(), HasSubstr("Hidden=off\n"));
}

TEST_F(ConfigurationInUse, TheDialogChangesSettingsWithOk) {
    Session session(Here());
    ChooseOption(session, "c");
    EXPECT_TRUE(session.WaitForText(" Configuration "));
    EXPECT_THAT(session.Text(), HasSubstr("Separate Session Prefix:"));
    session.Press("Alt-2");
    session.Press("Alt-u");
    session.Press("Enter");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("TimeMode=24\n"));
    EXPECT_THAT(Saved(), HasSubstr("NaturalSort=on\n"));
}

TEST_F(ConfigurationInUse, TheDialogChangesNothingWithEsc) {
    Session session(Here());
    ChooseOption(session, "c");
    session.Type("viewer of mine");
    session.Press("Alt-2");
    session.Press("Esc");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("TimeMode=12\n"));
    EXPECT_THAT(Saved(), HasSubstr("Viewer=\n"));
}

TEST_F(ConfigurationInUse, TheDialogResizesTheScreen) {
    Session session(Here());
    ChooseOption(session, "c");
    session.Press("Alt-n");
    session.Type("40");
    session.Press("Alt-o");
    session.Type("100");
    session.Press("Enter");
    EXPECT_EQ(40, session.Rows());
    EXPECT_EQ(100, session.Columns());
    EXPECT_TRUE(PanelView(session, 1).IsShown());
}

TEST_F(ConfigurationInUse, ThePathEditorEditsTheList) {
    Settings("PathAppend=/a:/b\n");
    Session session(Here());
    ChooseOption(session, "c");
    EXPECT_THAT(session.Text(), Not(HasSubstr(" F4=Edit ")));
    session.Press("Alt-p");
    EXPECT_THAT(session.Text(), HasSubstr(" F4=Edit "));
    session.Press("F4");
    EXPECT_THAT(session.Text(), HasSubstr(" Path Append "));
    EXPECT_THAT(session.Text(), HasSubstr("Insert Delete F4=Edit Alt-A=Append Alt-\u2191\u2193"));
    session.Press("Alt-a");
    session.Type("/c");
    session.Press("Enter");
    session.Press("Ins");
    session.Type("/dropped");
    session.Press("Esc");
    session.Press({"Home", "Alt-Down"});
    session.Press({"Home", "F4"});
    session.Type("/x");
    session.Press("Enter");
    session.Press("End");
    session.Press("Enter");
    session.Press("Enter");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("PathAppend=/x:/a:/c:/b\n"));
}

TEST_F(ConfigurationInUse, ThePathEditorDeletesAndEscDropsAll) {
    Settings("PathAppend=/a:/b:/c\n");
    Session session(Here());
    ChooseOption(session, "c");
    session.Press("Alt-p");
    session.Press({"F4", "Del", "Esc"});
    session.Press({"F4", "Down", "Del", "Alt-Up", "Enter"});
    session.Press("Enter");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("PathAppend=/c:/a\n"));
}

TEST_F(ConfigurationInUse, ConfirmationsAreKeptAsBits) {
    Session session(Here());
    ChooseOption(session, "n");
    EXPECT_TRUE(session.WaitForText(" Confirmations "));
    EXPECT_THAT(session.Text(), HasSubstr("\"YES\" prompt for Non-Empty Directory"));
    session.Type(" ");
    session.Press({"Down", "Down", "Down"});
    session.Type(" ");
    session.Press("Enter");
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("Confirmations=9\n"));
    session.Press("F10");
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

TEST_F(ConfigurationInUse, ConfirmationsStayAsTheyWereWithEsc) {
    Settings("Confirmations=2\n");
    Session session(Here());
    ChooseOption(session, "n");
    session.Type(" ");
    session.Press({"Esc", "Shift-F9"});
    EXPECT_THAT(Saved(), HasSubstr("Confirmations=2\n"));
}

TEST_F(ConfigurationInUse, ColoursAreChangedAtOnceAndSaved) {
    Session session(Here());
    ChooseOption(session, "o");
    EXPECT_TRUE(session.WaitForText(" Zanthe Colours "));
    session.Type("f");
    session.Press({"Enter", "Shift-F9"});
    EXPECT_EQ(0x1C, session.AttributeAt(0, 0));
    EXPECT_THAT(Saved(), HasSubstr("Colours=28 "));
}

TEST_F(ConfigurationInUse, AnUnreadableFileIsToldAndTheDefaultsStand) {
    home.Folder(".ztx/zt.ini");
    SessionOptions options = Here();
    options.waitForPanels = false;
    Session session(options);
    EXPECT_TRUE(session.WaitForText("Is a directory"));
    session.Press("Enter");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
}

TEST_F(ConfigurationInUse, StoredPathsAreStoredAndFound) {
    tree.Folder("here").Folder("there");
    Session session(Here());
    session.Press("Ctrl-Shift-Num3");
    session.Press({"Down", "Enter"});
    EXPECT_EQ(tree.PathOf("here"), PanelView(session, 0).Title());
    session.Press("Ctrl-Num3");
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
    session.Press("Ctrl-Num4");
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
    session.Press("Shift-F9");
    EXPECT_THAT(Saved(), HasSubstr("d3=" + tree.Path() + "\n"));
}

TEST_F(ConfigurationInUse, AStoredPathThatIsGoneIsTold) {
    Settings("d1=/no/such/place\nd2=~/\n");
    Session session(Here());
    session.Press("Ctrl-Num1");
    EXPECT_THAT(session.Text(), HasSubstr("Invalid Directory"));
    EXPECT_THAT(session.Text(), HasSubstr("/no/such/place"));
    session.Press("Enter");
    session.Press("Ctrl-Num2");
    EXPECT_EQ(home.Path(), PanelView(session, 0).Title());
}

}  // namespace
}  // namespace zt::headless
