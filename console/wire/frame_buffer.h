// Frames as bytes: one row of encoders for everything that goes over the wire. A frame's parameters
// are added one by one; several frames may stand in one buffer. Belongs to one thread at a time.
#pragma once

#include <cstdint>
#include <vector>

#include "console/cell.h"
#include "console/wire/wire_format.h"
#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// The code that goes over the wire for a cell's character: 0 would end the text of a cell string
// and goes as a blank; the private codes of file names go as the character that they show as; what
// is no character goes as U+FFFD.
uint32_t WireCode(uint32_t code);
inline Cell WireCell(Cell cell) {
    return {WireCode(cell.character), cell.attribute};
}

constexpr int Utf8Bytes(uint32_t code) {
    return code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
}

class FrameBuffer {
public:
    void Clear() { bytes.clear(); }
    bool IsEmpty() const { return bytes.empty(); }
    int Size() const { return static_cast<int>(bytes.size()); }
    const uint8_t* Data() const { return bytes.data(); }
    void Append(const FrameBuffer& other);

    // The beginning of a frame; `count` parameters must follow.
    void BeginRequest(Opcode opcode, int count);
    void BeginReply(int count);
    void BeginEvent(int count);

    void AddInteger(int32_t value);
    // What is longer than a payload is cut, at the end of a character.
    void AddString(const Estring& text);
    void AddUnicodeString(const Westring& text);
    void AddUnicodeCells(const Cell* cells, int n);  // the characters alone
    void AddAttribute(Attribute value);
    // As many cells as one payload holds; gives how many.
    int AddCellString(const Cell* cells, int n);

private:
    void Put16(int value);
    void PutCharacter(uint32_t code);
    void AddParameter(ParameterType type, int length);

    std::vector<uint8_t> bytes;
};

}  // namespace zt
