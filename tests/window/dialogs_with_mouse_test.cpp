// The whole program in its window, on an X server of each test's own: its menus, dialogs and
// function keys worked with the mouse. What happened is read from the settings that it saves.
//
// Nothing waits between two clicks: they reach the program in the order in which they were made.
#include <X11/keysym.h>

#include <sstream>
#include <string>
#include <vector>

#include "whole_program.h"

namespace zt::testing {

namespace {

constexpr int kColumns = 80;
constexpr int kRows = 25;
constexpr int kLeftButton = 1;
constexpr int kRightButton = 3;

struct Cell {
    int column;
    int row;
};

// On a screen of 80x25. A dialog's elements stand inside its frame.
constexpr Cell kOptionsTitle = {35, 0};
constexpr Cell kConfigurationEntry = {36, 2};
constexpr Cell kColoursEntry = {36, 3};
constexpr Cell kConfirmationsEntry = {36, 4};
constexpr Cell kHiddenFilesEntry = {36, 6};
constexpr Cell kClockEntry = {36, 9};
constexpr Cell kSaveSetupEntry = {36, 14};
constexpr Cell kPullDownKey = {66, 24};
constexpr Cell kQuitKey = {78, 24};
constexpr Cell kQuestionOk = {33, 9};
constexpr Cell kQuestionCancel = {44, 9};
constexpr Cell kConfigurationOrigin = {3, 3};
constexpr Cell kConfigurationOk = {28, 19};
constexpr Cell kConfigurationCancel = {38, 19};
constexpr Cell kPathListOrigin = {11, 2};
constexpr Cell kConfirmationsOrigin = {19, 4};
constexpr Cell kConfirmationsOk = {28, 15};
constexpr Cell kColourListOrigin = {26, 3};
constexpr Cell kColoursOk = {33, 20};
constexpr Cell kColoursCancel = {43, 20};

std::vector<std::string> Numbers(const std::string& list) {
    std::vector<std::string> numbers;
    std::istringstream words(list);
    for (std::string word; words >> word;)
        numbers.push_back(word);
    return numbers;
}

constexpr Cell In(Cell origin, int column, int row) {
    return {origin.column + column, origin.row + row};
}

class DialogsWithMouse : public WholeProgramTest {
protected:
    void MoveTo(Cell cell) {
        const WindowPlace place = user->Place();
        const int width = place.width / kColumns;
        const int height = place.height / kRows;
        user->MoveTo(cell.column * width + width / 2, cell.row * height + height / 2);
    }

    void Click(Cell cell, int button = kLeftButton) {
        MoveTo(cell);
        user->Click(button);
    }

    void Drag(std::initializer_list<Cell> cells) {
        MoveTo(*cells.begin());
        user->Button(kLeftButton, true);
        for (const Cell& cell : cells)
            MoveTo(cell);
        user->Button(kLeftButton, false);
    }

    void Choose(Cell entry) {
        Click({22, 0}, kRightButton);
        Click(kOptionsTitle);
        Click(entry);
    }

    // The value of a key in the settings as the program has them now.
    std::string Saved(const std::string& key) {
        home.Remove(".ztx/zt.ini");
        Choose(kSaveSetupEntry);
        return ValueInTheFile(key);
    }

    std::string ValueInTheFile(const std::string& key) {
        if (!WaitFor([&] { return home.Exists(".ztx/zt.ini") || process.HasEnded(); }) ||
            process.HasEnded()) {
            return "(nothing was saved)";
        }
        std::istringstream lines(home.Content(".ztx/zt.ini"));
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(key + "=")) return line.substr(key.size() + 1);
        }
        return "(no such key)";
    }
};

// One element of the configuration dialog clicked, and a key where it takes one.
struct ElementRow {
    const char* element;
    const char* key;
    const char* before;
    Cell cell;       // inside the dialog
    uint32_t typed;  // a key symbol; 0: none
    const char* after;
};

constexpr ElementRow kElements[] = {
    {"CheckBoxOff", "AutoSave", "off", {52, 1}, 0, "on"},
    {"CheckBoxOn", "NaturalSort", "on", {52, 5}, 0, "off"},
    {"CheckBoxLabel", "EscPanelSwitch", "off", {60, 3}, 0, "on"},
    {"RadioButton", "TimeMode", "24", {62, 11}, 0, "12"},
    {"OtherRadioButton", "TimeMode", "12", {62, 12}, 0, "24"},
    {"ChosenRadioButton", "TimeMode", "12", {62, 11}, 0, "12"},
    {"StringField", "Viewer", "abcdef", {31, 1}, XK_x, "abcxdef"},
    {"StringFieldPastItsText", "Editor", "abc", {45, 3}, XK_x, "abcx"},
    {"IntegerField", "ScrollDelay", "50", {66, 9}, XK_7, "570"},
};

std::ostream& operator<<(std::ostream& out, const ElementRow& row) {
    return out << row.element;
}

class ElementWithMouse : public DialogsWithMouse, public ::testing::WithParamInterface<ElementRow> {
protected:
    void ClickTheElement() {
        Choose(kConfigurationEntry);
        Click(In(kConfigurationOrigin, GetParam().cell.column, GetParam().cell.row));
        if (GetParam().typed != 0) user->Tap(0, GetParam().typed);
    }
    std::string Settings() {
        return "AutoSave=off\n" + std::string(GetParam().key) + "=" + GetParam().before + "\n";
    }
};

TEST_P(ElementWithMouse, TakesItsClickWithOk) {
    ASSERT_NO_FATAL_FAILURE(Start(Settings()));
    ClickTheElement();
    Click(kConfigurationOk);
    EXPECT_EQ(GetParam().after, Saved(GetParam().key));
}

TEST_P(ElementWithMouse, LosesItsClickWithCancel) {
    ASSERT_NO_FATAL_FAILURE(Start(Settings()));
    ClickTheElement();
    Click(kConfigurationCancel);
    EXPECT_EQ(GetParam().before, Saved(GetParam().key));
}

INSTANTIATE_TEST_SUITE_P(Each, ElementWithMouse, ::testing::ValuesIn(kElements),
                         [](const auto& row) { return row.param.element; });

TEST_F(DialogsWithMouse, ADragSelectsInAStringFieldWhatIsTypedOver) {
    ASSERT_NO_FATAL_FAILURE(Start("Viewer=abcdef\n"));
    Choose(kConfigurationEntry);
    Drag({In(kConfigurationOrigin, 29, 1), In(kConfigurationOrigin, 32, 1)});
    user->Tap(0, XK_z);
    Click(kConfigurationOk);
    EXPECT_EQ("azef", Saved("Viewer"));
}

TEST_F(DialogsWithMouse, AClickOnAListRowChoosesIt) {
    ASSERT_NO_FATAL_FAILURE(Start("PathAppend=/a:/b:/c:/d\n"));
    Choose(kConfigurationEntry);
    Click(In(kConfigurationOrigin, 30, 12));
    user->Tap(0, XK_F4);
    Click(In(kPathListOrigin, 2, 2));
    user->Tap(0, XK_Delete);
    user->Tap(0, XK_Return);
    Click(kConfigurationOk);
    EXPECT_EQ("/a:/b:/d", Saved("PathAppend"));
}

TEST_F(DialogsWithMouse, AClickOnAColourRowChoosesWhatIsStepped) {
    std::string colours;
    for (int i = 0; i < 21; i++)
        colours += std::to_string(i + 1) + " ";
    ASSERT_NO_FATAL_FAILURE(Start("Colours=" + colours + "\n"));
    std::vector<std::string> before = Numbers(Saved("Colours"));
    Choose(kColoursEntry);
    Click(In(kColourListOrigin, 5, 3));
    user->Tap(0, XK_f);
    Click(In(kColourListOrigin, 5, 7));
    user->Tap(0, XK_b);
    Click(kColoursOk);
    const std::vector<std::string> after = Numbers(Saved("Colours"));
    before.at(3) = std::to_string(4 + 1);
    before.at(7) = std::to_string(8 + 16);
    EXPECT_EQ(before, after);

    Choose(kColoursEntry);
    Click(In(kColourListOrigin, 5, 4));
    user->Tap(0, XK_f);
    Click(kColoursCancel);
    EXPECT_EQ(after, Numbers(Saved("Colours")));
}

TEST_F(DialogsWithMouse, TheConfirmationsFollowTheirBoxes) {
    ASSERT_NO_FATAL_FAILURE(Start("Confirmations=0\n"));
    Choose(kConfirmationsEntry);
    Click(In(kConfirmationsOrigin, 2, 1));
    Click(In(kConfirmationsOrigin, 2, 5));
    Click(kConfirmationsOk);
    EXPECT_EQ("5", Saved("Confirmations"));
}

TEST_F(DialogsWithMouse, TheMenuOpensUnderThePressedButtonAndTakesWhereItIsReleased) {
    ASSERT_NO_FATAL_FAILURE(Start("Hidden=off\nClock=off\n"));
    Click({22, 0}, kRightButton);
    Drag({{12, 0}, kOptionsTitle, kClockEntry, kHiddenFilesEntry});
    EXPECT_EQ("on", Saved("Hidden"));
    EXPECT_EQ("off", ValueInTheFile("Clock"));
}

TEST_F(DialogsWithMouse, TheMenuIsLeftByAReleaseBesideIt) {
    ASSERT_NO_FATAL_FAILURE(Start("Hidden=off\n"));
    Click({22, 0}, kRightButton);
    Drag({kOptionsTitle, kHiddenFilesEntry, {5, 20}});
    EXPECT_EQ("off", Saved("Hidden"));
}

TEST_F(DialogsWithMouse, AFunctionKeyIsClicked) {
    ASSERT_NO_FATAL_FAILURE(Start("Hidden=off\n"));
    Click(kPullDownKey);
    Click(kOptionsTitle);
    Click(kHiddenFilesEntry);
    EXPECT_EQ("on", Saved("Hidden"));
}

TEST_F(DialogsWithMouse, AFunctionKeyIsAnotherWithShift) {
    ASSERT_NO_FATAL_FAILURE(Start("Hidden=on\n"));
    home.Remove(".ztx/zt.ini");
    user->Key(XK_Shift_L, true);
    Click(kPullDownKey);
    user->Key(XK_Shift_L, false);
    EXPECT_EQ("on", ValueInTheFile("Hidden"));
}

TEST_F(DialogsWithMouse, AFunctionKeyReleasedElsewhereDoesNothing) {
    ASSERT_NO_FATAL_FAILURE(Start("AutoSave=off\n"));
    home.Remove(".ztx/zt.ini");
    user->Key(XK_Shift_L, true);
    Drag({kPullDownKey, {40, 10}});
    user->Key(XK_Shift_L, false);
    ASSERT_NO_FATAL_FAILURE(Quit());
    EXPECT_FALSE(home.Exists(".ztx/zt.ini"));
}

TEST_F(DialogsWithMouse, TheExitQuestionIsAnsweredByItsButtons) {
    ASSERT_NO_FATAL_FAILURE(Start("AutoSave=off\nHidden=on\n"));
    Click(kQuitKey);
    Click(kQuestionCancel);
    EXPECT_EQ("on", Saved("Hidden")) << "the program goes on";
    Click(kQuitKey);
    Click(kQuestionOk);
    EXPECT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(0, process.Status());
}

}  // namespace

}  // namespace zt::testing
