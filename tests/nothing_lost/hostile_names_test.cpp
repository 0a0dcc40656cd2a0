// A thousand hostile names go through every work on files with every byte of every name and every
// file the same; names that look alike stay apart.
#include "tests/nothing_lost/two_folders.h"

#include "tests/support/hostile_names.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using Kind = WorkPlace::Kind;

constexpr size_t kNames = 1000;

// Each file knows its own name.
std::string ContentOf(const std::string& name) {
    return "this is " + name;
}

class HostileFiles : public testing::TestWithParam<Kind> {
protected:
    void MakeFiles(const std::string& folder) {
        time_t time = UtcTime(2010, 1, 1);
        for (const std::string& name : HostileNames(kNames)) {
            place.tree.File(folder + "/" + name, ContentOf(name)).Time(folder + "/" + name, time++);
        }
    }

    // Tags all, presses the key, and Enter where a dialog comes up.
    void Carry(std::initializer_list<std::string_view> keys, const std::string& settings = "") {
        FileWork work(place, settings);
        work.Screen().Press({"Home", "Down", "Ctrl-Grey+"});
        work.Screen().Press(keys);
        EXPECT_TRUE(work.Screen().AtPrompt()) << work.Screen().Text();
    }

    // "from/x" in the one is "to/x" in the other, whole.
    static std::string Unlike(const TreeSnapshot& from, const TreeSnapshot& to) {
        std::string wrong;
        for (const auto& [path, state] : from) {
            const auto other = to.find(path);
            const bool folder = state.type == S_IFDIR;
            if (other == to.end()) {
                wrong += "missing: " + Shown(path) + "\n";
            } else if (folder ? other->second.type != S_IFDIR
                              : !other->second.IsWholeCopyOf(state)) {
                wrong += "not the same: " + Shown(path) + "\n";
            }
        }
        for (const auto& [path, state] : to) {
            if (!from.contains(path)) wrong += "too much: " + Shown(path) + "\n";
        }
        return wrong;
    }

    WorkPlace place{GetParam()};
};

TEST_P(HostileFiles, AreCopiedMovedAndDeleted) {
    MakeFiles("from");
    const TreeSnapshot files = TakeSnapshot(place.From());
    ASSERT_EQ(kNames, files.size());
    Carry({"F5", "Enter"});
    EXPECT_EQ("", Differences(files, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
    Carry({"F5", "Alt-a", "Enter"});  // each over itself
    EXPECT_EQ("", Differences(files, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
    Carry({"F6", "Alt-a", "Enter"});
    EXPECT_EQ("", Unlike({}, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
    MakeFiles("from");
    Carry({"F8"}, "Confirmations=7\n");
    EXPECT_EQ("", Unlike({}, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
}

TEST_P(HostileFiles, AreMovedIntoAnEmptyFolder) {
    MakeFiles("from");
    const TreeSnapshot files = TakeSnapshot(place.From());
    Carry({"F6", "Enter"});
    EXPECT_EQ("", Unlike({}, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
}

TEST_P(HostileFiles, AreCarriedInATree) {
    MakeFiles("from/tree");
    for (const std::string& name : HostileNames(100, 2)) {
        if (!place.tree.Exists("from/tree/" + name)) {
            place.tree.File("from/tree/" + name + "/inner", name);
        }
    }
    const TreeSnapshot files = TakeSnapshot(place.From());
    const std::string settings = "TagDirs=on\nConfirmations=7\n";
    Carry({"F5", "Enter"}, settings);
    EXPECT_EQ("", Differences(files, TakeSnapshot(place.From())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.To())));
    Carry({"F8"}, settings);
    EXPECT_EQ("", Unlike({}, TakeSnapshot(place.From())));
    // Back again, as a move.
    {
        FileWork work(place, settings);
        work.Screen().Press({"Tab", "Home", "Down", "F6", "Enter"});
        EXPECT_TRUE(work.Screen().AtPrompt()) << work.Screen().Text();
    }
    EXPECT_EQ("", Unlike({}, TakeSnapshot(place.To())));
    EXPECT_EQ("", Unlike(files, TakeSnapshot(place.From())));
}

std::string KindName(const testing::TestParamInfo<Kind>& tested) {
    return tested.param == Kind::kOneFileSystem ? "OneFileSystem" : "TwoFileSystems";
}

INSTANTIATE_TEST_SUITE_P(Over, HostileFiles,
                         testing::Values(Kind::kOneFileSystem, Kind::kTwoFileSystems), KindName);

// One file at a time, by its own name in the dialog.
class OneHostileFile : public TwoFolders {
protected:
    // What the rules of destinations give a meaning to, or take off the ends.
    static bool IsPlain(const std::string& name) {
        for (const char* blank : {"\xE2\x80\xA8", "\xC2\xA0", "\xE2\x80\x8B"}) {
            if (name.starts_with(blank)) return false;
        }
        return name.find_first_of("*?\\") == std::string::npos && name.front() != ' ' &&
               name.front() != '~' && name.find_first_of("\t\n\r\v\f") == std::string::npos &&
               name.find_first_not_of('.') != std::string::npos;
    }
};

TEST_F(OneHostileFile, KeepsItsNameWhereNothingIsTyped) {
    Open();
    size_t number = 0;
    for (const std::string& name : HostileNames(150, 3)) {
        place.Clear();
        tree.File("from/" + name, ContentOf(name));
        const TreeSnapshot files = TakeSnapshot(place.From());
        work->GoTo(1);
        Screen().Press({number % 2 == 0 ? "F5" : "F6", "Enter"});
        ASSERT_TRUE(Screen().AtPrompt()) << Shown(name) << "\n" << Screen().Text();
        EXPECT_EQ("", Differences(files, TakeSnapshot(place.To()))) << Shown(name);
        if (number % 2 == 0) {
            EXPECT_EQ("", Differences(files, TakeSnapshot(place.From())));
        }
        number++;
    }
}

TEST_F(OneHostileFile, TakesTheNameThatIsTyped) {
    Open();
    int renamed = 0;
    for (const std::string& name : HostileNames(200, 4)) {
        place.Clear();
        tree.File("from/" + name, ContentOf(name));
        work->GoTo(1);
        Screen().Press({"Shift-F6", "End"});
        Screen().Type("x");
        Screen().Press("Enter");
        for (int i = 0; i < 5 && !Screen().AtPrompt(); i++)
            Screen().Press("Esc");
        ASSERT_TRUE(Screen().AtPrompt()) << Shown(name) << "\n" << Screen().Text();
        const TreeSnapshot after = TakeSnapshot(tree.Path());
        size_t files = 0;
        for (const auto& [path, state] : after) {
            if (state.type == S_IFREG) files++;
        }
        ASSERT_EQ(1u, files) << Shown(name) << "\n" << Differences({}, after);
        if (!IsPlain(name)) continue;
        const std::string expected = name.size() < 255 ? name + "x" : name;
        EXPECT_TRUE(after.contains("from/" + expected)) << Differences({}, after);
        EXPECT_EQ(ContentOf(name), tree.Content("from/" + expected));
        renamed += expected != name;
    }
    EXPECT_GT(renamed, 60);
}

struct Pair {
    const char* one;
    const char* other;
};

constexpr Pair kAlike[] = {
    {"x\xC3\xBF", "x\xFF"},     // one character, in UTF-8 and in a legacy encoding
    {"\xC3\xA4", "a\xCC\x88"},  // composed and decomposed
    {"a\xE2\x80\x8B", "a"},     // with a blank of no width
    {"\xE4", "\xC3\xA4"},
    {"name ", "name"},
    {"\xEF\xBF\xBD", "\xC0"},  // what stands for no character, and no character
    {"Case", "case"},
    {"back\\slash", "back/slash"},  // the second one in a folder
    {"\xED\xA0\x80", "\xEF\xBF\xBF"},
};

class NamesThatLookAlike : public TwoFolders, public testing::WithParamInterface<size_t> {};

// Of two such files the work on one leaves the other as it is, whichever it is.
TEST_P(NamesThatLookAlike, StayApart) {
    const Pair& pair = kAlike[GetParam()];
    struct Step {
        const char* key;
        const char* settings;
    };
    constexpr Step kSteps[] = {{"F5", ""}, {"F6", ""}, {"F8", "Confirmations=7\n"}};
    for (const Step& step : kSteps) {
        for (size_t number : {1u, 2u}) {
            SCOPED_TRACE(std::string(step.key) + " " + std::to_string(number));
            place.Clear();
            for (const std::string name : {pair.one, pair.other})
                tree.File("from/" + name, "source " + name).File("to/" + name, "target " + name);
            const TreeSnapshot before = TakeSnapshot(tree.Path());
            Open(step.settings);
            if (PanelView(Screen(), 0).Names().size() != 3) FAIL() << Screen().Text();
            work->GoTo(number);
            Screen().Press("Ins");
            Screen().Press(step.key);
            if (std::string_view(step.key) != "F8") Screen().Press({"Alt-a", "Enter"});
            ASSERT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
            const TreeSnapshot after = TakeSnapshot(tree.Path());
            // The changes, by the file's own name.
            std::vector<std::string> names;
            for (const auto& [path, state] : before) {
                if (state.type == S_IFDIR) continue;
                const auto now = after.find(path);
                if (now != after.end() && now->second == state) continue;
                names.push_back(path.substr(path.find('/') + 1));
                if (now == after.end()) continue;
                EXPECT_EQ("source " + names.back(), tree.Content(path)) << Shown(path);
            }
            EXPECT_FALSE(names.empty());
            for (const std::string& name : names)
                EXPECT_EQ(names.front(), name);
            for (const auto& [path, state] : after)
                EXPECT_TRUE(before.contains(path)) << "new: " << Shown(path);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pairs, NamesThatLookAlike, testing::Range(size_t{0}, std::size(kAlike)));

}  // namespace
}  // namespace zt::headless
