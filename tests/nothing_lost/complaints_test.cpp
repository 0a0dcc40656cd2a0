// The judge of the other tests: that it sees each thing that may go wrong.
#include "tests/nothing_lost/work_case.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;

constexpr auto kOne = WorkPlace::Kind::kOneFileSystem;
constexpr WorkCase kCopy = {"Copy", Work::kCopy, kOne, Existing::kAlways};
constexpr WorkCase kMove = {"Move", Work::kMove, kOne, Existing::kAlways};
constexpr WorkCase kBeside = {"Beside", Work::kMove, kOne, Existing::kNever};
constexpr WorkCase kDelete = {"Delete", Work::kDelete, kOne, Existing::kNothing};

FileState FileOf(uint64_t contents) {
    FileState state;
    state.type = S_IFREG;
    state.rights = 0644;
    state.size = 10;
    state.contents = contents;
    return state;
}

FileState Folder() {
    FileState state;
    state.type = S_IFDIR;
    return state;
}

class Complaining : public testing::Test {
protected:
    Complaining() { report.tagged = {"a", "b", "dir"}; }

    std::string About(const WorkCase& work, const Leniency& leniency = {}) {
        return Complaints(work, before, after, report, leniency);
    }

    TreeSnapshot before = {{"from", Folder()},     {"from/a", FileOf(1)},     {"from/b", FileOf(2)},
                           {"from/dir", Folder()}, {"from/dir/c", FileOf(3)}, {"to", Folder()},
                           {"to/a", FileOf(10)},   {"to/other", FileOf(20)}};
    TreeSnapshot after = before;
    WorkReport report;
};

TEST_F(Complaining, NotWhereNothingWasDone) {
    for (const WorkCase& work : {kCopy, kMove, kBeside, kDelete})
        EXPECT_EQ("", About(work));
}

TEST_F(Complaining, NotWhereAllWasDone) {
    report.tagged.clear();
    after["to/a"] = before["from/a"];
    after["to/b"] = before["from/b"];
    after["to/dir"] = Folder();
    after["to/dir/c"] = before["from/dir/c"];
    EXPECT_EQ("", About(kCopy));
    for (const char* path : {"from/a", "from/b", "from/dir", "from/dir/c"})
        after.erase(path);
    EXPECT_EQ("", About(kMove));
    EXPECT_THAT(About(kCopy), HasSubstr("LOST: from/a"));
}

TEST_F(Complaining, AboutAFileThatIsNowhereWhole) {
    after.erase("from/b");
    EXPECT_THAT(About(kMove), HasSubstr("LOST: from/b"));
    after["to/b"] = FileOf(22);
    EXPECT_THAT(About(kMove), HasSubstr("LOST: from/b"));
    EXPECT_THAT(About(kMove), HasSubstr("neither the old nor the new one: to/b"));
    after["to/b"] = before["from/b"];
    EXPECT_EQ("", About(kMove));
    after["to/b"].rights = 0600;
    EXPECT_THAT(About(kMove), HasSubstr("LOST: from/b"));
    EXPECT_EQ("", About(kMove, {.rightsAndTimes = true}));
}

TEST_F(Complaining, AboutAPartialTargetAndTheOldOneThatIsGone) {
    after["to/b"] = FileOf(0);
    EXPECT_THAT(About(kCopy), HasSubstr("neither the old nor the new one: to/b"));
    after.erase("to/b");
    after.erase("to/a");
    EXPECT_THAT(About(kCopy), HasSubstr("neither the old nor the new one: to/a"));
}

TEST_F(Complaining, AboutWhatIsLeftOverOrTouched) {
    after["to/b.zt@@@.tmp"] = FileOf(0);
    EXPECT_THAT(About(kCopy), HasSubstr("left over: to/b.zt@@@.tmp"));
    EXPECT_EQ("", About(kCopy, {.temporaryFiles = true}));
    after.erase("to/b.zt@@@.tmp");
    after["to/other"] = FileOf(21);
    EXPECT_THAT(About(kCopy), HasSubstr("touched: to/other"));
    after.erase("to/other");
    EXPECT_THAT(About(kDelete), HasSubstr("touched: to/other"));
}

TEST_F(Complaining, AboutAnOverwriteWithoutLeave) {
    after["to/a"] = before["from/a"];
    EXPECT_EQ("", About(kCopy));
    EXPECT_THAT(About(kBeside), HasSubstr("overwritten without leave: to/a"));
}

TEST_F(Complaining, AboutASourceThatIsChanged) {
    after["from/dir/c"] = FileOf(33);
    for (const WorkCase& work : {kCopy, kMove})
        EXPECT_THAT(About(work), HasSubstr("its source is changed: from/dir/c"));
    EXPECT_THAT(About(kDelete), HasSubstr("changed: from/dir/c"));
}

TEST_F(Complaining, AboutATagThatIsMissing) {
    report.tagged.erase("dir");
    for (const WorkCase& work : {kCopy, kMove, kDelete})
        EXPECT_THAT(About(work), HasSubstr("not done and not tagged: from/dir/c"));
    EXPECT_EQ("", About(kCopy, {.tags = true}));
    after.erase("from/dir/c");
    after.erase("from/dir");
    EXPECT_EQ("", About(kDelete));
}

TEST_F(Complaining, AboutASuccessThatIsNone) {
    report.tagged.clear();
    const std::string all = ComplaintsAboutSuccess(kDelete, before, after, report);
    EXPECT_THAT(all, HasSubstr("not done: from/a"));
    after = before;
    for (const char* path : {"from/a", "from/b", "from/dir", "from/dir/c"})
        after.erase(path);
    EXPECT_EQ("", ComplaintsAboutSuccess(kDelete, before, after, report));
    report.boxes = {"a box"};
    EXPECT_THAT(ComplaintsAboutSuccess(kDelete, before, after, report), HasSubstr("a box"));
}

}  // namespace
}  // namespace zt::headless
