// Alt-F6: desktop launchers for the current file or the tagged ones.
#include <sys/stat.h>

#include "tests/headless/box_rows.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class MakeObject : public testing::Test {
protected:
    MakeObject() {
        home.Folder("Desktop");
        tree.File("Annual Report.txt").File("tool.sh", "#!/bin/sh\n").Mode("tool.sh", 0755);
    }

    SessionOptions InTree() {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        return options;
    }
    std::string Launcher(const std::string& title, const std::string& command, bool terminal) {
        return "#!/usr/bin/env xdg-open\n\n[Desktop Entry]\nVersion=1.0\nEncoding=UTF-8\nName=" +
               title + "\nExec=" + command + "\nTerminal=" + (terminal ? "true" : "false") +
               "\nType=Application\n";
    }
    std::string OnDesktop(const std::string& title) {
        return home.Content("Desktop/" + title + ".desktop");
    }

    FileTree home;
    FileTree tree;
};

TEST_F(MakeObject, AsksForTheTitle) {
    Session session(InTree());
    session.Press({"Down", "Alt-F6"});
    EXPECT_THAT(BoxRows(session, 17, 4, 46, 8),
                ElementsAre("╔════════════════════════════════════════════╗",
                            "║             Make an object for             ║",
                            "║             Annual Report.txt              ║",
                            "║                                            ║",
                            "║ Title: Annual report                       ║",
                            "║                                            ║",
                            "║             [ OK ]  [ Cancel ]             ║",
                            "╚════════════════════════════════════════════╝"));
    session.Press("Enter");
    std::string target = tree.Path() + "/Annual\\ Report.txt";
    EXPECT_EQ(OnDesktop("Annual report"), Launcher("Annual report", "xdg-open " + target, false));
    struct stat made = {};
    ASSERT_EQ(stat(home.PathOf("Desktop/Annual report.desktop").c_str(), &made), 0);
    EXPECT_EQ(made.st_mode & 0100, 0100u);
    EXPECT_TRUE(session.AtPrompt());
}

TEST_F(MakeObject, OfAnExecutableMayHaveATerminal) {
    Session session(InTree());
    session.Press({"Down", "Down", "Alt-F6"});
    EXPECT_THAT(session.Text(), HasSubstr("[ ]  Terminal session"));
    session.Press({"Alt-f", "Enter"});
    EXPECT_EQ(OnDesktop("Tool"), Launcher("Tool", tree.PathOf("tool.sh"), true));
    // The box is as it was left; what is no program has none, and no terminal.
    session.Press("Alt-F6");
    EXPECT_THAT(session.Text(), HasSubstr("[X]  Terminal session"));
    session.Press({"Esc", "Up", "Alt-F6"});
    EXPECT_FALSE(Shows(session, "Terminal session"));
    session.Press("Enter");
    EXPECT_THAT(OnDesktop("Annual report"), HasSubstr("\nTerminal=false\n"));
}

TEST_F(MakeObject, TakesTheTitleThatIsTyped) {
    Session session(InTree());
    session.Press({"Down", "Alt-F6"});
    session.Type("../../J\xC3\xB6rg's 1/2");
    session.Press("Enter");
    EXPECT_THAT(home.Names("Desktop"), ElementsAre("..-..-J\xC3\xB6rg's 1-2.desktop"));
    EXPECT_THAT(OnDesktop("..-..-J\xC3\xB6rg's 1-2"),
                HasSubstr("\nName=../../J\xC3\xB6rg's 1/2\n"));
}

TEST_F(MakeObject, OfEachTaggedFile) {
    Session session(InTree());
    session.Press({"Down", "Ins", "Ins", "Alt-F6"});
    EXPECT_THAT(session.Text(), HasSubstr("Make 2 objects"));
    EXPECT_FALSE(Shows(session, "Title:"));
    session.Press({"Alt-f", "Enter"});
    EXPECT_THAT(home.Names("Desktop"), ElementsAre("Annual report.desktop", "Tool.desktop"));
    EXPECT_THAT(OnDesktop("Tool"), HasSubstr("\nTerminal=true\n"));
    EXPECT_EQ(PanelView(session, 0).AttributeOf("tool.sh"), kHighlight);
    EXPECT_EQ(PanelView(session, 0).AttributeOf("Annual R►.txt"), kPanelColour);
}

TEST_F(MakeObject, AsksBeforeItReplacesOne) {
    home.File("Desktop/Annual report.desktop", "mine");
    Session session(InTree());
    session.Press({"Down", "Alt-F6", "Enter"});
    EXPECT_THAT(session.Text(), HasSubstr("This object exists. Replace it ?"));
    session.Press("Esc");
    EXPECT_EQ(OnDesktop("Annual report"), "mine");
    session.Press({"Alt-F6", "Enter", "Enter"});
    EXPECT_THAT(OnDesktop("Annual report"), HasSubstr("[Desktop Entry]"));
}

TEST_F(MakeObject, WritesThroughNoLink) {
    home.File("precious", "precious").Link("Desktop/Tool.desktop", "../precious");
    Session session(InTree());
    session.Press({"Down", "Down", "Alt-F6", "Enter", "Enter"});
    EXPECT_EQ(home.Content("precious"), "precious");
    EXPECT_THAT(OnDesktop("Tool"), HasSubstr("[Desktop Entry]"));
}

TEST_F(MakeObject, WithoutADesktopSaysNothing) {
    home.Remove("Desktop");
    Session session(InTree());
    session.Press({"Down", "Ins", "Alt-F6", "Enter"});
    EXPECT_TRUE(session.AtPrompt());
    EXPECT_FALSE(home.Exists("Desktop"));
    EXPECT_EQ(PanelView(session, 0).AttributeOf("Annual R►.txt"), kTagged);
}

TEST_F(MakeObject, IsLeftByEsc) {
    Session session(InTree());
    const std::string before = session.Text();
    session.Press({"Alt-F6", "Alt-F6"});
    EXPECT_EQ(session.Text(), before) << "on the parent";
    session.Press({"Down", "Alt-F6", "Esc"});
    EXPECT_THAT(home.Names("Desktop"), ElementsAre());
}

TEST_F(MakeObject, HoldsHostileNamesOnTheirLines) {
    FileTree odd;
    odd.File("a\nExec=evil 100%.x");
    SessionOptions options = InTree();
    options.directory = odd.Path();
    Session session(options);
    session.Press({"Down", "Ins", "Alt-F6", "Enter"});
    const std::string name = "A\nexec=evil 100%";
    EXPECT_EQ(OnDesktop(name),
              Launcher("A\\nexec=evil 100%", "xdg-open '" + odd.Path() + "/a\\nExec=evil 100%%.x'",
                       false));
}

}  // namespace
}  // namespace zt::headless
