// Reading directories into a panel.
#include "panels/directory_reader.h"

#include <dirent.h>
#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "foundation/result_codes.h"
#include "panels/cursor_movement.h"
#include "panels/entry_sorting.h"
#include "panels/status_row.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Reader : public PanelFixture {
protected:
    std::string Status() {
        const CellString cells = StatusCells(left, 38);
        Westring text;
        for (int i = 0; i < cells.Length(); ++i) {
            text += static_cast<wchar_t>(cells.At(i).character);
        }
        return text.TrimRight().ToUtf8().c_str();
    }
};

TEST_F(Reader, ListsParentDirectoriesAndFiles) {
    tree.File("b");
    tree.File("a");
    tree.File(".hid");
    tree.Folder("dir");
    tree.Folder(".hdir");
    Start();
    EXPECT_THAT(Names(left), ElementsAre("..", "dir", "a", "b"));
    settings.hidden = true;
    ReadDirectory(left);
    EXPECT_THAT(Names(left), ElementsAre("..", ".hdir", "dir", ".hid", "a", "b"));
    EXPECT_EQ(left.entries.At(0)->group, '1');
    EXPECT_EQ(left.entries.At(1)->group, 'A');
    EXPECT_EQ(left.entries.At(3)->group, 'B');
    EXPECT_EQ(left.entries.At(4)->group, 'C');
}

TEST_F(Reader, ShowsOnlyTheParentOfAnEmptyDirectory) {
    Start();
    EXPECT_THAT(Names(left), ElementsAre(".."));
    EXPECT_EQ(left.cursor, 0);
}

TEST_F(Reader, ShowsNoParentAtTheRoot) {
    for (const bool hidden : {false, true}) {
        settings.hidden = hidden;
        left.path = "/";
        left.showing = true;
        ReadDirectory(left);
        ASSERT_GT(left.Count(), 0);
        EXPECT_EQ(left.entries.Find(L".."), -1);
        EXPECT_EQ(left.entries.Find(L"."), -1);
    }
}

TEST_F(Reader, NotesTheFileSystem) {
    left.path = "/proc/self";
    left.showing = true;
    ReadDirectory(left);
    EXPECT_STREQ(left.fileSystem.c_str(), L"proc");
    EXPECT_STREQ(left.mountPoint.c_str(), L"/proc");
}

TEST_F(Reader, PutsTheReadOffWhileHiddenOrInfo) {
    tree.File("a");
    left.path = tree.Wide();
    ReadDirectory(left);
    EXPECT_TRUE(left.needRead);
    EXPECT_FALSE(left.needPaint);
    EXPECT_EQ(left.Count(), 0);
    left.showing = true;
    left.kind = kKindInfo;
    ReadDirectory(left);
    EXPECT_EQ(left.Count(), 0);
    left.kind = kKindFiles;
    ReadDirectory(left);
    EXPECT_FALSE(left.needRead);
    EXPECT_TRUE(left.needPaint);
    EXPECT_EQ(left.Count(), 2);
}

TEST_F(Reader, DropsTheEntriesOfAnotherDirectoryWhenTheReadIsPutOff) {
    tree.File("a");
    tree.Folder("dir");
    tree.Link("link", "a");
    Start();
    ASSERT_EQ(left.linkTargets.Count(), 1);
    ClosePanelWindow(left);
    GoTo(*panels, 0, "dir");
    EXPECT_EQ(left.Count(), 0) << "dir/a would name a file that is not there";
    EXPECT_EQ(left.subdirectories.Count(), 0);
    EXPECT_EQ(left.linkTargets.Count(), 0);
    OpenPanelWindow(left, 0);
    EXPECT_THAT(Names(left), ElementsAre(".."));
}

TEST_F(Reader, KeepsTagsOverAReread) {
    tree.File("a", 10);
    tree.File("b", 20);
    tree.File("c", 30);
    Start();
    Tag(left, "a");
    Tag(left, "b");
    Find(left, "c")->wasTagged = 1;
    tree.Remove("b");
    tree.File("b2", 5);
    ASSERT_EQ(truncate(tree.PathOf("a").c_str(), 11), 0);
    GoTo(*panels, 0, Westring(), true);
    EXPECT_EQ(left.taggedCount, 1) << "b went away";
    EXPECT_EQ(left.taggedBytes, 11u) << "as large as it is now";
    EXPECT_EQ(Find(left, "a")->tagged, 1);
    EXPECT_EQ(Find(left, "b2")->tagged, 0);
    EXPECT_EQ(Find(left, "c")->wasTagged, 1);
}

TEST_F(Reader, ForgetsTagsWhereTheyAreNotToBeKept) {
    tree.File("a", 10);
    Start();
    Tag(left, "a");
    GoTo(*panels, 0, Westring(), false);
    EXPECT_EQ(left.taggedCount, 0);
    EXPECT_EQ(left.taggedBytes, 0u);
    EXPECT_EQ(Find(left, "a")->tagged, 0);
}

TEST_F(Reader, ForgetsTagsInAnotherDirectory) {
    tree.File("a", 10);
    tree.Folder("dir");
    tree.File("dir/a", 10);
    Start();
    Tag(left, "a");
    GoTo(*panels, 0, "dir", true);
    EXPECT_EQ(left.taggedCount, 0);
    EXPECT_EQ(Find(left, "a")->tagged, 0);
}

TEST_F(Reader, KeepsTheCursorOnItsNameOverAReread) {
    ManyFiles(100);
    Start();
    MoveCursor(left, 50);
    ASSERT_EQ(CurrentName(left), "f00049");
    for (int i = 0; i < 30; ++i)
        tree.File("e" + std::to_string(i));
    ReadDirectory(left);
    EXPECT_EQ(CurrentName(left), "f00049");
    MoveCursor(left, -left.CurrentIndex());
    tree.File("a");
    ReadDirectory(left);
    EXPECT_EQ(CurrentName(left), "..");
}

TEST_F(Reader, ClampsTheCursorWhenTheListGetsShorter) {
    ManyFiles(60);
    Start();
    MoveCursor(left, 60);
    for (int i = 3; i < 60; ++i) {
        char name[16];
        snprintf(name, sizeof name, "f%05d", i);
        tree.Remove(name);
    }
    ReadDirectory(left);
    EXPECT_EQ(left.Count(), 4);
    EXPECT_EQ(left.top, 0);
    EXPECT_EQ(CurrentName(left), "f00002");
}

TEST_F(Reader, ShowsAVanishedDirectoryAsEmpty) {
    tree.Folder("dir");
    tree.File("dir/x");
    Start("dir");
    tree.Remove("dir");
    screen->PushKey(13);  // the mount of the path cannot be found
    ReadDirectory(left);
    EXPECT_EQ(screen->PendingEvents(), 0);
    EXPECT_THAT(Names(left), ElementsAre(".."));
    EXPECT_EQ(left.readError, 0);
    GoToParent(*panels, 0);
    EXPECT_EQ(PathOf(left), tree.Path());
}

TEST_F(Reader, StepsBackFromADirectoryThatMayNotBeRead) {
    tree.Folder("a");
    tree.Folder("shut");
    tree.Folder("z");
    tree.Mode("shut", 0);
    Start();
    FindName(left, L"shut");
    const OrdinaryUser user;
    screen->PushKey(13);
    GoTo(*panels, 0, "shut");
    EXPECT_EQ(screen->PendingEvents(), 0) << "one box took the key";
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(PathOf(left), NameToBytes(left.readPath).c_str());
    EXPECT_EQ(CurrentName(left), "shut");
    EXPECT_EQ(left.readError, 0);
}

TEST_F(Reader, StartsInTheParentOfADirectoryThatMayNotBeRead) {
    tree.Folder("shut");
    tree.Mode("shut", 0);
    const OrdinaryUser user;
    screen->PushKey(13);
    Start("shut", "");
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(CurrentName(left), "shut");
}

TEST_F(Reader, StepsBackOverEveryDirectoryThatMayNotBeRead) {
    tree.Folder("open");
    tree.Folder("open/shut");
    tree.Folder("open/shut/inner");
    tree.Mode("open/shut/inner", 0111);
    tree.Mode("open/shut", 0111);
    Start();
    const OrdinaryUser user;
    ASSERT_TRUE(ChangeDirectory(left, tree.Wide("open/shut/inner")));
    screen->PushKey(13);
    screen->PushKey(13);
    GoTo(*panels, 0, Westring());
    EXPECT_EQ(screen->PendingEvents(), 0) << "a box for each";
    EXPECT_EQ(PathOf(left), tree.PathOf("open"));
    EXPECT_EQ(CurrentName(left), "shut");
}

TEST_F(Reader, StepsBackFromANameThatIsTooLong) {
    Start();
    screen->PushKey(13);  // of the mount
    screen->PushKey(13);
    GoTo(*panels, 0, Westring::Repeat(L'x', 300));
    EXPECT_EQ(screen->PendingEvents(), 0);
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(left.readError, 0);
}

TEST_F(Reader, ShowsTheErrorTextWithThePath) {
    tree.Folder("shut");
    tree.Mode("shut", 0);
    Start();
    const OrdinaryUser user;
    std::string box;
    class Looker : public FakeConsole {
    public:
        using FakeConsole::FakeConsole;
        std::string* target = nullptr;
        bool ReadEvent(TEvent& event, int timeout) override {
            for (int row = 0; target && row < 25; ++row)
                *target += RowText(row);
            target = nullptr;
            return FakeConsole::ReadEvent(event, timeout);
        }
    } looker(80, 25);
    looker.target = &box;
    looker.PushKey(13);
    GoTo(*panels, 0, "shut");
    EXPECT_THAT(box, testing::HasSubstr("Permission denied"));
    EXPECT_THAT(box, testing::HasSubstr(tree.PathOf("shut")));
}

TEST_F(Reader, StepsBackFromWhatIsNoDirectoryAnyMore) {
    tree.Folder("dir");
    Start("dir");
    tree.Remove("dir");
    tree.File("dir");
    screen->PushKey(13);
    ReadDirectory(left);
    EXPECT_EQ(PathOf(left), tree.Path());
    EXPECT_EQ(CurrentName(left), "dir");
}

// A listing that fails in its own ways.
class FailingArchives : public IPanelArchives {
public:
    int error = 0;
    int entries = 0;
    void CloseLeft(CPanel&) override {}
    std::unique_ptr<IEntryScanner> OpenListing(CPanel&) override;
    void CloseBeside(CPanel&, const Westring&) override {}
    bool Open(CPanel&, const Westring&) override { return false; }
    bool HasDirectory(CPanel&, const Westring&) override { return false; }
    Westring RealDirectory(const CPanel&) override { return "/"; }
    Westring LinkTarget(const CPanel&, const entry&) override { return "inside"; }
    int64_t DirectoryTotal(CPanel&, const Westring&, WalkProgress&, const StopWanted&) override {
        return 0;
    }
};

class MadeScanner : public IEntryScanner {
public:
    MadeScanner(int entryCount, int finalError)
        : left_(entryCount), error_(finalError), entry_(NewEntry(L"made0000000")) {}
    ~MadeScanner() override { FreeEntry(entry_); }
    int First(entry*& found) override { return Next(found); }
    int Next(entry*& found) override {
        if (left_ == 0) return error_;
        ClearEntry(*entry_);
        swprintf(entry_->name, 12, L"made%07d", left_--);
        entry_->size = 1;
        found = entry_;
        return kDone;
    }

private:
    int left_;
    int error_;
    entry* entry_;
};

std::unique_ptr<IEntryScanner> FailingArchives::OpenListing(CPanel&) {
    return std::make_unique<MadeScanner>(entries, error);
}

class MadeListing : public Reader {
protected:
    MadeListing() {
        panels->seams.archives = &archives;
        left.path = "/made";
        left.archive = reinterpret_cast<ArchiveFile*>(&archives);  // never looked into here
        left.showing = true;
    }
    FailingArchives archives;
};

TEST_F(MadeListing, ReadsAnArchiveThroughItsScanner) {
    archives.error = kNoMoreEntries;
    archives.entries = 3;
    ReadDirectory(left);
    EXPECT_THAT(Names(left), ElementsAre("..", "made0000001", "made0000002", "made0000003"))
        << "a parent is put in front where the listing has none";
    const entry& parent = *left.entries.At(0);
    EXPECT_EQ(parent.flags, kDirectory);
    EXPECT_EQ(parent.group, '1');
    EXPECT_EQ(parent.time, TTime{});
    EXPECT_TRUE(left.fileSystem.IsEmpty());
}

TEST_F(MadeListing, KeepsTheErrorForTheStatusRow) {
    screen->PushKey(13);
    archives.error = EIO;
    left.top = 7;
    left.cursor = 3;
    ReadDirectory(left);
    EXPECT_EQ(screen->PendingEvents(), 0);
    EXPECT_EQ(left.readError, EIO);
    EXPECT_EQ(left.CurrentIndex(), 0);
    EXPECT_THAT(Names(left), IsEmpty());
    EXPECT_EQ(Status(), " Error reading drive");
}

TEST_F(MadeListing, IsSilentAboutAMissingDisk) {
    archives.error = kDriveNotReady;
    ReadDirectory(left);
    EXPECT_EQ(left.readError, kDriveNotReady);
    EXPECT_EQ(Status(), " No disk in drive");
}

TEST_F(MadeListing, ForgetsTheErrorAtTheNextRead) {
    archives.error = kDriveNotReady;
    ReadDirectory(left);
    archives.error = kNoMoreEntries;
    ReadDirectory(left);
    EXPECT_EQ(left.readError, 0);
    EXPECT_EQ(left.Count(), 1);
}

TEST_F(MadeListing, KeepsWhatWasReadBeforeAnError) {
    archives.error = EIO;
    archives.entries = 2;
    ReadDirectory(left);
    EXPECT_EQ(left.Count(), 3);
    EXPECT_EQ(left.readError, 0);
}

TEST_F(MadeListing, DoesNotLoopWhenTheRootMayNotBeRead) {
    screen->PushKey(13);
    left.path = "/";
    archives.error = EACCES;
    ReadDirectory(left);
    EXPECT_EQ(PathOf(left), "/");
    EXPECT_EQ(left.readError, EACCES);
}

// Goes on only when the box has appeared, or a limit has passed.
class SlowScanner : public MadeScanner {
public:
    SlowScanner(FakeConsole& screen, bool& shown)
        : MadeScanner(1234, kNoMoreEntries), screen_(screen), shown_(shown) {}
    int Next(entry*& found) override {
        if (++calls_ == 1000) WaitForBox();
        return MadeScanner::Next(found);
    }

private:
    void WaitForBox() {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!shown_ && std::chrono::steady_clock::now() < limit) {
            std::string text;
            for (int row = 0; row < 25; ++row)
                text += screen_.RowText(row);
            shown_ = text.find("Reading directory:") != std::string::npos &&
                     text.find("Files: 999") != std::string::npos;
            std::this_thread::yield();
        }
    }
    FakeConsole& screen_;
    bool& shown_;
    int calls_ = 0;
};

TEST_F(MadeListing, ShowsItsProgressWhenItTakesLong) {
    class SlowArchives : public FailingArchives {
    public:
        SlowArchives(FakeConsole& screen, bool& shown) : screen_(screen), shown_(shown) {}
        std::unique_ptr<IEntryScanner> OpenListing(CPanel&) override {
            return std::make_unique<SlowScanner>(screen_, shown_);
        }

    private:
        FakeConsole& screen_;
        bool& shown_;
    };
    bool shown = false;
    SlowArchives slow(*screen, shown);
    panels->seams.archives = &slow;
    const std::string before = screen->RowText(10);
    ReadDirectory(left);
    EXPECT_TRUE(shown);
    EXPECT_EQ(left.Count(), 1235);
    EXPECT_EQ(screen->RowText(10), before) << "the box is gone";
}

TEST_F(MadeListing, EndsAtTheBreakKeyWithWhatWasRead) {
    class Stopping : public IEntryFilter {
    public:
        int seen = 0;
        bool Accepts(const CPanel&, const entry&) override {
            EXPECT_EQ(abortState, seen < 5 ? kAbortPossible : kAbortRequested);
            if (++seen == 5) abortState = kAbortRequested;
            return true;
        }
    } filter;
    panels->seams.filter = &filter;
    left.filter = "a*";
    archives.entries = 100000;
    ReadDirectory(left);
    EXPECT_EQ(filter.seen, 5);
    EXPECT_EQ(abortState, kAbortIdle);
    EXPECT_THAT(Names(left), ElementsAre("..", "made0099996", "made0099997", "made0099998",
                                         "made0099999", "made0100000"))
        << "sorted, without a message";
}

TEST_F(Reader, FiltersFilesButNeverDirectories) {
    class OnlyB : public IEntryFilter {
    public:
        bool Accepts(const CPanel&, const entry& e) override { return e.name[0] == L'b'; }
    } filter;
    panels->seams.filter = &filter;
    tree.File("a");
    tree.File("b");
    tree.Folder("adir");
    settings.sides[0].filter = "b*";
    Start();
    EXPECT_THAT(Names(left), ElementsAre("..", "adir", "b"));
    EXPECT_THAT(Names(right), ElementsAre("..", "adir", "a", "b"));
}

class WatchingTree : public IPanelTree {
public:
    uint64_t total = 0;
    Westring followed;
    void BuildRows(CPanel&) override {}
    void Link(CPanel& panel) override { panel.tree = reinterpret_cast<CTree*>(this); }
    bool KnownTotal(const CPanel&, const wchar_t* name, uint64_t& size) override {
        if (wcscmp(name, L"known") != 0) return false;
        size = 12345;
        return true;
    }
    void ReadDone(CPanel&, uint64_t filesTotal) override { total = filesTotal; }
    void Follow(CPanel&, const Westring& path) override { followed = path; }
    Westring SelectedPath(const CPanel&) override { return "/"; }
    void DrawRow(CPanel&, int, int) override {}
    void SetExpanded(CPanel&, bool, bool) override {}
    void ToSibling(CPanel&, int) override {}
};

TEST_F(Reader, CountsFilesForTheTreeWhetherTheyShowOrNot) {
    class None : public IEntryFilter {
    public:
        bool Accepts(const CPanel&, const entry&) override { return false; }
    } filter;
    WatchingTree watching;
    panels->seams.tree = &watching;
    panels->seams.filter = &filter;
    tree.File("a", 100);
    tree.File(".hid", 20);
    tree.Folder("dir");
    tree.Link("link", "a");
    settings.sides[0].filter = "x";
    left.path = tree.Wide();
    InitFromSettings(left, 0);
    EXPECT_EQ(watching.total, 120u);
    EXPECT_THAT(Names(left), ElementsAre("..", "dir"));
}

TEST_F(Reader, ShowsKnownTotalsWhereTheyAreToBeRetained) {
    WatchingTree watching;
    panels->seams.tree = &watching;
    tree.Folder("known");
    tree.Folder("other");
    left.path = tree.Wide();
    InitFromSettings(left, 0);
    EXPECT_EQ(Find(left, "known")->level, 0);
    settings.retainCount = true;
    ReadDirectory(left);
    EXPECT_EQ(Find(left, "known")->level, 1);
    EXPECT_EQ(Find(left, "known")->size, 12345u);
    EXPECT_EQ(Find(left, "other")->level, 0);
}

TEST_F(Reader, ListsTheSubdirectoriesItSaw) {
    tree.Folder("b");
    tree.Folder(".hid");
    tree.Folder("a");
    tree.File("file");
    tree.Link("link", "a");
    Start();
    ASSERT_EQ(left.subdirectories.Count(), 3) << "hidden ones too, files and links not";
    EXPECT_STREQ(left.subdirectories.Peek(0)->c_str(), L".hid");
    EXPECT_STREQ(left.subdirectories.Peek(1)->c_str(), L"a");
    EXPECT_STREQ(left.subdirectories.Peek(2)->c_str(), L"b");
}

TEST_F(Reader, FoldsNamesOnTheFileSystemsThatAreNamed) {
    tree.File("MiXed.TXT");
    tree.Folder("dIr");
    Start();
    settings.caseFilter = Westring("xyz,") + left.fileSystem.ToUpper() + Westring(",abc");
    ReadDirectory(left);
    EXPECT_THAT(Names(left), ElementsAre("..", "DIR", "mixed.txt"));
    settings.caseFilter = "xyz";
    ReadDirectory(left);
    EXPECT_THAT(Names(left), ElementsAre("..", "dIr", "MiXed.TXT"));
}

TEST_F(Reader, FoldsNoRawByte) {
    tree.File("\xE9T\xC3\x89");
    Start();
    settings.caseFilter = left.fileSystem;
    ReadDirectory(left);
    EXPECT_THAT(Names(left), ElementsAre("..", "\xE9t\xC3\xA9"));
}

TEST_F(Reader, ReadsLinksOnceBetweenReads) {
    tree.File("a");
    tree.Link("link", "a");
    Start();
    Westring target;
    ResolveLinkTarget(left, *Find(left, "link"), target);
    EXPECT_STREQ(target.c_str(), L"a");
    tree.Remove("link");
    tree.Link("link", "b\xFF");
    ResolveLinkTarget(left, *Find(left, "link"), target);
    EXPECT_STREQ(target.c_str(), L"a") << "from memory";
    ReadDirectory(left);
    ResolveLinkTarget(left, *Find(left, "link"), target);
    EXPECT_STREQ(NameToBytes(target).c_str(), "b\xFF");
    tree.Remove("link");
    left.linkTargets.Clear();
    ResolveLinkTarget(left, *Find(left, "link"), target);
    EXPECT_TRUE(target.IsEmpty());
}

TEST_F(Reader, ReadsTwentyThousandFiles) {
    ManyFiles(20000);
    Start();
    ASSERT_EQ(left.Count(), 20001);
    EXPECT_EQ(left.entries.Capacity(), 32768);
    for (int i = 1; i < 20000; ++i) {
        ASSERT_LT(wcscmp(left.entries.At(i)->name, left.entries.At(i + 1)->name), 0);
    }
    EXPECT_EQ(Names(left)[12346], "f12345");
}

TEST_F(Reader, TakesOverWhatTheOtherPanelHasJustRead) {
    class Counting : public IEntryFilter {
    public:
        int seen = 0;
        bool Accepts(const CPanel&, const entry&) override {
            ++seen;
            return true;
        }
    } counting;
    panels->seams.filter = &counting;
    tree.Folder("dir");
    tree.File("a", 5);
    tree.File("b", 7);
    const struct {
        int rightSort;
        const char* rightFilter;
        int seen;  // 2 for each list that comes from the disk
    } rows[] = {{kSortName, "?", 2},     {kSortSize, "?", 2},
                {kSortUnsorted, "?", 4}, {kSortName + kReversed, "?", 2},
                {kSortName, "*", 2},     {kSortName, "??", 4}};
    for (const auto& row : rows) {
        settings.sides[0].filter = "?";
        settings.sides[1].filter = row.rightFilter;
        settings.sides[1].sort = row.rightSort;
        counting.seen = 0;
        Start();
        EXPECT_EQ(counting.seen, row.seen) << row.rightSort << row.rightFilter;
        EXPECT_EQ(right.Count(), 4);
        EXPECT_EQ(right.subdirectories.Count(), 1);
        if (row.rightSort == kSortSize) {
            EXPECT_THAT(Names(right), ElementsAre("..", "dir", "b", "a"));
        }
    }
    settings.sides[1].filter = "?";
    settings.sides[1].sort = kSortName;
    Start();
    Tag(left, "a");
    Tag(right, "b");
    counting.seen = 0;
    RereadBoth(*panels);
    EXPECT_EQ(counting.seen, 2);
    EXPECT_EQ(Find(left, "a")->tagged, 1);
    EXPECT_EQ(Find(left, "b")->tagged, 0);
    EXPECT_EQ(Find(right, "a")->tagged, 0);
    EXPECT_EQ(Find(right, "b")->tagged, 1);
    EXPECT_NE(Find(left, "a"), Find(right, "a")) << "each has its own";
    counting.seen = 0;
    ReadDirectory(right);
    EXPECT_EQ(counting.seen, 2) << "on its own it asks the disk";
    left.readWhole = false;  // as after the Break key
    panels->active = 1;
    counting.seen = 0;
    panels->sharesReads = true;
    ReadDirectory(right);
    EXPECT_EQ(counting.seen, 2);
}

TEST_F(Reader, RereadsForTheOrderOfTheDisk) {
    ManyFiles(50);
    Start();
    std::vector<std::string> asListed;
    for (DIR* stream = opendir(tree.Path().c_str()); stream;) {
        const dirent* listed = readdir(stream);
        if (!listed) {
            closedir(stream);
            break;
        }
        if (strcmp(listed->d_name, ".") != 0) asListed.push_back(listed->d_name);
    }
    FindName(left, L"f00030");
    SetSort(left, kSortUnsorted);
    EXPECT_EQ(Names(left), asListed);
    EXPECT_EQ(CurrentName(left), "f00030");
    EXPECT_EQ(settings.sides[0].sort, kSortUnsorted);
    SetSort(left, ReversedSort(left.sort));
    EXPECT_EQ(Names(left), asListed) << "the reverse changes nothing";
    SetSort(left, kSortName + kReversed);
    EXPECT_EQ(Names(left)[0], "..");
    EXPECT_EQ(Names(left)[1], "f00049");
    EXPECT_EQ(CurrentName(left), "f00030");
}

}  // namespace
}  // namespace zt
