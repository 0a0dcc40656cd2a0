// What a panel looks like, cell by cell.
#include "panels/panel_drawing.h"

#include <cerrno>

#include "panels/cursor_movement.h"
#include "panels/panel_switching.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class Drawing : public PanelFixture {
protected:
    explicit Drawing(int columns = 80, int rows = 25) : PanelFixture(columns, rows) {}

    // A directory, files with known sizes and times, and the panels under a short path.
    void Sample(int style) {
        tree.Folder("dir");
        tree.File("readme.txt", 1234567);
        tree.File("big.bin", 100000000);
        tree.File(".hid");
        tree.Link("link", "readme.txt");
        for (const char* name : {"dir", "readme.txt", "big.bin", ".hid", "link"}) {
            tree.Time(name, 1709645940);  // 2024-03-05 13:39
        }
        settings.hidden = true;
        StartWith(style);
        // The parent's own time is not known beforehand.
        Find(left, "..")->time.seconds = 1709645940;
        DrawEntries(left);
    }
    std::string Title(const CPanel& panel) { return FrameRow(panel, 0); }
};

TEST_F(Drawing, DrawsTheFullStyle) {
    Sample(kStyleFull);
    const char* rows[] = {
        "..           │\u25BAUP-DIR\u25C4│03/05/24│ 1:39p",
        "dir          │\u25BASUBDIR\u25C4│03/05/24│ 1:39p",
        ".hid        ░│       0│03/05/24│ 1:39p",
        "big.bin      │  97656K│03/05/24│ 1:39p",
        "link » \u25BA.txt@│ 1234567│03/05/24│ 1:39p",
        "readme.txt   │ 1234567│03/05/24│ 1:39p",
        "             │        │        │      ",
    };
    for (int y = 0; y < 7; ++y)
        EXPECT_EQ(ClientRow(left, y), rows[y]);
    EXPECT_EQ(AttributeAt(left, 0, 1), 0x1A);
    EXPECT_EQ(AttributeAt(left, 13, 1), 0x1B) << "the separator";
    EXPECT_EQ(AttributeAt(left, 0, 3), 0x1B);
    EXPECT_EQ(FrameRow(left, 20), "╟─────────────┴────────┴────────┴──────╢");
    EXPECT_EQ(FrameRow(left, 22), "╚══════════════════════════════════════╝");
    DrawCursorBar(left);
    EXPECT_EQ(AttributeAt(left, 0, 0), 0x20);
    EXPECT_EQ(AttributeAt(left, 13, 0), 0x2B) << "background of the bar";
    EXPECT_EQ(AttributeAt(left, 37, 0), 0x20);
    RemoveCursorBar(left);
    EXPECT_EQ(AttributeAt(left, 0, 0), 0x1A);
}

TEST_F(Drawing, DrawsTheBriefStyleColumnByColumn) {
    ManyFiles(30);
    StartWith(kStyleBrief);
    EXPECT_EQ(ClientRow(left, 0), "..          │f00018      │            ");
    EXPECT_EQ(ClientRow(left, 11), "f00010      │f00029      │            ");
    EXPECT_EQ(ClientRow(left, 12), "f00011      │            │            ");
    EXPECT_EQ(FrameRow(left, 20), "╟────────────┴┬────────┬──┴─────┬──────╢");
    EXPECT_EQ(FrameRow(left, 22), "╚═════════════╧════════╧════════╧══════╝");
    left.path = "/abc";
    DrawHeader(left);
    EXPECT_EQ(screen->CharacterAt(13, 0), 0x2564u);
    EXPECT_EQ(screen->CharacterAt(26, 0), 0x2564u);
    MoveCursor(left, 20);
    DrawCursorBar(left);
    EXPECT_EQ(AttributeAt(left, 13, 1), 0x30);
    EXPECT_EQ(AttributeAt(left, 24, 1), 0x30);
    EXPECT_EQ(AttributeAt(left, 12, 1), 0x1B);
    EXPECT_EQ(AttributeAt(left, 25, 1), 0x1B);
    EXPECT_EQ(ClientRow(left, 20).substr(0, 13), "f00019       ");
}

TEST_F(Drawing, DrawsTheWideStyle) {
    Sample(kStyleWide);
    EXPECT_EQ(ClientRow(left, 1), "\u25BASUBDIR\u25C4│dir                          ");
    EXPECT_EQ(ClientRow(left, 4), " 1234567│link » readme.txt           @");
    EXPECT_EQ(ClientRow(left, 8), "        │                             ");
    left.path = "/abc";
    DrawHeader(left);
    EXPECT_EQ(screen->CharacterAt(9, 0), 0x2564u);
    EXPECT_EQ(FrameRow(left, 20), "╟────────┴────┬────────┬────────┬──────╢");
    EXPECT_EQ(FrameRow(left, 22), "╚═════════════╧════════╧════════╧══════╝");
}

TEST_F(Drawing, DrawsTheBriefwideStyle) {
    ManyFiles(30);
    StartWith(kStyleBriefWide);
    EXPECT_EQ(ClientRow(left, 0), "..                 │f00018            ");
    EXPECT_EQ(ClientRow(left, 18), "f00017             │                  ");
    EXPECT_EQ(FrameRow(left, 20), "╟─────────────┬─────┴──┬────────┬──────╢");
}

TEST_F(Drawing, DrawsTheUnixStyle) {
    Sample(kStyleUnix);
    EXPECT_EQ(screen->Text(1, 6, 31), "readme.txt  │1234567│rw-r--r--│");
    EXPECT_EQ(screen->Text(1, 2, 30), "dir         │SUBDIR\u25C4│rwxr-xr-x");
    EXPECT_EQ(FrameRow(left, 20), "╟────────────┴┬──────┴─┬───────┴┬──┴───╢");
}

TEST_F(Drawing, ShowsTheTriangleForACutName) {
    tree.File("abcdefghijklmnopqr");
    StartWith(kStyleBrief);
    EXPECT_EQ(ClientRow(left, 1).substr(0, 14), "abcdefghijk\u25BA");
    EXPECT_EQ(screen->CharacterAt(12, 2), 0x25BAu);
}

TEST_F(Drawing, ShowsOddNamesInTheirCells) {
    tree.File("a\nb\x01");
    tree.File("c\xE9");
    tree.File("e\xCC\x81x");
    StartWith(kStyleBrief);
    EXPECT_EQ(screen->Text(1, 2, 6), "a◙b☺  ");
    EXPECT_EQ(screen->CharacterAt(2, 3), 0xE9u);
    EXPECT_EQ(screen->CharacterAt(2, 4), 0x301u) << "one code, one cell";
    EXPECT_EQ(screen->CharacterAt(3, 4), static_cast<uint32_t>('x'));
}

TEST_F(Drawing, CentresTheTitle) {
    Start();
    left.path = "/abc";
    DrawHeader(left);
    // 6 cells of title: centre 20, left 20 - 3.
    EXPECT_EQ(Title(left), "╔═════════════╤══ /abc ╤════════╤══════╗");
    EXPECT_EQ(screen->AttributeAt(17, 0), 0x30) << "the active panel";
    EXPECT_EQ(screen->AttributeAt(16, 0), 0x1B);
    right.path = "/ab";
    DrawHeader(right);
    EXPECT_EQ(Title(right), "╔═════════════╤══ /ab ═╤════════╤══════╗");
    EXPECT_EQ(screen->AttributeAt(57, 0), 0x1B) << "the other panel";
}

TEST_F(Drawing, ShortensALongTitle) {
    Start();
    left.path = Westring("/usr/") + Westring::Repeat(L'x', 60);
    DrawHeader(left);
    EXPECT_EQ(Title(left), "╔ /usr/..." + std::string(28, 'x') + " ╗");
}

TEST_F(Drawing, LeavesRoomForTheClockInTheRightPanel) {
    Start();
    settings.clock = true;
    settings.timeMode = 24;
    right.path = left.path = Westring("/usr/") + Westring::Repeat(L'x', 60);
    DrawHeader(right);
    DrawHeader(left);
    EXPECT_EQ(Title(right), "╔ /usr/..." + std::string(23, 'x') + " ═════╗");
    settings.timeMode = 12;
    DrawHeader(right);
    EXPECT_EQ(Title(right), "╔ /usr/..." + std::string(22, 'x') + " ══════╗");
    EXPECT_EQ(Title(left), "╔ /usr/..." + std::string(28, 'x') + " ╗");
}

TEST_F(Drawing, LeavesTheClockAlone) {
    Start();
    settings.clock = true;
    MakeClockWindow();
    const Cell digit = screen->CellAt(79, 0);
    ASSERT_NE(digit.attribute, 0x1B);
    screen->ForgetRecords();
    DrawPanel(right);
    EXPECT_EQ(screen->CellAt(79, 0), digit);
    EXPECT_EQ(screen->CellAt(74, 0).attribute, digit.attribute);
    ClosePanelWindow(right);
    EXPECT_FALSE(ClockWindowShown()) << "it would put the panel's corner back later";
    EXPECT_EQ(screen->CellAt(79, 0), kBlankCell);
}

TEST_F(Drawing, MarksAFilterInTheTitle) {
    Start();
    left.path = "/abc";
    left.filter = "*.c";
    DrawHeader(left);
    EXPECT_NE(Title(left).find(" /abc/? "), std::string::npos);
    left.path = "/";
    DrawHeader(left);
    EXPECT_NE(Title(left).find(" /? "), std::string::npos);
}

TEST_F(Drawing, ColoursTheTitleInAnArchive) {
    Start();
    left.path = right.path = "/abc";
    left.archive = right.archive = reinterpret_cast<ArchiveFile*>(&tree);  // never looked into
    DrawHeader(left);
    DrawHeader(right);
    EXPECT_EQ(screen->AttributeAt(18, 0), 0x3E);
    EXPECT_EQ(screen->AttributeAt(58, 0), 0x1E);
}

TEST_F(Drawing, TitlesAnInfoPanel) {
    Start();
    left.kind = kKindInfo;
    DrawPanel(left);
    EXPECT_EQ(Title(left), "╔════════════════ INFO ════════════════╗");
    EXPECT_EQ(FrameRow(left, 20), "╟──────────────────────────────────────╢");
}

TEST_F(Drawing, DrawsTheScrollBar) {
    ManyFiles(37);
    Start();  // 38 entries, 19 rows: a thumb of 9
    std::string bar;
    const auto read = [&] {
        bar.clear();
        for (int row = 1; row <= 19; ++row)
            bar += screen->Text(39, row, 1);
    };
    read();
    EXPECT_EQ(bar, "▲│││││││▼║║║║║║║║║║");
    left.top = 9;
    DrawEntries(left);
    read();
    EXPECT_EQ(bar, "║║║║▲│││││││▼║║║║║║");
    left.top = 19;
    DrawEntries(left);
    read();
    EXPECT_EQ(bar, "║║║║║║║║║║▲│││││││▼");
    EXPECT_EQ(screen->AttributeAt(39, 11), 0x1B);
}

TEST_F(Drawing, DrawsNoScrollBarWhereAllShows) {
    ManyFiles(18);
    Start();
    for (int row = 1; row <= 19; ++row)
        EXPECT_EQ(screen->CharacterAt(39, row), 0x2551u);
}

TEST_F(Drawing, ShowsTheCurrentNameInTheStatusRowOfTheFullStyle) {
    Sample(kStyleFull);
    FindName(left, L"link");
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "link » readme.txt                     ");
    EXPECT_EQ(AttributeAt(left, 5, 20), 0x1E);
    EXPECT_EQ(AttributeAt(left, 0, 20), 0x1B);
}

TEST_F(Drawing, ShowsTheCurrentEntryInTheStatusRowOfOtherStyles) {
    Sample(kStyleBrief);
    FindName(left, L"readme.txt");
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "readme.txt   │ 1234567│03/05/24│ 1:39p");
    Tag(left, "big.bin");
    left.taggedCount = 0;
    FindName(left, L"big.bin");
    DrawStatusRow(left);
    EXPECT_EQ(AttributeAt(left, 0, 20), 0x1B) << "whatever the entry is";
}

TEST_F(Drawing, CountsTheTaggedFilesInTheStatusRow) {
    Sample(kStyleFull);
    Tag(left, "readme.txt");
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "  1,234,567 bytes in 1 selected file  ");
    EXPECT_EQ(AttributeAt(left, 0, 20), 0x1E);
    EXPECT_EQ(AttributeAt(left, 37, 20), 0x1E);
    left.taggedBytes = 10240000000000;  // exactly 10,000,000,000 K
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), " 9,765,625M bytes in 1 selected file  ");
    left.taggedBytes = 1234567;
    Tag(left, "big.bin");
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "101,234,567 bytes in 2 selected files ");
    left.taggedCount = 1234567;
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), " 96M bytes in 1234567 selected files  ");
}

TEST_F(Drawing, ShowsTheSearchTextInTheStatusRow) {
    Start();
    left.searchText = "abc";
    left.taggedCount = 1;  // the search goes before
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "Search: abc                           ");
    EXPECT_EQ(AttributeAt(left, 30, 20), 0x1E);
    left.searchText = "abcdefghijklmnopqrstuvwxyz0123";  // 38 with the word
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "Search: abcdefghijklmnopqrstuvwxyz0123");
    left.searchText = "abcdefghijklmnopqrstuvwxyz01234";
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), "Search: bcdefghijklmnopqrstuvwxyz01234") << "its end stays";
    EXPECT_EQ(AttributeAt(left, 37, 20), 0x1E);
}

TEST_F(Drawing, CutsALongNameInTheStatusRow) {
    const std::string name = "a-name-that-is-longer-than-the-row-is.txt";
    tree.File(name);
    Start();
    MoveCursor(left, 1);
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), name.substr(0, 38));
}

TEST_F(Drawing, LeavesTheStatusRowAloneWhenTheNameIsShifted) {
    const std::string name = "a-name-that-does-not-fit-its-field";
    tree.File(name);
    StartWith(kStyleBrief);
    MoveCursor(left, 1);
    ShiftName(left, 2);
    Pass();
    EXPECT_EQ(ClientRow(left, 1).substr(0, 14), "name-that-d\u25BA");
    EXPECT_EQ(ClientRow(left, 20).substr(0, 15), "a-name-that-\u25BA");
}

TEST_F(Drawing, PutsALinksArrowInTheColourOfItsFate) {
    tree.Link("broken", "nowhere");
    Start();
    MoveCursor(left, 1);
    Pass();
    EXPECT_EQ(ClientRow(left, 20), "broken \u00BB nowhere                      ");
    EXPECT_EQ(AttributeAt(left, 7, 20), 0x1C);
    EXPECT_EQ(AttributeAt(left, 7, 1), 0x3C) << "on the bar";
}

TEST_F(Drawing, ShowsErrorsBeforeAllElseInTheStatusRow) {
    Start();
    left.searchText = "abc";
    left.readError = EIO;
    DrawStatusRow(left);
    EXPECT_EQ(ClientRow(left, 20), " Error reading drive                  ");
    EXPECT_EQ(AttributeAt(left, 37, 20), 0x1E);
}

TEST_F(Drawing, SaysThatADirectoryIsEmpty) {
    Start();
    left.entries.Clear();
    DrawPanel(left);
    EXPECT_EQ(ClientRow(left, 20), "Directory is empty                    ");
    EXPECT_EQ(AttributeAt(left, 0, 20), 0x1B);
}

TEST_F(Drawing, PaintsTaggedEntries) {
    Sample(kStyleFull);
    Tag(left, "readme.txt");
    DrawEntry(left, 5);
    EXPECT_EQ(AttributeAt(left, 0, 5), 0x1E);
    EXPECT_EQ(AttributeAt(left, 13, 5), 0x1B);
    FindName(left, L"readme.txt");
    DrawCursorBar(left);
    EXPECT_EQ(AttributeAt(left, 0, 5), 0x3E);
    EXPECT_EQ(AttributeAt(left, 13, 5), 0x3B);
}

TEST_F(Drawing, DrawsNothingWithoutAWindowOrWhileItIsHidden) {
    Start();
    left.window->SetHidden(true);
    screen->ForgetRecords();
    DrawPanel(left);
    DrawHeader(left);
    DrawCursorBar(left);
    RemoveCursorBar(left);
    left.window->SetHidden(false);
    ClosePanelWindow(left);
    screen->ForgetRecords();
    DrawPanel(left);
    DrawEntries(left);
    DrawHeader(left);
    DrawScrollBar(left);
    DrawStatusRow(left);
    DrawCursorBar(left);
    EXPECT_EQ(screen->PaintedCells(), 0);
}

TEST_F(Drawing, PaintsNothingAgainThatIsThereAlready) {
    Sample(kStyleFull);
    DrawPanel(left);
    screen->ForgetRecords();
    DrawPanel(left);
    EXPECT_EQ(screen->PaintedCells(), 0);
}

class WideDrawing : public Drawing {
protected:
    WideDrawing() : Drawing(132, 50) {}
};

TEST_F(WideDrawing, FillsALargerScreen) {
    tree.File("readme.txt", 1234);
    tree.Time("readme.txt", 1709645940);
    Start();
    EXPECT_EQ(left.visibleEntries, 44);
    EXPECT_EQ(ClientRow(left, 1),
              "readme.txt" + std::string(27, ' ') + "│      1234│03/05/24│ 1:39p");
    EXPECT_EQ(FrameRow(left, 47).substr(0, 3), "╚");
    EXPECT_EQ(screen->CharacterAt(65, 47), 0x255Du);
    EXPECT_EQ(screen->CharacterAt(66, 47), 0x255Au);
    EXPECT_EQ(screen->CharacterAt(131, 0), 0x2557u);
}

TEST_F(WideDrawing, ShowsAFullWidthPanel) {
    settings.sides[1].showing = false;
    settings.sides[0].width = kWidthFull;
    tree.File("readme.txt", 1234);
    tree.Time("readme.txt", 1709645940);
    left.path = "/";
    Start();
    EXPECT_EQ(ClientRow(left, 1),
              "readme.txt" + std::string(93, ' ') + "│      1234│03/05/24│ 1:39p");
    left.path = "/abc";
    DrawHeader(left);
    EXPECT_EQ(screen->Text(30, 0, 6), " /abc ") << "centre 33, less 3";
}

TEST_F(Drawing, PutsTheTitleOfAFullRightPanelInItsOwnHalf) {
    settings.sides[0].showing = false;
    settings.sides[1].width = kWidthFull;
    Start();
    right.path = "/abc";
    DrawHeader(right);
    EXPECT_EQ(screen->Text(57, 0, 6), " /abc ") << "centre 60, less 3";
    right.path = Westring("/") + Westring::Repeat(L'x', 59);
    DrawHeader(right);
    EXPECT_EQ(screen->Text(15, 0, 65), "\u2550\u2550 /" + std::string(59, 'x') + " \u2557")
        << "moved left, so that the corner stays";
    settings.clock = true;
    DrawHeader(right);
    EXPECT_EQ(screen->Text(10, 0, 70), "\u2550 /" + std::string(59, 'x') + " " +
                                           "\u2550\u2550\u2550\u2550\u2550\u2550\u2557");
}

TEST_F(Drawing, BeginsALongTitleOfAFullLeftPanelAtTheEdge) {
    settings.sides[1].showing = false;
    settings.sides[0].width = kWidthFull;
    Start();
    left.path = Westring("/") + Westring::Repeat(L'x', 59);
    DrawHeader(left);
    EXPECT_EQ(screen->Text(0, 0, 64), " /" + std::string(59, 'x') + " \u2550\u2564");
}

TEST_F(Drawing, TakesTheClockAwayBeforeAPanelIsDrawnOverIt) {
    Start();
    settings.clock = true;
    ClosePanelWindow(right);
    MakeClockWindow();
    OpenPanelWindow(right, 1);
    EXPECT_FALSE(ClockWindowShown());
    EXPECT_EQ(screen->CharacterAt(79, 0), 0x2557u);
}

}  // namespace
}  // namespace zt
