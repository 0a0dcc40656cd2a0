// Starting and ending zt-remote: the command line, the handshake, the first screen, the end.
#include "tests/support/panel_view.h"

#include <filesystem>

namespace zt::headless {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kExitQuestion = "Are you sure you want to exit Zanthe ?";

SessionOptions Words(std::vector<std::string> arguments) {
    SessionOptions options;
    options.arguments = std::move(arguments);
    return options;
}

TEST(StartUp, ShowsTwoPanelsOfTheWorkingDirectory) {
    for (const auto& [columns, rows] : {std::pair{80, 25}, {132, 50}}) {
        FileTree tree;
        tree.File("one", "1").Folder("two");
        SessionOptions options;
        options.directory = tree.Path();
        options.columns = columns;
        options.rows = rows;
        Session session(options);
        for (int side : {0, 1}) {
            const PanelView panel(session, side);
            EXPECT_TRUE(panel.IsShown()) << session.Text();
            EXPECT_EQ(tree.Path(), panel.Title());
            EXPECT_THAT(panel.Names(), ElementsAre("..", "two", "one"));
            EXPECT_EQ(side == 0, panel.IsActive());
        }
        EXPECT_EQ("Zanthe: " + tree.Path(), session.Title());
        EXPECT_TRUE(session.AtPrompt());
        EXPECT_EQ(rows - 2, session.CursorRow());
        EXPECT_EQ(0, session.Row(rows - 2).find(tree.Path().substr(0, 5)));
    }
}

TEST(StartUp, TakesADirectoryForEachPanel) {
    FileTree tree;
    tree.File("a/in-a").File("b/in-b");
    for (const char* sign : {"-", "\\"}) {
        for (const auto& [left, right] : {std::pair{"l", "r"}, {"L", "R"}}) {
            Session session(Words({sign + std::string(left), tree.PathOf("a"),
                                   sign + std::string(right), tree.PathOf("b")}));
            EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "in-a"));
            EXPECT_THAT(PanelView(session, 1).Names(), ElementsAre("..", "in-b"));
        }
    }
}

TEST(StartUp, KeepsTheWorkingDirectoryWhereTheGivenOneIsMissing) {
    FileTree tree;
    tree.File("here");
    SessionOptions options = Words({"-l", tree.PathOf("missing")});
    options.directory = tree.Path();
    options.waitForPanels = false;
    Session session(options);
    ASSERT_TRUE(session.WaitForText("here"));
    EXPECT_FALSE(session.HasEnded());
}

TEST(StartUp, PrintsTheUsageForAnUnknownOption) {
    for (const char* option : {"-z", "--help", "\\q", "-", "-h"}) {
        SessionOptions options = Words({option, "word"});
        options.waitForPanels = false;
        Session session(options);
        ASSERT_TRUE(session.WaitForEnd());
        EXPECT_EQ(1, session.ExitStatus()) << option;
        EXPECT_EQ(
            "Usage:\tzt [ini_file] [-v|-e file_name] [-l|-r directory] [-h remote_host]\n"
            "\t-v: invoke internal viewer\n"
            "\t-e: invoke internal editor\n"
            "\t-l: specify left panel's directory\n"
            "\t-r: specify right panel's directory\n"
            "\t-h: connect to a remote host\n",
            session.StandardError());
        EXPECT_EQ(0u, session.LastTraffic().bytes) << option;
    }
}

TEST(StartUp, AsksForTheFileOfTheViewerAndTheEditor) {
    for (const char* option : {"-v", "-e", "-V", "\\E"}) {
        SessionOptions options = Words({option});
        options.waitForPanels = false;
        Session session(options);
        ASSERT_TRUE(session.WaitForEnd());
        EXPECT_EQ(1, session.ExitStatus()) << option;
        EXPECT_EQ("No file specified\n", session.StandardError()) << option;
        EXPECT_EQ(0u, session.LastTraffic().bytes) << option;
    }
}

TEST(StartUp, DropsAWordThatIsADirectoryOrMissing) {
    FileTree tree;
    tree.File("dir/inner");
    Session session(Words({tree.PathOf("dir"), tree.PathOf("missing"), "-l", tree.PathOf("dir")}));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "inner"));
}

TEST(Handshake, IsTheFirstRequestAndOfVersionOne) {
    Session session;
    EXPECT_EQ(1, session.Screen().ProtocolVersion());
    EXPECT_THAT(session.StandardError(), IsEmpty());
}

TEST(Handshake, EndsTheProgramWhenRefused) {
    for (int answer : {0, 2}) {
        SessionOptions options;
        options.handshakeAnswer = answer;
        options.waitForPanels = false;
        Session session(options);
        ASSERT_TRUE(session.WaitForEnd());
        EXPECT_EQ(1, session.ExitStatus());
        EXPECT_EQ("zt-remote: The display speaks another version of the protocol\n",
                  session.StandardError());
        EXPECT_EQ(1, session.LastTraffic().requests);  // the handshake alone
    }
}

std::string LinkTarget(pid_t process, int descriptor) {
    return std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/fd/" +
                                         std::to_string(descriptor));
}

// What anything in the process prints goes to standard error, and nothing reads the wire.
TEST(Handshake, KeepsTheStandardStreamsFree) {
    Session session;
    const pid_t process = session.ProcessId();
    EXPECT_EQ("/dev/null", LinkTarget(process, 0));
    EXPECT_THAT(LinkTarget(process, 2), StartsWith("pipe:"));
    EXPECT_EQ(LinkTarget(process, 2), LinkTarget(process, 1));
}

TEST(Handshake, LetsEventsComeBeforeItsReply) {
    FileTree tree;
    tree.File("a").File("b").File("c");
    SessionOptions options;
    options.directory = tree.Path();
    const std::string down = EncodeEvent(*KeyEvent("Down"));
    options.inputBeforehand = down + down;
    Session session(options);
    EXPECT_EQ("b", PanelView(session, 0).BarName());
}

TEST(Handshake, SurvivesShortEvents) {
    FileTree tree;
    tree.File("a").File("b");
    SessionOptions options;
    options.directory = tree.Path();
    Session session(options);
    for (int fields = 0; fields < 6; fields++) {
        session.SendBytes(EncodeShortEvent(*KeyEvent("F12"), fields));
    }
    session.Press("Down");
    EXPECT_FALSE(session.HasEnded());
    EXPECT_EQ("a", PanelView(session, 0).BarName());
}

// Numbers that no display sends are keys without a meaning and clicks on nothing.
TEST(Handshake, SurvivesEventsOfAnyNumbers) {
    Session session;
    const int32_t numbers[] = {INT32_MIN, -40000, -1, 0, 1, 2, 3, 0x7FFF, 0x200000, INT32_MAX};
    for (int32_t kind = -1; kind <= 5; kind++) {
        for (const int32_t code : numbers) {
            for (const int32_t other : numbers)
                session.Send(WireEvent{kind, code, other, other, other, other});
        }
    }
    session.Send(WireEvent{7, 0, 0, 0, 0, 0});
    session.Send(WireEvent{0, 0, 0, 0, 0, 0});  // no modifiers any more
    session.Press({"Esc", "Esc", "F10"});
    EXPECT_THAT(session.Text(), HasSubstr(kExitQuestion));
}

TEST(Handshake, TakesAnEventSplitAtEachByte) {
    FileTree tree;
    for (char name = 'a'; name < 'a' + 18; name++)
        tree.File(std::string(1, name));
    SessionOptions options;
    options.directory = tree.Path();
    Session session(options);
    const std::string down = EncodeEvent(*KeyEvent("Down"));
    const std::string up = EncodeEvent(*KeyEvent("Up"));
    for (size_t split = 1; split < down.size(); split++) {
        const std::string& key = split % 2 == 1 ? down : up;
        session.SendBytes(key.substr(0, split));
        ASSERT_TRUE(session.WaitForQuiet());
        EXPECT_EQ(split % 2 == 1 ? ".." : "a", PanelView(session, 0).BarName()) << split;
        session.SendBytes(key.substr(split));
        ASSERT_TRUE(session.WaitForQuiet());
        EXPECT_EQ(split % 2 == 1 ? "a" : "..", PanelView(session, 0).BarName()) << split;
    }
}

TEST(Leaving, EndsAtTheEndOfItsInputWithoutAQuestion) {
    Session session;
    session.CloseInput();
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
    EXPECT_THAT(session.StandardError(), IsEmpty());
}

TEST(Leaving, EndsAtTheQuitEvent) {
    Session session;
    session.Send(WireEvent{6, 0, 0, 0, 0, 0});
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

TEST(Leaving, EndsByF10AndAYes) {
    for (const char* answer : {"Enter", "y", "Y"}) {
        Session session;
        session.Press("F10");
        EXPECT_THAT(session.Text(), HasSubstr(kExitQuestion));
        session.Send(*answer == 'E' ? KeyPress(answer) : TypedText(answer));
        ASSERT_TRUE(session.WaitForEnd()) << answer;
        EXPECT_EQ(0, session.ExitStatus());
    }
}

TEST(Leaving, StaysByF10AndANo) {
    const std::vector<std::string_view> answers[] = {{"Esc"}, {"Right", "Enter"}};
    for (const auto& keys : answers) {
        Session session;
        const std::string before = session.Text();
        session.Press("F10");
        for (std::string_view key : keys)
            session.Press(key);
        EXPECT_FALSE(session.HasEnded()) << keys[0];
        EXPECT_EQ(before, session.Text()) << keys[0];
        EXPECT_TRUE(session.AtPrompt()) << keys[0];
    }
}

TEST(Leaving, LeavesTheLastTwoLinesWipedAndTheCursorThere) {
    Session session;
    session.Press("F10");
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_EQ("", session.Row(23));
    EXPECT_EQ("", session.Row(24));
    EXPECT_EQ(0, session.CursorColumn());
    EXPECT_EQ(24, session.CursorRow());
    EXPECT_EQ(15, session.Screen().CursorSize());
    EXPECT_EQ(0, session.Screen().UpdateDepth());
    EXPECT_FALSE(session.Screen().HasRest());
}

TEST(Leaving, WritesTheChangeDirectoryScript) {
    FileTree tree;
    tree.Folder("walked/to");
    SessionOptions options = Words({"-x", tree.PathOf("script")});
    options.directory = tree.Path();
    Session session(options);
    session.Press({"Down", "Enter", "Down", "Enter", "F10"});
    session.Send(KeyPress("Enter"));
    ASSERT_TRUE(session.WaitForEnd());
    const std::string path = tree.PathOf("walked/to");
    EXPECT_EQ("/:\r\ncd \"" + path.substr(2) + "\"\r\n", tree.Content("script"));
}

}  // namespace
}  // namespace zt::headless
