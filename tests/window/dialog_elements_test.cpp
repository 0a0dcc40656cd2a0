// Elements that no dialog of the program has yet, in a dialog of the test's own on the real window:
// the arrow of a history with its list, and the check box of three states.
#include <X11/keysym.h>
#include <gtest/gtest.h>

#include "console/program_state.h"
#include "ui/dialog.h"
#include "ui/field_history.h"
#include "window_fixture.h"

namespace zt::testing {

namespace {

constexpr int kLeftButton = 1;

// The dialog stands here, its elements inside its frame.
constexpr int kDialogLeft = 10;
constexpr int kDialogTop = 3;
constexpr int kFieldWidth = 12;

class DialogElements : public WindowTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        console = &Console();
        console->GetSize(screenColumns, screenLines);
        for (const char* before : {"oldest", "older", "newest"})
            AppendFieldHistory(before, kHistoryMasks);
        DropEvents();
    }

    void TearDown() override {
        console = nullptr;
        FieldHistory(kHistoryMasks).Clear();
        WindowTest::TearDown();
    }

    // Clicks wait in the window's queue until the dialog reads them, in their order.
    void Click(int column, int row, int times = 1) {
        MoveToCell(kDialogLeft + 1 + column, kDialogTop + 1 + row);
        for (int i = 0; i < times; i++)
            user->Click(kLeftButton);
    }

    // Ends by the OK button, or by the Escape keys that follow it. Once in a test: of those keys
    // some are left over.
    bool Accepted() {
        Click(7, 6);
        for (int i = 0; i < 3; i++)
            user->Tap(0, XK_Escape);
        Dialog dialog(kDialogLeft, kDialogTop, kDialogLeft + 31, kDialogTop + 8, 0x70);
        dialog.AddString(2, 1, true, text, kFieldWidth, -1, kHistoryMasks);
        dialog.AddCheck3(2, 3, true, state, "Either", true);
        dialog.AddOkCancel(-1, -1, true);
        return dialog.Run() == kExitEnter;
    }

    Westring text = "typed";
    uint8_t state = 0;
};

TEST_F(DialogElements, TheArrowOpensTheHistoryAndADoubleClickTakesAText) {
    Click(2 + kFieldWidth, 1);
    Click(4, 4, 2);  // below the field stands the frame of the list, then its rows
    EXPECT_TRUE(Accepted());
    EXPECT_EQ("older", text.ToUtf8());
}

TEST_F(DialogElements, ATextOfTheHistoryIsNotTakenByOneClick) {
    Click(2 + kFieldWidth, 1);
    Click(4, 4);
    user->Tap(0, XK_Escape);
    EXPECT_TRUE(Accepted());
    EXPECT_EQ("typed", text.ToUtf8());
}

class BoxOfThreeStates : public DialogElements, public ::testing::WithParamInterface<int> {};

TEST_P(BoxOfThreeStates, GoesOnToTheNextWithEachClick) {
    // Between two clicks on the box is one beside it, so that none is a double click.
    for (int i = 0; i < GetParam(); i++) {
        Click(3, 3);
        Click(25, 3);
    }
    EXPECT_TRUE(Accepted());
    EXPECT_EQ(GetParam() % 3, state);
}

INSTANTIATE_TEST_SUITE_P(Clicks, BoxOfThreeStates, ::testing::Values(1, 2, 3));

}  // namespace

}  // namespace zt::testing
