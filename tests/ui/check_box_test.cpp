// Check boxes and radio buttons: drawing, keys, mouse.
#include "ui/check_box.h"

#include "tests/ui/ui_fixture.h"
#include "ui/dialog.h"

namespace zt {
namespace {

constexpr int kX = 11, kY = 6;

class CheckBoxTest : public UiTest {
protected:
    Dialog dialog{10, 5, 69, 19, 0x70};
};

TEST_F(CheckBoxTest, DrawsBoxAndLabelOnEitherSide) {
    bool right = true, left = false;
    dialog.AddCheck(2, 1, true, right, "_Right", true);
    dialog.AddCheck(20, 2, true, left, "_Left", false);
    EXPECT_EQ(Cells(kX + 2, kY + 1, 12), "[X]  Right  ");
    EXPECT_EQ(Cells(kX + 12, kY + 2, 12), "  Left  [ ] ");
    EXPECT_EQ(At(kX + 7, kY + 1), 0x79);
    EXPECT_EQ(At(kX + 8, kY + 1), 0x70);
}

TEST_F(CheckBoxTest, CursorStandsOnTheMiddleCell) {
    bool value = false;
    dialog.AddCheck(2, 1, true, value, "c", true);
    dialog.Run(0);
    int column, row;
    screen.GetCursor(column, row);
    EXPECT_EQ(column, kX + 3);
    EXPECT_EQ(row, kY + 1);
    EXPECT_EQ(screen.GetCursorSize(), 15);
}

TEST_F(CheckBoxTest, CursorGoesWhenTheFocusGoesToAButton) {
    bool value = false;
    dialog.AddCheck(2, 1, true, value, "c", true);
    dialog.AddOkCancel(-1, -1, true);
    Key(kKeyTab);
    dialog.Run(0);
    EXPECT_EQ(screen.GetCursorSize(), 0);
}

TEST_F(CheckBoxTest, KeysChangeIt) {
    bool value = false;
    dialog.AddCheck(2, 1, true, value, "c", true);
    const struct {
        int key;
        bool expected;
    } steps[] = {{' ', true},         {' ', false},        {kKeyInsert, true}, {kKeyInsert, true},
                 {kKeyDelete, false}, {kKeyDelete, false}, {'x', false}};
    for (const auto& step : steps) {
        Key(step.key);
        dialog.Run(0);
        EXPECT_EQ(value, step.expected) << std::hex << step.key;
        EXPECT_EQ(Cells(kX + 2, kY + 1, 3), value ? "[X]" : "[ ]");
    }
}

TEST_F(CheckBoxTest, KeysThatChangeItAreTheDialogsToo) {
    bool value = false;
    dialog.AddCheck(2, 1, true, value, "c", true);
    dialog.AddExitKey(' ');
    dialog.AddExitKey(kKeyInsert);
    dialog.AddExitKey(kKeyDelete);
    const struct {
        int key;
        bool expected;
    } steps[] = {{' ', true}, {kKeyDelete, false}, {kKeyInsert, true}};
    for (const auto& step : steps) {
        Key(step.key);
        EXPECT_EQ(dialog.Run(), step.key);
        EXPECT_EQ(value, step.expected) << std::hex << step.key;
    }
}

TEST_F(CheckBoxTest, ReleaseOverBoxOrLabelToggles) {
    bool right = false, left = false;
    dialog.AddCheck(2, 1, true, right, "Right", true);
    dialog.AddCheck(20, 2, true, left, "Left", false);
    Click(kX + 2, kY + 1);
    dialog.Run(0);
    EXPECT_TRUE(right);
    Click(kX + 11, kY + 1);  // the label's last cell
    dialog.Run(0);
    EXPECT_FALSE(right);
    Click(kX + 12, kY + 1);  // behind it
    dialog.Run(0);
    EXPECT_FALSE(right);
    Click(kX + 14, kY + 2);
    dialog.Run(0);
    EXPECT_TRUE(left);
    EXPECT_EQ(dialog.CurrentElement(), 1);
    Press(kX + 2, kY + 1);
    dialog.Run(0);
    EXPECT_EQ(dialog.CurrentElement(), 0);
    EXPECT_FALSE(right);
}

TEST_F(CheckBoxTest, ThreeStatesStepInACircle) {
    uint8_t state = 0;
    dialog.AddCheck3(2, 1, true, state, "_c", true);
    const struct {
        int key, expected;
        const char* shown;
    } steps[] = {{' ', 1, "[·]"},        {' ', 2, "[X]"},        {' ', 0, "[ ]"},
                 {kKeyInsert, 1, "[·]"}, {kKeyDelete, 2, "[X]"}, {kKeyInsert, 0, "[ ]"}};
    for (const auto& step : steps) {
        Key(step.key);
        dialog.Run(0);
        EXPECT_EQ(state, step.expected);
        EXPECT_EQ(Cells(kX + 2, kY + 1, 3), step.shown);
    }
    Click(kX + 3, kY + 1);
    dialog.Run(0);
    EXPECT_EQ(state, 1);
    Alt('c');
    dialog.Run(0);
    EXPECT_EQ(state, 2);
    EXPECT_EQ(static_cast<int>(dialog.Element(0)->Type()), 9);
}

class RadioButtonTest : public CheckBoxTest {
protected:
    void AddThree() {
        dialog.AddRadio(2, 0, true, value, 10, "_One");
        dialog.AddRadio(2, 1, false, value, 20, "_Two");
        dialog.AddRadio(2, 2, false, value, 30, "T_hree");
        dialog.AddOkCancel(-1, -1, true);
    }
    std::string Marks() {
        return Cells(kX + 2, kY, 3) + Cells(kX + 2, kY + 1, 3) + Cells(kX + 2, kY + 2, 3);
    }
    int value = 20;
};

TEST_F(RadioButtonTest, DrawsTheSetOneAndStartsOnIt) {
    AddThree();
    EXPECT_EQ(Cells(kX + 2, kY + 1, 8), "(•) Two ");
    EXPECT_EQ(Marks(), "( )(•)( )");
    dialog.Run(0);
    EXPECT_EQ(dialog.CurrentElement(), 1);
    int column, row;
    screen.GetCursor(column, row);
    EXPECT_EQ(column, kX + 3);
    EXPECT_EQ(row, kY + 1);
}

TEST_F(RadioButtonTest, ArrowsMoveTheChoice) {
    AddThree();
    Key(kKeyDown);
    dialog.Run(0);
    EXPECT_EQ(value, 30);
    EXPECT_EQ(Marks(), "( )( )(•)");
    Key(kKeyRight);
    dialog.Run(0);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(Marks(), "(•)( )( )");
    Key(kKeyUp);
    dialog.Run(0);
    EXPECT_EQ(value, 30);
    Key(kKeyTab);
    Key(kKeyTab);
    dialog.Run(0);
    EXPECT_EQ(value, 30);
    EXPECT_EQ(dialog.CurrentElement(), 2);
}

TEST_F(RadioButtonTest, QuickKeyAndMouseChoose) {
    AddThree();
    Key(kKeyTab);
    Alt('h');
    dialog.Run(0);
    EXPECT_EQ(value, 30);
    EXPECT_EQ(Marks(), "( )( )(•)");
    Click(kX + 8, kY);  // the last cell of "One"
    dialog.Run(0);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(Marks(), "(•)( )( )");
    Click(kX + 9, kY + 1);
    dialog.Run(0);
    EXPECT_EQ(value, 10);
}

TEST_F(RadioButtonTest, BlankSetsTheFirstWhenNoneIsSet) {
    value = 99;
    AddThree();
    dialog.Run(0);
    EXPECT_EQ(Marks(), "( )( )( )");
    EXPECT_EQ(value, 99);
    Key(' ');
    dialog.Run(0);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(Marks(), "(•)( )( )");
}

}  // namespace
}  // namespace zt
