// The function-key bar: what it shows, in which colours, and which key a click means.
#include "ui/function_key_bar.h"

#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

using FunctionKeyBarTest = UiTest;

MouseEvent ClickAt(int column, int type = 5, int modifiers = 0) {
    MouseEvent event;
    event.type = type;
    event.column = column;
    event.row = 24;
    event.modifiers = modifiers;
    return event;
}

TEST_F(FunctionKeyBarTest, ShowsTheLabelsOfEachModifierSet) {
    const char* const expected[] = {
        "1Help   2Menu   3View   4Edit   5Copy   6RenMov 7Mkdir  8Delete 9PullDn 10Quit  ",
        "1Left   2Right  3View.. 4Edit.. 5DStore 6Object 7Find   8Histry 9EGA Ln 10Tree  ",
        "1Left   2Right  3Name   4Exten  5Time   6Size   7Unsort 8Revers 9       10      ",
        "1       2       3       4       5       6       7       8       9       10      ",
        "1Manual 2MnMenu 3View.. 4Edit.. 5Copy   6Rename 7MkArch 8DelOne 9SavSet 10MenuRe",
        "1Brief  2Full   3Wide   4BriefW 5Unix   6       7FindRC 8DirHst 9ColChg 10      ",
        "1LWide  2RWide  3View.. 4Edit.. 5SymLnk 6       7       8       9Sync   10      ",
        "1       2       3       4       5       6       7       8       9       10      ",
    };
    CFunctionKeyBar bar;
    for (int modifiers = 0; modifiers < 8; ++modifiers) {
        bar.SetLabels(LabelsForModifiers(modifiers));
        EXPECT_EQ(screen.RowText(24), expected[modifiers]) << "modifiers " << modifiers;
    }
    // Lock bits do not count.
    EXPECT_EQ(&LabelsForModifiers(kModifierLock | 2), &LabelsForModifiers(2));
}

TEST_F(FunctionKeyBarTest, NumbersStandInTheColourOfTheCommandLine) {
    CFunctionKeyBar bar;
    bar.SetLabels(LabelsForModifiers(0));
    std::string colours;
    for (int column = 0; column < 80; ++column) {
        colours += At(column, 24) == Colour(ColourClass::kCommandLine) ? '#' : '.';
    }
    EXPECT_EQ(colours,
              "#......##......##......##......##......##......##......##......##......###......");
    EXPECT_EQ(At(1, 24), Colour(ColourClass::kMenuBar));
}

TEST_F(FunctionKeyBarTest, WideScreenSpreadsTheLabels) {
    screen.Resize(132, 50, nullptr, 0);
    CFunctionKeyBar bar;
    bar.SetLabels(LabelsForModifiers(0));
    EXPECT_EQ(Cells(0, 49, 13), "1Help        ");
    EXPECT_EQ(Cells(13, 49, 13), "2Menu        ");
    EXPECT_EQ(Cells(117, 49, 15), "10Quit         ");
}

TEST_F(FunctionKeyBarTest, LongLabelRunsIntoTheNextAndIsCutAtTheEdge) {
    CFunctionKeyBar bar;
    bar.SetLabels({"1AVeryLongOne", "2", "3", "4", "5", "6", "7", "8", "9", "10ALongOneToo"});
    EXPECT_EQ(Cells(0, 24, 16), "1AVeryLo2gOne   ");
    EXPECT_EQ(Cells(72, 24, 8), "10ALongO");
}

TEST_F(FunctionKeyBarTest, ScreenTooNarrowForItIsSurvived) {
    for (const int columns : {9, 1}) {
        screen.Resize(columns, 3, nullptr, 0);
        CFunctionKeyBar bar;
        bar.SetLabels(LabelsForModifiers(0));
        EXPECT_EQ(screen.RowText(2).size(), static_cast<size_t>(columns));
        EXPECT_EQ(bar.KeyForClick(ClickAt(0)), 0x1003C);
    }
}

TEST_F(FunctionKeyBarTest, ClickMeansTheKeyUnderThePointer) {
    CFunctionKeyBar bar;
    struct Row {
        int column, type, modifiers, code;
    };
    const Row rows[] = {
        {0, 5, 0, 0x1003B},  // F1
        {6, 5, 0, 0x1003B},  // the last cell of its slot
        {7, 5, 0, 0x1003C},  // the blank before a number belongs to it
        {8, 5, 0, 0x1003C},
        {71, 5, 0, 0x10044},
        {79, 5, 0, 0x10044},  // never beyond F10
        {0, 6, 0, 0x10068},   // the right button: Alt
        {0, 1, 0, 0x10068},
        {16, 5, kModifierAlt, 0x1006A},
        {16, 5, kModifierShift, 0x30056},
        {16, 5, kModifierCtrl, 0x10060},
        {16, 5, kModifierAlt | kModifierShift, 0x1006A},
        {16, 5, kModifierCtrl | kModifierShift, 0x30056},
        {16, 6, kModifierShift, 0x1006A},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(bar.KeyForClick(ClickAt(row.column, row.type, row.modifiers)), row.code)
            << "column " << row.column << ", type " << row.type << ", modifiers " << row.modifiers;
    }
}

TEST_F(FunctionKeyBarTest, GivesTheLineBack) {
    screen.WriteWide(0, 24, L"last line", 0x07);
    {
        CFunctionKeyBar bar;
        bar.SetLabels(LabelsForModifiers(0));
        EXPECT_EQ(bar.Top(), 24);
    }
    EXPECT_EQ(Cells(0, 24, 9), "last line");
}

}  // namespace
}  // namespace zt
