// Where the dialogs of the options stand, and their parts in them.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

using testing::HasSubstr;

struct Frame {
    int left, top, right, bottom;
};

void HasFrame(const Session& session, const Frame& frame) {
    EXPECT_EQ(U'\u2554', session.CharacterAt(frame.left, frame.top)) << session.Text();
    EXPECT_EQ(U'\u2557', session.CharacterAt(frame.right, frame.top));
    EXPECT_EQ(U'\u255A', session.CharacterAt(frame.left, frame.bottom));
    EXPECT_EQ(U'\u255D', session.CharacterAt(frame.right, frame.bottom));
}

void Choose(Session& session, const char* entry) {
    session.Press("F9");
    session.Type("o");
    session.Type(entry);
}

SessionOptions OfSize(int columns, int rows) {
    SessionOptions options;
    options.columns = columns;
    options.rows = rows;
    return options;
}

TEST(DialogPlaces, OfTheConfiguration) {
    for (const auto& [columns, rows] : {std::pair{80, 25}, {132, 50}}) {
        Session session(OfSize(columns, rows));
        Choose(session, "c");
        const int left = (columns - 76) / 2;
        const int top = (rows - 19) / 3;
        HasFrame(session, {left, top, left + 75, top + 18});
        EXPECT_EQ(" Configuration ", session.Piece(left + 30, top, 15));
        const auto client = [&](int x, int y, int width) {
            return session.Piece(left + 1 + x, top + 1 + y, width);
        };
        const struct {
            const char* text;
            int x, y;
        } parts[] = {
            {"[ ]", 51, 1},
            {"[X]", 51, 2},
            {"[ ]", 51, 3},
            {"[ ]", 51, 4},
            {"[ ]", 51, 5},
            {"Auto Save", 56, 1},
            {"Use X clipboard", 56, 2},
            {"ESC Panel Switch", 56, 3},
            {"Size Count Pause", 56, 4},
            {"Natural Sort", 56, 5},
            {"10 ", 65, 9},
            {"12 HR", 65, 11},
            {"( ) 24 HR", 61, 12},
            {"pager ", 28, 2},
        };
        for (const auto& part : parts) {
            EXPECT_EQ(part.text, client(part.x, part.y, static_cast<int>(strlen(part.text))))
                << part.x << " " << part.y;
        }
        EXPECT_THAT(client(0, 16, 74), HasSubstr("Cancel"));
        EXPECT_EQ(std::string::npos, client(0, 17, 74).find("F4"));
        session.Press("Alt-p");
        EXPECT_EQ(" F4=Edit ", client(65, 17, 9));
        session.Press("Alt-v");
        std::string frame;
        for (int i = 0; i < 9; i++)
            frame += "\u2550";
        EXPECT_EQ(frame, client(65, 17, 9));
        session.Press("F4");  // means nothing elsewhere
        EXPECT_THAT(session.Text(), HasSubstr(" Configuration "));
        session.Press("F1");
        EXPECT_THAT(session.Text(), HasSubstr(" Configuration "));
        session.Press("Esc");
        EXPECT_TRUE(session.AtPrompt());
    }
}

TEST(DialogPlaces, OfThePathEditor) {
    const struct { int rows, height; } screens[] = {{25, 20}, {26, 20}, {50, 20}, {20, 15}};
    for (const auto& screen : screens) {
        Session session(OfSize(80, screen.rows));
        Choose(session, "c");
        session.Press({"Alt-p", "F4"});
        const int top = (screen.rows - screen.height) / 4;
        HasFrame(session, {10, top, 69, top + screen.height - 1});
        EXPECT_THAT(session.Row(top), HasSubstr(" Path Append "));
        EXPECT_THAT(session.Row(top + screen.height - 1),
                    HasSubstr(" Insert Delete F4=Edit Alt-A=Append Alt-\u2191\u2193 "));
        session.Press({"Esc", "Esc"});
        EXPECT_TRUE(session.AtPrompt());
    }
}

TEST(DialogPlaces, OfTheConfirmations) {
    Session session(OfSize(80, 25));
    Choose(session, "n");
    HasFrame(session, {18, 3, 61, 16});
    int found = 0;
    for (const char* question :
         {"Delete File/Empty Directory", "Delete Tagged Files", "Delete Non-empty Directory",
          "Quit Zanthe", "\"YES\" prompt for Non-Empty Directory"}) {
        for (int row = 4; row < 16; row++)
            found += session.Row(row).find(std::string("[X]  ") + question) != std::string::npos;
    }
    EXPECT_EQ(5, found) << session.Text();
    session.Press("F1");
    EXPECT_THAT(session.Text(), HasSubstr(" Confirmations "));
    session.Press("Esc");
    EXPECT_TRUE(session.AtPrompt());
}

}  // namespace
}  // namespace zt::headless
