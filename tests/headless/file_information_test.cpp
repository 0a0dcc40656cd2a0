// Ctrl-I: what the system knows of the file under the bar.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "tests/headless/box_rows.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class FileInformationBox : public testing::Test {
protected:
    SessionOptions Here(int columns = 80) {
        SessionOptions options;
        options.directory = tree.Path();
        options.columns = columns;
        return options;
    }
    static bool IsOpen(const Session& session) { return Shows(session, " File Information "); }
    // The text behind a label, up to the frame, without the blanks around it.
    static std::string Line(const Session& session, const std::string& label) {
        const std::string text = session.Text();
        size_t at = text.find("║ " + label);
        if (at == std::string::npos) return "no line " + label;
        at = text.find(':', at) + 1;
        std::string line = text.substr(at, text.find("║", at) - at);
        line.erase(0, line.find_first_not_of(' '));
        line.erase(line.find_last_not_of(' ') + 1);
        return line;
    }
    struct stat Own(const std::string& name) {
        struct stat data = {};
        if (lstat(tree.PathOf(name).c_str(), &data) != 0) ADD_FAILURE() << name;
        return data;
    }

    FileTree tree;
};

TEST_F(FileInformationBox, ShowsAllOfAFile) {
    tree.FileOfSize("file", 123456).Mode("file", 02750);
    const timespec times[] = {{UtcTime(2021, 3, 4, 5, 6, 7), 250000000},
                              {UtcTime(2022, 11, 12, 13, 14, 15), 0}};
    ASSERT_EQ(0, utimensat(AT_FDCWD, tree.PathOf("file").c_str(), times, 0));
    Session session(Here());
    session.Press({"Down", "Ctrl-i"});
    ASSERT_TRUE(IsOpen(session));
    EXPECT_EQ("123,456 (120K)", Line(session, "Size"));
    EXPECT_EQ("2021-03-04  5:06:07.25", Line(session, "Access Time"));
    EXPECT_EQ("2022-11-12 13:14:15", Line(session, "Modified Time"));
    EXPECT_THAT(Line(session, "Changed Time"), StartsWith("20"));
    EXPECT_EQ("rwxr-s---", Line(session, "Mode"));
    EXPECT_EQ("1", Line(session, "Hard Links"));
    EXPECT_EQ(std::to_string(Own("file").st_ino), Line(session, "Inode"));
    EXPECT_EQ("Regular file", Line(session, "Type"));
    EXPECT_EQ("no line Target", Line(session, "Target"));
    if (geteuid() != 0) return;
    EXPECT_THAT(Line(session, "Owner"), StartsWith("root(0)"));
    EXPECT_EQ("root(0)", Line(session, "Group"));
}

TEST_F(FileInformationBox, StandsAsItIsLaidOut) {
    tree.Folder("d");
    Session session(Here());
    session.Press({"Down", "Ctrl-i"});
    // Ten lines: 16 rows, a quarter of the free ones above.
    const int top = (25 - 16) / 4;
    const std::string path = tree.PathOf("d");
    // The widest label is "Modified Time"; the widest text a time with nine digits.
    const std::string changed = Line(session, "Changed Time");
    const std::string modified = Line(session, "Modified Time");
    const std::string access = Line(session, "Access Time");
    const size_t texts =
        std::max({changed.size(), modified.size(), access.size(), Line(session, "Owner").size()});
    const int width = static_cast<int>(std::max(path.size(), 13 + texts + 2)) + 4;
    const int left = (80 - width) / 2;
    const std::vector<std::string> rows = BoxRows(session, left, top, width, 16);
    EXPECT_THAT(rows.front(), StartsWith("╔═"));
    EXPECT_THAT(rows.front(), EndsWith("═╗"));
    EXPECT_THAT(rows.back(), StartsWith("╚═"));
    EXPECT_THAT(rows.back(), EndsWith("═╝"));
    const auto begin = [&](int row, const std::string& text) {
        EXPECT_THAT(rows[static_cast<size_t>(row)], StartsWith("║" + text)) << session.Text();
    };
    const std::string blanks(static_cast<size_t>(width - 2) / 2 - path.size() / 2 - 1, ' ');
    begin(1, blanks);
    EXPECT_THAT(rows[1], HasSubstr(" " + path + " "));
    begin(2, "   ");
    begin(3, " Size         : ");
    begin(4, " Access Time  : " + access);
    begin(5, " Modified Time: " + modified);
    begin(6, " Changed Time : " + changed);
    begin(7, " Mode         : rwx");
    begin(8, " Hard Links   : 2");
    begin(9, " Inode        : ");
    begin(10, " Type         : Directory ");
    begin(11, " Owner        : ");
    begin(12, " Group        : ");
    EXPECT_THAT(rows[14], HasSubstr("  [ OK ]  "));
}

TEST_F(FileInformationBox, ClosesByEnterAndEscAndTheButton) {
    tree.File("f");
    Session session(Here());
    session.Press("Down");
    const std::string before = session.Text();
    for (const char* key : {"Enter", "Esc", "Alt-o"}) {
        session.Press("Ctrl-i");
        EXPECT_TRUE(IsOpen(session)) << key;
        session.Press(key);
        EXPECT_EQ(before, session.Text()) << key;
    }
}

TEST_F(FileInformationBox, IsAboutALinkItself) {
    tree.FileOfSize("target", 77).Link("link", "target").Link("broken", "/no/where");
    Session session(Here());
    session.Press({"Down", "Ctrl-i"});
    EXPECT_EQ("Symbolic Link", Line(session, "Type"));
    EXPECT_EQ("/no/where", Line(session, "Target"));
    EXPECT_EQ("9", Line(session, "Size"));
    session.Press({"Esc", "Down", "Ctrl-i"});
    EXPECT_EQ("Symbolic Link", Line(session, "Type"));
    EXPECT_EQ("target", Line(session, "Target"));
}

TEST_F(FileInformationBox, NamesEachKind) {
    ASSERT_EQ(0, mkfifo(tree.PathOf("fifo").c_str(), 0600));
    tree.Folder("a");
    Session session(Here());
    session.Press({"Down", "Ctrl-i"});
    EXPECT_EQ("Directory", Line(session, "Type"));
    session.Press({"Esc", "Down", "Ctrl-i"});
    EXPECT_EQ("Named Pipe (FIFO)", Line(session, "Type"));
    session.Press("Esc");
    SessionOptions options = Here();
    options.directory = "/dev";
    Session devices(options);
    devices.Press("End");
    while (PanelView(devices, 0).BarName() != "null")
        devices.Press("Up");
    devices.Press("Ctrl-i");
    EXPECT_EQ("Character device", Line(devices, "Type"));
    EXPECT_THAT(devices.Text(), HasSubstr(" /dev/null "));
}

TEST_F(FileInformationBox, CountsHardLinks) {
    tree.File("a");
    ASSERT_EQ(0, link(tree.PathOf("a").c_str(), tree.PathOf("b").c_str()));
    Session session(Here());
    session.Press({"Down", "Ctrl-i"});
    EXPECT_EQ("2", Line(session, "Hard Links"));
}

TEST_F(FileInformationBox, AbbreviatesLongPathsAndTargets) {
    const std::string folder(100, 'd');
    tree.File(folder + "/f").Link(folder + "/link", "/usr/" + std::string(100, 't'));
    SessionOptions options = Here();
    options.directory = tree.PathOf(folder);
    Session session(options);
    session.Press({"Down", "Ctrl-i"});
    // Three columns short of the screen, and a blank beside the path.
    EXPECT_EQ("║/tmp/..." + folder.substr(0, 64) + "/f ║", session.Piece(1, 3, 77))
        << session.Text();
    session.Press({"Esc", "Down", "Ctrl-i"});
    // Abbreviated to sixty columns, of which the box has room for all but one.
    EXPECT_EQ("/usr/..." + std::string(51, 't'), Line(session, "Target"));
}

TEST_F(FileInformationBox, FitsAWideAndASmallScreen) {
    tree.File("f");
    for (const int columns : {132, 60, 40}) {
        Session session(Here(columns));
        session.Press({"Down", "Ctrl-i"});
        EXPECT_EQ("rw-r--r--", Line(session, "Mode")) << session.Text();
        session.Press("Enter");
        EXPECT_FALSE(IsOpen(session));
    }
}

TEST_F(FileInformationBox, OfAFileThatIsGoneIsNotShown) {
    tree.File("f");
    Session session(Here());
    session.Press("Down");
    const std::string before = session.Text();
    tree.Remove("f");
    session.Press("Ctrl-i");
    EXPECT_EQ(before, session.Text());
}

TEST_F(FileInformationBox, TakesNamesOfAnyBytes) {
    for (const std::string& name : OddNames())
        tree.FileOfSize(name, 1);
    Session session(Here());
    for (size_t i = 0; i < OddNames().size(); ++i) {
        session.Press({"Down", "Ctrl-i"});
        EXPECT_EQ("1", Line(session, "Size")) << session.Text();
        session.Press("Enter");
    }
}

}  // namespace
}  // namespace zt::headless
