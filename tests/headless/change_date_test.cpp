// The menu's File Date/Time: the modification time of one file or of the tagged ones.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

#include "tests/headless/box_rows.h"
#include "tests/support/fault_control.h"
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;

constexpr int32_t kDateCommand = 0x100071;
// Where the box stands on a screen of 80 by 25.
constexpr int kLeft = 23, kTop = 4, kWidth = 33, kHeight = 12;

class ChangeDate : public testing::Test {
protected:
    SessionOptions Here(const std::string& ini = "") {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        if (!ini.empty()) home.File(".ztx/zt.ini", "[General Options]\n" + ini);
        return options;
    }
    void Open(Session& session) {
        session.Send(WireEvent{0, kDateCommand, 0, 0, 0, 0});
        ASSERT_TRUE(session.WaitForQuiet());
        ASSERT_TRUE(IsOpen(session)) << session.Text();
    }
    // Replaces the field that has the focus and goes to the next.
    void Fill(Session& session, const std::string& text) {
        session.Type(text);
        session.Press("Tab");
    }
    std::vector<std::string> Box(const Session& session) {
        return BoxRows(session, kLeft, kTop, kWidth, kHeight);
    }
    bool IsOpen(const Session& session) { return Shows(session, "Change date of"); }
    struct stat Own(const std::string& name) {
        struct stat data = {};
        if (lstat(tree.PathOf(name).c_str(), &data) != 0) ADD_FAILURE() << name;
        return data;
    }
    time_t TimeOf(const std::string& name) { return Own(name).st_mtim.tv_sec; }
    static bool IsRoot() { return geteuid() == 0; }

    FileTree tree;
    FileTree home;
};

TEST_F(ChangeDate, ShowsTheFilesTimeInTwelveHours) {
    tree.File("readme").Time("readme", UtcTime(2021, 3, 4, 15, 6, 7));
    Session session(Here());
    session.Press("Down");
    Open(session);
    EXPECT_THAT(
        Box(session),
        ElementsAre("╔═══════════════════════════════╗", "║        Change date of         ║",
                    "║            readme             ║", "║                               ║",
                    "║      Mon   Day   Year         ║", "║      3     4     2021         ║",
                    "║                               ║", "║   Hour  Min   Sec   ( )  AM   ║",
                    "║   3     6     7     (•)  PM   ║", "║                               ║",
                    "║  [ OK ]  [ Cancel ]  [ Now ]  ║", "╚═══════════════════════════════╝"));
}

TEST_F(ChangeDate, ShowsTheFilesTimeInTwentyFourHours) {
    tree.File("readme").Time("readme", UtcTime(1999, 12, 31, 23, 59, 0));
    Session session(Here("TimeMode=24\n"));
    session.Press("Down");
    Open(session);
    EXPECT_THAT(
        Box(session),
        ElementsAre("╔═══════════════════════════════╗", "║        Change date of         ║",
                    "║            readme             ║", "║                               ║",
                    "║      Mon   Day   Year         ║", "║      12    31    1999         ║",
                    "║                               ║", "║      Hour  Min   Sec          ║",
                    "║      23    59    0            ║", "║                               ║",
                    "║  [ OK ]  [ Cancel ]  [ Now ]  ║", "╚═══════════════════════════════╝"));
}

TEST_F(ChangeDate, AsksInTheOrderOfTheLocale) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    const struct {
        const char* locale;
        const char* labels;
        const char* values;
    } rows[] = {
        {"en_US.UTF-8", "Mon   Day   Year", "3     4     2021"},
        {"de_DE.UTF-8", "Day   Mon   Year", "4     3     2021"},
        {"hu_HU.UTF-8", "Year  Mon   Day ", "2021  3     4   "},
    };
    for (const auto& row : rows) {
        SessionOptions options = Here();
        options.environment["LANG"] = row.locale;
        Session session(options);
        session.Press("Down");
        Open(session);
        EXPECT_EQ(row.labels, session.Piece(kLeft + 7, kTop + 4, 16)) << row.locale;
        EXPECT_EQ(row.values, session.Piece(kLeft + 7, kTop + 5, 16)) << row.locale;
    }
}

TEST_F(ChangeDate, SetsWhatWasTyped) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    Session session(Here("TimeMode=24\n"));
    session.Press("Down");
    Open(session);
    for (const char* text : {"11", "22", "2033", "04", "5", "59"})
        Fill(session, text);
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(UtcTime(2033, 11, 22, 4, 5, 59), TimeOf("f"));
    EXPECT_EQ(0, Own("f").st_mtim.tv_nsec);
    EXPECT_EQ("11/22/33", PanelView(session, 0).FieldsOf("f").at(2));
    EXPECT_EQ("f", PanelView(session, 0).BarName());
}

TEST_F(ChangeDate, IsInTheMenuOfFiles) {
    tree.File("f");
    Session session(Here());
    session.Press({"Down", "F9"});
    session.Type("ft");
    EXPECT_TRUE(IsOpen(session)) << session.Text();
}

TEST_F(ChangeDate, FailsWithTheSystemsError) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    FaultControl faults(tree.Path());
    SessionOptions options = Here();
    options.environment = faults.Environment();
    Session session(options);
    ASSERT_TRUE(faults.IsLoaded());
    FaultOrder order;
    order.fault = faults::Fault::kError;
    order.error = EROFS;
    order.first = 1;
    order.calls = faults::BitOf(faults::Call::kTime);
    faults.Arm(order);
    session.Press("Down");
    Open(session);
    Fill(session, "7");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "Disk write protected, cannot write")) << session.Text();
    EXPECT_EQ(UtcTime(2021, 3, 4), TimeOf("f"));
    session.Press("Enter");  // tries again
    EXPECT_EQ(UtcTime(2021, 7, 4), TimeOf("f"));
}

TEST_F(ChangeDate, LeavesWhatWasNotTouched) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4, 0, 6, 7));
    Session session(Here());
    session.Press("Down");
    Open(session);
    session.Press("Enter");
    EXPECT_EQ(UtcTime(2021, 3, 4, 0, 6, 7), TimeOf("f"));
}

TEST_F(ChangeDate, CountsForenoonAndAfternoon) {
    const struct {
        const char* hour;
        const char* half;  // a key that chooses it
        int full;
    } rows[] = {
        {"12", "Up", 0}, {"1", "Up", 1}, {"12", "Down", 12}, {"1", "Down", 13}, {"11", "Down", 23}};
    for (const auto& row : rows) {
        tree.File("f").Time("f", UtcTime(2021, 3, 4, std::string(row.half) == "Up" ? 15 : 3));
        Session session(Here());
        session.Press("Down");
        Open(session);
        session.Press({"Tab", "Tab", "Tab"});
        Fill(session, row.hour);
        session.Press({"Tab", "Tab", row.half, "Enter"});
        EXPECT_EQ(UtcTime(2021, 3, 4, row.full), TimeOf("f")) << row.hour << row.half;
    }
}

TEST_F(ChangeDate, RefusesWhatIsNoDate) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    const std::vector<std::vector<const char*>> rows = {{"2", "29", "2023"},
                                                        {"13", "1", "2023"},
                                                        {"0", "1", "2023"},
                                                        {"4", "31", "2023"},
                                                        {"1", "1", "1979"},
                                                        {"1", "1", "2100"},
                                                        {"1", "1", "80"},
                                                        {"1", "1", "2023", "24"},
                                                        {"1", "1", "2023", "0", "60"},
                                                        {"1", "0", "2023"},
                                                        {"1", "1", "2023", "0", "0", "60"}};
    Session session(Here("TimeMode=24\n"));
    session.Press("Down");
    for (const auto& row : rows) {
        Open(session);
        for (const char* text : row)
            Fill(session, text);
        session.Press("Enter");
        EXPECT_TRUE(Shows(session, "Invalid date")) << session.Text();
        session.Press("Enter");
        EXPECT_TRUE(IsOpen(session));
        EXPECT_FALSE(Shows(session, "Invalid date"));
        session.Press("Esc");
        EXPECT_FALSE(IsOpen(session));
    }
    EXPECT_EQ(UtcTime(2021, 3, 4), TimeOf("f"));
}

TEST_F(ChangeDate, TakesADateAfterAllWhenItIsMended) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    Session session(Here());
    session.Press("Down");
    Open(session);
    Fill(session, "2");
    Fill(session, "30");
    session.Press({"Enter", "Esc", "Shift-Tab"});
    session.Press({"End", "Backspace", "Backspace"});
    session.Type("28");
    session.Press("Enter");
    EXPECT_FALSE(IsOpen(session));
    EXPECT_EQ(UtcTime(2021, 2, 28), TimeOf("f"));
}

TEST_F(ChangeDate, TakesTheLastOfFebruaryInALeapYear) {
    tree.File("f");
    Session session(Here("TimeMode=24\n"));
    session.Press("Down");
    Open(session);
    for (const char* text : {"2", "29", "2024", "0", "0", "0"})
        Fill(session, text);
    session.Press("Enter");
    EXPECT_EQ(UtcTime(2024, 2, 29), TimeOf("f"));
}

TEST_F(ChangeDate, NowFillsInThePresent) {
    tree.File("f").Time("f", UtcTime(1990, 1, 1));
    Session session(Here());
    session.Press("Down");
    Open(session);
    session.Press({"Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "Right", "Right"});
    const time_t before = time(nullptr);
    session.Press("Enter");
    ASSERT_TRUE(IsOpen(session)) << session.Text();
    const time_t after = time(nullptr);
    session.Press({"Left", "Left", "Enter"});
    EXPECT_FALSE(IsOpen(session)) << session.Text();
    EXPECT_THAT(TimeOf("f"), AllOf(Ge(before), Le(after)));
}

TEST_F(ChangeDate, OfAGroupStartsWithThePresentAndSetsAll) {
    tree.File("a").File("b").File("c").Folder("d");
    for (const char* name : {"a", "b", "c", "d"})
        tree.Time(name, UtcTime(1990, 1, 1));
    Session session(Here("TimeMode=24\n"));
    session.Press({"Down", "Ins", "Ins", "Ins"});
    const time_t before = time(nullptr);
    Open(session);
    const time_t after = time(nullptr);
    EXPECT_EQ("║            3 files            ║", Box(session)[2]);
    session.Press("Enter");
    for (const char* name : {"d", "a", "b"})
        EXPECT_THAT(TimeOf(name), AllOf(Ge(before), Le(after))) << name;
    EXPECT_EQ(TimeOf("a"), TimeOf("b"));
    EXPECT_EQ(UtcTime(1990, 1, 1), TimeOf("c"));
    EXPECT_THAT(PanelView(session, 0).Status(), HasSubstr("3 selected files"));
}

TEST_F(ChangeDate, AbbreviatesALongName) {
    tree.File(std::string(60, 'n'));
    Session session(Here());
    session.Press("Down");
    Open(session);
    EXPECT_EQ("║  " + std::string(25, 'n') + "\u25BA   ║", Box(session)[2]);
}

TEST_F(ChangeDate, OfOneTaggedFileCountsIt) {
    tree.File("a");
    Session session(Here());
    session.Press({"Down", "Ins"});
    Open(session);
    EXPECT_EQ("║            1 file             ║", Box(session)[2]);
}

TEST_F(ChangeDate, IsLocalTime) {
    tree.File("f").Time("f", UtcTime(2024, 7, 1, 10));
    SessionOptions options = Here("TimeMode=24\n");
    options.environment["TZ"] = "CET-1CEST,M3.5.0,M10.5.0/3";
    Session session(options);
    session.Press("Down");
    Open(session);
    EXPECT_EQ("12", session.Piece(kLeft + 7, kTop + 8, 2));
    Fill(session, "1");
    session.Press("Enter");
    EXPECT_EQ(UtcTime(2024, 1, 1, 11), TimeOf("f"));
}

TEST_F(ChangeDate, OfALinkIsItsOwn) {
    tree.File("target").Time("target", UtcTime(2000, 1, 1)).Link("link", "target");
    tree.Time("link", UtcTime(2001, 1, 1));
    Session session(Here());
    session.Press("Down");
    Open(session);
    Fill(session, "2");
    session.Press("Enter");
    EXPECT_EQ(UtcTime(2001, 2, 1), TimeOf("link"));
    EXPECT_EQ(UtcTime(2000, 1, 1), TimeOf("target"));
}

TEST_F(ChangeDate, EscChangesNothing) {
    tree.File("f").Time("f", UtcTime(2021, 3, 4));
    Session session(Here());
    session.Press("Down");
    const std::string before = session.Text();
    Open(session);
    Fill(session, "5");
    session.Press("Esc");
    EXPECT_EQ(before, session.Text());
    EXPECT_EQ(UtcTime(2021, 3, 4), TimeOf("f"));
}

TEST_F(ChangeDate, OfAFileThatIsGoneIsToldOf) {
    tree.File("a").File("b").Time("b", UtcTime(1990, 1, 1));
    Session session(Here());
    session.Press({"Down", "Ins", "Ins"});
    Open(session);
    tree.Remove("a");
    session.Press("Enter");
    EXPECT_TRUE(Shows(session, "File not found")) << session.Text();
    EXPECT_TRUE(Shows(session, tree.PathOf("a")));
    session.Press("Enter");
    EXPECT_GT(TimeOf("b"), UtcTime(2020, 1, 1));
    EXPECT_THAT(PanelView(session, 0).Names(), ElementsAre("..", "b"));
}

class RefusedDate : public ChangeDate {
protected:
    void SetUp() override {
        if (!IsRoot()) GTEST_SKIP() << "another owner's files are needed";
        for (const char* name : {"a", "b", "c"})
            tree.File(name).Time(name, UtcTime(1990, 1, 1));
        GiveAway("b");
    }
    void GiveAway(const char* name) {
        ASSERT_EQ(0, chown(tree.PathOf(name).c_str(), OrdinaryUser(), OrdinaryUser()));
    }
    SessionOptions AsOrdinaryUser() {
        SessionOptions options = Here();
        home.GiveTo(OrdinaryUser());
        options.user = OrdinaryUser();
        return options;
    }
    void Begin(Session& session) {
        session.Press({"Down", "Ins", "Ins", "Ins"});
        Open(session);
        session.Press("Enter");
        ASSERT_TRUE(Shows(session, "Operation not permitted (1)")) << session.Text();
        ASSERT_TRUE(Shows(session, tree.PathOf("a")));
    }
    bool IsSet(const char* name) { return TimeOf(name) != UtcTime(1990, 1, 1); }
};

TEST_F(RefusedDate, SkippedLetsTheOthersBeSet) {
    Session session(AsOrdinaryUser());
    Begin(session);
    session.Type("s");
    EXPECT_TRUE(Shows(session, tree.PathOf("c"))) << session.Text();
    session.Type("s");
    EXPECT_FALSE(Shows(session, "not permitted"));
    EXPECT_FALSE(IsSet("a"));
    EXPECT_TRUE(IsSet("b"));
    EXPECT_FALSE(IsSet("c"));
}

TEST_F(RefusedDate, CancelledEndsTheWalk) {
    Session session(AsOrdinaryUser());
    Begin(session);
    session.Press("Esc");
    EXPECT_FALSE(Shows(session, "not permitted"));
    EXPECT_FALSE(IsSet("b"));
}

TEST_F(RefusedDate, IsTriedAgain) {
    Session session(AsOrdinaryUser());
    Begin(session);
    GiveAway("a");
    session.Type("r");
    EXPECT_TRUE(Shows(session, tree.PathOf("c"))) << session.Text();
    EXPECT_TRUE(IsSet("a"));
    EXPECT_TRUE(IsSet("b"));
}

TEST_F(ChangeDate, TakesNamesOfAnyBytes) {
    for (const std::string& name : OddNames())
        tree.File(name);
    Session session(Here("TimeMode=24\n"));
    session.Press("Down");
    session.Press("Ins", static_cast<int>(OddNames().size()));
    Open(session);
    for (const char* text : {"5", "6", "2007", "8", "9", "10"})
        Fill(session, text);
    session.Press("Enter");
    for (const std::string& name : OddNames())
        EXPECT_EQ(UtcTime(2007, 5, 6, 8, 9, 10), TimeOf(name)) << name;
}

}  // namespace
}  // namespace zt::headless
