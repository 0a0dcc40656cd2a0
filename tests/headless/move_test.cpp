// Moving and renaming in the whole program, within a file system and to another one.
#include "tests/headless/copy_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kExists = "File already exists, Overwrite?";

class Moving : public CopyFixture {
protected:
    void ThreeThatExist() {
        for (const std::string& name : {std::string("a"), std::string("b"), std::string("c")}) {
            tree.File("src/" + name, "new " + name).File("dst/" + name, "old " + name);
            // A move never compares times: the ones that go are all older.
            tree.Time("src/" + name, UtcTime(2001, 1, 1));
        }
    }
    std::string Contents(const std::string& folder) {
        std::string all;
        for (const std::string& name : tree.Names(folder))
            all += tree.Content(folder + "/" + name) + "; ";
        return all;
    }
    static std::string Tagged(const Session& session) {
        std::string all;
        for (const std::string& name : PanelView(session, 0).Names()) {
            if (IsTagged(session, name)) all += name;
        }
        return all;
    }
    static void Start(Session& session, const char* mode) {
        Tag(session, {"a", "b", "c"});
        session.Press("F6");
        session.Press(mode);
        session.Press({"Tab", "Enter"});
    }
    ino_t Number(std::string_view name) const { return Look(name).st_ino; }
};

TEST_F(Moving, AFileByRenaming) {
    tree.File("src/f", "text").File("src/g", "stays");
    const ino_t number = Number("src/f");
    Session session(Here());
    GoToName(session, "f");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_FALSE(tree.Exists("src/f"));
    EXPECT_EQ("text", tree.Content("dst/f"));
    EXPECT_EQ(number, Number("dst/f")) << "it is the same file";
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "g"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "f"));
}

TEST_F(Moving, ADirectoryByRenaming) {
    tree.File("src/d/sub/one", "1").Mode("src/d", 0711);
    const ino_t number = Number("src/d");
    Session session(Here());
    GoToName(session, "d");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ(number, Number("dst/d"));
    EXPECT_EQ("1", tree.Content("dst/d/sub/one"));
    EXPECT_TRUE(tree.Names("src").empty());
}

TEST_F(Moving, RenamesAndFollowsWithTheCursor) {
    tree.File("src/a", "1").File("src/m", "2").File("src/z", "3").Folder("src/sub");
    Session session(Here());
    const struct {
        const char* key;
        const char* typed;
        const char* bar;
    } rows[] = {
        {"Shift-F6", "zz", "zz"},
        {"Shift-F6", "./aa", "aa"},
        {"F6", "b", "b"},
    };
    std::string name = "m";
    for (const auto& row : rows) {
        GoToName(session, name);
        session.Press(row.key);
        Destination(session, row.typed);
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.bar, PanelView(session, 0).BarName()) << row.typed;
        EXPECT_FALSE(tree.Exists("src/" + name));
        name = row.bar;
        EXPECT_EQ("2", tree.Content("src/" + name));
    }
    // The full path of the panel's own directory is the same place.
    session.Press("Shift-F6");
    Destination(session, tree.PathOf("src/y"));
    session.Press("Enter");
    EXPECT_EQ("y", PanelView(session, 0).BarName());
    // Elsewhere the cursor does not follow.
    session.Press("Shift-F6");
    Destination(session, "sub/");
    session.Press("Enter");
    EXPECT_EQ("2", tree.Content("src/sub/y"));
    EXPECT_NE("sub", PanelView(session, 0).BarName());
    // A directory.
    GoToName(session, "sub");
    session.Press("Shift-F6");
    Destination(session, "ten");
    session.Press("Enter");
    EXPECT_EQ("ten", PanelView(session, 0).BarName());
}

TEST_F(Moving, RenamesAGroupByAMask) {
    tree.File("src/one.txt", "1").File("src/two.txt", "2");
    Session session(Here());
    Tag(session, {"one.txt", "two.txt"});
    session.Press("Shift-F6");
    Destination(session, "*.bak");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src"), ElementsAre("one.bak", "two.bak"));
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Moving, OntoItselfTellsWhatTheSystemSays) {
    tree.File("src/f", "text");
    Session session(Here());
    GoToName(session, "f");
    for (const char* typed : {"f", "./", "../src/"}) {
        session.Press("F6");
        Destination(session, typed);
        session.Press("Enter");
        EXPECT_TRUE(HasBox(session, {"File exists (17)", "src/f", "[ Retry ]", "[ Skip ]"}));
        session.Type("r");
        EXPECT_TRUE(HasBox(session, {"File exists (17)"})) << "once more, once more refused";
        session.Type("s");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("text", tree.Content("src/f"));
    }
}

// By way of a link to the directory the source is its own target.
TEST_F(Moving, OntoItselfThroughALinkHarmsNothing) {
    tree.File("src/f", "text").Link("way", "src");
    Session session(Here());
    GoToName(session, "f");
    for (const char* mode : {"F5", "F6"}) {
        session.Press(mode);
        Destination(session, tree.PathOf("way") + "/");
        session.Press("Enter");
        for (int boxes = 0; boxes < 3 && !session.AtPrompt(); boxes++)
            session.Type("y");
        if (!session.AtPrompt()) session.Press("Esc");
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(tree.Names("src"), ElementsAre("f")) << mode;
        EXPECT_EQ("text", tree.Content("src/f")) << mode;
    }
}

TEST_F(Moving, ADirectoryBelowItselfIsRefused) {
    tree.File("src/a/b/c", "text").Folder("src/ab");
    Session session(Here());
    GoToName(session, "a");
    session.Press("F6");
    Destination(session, "a/b/");
    session.Press("Enter");
    EXPECT_FALSE(session.AtPrompt()) << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("src/a/b/c"));
    session.Press("F6");
    Destination(session, "ab/");
    session.Press("Enter");
    EXPECT_EQ("text", tree.Content("src/ab/a/b/c"));
}

TEST_F(Moving, AsksBeforeItOverwrites) {
    ThreeThatExist();
    Session session(Here());
    GoToName(session, "a");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/a"), "[ OK ]", "[ Cancel ]", "[ Skip ]",
                                 "[ All ]", "[ None ]"}));
    EXPECT_FALSE(Shows(session, "All Older"));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("new a; old b; old c; ", Contents("dst"));
    EXPECT_EQ("new b; new c; ", Contents("src"));
}

TEST_F(Moving, EachAnswerOfTheBoxHolds) {
    const struct {
        const char* mode;  // of the dialog
        const char* answer;
        const char* inDst;
        const char* inSrc;
        bool asksAgain;
    } rows[] = {
        {"Alt-k", "y", "new a; old b; old c; ", "new b; new c; ", true},
        {"Alt-k", "a", "new a; new b; new c; ", "", false},
        {"Alt-k", "s", "old a; old b; old c; ", "new a; new b; new c; ", true},
        {"Alt-k", "e", "old a; old b; old c; ", "new a; new b; new c; ", false},
        {"Alt-l", "y", "new a; old b; old c; ", "new b; new c; ", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        ThreeThatExist();
        Session session(Here());
        Start(session, row.mode);
        EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/a")}));
        session.Type(row.answer);
        if (row.asksAgain) {
            EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/b")}));
            session.Press("Esc");
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.inDst, Contents("dst"));
        EXPECT_EQ(row.inSrc, Contents("src"));
        std::string left;
        for (const std::string& name : tree.Names("src"))
            left += name;
        EXPECT_EQ(left, Tagged(session));
    }
}

TEST_F(Moving, EachModeOfTheDialogHolds) {
    const struct {
        const char* mode;
        const char* inDst;
        const char* inSrc;
    } rows[] = {
        {"Alt-a", "new a; new b; new c; ", ""},
        {"Alt-e", "old a; old b; old c; ", "new a; new b; new c; "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        ThreeThatExist();
        Session session(Here());
        Start(session, row.mode);
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.inDst, Contents("dst"));
        EXPECT_EQ(row.inSrc, Contents("src"));
    }
}

TEST_F(Moving, ADirectoryMergesIntoOneThatExists) {
    tree.File("src/d/one", "new").File("src/d/sub/two", "2").File("src/d/sub2/x", "x");
    tree.File("dst/d/one", "old").File("dst/d/sub/three", "3");
    Session session(Here());
    GoToName(session, "d");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/d/one")}));
    session.Type("y");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("new", tree.Content("dst/d/one"));
    EXPECT_EQ("2", tree.Content("dst/d/sub/two"));
    EXPECT_EQ("3", tree.Content("dst/d/sub/three"));
    EXPECT_EQ("x", tree.Content("dst/d/sub2/x"));
    EXPECT_TRUE(tree.Names("src").empty());
}

// What is left behind keeps its directory.
TEST_F(Moving, AMergeLeavesWhatWasSkipped) {
    tree.File("src/d/one", "new").File("src/d/two", "2").File("dst/d/one", "old");
    Session session(Here());
    GoToName(session, "d");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/d/one")}));
    session.Type("s");
    // The directory is not empty now; it is asked about until that is given up.
    for (int boxes = 0; boxes < 2 && !session.AtPrompt(); boxes++)
        session.Type("s");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src/d"), ElementsAre("one"));
    EXPECT_EQ("new", tree.Content("src/d/one"));
    EXPECT_EQ("old", tree.Content("dst/d/one"));
    EXPECT_EQ("2", tree.Content("dst/d/two"));
}

TEST_F(Moving, DescriptionsLeaveWithTheirFiles) {
    tree.File("src/a", "1").File("src/b", "2");
    tree.File("src/descript.ion", "a the first\r\nb second\n").File("dst/x");
    Session session(Here());
    GoToName(session, "a");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("b second\n", tree.Content("src/descript.ion"));
    EXPECT_THAT(tree.Content("dst/descript.ion"), testing::StartsWith("a the first"));
    // A rename in place.
    GoToName(session, "b");
    session.Press("Shift-F6");
    Destination(session, "new b");
    session.Press("Enter");
    EXPECT_THAT(tree.Content("src/descript.ion"), testing::StartsWith("\"new b\" second"));
}

TEST_F(Moving, NamesOfAnyBytes) {
    const std::vector<std::string> names = OddNames();
    for (size_t i = 0; i < names.size(); i++)
        tree.File("src/" + names[i], "number " + std::to_string(i));
    Session session(Here());
    session.Press({"Ctrl-Grey+", "F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    for (size_t i = 0; i < names.size(); i++) {
        EXPECT_EQ("number " + std::to_string(i), tree.Content("dst/" + names[i])) << names[i];
    }
    EXPECT_TRUE(tree.Names("src").empty());
}

TEST_F(Moving, AnOddNameCanBeEditedInPart) {
    tree.File("src/not\xFFutf8 ", "text");
    Session session(Here());
    session.Press({"Down", "Shift-F6", "Home", "Right"});
    session.Type("X");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    // The blank at the end belongs to what was typed now, and is white space around it.
    EXPECT_THAT(tree.Names("src"), ElementsAre("nXot\xFFutf8"));
}

class MovingElsewhere : public Moving {
protected:
    void SetUp() override {
        if (Look("src").st_dev == Device(there->Path())) {
            GTEST_SKIP() << "/dev/shm and the usual folder are one file system here";
        }
    }
    static dev_t Device(const std::string& path) {
        struct stat data {};
        EXPECT_EQ(0, stat(path.c_str(), &data));
        return data.st_dev;
    }
    SessionOptions ToThere() {
        SessionOptions options = Here();
        options.arguments = {"-r", there->Path()};
        return options;
    }

    TreeElsewhere there{"/dev/shm"};
};

TEST_F(MovingElsewhere, AFileKeepsContentModeAndTime) {
    tree.File("src/f", std::string(70000, 'x')).Mode("src/f", 0751);
    tree.Time("src/f", UtcTime(2003, 4, 5));
    Session session(ToThere());
    GoToName(session, "f");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_FALSE(tree.Exists("src/f"));
    EXPECT_EQ(std::string(70000, 'x'), there->Content("f"));
    struct stat data {};
    EXPECT_EQ(0, stat(there->PathOf("f").c_str(), &data));
    EXPECT_EQ(mode_t{0751}, data.st_mode & 07777);
    EXPECT_EQ(UtcTime(2003, 4, 5), data.st_mtime);
    EXPECT_THAT(there->Names(), ElementsAre("f"));
}

TEST_F(MovingElsewhere, ATreeGoesWhole) {
    tree.File("src/d/one", "1").File("src/d/sub/two", "2").Folder("src/d/empty");
    tree.Link("src/d/link", "one").File("src/f", "f");
    Session session(ToThere());
    Tag(session, {"d", "f"});
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("src").empty());
    EXPECT_EQ("1", there->Content("d/one"));
    EXPECT_EQ("2", there->Content("d/sub/two"));
    EXPECT_TRUE(there->Exists("d/empty"));
    EXPECT_EQ("1", there->Content("d/link"));
    EXPECT_EQ("f", there->Content("f"));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre(".."));
}

TEST_F(MovingElsewhere, ADirectoryStaysWithWhatWasSkipped) {
    tree.File("src/d/one", "new").File("src/d/two", "2");
    there->File("d/one", "old");
    Session session(ToThere());
    Tag(session, {"d"});
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, there->PathOf("d/one")}));
    session.Type("s");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src/d"), ElementsAre("one"));
    EXPECT_EQ("new", tree.Content("src/d/one"));
    EXPECT_EQ("old", there->Content("d/one"));
    EXPECT_EQ("2", there->Content("d/two"));
}

TEST_F(MovingElsewhere, ALinkGoesAsALink) {
    tree.Link("src/link", "nowhere");
    Session session(ToThere());
    GoToName(session, "link");
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_FALSE(tree.Exists("src/link"));
    EXPECT_TRUE(there->Exists("link"));
}

TEST_F(MovingElsewhere, AReadOnlySourceIsAskedAbout) {
    tree.File("src/f", "text").Mode("src/f", 0444);
    there->GiveTo(OrdinaryUser());
    SessionOptions options = AsOrdinaryUser();
    options.arguments = {"-r", there->Path()};
    const struct {
        const char* answer;
        bool stays;
        bool arrives;
    } rows[] = {{"s", true, true}, {"Esc", true, false}, {"y", false, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        if (there->Exists("f")) there->Remove("f");
        Session session(options);
        GoToName(session, "f");
        session.Press({"F6", "Enter"});
        EXPECT_TRUE(HasBox(session, {"File is Read Only, Delete anyway?", tree.PathOf("src/f")}));
        if (std::string(row.answer) == "Esc") {
            session.Press("Esc");
        } else {
            session.Type(row.answer);
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.stays, tree.Exists("src/f"));
        EXPECT_EQ(row.arrives, there->Exists("f"));
    }
}

}  // namespace
}  // namespace zt::headless
