// What a program gets for a key, and that nobody waits for a program that does not read.
#include <sys/wait.h>

#include <thread>

#include "console/input_routing.h"
#include "console/key_table.h"
#include "console/terminal/key_sequences.h"
#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

struct KeyCase {
    int32_t code;
    const char* bytes;
    const char* inApplicationMode;
};

TEST(TerminalKeys, AreTranslated) {
    const KeyCase cases[] = {
        {0x10048, "\x1b[A", "\x1bOA"},
        {0x10050, "\x1b[B", "\x1bOB"},
        {0x1004D, "\x1b[C", "\x1bOC"},
        {0x1004B, "\x1b[D", "\x1bOD"},
        {0x10047, "\x1b[H", "\x1bOH"},
        {0x1004F, "\x1b[F", "\x1bOF"},
        {0x10049, "\x1b[5~", "\x1b[5~"},
        {0x10051, "\x1b[6~", "\x1b[6~"},
        {0x10052, "\x1b[2~", "\x1b[2~"},
        {0x10053, "\x1b[3~", "\x1b[3~"},
        {0x10084, "\x1b[5;5~", "\x1b[5;5~"},
        {0x10076, "\x1b[6;5~", "\x1b[6;5~"},
        {0x1003B, "\x1bOP", "\x1bOP"},
        {0x1003C, "\x1bOQ", "\x1bOQ"},
        {0x1003D, "\x1bOR", "\x1bOR"},
        {0x1003E, "\x1bOS", "\x1bOS"},
        {0x1003F, "\x1b[15~", "\x1b[15~"},
        {0x10040, "\x1b[17~", "\x1b[17~"},
        {0x10041, "\x1b[18~", "\x1b[18~"},
        {0x10042, "\x1b[19~", "\x1b[19~"},
        {0x10043, "\x1b[20~", "\x1b[20~"},
        {0x10044, "\x1b[21~", "\x1b[21~"},
        {0x10085, "\x1b[23~", "\x1b[23~"},
        {0x10086, "\x1b[24~", "\x1b[24~"},
        {0x10101, "\b", "\b"},
        {13, "\r", "\r"},
        {'a', "a", "a"},
        {9, "\t", "\t"},
        {27, "\x1b", "\x1b"},
        {127, "\x7f", "\x7f"},
        {3, "\x03", "\x03"},
        {26, "\x1a", "\x1a"},
        {0xE9, "\xE9", "\xE9"},
        {255, "\xFF", "\xFF"},
        {0x10102, "\t", "\t"},
        {0x10103, "\r", "\r"},
        {0x40002A, "*", "*"},
        {0x40002B, "+", "+"},
        {0x40002D, "-", "-"},
    };
    for (const KeyCase& c : cases) {
        EXPECT_EQ(KeyBytes(c.code, false), c.bytes) << std::hex << c.code;
        EXPECT_EQ(KeyBytes(c.code, true), c.inApplicationMode) << std::hex << c.code;
    }
}

TEST(TerminalKeys, OthersSendNothing) {
    for (const int32_t code : {0, -1, 256, 0x10100, 0x1001E, 0x10073, 0x3003B, 0x200000, 0x800001,
                               0x30048, 0x1005E, 0x10068, 0x30052, INT32_MIN, INT32_MAX})
        EXPECT_EQ(KeyBytes(code, false), "") << std::hex << code;
}

TEST(TerminalKeys, CharactersGoAsUtf8) {
    EXPECT_EQ(CharacterBytes('a'), "a");
    EXPECT_EQ(CharacterBytes(0xE9), "\xC3\xA9");
    EXPECT_EQ(CharacterBytes(0x20AC), "\xE2\x82\xAC");
    EXPECT_EQ(CharacterBytes(0x1F600), "\xF0\x9F\x98\x80");
    for (const int32_t none : {0, -1, 0x110000, INT32_MAX})
        EXPECT_EQ(CharacterBytes(none), "") << none;
}

TEST_F(TerminalTest, SendsKeysInOrder) {
    console.GiveKeyToSink('l', 0, 0);
    console.GiveKeyToSink('s', 0, 0);
    console.GiveCharacterToSink(0xE9);
    console.GiveKeyToSink(0x10048, 0, 0);
    console.GiveKeyToSink(13, 0, 0);
    EXPECT_EQ(Sent(8), "ls\xC3\xA9\x1b[A\r");
}

TEST_F(TerminalTest, TheModeOfTheCursorKeysIsTheProgramsChoice) {
    Write("\x1b[?1h");
    console.GiveKeyToSink(0x10048, 0, 0);
    EXPECT_EQ(Sent(3), "\x1bOA");
    Write("\x1b[?1l");
    console.GiveKeyToSink(0x10048, 0, 0);
    EXPECT_EQ(Sent(3), "\x1b[A");
}

TEST_F(TerminalTest, PastesInItsTurn) {
    console.clipboard = L"gr\u00FC\u00DFe";
    console.GiveKeyToSink('<', 0, 0);
    console.GiveKeyToSink(0x30052, 4, 0);
    console.GiveKeyToSink('>', 0, 0);
    EXPECT_EQ(Sent(9),
              "<gr\xC3\xBC\xC3\x9F"
              "e>");
}

TEST_F(TerminalTest, PastesNothingWithoutAClipboard) {
    console.clipboardWorks = false;
    console.GiveKeyToSink('<', 0, 0);
    console.GiveKeyToSink(0x30052, 4, 0);
    console.GiveKeyToSink('>', 0, 0);
    EXPECT_EQ(Sent(2), "<>");
}

// The pipe holds 64 kilobytes; far more is typed, and nobody reads.
TEST(TerminalKeys, DoNotWaitForTheProgram) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    {
        FakeConsole console(20, 6);
        console.OpenTerminal(ends[1]);
        for (int i = 0; i < 1 << 20; i++)
            ASSERT_TRUE(console.GiveKeyToSink('a', 0, 0));
        console.CloseTerminal();
    }
    close(ends[1]);
    close(ends[0]);
}

TEST(TerminalKeys, ComeWholeToASlowProgram) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    constexpr size_t kCount = 200000;
    {
        FakeConsole console(20, 6);
        console.OpenTerminal(ends[1]);
        for (size_t i = 0; i < kCount; i++)
            console.GiveKeyToSink(static_cast<int32_t>('a' + i % 26), 0, 0);
        size_t seen = 0;
        char piece[1000];
        while (seen < kCount) {
            const ssize_t got = read(ends[0], piece, sizeof piece);
            ASSERT_GT(got, 0);
            for (ssize_t i = 0; i < got; i++, seen++)
                ASSERT_EQ(piece[i], static_cast<char>('a' + seen % 26)) << seen;
        }
        console.CloseTerminal();
    }
    close(ends[1]);
    close(ends[0]);
}

TEST(TerminalKeys, SurviveAProgramThatIsGone) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    close(ends[0]);
    FakeConsole console(20, 6);
    console.OpenTerminal(ends[1]);
    for (int i = 0; i < 100; i++)
        EXPECT_TRUE(console.GiveKeyToSink('a', 0, 0));
    console.CloseTerminal();
    console.OpenTerminal(-1);
    EXPECT_TRUE(console.GiveKeyToSink('a', 0, 0));
    console.CloseTerminal();
    close(ends[1]);
}

// Keys come while the first thread writes, opens and closes.
TEST(TerminalKeys, ComeOnAThreadOfTheirOwn) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    FakeConsole console(20, 6);
    std::atomic<bool> done{false};
    std::thread keyboard([&] {
        while (!done) {
            console.GiveKeyToSink(0x10048, 0, 0);
            console.GiveCharacterToSink('x');
        }
    });
    for (int round = 0; round < 30; round++) {
        console.OpenTerminal(ends[1]);
        for (int i = 0; i < 20; i++)
            console.WriteStream("\x1b[?1hline\r\n\x1b[?1l");
        console.CloseTerminal();
    }
    done = true;
    keyboard.join();
    close(ends[1]);
    close(ends[0]);
}

}  // namespace
}  // namespace zt
