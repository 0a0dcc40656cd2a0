// What the panels show and how: styles, sort orders, hidden files, panels on and off.
#include <dirent.h>

#include <cstring>

#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class PanelLook : public testing::Test {
protected:
    SessionOptions Here(int columns = 80, int rows = 25) {
        SessionOptions options;
        options.directory = tree.Path();
        options.columns = columns;
        options.rows = rows;
        return options;
    }

    FileTree tree;
};

TEST_F(PanelLook, ShowsNameSizeDateAndTimeInTheFullStyle) {
    tree.FileOfSize("file", 1234567).Time("file", UtcTime(2021, 3, 4, 15, 6));
    tree.Folder("sub").Time("sub", UtcTime(1999, 12, 31, 0, 59));
    Session session(Here());
    const PanelView panel(session, 0);
    const std::vector<std::string> file = panel.FieldsOf("file");
    EXPECT_THAT(file, ElementsAre("file", "1234567", "03/04/21", "3:06p"));
    EXPECT_THAT(panel.FieldsOf("sub"), ElementsAre("sub", "►SUBDIR◄", "12/31/99", "12:59a"));
    const std::vector<std::string> up = panel.FieldsOf("..");
    ASSERT_EQ(4u, up.size());
    EXPECT_EQ("►UP-DIR◄", up[1]);
}

TEST_F(PanelLook, WritesSizesAndDatesWiderInAWiderPanel) {
    tree.FileOfSize("file", 12345678901).Time("file", UtcTime(2021, 3, 4, 15, 6));
    tree.Folder("sub").Time("sub", UtcTime(1999, 12, 31, 12, 0)).Link("link", "sub");
    Session session(Here(132, 50));
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.FieldsOf("file"), ElementsAre("file", "12056327K", "03/04/21", "3:06p"));
    EXPECT_THAT(panel.FieldsOf("sub"), ElementsAre("sub", "► SUBDIR ◄", "12/31/99", "12:00p"));
    EXPECT_EQ("►  LINK  ◄", panel.FieldsOf("link » sub").at(1));
}

TEST_F(PanelLook, CountsTaggedFilesInTheStatusRow) {
    tree.FileOfSize("a", 1234567).FileOfSize("b", 1).File("c");
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Ins"});
    EXPECT_EQ("║  1,234,567 bytes in 1 selected file  ║", session.Piece(0, 21, 40));
    EXPECT_EQ(kTagged, session.AttributeAt(1, 21));
    EXPECT_EQ(kTagged, session.AttributeAt(38, 21));
    EXPECT_EQ(kPanelColour, session.AttributeAt(39, 21));
    EXPECT_EQ(kTagged, panel.AttributeOf("a"));
    session.Press("Ins");
    EXPECT_EQ("║ 1,234,568 bytes in 2 selected files  ║", session.Piece(0, 21, 40));
    session.Press("Up");
    EXPECT_EQ(kHighlightTagged, panel.AttributeOf("b"));
    session.Press({"Ins", "Up", "Up", "Ins"});
    EXPECT_EQ("b", panel.Status()) << session.Text();
}

TEST_F(PanelLook, KeepsTheExtensionOfALongNameVisible) {
    tree.File("a-rather-long-name.txt").File("b-long.extension");
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.Names(), ElementsAre("..", "a-rather►.txt", "b-long.exten►"));
}

TEST_F(PanelLook, ShowsEachStyleWithItsFields) {
    tree.FileOfSize("file", 77).Mode("file", 04755).Folder("sub");
    const struct {
        const char* key;
        size_t fields;  // in a row
        size_t name;    // which of them is the name
    } rows[] = {
        {"Alt-Shift-F1", 3, 0}, {"Alt-Shift-F2", 4, 0}, {"Alt-Shift-F3", 2, 1},
        {"Alt-Shift-F4", 2, 0}, {"Alt-Shift-F5", 5, 0},
    };
    for (const auto& [columns, lines] : {std::pair{80, 25}, {132, 50}}) {
        Session session(Here(columns, lines));
        const PanelView panel(session, 0);
        for (const auto& row : rows) {
            session.Press(row.key);
            const std::vector<std::string> fields = Fields(panel.Line(2));
            ASSERT_EQ(row.fields, fields.size()) << row.key << "\n" << session.Text();
            EXPECT_EQ("file", fields[row.name]) << row.key;
            EXPECT_TRUE(panel.IsShown());
        }
        const std::vector<std::string> unixFields = Fields(panel.Line(2));
        EXPECT_EQ("77", unixFields[1]);
        EXPECT_EQ("rwsr-xr-x", unixFields[2]);
        EXPECT_EQ(4u, Fields(PanelView(session, 1).Line(2)).size()) << "the other keeps its style";
    }
}

TEST_F(PanelLook, FillsColumnAfterColumnInTheBriefStyles) {
    for (char name = 'a'; name <= 'z'; name++)
        tree.File(std::string(1, name));
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press("Alt-Shift-F1");
    EXPECT_THAT(Fields(panel.Line(0)), ElementsAre("..", "s", ""));
    EXPECT_THAT(Fields(panel.Line(18)), ElementsAre("r", "", ""));
    session.Press("Alt-Shift-F4");
    EXPECT_THAT(Fields(panel.Line(0)), ElementsAre("..", "s"));
}

TEST_F(PanelLook, ColoursDirectoriesAndTheBar) {
    tree.Folder("dir").File("file");
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_EQ(kDirectoryHigh, panel.AttributeOf(".."));
    EXPECT_EQ(kDirectories, panel.AttributeOf("dir"));
    EXPECT_EQ(kPanelColour, panel.AttributeOf("file"));
    session.Press("End");
    EXPECT_EQ(kHighlight, panel.AttributeOf("file"));
    EXPECT_EQ(kDirectories, panel.AttributeOf(".."));
}

TEST_F(PanelLook, SortsByEachOrderDirectoriesFirst) {
    tree.FileOfSize("b.aa", 30).Time("b.aa", UtcTime(2001, 1, 1));
    tree.FileOfSize("a.cc", 20).Time("a.cc", UtcTime(2003, 1, 1));
    tree.FileOfSize("c.bb", 10).Time("c.bb", UtcTime(2002, 1, 1));
    tree.Folder("z").Folder("y");
    tree.Time("z", UtcTime(2000, 1, 1)).Time("y", UtcTime(1990, 1, 1));
    const struct {
        const char* key;
        std::vector<std::string> names;
    } rows[] = {
        {"Ctrl-F4", {"..", "y", "z", "b.aa", "c.bb", "a.cc"}},
        {"Ctrl-F5", {"..", "z", "y", "a.cc", "c.bb", "b.aa"}},
        {"Ctrl-F6", {"..", "y", "z", "b.aa", "a.cc", "c.bb"}},
        {"Ctrl-F3", {"..", "y", "z", "a.cc", "b.aa", "c.bb"}},
        {"Ctrl-F8", {"..", "z", "y", "c.bb", "b.aa", "a.cc"}},
        {"Ctrl-F8", {"..", "y", "z", "a.cc", "b.aa", "c.bb"}},
    };
    Session session(Here());
    const PanelView left(session, 0), right(session, 1);
    const std::vector<std::string> before = right.Names();
    for (const auto& row : rows) {
        session.Press(row.key);
        EXPECT_EQ(row.names, left.Names()) << row.key;
        EXPECT_EQ(before, right.Names()) << row.key;
    }
    session.Press("Ctrl-F7");
    std::vector<std::string> asListed;
    for (DIR* stream = opendir(tree.Path().c_str()); stream;) {
        const dirent* listed = readdir(stream);
        if (!listed) {
            closedir(stream);
            break;
        }
        if (strcmp(listed->d_name, ".") != 0) asListed.push_back(listed->d_name);
    }
    EXPECT_EQ(asListed, left.Names());
    session.Press("Ctrl-F8");
    EXPECT_EQ(asListed, left.Names()) << "the reverse changes nothing";
    session.Press({"Tab", "Ctrl-F5"});
    EXPECT_EQ(rows[1].names, right.Names());
}

TEST_F(PanelLook, KeepsTheBarOnItsNameWhenTheOrderChanges) {
    tree.FileOfSize("a", 1).FileOfSize("b", 3).FileOfSize("c", 2);
    Session session(Here());
    const PanelView panel(session, 0);
    session.Press({"Down", "Ctrl-F6"});
    EXPECT_THAT(panel.Names(), ElementsAre("..", "b", "c", "a"));
    EXPECT_EQ("a", panel.BarName());
}

TEST_F(PanelLook, SortsNamesWithoutCaseAndUnderscoreFirst) {
    for (const char* name : {"Beta", "alpha", "_last", "9", "gamma", "10"})
        tree.File(name);
    Session session(Here());
    EXPECT_THAT(PanelView(session, 0).Names(),
                ElementsAre("..", "_last", "10", "9", "alpha", "Beta", "gamma"));
}

TEST_F(PanelLook, HidesAndShowsHiddenFiles) {
    tree.File(".hidden").File("shown").Folder(".dir").File("..odd");
    Session session(Here());
    const PanelView panel(session, 0);
    EXPECT_THAT(panel.Names(), ElementsAre("..", "shown"));
    session.Press("Ctrl-h");
    // Directories, hidden files, then the others.
    EXPECT_THAT(panel.Names(), ElementsAre("..", ".dir", "..odd", ".hidden", "shown"));
    EXPECT_EQ(panel.Names(), PanelView(session, 1).Names()) << "in both panels";
    EXPECT_EQ(".hidden     ░│", session.Piece(1, 4, 14));
    session.Press("Ctrl-h");
    EXPECT_THAT(panel.Names(), ElementsAre("..", "shown"));
}

TEST_F(PanelLook, TurnsAPanelOffAndOn) {
    tree.File("a");
    Session session(Here());
    const PanelView left(session, 0), right(session, 1);
    const std::string before = session.Text();
    session.Press("Ctrl-F2");
    EXPECT_TRUE(left.IsShown());
    EXPECT_FALSE(right.IsShown());
    session.Press("Ctrl-F2");
    EXPECT_EQ(before, session.Text());
    session.Press("Ctrl-F1");
    EXPECT_FALSE(left.IsShown());
    EXPECT_TRUE(right.IsActive());
    session.Press({"Ctrl-F1", "Tab"});
    EXPECT_EQ(before, session.Text());
}

TEST_F(PanelLook, TurnsBothPanelsOffAndOn) {
    tree.File("a");
    Session session(Here());
    const std::string before = session.Text();
    session.Press("Ctrl-o");
    EXPECT_FALSE(PanelView(session, 0).IsShown());
    EXPECT_FALSE(PanelView(session, 1).IsShown());
    const CellArea selectable = session.Screen().Selectable();
    EXPECT_EQ(80, selectable.width);
    EXPECT_EQ(23, selectable.height);
    session.Press("Ctrl-o");
    EXPECT_EQ(before, session.Text());
    EXPECT_EQ(0, session.Screen().Selectable().width);
}

TEST_F(PanelLook, RemembersWhichPanelWasOff) {
    Session session(Here());
    session.Press("Ctrl-F1");
    const std::string before = session.Text();
    session.Press({"Ctrl-o", "Ctrl-o"});
    EXPECT_EQ(before, session.Text());
}

TEST_F(PanelLook, SwapsThePanels) {
    tree.File("a/in-a").File("b/in-b");
    SessionOptions options = Here();
    options.arguments = {"-l", tree.PathOf("a"), "-r", tree.PathOf("b")};
    Session session(options);
    const PanelView left(session, 0), right(session, 1);
    session.Press({"Down", "Ctrl-F5", "Ctrl-u"});
    EXPECT_EQ(tree.PathOf("b"), left.Title());
    EXPECT_EQ(tree.PathOf("a"), right.Title());
    EXPECT_TRUE(right.IsActive());
    EXPECT_EQ("in-a", right.BarName());
    session.Press("Ctrl-u");
    EXPECT_EQ(tree.PathOf("a"), left.Title());
    EXPECT_EQ("in-a", left.BarName());
}

TEST_F(PanelLook, ShowsAPanelAcrossTheWholeWidth) {
    tree.File("a");
    Session session(Here());
    const std::string before = session.Text();
    session.Press("Ctrl-Shift-F1");
    const PanelView wide(session, 0, true);
    EXPECT_TRUE(wide.IsShown());
    EXPECT_THAT(wide.Names(), ElementsAre("..", "a"));
    session.Press("Tab");
    EXPECT_TRUE(PanelView(session, 1, true).IsShown());
    session.Press("Tab");
    session.Press("Ctrl-Shift-F1");
    EXPECT_EQ(before, session.Text());
}

TEST_F(PanelLook, ShowsAScrollBarOnlyWhereTheListIsLonger) {
    tree.File("a");
    for (int i = 0; i < 60; i++)
        tree.File("many/f" + std::to_string(i));
    Session session(Here());
    const PanelView panel(session, 0);
    const auto scrollBar = [&] {
        std::string signs;
        for (int row = 0; row < panel.Height(); row++) {
            signs += session.Piece(panel.Width() - 1, row + 1, 1);
        }
        return signs;
    };
    EXPECT_THAT(scrollBar(), Not(HasSubstr("▲")));
    session.Press({"Down", "Enter"});
    EXPECT_TRUE(scrollBar().starts_with("▲")) << scrollBar();
    session.Press("End");
    EXPECT_TRUE(scrollBar().ends_with("▼")) << scrollBar();
    session.Press("Home");
    EXPECT_TRUE(scrollBar().starts_with("▲")) << scrollBar();
}

TEST_F(PanelLook, ShowsTheLabelsOfHeldModifiers) {
    Session session(Here());
    const std::string plain = session.Row(24);
    EXPECT_THAT(plain, HasSubstr("10"));
    session.Hold("Ctrl");
    EXPECT_NE(plain, session.Row(24));
    session.Release("Ctrl");
    EXPECT_EQ(plain, session.Row(24));
}

TEST_F(PanelLook, PaintsFewCellsForACursorStep) {
    for (int i = 0; i < 100; i++)
        tree.File("file" + std::to_string(100 + i));
    Session session(Here());
    session.Press("Down");
    for (const char* key : {"Down", "Up", "Down", "Tab", "Down"}) {
        session.Press(key);
        EXPECT_LE(session.LastTraffic().changedCells, 200) << key;
        EXPECT_GT(session.LastTraffic().changedCells, 0) << key;
        EXPECT_LE(session.LastTraffic().bytes, 2000u) << key;
    }
    const std::string before = session.Text();
    session.Press("F12");
    EXPECT_EQ(before, session.Text()) << "a key without a command";
    EXPECT_LE(session.LastTraffic().changedCells, 80);
}

}  // namespace
}  // namespace zt::headless
