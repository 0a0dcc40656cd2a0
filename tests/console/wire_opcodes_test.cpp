// Each request of the wire on a console: what it does, what it answers, and that it does nothing
// with other parameters than its own.
#include <gtest/gtest.h>

#include "foundation/colour_classes.h"
#include "foundation/settings.h"
#include "tests/console/wire_display.h"

namespace zt {
namespace {

using B = WireBytes;

constexpr int kOpcodes = 27;

// All that a request could change and a test can see.
std::string StateOf(DisplayConsole& screen) {
    int columns = 0, rows = 0, column = 0, row = 0;
    screen.GetSize(columns, rows);
    screen.GetCursor(column, row);
    std::string state = std::to_string(columns) + "x" + std::to_string(rows) + " at " +
                        std::to_string(column) + "," + std::to_string(row);
    for (const int value : {screen.GetCursorSize(), static_cast<int>(screen.GetFillAttribute()),
                            screen.CodePageNumber(), screen.beeps, screen.fontSize,
                            static_cast<int>(screen.freezes.size())})
        state += " " + std::to_string(value);
    const CellRect rect = screen.GetSelectableRect();
    for (const int edge : {rect.left, rect.top, rect.right, rect.bottom})
        state += " " + std::to_string(edge);
    state += screen.title + screen.fontFamily + screen.clipboard.ToUtf8().c_str();
    CellString cells;
    screen.ReadCellString(0, 0, columns, rows, cells);
    state.append(reinterpret_cast<const char*>(cells.Cells()),
                 static_cast<size_t>(cells.Length()) * sizeof(Cell));
    return state;
}

class WireOpcodes : public ::testing::Test {
protected:
    void SetUp() override {
        display.screen.WriteWide(2, 1, L"before", 0x1B);
        display.screen.ForgetRecords();
    }
    std::string Ask(const B& request) { return display.Ask(request); }
    void Feed(const B& request) { EXPECT_EQ(Hex(display.Ask(request)), ""); }
    DisplayConsole& Screen() { return display.screen; }
    std::string Row(int row) {
        std::string text = Screen().RowText(row);
        while (!text.empty() && text.back() == ' ')
            text.pop_back();
        return text;
    }

    LocalDisplay display{20, 6};
};

TEST_F(WireOpcodes, StartsWithTheDefaultsOfASession) {
    settings.colours[0] = 0x77;
    LocalDisplay fresh;
    EXPECT_EQ(fresh.screen.GetFillAttribute(), 7);
    EXPECT_EQ(fresh.screen.GetCursorSize(), 15);
    EXPECT_EQ(Colour(ColourClass::kPanel), 0x1B);
}

TEST_F(WireOpcodes, BeginsAndEndsUpdates) {
    Feed(B::Request(1, 0) + B::Request(8, 5).Ints({0, 0, 3, 1}).Attr(0x30));
    EXPECT_TRUE(Screen().painted.empty());
    Feed(B::Request(2, 0));
    EXPECT_EQ(Screen().painted.size(), 1u);
    EXPECT_EQ(Screen().freezes, (std::vector<bool>{true, false}));
}

TEST_F(WireOpcodes, AnswersTheCursor) {
    Screen().SetCursor(3, 4);
    EXPECT_EQ(Hex(Ask(B::Request(3, 0))), Hex(B::Reply(2).Ints({3, 4})));
}

TEST_F(WireOpcodes, SetsTheCursor) {
    Feed(B::Request(4, 2).Ints({5, 2}));
    int column = 0, row = 0;
    Screen().GetCursor(column, row);
    EXPECT_EQ(column, 5);
    EXPECT_EQ(row, 2);
}

TEST_F(WireOpcodes, SetsTheCodePageUnlessItIs0) {
    Feed(B::Request(5, 1).Int(1252));
    EXPECT_EQ(Screen().CodePageNumber(), 1252);
    Feed(B::Request(5, 1).Int(0));
    EXPECT_EQ(Screen().CodePageNumber(), 1252);
}

TEST_F(WireOpcodes, AnswersTheSize) {
    EXPECT_EQ(Hex(Ask(B::Request(6, 0))), Hex(B::Reply(2).Ints({20, 6})));
}

TEST_F(WireOpcodes, ResizesWithAndWithoutAFont) {
    EXPECT_EQ(Hex(Ask(B::Request(7, 2).Ints({30, 10}))), Hex(B::Reply(1).Int(1)));
    int columns = 0, rows = 0;
    Screen().GetSize(columns, rows);
    EXPECT_EQ(columns, 30);
    EXPECT_EQ(rows, 10);
    EXPECT_EQ(Screen().fontFamily, "");
    EXPECT_EQ(Row(1), "");  // the contents are gone
    EXPECT_EQ(Hex(Ask(B::Request(7, 4).Ints({25, 9}).Str("Mono").Int(14))),
              Hex(B::Reply(1).Int(1)));
    EXPECT_EQ(Screen().fontFamily, "Mono");
    EXPECT_EQ(Screen().fontSize, 14);
}

TEST_F(WireOpcodes, FillsWithFiveParametersAndClearsWithNone) {
    Feed(B::Request(8, 5).Ints({3, 1, 4, 2}).Attr(0x30));
    EXPECT_EQ(Row(1), "  b    e");
    EXPECT_EQ(Screen().AttributeAt(3, 1), 0x30);
    EXPECT_EQ(Screen().AttributeAt(6, 2), 0x30);
    EXPECT_EQ(Screen().AttributeAt(7, 2), 0x07);
    Screen().SetFillAttribute(0x4F);
    Feed(B::Request(8, 0));
    EXPECT_EQ(Row(1), "");
    EXPECT_EQ(Screen().AttributeAt(0, 0), 0x4F);
    EXPECT_EQ(Screen().AttributeAt(19, 5), 0x4F);
}

TEST_F(WireOpcodes, Scrolls) {
    Feed(B::Request(9, 6).Ints({0, 0, 20, 6, 1}).Attr(0x21));
    EXPECT_EQ(Row(0), "  before");
    EXPECT_EQ(Screen().AttributeAt(0, 5), 0x21);
    Feed(B::Request(10, 6).Ints({0, 0, 20, 6, 3}).Attr(0x22));
    EXPECT_EQ(Row(3), "  before");
    EXPECT_EQ(Screen().AttributeAt(0, 0), 0x22);
}

TEST_F(WireOpcodes, SetsTheTitle) {
    Feed(B::Request(11, 1).Uni("T\xC3\xA9"));
    EXPECT_EQ(Screen().title, "T\xC3\xA9");
    Screen().SetCodePage(850);
    Feed(B::Request(11, 1).Str("T\x82"));  // e with acute accent in code page 850
    EXPECT_EQ(Screen().title, "T\xC3\xA9");
}

TEST_F(WireOpcodes, SetsAndAnswersTheCursorSize) {
    Feed(B::Request(12, 1).Int(40));
    EXPECT_EQ(Hex(Ask(B::Request(13, 0))), Hex(B::Reply(1).Int(40)));
    Feed(B::Request(12, 1).Int(1000));
    EXPECT_EQ(Screen().GetCursorSize(), 100);
}

TEST_F(WireOpcodes, SetsTheFillAttribute) {
    Feed(B::Request(14, 1).Attr(0x5A));
    EXPECT_EQ(Screen().GetFillAttribute(), 0x5A);
}

TEST_F(WireOpcodes, WritesTextInThreeForms) {
    Screen().SetCodePage(850);
    Feed(B::Request(15, 4).Ints({0, 0}).Str("a\x82").Attr(0x12));
    Feed(B::Request(15, 4).Ints({0, 2}).Uni("b\xE2\x95\x91").Attr(0x13));
    Feed(B::Request(15, 3).Ints({0, 3}).Cells("c\xC3\xA9", "\x14\x15"));
    EXPECT_EQ(Row(0), "a\xC3\xA9");
    EXPECT_EQ(Screen().AttributeAt(1, 0), 0x12);
    EXPECT_EQ(Row(2), "b\xE2\x95\x91");
    EXPECT_EQ(Screen().AttributeAt(1, 2), 0x13);
    EXPECT_EQ(Row(3), "c\xC3\xA9");
    EXPECT_EQ(Screen().AttributeAt(0, 3), 0x14);
    EXPECT_EQ(Screen().AttributeAt(1, 3), 0x15);
    EXPECT_EQ(Screen().CharacterAt(2, 3), static_cast<uint32_t>(' '));
}

TEST_F(WireOpcodes, RepeatsTheFirstCellOfAString) {
    Feed(B::Request(16, 4).Ints({1, 0, 3}).Cells("xyz", "\x31\x32\x33"));
    EXPECT_EQ(Row(0), " xxx");
    EXPECT_EQ(Screen().AttributeAt(3, 0), 0x31);
}

TEST_F(WireOpcodes, SetsAttributesAlone) {
    Feed(B::Request(17, 4).Ints({2, 1, 3}).Attr(0x70));
    EXPECT_EQ(Row(1), "  before");
    EXPECT_EQ(Screen().AttributeAt(4, 1), 0x70);
    EXPECT_EQ(Screen().AttributeAt(5, 1), 0x1B);
}

TEST_F(WireOpcodes, AnswersCells) {
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({2, 1, 3, 1}))),
              Hex(B::Reply(1).Cells("bef", "\x1B\x1B\x1B")));
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({7, 0, 2, 2}))),
              Hex(B::Reply(1).Cells("  e ", "\x07\x07\x1B\x07")));
}

TEST_F(WireOpcodes, AnswersABadReadWithNoParameter) {
    const std::string none = Hex(B::Reply(0));
    EXPECT_EQ(Hex(Ask(B::Request(18, 0))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 3).Ints({0, 0, 1}))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({0, 0, 1}).Attr(1))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({0, 0, 0, 1}))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({0, 0, 5, -5}))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({0, 0, 30000, 30000}))), none);
    EXPECT_EQ(Hex(Ask(B::Request(18, 4).Ints({0, 0, 200, 200}))), none);  // 80001 bytes
    EXPECT_NE(Hex(Ask(B::Request(18, 4).Ints({0, 0, 200, 160}))), none);  // 64001 bytes
}

TEST_F(WireOpcodes, WritesARectangleOfCells) {
    Feed(B::Request(19, 5).Ints({1, 0, 2, 2}).Cells("abcd", "\x11\x12\x13\x14"));
    EXPECT_EQ(Row(0), " ab");
    EXPECT_EQ(Row(1), " cdefore");
    EXPECT_EQ(Screen().AttributeAt(2, 1), 0x14);
}

TEST_F(WireOpcodes, SetsTheClipboard) {
    Feed(B::Request(20, 1).Uni("\xE2\x95\x91"));
    EXPECT_STREQ(Screen().clipboard.c_str(), L"\u2551");
    Screen().SetCodePage(850);
    Feed(B::Request(20, 1).Str("\x82"));
    EXPECT_STREQ(Screen().clipboard.c_str(), L"\u00E9");
}

TEST_F(WireOpcodes, AnswersTheClipboard) {
    Screen().clipboard = L"\u00E9x";
    EXPECT_EQ(Hex(Ask(B::Request(21, 0))), Hex(B::Reply(2).Int(1).Uni("\xC3\xA9x")));
    Screen().clipboardWorks = false;
    EXPECT_EQ(Hex(Ask(B::Request(21, 0))), Hex(B::Reply(2).Int(0).Uni("")));
}

TEST_F(WireOpcodes, WritesTeletypeText) {
    Feed(B::Request(22, 1).Str("ab\r\n\xC3\xA9"));
    EXPECT_EQ(Row(0), "ab");
    EXPECT_EQ(Row(1), "\xC3\xA9 before");
}

TEST_F(WireOpcodes, Beeps) {
    Feed(B::Request(23, 0));
    EXPECT_EQ(Screen().beeps, 1);
}

TEST_F(WireOpcodes, SetsAnswersAndClearsTheSelectableRectangle) {
    Feed(B::Request(24, 4).Ints({1, 2, 10, 5}));
    EXPECT_EQ(Screen().GetSelectableRect(), (CellRect{1, 2, 10, 5}));
    EXPECT_EQ(Hex(Ask(B::Request(25, 0))), Hex(B::Reply(4).Ints({1, 2, 10, 5})));
    Feed(B::Request(26, 0));
    EXPECT_EQ(Hex(Ask(B::Request(25, 0))), Hex(B::Reply(4).Ints({0, 0, 0, 0})));
}

// A parameter of each type, none of them right everywhere.
B Wrong(int type) {
    switch (type) {
        case 0:
            return B().Int(1);
        case 1:
            return B().Str("s");
        case 2:
            return B().Uni("u");
        case 3:
            return B().Attr(0x5D);
        default:
            return B().Cells("c", "\x5D");
    }
}

// The parameter types of each form of a request; what is due as the answer to a wrong one.
struct Form {
    int opcode;
    std::vector<int> types;
};
const Form kForms[] = {
    {1, {}},
    {2, {}},
    {4, {0, 0}},
    {5, {0}},
    {7, {0, 0}},
    {7, {0, 0, 1, 0}},
    {8, {}},
    {8, {0, 0, 0, 0, 3}},
    {9, {0, 0, 0, 0, 0, 3}},
    {10, {0, 0, 0, 0, 0, 3}},
    {11, {1}},
    {11, {2}},
    {12, {0}},
    {14, {3}},
    {15, {0, 0, 1, 3}},
    {15, {0, 0, 2, 3}},
    {15, {0, 0, 4}},
    {16, {0, 0, 0, 4}},
    {17, {0, 0, 0, 3}},
    {19, {0, 0, 0, 0, 4}},
    {20, {1}},
    {20, {2}},
    {22, {1}},
    {23, {}},
    {24, {0, 0, 0, 0}},
    {26, {}},
};

bool IsForm(int opcode, const std::vector<int>& types) {
    for (const Form& form : kForms)
        if (form.opcode == opcode && form.types == types) return true;
    return false;
}

B RequestOf(int opcode, const std::vector<int>& types) {
    B request = B::Request(opcode, static_cast<int>(types.size()));
    for (const int type : types)
        request += Wrong(type);
    return request;
}

std::string TypesText(const Form& form) {
    std::string text = "opcode " + std::to_string(form.opcode) + " types";
    for (const int type : form.types)
        text += " " + std::to_string(type);
    return text;
}

// Every request with one parameter missing, one too many, and one of each wrong type at each
// place: nothing happens, and nothing but a refused resize is answered.
TEST_F(WireOpcodes, DoesNothingForOtherCountsAndTypes) {
    std::vector<Form> wrong;
    for (const Form& form : kForms) {
        for (int type = 0; type <= 4; type++) {
            Form longer = form;
            longer.types.push_back(type);
            wrong.push_back(longer);
            for (size_t place = 0; place < form.types.size(); place++) {
                Form other = form;
                other.types[place] = type;
                wrong.push_back(other);
            }
        }
        for (size_t count = 0; count < form.types.size(); count++) {
            Form shorter = form;
            shorter.types.resize(count);
            wrong.push_back(shorter);
        }
    }
    Screen().SetCursor(7, 3);
    Screen().SetSelectableRect(CellRect{3, 3, 9, 5}, true);
    const std::string before = StateOf(Screen());
    int tried = 0;
    for (const Form& form : wrong) {
        if (IsForm(form.opcode, form.types)) continue;
        tried++;
        const std::string answer = Ask(RequestOf(form.opcode, form.types));
        EXPECT_EQ(Hex(answer), form.opcode == 7 ? Hex(B::Reply(1).Int(0)) : "") << TypesText(form);
        EXPECT_TRUE(StateOf(Screen()) == before) << TypesText(form);
    }
    EXPECT_GT(tried, 200);
}

// A payload that its type cannot have is no parameter, so the request is short of one.
TEST_F(WireOpcodes, DoesNothingForPayloadsOfWrongLengths) {
    const std::string five = "12345";
    const std::string none = B::Reply(0);
    const std::string refused = B::Reply(1).Int(0);
    const struct {
        B request;
        std::string answer;
    } rows[] = {
        {B::Request(4, 2).Int(1).Parameter(0, five), ""},
        {B::Request(5, 1).Parameter(0, five), ""},
        {B::Request(7, 2).Int(30).Parameter(0, five), refused},
        {B::Request(7, 4).Int(30).Int(10).Str("Mono").Parameter(0, five), refused},
        {B::Request(8, 5).Ints({0, 0, 5, 5}).Parameter(3, ""), ""},
        {B::Request(8, 5).Ints({0, 0, 5, 5}).Parameter(3, "ab"), ""},
        {B::Request(9, 6).Ints({0, 0, 5, 5, 1}).Parameter(3, "ab"), ""},
        {B::Request(12, 1).Parameter(0, std::string(65535, '1')), ""},
        {B::Request(14, 1).Parameter(3, ""), ""},
        {B::Request(14, 1).Parameter(3, "ab"), ""},
        {B::Request(15, 3).Ints({0, 0}).Parameter(4, "no end"), ""},
        {B::Request(15, 4).Ints({0, 0}).Uni("text").Parameter(3, "ab"), ""},
        {B::Request(16, 4).Ints({0, 0, 3}).Parameter(4, ""), ""},
        {B::Request(17, 4).Ints({0, 0, 3}).Parameter(3, "ab"), ""},
        {B::Request(18, 4).Ints({0, 0, 1}).Parameter(0, five), none},
        {B::Request(19, 5).Ints({0, 0, 1, 1}).Parameter(4, "x"), ""},
        {B::Request(24, 4).Ints({0, 0, 9}).Parameter(0, five), ""},
    };
    const std::string before = StateOf(Screen());
    for (const auto& row : rows) {
        EXPECT_EQ(Hex(Ask(row.request)), Hex(row.answer)) << Hex(row.request).substr(0, 99);
        EXPECT_TRUE(StateOf(Screen()) == before) << Hex(row.request).substr(0, 99);
    }
    Feed(B::Request(23, 0));
    EXPECT_EQ(Screen().beeps, 1);
}

TEST_F(WireOpcodes, TakesPayloadsOfTheGreatestLength) {
    const std::string longest(65535, 'q');
    Feed(B::Request(11, 1).Uni(longest));
    EXPECT_TRUE(Screen().title == longest);
    Feed(B::Request(20, 1).Uni(longest));
    EXPECT_EQ(Screen().clipboard.Length(), 65535);
    EXPECT_TRUE(Ask(B::Request(21, 0)) == B::Reply(2).Int(1).Uni(longest).bytes);
    Feed(B::Request(15, 4).Ints({0, 0}).Uni(longest).Attr(0x1B));
    EXPECT_EQ(Row(0), std::string(20, 'q'));
    const std::string text(32767, 'c');
    Feed(B::Request(15, 3).Ints({0, 2}).Cells(text, std::string(32767, '\x30')));
    EXPECT_EQ(Row(2), std::string(20, 'c'));
    EXPECT_EQ(Row(3), "");
    Feed(B::Request(22, 1).Str(longest));
    EXPECT_EQ(Row(0), std::string(20, 'q'));
    EXPECT_EQ(Row(5), std::string(65535 % 20, 'q'));
}

TEST_F(WireOpcodes, FillsNothingWithThreeParameters) {
    const std::string before = StateOf(Screen());
    Feed(B::Request(8, 3).Ints({0, 0, 5}));
    EXPECT_TRUE(StateOf(Screen()) == before);
}

TEST_F(WireOpcodes, AnswersQueriesThatCameWithParameters) {
    EXPECT_EQ(Hex(Ask(B::Request(6, 1).Int(9))), Hex(B::Reply(2).Ints({20, 6})));
    EXPECT_EQ(Hex(Ask(B::Request(13, 2).Str("").Attr(1))), Hex(B::Reply(1).Int(15)));
}

TEST_F(WireOpcodes, RefusesSizesThatNoGridHas) {
    const std::string before = StateOf(Screen());
    for (const auto& size : std::vector<std::vector<int>>{
             {0, 10}, {10, 0}, {-1, 10}, {4097, 10}, {10, 4097}, {4096, 4096}, {INT32_MAX, 2}})
        EXPECT_EQ(Hex(Ask(B::Request(7, 2).Ints(size))), Hex(B::Reply(1).Int(0))) << size[0];
    EXPECT_TRUE(StateOf(Screen()) == before);
}

TEST_F(WireOpcodes, WritesNoRectangleWithTooFewCells) {
    const std::string before = StateOf(Screen());
    Feed(B::Request(19, 5).Ints({0, 0, 2, 2}).Cells("abc", "\x11\x12\x13"));
    Feed(B::Request(19, 5).Ints({0, 0, 65536, 65536}).Cells("abc", "\x11\x12\x13"));
    Feed(B::Request(19, 5).Ints({0, 0, -1, -1}).Cells("abc", "\x11\x12\x13"));
    Feed(B::Request(19, 5).Ints({0, 0, 3, 0}).Cells("abc", "\x11\x12\x13"));
    EXPECT_TRUE(StateOf(Screen()) == before);
}

TEST_F(WireOpcodes, FillsNothingWithAnEmptyCellString) {
    const std::string before = StateOf(Screen());
    Feed(B::Request(16, 4).Ints({1, 0, 3}).Cells("", ""));
    EXPECT_TRUE(StateOf(Screen()) == before);
}

// Whatever the numbers are, the request stays within the grid and the arithmetic within its type.
TEST_F(WireOpcodes, SurvivesCoordinatesFarOutside) {
    const int extremes[] = {INT32_MIN, -32769, -1, 0, 1, 5, 32768, INT32_MAX};
    for (const int a : extremes) {
        for (const int b : extremes) {
            Feed(B::Request(4, 2).Ints({a, b}));
            Feed(B::Request(8, 5).Ints({a, b, b, a}).Attr(0x11));
            Feed(B::Request(9, 6).Ints({a, b, b, a, b}).Attr(0x12));
            Feed(B::Request(10, 6).Ints({b, a, a, b, a}).Attr(0x13));
            Feed(B::Request(15, 4).Ints({a, b}).Uni("text").Attr(0x14));
            Feed(B::Request(15, 3).Ints({a, b}).Cells("text", "1234"));
            Feed(B::Request(16, 4).Ints({a, b, a}).Cells("x", "\x15"));
            Feed(B::Request(17, 4).Ints({a, b, b}).Attr(0x16));
            Feed(B::Request(19, 5).Ints({a, b, 2, 2}).Cells("abcd", "1234"));
            Feed(B::Request(24, 4).Ints({a, b, b, a}));
            Ask(B::Request(18, 4).Ints({a, b, 3, 3}));
        }
    }
    int columns = 0, rows = 0;
    Screen().GetSize(columns, rows);
    EXPECT_EQ(columns, 20);
    EXPECT_EQ(rows, 6);
}

TEST_F(WireOpcodes, IgnoresOpcodesThatDoNotExist) {
    const std::string before = StateOf(Screen());
    for (const int opcode : {kOpcodes, 28, 255, 256, 65535})
        Feed(B::Request(opcode, 2).Int(1).Str("consumed with it"));
    EXPECT_TRUE(StateOf(Screen()) == before);
    Feed(B::Request(23, 0));
    EXPECT_EQ(Screen().beeps, 1);
}

}  // namespace
}  // namespace zt
