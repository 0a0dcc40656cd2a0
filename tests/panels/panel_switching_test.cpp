// Panels on and off, active and not, half and full, left and right.
#include "panels/panel_switching.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/entry_sorting.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class Switching : public PanelFixture {
protected:
    void StartInTwo() {
        tree.Folder("a");
        tree.Folder("b");
        tree.File("a/in-a");
        tree.File("b/in-b");
        Start("a", "b");
        Activate(*panels, 0);
    }
    void ExpectShowing(bool leftShows, bool rightShows) {
        EXPECT_EQ(left.showing, leftShows);
        EXPECT_EQ(right.showing, rightShows);
        EXPECT_EQ(left.window != nullptr, leftShows);
        EXPECT_EQ(right.window != nullptr, rightShows);
    }
    std::string WorkingDirectory() { return std::filesystem::current_path().string(); }
};

TEST_F(Switching, StartsAsTheSettingsSay) {
    tree.File("x");
    SideSettings& own = settings.sides[1];
    own.sort = 7;
    own.style = kStyleUnix;
    own.filter = "*.c";
    own.showing = false;
    Start();
    EXPECT_EQ(right.sort, 7);
    EXPECT_EQ(right.style, kStyleUnix);
    EXPECT_STREQ(right.filter.c_str(), L"*.c");
    EXPECT_TRUE(right.offByUser);
    EXPECT_TRUE(right.needRead);
    EXPECT_EQ(right.nameShiftIndex, -1);
    ExpectShowing(true, false);
    EXPECT_FALSE(left.offByUser);
    EXPECT_EQ(left.Count(), 2);
    EXPECT_EQ(PathOf(left), NameToBytes(left.readPath).c_str());
}

TEST_F(Switching, SurvivesSettingsOutOfRange) {
    SideSettings& own = settings.sides[0];
    own.sort = 99;
    own.style = -3;
    own.type = 7;
    own.width = 5;
    own.filter = "";
    Start();
    EXPECT_EQ(left.sort, kSortName);
    EXPECT_EQ(left.style, kStyleFull);
    EXPECT_EQ(left.kind, kKindFiles);
    EXPECT_EQ(left.width, kWidthHalf);
    EXPECT_STREQ(left.filter.c_str(), L"*");
}

TEST_F(Switching, HidesTheOtherPanelBehindOneOfFullWidth) {
    settings.sides[1].width = kWidthFull;
    Start();
    ExpectShowing(false, true);
    EXPECT_EQ(right.window->Left(), 0);
    EXPECT_EQ(right.window->Right(), 79);
    EXPECT_FALSE(left.offByUser);
}

TEST_F(Switching, CountsTheVisibleEntriesOfEachStyle) {
    Start();
    const struct {
        int style, visible;
    } rows[] = {{kStyleBrief, 57},
                {kStyleFull, 19},
                {kStyleWide, 19},
                {kStyleBriefWide, 38},
                {kStyleUnix, 19}};
    for (const auto& row : rows) {
        SetStyle(left, row.style, 0);
        EXPECT_EQ(left.visibleEntries, row.visible) << row.style;
        EXPECT_EQ(settings.sides[0].style, row.style);
        EXPECT_TRUE(left.needPaint);
    }
    SetStyle(left, kStyleTree, 0);
    EXPECT_EQ(left.style, kStyleUnix) << "there is no tree";
    SetStyle(left, 77, 0);
    EXPECT_EQ(left.style, kStyleUnix);
}

TEST_F(Switching, KeepsTheCurrentEntryInAnotherStyle) {
    ManyFiles(100);
    StartWith(kStyleBrief);
    MoveCursor(left, 50);
    SetStyle(left, kStyleFull, 0);
    EXPECT_EQ(left.CurrentIndex(), 50);
    EXPECT_LT(left.cursor, 19);
}

TEST_F(Switching, ActivatesASide) {
    StartInTwo();
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("a"));
    Activate(*panels, 1);
    EXPECT_EQ(panels->active, 1);
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("b"));
    EXPECT_EQ(settings.startupSide, 'R');
    EXPECT_NE(screen->title.find("/b"), std::string::npos);
    EXPECT_EQ(screen->AttributeAt(60, 0), 0x30);
    EXPECT_EQ(screen->AttributeAt(20, 0), 0x1B);
    Activate(*panels, 0);
    EXPECT_EQ(settings.startupSide, 'L');
    EXPECT_EQ(screen->AttributeAt(20, 0), 0x30);
}

TEST_F(Switching, ShortensThePathInTheWindowTitle) {
    const std::string name(60, 'n');
    tree.Folder(name);
    Start(name, "");
    Activate(*panels, 0);
    EXPECT_EQ(screen->title, "Zanthe: /tmp/..." + std::string(42, 'n')) << "50 columns";
    screen->title = "another";
    Activate(*panels, 0);
    EXPECT_EQ(screen->title, "another") << "the same side again";
}

TEST_F(Switching, StaysOutOfNetworkPaths) {
    StartInTwo();
    right.path = "//host/share";
    Activate(*panels, 1);
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("a"));
}

TEST_F(Switching, TakesTheOtherPanelsDirectoryForAnInfoPanel) {
    StartInTwo();
    right.kind = kKindInfo;
    Activate(*panels, 1);
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("a"));
}

TEST_F(Switching, LeavesTheDirectoryAloneAfterAnError) {
    StartInTwo();
    right.readError = EIO;
    Activate(*panels, 1);
    EXPECT_EQ(WorkingDirectory(), tree.PathOf("a"));
}

TEST_F(Switching, SwitchesToTheOtherPanel) {
    StartInTwo();
    EXPECT_TRUE(SwitchPanel(*panels));
    EXPECT_EQ(panels->active, 1);
    EXPECT_TRUE(SwitchPanel(*panels));
    EXPECT_EQ(panels->active, 0);
    TogglePanel(*panels, 1);
    EXPECT_FALSE(SwitchPanel(*panels)) << "the other side is off";
    EXPECT_EQ(panels->active, 0);
}

TEST_F(Switching, SwitchesTheFullWidthAlong) {
    StartInTwo();
    TogglePanelWidth(*panels, 0);
    ExpectShowing(true, false);
    EXPECT_TRUE(SwitchPanel(*panels));
    ExpectShowing(false, true);
    EXPECT_EQ(panels->active, 1);
    EXPECT_EQ(left.width, kWidthHalf);
    EXPECT_EQ(right.width, kWidthFull);
    EXPECT_EQ(right.window->Left(), 0);
}

TEST_F(Switching, TurnsAPanelOffAndOn) {
    StartInTwo();
    screen->ForgetRecords();
    TogglePanel(*panels, 0);
    ExpectShowing(false, true);
    EXPECT_EQ(panels->active, 1) << "the one that is on";
    EXPECT_TRUE(left.offByUser);
    EXPECT_FALSE(settings.sides[0].showing);
    EXPECT_EQ(screen->CellAt(0, 0), kBlankCell) << "what was under it";
    TogglePanel(*panels, 1);
    ExpectShowing(false, false);
    EXPECT_EQ(screen->selectableRects.back(), (CellRect{0, 0, 80, 23}));
    TogglePanel(*panels, 0);
    ExpectShowing(true, false);
    EXPECT_EQ(panels->active, 0);
    EXPECT_TRUE(settings.sides[0].showing);
    EXPECT_FALSE(left.offByUser);
    EXPECT_TRUE(screen->GetSelectableRect().IsEmpty());
}

TEST_F(Switching, ReadsAPanelThatComesOn) {
    StartInTwo();
    TogglePanel(*panels, 0);
    GoTo(*panels, 0, Westring());
    EXPECT_TRUE(left.needRead);
    tree.File("a/new");
    TogglePanel(*panels, 0);
    EXPECT_THAT(Names(left), ElementsAre("..", "in-a", "new"));
    EXPECT_EQ(ClientRow(left, 2).substr(0, 3), "new");
}

TEST_F(Switching, OpensOneSideInPlaceOfAFullOne) {
    StartInTwo();
    TogglePanelWidth(*panels, 1);
    ExpectShowing(false, true);
    TogglePanel(*panels, 0);
    ExpectShowing(true, false);
    EXPECT_EQ(panels->active, 0);
}

TEST_F(Switching, WidensAndNarrowsAPanel) {
    StartInTwo();
    TogglePanelWidth(*panels, 1);
    ExpectShowing(false, true);
    EXPECT_EQ(panels->active, 1);
    EXPECT_EQ(settings.sides[1].width, kWidthFull);
    EXPECT_EQ(right.window->Right() - right.window->Left() + 1, 80);
    TogglePanelWidth(*panels, 1);
    ExpectShowing(true, true);
    EXPECT_EQ(settings.sides[1].width, kWidthHalf);
    EXPECT_EQ(right.window->Left(), 40);
    EXPECT_EQ(ClientRow(left, 1).substr(0, 4), "in-a");
    EXPECT_EQ(ClientRow(right, 1).substr(0, 4), "in-b");
}

TEST_F(Switching, KeepsAPanelOffThatTheUserSwitchedOff) {
    StartInTwo();
    TogglePanel(*panels, 0);
    TogglePanelWidth(*panels, 1);
    TogglePanelWidth(*panels, 1);
    ExpectShowing(false, true);
}

TEST_F(Switching, NeverHasTwoPanelsOfFullWidth) {
    StartInTwo();
    TogglePanelWidth(*panels, 0);
    TogglePanelWidth(*panels, 1);
    EXPECT_EQ(left.width, kWidthHalf);
    EXPECT_EQ(right.width, kWidthFull);
    ExpectShowing(false, true);
}

TEST_F(Switching, TurnsBothPanelsOffAndThoseThatWereOnOnAgain) {
    StartInTwo();
    PanelsOnOff(*panels);
    ExpectShowing(false, false);
    EXPECT_TRUE(BothPanelsOff(*panels));
    EXPECT_TRUE(settings.sides[0].showing) << "no setting changes";
    EXPECT_EQ(screen->selectableRects.back(), (CellRect{0, 0, 80, 23}));
    PanelsOnOff(*panels);
    ExpectShowing(true, true);
    EXPECT_TRUE(screen->GetSelectableRect().IsEmpty());
    TogglePanel(*panels, 1);
    PanelsOnOff(*panels);
    PanelsOnOff(*panels);
    ExpectShowing(true, false);
}

TEST_F(Switching, TurnsBothOnWhereBothWereSwitchedOff) {
    StartInTwo();
    TogglePanel(*panels, 0);
    TogglePanel(*panels, 1);
    PanelsOnOff(*panels);
    ExpectShowing(true, true);
}

TEST_F(Switching, BringsBackTheFullPanelAlone) {
    StartInTwo();
    TogglePanelWidth(*panels, 1);
    PanelsOnOff(*panels);
    ExpectShowing(false, false);
    PanelsOnOff(*panels);
    ExpectShowing(false, true);
    EXPECT_EQ(panels->active, 1);
}

TEST_F(Switching, SwapsAllThatIsInThePanels) {
    StartInTwo();
    SetStyle(left, kStyleBrief, 0);
    SetSort(left, kSortSize);
    left.filter = settings.sides[0].filter = "*.c";
    Tag(left, "in-a");
    FindName(left, L"in-a");
    left.positions.Store("/p", 3, "x");
    left.lastPath = "/last";
    left.subdirectories.AddCopy("sub");
    SwapPanels(*panels);
    EXPECT_EQ(PathOf(left), tree.PathOf("b"));
    EXPECT_EQ(PathOf(right), tree.PathOf("a"));
    EXPECT_THAT(Names(left), ElementsAre("..", "in-b"));
    EXPECT_THAT(Names(right), ElementsAre("..", "in-a"));
    EXPECT_EQ(right.style, kStyleBrief);
    EXPECT_EQ(right.visibleEntries, 57);
    EXPECT_EQ(left.visibleEntries, 19);
    EXPECT_EQ(right.sort, kSortSize);
    EXPECT_STREQ(right.filter.c_str(), L"*.c");
    EXPECT_EQ(right.taggedCount, 1);
    EXPECT_EQ(left.taggedCount, 0);
    EXPECT_EQ(CurrentName(right), "in-a");
    EXPECT_NE(right.positions.Lookup("/p"), nullptr);
    EXPECT_EQ(left.positions.Lookup("/p"), nullptr);
    EXPECT_STREQ(right.lastPath.c_str(), L"/last");
    EXPECT_EQ(right.subdirectories.Count(), 1);
    EXPECT_EQ(settings.sides[1].style, kStyleBrief);
    EXPECT_EQ(settings.sides[1].sort, kSortSize);
    EXPECT_STREQ(settings.sides[1].filter.c_str(), L"*.c");
    ExpectShowing(true, true);
    EXPECT_EQ(left.window->Left(), 0);
    EXPECT_EQ(ClientRow(left, 1).substr(0, 4), "in-b");
    EXPECT_EQ(ClientRow(right, 1).substr(0, 4), "in-a");
}

TEST_F(Switching, SwapsWithAPanelThatIsOff) {
    StartInTwo();
    TogglePanel(*panels, 1);
    GoTo(*panels, 1, Westring());
    ASSERT_TRUE(right.needRead);
    tree.File("b/new");
    SwapPanels(*panels);
    ExpectShowing(true, false);
    EXPECT_EQ(PathOf(left), tree.PathOf("b"));
    EXPECT_THAT(Names(left), ElementsAre("..", "in-b", "new")) << "the read that was due";
    EXPECT_FALSE(right.needRead);
    EXPECT_THAT(Names(right), ElementsAre("..", "in-a"));
}

TEST_F(Switching, ReopensAfterTheScreenChanged) {
    StartInTwo();
    MoveCursor(left, 1);
    screen->Resize(132, 50, nullptr, 0);
    screenColumns = 132;
    screenLines = 50;
    panelRows = 44;
    ReopenPanelWindows(*panels);
    EXPECT_EQ(right.window->Left(), 66);
    EXPECT_EQ(left.visibleEntries, 44);
    EXPECT_EQ(CurrentName(left), "in-a");
}

TEST_F(Switching, FitsAScreenWithoutRoomForEntries) {
    StartInTwo();
    for (const int lines : {10, 6, 5, 2, 1}) {
        screen->Resize(80, lines, nullptr, 0);
        screenLines = lines;
        panelRows = lines - 6;
        ReopenPanelWindows(*panels);
        MoveCursor(left, 1);
        PageDown(left);
        PageUp(left);
        Pass();
        EXPECT_GE(left.CurrentIndex(), 0);
        EXPECT_LT(left.CurrentIndex(), left.Count());
    }
}

TEST_F(Switching, RefreshesWhatIsMarked) {
    StartInTwo();
    tree.File("a/new");
    left.needRead = true;
    RefreshPanels(*panels);
    EXPECT_EQ(ClientRow(left, 2).substr(0, 3), "new");
    EXPECT_FALSE(left.needPaint);
    screen->ForgetRecords();
    RefreshPanels(*panels);
    EXPECT_EQ(screen->PaintedCells(), 0);
    settings.thousandSep = true;
    EXPECT_EQ(truncate(tree.PathOf("a/new").c_str(), 1234), 0);
    ReadDirectory(left);
    left.needPaint = false;
    RefreshPanels(*panels, true);
    EXPECT_NE(ClientRow(left, 2).find("1,234"), std::string::npos);
}

}  // namespace
}  // namespace zt
