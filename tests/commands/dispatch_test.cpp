// What a key leaves to the next pass of the main loop, and the commands that need a past.
#include "commands/dispatch.h"

#include <memory>

#include "commands/screen_commands.h"
#include "foundation/settings.h"
#include "panels/panel_window.h"
#include "tests/console/fake_console.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

class DispatchTest : public testing::Test {
protected:
    DispatchTest() {
        settings = Settings();
        tree.Folder("dir");
        tree.File("file");
        workingDirectory = std::filesystem::current_path();
        for (int side : {0, 1}) {
            state->panels.panel[side].path = tree.Wide();
            InitFromSettings(state->panels.panel[side], side);
        }
        MakeFunctionKeyBar(*state);
    }
    ~DispatchTest() override {
        state.reset();
        settings = Settings();
        std::filesystem::current_path(workingDirectory);
    }

    void Press(int32_t code, int32_t modifiers = 0) {
        state->drawCursorBar = false;
        state->drawLine = kDrawNothing;
        KeyPress key;
        key.code = code;
        key.modifiers = modifiers;
        Dispatch(*state, key);
    }
    void Type(const char* text) {
        for (; *text; text++)
            Press(*text);
    }
    std::string Line() { return state->line.Text().ToUtf8().c_str(); }

    TemporaryTree tree;
    FakeConsole screen;
    std::unique_ptr<LoopState> state = std::make_unique<LoopState>();
    std::filesystem::path workingDirectory;
};

TEST_F(DispatchTest, MarksWhatTheNextPassDraws) {
    const struct {
        const char* what;
        const char* text;  // on the line before
        int32_t code;
        int line;
        bool bar;
    } rows[] = {
        {"nothing", "", 0, kDrawNothing, false},
        {"modifiers", "", kKeyModifiersChanged, kDrawNothing, false},
        {"text", "", 'a', kDrawCommandLine, false},
        {"Backspace", "ab", kKeyBackspace, kDrawCommandLine, false},
        {"Del", "ab", kKeyDelete, kDrawCommandLine, false},
        {"Alt-Left in text", "ab", kKeyAltLeft, kDrawCommandLine, false},
        {"Alt-Left without", "", kKeyAltLeft, kDrawNothing, true},
        {"Alt-Right in text", "ab", kKeyAltRight, kDrawCommandLine, false},
        {"Alt-Right without", "", kKeyAltRight, kDrawNothing, true},
        {"Ctrl-S in text", "ab", CtrlKey('s'), kDrawCommandLine, false},
        {"Ctrl-Left", "ab", kKeyCtrlLeft, kDrawCommandLine, false},
        {"Ctrl-Right", "ab", kKeyCtrlRight, kDrawCommandLine, false},
        {"Left in text", "ab", kKeyLeft, kDrawCommandLine, false},
        {"Right in text", "ab", kKeyRight, kDrawCommandLine, false},
        {"Ctrl-D in text", "ab", CtrlKey('d'), kDrawCommandLine, true},
        {"Ctrl-Backspace", "ab", kKeyCtrlBackspace, kDrawCommandLine, true},
        {"Esc", "ab", kKeyEsc, kDrawCommandLine, true},
        {"Down", "", kKeyDown, kDrawNothing, true},
        {"End", "", kKeyEnd, kDrawNothing, true},
        {"PgDn", "", kKeyPageDown, kDrawNothing, true},
        {"Ins", "", kKeyInsert, kDrawNothing, true},
        {"Ctrl-Ins", "ab", kKeyCtrlInsert, kDrawNothing, true},
        {"a reserved key", "", kKeyF1, kDrawNothing, true},
        {"no key", "", kKeyF12, kDrawNothing, true},
        {"a code below 0", "", -7, kDrawNothing, false},
        {"sorting", "", 0x10062, kDrawNothing, true},
        {"tag directories", "", 0x100133, kDrawNothing, true},
        {"path prompt", "", 0x10012F, kDrawCommandLine, true},
        {"style", "", 0x30068, kDrawLineBarAndTitle, true},
        {"hidden files", "", 8, kDrawLineBarAndTitle, true},
        {"Tab", "", kKeyTab, kDrawLineBarAndTitle, true},
        {"swap", "", CtrlKey('u'), kDrawLineBarAndTitle, true},
        {"read again", "", CtrlKey('r'), kDrawLineBarAndTitle, true},
        {"panel off", "", 0x1005F, kDrawLineBarAndTitle, true},
        {"panel on", "", 0x1005F, kDrawLineBarAndTitle, true},
        {"panels off", "", CtrlKey('o'), kDrawLineBarAndTitle, true},
        {"panels on", "", CtrlKey('o'), kDrawLineBarAndTitle, true},
    };
    for (const auto& row : rows) {
        state->line.Clear();
        Type(row.text);
        Press(row.code);
        EXPECT_EQ(row.line, state->drawLine) << row.what;
        EXPECT_EQ(row.bar, state->drawCursorBar) << row.what;
    }
}

TEST_F(DispatchTest, LeftAndRightTakeTheBarOffOnlyWhereTheyMoveIt) {
    for (const int style : {kStyleBrief, kStyleBriefWide}) {
        SetStyle(state->Active(), style, 0);
        for (const int32_t key : {kKeyLeft, kKeyRight}) {
            Press(key);
            EXPECT_TRUE(state->drawCursorBar) << style;
            EXPECT_EQ(kDrawNothing, state->drawLine) << style;
        }
    }
}

TEST_F(DispatchTest, LeavesTheLoopAtTheQuitEvent) {
    Press(kKeyQuit);
    EXPECT_TRUE(state->leave);
}

TEST_F(DispatchTest, RecallsCommandsAndComesBackToTheOwnText) {
    for (const char* command : {"one", "two", "one"})
        state->history.Add(command);
    for (const int32_t older : {CtrlKey('e'), kKeyCtrlUp}) {
        for (const int32_t newer : {CtrlKey('x'), kKeyCtrlDown}) {
            state->line.SetText("own");
            std::vector<std::string> seen;
            for (const int32_t key : {older, older, older, newer, newer, newer}) {
                Press(key);
                seen.push_back(Line());
            }
            EXPECT_EQ((std::vector<std::string>{"one", "two", "two", "one", "own", "own"}), seen);
        }
    }
}

TEST_F(DispatchTest, RecallsByUpAndDownWithBothPanelsOff) {
    state->history.Add("ls");
    Press(kKeyUp);
    EXPECT_EQ("", Line());
    Press(CtrlKey('o'));
    state->bothPanelsOff = true;
    Press(kKeyUp);
    EXPECT_EQ("ls", Line());
    Press(kKeyDown);
    EXPECT_EQ("", Line());
}

TEST_F(DispatchTest, CompletesFromTheHistoryInEitherDirection) {
    for (const char* command : {"make old", "cat", "make new"})
        state->history.Add(command);
    state->line.SetText("ma");
    const struct {
        int32_t code;
        const char* line;
    } rows[] = {
        {0xA, "make new"},     {0x9001C, "make old"}, {0x90024, "ma"},
        {0x3001C, "make old"}, {0xB001C, "make new"}, {0xB0024, "ma"},
    };
    for (const auto& row : rows) {
        Press(row.code);
        EXPECT_EQ(row.line, Line()) << std::hex << row.code;
        EXPECT_EQ(2, state->line.Position());
        EXPECT_EQ(kDrawCommandLine, state->drawLine);
    }
    state->line.SetText("mb");
    Press(0xA);
    EXPECT_EQ("mb", Line());
}

TEST_F(DispatchTest, PutsNamesIntoTheLine) {
    const struct {
        const char* text;
        const char* completed;
    } rows[] = {
        {"", "dir "},
        {"cd ", "cd dir "},
        {"cd /tmp/", "cd /tmp/dir"},
        {"cat <a/", "cat <a/dir"},
        {"cat >", "cat >dir "},
        {"cd a\\ b/", "cd a\\ b/dir"},
        {"/", "/dir"},
        {"a\\", "a\\dir "},
    };
    Press(kKeyDown);
    for (const auto& row : rows) {
        state->line.SetText(row.text);
        Press(0xA);
        EXPECT_EQ(row.completed, Line()) << row.text;
        EXPECT_EQ(state->line.Text().Length(), state->line.Position());
    }
    state->line.SetText(Westring(std::string(507, ' ').c_str()));
    Press(0xA);
    EXPECT_EQ(511, state->line.Text().Length());
    state->line.SetText(Westring(std::string(508, ' ').c_str()));
    Press(0xA);
    EXPECT_EQ(508, state->line.Text().Length());
}

TEST_F(DispatchTest, PastesUpTo511Characters) {
    screen.clipboard = "ab";
    state->line.SetText(Westring(std::string(509, ' ').c_str()));
    Press(kKeyShiftInsert);
    EXPECT_EQ(511, state->line.Text().Length());
    state->line.SetText(Westring(std::string(510, ' ').c_str()));
    Press(kKeyShiftInsert);
    EXPECT_EQ(510, state->line.Text().Length());
}

TEST_F(DispatchTest, ResetsTheNameShiftOnAnotherEntry) {
    CPanel& panel = state->Active();
    Press(kKeyAltRight);
    EXPECT_EQ(1, panel.nameShift);
    Press(kKeyDown);
    Press(kKeyAltLeft);
    EXPECT_EQ(0, panel.nameShift);
    EXPECT_EQ(panel.CurrentIndex(), panel.nameShiftIndex);
}

// Bars and clock hold pictures of the old grid; none of them may come back on the new one.
TEST_F(DispatchTest, AResizeLeavesNothingOfTheOldScreen) {
    screen.FillRect(0, 24, 80, 1, 0x5F);
    MakeFunctionKeyBar(*state);
    ResizeAndReopen(*state, 50, 132);
    EXPECT_EQ(49, state->functionKeys->Top());
    EXPECT_EQ(132, state->functionKeys->ClientWidth());
    for (int column = 0; column < 132; column++)
        EXPECT_NE(0x5F, screen.AttributeAt(column, 24)) << column;
}

}  // namespace
}  // namespace zt
