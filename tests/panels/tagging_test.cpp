// The tag of one entry.
#include "panels/tagging.h"

#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class Tagging : public PanelFixture {
protected:
    void Try(const char* name, TagMode mode) {
        TagEntry(left, left.entries.Find(NameFromBytes(name).c_str()), mode);
    }
    int ColourOf(int index) { return AttributeAt(left, 0, index - left.top); }
};

TEST_F(Tagging, ChangesAnEntryThatIsNotYetAsAsked) {
    tree.File("a", 300);
    Start();
    const struct {
        TagMode mode;
        bool before, after;
    } rows[] = {
        {TagMode::kSet, false, true},    {TagMode::kSet, true, true},
        {TagMode::kToggle, true, false}, {TagMode::kToggle, false, true},
        {TagMode::kClear, true, false},  {TagMode::kClear, false, false},
    };
    for (const auto& row : rows) {
        ASSERT_EQ(Find(left, "a")->tagged != 0, row.before);
        Try("a", row.mode);
        EXPECT_EQ(Find(left, "a")->tagged, row.after ? 1 : 0);
        EXPECT_EQ(left.taggedCount, row.after ? 1 : 0);
        EXPECT_EQ(left.taggedBytes, row.after ? 300u : 0u);
    }
}

TEST_F(Tagging, ReachesProtectedNamesAndDirectories) {
    tree.File("descript.ion", 7);
    tree.Folder("dir");
    Start();
    Try("descript.ion", TagMode::kSet);
    Try("dir", TagMode::kToggle);
    EXPECT_EQ(left.taggedCount, 2);
    EXPECT_EQ(left.taggedBytes, 7u) << "a directory has no size before it is added up";
}

TEST_F(Tagging, DrawsTheEntryWhereItCanBeSeen) {
    ManyFiles(100);
    Start();
    left.top = 20;
    DrawPanel(left);
    TagEntry(left, 25, TagMode::kSet);
    EXPECT_EQ(ColourOf(25), Colour(ColourClass::kTagged));
    const std::string before = screen->RowText(0) + screen->RowText(20) + screen->RowText(21);
    for (const int index : {19, left.top + left.visibleEntries}) {
        TagEntry(left, index, TagMode::kSet);
        EXPECT_TRUE(left.entries.At(index)->tagged);
    }
    EXPECT_EQ(screen->RowText(0) + screen->RowText(20) + screen->RowText(21), before);
    for (int index = left.top; index < left.top + left.visibleEntries; ++index)
        EXPECT_EQ(ColourOf(index) == Colour(ColourClass::kTagged), index == 25) << index;
}

}  // namespace
}  // namespace zt
