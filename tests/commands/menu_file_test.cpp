// The file of the user menu, read from files in memory.
#include "commands/menu_file.h"

#include <map>
#include <string>

#include "console/key_codes.h"
#include "foundation/file_name.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class MenuFile : public PanelFixture, protected IMenuFiles {
protected:
    bool ReadLines(const Westring& path, std::vector<Westring>& lines) override {
        reads++;
        const auto file = files.find(NameToBytes(path).c_str());
        if (file == files.end()) return false;
        for (const char* line : file->second)
            lines.push_back(NameFromBytes(line));
        return true;
    }
    void TellMissing(const Westring& name) override {
        missing.push_back(NameToBytes(name).c_str());
    }
    // The texts of the entries of /m/main, with those of their menus in braces.
    std::string Read(const entry* current = nullptr) {
        menu.Clear();
        EXPECT_TRUE(ReadMenuFile(*this, L"/m/main", current, menu));
        return Texts(menu);
    }
    static std::string Texts(MenuStore& menu) {
        std::string texts;
        for (int i = 0; i < menu.Count(); i++) {
            const MenuEntry& e = *menu.Peek(i);
            texts += std::string(i > 0 ? " " : "") + NameToBytes(e.text).c_str();
            for (int k = 0; k < e.commands.Count(); k++)
                texts += std::string("=") + NameToBytes(*e.commands.Peek(k)).c_str();
            if (e.subMenu) texts += "{" + Texts(*e.subMenu) + "}";
        }
        return texts;
    }

    std::map<std::string, std::vector<const char*>> files;
    std::vector<std::string> missing;
    int reads = 0;
    MenuStore menu;
};

TEST_F(MenuFile, KnowsTheCodesOfItsKeys) {
    const struct {
        const wchar_t* text;
        int32_t code;
    } rows[] = {
        {L"A", 'A'},
        {L"7", '7'},
        {L"@", '@'},
        {L"F1", kKeyF1},
        {L"F2", kKeyF2},
        {L"F10", kKeyF10},
        {L"F11", kKeyF11},
        {L"F12", kKeyF12},
        {L"CF1", kKeyCtrlF1},
        {L"CF10", kKeyCtrlF1 + 9},
        {L"CF11", kKeyCtrlF11},
        {L"CF12", kKeyCtrlF11 + 1},
        {L"SF1", kKeyShiftF1},
        {L"SF10", kKeyShiftF1 + 9},
        {L"SF11", kKeyShiftF11},
        {L"SF12", kKeyShiftF11 + 1},
        {L"AF1", kKeyAltF1},
        {L"AF10", kKeyAltF1 + 9},
        {L"AF11", kKeyAltF11},
        {L"AF12", kKeyAltF11 + 1},
        // A prefix that is none leaves the number.
        {L"XF5", 5},
        {L"XF12", 12},
        {L"FF12", 12},
        // No key at all.
        {L"", 0},
        {L"AB", 0},
        {L"F", 'F'},
        {L"FA", 0},
        {L"F0", 0},
        {L"FF1", 0},
        {L"C12", 0},
        {L"CFX", 0},
        {L"CSF1", 0},
        {L"CF123", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MenuKeyCode(row.text), row.code) << NameToBytes(row.text).c_str();
}

// With blanks behind it a key is longer, and none.
TEST_F(MenuFile, TakesHeadsApart) {
    files["/m/main"] = {"a:  Text: more  ", "cf1:F",     "B : Lost", " lost",
                        "A@ *: Lost",       "@@*: Lost", " lost",    "\xC3\xA4: Umlaut"};
    EXPECT_EQ(Read(), "Text: more F Umlaut");
    ASSERT_EQ(menu.Count(), 3);
    EXPECT_EQ(menu.keyWidth, 3);
    EXPECT_STREQ(menu.Peek(1)->keyText.c_str(), L"CF1");
    EXPECT_EQ(menu.Peek(2)->key, 0xC4);
}

TEST_F(MenuFile, ConditionsNeedAnEntryThatTheyHoldFor) {
    tree.File("x.c");
    Start();
    files["/m/main"] = {"A @ *.c : One",  " one",   "B@*.h: Two", " two",
                        "@ @ *.c: Three", " three", "@: Four",    " four"};
    EXPECT_EQ(Read(), "Four=four");
    EXPECT_EQ(Read(Find(left, "x.c")), "One=one Three=three Four=four");
    ASSERT_EQ(menu.Count(), 3);
    EXPECT_EQ(menu.Peek(1)->key, '@');
    EXPECT_EQ(Read(Find(left, "..")), "Four=four");
}

TEST_F(MenuFile, IncludesAreBesideTheFileThatNamesThem) {
    files["/m/main"] = {"A: First", "!include   sub/one", " lost", "B: Last", " last"};
    files["/m/sub/one"] = {"C: One", " one", "!include two", "!include ../three", "}", "X: Lost"};
    files["/m/sub/two"] = {"D: Two"};
    files["/m/three"] = {"E: Three", "!include /abs"};
    files["/abs"] = {"F: Abs"};
    EXPECT_EQ(Read(), "First One=one Two Three Abs Last=last");
    EXPECT_TRUE(missing.empty());
}

TEST_F(MenuFile, TellsOfIncludesThatAreMissingAndGoesOn) {
    files["/m/main"] = {"!include  none ", "A: First",    " !include no command?",
                        "!INCLUDE x",      "!includes x", "B: Last"};
    EXPECT_EQ(Read(), "First=!include no command? Last");
    ASSERT_EQ(missing.size(), 1u);
    EXPECT_EQ(missing[0].substr(0, 4), "none");
}

TEST_F(MenuFile, FilesThatIncludeEachOtherEnd) {
    files["/m/main"] = {"A: Main", "!include main", "!include ../m/other", "!include other"};
    files["/m/other"] = {"B: Other", "!include main", "!include main"};
    EXPECT_EQ(Read(), "Main Other Other");
    EXPECT_EQ(missing, (std::vector<std::string>{"main", "main", "main", "main", "main"}));
    EXPECT_EQ(reads, 3);
}

// Each of these names the next one twice, which would be more files than anybody waits for.
TEST_F(MenuFile, ReadsNoMoreThanAHundredFiles) {
    std::vector<std::string> names;
    for (int i = 0; i < 24; i++)
        names.push_back("!include /m/" + std::to_string(i));
    files["/m/main"] = {names[0].c_str()};
    for (size_t i = 0; i + 1 < names.size(); i++)
        files["/m/" + std::to_string(i)] = {names[i + 1].c_str(), names[i + 1].c_str()};
    files["/m/23"] = {"A: End"};
    Read();
    EXPECT_EQ(reads, 100);
}

TEST_F(MenuFile, MenusGoToTheEntryBefore) {
    files["/m/main"] = {"{",      "X: No entry",
                        "}",      "A: One",
                        " \t{",   "B: In",
                        "\t}",    "C: Two",
                        " c",     "{",
                        "D: No",  "{",
                        "E: No",  "}",
                        "}",      "F: Three",
                        "{",      "!include sub",
                        " lost",  "G: Behind",
                        "}",      "// comment",
                        "{",      "H: Again",
                        "}",      "!include sub",
                        "{",      "I: Lost",
                        "}",      "}",
                        "J: Lost"};
    files["/m/sub"] = {"S: Sub"};
    EXPECT_EQ(Read(), "One{In} Two=c Three{Again} Sub");
}

TEST_F(MenuFile, AMenuThatNobodyClosesEndsWithTheFile) {
    files["/m/main"] = {"A: One", "{", "B: In", " b"};
    EXPECT_EQ(Read(), "One{In=b}");
}

}  // namespace
}  // namespace zt
