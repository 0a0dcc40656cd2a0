// UTF-8 and code pages of the test display.
#include "tests/support/text_codes.h"

#include <iconv.h>

namespace zt::headless {

std::string ToUtf8(char32_t character) {
    std::string out;
    const auto tail = [&](int shift) {
        out += static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        out += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return out;
}

std::string ToUtf8(std::u32string_view text) {
    std::string out;
    for (char32_t character : text)
        out += ToUtf8(character);
    return out;
}

namespace {

struct LeadRow {
    unsigned char first, last;
    int tail;
    char32_t smallest;
};

constexpr LeadRow kLeads[] = {
    {0x00, 0x7F, 0, 0}, {0xC2, 0xDF, 1, 0x80}, {0xE0, 0xEF, 2, 0x800}, {0xF0, 0xF4, 3, 0x10000}};

const LeadRow* FindLead(unsigned char byte) {
    for (const LeadRow& row : kLeads) {
        if (byte >= row.first && byte <= row.last) return &row;
    }
    return nullptr;
}

}  // namespace

std::optional<std::u32string> FromUtf8(std::string_view bytes) {
    std::u32string out;
    for (size_t i = 0; i < bytes.size();) {
        const auto first = static_cast<unsigned char>(bytes[i++]);
        const LeadRow* lead = FindLead(first);
        if (!lead) return std::nullopt;
        char32_t value = lead->tail == 0 ? first : first & (0x3Fu >> lead->tail);
        for (int n = 0; n < lead->tail; n++) {
            if (i >= bytes.size()) return std::nullopt;
            const auto next = static_cast<unsigned char>(bytes[i++]);
            if ((next & 0xC0) != 0x80) return std::nullopt;
            value = value << 6 | (next & 0x3Fu);
        }
        const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
        if (value < lead->smallest || value > 0x10FFFF || surrogate) return std::nullopt;
        out += value;
    }
    return out;
}

std::u32string FromCodePage(std::string_view bytes, int codePage) {
    const std::string name = codePage == 65001 ? "UTF-8" : "CP" + std::to_string(codePage);
    iconv_t converter = iconv_open("UTF-32LE", name.c_str());
    std::u32string out;
    for (char byte : bytes) {
        char32_t character = 0xFFFD;
        char* from = &byte;
        size_t left = 1;
        auto* to = reinterpret_cast<char*>(&character);
        size_t room = sizeof character;
        if (converter != reinterpret_cast<iconv_t>(-1)) {
            iconv(converter, nullptr, nullptr, nullptr, nullptr);
            if (iconv(converter, &from, &left, &to, &room) == static_cast<size_t>(-1)) {
                character = 0xFFFD;
            }
        }
        out += character;
    }
    if (converter != reinterpret_cast<iconv_t>(-1)) iconv_close(converter);
    return out;
}

}  // namespace zt::headless
