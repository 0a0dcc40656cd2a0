// Parameters as bytes: what is written, byte for byte, and what a reader makes of every length.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "console/wire/frame_buffer.h"
#include "console/wire/frame_writer.h"
#include "console/wire/parameter_reader.h"
#include "foundation/file_name.h"
#include "tests/console/wire_bytes.h"

namespace zt {
namespace {

using namespace std::string_literals;

std::string BytesOf(const FrameBuffer& frame) {
    return {reinterpret_cast<const char*>(frame.Data()), static_cast<size_t>(frame.Size())};
}

ReadResult Read(const std::string& bytes, int count, CParameterList& list, int& length) {
    return ReadParameters(reinterpret_cast<const uint8_t*>(bytes.data()),
                          static_cast<int>(bytes.size()), count, list, length);
}

// Frames through the buffered file into a pipe and back.
class WireFrameWriter : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        ASSERT_EQ(fcntl(ends[1], F_SETPIPE_SZ, 1 << 20), 1 << 20);
        output.Attach(ends[1]);
    }
    void TearDown() override { close(ends[0]); }
    std::string Written() {
        std::string bytes(1 << 20, '\0');
        const ssize_t got = read(ends[0], bytes.data(), bytes.size());
        bytes.resize(got > 0 ? static_cast<size_t>(got) : 0);
        return bytes;
    }

    int ends[2];
    StdFile output;
    CRecursiveMutex lock;
    FrameWriter writer{output, lock};
};

TEST_F(WireFrameWriter, WritesEveryParameterType) {
    CParameterList list;
    list.AddInteger(-2);
    list.AddString("a\xE9");
    list.AddUnicodeString(L"\u00E9\u2551\U0001F600");
    list.AddAttribute(0x9F);
    CellString cells(0x1B);
    cells.Append(Cell{U'x', 0x1B});
    cells.Append(Cell{0x2551, 0x30});
    list.AddCellString(cells);
    writer.WriteReply(list);
    const std::string expected =
        "\xBF\xFB\x05\x00"s
        "\x00\x00\x04\x00\xFE\xFF\xFF\xFF"s
        "\x01\x00\x02\x00"
        "a\xE9"s
        "\x02\x00\x09\x00\xC3\xA9\xE2\x95\x91\xF0\x9F\x98\x80"s
        "\x03\x00\x01\x00\x9F"s
        "\x04\x00\x07\x00x\xE2\x95\x91\x00\x1B\x30"s;
    EXPECT_EQ(Hex(Written()), Hex(expected));
}

TEST_F(WireFrameWriter, WritesRequestsAndEventsWithTheirMagics) {
    CParameterList list;
    list.AddInteger(1);
    writer.WriteRequest(Opcode::kHandshake, list);
    EXPECT_EQ(Hex(Written()), Hex(WireBytes::Request(0, 1).Int(1)));
    writer.WriteEvent(list);
    EXPECT_EQ(Hex(Written()), Hex(WireBytes::Event(1).Int(1)));
}

TEST_F(WireFrameWriter, WritesFramesLongerThanTheFileBuffer) {
    CParameterList list;
    const std::string text(60000, 'q');
    list.AddUnicodeString(text.c_str());
    writer.WriteReply(list);
    EXPECT_TRUE(Written() == WireBytes::Reply(1).Uni(text).bytes);
}

TEST_F(WireFrameWriter, KeepsQuietWhenThereIsNoReader) {
    close(ends[0]);
    CParameterList list;
    list.AddInteger(7);
    writer.WriteReply(list);  // a signal would end the test here
    EXPECT_EQ(output.LastError(), EPIPE);
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    close(ends[1]);
}

TEST(WireFrameBuffer, WritesTheSameBytesAsTheParameters) {
    FrameBuffer frame;
    frame.BeginRequest(Opcode::kWriteText, 4);
    frame.AddInteger(0x12345678);
    frame.AddInteger(-1);
    frame.AddUnicodeString(L"\u00E9");
    frame.AddAttribute(7);
    EXPECT_EQ(Hex(BytesOf(frame)),
              Hex(WireBytes::Request(15, 4).Int(0x12345678).Int(-1).Uni("\xC3\xA9").Attr(7)));
}

TEST(WireFrameBuffer, SendsPrivateCodesAsTheCharactersTheyShowAs) {
    FrameBuffer frame;
    frame.AddUnicodeString(NameFromBytes("a\xE9z"));
    EXPECT_EQ(Hex(BytesOf(frame)), Hex(WireBytes().Uni("a\xC3\xA9z")));
    frame.Clear();
    const Cell cell{static_cast<uint32_t>(kRawByteBase + 0xFF), 7};
    frame.AddCellString(&cell, 1);
    EXPECT_EQ(Hex(BytesOf(frame)), Hex(WireBytes().Cells("\xC3\xBF", "\x07")));
}

TEST(WireFrameBuffer, SendsAZeroCellAsABlank) {
    const Cell cells[] = {{U'a', 1}, {0, 2}, {U'b', 3}};
    FrameBuffer frame;
    EXPECT_EQ(frame.AddCellString(cells, 3), 3);
    EXPECT_EQ(Hex(BytesOf(frame)), Hex(WireBytes().Cells("a b", "\x01\x02\x03")));
}

TEST(WireFrameBuffer, SendsWhatIsNoCharacterAsTheSignForIt) {
    for (uint32_t code : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        const Cell cell{code, 7};
        FrameBuffer frame;
        frame.AddCellString(&cell, 1);
        EXPECT_EQ(Hex(BytesOf(frame)), Hex(WireBytes().Cells("\xEF\xBF\xBD", "\x07"))) << code;
    }
}

TEST(WireFrameBuffer, CutsLongTextAtTheEndOfACharacter) {
    struct Row {
        const char* what;
        Westring text;
        int bytes;
    };
    const Row rows[] = {
        {"exactly full", Westring::Repeat(L'a', 65535), 65535},
        {"one too many", Westring::Repeat(L'a', 65536), 65535},
        {"two-byte characters", Westring::Repeat(L'\u00E9', 40000), 65534},
        {"three-byte characters", Westring::Repeat(L'\u2551', 40000), 65535},
        {"four-byte characters", Westring::Repeat(L'\U0001F600', 40000), 65532},
    };
    for (const Row& row : rows) {
        FrameBuffer frame;
        frame.AddUnicodeString(row.text);
        ASSERT_EQ(frame.Size(), row.bytes + 4) << row.what;
        EXPECT_EQ(frame.Data()[2] | frame.Data()[3] << 8, row.bytes) << row.what;
        CParameterList list;
        int length = 0;
        ASSERT_EQ(Read(BytesOf(frame), 1, list, length), ReadResult::kComplete) << row.what;
        Westring back;
        ASSERT_TRUE(CParameterList::GetUnicodeString(list.Peek(0), back)) << row.what;
        EXPECT_EQ(wcscmp(back.c_str(), row.text.Left(back.Length()).c_str()), 0) << row.what;
        EXPECT_GE(back.Length(), 16383) << row.what;
    }
}

TEST(WireFrameBuffer, CutsLongBytesWithoutSplittingUtf8) {
    Estring text;
    for (int i = 0; i < 40000; i++)
        text += "\xC3\xA9";
    FrameBuffer frame;
    frame.AddString(text);
    EXPECT_EQ(frame.Size(), 65534 + 4);
    frame.Clear();
    frame.AddString(Estring::Repeat('\xA9', 70000));  // not UTF-8: cut where it is full
    EXPECT_EQ(frame.Size(), 65535 + 4);
}

TEST(WireFrameBuffer, CutsCellStringsAtACell) {
    std::vector<Cell> cells(70000, Cell{0x2551, 7});
    FrameBuffer frame;
    const int taken = frame.AddCellString(cells.data(), static_cast<int>(cells.size()));
    EXPECT_EQ(taken, 65534 / 4);
    EXPECT_EQ(frame.Size(), 4 + taken * 4 + 1);
}

TEST(WireParameterList, GivesEachValueOnlyByItsOwnType) {
    CParameterList list;
    list.AddInteger(5);
    list.AddString("s");
    list.AddUnicodeString(L"u");
    list.AddAttribute(9);
    list.AddCellString(CellString(L"c", 3));
    for (int i = 0; i < 6; i++) {  // the last one is not there
        int32_t integer = 0;
        Estring string;
        Westring text;
        Attribute attribute = 0;
        CellString cells;
        EXPECT_EQ(CParameterList::GetInteger(list.Peek(i), integer), i == 0) << i;
        EXPECT_EQ(CParameterList::GetString(list.Peek(i), string), i == 1) << i;
        EXPECT_EQ(CParameterList::GetUnicodeString(list.Peek(i), text), i == 2) << i;
        EXPECT_EQ(CParameterList::GetAttribute(list.Peek(i), attribute), i == 3) << i;
        EXPECT_EQ(CParameterList::GetCellString(list.Peek(i), cells), i == 4) << i;
        EXPECT_EQ(integer, i == 0 ? 5 : 0);
        EXPECT_STREQ(string.c_str(), i == 1 ? "s" : "");
        EXPECT_STREQ(text.c_str(), i == 2 ? L"u" : L"");
        EXPECT_EQ(attribute, i == 3 ? 9 : 0);
        EXPECT_EQ(cells.Length(), i == 4 ? 1 : 0);
    }
}

TEST(WireParameterReader, ReadsIntegersOfUpToFourBytes) {
    struct Row {
        const char* payload;
        int length;
        int32_t value;
    };
    const Row rows[] = {{"", 0, 0},
                        {"\x7F", 1, 0x7F},
                        {"\xFF", 1, 0xFF},
                        {"\x34\x12", 2, 0x1234},
                        {"\x56\x34\x12", 3, 0x123456},
                        {"\xFF\xFF\xFF\xFF", 4, -1},
                        {"\x00\x00\x00\x80", 4, INT32_MIN}};
    for (const Row& row : rows) {
        CParameterList list;
        int length = 0;
        const std::string payload(row.payload, static_cast<size_t>(row.length));
        ASSERT_EQ(Read(WireBytes().Parameter(0, payload), 1, list, length), ReadResult::kComplete);
        int32_t value = 99;
        EXPECT_TRUE(CParameterList::GetInteger(list.Peek(0), value));
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(length, row.length + 4);
    }
}

TEST(WireParameterReader, PassesOverPayloadsThatDoNotFitTheirType) {
    const struct {
        const char* what;
        WireBytes bytes;
    } rows[] = {
        {"an integer of five bytes", WireBytes().Parameter(0, "12345")},
        {"an integer of 300 bytes", WireBytes().Parameter(0, std::string(300, 'x'))},
        {"an attribute of no byte", WireBytes().Parameter(3, "")},
        {"an attribute of two bytes", WireBytes().Parameter(3, "ab")},
        {"a cell string without its NUL", WireBytes().Parameter(4, "abc")},
        {"an empty cell string payload", WireBytes().Parameter(4, "")},
    };
    for (const auto& row : rows) {
        CParameterList list;
        int length = 0;
        const std::string bytes = (row.bytes + WireBytes().Int(42)).bytes;
        ASSERT_EQ(Read(bytes, 2, list, length), ReadResult::kComplete) << row.what;
        EXPECT_EQ(length, static_cast<int>(bytes.size())) << row.what;
        ASSERT_EQ(list.Count(), 1) << row.what;
        int32_t value = 0;
        EXPECT_TRUE(CParameterList::GetInteger(list.Peek(0), value)) << row.what;
        EXPECT_EQ(value, 42) << row.what;
    }
}

TEST(WireParameterReader, PairsCodePointsWithAttributes) {
    struct Row {
        const char* what;
        std::string payload;
        std::vector<Cell> cells;
    };
    const Row rows[] = {
        {"one each", "x\xE2\x95\x91\0\x1B\x30"s, {{'x', 0x1B}, {0x2551, 0x30}}},
        {"nothing at all", "\0"s, {}},
        {"attributes without text", "\0\x01\x02"s, {}},
        {"fewer attributes than text", "abc\0\x01"s, {{'a', 1}}},
        {"more attributes than text", "a\0\x01\x02\x03"s, {{'a', 1}}},
        {"a lead byte alone stands as itself", "\xE9z\0\x01\x02"s, {{0xE9, 1}, {'z', 2}}},
        {"the NUL ends a sequence too soon", "\xE2\x95\0\x01\x02"s, {{0xE2, 1}, {0x95, 2}}},
        {"a NUL in two bytes is no end",
         "a\xC0\x80z\0\x01\x02\x03"s,
         {{'a', 1}, {0xFFFD, 2}, {'z', 3}}},
        {"a surrogate is no character", "\xED\xA0\x80\0\x05"s, {{0xFFFD, 5}}},
        {"neither is what lies above", "\xF4\x90\x80\x80\0\x05"s, {{0xFFFD, 5}}},
        {"an attribute of 0", "a\0\0"s, {{'a', 0}}},
    };
    for (const Row& row : rows) {
        CParameterList list;
        int length = 0;
        ASSERT_EQ(Read(WireBytes().Parameter(4, row.payload), 1, list, length),
                  ReadResult::kComplete)
            << row.what;
        CellString cells;
        ASSERT_TRUE(CParameterList::GetCellString(list.Peek(0), cells)) << row.what;
        ASSERT_EQ(cells.Length(), static_cast<int>(row.cells.size())) << row.what;
        for (int i = 0; i < cells.Length(); i++)
            EXPECT_EQ(cells.At(i), row.cells[static_cast<size_t>(i)]) << row.what;
    }
}

TEST(WireParameterReader, EndsStringsAtANul) {
    CParameterList list;
    int length = 0;
    ASSERT_EQ(Read(WireBytes().Str("ab\0cd"s).Uni("e\0f"s), 2, list, length),
              ReadResult::kComplete);
    Estring bytes;
    Westring text;
    EXPECT_TRUE(CParameterList::GetString(list.Peek(0), bytes));
    EXPECT_TRUE(CParameterList::GetUnicodeString(list.Peek(1), text));
    EXPECT_STREQ(bytes.c_str(), "ab");
    EXPECT_STREQ(text.c_str(), L"e");
}

TEST(WireParameterReader, WaitsForEveryMissingByte) {
    const std::string whole =
        (WireBytes().Int(1).Str("abc").Uni("\xC3\xA9").Attr(7).Cells("x", "\x07")).bytes;
    for (size_t n = 0; n < whole.size(); n++) {
        CParameterList list;
        int length = 0;
        EXPECT_EQ(Read(whole.substr(0, n), 5, list, length), ReadResult::kIncomplete) << n;
        EXPECT_EQ(list.Count(), 0) << n;
    }
    CParameterList list;
    int length = 0;
    EXPECT_EQ(Read(whole + "rest", 5, list, length), ReadResult::kComplete);
    EXPECT_EQ(length, static_cast<int>(whole.size()));
    EXPECT_EQ(list.Count(), 5);
}

TEST(WireParameterReader, RefusesTypesThatDoNotExist) {
    for (int type : {5, 6, 255, 256, 65535}) {
        CParameterList list;
        int length = 0;
        EXPECT_EQ(Read(WireBytes().Int(1).Parameter(type, "abcd"), 2, list, length),
                  ReadResult::kFailure)
            << type;
        EXPECT_EQ(list.Count(), 0) << type;
    }
}

TEST(WireParameterReader, ReadsNoParametersFromNoBytes) {
    CParameterList list;
    int length = 99;
    EXPECT_EQ(Read("", 0, list, length), ReadResult::kComplete);
    EXPECT_EQ(length, 0);
}

}  // namespace
}  // namespace zt
