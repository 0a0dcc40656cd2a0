// The display side's parser: frames among plain text, cut anywhere, and the handshake.
#include <gtest/gtest.h>

#include <random>

#include "tests/console/wire_display.h"

namespace zt {
namespace {

using namespace std::string_literals;
using B = WireBytes;

std::string ScreenText(DisplayConsole& screen) {
    std::string text;
    int columns = 0, rows = 0;
    screen.GetSize(columns, rows);
    for (int row = 0; row < rows; row++) {
        std::string line = screen.RowText(row);
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        text += line;
    }
    return text;
}

const B kHandshake = B::Request(0, 1).Int(1);
const B kAccepted = B::Reply(1).Int(1);

// One request of every length and kind, whose effects can be told apart.
const struct {
    const char* what;
    B request;
} kRequests[] = {
    {"no parameter", B::Request(23, 0)},
    {"two integers", B::Request(4, 2).Ints({9, 3})},
    {"text", B::Request(15, 4).Ints({1, 1}).Uni("\xE2\x95\x91 text \xC3\xA9").Attr(0x1B)},
    {"cells", B::Request(15, 3).Ints({1, 2}).Cells("ab\xC3\xA9", "\x11\x12\x13")},
    {"rectangle", B::Request(19, 5).Ints({0, 0, 2, 2}).Cells("abcd", "1234")},
    {"long title", B::Request(11, 1).Uni(std::string(70, 't'))},
    {"scroll", B::Request(9, 6).Ints({0, 0, 20, 4, 1}).Attr(0x21)},
    {"teletype text", B::Request(22, 1).Str("one\r\ntwo")},
    {"cursor query", B::Request(3, 0)},
    {"cells query", B::Request(18, 4).Ints({0, 0, 20, 2})},
    {"clipboard query", B::Request(21, 0)},
    {"resize", B::Request(7, 4).Ints({40, 12}).Str("Mono").Int(9)},
    {"wrong lengths",
     B::Request(4, 3).Parameter(0, "12345").Parameter(3, "").Parameter(4, "\xBF\xFB\x17\0\0\0"s)},
    {"an unknown opcode", B::Request(27, 3).Int(1).Str("\xBF\xFB\x17\x00\x00\x00"s).Attr(1)},
};

std::string Fingerprint(LocalDisplay& display) {
    int column = 0, row = 0;
    display.screen.GetCursor(column, row);
    return std::to_string(display.screen.beeps) + "/" + std::to_string(column) + "," +
           std::to_string(row) + "/" + std::to_string(display.screen.painted.size()) + "/" +
           display.screen.title + "/" + ScreenText(display.screen) + "/" + Hex(display.Answers());
}

// Every request before a beep, split in two at every byte.
TEST(WireFrameParser, CarriesOutASplitRequestOnceAndWhole) {
    for (const auto& row : kRequests) {
        const std::string bytes = (row.request + B::Request(23, 0)).bytes;
        LocalDisplay whole;
        whole.Feed(kHandshake);
        whole.Feed(bytes);
        const std::string expected = Fingerprint(whole);
        for (size_t at = 0; at <= bytes.size(); at++) {
            LocalDisplay split;
            split.Feed(kHandshake);
            split.Feed(bytes.substr(0, at));
            split.Feed(bytes.substr(at));
            EXPECT_EQ(Fingerprint(split), expected) << row.what << " split at " << at;
        }
    }
}

TEST(WireFrameParser, TakesASplitHandshakeOnce) {
    const std::string bytes = kHandshake;
    for (size_t at = 0; at <= bytes.size(); at++) {
        LocalDisplay display;
        display.Feed(bytes.substr(0, at));
        display.Feed(bytes.substr(at));
        EXPECT_EQ(Hex(display.Answers()), Hex(kAccepted)) << "split at " << at;
        EXPECT_EQ(display.session.calls, "connected events ");
        // Half a magic may as well be text, and is shown.
        EXPECT_EQ(ScreenText(display.screen), at == 1 ? "\xC2\xBF" : "") << "split at " << at;
    }
}

TEST(WireFrameParser, CarriesOutRequestsThatComeByteByByte) {
    std::string bytes;
    for (const auto& row : kRequests)
        bytes += row.request.bytes;
    LocalDisplay whole;
    whole.Feed(kHandshake);
    whole.Feed(bytes);
    LocalDisplay slow;
    slow.Feed(kHandshake);
    for (const char byte : bytes)
        slow.Feed(std::string(1, byte));
    EXPECT_EQ(Fingerprint(slow), Fingerprint(whole));
    EXPECT_EQ(slow.screen.beeps, 1);
}

TEST(WireFrameParser, KeepsFramesLargerThanTheFirstBuffer) {
    const B large = B::Request(27, 3)
                        .Str(std::string(65535, 'a'))
                        .Str(std::string(65535, 'b'))
                        .Uni(std::string(65535, 'c'));
    const std::string bytes = (kHandshake + large + B::Request(23, 0)).bytes;
    LocalDisplay display;
    for (size_t at = 0; at < bytes.size(); at += 65535)
        display.Feed(bytes.substr(at, 65535));
    EXPECT_EQ(display.screen.beeps, 1);
}

TEST(WireFrameParser, ReadsFramesOfManyEmptyParameters) {
    B many = B::Request(27, 65535);
    for (int i = 0; i < 65535; i++)
        many.Parameter(1, "");
    LocalDisplay display;
    display.Feed(kHandshake + many + B::Request(23, 0));
    EXPECT_EQ(display.screen.beeps, 1);
}

TEST(WireFrameParser, ShowsTextBeforeTheHandshake) {
    LocalDisplay display;
    display.Feed("Password: ");
    // The last byte could begin a frame: it is shown and kept, and so comes again.
    EXPECT_EQ(ScreenText(display.screen), "Password:");
    display.Feed("x");
    EXPECT_EQ(ScreenText(display.screen), "Password:  x");
    EXPECT_EQ(Hex(display.Answers()), "");
    EXPECT_FALSE(display.connection->IsConnected());
}

TEST(WireFrameParser, ShowsTheLastByteOfEachPieceTwice) {
    LocalDisplay display;
    display.Feed("ab");
    display.Feed("cd");
    display.Feed("e");
    EXPECT_EQ(ScreenText(display.screen), "abbcdde");
}

TEST(WireFrameParser, DropsTextAfterTheHandshake) {
    LocalDisplay display;
    display.Feed(kHandshake);
    display.Feed("lost");
    display.Feed(B("also lost") + B::Request(23, 0) + B("and this"));
    EXPECT_EQ(ScreenText(display.screen), "");
    EXPECT_EQ(display.screen.beeps, 1);
}

TEST(WireFrameParser, DropsTextThatCameWithTheHandshake) {
    LocalDisplay display;
    display.Feed(B("Welcome") + kHandshake);
    EXPECT_EQ(ScreenText(display.screen), "");
    EXPECT_TRUE(display.connection->IsConnected());
}

TEST(WireFrameParser, TakesTheMagicInsideTextForAFrame) {
    LocalDisplay display;
    display.Feed(B("text ") + B::Request(23, 0) + B("more."));
    EXPECT_EQ(display.screen.beeps, 1);
    EXPECT_EQ(ScreenText(display.screen), "text more.");
}

TEST(WireFrameParser, ShowsTextWithNulsInIt) {
    LocalDisplay display;
    display.Feed("a\0b\0\0c\n"s);
    EXPECT_EQ(ScreenText(display.screen), "abc");
}

TEST(WireFrameParser, StallsAtAnUnknownParameterType) {
    LocalDisplay display;
    display.Feed(kHandshake);
    display.Answers();
    display.Feed(B::Request(23, 0) + B::Request(23, 1).Parameter(5, "x") + B::Request(23, 0));
    EXPECT_EQ(display.screen.beeps, 1);
    for (int i = 0; i < 1000; i++)
        display.Feed(B::Request(23, 0) + B::Request(6, 0));
    EXPECT_EQ(display.screen.beeps, 1);
    EXPECT_EQ(Hex(display.Answers()), "");
}

TEST(WireFrameParser, StallsWhereverTheUnknownTypeIsCut) {
    const std::string bytes =
        B::Request(23, 2).Int(1).Parameter(5, "x") + B::Request(23, 0) + B::Request(3, 0);
    for (size_t at = 1; at < bytes.size(); at++) {
        LocalDisplay display;
        display.Feed(kHandshake);
        display.Answers();
        display.Feed(bytes.substr(0, at));
        display.Feed(bytes.substr(at));
        EXPECT_EQ(display.screen.beeps, 0) << "cut at " << at;
        EXPECT_EQ(Hex(display.Answers()), "") << "cut at " << at;
    }
}

TEST(WireFrameParser, StallsBeforeTheHandshakeToo) {
    LocalDisplay display;
    display.Feed(B("before") + B::Request(11, 1).Parameter(9, "x") + B("behind"));
    EXPECT_EQ(ScreenText(display.screen), "before");
    display.Feed(B("later") + kHandshake);
    EXPECT_EQ(ScreenText(display.screen), "before");
    EXPECT_FALSE(display.connection->IsConnected());
    EXPECT_EQ(Hex(display.Answers()), "");
}

TEST(WireFrameParser, StallsAtAFrameThatNeverEnds) {
    LocalDisplay display;
    display.Feed(kHandshake);
    display.Feed(B::Request(27, 65535));
    const std::string filler = B().Str(std::string(65531, 'f'));
    for (int i = 0; i < 400; i++)  // 25 MB
        display.Feed(filler);
    display.Feed(B::Request(23, 0));
    EXPECT_EQ(display.screen.beeps, 0);
}

TEST(WireFrameParser, AnswersTheHandshakeOnceEventsCanLeave) {
    LocalDisplay display;
    EXPECT_EQ(Hex(display.Ask(kHandshake)), Hex(kAccepted));
    EXPECT_EQ(display.session.calls, "connected events ");
    EXPECT_TRUE(display.connection->IsConnected());
}

TEST(WireFrameParser, StartsEventsOnceHoweverOftenTheHandshakeComes) {
    LocalDisplay display;
    EXPECT_EQ(Hex(display.Ask(kHandshake + kHandshake)), Hex(kAccepted + kAccepted));
    display.Feed(B::Request(0, 1).Int(2));
    EXPECT_EQ(display.session.calls, "connected events wrong-version ");
}

TEST(WireFrameParser, RefusesOtherVersions) {
    const B requests[] = {B::Request(0, 1).Int(2), B::Request(0, 1).Int(0), B::Request(0, 0),
                          B::Request(0, 1).Str("1"), B::Request(0, 2).Attr(1).Int(1)};
    const B answer = B::Reply(1).Int(0) + B::Event(5).Ints({6, 0, 0, 0, 0}) +
                     B::Event(6).Ints({6, 0, 0, 0, 0, 0});
    for (const B& request : requests) {
        LocalDisplay display;
        EXPECT_EQ(Hex(display.Ask(request)), Hex(answer)) << Hex(request);
        EXPECT_EQ(display.session.calls, "connected events wrong-version ");
        // The session goes on until the far end closes it.
        display.Feed(B::Request(23, 0));
        EXPECT_EQ(display.screen.beeps, 1);
    }
}

TEST(WireFrameParser, AcceptsTheVersionAmongMoreParameters) {
    LocalDisplay display;
    EXPECT_EQ(Hex(display.Ask(B::Request(0, 2).Int(1).Str("later"))), Hex(kAccepted));
}

TEST(WireFrameParser, SendsEventsWithSixFields) {
    LocalDisplay display;
    EXPECT_TRUE(display.connection->SendEvent(TEvent{1, 2, -3, 400, 5, 0x1F600}));
    EXPECT_EQ(Hex(display.Answers()), Hex(B::Event(6).Ints({1, 2, -3, 400, 5, 0x1F600})));
}

TEST(WireFrameParser, LeavesHalfOfAFullPipeToAnswers) {
    LocalDisplay display;
    int sent = 0;
    while (sent < 100000 && display.connection->SendEvent(TEvent{0, sent, 0, 0, 0, 0}))
        sent++;
    EXPECT_GT(sent, 5000);
    EXPECT_LT(sent, 20000);
    display.Feed(B::Request(6, 0));
    const std::string size = B::Reply(2).Ints({80, 25});
    const std::string answers = display.Answers();
    ASSERT_GT(answers.size(), size.size());
    EXPECT_EQ(Hex(answers.substr(answers.size() - size.size())), Hex(size));
    EXPECT_TRUE(display.connection->SendEvent(TEvent{}));
}

// A far end that asks without reading: the answers wait until the user leaves.
TEST(WireFrameParser, EndsTheWaitForRoomWhenTheUserLeaves) {
    LocalDisplay display;
    std::string questions;
    for (int i = 0; i < 1000; i++)
        questions += B::Request(6, 0).bytes;
    std::thread user([&] {
        EXPECT_TRUE(Eventually([&] { return display.session.looks > 0; }));
        display.session.hasLeft = true;
    });
    for (int i = 0; i < 100; i++)
        display.Feed(questions);
    user.join();
    const size_t most = 100000 * B::Reply(2).Ints({80, 25}).bytes.size();
    const size_t got = display.Answers().size();
    EXPECT_GT(got, most / 10);
    EXPECT_LT(got, 1u << 20);
}

TEST(WireFrameParser, KeepsFramesOfSeveralWritersWhole) {
    LocalDisplay display;
    std::thread other([&] {
        for (int i = 0; i < 500; i++)
            EXPECT_TRUE(display.connection->SendEvent(TEvent{0, i, 0, 0, 0, 0}));
    });
    for (int i = 0; i < 500; i++)
        display.Feed(B::Request(6, 0));
    other.join();
    const std::string answers = display.Answers();
    const std::string size = B::Reply(2).Ints({80, 25});
    const size_t eventLength = B::Event(6).Ints({0, 0, 0, 0, 0, 0}).bytes.size();
    int replies = 0;
    int events = 0;
    for (size_t at = 0; at < answers.size();) {
        if (answers.compare(at, size.size(), size) == 0) {
            replies++;
            at += size.size();
        } else {
            const std::string event = B::Event(6).Ints({0, events, 0, 0, 0, 0});
            ASSERT_EQ(Hex(answers.substr(at, eventLength)), Hex(event));
            events++;
            at += eventLength;
        }
    }
    EXPECT_EQ(replies, 500);
    EXPECT_EQ(events, 500);
}

// Noise, cut anywhere, never breaks the console or the parser.
TEST(WireFrameParser, SurvivesNoise) {
    std::mt19937 random(4711);
    for (int round = 0; round < 300; round++) {
        LocalDisplay display(30, 8);
        std::string noise;
        for (int i = 0; i < 400; i++) {
            switch (random() % 8) {
                case 0:
                    noise +=
                        B::Request(static_cast<int>(random() % 30), static_cast<int>(random() % 6))
                            .bytes;
                    break;
                case 1:
                    noise += B().Int(static_cast<int>(random())).bytes;
                    break;
                case 2:
                    noise += B().Cells("ab", "cd").bytes;
                    break;
                case 3:
                    noise += B().Attr(static_cast<int>(random() % 256)).bytes;
                    break;
                default:
                    noise += static_cast<char>(random());
            }
        }
        for (size_t at = 0; at < noise.size();) {
            const size_t n = random() % 40 + 1;
            display.Feed(noise.substr(at, n));
            at += n;
        }
        display.Answers();
    }
}

}  // namespace
}  // namespace zt
