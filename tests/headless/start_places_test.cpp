// Where the panels start, which of them is active, and what the window's title says of it.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

class StartPlaces : public testing::Test {
protected:
    StartPlaces() { tree.Folder("a").Folder("b").Folder("c"); }

    SessionOptions With(std::string configuration, std::vector<std::string> arguments = {}) {
        for (size_t at; (at = configuration.find('@')) != std::string::npos;)
            configuration.replace(at, 1, tree.Path());
        home.File(".ztx/zt.ini", configuration);
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.arguments = std::move(arguments);
        return options;
    }
    // The two panels' places below the tree.
    static std::string Places(const Session& session, const FileTree& tree) {
        std::string places;
        for (const int side : {0, 1}) {
            std::string title = PanelView(session, side).Title();
            if (title.starts_with(tree.Path())) title.erase(0, tree.Path().size());
            places += (side ? " " : "") + (title.empty() ? "here" : title);
        }
        return places;
    }

    FileTree tree;
    FileTree home;
};

TEST_F(StartPlaces, ComeFromTheOptionsThenTheSettingsThenTheWorkingDirectory) {
    const struct {
        const char* configuration;
        std::vector<std::string> arguments;
        const char* places;
    } rows[] = {
        {"", {}, "here here"},
        {"Left=@/a\n", {}, "/a here"},
        {"Left=@/a\nRight=@/b\n", {}, "/a /b"},
        {"Left=@/a\nRight=@/b\n", {"-l", tree.PathOf("c")}, "/c /b"},
        {"Left=@/a\nRight=@/b\n", {"-r", tree.PathOf("c")}, "/a /c"},
        {"", {"-r", "b", "-l", "./a/"}, "/a /b"},  // relative to the working directory
        {"Left=a\n", {}, "/a here"},
        {"Left=/no/such/place\n", {}, "here here"},
        {"", {"-r", tree.PathOf("missing")}, "here here"},
    };
    for (const auto& row : rows) {
        Session session(With(row.configuration, row.arguments));
        EXPECT_EQ(row.places, Places(session, tree)) << row.configuration;
    }
}

TEST_F(StartPlaces, TheActiveSideIsTheRightOneForAnRAlone) {
    const struct {
        const char* configuration;
        int side;
    } rows[] = {
        {"", 0},
        {"StartupSide=R\n", 1},
        {"StartupSide=L\n", 0},
        {"StartupSide=r\n", 0},
        {"StartupSide=\n", 0},
        {"StartupSide=R\nRightShowing=off\n", 0},  // an active panel is one that shows
        {"LeftShowing=off\n", 1},
        {"LeftShowing=off\nRightShowing=on\nStartupSide=L\n", 1},
    };
    for (const auto& row : rows) {
        Session session(With(row.configuration));
        EXPECT_TRUE(PanelView(session, row.side).IsActive()) << row.configuration << session.Text();
        EXPECT_NE(-1, PanelView(session, row.side).BarRow()) << row.configuration;
    }
}

TEST_F(StartPlaces, APanelOfFullWidthHidesTheOther) {
    Session session(With("LeftWidth=full\n"));
    EXPECT_TRUE(PanelView(session, 0, true).IsShown());
    session.Press("Ctrl-Shift-F1");
    EXPECT_TRUE(PanelView(session, 0).IsShown());
    EXPECT_TRUE(PanelView(session, 1).IsShown());
}

TEST_F(StartPlaces, TheTitleIsTheActivePanelsPath) {
    Session session(With("Left=@/a\nRight=@/b\n"));
    EXPECT_EQ("Zanthe: " + tree.PathOf("a"), session.Title());
    session.Press("Tab");
    EXPECT_EQ("Zanthe: " + tree.PathOf("b"), session.Title());
    session.Press("Ctrl-u");
    EXPECT_EQ("Zanthe: " + tree.PathOf("b"), session.Title());
    session.Press("Ctrl-PgUp");
    EXPECT_EQ("Zanthe: " + tree.Path(), session.Title());
    session.Press({"Ctrl-o", "Tab"});
    EXPECT_EQ("Zanthe: " + tree.PathOf("a"), session.Title());
}

TEST_F(StartPlaces, TheTitleHasFiftyColumnsOfThePath) {
    const std::string fits(50 - tree.Path().size() - 1, 'x');
    const std::string longer = fits + "y";
    tree.Folder(fits).Folder(longer);
    Session session(With("", {"-l", tree.PathOf(fits), "-r", tree.PathOf(longer)}));
    EXPECT_EQ("Zanthe: " + tree.PathOf(fits), session.Title());
    session.Press("Tab");
    const std::string path = tree.PathOf(longer);
    const size_t head = path.find('/', 1) + 1;
    EXPECT_EQ("Zanthe: " + path.substr(0, head) + "..." + path.substr(path.size() - 47 + head),
              session.Title());
}

TEST_F(StartPlaces, ThePromptHasHalfTheScreen) {
    const std::string folder = std::string(60, 'x');
    tree.Folder(folder);
    Session session(With("", {"-l", tree.PathOf(folder)}));
    session.Type("text");
    const std::string row = session.Row(23);
    EXPECT_EQ(39u, row.find('>')) << row;
    EXPECT_EQ("text", row.substr(40));
    EXPECT_NE(std::string::npos, row.find("/...x"));
}

TEST_F(StartPlaces, TheTitleShowsBytesThatAreNoText) {
    tree.Folder("caf\xE9");
    Session session(With("", {"-l", tree.PathOf("caf\xE9")}));
    EXPECT_EQ("Zanthe: " + tree.Path() + "/caf\xC3\xA9", session.Title());
}

}  // namespace
}  // namespace zt::headless
