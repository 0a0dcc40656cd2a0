// Attributed text as a value: a growable array of cells without a terminator.
#pragma once

#include <cstdint>

#include "console/cell.h"
#include "foundation/westring.h"

namespace zt {

class CellString {
public:
    static constexpr int kInlineCells = 20;

    explicit CellString(Attribute attribute = 7);
    CellString(const Westring& text, Attribute attribute);
    CellString(const wchar_t* text, Attribute attribute);
    CellString(const char* utf8, Attribute attribute);
    // Byte by byte, each byte one cell.
    static CellString FromBytes(const char* bytes, Attribute attribute);
    CellString(const CellString& other);
    CellString& operator=(const CellString& other);
    ~CellString();

    int Length() const { return length; }
    int Capacity() const { return capacity; }
    const Cell* Cells() const { return cells; }
    Cell* Cells() { return cells; }
    Cell At(int index) const { return cells[index]; }
    Attribute DefaultAttribute() const { return attribute; }
    void SetDefaultAttribute(Attribute value) { attribute = value; }
    void Clear() { length = 0; }

    void Append(Cell cell);
    void Append(uint32_t codePoint);  // in the default attribute
    void Append(const CellString& other);
    void Append(const Westring& text);  // in the default attribute
    void Append(const wchar_t* text, Attribute textAttribute, int limit = -1);  // -1: no limit

    CellString Left(int n) const;
    CellString Mid(int start, int n = -1) const;  // n below 0 or past the end: to the end
    // A copy filled with blanks in the default attribute up to `width`, or cut to it.
    CellString Padded(int width) const;
    int FindLast(uint32_t codePoint) const;  // index or -1
    void SetLength(int n);                   // grows without filling

private:
    void Grow(int n);

    Cell inlineCells[kInlineCells];
    Cell* cells;
    int32_t length;
    int32_t capacity;
    Attribute attribute;
};

}  // namespace zt
