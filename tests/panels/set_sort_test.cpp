// Giving a panel another order.
#include <gmock/gmock.h>

#include "panels/cursor_movement.h"
#include "panels/directory_reader.h"
#include "panels/entry_sorting.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class SettingTheOrder : public PanelFixture {
protected:
    void Sample() {
        tree.Folder("d1");
        tree.Folder("d2");
        tree.File("a10", 3);
        tree.File("a9", 2);
        tree.File("b", 1);
        tree.File(".h");
        settings.hidden = true;
        Start();
    }
};

TEST_F(SettingTheOrder, TurnsEachGroupRoundAndBack) {
    Sample();
    const std::vector<std::string> plain = {"..", "d1", "d2", ".h", "a10", "a9", "b"};
    EXPECT_EQ(Names(left), plain);
    SetSort(left, kSortName + kReversed);
    EXPECT_THAT(Names(left), ElementsAre("..", "d2", "d1", ".h", "b", "a9", "a10"));
    SetSort(left, kSortName);
    EXPECT_EQ(Names(left), plain);
    SetSort(left, kSortSize + kReversed);
    EXPECT_THAT(Names(left), ElementsAre("..", "d2", "d1", ".h", "b", "a9", "a10"));
    SetSort(left, kSortSize);
    EXPECT_THAT(Names(left), ElementsAre("..", "d1", "d2", ".h", "a10", "a9", "b"));
}

TEST_F(SettingTheOrder, TakesNaturalOrderAtTheNextSort) {
    Sample();
    settings.naturalSort = true;
    SetSort(left, kSortName + kReversed);
    EXPECT_THAT(Names(left), ElementsAre("..", "d2", "d1", ".h", "b", "a10", "a9"));
    settings.naturalSort = false;
    SetSort(left, kSortName);
    EXPECT_THAT(Names(left), ElementsAre("..", "d1", "d2", ".h", "a10", "a9", "b"));
}

TEST_F(SettingTheOrder, SortsAgainByValuesThatChanged) {
    Sample();
    SetSort(left, kSortSize);
    Find(left, "b")->size = 9;
    SetSort(left, kSortSize);
    EXPECT_THAT(Names(left), ElementsAre("..", "d1", "d2", ".h", "b", "a10", "a9"));
}

TEST_F(SettingTheOrder, TurnsNothingThatWasNotSorted) {
    Sample();
    SetSort(left, kSortUnsorted);
    const std::vector<std::string> asRead = Names(left);
    SetSort(left, kSortUnsorted + kReversed);
    EXPECT_EQ(Names(left), asRead);
    SetSort(left, kSortName + kReversed);
    EXPECT_THAT(Names(left), ElementsAre("..", "d2", "d1", ".h", "b", "a9", "a10"));
    const std::unique_ptr<entry, void (*)(entry*)> late(NewEntry(L"aa"), FreeEntry);
    late->group = kGroupFile;
    left.entries.Append(*late);
    SetSort(left, kSortName);
    EXPECT_THAT(Names(left), ElementsAre("..", "d1", "d2", ".h", "a10", "a9", "aa", "b"));
}

TEST_F(SettingTheOrder, ReadsAsTheDiskHasItInBothUnsortedOrders) {
    Sample();
    SetSort(left, kSortUnsorted);
    const std::vector<std::string> asRead = Names(left);
    settings.sides[1].sort = kSortUnsorted + kReversed;
    InitFromSettings(right, 1);
    EXPECT_EQ(Names(right), asRead);
}

TEST_F(SettingTheOrder, KeepsTheCursorOnItsEntryAndScrollsToIt) {
    ManyFiles(99);
    Start();
    MoveCursor(left, 10);
    ASSERT_EQ(CurrentName(left), "f00009");
    SetSort(left, kSortName + kReversed);
    EXPECT_EQ(CurrentName(left), "f00009");
    EXPECT_EQ(left.CurrentIndex(), 90);
    EXPECT_EQ(left.cursor, 18);
    SetSort(left, kSortTime);
    EXPECT_EQ(CurrentName(left), "f00009");
    EXPECT_TRUE(left.needPaint);
}

TEST_F(SettingTheOrder, StoresTheOrderOfItsSideOnly) {
    Sample();
    SetSort(right, kSortExtension);
    EXPECT_EQ(settings.sides[1].sort, kSortExtension);
    EXPECT_EQ(settings.sides[0].sort, kSortName);
    EXPECT_EQ(left.sort, kSortName);
}

TEST_F(SettingTheOrder, SurvivesAnEmptyList) {
    Start();
    left.entries.Clear();
    for (const int sort : {kSortName + kReversed, kSortName, kSortSize}) {
        SetSort(left, sort);
        EXPECT_EQ(left.CurrentIndex(), 0);
    }
}

}  // namespace
}  // namespace zt
