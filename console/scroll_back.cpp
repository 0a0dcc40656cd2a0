// The store of scrolled-off lines. Lines lie one behind the other in blocks. A line is its width
// and the attribute of the blanks at its end, then its stretches of one attribute: the attribute,
// the number of cells, their characters. Numbers and characters are in UTF-8 style, so that a
// small one is one byte.
#include "console/scroll_back.h"

#include <algorithm>
#include <cstring>

#include "console/console_interface.h"
#include "console/grid_console.h"
#include "foundation/settings.h"

namespace zt {

namespace {

constexpr size_t kBlockBytes = 65536;
constexpr int kMostColumns = GridConsole::kLargestSide;
// The longest line: each cell with an attribute of its own and a character of four bytes.
constexpr size_t kMostLineBytes = 4 + kMostColumns * 6;
// So that the start of a line in its block has 16 bits.
static_assert(kMostLineBytes <= kBlockBytes && kBlockBytes <= 65536);

uint8_t* PutNumber(uint8_t* out, uint32_t number) {
    if (number < 0x80) {
        *out++ = static_cast<uint8_t>(number);
    } else if (number < 0x800) {
        *out++ = static_cast<uint8_t>(0xC0 | number >> 6);
        *out++ = static_cast<uint8_t>(0x80 | (number & 0x3F));
    } else if (number < 0x10000) {
        *out++ = static_cast<uint8_t>(0xE0 | number >> 12);
        *out++ = static_cast<uint8_t>(0x80 | (number >> 6 & 0x3F));
        *out++ = static_cast<uint8_t>(0x80 | (number & 0x3F));
    } else {
        *out++ = static_cast<uint8_t>(0xF0 | (number >> 18 & 7));
        *out++ = static_cast<uint8_t>(0x80 | (number >> 12 & 0x3F));
        *out++ = static_cast<uint8_t>(0x80 | (number >> 6 & 0x3F));
        *out++ = static_cast<uint8_t>(0x80 | (number & 0x3F));
    }
    return out;
}

// Only what PutNumber wrote is read.
const uint8_t* GetNumber(const uint8_t* at, uint32_t& number) {
    const uint8_t lead = *at++;
    int more = 0;
    if (lead >= 0xC0) more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    number = more == 0 ? lead : lead & (0x3Fu >> more);
    for (; more > 0; more--)
        number = number << 6 | (*at++ & 0x3Fu);
    return at;
}

// The cells up to the blanks of one attribute at the end.
int LengthWithoutBlanks(const Cell* cells, int count) {
    if (count == 0) return 0;
    const Cell blank{U' ', cells[count - 1].attribute};
    while (count > 0 && cells[count - 1] == blank)
        count--;
    return count;
}

uint8_t* PutLine(uint8_t* out, const Cell* cells, int width) {
    const int length = LengthWithoutBlanks(cells, width);
    out = PutNumber(out, static_cast<uint32_t>(width));
    *out++ = length < width ? cells[width - 1].attribute : kBlankCell.attribute;
    for (int start = 0; start < length;) {
        const Attribute attribute = cells[start].attribute;
        int end = start + 1;
        while (end < length && cells[end].attribute == attribute)
            end++;
        *out++ = attribute;
        out = PutNumber(out, static_cast<uint32_t>(end - start));
        for (; start < end; start++) {
            const uint32_t character = cells[start].character;
            if (character < 0x80) {
                *out++ = static_cast<uint8_t>(character);
            } else {
                out = PutNumber(out, character);
            }
        }
    }
    return out;
}

}  // namespace

struct CScrollBackBuffer::Block {
    int64_t first = 0;  // index of its first line
    size_t used = 0;
    std::vector<uint16_t> starts;  // of each line
    uint8_t bytes[kBlockBytes];

    size_t Room() const { return kBlockBytes - used; }
    const uint8_t* LineEnd(size_t line) const {
        return bytes + (line + 1 < starts.size() ? starts[line + 1] : used);
    }
};

CScrollBackBuffer::CScrollBackBuffer() : encoded_(new uint8_t[kMostLineBytes]) {}
CScrollBackBuffer::~CScrollBackBuffer() = default;

void CScrollBackBuffer::LineLeft(const Cell* cells, int count) {
    if (settings.consoleScrollback) Append(cells, count);
}

void CScrollBackBuffer::AddScreenLine(IConsole& console, int row) {
    int columns, rows;
    console.GetSize(columns, rows);
    CellString line;
    console.ReadCellString(0, row, columns, 1, line);
    Append(line.Cells(), line.Length());
}

CScrollBackBuffer::Block& CScrollBackBuffer::BlockWithRoom(size_t bytes) {
    if (blocks_.empty() || blocks_.back()->Room() < bytes) {
        if (!blocks_.empty()) blocks_.back()->starts.shrink_to_fit();
        // Not set to zero: the pages that no line has reached cost nothing.
        blocks_.push_back(std::unique_ptr<Block>(new Block));
        blocks_.back()->first = count_;
    }
    return *blocks_.back();
}

void CScrollBackBuffer::Append(const Cell* cells, int count) {
    const uint8_t* end = PutLine(encoded_.get(), cells, std::clamp(count, 0, kMostColumns));
    const auto length = static_cast<size_t>(end - encoded_.get());
    Block& block = BlockWithRoom(length);
    block.starts.push_back(static_cast<uint16_t>(block.used));
    std::memcpy(block.bytes + block.used, encoded_.get(), length);
    block.used += length;
    count_++;
}

void CScrollBackBuffer::RemoveLast() {
    Block& block = *blocks_.back();
    block.used = block.starts.back();
    block.starts.pop_back();
    count_--;
    if (block.starts.empty()) blocks_.pop_back();
}

void CScrollBackBuffer::ReadLine(int64_t index, CellString& line) const {
    line.Clear();
    if (index < 0 || index >= count_) return;
    auto block = std::upper_bound(
        blocks_.begin(), blocks_.end(), index,
        [](int64_t wanted, const std::unique_ptr<Block>& b) { return wanted < b->first; });
    const Block& found = **--block;
    const auto number = static_cast<size_t>(index - found.first);
    const uint8_t* at = found.bytes + found.starts[number];
    const uint8_t* end = found.LineEnd(number);
    uint32_t width;
    at = GetNumber(at, width);
    const Attribute blankAttribute = *at++;
    while (at < end) {
        const Attribute attribute = *at++;
        uint32_t cells;
        at = GetNumber(at, cells);
        for (; cells > 0; cells--) {
            uint32_t character;
            at = GetNumber(at, character);
            line.Append(Cell{character, attribute});
        }
    }
    while (line.Length() < static_cast<int>(width))
        line.Append(Cell{U' ', blankAttribute});
}

size_t CScrollBackBuffer::MemoryBytes() const {
    size_t bytes = blocks_.capacity() * sizeof(blocks_[0]);
    for (const std::unique_ptr<Block>& block : blocks_)
        bytes += sizeof(Block) + block->starts.capacity() * sizeof(uint16_t);
    return bytes;
}

}  // namespace zt
