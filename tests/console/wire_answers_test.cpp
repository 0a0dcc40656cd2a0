// What the far end waits for, and what may come instead of it or in between.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <climits>
#include <csignal>
#include <cstdlib>

#include "tests/console/wire_by_hand.h"

namespace zt {
namespace {

using B = WireBytes;

B Key(int code) {
    return B::Event(6).Ints({0, code, 0, 0, 0, 0});
}

void ExpectKeys(ByHand& hand, const std::vector<int>& codes, const std::string& where) {
    ASSERT_TRUE(hand.Arrived(static_cast<int>(codes.size()))) << where;
    for (const int code : codes) {
        TEvent event;
        ASSERT_TRUE(hand.far->ReadEvent(event, 0)) << where;
        EXPECT_EQ(event.code, code) << where;
    }
    EXPECT_EQ(hand.far->PendingEvents(), 0) << where;
}

// A key in front of the reply and one behind it, in two pieces cut at every byte.
TEST(WireAnswers, FindTheirRequestAmongEventsCutAnywhere) {
    const std::string bytes = Key('a') + B::Reply(2).Int(1).Uni("\xC2\xBF\xC3\xBB") + Key('b');
    ByHand hand;
    hand.StartWell();
    for (size_t at = 1; at < bytes.size(); at++) {
        const std::string where = "cut at " + std::to_string(at);
        std::thread display([&] {
            EXPECT_EQ(Hex(hand.NextWrite()), Hex(B::Request(21, 0))) << where;
            hand.Send(bytes.substr(0, at));
            hand.Send(bytes.substr(at));
        });
        Westring text;
        EXPECT_TRUE(hand.far->GetClipboardText(text)) << where;
        EXPECT_STREQ(text.c_str(), L"\u00BF\u00FB") << where;
        display.join();
        ASSERT_NO_FATAL_FAILURE(ExpectKeys(hand, {'a', 'b'}, where));
    }
}

TEST(WireAnswers, ComeInTheOrderOfTheRequestsWithEventsBetweenThem) {
    ByHand hand;
    hand.StartWell();
    EXPECT_EQ(hand.far->Resize(90, 30, nullptr, 0), 1);
    hand.Writes();
    std::thread display([&] {
        hand.NextWrite();
        hand.Send(Key('a') + B::Reply(1).Int(1) + Key('b') + B::Reply(2).Int(1).Uni("text") +
                  Key('c'));
    });
    Westring text;
    EXPECT_TRUE(hand.far->GetClipboardText(text));
    EXPECT_STREQ(text.c_str(), L"text");
    display.join();
    ExpectKeys(hand, {'a', 'b', 'c'}, "");
}

// Payloads of the wrong length are passed over, and the parameter with them.
TEST(WireAnswers, AreRefusedWithoutTheirParameters) {
    const std::string five(5, '\1');
    for (const B& reply : {B::Reply(1).Parameter(0, five), B::Reply(1).Parameter(3, ""),
                           B::Reply(1).Parameter(4, "no end")}) {
        ByHand hand;
        EXPECT_EQ(hand.Start(reply), RemoteStart::kWrongVersion) << Hex(reply);
    }
    ByHand hand;
    EXPECT_EQ(hand.Start(kAccepted, B::Reply(2).Parameter(0, five).Int(80)), RemoteStart::kNoSize);
}

TEST(WireAnswers, AreNotAwaitedForEver) {
    ByHand hand({.handshakeMilliseconds = 20});
    EXPECT_EQ(hand.far->Start(), RemoteStart::kNoAnswer);
    EXPECT_EQ(Hex(hand.NextWrite()), Hex(kHello));
}

TEST(WireAnswers, AreNotAwaitedFromADisplayThatTakesNothing) {
    int input[2], output[2];
    ASSERT_EQ(pipe2(input, O_CLOEXEC), 0);
    ASSERT_EQ(pipe2(output, O_CLOEXEC), 0);
    close(output[0]);
    {
        RemoteConsole far(input[0], output[1], {.handshakeMilliseconds = INT_MAX});
        EXPECT_EQ(far.Start(), RemoteStart::kNoAnswer);
    }
    for (const int descriptor : {input[0], input[1], output[1]})
        close(descriptor);
}

TEST(WireFarEnd, LeavesItsProgramsTheSignalOfBrokenPipes) {
    ByHand hand;
    hand.StartWell();
    EXPECT_EQ(raise(SIGPIPE), 0);  // would end the test
    const int status = std::system("kill -PIPE $$; exit 0");
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGPIPE);
}

}  // namespace
}  // namespace zt
