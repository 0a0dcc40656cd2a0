// Copying in the whole program: what is asked, what is on the disk afterwards, and what the panels
// show.
#include "tests/headless/copy_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kExists = "File already exists, Overwrite?";

class Copying : public CopyFixture {
protected:
    // a, b, c in src and, older by so many seconds or the same or newer, in dst.
    void ThreeThatExist() {
        const time_t noon = UtcTime(2020, 5, 5, 12);
        const struct {
            const char* name;
            int newerBy;
        } rows[] = {{"a", 5}, {"b", 0}, {"c", -5}};
        for (const auto& row : rows) {
            const std::string name = row.name;
            tree.File("src/" + name, "new " + name).Time("src/" + name, noon + row.newerBy);
            tree.File("dst/" + name, "old " + name).Time("dst/" + name, noon);
        }
    }
    std::string InDst() {
        std::string all;
        for (const std::string& name : tree.Names("dst"))
            all += tree.Content("dst/" + name) + "; ";
        return all;
    }
    // Names of the left panel that are tagged, joined.
    static std::string Tagged(const Session& session) {
        std::string all;
        for (const std::string& name : PanelView(session, 0).Names()) {
            if (IsTagged(session, name)) all += name;
        }
        return all;
    }
    static void Start(Session& session, const char* mode) {
        Tag(session, {"a", "b", "c"});
        session.Press("F5");
        session.Press(mode);
        session.Press({"Tab", "Enter"});
    }
};

TEST_F(Copying, AFileKeepsContentModeAndTime) {
    const std::string content(100000, 'x');
    tree.File("src/f", content + "end").Mode("src/f", 0741);
    tree.Time("src/f", UtcTime(2001, 2, 3, 4, 5, 6));
    Session session(Here());
    GoToName(session, "f");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ(content + "end", tree.Content("dst/f"));
    EXPECT_EQ(mode_t{0741}, ModeOf("dst/f"));
    EXPECT_EQ(UtcTime(2001, 2, 3, 4, 5, 6), TimeOf("dst/f"));
    EXPECT_THAT(tree.Names("dst"), ElementsAre("f"));
    EXPECT_EQ(content + "end", tree.Content("src/f"));
    // Both panels have been read again; the cursor stands where it stood.
    EXPECT_EQ("f", PanelView(session, 0).BarName());
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "f"));
}

TEST_F(Copying, AnEmptyFile) {
    tree.File("src/f");
    Session session(Here());
    GoToName(session, "f");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("", tree.Content("dst/f"));
}

TEST_F(Copying, UnderAnotherName) {
    tree.File("src/f", "text");
    Session session(Here());
    GoToName(session, "f");
    const struct {
        std::string typed;
        const char* result;
    } rows[] = {{tree.PathOf("dst/g"), "dst/g"}, {"../dst/h", "dst/h"}, {"i", "src/i"},
                {"  spaced  ", "src/spaced"},    {"..", "f"},           {"../dst/", "dst/f"},
                {"sub/", "src/sub/f"},           {"./j", "src/j"}};
    tree.Folder("src/sub");
    session.Press("Ctrl-r");
    GoToName(session, "f");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        session.Press("F5");
        Destination(session, row.typed);
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("text", tree.Content(row.result));
        EXPECT_EQ("f", PanelView(session, 0).BarName());
    }
}

TEST_F(Copying, ByAMask) {
    tree.File("src/report.txt", "1").File("src/abc.txt", "2").Folder("keep");
    Session session(Here());
    Tag(session, {"report.txt", "abc.txt"});
    session.Press("F5");
    Destination(session, "*.bak");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("1", tree.Content("src/report.bak"));
    EXPECT_EQ("2", tree.Content("src/abc.bak"));
    GoToName(session, "abc.txt");
    session.Press("F5");
    Destination(session, "../dst/?x*");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("2", tree.Content("dst/axbc"));
}

TEST_F(Copying, ADirectoryWithAllBelowIt) {
    tree.File("src/d/one", "1").File("src/d/sub/two", "2").Folder("src/d/empty");
    tree.Link("src/d/link", "one").Link("src/d/broken", "nothing");
    tree.Mode("src/d/sub", 0750).Mode("src/d", 0711);
    Session session(Here());
    GoToName(session, "d");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("1", tree.Content("dst/d/one"));
    EXPECT_EQ("2", tree.Content("dst/d/sub/two"));
    EXPECT_TRUE(tree.Exists("dst/d/empty"));
    EXPECT_EQ("one", LinkText("dst/d/link"));
    EXPECT_EQ("nothing", LinkText("dst/d/broken"));
    EXPECT_EQ(mode_t{0750}, ModeOf("dst/d/sub"));
    EXPECT_EQ(mode_t{0711}, ModeOf("dst/d"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "d"));
}

TEST_F(Copying, ADirectoryMergesIntoOneThatExists) {
    tree.File("src/d/one", "new").File("src/d/two", "2").File("dst/d/one", "old");
    tree.File("dst/d/three", "3");
    Session session(Here());
    GoToName(session, "d");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/d/one")}));
    session.Type("s");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("old", tree.Content("dst/d/one"));
    EXPECT_EQ("2", tree.Content("dst/d/two"));
    EXPECT_EQ("3", tree.Content("dst/d/three"));
}

TEST_F(Copying, LinksAreMadeAgainOrFollowed) {
    tree.File("src/file", "text").File("src/dir/inner", "in");
    tree.Link("src/tofile", "file").Link("src/todir", "dir");
    Session session(Here());
    Tag(session, {"tofile", "todir"});
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("file", LinkText("dst/tofile"));
    EXPECT_EQ("dir", LinkText("dst/todir"));
    tree.Remove("dst/tofile").Remove("dst/todir");
    session.Press("Alt-Grey+");  // what was done is tagged again
    EXPECT_TRUE(IsTagged(session, "tofile"));
    EXPECT_TRUE(IsTagged(session, "todir"));
    session.Press({"F5", "Alt-d", "Tab", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("dst/tofile"));
    EXPECT_EQ("in", tree.Content("dst/todir/inner"));
    EXPECT_EQ("no link", LinkText("dst/tofile"));
    EXPECT_EQ("no link", LinkText("dst/todir"));
}

TEST_F(Copying, OntoItselfIsRefused) {
    tree.File("src/f", "text").File("src/g", "more");
    Session session(Here());
    GoToName(session, "f");
    for (const std::string& typed : {std::string("f"), tree.PathOf("src") + "/f", std::string("./"),
                                     std::string("../src/f")}) {
        session.Press("F5");
        Destination(session, typed);
        session.Press("Enter");
        EXPECT_TRUE(HasBox(session, {"File cannot overwrite itself", tree.PathOf("src/f")}));
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("text", tree.Content("src/f"));
    }
    // In a group OK goes on with the next, Esc ends all.
    Tag(session, {"f", "g"});
    session.Press("F5");
    Destination(session, tree.PathOf("src") + "/");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"File cannot overwrite itself", "src/f"}));
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"File cannot overwrite itself", "src/g"}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("fg", Tagged(session));
    session.Press("F5");
    Destination(session, tree.PathOf("src") + "/");
    session.Press({"Enter", "Esc"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("more", tree.Content("src/g"));
    EXPECT_TRUE(HasNoRemains("src"));
}

TEST_F(Copying, ADirectoryIntoItselfIsRefused) {
    tree.File("src/a/b/c", "text").Folder("src/ab");
    Session session(Here());
    GoToName(session, "a");
    session.Press("F5");
    Destination(session, "a/b/");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"Directory cannot be copied into itself", tree.PathOf("src/a")}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src/a/b"), ElementsAre("c"));
    // A name that only begins the same is another directory.
    session.Press("F5");
    Destination(session, "ab/");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("src/ab/a/b/c"));
}

TEST_F(Copying, AsksBeforeItOverwrites) {
    ThreeThatExist();
    Session session(Here());
    GoToName(session, "a");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/a"), "[ OK ]", "[ Cancel ]", "[ Skip ]",
                                 "[ All ]", "[ None ]", "[ All Older ]"}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("new a; old b; old c; ", InDst());
    EXPECT_TRUE(HasNoRemains("dst"));
}

// Every answer of the box, given at the first of three files.
TEST_F(Copying, EachAnswerOfTheBoxHolds) {
    const struct {
        const char* answer;
        const char* inDst;
        const char* tagged;  // still
        bool asksAgain;
    } rows[] = {
        {"y", "new a; old b; old c; ", "bc", true},  {"a", "new a; new b; new c; ", "", false},
        {"s", "old a; old b; old c; ", "abc", true}, {"e", "old a; old b; old c; ", "abc", false},
        {"d", "new a; old b; old c; ", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        ThreeThatExist();
        Session session(Here());
        Start(session, "Alt-k");
        EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/a")}));
        session.Type(row.answer);
        if (row.asksAgain) {
            EXPECT_TRUE(HasBox(session, {kExists, tree.PathOf("dst/b")}));
            session.Press("Esc");
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.inDst, InDst());
        EXPECT_EQ(row.tagged, Tagged(session));
        EXPECT_TRUE(HasNoRemains("dst"));
    }
}

TEST_F(Copying, EscAtTheFirstBoxLeavesAll) {
    ThreeThatExist();
    Session session(Here());
    Start(session, "Alt-k");
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("old a; old b; old c; ", InDst());
    EXPECT_EQ("abc", Tagged(session));
}

TEST_F(Copying, EachModeOfTheDialogHolds) {
    const struct {
        const char* mode;
        const char* inDst;
        const char* tagged;
    } rows[] = {
        {"Alt-a", "new a; new b; new c; ", ""},
        {"Alt-e", "old a; old b; old c; ", "abc"},
        {"Alt-l", "new a; old b; old c; ", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        ThreeThatExist();
        Session session(Here());
        Start(session, row.mode);
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.inDst, InDst());
        EXPECT_EQ(row.tagged, Tagged(session));
        EXPECT_TRUE(HasNoRemains("dst"));
    }
}

// What was chosen for one command is forgotten with it.
TEST_F(Copying, ModesEndWithTheCommand) {
    ThreeThatExist();
    Session session(Here());
    Start(session, "Alt-a");
    GoToName(session, "a");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists}));
    session.Press("Esc");
    Tag(session, {"a"});
    session.Press("F5");
    EXPECT_TRUE(HasBox(session, {"(\u2022) Ask"}));
    session.Press("Esc");
}

TEST_F(Copying, RestoringTheSelectionBringsTheGroupBack) {
    tree.File("src/a", "1").File("src/b", "2").File("src/c", "3");
    Session session(Here());
    Tag(session, {"a", "c"});
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("", Tagged(session));
    session.Press("Alt-Grey+");
    EXPECT_EQ("ac", Tagged(session));
    // A new run forgets the old one.
    session.Press("Alt-Grey+");
    Tag(session, {"a"});
    EXPECT_EQ("c", Tagged(session));
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {kExists}));
    session.Type("y");
    session.Press("Alt-Grey+");
    EXPECT_EQ("c", Tagged(session));
}

TEST_F(Copying, ToADirectoryThatIsNotThere) {
    tree.File("src/a", "1").File("src/b", "2").File("src/file", "3");
    Session session(Here());
    Tag(session, {"a", "b"});
    const struct {
        const char* typed;
        const char* message;
    } rows[] = {
        {"none/", "Directory does not exist"},
        {"none", "Destination must be a valid directory"},
        {"file", "Destination must be a valid directory"},
        {"file/", "Directory does not exist"},
        {"none/*.bak", "Directory does not exist"},
        {"../../../../../../../../../../../../../../../x/", "Invalid path"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        session.Press("F5");
        Destination(session, row.typed);
        session.Press("Enter");
        EXPECT_TRUE(HasBox(session, {row.message, row.typed, "[ OK ]"}));
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("ab", Tagged(session));
    }
    GoToName(session, "file");
    session.Press({"Ctrl-Grey-", "F5"});
    Destination(session, "../../../../../../../../../../../../../../../x/y");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"Invalid path"}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("dst").empty());
}

TEST_F(Copying, SeveralFilesIntoAPipe) {
    tree.File("src/a", "first ").File("src/b", "second");
    mkfifo(tree.PathOf("dst/pipe").c_str(), 0600);
    chmod(tree.PathOf("dst/pipe").c_str(), 0600);
    const int reader = open(tree.PathOf("dst/pipe").c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    Session session(Here());
    Tag(session, {"a", "b"});
    session.Press("F5");
    Destination(session, tree.PathOf("dst/pipe"));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    char bytes[64];
    const ssize_t n = read(reader, bytes, sizeof bytes);
    EXPECT_EQ("first second", std::string(bytes, static_cast<size_t>(std::max<ssize_t>(n, 0))));
    close(reader);
    EXPECT_TRUE(S_ISFIFO(Look("dst/pipe").st_mode));
    EXPECT_EQ("", Tagged(session));
}

TEST_F(Copying, DescriptionsGoWithTheirFiles) {
    tree.File("src/a", "1").File("src/with blank", "2").File("src/c", "3");
    tree.File("src/descript.ion", "a the first\r\n\"with blank\" the second\nc third\n");
    tree.File("dst/descript.ion", "other stays\r\n");
    Session session(Here());
    Tag(session, {"a", "with blank"});
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    const std::string lines = tree.Content("dst/descript.ion");
    EXPECT_THAT(lines, HasSubstr("other stays\r\n"));
    EXPECT_THAT(lines, HasSubstr("a the first"));
    EXPECT_THAT(lines, HasSubstr("\"with blank\" the second"));
    EXPECT_THAT(lines, testing::Not(HasSubstr("third")));
    EXPECT_EQ("a the first\r\n\"with blank\" the second\nc third\n",
              tree.Content("src/descript.ion"));
}

// With the source's file system among those whose names have no case of their own, files in a tree
// arrive in small letters and directories keep theirs.
TEST_F(Copying, FoldsNamesFromAListedFileSystem) {
    const std::string type = FileSystemOf("/dev/shm");
    if (type.empty()) GTEST_SKIP() << "/dev/shm is no file system of its own here";
    const TreeElsewhere there("/dev/shm");
    there->File("DIR/Sub/lower", "1").File("DIR/UPPER", "2").File("DIR/upper", "2");
    home.File(".ztx/zt.ini", "CaseFilter=abc," + type + "\n");
    SessionOptions options = Here();
    options.directory = there->Path();
    Session session(options);
    session.Press({"Down", "F5", "Alt-a", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("dst/DIR"), ElementsAre("Sub", "upper"));
    EXPECT_THAT(tree.Names("dst/DIR/Sub"), ElementsAre("lower"));
}

TEST_F(Copying, NamesOfAnyBytes) {
    std::vector<std::string> names = OddNames();
    for (size_t i = 0; i < names.size(); i++)
        tree.File("src/" + names[i], "number " + std::to_string(i));
    Session session(Here());
    session.Press({"Ctrl-Grey+", "F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    for (size_t i = 0; i < names.size(); i++) {
        EXPECT_EQ("number " + std::to_string(i), tree.Content("dst/" + names[i])) << names[i];
    }
    EXPECT_EQ(names.size(), tree.Names("dst").size());
}

// One by one, through the dialog's field, as it suggests them.
TEST_F(Copying, ASingleNameOfAnyBytes) {
    for (const std::string& name : OddNames()) {
        SCOPED_TRACE(name);
        tree.Remove("src").Remove("dst").Folder("dst");
        tree.File("src/" + name, "text of it");
        Session session(Here());
        session.Press({"Down", "F5", "Enter"});
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(tree.Names("dst"), ElementsAre(name));
        EXPECT_EQ("text of it", tree.Content("dst/" + name));
        // And with the directory taken off and put back.
        tree.Remove("dst/" + name);
        session.Press({"F5", "Alt-d", "Alt-d", "Enter"});
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(tree.Names("dst"), ElementsAre(name));
    }
}

TEST_F(Copying, TheOtherPanelIsReadAgainToo) {
    tree.File("src/a", "1");
    SessionOptions options = Here();
    options.arguments = {"-r", tree.PathOf("src")};
    Session session(options);
    GoToName(session, "a");
    session.Press("Shift-F5");
    session.Press("End");
    session.Type("2");
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "a", "a2"));
    EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "a", "a2"));
    EXPECT_EQ("a", PanelView(session, 0).BarName());
}

TEST_F(Copying, FromTheRightToTheLeft) {
    tree.File("dst/a", "1");
    Session session(Here());
    session.Press({"Tab", "Down", "F5", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("1", tree.Content("src/a"));
    EXPECT_EQ("a", PanelView(session, 1).BarName());
}

}  // namespace
}  // namespace zt::headless
