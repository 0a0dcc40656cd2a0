// The pull-down menu: every entry, the marks, keys, letters, mouse, and where it reopens.
#include "ui/pull_down_menu.h"

#include <map>

#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

using Panels = std::array<MenuPanelState, 2>;

std::vector<int> helpTopics;

class PullDownMenuTest : public UiTest {
protected:
    PullDownMenuTest() : menu([](int topic) { helpTopics.push_back(topic); }) {
        helpTopics.clear();
    }
    int RunKeys(std::initializer_list<int> keys, int side = 0, bool reopen = false) {
        screen.screens.clear();
        for (const int key : keys)
            Key(key);
        return menu.Run(side, reopen, panels);
    }
    // What was on the screen when the last event was read.
    const Screen& Last() { return screen.screens.back(); }
    // The column of the current title, by its highlight; -1 for none.
    int HighlightedTitle() {
        for (int column = 0; column < 80; ++column) {
            if (Last().attributes[0][static_cast<size_t>(column)] == 0x0F) return column;
        }
        return -1;
    }
    // The text of the highlighted entry in the drop-down at this column.
    std::string HighlightedEntry(int column) {
        for (size_t row = 2; row < 25; ++row) {
            // The second cell: the first letter may be the quick key.
            if ((Last().attributes[row][static_cast<size_t>(column + 1)]) != 0x0F) continue;
            return Last().rows[row];
        }
        return "";
    }
    Panels panels;
    PullDownMenu menu;
};

TEST(MenuTables, QuickKeysStandInTheirTextsOncePerMenu) {
    for (const Menu& table : kMenus) {
        std::map<int, const char*> seen;
        for (int i = 0; i < table.count; ++i) {
            const PullDownEntry& entry = table.entries[i];
            if (!entry.text) {
                EXPECT_EQ(entry.code, 0);
                continue;
            }
            EXPECT_GE(Westring(entry.text).Find(static_cast<wchar_t>(entry.quickKey)), 0)
                << entry.text;
            EXPECT_LE(Westring(entry.text).Length(), table.width - 1) << entry.text;
            const auto [at, isNew] = seen.insert({entry.quickKey | 0x20, entry.text});
            EXPECT_TRUE(isNew) << entry.text << " and " << at->second;
        }
    }
}

TEST_F(PullDownMenuTest, ShowsTheBarWithTheActiveSidesTitle) {
    EXPECT_EQ(RunKeys({kKeyEsc}), 0);
    EXPECT_EQ(Last().rows[0], "    Left    Files    Commands    Options    Right");
    EXPECT_EQ(Last().attributes[0][79], 0x30);
    EXPECT_EQ(HighlightedTitle(), 2);
    EXPECT_EQ(Last().attributes[0][9], 0x0F);
    EXPECT_EQ(Last().attributes[0][10], 0x30);
    EXPECT_EQ(RunKeys({kKeyEsc}, 1), 0);
    EXPECT_EQ(HighlightedTitle(), 42);
}

TEST_F(PullDownMenuTest, GivesTheScreenBack) {
    screen.WriteWide(0, 0, L"the panel's title", 0x1B);
    screen.WriteWide(3, 10, L"its files", 0x1B);
    RunKeys({kKeyEnter, kKeyRight, kKeyEsc, kKeyEsc});
    EXPECT_EQ(Cells(0, 0, 17), "the panel's title");
    EXPECT_EQ(Cells(3, 10, 9), "its files");
}

TEST_F(PullDownMenuTest, DropsDownAtTheTitle) {
    const struct {
        int menu, column, width, height;
    } rows[] = {{0, 2, 21, 20}, {1, 10, 27, 20}, {2, 19, 30, 16}, {3, 31, 25, 13}, {4, 42, 21, 20}};
    for (const auto& row : rows) {
        screen.screens.clear();
        for (int i = 0; i < row.menu; ++i)
            Key(kKeyRight);
        Key(kKeyEnter);
        Key(kKeyEsc);
        Key(kKeyEsc);
        menu.Run(0, false, panels);
        const Screen& shown = screen.screens[screen.screens.size() - 2];
        const auto column = static_cast<size_t>(row.column);
        EXPECT_EQ(shown.attributes[1][column], 0x30);
        EXPECT_EQ(shown.attributes[1][column + static_cast<size_t>(row.width) + 1], 0x30);
        EXPECT_EQ(shown.attributes[2][column + 1], 0x0F);  // the first entry
        EXPECT_EQ(shown.attributes[3][column + 1], 0x3F);
        EXPECT_EQ(shown.attributes[static_cast<size_t>(row.height) + 2][column], 0x30);
        // Its shadow.
        EXPECT_EQ(shown.attributes[static_cast<size_t>(row.height) + 3][column + 3], 0x08);
    }
}

// Each entry of each menu by its quick key, its code and what the screen shows.
TEST_F(PullDownMenuTest, EveryEntryIsShownAndGivesItsCode) {
    for (int menuNumber = 0; menuNumber < kMenuCount; ++menuNumber) {
        const Menu& table = kMenus[menuNumber];
        for (int i = 0; i < table.count; ++i) {
            const PullDownEntry& entry = table.entries[i];
            if (!entry.text) continue;
            screen.screens.clear();
            Key(kMenuTitles[menuNumber].quickKey);
            Key(entry.quickKey);
            EXPECT_EQ(menu.Run(0, false, panels), entry.code) << entry.text;
            EXPECT_EQ(menu.MenuIndex(), menuNumber);
            EXPECT_EQ(menu.ItemIndex(), i);
            const auto row = static_cast<size_t>(i + 2);
            EXPECT_NE(Last().rows[row].find(entry.text), std::string::npos) << entry.text;
            // The quick key's cell: column of the frame, the mark, and the place in the text.
            const int hot = Westring(entry.text).Find(static_cast<wchar_t>(entry.quickKey));
            const auto cell = static_cast<size_t>(kMenuTitles[menuNumber].column + 2 + hot);
            EXPECT_EQ(Last().attributes[row][cell], i == 0 ? 0x0E : 0x3E) << entry.text;
            // The other case of the letter does the same.
            Key(kMenuTitles[menuNumber].quickKey - 0x20);
            Key(entry.quickKey ^ 0x20);
            EXPECT_EQ(menu.Run(0, false, panels), entry.code) << entry.text;
        }
    }
}

TEST_F(PullDownMenuTest, SeparatorsAreLines) {
    RunKeys({kKeyEnter, kKeyEsc, kKeyEsc});
    const Screen& shown = screen.screens[1];
    EXPECT_NE(shown.rows[11].find("║ ─────────────────── ║"), std::string::npos) << shown.rows[11];
    EXPECT_EQ(shown.attributes[11][4], 0x30);
}

TEST_F(PullDownMenuTest, MarksTellThePanelsState) {
    const struct {
        MenuPanelState state;
        std::vector<const char*> marked;
    } rows[] = {
        {{0, 0, 0, 0}, {"Brief ", "Name"}},
        {{1, 0, 0, 1}, {"Full  ", "Extension"}},
        {{2, 0, 1, 2}, {"Wide", "Time"}},
        {{3, 0, 2, 3}, {"Brief-Wide", "Full Width", "Size"}},
        {{4, 0, 0, 4}, {"Unix", "Unsorted"}},
        {{4, 0, 0, 5}, {"Unix", "Name", "Reverse"}},
        {{5, 0, 0, 9}, {"Tree", "Unsorted", "Reverse"}},
        {{2, 1, 0, 0}, {"Info", "Name"}},  // no style while it is no list of files
        {{5, 1, 2, 0}, {"Full Width", "Info", "Name"}},
    };
    for (const int side : {0, 1}) {
        for (const auto& row : rows) {
            panels = Panels();
            panels[static_cast<size_t>(side)] = row.state;
            panels[static_cast<size_t>(1 - side)] = MenuPanelState{1, 0, 0, 1};
            RunKeys({kKeyEnter, kKeyEsc, kKeyEsc}, side);
            std::vector<std::string> marked;
            for (const std::string& line : screen.screens[1].rows) {
                const size_t at = line.find("√");
                if (at != std::string::npos) marked.push_back(line.substr(at + strlen("√")));
            }
            ASSERT_EQ(marked.size(), row.marked.size());
            for (size_t i = 0; i < marked.size(); ++i) {
                EXPECT_EQ(marked[i].find(row.marked[i]), 0u) << marked[i];
            }
        }
    }
}

TEST_F(PullDownMenuTest, MarksTellTheSettings) {
    bool* const values[] = {&settings.hidden,     &settings.pathPrompt, &settings.fullScreen,
                            &settings.clock,      &settings.tagDirs,    &settings.thousandSep,
                            &settings.retainCount};
    const char* const names[] = {"Hidden Files",    "Path Prompt",     "Full Screen",
                                 "Clock",           "Tag Directories", "Thousand Separator",
                                 "Retain Dir Count"};
    for (size_t on = 0; on < std::size(values); ++on) {
        for (size_t i = 0; i < std::size(values); ++i)
            *values[i] = i == on;
        RunKeys({kKeyRight, kKeyRight, kKeyRight, kKeyEnter, kKeyEsc, kKeyEsc});
        const Screen& shown = screen.screens[4];
        for (size_t i = 0; i < std::size(values); ++i) {
            EXPECT_EQ(shown.Has(std::string("√") + names[i]), i == on) << names[i];
            EXPECT_TRUE(shown.Has(names[i]));
        }
    }
}

TEST_F(PullDownMenuTest, ArrowsGoOverSeparatorsAndAround) {
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyUp, kKeyEnter}), 0x10068);  // from the first to the last
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyUp, kKeyDown, kKeyEnter}), 0x10000D);
    std::initializer_list<int> toOnOff = {kKeyEnter, kKeyDown, kKeyDown, kKeyDown, kKeyDown,
                                          kKeyDown,  kKeyDown, kKeyDown, kKeyDown, kKeyEnter};
    EXPECT_EQ(RunKeys(toOnOff), 0x1005E);
    EXPECT_EQ(RunKeys({kKeyDown, kKeyDown, kKeyDown, kKeyDown, kKeyDown, kKeyDown, kKeyDown,
                       kKeyDown, kKeyDown, kKeyDown, kKeyEnter}),
              0x100001);  // the first Down opened; the last went over a line
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyEnd, kKeyHome, kKeyEnter}), 0x10000D);
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyEnd, kKeyEnter}), 0x10068);
}

TEST_F(PullDownMenuTest, LeftAndRightGoAroundTheMenus) {
    EXPECT_EQ(RunKeys({kKeyLeft, kKeyEsc}), 0);
    EXPECT_EQ(HighlightedTitle(), 42);
    EXPECT_EQ(RunKeys({kKeyRight, kKeyEnter, kKeyEnd, kKeyEnter}), 0x10044);  // Files, Quit
    // An open menu stays open, on its first entry.
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyEnd, kKeyRight, kKeyEnter}), 0x30054);
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyLeft, kKeyEnter}, 0), 0x10000E);
}

TEST_F(PullDownMenuTest, EscClosesTheDropDownFirst) {
    EXPECT_EQ(RunKeys({kKeyEnter, kKeyEsc, kKeyEsc}), 0);
    EXPECT_EQ(Last().rows[1], "");
    EXPECT_EQ(HighlightedTitle(), 2);
    EXPECT_FALSE(menu.IsOpen());
}

TEST_F(PullDownMenuTest, UpOnAClosedBarStaysClosed) {
    EXPECT_EQ(RunKeys({kKeyUp, kKeyEsc}), 0);
    EXPECT_EQ(Last().rows[1], "");
}

TEST_F(PullDownMenuTest, ReopensWhereItWasLeft) {
    EXPECT_EQ(RunKeys({kKeyRight, kKeyEnter, kKeyDown, kKeyDown, kKeyEnter}), 0x1003D);
    EXPECT_EQ(RunKeys({kKeyEnter}, 0, true), 0x1003D);
    EXPECT_EQ(Last().attributes[4][11], 0x0F);
    EXPECT_EQ(RunKeys({kKeyEsc, kKeyEsc}, 0, true), 0);
    // It was left closed.
    EXPECT_EQ(RunKeys({kKeyEsc}, 0, true), 0);
    EXPECT_EQ(HighlightedTitle(), 10);
    // Without reopening it begins anew.
    EXPECT_EQ(RunKeys({kKeyEsc}, 1, false), 0);
    EXPECT_EQ(HighlightedTitle(), 42);
}

TEST_F(PullDownMenuTest, OtherKeysLeaveItAsItIs) {
    EXPECT_EQ(RunKeys({'z', kKeyF5, kKeyTab, 0x10100, kKeyEsc}), 0);
    EXPECT_EQ(Last().rows[1], "");
    EXPECT_EQ(RunKeys({kKeyEnter, 'q', kKeyF5, kKeyEnter}), 0x10000D);
}

TEST_F(PullDownMenuTest, HelpTopicsFollowTheMenus) {
    RunKeys({kKeyF1, kKeyRight, kKeyF1, kKeyRight, kKeyF1, kKeyRight, kKeyF1, kKeyRight, kKeyF1,
             kKeyEsc});
    EXPECT_EQ(helpTopics, (std::vector<int>{100, 101, 102, 103, 100}));
    PullDownMenu helpless;
    Key(kKeyF1);
    Key(kKeyEsc);
    EXPECT_EQ(helpless.Run(0, false, panels), 0);
}

TEST_F(PullDownMenuTest, QuitIsHandedOn) {
    Quit();
    EXPECT_EQ(menu.Run(0, false, panels), kKeyQuit);
    quitSeen = false;
    Key(kKeyEnter);  // with the drop-down open
    Quit();
    EXPECT_EQ(menu.Run(0, false, panels), kKeyQuit);
    EXPECT_EQ(ReadKey(nullptr, -1), kKeyQuit);
}

TEST_F(PullDownMenuTest, DragOpensAClosedBarAndKeepsAnOpenOne) {
    Drag(22, 0);
    Drag(13, 0);
    Key(kKeyEnd);
    Key(kKeyEnter);
    EXPECT_EQ(menu.Run(0, false, panels), 0x10044);
    EXPECT_EQ(screen.screens[1].RowOf("File Find"), 3);
    EXPECT_EQ(screen.screens[2].RowOf("User Menu"), 3);
    EXPECT_FALSE(screen.screens[2].Has("File Find"));
}

TEST_F(PullDownMenuTest, MouseOpensAndChooses) {
    Click(13, 0);  // Files
    Click(15, 4);  // View
    EXPECT_EQ(menu.Run(0, false, panels), 0x1003D);
    EXPECT_EQ(menu.MenuIndex(), 1);
}

TEST_F(PullDownMenuTest, MouseDragsAlongTheBarAndDown) {
    Press(4, 0);
    Drag(13, 0);
    Drag(22, 0);  // Commands
    Drag(25, 3);
    Release(25, 4);
    EXPECT_EQ(menu.Run(0, false, panels), 0x1006F);
}

TEST_F(PullDownMenuTest, TitlesSpanUpToTheNext) {
    const struct {
        int column, menu;
    } rows[] = {{2, 0},  {9, 0},  {10, 1}, {18, 1}, {19, 2},
                {30, 2}, {31, 3}, {41, 3}, {42, 4}, {50, 4}};
    for (const auto& row : rows) {
        Press(row.column, 0);
        Key(kKeyEsc);
        Key(kKeyEsc);
        EXPECT_EQ(menu.Run(0, false, panels), 0);
        EXPECT_EQ(menu.MenuIndex(), row.menu) << row.column;
    }
    for (const int column : {0, 1, 51, 79}) {
        screen.screens.clear();
        Press(column, 0);
        Key(kKeyEsc);
        EXPECT_EQ(menu.Run(0, false, panels), 0);
        EXPECT_EQ(Last().rows[1], "") << column;
    }
}

TEST_F(PullDownMenuTest, ReleaseOnTheBarKeepsItAndElsewhereLeaves) {
    Press(4, 0);
    Release(4, 0);
    Release(4, 1);  // the drop-down's frame
    EXPECT_EQ(menu.Run(0, false, panels), 0);
    EXPECT_FALSE(menu.IsOpen());
    Click(60, 20);
    EXPECT_EQ(menu.Run(0, false, panels), 0);
    Key(kKeyEnter);
    Press(60, 20);  // a press elsewhere is nothing
    Release(60, 20);
    EXPECT_EQ(menu.Run(0, false, panels), 0);
}

TEST_F(PullDownMenuTest, ReleaseOnASeparatorGoesOn) {
    Key(kKeyEnter);
    Click(5, 11);
    Key(kKeyHome);
    Key(kKeyEnter);
    EXPECT_EQ(menu.Run(0, false, panels), 0x10000D);
}

TEST_F(PullDownMenuTest, RightButtonActsAsTheLeftAndTheWheelDoesNothing) {
    RightClick(13, 0);
    screen.PushMouse(EventKind::kWheel, 1, 15, 4);
    RightClick(15, 3);
    EXPECT_EQ(menu.Run(0, false, panels), 0x1003C);
}

TEST_F(PullDownMenuTest, StepInTheMenuPaintsTwoEntries) {
    std::vector<int> painted;
    class Counter : public ScreenConsole {
    public:
        explicit Counter(std::vector<int>& counts_) : counts(counts_) {}
        bool ReadEvent(TEvent& event, int timeout) override {
            counts.push_back(PaintedCells());
            ForgetRecords();
            return FakeConsole::ReadEvent(event, timeout);
        }
        std::vector<int>& counts;
    } counter(painted);
    for (const int key : {int{kKeyEnter}, int{kKeyDown}, int{kKeyEsc}, int{kKeyEsc}}) {
        counter.PushKey(key);
    }
    menu.Run(0, false, panels);
    ASSERT_EQ(painted.size(), 4u);
    EXPECT_LE(painted[2], 2 * 21);
}

}  // namespace
}  // namespace zt
