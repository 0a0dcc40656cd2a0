// Lists in dialogs: drawing, keys, mouse, incremental search, changes of their items, colours.
#include "ui/list_box.h"

#include <ostream>

#include "tests/ui/ui_fixture.h"
#include "ui/colours_dialog.h"
#include "ui/dialog.h"

namespace zt {
namespace {

constexpr int kX = 11, kY = 6;
constexpr int kListX = kX + 2, kListY = kY + 1;
constexpr int kMenu = 0x3F, kHighlight = 0x0F;

const char* const kNames[] = {"alpha", "beta", "gamma", "delta", "epsilon",
                              "zeta",  "eta",  "theta", "iota",  "kappa"};

class ListBoxTest : public UiTest {
protected:
    // Ten rows at most, four of them to be seen.
    void Open(int count = 10, int start = 0, int exitCode = 0) {
        chosen = start;
        dialog = std::make_unique<Dialog>(10, 5, 69, 19, 0x70);
        dialog->AddList(2, 1, true, 10, 4, kNames, count, chosen, exitCode);
    }
    void Keys(std::initializer_list<int> keys) {
        for (const int key : keys)
            Key(key);
        dialog->Run(0);
    }
    std::string Rows() {
        std::string rows;
        for (int i = 0; i < 4; ++i) {
            std::string row = Cells(kListX, kListY + i, 10);
            row.erase(row.find_last_not_of(' ') + 1);
            rows += (At(kListX, kListY + i) == kHighlight ? ">" : " ") + row + "|";
        }
        return rows;
    }
    void Tell(DialogEventKind kind, int code = 0) {
        DialogEvent event;
        event.kind = kind;
        event.code = code;
        answer = dialog->SendEvent(0, event);
    }
    int32_t chosen = 0;
    int answer = 0;
    std::unique_ptr<Dialog> dialog;
};

TEST_F(ListBoxTest, ShowsItsItemsAndTheChosenOne) {
    Open(10, 2);
    EXPECT_EQ(Rows(), " alpha| beta|>gamma| delta|");
    EXPECT_EQ(At(kListX + 9, kListY), kMenu);
    EXPECT_EQ(At(kListX + 10, kListY), 0x70);
    Open(10, 7);
    EXPECT_EQ(Rows(), " epsilon| zeta| eta|>theta|");
    Open(2, 0);
    EXPECT_EQ(Rows(), ">alpha| beta| | |");
}

TEST_F(ListBoxTest, ChosenRowStandsOutOnlyWithTheFocus) {
    Open();
    dialog->AddOkCancel(-1, -1, true);
    dialog->SetFocus(1);
    EXPECT_EQ(Rows(), " alpha| beta| gamma| delta|");
}

TEST_F(ListBoxTest, BringsTheVariableIntoRange) {
    Open(10, 99);
    EXPECT_EQ(chosen, 9);
    Open(10, -5);
    EXPECT_EQ(chosen, 0);
}

struct MoveRow {
    const char* name;
    int start;
    std::vector<int> keys;
    int chosen;
    const char* rows;
};

void PrintTo(const MoveRow& row, std::ostream* out) {
    *out << row.name;
}

class ListBoxMove : public ListBoxTest, public testing::WithParamInterface<MoveRow> {};

TEST_P(ListBoxMove, MovesTheChoice) {
    const MoveRow& row = GetParam();
    Open(10, row.start);
    for (const int key : row.keys)
        Key(key);
    EXPECT_EQ(dialog->Run(0), 0);
    EXPECT_EQ(chosen, row.chosen);
    EXPECT_EQ(Rows(), row.rows);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ListBoxMove,
    testing::Values(
        MoveRow{"Down", 0, {kKeyDown}, 1, " alpha|>beta| gamma| delta|"},
        MoveRow{"Down scrolls", 3, {kKeyDown}, 4, " beta| gamma| delta|>epsilon|"},
        MoveRow{"Down stops at the end", 9, {kKeyDown}, 9, " eta| theta| iota|>kappa|"},
        MoveRow{"Up", 1, {kKeyUp}, 0, ">alpha| beta| gamma| delta|"},
        MoveRow{"Up scrolls", 9, {kKeyUp, kKeyUp, kKeyUp, kKeyUp}, 5, ">zeta| eta| theta| iota|"},
        MoveRow{"Up stops at the start", 0, {kKeyUp}, 0, ">alpha| beta| gamma| delta|"},
        MoveRow{"PgDn", 1, {kKeyPageDown}, 5, " epsilon|>zeta| eta| theta|"},
        MoveRow{"PgDn clamps the row", 3, {kKeyPageDown, kKeyPageDown}, 9, " iota|>kappa| | |"},
        MoveRow{"PgDn on the last page", 9, {kKeyPageDown}, 9, " eta| theta| iota|>kappa|"},
        MoveRow{"PgUp", 9, {kKeyPageUp}, 5, " gamma| delta| epsilon|>zeta|"},
        MoveRow{"PgUp to the start", 4, {kKeyPageUp}, 0, ">alpha| beta| gamma| delta|"},
        MoveRow{"Home", 7, {kKeyHome}, 0, ">alpha| beta| gamma| delta|"},
        MoveRow{"End", 0, {kKeyEnd}, 9, " eta| theta| iota|>kappa|"}));

TEST_F(ListBoxTest, EndOfAShortListIsItsLastItem) {
    Open(2);
    Keys({kKeyEnd});
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(Rows(), " alpha|>beta| | |");
}

TEST_F(ListBoxTest, EnterEndsWithTheCodeThatApplies) {
    Open(10, 0, 77);
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 77);
    Open();
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 13);
    Open();
    dialog->AddButton(2, 8, true, 'y', "Yes");
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 'y');
}

TEST_F(ListBoxTest, ListThatEndsOnAnyKeyGivesTheKey) {
    for (const int key : {int{'x'}, int{kKeyF3}, int{kKeyTab}, int{kKeyEsc}, int{kKeyAltEnter}}) {
        Open(10, 0, -1);
        Key(key);
        EXPECT_EQ(dialog->Run(), key);
    }
    Open(10, 0, -1);
    Key(kKeyDown);  // moving is not the end
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 13);
    EXPECT_EQ(chosen, 1);
}

TEST_F(ListBoxTest, EmptyListKeepsItsVariableAndStillEnds) {
    Open(0, 5);
    EXPECT_EQ(Rows(), " | | | |");
    Keys({kKeyUp, kKeyDown, kKeyPageUp, kKeyPageDown, kKeyHome, kKeyEnd, 'a'});
    Click(kListX, kListY + 2);
    dialog->Run(0);
    EXPECT_EQ(chosen, 5);
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 13);
    EXPECT_EQ(chosen, 5);
}

TEST_F(ListBoxTest, MouseChooses) {
    Open();
    dialog->AddOkCancel(-1, -1, true);
    dialog->SetFocus(1);
    Press(kListX + 9, kListY + 2);
    EXPECT_EQ(dialog->Run(0), 0);
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(dialog->CurrentElement(), 0);
    Drag(kListX, kListY + 1);
    Release(kListX, kListY + 1);
    EXPECT_EQ(dialog->Run(0), 0);
    EXPECT_EQ(chosen, 1);
    Press(kListX + 10, kListY + 3);  // right of it
    EXPECT_EQ(dialog->Run(0), 0);
    EXPECT_EQ(chosen, 1);
}

TEST_F(ListBoxTest, ClickBelowTheLastItemChoosesIt) {
    Open(2);
    Click(kListX, kListY + 3);
    dialog->Run(0);
    EXPECT_EQ(chosen, 1);
}

TEST_F(ListBoxTest, DoubleClickEndsAsEnter) {
    Open();
    DoubleClick(kListX, kListY + 1);
    EXPECT_EQ(dialog->Run(), 13);
    EXPECT_EQ(chosen, 1);
    Open(10, 0, 77);
    DoubleClick(kListX, kListY + 1);
    EXPECT_EQ(dialog->Run(), 77);
    Open(10, 0, -1);
    Click(kListX, kListY + 3);
    EXPECT_EQ(dialog->Run(), 13);
    EXPECT_EQ(chosen, 3);
}

TEST_F(ListBoxTest, HeldBelowItRunsToTheEndAndAboveToTheStart) {
    Open();
    Press(kListX, kListY + 4);
    dialog->Run(0);
    EXPECT_EQ(chosen, 9);
    EXPECT_EQ(Rows(), " eta| theta| iota|>kappa|");
    Drag(kListX, kListY - 1);
    dialog->Run(0);
    EXPECT_EQ(chosen, 0);
    EXPECT_EQ(Rows(), ">alpha| beta| gamma| delta|");
}

TEST_F(ListBoxTest, HeldScrollingStopsForOtherInput) {
    Open();
    Press(kListX, kListY + 4);
    Release(kListX, kListY + 4);
    dialog->Run(0);
    EXPECT_EQ(chosen, 3);  // to the edge, and no step further
}

TEST_F(ListBoxTest, TypingChoosesTheItemThatBeginsSo) {
    Open();
    Keys({'e'});
    EXPECT_EQ(chosen, 4);
    Keys({'T'});  // case does not count
    EXPECT_EQ(chosen, 6);
    Keys({'x'});  // leads nowhere: dropped, and used
    EXPECT_EQ(chosen, 6);
    Keys({'a'});
    EXPECT_EQ(chosen, 6);
    Keys({kKeyHome, 'i'});  // a new search
    EXPECT_EQ(chosen, 8);
    Keys({kKeyUp, 'a'});  // from theta around to the start
    EXPECT_EQ(chosen, 0);
}

TEST_F(ListBoxTest, SearchTextShowsAtTheDialogsBottomRight) {
    Open();
    Keys({'e', 't'});
    EXPECT_EQ(Cells(64, 19, 6), "═ et ╝");
    EXPECT_EQ(At(65, 19), 0x30);
    EXPECT_EQ(At(68, 19), 0x30);
    EXPECT_EQ(At(64, 19), 0x70);
    Keys({'q'});
    EXPECT_EQ(Cells(64, 19, 6), "═ et ╝");
    Keys({kKeyDown});
    EXPECT_EQ(Cells(64, 19, 6), "═════╝");
    Keys({'z'});
    EXPECT_EQ(Cells(64, 19, 6), "══ z ╝");
    dialog->AddOkCancel(-1, -1, true);
    Keys({kKeyTab});
    EXPECT_EQ(Cells(64, 19, 6), "═════╝");
}

TEST_F(ListBoxTest, MouseEndsTheSearch) {
    Open();
    Keys({'e', 't'});
    EXPECT_EQ(chosen, 6);
    Press(kListX, kListY);
    dialog->Run(0);
    const int pressed = chosen;
    EXPECT_EQ(Cells(64, 19, 6), "═════╝");
    Keys({'i'});  // not "eti"
    EXPECT_EQ(chosen, 8);
    EXPECT_NE(pressed, 8);
}

TEST_F(ListBoxTest, WheelMeansNothing) {
    Open(10, 4);
    screen.PushMouse(EventKind::kWheel, 1, kListX, kListY);
    screen.PushMouse(EventKind::kWheel, -1, kListX, kListY);
    screen.PushMouse(EventKind::kWheel, -1, kListX, kListY);
    EXPECT_EQ(dialog->Run(0), 0);
    EXPECT_EQ(chosen, 4);
    EXPECT_EQ(Rows(), " beta| gamma| delta|>epsilon|");
}

TEST_F(ListBoxTest, SearchIsNotForTheListThatEndsOnAnyKey) {
    Open(10, 0, -1);
    Key('e');
    EXPECT_EQ(dialog->Run(), 'e');
    EXPECT_EQ(chosen, 0);
}

TEST_F(ListBoxTest, DrawsAgainWhatCameAndWent) {
    Open(10, 9);
    EXPECT_EQ(Rows(), " eta| theta| iota|>kappa|");
    Tell(DialogEventKind::kCountChanged, 3);  // fewer than stand above the first row
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(Rows(), ">gamma| | | |");
    Tell(DialogEventKind::kCountChanged, 6);
    EXPECT_EQ(Rows(), ">gamma| delta| epsilon| zeta|");
    Tell(DialogEventKind::kCountChanged, 10);
    EXPECT_EQ(Rows(), ">gamma| delta| epsilon| zeta|");
    Tell(DialogEventKind::kCountChanged, -3);
    EXPECT_EQ(Rows(), " | | | |");
}

TEST_F(ListBoxTest, RedrawsAllRowsWhenTold) {
    Open();
    screen.FillRect(kListX, kListY, 10, 4, 0x70);
    dialog->Redraw(0);
    EXPECT_EQ(Cells(kListX, kListY + 3, 5), "     ");  // only the chosen row
    EXPECT_EQ(Cells(kListX, kListY, 5), "alpha");
    Tell(DialogEventKind::kRedrawAll);
    dialog->Redraw(0);
    EXPECT_EQ(Rows(), ">alpha| beta| gamma| delta|");
}

TEST_F(ListBoxTest, TellsItsRow) {
    Open(10, 7);
    Keys({kKeyUp});
    Tell(DialogEventKind::kAskRow);
    EXPECT_EQ(answer, 2);
}

TEST_F(ListBoxTest, StepPaintsTwoRows) {
    Open();
    dialog->Run(0);
    screen.ForgetRecords();
    Keys({kKeyDown});
    EXPECT_LE(screen.PaintedCells(), 20);
    EXPECT_GE(screen.PaintedCells(), 20);
}

TEST_F(ListBoxTest, StoresOfBothKindsAreShown) {
    EstringStore narrow;
    narrow.Append(new Estring("one\xC3\xA9"));
    WestringStore wide;
    wide.Append(new Westring(L"a line longer than ten"));
    int32_t first = 0, second = 0;
    Dialog both(10, 5, 69, 19, 0x70);
    both.AddList(2, 1, true, 10, 2, narrow, narrow.Count(), first, 0);
    both.AddList(20, 1, true, 10, 2, wide, wide.Count(), second, 0);
    EXPECT_EQ(Cells(kListX, kListY, 10), "oneé      ");
    EXPECT_EQ(Cells(kX + 20, kListY, 11), "a line lon ");
    EXPECT_EQ(static_cast<int>(both.Element(0)->Type()), 10);
}

class ColourSelectorTest : public UiTest {
protected:
    ColourSelectorTest() : dialog(10, 5, 69, 19, 0x70) {
        dialog.AddColours(2, 1, true, 10, 3, kNames, colours, 4, chosen, 0);
    }
    void Keys(std::initializer_list<int> keys) {
        for (const int key : keys)
            Key(key);
        dialog.Run(0);
    }
    Attribute colours[4] = {0x1E, 0x70, 0x0F, 0xF0};
    int32_t chosen = 0;
    Dialog dialog;
};

TEST_F(ColourSelectorTest, RowsShowTheirOwnColours) {
    EXPECT_EQ(Cells(kListX - 1, kListY, 12), ">alpha     <");
    EXPECT_EQ(Cells(kListX - 1, kListY + 1, 12), " beta       ");
    EXPECT_EQ(At(kListX, kListY), 0x1E);
    EXPECT_EQ(At(kListX, kListY + 2), 0x0F);
    EXPECT_EQ(At(kListX - 1, kListY), 0x70);
    Keys({kKeyEnd});
    EXPECT_EQ(Cells(kListX - 1, kListY + 2, 12), ">delta     <");
    EXPECT_EQ(Cells(kListX - 1, kListY, 12), " beta       ");
    EXPECT_EQ(At(kListX, kListY + 2), 0xF0);
    EXPECT_EQ(static_cast<int>(dialog.Element(0)->Type()), 11);
}

TEST_F(ColourSelectorTest, LettersStepTheColours) {
    const struct {
        int key, expected;
    } steps[] = {{'f', 0x1F}, {'f', 0x10}, {'F', 0x1F}, {'b', 0x2F},
                 {'B', 0x1F}, {'B', 0x0F}, {'B', 0xFF}, {'b', 0x0F}};
    for (const auto& step : steps) {
        Keys({step.key});
        EXPECT_EQ(colours[0], step.expected) << static_cast<char>(step.key);
        EXPECT_EQ(At(kListX, kListY), step.expected);
    }
    EXPECT_EQ(colours[1], 0x70);
    Keys({'d'});  // other letters search
    EXPECT_EQ(chosen, 3);
}

class ColoursDialogTest : public UiTest {};

TEST_F(ColoursDialogTest, ShowsTheClassesInTheirColours) {
    Key(kKeyEsc);
    EXPECT_FALSE(RunColoursDialog());
    const Screen& shown = screen.screens[0];
    const int top = shown.RowOf("═══ Zanthe Colours ═══");
    ASSERT_EQ(top, 1);  // a third of the four free rows
    EXPECT_EQ(shown.RowOf(">Panel"), top + 2);
    EXPECT_EQ(shown.RowOf(" Menu Bar"), top + 2 + 12);  // the last of thirteen
    EXPECT_FALSE(shown.Has("Menu Highlight"));
    EXPECT_EQ(shown.RowOf("F=Foreground B=Background"), top + 16);
    EXPECT_EQ(shown.RowOf("Shift-F/B=Change Backwards"), top + 17);
    EXPECT_EQ(shown.RowOf("[ OK ]  [ Cancel ]"), top + 19);
    EXPECT_EQ(shown.attributes[static_cast<size_t>(top + 2)][26], 0x1B);
    EXPECT_EQ(shown.attributes[static_cast<size_t>(top + 3)][26], 0x30);
}

TEST_F(ColoursDialogTest, OkKeepsTheChange) {
    settings.colours[14] = 0x5E;
    Key('f');
    Key(kKeyEnter);
    EXPECT_TRUE(RunColoursDialog());
    EXPECT_EQ(settings.colours[0], 0x1C);
    EXPECT_EQ(settings.colours[14], 0x0E);  // never a background of its own
}

TEST_F(ColoursDialogTest, EscAndCancelPutAllBack) {
    settings.colours[14] = 0x5E;
    Key('f');
    Key(kKeyEsc);
    EXPECT_FALSE(RunColoursDialog());
    EXPECT_EQ(settings.colours[0], 0x1B);
    EXPECT_EQ(settings.colours[14], 0x5E);
    Key('b');
    Key(kKeyTab);
    Key(kKeyRight);
    Key(kKeyEnter);
    EXPECT_FALSE(RunColoursDialog());
    EXPECT_EQ(settings.colours[0], 0x1B);
}

}  // namespace
}  // namespace zt
