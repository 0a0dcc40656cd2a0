#include "console/terminal/key_sequences.h"

#include "console/key_codes.h"
#include "foundation/westring.h"

namespace zt {

namespace {

enum class Prefix : uint8_t { kNone, kCsi, kSs3, kCursor };

struct KeyRow {
    int32_t code;
    Prefix prefix;
    const char* bytes;  // behind the prefix
};

constexpr KeyRow kKeys[] = {
    {kKeyUp, Prefix::kCursor, "A"},
    {kKeyDown, Prefix::kCursor, "B"},
    {kKeyRight, Prefix::kCursor, "C"},
    {kKeyLeft, Prefix::kCursor, "D"},
    {kKeyHome, Prefix::kCursor, "H"},
    {kKeyEnd, Prefix::kCursor, "F"},
    {kKeyPageUp, Prefix::kCsi, "5~"},
    {kKeyPageDown, Prefix::kCsi, "6~"},
    {kKeyInsert, Prefix::kCsi, "2~"},
    {kKeyDelete, Prefix::kCsi, "3~"},
    {kKeyCtrlPageUp, Prefix::kCsi, "5;5~"},
    {kKeyCtrlPageDown, Prefix::kCsi, "6;5~"},
    {kKeyF1, Prefix::kSs3, "P"},
    {kKeyF2, Prefix::kSs3, "Q"},
    {kKeyF3, Prefix::kSs3, "R"},
    {kKeyF4, Prefix::kSs3, "S"},
    {kKeyF5, Prefix::kCsi, "15~"},
    {kKeyF6, Prefix::kCsi, "17~"},
    {kKeyF7, Prefix::kCsi, "18~"},
    {kKeyF8, Prefix::kCsi, "19~"},
    {kKeyF9, Prefix::kCsi, "20~"},
    {kKeyF10, Prefix::kCsi, "21~"},
    {kKeyF11, Prefix::kCsi, "23~"},
    {kKeyF12, Prefix::kCsi, "24~"},
    {kKeyBackspace, Prefix::kNone, "\b"},
    // Keys that are a plain character to a program, and something else to the panels.
    {kKeyCtrlI, Prefix::kNone, "\t"},
    {kKeyCtrlM, Prefix::kNone, "\r"},
    {kKeyGreyMultiply, Prefix::kNone, "*"},
    {kKeyGreyPlus, Prefix::kNone, "+"},
    {kKeyGreyMinus, Prefix::kNone, "-"},
};

constexpr int32_t kLastByteCode = 255;
constexpr int32_t kLastAscii = 127;
constexpr int32_t kLastCharacter = 0x10FFFF;

const char* PrefixBytes(Prefix prefix, bool cursorApplication) {
    if (prefix == Prefix::kCursor) prefix = cursorApplication ? Prefix::kSs3 : Prefix::kCsi;
    if (prefix == Prefix::kNone) return "";
    return prefix == Prefix::kCsi ? "\x1b[" : "\x1bO";
}

constexpr bool AreKeysDistinct() {
    for (const KeyRow& a : kKeys) {
        for (const KeyRow& b : kKeys)
            if (&a != &b && a.code == b.code) return false;
    }
    return true;
}
static_assert(AreKeysDistinct());

}  // namespace

std::string KeyBytes(int32_t code, bool cursorApplication) {
    if (code <= kKeyNone) return "";
    if (code <= kLastByteCode) return std::string(1, static_cast<char>(code));
    for (const KeyRow& row : kKeys) {
        if (row.code == code)
            return PrefixBytes(row.prefix, cursorApplication) + std::string(row.bytes);
    }
    return "";
}

std::string CharacterBytes(int32_t character) {
    if (character <= 0 || character > kLastCharacter) return "";
    if (character <= kLastAscii) return std::string(1, static_cast<char>(character));
    Westring text;
    text += static_cast<wchar_t>(character);
    return text.ToUtf8().c_str();
}

}  // namespace zt
