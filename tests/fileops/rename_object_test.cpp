// Renaming that replaces nothing, and renaming that does.
#include "fileops/rename_object.h"

#include "tests/fileops/engine_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;

class RenameTest : public EngineTest {
protected:
    int New(const std::string& from, const std::string& to) {
        return RenameNew(tree.PathOf(from).c_str(), tree.PathOf(to).c_str());
    }
    int Over(const std::string& from, const std::string& to) {
        return RenameOver(tree.PathOf(from).c_str(), tree.PathOf(to).c_str());
    }
};

TEST_F(RenameTest, ReplacesNothingUnasked) {
    Write("a", "new");
    Write("b", "old");
    tree.Folder("d");
    tree.Link("link", "nothing");
    for (const char* taken : {"b", "d", "link", "a"})
        EXPECT_EQ(New("a", taken), EEXIST) << taken;
    EXPECT_EQ(New("a", "c"), 0);
    EXPECT_EQ(New("d", "e"), 0);
    EXPECT_EQ(New("d", "e/f"), ENOENT);
    EXPECT_EQ(New("e", "e/f"), EINVAL);
    EXPECT_THAT(Names(), ElementsAre("b", "c", "e", "link"));
}

TEST_F(RenameTest, ReplacesWhatIsNoDirectory) {
    Write("a", "new");
    Write("b", "old");
    tree.Folder("d");
    Write("d/inner", "x");
    tree.Link("link", "b");
    EXPECT_EQ(Over("a", "d"), EISDIR);
    EXPECT_EQ(Over("a", "link"), 0);
    EXPECT_EQ(Content("b"), "old");
    EXPECT_EQ(Content("link"), "new");
    EXPECT_EQ(Over("d", "b"), 0) << "a directory in the place of a file";
    EXPECT_EQ(Content("b/inner"), "x");
    EXPECT_EQ(Over("link", "free"), 0) << "nothing to replace is no failure";
    EXPECT_EQ(Over("none", "free"), ENOENT);
    EXPECT_EQ(Content("free"), "new");
    EXPECT_THAT(Names(), ElementsAre("b", "free"));
}

TEST_F(RenameTest, OneOfTwoHardLinksIsLeft) {
    Write("a", "kept");
    ASSERT_EQ(link(tree.PathOf("a").c_str(), tree.PathOf("b").c_str()), 0);
    EXPECT_EQ(Over("a", "b"), 0);
    EXPECT_THAT(Names(), ElementsAre("b"));
    EXPECT_EQ(Over("b", "b"), 0);
    EXPECT_EQ(Content("b"), "kept") << "the only name stays";
}

}  // namespace
}  // namespace zt
