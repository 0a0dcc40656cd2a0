// Attributed text: storage, growth and the pieces cut from it.
#include "console/cell_string.h"

#include <algorithm>
#include <cstring>

namespace zt {

namespace {

constexpr int64_t kLargestCapacity = 0x7FFFFFFF;

}  // namespace

CellString::CellString(Attribute attribute_)
    : cells(inlineCells), length(0), capacity(kInlineCells), attribute(attribute_) {}

CellString::CellString(const Westring& text, Attribute attribute_) : CellString(attribute_) {
    Append(text);
}

CellString::CellString(const wchar_t* text, Attribute attribute_) : CellString(attribute_) {
    Append(text, attribute_);
}

CellString::CellString(const char* utf8, Attribute attribute_) : CellString(attribute_) {
    Append(Westring(utf8));
}

CellString CellString::FromBytes(const char* bytes, Attribute attribute) {
    CellString result(attribute);
    if (bytes == nullptr) return result;
    result.Grow(static_cast<int>(std::strlen(bytes)));
    for (; *bytes != 0; bytes++)
        result.Append(static_cast<uint32_t>(static_cast<uint8_t>(*bytes)));
    return result;
}

CellString::CellString(const CellString& other) : CellString(other.attribute) {
    Append(other);
}

CellString& CellString::operator=(const CellString& other) {
    if (this == &other) return *this;
    attribute = other.attribute;
    length = 0;
    Append(other);
    return *this;
}

CellString::~CellString() {
    if (cells != inlineCells) delete[] cells;
}

void CellString::Append(Cell cell) {
    Grow(length + 1);
    cells[length++] = cell;
}

void CellString::Append(uint32_t codePoint) {
    Append(Cell{codePoint, attribute});
}

void CellString::Append(const CellString& other) {
    const int count = other.length;  // `other` may be this string
    if (count == 0) return;
    Grow(length + count);
    std::memcpy(cells + length, other.cells, sizeof(Cell) * static_cast<size_t>(count));
    length += count;
}

void CellString::Append(const Westring& text) {
    Append(text.c_str(), attribute, text.Length());
}

void CellString::Append(const wchar_t* text, Attribute textAttribute, int limit) {
    if (text == nullptr) return;
    int count = 0;
    while ((limit < 0 || count < limit) && text[count] != 0)
        count++;
    Grow(length + count);
    for (int i = 0; i < count; i++) {
        cells[length++] = Cell{static_cast<uint32_t>(text[i]), textAttribute};
    }
}

CellString CellString::Left(int n) const {
    CellString result(attribute);
    const int count = std::clamp(n, 0, static_cast<int>(length));
    result.SetLength(count);
    std::copy_n(cells, count, result.cells);
    return result;
}

CellString CellString::Mid(int start, int n) const {
    CellString result(attribute);
    const int from = std::clamp(start, 0, static_cast<int>(length));
    const int rest = length - from;
    const int count = n < 0 || n > rest ? rest : n;
    result.SetLength(count);
    std::copy_n(cells + from, count, result.cells);
    return result;
}

CellString CellString::Padded(int width) const {
    CellString result = Left(width);
    const int start = result.length;
    if (width <= start) return result;
    result.SetLength(width);
    std::fill(result.cells + start, result.cells + width, Cell{U' ', attribute});
    return result;
}

int CellString::FindLast(uint32_t codePoint) const {
    for (int i = length - 1; i >= 0; i--) {
        if (cells[i].character == codePoint) return i;
    }
    return -1;
}

void CellString::SetLength(int n) {
    Grow(n);
    length = std::max(n, 0);
}

void CellString::Grow(int n) {
    if (n <= capacity) return;
    const int64_t wanted = std::min(static_cast<int64_t>(n) + n / 2, kLargestCapacity);
    Cell* grown = new Cell[static_cast<size_t>(wanted)];
    std::memcpy(grown, cells, sizeof(Cell) * static_cast<size_t>(capacity));
    if (cells != inlineCells) delete[] cells;
    cells = grown;
    capacity = static_cast<int32_t>(wanted);
}

}  // namespace zt
