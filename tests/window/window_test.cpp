// The window itself: opening, title, icons, size, place, end.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "foundation/string_lists.h"
#include "window_fixture.h"

namespace zt::testing {

class WindowItself : public WindowTest {
protected:
    ::testing::AssertionResult GetsTitle(const std::string& title) {
        if (WaitFor([&] { return user->Title() == title; })) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "the title is " << user->Title();
    }
    void GetGrid(int& columns, int& rows) { Console().GetSize(columns, rows); }
};

TEST_F(WindowItself, OpensWithABlankGridOf80By25) {
    int columns;
    int rows;
    GetGrid(columns, rows);
    EXPECT_EQ(columns, 80);
    EXPECT_EQ(rows, 25);
    const WindowPlace place = user->Place();
    EXPECT_EQ(place.width % 80, 0);
    EXPECT_EQ(place.height % 25, 0);
    EXPECT_TRUE(IsAll(GrabPainted(), Rgb{0, 0, 0}));
    EXPECT_EQ(user->Title(), "Zanthe");
}

TEST_F(WindowItself, ShowsItsTitle) {
    Console().SetTitle(L"Zanthe: \u00e4\u4e2d");
    EXPECT_TRUE(GetsTitle("Zanthe: \u00e4\u4e2d"));
    Console().SetCodePage(850);
    Console().SetTitleBytes("\x84");
    EXPECT_TRUE(GetsTitle("\u00e4"));
    Console().SetTitle(L"");
    EXPECT_TRUE(GetsTitle(""));
}

TEST_F(WindowItself, ShowsTheRemoteHostBeforeTheTitle) {
    window->SetRemoteHost("big.example");
    Console().SetTitle(L"/tmp");
    EXPECT_TRUE(GetsTitle("Remote (big.example) /tmp"));
}

TEST_F(WindowItself, ShowsRawBytesOfANameInTheTitleAsTheirCharacters) {
    const wchar_t name[] = {L'x', 0x1100E9, 0};
    Console().SetTitle(name);
    EXPECT_TRUE(GetsTitle("x\u00e9"));
}

TEST_F(WindowItself, LeavesOutIconsThatCannotBeLoaded) {
    EstringStore paths;
    paths.Append(new Estring("/nonexistent/icon.png"));
    paths.Append(new Estring(ZT_TEST_ICON));
    paths.Append(new Estring("/dev/null"));
    EXPECT_EQ(user->IconWords(), 0);
    Console().SetIconList(paths);
    EXPECT_TRUE(WaitFor([this] { return user->IconWords() == 2 + 16 * 16; }));
}

TEST_F(WindowItself, RingsTheBell) {
    Console().Beep();
    EXPECT_TRUE(WaitFor([this] { return user->Bells() == 1; }));
}

TEST_F(WindowItself, ResizesAndLosesItsContents) {
    Console().FillRect(0, 0, 80, 25, 0x4F);
    const int width = CellWidth();
    const int height = CellHeight();
    EXPECT_EQ(Console().Resize(100, 40, "", 0), 1);
    int columns;
    int rows;
    GetGrid(columns, rows);
    EXPECT_EQ(columns, 100);
    EXPECT_EQ(rows, 40);
    ASSERT_TRUE(WaitFor([&] { return user->Place().width == 100 * width; }));
    EXPECT_EQ(user->Place().height, 40 * height);
    EXPECT_TRUE(WaitFor([&] { return IsAll(GrabPainted(), Rgb{0, 0, 0}); }));
    Cell* cells = Console().ReadCells(0, 0, 100, 40);
    for (int i = 0; i < 100 * 40; i++)
        EXPECT_EQ(cells[i], kBlankCell);
    delete[] cells;
}

TEST_F(WindowItself, ResizesToASmallerGrid) {
    const int width = CellWidth();
    EXPECT_EQ(Console().Resize(40, 10, nullptr, 0), 1);
    EXPECT_TRUE(WaitFor([&] { return user->Place().width == 40 * width; }));
    Console().FillRect(0, 0, 40, 10, 0x20);
    EXPECT_TRUE(WaitFor([&] { return IsAll(GrabPainted(), Rgb{0, 0x7F, 0}); }));
}

TEST_F(WindowItself, TakesAnotherFontSize) {
    const int width = CellWidth();
    const int height = CellHeight();
    EXPECT_EQ(Console().Resize(80, 25, nullptr, 18), 1);
    EXPECT_TRUE(WaitFor([&] { return user->Place().width > 80 * width; }));
    EXPECT_GT(CellHeight(), height);
    EXPECT_EQ(Console().Resize(80, 25, nullptr, 0), 1) << "size 0 keeps the present one";
    window->WaitPainted();
    EXPECT_GT(CellHeight(), height);
    EXPECT_EQ(Console().Resize(80, 25, nullptr, 12), 1);
    EXPECT_TRUE(WaitFor([&] { return user->Place().width == 80 * width; }));
}

TEST_F(WindowItself, RefusesASizeThatNoWindowCanHave) {
    EXPECT_EQ(Console().Resize(100000, 25, nullptr, 0), 0);
    int columns;
    int rows;
    GetGrid(columns, rows);
    EXPECT_GT(columns, 80);
    EXPECT_LT(columns * CellWidth(), 32768);
    EXPECT_EQ(rows, 25);
    EXPECT_EQ(Console().Resize(0, -3, nullptr, 0), 0);
    GetGrid(columns, rows);
    EXPECT_GE(columns, 1);
    EXPECT_GE(rows, 1);
    EXPECT_EQ(Console().Resize(80, 25, "No such family at all", 1), 1);
    window->WaitPainted();
    Console().Resize(80, 25, nullptr, 1000000);
    window->WaitPainted();
    GetGrid(columns, rows);
    EXPECT_LT(columns * CellWidth(), 32768);
    EXPECT_LT(rows * CellHeight(), 32768);
}

TEST_F(WindowItself, MovesBackOntoTheScreenWhenItGrows) {
    const int width = 100 * CellWidth();
    const int height = 40 * CellHeight();
    const int screenWidth = user->ScreenWidth();
    const int screenHeight = user->ScreenHeight();
    ASSERT_LT(width, screenWidth);
    const WindowPlace old = user->Place();
    user->MoveWindow(screenWidth - old.width, screenHeight - old.height);
    DropEvents();
    window->WaitPainted();
    ASSERT_EQ(Console().Resize(100, 40, nullptr, 0), 1);
    EXPECT_TRUE(WaitFor([&] { return user->Place().x == screenWidth - width; }));
    EXPECT_TRUE(WaitFor([&] { return user->Place().y == screenHeight - height; }));
}

TEST_F(WindowItself, NeverMovesToANegativePlace) {
    user->MoveWindow(50, 60);
    window->WaitPainted();
    const int columns = user->ScreenWidth() / CellWidth() + 20;
    const int rows = user->ScreenHeight() / CellHeight() + 10;
    ASSERT_EQ(Console().Resize(columns, rows, nullptr, 0), 1);
    EXPECT_TRUE(WaitFor([&] { return user->Place().x == 0 && user->Place().y == 0; }));
}

TEST_F(WindowItself, PaintsWhatChangedWhileItWasNotShown) {
    user->UnmapWindow();
    ASSERT_TRUE(WaitFor([this] { return !user->IsWindowShown(); }));
    // Nothing is painted out of sight, from the moment on that the window knows of it.
    Attribute attribute = 0;
    EXPECT_TRUE(WaitFor([&] {
        const int64_t before = window->CellsPainted();
        Console().FillRect(0, 0, 80, 25, attribute = attribute == 0x10 ? 0x20 : 0x10);
        window->WaitPainted();
        return window->CellsPainted() == before;
    }));
    Console().FillRect(0, 0, 80, 25, 0x20);
    user->MapWindow();
    EXPECT_TRUE(WaitFor([this] {
        return user->IsWindowShown() && IsAll(GrabPainted(), Rgb{0, 0x7F, 0});
    }));
}

TEST_F(WindowItself, EndsAtOnceAfterOpening) {
    for (int i = 0; i < 5; i++) {
        window.reset();
        int argc = 0;
        char* nothing[] = {nullptr};
        char** argv = nothing;
        window = OpenWindowConsole(argc, argv);
        ASSERT_NE(window, nullptr);
    }
}

TEST_F(WindowItself, LeavesNoWindowBehind) {
    window.reset();
    EXPECT_TRUE(WaitFor([this] { return !user->FindWindow(); }));
}

int OpenWithoutDisplay() {
    setenv("DISPLAY", ":4242", 1);
    int argc = 0;
    char* nothing[] = {nullptr};
    char** argv = nothing;
    return OpenWindowConsole(argc, argv) == nullptr ? 42 : 1;
}

TEST(WindowWithoutDisplay, IsNotOpened) {
    // In a process of its own, as the toolkit looks for the display only once.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(_exit(OpenWithoutDisplay()), ::testing::ExitedWithCode(42), "^$")
        << "it must neither crash, nor end the process by itself, nor write anything";
}

// The words that are left, one a line, on standard error.
int OpenWithArguments() {
    if (!TheXServer().IsRunning()) return 1;
    char program[] = "zt";
    char known[] = "--name=other";
    char ours[] = "-l";
    char directory[] = "/tmp";
    char* words[] = {program, known, ours, directory, nullptr};
    int argc = 4;
    char** argv = words;
    const auto window = OpenWindowConsole(argc, argv);
    for (int i = 0; i < argc; i++)
        std::fprintf(stderr, "%s\n", argv[i]);
    return window != nullptr ? 42 : 1;
}

TEST(WindowArguments, AreTakenOutWhenTheToolkitKnowsThem) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(_exit(OpenWithArguments()), ::testing::ExitedWithCode(42), "^zt\n-l\n/tmp\n$");
}

}  // namespace zt::testing
