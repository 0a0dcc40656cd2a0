// Where keys and teletype text go while a program runs in the console: the embedded terminal.
#pragma once

#include <cstdint>

namespace zt {

class ITerminalSink {
public:
    virtual ~ITerminalSink() = default;
    // A key of the key table, on the thread that takes the input. Must not block.
    virtual void TakeKey(int32_t code, int32_t modifiers, int32_t unicode) = 0;
    // A character from the input method, on the same thread. Must not block.
    virtual void TakeCharacter(int32_t character) = 0;
    // Text for the screen, on the first thread.
    virtual void TakeText(const char* utf8) = 0;
};

// Takes the lines that leave the screen at the top during teletype output. First thread.
class IScrollBackSink {
public:
    virtual ~IScrollBackSink() = default;
    virtual void LineLeft(const struct Cell* cells, int count) = 0;
};

}  // namespace zt
