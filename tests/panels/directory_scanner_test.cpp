// Listing real directories.
#include "panels/directory_scanner.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <set>

#include "foundation/result_codes.h"
#include "tests/panels/temporary_tree.h"

namespace zt {
namespace {

struct Found {
    int flags;
    uint64_t size;
    int64_t seconds;
};

class Scanner : public testing::Test {
protected:
    std::map<std::string, Found> Scan(const std::string& name = "") {
        std::map<std::string, Found> all;
        DirectoryScanner scanner(tree.Wide(name));
        entry* e = nullptr;
        for (last = scanner.First(e); last == kDone; last = scanner.Next(e)) {
            all[NameToBytes(e->name).c_str()] = {e->flags & ~kReadOnlyForUser, e->size,
                                                 e->time.seconds};
        }
        return all;
    }
    TemporaryTree tree;
    int last = 0;
};

TEST_F(Scanner, ListsFilesDirectoriesAndLinks) {
    tree.File("file", 4711);
    tree.Folder("dir");
    tree.File(".hid");
    tree.Link("good", "file");
    tree.Link("todir", "dir");
    tree.Link("broken", "nowhere");
    tree.Link("circle1", "circle2");
    tree.Link("circle2", "circle1");
    tree.Time("file", 1234567);
    auto all = Scan();
    EXPECT_EQ(last, kNoMoreEntries);
    EXPECT_EQ(all.size(), 10u);
    EXPECT_EQ(all["file"].flags, 0);
    EXPECT_EQ(all["file"].size, 4711u);
    EXPECT_EQ(all["file"].seconds, 1234567);
    EXPECT_EQ(all["dir"].flags, kDirectory);
    EXPECT_EQ(all["dir"].size, 0u);
    EXPECT_EQ(all[".hid"].flags, kHidden);
    EXPECT_EQ(all["."].flags, kDirectory | kHidden);
    EXPECT_EQ(all[".."].flags, kDirectory);
    EXPECT_EQ(all["good"].flags, kSymbolicLink);
    EXPECT_EQ(all["good"].size, 4711u);
    EXPECT_EQ(all["todir"].flags, kSymbolicLink | kDirectory);
    for (const char* name : {"broken", "circle1", "circle2"}) {
        EXPECT_EQ(all[name].flags, kSymbolicLink | kBrokenLink) << name;
    }
}

TEST_F(Scanner, KeepsEveryByteOfANameAndTellsLookAlikesApart) {
    const std::set<std::string> names = {"with blank",
                                         "quote\"'",
                                         "new\nline",
                                         "tab\t",
                                         "\x01\x7F",
                                         "raw\xE9",
                                         "whole\xC3\xA9",
                                         "whole\xE9",
                                         std::string(255, 'x'),
                                         std::string(255, '\xFF'),
                                         "e\xCC\x81",
                                         "\xF0\x9F\x98\x80",
                                         "\xED\xA0\x80",
                                         "\xC0\xAF",
                                         "back\\slash"};
    for (const std::string& name : names)
        tree.File(name);
    std::set<std::string> listed;
    for (const auto& [name, found] : Scan()) {
        if (name != "." && name != "..") listed.insert(name);
    }
    EXPECT_EQ(listed, names);
}

TEST_F(Scanner, ReportsDirectoriesThatCannotBeOpened) {
    tree.File("file");
    Scan("gone");
    EXPECT_EQ(last, ENOENT);
    Scan("file");
    EXPECT_EQ(last, ENOTDIR);
    Scan(std::string(300, 'x'));
    EXPECT_EQ(last, ENAMETOOLONG);
    tree.Folder("shut");
    tree.Mode("shut", 0);
    const OrdinaryUser user;
    Scan("shut");
    EXPECT_EQ(last, EACCES);
}

TEST_F(Scanner, ListsNamesOfADirectoryThatMayNotBeSearched) {
    tree.Folder("dir");
    tree.Folder("dir/sub");
    tree.File("dir/file", 10);
    tree.Mode("dir", 0444);
    const OrdinaryUser user;
    auto all = Scan("dir");
    EXPECT_EQ(last, kNoMoreEntries);
    EXPECT_EQ(all.count("sub"), 1u);
    EXPECT_EQ(all["sub"].flags, kDirectory);
    EXPECT_EQ(all["file"].flags, 0);
    EXPECT_EQ(all["file"].size, 0u) << "nobody tells";
}

TEST_F(Scanner, SetsTheReadOnlyFlagForTheUser) {
    tree.File("mine");
    const uid_t user = geteuid();
    DirectoryScanner scanner(tree.Wide());
    entry* e = nullptr;
    bool seen = false;
    for (int result = scanner.First(e); result == kDone; result = scanner.Next(e)) {
        if (e->name[0] != L'm') continue;
        seen = true;
        EXPECT_EQ(e->flags & kReadOnlyForUser, 0);
        EXPECT_EQ(e->uid, static_cast<uint16_t>(user));
        EXPECT_EQ(e->mode, S_IFREG | 0644);
    }
    EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace zt
