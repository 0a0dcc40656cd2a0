// The encoders of frames and parameters.
#include "console/wire/frame_buffer.h"

#include "console/code_page_437.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

// The bytes of the text that go into one payload, without the beginning of a UTF-8 sequence at the
// end. A text in another encoding is cut where it is full.
int PayloadLength(const Estring& text) {
    if (text.Length() <= kLongestPayload) return text.Length();
    const auto isTail = [&](int at) {
        return (static_cast<uint8_t>(text.c_str()[at]) & 0xC0) == 0x80;
    };
    int end = kLongestPayload;
    while (end > kLongestPayload - kMostUtf8Bytes && isTail(end))
        end--;
    return isTail(end) ? kLongestPayload : end;
}

}  // namespace

uint32_t WireCode(uint32_t code) {
    return code >= ' ' && code < 0xD800 ? code : code == 0 ? ' ' : ValidCharacter(code);
}

void FrameBuffer::Append(const FrameBuffer& other) {
    bytes.insert(bytes.end(), other.bytes.begin(), other.bytes.end());
}

void FrameBuffer::Put16(int value) {
    bytes.push_back(static_cast<uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<uint8_t>(value >> 8 & 0xFF));
}

void FrameBuffer::PutCharacter(uint32_t code) {
    if (code < 0x80) {
        bytes.push_back(static_cast<uint8_t>(code));
        return;
    }
    int more = Utf8Bytes(code) - 1;
    static constexpr uint32_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes.push_back(static_cast<uint8_t>(kLead[more] | code >> 6 * more));
    while (more-- > 0)
        bytes.push_back(static_cast<uint8_t>(0x80 | (code >> 6 * more & 0x3F)));
}

void FrameBuffer::AddParameter(ParameterType type, int length) {
    Put16(static_cast<int>(type));
    Put16(length);
}

void FrameBuffer::BeginRequest(Opcode opcode, int count) {
    Put16(kRequestMagic);
    Put16(static_cast<int>(opcode));
    Put16(count);
}

void FrameBuffer::BeginReply(int count) {
    Put16(kReplyMagic);
    Put16(count);
}

void FrameBuffer::BeginEvent(int count) {
    Put16(kEventMagic);
    Put16(count);
}

void FrameBuffer::AddInteger(int32_t value) {
    AddParameter(ParameterType::kInteger, kIntegerBytes);
    Put16(value & 0xFFFF);
    Put16(value >> 16 & 0xFFFF);
}

void FrameBuffer::AddString(const Estring& text) {
    const int length = PayloadLength(text);
    AddParameter(ParameterType::kString, length);
    bytes.insert(bytes.end(), text.c_str(), text.c_str() + length);
}

void FrameBuffer::AddUnicodeString(const Westring& text) {
    const wchar_t* characters = text.c_str();
    int count = 0;
    int length = 0;
    for (; count < text.Length(); count++) {
        int size = Utf8Bytes(WireCode(static_cast<uint32_t>(characters[count])));
        if (length + size > kLongestPayload) break;
        length += size;
    }
    AddParameter(ParameterType::kUnicodeString, length);
    for (int i = 0; i < count; i++)
        PutCharacter(WireCode(static_cast<uint32_t>(characters[i])));
}

void FrameBuffer::AddUnicodeCells(const Cell* cells, int n) {
    int count = 0;
    int length = 0;
    for (; count < n; count++) {
        int size = Utf8Bytes(WireCode(cells[count].character));
        if (length + size > kLongestPayload) break;
        length += size;
    }
    AddParameter(ParameterType::kUnicodeString, length);
    for (int i = 0; i < count; i++)
        PutCharacter(WireCode(cells[i].character));
}

void FrameBuffer::AddAttribute(Attribute value) {
    AddParameter(ParameterType::kAttribute, 1);
    bytes.push_back(value);
}

int FrameBuffer::AddCellString(const Cell* cells, int n) {
    int count = 0;
    int length = 1;
    for (; count < n; count++) {
        int size = Utf8Bytes(WireCode(cells[count].character)) + 1;
        if (length + size > kLongestPayload) break;
        length += size;
    }
    AddParameter(ParameterType::kCellString, length);
    for (int i = 0; i < count; i++)
        PutCharacter(WireCode(cells[i].character));
    bytes.push_back(0);
    for (int i = 0; i < count; i++)
        bytes.push_back(cells[i].attribute);
    return count;
}

}  // namespace zt
