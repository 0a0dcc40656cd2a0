// Typed commands at the edges: the chooser of directories, directories that may not be entered,
// a system without processes, and the exact screen around a run.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/command_runs.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class CommandEdges : public CommandRuns {
protected:
    SessionOptions AsOrdinaryUser() {
        tree.GiveTo(OrdinaryUser());
        home.GiveTo(OrdinaryUser());
        SessionOptions options = InTree();
        options.user = OrdinaryUser();
        return options;
    }
    // A program that notes its arguments and answers with the two lines.
    SessionOptions WithChooser(const std::string& first, const std::string& second) {
        tools.File("vcdpgm.exe", "#!/bin/sh\necho \"$*\" > " + tools.PathOf("note") + "\ncat " +
                                     tools.PathOf("answer") + "\n");
        tools.Mode("vcdpgm.exe", 0755).File("answer", first + "\r\n" + second + "\r\n");
        SessionOptions options = InTree();
        options.environment["PATH"] = tools.Path() + ":/usr/bin:/bin";
        options.environment["TMP"] = temporary.Path();
        return options;
    }

    // The limit may be set by whoever is the same user.
    static bool ForbidProcesses(pid_t program, uid_t user) {
        const pid_t child = fork();
        if (child == 0) {
            const rlimit none = {0, 0};
            if (geteuid() != user && (setgid(user) != 0 || setuid(user) != 0)) _exit(1);
            _exit(prlimit(program, RLIMIT_NPROC, &none, nullptr) == 0 ? 0 : 2);
        }
        int status = -1;
        return waitpid(child, &status, 0) == child && status == 0;
    }

    FileTree tools, temporary;
};

// --- vcd

TEST_F(CommandEdges, VcdGoesWhereTheChooserSays) {
    tree.Folder("C:/sub dir").Folder("C:/sub dir/in").Folder("C:/top");
    Session session(WithChooser("c:", "cd \"sub dir\""));
    session.Press("Down");
    RunTyped(session, "vcd  some words ");
    EXPECT_EQ(tools.Content("note"), "some words\n");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("C:/sub dir"));
    EXPECT_EQ(PanelView(session, 0).BarName(), "..");
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "in"));
    EXPECT_THAT(temporary.Names(), ElementsAre());
}

TEST_F(CommandEdges, VcdIsKnownInEveryForm) {
    for (const char* command : {"vcd", "VCD", "vcd x", "vcd\\x"}) {
        FileTree fresh;
        fresh.Folder("D:/sub");
        SessionOptions options = WithChooser("d", "\"sub\"");
        tools.File("answer", "d:\n\"sub\"\n");
        options.directory = fresh.Path();
        Session session(options);
        RunTyped(session, command);
        EXPECT_EQ(PanelView(session, 0).Title(), fresh.PathOf("D:/sub")) << command;
    }
}

TEST_F(CommandEdges, VcdStaysWhereTheAnswerIsNone) {
    tree.Folder("C:/sub");
    const struct {
        const char* first;
        const char* second;
    } rows[] = {{"c", "\"sub\""}, {"", "\"sub\""}, {"c:", "\"none\""}, {"x:", "\"sub\""}};
    for (const auto& row : rows) {
        Session session(WithChooser(row.first, row.second));
        RunTyped(session, "vcd");
        EXPECT_EQ(PanelView(session, 0).Title(), tree.Path()) << row.first << row.second;
        EXPECT_TRUE(session.AtPrompt());
        EXPECT_THAT(temporary.Names(), ElementsAre());
    }
}

TEST_F(CommandEdges, VcdWritesThroughNoLink) {
    home.File("precious", "c:\n\"sub\"\n");
    temporary.Link("zt2cd.$$$", home.PathOf("precious"));
    Session session(WithChooser("", ""));
    RunTyped(session, "vcd");
    EXPECT_EQ(home.Content("precious"), "c:\n\"sub\"\n");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.Path());
}

// --- Directories that may not be entered

TEST_F(CommandEdges, CdIntoAClosedDirectoryIsRefused) {
    tree.Folder("here").Folder("closed").Mode("closed", 0);
    SessionOptions options = AsOrdinaryUser();
    options.directory = tree.PathOf("here");
    Session session(options);
    session.Type("cd ../closed");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Invalid directory"));
    EXPECT_THAT(session.Text(), HasSubstr(tree.PathOf("closed")));
    session.Press("Enter");
    EXPECT_EQ(PanelView(session, 0).Title(), tree.PathOf("here"));
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(CommandEdges, ACommandInAClosedDirectoryIsNotRun) {
    tree.Folder("here");
    SessionOptions options = AsOrdinaryUser();
    options.directory = tree.PathOf("here");
    Session session(options);
    tree.Mode("here", 0);
    session.Type("touch ../made");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Permission denied"));
    EXPECT_THAT(session.Text(), HasSubstr(tree.PathOf("here")));
    session.Press("Enter");
    EXPECT_FALSE(tree.Exists("made"));
}

// --- No more processes

TEST_F(CommandEdges, AProcessThatCannotBeMadeIsReported) {
    SessionOptions options = AsOrdinaryUser();
    // A sanitizer's look for leaks at the end needs a process of its own.
    options.environment["ASAN_OPTIONS"] = "detect_leaks=0";
    Session session(options);
    ASSERT_TRUE(ForbidProcesses(session.ProcessId(), *options.user));
    for (const char* command : {"ls", "ls &"}) {
        session.Type(command);
        session.Press("Enter");
        EXPECT_THAT(session.Text(), HasSubstr("Error forking child process")) << command;
        EXPECT_THAT(session.Text(), HasSubstr("Resource temporarily unavailable")) << command;
        session.Press("Enter");
        EXPECT_TRUE(session.AtPrompt()) << command;
        EXPECT_TRUE(PanelView(session, 0).IsShown()) << command;
        EXPECT_EQ(session.Title(), "Zanthe: " + tree.Path()) << command;
    }
}

// --- The screen around a run

struct ScreenSize {
    int columns;
    int rows;
};
class CommandScreens : public CommandEdges, public testing::WithParamInterface<ScreenSize> {
protected:
    SessionOptions OfSize() {
        SessionOptions options = InTree();
        options.columns = GetParam().columns;
        options.rows = GetParam().rows;
        return options;
    }
    // The rows from the last one that is not the program's upwards.
    static std::vector<std::string> LastRows(const Session& session, int count) {
        std::vector<std::string> rows;
        for (int row = session.Rows() - 1 - count; row < session.Rows() - 1; row++)
            rows.push_back(session.Row(row));
        return rows;
    }
};

TEST_P(CommandScreens, TheOutputStandsAboveTheLineWithPanelsOff) {
    Session session(OfSize());
    const std::string prompt = tree.Path() + ">";
    session.Press("Ctrl-o");
    RunTyped(session, "echo one; echo two");
    EXPECT_THAT(LastRows(session, 6),
                ElementsAre("", prompt + "echo one; echo two", "one", "two", "", prompt));
    RunTyped(session, "printf open");
    EXPECT_THAT(LastRows(session, 6),
                ElementsAre("two", "", prompt + "printf open", "open", "", prompt));
    EXPECT_EQ(session.CursorRow(), session.Rows() - 2);
    EXPECT_EQ(session.CursorColumn(), static_cast<int>(prompt.size()));
    EXPECT_FALSE(PanelView(session, 0).IsShown());
    const std::string behind = session.Text();
    session.Press({"Ctrl-o", "Ctrl-o"});
    EXPECT_EQ(session.Text(), behind);
}

TEST_P(CommandScreens, TheProgramHasTheWholeScreen) {
    Session session(OfSize());
    ASSERT_TRUE(StartTyped(session, "printf ask; read x", "\nask"));
    const int last = session.Rows() - 1;
    EXPECT_EQ(session.Row(last), "ask");
    EXPECT_EQ(session.Row(last - 1), tree.Path() + ">printf ask; read x");
    EXPECT_EQ(session.CursorRow(), last);
    EXPECT_TRUE(session.WaitFor([&] { return session.CursorColumn() == 3; }, "the cursor"));
    EXPECT_FALSE(PanelView(session, 0).IsShown());
    EXPECT_FALSE(PanelView(session, 1).IsShown());
    session.Press("Enter");
    ASSERT_TRUE(WaitForPanels(session));
    EXPECT_TRUE(PanelView(session, 0).IsShown());
}

INSTANTIATE_TEST_SUITE_P(Sizes, CommandScreens,
                         testing::Values(ScreenSize{80, 25}, ScreenSize{133, 50},
                                         ScreenSize{60, 16}),
                         [](const auto& size) {
                             return std::to_string(size.param.columns) + "x" +
                                    std::to_string(size.param.rows);
                         });

TEST_F(CommandEdges, ALongPathIsShortenedInThePrompt) {
    const std::string deep = "deep/" + std::string(60, 'x');
    tree.Folder(deep);
    SessionOptions options = InTree();
    options.directory = tree.PathOf(deep);
    Session session(options);
    RunTyped(session, "echo out");
    const std::string text = BehindThePanels(session);
    EXPECT_THAT(text, testing::ContainsRegex("\n[^\n>]{30,39}>echo out\nout\n"));
    EXPECT_THAT(text, HasSubstr("...x"));
    EXPECT_THAT(text, Not(HasSubstr(tree.PathOf(deep))));
}

// A program whose libraries are those of windows runs by itself, where it has no terminal.
TEST_F(CommandEdges, AProgramWithWindowsRunsByItself) {
    if (access("/usr/bin/xdotool", X_OK) != 0) GTEST_SKIP() << "xdotool is not installed";
    Session session(InTree());
    RunTyped(session, "xdotool version; test -t 0 && touch terminal; touch ended");
    EXPECT_TRUE(session.WaitFor([&] { return tree.Exists("ended"); }, "its end"));
    EXPECT_FALSE(tree.Exists("terminal"));
    tree.Remove("ended");
    RunTyped(session, "# xdotool version; test -t 0 && touch terminal");
    EXPECT_TRUE(tree.Exists("terminal"));
}

}  // namespace
}  // namespace zt::headless
