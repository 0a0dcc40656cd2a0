// The names of keys and what they send.
#include "tests/support/key_names.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(KeyNames, KnowsTheKeyTable) {
    const struct {
        const char* name;
        WireEvent event;
    } rows[] = {
        {"F1", {0, 0x1003B, 0, 0, 0, 0}},
        {"F10", {0, 0x10044, 0, 0, 0, 0}},
        {"F12", {0, 0x10086, 0, 0, 0, 0}},
        {"Shift-F9", {0, 0x3005C, 4, 0, 0, 0}},
        {"Ctrl-F3", {0, 0x10060, 2, 0, 0, 0}},
        {"Alt-F10", {0, 0x10071, 1, 0, 0, 0}},
        {"Ctrl-Shift-F1", {0, 0x3005E, 6, 0, 0, 0}},
        {"Alt-Shift-F5", {0, 0x3006C, 5, 0, 0, 0}},
        {"Enter", {0, 0xD, 0, 0, 0, 0}},
        {"Ctrl-Enter", {0, 0xA, 2, 0, 0, 0}},
        {"Ctrl-PgUp", {0, 0x10084, 2, 0, 0, 0}},
        {"Ctrl-o", {0, 0xF, 2, 0, 0, 0}},
        {"Ctrl-i", {0, 0x10102, 2, 0, 0, 0}},
        {"Ctrl-Shift-m", {0, 0x30103, 6, 0, 0, 0}},
        {"Alt-z", {0, 0x1002C, 1, 0, 0, 'z'}},
        {"Alt-0", {0, 0x10081, 1, 0, 0, '0'}},
        {"Ctrl--", {0, 0x1F, 2, 0, 0, 0}},
        {"Ctrl-\\", {0, 0x1C, 2, 0, 0, 0}},
        {"Alt--", {0, 0x10082, 1, 0, 0, '-'}},
        {"Ctrl-Num5", {0, 0x40035, 2, 0, 0, 0}},
        {"Ctrl-Shift-Num0", {0, 0x60030, 6, 0, 0, 0}},
        {"Grey*", {0, 0x40002A, 0, 0, 0, 0}},
        {"Ctrl-Alt-Space", {0, 0x90039, 3, 0, 0, 0}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.event, KeyEvent(row.name)) << row.name;
}

TEST(KeyNames, RefusesWhatTheKeyTableHasNot) {
    for (const char* name : {"", "F0", "F13", "F1x", "Enter ", "Ctrl-", "Ctrl-Esc", "Shift-a",
                             "Num5", "Hyper-F1", "Ctrl-Alt-F1", "Alt-Shift-a"}) {
        EXPECT_EQ(std::nullopt, KeyEvent(name)) << name;
        EXPECT_THAT(KeyPress(name), IsEmpty()) << name;
    }
}

TEST(KeyNames, PressesModifiersFirstAndReleasesThemLast) {
    EXPECT_THAT(KeyPress("F3"), ElementsAre(WireEvent{0, 0x1003D, 0, 0, 0, 0}));
    EXPECT_THAT(KeyPress("Ctrl-Shift-F1"),
                ElementsAre(WireEvent{0, 0x10100, 2, 0, 0, 0}, WireEvent{0, 0x10100, 6, 0, 0, 0},
                            WireEvent{0, 0x3005E, 6, 0, 0, 0}, WireEvent{0, 0x10100, 2, 0, 0, 0},
                            WireEvent{0, 0x10100, 0, 0, 0, 0}));
    EXPECT_THAT(HoldModifiers("Alt"), ElementsAre(WireEvent{0, 0x10100, 1, 0, 0, 0}));
    EXPECT_THAT(ReleaseModifiers("Ctrl-Shift"),
                ElementsAre(WireEvent{0, 0x10100, 2, 0, 0, 0}, WireEvent{0, 0x10100, 0, 0, 0, 0}));
}

TEST(KeyNames, TypesCharactersOfAnyScript) {
    EXPECT_THAT(TypedText("aÄ"),
                ElementsAre(WireEvent{0, 'a', 0, 0, 0, 'a'}, WireEvent{0, 0xC4, 0, 0, 0, 0xC4}));
    EXPECT_THAT(TypedText("\xFF"), IsEmpty());
}

TEST(KeyNames, DoubleClicksAsTheWindowReportsIt) {
    EXPECT_THAT(MouseDoubleClick(Mouse::kLeft, 3, 4),
                ElementsAre(WireEvent{1, 1, 0, 3, 4, 0}, WireEvent{2, 1, 0, 3, 4, 0},
                            WireEvent{1, 1, 0, 3, 4, 0}, WireEvent{4, 1, 0, 3, 4, 0},
                            WireEvent{2, 1, 0, 3, 4, 0}));
    EXPECT_EQ((WireEvent{5, -1, 0, 1, 2, 0}), MouseWheel(false, 1, 2));
}

}  // namespace
}  // namespace zt::headless
