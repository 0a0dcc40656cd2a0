// The keyboard table of the tests, by names.
#include "tests/support/key_names.h"

#include "tests/support/text_codes.h"

namespace zt::headless {

namespace {

constexpr int32_t kAlt = 1, kCtrl = 2, kShift = 4;
constexpr int32_t kNone = -1;

struct ModifierRow {
    std::string_view name;
    int32_t bit;
};
constexpr ModifierRow kModifiers[] = {{"Ctrl", kCtrl}, {"Alt", kAlt}, {"Shift", kShift}};

// The columns of the key table: which modifiers are held.
constexpr int32_t kColumns[] = {0, kShift, kCtrl, kAlt, kCtrl | kShift, kAlt | kShift};

struct KeyRow {
    std::string_view name;
    int32_t codes[6];  // plain, Shift, Ctrl, Alt, Ctrl-Shift, Alt-Shift
};

constexpr KeyRow kKeys[] = {
    {"Enter", {0xD, 0xD, 0xA, 0x1001C, 0x3001C, kNone}},
    {"Esc", {0x1B, kNone, kNone, kNone, kNone, kNone}},
    {"Tab", {9, 0x3000F, 0x10094, kNone, kNone, kNone}},
    {"Backspace", {0x10101, kNone, 0x7F, 0x1000E, kNone, 0x3000E}},
    {"Del", {0x10053, 0x30053, 0x10093, kNone, kNone, kNone}},
    {"Ins", {0x10052, 0x30052, 0x10092, kNone, 0x30092, kNone}},
    {"Home", {0x10047, 0x30047, 0x10077, 0x10097, 0x30077, kNone}},
    {"End", {0x1004F, 0x3004F, 0x10075, kNone, 0x30075, kNone}},
    {"PgUp", {0x10049, 0x30049, 0x10084, kNone, 0x30084, kNone}},
    {"PgDn", {0x10051, 0x30051, 0x10076, kNone, 0x30076, kNone}},
    {"Up", {0x10048, 0x30048, 0x1008D, 0x10098, kNone, kNone}},
    {"Down", {0x10050, 0x30050, 0x10091, 0x100A0, kNone, kNone}},
    {"Left", {0x1004B, 0x3004B, 0x10073, 0x1009B, 0x30073, kNone}},
    {"Right", {0x1004D, 0x3004D, 0x10074, 0x1009D, 0x30074, kNone}},
    {"Grey+", {0x40002B, kNone, 0x10090, 0x1004E, 0x30090, kNone}},
    {"Grey-", {0x40002D, kNone, 0x1008E, 0x1004A, 0x3008E, kNone}},
    {"Grey*", {0x40002A, kNone, kNone, kNone, kNone, kNone}},
    {"Space", {kNone, kNone, 0x20, kNone, kNone, kNone}},
    {"\\", {kNone, kNone, 0x1C, 0x1002B, 0x2001C, kNone}},
    {"-", {kNone, kNone, 0x1F, 0x10082, kNone, kNone}},
    {"[", {kNone, kNone, 0x1B, 0x1001A, kNone, kNone}},
    {"]", {kNone, kNone, 0x1D, 0x1001B, kNone, kNone}},
    {".", {kNone, kNone, kNone, 0x10034, kNone, kNone}},
    {",", {kNone, kNone, kNone, 0x10033, kNone, kNone}},
    {"=", {kNone, kNone, kNone, 0x10083, kNone, kNone}},
    {";", {kNone, kNone, kNone, 0x10027, kNone, kNone}},
    {"'", {kNone, kNone, kNone, 0x10028, kNone, 0x10028}},
    {"_", {kNone, kNone, kNone, kNone, kNone, 0x30082}},
    {"+", {kNone, kNone, kNone, kNone, kNone, 0x30083}},
};

// Function keys 1 to 10 from the first code on; 11 and 12 from the second.
struct FunctionKeyRow {
    int32_t first, eleventh;
};
constexpr FunctionKeyRow kFunctionKeys[] = {{0x1003B, 0x10085}, {0x30054, 0x30087},
                                            {0x1005E, 0x10089}, {0x10068, 0x1008B},
                                            {0x3005E, 0x30089}, {0x30068, 0x3008B}};

// Where the letters a to z stand on a PC keyboard.
constexpr int32_t kScanCodes[] = {0x1E, 0x30, 0x2E, 0x20, 0x12, 0x21, 0x22, 0x23, 0x17,
                                  0x24, 0x25, 0x26, 0x32, 0x31, 0x18, 0x19, 0x10, 0x13,
                                  0x1F, 0x14, 0x16, 0x2F, 0x11, 0x2D, 0x15, 0x2C};

struct LetterRow {
    char letter;
    int32_t code;
};
constexpr LetterRow kCtrlShiftLetters[] = {{'a', 0x20001}, {'f', 0x20006}, {'j', 0x2000A},
                                           {'l', 0x2000C}, {'m', 0x30103}, {'t', 0x20014},
                                           {'u', 0x20015}, {'y', 0x20019}};

// Splits "Ctrl-Shift-F1" into modifiers and "F1".
int32_t TakeModifiers(std::string_view& name) {
    int32_t modifiers = 0;
    for (const ModifierRow& row : kModifiers) {
        const size_t length = row.name.size();
        if (name.size() > length + 1 && name.starts_with(row.name) && name[length] == '-') {
            modifiers |= row.bit;
            name.remove_prefix(length + 1);
        }
    }
    return modifiers;
}

int ColumnOf(int32_t modifiers) {
    for (int i = 0; i < static_cast<int>(std::size(kColumns)); i++) {
        if (kColumns[i] == modifiers) return i;
    }
    return -1;
}

int32_t FunctionKeyCode(std::string_view name, int column) {
    if (name.size() < 2 || name.size() > 3 || name[0] != 'F') return kNone;
    int number = 0;
    for (char digit : name.substr(1)) {
        if (digit < '0' || digit > '9') return kNone;
        number = number * 10 + (digit - '0');
    }
    const FunctionKeyRow& row = kFunctionKeys[column];
    if (number >= 1 && number <= 10) return row.first + number - 1;
    return number == 11 || number == 12 ? row.eleventh + number - 11 : kNone;
}

int32_t LetterCode(char letter, int32_t modifiers) {
    if (letter < 'a' || letter > 'z') return kNone;
    if (modifiers == kAlt) return 0x10000 + kScanCodes[letter - 'a'];
    if (modifiers == kCtrl) {
        if (letter == 'i') return 0x10102;
        if (letter == 'm') return 0x10103;
        return letter - 'a' + 1;
    }
    for (const LetterRow& row : kCtrlShiftLetters) {
        if (modifiers == (kCtrl | kShift) && row.letter == letter) return row.code;
    }
    return kNone;
}

int32_t DigitCode(char digit, int32_t modifiers) {
    if (digit < '0' || digit > '9') return kNone;
    if (modifiers == kAlt) return digit == '0' ? 0x10081 : 0x10078 + (digit - '1');
    return modifiers == kCtrl ? digit : kNone;
}

int32_t KeypadCode(std::string_view name, int32_t modifiers) {
    if (name.size() != 4 || !name.starts_with("Num")) return kNone;
    const char digit = name[3];
    if (digit < '0' || digit > '9') return kNone;
    if (modifiers == kCtrl) return 0x40000 + digit;
    return modifiers == (kCtrl | kShift) ? 0x60000 + digit : kNone;
}

int32_t CodeOf(std::string_view key, int32_t modifiers) {
    if (modifiers == (kCtrl | kAlt) && key == "Space") return 0x90039;
    const int column = ColumnOf(modifiers);
    if (column < 0) return kNone;
    for (const KeyRow& row : kKeys) {
        if (row.name == key && row.codes[column] != kNone) return row.codes[column];
    }
    const int32_t function = FunctionKeyCode(key, column);
    if (function != kNone) return function;
    const int32_t keypad = KeypadCode(key, modifiers);
    if (keypad != kNone || key.size() != 1) return keypad;
    const int32_t letter = LetterCode(key[0], modifiers);
    return letter != kNone ? letter : DigitCode(key[0], modifiers);
}

WireEvent ModifierEvent(int32_t modifiers) {
    return {0, kModifiersChanged, modifiers, 0, 0, 0};
}

// Each prefix of the modifiers as they go down one after the other.
std::vector<int32_t> Steps(int32_t modifiers) {
    std::vector<int32_t> steps;
    int32_t held = 0;
    for (const ModifierRow& row : kModifiers) {
        if (modifiers & row.bit) steps.push_back(held |= row.bit);
    }
    return steps;
}

std::vector<WireEvent> Down(int32_t modifiers) {
    std::vector<WireEvent> events;
    for (int32_t held : Steps(modifiers))
        events.push_back(ModifierEvent(held));
    return events;
}

std::vector<WireEvent> Up(int32_t modifiers) {
    std::vector<WireEvent> events;
    std::vector<int32_t> steps = Steps(modifiers);
    while (!steps.empty()) {
        steps.pop_back();
        events.push_back(ModifierEvent(steps.empty() ? 0 : steps.back()));
    }
    return events;
}

int32_t ModifiersNamed(std::string_view names) {
    std::string name = std::string(names) + "-?";
    std::string_view rest = name;
    return TakeModifiers(rest);
}

}  // namespace

std::optional<WireEvent> KeyEvent(std::string_view name) {
    const int32_t modifiers = TakeModifiers(name);
    const int32_t code = CodeOf(name, modifiers);
    if (code == kNone) return std::nullopt;
    const bool character = name.size() == 1 && (modifiers & kAlt);
    return WireEvent{0, code, modifiers, 0, 0, character ? name[0] : 0};
}

std::vector<WireEvent> KeyPress(std::string_view name) {
    const std::optional<WireEvent> key = KeyEvent(name);
    if (!key) return {};
    std::vector<WireEvent> events = Down(key->modifiers);
    events.push_back(*key);
    for (const WireEvent& event : Up(key->modifiers))
        events.push_back(event);
    return events;
}

std::vector<WireEvent> HoldModifiers(std::string_view names) {
    return Down(ModifiersNamed(names));
}

std::vector<WireEvent> ReleaseModifiers(std::string_view names) {
    return Up(ModifiersNamed(names));
}

std::vector<WireEvent> TypedText(std::string_view utf8) {
    std::vector<WireEvent> events;
    for (char32_t character : FromUtf8(utf8).value_or(U"")) {
        const auto code = static_cast<int32_t>(character);
        events.push_back({0, code, 0, 0, 0, code});
    }
    return events;
}

WireEvent MousePress(Mouse button, int column, int row) {
    return {1, static_cast<int32_t>(button), 0, column, row, 0};
}

WireEvent MouseRelease(Mouse button, int column, int row) {
    return {2, static_cast<int32_t>(button), 0, column, row, 0};
}

WireEvent MouseMove(Mouse button, int column, int row) {
    return {3, static_cast<int32_t>(button), 0, column, row, 0};
}

std::vector<WireEvent> MouseDoubleClick(Mouse button, int column, int row) {
    const WireEvent press = MousePress(button, column, row);
    const WireEvent release = MouseRelease(button, column, row);
    WireEvent again = press;
    again.kind = 4;
    return {press, release, press, again, release};
}

WireEvent MouseWheel(bool up, int column, int row) {
    return {5, up ? 1 : -1, 0, column, row, 0};
}

}  // namespace zt::headless
