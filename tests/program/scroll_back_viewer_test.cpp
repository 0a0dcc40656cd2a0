// Paging back through what programs have written.
#include "console/program/scroll_back_viewer.h"

#include "commands/scroll_back_command.h"
#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

constexpr int kLines = 60;  // stored; the screen shows 25

class ScrollBackViewer : public UiTest {
protected:
    ScrollBackViewer() { Fill(kLines); }

    void Fill(int count) {
        while (buffer.Count() > 0)
            buffer.RemoveLast();
        for (int i = 0; i < count; i++)
            AppendText(L"line " + std::to_wstring(i), 80);
    }
    void AppendText(const std::wstring& text, size_t width) {
        std::vector<Cell> cells;
        for (const wchar_t ch : text)
            cells.push_back(Cell{static_cast<uint32_t>(ch), 0x1E});
        cells.resize(width, Cell{U' ', 7});
        buffer.Append(cells.data(), static_cast<int>(cells.size()));
    }
    // What was seen after each key: "first row .. last row".
    std::vector<std::string> Seen(const std::vector<int>& keys) {
        for (const int key : keys)
            Key(key);
        Key(kKeyEsc);
        screen.screens.clear();
        {
            CScrollBackViewer viewer(buffer);
            viewer.Run();
        }
        std::vector<std::string> seen;
        for (const Screen& one : screen.screens)
            seen.push_back(one.rows.front() + " .. " + one.rows.back());
        return seen;
    }
    using Views = std::vector<std::string>;

    CScrollBackBuffer buffer;
};

TEST_F(ScrollBackViewer, OpensOnTheNewestLines) {
    EXPECT_EQ(Seen({}), Views{"line 35 .. line 59"});
    EXPECT_EQ(screen.screens[0].attributes[0][0], 0x1E);
    EXPECT_EQ(screen.screens[0].attributes[0][70], 7);
}

TEST_F(ScrollBackViewer, MovesByKeys) {
    const std::string end = "line 35 .. line 59";
    EXPECT_EQ(Seen({kKeyUp, kKeyUp, kKeyDown}),
              (Views{end, "line 34 .. line 58", "line 33 .. line 57", "line 34 .. line 58"}));
    // A page leaves two lines of the old one.
    EXPECT_EQ(Seen({kKeyPageUp, kKeyPageUp, kKeyPageUp}),
              (Views{end, "line 12 .. line 36", "line 0 .. line 24", "line 0 .. line 24"}));
    EXPECT_EQ(Seen({kKeyHome, kKeyPageDown, kKeyPageDown, kKeyPageDown}),
              (Views{end, "line 0 .. line 24", "line 23 .. line 47", end, end}));
    EXPECT_EQ(Seen({kKeyHome, kKeyEnd, kKeyEnd}), (Views{end, "line 0 .. line 24", end, end}));
}

TEST_F(ScrollBackViewer, StopsAtTheEnds) {
    const std::string end = "line 35 .. line 59";
    const std::string start = "line 0 .. line 24";
    EXPECT_EQ(Seen({kKeyDown, kKeyPageDown, kKeyEnd}), (Views{end, end, end, end}));
    EXPECT_EQ(Seen({kKeyHome, kKeyUp, kKeyPageUp, kKeyHome}),
              (Views{end, start, start, start, start}));
}

TEST_F(ScrollBackViewer, IgnoresOtherKeys) {
    const std::string end = "line 35 .. line 59";
    EXPECT_EQ(Seen({'a', kKeyEnter, kKeyF1, kKeyLeft, kKeyInsert, kKeyModifiersChanged}),
              (Views{end, end, end, end, end, end, end}));
}

TEST_F(ScrollBackViewer, ShowsFewLinesFromTheTop) {
    Fill(3);
    EXPECT_EQ(Seen({kKeyDown, kKeyPageDown, kKeyEnd, kKeyUp, kKeyPageUp, kKeyHome}),
              Views(7, "line 0 .. "));
    EXPECT_EQ(screen.screens[0].rows[2], "line 2");
    EXPECT_EQ(screen.screens[0].rows[3], "");
    EXPECT_EQ(screen.screens[0].attributes[3][0], Colour(ColourClass::kCommandLine));
    Fill(0);
    EXPECT_EQ(Seen({kKeyDown, kKeyUp, kKeyEnd}), Views(4, " .. "));
}

TEST_F(ScrollBackViewer, MovesTheScreenByOneLine) {
    Key(kKeyUp);
    Key(kKeyEsc);
    CScrollBackViewer viewer(buffer);
    screen.moves.clear();
    viewer.Run();
    ASSERT_EQ(screen.moves.size(), 1u);
    EXPECT_EQ(screen.moves[0].lines, -1);
    EXPECT_EQ(screen.moves[0].rect, (CellRect{0, 0, 80, 25}));
}

TEST_F(ScrollBackViewer, ShowsLinesOfOtherWidths) {
    Fill(0);
    for (int i = 0; i < 30; i++)
        AppendText(L"narrow " + std::to_wstring(i), 20);
    AppendText(std::wstring(131, L'w') + L"X", 132);
    EXPECT_EQ(Seen({kKeyUp, kKeyDown})[2], "narrow 6 .. " + std::string(80, 'w'));
    const Screen& last = screen.screens[2];
    EXPECT_EQ(last.rows[1], "narrow 7");
    EXPECT_EQ(last.attributes[1][79], 7);
}

TEST_F(ScrollBackViewer, EndsWhenTheProgramIsToEnd) {
    Quit();
    CScrollBackViewer viewer(buffer);
    viewer.Run();
    EXPECT_TRUE(quitSeen);
}

TEST_F(ScrollBackViewer, GivesTheScreenBack) {
    screen.WriteWide(3, 3, L"what stood here", 0x1E);
    const std::vector<std::string> before = screen.Look().rows;
    Seen({kKeyUp});
    EXPECT_EQ(screen.Look().rows, before);
}

TEST_F(ScrollBackViewer, LetsTheMouseSelectAnywhere) {
    screen.SetSelectableRect(CellRect{1, 2, 3, 4}, false);
    screen.selectableRects.clear();
    Seen({});
    ASSERT_EQ(screen.selectableRects.size(), 2u);
    EXPECT_EQ(screen.selectableRects[0], (CellRect{0, 0, 80, 25}));
    EXPECT_EQ(screen.selectableRects[1], (CellRect{1, 2, 3, 4}));
}

// --- The command.

class ScrollBackCommandTest : public ScrollBackViewer {
protected:
    ScrollBackCommandTest() { state.scrollBack = &command; }
    void Show() {
        Key(kKeyEsc);
        screen.screens.clear();
        ShowScrollBackKey(state, KeyPress());
    }
    ScrollBackCommand command{buffer};
    LoopState state;
};

TEST_F(ScrollBackCommandTest, ShowsTheScreenAsTheNewestLines) {
    Fill(2);
    screen.WriteWide(0, 0, L"on the screen", 7);
    screen.WriteWide(0, 22, L"its last row", 7);
    screen.WriteWide(0, 23, L"the command line", 7);
    screen.WriteWide(0, 24, L"the keys", 7);
    for (int time = 0; time < 2; time++) {
        state.drawLine = kDrawNothing;
        Show();
        ASSERT_EQ(screen.screens.size(), 1u);
        EXPECT_EQ(screen.screens[0].rows[0], "line 0");
        EXPECT_EQ(screen.screens[0].rows[1], "line 1");
        EXPECT_EQ(screen.screens[0].rows[2], "on the screen");
        EXPECT_EQ(screen.screens[0].rows[24], "its last row");
        EXPECT_FALSE(screen.screens[0].Has("the command line"));
        EXPECT_EQ(buffer.Count(), 2);
        EXPECT_EQ(state.drawLine, kDrawLineBarAndTitle);
        EXPECT_EQ(screen.Look().rows[24], "the keys");
    }
}

TEST_F(ScrollBackCommandTest, HidesThePanelsMeanwhile) {
    screen.WriteWide(0, 1, L"output", 7);
    state.panels.panel[0].window = std::make_unique<Win>(0, 0, 39, 18, 0x1B);
    state.panels.panel[1].window = std::make_unique<Win>(40, 0, 79, 18, 0x1B);
    state.panels.panel[0].window->Print(0, 1, "a panel");
    Fill(0);
    Show();
    EXPECT_EQ(screen.screens.at(0).rows[1], "output");
    EXPECT_FALSE(screen.screens[0].Has("a panel"));
    EXPECT_TRUE(screen.Look().Has("a panel"));
    state.panels.panel[0].window.reset();
    state.panels.panel[1].window.reset();
}

TEST_F(ScrollBackCommandTest, DoesNothingWhenTheScrollBackIsOff) {
    settings.consoleScrollback = false;
    state.drawLine = kDrawNothing;
    ShowScrollBackKey(state, KeyPress());
    EXPECT_EQ(state.drawLine, kDrawNothing);
    settings.consoleScrollback = true;
    state.scrollBack = nullptr;
    ShowScrollBackKey(state, KeyPress());
    EXPECT_EQ(state.drawLine, kDrawNothing);
}

}  // namespace
}  // namespace zt
