// The test display itself: what programs send it by hand-made bytes.
#include "tests/support/display.h"

namespace zt::headless {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

WireValue Number(int value) {
    return WireValue::Integer(value);
}

WireValue Colour(int value) {
    WireValue out;
    out.type = WireType::kAttribute;
    out.integer = value;
    return out;
}

WireValue Bytes(std::string value) {
    WireValue out;
    out.type = WireType::kBytes;
    out.bytes = std::move(value);
    return out;
}

class DisplayTest : public testing::Test {
protected:
    DisplayTest() { Ask(0, {Number(1)}); }

    std::string Ask(int opcode, const std::vector<WireValue>& values) {
        return display.Take(EncodeRequest(opcode, values));
    }

    Display display{20, 5};
};

TEST(DisplayBytes, TakesAHandMadeHandshake) {
    Display display(80, 25);
    using namespace std::string_literals;
    // BF FB, opcode 0, one parameter: type 0, length 4, value 1.
    EXPECT_EQ("\xBF\xFB\x01\0\0\0\x04\0\x01\0\0\0"s,
              display.Take("\xBF\xFB\0\0\x01\0\0\0\x04\0\x01\0\0\0"s));
    EXPECT_TRUE(display.Connected());
    EXPECT_EQ(1, display.ProtocolVersion());
}

TEST(DisplayBytes, EncodesAnEventAsSixIntegers) {
    using namespace std::string_literals;
    EXPECT_EQ(
        "\xDF\xFD\x06\0"
        "\0\0\x04\0\0\0\0\0"
        "\0\0\x04\0\x44\0\x01\0"
        "\0\0\x04\0\x02\0\0\0"
        "\0\0\x04\0\x03\0\0\0"
        "\0\0\x04\0\xFF\xFF\xFF\xFF"
        "\0\0\x04\0\x61\0\0\0"s,
        EncodeEvent({0, 0x10044, 2, 3, -1, 'a'}));
}

TEST(DisplayBytes, CarriesOutARequestSplitAtEachByte) {
    const std::string frames =
        EncodeRequest(0, {Number(1)}) +
        EncodeRequest(15, {Number(2), Number(1), Bytes("ab"), Colour(0x1E)}) + EncodeRequest(6, {});
    for (size_t split = 0; split <= frames.size(); split++) {
        Display display(20, 5);
        std::string replies = display.Take(frames.substr(0, split));
        replies += display.Take(frames.substr(split));
        EXPECT_EQ("  ab ", display.Grid().Text(0, 1, 5)) << split;
        EXPECT_EQ(EncodeReply({Number(1)}) + EncodeReply({Number(20), Number(5)}), replies);
        EXPECT_EQ(3, display.SinceReset().requests);
        EXPECT_THAT(display.Problems(), IsEmpty());
    }
}

TEST_F(DisplayTest, NamesWhatACarefulPeerWouldNotSend) {
    const std::string frames[] = {
        "text outside of frames",
        EncodeRequest(27, {}),
        EncodeRequest(8, {Number(0)}),
        EncodeRequest(17, {Number(0), Number(0), Number(1), Number(7)}),  // a number as attribute
        EncodeRequest(2, {}),
        EncodeRequest(0, {Number(1)}),
        EncodeRequest(22, {Bytes("\xFF")}),
        EncodeRequest(19, {Number(0), Number(0), Number(2), Number(1), WireValue::Cells({{}})}),
        std::string("\xBF\xFB\x17\0\x01\0\x05\0\0\0", 10),        // a type that does not exist
        std::string("\xBF\xFB\x0C\0\x01\0\0\0\x02\0\x0F\0", 12),  // an integer of two bytes
        std::string("\xBF\xFB\x0B\0\x01\0\x02\0\x01\0\xC3", 11),  // half a character
        std::string("\xBF\xFB\x0F\0\x01\0\x04\0\x02\0ab", 12),    // cells without their end
    };
    for (const std::string& frame : frames) {
        Display peer(20, 5);
        peer.Take(EncodeRequest(0, {Number(1)}));
        ASSERT_THAT(peer.Problems(), IsEmpty());
        peer.Take(frame);
        EXPECT_THAT(peer.Problems(), SizeIs(1)) << testing::PrintToString(frame);
    }
}

TEST(DisplayBytes, MissesTheHandshake) {
    Display display(20, 5);
    display.Take(EncodeRequest(6, {}));
    EXPECT_THAT(display.Problems(), SizeIs(1));
}

TEST_F(DisplayTest, RefusesAnotherVersion) {
    Display peer(20, 5);
    EXPECT_EQ(EncodeReply({Number(0)}), peer.Take(EncodeRequest(0, {Number(2)})));
}

TEST_F(DisplayTest, WritesTextCutAtTheRightEdge) {
    Ask(15, {Number(17), Number(0), WireValue::Text(U"ä中xyz"), Colour(0x2F)});
    EXPECT_EQ(" ä中x", display.Grid().Text(16, 0, 4));
    EXPECT_EQ(0x2F, display.Grid().At(19, 0).attribute);
    EXPECT_EQ(ScreenCell{}, display.Grid().At(0, 1));
}

TEST_F(DisplayTest, DecodesBytesInItsCodePage) {
    Ask(15, {Number(0), Number(0), Bytes("\x84"), Colour(7)});
    Ask(5, {Number(1252)});
    Ask(15, {Number(1), Number(0), Bytes("\xE4"), Colour(7)});
    EXPECT_EQ("ää", display.Grid().Text(0, 0, 2));
}

TEST_F(DisplayTest, ShowsControlCharactersAsGlyphsButKeepsCellsAsTheyAre) {
    const std::vector<ScreenCell> cells = {{0x10, 7}, {0x7F, 7}, {0x9F, 7}};
    Ask(15, {Number(0), Number(0), WireValue::Cells(cells)});
    EXPECT_EQ("►⌂⌂", display.Grid().Text(0, 0, 3));
    Ask(16, {Number(0), Number(1), Number(2), WireValue::Cells({{0x1F, 3}})});
    EXPECT_EQ("▼▼ ", display.Grid().Text(0, 1, 3));
    Ask(19, {Number(0), Number(2), Number(3), Number(1), WireValue::Cells(cells)});
    EXPECT_EQ(U'\x7F', display.Grid().At(1, 2).character);
}

TEST_F(DisplayTest, FillsClearsAndColours) {
    Ask(8, {Number(1), Number(1), Number(2), Number(2), Colour(0x30)});
    EXPECT_EQ((ScreenCell{U' ', 0x30}), display.Grid().At(2, 2));
    EXPECT_EQ(ScreenCell{}, display.Grid().At(3, 2));
    Ask(17, {Number(18), Number(0), Number(9), Colour(0x4E)});
    EXPECT_EQ(0x4E, display.Grid().At(19, 0).attribute);
    EXPECT_EQ(7, display.Grid().At(0, 1).attribute);
    Ask(14, {Colour(0x17)});
    Ask(8, {});
    EXPECT_EQ((ScreenCell{U' ', 0x17}), display.Grid().At(19, 4));
}

TEST_F(DisplayTest, ScrollsARectangleBothWays) {
    for (int row = 0; row < 5; row++) {
        Ask(15, {Number(0), Number(row), Bytes(std::string(3, static_cast<char>('a' + row))),
                 Colour(7)});
    }
    Ask(9, {Number(1), Number(1), Number(1), Number(3), Number(1), Colour(0x20)});
    EXPECT_EQ("bcb", display.Grid().Text(0, 1, 3));
    EXPECT_EQ("d d", display.Grid().Text(0, 3, 3));
    EXPECT_EQ(0x20, display.Grid().At(1, 3).attribute);
    Ask(10, {Number(1), Number(1), Number(1), Number(3), Number(2), Colour(7)});
    EXPECT_EQ("b b", display.Grid().Text(0, 1, 3));
    EXPECT_EQ("dcd", display.Grid().Text(0, 3, 3));
}

TEST_F(DisplayTest, StreamsLikeATeletype) {
    Ask(4, {Number(0), Number(3)});
    Ask(14, {Colour(2)});
    Ask(22, {Bytes("a\tb\rc\bd\n12345678901234567890x\ny")});
    EXPECT_EQ("12345678901234567890", display.Grid().Text(0, 2, 20));
    EXPECT_EQ("x ", display.Grid().Text(0, 3, 2));
    EXPECT_EQ("y ", display.Grid().Text(0, 4, 2));
    EXPECT_EQ("d       b", display.Grid().Text(0, 1, 9));
    EXPECT_EQ(1, display.CursorColumn());
    EXPECT_EQ(4, display.CursorRow());
}

TEST_F(DisplayTest, AnswersQueries) {
    Ask(4, {Number(7), Number(3)});
    EXPECT_EQ(EncodeReply({Number(7), Number(3)}), Ask(3, {}));
    Ask(12, {Number(15)});
    EXPECT_EQ(EncodeReply({Number(15)}), Ask(13, {}));
    EXPECT_EQ(EncodeReply({Number(20), Number(5)}), Ask(6, {}));
    Ask(15, {Number(0), Number(0), Bytes("xy"), Colour(0x1B)});
    EXPECT_EQ(EncodeReply({WireValue::Cells({{U'x', 0x1B}, {U'y', 0x1B}, {}, {}})}),
              Ask(18, {Number(0), Number(0), Number(2), Number(2)}));
    Ask(20, {WireValue::Text(U"ü\n")});
    EXPECT_EQ("ü\n", display.Clipboard());
    EXPECT_EQ(EncodeReply({Number(1), WireValue::Text(U"ü\n")}), Ask(21, {}));
    Ask(24, {Number(0), Number(1), Number(20), Number(4)});
    EXPECT_EQ(EncodeReply({Number(0), Number(1), Number(20), Number(4)}), Ask(25, {}));
    Ask(26, {});
    EXPECT_EQ(EncodeReply({Number(0), Number(0), Number(0), Number(0)}), Ask(25, {}));
    EXPECT_EQ(EncodeReply({Number(1)}), Ask(7, {Number(30), Number(6)}));
    EXPECT_EQ(EncodeReply({Number(30), Number(6)}), Ask(6, {}));
    EXPECT_EQ(EncodeReply({Number(0)}), Ask(7, {Number(0), Number(6), Bytes(""), Number(0)}));
}

TEST_F(DisplayTest, CountsWhatChanged) {
    display.ResetTraffic();
    Ask(15, {Number(0), Number(0), Bytes("ab"), Colour(7)});
    Ask(15, {Number(0), Number(0), Bytes("ac"), Colour(7)});
    EXPECT_EQ(3, display.SinceReset().changedCells);
    EXPECT_EQ(2, display.SinceReset().requests);
    Ask(12, {Number(15)});
    Ask(12, {Number(0)});
    EXPECT_EQ(1, display.SinceReset().cursorShown);
    EXPECT_EQ(1, display.SinceReset().cursorHidden);
}

}  // namespace
}  // namespace zt::headless
