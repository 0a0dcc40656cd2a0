// What the tests of windows, dialogs and menus stand on: a console that remembers the screen as it
// was at each read of an event, default settings, and short ways to give keys and clicks.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "foundation/settings.h"
#include "tests/console/fake_console.h"

namespace zt {

// UTF-8 rows with the blanks at their right ends cut off, and the attribute of each cell.
struct Screen {
    std::vector<std::string> rows;
    std::vector<std::vector<int>> attributes;

    bool Has(const std::string& text) const {
        for (const std::string& row : rows) {
            if (row.find(text) != std::string::npos) return true;
        }
        return false;
    }
    // The row that holds the text, or -1.
    int RowOf(const std::string& text) const {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].find(text) != std::string::npos) return static_cast<int>(i);
        }
        return -1;
    }
};

class ScreenConsole : public FakeConsole {
public:
    explicit ScreenConsole(int columnCount = 80, int rowCount = 25)
        : FakeConsole(columnCount, rowCount) {}

    bool ReadEvent(TEvent& event, int timeoutMilliseconds) override {
        screens.push_back(Look());
        return FakeConsole::ReadEvent(event, timeoutMilliseconds);
    }

    Screen Look() {
        Screen screen;
        int columnCount, rowCount;
        GetSize(columnCount, rowCount);
        for (int row = 0; row < rowCount; ++row) {
            std::string text = RowText(row);
            text.erase(text.find_last_not_of(' ') + 1);
            screen.rows.push_back(text);
            std::vector<int> line;
            for (int column = 0; column < columnCount; ++column) {
                line.push_back(AttributeAt(column, row));
            }
            screen.attributes.push_back(line);
        }
        return screen;
    }

    // One for each event asked for, in order: what the user saw when it was asked.
    std::vector<Screen> screens;
};

class UiTest : public testing::Test {
protected:
    UiTest() {
        settings = Settings();
        settings.scrollDelay = 0;
        ResetColours();
    }

    void Key(int code) { screen.PushKey(code); }
    void Alt(char letter) { screen.PushKey(AltKey(letter), kModifierAlt, letter); }
    void Type(const std::string& text) { screen.PushText(text); }
    void Press(int column, int row) { screen.PushMouse(EventKind::kButtonPress, 1, column, row); }
    void Release(int column, int row) {
        screen.PushMouse(EventKind::kButtonRelease, 1, column, row);
    }
    void Drag(int column, int row) { screen.PushMouse(EventKind::kMotion, 1, column, row); }
    void DoubleClick(int column, int row) {
        screen.PushMouse(EventKind::kDoubleClick, 1, column, row);
    }
    void Quit() { screen.PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0}); }
    void Click(int column, int row) {
        Press(column, row);
        Release(column, row);
    }
    void RightClick(int column, int row) {
        screen.PushMouse(EventKind::kButtonPress, 2, column, row);
        screen.PushMouse(EventKind::kButtonRelease, 2, column, row);
    }
    std::string Cells(int column, int row, int width) { return screen.Text(column, row, width); }
    int At(int column, int row) { return screen.AttributeAt(column, row); }

    ScreenConsole screen;
};

inline std::string Utf8(const Westring& text) {
    return text.ToUtf8().c_str();
}

}  // namespace zt
