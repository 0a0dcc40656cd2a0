// The reader of parameters.
#include "console/wire/parameter_reader.h"

#include <cstring>

#include "console/wire/frame_buffer.h"

namespace zt {

namespace {

struct Header {
    int type;
    int length;
};

int Get16(const uint8_t* bytes) {
    return bytes[0] | bytes[1] << 8;
}

Header HeaderAt(const uint8_t* bytes) {
    return {Get16(bytes), Get16(bytes + 2)};
}

void ReadInteger(const uint8_t* payload, int length, CParameterList& list) {
    if (length > kIntegerBytes) return;
    uint32_t value = 0;
    for (int i = 0; i < length; i++)
        value |= static_cast<uint32_t>(payload[i]) << 8 * i;
    list.AddInteger(static_cast<int32_t>(value));
}

// The strings of the program end at a NUL, and so does what came.
int TextLength(const uint8_t* payload, int length) {
    return static_cast<int>(
        strnlen(reinterpret_cast<const char*>(payload), static_cast<size_t>(length)));
}

void ReadString(const uint8_t* payload, int length, CParameterList& list) {
    Estring value;
    value.Assign(reinterpret_cast<const char*>(payload), TextLength(payload, length));
    list.AddString(value);
}

Westring DecodeUtf8(const uint8_t* text, int length) {
    Westring decoded;
    // A malformed sequence is not refused: its lead byte stands as the code point of its value.
    decoded.AssignUtf8(reinterpret_cast<const char*>(text), length);
    for (int i = 0; i < decoded.Length(); i++) {
        const auto code = static_cast<uint32_t>(decoded.c_str()[i]);
        const uint32_t valid = WireCode(code);
        if (valid != code) decoded.SetAt(i, static_cast<wchar_t>(valid));
    }
    return decoded;
}

void ReadCells(const uint8_t* payload, int length, CParameterList& list) {
    const int textLength = TextLength(payload, length);
    if (textLength == length) return;
    const Westring text = DecodeUtf8(payload, textLength);
    const uint8_t* attributes = payload + textLength + 1;
    const int attributeCount = length - textLength - 1;
    // Code points without an attribute of their own are not cells.
    const int count = text.Length() < attributeCount ? text.Length() : attributeCount;
    CellString value;
    value.SetLength(count);
    for (int i = 0; i < count; i++)
        value.Cells()[i] = {static_cast<uint32_t>(text.c_str()[i]), attributes[i]};
    list.AddCellString(value);
}

void ReadPayload(ParameterType type, const uint8_t* payload, int length, CParameterList& list) {
    switch (type) {
        case ParameterType::kInteger:
            ReadInteger(payload, length, list);
            break;
        case ParameterType::kString:
            ReadString(payload, length, list);
            break;
        case ParameterType::kUnicodeString:
            list.AddUnicodeString(DecodeUtf8(payload, TextLength(payload, length)));
            break;
        case ParameterType::kAttribute:
            if (length == 1) list.AddAttribute(payload[0]);
            break;
        case ParameterType::kCellString:
            ReadCells(payload, length, list);
            break;
    }
}

}  // namespace

ReadResult MeasureParameters(const uint8_t* bytes, int available, int count, int& length) {
    int at = 0;
    for (int i = 0; i < count; i++) {
        if (available - at < kParameterHeaderBytes) return ReadResult::kIncomplete;
        const Header header = HeaderAt(bytes + at);
        if (header.type > kLastParameterType) return ReadResult::kFailure;
        at += kParameterHeaderBytes;
        if (available - at < header.length) return ReadResult::kIncomplete;
        at += header.length;
    }
    length = at;
    return ReadResult::kComplete;
}

ReadResult ReadParameters(const uint8_t* bytes, int available, int count, CParameterList& list,
                          int& length) {
    const ReadResult result = MeasureParameters(bytes, available, count, length);
    if (result != ReadResult::kComplete) return result;
    for (int at = 0; at < length;) {
        const Header header = HeaderAt(bytes + at);
        at += kParameterHeaderBytes;
        ReadPayload(static_cast<ParameterType>(header.type), bytes + at, header.length, list);
        at += header.length;
    }
    return result;
}

}  // namespace zt
