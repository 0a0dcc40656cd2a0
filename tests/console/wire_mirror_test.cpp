// What is sent for a change: the requests that are chosen, what they cost, and that carrying them
// out gives the wanted screen.
#include <gtest/gtest.h>

#include <random>

#include "console/wire/display_mirror.h"
#include "tests/console/wire_display.h"

namespace zt {
namespace {

using B = WireBytes;

std::string BytesOf(const FrameBuffer& frame) {
    return {reinterpret_cast<const char*>(frame.Data()), static_cast<size_t>(frame.Size())};
}

// A mirror, the display that carries out what it says, and the screen that is wanted.
class WireMirror : public ::testing::Test {
protected:
    void SetUp() override { Make(80, 25); }
    void Make(int width, int height) {
        display = std::make_unique<LocalDisplay>(width, height);
        mirror.Resize(width, height);
        wanted.Resize(width, height);
        mirror.SetFillAttribute(7);
    }
    void Write(int row, int column, const std::wstring& text, int attribute) {
        for (const wchar_t ch : text)
            wanted.Row(row)[column++] = {static_cast<uint32_t>(ch),
                                         static_cast<Attribute>(attribute)};
    }
    // Sends the difference and looks at the display; gives the frames' bytes.
    std::string Send() {
        for (int row = 0; row < wanted.Rows(); row++)
            mirror.Want(row, 0, wanted.Row(row), wanted.Columns());
        FrameBuffer frames;
        frameCount = mirror.Encode(frames);
        display->Feed(BytesOf(frames));
        for (int row = 0; row < wanted.Rows(); row++) {
            for (int column = 0; column < wanted.Columns(); column++) {
                const Cell cell = wanted.Row(row)[column];
                EXPECT_EQ(display->screen.CellAt(column, row), cell) << column << ", " << row;
                EXPECT_EQ(mirror.SentRow(row)[column], cell) << column << ", " << row;
            }
        }
        return BytesOf(frames);
    }

    std::unique_ptr<LocalDisplay> display;
    DisplayMirror mirror;
    CellGrid wanted;
    int frameCount = 0;
};

TEST_F(WireMirror, SendsNothingForNoDifference) {
    EXPECT_EQ(Hex(Send()), "");
    Write(1, 1, L"abc", 7);
    Send();
    EXPECT_EQ(Hex(Send()), "");
    EXPECT_EQ(frameCount, 0);
}

TEST_F(WireMirror, SendsShortTextAsCells) {
    Write(3, 5, L"x", 0x1B);
    EXPECT_EQ(Hex(Send()), Hex(B::Request(15, 3).Ints({5, 3}).Cells("x", "\x1B")));
}

TEST_F(WireMirror, SendsLongTextOfOneAttributeAsText) {
    Write(3, 5, L"longer text \u2551", 0x1B);
    EXPECT_EQ(Hex(Send()),
              Hex(B::Request(15, 4).Ints({5, 3}).Uni("longer text \xE2\x95\x91").Attr(0x1B)));
}

TEST_F(WireMirror, SendsTextOfSeveralAttributesAsCells) {
    Write(0, 0, L"ab", 0x11);
    Write(0, 2, L"cd", 0x12);
    Write(0, 4, L"ef", 0x13);
    EXPECT_EQ(Hex(Send()),
              Hex(B::Request(15, 3).Ints({0, 0}).Cells("abcdef", "\x11\x11\x12\x12\x13\x13")));
}

TEST_F(WireMirror, SendsLongRunsOfOneCellAsOne) {
    Write(2, 10, std::wstring(40, L'\u2550'), 0x1B);
    EXPECT_EQ(Hex(Send()), Hex(B::Request(16, 4).Ints({10, 2, 40}).Cells("\xE2\x95\x90", "\x1B")));
}

TEST_F(WireMirror, SendsAMovedBarAsAttributes) {
    Write(2, 1, L"the quick brown fox jumps over the dog", 0x1B);
    Send();
    Write(2, 1, L"the quick brown fox jumps over the dog", 0x30);
    EXPECT_EQ(Hex(Send()), Hex(B::Request(17, 4).Ints({1, 2, 38}).Attr(0x30)));
}

TEST_F(WireMirror, SendsABlankRectangleAsOne) {
    for (int row = 4; row < 20; row++)
        Write(row, 10, L"text in a window that goes", 0x70);
    Send();
    for (int row = 4; row < 20; row++)
        Write(row, 10, std::wstring(26, L' '), 0x1B);
    EXPECT_EQ(Hex(Send()), Hex(B::Request(8, 5).Ints({10, 4, 26, 16}).Attr(0x1B)));
}

TEST_F(WireMirror, SendsAWholeBlankScreenAsClear) {
    for (int row = 0; row < 25; row++)
        Write(row, row, L"text", 0x70);
    Send();
    wanted.Fill({0, 0, 80, 25}, Cell{' ', 7});
    EXPECT_EQ(Hex(Send()), Hex(B::Request(8, 0)));
    wanted.Fill({0, 0, 80, 25}, Cell{' ', 0x30});
    EXPECT_EQ(Hex(Send()), Hex(B::Request(8, 5).Ints({0, 0, 80, 25}).Attr(0x30)));
}

TEST_F(WireMirror, SendsANarrowColumnAsARectangle) {
    for (int row = 1; row < 24; row++)
        Write(row, 39, L"\u2551", 0x1B);
    const std::string bytes = Send();
    EXPECT_EQ(frameCount, 1);
    EXPECT_EQ(Hex(bytes.substr(0, 38)), Hex(B::Request(19, 5).Ints({39, 1, 1, 23})));
}

TEST_F(WireMirror, SkipsGapsThatAreLongerThanAFrame) {
    Write(0, 0, L"a", 7);
    Write(0, 79, L"b", 7);
    Send();
    EXPECT_EQ(frameCount, 2);
    Write(0, 0, L"c", 7);
    Write(0, 4, L"d", 7);
    Send();
    EXPECT_EQ(frameCount, 1);
}

TEST_F(WireMirror, SendsLargeAreasInBands) {
    Make(400, 200);
    std::mt19937 random(1);
    for (int row = 0; row < 200; row++)
        for (int column = 0; column < 400; column++)
            wanted.Row(row)[column] = {static_cast<uint32_t>(0x2550 + random() % 30),
                                       static_cast<Attribute>(random() % 256)};
    const std::string bytes = Send();
    // Four bytes a cell; no frame is longer than one payload and its heads.
    EXPECT_GT(bytes.size(), 400u * 200 * 4);
    EXPECT_LT(bytes.size(), 400u * 200 * 4 + 10 * 43);
    EXPECT_GE(frameCount, 5);
}

TEST_F(WireMirror, SendsCodesThatOnlyARepeatedCellKeeps) {
    Write(0, 0, L"a", 7);
    wanted.Row(0)[1] = {127, 7};
    wanted.Row(0)[2] = {159, 0x1B};
    wanted.Row(0)[3] = {159, 0x1B};
    Write(0, 4, L"z", 7);
    Send();
}

TEST_F(WireMirror, TakesZeroAndPrivateCodesAsWhatTheyShowAs) {
    const Cell cells[] = {{0, 1}, {0x1100E9, 2}, {0xFFFFFFFF, 3}, {1, 4}};
    mirror.Want(0, 0, cells, 4);
    FrameBuffer frames;
    mirror.Encode(frames);
    display->Feed(BytesOf(frames));
    const Cell shown[] = {{' ', 1}, {0xE9, 2}, {0xFFFD, 3}, {0x263A, 4}};
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(display->screen.CellAt(i, 0), shown[i]);
        EXPECT_EQ(mirror.SentRow(0)[i], shown[i]);
    }
    frames.Clear();
    mirror.Want(0, 0, cells, 4);
    EXPECT_EQ(mirror.Encode(frames), 0);
}

TEST_F(WireMirror, SendsAScrollWhenItPays) {
    const CellRect rect{1, 1, 39, 19};
    for (int row = 1; row < 19; row++)
        Write(row, 1, L"file number " + std::to_wstring(row * 1234567), 0x1B);
    Send();
    wanted.Scroll(rect, 1, Cell{' ', 0x1B});
    for (int row = 0; row < 25; row++)
        mirror.Want(row, 0, wanted.Row(row), 80);
    EXPECT_TRUE(mirror.Scroll(rect, 1, 0x1B));
    EXPECT_EQ(Hex(Send()), Hex(B::Request(9, 6).Ints({1, 1, 38, 18, 1}).Attr(0x1B)));
}

TEST_F(WireMirror, MergesScrollsThatFollowEachOther) {
    const CellRect rect{0, 0, 80, 25};
    for (int row = 0; row < 25; row++)
        Write(row, 0, L"line " + std::to_wstring(row * 7654321), 7);
    Send();
    for (int i = 0; i < 3; i++) {
        wanted.Scroll(rect, -2, kBlankCell);
        for (int row = 0; row < 25; row++)
            mirror.Want(row, 0, wanted.Row(row), 80);
        EXPECT_TRUE(mirror.Scroll(rect, -2, 7));
    }
    EXPECT_EQ(Hex(Send()), Hex(B::Request(10, 6).Ints({0, 0, 80, 25, 6}).Attr(7)));
}

TEST_F(WireMirror, SendsNoScrollOfWhatLooksTheSame) {
    const CellRect rect{0, 0, 80, 25};
    EXPECT_FALSE(mirror.Scroll(rect, 1, 7));
    Write(24, 0, L"one line", 7);
    Send();
    wanted.Scroll(rect, 1, kBlankCell);
    for (int row = 0; row < 25; row++)
        mirror.Want(row, 0, wanted.Row(row), 80);
    EXPECT_TRUE(mirror.Scroll(rect, 1, 7));  // 51 bytes against two rows of text
    Send();
}

// The cheapest cut of a row, found by trying all of them, costs what the planner says.
TEST(WireRowPlan, FindsTheCheapestCut) {
    std::mt19937 random(5);
    for (int round = 0; round < 3000; round++) {
        const int width = static_cast<int>(random() % 12) + 1;
        std::vector<Cell> wanted;
        std::vector<Cell> sent;
        for (int i = 0; i < width; i++) {
            static constexpr uint32_t kCodes[] = {'a', 'b', ' ', 0x2551, 0xE9, 130};
            const auto cell = [&] {
                return Cell{kCodes[random() % (random() % 3 == 0 ? 6 : 3)],
                            static_cast<Attribute>(random() % 2 + 1)};
            };
            wanted.push_back(cell());
            sent.push_back(random() % 2 == 0 ? wanted.back() : cell());
        }
        // Prices from frames built by hand.
        const auto price = [&](int from, int to) {
            int best = INT_MAX;
            bool oneAttribute = true, oneCell = true, sameText = true, text = true, clean = true;
            std::string utf8;
            for (int i = from; i < to; i++) {
                const Cell cell = wanted[static_cast<size_t>(i)];
                const Cell shown = sent[static_cast<size_t>(i)];
                oneAttribute &= cell.attribute == wanted[static_cast<size_t>(from)].attribute;
                oneCell &= cell == wanted[static_cast<size_t>(from)];
                sameText &= cell.character == shown.character;
                text &= cell.character < 127 || cell.character > 159;
                clean &= cell == shown;
                utf8 += Westring(std::wstring(1, static_cast<wchar_t>(cell.character)).c_str())
                            .ToUtf8()
                            .c_str();
            }
            const auto size = [](const B& frame) { return static_cast<int>(frame.bytes.size()); };
            const std::string attributes(static_cast<size_t>(to - from), 'x');
            if (clean) best = 0;
            if (text)
                best = std::min(best, size(B::Request(15, 3).Ints({0, 0}).Cells(utf8, attributes)));
            if (text && oneAttribute)
                best = std::min(best, size(B::Request(15, 4).Ints({0, 0}).Uni(utf8).Attr(1)));
            if (oneCell) {
                const auto bytes = utf8.size() / attributes.size();
                best = std::min(best, size(B::Request(16, 4).Ints({0, 0, 0}).Cells(
                                          utf8.substr(0, bytes), "x")));
            }
            if (sameText && oneAttribute)
                best = std::min(best, size(B::Request(17, 4).Ints({0, 0, 0}).Attr(1)));
            return best;
        };
        std::vector<int> best(static_cast<size_t>(width) + 1, INT_MAX / 2);
        best[0] = 0;
        for (int to = 1; to <= width; to++)
            for (int from = 0; from < to; from++) {
                const int piece = price(from, to);
                if (piece == INT_MAX) continue;
                auto& least = best[static_cast<size_t>(to)];
                least = std::min(least, best[static_cast<size_t>(from)] + piece);
            }

        RowPlanner planner;
        std::vector<CellRun> runs;
        EXPECT_EQ(planner.Plan(wanted.data(), sent.data(), 0, 0, width, runs),
                  best[static_cast<size_t>(width)]);
        for (size_t i = 1; i < runs.size(); i++)
            EXPECT_LE(runs[i - 1].right, runs[i].left);
    }
}

// Random screens one after the other, as a whole each time.
TEST_F(WireMirror, ShowsAnyScreenAfterAnyOther) {
    std::mt19937 random(2024);
    for (const auto& size : std::vector<std::pair<int, int>>{{1, 1}, {3, 40}, {80, 25}, {120, 7}}) {
        Make(size.first, size.second);
        for (int round = 0; round < 60; round++) {
            const int changes = static_cast<int>(random() % 12);
            for (int i = 0; i < changes; i++) {
                const int left = static_cast<int>(random()) & 0x7F;
                const int top = static_cast<int>(random()) & 0x1F;
                const CellRect rect{
                    left % size.first, top % size.second,
                    std::min(size.first, left % size.first + 1 + static_cast<int>(random() % 30)),
                    std::min(size.second, top % size.second + 1 + static_cast<int>(random() % 10))};
                const bool isBlank = random() % 2 == 0;
                for (int row = rect.top; row < rect.bottom; row++)
                    for (int column = rect.left; column < rect.right; column++)
                        wanted.Row(row)[column] = {
                            isBlank ? ' ' : static_cast<uint32_t>('a' + random() % 3),
                            static_cast<Attribute>(isBlank ? changes % 3 + 1
                                                           : static_cast<int>(random() % 2) + 1)};
            }
            Send();
        }
    }
}

}  // namespace
}  // namespace zt
