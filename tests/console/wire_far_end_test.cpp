// The far end byte by byte: what it sends for each call, what it makes of what comes, and its end.
// The test itself plays the display.
#include <gtest/gtest.h>

#include "console/read_key.h"
#include "foundation/file_name.h"
#include "tests/console/wire_by_hand.h"

namespace zt {
namespace {

using namespace std::string_literals;
using B = WireBytes;

TEST(WireFarEnd, StartsWithHandshakeAndSizeAndWipesTheDisplay) {
    ByHand hand;
    ASSERT_EQ(hand.Start(kAccepted, B::Reply(2).Ints({100, 40})), RemoteStart::kStarted);
    EXPECT_EQ(Hex(hand.asked), Hex(kHello + kSizeQuestion));
    EXPECT_EQ(hand.Writes(), Hex(B::Request(14, 1).Attr(7) + B::Request(8, 0)) + "\n" +
                                 Hex(B::Request(4, 2).Ints({0, 0}) + B::Request(12, 1).Int(0) +
                                     B::Request(26, 0)));
    int columns = 0, rows = 0;
    hand.far->GetSize(columns, rows);
    EXPECT_EQ(columns, 100);
    EXPECT_EQ(rows, 40);
}

TEST(WireFarEnd, RefusesAnythingButAcceptance) {
    for (const B& reply : {B::Reply(1).Int(0), B::Reply(1).Int(2), B::Reply(1).Int(-1), B::Reply(0),
                           B::Reply(1).Str("1"), B::Reply(2).Attr(1).Int(1)}) {
        ByHand hand;
        EXPECT_EQ(hand.Start(reply), RemoteStart::kWrongVersion) << Hex(reply);
        EXPECT_EQ(Hex(hand.asked), Hex(kHello));
        EXPECT_EQ(hand.Writes(), "");
        hand.far->WriteWide(0, 0, L"not for anybody", 7);
        hand.far->Beep();
        EXPECT_EQ(hand.Writes(), "");
    }
}

TEST(WireFarEnd, ReportsAnInputThatEnds) {
    ByHand hand;
    EXPECT_EQ(hand.Start(""), RemoteStart::kNoAnswer);
    EXPECT_STRNE(DescribeRemoteStart(RemoteStart::kNoAnswer), "");
}

TEST(WireFarEnd, RefusesSizesThatNoGridHas) {
    for (const B& reply :
         {B::Reply(2).Ints({0, 25}), B::Reply(2).Ints({80, -1}), B::Reply(2).Ints({5000, 25}),
          B::Reply(1).Int(80), B::Reply(0), B::Reply(2).Str("80").Int(25)}) {
        ByHand hand;
        EXPECT_EQ(hand.Start(kAccepted, reply), RemoteStart::kNoSize) << Hex(reply);
    }
}

TEST(WireFarEnd, TakesEventsBeforeAndBetweenReplies) {
    ByHand hand;
    const auto key = [](int code) { return B::Event(6).Ints({0, code, 0, 0, 0, 0}); };
    ASSERT_EQ(hand.Start(key('a') + kAccepted + key('b'),
                         key('c') + B::Reply(2).Ints({80, 25}) + key('d')),
              RemoteStart::kStarted);
    ASSERT_TRUE(hand.Arrived(4));
    for (const int code : {'a', 'b', 'c', 'd'}) {
        TEvent event;
        ASSERT_TRUE(hand.far->ReadEvent(event, 0));
        EXPECT_EQ(event.code, code);
    }
}

TEST(WireFarEnd, SendsEachChangeAtOnce) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    far.WriteWide(3, 4, L"some longer text", 0x1B);
    EXPECT_EQ(hand.Writes(),
              Hex(B::Request(15, 4).Ints({3, 4}).Uni("some longer text").Attr(0x1B)));
    far.WriteWide(3, 4, L"some longer text", 0x1B);
    EXPECT_EQ(hand.Writes(), "");
    far.SetCursor(5, 6);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(4, 2).Ints({5, 6})));
    far.SetCursor(5, 6);
    EXPECT_EQ(hand.Writes(), "");
    far.SetCursorSize(15);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(12, 1).Int(15)));
    far.SetFillAttribute(0x30);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(14, 1).Attr(0x30)));
    far.SetCodePage(1252);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(5, 1).Int(1252)));
    far.SetCodePage(0);
    EXPECT_EQ(hand.Writes(), "");
    far.Beep();
    EXPECT_EQ(hand.Writes(), Hex(B::Request(23, 0)));
    far.SetTitle(NameFromBytes("a\xE9"));
    EXPECT_EQ(hand.Writes(), Hex(B::Request(11, 1).Uni("a\xC3\xA9")));
    far.SetTitle(NameFromBytes("a\xE9"));
    EXPECT_EQ(hand.Writes(), "");
    far.SetTitleBytes("");
    EXPECT_EQ(hand.Writes(), Hex(B::Request(11, 1).Uni("")));
    far.SetClipboardText(L"\u2551");
    EXPECT_EQ(hand.Writes(), Hex(B::Request(20, 1).Uni("\xE2\x95\x91")));
    far.Clear();
    EXPECT_EQ(hand.Writes(), Hex(B::Request(8, 0)));
    EstringStore icons;
    far.SetIconList(icons);
    far.Invalidate(0, 0, 80, 25);
    EXPECT_EQ(hand.Writes(), "");
}

TEST(WireFarEnd, SendsTheSelectableRectangle) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    const std::string set = Hex(B::Request(24, 4).Ints({1, 2, 11, 5}));
    far.SetSelectableRect(1, 2, 10, 3, false);
    EXPECT_EQ(hand.Writes(), set);
    far.SetSelectableRect(CellRect{1, 2, 11, 5}, false);
    EXPECT_EQ(hand.Writes(), "");
    far.SetSelectableRect(CellRect{1, 2, 11, 5}, true);  // drops what the display may show
    EXPECT_EQ(hand.Writes(), set);
    far.ClearSelectableRect();
    EXPECT_EQ(hand.Writes(), Hex(B::Request(26, 0)));
    far.SetSelectableRect(CellRect{}, true);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(24, 4).Ints({0, 0, 0, 0})));
}

TEST(WireFarEnd, SendsNothingBeforeTheLastThaw) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    far.BeginUpdate();
    far.BeginUpdate();
    far.WriteWide(0, 0, L"first words", 0x1B);
    far.WriteWide(9, 0, L"second words", 0x1B);
    far.SetCursor(7, 8);
    far.SetTitle("title");
    far.SetCursorSize(50);
    far.SetCursorSize(0);
    far.SetFillAttribute(0x21);
    far.EndUpdate();
    EXPECT_EQ(hand.Writes(), "");
    far.WriteWide(20, 0, L"! ", 0x1B);
    far.EndUpdate();
    // One write; one frame of cells needs no freeze; what stands in the end is what goes.
    EXPECT_EQ(hand.Writes(),
              Hex(B::Request(14, 1).Attr(0x21) +
                  B::Request(15, 4).Ints({0, 0}).Uni("first worsecond word! ").Attr(0x1B) +
                  B::Request(4, 2).Ints({7, 8}) + B::Request(11, 1).Uni("title")));
    far.BeginUpdate();
    far.WriteWide(0, 0, L"x", 0x1B);
    far.WriteWide(0, 0, L"f", 0x1B);
    far.EndUpdate();
    EXPECT_EQ(hand.Writes(), "");
}

TEST(WireFarEnd, FreezesTheDisplayForSeveralFrames) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    far.BeginUpdate();
    far.WriteWide(0, 0, L"a", 0x1B);
    far.WriteWide(79, 24, L"b", 0x1B);
    far.SetCursor(1, 0);
    far.EndUpdate();
    EXPECT_EQ(hand.Writes(),
              Hex(B::Request(1, 0) + B::Request(15, 3).Ints({0, 0}).Cells("a", "\x1B") +
                  B::Request(15, 3).Ints({79, 24}).Cells("b", "\x1B") +
                  B::Request(4, 2).Ints({1, 0}) + B::Request(2, 0)));
}

TEST(WireFarEnd, SendsScrollsThatPay) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    for (int row = 0; row < 18; row++)
        far.WriteWide(1, row + 1, (L"file " + std::to_wstring(row * 98765)).c_str(), 0x1B);
    hand.Writes();
    far.ScrollUp(1, 1, 38, 18, 2, 0x1B);
    EXPECT_EQ(hand.Writes().substr(0, 3 * 51 - 1),
              Hex(B::Request(9, 6).Ints({1, 1, 38, 18, 2}).Attr(0x1B)));
    far.ScrollDown(1, 1, 38, 18, 1, 0x1B);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(10, 6).Ints({1, 1, 38, 18, 1}).Attr(0x1B)));
    far.ScrollUp(40, 1, 38, 18, 1, 7);  // blank before and after
    EXPECT_EQ(hand.Writes(), "");
}

TEST(WireFarEnd, SendsTeletypeTextInOneWrite) {
    ByHand hand;
    hand.StartWell(20, 4);
    hand.far->WriteStream("one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n");
    const std::string writes = hand.Writes();
    EXPECT_NE(writes, "");
    EXPECT_EQ(writes.find('\n'), std::string::npos) << writes;
}

TEST(WireFarEnd, SendsLargeUpdatesInOneWrite) {
    ByHand hand;
    hand.StartWell();
    std::vector<Cell> cells;
    for (int i = 0; i < 2000; i++)
        cells.push_back({static_cast<uint32_t>(0x2550 + i % 29), static_cast<Attribute>(i % 251)});
    hand.far->WriteCells(0, 0, 80, 25, cells.data());
    const std::string writes = hand.Writes();
    EXPECT_GT(writes.size(), 3u * 8000);
    EXPECT_EQ(writes.find('\n'), std::string::npos);
}

TEST(WireFarEnd, ResizesWithoutWaiting) {
    ByHand hand;
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    far.WriteWide(0, 0, L"x", 0x1B);
    hand.Writes();
    EXPECT_EQ(far.Resize(90, 30, "Mono", 14), 1);
    EXPECT_EQ(hand.Writes(), Hex(B::Request(7, 4).Ints({90, 30}).Str("Mono").Int(14)) + "\n" +
                                 Hex(B::Request(4, 2).Ints({0, 0}) + B::Request(12, 1).Int(0)));
    EXPECT_EQ(far.Resize(91, 31, nullptr, 0), 1);
    EXPECT_EQ(hand.Writes().substr(0, 3 * 22 - 1), Hex(B::Request(7, 2).Ints({91, 31})));
    EXPECT_EQ(far.Resize(0, 31, nullptr, 0), 0);
    EXPECT_EQ(far.Resize(91, 100000, nullptr, 0), 0);
    EXPECT_EQ(hand.Writes(), "");
    // Both replies are taken off before that of the clipboard.
    hand.Send(B::Reply(1).Int(1) + B::Reply(1).Int(1));
    std::thread display([&] {
        hand.NextWrite();
        hand.Send(B::Reply(2).Int(1).Uni("text"));
    });
    Westring text;
    EXPECT_TRUE(far.GetClipboardText(text));
    EXPECT_STREQ(text.c_str(), L"text");
    display.join();
}

TEST(WireFarEnd, WaitsForTheClipboardOnly) {
    ByHand hand({.clipboardMilliseconds = 20});
    hand.StartWell();
    RemoteConsole& far = *hand.far;
    // Nobody answers: all of this returns nevertheless.
    int a = 0, b = 0;
    far.GetSize(a, b);
    far.GetCursor(a, b);
    far.GetCursorSize();
    far.GetSelectableRect();
    delete[] far.ReadCells(0, 0, 80, 25);
    CellString cells;
    far.ReadCellString(0, 0, 80, 25, cells);
    far.Resize(80, 25, nullptr, 0);
    hand.Writes();
    Westring text = L"as it was";
    EXPECT_FALSE(far.GetClipboardText(text));
    EXPECT_EQ(hand.Writes(), Hex(B::Request(21, 0)));
    EXPECT_STREQ(text.c_str(), L"as it was");
}

TEST(WireFarEnd, GivesALateReplyToNobody) {
    ByHand hand({.clipboardMilliseconds = 500});
    hand.StartWell();
    Westring text;
    EXPECT_FALSE(hand.far->GetClipboardText(text));
    hand.Writes();
    hand.Send(B::Reply(2).Int(1).Uni("late"));
    hand.Send(B::Event(6).Ints({0, 'k', 0, 0, 0, 0}));
    ASSERT_TRUE(hand.Arrived(1));  // and so the late reply has been read
    std::thread display([&] {
        hand.NextWrite();
        hand.Send(B::Reply(2).Int(1).Uni("fresh"));
    });
    EXPECT_TRUE(hand.far->GetClipboardText(text));
    EXPECT_STREQ(text.c_str(), L"fresh");
    display.join();
}

TEST(WireFarEnd, RefusesClipboardRepliesOfOtherForms) {
    for (const B& reply : {B::Reply(0), B::Reply(1).Int(1), B::Reply(2).Int(0).Uni("x"),
                           B::Reply(2).Int(1).Str("x"), B::Reply(2).Uni("x").Int(1)}) {
        ByHand hand;
        hand.StartWell();
        std::thread display([&] {
            hand.NextWrite();
            hand.Send(reply);
        });
        Westring text;
        EXPECT_FALSE(hand.far->GetClipboardText(text)) << Hex(reply);
        display.join();
    }
}

TEST(WireFarEnd, EndsAClipboardReadAtTheEndOfInput) {
    ByHand hand({.clipboardMilliseconds = 60000});
    hand.StartWell();
    std::thread display([&] {
        hand.NextWrite();
        hand.HangUp();
    });
    Westring text;
    EXPECT_FALSE(hand.far->GetClipboardText(text));
    display.join();
    EXPECT_FALSE(hand.far->GetClipboardText(text));
}

TEST(WireFarEnd, IgnoresRepliesThatNobodyExpects) {
    ByHand hand;
    hand.StartWell();
    for (int i = 0; i < 100; i++)
        hand.Send(B::Reply(1).Int(i));
    hand.Send(B::Event(6).Ints({0, 'x', 0, 0, 0, 0}));
    ASSERT_TRUE(hand.Arrived(1));
}

TEST(WireFarEnd, SurvivesNoiseOnItsInput) {
    ByHand hand;
    hand.StartWell();
    hand.Send("noise \xBF\xFB\xFF\xFF \xDF\xFD\x01\x00\x09\x00\x01\x00 \xDF"s);
    hand.Send(B::Event(6).Ints({0, 'x', 0, 0, 0, 0}));
    ASSERT_TRUE(hand.Arrived(1));
    TEvent event;
    ASSERT_TRUE(hand.far->ReadEvent(event, 0));
    EXPECT_EQ(event.code, 'x');
}

TEST(WireFarEnd, KeepsTheModifiersOfTheDisplaysKeys) {
    ByHand hand;
    hand.StartWell();
    modifiersLive = 0;
    hand.Send(B::Event(6).Ints({0, 0x10100, 6, 0, 0, 0}));
    ASSERT_TRUE(hand.Arrived(1));
    EXPECT_EQ(modifiersLive, 6);
    hand.Send(B::Event(6).Ints({3, 1, 1, 4, 5, 0}));  // the mouse does not tell of keys
    ASSERT_TRUE(hand.Arrived(2));
    EXPECT_EQ(modifiersLive, 6);
    modifiersLive = 0;
}

TEST(WireFarEnd, GivesTheQuitKeyForEverAfterTheEnd) {
    ByHand hand;
    hand.StartWell();
    IConsole* const before = console;
    console = hand.far.get();
    modifiersLive = modifiersSeen = 0;
    quitSeen = false;
    hand.Send(B::Event(6).Ints({0, 'x', 0, 0, 0, 0}));
    hand.HangUp();
    EXPECT_EQ(ReadKey(nullptr, -1), 'x');
    for (const int timeout : {-1, 0, -1, 0}) {
        quitSeen = false;  // the console itself tells it each time
        EXPECT_EQ(ReadKey(nullptr, timeout), 0x800001);
        quitSeen = false;
        EXPECT_TRUE(KeyWaiting());
    }
    console = before;
}

TEST(WireFarEnd, GoesOnWhenNobodyReadsWhatItSends) {
    ByHand hand;
    hand.StartWell();
    hand.HangUp();
    for (int i = 0; i < 100; i++)
        hand.far->WriteWide(0, i % 25, std::to_wstring(i).c_str(), 7);
    hand.far->Beep();
    CellString cells;
    hand.far->ReadCellString(0, 24, 2, 1, cells);
    EXPECT_EQ(cells.At(0).character, static_cast<uint32_t>('9'));
    TEvent event;
    EXPECT_TRUE(hand.far->ReadEvent(event, -1));
    EXPECT_EQ(event.kind, 6);
}

class RecordingSink : public ITerminalSink {
public:
    void TakeKey(int32_t code, int32_t modifiers, int32_t unicode) override {
        Add("key " + std::to_string(code) + " " + std::to_string(modifiers) + " " +
            std::to_string(unicode));
    }
    void TakeCharacter(int32_t character) override { Add("char " + std::to_string(character)); }
    void TakeText(const char* utf8) override { Add(utf8); }
    std::string Log() {
        const std::lock_guard<std::mutex> hold(lock_);
        return log_;
    }

private:
    void Add(const std::string& what) {
        const std::lock_guard<std::mutex> hold(lock_);
        log_ += what + ";";
    }
    std::mutex lock_;
    std::string log_;
};

TEST(WireFarEnd, GivesKeysToTheEmbeddedTerminal) {
    ByHand hand;
    hand.StartWell();
    RecordingSink sink;
    hand.far->SetTerminalSink(&sink);
    hand.Send(B::Event(6).Ints({0, 0x1003B, 4, 0, 0, 0}) +
              B::Event(6).Ints({0, 0xE9, 0, 0, 0, 0xE9}) + B::Event(6).Ints({1, 1, 0, 3, 3, 0}) +
              B::Event(6).Ints({6, 0, 0, 0, 0, 0}));
    ASSERT_TRUE(hand.Arrived(1));
    EXPECT_EQ(hand.far->PendingEvents(), 1);  // the quit event
    EXPECT_EQ(sink.Log(), "key 65595 4 0;char 233;");
    hand.far->WriteStream("to it");
    EXPECT_EQ(sink.Log(), "key 65595 4 0;char 233;to it;");
    hand.far->SetTerminalSink(nullptr);
}

}  // namespace
}  // namespace zt
