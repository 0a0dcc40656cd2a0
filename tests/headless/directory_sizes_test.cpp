// Adding up directories: the window, its pause, Esc, and where the totals go.
#include <unistd.h>

#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::Not;

class DirectorySizes : public testing::Test {
protected:
    DirectorySizes() {
        tree.FileOfSize("big/f", 50000).FileOfSize("big/deep/.hidden", 7);
        tree.FileOfSize("small/f", 70).Link("small/link", "../big").Link("zlink", "big");
        tree.FileOfSize("file", 300);
    }
    SessionOptions Here(const std::string& configuration = "") {
        if (!configuration.empty()) home.File(".ztx/zt.ini", configuration + "\n");
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }
    static std::string Size(const Session& session, const std::string& name) {
        const std::vector<std::string> fields = PanelView(session, 0).FieldsOf(name);
        return fields.size() > 1 ? fields[1] : "no such row";
    }
    static std::string Status(const Session& session) { return PanelView(session, 0).Status(); }

    FileTree tree;
    FileTree home;
};

TEST_F(DirectorySizes, ShowInPlaceOfTheLabel) {
    for (const char* key : {"Ctrl-q", "F3", "Alt-F3", "Ctrl-Shift-F3"}) {
        Session session(Here());
        EXPECT_EQ("►SUBDIR◄", Size(session, "big"));
        session.Press({"Down", key});
        EXPECT_EQ("50007", Size(session, "big")) << key;
        EXPECT_EQ("►SUBDIR◄", Size(session, "small")) << key;
        EXPECT_EQ("big", PanelView(session, 0).BarName()) << key;
        EXPECT_TRUE(session.AtPrompt()) << key;
    }
}

TEST_F(DirectorySizes, AreNotForLinksFilesAndTheParent) {
    Session session(Here());
    for (const char* key : {"Ctrl-q", "F3"}) {
        session.Press({"Home", key});
        session.Press({"End", key});  // the link
        session.Press({"Up", key});
    }
    EXPECT_EQ("►UP-DIR◄", Size(session, ".."));
    EXPECT_EQ("► LINK ◄", Size(session, "zlink » big")) << session.Text();
    EXPECT_EQ("300", Size(session, "file"));
}

TEST_F(DirectorySizes, OfTheTaggedOnesGoIntoTheSum) {
    Session session(Here());
    session.Press("Ctrl-Shift-Grey+");
    EXPECT_EQ("300 bytes in 4 selected files", Status(session))
        << "a directory's size is 0 until its total is known";
    session.Press("Ctrl-q");
    EXPECT_EQ("50,377 bytes in 4 selected files", Status(session));
    EXPECT_EQ("50007", Size(session, "big"));
    EXPECT_EQ("70", Size(session, "small"));
    EXPECT_EQ("► LINK ◄", Size(session, "zlink » big"));
    tree.FileOfSize("small/more", 5);
    session.Press("Ctrl-q");
    EXPECT_EQ("50,382 bytes in 4 selected files", Status(session));
    session.Press({"Home", "Down", "Ins"});
    EXPECT_EQ("375 bytes in 3 selected files", Status(session));
}

TEST_F(DirectorySizes, WaitWithThePauseForOk) {
    Session session(Here("SizeCountPause=on"));
    session.Press({"Down", "Ctrl-q"});
    EXPECT_EQ("╔═══════════════ Reading Directories ════════════════╗", session.Piece(13, 8, 54));
    EXPECT_EQ(
        "╚" +
            [] {
                std::string line;
                for (int i = 0; i < 52; ++i)
                    line += "═";
                return line;
            }() +
            "╝",
        session.Piece(13, 15, 54));
    EXPECT_THAT(session.Piece(14, 11, 52), HasSubstr("   Directories: 2   Files: 2   "));
    EXPECT_THAT(session.Piece(14, 12, 52), HasSubstr("   Total Size: 50,007   "));
    EXPECT_EQ(std::string(52, ' '), session.Piece(14, 13, 52));
    EXPECT_EQ("[ OK ]", session.Piece(14 + 23, 14, 6));
    EXPECT_EQ("►SUBDIR◄", Size(session, "small"));
    session.Type("x");
    EXPECT_THAT(session.Text(), HasSubstr("Reading Directories"));
    for (const char* key : {"Enter", "Esc", " "}) {
        if (session.Text().find("Reading") == std::string::npos) session.Press("Ctrl-q");
        EXPECT_THAT(session.Text(), HasSubstr("[ OK ]")) << key;
        if (*key == ' ') {
            session.Type(key);
        } else {
            session.Press(key);
        }
        EXPECT_THAT(session.Text(), Not(HasSubstr("Reading Directories"))) << key;
        EXPECT_TRUE(session.AtPrompt()) << key;
    }
    EXPECT_EQ("50007", Size(session, "big"));
}

TEST_F(DirectorySizes, HaveAShortFormBehindALongNumber) {
    tree.FileOfSize("big/g", 123456789);
    Session session(Here("SizeCountPause=on"));
    session.Press({"Down", "Ctrl-q"});
    EXPECT_THAT(session.Row(12), HasSubstr(" Total Size: 123,506,796 (117M) ")) << session.Row(12);
    session.Press("Enter");
}

TEST_F(DirectorySizes, AreLeftByEsc) {
    Session session(Here());
    session.Press("Ctrl-Shift-Grey+");
    // Esc comes while the keys before it are worked on: it is there before the first directory is
    // looked at.
    std::vector<WireEvent> keys(20, *KeyEvent("Ctrl-r"));
    keys.push_back(*KeyEvent("Ctrl-q"));
    keys.push_back(*KeyEvent("Esc"));
    session.Send(keys);
    ASSERT_TRUE(session.WaitForQuiet());
    ASSERT_TRUE(session.AtPrompt());
    EXPECT_THAT(session.Text(), Not(HasSubstr("Reading Directories")));
    EXPECT_EQ("►SUBDIR◄", Size(session, "big"));
    EXPECT_EQ("300 bytes in 4 selected files", Status(session));
    session.Press("Ctrl-q");
    EXPECT_EQ("50,377 bytes in 4 selected files", Status(session));
}

TEST_F(DirectorySizes, EndWithTheProgram) {
    Session session(Here("SizeCountPause=on"));
    session.Press({"Down", "Ctrl-q"});
    session.CloseInput();
    EXPECT_TRUE(session.WaitForEnd());
}

TEST_F(DirectorySizes, BringAListBySizeIntoOrder) {
    Session session(Here());
    session.Press({"Ctrl-F6", "Ctrl-Shift-Grey+", "Ctrl-q"});
    const auto order = [&session] {
        std::string names;
        for (const std::string& name : PanelView(session, 0).Names()) {
            if (name == "big" || name == "small") names += name + " ";
        }
        return names;
    };
    const std::string first = order();
    tree.FileOfSize("small/huge", 1 << 20);
    session.Press("Ctrl-q");
    EXPECT_NE(first, order());
    EXPECT_EQ("1048646", Size(session, "small"));
    tree.Remove("small/huge");
    session.Press("Ctrl-q");
    EXPECT_EQ(first, order());
}

TEST_F(DirectorySizes, GoByTheMenuToo) {
    Session session(Here());
    session.Press({"Down", "F9"});
    session.Type("c");
    EXPECT_THAT(session.Text(), HasSubstr("Calculate Dir Size"));
    session.Type("d");
    EXPECT_EQ("50007", Size(session, "big"));
}

TEST_F(DirectorySizes, CountWhatMayBeRead) {
    tree.FileOfSize("big/closed/f", 1000).Mode("big/closed", 0700).GiveTo(0);
    if (geteuid() != 0) tree.Mode("big/closed", 0);
    SessionOptions options = Here();
    options.user = OrdinaryUser();
    options.home.clear();
    Session session(options);
    session.Press({"Down", "Ctrl-q"});
    EXPECT_EQ("50007", Size(session, "big"));
}

TEST_F(DirectorySizes, TakeNamesOfAnyBytes) {
    for (const std::string& name : OddNames())
        tree.FileOfSize("odd/" + name, 2);
    Session session(Here());
    session.Press({"Down", "Down"});
    ASSERT_EQ("odd", PanelView(session, 0).BarName());
    session.Press("Ctrl-q");
    EXPECT_EQ(std::to_string(2 * tree.Names("odd").size()), Size(session, "odd"));
    tree.FileOfSize("\xFF\xFE/f", 33);
    session.Press({"Ctrl-r", "End"});
    session.Press("Ctrl-Shift-Grey+");
    session.Press("Ctrl-q");
    EXPECT_THAT(session.Text(), HasSubstr("      33│"));
}

TEST_F(DirectorySizes, AreForgottenByANewRead) {
    Session session(Here());
    session.Press({"Down", "Ctrl-q", "Ctrl-r"});
    EXPECT_EQ("►SUBDIR◄", Size(session, "big"));
}

}  // namespace
}  // namespace zt::headless
