// Where a copy goes: what is suggested, and what a typed destination comes to.
#include <sys/stat.h>

#include "fileops/copy_destination.h"
#include "fileops/panel_paths.h"
#include "foundation/file_name.h"
#include "panels/cursor_movement.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

class CopyDestination : public PanelFixture {
protected:
    CopyDestination() {
        for (const char* name :
             {"src", "src/sub", "dst", "dst/a.txt", "dst/odd*", "dst/back\\slash", "dst/blank "}) {
            tree.Folder(name);
        }
        tree.File("src/a.txt");
        tree.File("src/b*c");
    }
    std::string At(const std::string& name) { return Bytes(tree.Wide(name)); }
    // '@' stands for the tree's folder.
    std::string Expanded(std::string text) {
        const std::string folder = At("");
        for (size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1))
            text.replace(at, 1, folder);
        return text;
    }
    Westring Wide(const std::string& text) { return NameFromBytes(Expanded(text).c_str()); }
};

TEST_F(CopyDestination, IsSuggestedByTheOtherPanel) {
    Start("src", "dst");
    ASSERT_TRUE(left.entries.Find(L"a.txt") >= 0);
    PlaceCursor(left, left.entries.Find(L"a.txt"));
    EXPECT_EQ(At("dst/a.txt"), Bytes(SuggestedDestination(left, right, false)));
    EXPECT_EQ("a.txt", Bytes(SuggestedDestination(left, right, true)));
    left.taggedCount = 1;
    EXPECT_EQ(At("dst") + "/", Bytes(SuggestedDestination(left, right, false)));
    EXPECT_EQ("a.txt", Bytes(SuggestedDestination(left, right, true)));
    right.kind = kKindInfo;
    EXPECT_EQ("a.txt", Bytes(SuggestedDestination(left, right, false)));
    right.kind = kKindFiles;
    right.readPath.Clear();
    EXPECT_EQ("a.txt", Bytes(SuggestedDestination(left, right, false)));
    right.readPath = right.path = "/";
    EXPECT_EQ("/", Bytes(SuggestedDestination(left, right, false)));
    left.taggedCount = 0;
    EXPECT_EQ("/a.txt", Bytes(SuggestedDestination(left, right, false)));
}

TEST_F(CopyDestination, PathOfAnEntryNeedsNoDirectory) {
    Start("src", "dst");
    const entry* e = Find(left, "a.txt");
    EXPECT_EQ(At("src/a.txt"), Bytes(PathOfEntry(left, *e)));
    left.path = "/";
    EXPECT_EQ("/a.txt", Bytes(PathOfEntry(left, *e)));
    left.path.Clear();
    EXPECT_EQ("a.txt", Bytes(PathOfEntry(left, *e)));
}

TEST_F(CopyDestination, LosesBlanksAroundItButNotOfTheName) {
    const struct {
        const char* typed;
        const char* name;
        const char* accepted;
    } rows[] = {{"  /a/b  ", "x", "/a/b"},
                {"\t/a/b\n", "x", "/a/b"},
                {"/a/ b ", " b ", "/a/ b "},
                {"  /a/ b ", " b ", "/a/ b "},
                {" b ", " b ", " b "},
                {" b  ", " b ", "b"},
                {"/a/line\n", "line\n", "/a/line\n"},
                {"/a/line\n", "line", "/a/line"},
                {"", "x", ""},
                {"   ", "x", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(row.accepted, Bytes(AcceptedText(row.typed, row.name))) << row.typed;
}

struct ManyRow {
    const char* typed;
    DestinationFault fault;
    const char* destination;
};

TEST_F(CopyDestination, OfManyIsADirectory) {
    mkfifo(At("pipe").c_str(), 0600);
    using enum DestinationFault;
    const ManyRow rows[] = {
        {"@/dst/", kNone, "@/dst/"},
        {"@/dst", kNone, "@/dst"},
        {"..", kNone, "@/"},
        {"../dst", kNone, "@/dst"},
        {"sub/", kNone, "@/src/sub/"},
        {"./", kNone, "@/src/"},
        {"@/dst/blank /", kNone, "@/dst/blank /"},
        {"@/dst/odd*/", kNone, "@/dst/odd*/"},
        {"@/dst/back\\slash/", kNone, "@/dst/back\\slash/"},
        {"@/pipe", kNone, "@/pipe"},
        {"@/pipe/", kNone, "@/pipe"},
        {"/dev/null", kNone, "/dev/null"},
        {"*.bak", kNone, "@/src/*.bak"},
        {"@/dst/?x*", kNone, "@/dst/?x*"},
        {"@/none/", kMissingDirectory, nullptr},
        {"@/none", kNotADirectory, nullptr},
        {"a.txt", kNotADirectory, nullptr},
        {"a.txt/", kMissingDirectory, nullptr},
        {"@/none/*.bak", kMissingDirectory, nullptr},
        {"a.txt/*", kMissingDirectory, nullptr},
        {"../../../../../../../../../../../../../../../..", kInvalidPath, nullptr},
        {"@/../../../../../../../../../../../../x/", kInvalidPath, nullptr},
    };
    for (const ManyRow& row : rows) {
        SCOPED_TRACE(row.typed);
        Westring destination;
        const auto fault = ResolveForMany(Wide(row.typed), tree.Wide("src"), destination);
        EXPECT_EQ(static_cast<int>(row.fault), static_cast<int>(fault));
        if (row.destination) {
            EXPECT_EQ(Expanded(row.destination), Bytes(destination));
        }
    }
}

TEST_F(CopyDestination, TargetsOfManyStandInIt) {
    const struct {
        const char* source;
        const char* destination;
        const char* target;
    } rows[] = {
        {"@/src/a.txt", "@/dst/", "@/dst/a.txt"},
        {"@/src/b*c", "@/dst/", "@/dst/b*c"},
        {"@/src/a.txt", "@/dst/odd*/", "@/dst/odd*/a.txt"},
        {"@/src/b*c", "@/dst", "@/dst/b*c"},
        {"@/src/report.txt", "@/src/*.bak", "@/src/report.bak"},
        {"@/src/abc.txt", "@/dst/?x*", "@/dst/axbc"},
        {"@/src/a.txt", "/dev/null", "/dev/null"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Expanded(row.target),
                  Bytes(TargetOfMany(Wide(row.source), Wide(row.destination))))
            << row.destination;
    }
    EXPECT_EQ(At("dst"), Bytes(DirectoryOfMany(Wide("@/dst"))));
    EXPECT_EQ(At("dst") + "/", Bytes(DirectoryOfMany(Wide("@/dst/"))));
    EXPECT_EQ(At("dst"), Bytes(DirectoryOfMany(Wide("@/dst/*.bak"))));
}

struct OneRow {
    const char* source;
    const char* typed;
    DestinationFault fault;
    const char* target;
};

TEST_F(CopyDestination, OfOneIsItsNewPath) {
    using enum DestinationFault;
    const OneRow rows[] = {
        {"@/src/a.txt", "new", kNone, "@/src/new"},
        {"@/src/a.txt", "a.txt", kNone, "@/src/a.txt"},
        {"@/src/a.txt", "sub", kNone, "@/src/sub/a.txt"},
        {"@/src/a.txt", "sub/", kNone, "@/src/sub/a.txt"},
        {"@/src/a.txt", "sub/new", kNone, "@/src/sub/new"},
        {"@/src/a.txt", "./new", kNone, "@/src/new"},
        {"@/src/a.txt", ".", kNone, "@/src/a.txt"},
        {"@/src/a.txt", "..", kNone, "@/a.txt"},
        {"@/src/a.txt", "../..", kNone, nullptr},
        {"@/src/a.txt", "../dst/", kNone, "@/dst/a.txt"},
        {"@/src/a.txt", "../dst/new", kNone, "@/dst/new"},
        {"@/src/a.txt", "@/dst/none/", kNone, "@/dst/none/a.txt"},
        // The directory of the very name is the target, to be merged into.
        {"@/src/a.txt", "@/dst/a.txt", kNone, "@/dst/a.txt"},
        {"@/src/a.txt", "*.bak", kNone, "@/src/a.bak"},
        {"@/src/a.txt", "@/dst/?x*", kNone, "@/dst/ax"},
        // A name with the letters of a mask stands for itself where it is the source's own.
        {"@/src/b*c", "@/dst/b*c", kNone, "@/dst/b*c"},
        {"@/src/b*c", "b*c", kNone, "@/src/b*c"},
        {"@/src/b*c", "x*", kNone, "@/src/xb*c"},
        {"@/src/back\\", "@/dst/back\\", kNone, "@/dst/back\\"},
        {"@/src/a\nb", "@/dst/a\nb", kNone, "@/dst/a\nb"},
        {"@/src/\xFF", "@/dst/\xFF", kNone, "@/dst/\xFF"},
        {"@/src/...", "@/dst/...", kNone, "@/dst/..."},
        {"@/src/a.txt", "@/dst/back\\slash/new", kNone, "@/dst/back\\slash/new"},
        {"@/src/a.txt", "/new", kNone, "/new"},
        {"@/src/a.txt", "/", kNone, "/a.txt"},
        {"@/src/a.txt", "@/../../../../../../../../../../x", kInvalidPath, nullptr},
    };
    for (const OneRow& row : rows) {
        SCOPED_TRACE(row.typed);
        Westring target;
        const auto fault =
            ResolveForOne(Wide(row.typed), Wide(row.source), tree.Wide("src"), target);
        EXPECT_EQ(static_cast<int>(row.fault), static_cast<int>(fault));
        if (row.target) {
            EXPECT_EQ(Expanded(row.target), Bytes(target));
        }
    }
}

TEST_F(CopyDestination, UnknownDirectoriesCountAsOnOneFileSystem) {
    EXPECT_TRUE(OnSameFileSystem(tree.Wide("src"), tree.Wide("dst")));
    EXPECT_TRUE(OnSameFileSystem(tree.Wide("src"), tree.Wide("none")));
    EXPECT_TRUE(OnSameFileSystem(tree.Wide("none"), "/proc"));
    EXPECT_FALSE(OnSameFileSystem(tree.Wide("src"), "/proc"));
}

}  // namespace
}  // namespace zt
