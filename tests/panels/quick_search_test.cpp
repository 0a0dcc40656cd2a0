// The search for names by their beginning.
#include "panels/quick_search.h"

#include <gmock/gmock.h>

#include "console/event.h"
#include "panels/cursor_movement.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

class Search : public PanelFixture {
protected:
    Search() { settings.stickyAlt = false; }

    void Files(std::initializer_list<const char*> names) {
        for (const char* name : names)
            tree.File(name);
        Start();
    }
    // The letters one by one; the key that came back last.
    int32_t Look(const std::string& letters) {
        int32_t last = 0;
        for (const char letter : letters)
            last = QuickSearch(left, static_cast<unsigned char>(letter), 0).code;
        return last;
    }
    std::string Text() { return Bytes(left.searchText); }
    void PlaceOn(const char* name) { ASSERT_TRUE(FindName(left, NameFromBytes(name).c_str())); }
};

TEST_F(Search, GoesToTheFirstNameWithThePrefix) {
    Files({"alpha", "beta", "bet2", "gamma"});
    EXPECT_EQ(Look("b"), 0);
    EXPECT_EQ(CurrentName(left), "bet2");
    Look("eta");
    EXPECT_EQ(CurrentName(left), "beta");
    EXPECT_EQ(Text(), "beta");
}

TEST_F(Search, LeavesTheTextEmptyWithoutAnyMatch) {
    Files({"beta", "gamma"});
    PlaceOn("gamma");
    EXPECT_EQ(Look("a"), 0);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(CurrentName(left), "gamma");
}

TEST_F(Search, DropsACharacterThatMatchesNothing) {
    Files({"alpha", "beta"});
    Look("bx");
    EXPECT_EQ(Text(), "b");
    Look("e");
    EXPECT_EQ(Text(), "be");
    EXPECT_EQ(CurrentName(left), "beta");
}

TEST_F(Search, BeginsAnewWhenTheCurrentNameNoLongerMatches) {
    Files({"alpha", "beta", "gamma"});
    Look("be");
    PlaceOn("gamma");
    Look("a");
    EXPECT_EQ(Text(), "a");
    EXPECT_EQ(CurrentName(left), "alpha");
}

TEST_F(Search, GoesRoundTheEndOnceForACharacterOnly) {
    Files({"b1", "b2", "c"});
    PlaceOn("c");
    Look("b");
    EXPECT_EQ(CurrentName(left), "b1");
    const struct {
        int step;
        const char* name;
    } rows[] = {{1, "b2"}, {1, "b2"}, {-1, "b1"}, {-1, "b1"}};
    for (const auto& row : rows) {
        EXPECT_EQ(QuickSearch(left, 0, row.step).code, 0);
        EXPECT_EQ(CurrentName(left), row.name);
        EXPECT_EQ(Text(), "b");
    }
}

TEST_F(Search, StaysOnANameThatStillMatches) {
    Files({"ab", "abc", "abcd"});
    PlaceOn("abcd");
    left.searchText = "ab";
    Look("c");
    EXPECT_EQ(CurrentName(left), "abcd");
}

TEST_F(Search, IgnoresCaseOfAnyAlphabet) {
    tree.File("Beta");
    tree.File("\xC3\x84rger");  // with a capital A umlaut
    tree.File("caf\xE9");       // in an old encoding
    Start();
    Look("b");
    EXPECT_EQ(CurrentName(left), "Beta");
    left.searchText.Clear();
    EXPECT_EQ(QuickSearch(left, 0xE4, 0).code, 0);
    EXPECT_EQ(CurrentName(left), "\xC3\x84rger");
    left.searchText.Clear();
    Look("caf");
    EXPECT_EQ(QuickSearch(left, 0xC9, 0).code, 0);
    EXPECT_EQ(left.searchText.Length(), 4);
    EXPECT_EQ(CurrentName(left), "caf\xE9");
}

TEST_F(Search, TellsUnderscoreFromLetters) {
    Files({"_x", "a_b", "axb"});
    Look("a_");
    EXPECT_EQ(CurrentName(left), "a_b");
    left.searchText.Clear();
    Look("_");
    EXPECT_EQ(CurrentName(left), "_x");
}

TEST_F(Search, FindsNothingInAnEmptyListOrWithoutFiles) {
    Files({"a"});
    left.kind = kKindInfo;
    Look("a");
    EXPECT_EQ(Text(), "");
    left.kind = kKindFiles;
    left.entries.Clear();
    left.top = left.cursor = 0;
    Look("a");
    EXPECT_EQ(Text(), "");
    SearchExtend(left);
    EXPECT_EQ(Text(), "");
}

TEST_F(Search, HasATextOfLimitedLength) {
    const std::string longest(255, 'n');
    tree.File(longest);
    Start();
    entry* made = NewEntry(std::wstring(600, L'n').c_str());
    left.entries.Append(*made);
    FreeEntry(made);
    left.top = 0;
    left.cursor = left.Count() - 1;
    Look(std::string(520, 'n'));
    EXPECT_EQ(left.searchText.Length(), kSearchTextLimit);
    SearchExtend(left);
    EXPECT_EQ(left.searchText.Length(), kSearchTextLimit);
}

TEST_F(Search, ScrollsToTheMatch) {
    ManyFiles(100);
    tree.File("zz");
    Start();
    Look("z");
    EXPECT_EQ(CurrentName(left), "zz");
    EXPECT_GT(left.top, 0);
    EXPECT_LT(left.cursor, left.visibleEntries);
}

TEST_F(Search, IsExtendedByWhatAllMatchesShare) {
    Files({"Makefile.am", "MAKEFILE.in", "makefile.txt", "other"});
    PlaceOn("makefile.txt");
    Look("m");
    SearchExtend(left);
    EXPECT_EQ(Text(), Bytes("makefile."));
    PlaceOn("MAKEFILE.in");
    SearchExtend(left);
    EXPECT_EQ(Text(), "MAKEFILE.") << "spelled as under the cursor";
    EXPECT_EQ(CurrentName(left), "MAKEFILE.in");
}

TEST_F(Search, IsExtendedToTheWholeOfTheOnlyName) {
    Files({"alpha", "beta"});
    Look("a");
    SearchExtend(left);
    EXPECT_EQ(Text(), "alpha");
    SearchExtend(left);
    EXPECT_EQ(Text(), "alpha");
}

TEST_F(Search, IsNotExtendedWithoutATextOrAMatchUnderTheCursor) {
    Files({"alpha", "beta"});
    SearchExtend(left);
    EXPECT_EQ(Text(), "");
    left.searchText = "a";
    PlaceOn("beta");
    SearchExtend(left);
    EXPECT_EQ(Text(), "a");
}

class StickySearch : public Search {
protected:
    StickySearch() { settings.stickyAlt = true; }

    void Keys(const std::string& text) { screen->PushText(text); }
    SearchEnd Begin(char letter) { return QuickSearch(left, letter, 0); }
};

TEST_F(StickySearch, EndsAtOnceWithoutAMatch) {
    Files({"alpha"});
    EXPECT_EQ(Begin('x').code, 0);
    EXPECT_EQ(Text(), "");
}

TEST_F(StickySearch, TakesPlainLettersUntilAnotherKey) {
    Files({"alpha", "beta", "bet2"});
    Keys("et2x");
    screen->PushKey(kKeyEnter);
    EXPECT_EQ(Begin('b').code, kKeyEnter);
    EXPECT_EQ(CurrentName(left), "bet2");
    EXPECT_EQ(Text(), "bet2");
}

TEST_F(StickySearch, TakesAltLettersAsLetters) {
    Files({"alpha", "beta"});
    screen->PushKey(0x10012, kModifierAlt, 'E');
    screen->PushKey(0x10014, kModifierAlt, 't');
    screen->PushKey(kKeyF5);
    EXPECT_EQ(Begin('b').code, kKeyF5);
    EXPECT_EQ(Text(), "bet");
}

TEST_F(StickySearch, HandsOnAKeyWithAllThatCameWithIt) {
    Files({"alpha"});
    screen->PushKey(0x1002B, kModifierAlt, '\\');
    const SearchEnd slash = Begin('a');
    EXPECT_EQ(slash.code, 0x1002B) << "the back-slash has a command of its own";
    EXPECT_EQ(slash.record.modifiers, kModifierAlt);
    screen->PushMouse(EventKind::kButtonPress, 2, 33, 7, kModifierCtrl);
    const SearchEnd mouse = QuickSearch(left, 0, 0);
    EXPECT_EQ(mouse.code, kKeyMouse);
    EXPECT_EQ(mouse.record.mouse.column, 33);
    EXPECT_EQ(mouse.record.mouse.row, 7);
    EXPECT_EQ(mouse.record.mouse.type, static_cast<int32_t>(MouseType::kRightPress));
}

TEST_F(StickySearch, EndsWithTheProgram) {
    Files({"alpha"});
    screen->PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0});
    EXPECT_EQ(Begin('a').code, kKeyQuit);
}

TEST_F(StickySearch, StepsWithAltUpAndDown) {
    Files({"b1", "b2", "b3", "c"});
    for (const int32_t key : {kKeyAltDown, kKeyAltDown, kKeyAltDown, kKeyAltUp, int32_t{27}})
        screen->PushKey(key, kModifierAlt);
    EXPECT_EQ(Begin('b').code, kKeyEsc);
    EXPECT_EQ(CurrentName(left), "b2");
    EXPECT_EQ(Text(), "b");
}

TEST_F(StickySearch, DropsTheLastCharacterAndEndsWithTheFirst) {
    Files({"abc", "abd"});
    Keys("bc");
    screen->PushKey(kKeyBackspace);
    Keys("d");
    screen->PushKey(kKeyAltBackspace, kModifierAlt);
    screen->PushKey(kKeyBackspace);
    screen->PushKey(kKeyBackspace);
    EXPECT_EQ(Begin('a').code, 0);
    EXPECT_EQ(screen->PendingEvents(), 0);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(CurrentName(left), "abd");
}

TEST_F(StickySearch, IsExtendedByTabWithShiftOrCtrl) {
    Files({"makefile.am", "makefile.in"});
    for (const auto& [key, modifiers] :
         {std::pair{kKeyShiftTab, kModifierShift}, std::pair{kKeyCtrlTab, kModifierCtrl},
          std::pair{kKeyTab, kModifierCtrl}}) {
        left.searchText.Clear();
        screen->PushKey(key, modifiers);
        Keys("i");
        screen->PushKey(kKeyTab);
        EXPECT_EQ(Begin('m').code, kKeyTab) << "Tab alone ends it";
        EXPECT_EQ(Text(), "makefile.i");
        PlaceOn("makefile.am");
    }
}

TEST_F(StickySearch, HasTheCursorBehindItsText) {
    Files({"abcdefghijklmnopqrstuvwxyz"});
    const auto cursorAfter = [this](const std::string& text) {
        left.searchText.Clear();
        Keys(text.substr(1));
        screen->PushKey(kKeyEsc);
        EXPECT_EQ(Begin(text[0]).code, kKeyEsc);
        int column = 0, row = 0;
        screen->GetCursor(column, row);
        EXPECT_EQ(row, 21);
        return column;
    };
    EXPECT_EQ(cursorAfter("a"), 1 + 8 + 1);
    EXPECT_EQ(cursorAfter("abc"), 1 + 8 + 3);
    EXPECT_EQ(cursorAfter("abcdefghijklmnop"), 1 + 40 / 2 - 2) << "not past the middle";
    EXPECT_EQ(left.searchText.Length(), 16);
}

TEST_F(StickySearch, TakesTheBarAlongAndOffAtItsEnd) {
    Files({"alpha", "beta"});
    screen->PushKey(kKeyEsc);
    EXPECT_EQ(Begin('b').code, kKeyEsc);
    EXPECT_EQ(AttributeAt(left, 0, left.cursor), Colour(ColourClass::kPanel));
    EXPECT_THAT(ClientRow(left, 20), testing::StartsWith("Search: b "));
}

}  // namespace
}  // namespace zt
