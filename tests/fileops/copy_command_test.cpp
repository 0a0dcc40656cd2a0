// The copy and move command as the program's first thread runs it: panels, seams, stopping it.
#include <sys/stat.h>

#include <atomic>
#include <fstream>
#include <functional>
#include <sstream>

#include "fileops/copy_command.h"
#include "foundation/file_name.h"
#include "panels/cursor_movement.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using Calls = std::vector<std::string>;

// Calls back whenever something is drawn, as long as there is something to call.
class WatchedConsole : public FakeConsole {
public:
    std::function<void()> whenDrawn;

    void BeginUpdate() override {
        if (whenDrawn) whenDrawn();
        FakeConsole::BeginUpdate();
    }
    bool Shows(const std::string& text) {
        for (int row = 0; row < 25; ++row) {
            if (RowText(row).find(text) != std::string::npos) return true;
        }
        return false;
    }
};

class FakeTrees : public ITreeKeeper {
public:
    explicit FakeTrees(Calls& into) : calls(into) {}
    void DirectoryAdded(CPanel&, const Westring& path) override { Note("added", path); }
    bool DirectoryRemoved(CPanel&, const Westring& path) override {
        Note("removed", path);
        return true;
    }
    void DirectoryRenamed(CPanel&, const Westring& from, const Westring& to) override {
        Note("renamed", from + L" " + to);
    }
    void Save(CPanel&) override { calls.push_back("saved"); }
    bool Pick(CPanel& panel, Westring& path, int width) override {
        calls.push_back("picked in side " + std::to_string(panel.side) + " width " +
                        std::to_string(width));
        if (answer.IsEmpty()) return false;
        path = answer;
        return true;
    }
    void Note(const char* what, const Westring& path) {
        calls.push_back(std::string(what) + " " + NameToBytes(path).c_str());
    }

    Calls& calls;
    Westring answer;
};

class FakeHistory : public IDirectoryChooser {
public:
    bool Pick(CPanel&, Westring& path) override {
        if (answer.IsEmpty()) return false;
        path = answer;
        return true;
    }
    Westring answer;
};

class CopyCommand : public PanelFixture {
protected:
    CopyCommand() : trees(calls) {
        screen.reset();
        auto own = std::make_unique<WatchedConsole>();
        watched = own.get();
        screen = std::move(own);
        tree.Folder("src");
        tree.Folder("dst");
    }

    void Write(const std::string& name, const std::string& content) {
        std::ofstream(tree.PathOf(name)) << content;
    }
    std::string Read(const std::string& name) {
        std::ifstream file(tree.PathOf(name));
        if (!file) return "not there";
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }
    bool Exists(const std::string& name) {
        struct stat data;
        return lstat(tree.PathOf(name).c_str(), &data) == 0;
    }
    std::string At(const std::string& name) { return tree.PathOf(name); }
    void Copy(int flags = 0) { CopyMoveCommand(left, right, flags); }
    void CopyTo(const std::string& destination, int flags = 0) {
        const Westring wide = NameFromBytes(destination.c_str());
        CopyMoveCommand(left, right, flags, &wide);
    }

    Calls calls;
    FakeTrees trees;
    FakeHistory history;
    WatchedConsole* watched = nullptr;
};

TEST_F(CopyCommand, GoesWhereItIsToldWithoutADialog) {
    Write("src/a", "text");
    Start("src", "dst");
    PlaceCursor(left, left.entries.Find(L"a"));
    CopyTo(At("dst") + "/b");
    EXPECT_EQ("text", Read("dst/b"));
    Tag(left, "a");
    CopyTo(At("dst") + "/");
    EXPECT_EQ("text", Read("dst/a"));
    EXPECT_EQ(0, left.taggedCount);
    EXPECT_EQ(0u, left.taggedBytes);
    EXPECT_EQ(1, Find(left, "a")->wasTagged);
    EXPECT_EQ(Names(right), (std::vector<std::string>{"..", "a", "b"}));
}

TEST_F(CopyCommand, EndsWithNothingToCopy) {
    Start("src", "dst");
    Copy();  // on ".."
    left.entries.Clear();
    Copy();
    EXPECT_FALSE(watched->Shows("Copy"));
}

// Links take no block of data, so that the key is found between two entries.
TEST_F(CopyCommand, EscAfterAnEntryEndsTheGroup) {
    for (const char* name : {"src/a", "src/b", "src/c"})
        tree.Link(name, "nowhere");
    Start("src", "dst");
    for (const char* name : {"a", "b", "c"})
        Tag(left, name);
    screen->PushKey(kKeyEnter);
    screen->PushKey(kKeyEsc);
    Copy();
    EXPECT_TRUE(Exists("dst/a"));
    EXPECT_FALSE(Exists("dst/b"));
    EXPECT_EQ(2, left.taggedCount);
    EXPECT_EQ(0, Find(left, "a")->tagged);
    EXPECT_EQ(1, Find(left, "b")->tagged);
    EXPECT_EQ(kAbortIdle, abortState.load());
}

TEST_F(CopyCommand, AnyOtherKeyDoesNot) {
    tree.Link("src/a", "nowhere");
    tree.Link("src/b", "nowhere");
    Start("src", "dst");
    Tag(left, "a");
    Tag(left, "b");
    screen->PushKey(kKeyEnter);
    screen->PushText("xy");
    Copy();
    EXPECT_TRUE(Exists("dst/b"));
    EXPECT_EQ(0, left.taggedCount);
}

// The Break key arrives on another thread: what is running is asked to stop.
TEST_F(CopyCommand, BreakStopsInTheMiddleAndKeepsTheOldTarget) {
    for (const int flags : {0, kCommandMoves}) {
        Write("src/big", std::string(200000, 'n'));
        Write("src/later", "x");
        Write("dst/big", "old");
        Start("src", "dst");
        Tag(left, "big");
        Tag(left, "later");
        screen->PushKey(AltKey('a'), kModifierAlt, 'a');
        screen->PushKey(kKeyEnter);
        std::atomic<bool> asked = false;
        watched->whenDrawn = [&] {
            if (asked.load() || abortState.load() != kAbortPossible) return;
            asked = true;
            abortState = kAbortRequested;
        };
        Copy(flags);
        watched->whenDrawn = nullptr;
        EXPECT_TRUE(asked);
        EXPECT_EQ("old", Read("dst/big"));
        EXPECT_EQ(std::string(200000, 'n'), Read("src/big"));
        EXPECT_FALSE(Exists("dst/later"));
        EXPECT_FALSE(Exists("dst/big.zt@@@.tmp"));
        EXPECT_EQ(2, left.taggedCount);
        EXPECT_EQ(kAbortIdle, abortState.load());
    }
}

TEST_F(CopyCommand, TreesFollowMovedDirectories) {
    tree.Folder("src/d");
    tree.Folder("src/e");
    tree.Link("src/l", "d");
    Write("src/f", "x");
    Start("src", "dst");
    panels->seams.trees = &trees;
    for (const char* name : {"d", "e", "f", "l"})
        Tag(left, name);
    CopyTo(At("dst") + "/", kCommandMoves);
    EXPECT_EQ(calls, (Calls{"renamed " + At("src/d") + " " + At("dst/d"),
                            "renamed " + At("src/e") + " " + At("dst/e"), "saved"}));
    calls.clear();
    CPanel& source = right;
    PlaceCursor(source, source.entries.Find(L"d"));
    const Westring name = L"renamed";
    CopyMoveCommand(source, left, kCommandMoves | kCommandSuggestsName, &name);
    EXPECT_EQ(calls, (Calls{"renamed " + At("dst/d") + " " + At("dst/renamed"), "saved"}));
    EXPECT_EQ("renamed", CurrentName(right));
    panels->seams.trees = nullptr;
}

TEST_F(CopyCommand, TreesDoNotFollowWhatWasNotMoved) {
    tree.Folder("src/d");
    Write("src/d/x", "x");
    Start("src", "dst");
    panels->seams.trees = &trees;
    PlaceCursor(left, left.entries.Find(L"d"));
    CopyTo(At("dst") + "/d");
    EXPECT_TRUE(Exists("dst/d/x"));
    screen->PushKey(kKeyEsc);
    CopyTo(At("src") + "/d/", kCommandMoves);
    EXPECT_TRUE(Exists("src/d/x"));
    EXPECT_TRUE(calls.empty());
    panels->seams.trees = nullptr;
}

TEST_F(CopyCommand, TheTreeButtonFillsTheField) {
    Write("src/a", "text");
    Start("src", "dst");
    PlaceCursor(left, left.entries.Find(L"a"));
    panels->seams.trees = &trees;
    // Esc in the picker leaves the text as it was.
    screen->PushKey(kKeyF10);
    screen->PushKey(kKeyEnter);
    Copy();
    EXPECT_EQ("text", Read("dst/a"));
    EXPECT_EQ(calls, (Calls{"picked in side 0 width 38"}));
    tree.Folder("picked");
    trees.answer = tree.Wide("picked");
    screen->PushKey(kKeyF10);
    screen->PushText("/new");
    screen->PushKey(kKeyEnter);
    Copy();
    EXPECT_EQ("text", Read("picked/new"));
    panels->seams.trees = nullptr;
}

TEST_F(CopyCommand, TheHistoryButtonFillsTheField) {
    Write("src/a", "text");
    Start("src", "dst");
    PlaceCursor(left, left.entries.Find(L"a"));
    panels->seams.history = &history;
    tree.Folder("visited");
    history.answer = tree.Wide("visited");
    screen->PushKey(0x1002B);
    screen->PushKey(kKeyEnter);
    Copy();
    EXPECT_EQ("text", Read("visited/a"));
    panels->seams.history = nullptr;
}

TEST_F(CopyCommand, ButtonsWithNothingBehindThemDoNothing) {
    Write("src/a", "text");
    Start("src", "dst");
    PlaceCursor(left, left.entries.Find(L"a"));
    screen->PushKey(kKeyF10);
    screen->PushKey(0x1002B);
    screen->PushKey(kKeyEnter);
    Copy();
    EXPECT_EQ("text", Read("dst/a"));
}

// A list of what was found has no directory of its own: each entry names its whole path.
TEST_F(CopyCommand, EntriesMayComeFromSeveralDirectories) {
    tree.Folder("one");
    tree.Folder("two");
    Write("one/a", "1");
    Write("two/b", "2");
    for (const int flags : {0, kCommandMoves}) {
        Start("src", "dst");
        left.entries.Clear();
        left.path.Clear();
        for (const char* name : {"one/a", "two/b"}) {
            entry* e = NewEntry(tree.Wide(name).c_str());
            e->size = 1;
            e->tagged = 1;
            left.entries.Append(*e);
            FreeEntry(e);
        }
        left.taggedCount = 2;
        left.taggedBytes = 2;
        CopyTo(At("dst") + "/", flags);
        EXPECT_EQ("1", Read("dst/a"));
        EXPECT_EQ("2", Read("dst/b"));
        EXPECT_EQ(0, left.taggedCount);
        EXPECT_EQ(2, left.Count()) << "the list is not a directory to read";
        EXPECT_EQ(flags == 0, Exists("one/a"));
        EXPECT_EQ(flags == 0, Exists("two/b"));
        unlink(At("dst/a").c_str());
        unlink(At("dst/b").c_str());
    }
}

TEST_F(CopyCommand, MarksWhatWasDoneThisTimeOnly) {
    for (const char* name : {"src/a", "src/b"})
        Write(name, "x");
    Start("src", "dst");
    Find(left, "b")->wasTagged = 1;
    Tag(left, "a");
    CopyTo(At("dst") + "/");
    EXPECT_EQ(1, Find(left, "a")->wasTagged);
    EXPECT_EQ(0, Find(left, "b")->wasTagged);
    EXPECT_EQ(0, Find(left, "a")->tagged);
}

TEST_F(CopyCommand, EscWhileSizesAreCountedEndsIt) {
    tree.Folder("src/d");
    Write("src/d/x", "x");
    Start("src", "dst");
    Tag(left, "d");
    screen->PushKey(kKeyEnter);
    screen->PushKey(kKeyEsc);
    Copy();
    EXPECT_FALSE(Exists("dst/d"));
    EXPECT_EQ(1, left.taggedCount);
}

}  // namespace
}  // namespace zt
