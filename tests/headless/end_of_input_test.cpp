// The display goes away while the program is at work: it ends by itself, as after the exit
// question.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class EndOfInput : public testing::Test {
protected:
    EndOfInput() {
        for (int i = 0; i < 100; i++)
            tree.File("file" + std::to_string(i));
    }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }

    static void ExpectCleanEnd(Session& session, const char* what) {
        ASSERT_TRUE(session.WaitForEnd()) << what;
        EXPECT_EQ(0, session.ExitStatus()) << what;
        EXPECT_THAT(session.StandardError(), IsEmpty()) << what;
        EXPECT_EQ("", session.Row(24)) << what;  // wiped: it went through the whole exit
        EXPECT_EQ(0, session.Screen().UpdateDepth()) << what;
    }

    FileTree tree;
    FileTree home;
};

TEST_F(EndOfInput, EndsTheProgramWhileAButtonIsHeld) {
    const struct {
        const char* what;
        int column, row;
        const char* sign;
    } rows[] = {{"below the list", 10, 22, "file99"}, {"on a key label", 78, 24, "file19"}};
    for (const auto& row : rows) {
        Session session(Here());
        session.Send(MousePress(Mouse::kLeft, row.column, row.row));
        ASSERT_TRUE(session.WaitForText(row.sign)) << row.what;
        session.CloseInput();
        ExpectCleanEnd(session, row.what);
    }
}

TEST_F(EndOfInput, EndsTheProgramAfterTheKeysBeforeIt) {
    SessionOptions options = Here();
    options.arguments = {"-x", home.PathOf("script")};
    tree.Folder("inner");
    Session session(options);
    session.Send(KeyPress("Down"));
    session.Send(KeyPress("Enter"));
    session.CloseInput();
    ExpectCleanEnd(session, "keys");
    EXPECT_THAT(home.Content("script"), HasSubstr(tree.PathOf("inner").substr(2)));
}

TEST_F(EndOfInput, EndsTheProgramThatShowsAMessageAtItsStart) {
    home.File(".ztx/zt.ini", "d55=x\n");
    tree.File("shut/secret").Mode("shut", 0);
    tree.GiveTo(OrdinaryUser());
    home.GiveTo(OrdinaryUser());
    for (const char* text : {"Bad directive (d55) in zt.ini, line 1", "Permission denied"}) {
        SessionOptions options = Here();
        options.waitForPanels = false;
        options.user = OrdinaryUser();
        options.arguments = {"-r", tree.PathOf("shut")};
        Session session(options);
        ASSERT_TRUE(session.WaitForText(text)) << text;
        session.CloseInput();
        ExpectCleanEnd(session, text);
        home.File(".ztx/zt.ini", "");
    }
}

// The start is over with the first frames of the screen; a directory is read behind it.
TEST_F(EndOfInput, EndsTheProgramThatReadsADirectory) {
    FileTree large;
    for (int i = 0; i < 20000; i++)
        large.File("name" + std::to_string(i));
    constexpr int kRequestsOfTheStart = 3;  // handshake, size, the first of the screen
    SessionOptions options = Here();
    options.directory = large.Path();
    options.waitForPanels = false;
    Session session(options);
    ASSERT_TRUE(session.WaitFor(
        [&] { return session.LastTraffic().requests >= kRequestsOfTheStart; }, "the start"));
    session.CloseInput();
    ExpectCleanEnd(session, "reading");
}

TEST_F(EndOfInput, EndsTheStartWithAWordOfIt) {
    SessionOptions options = Here();
    options.waitForPanels = false;
    Session session(options);
    session.CloseInput();
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_EQ(1, session.ExitStatus());
    EXPECT_EQ("zt-remote: No answer from the display\n", session.StandardError());
}

}  // namespace
}  // namespace zt::headless
