// Each key of the main screen that has a command: pressed in a known place, it does what it is
// there for. A row names the event's code, so that keys with several codes are seen with each.
#include <algorithm>

#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

constexpr int32_t kAlt = 1, kCtrl = 2, kShift = 4;

// "'text" in `before` is typed, everything else is a key. `look` is one of the words of See; an
// '@' in `expected` stands for the folder of the left panel, in which are: dir, link to it, "a b",
// z and a hidden file. The right panel stands in dir.
struct KeyRow {
    int32_t code;
    int32_t modifiers;
    std::vector<std::string> before;
    std::string look;
    std::string expected;
};

class EveryKey : public testing::Test {
protected:
    EveryKey() {
        tree.File("dir/inner").Link("link", "dir").File("a b").FileOfSize("z", 5).File(".hid");
    }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        options.arguments = {"-r", tree.PathOf("dir")};
        options.home = home.Path();
        return options;
    }

    std::string Shown(const Session& session) {
        if (PanelView(session, 0, true).IsShown() || PanelView(session, 1, true).IsShown()) {
            return "full";
        }
        std::string sides;
        if (PanelView(session, 0).IsShown()) sides += "left ";
        if (PanelView(session, 1).IsShown()) sides += "right ";
        return sides;
    }
    std::string Line(const Session& session) {
        const std::string row = session.Row(session.Rows() - 2);
        return row.substr(std::min(row.find('>') + 1, row.size()));
    }
    // The value of a key in the saved configuration.
    std::string Saved(Session& session, const std::string& key) {
        session.Press("Shift-F9");
        const std::string text = "\n" + home.Content(".ztx/zt.ini");
        const size_t start = text.find("\n" + key + "=");
        if (start == std::string::npos) return "not there";
        const size_t value = start + key.size() + 2;
        return text.substr(value, text.find('\n', value) - value);
    }
    std::string See(Session& session, const std::string& look) {
        const PanelView left(session, 0);
        if (look == "line") return Line(session);
        if (look == "place") {
            const std::string row = session.Row(session.Rows() - 2);
            return std::to_string(session.CursorColumn() - static_cast<int>(row.find('>')) - 1);
        }
        if (look == "bar") return left.BarName();
        if (look == "status") return left.Status();
        if (look == "left") return left.Title();
        if (look == "right") return PanelView(session, 1).Title();
        if (look == "active") return left.IsActive() ? "left" : "right";
        if (look == "shown") return Shown(session);
        if (look == "clipboard") return session.Clipboard();
        if (look == "size") {
            return std::to_string(session.Columns()) + "x" + std::to_string(session.Rows());
        }
        if (look == "hidden")
            return session.Text().find(".hid") == std::string::npos ? "no" : "yes";
        if (look == "menu") return session.Row(0).substr(0, 16);
        if (look.starts_with("text ")) {
            const std::string text = look.substr(5);
            return session.Text().find(text) == std::string::npos ? session.Text() : text;
        }
        return Saved(session, look);
    }
    std::string Expanded(std::string text) {
        const size_t at = text.find('@');
        return at == std::string::npos ? text : text.replace(at, 1, tree.Path());
    }

    void Check(const std::vector<KeyRow>& rows) {
        for (const KeyRow& row : rows) {
            std::ostringstream name;
            name << "code " << std::hex << row.code << " with modifiers " << row.modifiers;
            SCOPED_TRACE(name.str());
            if (home.Exists(".ztx")) home.Remove(".ztx");
            Session session(Here());
            for (const std::string& key : row.before) {
                if (key[0] == '\'') {
                    session.Type(key.substr(1));
                } else {
                    session.Press(key);
                }
            }
            session.Send(
                {{0, row.code, row.modifiers, 0, 0, 0}, {0, kModifiersChanged, 0, 0, 0, 0}});
            ASSERT_TRUE(session.WaitForQuiet());
            EXPECT_EQ(Expanded(row.expected), See(session, row.look));
        }
    }

    FileTree tree;
    FileTree home;
};

TEST_F(EveryKey, OfTheCommandLine) {
    Check({
        {4, kCtrl, {"'ab", "Ctrl-Home"}, "place", "1"},
        {0x1009D, kAlt, {"'ab", "Ctrl-Home"}, "place", "1"},
        {0x1004D, 0, {"'ab", "Ctrl-Home"}, "place", "1"},
        {0x13, kCtrl, {"'ab"}, "place", "1"},
        {0x1009B, kAlt, {"'ab"}, "place", "1"},
        {0x1004B, 0, {"'ab"}, "place", "1"},
        {0x10053, 0, {"'ab", "Ctrl-Home"}, "line", "b"},
        {0x10101, 0, {"'ab"}, "line", "a"},
        {0x7F, kCtrl, {"'ab.cd"}, "line", "ab."},
        {0x10093, kCtrl, {"'ab.cd", "Ctrl-Home"}, "line", ".cd"},
        {0x10073, kCtrl, {"'ab cd"}, "place", "3"},
        {0x10074, kCtrl, {"'ab cd", "Ctrl-Home"}, "place", "2"},
        {0x10075, kCtrl, {"'ab", "Ctrl-Home"}, "place", "2"},
        {0x10077, kCtrl, {"'ab"}, "place", "0"},
        {0x1B, 0, {"'ab"}, "line", ""},
        {0x10092, kCtrl, {"'ab"}, "clipboard", "ab"},
        {0x30052, kShift, {"'ab", "Ctrl-Ins", "Esc"}, "line", "ab"},
        // There is nothing to recall.
        {5, kCtrl, {"'ab"}, "line", "ab"},
        {0x1008D, kCtrl, {"'ab"}, "line", "ab"},
        {0x18, kCtrl, {"'ab"}, "line", "ab"},
        {0x10091, kCtrl, {"'ab"}, "line", "ab"},
        {0x1000E, kAlt, {"'ab"}, "line", "ab"},
    });
}

TEST_F(EveryKey, ThatBringsNamesToTheLine) {
    Check({
        {0x1B, kCtrl, {}, "line", "@/"},
        {0x9001A, kCtrl, {}, "line", "@/"},
        {0x9001A, 0, {}, "line", "@/"},
        {0x1D, kCtrl, {}, "line", "@/dir/"},
        {6, kCtrl, {"Down"}, "line", "@/dir"},
        {0x90021, kCtrl, {"Down"}, "line", "@/dir"},
        {0x20006, kCtrl | kShift, {"Down"}, "clipboard", "@/dir"},
        {0x20006, 0, {"Down"}, "clipboard", "@/dir"},
        {0xB0021, kCtrl | kShift, {"Down"}, "clipboard", "@/dir"},
        {0xA, kCtrl, {"Down"}, "line", "dir"},
        {0x9001C, kCtrl, {"Down"}, "line", "dir"},
        {0x90024, kCtrl, {"Down"}, "line", "dir"},
        {0x3001C, kCtrl | kShift, {"Down"}, "clipboard", "dir"},
        {0xB001C, kCtrl | kShift, {"Down"}, "clipboard", "dir"},
        {0xB0024, kCtrl | kShift, {"Down"}, "clipboard", "dir"},
        // A word before the insertion point asks for the history, but not with this code.
        {0xA, kCtrl, {"Down", "'ab"}, "line", "ab"},
        {0x2000A, kCtrl | kShift, {"Down", "'ab"}, "clipboard", "dir"},
    });
}

TEST_F(EveryKey, ThatMovesTheBar) {
    Check({
        {0x10048, 0, {"Down", "Down"}, "bar", "dir"},
        {0x10050, 0, {}, "bar", "dir"},
        {0x10047, 0, {"End"}, "bar", ".."},
        {0x1004F, 0, {}, "bar", "z"},
        {0x10049, 0, {"End"}, "bar", ".."},
        {0x10051, 0, {}, "bar", "z"},
        {0x10052, 0, {"End"}, "status", "5 bytes in 1 selected file"},
        {0x10052, 0, {"Down"}, "bar", "link » dir"},
    });
}

TEST_F(EveryKey, ThatTagsAndSearches) {
    const std::string all = "5 bytes in 2 selected files";
    Check({
        {0x14, kCtrl, {}, "text Select the files", "Select the files"},
        {0x20014, kCtrl | kShift, {}, "text Select the files/dir", "Select the files/dir"},
        {0x20014, 0, {}, "text Select the files/dir", "Select the files/dir"},
        {0x19, kCtrl, {}, "text Unselect the files", "Unselect the files"},
        {0x20019, kCtrl | kShift, {}, "text Unselect the files", "Unselect the files"},
        {0x40002B, 0, {}, "text Select the files", "Select the files"},
        {0x10006D, 0, {}, "text Select the files", "Select the files"},
        {0x40002D, 0, {}, "text Unselect the files", "Unselect the files"},
        {0x10006E, 0, {}, "text Unselect the files", "Unselect the files"},
        {0x40002A, 0, {}, "status", all},
        {0x10006F, 0, {}, "status", all},
        {0x10090, kCtrl, {}, "status", all},
        {0x30090, kCtrl | kShift, {}, "status", "5 bytes in 4 selected files"},
        {0x1008E, kCtrl, {"Ctrl-Grey+"}, "status", ".."},
        {0x3008E, kCtrl | kShift, {"Ctrl-Grey+"}, "status", ".."},
        {0x1004E, kAlt, {"Ctrl-Grey+"}, "status", ".."},
        {0x100072, 0, {"Ctrl-Grey+"}, "status", ".."},
        {0x100A0, kAlt, {"Ctrl-Grey+"}, "bar", "a b"},
        {0x10098, kAlt, {"Ctrl-Grey+", "End"}, "bar", "a b"},
        {0x11,
         kCtrl,
         {"Down"},
         "text dir          \u2502       0\u2502",
         "dir          \u2502       0\u2502"},
        {0x1003D,
         0,
         {"Down"},
         "text dir          \u2502       0\u2502",
         "dir          \u2502       0\u2502"},
        {0x1006A,
         kAlt,
         {"Down"},
         "text dir          \u2502       0\u2502",
         "dir          \u2502       0\u2502"},
        {0x30060,
         kCtrl | kShift,
         {"Down"},
         "text dir          \u2502       0\u2502",
         "dir          \u2502       0\u2502"},
        {0x1000E, kAlt, {"Alt-d", "Alt-i"}, "status", "Search: d"},
        {0x1009D, kAlt, {"Alt-d"}, "status", "Search: dir"},
    });
}

TEST_F(EveryKey, ThatGoesSomewhere) {
    const std::string parent = tree.Path().substr(0, tree.Path().rfind('/'));
    Check({
        {0xD, 0, {"Down"}, "left", "@/dir"},
        {0x10076, kCtrl, {"Down"}, "left", "@/dir"},
        {0x10084, kCtrl, {}, "left", parent},
        {7, kCtrl, {"Down", "Down"}, "left", "@/dir"},
        {7, kCtrl, {"Down"}, "left", "@"},
        {0x1F, kCtrl, {"Down", "Enter"}, "left", "@"},
        {0x10097, kAlt, {}, "left", home.Path()},
        {0x2001C, kCtrl | kShift, {}, "left", "@/dir"},
        {0x1C, kCtrl | kShift, {}, "left", "@/dir"},
        {0x1C, kCtrl | kAlt, {}, "left", "@"},
        {0x40031, kCtrl, {"Ctrl-Shift-Num1", "Down", "Enter"}, "left", "@"},
        {0x60032, kCtrl | kShift, {}, "d2", "@"},
    });
}

TEST_F(EveryKey, OfThePanels) {
    Check({
        {9, 0, {}, "active", "right"},
        {0x3000F, kShift, {"Tab"}, "active", "left"},
        {2, kCtrl, {}, "shown", ""},
        {0xF, kCtrl, {}, "shown", ""},
        {0x10, kCtrl, {}, "shown", "left "},
        {0x10, kCtrl, {"Tab"}, "shown", "right "},
        {0x15, kCtrl, {}, "right", "@"},
        {0x1005E, kCtrl, {}, "shown", "right "},
        {0x1005F, kCtrl, {}, "shown", "left "},
        {0x3005E, kCtrl | kShift, {}, "LeftWidth", "full"},
        {0x3005F, kCtrl | kShift, {}, "RightWidth", "full"},
        {0x30068, kAlt | kShift, {}, "LeftStyle", "brief"},
        {0x30069, kAlt | kShift, {"Alt-Shift-F1"}, "LeftStyle", "full"},
        {0x3006A, kAlt | kShift, {}, "LeftStyle", "wide"},
        {0x3006B, kAlt | kShift, {}, "LeftStyle", "briefwide"},
        {0x3006C, kAlt | kShift, {"Tab"}, "RightStyle", "unix"},
        {0x10060, kCtrl, {"Ctrl-F5"}, "LeftSort", "name"},
        {0x10061, kCtrl, {}, "LeftSort", "extension"},
        {0x10062, kCtrl, {}, "LeftSort", "time"},
        {0x10063, kCtrl, {}, "LeftSort", "size"},
        {0x10064, kCtrl, {}, "LeftSort", "unsorted"},
        {0x10065, kCtrl, {}, "LeftSort", "rname"},
        {0x10065, kCtrl, {"Ctrl-F8"}, "LeftSort", "name"},
        {0x10062, kCtrl, {"Tab"}, "RightSort", "time"},
        {0x10065, kCtrl, {"Tab"}, "RightSort", "rname"},
    });
}

TEST_F(EveryKey, OfTheMenusSidesIsACodeOfItsOwn) {
    Check({
        {0x100001, 0, {"Ctrl-F5"}, "LeftSort", "name"},
        {0x100002, 0, {}, "LeftSort", "extension"},
        {0x100003, 0, {}, "LeftSort", "time"},
        {0x100004, 0, {}, "LeftSort", "size"},
        {0x100005, 0, {}, "LeftSort", "unsorted"},
        {0x100006, 0, {}, "LeftSort", "rname"},
        {0x100007, 0, {"Tab", "Ctrl-F5"}, "RightSort", "name"},
        {0x100008, 0, {}, "RightSort", "extension"},
        {0x100009, 0, {}, "RightSort", "time"},
        {0x10000A, 0, {}, "RightSort", "size"},
        {0x10000B, 0, {}, "RightSort", "unsorted"},
        {0x10000C, 0, {}, "RightSort", "rname"},
        {0x10000D, 0, {}, "LeftStyle", "brief"},
        {0x10000E, 0, {}, "RightStyle", "brief"},
        {0x10000F, 0, {"Alt-Shift-F1"}, "LeftStyle", "full"},
        {0x100010, 0, {"Tab", "Alt-Shift-F1"}, "RightStyle", "full"},
        {0x100014, 0, {}, "LeftStyle", "wide"},
        {0x100015, 0, {}, "RightStyle", "wide"},
        {0x100018, 0, {}, "LeftStyle", "briefwide"},
        {0x100019, 0, {}, "RightStyle", "briefwide"},
        {0x10001A, 0, {}, "LeftStyle", "unix"},
        {0x10001B, 0, {}, "RightStyle", "unix"},
    });
}

TEST_F(EveryKey, OfTheOptionsAndDialogs) {
    Check({
        {8, kCtrl, {}, "hidden", "yes"},
        {0x10012E, 0, {"Ctrl-h"}, "hidden", "no"},
        {0x10012F, 0, {}, "PathPrompt", "off"},
        {0x100131, 0, {}, "FullScreen", "off"},
        {0x100132, 0, {}, "Clock", "on"},
        {0x100133, 0, {}, "TagDirs", "on"},
        {0x100136, 0, {}, "ThousandSep", "on"},
        {0x100137, 0, {}, "RetainCount", "on"},
        {0x10012C, 0, {}, "text  Configuration ", " Configuration "},
        {0x10012D, 0, {}, "text  Zanthe Colours ", " Zanthe Colours "},
        {0x100135, 0, {}, "text  Confirmations ", " Confirmations "},
        {0x100012, 0, {}, "text Filter for left panel", "Filter for left panel"},
        {0x10019C, 0, {}, "text Filter for right panel", "Filter for right panel"},
        {0x10043, 0, {}, "menu", "    Left    File"},
        {14, kCtrl, {}, "menu", "    Left    File"},
        {0x3005D, kShift, {}, "menu", "    Left    File"},
        {0x1003F, 0, {"Down"}, "text Copy \"dir\" to", "Copy \"dir\" to"},
        {0x10040, 0, {"Down"}, "text Move/Rename \"dir\" to", "Move/Rename \"dir\" to"},
        {0x30058, kShift, {"Down"}, "text Copy \"dir\" to", "Copy \"dir\" to"},
        {0x30059, kShift, {"Down"}, "text Move/Rename \"dir\" to", "Move/Rename \"dir\" to"},
        {0x10044, 0, {}, "text want to exit Zanthe ?", "want to exit Zanthe ?"},
        {0x10070, kAlt, {}, "size", "80x50"},
        {0x30070, kAlt | kShift, {}, "size", "132x25"},
    });
}

TEST_F(EveryKey, OfTheFilesAsks) {
    Check({
        {1, kCtrl, {"Down"}, "text  File  Attributes ", " File  Attributes "},
        {3, kCtrl, {"Down"}, "text Change case of", "Change case of"},
        {0x100071, 0, {"Down"}, "text Change date of", "Change date of"},
        {0x10102, kCtrl, {"Down"}, "text  File Information ", " File Information "},
        {0x10041, 0, {}, "text Create the directory", "Create the directory"},
        {0x10042, 0, {"Down"}, "text Do you wish to delete", "Do you wish to delete"},
        {0x3005B, kShift, {"Down"}, "text Delete the file:", "Delete the file:"},
        {0x30062, kCtrl | kShift, {"Down"}, "text Make symbolic link", "Make symbolic link"},
    });
}

TEST_F(EveryKey, ThatSavesTheConfiguration) {
    for (const int32_t code : {0x3005C, 0x100134}) {
        Session session(Here());
        session.Send(WireEvent{0, code, 0, 0, 0, 0});
        ASSERT_TRUE(session.WaitForQuiet());
        EXPECT_TRUE(home.Exists(".ztx/zt.ini")) << std::hex << code;
        home.Remove(".ztx");
    }
}

TEST_F(EveryKey, ThatReadsAgainReadsItsSide) {
    const struct {
        int32_t code;
        int side;
    } rows[] = {{0x12, 0}, {0x100013, 0}, {0x10019B, 1}};
    for (const auto& row : rows) {
        SessionOptions options = Here();
        options.arguments.clear();
        Session session(options);
        tree.File("new");
        session.Send(WireEvent{0, row.code, 0, 0, 0, 0});
        ASSERT_TRUE(session.WaitForQuiet());
        EXPECT_EQ("new", PanelView(session, row.side).Names()[4]) << std::hex << row.code;
        EXPECT_EQ("z", PanelView(session, 1 - row.side).Names()[4]) << std::hex << row.code;
        tree.Remove("new");
    }
}

TEST_F(EveryKey, ThatReadsAgainIsIgnoredWhereItIsForTheDrives) {
    home.File(".ztx/zt.ini", "CtrlRDriveChng=on\n");
    Session session(Here());
    tree.File("new");
    session.Press("Ctrl-r");
    EXPECT_EQ("z", PanelView(session, 0).Names()[4]);
}

// The keys that need a panel on the screen do nothing without one.
TEST_F(EveryKey, ThatNeedsAPanelIsIgnoredWithoutOne) {
    Session session(Here());
    session.Press({"Down", "Ctrl-o"});
    const std::string before = session.Text();
    for (const char* key : {"PgUp", "PgDn", "Ins", "Ctrl-PgUp", "Ctrl-PgDn", "Ctrl--", "Alt-Home",
                            "Ctrl-\\", "Ctrl-g", "Ctrl-r", "Enter", "Up", "Down", "Alt-Shift-F1"}) {
        session.Press(key);
        EXPECT_EQ(before, session.Text()) << key;
    }
    session.Press("Ctrl-o");
    EXPECT_EQ(tree.Path(), PanelView(session, 0).Title());
    EXPECT_EQ("dir", PanelView(session, 0).BarName());
}

TEST_F(EveryKey, ThatIsNotListedMayStandForABackslash) {
    Session session(Here());
    session.Send(WireEvent{0, 0x10029, kAlt, 0, 0, '\\'});
    ASSERT_TRUE(session.WaitForQuiet());
    EXPECT_EQ(tree.PathOf("dir"), PanelView(session, 0).Title());
}

TEST_F(EveryKey, GreyStarIsTextWhereThatIsWanted) {
    home.File(".ztx/zt.ini", "DisableInvert=on\n");
    Session session(Here());
    session.Press("Grey*");
    EXPECT_EQ("*", Line(session));
    session.Press({"Grey+", "Grey-"});
    EXPECT_EQ("*", Line(session));
}

TEST_F(EveryKey, OutsideTheBasicPlaneIsDropped) {
    Session session(Here());
    session.Type("a\xF0\x9F\x98\x80\xE2\x82\xAC");
    EXPECT_EQ("a\xE2\x82\xAC", Line(session));
}

}  // namespace
}  // namespace zt::headless
