// Message boxes: layout, folding, every button, and the texts of file errors.
#include "ui/message_box.h"

#include <cerrno>
#include <ostream>

#include "foundation/result_codes.h"
#include "tests/ui/ui_fixture.h"
#include "ui/file_error_box.h"
#include "ui/pausable_painter.h"

namespace zt {
namespace {

using MessageBoxTest = UiTest;

TEST_F(MessageBoxTest, LaysOutMessageNameAndButtons) {
    Key(kKeyEnter);
    EXPECT_EQ(MessageBox("Delete this file?", L"/home/user/file", kBoxOkCancel), 'y');
    const Screen& shown = screen.screens[0];
    // 20 columns at least, and 4; 1 line and 4 rows, a third of the 20 free rows down.
    EXPECT_EQ(shown.rows[6], std::string(28, ' ') + "╔══════════════════════╗");
    EXPECT_EQ(shown.rows[7], std::string(28, ' ') + "║  Delete this file?   ║");
    EXPECT_EQ(shown.rows[8], std::string(28, ' ') + "║   /home/user/file    ║");
    EXPECT_EQ(shown.rows[9], std::string(28, ' ') + "║  [ OK ]  [ Cancel ]  ║");
    EXPECT_EQ(shown.rows[10], std::string(28, ' ') + "╚══════════════════════╝");
    EXPECT_EQ(screen.Look().rows[7], "");
}

TEST_F(MessageBoxTest, ColourTellsAlertFromNotice) {
    Key(kKeyEnter);
    MessageBox("Text", nullptr, kBoxOk);
    EXPECT_EQ(screen.screens[0].attributes[7][40], Colour(ColourClass::kErrors));
    Key(kKeyEnter);
    MessageBox("Text", nullptr, kBoxOk | kBoxNotice);
    EXPECT_EQ(screen.screens[1].attributes[7][40], Colour(ColourClass::kMessages));
}

TEST_F(MessageBoxTest, EmptyNameStillHasItsRow) {
    for (const wchar_t* name : {L"", static_cast<const wchar_t*>(nullptr)}) {
        screen.screens.clear();
        Key(kKeyEnter);
        MessageBox("Text", name, kBoxOk);
        const Screen& shown = screen.screens[0];
        EXPECT_EQ(shown.RowOf("Text"), 7);
        EXPECT_EQ(shown.rows[8], std::string(34, ' ') + "║          ║");
        EXPECT_EQ(shown.RowOf("[ OK ]"), 9);
    }
}

struct SetRow {
    const char* name;
    int type;
    int width;  // of the dialog
    const char* buttons;
};

void PrintTo(const SetRow& row, std::ostream* out) {
    *out << row.name;
}

class MessageBoxSets : public UiTest, public testing::WithParamInterface<SetRow> {};

TEST_P(MessageBoxSets, HasItsButtonsAndMinimumWidth) {
    const SetRow& row = GetParam();
    Key(kKeyEsc);
    EXPECT_EQ(MessageBox("?", nullptr, row.type), 27);
    const Screen& shown = screen.screens[0];
    ASSERT_GE(shown.RowOf(row.buttons), 0) << row.buttons;
    const std::string frame = "╔" + [&] {
        std::string bar;
        for (int i = 0; i < row.width - 2; ++i)
            bar += "═";
        return bar;
    }() + "╗";
    EXPECT_EQ(shown.rows[6], std::string(static_cast<size_t>((80 - row.width) / 2), ' ') + frame);
}

INSTANTIATE_TEST_SUITE_P(
    Types, MessageBoxSets,
    testing::Values(SetRow{"Ok", 0, 12, "[ OK ]"}, SetRow{"OkCancel", 1, 24, "[ OK ]  [ Cancel ]"},
                    SetRow{"OkCancelSkipAllNone", 2, 54,
                           "[ OK ]  [ Cancel ]  [ Skip ]  [ All ]  [ None ]"},
                    SetRow{"RetrySkipCancel", 3, 38, "[ Retry ]  [ Skip ]  [ Cancel ]"},
                    SetRow{"OkCancelSkipAllNoneAllOlder", 4, 66,
                           "[ OK ]  [ Cancel ]  [ Skip ]  [ All ]  [ None ]  [ All Older ]"},
                    SetRow{"a number that is none", 9, 12, "[ OK ]"}));

struct AnswerRow {
    int type;
    char plain;  // as a key, 0: none
    char alt;    // with Alt, 0: none
    const char* button;
    int answer;
};

void PrintTo(const AnswerRow& row, std::ostream* out) {
    *out << "type " << row.type << ", " << row.button;
}

class MessageBoxAnswers : public UiTest, public testing::WithParamInterface<AnswerRow> {
protected:
    // The column of the button's first letter on the shown box.
    static int ColumnOf(const Screen& shown, const std::string& button, int row) {
        const std::string& text = shown.rows[static_cast<size_t>(row)];
        const std::string before = text.substr(0, text.find("[ " + button + " ]"));
        return Westring(before.c_str()).Length() + 2;
    }
};

TEST_P(MessageBoxAnswers, KeyQuickKeyAndMouseGiveTheLetter) {
    const AnswerRow& row = GetParam();
    if (row.plain) {
        Key(row.plain);
        EXPECT_EQ(MessageBox("?", nullptr, row.type), row.answer) << "key";
    }
    if (row.alt) {
        Alt(row.alt);
        EXPECT_EQ(MessageBox("?", nullptr, row.type), row.answer) << "quick key";
    }
    // Look first, then click.
    screen.screens.clear();
    Key(kKeyEsc);
    MessageBox("?", nullptr, row.type);
    const Screen shown = screen.screens[0];
    const int buttonRow = shown.RowOf(std::string("[ ") + row.button + " ]");
    ASSERT_GE(buttonRow, 0);
    const int column = ColumnOf(shown, row.button, buttonRow);
    Click(column, buttonRow);
    EXPECT_EQ(MessageBox("?", nullptr, row.type), row.answer) << "mouse";
    if (row.alt) {
        // Its letter stands out, and is the only one.
        const std::vector<int>& line = shown.attributes[static_cast<size_t>(buttonRow)];
        const int plainColour = Colour(ColourClass::kErrors);
        int highlighted = 0;
        for (size_t i = 0; row.button[i]; ++i) {
            if (line[static_cast<size_t>(column) + i] != plainColour) ++highlighted;
        }
        const bool focused = buttonRow >= 0 && line[static_cast<size_t>(column) - 1] != plainColour;
        EXPECT_TRUE(focused || highlighted == 1) << highlighted;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MessageBoxAnswers,
    testing::Values(AnswerRow{0, 'y', 'o', "OK", 'y'}, AnswerRow{1, 'y', 'o', "OK", 'y'},
                    AnswerRow{1, 0, 0, "Cancel", 27}, AnswerRow{2, 'y', 'o', "OK", 'y'},
                    AnswerRow{2, 0, 0, "Cancel", 27}, AnswerRow{2, 's', 's', "Skip", 's'},
                    AnswerRow{2, 'a', 'a', "All", 'a'}, AnswerRow{2, 'e', 'e', "None", 'e'},
                    AnswerRow{3, 'r', 'r', "Retry", 'r'}, AnswerRow{3, 's', 's', "Skip", 's'},
                    AnswerRow{3, 0, 0, "Cancel", 27}, AnswerRow{4, 'y', 'o', "OK", 'y'},
                    AnswerRow{4, 0, 0, "Cancel", 27}, AnswerRow{4, 's', 's', "Skip", 's'},
                    AnswerRow{4, 'a', 'a', "All", 'a'}, AnswerRow{4, 'e', 'e', "None", 'e'},
                    AnswerRow{4, 'd', 'd', "All Older", 'd'}));

TEST_F(MessageBoxTest, EnterRightClickAndClickOutside) {
    for (const int type : {0, 1, 2, 4}) {
        Key(kKeyEnter);
        EXPECT_EQ(MessageBox("?", nullptr, type), 'y');
    }
    Key(kKeyEnter);
    EXPECT_EQ(MessageBox("?", nullptr, kBoxRetrySkipCancel), 'r');
    RightClick(0, 0);
    EXPECT_EQ(MessageBox("?", nullptr, kBoxOkCancel), 'y');
    Click(0, 0);
    EXPECT_EQ(MessageBox("?", nullptr, kBoxOkCancel), 27);
    Key(kKeyRight);
    Key(' ');
    EXPECT_EQ(MessageBox("?", nullptr, kBoxOkCancel), 27);
}

std::string Words(int characters) {  // blanks at 10, 20, ...
    std::string text;
    for (int i = 1; i <= characters; ++i)
        text += i % 10 == 0 ? ' ' : 'x';
    return text;
}

TEST_F(MessageBoxTest, MessageOfTheWidthStaysOnOneLine) {
    const std::string text = Words(71) + "x";  // columns less 8
    Key(kKeyEnter);
    MessageBox(text.c_str(), nullptr, kBoxOk);
    EXPECT_GE(screen.screens[0].RowOf(text), 0);
    EXPECT_EQ(screen.screens[0].RowOf("[ OK ]") - screen.screens[0].RowOf(text), 2);
}

TEST_F(MessageBoxTest, LongerMessageFoldsAtTheLastBlank) {
    const std::string text = Words(72) + "yyy zzz";
    Key(kKeyEnter);
    MessageBox(text.c_str(), nullptr, kBoxOk);
    const Screen& shown = screen.screens[0];
    EXPECT_GE(shown.RowOf(Words(69)), 0);
    EXPECT_EQ(shown.RowOf("xxyyy zzz"), shown.RowOf(Words(69)) + 1);
    EXPECT_FALSE(shown.Has("xxyyy zzzx"));
}

TEST_F(MessageBoxTest, VeryLongMessageTakesManyLines) {
    const std::string text = Words(200);
    Key(kKeyEnter);
    MessageBox(text.c_str(), nullptr, kBoxOk);
    const Screen& shown = screen.screens[0];
    EXPECT_EQ(shown.RowOf("[ OK ]") - shown.RowOf(Words(69)), 4);
}

TEST_F(MessageBoxTest, WordTooLongForTheScreenIsSurvived) {
    const std::string text(300, 'w');
    Key(kKeyEnter);
    EXPECT_EQ(MessageBox(text.c_str(), nullptr, kBoxOk), 'y');
    Key(kKeyEnter);
    EXPECT_EQ(MessageBox(Words(2000).c_str(), nullptr, kBoxOk), 'y');
    EXPECT_EQ(screen.Look().rows[12], "");
}

TEST_F(MessageBoxTest, LongNameIsAbbreviated) {
    const Westring name = "/home/" + Westring::Repeat(L'd', 100) + "/file.txt";
    Key(kKeyEnter);
    MessageBox("Text", name.c_str(), kBoxOk);
    EXPECT_TRUE(screen.screens[0].Has("/home/...ddd"));
    EXPECT_TRUE(screen.screens[0].Has("ddd/file.txt"));
}

TEST_F(MessageBoxTest, StandsInTheMiddleOfALargerScreen) {
    ScreenConsole large(132, 50);
    large.PushKey(kKeyEnter);
    MessageBox("Text", L"name", kBoxOk);
    EXPECT_EQ(large.screens[0].RowOf("╔══════════╗"), 15);
    EXPECT_EQ(large.screens[0].rows[15], std::string(60, ' ') + "╔══════════╗");
}

class StoppedPainter : public IPausablePainter {
public:
    explicit StoppedPainter(ScreenConsole& screen_) : screen(screen_) {}
    void Stop() override {
        ++stops;
        readsBefore = screen.screens.size();
    }
    ScreenConsole& screen;
    int stops = 0;
    size_t readsBefore = 99;
};

TEST_F(MessageBoxTest, PainterIsStoppedBeforeTheBoxAppears) {
    StoppedPainter painter(screen);
    Key(kKeyEnter);
    EXPECT_EQ(MessageBoxWithProgress(&painter, "Text", nullptr, kBoxOk), 'y');
    EXPECT_EQ(painter.stops, 1);
    EXPECT_EQ(painter.readsBefore, 0u);
    Key(kKeyEnter);
    EXPECT_EQ(MessageBoxWithProgress(nullptr, "Text", nullptr, kBoxOk), 'y');
}

struct ErrorRow {
    int code;
    const char* text;
    bool retry;
    bool second;  // shows the second name
};

void PrintTo(const ErrorRow& row, std::ostream* out) {
    *out << row.code << " " << row.text;
}

class FileErrors : public UiTest, public testing::WithParamInterface<ErrorRow> {};

TEST_P(FileErrors, ShowsTextNameAndAnswers) {
    const ErrorRow& row = GetParam();
    int code = row.code;
    bool stop = false;
    Key(kKeyEsc);
    FileErrorBox(code, stop, L"the name", L"the second");
    EXPECT_EQ(code, kCancelled);
    EXPECT_TRUE(stop);
    const Screen& shown = screen.screens[0];
    const int line = shown.RowOf(row.text);
    ASSERT_GE(line, 0);
    EXPECT_EQ(shown.RowOf(row.second ? "the second" : "the name"), line + 1);
    EXPECT_EQ(shown.Has("[ Retry ]"), row.retry);
    EXPECT_EQ(shown.Has("[ OK ]"), !row.retry);
    EXPECT_EQ(shown.attributes[static_cast<size_t>(line)][40], Colour(ColourClass::kErrors));

    code = row.code;
    Key(kKeyEnter);  // try again, or OK
    FileErrorBox(code, stop, L"the name");
    EXPECT_EQ(code, row.code);
    EXPECT_EQ(stop, !row.retry);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, FileErrors,
    testing::Values(ErrorRow{ENOENT, "File not found", false, false},
                    ErrorRow{EIO, "Error reading disk", true, false},
                    ErrorRow{EACCES, "Access Denied", true, false},
                    ErrorRow{ENOTDIR, "Path not found", false, true},
                    ErrorRow{ENOSPC, "No room for", true, false},
                    ErrorRow{EROFS, "Disk write protected, cannot write", true, false},
                    ErrorRow{ENAMETOOLONG, "Name too long", false, true},
                    ErrorRow{kDriveNotReady, "Drive not ready", true, false},
                    ErrorRow{EXDEV, "Invalid cross-device link (18)", true, false},
                    ErrorRow{9999, "Unknown error 9999 (9999)", true, false}));

TEST_F(MessageBoxTest, QuitIsEsc) {
    Quit();
    EXPECT_EQ(MessageBox("Text", nullptr, kBoxOkCancelSkipAllNone), 27);
    int code = EIO;
    bool stop = false;
    FileErrorBox(code, stop, L"name");  // the same quit event
    EXPECT_EQ(code, kCancelled);
    EXPECT_TRUE(stop);
}

TEST_F(MessageBoxTest, SkippedFileErrorStops) {
    int code = EIO;
    bool stop = false;
    Key('s');
    FileErrorBox(code, stop, L"name");
    EXPECT_TRUE(stop);
    EXPECT_EQ(code, EIO);
}

TEST_F(MessageBoxTest, PathErrorWithoutSecondNameShowsTheFirst) {
    int code = ENOTDIR;
    bool stop = false;
    Key(kKeyEnter);
    FileErrorBox(code, stop, L"only name");
    EXPECT_TRUE(screen.screens[0].Has("only name"));
}

}  // namespace
}  // namespace zt
