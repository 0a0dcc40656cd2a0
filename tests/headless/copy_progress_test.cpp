// The progress window of a running copy, held still by a pipe that the test feeds; and stopping it.
#include "tests/headless/copy_fixture.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int kBlock = 32768;

// A pipe on the disk with a writer that the test holds.
class Feed {
public:
    explicit Feed(const std::string& path) : path_(path) {
        EXPECT_EQ(0, mkfifo(path.c_str(), 0600));
        EXPECT_EQ(0, chmod(path.c_str(), 0644));
    }
    ~Feed() { End(); }
    // True when somebody reads.
    bool Open() {
        if (writer_ < 0) writer_ = open(path_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        return writer_ >= 0;
    }
    void Give(int bytes) {
        const std::string data(static_cast<size_t>(bytes), 'x');
        EXPECT_EQ(bytes, write(writer_, data.data(), data.size()));
    }
    void End() {
        if (writer_ >= 0) close(writer_);
        writer_ = -1;
    }

private:
    std::string path_;
    int writer_ = -1;
};

class CopyProgressOnScreen : public CopyFixture {
protected:
    // The rows of the progress window, without its frame and the blanks around their text.
    static std::vector<std::string> Window(const Session& session) {
        std::vector<std::string> rows;
        int left = -1, right = -1, top = -1;
        for (int row = 0; row < session.Rows() && top < 0; row++) {
            for (int column = 1; column < session.Columns() - 20; column++) {
                const bool inPanel = row == 0;
                if (!inPanel && session.CharacterAt(column, row) == U'\u2554') {
                    left = column;
                    top = row;
                    break;
                }
            }
        }
        if (top < 0) return {};
        for (int column = left + 1; column < session.Columns(); column++) {
            if (session.CharacterAt(column, top) == U'\u2557') {
                right = column;
                break;
            }
        }
        for (int row = top + 1; row < top + 8; row++) {
            std::string text = session.Piece(left + 1, row, right - left - 1);
            text.erase(text.find_last_not_of(' ') + 1);
            text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
            rows.push_back(text);
        }
        return rows;
    }
    static int Count(const std::string& text, const std::string& what) {
        int n = 0;
        for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            n++;
        return n;
    }
    // A group of a pipe and a file after it, of which the pipe is being read.
    void StartFeeding(Session& session, Feed& feed) {
        Tag(session, {"feed", "second"});
        session.Press({"F5", "Enter"});
        ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    }
};

TEST_F(CopyProgressOnScreen, ShowsNamesCountBarAndTimes) {
    Feed feed(tree.PathOf("src/feed"));
    tree.File("src/second", std::string(4 * kBlock, 's'));
    Session session(Here());
    StartFeeding(session, feed);
    EXPECT_TRUE(session.WaitForText("(1 of 2)"));
    std::vector<std::string> rows = Window(session);
    ASSERT_EQ(7u, rows.size()) << session.Text();
    EXPECT_EQ("Copying", rows[0]);
    EXPECT_EQ(tree.PathOf("src/feed"), rows[1]);
    EXPECT_EQ("to", rows[2]);
    EXPECT_EQ(tree.PathOf("dst/feed"), rows[3]);
    EXPECT_EQ("(1 of 2)", rows[4]);
    EXPECT_EQ(45, Count(rows[5], "\u2591")) << session.Text();
    EXPECT_EQ("", rows[6]);
    EXPECT_FALSE(session.AtPrompt());
    feed.Give(kBlock);
    ASSERT_TRUE(session.WaitFor([&] { return Count(Window(session)[5], "\u2588") == 11; },
                                "a quarter of the bar"));
    EXPECT_TRUE(session.WaitForText("  ETA: "));
    rows = Window(session);
    EXPECT_EQ(34, Count(rows[5], "\u2591"));
    EXPECT_THAT(rows[6], StartsWith("Time: 0:"));
    EXPECT_THAT(rows[6], HasSubstr("  BPS: "));
    EXPECT_THAT(rows[6], HasSubstr("  ETA: "));
    feed.Give(kBlock);
    EXPECT_TRUE(session.WaitFor([&] { return Count(Window(session)[5], "\u2588") == 22; },
                                "half of the bar"));
    feed.End();
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_TRUE(IsOver(session));
    EXPECT_EQ(size_t{2 * kBlock}, tree.Content("dst/feed").size());
    EXPECT_EQ(size_t{4 * kBlock}, tree.Content("dst/second").size());
    EXPECT_TRUE(HasNoRemains("dst"));
}

TEST_F(CopyProgressOnScreen, ShowsWhatIsInsideADirectory) {
    tree.Folder("src/dir/sub");
    Feed feed(tree.PathOf("src/dir/sub/feed"));
    tree.File("src/second", std::string(kBlock, 's'));
    Session session(Here());
    Tag(session, {"dir", "second"});
    session.Press({"F5", "Enter"});
    ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    // The rows are painted from above to below, but for the bar.
    EXPECT_TRUE(session.WaitForText("src/dir/sub/feed"));
    EXPECT_TRUE(session.WaitForText("dst/dir/sub/feed"));
    EXPECT_TRUE(session.WaitForText("(1 of 2)"));
    const std::vector<std::string> rows = Window(session);
    EXPECT_EQ(tree.PathOf("dst/dir/sub/feed"), rows[3]);
    EXPECT_EQ("(1 of 2)", rows[4]);
    // Until all is in, nobody else may look into the new directories.
    EXPECT_EQ(mode_t{0700}, ModeOf("dst/dir"));
    EXPECT_EQ(mode_t{0700}, ModeOf("dst/dir/sub"));
    feed.End();
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_EQ(mode_t{0755}, ModeOf("dst/dir"));
}

TEST_F(CopyProgressOnScreen, SaysMovingOnTheWayToAnotherFileSystem) {
    const TreeElsewhere there("/dev/shm");
    struct stat here {
    }, elsewhere{};
    ASSERT_EQ(0, stat(tree.Path().c_str(), &here));
    ASSERT_EQ(0, stat(there->Path().c_str(), &elsewhere));
    if (here.st_dev == elsewhere.st_dev) GTEST_SKIP() << "/dev/shm is no file system of its own";
    Feed feed(tree.PathOf("src/feed"));
    tree.File("src/second", std::string(kBlock, 's'));
    SessionOptions options = Here();
    options.arguments = {"-r", there->Path()};
    Session session(options);
    Tag(session, {"feed", "second"});
    session.Press({"F6", "Enter"});
    ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    EXPECT_TRUE(session.WaitForText("(1 of 2)"));
    EXPECT_EQ("Moving", Window(session)[0]);
    EXPECT_EQ(there->PathOf("feed"), Window(session)[3]);
    feed.Give(3);
    feed.End();
    EXPECT_TRUE(session.WaitForNoText("Moving"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_EQ("xxx", there->Content("feed"));
    EXPECT_TRUE(tree.Names("src").empty());
}

// A box stands alone; and the work goes on behind it with the count that it had.
TEST_F(CopyProgressOnScreen, IsStillBesideAQuestion) {
    tree.File("src/a", std::string(2 * kBlock, 'a')).File("src/b", "new").File("dst/b", "old");
    Feed feed(tree.PathOf("src/c"));
    Session session(Here());
    Tag(session, {"a", "b", "c"});
    session.Press({"F5", "Enter"});
    EXPECT_TRUE(HasBox(session, {"File already exists, Overwrite?", "dst/b"}));
    const std::string before = session.Text();
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_EQ(before, session.Text());
    session.Type("y");
    ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    EXPECT_TRUE(session.WaitForText("(3 of 3)"));
    feed.End();
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_EQ("new", tree.Content("dst/b"));
}

TEST_F(CopyProgressOnScreen, EscStopsInTheMiddleAndLeavesNothing) {
    Feed feed(tree.PathOf("src/feed"));
    tree.File("src/second", std::string(kBlock, 's'));
    Session session(Here());
    StartFeeding(session, feed);
    feed.Give(kBlock);
    ASSERT_TRUE(session.WaitFor([&] { return Count(Window(session)[5], "\u2588") > 40; },
                                "the first block"));
    session.Send(*KeyEvent("Esc"));
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_TRUE(IsOver(session));
    EXPECT_TRUE(tree.Names("dst").empty());
    EXPECT_TRUE(IsTagged(session, "feed"));
    EXPECT_TRUE(IsTagged(session, "second"));
}

TEST_F(CopyProgressOnScreen, EscLeavesTheOldTarget) {
    Feed feed(tree.PathOf("src/feed"));
    tree.File("src/second", std::string(kBlock, 's')).File("dst/feed", "old");
    Session session(Here());
    Tag(session, {"feed", "second"});
    session.Press({"F5", "Alt-a", "Tab", "Tab", "Enter"});
    ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    feed.Give(kBlock);
    EXPECT_TRUE(session.WaitForText("Time: "));
    EXPECT_EQ("old", tree.Content("dst/feed")) << "until the new one is whole";
    session.Send(*KeyEvent("Esc"));
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
    EXPECT_THAT(tree.Names("dst"), ElementsAre("feed"));
    EXPECT_EQ("old", tree.Content("dst/feed"));
}

// The display goes away: the copy ends, and no half file stays.
TEST_F(CopyProgressOnScreen, EndOfInputStopsACopy) {
    Feed feed(tree.PathOf("src/feed"));
    tree.File("src/second", std::string(kBlock, 's'));
    Session session(Here());
    StartFeeding(session, feed);
    feed.Give(kBlock);
    EXPECT_TRUE(session.WaitForText("Time: "));
    session.CloseInput();
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_TRUE(HasNoRemains("dst"));
    EXPECT_FALSE(tree.Exists("dst/second"));
}

TEST_F(CopyProgressOnScreen, AWideNameWidensTheWindow) {
    const std::string name(62, 'w');
    Feed feed(tree.PathOf("src/" + name));
    tree.File("src/z", std::string(kBlock, 's'));
    SessionOptions options = Here();
    options.columns = 132;
    Session session(options);
    session.Press({"Ctrl-Grey+", "F5", "Enter"});
    ASSERT_TRUE(session.WaitFor([&] { return feed.Open(); }, "the pipe to be read"));
    EXPECT_TRUE(session.WaitForText("(1 of 2)"));
    EXPECT_EQ(tree.PathOf("src/" + name), Window(session)[1]);
    feed.End();
    EXPECT_TRUE(session.WaitForNoText("Copying"));
    EXPECT_TRUE(session.WaitForQuiet());
}

}  // namespace
}  // namespace zt::headless
