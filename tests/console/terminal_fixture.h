// What the tests of the embedded terminal stand on: a console without a screen, with a terminal
// open on the end of a pipe, and short ways to give output and to look at what comes of it.
#pragma once

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "console/terminal/terminal.h"
#include "foundation/colour_classes.h"
#include "foundation/settings.h"
#include "tests/console/fake_console.h"

namespace zt {

inline std::string WithoutBlanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

struct LeavingLines : IScrollBackSink {
    void LineLeft(const Cell* cells, int count) override {
        std::string line;
        for (int i = 0; i < count; i++)
            line += static_cast<char>(cells[i].character);
        lines.push_back(WithoutBlanks(line));
        width = count;
    }
    std::vector<std::string> lines;
    int width = 0;
};

// A console on which a terminal is open.
class TerminalConsole {
public:
    explicit TerminalConsole(int columns = 20, int rows = 6) : console(columns, rows) {
        settings = Settings();
        ResetColours();
        EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
        console.SetScrollBackSink(&leaving);
        console.OpenTerminal(ends[1]);
    }
    ~TerminalConsole() {
        console.CloseTerminal();
        close(ends[0]);
        close(ends[1]);
    }

    void Write(const std::string& bytes) {
        console.Terminal()->Write(bytes.data(), static_cast<int>(bytes.size()));
    }
    // The rows without the blanks at their ends; those that are blank at the bottom are left out.
    std::vector<std::string> Rows() {
        int columns, rows;
        console.GetSize(columns, rows);
        std::vector<std::string> texts;
        for (int row = 0; row < rows; row++)
            texts.push_back(WithoutBlanks(console.RowText(row)));
        while (!texts.empty() && texts.back().empty())
            texts.pop_back();
        return texts;
    }
    // "column,row"
    std::string Cursor() {
        int column, row;
        console.GetCursor(column, row);
        return std::to_string(column) + "," + std::to_string(row);
    }
    // All that can be seen, as one text.
    std::string Picture() {
        int columns, rows;
        console.GetSize(columns, rows);
        std::string picture = Cursor() + " " + std::to_string(console.GetCursorSize()) + "\n";
        for (int row = 0; row < rows; row++) {
            picture += console.RowText(row) + "|";
            for (int column = 0; column < columns; column++)
                picture += std::to_string(console.AttributeAt(column, row)) + " ";
            picture += "\n";
        }
        for (const std::string& line : leaving.lines)
            picture += line + "\n";
        return picture;
    }
    // What has been written to the program so far, waiting for at least `count` bytes.
    std::string Sent(size_t count) {
        std::string bytes;
        for (int wait = 0; bytes.size() < count && wait < 5000; wait++) {
            char piece[4096];
            const ssize_t got = read(ends[0], piece, sizeof piece);
            if (got > 0) {
                bytes.append(piece, static_cast<size_t>(got));
            } else {
                usleep(1000);
            }
        }
        return bytes;
    }

    FakeConsole console;
    LeavingLines leaving;
    int ends[2] = {-1, -1};  // keys are written to the second
};

class TerminalTest : public testing::Test, public TerminalConsole {};

inline std::string Csi(const std::string& rest) {
    return "\x1b[" + rest;
}

}  // namespace zt
