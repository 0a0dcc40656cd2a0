// What goes wrong when copying and moving, as an ordinary user meets it: each box with each of its
// answers, and what is on the disk then.
#include "tests/headless/copy_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CopyErrors : public CopyFixture {
protected:
    static std::string Tagged(const Session& session) {
        std::string all;
        for (const std::string& name : PanelView(session, 0).Names()) {
            if (IsTagged(session, name)) all += name;
        }
        return all;
    }
};

TEST_F(CopyErrors, ASourceThatMayNotBeRead) {
    tree.File("src/closed", "text").File("src/open", "text").Mode("src/closed", 0000);
    Session session(AsOrdinaryUser());
    Tag(session, {"closed", "open"});
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"Access Denied", tree.PathOf("src/closed"), "[ Retry ]",
                                 "[ Skip ]", "[ Cancel ]"}));
    session.Type("r");
    EXPECT_TRUE(HasBox(session, {"Access Denied"}));
    session.Type("s");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("dst"), ElementsAre("open"));
    EXPECT_EQ("closed", Tagged(session)) << "what was not done can be done again";
    // Now it may be read, at the second look.
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"Access Denied"}));
    tree.Mode("src/closed", 0644);
    session.Type("r");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("dst/closed"));
    EXPECT_EQ("", Tagged(session));
}

TEST_F(CopyErrors, CancelEndsTheGroup) {
    tree.File("src/a", "1").File("src/b", "2").Mode("src/a", 0000);
    Session session(AsOrdinaryUser());
    for (const char* key : {"Esc", "Tab"}) {
        if (Tagged(session).empty()) Tag(session, {"a", "b"});
        session.Press({"F5", "Enter"});
        EXPECT_TRUE(HasBox(session, {"Access Denied"}));
        if (std::string(key) == "Esc") {
            session.Press("Esc");
        } else {
            session.Press({"Right", "Right", "Enter"});
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_TRUE(tree.Names("dst").empty());
        EXPECT_EQ("ab", Tagged(session));
    }
}

TEST_F(CopyErrors, ADirectoryThatTakesNothing) {
    tree.File("src/a", "text").Mode("dst", 0555);
    Session session(AsOrdinaryUser());
    GoToName(session, "a");
    for (const char* key : {"F5", "F6"}) {
        session.Press({key, "Enter"});
        EXPECT_TRUE(HasBox(session, {"Access Denied", "src/a"})) << key;
        session.Type("s");
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ("text", tree.Content("src/a"));
    }
    EXPECT_TRUE(tree.Names("dst").empty());
}

// The target itself may be written though its directory takes no new file.
TEST_F(CopyErrors, ATargetIsWrittenInPlaceWhereNothingElseGoes) {
    tree.File("src/a", "new").File("dst/a", "longer and old").Mode("dst", 0555);
    Session session(AsOrdinaryUser());
    GoToName(session, "a");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"File already exists, Overwrite?"}));
    session.Type("y");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("new", tree.Content("dst/a"));
}

TEST_F(CopyErrors, AReadOnlyTargetIsAskedAbout) {
    const struct {
        const char* answer;
        const char* content;
    } rows[] = {{"s", "old"}, {"Esc", "old"}, {"e", "old"}, {"y", "new"}, {"a", "new"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        tree.File("src/a", "new").File("dst/a", "old").Mode("dst/a", 0444);
        Session session(AsOrdinaryUser());
        GoToName(session, "a");
        session.Press({"F5", "Enter"});
        EXPECT_TRUE(HasBox(session, {"File already exists, Overwrite?"}));
        session.Type("y");
        EXPECT_TRUE(HasBox(session, {"File is Read Only, Delete anyway?", tree.PathOf("dst/a")}));
        if (std::string(row.answer) == "Esc") {
            session.Press("Esc");
        } else {
            session.Type(row.answer);
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.content, tree.Content("dst/a"));
        EXPECT_TRUE(HasNoRemains("dst"));
        tree.Remove("dst/a");
    }
}

TEST_F(CopyErrors, AWayThatIsNotThere) {
    tree.File("src/a", "text").File("src/file", "x");
    Session session(Here());
    GoToName(session, "a");
    session.Press("F5");
    Destination(session, "none/b");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"File not found", "[ OK ]", "[ Cancel ]"}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    session.Press("F5");
    Destination(session, "file/b");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"Path not found", tree.PathOf("src/file/b")}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src"), ElementsAre("a", "file"));
}

TEST_F(CopyErrors, ASourceThatHasGone) {
    tree.File("src/a", "1").File("src/b", "2");
    Session session(Here());
    Tag(session, {"a", "b"});
    tree.Remove("src/a");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"File not found", tree.PathOf("src/a")}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("dst"), ElementsAre("b"));
}

TEST_F(CopyErrors, NamesThatAreTooLong) {
    tree.File("src/a", "text");
    Session session(Here());
    GoToName(session, "a");
    const std::string name(256, 'n');
    for (const char* key : {"F5", "F6"}) {
        session.Press(key);
        Destination(session, name);
        session.Press("Enter");
        EXPECT_TRUE(HasBox(session, {"Name too long"})) << key;
        session.Press("Enter");
        EXPECT_TRUE(IsOver(session));
        EXPECT_THAT(tree.Names("src"), ElementsAre("a"));
    }
    // The longest that there is.
    session.Press("F5");
    Destination(session, std::string(255, 'n'));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("src/" + std::string(255, 'n')));
}

// The field takes 512 characters; a path of more than the system takes is refused, not cut.
TEST_F(CopyErrors, PathsThatAreTooLong) {
    tree.File("src/a", "text");
    std::string deep = tree.PathOf("dst");
    while (deep.size() < 4000) {
        deep += "/" + std::string(200, 'd');
        ASSERT_EQ(0, mkdir(deep.c_str(), 0755));
    }
    // By way of a link the field is long enough, and the path is not.
    const std::string below(200, 'e');
    tree.Link("short", deep);
    Session session(Here());
    GoToName(session, "a");
    session.Press("F5");
    Destination(session, tree.PathOf("short") + "/" + below + "/" + below);
    session.Press("Enter");
    EXPECT_FALSE(session.AtPrompt()) << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("text", tree.Content("src/a"));
    // What is typed beyond the field's end does not go in.
    session.Press("F5");
    Destination(session, std::string(512, 'x') + "yyy");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"Name too long"}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_THAT(tree.Names("src"), ElementsAre("a"));
}

TEST_F(CopyErrors, ADiskWithoutRoom) {
    tree.File("src/a", std::string(100000, 'x'));
    Session session(Here());
    GoToName(session, "a");
    session.Press("F5");
    Destination(session, "/dev/full");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(
        session, {"No room for", tree.PathOf("src/a"), "[ Retry ]", "[ Skip ]", "[ Cancel ]"}));
    session.Type("r");
    EXPECT_TRUE(HasBox(session, {"No room for"}));
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ(size_t{100000}, tree.Content("src/a").size());
}

TEST_F(CopyErrors, ALinkToNothingCannotBeFollowed) {
    tree.Link("src/l", "nothing");
    Session session(Here());
    GoToName(session, "l");
    session.Press({"F5", "Tab"});
    session.Type(" ");
    session.Press("Enter");
    EXPECT_TRUE(HasBox(session, {"File not found", tree.PathOf("src/l")}));
    session.Press("Enter");
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("dst").empty());
}

TEST_F(CopyErrors, ASocketCannotBeRead) {
    ASSERT_EQ(0, mknod(tree.PathOf("src/s").c_str(), S_IFSOCK | 0644, 0));
    Session session(Here());
    GoToName(session, "s");
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"No such device or address (6)", tree.PathOf("src/s")}));
    session.Type("s");
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("dst").empty());
    // It moves like anything else.
    session.Press({"F6", "Enter"});
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(S_ISSOCK(Look("dst/s").st_mode));
}

// The boxes name the file with its letters as they are shown elsewhere.
TEST_F(CopyErrors, BoxesShowNamesOfAnyBytes) {
    tree.File("src/not\xFFutf8", "new").File("dst/not\xFFutf8", "old");
    Session session(Here());
    session.Press({"Down", "F5", "Enter"});
    EXPECT_TRUE(
        HasBox(session, {"File already exists, Overwrite?", tree.PathOf("dst/not\xC3\xBFutf8")}));
    session.Type("y");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("new", tree.Content("dst/not\xFFutf8"));
}

TEST_F(CopyErrors, AFileOverADirectoryAndTheOtherWay) {
    tree.File("src/x", "file").Folder("dst/x").Folder("src/y").File("dst/y", "stays");
    Session session(Here());
    GoToName(session, "y");
    session.Press({"F5", "Enter"});
    EXPECT_FALSE(session.AtPrompt()) << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ("stays", tree.Content("dst/y"));
    GoToName(session, "x");
    session.Press({"F5", "Enter"});
    EXPECT_FALSE(session.AtPrompt()) << session.Text();
    session.Press("Esc");
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(S_ISDIR(Look("dst/x").st_mode));
}

// A file whose first opening is refused and whose second works counts as open for writing
// elsewhere: a lease that is given back brings that about.
class OpenElsewhere : public CopyErrors {
protected:
    // Holds a write lease on the file: whoever opens it without waiting is turned away, and it is
    // given back when the system asks for it.
    void Lease(const std::string& name) {
        file = open(tree.PathOf(name).c_str(), O_RDWR | O_CLOEXEC);
        ASSERT_GE(file, 0);
        if (fcntl(file, F_SETLEASE, F_WRLCK) != 0) GTEST_SKIP() << "no leases here";
        fcntl(file, F_SETSIG, SIGURG);  // which is ignored
    }
    void GiveBack() {
        fcntl(file, F_SETLEASE, F_UNLCK);
        close(file);
        file = -1;
    }
    ~OpenElsewhere() override {
        if (file >= 0) close(file);
    }

    int file = -1;
};

TEST_F(OpenElsewhere, IsAskedAbout) {
    const struct {
        const char* answer;
        bool copies;
    } rows[] = {{"y", true}, {"a", true}, {"s", false}, {"e", false}, {"Esc", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.answer);
        tree.File("src/a", "text");
        Session session(Here());
        GoToName(session, "a");
        Lease("src/a");
        if (IsSkipped()) return;
        for (const WireEvent& event : KeyPress("F5"))
            session.Send(event);
        EXPECT_TRUE(session.WaitForText("Copy \"a\" to"));
        for (const WireEvent& event : KeyPress("Enter"))
            session.Send(event);
        // The first attempt has been turned away; the second waits for the lease.
        EXPECT_TRUE(session.WaitFor([&] { return fcntl(file, F_GETLEASE) != F_WRLCK; },
                                    "the file to be asked for"));
        GiveBack();
        EXPECT_TRUE(session.WaitForText("File is open for writing, copy anyway?"));
        EXPECT_TRUE(session.WaitForQuiet());
        EXPECT_TRUE(HasBox(session, {tree.PathOf("src/a"), "[ OK ]", "[ Cancel ]", "[ Skip ]",
                                     "[ All ]", "[ None ]"}));
        if (std::string(row.answer) == "Esc") {
            session.Press("Esc");
        } else {
            session.Type(row.answer);
        }
        EXPECT_TRUE(IsOver(session));
        EXPECT_EQ(row.copies, tree.Exists("dst/a"));
        if (row.copies) tree.Remove("dst/a");
    }
}

}  // namespace
}  // namespace zt::headless
