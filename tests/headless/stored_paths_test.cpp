// Alt-F5: the dialog of the ten stored directories.
#include "tests/headless/box_rows.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class StoredPaths : public testing::Test {
protected:
    StoredPaths() { tree.Folder("one").Folder("two/sub").File("one/a").File("one/b"); }

    SessionOptions With(const std::string& configuration) {
        home.File("own.ini", configuration);
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.arguments = {home.PathOf("own.ini")};
        options.environment["PLACE"] = tree.PathOf("two");
        return options;
    }
    static bool IsOpen(const Session& session) { return Shows(session, " Stored Paths "); }

    FileTree home;
    FileTree tree;
};

TEST_F(StoredPaths, StandInAListOfTheirOwn) {
    Session session(With("d0=/usr\nd7=/a/very/long/path\n"));
    session.Press("Alt-F5");
    EXPECT_THAT(BoxRows(session, 27, 3, 26, 12),
                ElementsAre("╔═════ Stored Paths ═════╗",  //
                            "║ 0 - /usr               ║",  //
                            "║ 1 - Empty              ║",  //
                            "║ 2 - Empty              ║",  //
                            "║ 3 - Empty              ║",  //
                            "║ 4 - Empty              ║",  //
                            "║ 5 - Empty              ║",  //
                            "║ 6 - Empty              ║",  //
                            "║ 7 - /a/very/long/path  ║",  //
                            "║ 8 - Empty              ║",  //
                            "║ 9 - Empty              ║",  //
                            "╚════════════════════════╝"));
}

TEST_F(StoredPaths, MakeTheListAsWideAsTheLongest) {
    const std::string path = "/first/" + std::string(90, 'x') + "/last";
    Session session(With("d3=" + path + "\n"));
    session.Press("Alt-F5");
    EXPECT_THAT(session.Row(3), HasSubstr(" Stored Paths "));
    const std::string row = session.Piece(1, 7, 78);
    EXPECT_EQ(row.rfind("║ 3 - /first/...x", 0), 0u) << row;
    EXPECT_EQ(row.substr(row.size() - 10), "x/last ║") << row;
}

TEST_F(StoredPaths, FitOnANarrowScreen) {
    SessionOptions options = With("d3=/first/" + std::string(90, 'x') + "\n");
    options.columns = 40;
    Session session(options);
    session.Press("Alt-F5");
    EXPECT_TRUE(IsOpen(session)) << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(StoredPaths, AreGoneToByEnterAndByTheirDigit) {
    Session session(With("d0=" + tree.PathOf("one") + "\nd4=$PLACE$/sub\nd5=~/\n"));
    session.Press({"Down", "Alt-F5", "Enter"});
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("one"));
    EXPECT_EQ(PanelView(session, 0).BarName(), "..");
    session.Press("Alt-F5");
    session.Type("4");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("two/sub"));
    session.Press("Alt-F5");
    session.Type("5");
    EXPECT_EQ(PanelView(session, 0).Title(), home.Path());
    EXPECT_EQ(PanelView(session, 1).Title(), tree.Path());
}

TEST_F(StoredPaths, ThatAreEmptyLeadNowhere) {
    Session session(With("d0=/usr\n"));
    session.Press("Alt-F5");
    session.Type("3");
    EXPECT_TRUE(IsOpen(session));
    session.Press("Enter");
    EXPECT_TRUE(IsOpen(session));
    session.Press({"Home", "Enter"});
    EXPECT_EQ(PanelView(session, 0).Title(), "/usr");
}

TEST_F(StoredPaths, AreStoredByInsAndEmptiedByDel) {
    Session session(With("AutoSave=off\nd0=/usr\n"));
    session.Press({"Alt-F5", "Down", "Ins"});
    EXPECT_TRUE(IsOpen(session));
    EXPECT_THAT(session.Text(), HasSubstr(" 1 - /"));
    session.Press({"Home", "Del"});
    EXPECT_THAT(session.Text(), HasSubstr("║ 0 - Empty"));
    EXPECT_THAT(session.Text(), Not(HasSubstr("/usr")));
    session.Press({"Esc", "Shift-F9"});
    EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
    EXPECT_THAT(home.Content("own.ini"), HasSubstr("\nd1=" + tree.Path() + "\n"));
    EXPECT_THAT(home.Content("own.ini"), Not(HasSubstr("d0=")));
}

TEST_F(StoredPaths, ThatAreGoneAreReported) {
    Session session(With("d2=/no/such/place\n"));
    tree.File("new");
    session.Press("Alt-F5");
    session.Type("2");
    EXPECT_THAT(session.Text(), HasSubstr("Invalid directory"));
    EXPECT_THAT(session.Text(), HasSubstr("/no/such/place"));
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
    EXPECT_THAT(PanelView(session, 0).Names(), testing::Contains("new"));
}

TEST_F(StoredPaths, StayAsTheyAreByEsc) {
    Session session(With("d0=/usr\n"));
    const std::string before = session.Text();
    session.Press({"Alt-F5", "Down", "Esc"});
    EXPECT_EQ(session.Text(), before);
}

}  // namespace
}  // namespace zt::headless
