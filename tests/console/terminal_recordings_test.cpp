// Output of real programs, recorded, leaves the recorded screen. The small recordings beside the
// tests are always played; those of the corpus where ZT_CORPUS names its folder.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// A row of coloured text as the recorder wrote it, read without any code of the terminal.
class ColouredRow {
public:
    struct Seen {
        std::string character;
        int attribute;
    };
    // The colours last until they are set again, over the ends of rows.
    static std::vector<Seen> Read(const std::string& line, ColouredRow& state) {
        std::vector<Seen> cells;
        for (size_t at = 0; at < line.size();) {
            if (line.compare(at, 2, "\x1b[") == 0) {
                const size_t end = line.find('m', at);
                state.Set(line.substr(at + 2, end - at - 2));
                at = end + 1;
            } else if (line[at] == '\x0e' || line[at] == '\x0f') {
                at++;
            } else {
                size_t n = 1;
                while (at + n < line.size() && (line[at + n] & 0xC0) == 0x80)
                    n++;
                cells.push_back({line.substr(at, n), state.Attribute()});
                at += n;
            }
        }
        return cells;
    }

private:
    int Attribute() const {
        const int low = reverse ? background : foreground;
        const int high = reverse ? foreground : background;
        return high << 4 | low | (bold ? 8 : 0) | (underline ? 0x80 : 0);
    }
    void Set(const std::string& parameters) {
        std::istringstream stream(parameters.empty() ? "0" : parameters);
        for (std::string one; std::getline(stream, one, ';');)
            SetOne(std::atoi(one.c_str()));
    }
    void SetOne(int p) {
        static const int kColours[8] = {0, 4, 2, 6, 1, 5, 3, 7};
        if (p == 0) *this = ColouredRow();
        if (p == 1) bold = true;
        if (p == 4 || p == 24) underline = p == 4;
        if (p == 7 || p == 27) reverse = p == 7;
        if (p == 39) foreground = 7;
        if (p == 49) background = 0;
        if (p >= 30 && p <= 37) foreground = kColours[p - 30];
        if (p >= 40 && p <= 47) background = kColours[p - 40];
        if (p >= 90 && p <= 97) foreground = kColours[p - 90] + 8;
        if (p >= 100 && p <= 107) background = kColours[p - 100] + 8;
    }
    int foreground = 7;
    int background = 0;
    bool bold = false;
    bool underline = false;
    bool reverse = false;
};

struct Recording {
    fs::path raw;

    std::string Name() const { return raw.stem().string(); }
    std::string With(const char* extension) const {
        fs::path path = raw;
        return Content(path.replace_extension(extension));
    }
};

std::vector<Recording> RecordingsIn(const fs::path& folder) {
    std::vector<Recording> all;
    for (const auto& file : fs::directory_iterator(folder))
        if (file.path().extension() == ".raw") all.push_back({file.path()});
    return all;
}

// What a recording leaves that differs from what was recorded: "row N", "colours N", "cursor".
std::set<std::string> Differences(const Recording& recording) {
    int columns = 0, rows = 0;
    std::istringstream(recording.With(".size")) >> columns >> rows;
    TerminalConsole terminal(columns, rows);
    terminal.Write(recording.With(".raw"));
    std::vector<std::string> expected = Lines(recording.With(".screen"));
    std::vector<std::string> coloured = Lines(recording.With(".sgr"));
    expected.resize(static_cast<size_t>(rows));
    coloured.resize(static_cast<size_t>(rows));
    std::set<std::string> differences;
    ColouredRow state;
    for (int row = 0; row < rows; row++) {
        const auto index = static_cast<size_t>(row);
        const std::string number = std::to_string(row);
        const bool isSame =
            WithoutBlanks(expected[index]) == WithoutBlanks(terminal.console.RowText(row));
        if (!isSame) differences.insert("row " + number);
        int column = 0;
        for (const ColouredRow::Seen& cell : ColouredRow::Read(coloured[index], state)) {
            // Of a blank only the background is seen.
            const int mask = cell.character == " " ? 0xF0 : 0xFF;
            const int attribute = terminal.console.AttributeAt(column++, row);
            if (isSame && ((attribute ^ cell.attribute) & mask) != 0)
                differences.insert("colours " + number);
        }
    }
    int column = 0, row = 0;
    std::istringstream(recording.With(".cursor")) >> column >> row;
    if (terminal.Cursor() != std::to_string(column) + "," + std::to_string(row))
        differences.insert("cursor");
    return differences;
}

std::set<std::string> Rows(int first, int last) {
    std::set<std::string> rows;
    for (int row = first; row <= last; row++)
        rows.insert("row " + std::to_string(row));
    return rows;
}

std::set<std::string> With(std::set<std::string> rows, const std::string& more) {
    rows.insert(more);
    return rows;
}

// Where this terminal does by its own rules what others do otherwise, exactly so far.
const std::map<std::string, std::set<std::string>>& KnownDifferences() {
    static const std::map<std::string, std::set<std::string>> all = {
        // VT and FF are dropped, the code 127 is shown as the console shows it.
        {"control-bytes", With(Rows(0, 3), "cursor")},
        // A tab beyond the last stop goes to the next line.
        {"tabs-over", With(Rows(0, 5), "cursor")},
        // Lines are inserted and deleted above and below the region; the column stays.
        {"ildl-outside", With(Rows(15, 24), "cursor")},
        // ESC M scrolls the region wherever the cursor is.
        {"ri-middle", With(Rows(0, 24), "cursor")},
        // A repetition wraps, as the characters themselves would.
        {"rep-over", With(Rows(1, 3), "cursor")},
        // Erasing from the start does not reach the cursor's own cell.
        {"el1-cursor", {"row 2", "row 4"}},
        // Setting the region leaves the cursor where it is.
        {"csr-home", {"row 0", "row 8", "row 9"}},
        // S without a number does nothing, and so do counts of 0 for some.
        {"zero-counts", Rows(0, 24)},
        // The saved cursor is a place, without colours.
        {"save-restore", {"colours 5"}},
        // Each code point has one cell.
        {"cjk", With(Rows(0, 3), "row 5")},
    };
    return all;
}

void PlayAll(const fs::path& folder, size_t atLeast) {
    const std::vector<Recording> recordings = RecordingsIn(folder);
    EXPECT_GE(recordings.size(), atLeast) << folder;
    for (const Recording& recording : recordings) {
        const auto known = KnownDifferences().find(recording.Name());
        const std::set<std::string> expected =
            known == KnownDifferences().end() ? std::set<std::string>() : known->second;
        EXPECT_EQ(Differences(recording), expected) << recording.Name();
    }
}

TEST(TerminalRecordings, LeaveTheRecordedScreens) {
    PlayAll(fs::path(__FILE__).parent_path() / "../data/terminal", 3);
}

TEST(TerminalRecordings, OfTheCorpusLeaveTheRecordedScreens) {
    const char* corpus = getenv("ZT_CORPUS");
    if (corpus == nullptr) GTEST_SKIP() << "ZT_CORPUS is not set";
    PlayAll(fs::path(corpus) / "terminal", 50);
    PlayAll(fs::path(corpus) / "terminal" / "wide", 2);
}

// However the bytes are cut, what they leave is the same.
TEST(TerminalRecordings, MayBeCutAnywhere) {
    for (const Recording& recording :
         RecordingsIn(fs::path(__FILE__).parent_path() / "../data/terminal")) {
        const std::string raw = recording.With(".raw");
        TerminalConsole whole(40, 10);
        whole.Write(raw);
        for (size_t cut = 0; cut <= raw.size(); cut++) {
            TerminalConsole parts(40, 10);
            parts.Write(raw.substr(0, cut));
            parts.Write(raw.substr(cut));
            ASSERT_EQ(parts.Picture(), whole.Picture()) << recording.Name() << " at " << cut;
        }
        TerminalConsole bytes(40, 10);
        for (const char byte : raw)
            bytes.Write(std::string(1, byte));
        EXPECT_EQ(bytes.Picture(), whole.Picture()) << recording.Name();
    }
}

}  // namespace
}  // namespace zt
