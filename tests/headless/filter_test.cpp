// Panel filters, colours by rule and rules in error, as a person meets them.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr uint8_t kMessages = 0x70;  // the default of the colour class

class Filter : public testing::Test {
protected:
    Filter() {
        tree.Folder("sub.c")
            .FileOfSize("a.c", 10)
            .FileOfSize("b.c", 2000)
            .FileOfSize("c.txt", 3000)
            .FileOfSize("d.txt", 500);
    }

    SessionOptions InHome() {
        SessionOptions options;
        options.home = home.Path();
        options.directory = tree.Path();
        return options;
    }
    // Opens the prompt of a side by the menu.
    static void Open(Session& session, int side) {
        session.Press("F9");
        if (side == 1) session.Press("Left");
        session.Press("Enter");
        session.Type("l");
    }
    static void Set(Session& session, int side, std::string_view expression) {
        Open(session, side);
        session.Type(expression);
        session.Press("Enter");
    }
    static std::vector<std::string> Names(const Session& session, int side) {
        return PanelView(session, side).Names();
    }

    FileTree home;
    FileTree tree;
};

TEST_F(Filter, PromptStandsInItsPlace) {
    Session session(InHome());
    for (const int side : {0, 1}) {
        Open(session, side);
        EXPECT_EQ(U'\u2554', session.CharacterAt(2, 5)) << session.Text();
        EXPECT_EQ(U'\u2557', session.CharacterAt(77, 5));
        EXPECT_EQ(U'\u255A', session.CharacterAt(2, 12));
        EXPECT_EQ(U'\u255D', session.CharacterAt(77, 12));
        EXPECT_EQ(side == 0 ? " Filter for left panel " : " Filter for right panel",
                  session.Piece(3, 6, 23));
        EXPECT_EQ("*   ", session.Piece(4, 7, 4)) << "the filter that holds";
        const uint8_t field = session.AttributeAt(5, 7);
        EXPECT_EQ(kMessages, session.AttributeAt(3, 7));
        EXPECT_NE(field, kMessages);
        EXPECT_EQ(field, session.AttributeAt(75, 7)) << "72 columns";
        session.Press("Esc");
        EXPECT_THAT(session.Text(), Not(HasSubstr("Filter for")));
        EXPECT_TRUE(session.AtPrompt());
    }
}

TEST_F(Filter, ShowsTheFilesThatItSelects) {
    Session session(InHome());
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
    Set(session, 0, "*.c");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c"));
    EXPECT_EQ(tree.Path() + "/?", PanelView(session, 0).Title());
    EXPECT_THAT(Names(session, 1), ElementsAre("..", "sub.c", "a.c", "b.c", "c.txt", "d.txt"));
    EXPECT_EQ(tree.Path(), PanelView(session, 1).Title());
    Set(session, 1, "*.txt & %size>1k");
    EXPECT_THAT(Names(session, 1), ElementsAre("..", "sub.c", "c.txt"));
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c"));
    Set(session, 0, "*");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c", "c.txt", "d.txt"));
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
}

TEST_F(Filter, HoldsInEveryDirectory) {
    tree.File("sub.c/x.c").File("sub.c/y.txt");
    Session session(InHome());
    Set(session, 0, "*.c");
    session.Press({"Down", "Enter"});
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "x.c"));
    tree.File("sub.c/z.c").File("sub.c/z.txt");
    session.Press("Ctrl-r");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "x.c", "z.c"));
}

TEST_F(Filter, IsLeftAsItIsByEsc) {
    Session session(InHome());
    Set(session, 0, "*.c");
    Open(session, 0);
    EXPECT_EQ("*.c ", session.Piece(4, 7, 4));
    session.Type("*.txt");
    session.Press("Esc");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c"));
    Open(session, 0);
    EXPECT_EQ("*.c ", session.Piece(4, 7, 4)) << "and not what was typed";
    session.Press("Esc");
}

TEST_F(Filter, IsRefusedWithTheReasonAndAskedForAgain) {
    const struct {
        const char* typed;
        const char* reason;
    } rows[] = {
        {"%size>", "Value expected"},
        {"%size~5", "Invalid comparitor '~'"},
        {"%foo=1", "Unknown operator '%foo'"},
        {"(*.c", ") expected"},
        {"*.c |", "File mask expected"},
        {"%timestamp>123456789", "Invalid timestamp value '123456789'"},
        {"%timestamp>@/no/such/file", "File '/no/such/file' not found"},
    };
    Session session(InHome());
    Open(session, 0);
    for (const auto& row : rows) {
        session.Press({"Home", "Shift-End", "Del"});
        session.Type(row.typed);
        session.Press("Enter");
        EXPECT_THAT(session.Text(), HasSubstr("Error in expression")) << row.typed;
        EXPECT_THAT(session.Text(), HasSubstr(row.reason));
        session.Press("Enter");
        EXPECT_THAT(session.Text(), Not(HasSubstr("Error in expression")));
        EXPECT_THAT(session.Row(6), HasSubstr("Filter for left panel")) << "the dialog goes on";
        EXPECT_THAT(session.Row(7), HasSubstr(row.typed)) << "with what was typed";
    }
    session.Press("Esc");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c", "c.txt", "d.txt"));
    Open(session, 0);
    EXPECT_EQ("*   ", session.Piece(4, 7, 4));
    session.Press("Esc");
}

TEST_F(Filter, IsTakenAfterItHasBeenMended) {
    Session session(InHome());
    Set(session, 0, "*.c & (%size>1k");
    EXPECT_THAT(session.Text(), HasSubstr(") expected"));
    session.Press("Esc");
    session.Press("End");
    session.Type(")");
    session.Press("Enter");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "b.c"));
}

TEST_F(Filter, RefusesAnEmptyText) {
    Session session(InHome());
    Open(session, 1);
    session.Press({"End", "Backspace", "Enter"});
    EXPECT_THAT(session.Text(), HasSubstr("File mask expected"));
    session.Press({"Enter", "Esc"});
}

TEST_F(Filter, TakesATextLongerThanItsField) {
    Session session(InHome());
    std::string expression = "(*.c";
    for (int i = 0; i < 60; ++i)
        expression += " | name" + std::to_string(i) + ".*";
    Set(session, 0, expression + ")");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c"));
    session.Press("Shift-F9");
    EXPECT_THAT(home.Content(".ztx/zt.ini"), HasSubstr("LeftFilter=" + expression + ")\n"));
}

TEST_F(Filter, OffersTheTextsThatWereTypedBefore) {
    Session session(InHome());
    Set(session, 0, "*.c");
    Set(session, 1, "*.txt & %size>1k");
    Open(session, 0);
    session.Press("Alt-Down");
    EXPECT_THAT(session.Text(), HasSubstr("*.txt & %size>1k"));
    session.Press("Enter");
    EXPECT_THAT(session.Row(7), HasSubstr("*.txt & %size>1k")) << session.Text();
    session.Press("Enter");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "c.txt"));
}

TEST_F(Filter, ComesBackInTheNextSession) {
    {
        Session session(InHome());
        Set(session, 0, "*.c");
        Set(session, 1, "%size>1k & \"c.txt\"");
        session.Press("Shift-F9");
    }
    EXPECT_THAT(home.Content(".ztx/zt.ini"), HasSubstr("LeftFilter=*.c\n"));
    EXPECT_THAT(home.Content(".ztx/zt.ini"), HasSubstr("RightFilter=%size>1k & \"c.txt\"\n"));
    Session session(InHome());
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c"));
    EXPECT_THAT(Names(session, 1), ElementsAre("..", "sub.c", "c.txt"));
    Open(session, 1);
    EXPECT_EQ("%size>1k & \"c.txt\" ", session.Piece(4, 7, 19));
    session.Press("Esc");
}

TEST_F(Filter, ThatIsInErrorHidesNothing) {
    home.File(".ztx/zt.ini", "[General Options]\nLeftFilter=%foo=1\n");
    Session session(InHome());
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c", "c.txt", "d.txt"));
    EXPECT_EQ(tree.Path() + "/?", PanelView(session, 0).Title()) << "but the title tells of it";
}

TEST_F(Filter, OfAHiddenPanelActsWhenItComesBack) {
    Session session(InHome());
    session.Press("Ctrl-F2");
    EXPECT_FALSE(PanelView(session, 1).IsShown());
    Set(session, 1, "*.c");
    EXPECT_FALSE(PanelView(session, 1).IsShown());
    session.Press("Ctrl-F2");
    EXPECT_THAT(Names(session, 1), ElementsAre("..", "sub.c", "a.c", "b.c"));
}

TEST_F(Filter, TestsDatesOwnersAndAttributes) {
    tree.Time("a.c", UtcTime(2012, 6, 15)).Time("b.c", UtcTime(2013, 1, 1));
    tree.Time("c.txt", UtcTime(2014, 1, 1)).File(".hid").Link("link", "a.c");
    Session session(InHome());
    session.Press("Ctrl-h");
    const std::string link = "link \u00BB a.c  @";
    const struct {
        const char* expression;
        std::vector<std::string> files;
    } rows[] = {
        {"%timestamp<2013", {"a.c"}},
        {"%timestamp>20120615 & %timestamp<=20140101", {"b.c", "c.txt"}},
        {"%age<1d", {".hid", "d.txt", link}},
        {"%attrib=H", {".hid"}},
        {"%attrib=L", {link}},
        {"%attrib!=L & *.c", {"a.c", "b.c"}},
        {"%perm=X & %attrib!=L", {}},
        {"%owner=nosuchuser", {}},
    };
    for (const auto& row : rows) {
        Set(session, 0, row.expression);
        std::vector<std::string> wanted = {"..", "sub.c"};
        wanted.insert(wanted.end(), row.files.begin(), row.files.end());
        EXPECT_EQ(Names(session, 0), wanted) << row.expression;
    }
}

TEST_F(Filter, ReadsDatesAsTheLocaleWritesThem) {
    tree.Time("a.c", UtcTime(2012, 3, 4, 17)).Time("b.c", UtcTime(2012, 4, 3, 17));
    const struct {
        const char* language;
        const char* expression;
    } rows[] = {{"en_US.UTF-8", "%date=3/4/12"},
                {"de_DE.UTF-8", "%date=4.3.2012"},
                {"sv_SE.UTF-8", "%date=12-03-04"}};
    for (const auto& row : rows) {
        SessionOptions options = InHome();
        options.environment["LANG"] = row.language;
        Session session(options);
        Set(session, 0, row.expression);
        EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c")) << row.language;
    }
}

TEST_F(Filter, TakesFilesFromTheActivePanelsDirectory) {
    tree.Time("b.c", UtcTime(2012, 1, 1)).File("sub.c/b.c");
    const auto wanted = ElementsAre("..", "sub.c", "a.c", "c.txt", "d.txt");
    SessionOptions options = InHome();
    options.arguments = {"-r", tree.PathOf("sub.c")};
    Session session(options);
    Set(session, 0, "%timestamp>@b.c");
    EXPECT_THAT(Names(session, 0), wanted);
    // Whatever is done to the other panel, whose directory has another file of that name.
    Set(session, 1, "b*");
    EXPECT_THAT(Names(session, 1), ElementsAre("..", "b.c"));
    session.Press("Ctrl-r");
    EXPECT_THAT(Names(session, 0), wanted);
    session.Press({"F9", "Left", "Enter"});
    session.Type("r");
    session.Press("Ctrl-r");
    EXPECT_THAT(Names(session, 0), wanted);
    session.Press({"Ctrl-h", "Ctrl-h"});
    EXPECT_THAT(Names(session, 0), wanted);
}

TEST_F(Filter, TakesATextThatFailsForSomeFilesOnly) {
    Session session(InHome());
    Set(session, 0, "%size~=0");  // no fault where the size is 0
    EXPECT_TRUE(session.AtPrompt()) << session.Text();
    EXPECT_EQ(tree.Path() + "/?", PanelView(session, 0).Title());
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "a.c", "b.c", "c.txt", "d.txt"));
    session.Press("Grey+");
    session.Type("%size~=10");
    session.Press("Enter");
    EXPECT_THAT(session.Text(), HasSubstr("Invalid comparitor '~='"));
    session.Press({"Enter", "Esc"});
}

TEST_F(Filter, TestsWhatTheUserMayDo) {
    tree.GiveTo(OrdinaryUser()).Mode("a.c", 0400).Mode("b.c", 0700).Mode("c.txt", 0077);
    home.GiveTo(OrdinaryUser());
    SessionOptions options = InHome();
    options.user = OrdinaryUser();
    Session session(options);
    Set(session, 0, "%perm=W");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "b.c", "d.txt"));
    Set(session, 0, "%perm=RX");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "b.c"));
    Set(session, 0, "%perm!=R");
    EXPECT_THAT(Names(session, 0), ElementsAre("..", "sub.c", "c.txt"));
}

TEST_F(Filter, OfRulesColoursNames) {
    home.File(".ztx/zt.ini",
              "[Colours]\n*.c & %size>1k:bri whi\n*.c:red on bla\n"
              "[Directory Colours]\nsub*:bri red\n");
    Session session(InHome());
    const PanelView panel(session, 1);
    EXPECT_EQ((kPanelColour & 0xF0) | 0x0F, panel.AttributeOf("b.c")) << session.Text();
    EXPECT_EQ(0x04, panel.AttributeOf("a.c"));
    EXPECT_EQ(kPanelColour, panel.AttributeOf("c.txt"));
    EXPECT_EQ((kDirectories & 0xF0) | 0x0C, panel.AttributeOf("sub.c"));
    EXPECT_EQ(kDirectories, panel.AttributeOf(".."));
    const PanelView left(session, 0);
    session.Press("Down");
    EXPECT_EQ(kDirectoryHigh, left.AttributeOf("sub.c")) << "the bar has its own colour";
    session.Press("Down");
    EXPECT_EQ(kHighlight, left.AttributeOf("a.c"));
    EXPECT_EQ((kDirectories & 0xF0) | 0x0C, left.AttributeOf("sub.c"));
    session.Press("Ins");
    EXPECT_EQ(kTagged, left.AttributeOf("a.c"));
}

TEST_F(Filter, OfABadRuleIsReportedAtTheStart) {
    home.File(".ztx/zt.ini",
              "[Colours]\n%size~1:red\n*.c:red on bla\n[Associations]\n(*.c: cat\n"
              "[General Options]\nClock=off\n");
    SessionOptions options = InHome();
    options.waitForPanels = false;
    Session session(options);
    ASSERT_TRUE(session.WaitForText("Error in association"));
    ASSERT_TRUE(session.WaitForText("%size~1:red:Invalid comparitor '~'"));
    ASSERT_TRUE(session.WaitForQuiet());
    session.Press("Enter");
    ASSERT_TRUE(session.WaitForText("(*.c: cat:) expected"));
    session.Press("Enter");
    ASSERT_TRUE(session.WaitFor([&] { return session.AtPrompt(); }, "the panels"));
    EXPECT_EQ(0x04, PanelView(session, 1).AttributeOf("a.c")) << "the rest holds";
}

TEST_F(Filter, PromptEndsWithTheProgram) {
    Session session(InHome());
    Open(session, 0);
    session.Type("%foo=1");
    session.Press("Enter");
    session.CloseInput();
    ASSERT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

}  // namespace
}  // namespace zt::headless
