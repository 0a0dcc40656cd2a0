// What a session leaves behind for the next: the personal files of zt-remote are those of zt.
#include <fstream>

#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SettingsThatLast : public testing::Test {
protected:
    SessionOptions InHome() {
        SessionOptions options;
        options.home = home.Path();
        options.directory = tree.Path();
        return options;
    }

    FileTree home;
    FileTree tree;
};

TEST_F(SettingsThatLast, StandInTheFileOfTheWindowProgram) {
    Session session(InHome());
    EXPECT_FALSE(home.Exists(".ztx/zt.ini"));
    session.Press("Shift-F9");
    ASSERT_TRUE(home.Exists(".ztx/zt.ini")) << session.Text();
    EXPECT_THAT(home.Content(".ztx/zt.ini"), HasSubstr("[General Options]"));
    EXPECT_THAT(home.Names(".ztx"), ElementsAre("zt.ini"));
}

TEST_F(SettingsThatLast, FollowTheNameOfTheProgram) {
    SessionOptions options = InHome();
    options.name = "/usr/bin/other-remote";
    Session session(options);
    session.Press("Shift-F9");
    EXPECT_THAT(home.Names(".ztx"), ElementsAre("other.ini"));
}

TEST_F(SettingsThatLast, BringThePanelsBackAsTheyWere) {
    tree.FileOfSize("small", 1).FileOfSize("large", 9).Folder("sub");
    std::string before;
    {
        Session session(InHome());
        session.Press({"Ctrl-F6", "Alt-Shift-F5", "Tab", "Alt-Shift-F3", "Shift-F9"});
        before = session.Text();
    }
    Session session(InHome());
    EXPECT_EQ(before, session.Text());
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "sub", "large", "small"));
}

TEST_F(SettingsThatLast, AreReadFromTheFileOnTheCommandLine) {
    tree.File("own.ini", "[General Options]\nLeftStyle=unix\nStartupSide=R\n")
        .Mode("own.ini", 0640);
    SessionOptions options = InHome();
    options.arguments = {"own.ini"};
    Session session(options);
    EXPECT_TRUE(PanelView(session, 1).IsActive());
    EXPECT_EQ("rw-r-----", PanelView(session, 0).FieldsOf("own.ini").at(2)) << session.Text();
    session.Press("Shift-F9");
    EXPECT_FALSE(home.Exists(".ztx/zt.ini"));
    EXPECT_THAT(tree.Content("own.ini"), HasSubstr("AutoSave="));
}

TEST_F(SettingsThatLast, AreLeftAloneWhenTheSessionJustEnds) {
    home.File(".ztx/zt.ini", "[General Options]\nClock=off\n; by hand\n");
    const std::string before = home.Content(".ztx/zt.ini");
    {
        Session session(InHome());
        session.Press({"Ctrl-F5", "F10"});
        session.Send(KeyPress("Enter"));
        ASSERT_TRUE(session.WaitForEnd());
    }
    EXPECT_EQ(before, home.Content(".ztx/zt.ini"));
}

}  // namespace
}  // namespace zt::headless
