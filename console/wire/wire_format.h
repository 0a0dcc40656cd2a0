// The numbers of the remote console protocol: magics, parameter types, opcodes and limits.
//
// All numbers on the wire are little-endian. Every frame is a magic (16 bits), for a request the
// opcode (16 bits), the number of parameters (16 bits), and the parameters. A parameter is its type
// (16 bits), the length of its payload in bytes (16 bits), and the payload:
//   integer         4 bytes, signed; a reader takes any length up to 4 and fills the rest with 0
//   string          the bytes, without a terminator
//   Unicode string  the text in UTF-8, without a terminator
//   attribute       1 byte
//   cell string     the code points in UTF-8, one NUL, then one attribute byte a code point
#pragma once

#include <cstdint>

namespace zt {

inline constexpr uint16_t kRequestMagic = 0xFBBF;  // towards the display
inline constexpr uint16_t kReplyMagic = 0xFBBF;    // back from the display
inline constexpr uint16_t kEventMagic = 0xFDDF;    // from the display, unasked

inline constexpr int32_t kProtocolVersion = 1;
inline constexpr int kEventFields = 6;

enum class ParameterType : uint16_t {
    kInteger = 0,
    kString = 1,
    kUnicodeString = 2,
    kAttribute = 3,
    kCellString = 4,
};
inline constexpr uint16_t kLastParameterType = 4;

inline constexpr int kMagicBytes = 2;
inline constexpr int kParameterHeaderBytes = 4;
inline constexpr int kIntegerBytes = 4;
inline constexpr int kLongestPayload = 65535;
inline constexpr int kMostUtf8Bytes = 4;  // of one character

// Bounds of a grid that either side takes part in. One row always fits into one payload.
inline constexpr int kMostGridColumns = 4096;
inline constexpr int kMostGridRows = 4096;
inline constexpr int kMostGridCells = 4 << 20;
static_assert(kMostGridColumns * (kMostUtf8Bytes + 1) + 1 <= kLongestPayload);

constexpr bool IsGridSize(int columns, int rows) {
    return columns >= 1 && rows >= 1 && columns <= kMostGridColumns && rows <= kMostGridRows &&
           columns * rows <= kMostGridCells;
}

enum class Opcode : uint16_t {
    kHandshake = 0,
    kBeginUpdate = 1,
    kEndUpdate = 2,
    kGetCursor = 3,
    kSetCursor = 4,
    kSetCodePage = 5,
    kGetSize = 6,
    kResize = 7,
    kFillRect = 8,
    kScrollUp = 9,
    kScrollDown = 10,
    kSetTitle = 11,
    kSetCursorSize = 12,
    kGetCursorSize = 13,
    kSetFillAttribute = 14,
    kWriteText = 15,
    kFillChar = 16,
    kSetAttributes = 17,
    kReadCellString = 18,
    kWriteCells = 19,
    kSetClipboardText = 20,
    kGetClipboardText = 21,
    kWriteStream = 22,
    kBeep = 23,
    kSetSelectableRect = 24,
    kGetSelectableRect = 25,
    kClearSelectableRect = 26,
};
inline constexpr int kOpcodeCount = 27;

}  // namespace zt
