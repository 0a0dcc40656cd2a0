// The text of relative links, and the toggle of destinations.
#include "fileops/make_link.h"

#include <gtest/gtest.h>

#include "fileops/destination_toggle.h"
#include "tests/panels/temporary_tree.h"
#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

std::string Relative(const char* directory, const char* target) {
    return NameToBytes(RelativeLinkText(NameFromBytes(directory), NameFromBytes(target))).c_str();
}

TEST(RelativeLink, GoesUpToWhatIsCommonAndDownAgain) {
    const struct {
        const char* directory;
        const char* target;
        const char* expected;
    } rows[] = {
        {"/a", "/a/f", "f"},
        {"/a/b", "/a/f", "../f"},
        {"/a/b/c", "/a/f", "../../f"},
        {"/a", "/a/b/f", "b/f"},
        {"/a/b", "/a/c/f", "../c/f"},
        {"/x/y", "/a/f", "../../a/f"},
        {"/", "/f", "f"},
        {"/", "/a/f", "a/f"},
        {"/a", "/f", "../f"},
        // Compared to the letter.
        {"/A", "/a/f", "../a/f"},
        {"/a/B", "/a/b/f", "../b/f"},
        {"/a/bb", "/a/b/f", "../b/f"},
        // A directory in which, or below which, the link stands.
        {"/a/b", "/a", ".."},
        {"/a/b/c", "/a", "../.."},
        {"/a", "/a", "."},
        // Slashes too many.
        {"/a//b/", "/a/f", "../f"},
        {"//", "//f", "f"},
        {"/a/\xFF", "/a/\xFF/f\xFE", "f\xFE"},
        {"/with blank/b", "/with blank/'q'\n", "../'q'\n"},
        {"/a", "/a/-dash", "-dash"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.expected, Relative(row.directory, row.target))
            << row.directory << " to " << row.target;
    }
}

class LinkMaking : public UiTest {
protected:
    std::string TextOf(const std::string& name) {
        std::error_code error;
        return std::filesystem::read_symlink(tree.PathOf(name), error).string();
    }

    TemporaryTree tree;
};

TEST_F(LinkMaking, HoldsTheTargetAsItIsGiven) {
    tree.File("f");
    EXPECT_EQ(1, MakeLink(tree.Wide("l"), tree.Wide("f"), false, false));
    EXPECT_EQ(tree.PathOf("f"), TextOf("l"));
}

TEST_F(LinkMaking, ComputesTheRelativePath) {
    tree.File("f");
    tree.Folder("sub");
    EXPECT_EQ(1, MakeLink(tree.Wide("l"), tree.Wide("f"), true, false));
    EXPECT_EQ(1, MakeLink(tree.Wide("sub/l"), tree.Wide("f"), true, false));
    EXPECT_EQ(1, MakeLink(tree.Wide("sub/../sub/./m"), tree.Wide("f"), true, false));
    EXPECT_EQ(1, MakeLink(tree.Wide("d"), tree.Wide("sub"), true, true));
    EXPECT_EQ("f", TextOf("l"));
    EXPECT_EQ("../f", TextOf("sub/l"));
    EXPECT_EQ("../f", TextOf("sub/m"));
    EXPECT_EQ("sub", TextOf("d"));
    EXPECT_TRUE(std::filesystem::exists(tree.PathOf("sub/l")));
}

TEST_F(LinkMaking, TellsOfAnExistingName) {
    tree.File("f");
    tree.File("taken");
    Key(kKeyEsc);
    EXPECT_EQ(0, MakeLink(tree.Wide("taken"), tree.Wide("f"), false, false));
    ASSERT_EQ(1u, screen.screens.size());
    EXPECT_TRUE(screen.screens[0].Has("File exists (17)"));
    Key('s');
    EXPECT_EQ(1, MakeLink(tree.Wide("taken"), tree.Wide("f"), false, false));
    Key('r');
    Key('r');
    Key('s');
    EXPECT_EQ(1, MakeLink(tree.Wide("taken"), tree.Wide("f"), false, false));
    EXPECT_EQ(5u, screen.screens.size());
}

TEST_F(LinkMaking, TellsOfAMissingDirectory) {
    Key(kKeyEnter);
    EXPECT_EQ(1, MakeLink(tree.Wide("none/l"), L"f", false, false));
    Key(kKeyEsc);
    EXPECT_EQ(0, MakeLink(tree.Wide("none/l"), L"f", false, false));
    EXPECT_TRUE(screen.screens[0].Has("File not found"));
}

TEST(DestinationToggle, ChangesBetweenANameAndTheOtherDirectory) {
    const struct {
        const wchar_t* text;
        const wchar_t* other;
        const wchar_t* expected;
    } rows[] = {
        {L"/other/name", L"/other", L"name"},
        {L"name", L"/other", L"/other/name"},
        {L"name", L"/", L"/name"},
        {L"name", L"/other/", L"/other/name"},
        {L"/name", L"/other", L"name"},
        {L"/other/", L"/other", L""},
        {L"", L"/other", L"/other/"},
        {L"back\\slash", L"/o", L"/o/back\\slash"},
    };
    for (const auto& row : rows) {
        EXPECT_STREQ(row.expected, ToggleDestination(row.text, row.other).c_str()) << row.text;
    }
}

TEST(DestinationToggle, HasThreeKeys) {
    EXPECT_TRUE(IsToggleKey(AltKey('d')));
    EXPECT_TRUE(IsToggleKey(kKeyF5));
    EXPECT_TRUE(IsToggleKey(kKeyF6));
    EXPECT_FALSE(IsToggleKey(kKeyF7));
    EXPECT_FALSE(IsToggleKey(kKeyEnter));
}

TEST(SuggestedDirectory, HasOneSlashAtItsEnd) {
    EXPECT_STREQ(L"/a/", WithTrailingSlash(L"/a").c_str());
    EXPECT_STREQ(L"/a/", WithTrailingSlash(L"/a/").c_str());
    EXPECT_STREQ(L"/", WithTrailingSlash(L"/").c_str());
    EXPECT_STREQ(L"", WithTrailingSlash(L"").c_str());
    EXPECT_STREQ(L"/a\\/", WithTrailingSlash(L"/a\\").c_str());
}

}  // namespace
}  // namespace zt
