// What stands in the way of a deletion: every box, with each of its answers. The program runs as
// one who may be refused things.
#include "tests/headless/delete_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeleteErrors : public DeleteFixture {
protected:
    ~DeleteErrors() override {
        if (tree.Exists("top")) tree.Mode("top", 0755);
    }
    // Files of the names, the read-only ones marked by "r" in front.
    void Files(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            File(name);
            if (name[0] == 'r') tree.Mode(In(name), 0444);
        }
    }
    // A session at which all that is in the folder is tagged.
    void TagAll(Session& session) {
        session.Press("Down");
        session.Press("Ins", static_cast<int>(Names().size()));
        session.Press("Home");
    }
    static bool AsksReadOnly(const Session& session, const std::string& name) {
        return Shows(session, "File is Read Only, Delete anyway?") &&
               Shows(session, "/top/" + name + " ");
    }
    static bool IsDenied(const Session& session, const std::string& name) {
        return Shows(session, "Access Denied") && Shows(session, "/top/" + name + " ");
    }
};

// --- Read-only files ---

TEST_F(DeleteErrors, AReadOnlyFileIsAskedAbout) {
    Files({"r1"});
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press({"Down", "F8"});
    const std::string path = tree.PathOf("top/r1");  // 26 characters
    EXPECT_THAT(BoxRows(session, 13, 6, 54, 5),
                ElementsAre("╔════════════════════════════════════════════════════╗",
                            "║         File is Read Only, Delete anyway?          ║",
                            "║             " + path + "             ║",
                            "║  [ OK ]  [ Cancel ]  [ Skip ]  [ All ]  [ None ]   ║",
                            "╚════════════════════════════════════════════════════╝"))
        << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteErrors, AReadOnlyFileHasFiveAnswers) {
    const struct {
        const char* key;
        std::vector<std::string> left;  // of a, r1, r2, z
        bool asksAgain;                 // about r2
    } rows[] = {
        {"Enter", {"r2"}, true}, {"Esc", {"r1", "r2", "z"}, false}, {"Alt-s", {"r1", "r2"}, true},
        {"Alt-a", {}, false},    {"Alt-e", {"r1", "r2"}, false},
    };
    for (const auto& row : rows) {
        tree.Remove("top").Folder("top");
        Files({"a", "r1", "r2", "z"});
        Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
        TagAll(session);
        session.Press("F8");
        EXPECT_TRUE(AsksReadOnly(session, "r1")) << session.Text();
        session.Press(row.key);
        EXPECT_EQ(row.asksAgain, AsksReadOnly(session, "r2")) << row.key << session.Text();
        if (row.asksAgain) session.Press("Alt-s");
        EXPECT_TRUE(IsOver(session)) << row.key;
        EXPECT_EQ(row.left, Names()) << row.key;
        for (const std::string& name : row.left)
            EXPECT_TRUE(IsTagged(session, name)) << row.key << name;
    }
}

TEST_F(DeleteErrors, CancelInABoxIsEsc) {
    Files({"r1", "z"});
    Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
    TagAll(session);
    session.Press("F8");
    EXPECT_TRUE(AsksReadOnly(session, "r1")) << session.Text();
    session.Press({"Right", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("r1", "z"));

    tree.Mode("top", 0555);
    session.Press("F8");
    EXPECT_TRUE(IsDenied(session, "r1")) << session.Text();
    session.Press({"Right", "Right", "Enter"});
    EXPECT_TRUE(IsOver(session)) << "nothing is said of the second";
    EXPECT_THAT(Names(), ElementsAre("r1", "z"));
}

TEST_F(DeleteErrors, AReadOnlyFileLeavesItsDescription) {
    Files({"a", "r1", "z"});
    File("descript.ion", "a one\nr1 two\nz three\n");
    Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
    Tag(session, {"a", "r1"});
    session.Press("F8");
    EXPECT_TRUE(AsksReadOnly(session, "r1")) << session.Text();
    session.Press("Enter");
    EXPECT_THAT(Names(), ElementsAre("descript.ion", "z"));
    EXPECT_EQ("r1 two\nz three\n", tree.Content("top/descript.ion"));
}

TEST_F(DeleteErrors, TheDialogSaysWhatHappensToReadOnlyFiles) {
    const struct {
        const char* key;
        bool asks;
        std::vector<std::string> left;
    } rows[] = {
        {"Alt-k", true, {"r1", "r2"}},
        {"Alt-a", false, {}},
        {"Alt-e", false, {"r1", "r2"}},
    };
    for (const auto& row : rows) {
        tree.Remove("top").Folder("top");
        Files({"a", "r1", "r2", "z"});
        Session session(AsOrdinaryUser(kNoGroup));
        TagAll(session);
        session.Press({"F8", row.key, "Enter"});
        EXPECT_EQ(row.asks, AsksReadOnly(session, "r1")) << row.key;
        if (row.asks) session.Press({"Alt-s", "Alt-s"});
        EXPECT_TRUE(IsOver(session)) << row.key;
        EXPECT_EQ(row.left, Names()) << row.key;
    }
}

TEST_F(DeleteErrors, TheAnswerIsForgottenAfterTheCommand) {
    Files({"r1", "r2"});
    Session session(AsOrdinaryUser(kNoFirst));
    GoToName(session, "r1");
    session.Press({"F8", "Alt-a"});
    EXPECT_THAT(Names(), ElementsAre("r2"));
    GoToName(session, "r2");
    session.Press("F8");
    EXPECT_TRUE(AsksReadOnly(session, "r2"));
    session.Press("Esc");
    EXPECT_THAT(Names(), ElementsAre("r2"));
}

TEST_F(DeleteErrors, AReadOnlyFileInATreeIsAskedAbout) {
    const struct {
        const char* key;
        bool goes;
    } rows[] = {{"Enter", true}, {"Esc", false}, {"Alt-s", false}, {"Alt-e", false}};
    for (const auto& row : rows) {
        tree.Remove("top").Folder("top").File("top/dir/sub/r1");
        tree.Mode("top/dir/sub/r1", 0444);
        Session session(AsOrdinaryUser(kNoFirst | kNoTree));
        session.Press({"Down", "F8"});
        EXPECT_TRUE(AsksReadOnly(session, "dir/sub/r1")) << session.Text();
        session.Press(row.key);
        EXPECT_TRUE(IsOver(session)) << "what stays is left without a further question";
        EXPECT_EQ(!row.goes, Exists("dir/sub/r1")) << row.key;
        EXPECT_EQ(!row.goes, Exists("dir")) << row.key;
    }
}

TEST_F(DeleteErrors, ALinkToAReadOnlyFileIsNone) {
    tree.File("outside");
    tree.Mode("outside", 0444).Link("top/link", "../outside");
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(tree.Exists("outside"));
}

// --- A directory that lets nothing go ---

TEST_F(DeleteErrors, AFileThatMayNotGoIsToldOf) {
    Files({"a"});
    tree.Mode("top", 0555);
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsDenied(session, "a")) << session.Text();
    EXPECT_TRUE(Shows(session, "[ Retry ]  [ Skip ]  [ Cancel ]")) << session.Text();
    session.Press("Alt-r");
    EXPECT_TRUE(IsDenied(session, "a")) << "again";
    session.Press("Alt-s");
    EXPECT_TRUE(IsOver(session));
    session.Press({"F8", "Esc"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), ElementsAre("a"));
    session.Press("F8");
    tree.Mode("top", 0755);
    session.Press("Alt-r");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteErrors, AReadOnlyFileThatMayNotGoIsNoQuestionOfItsOwn) {
    Files({"r1"});
    tree.Mode("top", 0555);
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsDenied(session, "r1")) << session.Text();
    session.Press("Esc");
    EXPECT_THAT(Names(), ElementsAre("r1"));
}

TEST_F(DeleteErrors, AFileInAGroupThatMayNotGo) {
    const struct {
        const char* key;
        std::vector<std::string> left;
        bool isMended;  // what refused is out of the way when the key is pressed
    } rows[] = {
        {"Alt-s", {"b"}, false},
        {"Esc", {"b", "c"}, false},
        {"Alt-r", {}, true},
    };
    for (const auto& row : rows) {
        tree.Remove("top").Folder("top");
        Files({"a", "b", "c"});
        Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
        TagAll(session);
        // What the panel knows as a file is a directory by now, and refuses to be unlinked.
        tree.Remove("top/b").Folder("top/b").GiveTo(OrdinaryUser());
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "Is a directory (21)")) << session.Text();
        EXPECT_TRUE(Shows(session, "/top/b ")) << session.Text();
        if (row.isMended) tree.Remove("top/b").File("top/b").GiveTo(OrdinaryUser());
        session.Press(row.key);
        EXPECT_TRUE(IsOver(session)) << row.key;
        EXPECT_EQ(row.left, Names()) << row.key;
        for (const std::string& name : row.left)
            EXPECT_TRUE(IsTagged(session, name)) << row.key << name;
    }
}

TEST_F(DeleteErrors, AFileThatIsGoneIsToldOf) {
    for (const char* key : {"Enter", "Esc"}) {
        tree.Remove("top").Folder("top");
        Files({"a", "b", "c"});
        Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
        TagAll(session);
        tree.Remove("top/b");
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
        EXPECT_TRUE(Shows(session, "/top/b ")) << session.Text();
        session.Press(key);
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(std::string(key) == "Enter" ? std::vector<std::string>{}
                                              : std::vector<std::string>{"c"},
                  Names());
    }
}

// --- Directories ---

TEST_F(DeleteErrors, ADirectoryThatMayNotGoIsToldOf) {
    tree.Folder("top/dir");
    tree.Mode("top", 0555);
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press("Down");
    for (const char* key : {"Alt-s", "Esc"}) {
        session.Press("F8");
        EXPECT_TRUE(IsDenied(session, "dir")) << session.Text();
        session.Press(key);
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(Names(), ElementsAre("dir"));
    }
    session.Press("F8");
    tree.Mode("top", 0755);
    session.Press("Alt-r");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteErrors, AReadOnlyDirectoryHasAQuestionOfItsOwn) {
    const struct {
        const char* key;
        bool asksAgain;
    } rows[] = {
        {"Enter", true},  // it still may not go
        {"Alt-a", true}, {"Alt-e", true}, {"Alt-s", false}, {"Esc", false},
    };
    tree.Folder("top/dir");
    tree.Mode("top/dir", 0555).Mode("top", 0555);
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press("Down");
    for (const auto& row : rows) {
        session.Press("F8");
        EXPECT_TRUE(Shows(session, "Directory is Read Only, Delete anyway?")) << session.Text();
        EXPECT_TRUE(Shows(session, "/top/dir ")) << session.Text();
        session.Press(row.key);
        EXPECT_EQ(row.asksAgain, Shows(session, "Directory is Read Only, Delete anyway?"))
            << row.key;
        if (row.asksAgain) session.Press("Alt-s");
        EXPECT_TRUE(IsOver(session)) << row.key;
        EXPECT_THAT(Names(), ElementsAre("dir")) << row.key;
    }
    session.Press("F8");
    tree.Mode("top", 0755);
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

// "All" counts once, and "None" is for files.
TEST_F(DeleteErrors, AReadOnlyDirectoryIsAskedAboutWhateverTheDialogSays) {
    tree.Folder("top/dir");
    tree.Mode("top/dir", 0555).Mode("top", 0555);
    Session session(AsOrdinaryUser());
    session.Press("Down");
    for (const char* key : {"Alt-k", "Alt-a", "Alt-e"}) {
        session.Press({"F8", key, "Enter"});
        EXPECT_TRUE(Shows(session, "Directory is Read Only, Delete anyway?"))
            << key << session.Text();
        session.Press("Esc");
        EXPECT_TRUE(IsOver(session)) << key;
    }
    EXPECT_THAT(Names(), ElementsAre("dir"));
}

TEST_F(DeleteErrors, EscAboutADirectoryDoesNotEndTheGroup) {
    for (const bool isReadOnly : {false, true}) {
        tree.Remove("top").Folder("top").Folder("top/d1").Folder("top/d2");
        if (isReadOnly) tree.Mode("top/d1", 0555).Mode("top/d2", 0555);
        Session session(AsOrdinaryUser(kNoFirst | kNoGroup));
        TagAll(session);
        tree.Mode("top", 0555);
        session.Press("F8");
        for (const char* name : {"d1", "d2"}) {
            EXPECT_EQ(isReadOnly, Shows(session, "Directory is Read Only")) << session.Text();
            EXPECT_EQ(!isReadOnly, IsDenied(session, name)) << session.Text();
            EXPECT_TRUE(Shows(session, "/top/" + std::string(name) + " ")) << session.Text();
            session.Press("Esc");
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(Names(), ElementsAre("d1", "d2"));
        EXPECT_TRUE(IsTagged(session, "d1") && IsTagged(session, "d2"));
        tree.Mode("top", 0755);
    }
}

TEST_F(DeleteErrors, AReadOnlyDirectoryThatMayGoIsNotAskedAbout) {
    tree.Folder("top/dir");
    tree.Mode("top/dir", 0555);
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeleteErrors, ADirectoryThatCannotBeReadIsLeftWithoutAWord) {
    tree.File("top/dir/locked/in");
    tree.Mode("top/dir/locked", 0000);
    Session session(AsOrdinaryUser(kNoFirst | kNoTree));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsOver(session)) << session.Text();
    tree.Mode("top/dir/locked", 0755);
    EXPECT_THAT(Names("dir/locked"), ElementsAre("in"));
}

TEST_F(DeleteErrors, ADirectoryThatIsGoneIsToldOf) {
    tree.Folder("top/dir");
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press("Down");
    tree.Remove("top/dir");
    session.Press("F8");
    EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
}

TEST_F(DeleteErrors, ADirectoryThatIsNoneAnyMoreIsToldOf) {
    tree.Folder("top/dir").File("outside/precious");
    Session session(AsOrdinaryUser(kNoFirst));
    session.Press("Down");
    tree.Remove("top/dir").Link("top/dir", "../outside");
    session.Press("F8");
    EXPECT_TRUE(Shows(session, "Directory does not exist, cannot delete")) << session.Text();
    EXPECT_TRUE(Shows(session, "[ OK ]"));
    EXPECT_FALSE(Shows(session, "[ Cancel ]"));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("outside"), ElementsAre("precious"));
}

// --- The window ---

// On a screen of 60 rows a box stands below the window, which is seen whole.
class DeletingWindow : public DeleteErrors {
protected:
    SessionOptions Tall(int confirmations) {
        SessionOptions options = AsOrdinaryUser(confirmations);
        options.rows = 60;
        return options;
    }
    // With this text between its frames, for a path of `width` characters at most.
    static std::vector<std::string> Window(const Session& session, int width) {
        const int whole = width + width % 2 + 4;
        return BoxRows(session, (80 - whole) / 2, 14, whole, 4);
    }
    static std::vector<std::string> Expected(const std::string& path, int width) {
        const int inner = width + width % 2 + 2;
        std::string line;
        for (int i = 0; i < inner; i++)
            line += "═";
        return {"╔" + line + "╗", "║" + Middle("Deleting the file", inner) + "║",
                "║" + Middle(path, inner) + "║", "╚" + line + "╝"};
    }

private:
    static std::string Middle(const std::string& text, int width) {
        const size_t left = (static_cast<size_t>(width) - text.size()) / 2;
        std::string row = std::string(left, ' ') + text;
        row.resize(static_cast<size_t>(width), ' ');
        return row;
    }
};

TEST_F(DeletingWindow, ShowsTheFileThatIsBeingDeleted) {
    for (int i = 0; i < 10; i++)
        tree.File("top/dir/a" + std::to_string(i));
    tree.File("top/dir/r1").Mode("top/dir/r1", 0444);
    Session session(Tall(kNoFirst | kNoTree));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(AsksReadOnly(session, "dir/r1"));
    const std::string path = tree.PathOf("top/dir/r1");
    EXPECT_EQ(Expected(path, static_cast<int>(path.size())),
              Window(session, static_cast<int>(path.size())))
        << session.Text();
    session.Press("Alt-s");
    EXPECT_TRUE(IsOver(session)) << "and the window is gone";
    EXPECT_THAT(Names("dir"), ElementsAre("r1"));
}

TEST_F(DeletingWindow, GrowsWithThePathAndDoesNotShrink) {
    const std::string longName = "r2" + std::string(11, 'n');
    Files({"r1", longName, "r3"});
    Session session(Tall(kNoFirst | kNoGroup));
    TagAll(session);
    session.Press("F8");
    int width = 0;
    for (const std::string& name : {std::string("r1"), longName, std::string("r3")}) {
        EXPECT_TRUE(AsksReadOnly(session, name)) << session.Text();
        const std::string path = tree.PathOf("top/" + name);
        width = std::max(width, static_cast<int>(path.size()));
        EXPECT_EQ(Expected(path, width), Window(session, width)) << session.Text();
        session.Press("Alt-s");
    }
    EXPECT_TRUE(IsOver(session));
}

TEST_F(DeletingWindow, ShortensALongPath) {
    const std::string name = "r" + std::string(100, 'n');
    Files({name});
    Session session(Tall(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_EQ(Expected("/tmp/..." + std::string(62, 'n'), 70), Window(session, 70))
        << session.Text();
    session.Press("Enter");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(DeletingWindow, IsNotThereForAnEmptyDirectory) {
    tree.Folder("top/dir");
    tree.Mode("top", 0555);
    Session session(Tall(kNoFirst));
    session.Press({"Down", "F8"});
    EXPECT_TRUE(IsDenied(session, "dir"));
    EXPECT_FALSE(Shows(session, "Deleting the file"));
    session.Press("Esc");
}

}  // namespace
}  // namespace zt::headless
