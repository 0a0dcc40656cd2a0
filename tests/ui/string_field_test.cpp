// Input fields: every key, the selection, the clipboard, the mouse, scrolling, and the history.
#include "ui/string_field.h"

#include <ostream>

#include "tests/ui/ui_fixture.h"
#include "ui/clipboard_line.h"
#include "ui/dialog.h"

namespace zt {
namespace {

constexpr int kX = 11, kY = 6;  // of the client area
constexpr int kFieldX = kX + 2, kFieldY = kY + 1;

constexpr int kCtrlC = 3, kCtrlQ = 17, kCtrlV = 22, kCtrlW = 23, kCtrlX = 24;
constexpr int kShiftCtrlLeft = 0x30073, kShiftCtrlRight = 0x30074;

class StringFieldTest : public UiTest {
protected:
    StringFieldTest() {
        for (int i = 0; i < kFieldHistoryCount; ++i)
            FieldHistory(i).Clear();
        SetFieldHistoryKeeper(nullptr);
    }
    void Open(const char* text, int width = 20, int maxLength = -1, int history = kNoHistory) {
        value = text;
        dialog = std::make_unique<Dialog>(10, 5, 69, 19, 0x70);
        dialog->AddString(2, 1, true, value, width, maxLength, history);
    }
    // Gives the keys and handles them.
    void Keys(std::initializer_list<int> keys) {
        for (const int key : keys)
            Key(key);
        dialog->Run(0);
    }
    void Typed(const std::string& text) {
        Type(text);
        dialog->Run(0);
    }
    std::string Value() { return Utf8(value); }
    StringField& Field() { return *static_cast<StringField*>(dialog->Element(0)); }
    int CursorColumn() {
        int column, row;
        screen.GetCursor(column, row);
        return column - kFieldX;
    }
    // The columns of the field that are shown as selected, as text of '#' and '.'.
    std::string Selection(int width = 10) {
        std::string shown;
        for (int i = 0; i < width; ++i)
            shown += At(kFieldX + i, kFieldY) == 0x03 ? '#' : '.';
        return shown;
    }

    Westring value;
    std::unique_ptr<Dialog> dialog;
};

TEST_F(StringFieldTest, ShowsTheTextInTheInputColour) {
    Open("hello", 10);
    dialog->Run(0);
    EXPECT_EQ(Cells(kFieldX, kFieldY, 11), "hello      ");
    EXPECT_EQ(At(kFieldX + 9, kFieldY), 0x30);
    EXPECT_EQ(At(kFieldX + 10, kFieldY), 0x70);
    EXPECT_EQ(CursorColumn(), 5);
    EXPECT_EQ(screen.GetCursorSize(), 15);
}

TEST_F(StringFieldTest, FirstCharacterReplacesAnUntouchedText) {
    Open("hello");
    Typed("x");
    EXPECT_EQ(Value(), "x");
    Typed("y");
    EXPECT_EQ(Value(), "xy");
}

TEST_F(StringFieldTest, AnyKeyFirstKeepsTheText) {
    for (const int key : {kKeyLeft, kKeyRight, kKeyHome, kKeyEnd, kKeyF1}) {
        Open("hello");
        Keys({key, 'x'});
        EXPECT_EQ(Value().size(), 6u) << std::hex << key;
    }
    Open("hello");
    Keys({kKeyLeft, 'x'});
    EXPECT_EQ(Value(), "hellxo");
}

struct EditRow {
    const char* name;
    const char* before;
    std::vector<int> keys;
    const char* after;
    int cursor;
};

void PrintTo(const EditRow& row, std::ostream* out) {
    *out << row.name;
}

class StringFieldEdit : public StringFieldTest, public testing::WithParamInterface<EditRow> {};

TEST_P(StringFieldEdit, ChangesTextAndCursor) {
    const EditRow& row = GetParam();
    Open(row.before);
    for (const int key : row.keys)
        Key(key);
    dialog->Run(0);
    EXPECT_EQ(Value(), row.after);
    EXPECT_EQ(CursorColumn(), row.cursor);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, StringFieldEdit,
    testing::Values(
        EditRow{"Home goes to the start", "hello", {kKeyHome, 'x'}, "xhello", 1},
        EditRow{"End goes to the end", "hello", {kKeyHome, kKeyEnd, 'x'}, "hellox", 6},
        EditRow{"Left stops at the start", "ab", {kKeyLeft, kKeyLeft, kKeyLeft}, "ab", 0},
        EditRow{"Right stops at the end", "ab", {kKeyRight, kKeyRight}, "ab", 2},
        EditRow{"Right goes one on", "abc", {kKeyHome, kKeyRight, 'x'}, "axbc", 2},
        EditRow{"Del takes the character at the cursor", "abc", {kKeyHome, kKeyDelete}, "bc", 0},
        EditRow{"Del at the end does nothing", "abc", {kKeyDelete}, "abc", 3},
        EditRow{"Backspace takes the one before", "abc", {kKeyBackspace}, "ab", 2},
        EditRow{"Backspace at the start does nothing", "abc", {kKeyHome, kKeyBackspace}, "abc", 0},
        EditRow{"Grey plus is a plus", "a", {kKeyEnd, kKeyGreyPlus}, "a+", 2},
        EditRow{"Grey minus is a minus", "a", {kKeyEnd, kKeyGreyMinus}, "a-", 2},
        EditRow{"Grey star is a star", "a", {kKeyEnd, kKeyGreyMultiply}, "a*", 2},
        EditRow{"Ctrl-Left to the word's start", "one two", {kKeyCtrlLeft, 'x'}, "one xtwo", 5},
        EditRow{"Ctrl-Left over what is no word",
                "one, two",
                {kKeyCtrlLeft, kKeyCtrlLeft, 'x'},
                "xone, two",
                1},
        EditRow{"Ctrl-Right stops behind the word",
                "one two",
                {kKeyHome, kKeyCtrlRight, 'x'},
                "onex two",
                4},
        EditRow{"Ctrl-Right again goes behind the next",
                "one two",
                {kKeyHome, kKeyCtrlRight, kKeyCtrlRight, 'x'},
                "one twox",
                8},
        EditRow{"Ctrl-Backspace takes the word before",
                "one two",
                {kKeyEnd, kKeyCtrlBackspace},
                "one ",
                4},
        EditRow{"Ctrl-Del takes up to the next word's end",
                "one two",
                {kKeyHome, kKeyCtrlDelete},
                " two",
                0},
        EditRow{"Shift-End and Del take the tail",
                "hello",
                {kKeyHome, kKeyRight, kKeyRight, kKeyShiftEnd, kKeyDelete},
                "he",
                2},
        EditRow{"a character replaces the selection",
                "hello",
                {kKeyHome, kKeyShiftRight, kKeyShiftRight, 'x'},
                "xllo",
                1},
        EditRow{"Backspace takes the selection",
                "hello",
                {kKeyShiftLeft, kKeyShiftLeft, kKeyBackspace},
                "hel",
                3},
        EditRow{"Shift-Home selects to the start",
                "hello",
                {kKeyLeft, kKeyShiftHome, kKeyDelete},
                "o",
                0},
        EditRow{
            "Shift-Ctrl-Left selects a word", "one two", {kShiftCtrlLeft, kKeyDelete}, "one ", 4},
        EditRow{"Shift-Ctrl-Right selects a word",
                "one two",
                {kKeyHome, kShiftCtrlRight, kKeyDelete},
                " two",
                0},
        EditRow{"selection crosses its start",
                "abcdef",
                {kKeyHome, kKeyRight, kKeyRight, kKeyShiftRight, kKeyShiftRight, kKeyShiftLeft,
                 kKeyShiftLeft, kKeyShiftLeft, kKeyDelete},
                "acdef",
                1},
        EditRow{"selection vanishes where it began",
                "abcdef",
                {kKeyHome, kKeyRight, kKeyShiftRight, kKeyShiftLeft, kKeyDelete},
                "acdef",
                1},
        EditRow{"another key drops the selection",
                "abcdef",
                {kKeyHome, kKeyShiftRight, kKeyLeft, kKeyDelete},
                "bcdef",
                0},
        EditRow{"Shift with a key that moves nothing keeps the selection",
                "abcdef",
                {kKeyHome, kKeyShiftRight, kKeyShiftRight, kKeyShiftUp, kKeyShiftF1, kKeyDelete},
                "cdef",
                0},
        EditRow{"Ctrl-Q takes the next key as it is", "ab", {kCtrlQ, kCtrlX}, "ab\x18", 3},
        EditRow{"Ctrl-Q takes Esc, Enter and Tab",
                "ab",
                {kCtrlQ, kKeyEsc, kCtrlQ, kKeyEnter, kCtrlQ, kKeyTab},
                "ab\x1B\r\t",
                5},
        EditRow{"Ctrl-Q takes Ctrl-I as a tab", "", {kCtrlQ, kKeyCtrlI}, "\t", 1},
        EditRow{
            "Ctrl-Q spends a key that is no character", "ab", {kCtrlQ, kKeyF1, 'x'}, "abx", 3}));

TEST_F(StringFieldTest, WordRightMayGoToTheNextWord) {
    settings.briefWordRight = false;
    Open("one  two three");
    Keys({kKeyHome, kKeyCtrlRight, 'x'});
    EXPECT_EQ(Value(), "one  xtwo three");
    Keys({kKeyHome, kKeyCtrlDelete});
    EXPECT_EQ(Value(), "xtwo three");
}

TEST_F(StringFieldTest, LettersOfAllScriptsAreWords) {
    Open("\u00E4\u00F6\u00FC \u0434\u043E\u043C");
    Keys({kKeyCtrlLeft, 'x'});
    EXPECT_EQ(Value(), "\u00E4\u00F6\u00FC x\u0434\u043E\u043C");
}

TEST_F(StringFieldTest, WideCharactersGoInAndKeysDoNot) {
    Open("");
    Key(0x20AC);
    screen.PushKey(0x1F600, 0, 0x1F600);  // typed text above 65535
    Key(0x1F600);                         // the same number without a character
    Key(kKeyF1);
    dialog->Run(0);
    EXPECT_EQ(Value(), "\u20AC\U0001F600");
}

TEST_F(StringFieldTest, RefusesMoreThanItsLength) {
    Open("", 20, 3);
    Typed("abcdef");
    EXPECT_EQ(Value(), "abc");
    Keys({kKeyHome, kKeyShiftRight});
    Typed("x");  // takes the selection's place
    EXPECT_EQ(Value(), "xbc");
    screen.clipboard = "yz";
    Keys({kCtrlV});
    EXPECT_EQ(Value(), "xbc");
    Open("abc", 20, 3);
    Typed("y");  // untouched: the old text does not count
    EXPECT_EQ(Value(), "y");
}

TEST_F(StringFieldTest, ShowsTheSelectionOnlyWithTheFocus) {
    Open("hello", 10);
    dialog->AddOkCancel(-1, -1, true);
    Keys({kKeyHome, kKeyShiftRight, kKeyShiftRight});
    EXPECT_EQ(Selection(), "##........");
    EXPECT_EQ(Utf8(Field().SelectedText()), "he");
    dialog->SetFocus(1);
    EXPECT_EQ(Selection(), "..........");
    EXPECT_EQ(screen.GetCursorSize(), 0);
}

TEST_F(StringFieldTest, CopiesCutsAndPastes) {
    for (const int copy : {kCtrlC, int{kKeyCtrlInsert}}) {
        Open("hello");
        Keys({kKeyHome, kKeyShiftRight, kKeyShiftRight, copy});
        EXPECT_EQ(Utf8(screen.clipboard), "he");
        EXPECT_EQ(Value(), "hello");
        EXPECT_TRUE(Field().HasSelection());
        screen.clipboard = "";
    }
    for (const int cut : {kCtrlX, int{kKeyShiftDelete}}) {
        Open("hello");
        Keys({kKeyHome, kKeyShiftRight, kKeyShiftRight, cut});
        EXPECT_EQ(Utf8(screen.clipboard), "he");
        EXPECT_EQ(Value(), "llo");
        EXPECT_FALSE(Field().HasSelection());
        screen.clipboard = "";
    }
    for (const int paste : {kCtrlV, int{kKeyShiftInsert}}) {
        screen.clipboard = "XY";
        Open("hello");
        Keys({kKeyHome, kKeyRight, paste});
        EXPECT_EQ(Value(), "hXYello");
        EXPECT_EQ(CursorColumn(), 3);
        EXPECT_FALSE(Field().HasSelection());
    }
}

TEST_F(StringFieldTest, PasteReplacesAnUntouchedTextAndASelection) {
    screen.clipboard = "new";
    Open("hello");
    Keys({kCtrlV});
    EXPECT_EQ(Value(), "new");
    Keys({kKeyHome, kKeyShiftRight, kCtrlV});
    EXPECT_EQ(Value(), "newew");
}

TEST_F(StringFieldTest, CopyWithoutSelectionLeavesTheClipboard) {
    screen.clipboard = "kept";
    Open("hello");
    Keys({kCtrlC, kCtrlX});
    EXPECT_EQ(Utf8(screen.clipboard), "kept");
    EXPECT_EQ(Value(), "hello");
}

TEST_F(StringFieldTest, PasteOfNothingChangesNothing) {
    screen.clipboardWorks = false;
    Open("hello");
    Keys({kCtrlV});
    EXPECT_EQ(Value(), "hello");
}

TEST_F(StringFieldTest, SelectsAndCopiesTheWord) {
    Open("one two three");
    Keys({kKeyHome, kKeyCtrlRight, kKeyRight, kKeyRight, kCtrlW});
    EXPECT_EQ(Utf8(screen.clipboard), "two");
    EXPECT_EQ(Selection(), "....###...");
    screen.clipboard = "kept";
    Open(" , ");
    Keys({kKeyLeft, kCtrlW});
    EXPECT_EQ(Utf8(screen.clipboard), "kept");
}

TEST(ClipboardLine, JoinsLines) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {{"one", "one"},
                {"one\ntwo", "one two"},
                {"one\r\ntwo\r\n", "one two"},
                {"\n\none\n\n", "one"},
                {"a\n\nb", "a  b"},
                {"\n\n", ""},
                {"", ""},
                {"a\rb", "a b"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(JoinLines(row.text).ToUtf8().c_str(), row.expected) << row.text;
    }
}

TEST_F(StringFieldTest, ScrollsToShowTheCursor) {
    Open("abcdefghijklmnop", 8);
    dialog->Run(0);
    EXPECT_EQ(Cells(kFieldX, kFieldY, 8), "jklmnop ");
    EXPECT_EQ(CursorColumn(), 7);
    // At the left edge the text jumps so that the cursor stands at the right one.
    for (int i = 0; i < 7; ++i)
        Key(kKeyLeft);
    dialog->Run(0);
    EXPECT_EQ(CursorColumn(), 7);
    EXPECT_EQ(Cells(kFieldX, kFieldY, 8), "cdefghij");
    Keys({kKeyHome});
    EXPECT_EQ(Cells(kFieldX, kFieldY, 8), "abcdefgh");
    EXPECT_EQ(CursorColumn(), 0);
}

TEST_F(StringFieldTest, SelectionScrollsWithTheText) {
    Open("abcdefghijklmnop", 8);
    Keys({kKeyLeft, kKeyLeft, kKeyShiftHome});
    EXPECT_EQ(Selection(8), "########");
    Keys({kKeyEnd, kKeyShiftLeft, kKeyShiftLeft});
    EXPECT_EQ(Selection(8), ".....##.");
}

TEST_F(StringFieldTest, AnEmptyFieldKeepsItsKeys) {
    Open("", 8);
    Keys({kKeyLeft, kKeyRight, kKeyDelete, kKeyBackspace, kKeyCtrlBackspace, kKeyCtrlDelete,
          kShiftCtrlLeft, kCtrlX, kCtrlW});
    EXPECT_EQ(Value(), "");
    EXPECT_EQ(CursorColumn(), 0);
}

TEST_F(StringFieldTest, MousePlacesCursorAndSelects) {
    Open("hello world", 20);
    dialog->AddOkCancel(-1, -1, true);
    dialog->SetFocus(1);
    Press(kFieldX + 2, kFieldY);
    dialog->Run(0);
    EXPECT_EQ(dialog->CurrentElement(), 0);
    EXPECT_EQ(CursorColumn(), 2);
    Drag(kFieldX + 5, kFieldY);
    dialog->Run(0);
    EXPECT_EQ(Selection(), "..###.....");
    Drag(kFieldX, kFieldY);
    dialog->Run(0);
    EXPECT_EQ(Selection(), "##........");
    Release(kFieldX, kFieldY);
    Drag(kFieldX + 8, kFieldY);  // the button is up
    dialog->Run(0);
    EXPECT_EQ(Selection(), "##........");
    Click(kFieldX + 18, kFieldY);  // behind the text: its end
    dialog->Run(0);
    EXPECT_EQ(CursorColumn(), 11);
    EXPECT_EQ(Selection(), "..........");
}

TEST_F(StringFieldTest, PressInTheFieldCountsAsTouched) {
    Open("hello");
    Click(kFieldX + 2, kFieldY);
    Typed("x");
    EXPECT_EQ(Value(), "hexllo");
}

TEST_F(StringFieldTest, ClickElsewhereClearsSelectionAndFirstReplacement) {
    Open("hello");
    Keys({kKeyShiftLeft});
    EXPECT_TRUE(Field().HasSelection());
    Click(kX + 40, kY + 8);
    dialog->Run(0);
    EXPECT_FALSE(Field().HasSelection());
    Open("hello");
    Click(kX + 40, kY + 8);
    Typed("x");
    EXPECT_EQ(Value(), "hellox");
}

TEST_F(StringFieldTest, ChangedFromOutsideKeepsItsFeet) {
    Open("a long text here", 20);
    Keys({kKeyShiftLeft, kKeyShiftLeft});
    value = "ab";
    dialog->Redraw(0);
    EXPECT_EQ(CursorColumn(), 2);
    EXPECT_FALSE(Field().HasSelection());
    Keys({kKeyBackspace});
    EXPECT_EQ(Value(), "a");
}

TEST_F(StringFieldTest, KeyPressPaintsAtMostTheField) {
    Open("hello", 10);
    dialog->Run(0);
    screen.ForgetRecords();
    Typed("x");
    EXPECT_LE(screen.PaintedCells(), 10);
    EXPECT_GE(screen.PaintedCells(), 1);
    for (const CellRect& rect : screen.painted) {
        EXPECT_EQ(rect.top, kFieldY);
        EXPECT_GE(rect.left, kFieldX);
        EXPECT_LE(rect.right, kFieldX + 10);
    }
}

TEST_F(StringFieldTest, AcceptedTextGoesIntoItsHistory) {
    AppendFieldHistory("older", 2);
    AppendFieldHistory("Same", 2);
    Open("", 20, -1, 2);
    EXPECT_EQ(Cells(kFieldX + 20, kFieldY, 1), "↓");
    Type("same");
    Key(kKeyEnter);
    EXPECT_EQ(dialog->Run(), 13);
    dialog.reset();
    ASSERT_EQ(FieldHistory(2).Count(), 2);
    EXPECT_EQ(Utf8(*FieldHistory(2).Peek(0)), "older");
    EXPECT_STREQ(FieldHistory(2).Peek(1)->ToUtf8().c_str(), "same");
}

TEST_F(StringFieldTest, CancelledEmptyOrUnrunTextDoesNot) {
    Open("", 20, -1, 2);
    Type("text");
    Key(kKeyEsc);
    dialog->Run();
    dialog.reset();
    EXPECT_EQ(FieldHistory(2).Count(), 0);
    Open("", 20, -1, 2);
    Key(kKeyEnter);
    dialog->Run();
    dialog.reset();
    EXPECT_EQ(FieldHistory(2).Count(), 0);
    Open("never run", 20, -1, 2);
    dialog.reset();
    EXPECT_EQ(FieldHistory(2).Count(), 0);
    Open("text", 20, -1, kNoHistory);
    Key(kKeyEnter);
    dialog->Run();
    dialog.reset();
    for (int i = 0; i < kFieldHistoryCount; ++i)
        EXPECT_EQ(FieldHistory(i).Count(), 0);
}

std::vector<std::string> kept;

TEST_F(StringFieldTest, KeeperTakesTheTextInPlaceOfTheMemory) {
    kept.clear();
    SetFieldHistoryKeeper([](const Westring& text, int number) {
        kept.push_back(std::to_string(number) + ":" + Utf8(text));
    });
    Open("text", 20, -1, 5);
    Key(kKeyEnter);
    dialog->Run();
    dialog.reset();
    SetFieldHistoryKeeper(nullptr);
    EXPECT_EQ(kept, std::vector<std::string>{"5:text"});
    EXPECT_EQ(FieldHistory(5).Count(), 0);
}

class StringFieldHistory : public StringFieldTest {
protected:
    void Fill() {
        for (const char* text : {"first", "second", "third"})
            AppendFieldHistory(text, 2);
    }
};

TEST_F(StringFieldHistory, DropsDownUnderTheField) {
    Fill();
    Open("abc", 12, -1, 2);
    Key(kKeyAltDown);
    Key(kKeyEsc);
    dialog->Run(0);
    const Screen& list = screen.screens[1];
    const int top = list.RowOf("╔════════════╗");
    // The dialog's own frame is wider, so this is the list's.
    EXPECT_EQ(top, kFieldY + 1);
    EXPECT_NE(list.rows[static_cast<size_t>(kFieldY + 4)].find("║third       ║"),
              std::string::npos);
    EXPECT_EQ(list.attributes[static_cast<size_t>(kFieldY + 4)][kFieldX], 0x0F);
    EXPECT_EQ(list.attributes[static_cast<size_t>(kFieldY + 3)][kFieldX], 0x3F);
    EXPECT_NE(list.rows[static_cast<size_t>(kFieldY + 8)].find("╚════════════╝"),
              std::string::npos);
    EXPECT_EQ(Value(), "abc");
    EXPECT_EQ(screen.GetCursorSize(), 15);
    EXPECT_EQ(CursorColumn(), 3);
}

TEST_F(StringFieldHistory, EnterPutsTheChosenTextIntoTheField) {
    Fill();
    Open("abc", 12, -1, 2);
    Keys({kKeyAltDown, kKeyUp, kKeyEnter});
    EXPECT_EQ(Value(), "second");
    EXPECT_EQ(Cells(kFieldX, kFieldY, 12), "second      ");
    Typed("!");
    EXPECT_EQ(Value(), "second!");
}

TEST_F(StringFieldHistory, OpensByAClickOnTheArrow) {
    Fill();
    Open("abc", 12, -1, 2);
    dialog->AddOkCancel(-1, -1, true);
    dialog->SetFocus(1);
    Press(kFieldX + 12, kFieldY);
    Key(kKeyEnter);
    dialog->Run(0);
    EXPECT_EQ(Value(), "third");
    EXPECT_EQ(dialog->CurrentElement(), 0);
}

TEST_F(StringFieldHistory, EmptyOrMissingHistoryDoesNotOpen) {
    Open("abc", 12, -1, 3);
    Keys({kKeyAltDown});
    EXPECT_EQ(Value(), "abc");
    Open("abc", 12, -1, kNoHistory);
    Keys({kKeyAltDown});
    EXPECT_EQ(Value(), "abc");
    EXPECT_EQ(Cells(kFieldX + 12, kFieldY, 1), " ");
}

TEST_F(StringFieldHistory, StandsOverTheFieldWhereTheScreenEnds) {
    Fill();
    value = "";
    Dialog low(10, 18, 69, 23, 0x70);
    low.AddString(2, 1, true, value, 12, -1, 2);
    Key(kKeyAltDown);
    Key(kKeyEnter);
    low.Run(0);
    EXPECT_EQ(screen.screens[1].RowOf("║third       ║"), 20 - 8 + 3);
    EXPECT_EQ(Utf8(value), "third");
}

TEST_F(StringFieldHistory, ReachesAtMostToTheScreensEdge) {
    AppendFieldHistory(Westring::Repeat(L'w', 200), 2);
    Open("", 12, -1, 2);
    Key(kKeyAltDown);
    Key(kKeyEsc);
    dialog->Run(0);
    EXPECT_NE(screen.screens[1].rows[static_cast<size_t>(kFieldY + 2)].find("w║"),
              std::string::npos);
    EXPECT_EQ(screen.screens[1].attributes[static_cast<size_t>(kFieldY + 2)][79], 0x30);
}

TEST_F(StringFieldHistory, TooLongATextIsCut) {
    Fill();
    Open("", 12, 3, 2);
    Keys({kKeyAltDown, kKeyEnter});
    EXPECT_EQ(Value(), "thi");
}

class IntegerFieldTest : public StringFieldTest {
protected:
    void OpenNumber(int start, int width = 5, bool keepTyped = false) {
        number = start;
        dialog = std::make_unique<Dialog>(10, 5, 69, 19, 0x70);
        dialog->AddInteger(2, 1, true, number, width, keepTyped, kNoHistory);
    }
    std::string Shown(int width = 6) { return Cells(kFieldX, kFieldY, width); }
    int number = 0;
};

TEST_F(IntegerFieldTest, ShowsAndReadsDecimalDigits) {
    OpenNumber(42);
    EXPECT_EQ(Shown(), "42    ");
    Typed("123");
    EXPECT_EQ(number, 123);
    EXPECT_EQ(Shown(), "123   ");
    Keys({kKeyBackspace});
    EXPECT_EQ(number, 12);
    EXPECT_EQ(static_cast<int>(dialog->Element(0)->Type()), 5);
}

TEST_F(IntegerFieldTest, RefusesAllButDigits) {
    OpenNumber(5);
    Keys({kKeyEnd, '-', 'a', ' ', kKeyGreyMinus, kKeyGreyPlus, '7', 0xE9, 0x661});
    EXPECT_EQ(number, 57);
    EXPECT_EQ(Shown(), "57    ");
}

TEST_F(IntegerFieldTest, LetterMayBeAButtonsKey) {
    OpenNumber(5);
    dialog->AddButton(2, 3, true, 's', "Skip");
    Key('s');
    EXPECT_EQ(dialog->Run(), 's');
}

TEST_F(IntegerFieldTest, HoldsAsManyDigitsAsItIsWide) {
    OpenNumber(0, 3);
    Typed("12345");
    EXPECT_EQ(number, 123);
    dialog->Run(0);
    EXPECT_EQ(CursorColumn(), 3);  // behind the last cell
    EXPECT_EQ(Shown(4), "123 ");
}

TEST_F(IntegerFieldTest, TooLargeANumberIsTheLargest) {
    OpenNumber(0, 30);
    Typed("99999999999999999999999");
    EXPECT_EQ(number, INT32_MAX);
}

TEST_F(IntegerFieldTest, EmptyMeansZero) {
    OpenNumber(7);
    Keys({kKeyBackspace});
    EXPECT_EQ(number, 0);
    EXPECT_EQ(Shown(), "0     ");
    OpenNumber(7, 5, true);
    Keys({kKeyBackspace});
    EXPECT_EQ(number, 0);
    EXPECT_EQ(Shown(), "      ");
}

TEST_F(IntegerFieldTest, ZeroOfAnEmptiedFieldGivesWayToWhatIsTyped) {
    for (const int width : {1, 5}) {
        OpenNumber(7, width);
        Keys({kKeyBackspace});
        EXPECT_EQ(Shown(1), "0");
        Typed("5");
        EXPECT_EQ(number, 5);
        EXPECT_EQ(Shown(1), "5");
    }
    OpenNumber(30);
    Keys({kKeyHome, kKeyDelete});  // a zero that is left over is a digit like others
    EXPECT_EQ(number, 0);
    Keys({kKeyEnd});
    Typed("5");
    EXPECT_EQ(number, 5);
}

TEST_F(IntegerFieldTest, HoldsEighteenDigitsAtMost) {
    OpenNumber(0, 30, true);
    Typed("00000000000000000012");
    EXPECT_EQ(Shown(20), "000000000000000000  ");
    EXPECT_EQ(number, 0);
}

TEST_F(IntegerFieldTest, KeepsDigitsAsTypedOnRequest) {
    OpenNumber(0, 5, true);
    Typed("007");
    EXPECT_EQ(number, 7);
    EXPECT_EQ(Shown(), "007   ");
    number = 8;  // no longer what the digits mean
    dialog->Redraw(0);
    EXPECT_EQ(Shown(), "8     ");
    OpenNumber(0, 5, false);
    Typed("007");
    EXPECT_EQ(Shown(), "7     ");
}

TEST_F(IntegerFieldTest, FollowsItsVariable) {
    OpenNumber(1);
    number = 99;
    dialog->Redraw(0);
    EXPECT_EQ(Shown(), "99    ");
}

}  // namespace
}  // namespace zt
