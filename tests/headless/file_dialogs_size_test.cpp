// The dialogs about files on screens that are too small for them, or larger than usual: they can be
// left, and leave the screen as it was.
#include "tests/headless/box_rows.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

TEST(FileDialogs, OnScreensOfEverySizeLeaveThemAsTheyWere) {
    FileTree tree;
    tree.File("a file").File("another");
    const struct {
        int columns, rows;
    } sizes[] = {{40, 10}, {40, 25}, {80, 12}, {80, 50}, {132, 43}, {200, 60}};
    for (const auto& size : sizes) {
        SessionOptions options;
        options.directory = tree.Path();
        options.columns = size.columns;
        options.rows = size.rows;
        Session session(options);
        session.Press("Down");
        for (const char* key : {"Ctrl-a", "Ctrl-c", "Ctrl-i", "F7", "Ctrl-Shift-F5"}) {
            const std::string before = session.Text();
            session.Press(key);
            EXPECT_NE(before, session.Text()) << key << " at " << size.columns;
            session.Press({"Tab", "Tab", "Tab", "Tab", "Esc"});
            EXPECT_EQ(before, session.Text()) << key << " at " << size.columns;
        }
        session.Press({"Ins", "Ins"});
        for (const char* key : {"Ctrl-a", "Ctrl-c", "Ctrl-Shift-F5"}) {
            const std::string before = session.Text();
            session.Press({key, "Tab", "Esc"});
            EXPECT_EQ(before, session.Text()) << key << " at " << size.columns;
        }
    }
}

// The mouse reaches labels as well as boxes and buttons.
TEST(FileDialogs, TakeTheMouse) {
    FileTree tree;
    tree.File("Ab.Cd");
    SessionOptions options;
    options.directory = tree.Path();
    Session session(options);
    session.Press({"Down", "Ctrl-c"});
    session.Click(Mouse::kLeft, 22 + 1 + 8, 2 + 1 + 6);    // "Upper" of the name
    session.Click(Mouse::kLeft, 22 + 1 + 20, 2 + 1 + 8);   // "None" of the extension
    session.Click(Mouse::kLeft, 22 + 1 + 10, 2 + 1 + 14);  // OK
    EXPECT_FALSE(Shows(session, "Change case of")) << session.Text();
    EXPECT_EQ(std::vector<std::string>{"AB.Cd"}, tree.Names());
    session.Press("Ctrl-i");
    session.Click(Mouse::kLeft, 0, 24);  // outside
    EXPECT_FALSE(Shows(session, " File Information "));
}

}  // namespace
}  // namespace zt::headless
