// Reading a panel off the screen.
#include "tests/support/panel_view.h"

namespace zt::headless {

namespace {

constexpr std::string_view kLine = "\u2502";        // between fields
constexpr std::string_view kHiddenMark = "\u2591";  // behind the name of a hidden file

std::string Trimmed(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

bool IsBar(uint8_t attribute) {
    return attribute == kHighlight || attribute == kHighlightTagged || attribute == kDirectoryHigh;
}

}  // namespace

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    size_t start = 0;
    for (size_t end; (end = line.find(kLine, start)) != std::string::npos;) {
        fields.push_back(Trimmed(line.substr(start, end - start)));
        start = end + kLine.size();
    }
    fields.push_back(Trimmed(line.substr(start)));
    return fields;
}

PanelView::PanelView(const Session& shown, int side, bool fullWidth)
    : session(shown),
      left(fullWidth || side == 0 ? 0 : shown.Columns() / 2),
      width(fullWidth ? shown.Columns() : shown.Columns() / 2),
      height(shown.Rows() - 6) {}

bool PanelView::IsShown() const {
    return session.CharacterAt(left, 0) == U'\u2554' &&
           session.CharacterAt(left + width - 1, height + 3) == U'\u255D';
}

std::string PanelView::Title() const {
    std::string text;
    for (int i = 1; i + 1 < width; i++) {
        const char32_t character = session.CharacterAt(left + i, 0);
        const bool frame = character == U'\u2550' || character == U'\u2564';
        if (!frame) text += session.Piece(left + i, 0, 1);
    }
    return Trimmed(text);
}

bool PanelView::IsActive() const {
    for (int i = 1; i + 1 < width; i++) {
        if (IsBar(session.AttributeAt(left + i, 0))) return true;
    }
    return false;
}

std::string PanelView::Line(int row) const {
    return session.Piece(left + 1, row + 1, width - 2);
}

std::string PanelView::Status() const {
    return Trimmed(session.Piece(left + 1, height + 2, width - 2));
}

std::string PanelView::NameAt(int row) const {
    std::string name = Fields(Line(row))[0];
    if (name.ends_with(kHiddenMark)) name.resize(name.size() - kHiddenMark.size());
    return Trimmed(name);
}

std::vector<std::string> PanelView::Names() const {
    std::vector<std::string> names;
    for (int row = 0; row < height; row++) {
        std::string name = NameAt(row);
        if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
}

std::vector<std::string> PanelView::FieldsOf(const std::string& name) const {
    for (int row = 0; row < height; row++) {
        if (NameAt(row) == name) return Fields(Line(row));
    }
    return {};
}

int PanelView::BarRow() const {
    for (int row = 0; row < height; row++) {
        if (IsBar(session.AttributeAt(left + 1, row + 1))) return row;
    }
    return -1;
}

std::string PanelView::BarName() const {
    const int row = BarRow();
    return row < 0 ? "" : NameAt(row);
}

uint8_t PanelView::AttributeOf(const std::string& name) const {
    for (int row = 0; row < height; row++) {
        if (NameAt(row) == name) return session.AttributeAt(left + 1, row + 1);
    }
    return 0;
}

}  // namespace zt::headless
