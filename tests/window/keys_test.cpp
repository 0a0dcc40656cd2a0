// Real keys of a keyboard, through the X server and the toolkit, into the console's events.
#include <X11/keysym.h>

#include <cstdlib>

#include "console/event_queue.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "window_fixture.h"

namespace zt::testing {

namespace {

struct KeyCase {
    const char* name;
    int held;
    uint32_t keysym;
    int code;
};

constexpr KeyCase kKeyCases[] = {
    {"F1", 0, XK_F1, 0x1003B},
    {"F10", 0, XK_F10, 0x10044},
    {"F11", 0, XK_F11, 0x10085},
    {"Return", 0, XK_Return, 0xD},
    {"BackSpace", 0, XK_BackSpace, 0x10101},
    {"Tab", 0, XK_Tab, 9},
    {"Escape", 0, XK_Escape, 0x1B},
    {"Home", 0, XK_Home, 0x10047},
    {"Up", 0, XK_Up, 0x10048},
    {"PageDown", 0, XK_Page_Down, 0x10051},
    {"Insert", 0, XK_Insert, 0x10052},
    {"Delete", 0, XK_Delete, 0x10053},
    {"grey plus", 0, XK_KP_Add, 0x40002B},
    {"grey minus", 0, XK_KP_Subtract, 0x40002D},
    {"grey star", 0, XK_KP_Multiply, 0x40002A},
    {"keypad Enter", 0, XK_KP_Enter, 0xD},
    {"keypad Home", 0, XK_KP_Home, 0x10047},
    {"keypad Delete", 0, XK_KP_Delete, 0x10053},
    {"Shift-F1", kHoldShift, XK_F1, 0x30054},
    {"Shift-F12", kHoldShift, XK_F12, 0x30088},
    {"Shift-Left", kHoldShift, XK_Left, 0x3004B},
    {"Shift-Tab", kHoldShift, XK_Tab, 0x3000F},
    {"Shift-Return", kHoldShift, XK_Return, 0xD},
    {"Ctrl-F5", kHoldCtrl, XK_F5, 0x10062},
    {"Ctrl-BackSpace", kHoldCtrl, XK_BackSpace, 0x7F},
    {"Ctrl-Home", kHoldCtrl, XK_Home, 0x10077},
    {"Ctrl-Up", kHoldCtrl, XK_Up, 0x1008D},
    {"Ctrl-Return", kHoldCtrl, XK_Return, 0xA},
    {"Ctrl-Tab", kHoldCtrl, XK_Tab, 0x10094},
    {"Ctrl-backslash", kHoldCtrl, XK_backslash, 0x1C},
    {"Ctrl-bracket", kHoldCtrl, XK_bracketleft, 0x1B},
    {"Ctrl-blank", kHoldCtrl, XK_space, 0x20},
    {"Ctrl-A", kHoldCtrl, XK_a, 1},
    {"Ctrl-I", kHoldCtrl, XK_i, 0x10102},
    {"Ctrl-M", kHoldCtrl, XK_m, 0x10103},
    {"Ctrl-Z", kHoldCtrl, XK_z, 26},
    {"Ctrl-grey plus", kHoldCtrl, XK_KP_Add, 0x10090},
    {"Ctrl-keypad 4", kHoldCtrl, XK_KP_Left, 0x40034},
    {"Ctrl-1", kHoldCtrl, XK_1, '1'},
    {"Ctrl-0", kHoldCtrl, XK_0, '0'},
    {"Alt-F1", kHoldAlt, XK_F1, 0x10068},
    {"Alt-Return", kHoldAlt, XK_Return, 0x1001C},
    {"Alt-Left", kHoldAlt, XK_Left, 0x1009B},
    {"Alt-1", kHoldAlt, XK_1, 0x10078},
    {"Alt-0", kHoldAlt, XK_0, 0x10081},
    {"Alt-A", kHoldAlt, XK_a, 0x1001E},
    {"Alt-Z", kHoldAlt, XK_z, 0x1002C},
    {"Alt-minus", kHoldAlt, XK_minus, 0x10082},
    {"Alt-grey plus", kHoldAlt, XK_KP_Add, 0x1004E},
    {"Ctrl-Shift-F3", kHoldCtrl | kHoldShift, XK_F3, 0x30060},
    {"Ctrl-Shift-Left", kHoldCtrl | kHoldShift, XK_Left, 0x30073},
    {"Ctrl-Shift-A", kHoldCtrl | kHoldShift, XK_a, 0x20001},
    {"Ctrl-Shift-M", kHoldCtrl | kHoldShift, XK_m, 0x30103},
    {"Ctrl-Shift-keypad 5", kHoldCtrl | kHoldShift, XK_KP_Begin, 0x60035},
    {"Alt-Shift-F2", kHoldAlt | kHoldShift, XK_F2, 0x30069},
    {"Alt-Shift-1", kHoldAlt | kHoldShift, XK_1, 0x30078},
    {"Alt-Shift-bracket", kHoldAlt | kHoldShift, XK_bracketleft, 0x3001A},
    {"Ctrl-Alt-blank", kHoldCtrl | kHoldAlt, XK_space, 0x90039},
};

bool ChooseKeyboard(const char* options) {
    return std::system((std::string("setxkbmap ") + options + " 2>/dev/null").c_str()) == 0;
}

}  // namespace

class WindowKeys : public WindowTest {};

TEST_F(WindowKeys, GivesTheCodeOfEachKey) {
    for (const KeyCase& key : kKeyCases) {
        SCOPED_TRACE(key.name);
        user->Tap(key.held, key.keysym);
        EXPECT_EQ(NextKey(), key.code);
    }
}

// On keyboards whose Shift turns the keypad to its digits.
TEST_F(WindowKeys, GivesTheMovementsOfTheKeypadWithShift) {
    constexpr int kSpareCode = 97;
    const std::pair<uint32_t, int> kDigits[] = {{XK_KP_0, 0x30052},
                                                {XK_KP_4, 0x3004B},
                                                {XK_KP_7, 0x30047},
                                                {XK_KP_9, 0x30049},
                                                {XK_KP_Decimal, 0x30053}};
    for (const auto& [keysym, code] : kDigits) {
        user->GiveKeyASymbol(kSpareCode, keysym);
        // Until the window knows of it, the key still has its old meaning, or none.
        EXPECT_TRUE(WaitFor([&, expected = code] {
            user->TapCode(kHoldShift, kSpareCode);
            user->Tap(0, XK_F1);
            const int first = NextKey();
            if (first != kKeyF1) NextKey();
            return first == expected;
        })) << code;
    }
}

TEST_F(WindowKeys, GivesModifiersWithAKey) {
    user->Tap(kHoldCtrl | kHoldShift, XK_Left);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.modifiers & ~kModifierLock, kModifierCtrl | kModifierShift);
    EXPECT_EQ(event.unicode, 0);
}

TEST_F(WindowKeys, GivesTheLetterWithAlt) {
    user->Tap(kHoldAlt, XK_q);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.code, 0x10010);
    EXPECT_EQ(event.unicode, 'q');
    EXPECT_EQ(event.modifiers & ~kModifierLock, kModifierAlt);
}

TEST_F(WindowKeys, TypesTextThroughTheInputMethod) {
    user->Tap(0, XK_h);
    user->Tap(kHoldShift, XK_i);
    user->Tap(0, XK_1);
    user->Tap(kHoldShift, XK_1);
    for (const int expected : {'h', 'I', '1', '!'}) {
        TEvent event;
        ASSERT_TRUE(NextEvent(event));
        EXPECT_EQ(event.code, expected);
        EXPECT_EQ(event.unicode, expected);
        EXPECT_EQ(event.modifiers, 0);
    }
}

TEST_F(WindowKeys, TypesACapitalWithCapsLock) {
    user->Tap(0, XK_Caps_Lock);
    user->Tap(0, XK_a);
    user->Tap(kHoldCtrl, XK_a);
    user->Tap(0, XK_Caps_Lock);
    EXPECT_EQ(NextKey(), 'A');
    EXPECT_EQ(NextKey(), 1);
}

TEST_F(WindowKeys, GivesOneCodeInBothLockStates) {
    user->Tap(0, XK_KP_Home);
    EXPECT_EQ(NextKey(), 0x10047);
    user->Tap(kHoldCtrl, XK_KP_Home);
    EXPECT_EQ(NextKey(), 0x40037);
    user->Tap(0, XK_Num_Lock);
    user->Tap(kHoldCtrl, XK_KP_Home);
    user->Tap(0, XK_KP_Home);
    user->Tap(0, XK_Num_Lock);
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.code, 0x40037);
    EXPECT_EQ(event.modifiers, kModifierCtrl | kModifierLock);
    EXPECT_EQ(NextKey(), '7') << "with Num Lock and no modifier the key types its digit";
}

TEST_F(WindowKeys, TellsOfModifiersAlone) {
    TEvent event;
    user->Key(XK_Control_L, true);
    ASSERT_TRUE(Console().ReadEvent(event, 20000));
    EXPECT_EQ(event.code, kKeyModifiersChanged);
    EXPECT_EQ(event.modifiers & ~kModifierLock, kModifierCtrl);
    EXPECT_EQ(modifiersLive & ~kModifierLock, kModifierCtrl);
    user->Key(XK_Control_L, false);
    ASSERT_TRUE(Console().ReadEvent(event, 20000));
    EXPECT_EQ(event.code, kKeyModifiersChanged);
    EXPECT_EQ(event.modifiers & ~kModifierLock, 0);
    EXPECT_EQ(modifiersLive & ~kModifierLock, 0);
}

TEST_F(WindowKeys, IgnoresReleasesOfOrdinaryKeys) {
    user->Key(XK_F2, true);
    EXPECT_EQ(NextKey(), 0x1003C);
    user->Key(XK_F2, false);
    user->Tap(0, XK_F3);
    EXPECT_EQ(NextKey(), 0x1003D);
}

TEST_F(WindowKeys, BreakAsksOnlyARunningOperationToAbort) {
    if (!user->HasKey(XK_Break)) GTEST_SKIP() << "the keyboard has no Break key";
    user->Tap(kHoldCtrl, XK_Break);
    user->Tap(0, XK_F1);
    EXPECT_EQ(NextKey(), 0x1003B) << "Break itself is no event";
    EXPECT_EQ(abortState, kAbortIdle);
    abortState = kAbortPossible;
    user->Tap(kHoldCtrl, XK_Break);
    EXPECT_TRUE(WaitFor([] { return abortState == kAbortRequested; }));
    abortState = kAbortIdle;
}

TEST_F(WindowKeys, GivesCtrlDigitByTheKeyWhateverItsCharacter) {
    constexpr int kCodeOfKey1 = 10;
    if (!ChooseKeyboard("-layout fr")) GTEST_SKIP() << "no setxkbmap to choose a layout with";
    ASSERT_TRUE(WaitFor([this] { return user->HasKey(XK_eacute); }));
    // The layout's own character shows that the window knows the new layout too.
    ASSERT_TRUE(WaitFor([this] {
        user->TapCode(0, kCodeOfKey1);
        return NextKey() == '&';
    }));
    user->TapCode(kHoldCtrl, kCodeOfKey1);
    EXPECT_EQ(NextKey(), '1');
}

TEST_F(WindowKeys, ComposesADeadKeyWithItsLetter) {
    if (!ChooseKeyboard("-layout us -variant intl")) {
        GTEST_SKIP() << "no setxkbmap to choose a layout with";
    }
    ASSERT_TRUE(WaitFor([this] { return user->HasKey(XK_dead_acute); }));
    // Until the window knows the new layout, the two keys type two plain characters.
    ASSERT_TRUE(WaitFor([this] {
        user->Tap(0, XK_dead_acute);
        user->Tap(0, XK_e);
        const int first = NextKey();
        if (first != 0xE9) NextKey();
        return first == 0xE9;
    }));
    user->Tap(0, XK_dead_acute);
    user->Tap(0, XK_space);
    const int accent = NextKey();
    EXPECT_TRUE(accent == '\'' || accent == 0xB4) << accent;
}

TEST_F(WindowKeys, ClosingTheWindowIsF10AndKeepsIt) {
    user->AskToClose();
    TEvent event;
    ASSERT_TRUE(NextEvent(event));
    EXPECT_EQ(event.kind, static_cast<int32_t>(EventKind::kKey));
    EXPECT_EQ(event.code, kKeyF10);
    EXPECT_EQ(event.modifiers, 0);
    EXPECT_TRUE(user->IsWindowShown());
}

TEST_F(WindowKeys, ReadsNothingWhenTheTimeIsOver) {
    TEvent event;
    EXPECT_FALSE(Console().ReadEvent(event, 0));
    EXPECT_FALSE(Console().ReadEvent(event, 20));
    EXPECT_EQ(Console().PendingEvents(), 0);
}

// What an embedded terminal gets.
class Sink : public ITerminalSink {
public:
    void TakeKey(int32_t code, int32_t, int32_t) override { keys.Push({0, code, 0, 0, 0, 0}); }
    void TakeCharacter(int32_t character) override { keys.Push({0, character, 0, 0, 0, 1}); }
    void TakeText(const char*) override {}

    CEventQueue keys;
};

TEST_F(WindowKeys, GivesKeysAndTextToTheTerminal) {
    Sink sink;
    Console().SetTerminalSink(&sink);
    user->Tap(0, XK_Up);
    user->Click(1);
    user->Tap(0, XK_x);
    TEvent event;
    ASSERT_TRUE(sink.keys.Pop(event, 20000));
    EXPECT_EQ(event.code, 0x10048);
    ASSERT_TRUE(sink.keys.Pop(event, 20000));
    EXPECT_EQ(event.code, 'x');
    EXPECT_EQ(event.unicode, 1);
    Console().SetTerminalSink(nullptr);
    user->Tap(0, XK_F1);
    ASSERT_TRUE(NextEvent(event)) << "the mouse's events are dropped, so the next is a key";
    EXPECT_EQ(event.code, 0x1003B);
}

}  // namespace zt::testing
