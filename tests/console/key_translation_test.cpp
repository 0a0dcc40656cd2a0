// From key strokes to the program's events.
#include "console/key_translation.h"

#include <gtest/gtest.h>

#include "console/program_state.h"

namespace zt {
namespace {

constexpr uint32_t kShift = 1;
constexpr uint32_t kCapsLock = 2;
constexpr uint32_t kCtrl = 4;
constexpr uint32_t kAlt = 8;
constexpr uint32_t kNumLock = 16;
constexpr uint32_t kBreak = 0xFF6B;

class KeyTranslationTest : public testing::Test {
protected:
    void SetUp() override { Reset(); }
    void TearDown() override { Reset(); }
    void Reset() {
        modifiersLive = 0;
        abortState = kAbortIdle;
    }
};

struct StrokeCase {
    const char* name;
    KeyStroke stroke;
    KeyOutcome outcome;
    int32_t code;
    int32_t modifiers;
    int32_t unicode;
};

constexpr KeyOutcome kQueued = KeyOutcome::kQueue;
constexpr KeyOutcome kMethod = KeyOutcome::kInputMethod;
constexpr KeyOutcome kDropped = KeyOutcome::kDrop;

const StrokeCase kStrokes[] = {
    {"F10", {0xFFC7, 0, 76, true, 0}, kQueued, 0x10044, 0, 0},
    {"F10 with Num Lock", {0xFFC7, kNumLock, 76, true, 0}, kQueued, 0x10044, 8, 0},
    {"F10 with Caps Lock", {0xFFC7, kCapsLock, 76, true, 0}, kQueued, 0x10044, 0, 0},
    {"release of F10", {0xFFC7, 0, 76, false, 0}, kDropped, 0, 0, 0},
    {"Enter", {0xFF0D, 0, 36, true, '\r'}, kQueued, 0xD, 0, 0},
    {"letter", {'a', 0, 38, true, 'a'}, kMethod, 0, 0, 0},
    {"letter with Caps Lock", {'A', kCapsLock, 38, true, 'A'}, kMethod, 0, 0, 0},
    {"Shift and a letter", {'A', kShift, 38, true, 'A'}, kMethod, 0, 0, 0},
    {"release of a letter", {'a', 0, 38, false, 'a'}, kDropped, 0, 0, 0},
    {"digit", {'1', 0, 10, true, '1'}, kMethod, 0, 0, 0},
    {"dead key", {0xFE51, 0, 21, true, 0}, kMethod, 0, 0, 0},
    {"Ctrl and a letter", {'c', kCtrl, 54, true, 'c'}, kQueued, 3, 2, 0},
    {"Ctrl and a capital", {'C', kCtrl | kCapsLock, 54, true, 'C'}, kQueued, 3, 2, 0},
    {"Ctrl-Shift and a letter", {'T', kCtrl | kShift, 28, true, 'T'}, kQueued, 0x20014, 6, 0},
    {"Ctrl-Shift and no key", {'Z', kCtrl | kShift, 52, true, 'Z'}, kMethod, 0, 0, 0},
    {"Alt and a letter", {'x', kAlt, 53, true, 'x'}, kQueued, 0x1002D, 1, 'x'},
    {"Alt and a capital", {'X', kAlt | kCapsLock, 53, true, 'X'}, kQueued, 0x1002D, 1, 'x'},
    {"Alt and F1", {0xFFBE, kAlt, 67, true, 0}, kQueued, 0x10068, 1, 0},
    {"Alt and a digit", {'1', kAlt, 10, true, '1'}, kQueued, 0x10078, 1, '1'},
    {"Alt-Shift and a sign", {'!', kAlt | kShift, 10, true, '!'}, kQueued, 0x30078, 5, '!'},
    {"Ctrl-Alt and blank", {' ', kCtrl | kAlt, 65, true, ' '}, kQueued, 0x90039, 3, ' '},
    {"Ctrl-1", {'1', kCtrl, 10, true, '1'}, kQueued, 0x31, 2, 0},
    {"Ctrl-9", {'9', kCtrl, 18, true, '9'}, kQueued, 0x39, 2, 0},
    {"Ctrl-0", {'0', kCtrl, 19, true, '0'}, kQueued, 0x30, 2, 0},
    {"Ctrl-1 on another layout", {'&', kCtrl, 10, true, '&'}, kQueued, 0x31, 2, 0},
    {"Ctrl-0 on another layout", {0xE0, kCtrl, 19, true, 0xE0}, kQueued, 0x30, 2, 0},
    {"Ctrl-Shift-1", {'!', kCtrl | kShift, 10, true, '!'}, kQueued, 0x31, 6, 0},
    {"Ctrl-minus, beside the digits", {'-', kCtrl, 20, true, '-'}, kQueued, 0x1F, 2, 0},
    {"Ctrl and a key before the digits", {'1', kCtrl, 9, true, '1'}, kMethod, 0, 0, 0},
    {"Ctrl and keypad 1", {0xFFB1, kCtrl | kNumLock, 87, true, '1'}, kQueued, 0x40031, 10, 0},
    {"Ctrl and keypad End", {0xFF9C, kCtrl, 87, true, 0}, kQueued, 0x40031, 2, 0},
    {"Shift and keypad 7", {0xFFB7, kShift, 79, true, '7'}, kQueued, 0x30047, 4, 0},
    {"keypad 7 with Num Lock", {0xFFB7, kNumLock, 79, true, '7'}, kMethod, 0, 0, 0},
    {"keypad 5 with Shift", {0xFFB5, kShift, 84, true, '5'}, kMethod, 0, 0, 0},
    {"grey plus", {0xFFAB, 0, 86, true, '+'}, kQueued, 0x40002B, 0, 0},
    {"pressing Ctrl", {0xFFE3, 0, 37, true, 0}, kQueued, 0x10100, 2, 0},
    {"releasing Ctrl", {0xFFE3, kCtrl, 37, false, 0}, kQueued, 0x10100, 0, 0},
    {"pressing right Ctrl with Shift", {0xFFE4, kShift, 105, true, 0}, kQueued, 0x10100, 6, 0},
    {"pressing Alt", {0xFFE9, 0, 64, true, 0}, kQueued, 0x10100, 1, 0},
    {"releasing right Alt", {0xFFEA, kAlt, 108, false, 0}, kQueued, 0x10100, 0, 0},
    {"pressing Shift", {0xFFE1, kNumLock, 50, true, 0}, kQueued, 0x10100, 12, 0},
    {"releasing right Shift", {0xFFE2, kShift | kAlt, 62, false, 0}, kQueued, 0x10100, 1, 0},
    {"Caps Lock itself", {0xFFE5, 0, 66, true, 0}, kMethod, 0, 0, 0},
};

TEST_F(KeyTranslationTest, TranslatesStrokes) {
    for (const StrokeCase& c : kStrokes) {
        SCOPED_TRACE(c.name);
        const KeyResult result = TranslateKey(c.stroke);
        EXPECT_EQ(result.outcome, c.outcome);
        if (c.outcome != kQueued) continue;
        EXPECT_EQ(result.event.kind, 0);
        EXPECT_EQ(result.event.code, c.code);
        EXPECT_EQ(result.event.modifiers, c.modifiers);
        EXPECT_EQ(result.event.unicode, c.unicode);
        EXPECT_EQ(result.event.column, 0);
        EXPECT_EQ(result.event.row, 0);
    }
}

TEST_F(KeyTranslationTest, KeepsTheLiveModifiers) {
    TranslateKey({0xFFE3, 0, 37, true, 0});
    EXPECT_EQ(modifiersLive, kModifierCtrl);
    TranslateKey({'a', kCtrl | kShift | kNumLock, 38, true, 'a'});
    EXPECT_EQ(modifiersLive, kModifierCtrl | kModifierShift | kModifierLock);
    TranslateKey({'a', 0, 38, false, 'a'});  // dropped before it is looked at
    EXPECT_EQ(modifiersLive, kModifierCtrl | kModifierShift | kModifierLock);
    TranslateKey({'a', 0, 38, true, 'a'});  // goes to the input method
    EXPECT_EQ(modifiersLive, 0);
}

TEST_F(KeyTranslationTest, BreakAsksForAnAbortWhereOneIsPossible) {
    abortState = kAbortPossible;
    EXPECT_EQ(TranslateKey({kBreak, 0, 127, true, 0}).outcome, kDropped);
    EXPECT_EQ(abortState, kAbortRequested);
    EXPECT_EQ(TranslateKey({kBreak, 0, 127, true, 0}).outcome, kDropped);
    EXPECT_EQ(abortState, kAbortRequested);
}

TEST_F(KeyTranslationTest, LettingGoOfBreakCountsLikeThePress) {
    abortState = kAbortPossible;
    EXPECT_EQ(TranslateKey({kBreak, kCtrl, 127, false, 0}).outcome, kDropped);
    EXPECT_EQ(abortState, kAbortRequested);
}

TEST_F(KeyTranslationTest, BreakDoesNothingOtherwise) {
    modifiersLive = kModifierAlt;
    EXPECT_EQ(TranslateKey({kBreak, kCtrl, 127, true, 0}).outcome, kDropped);
    EXPECT_EQ(abortState, kAbortIdle);
    EXPECT_EQ(modifiersLive, kModifierAlt);
}

TEST_F(KeyTranslationTest, MakesEventsOfTextAndOfTheCloseButton) {
    const TEvent text = TextEvent(0x1F600);
    EXPECT_EQ(text.kind, 0);
    EXPECT_EQ(text.code, 0x1F600);
    EXPECT_EQ(text.unicode, 0x1F600);
    EXPECT_EQ(text.modifiers, 0);
    const TEvent close = CloseEvent();
    EXPECT_EQ(close.kind, 0);
    EXPECT_EQ(close.code, 0x10044);
    EXPECT_EQ(close.modifiers, 0);
    EXPECT_EQ(close.unicode, 0);
}

}  // namespace
}  // namespace zt
