// What follows the locale on the screen: the order and the separator of dates, and the thousands
// separator. The expectations are those of the C library's tables, not of the program's.
#include "tests/support/panel_view.h"

#include <clocale>

namespace zt::headless {
namespace {

using testing::ElementsAre;

struct LocaleRow {
    const char* label;
    const char* name;
    const char* date;        // of 3 April 2021
    const char* otherDate;   // of 31 December 1999
    const char* size;        // 1234567 bytes with separators
    const char* tagged;      // the status row with that file tagged
    const char* bothTagged;  // and with a second one of 7654321 bytes
};

constexpr LocaleRow kLocales[] = {
    {"C", "C.UTF-8", "04/03/21", "12/31/99", "1,234,567", "1,234,567 bytes in 1 selected file",
     "8,888,888 bytes in 2 selected files"},
    {"English", "en_US.UTF-8", "04/03/21", "12/31/99", "1,234,567",
     "1,234,567 bytes in 1 selected file", "8,888,888 bytes in 2 selected files"},
    {"German", "de_DE.UTF-8", "03.04.21", "31.12.99", "1.234.567",
     "1.234.567 bytes in 1 selected file", "8.888.888 bytes in 2 selected files"},
};

class LocaleOnTheScreen : public testing::TestWithParam<LocaleRow> {
protected:
    LocaleOnTheScreen() {
        tree.FileOfSize("file", 1234567).Time("file", UtcTime(2021, 4, 3, 15, 6));
        tree.FileOfSize("other", 7654321).Time("other", UtcTime(1999, 12, 31, 0, 59));
    }

    void SetUp() override {
        const locale_t locale = newlocale(LC_ALL_MASK, GetParam().name, nullptr);
        ASSERT_NE(locale_t(), locale) << GetParam().name << " is not installed (locales-all)";
        freelocale(locale);
    }

    SessionOptions Here(int columns = 80, int rows = 25) {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.columns = columns;
        options.rows = rows;
        options.environment["LANG"] = GetParam().name;
        return options;
    }

    FileTree tree;
    FileTree home;
};

TEST_P(LocaleOnTheScreen, OrdersAndSeparatesTheDate) {
    for (const auto& [columns, rows] : {std::pair{80, 25}, {132, 50}}) {
        Session session(Here(columns, rows));
        const PanelView panel(session, 0);
        EXPECT_EQ(GetParam().date, panel.FieldsOf("file").at(2)) << session.Text();
        EXPECT_EQ(GetParam().otherDate, panel.FieldsOf("other").at(2)) << session.Text();
    }
    // In the styles without a date the status row has it, under the bar's entry.
    Session session(Here());
    session.Press({"Alt-Shift-F1", "End"});
    EXPECT_THAT(Fields(PanelView(session, 0).Status()), testing::Contains(GetParam().otherDate))
        << session.Text();
}

TEST_P(LocaleOnTheScreen, SeparatesThousandsOfSizesOnlyWhereThatIsWanted) {
    home.File(".ztx/zt.ini", "ThousandSep=off\n");
    {
        Session session(Here());
        EXPECT_EQ("1234567", PanelView(session, 0).FieldsOf("file").at(1)) << session.Text();
    }
    home.File(".ztx/zt.ini", "ThousandSep=on\n");
    // The wider column has room for the whole number.
    Session session(Here(132, 50));
    EXPECT_EQ(GetParam().size, PanelView(session, 0).FieldsOf("file").at(1)) << session.Text();
}

TEST_P(LocaleOnTheScreen, SeparatesThousandsOfTheTaggedBytes) {
    for (const char* setting : {"ThousandSep=off\n", "ThousandSep=on\n"}) {
        home.File(".ztx/zt.ini", setting);
        Session session(Here());
        const PanelView panel(session, 0);
        session.Press({"Down", "Ins"});
        EXPECT_EQ(GetParam().tagged, panel.Status()) << setting << session.Text();
        session.Press("Ins");
        EXPECT_EQ(GetParam().bothTagged, panel.Status()) << setting << session.Text();
    }
}

// A dialog that is accepted looks the locale up again and must find the same.
TEST_P(LocaleOnTheScreen, StaysAfterTheConfigurationDialog) {
    Session session(Here());
    session.Press("F9");
    session.Type("o");
    session.Type("c");
    session.Press("Enter");
    EXPECT_EQ(GetParam().date, PanelView(session, 0).FieldsOf("file").at(2)) << session.Text();
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleOnTheScreen, testing::ValuesIn(kLocales),
                         [](const auto& row) { return row.param.label; });

// Dates and numbers have variables of their own, which win over LANG.
TEST(LocaleOfOneCategory, RulesItsOwnTextAlone) {
    const struct {
        const char* variable;
        const char* date;
        const char* tagged;
    } rows[] = {
        {"LC_TIME", "03.04.21", "1,234,567 bytes in 1 selected file"},
        {"LC_NUMERIC", "04/03/21", "1.234.567 bytes in 1 selected file"},
        {"LC_ALL", "03.04.21", "1.234.567 bytes in 1 selected file"},
    };
    FileTree tree;
    tree.FileOfSize("file", 1234567).Time("file", UtcTime(2021, 4, 3, 15, 6));
    for (const auto& row : rows) {
        SessionOptions options;
        options.directory = tree.Path();
        options.environment[row.variable] = "de_DE.UTF-8";
        Session session(options);
        const PanelView panel(session, 0);
        EXPECT_EQ(row.date, panel.FieldsOf("file").at(2)) << row.variable;
        session.Press({"Down", "Ins"});
        EXPECT_EQ(row.tagged, panel.Status()) << row.variable;
    }
}

TEST(LocaleThatIsMissing, LeavesTheFormatsOfC) {
    FileTree tree;
    tree.FileOfSize("file", 1234567).Time("file", UtcTime(2021, 4, 3, 15, 6));
    SessionOptions options;
    options.directory = tree.Path();
    options.environment["LANG"] = "xx_XX.UTF-8";
    Session session(options);
    const PanelView panel(session, 0);
    EXPECT_EQ("04/03/21", panel.FieldsOf("file").at(2)) << session.Text();
    session.Press({"Down", "Ins"});
    EXPECT_EQ("1,234,567 bytes in 1 selected file", panel.Status());
}

}  // namespace
}  // namespace zt::headless
