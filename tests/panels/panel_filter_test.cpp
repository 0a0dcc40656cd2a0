// Which files a panel shows by its filter.
#include "panels/panel_filter.h"

#include <gmock/gmock.h>

#include "panels/directory_reader.h"
#include "panels/panel_switching.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class FilteredPanel : public PanelFixture {
protected:
    FilteredPanel() {
        panels->seams.filter = &filter;
        tree.Folder("dir.c");
        tree.File("a.c", 10);
        tree.File("b.c", 2000);
        tree.File("c.txt", 3000);
    }
    std::vector<std::string> Shown(const char* expression) {
        left.filter = expression;
        ReadDirectory(left);
        return Names(left);
    }

    PanelFilter filter;
};

TEST_F(FilteredPanel, ShowsTheFilesThatItsFilterSelects) {
    Start();
    EXPECT_THAT(Shown("*.c"), ElementsAre("..", "dir.c", "a.c", "b.c"));
    EXPECT_THAT(Shown("*.c & %size>1k"), ElementsAre("..", "dir.c", "b.c"));
    EXPECT_THAT(Shown("!*.c"), ElementsAre("..", "dir.c", "c.txt"));
    EXPECT_THAT(Shown("x"), ElementsAre("..", "dir.c"));
    EXPECT_THAT(Shown("*"), ElementsAre("..", "dir.c", "a.c", "b.c", "c.txt"));
    EXPECT_THAT(Names(right), ElementsAre("..", "dir.c", "a.c", "b.c", "c.txt"));
}

TEST_F(FilteredPanel, HidesNothingByAFilterInError) {
    Start();
    for (const char* expression :
         {"%foo=1", "x & (y", "", "%timestamp>@missing", "%timestamp<@missing", "x & %size>"}) {
        EXPECT_THAT(Shown(expression), ElementsAre("..", "dir.c", "a.c", "b.c", "c.txt"))
            << expression;
    }
}

TEST_F(FilteredPanel, LooksForTheFilesOfItsFilterAtEachRead) {
    tree.Time("a.c", 1000);
    tree.Time("b.c", 2000);
    tree.Time("c.txt", 3000);
    Start();
    const std::string expression = "%timestamp>@" + tree.PathOf("b.c");
    EXPECT_THAT(Shown(expression.c_str()), ElementsAre("..", "dir.c", "c.txt"));
    tree.Time("b.c", 500);
    EXPECT_THAT(Shown(expression.c_str()), ElementsAre("..", "dir.c", "a.c", "c.txt"));
}

TEST_F(FilteredPanel, KeepsEachSidesFilterApart) {
    settings.sides[0].filter = "*.c";
    settings.sides[1].filter = "*.txt";
    Start();
    EXPECT_THAT(Names(left), ElementsAre("..", "dir.c", "a.c", "b.c"));
    EXPECT_THAT(Names(right), ElementsAre("..", "dir.c", "c.txt"));
}

TEST_F(FilteredPanel, TakesNamesFromTheActivePanelsDirectoryAtEachRead) {
    tree.Time("a.c", 1000);
    tree.Time("b.c", 2000);
    tree.Time("c.txt", 3000);
    tree.File("dir.c/b.c");  // another file of that name, newer than all of these
    Start("", "dir.c");
    Activate(*panels, 0);
    left.filter = "%timestamp>@b.c";
    for (int i = 0; i < 3; ++i) {
        if (i == 1) RereadBoth(*panels);
        if (i == 2) RereadSide(*panels, 1);
        RereadSide(*panels, 0);
        EXPECT_THAT(Names(left), ElementsAre("..", "dir.c", "c.txt")) << i;
    }
    RereadBoth(*panels);
    EXPECT_THAT(Names(left), ElementsAre("..", "dir.c", "c.txt"));
}

TEST_F(FilteredPanel, AcceptsByTheFilterThatThePanelHasNow) {
    left.filter = "*.c";
    const OwnedEntry e(NewEntry(L"a.c"));
    EXPECT_TRUE(filter.Accepts(left, *e)) << "without the start of a read";
    left.filter = "*.txt";
    EXPECT_FALSE(filter.Accepts(left, *e));
}

}  // namespace
}  // namespace zt
