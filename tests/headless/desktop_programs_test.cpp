// Programs of the desktop that the program starts by itself: its file window (Ctrl-W) and a web
// browser with the manual (Shift-F1). They run on their own.
#include "tests/support/panel_view.h"
#include "tests/support/stand_in.h"

namespace zt::headless {
namespace {

class DesktopPrograms : public testing::Test {
protected:
    SessionOptions OnDesktop(const std::string& desktop) {
        SessionOptions options;
        options.directory = tree.Path();
        options.environment["PATH"] = tools.Path();
        options.environment["SHELL"] = "/bin/sh";
        options.environment["XDG_CURRENT_DESKTOP"] = desktop;
        return options;
    }
    // What the key started, while the session was ready again.
    std::string Started(const SessionOptions& options, const char* key) {
        Session session(options);
        const std::string before = session.Text();
        session.Press(key);
        EXPECT_TRUE(session.AtPrompt());
        EXPECT_EQ(session.Text(), before);
        return tools.Note(session);
    }
    void AddAllFileWindows() {
        for (const char* name : {"nautilus", "caja", "dolphin", "thunar", "pcmanfm"})
            tools.Add(name);
    }

    FileTree tree;
    StandIns tools;
};

TEST_F(DesktopPrograms, TheFileWindowIsThatOfTheDesktop) {
    AddAllFileWindows();
    const std::string path = tree.Path() + "\n";
    const struct {
        const char* desktop;
        std::string started;
    } rows[] = {
        {"GNOME", "nautilus\n--browser\n" + path},
        {"Unity", "nautilus\n--browser\n" + path},
        {"MATE", "caja\n--browser\n" + path},
        {"kde", "dolphin\n" + path},
        {"XFCE", "thunar\n" + path},
        {"LXDE", "pcmanfm\n" + path},
        {"special:XFCE", "thunar\n" + path},
        {"unknown", "nautilus\n--browser\n" + path},
        {"", "nautilus\n--browser\n" + path},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Started(OnDesktop(row.desktop), "Ctrl-w"), row.started) << row.desktop;
}

TEST_F(DesktopPrograms, TheFileWindowIsAnyThatIsInstalled) {
    tools.Add("thunar");
    tools.Add("pcmanfm");
    for (const char* desktop : {"GNOME", "KDE", "unknown", ""})
        EXPECT_EQ(Started(OnDesktop(desktop), "Ctrl-w"), "thunar\n" + tree.Path() + "\n");
}

TEST_F(DesktopPrograms, TheFileWindowOfKdeIsKnownByItsSession) {
    AddAllFileWindows();
    SessionOptions options = OnDesktop("");
    options.environment["KDE_SESSION_VERSION"] = "5";
    EXPECT_EQ(Started(options, "Ctrl-w"), "dolphin\n" + tree.Path() + "\n");
    options.environment["XDG_CURRENT_DESKTOP"] = "XFCE";
    EXPECT_EQ(Started(options, "Ctrl-w"), "thunar\n" + tree.Path() + "\n");
}

TEST_F(DesktopPrograms, TheFileWindowGetsTheDirectoryAsOneWord) {
    tools.Add("thunar");
    for (const std::string name : {"a b", "$(touch x)", "!", "q'\"&;", "st*r", "\xE4"}) {
        tree.Folder(name);
        SessionOptions options = OnDesktop("");
        options.directory = tree.PathOf(name);
        EXPECT_EQ(Started(options, "Ctrl-w"), "thunar\n" + tree.PathOf(name) + "\n");
    }
}

TEST_F(DesktopPrograms, TheFileWindowNeedsAPanel) {
    tools.Add("thunar");
    tools.Release();
    Session session(OnDesktop(""));
    session.Press({"Ctrl-o", "Ctrl-w", "Ctrl-o"});
    session.Press("Ctrl-w");
    EXPECT_EQ(tools.Note(session), "thunar\n" + tree.Path() + "\n");
}

TEST_F(DesktopPrograms, WithoutThemNothingHappens) {
    Session session(OnDesktop("GNOME"));
    const std::string before = session.Text();
    session.Press({"Ctrl-w", "Shift-F1"});
    EXPECT_EQ(session.Text(), before);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(DesktopPrograms, TheManualOpensInTheFirstBrowser) {
    // Installed or not, the manual is that of the same folder.
    const auto expected = [](const std::string& browser) {
        return testing::AnyOf(browser + "\nfile:///usr/share/doc/zanthe/manual/index.html\n",
                              browser + "\n/usr/share/doc/zanthe/manual/zt.html\n");
    };
    for (const char* browser : {"epiphany", "mozilla-firefox", "firefox", "x-www-browser"}) {
        tools.Add(browser);
        EXPECT_THAT(Started(OnDesktop(""), "Shift-F1"), expected(browser));
    }
}

TEST_F(DesktopPrograms, TheManualOpensWithoutPanelsToo) {
    tools.Add("firefox");
    Session session(OnDesktop(""));
    session.Press({"Ctrl-o", "Shift-F1"});
    EXPECT_EQ(tools.Note(session).rfind("firefox\n", 0), 0u);
}

}  // namespace
}  // namespace zt::headless
