// ReadKey and its companions.
#include "console/read_key.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/console/fake_console.h"

namespace zt {
namespace {

class ReadKeyTest : public testing::Test {
protected:
    void TearDown() override { clockTick = nullptr; }

    FakeConsole console;
    TEventRecord record;
};

TEST_F(ReadKeyTest, GivesTheCodeWithModifiersAndCharacter) {
    console.PushKey(0x10044);
    console.PushKey(0x1001E, kModifierAlt, 'a');
    EXPECT_EQ(ReadKey(&record, -1), kKeyF10);
    EXPECT_EQ(record.modifiers, 0);
    EXPECT_EQ(record.unicode, 0);
    EXPECT_EQ(ReadKey(&record, 0), AltKey('a'));
    EXPECT_EQ(record.modifiers, kModifierAlt);
    EXPECT_EQ(record.unicode, 'a');
    EXPECT_EQ(modifiersSeen, kModifierAlt);
    EXPECT_EQ(modifiersLive, kModifierAlt);
}

TEST_F(ReadKeyTest, NeedsNoRecord) {
    console.PushKey('x');
    console.PushMouse(EventKind::kButtonPress, 1, 3, 4);
    modifiersLive = kModifierCtrl;
    EXPECT_EQ(ReadKey(nullptr, 0), kKeyModifiersChanged);
    EXPECT_EQ(ReadKey(nullptr, 0), 'x');
    EXPECT_EQ(ReadKey(nullptr, 0), kKeyMouse);
}

TEST_F(ReadKeyTest, GivesNoneWhenTheTimeRunsOut) {
    EXPECT_EQ(ReadKey(&record, 0), kKeyNone);
    console.WaitForEvents(true);
    EXPECT_EQ(ReadKey(&record, 3), kKeyNone);
}

TEST_F(ReadKeyTest, TellsOfChangedModifiersBeforeAnyKey) {
    console.PushKey('x', kModifierShift);
    modifiersLive = kModifierShift | kModifierLock;
    EXPECT_EQ(ReadKey(&record, 0), kKeyModifiersChanged);
    EXPECT_EQ(record.modifiers, kModifierShift | kModifierLock);
    EXPECT_EQ(console.PendingEvents(), 1);
    EXPECT_EQ(ReadKey(&record, 0), 'x');
    EXPECT_EQ(modifiersSeen, kModifierShift);
    EXPECT_EQ(ReadKey(&record, 0), kKeyNone);
}

TEST_F(ReadKeyTest, PressAndReleaseOfCtrlMakeTwoChanges) {
    console.PushKey(kKeyModifiersChanged, kModifierCtrl);
    console.PushKey(kKeyModifiersChanged, 0);
    EXPECT_EQ(ReadKey(&record, 0), kKeyModifiersChanged);
    EXPECT_EQ(modifiersSeen, kModifierCtrl);
    EXPECT_EQ(ReadKey(&record, 0), kKeyModifiersChanged);
    EXPECT_EQ(modifiersSeen, 0);
    EXPECT_EQ(ReadKey(&record, 0), kKeyNone);
}

TEST_F(ReadKeyTest, GivesQuitAndNothingElseAfterIt) {
    console.PushEvent(TEvent{6, 0, 0, 0, 0, 0});
    console.PushKey('x', kModifierCtrl);
    EXPECT_EQ(ReadKey(&record, -1), kKeyQuit);
    EXPECT_EQ(ReadKey(&record, 0), kKeyQuit);
    EXPECT_FALSE(EscPressed());
    EXPECT_EQ(ReadKey(nullptr, -1), kKeyQuit);
    EXPECT_TRUE(KeyWaiting());
}

TEST_F(ReadKeyTest, LookingForEscDoesNotLoseQuit) {
    console.PushEvent(TEvent{6, 0, 0, 0, 0, 0});
    EXPECT_FALSE(EscPressed());
    EXPECT_TRUE(KeyWaiting());
    EXPECT_EQ(ReadKey(&record, -1), kKeyQuit);
}

struct MouseCase {
    EventKind kind;
    int32_t code;
    int32_t type;  // -1: means nothing
    int32_t wheel;
};

TEST_F(ReadKeyTest, TranslatesTheMouse) {
    const MouseCase cases[] = {
        {EventKind::kButtonPress, 1, 0, 0},    {EventKind::kButtonPress, 2, 1, 0},
        {EventKind::kButtonPress, 3, -1, 0},   {EventKind::kButtonRelease, 1, 5, 0},
        {EventKind::kButtonRelease, 2, 6, 0},  {EventKind::kButtonRelease, 3, -1, 0},
        {EventKind::kMotion, 1, 2, 0},         {EventKind::kMotion, 2, 3, 0},
        {EventKind::kMotion, 0, -1, 0},        {EventKind::kDoubleClick, 1, 4, 0},
        {EventKind::kDoubleClick, 2, 1, 0},    {EventKind::kDoubleClick, 3, -1, 0},
        {EventKind::kWheel, 1, 7, 1},          {EventKind::kWheel, -1, 7, -1},
        {static_cast<EventKind>(7), 1, -1, 0}, {static_cast<EventKind>(-1), 1, -1, 0},
    };
    for (const MouseCase& c : cases) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(c.kind) << ", " << c.code);
        record.mouse.type = -1;
        modifiersSeen = modifiersLive = kModifierCtrl;
        console.PushMouse(c.kind, c.code, 12, 7, kModifierCtrl);
        EXPECT_EQ(ReadKey(&record, 0), c.type >= 0 ? kKeyMouse : kKeyNone);
        EXPECT_EQ(record.mouse.type, c.type);
        if (c.type < 0) continue;
        EXPECT_EQ(record.mouse.wheel, c.wheel);
        EXPECT_EQ(record.mouse.column, 12);
        EXPECT_EQ(record.mouse.row, 7);
        EXPECT_EQ(record.mouse.modifiers, kModifierCtrl);
    }
}

TEST_F(ReadKeyTest, AMouseEventBringsItsModifiersToLight) {
    console.PushMouse(EventKind::kButtonPress, 1, 0, 0, kModifierShift);
    EXPECT_EQ(ReadKey(&record, 0), kKeyMouse);
    EXPECT_EQ(modifiersSeen, 0);
    EXPECT_EQ(ReadKey(&record, 0), kKeyModifiersChanged);
    EXPECT_EQ(modifiersSeen, kModifierShift);
}

int ticks = 0;

TEST_F(ReadKeyTest, TicksTheClockAtEachRead) {
    ticks = 0;
    clockTick = [] { ticks++; };
    ReadKey(&record, 0);
    EXPECT_EQ(ticks, 1);
    console.PushKey('x');
    ReadKey(&record, -1);
    EXPECT_EQ(ticks, 2);
    modifiersLive = kModifierAlt;
    ReadKey(&record, -1);
    EXPECT_EQ(ticks, 2);  // nothing was waited for
}

// A console on which no time passes: each read tells how long it would have waited.
struct SlicedConsole : FakeConsole {
    bool ReadEvent(TEvent& event, int timeoutMilliseconds) override {
        timeouts.push_back(timeoutMilliseconds);
        if (timeouts.size() < 4) return false;
        event = TEvent{0, 'x', 0, 0, 0, 0};
        return true;
    }
    std::vector<int> timeouts;
};

TEST_F(ReadKeyTest, WaitsInSlicesOfASecondAndTicksAfterEach) {
    SlicedConsole sliced;
    ticks = 0;
    clockTick = [] { ticks++; };
    EXPECT_EQ(ReadKey(&record, -1), 'x');
    EXPECT_EQ(sliced.timeouts, (std::vector<int>{1000, 1000, 1000, 1000}));
    EXPECT_EQ(ticks, 4);
    EXPECT_EQ(ReadKey(&record, 250), 'x');
    EXPECT_EQ(sliced.timeouts.back(), 250);
}

TEST_F(ReadKeyTest, KnowsWhetherAKeyWaits) {
    EXPECT_FALSE(KeyWaiting());
    console.PushKey('x');
    EXPECT_TRUE(KeyWaiting());
    EXPECT_EQ(console.PendingEvents(), 1);
}

TEST_F(ReadKeyTest, EscPressedEatsWhatItFinds) {
    EXPECT_FALSE(EscPressed());
    console.PushKey('x');
    console.PushKey(kKeyEsc);
    EXPECT_FALSE(EscPressed());
    EXPECT_TRUE(EscPressed());
    EXPECT_FALSE(EscPressed());
    EXPECT_EQ(console.PendingEvents(), 0);
}

struct CharacterCase {
    int32_t code;
    int32_t unicode;
    int32_t expected;
};

TEST_F(ReadKeyTest, MakesAPlainCharacterOfAnAltKey) {
    const CharacterCase cases[] = {
        {0x1001E, 'a', 'a'},
        {0x1001E, 'A', 'a'},
        {'x', 0, 'x'},
        {'x', -1, 'x'},
        {0x1001E, 0xC9, 0xE9},
        {0x1001E, 65535, 65535},
        {0x1001E, 65536, 0x1001E},
        {0x1001E, 0x416, 0x436},
    };
    for (const CharacterCase& c : cases) {
        TEventRecord key;
        key.unicode = c.unicode;
        EXPECT_EQ(ToCharacter(c.code, key), c.expected) << c.code << ", " << c.unicode;
    }
}

TEST_F(ReadKeyTest, WaitsForAKeyFromAnotherThread) {
    console.WaitForEvents(true);
    std::thread input([&] {
        modifiersLive = kModifierShift;
        console.PushKey(kKeyShiftTab, kModifierShift);
    });
    int32_t code = ReadKey(&record, -1);
    if (code == kKeyModifiersChanged) code = ReadKey(&record, -1);
    EXPECT_EQ(code, kKeyShiftTab);
    input.join();
}

}  // namespace
}  // namespace zt
