// Dialogs as a whole: ways out, focus and groups, accelerators and quick keys, the mouse outside,
// limits, and other threads.
#include "ui/dialog.h"

#include <atomic>
#include <thread>

#include "tests/ui/ui_fixture.h"
#include "ui/push_button.h"

namespace zt {
namespace {

// Client area 58 x 13 from column 11, row 6.
constexpr int kX = 11, kY = 6;

class DialogTest : public UiTest {
protected:
    // Handles all that is queued; 0 when the dialog has not ended.
    int RunQueued(Dialog& queued) { return queued.Run(0); }
    Dialog dialog{10, 5, 69, 19, 0x70};
};

TEST_F(DialogTest, EnterWithoutButtonGives13) {
    Westring text;
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    Key(kKeyEnter);
    EXPECT_EQ(dialog.Run(), 13);
}

TEST_F(DialogTest, EnterGivesTheFirstButtonsCode) {
    Westring text;
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    dialog.AddButton(1, 3, true, 'y', "Yes");
    dialog.AddButton(10, 3, false, 'n', "No");
    Key(kKeyEnter);
    EXPECT_EQ(dialog.Run(), 'y');
    dialog.SetDefaultButton(2);
    EXPECT_EQ(dialog.DefaultExit(), 'n');
    dialog.SetDefaultButton(0);  // no button: stays
    EXPECT_EQ(dialog.DefaultExit(), 'n');
    dialog.SetDefaultButton(99);
    EXPECT_EQ(dialog.DefaultExit(), 'n');
    Key(kKeyEnter);
    EXPECT_EQ(dialog.Run(), 'n');
}

TEST_F(DialogTest, EscAndTheQuitCodeCancel) {
    dialog.AddOkCancel(-1, -1, true);
    Key(kKeyEsc);
    EXPECT_EQ(dialog.Run(), 27);
    Quit();
    EXPECT_EQ(dialog.Run(), 27);
}

// One quit event ends all that is open, one thing after the other, and the reader below.
TEST_F(DialogTest, QuitIsHandedOnToWhatLiesBelow) {
    dialog.AddOkCancel(-1, -1, true);
    Dialog upper(20, 8, 50, 15, 0x70);
    upper.AddOkCancel(-1, -1, true);
    Quit();
    Key(kKeyEnter);  // comes too late
    EXPECT_EQ(upper.Run(), 27);
    EXPECT_EQ(dialog.Run(), 27);
    EXPECT_EQ(dialog.Run(1000), 27);
    EXPECT_EQ(ReadKey(nullptr, -1), kKeyQuit);
}

TEST_F(DialogTest, NoElementKeepsTheQuitCode) {
    constexpr int kCtrlQ = 17;
    Westring text;
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    Key(kCtrlQ);  // the next key would be taken as it is
    Quit();
    EXPECT_EQ(dialog.Run(), 27);
    EXPECT_TRUE(text.IsEmpty());

    quitSeen = false;
    const char* items[] = {"one", "two"};
    int32_t chosen = 0;
    Dialog anyKey(10, 5, 69, 19, 0x70);
    anyKey.AddList(1, 1, true, 10, 2, items, 2, chosen, -1);  // any other key is its exit code
    Quit();
    EXPECT_EQ(anyKey.Run(), 27);
}

TEST_F(DialogTest, QuitInTheHistoryEndsTheDialogToo) {
    FieldHistory(1).Clear();
    AppendFieldHistory("older", 1);
    Westring text = "typed";
    {
        Dialog asking(10, 5, 69, 19, 0x70);
        asking.AddString(1, 1, true, text, 20, -1, 1);
        Key(kKeyAltDown);
        Quit();
        EXPECT_EQ(asking.Run(), 27);
    }
    EXPECT_STREQ(text.ToUtf8().c_str(), "typed");
    EXPECT_EQ(FieldHistory(1).Count(), 1);
    FieldHistory(1).Clear();
}

TEST_F(DialogTest, EmptyDialogEndsOnEsc) {
    Key('x');
    Key(kKeyEsc);
    EXPECT_EQ(dialog.Run(), 27);
    EXPECT_EQ(dialog.ElementCount(), 1);
}

TEST_F(DialogTest, TimeoutGivesZeroAndMayBeRunAgain) {
    dialog.AddOkCancel(-1, -1, true);
    EXPECT_EQ(dialog.Run(0), 0);
    screen.WaitForEvents(true);
    EXPECT_EQ(dialog.Run(5), 0);
    screen.WaitForEvents(false);
    Key(kKeyModifiersChanged);  // is no event
    EXPECT_EQ(dialog.Run(0), 0);
    Key(kKeyEnter);
    EXPECT_EQ(dialog.Run(0), 13);
}

TEST_F(DialogTest, RightClickAcceptsAnywhere) {
    dialog.AddButton(1, 3, true, 'y', "Yes");
    RightClick(0, 0);
    EXPECT_EQ(dialog.Run(), 'y');
    RightClick(30, 10);
    EXPECT_EQ(dialog.Run(), 'y');
    Westring text;
    Dialog buttonless(10, 5, 69, 19, 0x70);
    buttonless.AddString(1, 1, true, text, 20, -1, kNoHistory);
    RightClick(30, 10);
    EXPECT_EQ(buttonless.Run(), 13);
}

TEST_F(DialogTest, ClickOutsideCancels) {
    dialog.AddOkCancel(-1, -1, true);
    Click(1, 1);
    EXPECT_EQ(dialog.Run(), 27);
    Press(1, 1);
    Drag(2, 2);
    Release(3, 3);
    EXPECT_EQ(dialog.Run(), 27);
}

// Of the frame, the right and the bottom line count as inside, the left and the top line do not.
TEST_F(DialogTest, FramesLeftAndTopAreOutside) {
    dialog.AddOkCancel(-1, -1, true);
    const struct {
        int column, row, code;
    } rows[] = {{69, 10, 0}, {70, 10, 27}, {40, 19, 0}, {40, 20, 27}, {10, 10, 27}, {40, 5, 27}};
    for (const auto& row : rows) {
        Click(row.column, row.row);
        EXPECT_EQ(RunQueued(dialog), row.code) << row.column << ", " << row.row;
    }
}

TEST_F(DialogTest, PressOutsideIsForgottenOnceItHasCancelled) {
    dialog.AddOkCancel(-1, -1, true);
    Click(1, 1);
    EXPECT_EQ(dialog.Run(), 27);
    Release(1, 1);
    EXPECT_EQ(RunQueued(dialog), 0);
}

TEST_F(DialogTest, OnlyPressAndReleaseOutsideCancel) {
    dialog.AddOkCancel(-1, -1, true);
    Press(1, 1);
    Release(kX + 5, kY + 1);  // inside
    EXPECT_EQ(RunQueued(dialog), 0);
    Release(1, 1);  // the press is forgotten
    EXPECT_EQ(RunQueued(dialog), 0);
    Press(kX + 5, kY + 1);
    Release(1, 1);
    EXPECT_EQ(RunQueued(dialog), 0);
    screen.PushMouse(EventKind::kWheel, 1, 1, 1);
    EXPECT_EQ(RunQueued(dialog), 0);
}

TEST_F(DialogTest, TabGoesFromGroupToGroup) {
    Westring one, two;
    dialog.AddText(1, 0, "Text");                           // 0
    dialog.AddString(1, 1, true, one, 20, -1, kNoHistory);  // 1
    dialog.AddString(1, 2, true, two, 20, -1, kNoHistory);  // 2
    dialog.AddButton(1, 4, true, 'a', "A");                 // 3
    dialog.AddButton(9, 4, false, 'b', "B");                // 4
    EXPECT_EQ(RunQueued(dialog), 0);
    EXPECT_EQ(dialog.CurrentElement(), 1);
    const struct {
        int key, expected;
    } steps[] = {
        {kKeyTab, 2},      {kKeyTab, 3},      {kKeyRight, 4},
        {kKeyTab, 1},      {kKeyShiftTab, 4},  // the group is entered where it was left
        {kKeyRight, 3},                        // around within the group
        {kKeyLeft, 4},     {kKeyUp, 3},       {kKeyDown, 4},
        {kKeyShiftTab, 2}, {kKeyShiftTab, 1},
    };
    for (const auto& step : steps) {
        Key(step.key);
        EXPECT_EQ(RunQueued(dialog), 0);
        EXPECT_EQ(dialog.CurrentElement(), step.expected) << std::hex << step.key;
    }
}

TEST_F(DialogTest, FocusSkipsWhatCannotHaveIt) {
    bool a = false, b = false, c = false;
    dialog.AddCheck(1, 0, true, a, "a", true);
    dialog.AddCheck(1, 1, false, b, "b", true);
    dialog.AddCheck(1, 2, false, c, "c", true);
    dialog.Element(1)->SetSelectable(false);
    Key(kKeyDown);
    RunQueued(dialog);
    EXPECT_EQ(dialog.CurrentElement(), 2);
    Key(kKeyTab);  // there is no other group
    RunQueued(dialog);
    EXPECT_EQ(dialog.CurrentElement(), 2);
}

class LeaveDialog : public Dialog {
public:
    LeaveDialog() : Dialog(10, 5, 69, 19, 0x70) {}
    bool CanLeave(int from, int& to) override {
        asked.push_back({from, to});
        if (redirect >= 0) to = redirect;
        return allow;
    }
    void FocusChanged() override { changes.push_back(CurrentElement()); }
    std::vector<std::pair<int, int>> asked;
    std::vector<int> changes;
    bool allow = true;
    int redirect = -1;
};

TEST_F(DialogTest, CanLeaveRefusesAndRedirects) {
    LeaveDialog asking;
    bool a = false, b = false, c = false;
    asking.AddCheck(1, 0, true, a, "a", true);
    asking.AddCheck(1, 1, true, b, "b", true);
    asking.AddCheck(1, 2, true, c, "c", true);
    asking.allow = false;
    asking.SetFocus(1);
    EXPECT_EQ(asking.CurrentElement(), 0);
    EXPECT_TRUE(asking.changes.empty());
    asking.allow = true;
    asking.redirect = 2;
    asking.SetFocus(1);
    EXPECT_EQ(asking.CurrentElement(), 2);
    EXPECT_EQ(asking.changes, std::vector<int>{2});
    asking.redirect = 50;  // out of range
    asking.SetFocus(1);
    EXPECT_EQ(asking.CurrentElement(), 2);
    asking.redirect = -1;
    asking.asked.clear();
    asking.SetFocus(2);   // already there
    asking.SetFocus(99);  // not there at all
    asking.SetFocus(-1);
    EXPECT_TRUE(asking.asked.empty());
}

TEST_F(DialogTest, AcceleratorsWorkFromAnywhere) {
    bool check = false;
    dialog.AddCheck(1, 0, true, check, "check", true);
    dialog.AddButton(1, 4, true, 's', "Skip");
    dialog.AddExitKey(kKeyF1);
    Key('s');
    EXPECT_EQ(dialog.Run(), 's');
    Key('S');  // the lower-case form counts too
    EXPECT_EQ(dialog.Run(), 's');
    Key(kKeyF1);
    EXPECT_EQ(dialog.Run(), kKeyF1);
    Key('q');
    EXPECT_EQ(RunQueued(dialog), 0);
}

TEST_F(DialogTest, AnyElementMayHaveAnAccelerator) {
    Westring text;
    bool check = false;
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    dialog.AddCheck(1, 2, true, check, "check", true);
    dialog.AddString(1, 3, true, text, 20, -1, kNoHistory);
    dialog.Element(1)->SetAccelerator(kKeyF3);
    dialog.Element(2)->SetAccelerator(kKeyF4);
    Key(kKeyF3);
    EXPECT_EQ(RunQueued(dialog), 0);
    EXPECT_TRUE(check);
    EXPECT_EQ(dialog.CurrentElement(), 1);
    Key(kKeyF4);
    EXPECT_EQ(RunQueued(dialog), 0);
    EXPECT_EQ(dialog.CurrentElement(), 2);
}

TEST_F(DialogTest, AltWithAQuickKeyActivates) {
    Westring text;
    bool check = false;
    dialog.AddText(1, 0, "Text");
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    dialog.AddCheck(1, 2, true, check, "_Check", true);
    dialog.AddButton(1, 4, true, 900, "_Go");
    Alt('c');
    RunQueued(dialog);
    EXPECT_TRUE(check);
    EXPECT_EQ(dialog.CurrentElement(), 2);
    screen.PushKey(AltKey('c'), kModifierAlt | kModifierShift, 'C');
    RunQueued(dialog);
    EXPECT_FALSE(check);
    Alt('x');
    EXPECT_EQ(RunQueued(dialog), 0);
    Alt('g');
    EXPECT_EQ(dialog.Run(), 900);
}

TEST_F(DialogTest, QuickKeysBelongToElementsByNumber) {
    Westring text;
    dialog.AddText(1, 0, "Text");
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    dialog.AddButton(1, 4, true, 901, "Nothing");
    dialog.AddButton(20, 4, false, 902, "Go");
    dialog.SetQuickKeys("  no");
    EXPECT_EQ(dialog.QuickKey(0), 0);
    EXPECT_EQ(dialog.QuickKey(2), 'n');
    EXPECT_EQ(dialog.QuickKey(4), 0);
    Alt('o');
    EXPECT_EQ(dialog.Run(), 902);
    Alt('n');
    EXPECT_EQ(dialog.Run(), 901);
    screen.PushKey(0x10039, kModifierAlt, ' ');  // the blanks are no keys
    EXPECT_EQ(RunQueued(dialog), 0);
    // The letter stands out.
    EXPECT_EQ(At(kX + 3, kY + 4), 0x79);
    dialog.SetQuickKeys("  ");  // fewer letters: the later elements have none
    Alt('n');
    EXPECT_EQ(RunQueued(dialog), 0);
    EXPECT_EQ(At(kX + 3, kY + 4), 0x70);
}

TEST_F(DialogTest, QuickKeyOfAFieldTakesTheFocus) {
    Westring one, two;
    dialog.AddString(1, 1, true, one, 20, -1, kNoHistory);
    dialog.AddString(1, 2, true, two, 20, -1, kNoHistory);
    dialog.SetQuickKeys("ab");
    Alt('b');
    RunQueued(dialog);
    EXPECT_EQ(dialog.CurrentElement(), 1);
}

TEST_F(DialogTest, RefusesMoreThanAHundredElements) {
    bool check = false;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(dialog.AddCheck(1, 1, false, check, "c", true), i);
    EXPECT_EQ(dialog.AddCheck(1, 1, false, check, "_c", true), -1);
    EXPECT_EQ(dialog.AddOkCancel(-1, -1, true), -1);
    EXPECT_EQ(dialog.AddExitKey(kKeyF1), -1);
    EXPECT_EQ(dialog.ElementCount(), 100);
    Key(kKeyEnter);
    EXPECT_NE(dialog.Run(), 0);
}

TEST_F(DialogTest, TextsAreDrawnWhereTheyBelong) {
    char changing[] = "one";
    dialog.AddText(2, 1, "plain");
    dialog.AddText(-1, 2, "centred", 0x1E);
    dialog.AddText(2, 3, changing);
    dialog.AddText(2, 4, Westring(L"wide \u00E9"));
    dialog.AddText(2, 5, L"borrowed");
    EXPECT_EQ(Cells(kX + 2, kY + 1, 5), "plain");
    EXPECT_EQ(At(kX + 2, kY + 1), 0x70);
    EXPECT_EQ(Cells(kX + (58 - 7) / 2, kY + 2, 7), "centred");
    EXPECT_EQ(At(kX + 27, kY + 2), 0x1E);
    EXPECT_EQ(Cells(kX + 2, kY + 4, 6), "wide é");
    EXPECT_EQ(Cells(kX + 2, kY + 5, 8), "borrowed");
    changing[0] = 'O';
    dialog.Redraw(2);
    EXPECT_EQ(Cells(kX + 2, kY + 3, 3), "One");
}

TEST_F(DialogTest, TitleStandsOnTheFrame) {
    dialog.SetTitle(" Title ");
    EXPECT_EQ(Cells(35, 5, 9), "═ Title ═");
}

TEST_F(DialogTest, GivesTheScreenBackAndHidesTheCursor) {
    screen.WriteWide(12, 7, L"under", 0x07);
    Westring text = "abc";
    {
        Dialog over(10, 5, 69, 19, 0x70);
        over.AddString(1, 1, true, text, 20, -1, kNoHistory);
        Key(kKeyEnter);
        over.Run();
        EXPECT_EQ(screen.GetCursorSize(), 15);
    }
    EXPECT_EQ(screen.GetCursorSize(), 0);
    EXPECT_EQ(Cells(12, 7, 5), "under");
}

TEST_F(DialogTest, ButtonRowsAreLaidOut) {
    dialog.AddButtons(1, 0, true, (const ButtonRow[]){{1000, "One"}, {1001, "_Two"}, {0, nullptr}});
    EXPECT_EQ(Cells(kX + 1, kY, 17), "[ One ]  [ Two ] ");
    const int first = dialog.AddOkCancel(-1, -1, true);
    EXPECT_EQ(first, 2);
    // 8 and 12 of 58 columns, in the last row.
    EXPECT_EQ(Cells(kX + 19, kY + 12, 20), " [ OK ]  [ Cancel ] ");
    EXPECT_EQ(dialog.DefaultExit(), 1000);
    dialog.AddButtons(-1, -3, true, (const ButtonRow[]){{1002, "Up"}, {0, nullptr}});
    EXPECT_EQ(Cells(kX + 25, kY + 10, 8), " [ Up ] ");
}

TEST_F(DialogTest, ButtonsShowFocusAndDefault) {
    Westring text;
    dialog.AddString(1, 1, true, text, 20, -1, kNoHistory);
    dialog.AddButton(1, 3, true, 1000, "_Go");
    dialog.AddButton(20, 3, false, 1001, "Stop");
    EXPECT_EQ(At(kX + 1, kY + 3), 0x79);  // the default button's bracket
    EXPECT_EQ(At(kX + 3, kY + 3), 0x79);  // its quick key
    EXPECT_EQ(At(kX + 4, kY + 3), 0x70);
    EXPECT_EQ(At(kX + 20, kY + 3), 0x70);
    dialog.SetFocus(1);
    EXPECT_EQ(At(kX + 1, kY + 3), 0x30);  // no highlight on the focused one
    EXPECT_EQ(At(kX + 3, kY + 3), 0x3E);
    EXPECT_EQ(At(kX + 4, kY + 3), 0x30);
    dialog.SetFocus(2);
    EXPECT_EQ(At(kX + 1, kY + 3), 0x79);
    EXPECT_EQ(At(kX + 20, kY + 3), 0x30);
    dialog.SetColour(DialogColour::kFocusedButton, 0x1F);
    dialog.Redraw(-1);
    EXPECT_EQ(At(kX + 20, kY + 3), 0x1F);
}

TEST_F(DialogTest, ButtonsTakeEnterBlankAndMouse) {
    dialog.AddButton(1, 3, true, 1000, "Go");
    dialog.AddButton(20, 3, true, 1001, "Stop");
    Key(kKeyTab);
    Key(kKeyEnter);
    EXPECT_EQ(dialog.Run(), 1001);
    Key(' ');
    EXPECT_EQ(dialog.Run(), 1001);
    Click(kX + 6, kY + 3);  // the last of its cells
    EXPECT_EQ(dialog.Run(), 1000);
    Press(kX + 20, kY + 3);
    EXPECT_EQ(RunQueued(dialog), 0);
    EXPECT_EQ(dialog.CurrentElement(), 1);
    Release(kX + 7, kY + 3);  // beside the button: nothing
    EXPECT_EQ(RunQueued(dialog), 0);
    Release(kX + 27, kY + 3);
    EXPECT_EQ(dialog.Run(), 1001);
}

TEST_F(DialogTest, EventsFromAnotherThreadAreHandledWhileItWaits) {
    screen.WaitForEvents(true);
    int32_t chosen = 0;
    const char* items[] = {"one", "two", "three", "four"};
    dialog.AddList(1, 1, true, 10, 4, items, 1, chosen, 0);
    std::thread sender([&] {
        for (int count = 2; count <= 4; ++count) {
            DialogEvent event;
            event.kind = DialogEventKind::kCountChanged;
            event.code = count;
            dialog.SendEvent(0, event);
        }
        screen.PushKey(kKeyEnd);
        screen.PushKey(kKeyEnter);
    });
    EXPECT_EQ(dialog.Run(), 13);
    sender.join();
    EXPECT_EQ(chosen, 3);
    EXPECT_EQ(Cells(kX + 1, kY + 4, 10), "four      ");
    DialogEvent event;
    EXPECT_EQ(dialog.SendEvent(7, event), 0);
}

class CommitElement : public DialogElement {
public:
    explicit CommitElement(int* commits_) : DialogElement(0, 0, true), commits(commits_) {}
    ElementType Type() const override { return ElementType::kStaticText; }
    void Commit() override { ++*commits; }
    int* commits;
};

TEST_F(DialogTest, ElementsCommitWhenTheDialogHasEnded) {
    int commits = 0;
    dialog.Add(std::make_unique<CommitElement>(&commits), true);
    EXPECT_EQ(dialog.Run(0), 0);
    EXPECT_EQ(commits, 0);
    Key(kKeyEnter);
    dialog.Run();
    EXPECT_EQ(commits, 1);
}

TEST_F(DialogTest, ModifierChangesAndMotionAreWaitedThrough) {
    dialog.AddOkCancel(-1, -1, true);
    modifiersLive = kModifierCtrl;
    screen.PushMouse(EventKind::kMotion, 0, 3, 3);  // no button: means nothing
    screen.PushMouse(EventKind::kMotion, 2, 3, 3);
    screen.PushKey(kKeyEnter, kModifierCtrl);
    EXPECT_EQ(dialog.Run(), 13);
}

TEST_F(DialogTest, StandsCentredOnALargerScreenToo) {
    ScreenConsole large(132, 50);
    Dialog box(-1, -3, 30, 8, 0x70);
    EXPECT_EQ(box.Left(), 51);
    EXPECT_EQ(box.Right(), 80);
    EXPECT_EQ(box.Top(), 14);
    box.AddOkCancel(-1, -1, true);
    EXPECT_EQ(large.Text(52, 20, 28), "     [ OK ]  [ Cancel ]     ");
}

}  // namespace
}  // namespace zt
