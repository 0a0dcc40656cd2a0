// Where input goes: terminal, text selection or queue.
#include "console/input_routing.h"

#include <gtest/gtest.h>

#include <thread>

#include "console/key_translation.h"
#include "tests/console/fake_console.h"

namespace zt {
namespace {

struct Terminal : ITerminalSink {
    void TakeKey(int32_t code, int32_t modifiers, int32_t unicode) override {
        keys.push_back({code, modifiers, unicode});
    }
    void TakeCharacter(int32_t character) override { characters.push_back(character); }
    void TakeText(const char*) override {}
    std::vector<std::vector<int32_t>> keys;
    std::vector<int32_t> characters;
};

class InputRoutingTest : public testing::Test {
protected:
    void ExpectQueued(EventKind kind, int32_t code, int32_t modifiers, int column, int row) {
        TEvent event;
        ASSERT_TRUE(queue.Pop(event, 0));
        EXPECT_EQ(event.kind, static_cast<int32_t>(kind));
        EXPECT_EQ(event.code, code);
        EXPECT_EQ(event.modifiers, modifiers);
        EXPECT_EQ(event.column, column);
        EXPECT_EQ(event.row, row);
        EXPECT_EQ(queue.Pending(), 0);
    }

    FakeConsole console{10, 4};
    CEventQueue queue;
    Terminal terminal;
    Westring selected;
    bool hasText = false;
};

TEST_F(InputRoutingTest, MeasuresThePointerInCells) {
    EXPECT_EQ(PixelToCell(0, 8), 0);
    EXPECT_EQ(PixelToCell(7.9, 8), 0);
    EXPECT_EQ(PixelToCell(8.0, 8), 1);
    EXPECT_EQ(PixelToCell(79.99, 8), 9);
    EXPECT_EQ(PixelToCell(-0.5, 8), 0);
    EXPECT_EQ(PixelToCell(-16, 8), -2);
    EXPECT_EQ(PixelToCell(100, 0), 0);
}

TEST_F(InputRoutingTest, QueuesKeys) {
    const TEvent key{0, kKeyCtrlShiftM, 6, 0, 0, 'm'};
    EXPECT_EQ(RouteKey(console, queue, key), Routing::kQueued);
    TEvent event;
    ASSERT_TRUE(queue.Pop(event, 0));
    EXPECT_EQ(event.code, kKeyCtrlShiftM);
    EXPECT_EQ(event.modifiers, 6);
    EXPECT_EQ(event.unicode, 'm');
}

TEST_F(InputRoutingTest, GivesKeysAndTextToATerminal) {
    console.SetTerminalSink(&terminal);
    EXPECT_EQ(RouteKey(console, queue, TEvent{0, 3, 2, 0, 0, 0}), Routing::kTerminal);
    EXPECT_EQ(RouteText(console, queue, "a\xC3\xA9"), Routing::kTerminal);
    EXPECT_EQ(queue.Pending(), 0);
    EXPECT_EQ(terminal.keys, (std::vector<std::vector<int32_t>>{{3, 2, 0}}));
    EXPECT_EQ(terminal.characters, (std::vector<int32_t>{'a', 0xE9}));
}

TEST_F(InputRoutingTest, QueuesTextCharacterByCharacter) {
    EXPECT_EQ(RouteText(console, queue, "\xC3\xA9\xF0\x9F\x98\x80"), Routing::kQueued);
    TEvent event;
    ASSERT_TRUE(queue.Pop(event, 0));
    EXPECT_EQ(event.code, 0xE9);
    EXPECT_EQ(event.unicode, 0xE9);
    ASSERT_TRUE(queue.Pop(event, 0));
    EXPECT_EQ(event.code, 0x1F600);
    EXPECT_EQ(event.modifiers, 0);
    EXPECT_EQ(RouteText(console, queue, ""), Routing::kDropped);
    EXPECT_EQ(queue.Pending(), 0);
}

TEST_F(InputRoutingTest, QueuesButtons) {
    struct {
        uint32_t button;
        int32_t code;
    } const cases[] = {{1, 1}, {2, 3}, {3, 2}, {4, 3}, {8, 3}, {9, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.button);
        const PointerInput pointer{4, 2, 1 | 4 | 8 | 16, c.button};
        EXPECT_EQ(RoutePress(console, queue, pointer, false), Routing::kQueued);
        ExpectQueued(EventKind::kButtonPress, c.code, 15, 4, 2);
        EXPECT_EQ(RoutePress(console, queue, pointer, true), Routing::kQueued);
        ExpectQueued(EventKind::kDoubleClick, c.code, 15, 4, 2);
        EXPECT_EQ(RouteRelease(console, queue, pointer, selected, hasText), Routing::kQueued);
        ExpectQueued(EventKind::kButtonRelease, c.code, 15, 4, 2);
        EXPECT_FALSE(hasText);
    }
}

TEST_F(InputRoutingTest, QueuesMotionWithTheHeldButton) {
    struct {
        uint32_t state;
        int32_t code;
        int32_t modifiers;
    } const cases[] = {{0x100, 1, 0}, {0x400, 2, 0}, {0x500, 1, 0}, {0x200, 0, 0}, {4, 0, 2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.state);
        EXPECT_EQ(RouteMotion(console, queue, PointerInput{3, 1, c.state, 0}), Routing::kQueued);
        ExpectQueued(EventKind::kMotion, c.code, c.modifiers, 3, 1);
    }
}

TEST_F(InputRoutingTest, QueuesTheWheelWithoutModifiers) {
    EXPECT_EQ(RouteWheel(console, queue, PointerInput{3, 1, 5, 4}, true), Routing::kQueued);
    ExpectQueued(EventKind::kWheel, 1, 0, 3, 1);
    EXPECT_EQ(RouteWheel(console, queue, PointerInput{3, 1, 5, 5}, false), Routing::kQueued);
    ExpectQueued(EventKind::kWheel, -1, 0, 3, 1);
}

TEST_F(InputRoutingTest, DropsTheMouseWhileATerminalIsAttached) {
    console.SetTerminalSink(&terminal);
    const PointerInput pointer{3, 1, 0x100, 1};
    EXPECT_EQ(RoutePress(console, queue, pointer, false), Routing::kTerminal);
    EXPECT_EQ(RouteRelease(console, queue, pointer, selected, hasText), Routing::kTerminal);
    EXPECT_EQ(RouteMotion(console, queue, pointer), Routing::kTerminal);
    EXPECT_EQ(RouteWheel(console, queue, pointer, true), Routing::kTerminal);
    EXPECT_EQ(queue.Pending(), 0);
    EXPECT_TRUE(terminal.keys.empty());
}

TEST_F(InputRoutingTest, SelectsTextWithTheLeftButton) {
    console.WriteWide(0, 1, L"some text", 7);
    console.SetSelectableRect(0, 0, 10, 2, true);
    EXPECT_EQ(RoutePress(console, queue, PointerInput{5, 1, 0, 1}, false), Routing::kSelection);
    EXPECT_EQ(RouteMotion(console, queue, PointerInput{8, 1, 0x100, 0}), Routing::kSelection);
    EXPECT_EQ(queue.Pending(), 0);
    RouteRelease(console, queue, PointerInput{8, 1, 0x100, 1}, selected, hasText);
    EXPECT_TRUE(hasText);
    EXPECT_STREQ(selected.c_str(), L"text");
    ExpectQueued(EventKind::kButtonRelease, 1, 0, 8, 1);
}

TEST_F(InputRoutingTest, AClickWithoutMotionSelectsNothing) {
    console.WriteWide(0, 1, L"some text", 7);
    console.SetSelectableRect(0, 0, 10, 2, true);
    EXPECT_EQ(RoutePress(console, queue, PointerInput{5, 1, 0, 1}, false), Routing::kSelection);
    EXPECT_FALSE(console.Selected(5, 1));
    EXPECT_EQ(RouteRelease(console, queue, PointerInput{5, 1, 0x100, 1}, selected, hasText),
              Routing::kQueued);
    EXPECT_FALSE(hasText);
    ExpectQueued(EventKind::kButtonRelease, 1, 0, 5, 1);
}

TEST_F(InputRoutingTest, QueuesMotionOutsideTheSelectablePart) {
    console.WriteWide(0, 1, L"some text", 7);
    console.SetSelectableRect(0, 0, 10, 2, true);
    RoutePress(console, queue, PointerInput{5, 1, 0, 1}, false);
    RouteMotion(console, queue, PointerInput{6, 1, 0x100, 0});
    EXPECT_EQ(RouteMotion(console, queue, PointerInput{8, 2, 0x100, 0}), Routing::kQueued);
    ExpectQueued(EventKind::kMotion, 1, 0, 8, 2);
    EXPECT_TRUE(console.Selected(6, 1));
    EXPECT_FALSE(console.Selected(8, 1));
    RouteRelease(console, queue, PointerInput{8, 2, 0x100, 1}, selected, hasText);
    EXPECT_STREQ(selected.c_str(), L"te");
}

TEST_F(InputRoutingTest, SelectsTextWhileATerminalIsAttached) {
    console.SetTerminalSink(&terminal);
    console.WriteWide(0, 1, L"some text", 7);
    console.SetSelectableRect(0, 0, 10, 2, true);
    EXPECT_EQ(RoutePress(console, queue, PointerInput{0, 1, 0, 1}, true), Routing::kSelection);
    EXPECT_EQ(RouteMotion(console, queue, PointerInput{3, 1, 0x100, 0}), Routing::kSelection);
    EXPECT_EQ(RouteRelease(console, queue, PointerInput{3, 1, 0x100, 1}, selected, hasText),
              Routing::kTerminal);
    EXPECT_TRUE(hasText);
    EXPECT_STREQ(selected.c_str(), L"some");
}

TEST_F(InputRoutingTest, SelectsNothingWithOtherButtons) {
    console.SetSelectableRect(0, 0, 10, 2, true);
    EXPECT_EQ(RoutePress(console, queue, PointerInput{5, 1, 0, 3}, false), Routing::kQueued);
    ExpectQueued(EventKind::kButtonPress, 2, 0, 5, 1);
    EXPECT_EQ(RouteMotion(console, queue, PointerInput{6, 1, 0x400, 0}), Routing::kQueued);
    ExpectQueued(EventKind::kMotion, 2, 0, 6, 1);
    EXPECT_EQ(RoutePress(console, queue, PointerInput{5, 2, 0, 1}, false), Routing::kQueued);
    ExpectQueued(EventKind::kButtonPress, 1, 0, 5, 2);
}

TEST_F(InputRoutingTest, AnotherButtonLeavesASelectionRunning) {
    console.WriteWide(0, 1, L"some text", 7);
    console.SetSelectableRect(0, 0, 10, 2, true);
    RoutePress(console, queue, PointerInput{0, 1, 0, 1}, false);
    RouteMotion(console, queue, PointerInput{3, 1, 0x100, 0});
    RouteRelease(console, queue, PointerInput{3, 1, 0x500, 3}, selected, hasText);
    EXPECT_FALSE(hasText);
    ExpectQueued(EventKind::kButtonRelease, 2, 0, 3, 1);
    EXPECT_TRUE(console.Selected(2, 1));
}

// The sink is in no other thread's hands once the call that takes it away has returned.
TEST_F(InputRoutingTest, TakesATerminalAwayUnderTheKeysOfAnotherThread) {
    std::atomic<bool> done{false};
    std::thread input([&] {
        while (!done)
            RouteKey(console, queue, TEvent{0, 'x', 0, 0, 0, 0});
    });
    for (int i = 0; i < 200; i++) {
        Terminal shortLived;
        console.SetTerminalSink(&shortLived);
        console.SetTerminalSink(nullptr);
    }
    done = true;
    input.join();
    EXPECT_FALSE(console.HasTerminalSink());
}

}  // namespace
}  // namespace zt
