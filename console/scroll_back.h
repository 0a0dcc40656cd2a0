// The lines that have left the screen at the top while programs wrote on it, with their colours.
// Lives for the whole run of the program, which owns one of it; first thread only.
//
// A line costs its text in UTF-8, two bytes for each stretch of one attribute (three for a long
// one), and four bytes more (five on a wide screen); the blanks at its right end cost nothing. A
// line of 40 letters in one colour takes 46 bytes. There is no limit to the number of lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "console/cell_string.h"
#include "console/terminal_sink.h"

namespace zt {

class IConsole;

class CScrollBackBuffer : public IScrollBackSink {
public:
    CScrollBackBuffer();
    ~CScrollBackBuffer() override;
    CScrollBackBuffer(const CScrollBackBuffer&) = delete;
    CScrollBackBuffer& operator=(const CScrollBackBuffer&) = delete;

    // Appends the line when the setting ConsoleScrollback is on. A line of more cells than a grid
    // has columns is cut.
    void LineLeft(const Cell* cells, int count) override;

    // Appends the row of the console in its full width, whatever the setting.
    void AddScreenLine(IConsole& console, int row);
    void Append(const Cell* cells, int count);
    // The newest line goes; there must be one.
    void RemoveLast();

    // Index 0 is the oldest line.
    int64_t Count() const { return count_; }
    // All cells of the line, the blanks at its end too.
    void ReadLine(int64_t index, CellString& line) const;
    // All that the lines take, what is set aside for the next ones included.
    size_t MemoryBytes() const;

private:
    struct Block;

    Block& BlockWithRoom(size_t bytes);

    std::unique_ptr<uint8_t[]> encoded_;  // the line that is being appended
    std::vector<std::unique_ptr<Block>> blocks_;
    int64_t count_ = 0;
};

}  // namespace zt
