// Frames for tests, put together byte by byte and apart from the encoders that they test; and what
// came back, as text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zt {

class WireBytes {
public:
    WireBytes() = default;
    explicit WireBytes(const std::string& text) : bytes(text) {}
    static WireBytes Request(int opcode, int count) {
        WireBytes frame;
        return frame.U16(0xFBBF).U16(opcode).U16(count);
    }
    static WireBytes Reply(int count) {
        WireBytes frame;
        return frame.U16(0xFBBF).U16(count);
    }
    static WireBytes Event(int count) {
        WireBytes frame;
        return frame.U16(0xFDDF).U16(count);
    }

    WireBytes& U8(int value) {
        bytes += static_cast<char>(value);
        return *this;
    }
    WireBytes& U16(int value) { return U8(value & 0xFF).U8(value >> 8 & 0xFF); }
    WireBytes& Raw(const std::string& text) {
        bytes += text;
        return *this;
    }
    WireBytes& Parameter(int type, const std::string& payload) {
        return U16(type).U16(static_cast<int>(payload.size())).Raw(payload);
    }
    WireBytes& Int(int64_t value) {
        const auto bits = static_cast<uint32_t>(value);
        return U16(0).U16(4).U16(static_cast<int>(bits & 0xFFFF)).U16(static_cast<int>(bits >> 16));
    }
    WireBytes& Ints(const std::vector<int>& values) {
        for (int value : values)
            Int(value);
        return *this;
    }
    WireBytes& Str(const std::string& text) { return Parameter(1, text); }
    WireBytes& Uni(const std::string& utf8) { return Parameter(2, utf8); }
    WireBytes& Attr(int value) { return Parameter(3, std::string(1, static_cast<char>(value))); }
    WireBytes& Cells(const std::string& utf8, const std::string& attributes) {
        return Parameter(4, utf8 + std::string(1, '\0') + attributes);
    }
    WireBytes& operator+=(const WireBytes& other) { return Raw(other.bytes); }

    operator const std::string&() const { return bytes; }

    std::string bytes;
};

inline WireBytes operator+(WireBytes a, const WireBytes& b) {
    return a += b;
}

// "BF FB 01 00", for failures that can be read.
inline std::string Hex(const std::string& bytes) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const char ch : bytes) {
        const auto byte = static_cast<unsigned char>(ch);
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

}  // namespace zt
