// A typed command on its way: for which panel it is, the directories that are entered, and the rows
// of the screen that it leaves.
#include "commands/execute_command.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "commands/dispatch_command.h"
#include "commands/program_environment.h"
#include "commands/screen_commands.h"
#include "commands/stored_paths.h"
#include "foundation/settings.h"
#include "panels/panel_window.h"
#include "tests/console/fake_console.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

class ExecuteCommandTest : public testing::Test {
protected:
    ExecuteCommandTest() {
        settings = Settings();
        tree.Folder("left");
        tree.Folder("left/in");
        tree.Folder("right");
        tree.Folder("right/in");
        workingDirectory = std::filesystem::current_path();
        SetPath(0, tree.Wide("left"));
        SetPath(1, tree.Wide("right"));
        for (int side : {0, 1})
            InitFromSettings(state->panels.panel[side], side);
        MakeFunctionKeyBar(*state);
        std::filesystem::current_path("/");
    }
    ~ExecuteCommandTest() override {
        state.reset();
        settings = Settings();
        SessionEnvironment().Clear();
        std::filesystem::current_path(workingDirectory);
    }

    CPanel& Panel(int side) { return state->panels.panel[side]; }
    void SetPath(int side, const Westring& path) { Panel(side).path = path; }
    std::string Path(int side) { return NameToBytes(Panel(side).path).c_str(); }
    Executed Execute(const char* text) { return ExecuteCommand(*state, text, false); }
    static std::string Here() { return std::filesystem::current_path(); }
    std::string Content(const char* name) {
        std::ostringstream text;
        text << std::ifstream(tree.PathOf(name)).rdbuf();
        return text.str();
    }
    std::string Row(int row) {
        const std::string text = screen.RowText(row);
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    TemporaryTree tree;
    FakeConsole screen;
    std::unique_ptr<LoopState> state = std::make_unique<LoopState>();
    std::filesystem::path workingDirectory;
};

TEST_F(ExecuteCommandTest, IsForThePanelThatShowsFiles) {
    const struct {
        const char* what;
        int active;
        int kind;
        int style;
        int side;  // the one that moves
    } rows[] = {
        {"files on the left", 0, kKindFiles, kStyleBrief, 0},
        {"files on the right", 1, kKindFiles, kStyleBrief, 1},
        {"info on the left", 0, kKindInfo, kStyleBrief, 1},
        {"info on the right", 1, kKindInfo, kStyleBrief, 0},
        {"the tree on the left", 0, kKindFiles, kStyleTree, 1},
        {"the tree on the right", 1, kKindFiles, kStyleTree, 0},
    };
    const std::string before[] = {tree.PathOf("left"), tree.PathOf("right")};
    for (const auto& row : rows) {
        for (int side : {0, 1})
            SetPath(side, NameFromBytes(before[side].c_str()));
        CPanel& active = Panel(row.active);
        state->panels.active = row.active;
        active.kind = row.kind;
        active.style = row.style;
        EXPECT_EQ(Execute("cd in"), Executed::kDirectoryChanged) << row.what;
        EXPECT_EQ(Path(row.side), before[row.side] + "/in") << row.what;
        EXPECT_EQ(Path(1 - row.side), before[1 - row.side]) << row.what;
        EXPECT_EQ(Here(), before[row.side] + "/in") << row.what;
        active.kind = kKindFiles;
        active.style = kStyleBrief;
    }
}

TEST_F(ExecuteCommandTest, EntersTheOthersDirectoryAndThenItsOwn) {
    const std::string left = tree.PathOf("left"), right = tree.PathOf("right");
    const Westring none = tree.Wide("none");
    const Westring network = NameFromBytes(("/" + right).c_str());
    const struct {
        const char* what;
        Westring own;
        Westring other;
        int otherKind;
        std::string expected;
    } rows[] = {
        {"both", tree.Wide("left"), tree.Wide("right"), kKindFiles, left},
        {"the own one is gone", none, tree.Wide("right"), kKindFiles, right},
        {"the other is gone", tree.Wide("left"), none, kKindFiles, left},
        {"both are gone", none, none, kKindFiles, "/"},
        {"the other shows info", none, tree.Wide("right"), kKindInfo, "/"},
        {"the other is on the network", none, network, kKindFiles, "/"},
    };
    for (const auto& row : rows) {
        std::filesystem::current_path("/");
        SetPath(0, row.own);
        SetPath(1, row.other);
        Panel(1).kind = row.otherKind;
        EXPECT_EQ(Execute("set ZT_ANY=1"), Executed::kCommand) << row.what;
        EXPECT_EQ(Here(), row.expected) << row.what;
    }
}

// A tree with one directory under its cursor.
struct OneRowTree : IPanelTree {
    explicit OneRowTree(const Westring& path) : selected(path) {}
    void BuildRows(CPanel&) override {}
    void Link(CPanel&) override {}
    bool KnownTotal(const CPanel&, const wchar_t*, uint64_t&) override { return false; }
    void ReadDone(CPanel&, uint64_t) override {}
    void Follow(CPanel&, const Westring&) override {}
    Westring SelectedPath(const CPanel&) override { return selected; }
    void DrawRow(CPanel&, int, int) override {}
    void SetExpanded(CPanel&, bool, bool) override {}
    void ToSibling(CPanel&, int) override {}

    Westring selected;
};

TEST_F(ExecuteCommandTest, AStoredPathIsTheOneUnderTheTreesCursor) {
    OneRowTree oneRow(tree.Wide("right/in"));
    state->panels.seams.tree = &oneRow;
    KeyPress key;
    key.code = kKeyCtrlShiftDigit | 3;
    EXPECT_TRUE(HandleStoredPathKey(*state, key));
    EXPECT_EQ(settings.storedPaths[3], tree.Wide("left"));
    Panel(0).style = kStyleTree;
    EXPECT_TRUE(HandleStoredPathKey(*state, key));
    EXPECT_EQ(settings.storedPaths[3], tree.Wide("right/in"));
    Panel(0).style = kStyleBrief;
    state->panels.seams.tree = nullptr;
}

TEST_F(ExecuteCommandTest, RunsNothingForBlanks) {
    for (const char* text : {"", "   "}) {
        EXPECT_EQ(Execute(text), Executed::kNothing);
        EXPECT_EQ(ExecuteCommand(*state, text, true), Executed::kNothing);
    }
    EXPECT_EQ(Here(), "/");
}

TEST_F(ExecuteCommandTest, SetCutsAtTheFirstEqualsSign) {
    const struct {
        const char* command;
        const char* name;
        const char* value;
    } rows[] = {
        {"set ZT_A=1", "ZT_A", "1"},     {"SET ZT_A=x=y", "ZT_A", "x=y"},
        {"set   ZT_A=2  ", "ZT_A", "2"}, {"set ZT_A= 3", "ZT_A", " 3"},
        {"set zt_a=4", "ZT_A", "4"},     {"set ZT_A=$HOME", "ZT_A", "$HOME"},
        {"set ZT_A=", "ZT_A", nullptr},
    };
    const std::string before = Row(23);
    for (const auto& row : rows) {
        EXPECT_EQ(DispatchCommand(*state, row.command, 0, Westring(), 0), 0) << row.command;
        EXPECT_STREQ(SessionEnvironment().Get(row.name), row.value) << row.command;
    }
    EXPECT_EQ(Row(23), before);
}

TEST_F(ExecuteCommandTest, OnlyOneFlagKeepsTheWorkingDirectory) {
    for (const int flags : {0, 1, 8, 14, 29}) {
        std::filesystem::current_path(tree.PathOf("right/in"));
        EXPECT_EQ(DispatchCommand(*state, "pwd > " + tree.Wide("out"), 0, Westring(), flags), 0);
        EXPECT_EQ(Content("out"), tree.PathOf(flags & 8 ? "right/in" : "left") + "\n") << flags;
    }
}

TEST_F(ExecuteCommandTest, LeavesEmptyRowsBehindTheOutput) {
    for (CPanel& panel : state->panels.panel) {
        ClosePanelWindow(panel);
        panel.showing = false;
    }
    const struct {
        int flags;
        const char* prompt;
        const char* command;
        int outputRow;  // where the output stands then
        int promptRow;  // -1: there is none
    } rows[] = {
        {0, ">x", "echo seen", 22, 21},
        {8, ">x", "echo seen", 22, 21},
        {14, ">x", "echo seen", 22, 21},
        {1, ">x", "echo seen", 21, 20},
        {29, ">x", "echo seen", 21, 20},
        {kRunTyped, ">x", "echo seen", 21, 20},
        {kRunTyped | 1, ">x", "echo seen", 20, 19},
        {0, ">x", "printf seen", 22, 21},
        {1, ">x", "printf seen", 21, 20},
        // Without a prompt the output begins in its row.
        {0, "", "echo seen", 22, -1},
        {1, "", "echo seen", 21, -1},
    };
    for (const auto& row : rows) {
        screen.FillRect(0, 0, 80, 25, 0x07);
        DispatchCommand(*state, row.command, 0, row.prompt, row.flags);
        const auto what = testing::Message() << row.command << ' ' << row.flags << row.prompt;
        EXPECT_EQ(Row(row.outputRow), "seen") << what;
        for (int other = 0; other < 24; other++) {
            if (other == row.outputRow) continue;
            EXPECT_EQ(Row(other), other == row.promptRow ? row.prompt : "") << what << " " << other;
        }
        EXPECT_EQ(screen.AttributeAt(79, row.outputRow), Colour(ColourClass::kCommandLine)) << what;
    }
}

TEST_F(ExecuteCommandTest, CutsAPromptThatIsTooLong) {
    for (CPanel& panel : state->panels.panel) {
        ClosePanelWindow(panel);
        panel.showing = false;
    }
    const std::string prompt(200, 'p');
    DispatchCommand(*state, "true", 0, prompt.c_str(), 0);
    EXPECT_EQ(Row(22), std::string(80, 'p'));
    EXPECT_EQ(Row(21), "");
}

TEST_F(ExecuteCommandTest, HasTheWholeScreenAndGivesItBack) {
    screen.selectableRects.clear();
    DispatchCommand(*state, "true", 0, ">true", 0);
    ASSERT_GE(screen.selectableRects.size(), 2u);
    EXPECT_EQ(screen.selectableRects.front(), (CellRect{0, 0, 80, 25}));
    EXPECT_FALSE(screen.selectableRects.back() == screen.selectableRects.front());
    EXPECT_TRUE(Panel(0).needRead);
    EXPECT_TRUE(Panel(1).needRead);
}

}  // namespace
}  // namespace zt
