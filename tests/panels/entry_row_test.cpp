// The name field and the row of each style.
#include "panels/entry_row.h"

#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

std::string TextOf(const CellString& cells) {
    Westring text;
    for (int i = 0; i < cells.Length(); ++i)
        text += static_cast<wchar_t>(cells.At(i).character);
    return text.ToUtf8().c_str();
}

class EntryRow : public PanelFixture {
protected:
    std::string Field(const wchar_t* name, int width, int flags = 0, int* shift = nullptr) {
        const std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(name), FreeEntry);
        e->flags = static_cast<uint16_t>(flags);
        return TextOf(NameField(left, *e, width, 0x1B, shift));
    }
    std::string Row(int style, const entry& e) {
        left.columns.Compute(40);
        const EntryPlace place = PlaceOf(left.columns, style, 0, 19);
        return TextOf(EntryCells(left, e, style, place.nameWidth, 0x1B));
    }
};

TEST_F(EntryRow, CutsAndPadsNames) {
    const struct {
        const wchar_t* name;
        int width;
        const char* kept;   // with the extension kept visible
        const char* plain;  // without
    } rows[] = {
        {L"abc", 5, "abc  ", "abc  "},
        {L"abcde", 5, "abcde", "abcde"},
        {L"abcdef", 5, "abcd\x10", "abcd\x10"},
        {L"abcdefgh.txt", 12, "abcdefgh.txt", "abcdefgh.txt"},
        {L"abcdefghi.txt", 12, "abcdefg\x10.txt", "abcdefghi.t\x10"},
        {L"abcdefghi.txt", 8, "abc\x10.txt", "abcdefg\x10"},
        {L"abcdefghi.txt", 7, "abcdef\x10", "abcdef\x10"},              // more than half the field
        {L"abcdefgh.12345", 12, "abcde\x10.12345", "abcdefgh.12\x10"},  // exactly half
        {L"abcdefgh.123456", 12, "abcdefgh.12\x10", "abcdefgh.12\x10"},
        {L"abcdefghijklm.", 12, "abcdefghij\x10.", "abcdefghijk\x10"},
        {L".abcdefghijklmno", 12, ".abcdefghij\x10", ".abcdefghij\x10"},
        {L"a.b.c.d.e.f.g.h", 12, "a.b.c.d.e\x10.h", "a.b.c.d.e.f\x10"},
        {L"ab", 1, "\x10", "\x10"},
        {L"ab", 0, "", ""},
    };
    for (const auto& row : rows) {
        settings.keepExtVisible = true;
        EXPECT_EQ(Field(row.name, row.width), row.kept) << row.width;
        settings.keepExtVisible = false;
        EXPECT_EQ(Field(row.name, row.width), row.plain) << row.width;
    }
}

TEST_F(EntryRow, PutsMarksBehindTheCutName) {
    EXPECT_EQ(Field(L".hid", 8, kHidden), ".hid   ░");
    EXPECT_EQ(Field(L".hidden1", 8, kHidden), ".hidde\x10░");
    EXPECT_EQ(Field(L"a", 4, kHiddenByArchive), "a  ░");
    EXPECT_EQ(Field(L"a", 0, kHidden), "");
    EXPECT_EQ(Field(L"a", 1, kHidden), "░");
    EXPECT_EQ(Field(L".d", 6, kHidden | kDirectory), ".d   ░");
}

TEST_F(EntryRow, ShowsLinksWithTheirTargets) {
    tree.File("file");
    tree.Folder("dir");
    tree.Link("l", "file");
    tree.Link("d", "dir");
    tree.Link("b", "gone");
    Start();
    const CellString link = NameField(left, *Find(left, "l"), 14, 0x1B);
    EXPECT_EQ(TextOf(link), "l » file     @");
    EXPECT_EQ(link.At(2).attribute, 0x1E) << "the foreground of tagged files";
    EXPECT_EQ(link.At(4).attribute, 0x1B);
    const CellString broken = NameField(left, *Find(left, "b"), 14, 0x3F);
    EXPECT_EQ(TextOf(broken), "b » gone     @");
    EXPECT_EQ(broken.At(2).attribute, 0x3C) << "bright red";
    EXPECT_EQ(TextOf(NameField(left, *Find(left, "d"), 14, 0x1A)), "d » dir       ");
    EXPECT_EQ(TextOf(NameField(left, *Find(left, "l"), 7, 0x1B)), "l » f\x10@");
}

TEST_F(EntryRow, ShiftsALongNameNoFurtherThanItsEnd) {
    settings.keepExtVisible = false;
    const struct {
        int shift, lowered;
        const char* text;
    } rows[] = {{0, 0, "abcd\x10"},
                {1, 1, "bcde\x10"},
                {3, 3, "defgh"},
                {9, 3, "defgh"},
                {-2, 0, "abcd\x10"}};
    for (const auto& row : rows) {
        int shift = row.shift;
        EXPECT_EQ(Field(L"abcdefgh", 5, 0, &shift), row.text) << row.shift;
        EXPECT_EQ(shift, row.lowered) << row.shift;
    }
    int shift = 4;
    EXPECT_EQ(Field(L"abc", 5, 0, &shift), "abc  ") << "a short name does not move";
    EXPECT_EQ(shift, 0);
}

TEST_F(EntryRow, ComposesTheRowOfEachStyle) {
    std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(L"readme.txt"), FreeEntry);
    e->size = 1234567;
    e->mode = S_IFREG | 0754;
    e->time.seconds = 1709645940;  // 2024-03-05 13:39 UTC
    EXPECT_EQ(Row(kStyleBrief, *e), "readme.txt  ");
    EXPECT_EQ(Row(kStyleFull, *e), "readme.txt   │ 1234567│03/05/24│ 1:39p");
    EXPECT_EQ(Row(kStyleWide, *e), " 1234567│readme.txt                   ");
    EXPECT_EQ(Row(kStyleBriefWide, *e), "readme.txt         ");
    EXPECT_EQ(Row(kStyleUnix, *e), "readme.txt  │1234567│rwxr-xr--│roo│roo") << "cut by the column";
    e->uid = e->gid = 65432;  // nobody's
    left.columns.Compute(80);
    EXPECT_EQ(TextOf(EntryCells(left, *e, kStyleUnix, 12, 0x1B)),
              "readme.txt  │   1234567│rwxr-xr--│65432     │65432     ");
}

TEST_F(EntryRow, SeparatesFieldsInThePanelsForeground) {
    std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(L"a"), FreeEntry);
    left.columns.Compute(40);
    const CellString row = EntryCells(left, *e, kStyleFull, 13, 0x30);
    EXPECT_EQ(row.At(13), (Cell{0x2502, 0x3B}));
    EXPECT_EQ(row.At(14).attribute, 0x30);
}

TEST_F(EntryRow, ColoursEntriesByTagKindAndRules) {
    class Rules : public IEntryColours {
    public:
        Attribute ColourOf(const CPanel&, const entry& e, Attribute base) override {
            return e.name[0] == L'r' ? static_cast<Attribute>((base & 0xF0) | 5) : base;
        }
    } rules;
    std::unique_ptr<entry, void (*)(entry*)> e(NewEntry(L"r"), FreeEntry);
    EXPECT_EQ(AttributeOf(left, *e), 0x1B);
    EXPECT_EQ(BarAttributeOf(*e), 0x30);
    e->flags = kDirectory;
    EXPECT_EQ(AttributeOf(left, *e), 0x1A);
    EXPECT_EQ(BarAttributeOf(*e), 0x20);
    panels->seams.colours = &rules;
    EXPECT_EQ(AttributeOf(left, *e), 0x15);
    e->tagged = 1;
    EXPECT_EQ(AttributeOf(left, *e), 0x1E) << "a tag goes before any rule";
    EXPECT_EQ(BarAttributeOf(*e), 0x3E);
}

}  // namespace
}  // namespace zt
