// The destination that the user typed, applied to a source.
#include "fileops/target_name.h"

#include "fileops/temporary_name.h"
#include "foundation/file_name.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

std::string Mapped(const std::string& source, const std::string& destination) {
    const Westring name =
        MapTargetName(NameFromBytes(source.c_str()), NameFromBytes(destination.c_str()));
    return NameToBytes(name).c_str();
}

TEST(TargetName, AppliesMasks) {
    struct Row {
        const char *source, *mask, *expected;
    };
    constexpr Row kRows[] = {
        {"report.txt", "*.bak", "report.bak"},
        {"abc.txt", "?x*", "axbc"},
        {"abc.txt", "*", "abc"},
        {"abc.txt", "*.*", "abc.txt"},
        {"README", "*.*", "README."},
        {"a.tar.gz", "*.*", "a.tar"},
        {"a.tar.gz", "*.*.*", "a.tar.gz"},
        {"a", "???", "a"},
        {"abc", "x?", "xa"},
        {"a.b", "?.", "a."},
        {".profile", "*.old", ".old"},
        {".profile", ".*", ".profile"},
        {"ab.c", "*x*y.?z", "abxy.cz"},
        {"abc.d", "?*.?", "abc.d"},
    };
    for (const Row& row : kRows) {
        const std::string expected = std::string("/to/") + row.expected;
        EXPECT_EQ(Mapped(std::string("/from/") + row.source, std::string("/to/") + row.mask),
                  expected)
            << row.source << " by " << row.mask;
    }
    EXPECT_EQ(Mapped("/from/a.b", "/to/*.x/"), "/to/a.x") << "a slash behind a mask counts nothing";
    EXPECT_EQ(Mapped("/from/a.b", "*.x"), "a.x");
}

TEST(TargetName, KeepsTheBytesOfNames) {
    const TemporaryTree tree;
    EXPECT_EQ(Mapped("/from/caf\xE9", tree.Path()), tree.PathOf("caf\xE9"));
    EXPECT_EQ(Mapped("/from/caf\xE9.x", "/to/*.y"), "/to/caf\xE9.y");
    EXPECT_EQ(Mapped("/from/caf\xC3\xA9.x", "/to/?????"), "/to/caf\xC3\xA9.");
}

TEST(TargetName, GoesIntoDirectories) {
    TemporaryTree tree;
    tree.Folder("d");
    tree.Folder("d/name");
    tree.File("file");
    tree.Link("link", "d");
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("d")), tree.PathOf("d/x"));
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("d/")), tree.PathOf("d/x"));
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("link")), tree.PathOf("link/x"));
    EXPECT_EQ(Mapped("/from/x", "/no/such/place/"), "/no/such/place/x");
    EXPECT_EQ(Mapped("/from/x", "/no/such/place\\"), "/no/such/place/x");
    EXPECT_EQ(Mapped("/from/x", "/"), "/x");
}

TEST(TargetName, IsTheNewNameOtherwise) {
    TemporaryTree tree;
    tree.Folder("d");
    tree.Folder("d/name");
    tree.File("file");
    tree.File("odd\\");
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("file")), tree.PathOf("file"));
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("none")), tree.PathOf("none"));
    EXPECT_EQ(Mapped("/from/name", tree.PathOf("d/name")), tree.PathOf("d/name")) << "to merge";
    EXPECT_EQ(Mapped(tree.PathOf("d"), tree.PathOf("d")), tree.PathOf("d"));
    EXPECT_EQ(Mapped("/from/x", tree.PathOf("odd\\")), tree.PathOf("odd\\")) << "a name of its own";
}

TEST(TemporaryName, StandsBesideTheTarget) {
    EXPECT_STREQ(TemporaryName("file", 0, 255).c_str(), "file.zt@@@.tmp");
    EXPECT_STREQ(TemporaryName("file", 12, 255).c_str(), "file.zt@@@12.tmp");
}

TEST(TemporaryName, IsCutBetweenCharacters) {
    const std::string longest(255, 'x');
    EXPECT_EQ(TemporaryName(longest.c_str(), 0, 255).c_str(), std::string(245, 'x') + ".zt@@@.tmp");
    std::string accents;
    while (accents.size() < 254)
        accents += "\xC3\xA9";
    const std::string cut = TemporaryName(accents.c_str(), 0, 255).c_str();
    EXPECT_EQ(cut, accents.substr(0, 244) + ".zt@@@.tmp");
    EXPECT_STREQ(TemporaryName("anything", 0, 5).c_str(), ".zt@@@.tmp");
}

TEST(TemporaryName, PassesByWhatIsTaken) {
    std::vector<std::string> tried;
    Estring used;
    const int code = MakeTemporary("/d/f", used, [&](const char* path) {
        tried.push_back(path);
        return tried.size() < 3 ? EEXIST : 0;
    });
    EXPECT_EQ(code, 0);
    EXPECT_STREQ(used.c_str(), "/d/f.zt@@@2.tmp");
    EXPECT_EQ(tried.size(), 3u);
}

TEST(TemporaryName, GivesUpInTheEnd) {
    Estring used;
    EXPECT_EQ(MakeTemporary("f", used, [](const char*) { return EEXIST; }), EBUSY);
    EXPECT_EQ(MakeTemporary("f", used, [](const char*) { return EROFS; }), EROFS);
    EXPECT_EQ(MakeTemporary("f", used, [](const char*) { return ENAMETOOLONG; }), ENAMETOOLONG);
}

TEST(TemporaryName, IsShorterWhereNamesMustBe) {
    Estring used;
    const std::string name(140, 'n');
    const int code = MakeTemporary(("/d/" + name).c_str(), used, [](const char* path) {
        return std::string(path).size() > 143 ? ENAMETOOLONG : 0;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(std::string(used.c_str()).find("/d/nnnn"), 0u);
}

}  // namespace
}  // namespace zt
