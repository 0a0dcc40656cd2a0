// The file that keeps commands and the texts of input fields from run to run. Running copies of
// the program share it: whoever writes holds a lock, a line is added with one write, and all
// else replaces the file whole. First thread only.
//
// UTF-8 lines, each with CR LF behind it; bytes of names that are no UTF-8 stand as they are. A
// line with byte 0x19 at index 1 or 2 is the text of a field: its number, that byte, the text. Any
// other line is a command.
#pragma once

#include <functional>

#include "foundation/estring.h"
#include "foundation/string_lists.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr int kHistoryLineBytes = 4096;
inline constexpr int kStoredFields = 12;    // of the lists of field_history.h, from number 0
inline constexpr int kNoStoredField = 100;  // of a line that no number of two digits begins

// A line of the file, taken apart.
struct HistoryLine {
    int field = -1;  // -1: a command
    Westring text;
};
HistoryLine ParseHistoryLine(const Estring& line);
// Empty for what no single line of the file can hold: a text with a line end or a NUL in it, one
// that is too long, a field without a number of two digits, or a command that would be read back as
// the text of a field.
Estring FormatHistoryLine(const HistoryLine& line);

class HistoryFile {
public:
    explicit HistoryFile(const Westring& filePath) : path(filePath) {}

    // The lines in order, without their ends. 0 or an errno value; a longer line comes in pieces.
    [[nodiscard]] int Read(EstringStore& lines) const;
    // Adds the line behind the last. 0 or an errno value.
    [[nodiscard]] int Append(const Estring& line) const;
    // Gives all lines to `change` and stores what it makes of them. 0 or an errno value; after a
    // failure the file is as it was.
    [[nodiscard]] int Change(const std::function<void(EstringStore& lines)>& change) const;

private:
    const Westring path;
};

}  // namespace zt
