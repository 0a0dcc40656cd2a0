// Encoder and decoder of the display's side of the wire.
#include "tests/support/display_wire.h"

#include <algorithm>
#include <optional>

#include "tests/support/text_codes.h"

namespace zt::headless {

namespace {

constexpr std::string_view kRequestMagic = "\xBF\xFB";
constexpr std::string_view kEventMagic = "\xDF\xFD";
constexpr size_t kRequestHeader = 6;
constexpr size_t kParameterHeader = 4;
constexpr int kHighestType = 4;

void Put16(std::string& out, size_t value) {
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8 & 0xFF);
}

void Put32(std::string& out, int32_t value) {
    const auto bits = static_cast<uint32_t>(value);
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>(bits >> shift & 0xFF);
}

uint32_t Get(std::string_view bytes) {
    uint32_t value = 0;
    for (size_t i = 0; i < bytes.size(); i++) {
        value |= static_cast<uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return value;
}

std::string Payload(const WireValue& value) {
    std::string out;
    switch (value.type) {
        case WireType::kInteger:
            Put32(out, value.integer);
            break;
        case WireType::kBytes:
            out = value.bytes;
            break;
        case WireType::kText:
            out = ToUtf8(value.text);
            break;
        case WireType::kAttribute:
            out += static_cast<char>(value.integer);
            break;
        case WireType::kCells:
            for (const ScreenCell& cell : value.cells)
                out += ToUtf8(cell.character);
            out += '\0';
            for (const ScreenCell& cell : value.cells)
                out += static_cast<char>(cell.attribute);
            break;
    }
    return out;
}

void PutValues(std::string& out, const std::vector<WireValue>& values) {
    Put16(out, values.size());
    for (const WireValue& value : values) {
        const std::string payload = Payload(value);
        Put16(out, static_cast<size_t>(value.type));
        Put16(out, payload.size());
        out += payload;
    }
}

bool DecodeCells(std::string_view payload, std::vector<ScreenCell>& cells) {
    const size_t end = payload.find('\0');
    if (end == std::string_view::npos) return false;
    const std::optional<std::u32string> text = FromUtf8(payload.substr(0, end));
    const std::string_view attributes = payload.substr(end + 1);
    if (!text || text->size() != attributes.size()) return false;
    for (size_t i = 0; i < text->size(); i++) {
        cells.push_back({(*text)[i], static_cast<uint8_t>(attributes[i])});
    }
    return true;
}

bool DecodeValue(int type, std::string_view payload, WireValue& value) {
    value.type = static_cast<WireType>(type);
    switch (value.type) {
        case WireType::kInteger:
            value.integer = static_cast<int32_t>(Get(payload));
            return payload.size() == 4;
        case WireType::kBytes:
            value.bytes = payload;
            return true;
        case WireType::kText: {
            std::optional<std::u32string> text = FromUtf8(payload);
            if (text) value.text = *std::move(text);
            return text.has_value();
        }
        case WireType::kAttribute:
            value.integer = static_cast<int32_t>(Get(payload.substr(0, 1)));
            return payload.size() == 1;
        case WireType::kCells:
            return DecodeCells(payload, value.cells);
    }
    return false;
}

}  // namespace

WireValue WireValue::Integer(int32_t value) {
    WireValue out;
    out.integer = value;
    return out;
}

WireValue WireValue::Text(std::u32string_view value) {
    WireValue out;
    out.type = WireType::kText;
    out.text = value;
    return out;
}

WireValue WireValue::Cells(std::vector<ScreenCell> value) {
    WireValue out;
    out.type = WireType::kCells;
    out.cells = std::move(value);
    return out;
}

std::string EncodeRequest(int opcode, const std::vector<WireValue>& values) {
    std::string out{kRequestMagic};
    Put16(out, static_cast<size_t>(opcode));
    PutValues(out, values);
    return out;
}

std::string EncodeReply(const std::vector<WireValue>& values) {
    std::string out{kRequestMagic};
    PutValues(out, values);
    return out;
}

std::string EncodeEvent(const WireEvent& event) {
    return EncodeShortEvent(event, 6);
}

std::string EncodeShortEvent(const WireEvent& event, int fields) {
    const int32_t all[] = {event.kind,   event.code, event.modifiers,
                           event.column, event.row,  event.unicode};
    std::vector<WireValue> values;
    for (int i = 0; i < fields; i++)
        values.push_back(WireValue::Integer(all[i]));
    std::string out{kEventMagic};
    PutValues(out, values);
    return out;
}

bool RequestReader::Problem(std::string text) {
    problems.push_back(std::move(text));
    stopped = true;
    return false;
}

void RequestReader::Append(std::string_view bytes) {
    pending.erase(0, start);
    start = 0;
    pending += bytes;
}

bool RequestReader::Next(WireRequest& request) {
    if (stopped || !HasRest()) return false;
    const std::string_view bytes = std::string_view(pending).substr(start);
    const size_t known = std::min(bytes.size(), kRequestMagic.size());
    if (bytes.substr(0, known) != kRequestMagic.substr(0, known)) {
        return Problem("bytes that are no request: \"" + std::string(bytes.substr(0, 40)) + "\"");
    }
    if (bytes.size() < kRequestHeader) return false;
    request.opcode = static_cast<int>(Get(bytes.substr(2, 2)));
    request.values.clear();
    const uint32_t count = Get(bytes.substr(4, 2));
    size_t at = kRequestHeader;
    for (uint32_t i = 0; i < count; i++) {
        if (bytes.size() - at < kParameterHeader) return false;
        const auto type = static_cast<int>(Get(bytes.substr(at, 2)));
        const size_t length = Get(bytes.substr(at + 2, 2));
        const std::string where = "opcode " + std::to_string(request.opcode) + ", parameter " +
                                  std::to_string(i) + ", type " + std::to_string(type);
        if (type > kHighestType) return Problem(where + ": unknown type");
        at += kParameterHeader;
        if (bytes.size() - at < length) return false;
        WireValue value;
        if (!DecodeValue(type, bytes.substr(at, length), value)) {
            return Problem(where + ": payload of " + std::to_string(length) + " bytes is not so");
        }
        request.values.push_back(std::move(value));
        at += length;
    }
    request.bytes = at;
    start += at;
    return true;
}

}  // namespace zt::headless
