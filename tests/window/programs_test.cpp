// Programs that run in the window: typed commands, what they paint, the keys that they get, and
// that no program keeps the window from its user.
#include <X11/keysym.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "whole_program.h"

namespace zt::testing {

namespace {

constexpr int kColumns = 80;
constexpr int kRows = 25;
constexpr Rgb kBlack = {0, 0, 0};
constexpr Rgb kRed = {0x7F, 0, 0};
constexpr Rgb kGreen = {0, 0x7F, 0};
// Bit 3: leaving is not asked about.
constexpr char kLeaveUnasked[] = "AutoSave=off\nConfirmations=8\n";
constexpr char kLeaveAsked[] = "AutoSave=off\nConfirmations=0\n";

// Some displays round half of a colour up.
bool IsNear(const Rgb& a, const Rgb& b) {
    const auto near = [](int x, int y) { return std::abs(x - y) <= 2; };
    return near(a.red, b.red) && near(a.green, b.green) && near(a.blue, b.blue);
}

class ProgramsInTheWindow : public WholeProgramTest {
protected:
    // The pixels of one cell.
    static std::vector<Rgb> CellOf(const Picture& picture, int column, int row) {
        const int width = picture.width / kColumns;
        const int height = picture.height / kRows;
        std::vector<Rgb> pixels;
        for (int y = row * height; y < (row + 1) * height; y++)
            for (int x = column * width; x < (column + 1) * width; x++)
                pixels.push_back(picture.At(x, y));
        return pixels;
    }
    bool WaitForColour(int column, int row, Rgb colour) {
        return WaitFor([&] {
            const std::vector<Rgb> cell = CellOf(user->Grab(), column, row);
            return std::all_of(cell.begin(), cell.end(),
                               [&](const Rgb& pixel) { return IsNear(pixel, colour); });
        });
    }
    static bool IsBlank(const Picture& picture, int column, int row) {
        const std::vector<Rgb> cell = CellOf(picture, column, row);
        return std::all_of(cell.begin(), cell.end(), [](const Rgb& p) { return p == kBlack; });
    }
    static bool IsInstalled(const char* path) { return access(path, X_OK) == 0; }
    // A program that tells its number in a file.
    bool IsGone(const char* file) {
        return WaitFor([&] { return kill(std::stoi(home.Content(file)), 0) != 0; });
    }
};

TEST_F(ProgramsInTheWindow, ATypedCommandIsPaintedInItsColours) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("printf '\\033[41m\\033[2J\\033[0;30;42m\\033[5;10H   \\033[0m\\033[25;1H'; read x\n");
    EXPECT_TRUE(WaitForColour(40, 20, kRed));
    const Picture picture = user->Grab();
    for (int column = 0; column < kColumns; column++) {
        const bool isMarked = column >= 9 && column < 12;
        EXPECT_TRUE(IsNear(CellOf(picture, column, 4)[0], isMarked ? kGreen : kRed)) << column;
    }
    Type("\n");
    EXPECT_TRUE(WaitForPanels());
}

TEST_F(ProgramsInTheWindow, TheSameTextIsTheSamePicture) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("printf '\\033[2J\\033[3;5Hab\\033[4;5Hab\\033[5;5Hba'; printf '\\033[25;1H'; read x\n");
    // The panels were there before.
    ASSERT_TRUE(WaitFor([&] {
        const Picture now = user->Grab();
        return !IsBlank(now, 4, 2) && IsBlank(now, 6, 2) && !IsBlank(now, 5, 4);
    }));
    const Picture picture = user->Grab();
    EXPECT_EQ(CellOf(picture, 4, 2), CellOf(picture, 4, 3));
    EXPECT_EQ(CellOf(picture, 5, 2), CellOf(picture, 5, 3));
    EXPECT_EQ(CellOf(picture, 4, 2), CellOf(picture, 5, 4));
    EXPECT_NE(CellOf(picture, 4, 2), CellOf(picture, 5, 2));
    EXPECT_TRUE(IsBlank(picture, 6, 2));
    Type("\n");
    EXPECT_TRUE(WaitForPanels());
}

TEST_F(ProgramsInTheWindow, AnEditorSavesAFile) {
    if (!IsInstalled("/usr/bin/vim")) GTEST_SKIP() << "vim is not installed";
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("vim -u NONE -N -n text\n");
    // The marks of the rows behind the end of the text.
    ASSERT_TRUE(WaitFor([&] {
        const Picture picture = user->Grab();
        return !IsBlank(picture, 0, 22) && IsBlank(picture, 1, 22) && IsBlank(picture, 79, 22);
    }));
    Type("ione\ntwo");
    user->Tap(0, XK_Up);
    Type(" ONE");
    user->Tap(0, XK_Escape);
    Type(":wq\n");
    ASSERT_TRUE(WaitForPanels());
    EXPECT_EQ(home.Content("text"), "one ONE\ntwo\n");
}

TEST_F(ProgramsInTheWindow, CtrlCInterrupts) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("trap 'touch caught; exit' INT; touch ready; while :; do sleep 0.02; done\n");
    ASSERT_TRUE(WaitForFile("ready"));
    user->Tap(kHoldCtrl, XK_c);
    EXPECT_TRUE(WaitForFile("caught"));
    EXPECT_TRUE(WaitForPanels());
}

TEST_F(ProgramsInTheWindow, ShiftInsertPastesIntoTheProgram) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    const ClipboardOwner other("gr\u00FC\u00DFe \u20AC");
    Type("touch ready; read x; printf %s \"$x\" >got; touch done\n");
    ASSERT_TRUE(WaitForFile("ready"));
    Type("[");
    user->Tap(kHoldShift, XK_Insert);
    Type("]\n");
    ASSERT_TRUE(WaitForFile("done"));
    EXPECT_EQ(home.Content("got"), "[gr\u00FC\u00DFe \u20AC]");
    EXPECT_TRUE(WaitForPanels());
}

TEST_F(ProgramsInTheWindow, AProgramKnowsTheSizeOfTheWindow) {
    ASSERT_NO_FATAL_FAILURE(Start(std::string(kLeaveUnasked) + "Lines=31\nColumns=93\n"));
    Type("stty size >got; touch done\n");
    ASSERT_TRUE(WaitForFile("done"));
    EXPECT_EQ(home.Content("got"), "31 93\n");
}

// More keys than a terminal keeps for a program that reads none.
TEST_F(ProgramsInTheWindow, AProgramThatDoesNotReadLeavesTheWindowAlive) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type(
        "stty raw -echo; echo $$ >ready; until test -e go; do sleep 0.02; done; "
        "printf '\\033[41m\\033[2J'; sleep 1000\n");
    ASSERT_TRUE(WaitForFile("ready"));
    for (int i = 0; i < 6000; i++)
        user->Tap(0, XK_x);
    home.File("go");
    EXPECT_TRUE(WaitForColour(40, 12, kRed));
    user->UnmapWindow();
    user->MapWindow();
    EXPECT_TRUE(WaitForColour(40, 12, kRed)) << "painted again";
    user->AskToClose();
    EXPECT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(process.Status(), 0);
    EXPECT_TRUE(IsGone("ready"));
}

TEST_F(ProgramsInTheWindow, ClosingTheWindowHangsAProgramUp) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("trap 'touch hung-up; exit' HUP; touch ready; while :; do sleep 0.02; done\n");
    ASSERT_TRUE(WaitForFile("ready"));
    user->AskToClose();
    EXPECT_TRUE(WaitForFile("hung-up"));
    EXPECT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(process.Status(), 0);
}

// A program that does not care is left alone.
TEST_F(ProgramsInTheWindow, ClosingTheWindowWaitsForNoProgram) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveUnasked));
    Type("trap '' HUP; echo $$ >ready; exec sleep 1000\n");
    ASSERT_TRUE(WaitForFile("ready"));
    user->AskToClose();
    EXPECT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(process.Status(), 0);
    EXPECT_EQ(kill(std::stoi(home.Content("ready")), SIGKILL), 0);
}

TEST_F(ProgramsInTheWindow, ClosingTheWindowAsksFirstWhereThatIsWanted) {
    ASSERT_NO_FATAL_FAILURE(Start(kLeaveAsked));
    Type("trap 'touch hung-up; exit' HUP; touch ready; while :; do sleep 0.02; done\n");
    ASSERT_TRUE(WaitForFile("ready"));
    user->AskToClose();
    EXPECT_TRUE(WaitForFile("hung-up"));
    ASSERT_TRUE(WaitForPanels());
    // Staying is possible, and the next program is not hung up.
    user->Tap(0, XK_Escape);
    Type("sleep 0.3; touch after\n");
    EXPECT_TRUE(WaitForFile("after"));
    ASSERT_TRUE(WaitForPanels());
    user->AskToClose();
    user->Tap(0, XK_Return);
    EXPECT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(process.Status(), 0);
}

}  // namespace

}  // namespace zt::testing
