// The totals of directories in a panel, and the window that shows them coming.
#include "panels/directory_sizes.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "panels/cursor_movement.h"
#include "panels/directory_sizes_window.h"
#include "panels/entry_sorting.h"
#include "panels/tagging.h"
#include "tests/panels/panel_fixture.h"
#include "ui/abbreviate_path.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Sizes : public PanelFixture {
protected:
    Sizes() {
        tree.Folder("big");
        tree.File("big/f", 5000);
        tree.Folder("small");
        tree.File("small/f", 70);
        tree.Folder("small/sub");
        tree.File("small/sub/g", 7);
        tree.Link("link", "big");
        tree.File("file", 300);
    }
    bool Calculate(bool quiet = false) { return CalculateDirSizes(left, quiet); }
    void PlaceOn(const char* name) { ASSERT_TRUE(FindName(left, NameFromBytes(name).c_str())); }
    uint64_t SizeOf(const char* name) { return Find(left, name)->size; }
    bool IsKnown(const char* name) { return Find(left, name)->level == 1; }
};

TEST_F(Sizes, AreThoseOfTheCurrentDirectory) {
    Start();
    PlaceOn("small");
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(SizeOf("small"), 77u);
    EXPECT_TRUE(IsKnown("small"));
    EXPECT_FALSE(IsKnown("big"));
    EXPECT_EQ(left.taggedBytes, 0u);
    Pass();
    EXPECT_THAT(ClientRow(left, left.cursor), HasSubstr("│      77│"));
}

TEST_F(Sizes, AreNotTakenOfLinksFilesAndTheParent) {
    Start();
    for (const char* name : {"link", "..", "file"}) {
        PlaceOn(name);
        const uint64_t before = SizeOf(name);
        EXPECT_TRUE(Calculate()) << name;
        EXPECT_EQ(SizeOf(name), before) << name;
        EXPECT_FALSE(IsKnown(name)) << name;
    }
}

TEST_F(Sizes, AreThoseOfTheTaggedDirectories) {
    Start();
    for (const char* name : {"big", "link", "file"})
        Tag(left, name);
    PlaceOn("small");
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(SizeOf("big"), 5000u);
    EXPECT_TRUE(IsKnown("big"));
    EXPECT_FALSE(IsKnown("link"));
    EXPECT_FALSE(IsKnown("small")) << "the cursor does not count beside tags";
    EXPECT_EQ(left.taggedBytes, 5300u);
    EXPECT_EQ(left.taggedCount, 3);
    tree.File("big/more", 1);
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(left.taggedBytes, 5301u) << "by the difference";
}

TEST_F(Sizes, LeaveTaggedFilesAlone) {
    Start();
    Tag(left, "file");
    PlaceOn("big");
    EXPECT_TRUE(Calculate());
    EXPECT_FALSE(IsKnown("big"));
    EXPECT_EQ(left.taggedBytes, 300u);
}

TEST_F(Sizes, AreNotTakenWhereNoFilesShow) {
    Start();
    PlaceOn("big");
    left.kind = kKindInfo;
    EXPECT_TRUE(Calculate());
    left.kind = kKindFiles;
    left.style = kStyleTree;
    EXPECT_TRUE(Calculate());
    left.style = kStyleFull;
    left.showing = false;
    EXPECT_TRUE(Calculate());
    EXPECT_FALSE(IsKnown("big"));
}

TEST_F(Sizes, DoNotWaitWithoutThePause) {
    Start();
    PlaceOn("big");
    EXPECT_TRUE(Calculate(false));  // a read that waits would fail the test
    settings.sizeCountPause = true;
    EXPECT_TRUE(Calculate(true));
    EXPECT_TRUE(IsKnown("big"));
}

TEST_F(Sizes, AreLeftByEsc) {
    Start();
    Tag(left, "big");
    Tag(left, "file");
    screen->PushKey('x');
    screen->PushKey(kKeyEsc);
    EXPECT_FALSE(Calculate());
    EXPECT_FALSE(IsKnown("big"));
    EXPECT_EQ(left.taggedBytes, 300u);
    EXPECT_TRUE(Calculate()) << "the next one is not touched";
    EXPECT_EQ(left.taggedBytes, 5300u);
}

TEST_F(Sizes, AreLeftAtTheEndOfTheProgram) {
    Start();
    PlaceOn("big");
    screen->PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0});
    settings.sizeCountPause = true;
    EXPECT_FALSE(Calculate());
    EXPECT_FALSE(IsKnown("big"));
}

TEST_F(Sizes, BringTheListIntoTheOrderOfSizes) {
    Start();
    Tag(left, "big");
    Tag(left, "small");
    SetSort(left, kSortSize);
    PlaceOn("small");
    EXPECT_TRUE(Calculate());
    const std::vector<std::string> bySize = Names(left);
    EXPECT_EQ(CurrentName(left), "small");
    const auto place = [](const std::vector<std::string>& names, const char* name) {
        return std::find(names.begin(), names.end(), name) - names.begin();
    };
    const bool bigFirst = place(bySize, "big") < place(bySize, "small");
    SetSort(left, ReversedSort(kSortSize));
    EXPECT_NE(place(Names(left), "big") < place(Names(left), "small"), bigFirst);
    tree.File("small/huge", 1 << 20);
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(place(Names(left), "big") < place(Names(left), "small"), bigFirst)
        << "the other one is the bigger one now";
}

TEST_F(Sizes, KeepTheOrderOfNames) {
    Start();
    PlaceOn("big");
    const std::vector<std::string> before = Names(left);
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(Names(left), before);
}

// Totals that are given, one a call; -1 as if the user had pressed Esc.
class GivenTotals : public IPanelArchives {
public:
    std::vector<int64_t> totals;
    std::vector<std::string> asked;
    std::function<void()> meanwhile;
    void CloseLeft(CPanel&) override {}
    std::unique_ptr<IEntryScanner> OpenListing(CPanel&) override { return nullptr; }
    void CloseBeside(CPanel&, const Westring&) override {}
    bool Open(CPanel&, const Westring&) override { return false; }
    bool HasDirectory(CPanel&, const Westring&) override { return true; }
    Westring RealDirectory(const CPanel& panel) override { return panel.path; }
    Westring LinkTarget(const CPanel&, const entry&) override { return ""; }
    int64_t DirectoryTotal(CPanel&, const Westring& path, WalkProgress&,
                           const StopWanted& stopWanted) override {
        EXPECT_FALSE(stopWanted());
        if (meanwhile) meanwhile();
        asked.push_back(NameToBytes(path).c_str());
        const int64_t next = totals.front();
        totals.erase(totals.begin());
        return next;
    }
};

TEST_F(Sizes, ComeFromTheOpenArchive) {
    Start();
    GivenTotals archives;
    archives.totals = {4242};
    panels->seams.archives = &archives;
    left.archive = reinterpret_cast<ArchiveFile*>(&archives);
    PlaceOn("big");
    EXPECT_TRUE(Calculate());
    EXPECT_THAT(archives.asked, ElementsAre(tree.PathOf("big")));
    EXPECT_EQ(SizeOf("big"), 4242u);
}

TEST_F(Sizes, WaitForTheButtonWithThePause) {
    Start();
    GivenTotals archives;
    archives.totals = {4242};
    // What is typed before the walk is over is listened to and dropped.
    archives.meanwhile = [this] {
        screen->PushKey('x');
        screen->PushKey(kKeyEnter);
    };
    panels->seams.archives = &archives;
    left.archive = reinterpret_cast<ArchiveFile*>(&archives);
    PlaceOn("big");
    settings.sizeCountPause = true;
    EXPECT_TRUE(Calculate());
    EXPECT_TRUE(IsKnown("big"));
    EXPECT_EQ(screen->PendingEvents(), 0);
}

TEST_F(Sizes, ThatWereDoneBeforeEscStay) {
    Start();
    GivenTotals archives;
    archives.totals = {1000, -1};
    panels->seams.archives = &archives;
    left.archive = reinterpret_cast<ArchiveFile*>(&archives);
    Tag(left, "big");
    Tag(left, "small");
    Tag(left, "file");
    EXPECT_FALSE(Calculate());
    EXPECT_EQ(archives.asked.size(), 2u);
    EXPECT_TRUE(IsKnown("big"));
    EXPECT_EQ(SizeOf("big"), 1000u);
    EXPECT_FALSE(IsKnown("small"));
    EXPECT_EQ(left.taggedBytes, 1300u);
    TagEntry(left, left.entries.Find(L"big"), TagMode::kClear);
    EXPECT_EQ(left.taggedBytes, 300u);
    TagEntry(left, left.entries.Find(L"file"), TagMode::kClear);
    TagEntry(left, left.entries.Find(L"small"), TagMode::kClear);
    EXPECT_EQ(left.taggedBytes, 0u);
    EXPECT_EQ(left.taggedCount, 0);
}

class ChangedTree : public ITreeTotals, public ITreeKeeper {
public:
    bool changed = false;
    int saves = 0;
    std::vector<uint64_t> totals;
    std::function<void()> meanwhile;  // after each total
    TREENODE* NodeOf(CPanel&, const Westring&) override { return Node(); }
    TREENODE* ChildOf(TREENODE&, const wchar_t*) override { return Node(); }
    void SetTotal(TREENODE&, uint64_t bytes) override {
        totals.push_back(bytes);
        if (meanwhile) meanwhile();
    }
    bool HasChanged(CPanel&) override { return changed; }
    void DirectoryAdded(CPanel&, const Westring&) override {}
    bool DirectoryRemoved(CPanel&, const Westring&) override { return true; }
    void DirectoryRenamed(CPanel&, const Westring&, const Westring&) override {}
    void Save(CPanel&) override { ++saves; }
    bool Pick(CPanel&, Westring&, int) override { return false; }

private:
    TREENODE* Node() { return reinterpret_cast<TREENODE*>(this); }
};

TEST_F(Sizes, GoIntoTheTreeWhichIsSavedWhenItChanged) {
    Start();
    ChangedTree changed;
    panels->seams.totals = &changed;
    panels->seams.trees = &changed;
    PlaceOn("small");
    EXPECT_TRUE(Calculate());
    EXPECT_TRUE(changed.totals.empty()) << "this panel has no tree";
    left.tree = reinterpret_cast<CTree*>(&changed);
    EXPECT_TRUE(Calculate());
    EXPECT_THAT(changed.totals, ElementsAre(7u, 77u));
    EXPECT_EQ(changed.saves, 0);
    changed.changed = true;
    right.style = kStyleTree;
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(changed.saves, 1);
    EXPECT_TRUE(right.needRead);
    right.style = kStyleFull;
    right.needRead = false;
}

TEST_F(Sizes, AreLeftByEscInTheMiddleOfADirectory) {
    Start();
    ChangedTree changed;
    panels->seams.totals = &changed;
    left.tree = reinterpret_cast<CTree*>(&changed);
    Tag(left, "big");
    Tag(left, "small");
    Tag(left, "file");
    // Esc comes when the walk has just left the directory in "small".
    changed.meanwhile = [&] {
        if (changed.totals.size() == 2) screen->PushKey(kKeyEsc);
    };
    EXPECT_FALSE(Calculate());
    EXPECT_THAT(changed.totals, ElementsAre(5000u, 7u));
    EXPECT_EQ(SizeOf("big"), 5000u);
    EXPECT_FALSE(IsKnown("small"));
    EXPECT_EQ(left.taggedBytes, 5300u) << "as it stood before this one";
    EXPECT_EQ(left.taggedCount, 3);
    changed.meanwhile = nullptr;
    EXPECT_TRUE(Calculate());
    EXPECT_EQ(left.taggedBytes, 5377u);
}

class SizesWindow : public PanelFixture {
protected:
    std::string Row(int row) {  // of the client area, which begins at row 9 of 25
        std::string text = screen->Text(14, 9 + row, 52);
        const size_t end = text.find_last_not_of(' ');
        return end == std::string::npos ? "" : text.substr(0, end + 1);
    }
    // Until the painting thread has come round to it.
    bool ComesToShow(int row, const std::string& text) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (Row(row) != text && std::chrono::steady_clock::now() < limit)
            std::this_thread::yield();
        return Row(row) == text;
    }
    WalkProgress progress;
};

TEST_F(SizesWindow, FollowsTheWalkUntilItIsOver) {
    Start();
    progress.SetPath("/some/where");
    DirectorySizesWindow window(progress);
    EXPECT_TRUE(ComesToShow(4, std::string((52 - 11) / 2, ' ') + "/some/where")) << Row(4);
    EXPECT_TRUE(ComesToShow(3, std::string((52 - 13) / 2, ' ') + "Total Size: 0")) << Row(3);
    progress.AddDirectory();
    progress.AddFile(77);
    std::string path;
    for (int i = 0; i < 12; ++i)
        path += "/directory" + std::to_string(10 + i);
    progress.SetPath(path.c_str());
    Westring shown = path.c_str();
    AbbreviatePath(shown, 50);
    EXPECT_EQ(shown.Length(), 50);
    EXPECT_TRUE(ComesToShow(4, std::string(" ") + shown.ToUtf8().c_str())) << Row(4);
    EXPECT_TRUE(ComesToShow(3, std::string((52 - 14) / 2, ' ') + "Total Size: 77")) << Row(3);
    EXPECT_TRUE(ComesToShow(2, std::string((52 - 26) / 2, ' ') + "Directories: 1   Files: 1"));
    window.Finish(false);
    EXPECT_EQ(Row(4), "");
}

TEST_F(SizesWindow, ShowsCountsAndSizeInTheMiddle) {
    Start();
    DirectorySizesWindow window(progress);
    for (int i = 0; i < 1234; ++i)
        progress.AddDirectory();
    progress.AddFile(1234567);
    progress.SetPath("/some/where");
    window.Finish(false);
    EXPECT_THAT(screen->RowText(8), HasSubstr("═ Reading Directories ═"));
    EXPECT_EQ(Row(2), std::string((52 - 29) / 2, ' ') + "Directories: 1,234   Files: 1");
    EXPECT_EQ(Row(3), std::string((52 - 30) / 2, ' ') + "Total Size: 1,234,567 (1,205K)");
    EXPECT_EQ(Row(4), "") << "the path is gone";
    EXPECT_EQ(Row(5), "");
    EXPECT_EQ(screen->AttributeAt(14, 9), Colour(ColourClass::kMessages));
}

TEST_F(SizesWindow, HasNoShortFormOfASmallSize) {
    Start();
    DirectorySizesWindow window(progress);
    progress.AddFile(1234);
    window.Finish(false);
    EXPECT_EQ(Row(3), std::string((52 - 17) / 2, ' ') + "Total Size: 1,234");
}

}  // namespace
}  // namespace zt
