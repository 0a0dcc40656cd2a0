// The real mouse: events in cells, and the selection of text.
#include "window_fixture.h"

namespace zt::testing {

class WindowMouse : public WindowTest {
protected:
    void Write(int column, int row, const wchar_t* text) {
        Console().WriteWide(column, row, text, 0x07);
    }
    // Presses at one cell and lets go at another.
    void Drag(int fromColumn, int fromRow, int toColumn, int toRow) {
        MoveToCell(fromColumn, fromRow);
        user->Button(1, true);
        MoveToCell(toColumn, toRow);
        user->Button(1, false);
    }
    std::string Selected(const char* selection = "CLIPBOARD") {
        std::string text;
        return WaitFor([&] { return user->ReadSelection(selection, text); }) ? text : "(no owner)";
    }
};

struct ButtonCase {
    const char* name;
    int xButton;
    int code;
};

constexpr ButtonCase kButtonCases[] = {{"left", 1, 1}, {"right", 3, 2}, {"middle", 2, 3}};

TEST_F(WindowMouse, GivesPressAndReleaseInCells) {
    for (const ButtonCase& button : kButtonCases) {
        SCOPED_TRACE(button.name);
        MoveToCell(7 + button.code, 3);
        DropEvents();
        user->Click(button.xButton);
        for (const EventKind kind : {EventKind::kButtonPress, EventKind::kButtonRelease}) {
            TEvent event;
            ASSERT_TRUE(NextEvent(event));
            EXPECT_EQ(event.kind, static_cast<int32_t>(kind));
            EXPECT_EQ(event.code, button.code);
            EXPECT_EQ(event.column, 7 + button.code);
            EXPECT_EQ(event.row, 3);
        }
    }
}

TEST_F(WindowMouse, GivesTheFirstAndLastPixelOfACellToIt) {
    const int right = 6 * CellWidth() - 1;
    const int bottom = 5 * CellHeight() - 1;
    user->MoveTo(right, bottom);
    user->Click(1);
    TEvent event;
    ASSERT_TRUE(NextEventOfKind(EventKind::kButtonRelease, event));
    EXPECT_EQ(event.column, 5);
    EXPECT_EQ(event.row, 4);
    user->MoveTo(right + 1, bottom + 1);
    user->Click(3);
    ASSERT_TRUE(NextEventOfKind(EventKind::kButtonRelease, event));
    EXPECT_EQ(event.column, 6);
    EXPECT_EQ(event.row, 5);
}

TEST_F(WindowMouse, GivesADoubleClick) {
    MoveToCell(20, 10);
    user->Click(1);
    user->Click(1);
    TEvent event;
    ASSERT_TRUE(NextEventOfKind(EventKind::kDoubleClick, event));
    EXPECT_EQ(event.code, 1);
    EXPECT_EQ(event.column, 20);
    EXPECT_EQ(event.row, 10);
}

TEST_F(WindowMouse, GivesMotionOnlyWithAButtonHeld) {
    MoveToCell(1, 1);
    MoveToCell(2, 2);
    user->Button(3, true);
    MoveToCell(9, 4);
    user->Button(3, false);
    MoveToCell(12, 12);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kButtonPress));
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kMotion));
    EXPECT_EQ(event.code, 2);
    EXPECT_EQ(event.column, 9);
    EXPECT_EQ(event.row, 4);
    ASSERT_TRUE(NextEventOfKind(EventKind::kButtonRelease, event));
    window->WaitPainted();
    EXPECT_EQ(Console().PendingEvents(), 0);
}

TEST_F(WindowMouse, TurnsTheWheel) {
    MoveToCell(30, 6);
    user->Click(4);
    user->Click(5);
    user->Click(6);  // sideways: none of the program's
    user->Click(1);
    for (const int code : {1, -1}) {
        TEvent event;
        ASSERT_TRUE(NextEvent(event));
        EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kWheel));
        EXPECT_EQ(event.code, code);
        EXPECT_EQ(event.modifiers, 0);
        EXPECT_EQ(event.column, 30);
        EXPECT_EQ(event.row, 6);
    }
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kButtonPress));
}

TEST_F(WindowMouse, SelectsTextIntoTheClipboard) {
    Write(2, 1, L"first line");
    Write(2, 2, L"caf\u00e9");
    Write(2, 3, L"third");
    Console().SetSelectableRect(0, 0, 80, 23, true);
    Drag(2, 1, 7, 2);
    EXPECT_EQ(Selected(), "first\ncaf\u00e9");
    EXPECT_EQ(Selected("PRIMARY"), "first\ncaf\u00e9");
    Westring text;
    ASSERT_TRUE(Console().GetClipboardText(text));
    EXPECT_STREQ(text.ToUtf8().c_str(), "first\ncaf\u00e9");
}

TEST_F(WindowMouse, SelectsBackwards) {
    Write(0, 0, L"abcdef");
    Console().SetSelectableRect(0, 0, 80, 23, true);
    Drag(4, 0, 1, 0);
    EXPECT_EQ(Selected(), "bcde");
}

TEST_F(WindowMouse, QueuesTheReleaseButNotThePressOfASelection) {
    Write(0, 0, L"abcdef");
    Console().SetSelectableRect(0, 0, 80, 23, true);
    Drag(0, 0, 3, 0);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kButtonRelease));
}

TEST_F(WindowMouse, QueuesWhatLiesOutsideTheSelectablePart) {
    Console().SetSelectableRect(0, 0, 80, 5, true);
    MoveToCell(3, 5);
    user->Click(1);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kButtonPress));
    EXPECT_EQ(event.row, 5);
}

TEST_F(WindowMouse, ShowsTheSelectionInExchangedColours) {
    constexpr Rgb kBlue{0, 0, 0x7F};
    constexpr Rgb kCyan{0, 0xFF, 0xFF};
    Console().FillRect(0, 0, 80, 25, 0x1B);
    Console().SetSelectableRect(0, 0, 80, 23, true);
    MoveToCell(2, 2);
    user->Button(1, true);
    MoveToCell(4, 3);
    ASSERT_TRUE(WaitFor([&] { return IsAll(CellPicture(GrabPainted(), 3, 2), kCyan); }));
    EXPECT_TRUE(IsAll(CellPicture(GrabPainted(), 5, 2), kBlue));
    EXPECT_TRUE(IsAll(CellPicture(GrabPainted(), 3, 4), kBlue));
    user->Button(1, false);
    EXPECT_TRUE(WaitFor([&] { return IsAll(CellPicture(GrabPainted(), 3, 2), kBlue); }));
}

}  // namespace zt::testing
