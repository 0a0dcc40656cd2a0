// Which entries a group operation reaches, and the question for an expression.
#include "panels/group_selection.h"

#include <gmock/gmock.h>

#include "console/event.h"
#include "tests/panels/panel_fixture.h"
#include "ui/field_history.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kShift = kModifierShift;
constexpr int32_t kAltD = 0x10020;

class Groups : public PanelFixture {
protected:
    Groups() {
        tree.Folder("dir");
        tree.Folder("a.txt");
        tree.File("b.txt", 10);
        tree.File("c.bin", 2000);
        tree.File("descript.ion", 5);
        FieldHistory(kHistoryGroup).Clear();
    }
    std::vector<std::string> Tagged() {
        std::vector<std::string> names;
        int count = 0;
        uint64_t bytes = 0;
        for (int i = 0; i < left.Count(); ++i) {
            const entry& e = *left.entries.At(i);
            if (!e.tagged) continue;
            names.push_back(NameToBytes(e.name).c_str());
            ++count;
            bytes += e.size;
        }
        EXPECT_EQ(left.taggedCount, count);
        EXPECT_EQ(left.taggedBytes, bytes);
        return names;
    }
    void Untag() { TagAll(left, TagMode::kClear, 0); }
    // Types into the fresh question; Enter.
    void Answer(const std::string& pattern) {
        screen->PushText(pattern);
        screen->PushKey(kKeyEnter);
    }
};

TEST_F(Groups, TakeDirectoriesWhereSettingAndShiftDiffer) {
    Start();
    const std::vector<std::string> files = {"b.txt", "c.bin"};
    const std::vector<std::string> all = {"a.txt", "dir", "b.txt", "c.bin"};
    for (const bool tagDirs : {false, true}) {
        for (const int modifiers : {0, kShift, int{kModifierCtrl}, kModifierCtrl | kShift}) {
            SCOPED_TRACE(testing::Message() << tagDirs << " " << modifiers);
            settings.tagDirs = tagDirs;
            const bool expectsAll = tagDirs != ((modifiers & kShift) != 0);
            TagAll(left, TagMode::kSet, modifiers);
            EXPECT_EQ(Tagged(), expectsAll ? all : files);
            TagAll(left, TagMode::kToggle, modifiers);
            EXPECT_THAT(Tagged(), IsEmpty());
            TagAll(left, TagMode::kToggle, modifiers);
            EXPECT_EQ(Tagged(), expectsAll ? all : files);
            Untag();
        }
    }
}

TEST_F(Groups, TakeEverythingWhenTheyClear) {
    Start();
    for (const int modifiers : {0, kShift}) {
        for (const char* name : {"dir", "b.txt", "descript.ion"})
            Tag(left, name);
        TagAll(left, TagMode::kClear, modifiers);
        EXPECT_THAT(Tagged(), IsEmpty());
    }
}

TEST_F(Groups, LeaveProtectedNamesAlone) {
    tree.File("EA DATA. SF");
    tree.File("WP ROOT. SF");
    tree.File("Descript.ion");
    tree.File("wp root. sf");
    Start();
    settings.naturalSort = false;
    TagAll(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(),
                testing::UnorderedElementsAre("b.txt", "c.bin", "Descript.ion", "wp root. sf"));
    EXPECT_TRUE(IsProtectedName(L"EA DATA. SF"));
    EXPECT_FALSE(IsProtectedName(L"EA DATA. S"));
    // One tag of its own stays through an inversion.
    Untag();
    TagEntry(left, left.entries.Find(L"descript.ion"), TagMode::kToggle);
    EXPECT_THAT(Tagged(), ElementsAre("descript.ion"));
    TagAll(left, TagMode::kToggle, 0);
    EXPECT_TRUE(Find(left, "descript.ion")->tagged);
}

TEST_F(Groups, NeverTakeTheParent) {
    Start();
    settings.tagDirs = true;
    TagAll(left, TagMode::kSet, 0);
    TagEntry(left, 0, TagMode::kSet);
    TagEntry(left, 0, TagMode::kToggle);
    EXPECT_FALSE(left.entries.At(0)->tagged);
    TagEntry(left, -1, TagMode::kSet);
    TagEntry(left, left.Count(), TagMode::kSet);
    EXPECT_EQ(left.taggedCount, 4);
}

TEST_F(Groups, ChangeNothingInInfoAndTree) {
    Start();
    Tag(left, "b.txt");
    Find(left, "c.bin")->wasTagged = 1;
    const auto tryAll = [this] {
        TagAll(left, TagMode::kSet, 0);
        TagAll(left, TagMode::kToggle, 0);
        RestoreSelection(left);
        SelectGroup(left, TagMode::kSet, 0);  // a question would fail for want of keys
        EXPECT_THAT(Tagged(), ElementsAre("b.txt"));
    };
    left.kind = kKindInfo;
    tryAll();
    left.kind = kKindFiles;
    left.style = kStyleTree;
    tryAll();
    left.style = kStyleFull;
}

TEST_F(Groups, AreTaggedByAnExpression) {
    Start();
    Answer("*.txt");
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt"));
    Answer("%size>1k | descript.*");
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt", "c.bin")) << "protected";
    Answer("b*");
    SelectGroup(left, TagMode::kClear, 0);
    EXPECT_THAT(Tagged(), ElementsAre("c.bin"));
}

TEST_F(Groups, ClearProtectedNamesToo) {
    Start();
    Tag(left, "descript.ion");
    Answer("*.ion");
    SelectGroup(left, TagMode::kClear, 0);
    EXPECT_THAT(Tagged(), IsEmpty());
}

TEST_F(Groups, KeepTheLastExpressionForBothSidesAndDirections) {
    Start();
    EXPECT_STREQ(panels->lastGroupPattern.c_str(), L"*");
    Answer("*.bin");
    SelectGroup(left, TagMode::kSet, 0);
    screen->PushKey(kKeyEnter);
    SelectGroup(right, TagMode::kSet, 0);
    EXPECT_TRUE(Find(right, "c.bin")->tagged);
    EXPECT_EQ(right.taggedCount, 1);
    screen->PushKey(kKeyEnter);
    SelectGroup(left, TagMode::kClear, 0);
    EXPECT_THAT(Tagged(), IsEmpty());
    EXPECT_STREQ(panels->lastGroupPattern.c_str(), L"*.bin");
}

TEST_F(Groups, ForgetWhatEscLeaves) {
    Start();
    screen->PushText("*.bin");
    screen->PushKey(kKeyEsc);
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(), IsEmpty());
    EXPECT_STREQ(panels->lastGroupPattern.c_str(), L"*");
    EXPECT_EQ(FieldHistory(kHistoryGroup).Count(), 0);
}

TEST_F(Groups, AskAgainAfterABadExpression) {
    Start();
    Answer("(*.txt");
    screen->PushKey(kKeyEnter);  // the message
    screen->PushText(")");
    screen->PushKey(kKeyEnter);
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt"));
    EXPECT_STREQ(panels->lastGroupPattern.c_str(), L"(*.txt)");
    Answer("%size>");
    screen->PushKey(kKeyEnter);
    screen->PushKey(kKeyEsc);
    SelectGroup(left, TagMode::kClear, 0);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt"));
    EXPECT_STREQ(panels->lastGroupPattern.c_str(), L"(*.txt)") << "no bad one is kept";
}

TEST_F(Groups, TakeDirectoriesBySettingShiftAndKey) {
    Start();
    const struct {
        bool tagDirs;
        int modifiers;
        int flips;
        bool taken;
    } rows[] = {
        {false, 0, 0, false},     {true, 0, 0, true},  {false, kShift, 0, true},
        {true, kShift, 0, false}, {false, 0, 1, true}, {true, 0, 1, false},
        {false, 0, 2, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.tagDirs << row.modifiers << row.flips);
        settings.tagDirs = row.tagDirs;
        panels->lastGroupPattern = "*.txt";
        for (int i = 0; i < row.flips; ++i)
            screen->PushKey(kAltD, kModifierAlt, 'd');
        screen->PushKey(kKeyEnter);
        SelectGroup(left, TagMode::kSet, row.modifiers);
        EXPECT_EQ(Find(left, "a.txt")->tagged != 0, row.taken);
        Untag();
    }
}

TEST_F(Groups, UntagDirectoriesWhateverTheSetting) {
    Start();
    for (const bool tagDirs : {false, true}) {
        for (const int modifiers : {0, kShift}) {
            settings.tagDirs = tagDirs;
            Tag(left, "dir");
            screen->PushKey(kKeyEnter);
            SelectGroup(left, TagMode::kClear, modifiers);
            EXPECT_THAT(Tagged(), IsEmpty()) << tagDirs << modifiers;
        }
    }
    Tag(left, "dir");
    screen->PushKey(kAltD, kModifierAlt, 'd');
    screen->PushKey(kKeyEnter);
    SelectGroup(left, TagMode::kClear, 0);
    EXPECT_THAT(Tagged(), ElementsAre("dir"));
}

TEST_F(Groups, MatchNamesOfAnyBytes) {
    tree.File("caf\xE9", 1);
    tree.File("caf\xC3\xA9", 2);
    Start();
    Answer("caf?");
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_THAT(Tagged(), testing::UnorderedElementsAre("caf\xE9", "caf\xC3\xA9"));
}

TEST_F(Groups, AreRestored) {
    Start();
    Tag(left, "dir");
    Tag(left, "b.txt");
    Find(left, "b.txt")->wasTagged = 1;
    Find(left, "c.bin")->wasTagged = 1;
    RestoreSelection(left);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt", "c.bin"));
    RestoreSelection(left);
    EXPECT_THAT(Tagged(), ElementsAre("b.txt", "c.bin"));
}

TEST_F(Groups, DrawWhatTheyTagged) {
    Start();
    Pass();
    TagAll(left, TagMode::kSet, 0);
    const int row = left.entries.Find(L"c.bin");
    EXPECT_EQ(AttributeAt(left, 0, row), Colour(ColourClass::kTagged));
    Find(left, "c.bin")->wasTagged = 0;
    RestoreSelection(left);
    EXPECT_EQ(AttributeAt(left, 0, row), Colour(ColourClass::kPanel));
    Answer("*.bin");
    SelectGroup(left, TagMode::kSet, 0);
    EXPECT_EQ(AttributeAt(left, 0, row), Colour(ColourClass::kTagged));
    EXPECT_EQ(AttributeAt(left, 0, row - 1), Colour(ColourClass::kPanel));
}

}  // namespace
}  // namespace zt
