// What a deletion puts on the screen: its window and the question about a tree, cell by cell.
#include "fileops/screen_user.h"

#include <gtest/gtest.h>

#include "foundation/settings.h"
#include "tests/console/fake_console.h"
#include "ui/dialog.h"

namespace zt {
namespace {

constexpr int kMessageColour = 0x70, kAlertColour = 0x4F;

class DeletionOnScreen : public testing::Test {
protected:
    DeletionOnScreen() { settings = Settings(); }
    ~DeletionOnScreen() override { settings = Settings(); }

    // The row of the window that holds the path, frame included, with text `width` columns wide.
    std::string PathRow(int width) {
        const int whole = width + 4;
        return screen.Text((80 - whole) / 2, 7, whole);
    }
    bool Shows(const std::string& text) {
        for (int row = 0; row < 25; row++) {
            if (screen.RowText(row).find(text) != std::string::npos) return true;
        }
        return false;
    }
    void Ask(const Westring& path, int expected) {
        screen.PushKey(kKeyEsc);
        EXPECT_EQ(expected, user.AskDeleteTree(path));
    }

    FakeConsole screen;
    ScreenUser user;
};

TEST_F(DeletionOnScreen, HasAWindowOfEighteenColumnsAtLeast) {
    user.ShowDeleting(L"/a/b");
    EXPECT_EQ("╔════════════════════╗", screen.Text(29, 5, 22));
    EXPECT_EQ("║ Deleting the file  ║", screen.Text(29, 6, 22));
    EXPECT_EQ("║        /a/b        ║", screen.Text(29, 7, 22));
    EXPECT_EQ("╚════════════════════╝", screen.Text(29, 8, 22));
    for (const int row : {5, 6, 7, 8})
        EXPECT_EQ(kMessageColour, screen.AttributeAt(29, row));
    EXPECT_EQ(kMessageColour, screen.AttributeAt(38, 7));
    user.HideDeleting();
    EXPECT_FALSE(Shows("Deleting"));
    EXPECT_FALSE(Shows("/a/b"));
}

TEST_F(DeletionOnScreen, ForgetsTheWidthWithTheWindow) {
    const Westring path = L"/a/" + Westring::Repeat(L'n', 20);  // 23 columns
    user.ShowDeleting(path);
    EXPECT_EQ("║ /a/" + std::string(20, 'n') + "  ║", PathRow(24));
    user.HideDeleting();
    user.ShowDeleting(L"/a/b");
    EXPECT_EQ("║        /a/b        ║", PathRow(18));
}

TEST_F(DeletionOnScreen, IsAsWideAsTheWidestPathEvenOfThoseThatPassBy) {
    user.ShowDeleting(L"/a/b");
    user.ShowDeleting(L"/a/" + Westring::Repeat(L'n', 200));  // too soon after the first to be seen
    user.ShowDeleting(L"/a/c");
    EXPECT_TRUE(Shows("/a/b"));
    screen.PushKey(kKeyEsc);
    int code = EACCES;
    bool stop = false;
    user.TellError(nullptr, code, stop, L"/a/c", Westring());
    EXPECT_EQ("║" + std::string(34, ' ') + "/a/c", PathRow(70).substr(0, 3 + 34 + 4));
    EXPECT_FALSE(Shows("/a/b")) << "before a box the window shows what the box is about";
}

TEST_F(DeletionOnScreen, AsksAboutATreeInTheColourOfAlerts) {
    int seen = -1;
    class Looking : public FakeConsole {
    public:
        explicit Looking(int& where) : attribute(where) {}
        bool ReadEvent(TEvent& event, int timeout) override {
            attribute = AttributeAt(24, 4);
            row = Text(24, 6, 32);
            return FakeConsole::ReadEvent(event, timeout);
        }
        int& attribute;
        std::string row;
    } looking(seen);
    looking.PushKey(kKeyEsc);
    EXPECT_NE('y', user.AskDeleteTree(L"/a"));
    EXPECT_EQ(kAlertColour, seen);
    EXPECT_EQ("║              /a              ║", looking.row) << "27 columns at least, made even";
}

TEST_F(DeletionOnScreen, TakesEscOffTheKeyboardOnly) {
    EXPECT_FALSE(user.EscapePressed()) << "and it does not wait";
    screen.PushText("abc");
    EXPECT_FALSE(user.EscapePressed());
    screen.PushText("a");
    screen.PushKey(kKeyEsc);
    screen.PushText("b");
    EXPECT_TRUE(user.EscapePressed());
}

}  // namespace
}  // namespace zt
