// Ending the program: from whatever it is doing, and what it leaves behind.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;

const WireEvent kQuitEvent = {6, 0, 0, 0, 0, 0};

class LeavingFrom : public testing::Test {
protected:
    LeavingFrom() {
        tree.Folder("dir");
        for (int i = 10; i < 60; i++)
            tree.File("file" + std::to_string(i));
    }

    SessionOptions Here(const char* configuration = "") {
        home.File(".ztx/zt.ini", configuration);
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }

    FileTree tree;
    FileTree home;
};

// A text among the keys begins with an apostrophe.
void PressAll(Session& session, const std::vector<std::string>& keys) {
    for (const std::string& key : keys) {
        if (key[0] == '\'') {
            session.Type(key.substr(1));
        } else {
            session.Press(key);
        }
    }
}

TEST_F(LeavingFrom, AnyPlaceByTheQuitEventOrTheEndOfTheInput) {
    const std::vector<std::string> places[] = {
        {},
        {"'some text"},
        {"Ctrl-o"},
        {"F9"},
        {"F9", "Enter"},
        {"F10"},
        {"F9", "'oc"},
        {"F9", "'oc", "Alt-p"},
        {"F9", "'oc", "Alt-p", "F4"},
        {"F9", "'oc", "Alt-p", "F4", "Alt-a"},
        {"F9", "'oo"},
        {"F9", "'on"},
        {"Ctrl-Num1"},
    };
    for (const bool byEvent : {true, false}) {
        for (const auto& keys : places) {
            SCOPED_TRACE(testing::PrintToString(keys));
            Session session(Here("d1=/no/such/place\n"));
            PressAll(session, keys);
            if (byEvent) {
                session.Send(kQuitEvent);
            } else {
                session.CloseInput();
            }
            ASSERT_TRUE(session.WaitForEnd());
            EXPECT_EQ(0, session.ExitStatus());
            EXPECT_EQ("", session.StandardError());
            EXPECT_EQ("", session.Title());
            EXPECT_EQ("", session.Row(23));
            EXPECT_EQ("", session.Row(24));
        }
    }
}

TEST_F(LeavingFrom, AHeldMouseButton) {
    Session session(Here());
    session.Send(MousePress(Mouse::kLeft, 10, 22));
    EXPECT_TRUE(session.WaitForText("file40"));
    session.Send(kQuitEvent);
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

TEST_F(LeavingFrom, AMessageBeforeThePanels) {
    SessionOptions options = Here("nonsense=1\nmore=2\n");
    options.waitForPanels = false;
    Session session(options);
    EXPECT_TRUE(session.WaitForText("Bad directive (nonsense)"));
    session.Send(kQuitEvent);
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

TEST_F(LeavingFrom, ByTheQuitEventSavesWhereThatIsWanted) {
    Session session(Here("AutoSave=on\n"));
    session.Press("Alt-Shift-F3");
    session.Send(kQuitEvent);
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_THAT(home.Content(".ztx/zt.ini"), HasSubstr("LeftStyle=wide\n"));
}

TEST_F(LeavingFrom, AsksUnlessTheFourthBitIsSet) {
    const struct {
        const char* configuration;
        bool asks;
    } rows[] = {
        {"", true},
        {"Confirmations=8\n", false},
        {"Confirmations=31\n", false},
        {"Confirmations=23\n", true},
    };
    for (const auto& row : rows) {
        Session session(Here(row.configuration));
        session.Send(KeyPress("F10"));
        if (row.asks) {
            EXPECT_TRUE(session.WaitForText("Are you sure you want to exit Zanthe ?"));
            session.Press("Esc");
            EXPECT_FALSE(session.HasEnded());
        } else {
            EXPECT_TRUE(session.WaitForEnd());
            EXPECT_EQ(0, session.ExitStatus());
        }
    }
}

TEST_F(LeavingFrom, AllWindowsTakesThemAway) {
    Session session(Here("Clock=on\n"));
    session.Send(kQuitEvent);
    ASSERT_TRUE(session.WaitForEnd());
    for (int row = 0; row < 25; row++)
        EXPECT_EQ("", session.Row(row)) << row;
    EXPECT_EQ(0, session.CursorColumn());
    EXPECT_EQ(24, session.CursorRow());
    EXPECT_EQ(15, session.Screen().CursorSize());
}

TEST_F(LeavingFrom, WritesTheScriptOfTheActivePanel) {
    const struct {
        std::vector<std::string> keys;
        std::string path;
    } rows[] = {
        {{}, tree.Path()},
        {{"Down", "Enter"}, tree.PathOf("dir")},
        {{"Tab"}, "/usr"},
        {{"Tab", "Ctrl-PgUp"}, "/"},
    };
    for (const auto& row : rows) {
        SessionOptions options = Here();
        // The second name is taken from where the program starts, not from where it ends.
        for (const std::string& script : {home.PathOf("script"), std::string("script")}) {
            options.arguments = {"-r", "/usr", "-X", script};
            Session session(options);
            PressAll(session, row.keys);
            session.Send(kQuitEvent);
            ASSERT_TRUE(session.WaitForEnd());
            const std::string rest = row.path.size() > 2 ? row.path.substr(2) : "";
            FileTree& place = script[0] == '/' ? home : tree;
            EXPECT_EQ("/:\r\ncd \"" + rest + "\"\r\n", place.Content("script"));
            place.Remove("script");
        }
    }
}

TEST(MissingFeatures, AreToldInsteadOfShowingPanels) {
    const struct {
        std::vector<std::string> arguments;
        const char* message;
    } rows[] = {
        {{"-v", "/etc/passwd"}, "zt-remote: the internal viewer (-v) is not there yet\n"},
        {{"\\E", "/etc/passwd"}, "zt-remote: the internal editor (-e) is not there yet\n"},
        {{"-l", "/", "-e", "a", "-v", "b"},
         "zt-remote: the internal viewer (-v) is not there yet\n"},
    };
    for (const auto& row : rows) {
        SessionOptions options;
        options.arguments = row.arguments;
        options.waitForPanels = false;
        Session session(options);
        ASSERT_TRUE(session.WaitForEnd());
        EXPECT_EQ(1, session.ExitStatus());
        EXPECT_EQ(row.message, session.StandardError());
        EXPECT_EQ(0u, session.LastTraffic().bytes);
    }
}

}  // namespace
}  // namespace zt::headless
