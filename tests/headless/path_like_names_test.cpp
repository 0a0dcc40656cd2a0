// Names that could be taken for paths: with backslashes, or made of dots.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

TEST(PathLikeNames, GoesToWhatALinkLeadsTo) {
    FileTree tree;
    tree.File("a\\b/in").File("c\\d").Folder("c").File(".../in").File(".../e\\f").File("plain/in");
    std::string upAll;
    for (int i = 0; i < 20; i++)
        upAll += "../";
    const struct {
        std::string target;
        std::string directory;  // below the tree
        std::string name;       // under the bar
    } rows[] = {
        {tree.PathOf("plain"), "/plain", ".."},
        {tree.PathOf("plain/in"), "/plain", "in"},
        {tree.PathOf("a\\b"), "/a\\b", ".."},
        {tree.PathOf("a\\b/in"), "/a\\b", "in"},
        {tree.PathOf("c\\d"), "", "c\\d"},
        {tree.PathOf("..."), "/...", ".."},
        {tree.PathOf(".../e\\f"), "/...", "e\\f"},
        {upAll + tree.PathOf("plain").substr(1), "/plain", ".."},  // the root lies in itself
    };
    for (const auto& row : rows) {
        FileTree start;
        start.Link("link", row.target);
        SessionOptions options;
        options.directory = start.Path();
        Session session(options);
        const PanelView panel(session, 0);
        session.Press({"Down", "Ctrl-g"});
        EXPECT_EQ(tree.Path() + row.directory, panel.Title()) << row.target;
        EXPECT_EQ(row.name, panel.BarName()) << row.target;
    }
}

TEST(PathLikeNames, StartsAboveAWorkingDirectoryThatIsGone) {
    FileTree tree;
    tree.Folder("up/a").Folder("up/a\\b");
    SessionOptions options;
    options.directory = tree.PathOf("up/a\\b");
    options.environment["PWD"] = options.directory;
    options.removeDirectory = true;
    Session session(options);
    EXPECT_EQ(tree.PathOf("up"), PanelView(session, 0).Title()) << "not in a, which is beside it";
}

}  // namespace
}  // namespace zt::headless
