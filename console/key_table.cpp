// The 310 rows of the key table and the search over them.
#include "console/key_table.h"

#include "console/keysyms.h"

namespace zt {

namespace {

using namespace keysym;

constexpr int32_t kS = kShiftMask;
constexpr int32_t kC = kControlMask;
constexpr int32_t kA = kMod1Mask;
constexpr int32_t kAny = kAnyModifiers;

// Shift, Ctrl and Alt: what the masks of the rows are compared with.
constexpr uint32_t kMaskBits = kShiftMask | kControlMask | kMod1Mask;

// In each group the keypad's rows for Num Lock off come first, so that one physical key gives the
// same code in both states of the lock.
constexpr KeyRow kRows[] = {
    // No modifier.
    {kKpHome, 0, 0x10047},
    {kKpLeft, 0, 0x1004B},
    {kKpUp, 0, 0x10048},
    {kKpRight, 0, 0x1004D},
    {kKpDown, 0, 0x10050},
    {kKpPageUp, 0, 0x10049},
    {kKpPageDown, 0, 0x10051},
    {kKpEnd, 0, 0x1004F},
    {kKpInsert, 0, 0x10052},
    {kKpDelete, 0, 0x10053},  //
    {kF1, 0, 0x1003B},
    {kF1 + 1, 0, 0x1003C},
    {kF1 + 2, 0, 0x1003D},
    {kF1 + 3, 0, 0x1003E},
    {kF1 + 4, 0, 0x1003F},
    {kF1 + 5, 0, 0x10040},
    {kF1 + 6, 0, 0x10041},
    {kF1 + 7, 0, 0x10042},
    {kF1 + 8, 0, 0x10043},
    {kF1 + 9, 0, 0x10044},
    {kF1 + 10, 0, 0x10085},
    {kF1 + 11, 0, 0x10086},  //
    {kReturn, 0, 0xD},
    {kBackSpace, 0, 0x10101},
    {kTab, 0, 9},
    {kEscape, 0, 0x1B},
    {kDelete, 0, 0x10053},  //
    {kHome, 0, 0x10047},
    {kLeft, 0, 0x1004B},
    {kUp, 0, 0x10048},
    {kRight, 0, 0x1004D},
    {kDown, 0, 0x10050},
    {kPageUp, 0, 0x10049},
    {kPageDown, 0, 0x10051},
    {kEnd, 0, 0x1004F},
    {kInsert, 0, 0x10052},  //
    {kKpAdd, 0, 0x40002B},
    {kKpSubtract, 0, 0x40002D},
    {kKpMultiply, 0, 0x40002A},
    {kKpEnter, 0, 0xD},  //
    // Shift. The keypad gives digits with Num Lock off; its 5 has no code.
    {kKp0, kS, 0x30052},
    {kKp0 + 1, kS, 0x3004F},
    {kKp0 + 2, kS, 0x30050},
    {kKp0 + 3, kS, 0x30051},
    {kKp0 + 4, kS, 0x3004B},
    {kKp0 + 6, kS, 0x3004D},
    {kKp0 + 7, kS, 0x30047},
    {kKp0 + 8, kS, 0x30048},
    {kKp0 + 9, kS, 0x30049},
    {kKpDecimal, kS, 0x30053},  //
    {kF1, kS, 0x30054},
    {kF1 + 1, kS, 0x30055},
    {kF1 + 2, kS, 0x30056},
    {kF1 + 3, kS, 0x30057},
    {kF1 + 4, kS, 0x30058},
    {kF1 + 5, kS, 0x30059},
    {kF1 + 6, kS, 0x3005A},
    {kF1 + 7, kS, 0x3005B},
    {kF1 + 8, kS, 0x3005C},
    {kF1 + 9, kS, 0x3005D},
    {kF1 + 10, kS, 0x30087},
    {kF1 + 11, kS, 0x30088},  //
    {kLeft, kS, 0x3004B},
    {kUp, kS, 0x30048},
    {kRight, kS, 0x3004D},
    {kDown, kS, 0x30050},
    {kIsoLeftTab, kS, 0x3000F},
    {kDelete, kS, 0x30053},
    {kHome, kS, 0x30047},
    {kPageUp, kS, 0x30049},
    {kPageDown, kS, 0x30051},
    {kEnd, kS, 0x3004F},
    {kInsert, kS, 0x30052},
    {kReturn, kS, 0xD},  //
    // Ctrl.
    {kKpInsert, kC, 0x40030},
    {kKpEnd, kC, 0x40031},
    {kKpDown, kC, 0x40032},
    {kKpPageDown, kC, 0x40033},
    {kKpLeft, kC, 0x40034},
    {kKpBegin, kC, 0x40035},
    {kKpRight, kC, 0x40036},
    {kKpHome, kC, 0x40037},
    {kKpUp, kC, 0x40038},
    {kKpPageUp, kC, 0x40039},
    {kKpDelete, kC, 0x10093},  //
    {kF1, kC, 0x1005E},
    {kF1 + 1, kC, 0x1005F},
    {kF1 + 2, kC, 0x10060},
    {kF1 + 3, kC, 0x10061},
    {kF1 + 4, kC, 0x10062},
    {kF1 + 5, kC, 0x10063},
    {kF1 + 6, kC, 0x10064},
    {kF1 + 7, kC, 0x10065},
    {kF1 + 8, kC, 0x10066},
    {kF1 + 9, kC, 0x10067},
    {kF1 + 10, kC, 0x10089},
    {kF1 + 11, kC, 0x1008A},  //
    {kBackSpace, kC, 0x7F},
    {kDelete, kC, 0x10093},
    {kHome, kC, 0x10077},
    {kLeft, kC, 0x10073},
    {kUp, kC, 0x1008D},
    {kRight, kC, 0x10074},
    {kDown, kC, 0x10091},
    {kPageUp, kC, 0x10084},
    {kPageDown, kC, 0x10076},
    {kEnd, kC, 0x10075},
    {kInsert, kC, 0x10092},
    {kReturn, kC, 0xA},
    {kTab, kC, 0x10094},  //
    {'\\', kC, 0x1C},
    {'#', kC, 0x1C},
    {'-', kC, 0x1F},
    {'[', kC, 0x1B},
    {']', kC, 0x1D},
    {' ', kC, 0x20},  //
    {'a', kC, 0x1},
    {'b', kC, 0x2},
    {'c', kC, 0x3},
    {'d', kC, 0x4},
    {'e', kC, 0x5},
    {'f', kC, 0x6},
    {'g', kC, 0x7},
    {'h', kC, 0x8},
    {'i', kC, 0x10102},
    {'j', kC, 0xA},
    {'k', kC, 0xB},
    {'l', kC, 0xC},
    {'m', kC, 0x10103},
    {'n', kC, 0xE},
    {'o', kC, 0xF},
    {'p', kC, 0x10},
    {'q', kC, 0x11},
    {'r', kC, 0x12},
    {'s', kC, 0x13},
    {'t', kC, 0x14},
    {'u', kC, 0x15},
    {'v', kC, 0x16},
    {'w', kC, 0x17},
    {'x', kC, 0x18},
    {'y', kC, 0x19},
    {'z', kC, 0x1A},  //
    {kKpAdd, kC, 0x10090},
    {kKpSubtract, kC, 0x1008E},  //
    {kKp0, kC, 0x40030},
    {kKp0 + 1, kC, 0x40031},
    {kKp0 + 2, kC, 0x40032},
    {kKp0 + 3, kC, 0x40033},
    {kKp0 + 4, kC, 0x40034},
    {kKp0 + 5, kC, 0x40035},
    {kKp0 + 6, kC, 0x40036},
    {kKp0 + 7, kC, 0x40037},
    {kKp0 + 8, kC, 0x40038},
    {kKp0 + 9, kC, 0x40039},  //
    // Alt.
    {kF1, kA, 0x10068},
    {kF1 + 1, kA, 0x10069},
    {kF1 + 2, kA, 0x1006A},
    {kF1 + 3, kA, 0x1006B},
    {kF1 + 4, kA, 0x1006C},
    {kF1 + 5, kA, 0x1006D},
    {kF1 + 6, kA, 0x1006E},
    {kF1 + 7, kA, 0x1006F},
    {kF1 + 8, kA, 0x10070},
    {kF1 + 9, kA, 0x10071},
    {kF1 + 10, kA, 0x1008B},
    {kF1 + 11, kA, 0x1008C},  //
    {kReturn, kA, 0x1001C},
    {kBackSpace, kA, 0x1000E},
    {kLeft, kA, 0x1009B},
    {kUp, kA, 0x10098},
    {kRight, kA, 0x1009D},
    {kDown, kA, 0x100A0},
    {kHome, kA, 0x10097},  //
    {'1', kA, 0x10078},
    {'2', kA, 0x10079},
    {'3', kA, 0x1007A},
    {'4', kA, 0x1007B},
    {'5', kA, 0x1007C},
    {'6', kA, 0x1007D},
    {'7', kA, 0x1007E},
    {'8', kA, 0x1007F},
    {'9', kA, 0x10080},
    {'0', kA, 0x10081},  //
    {'a', kA, 0x1001E},
    {'b', kA, 0x10030},
    {'c', kA, 0x1002E},
    {'d', kA, 0x10020},
    {'e', kA, 0x10012},
    {'f', kA, 0x10021},
    {'g', kA, 0x10022},
    {'h', kA, 0x10023},
    {'i', kA, 0x10017},
    {'j', kA, 0x10024},
    {'k', kA, 0x10025},
    {'l', kA, 0x10026},
    {'m', kA, 0x10032},
    {'n', kA, 0x10031},
    {'o', kA, 0x10018},
    {'p', kA, 0x10019},
    {'q', kA, 0x10010},
    {'r', kA, 0x10013},
    {'s', kA, 0x1001F},
    {'t', kA, 0x10014},
    {'u', kA, 0x10016},
    {'v', kA, 0x1002F},
    {'w', kA, 0x10011},
    {'x', kA, 0x1002D},
    {'y', kA, 0x10015},
    {'z', kA, 0x1002C},  //
    {'\\', kA, 0x1002B},
    {'.', kA, 0x10034},
    {',', kA, 0x10033},
    {'[', kA, 0x1001A},
    {']', kA, 0x1001B},
    {'-', kA, 0x10082},
    {'=', kA, 0x10083},
    {';', kA, 0x10027},
    {'\'', kA, 0x10028},
    {'#', kA, 0x3007A},  //
    {kKpAdd, kA, 0x1004E},
    {kKpSubtract, kA, 0x1004A},  //
    // Ctrl-Shift.
    {kKpInsert, kC | kS, 0x60030},
    {kKpEnd, kC | kS, 0x60031},
    {kKpDown, kC | kS, 0x60032},
    {kKpPageDown, kC | kS, 0x60033},
    {kKpLeft, kC | kS, 0x60034},
    {kKpBegin, kC | kS, 0x60035},
    {kKpRight, kC | kS, 0x60036},
    {kKpHome, kC | kS, 0x60037},
    {kKpUp, kC | kS, 0x60038},
    {kKpPageUp, kC | kS, 0x60039},  //
    {kF1, kC | kS, 0x3005E},
    {kF1 + 1, kC | kS, 0x3005F},
    {kF1 + 2, kC | kS, 0x30060},
    {kF1 + 3, kC | kS, 0x30061},
    {kF1 + 4, kC | kS, 0x30062},
    {kF1 + 5, kC | kS, 0x30063},
    {kF1 + 6, kC | kS, 0x30064},
    {kF1 + 7, kC | kS, 0x30065},
    {kF1 + 8, kC | kS, 0x30066},
    {kF1 + 9, kC | kS, 0x30067},
    {kF1 + 10, kC | kS, 0x30089},
    {kF1 + 11, kC | kS, 0x3008A},  //
    {'|', kC | kS, 0x2001C},
    {'\'', kC | kS, 0x2001C},  //
    {kLeft, kC | kS, 0x30073},
    {kRight, kC | kS, 0x30074},
    {kHome, kC | kS, 0x30077},
    {kEnd, kC | kS, 0x30075},
    {kPageUp, kC | kS, 0x30084},
    {kPageDown, kC | kS, 0x30076},
    {kInsert, kC | kS, 0x30092},
    {kReturn, kC | kS, 0x3001C},  //
    {'a', kC | kS, 0x20001},
    {'f', kC | kS, 0x20006},
    {'j', kC | kS, 0x2000A},
    {'l', kC | kS, 0x2000C},
    {'m', kC | kS, 0x30103},
    {'t', kC | kS, 0x20014},
    {'u', kC | kS, 0x20015},
    {'y', kC | kS, 0x20019},  //
    {kKpAdd, kC | kS, 0x30090},
    {kKpSubtract, kC | kS, 0x3008E},  //
    {kKp0, kC | kS, 0x60030},
    {kKp0 + 1, kC | kS, 0x60031},
    {kKp0 + 2, kC | kS, 0x60032},
    {kKp0 + 3, kC | kS, 0x60033},
    {kKp0 + 4, kC | kS, 0x60034},
    {kKp0 + 5, kC | kS, 0x60035},
    {kKp0 + 6, kC | kS, 0x60036},
    {kKp0 + 7, kC | kS, 0x60037},
    {kKp0 + 8, kC | kS, 0x60038},
    {kKp0 + 9, kC | kS, 0x60039},  //
    // Alt-Shift.
    {kBackSpace, kA | kS, 0x3000E},  //
    {kF1, kA | kS, 0x30068},
    {kF1 + 1, kA | kS, 0x30069},
    {kF1 + 2, kA | kS, 0x3006A},
    {kF1 + 3, kA | kS, 0x3006B},
    {kF1 + 4, kA | kS, 0x3006C},
    {kF1 + 5, kA | kS, 0x3006D},
    {kF1 + 6, kA | kS, 0x3006E},
    {kF1 + 7, kA | kS, 0x3006F},
    {kF1 + 8, kA | kS, 0x30070},
    {kF1 + 9, kA | kS, 0x30071},
    {kF1 + 10, kA | kS, 0x3008B},
    {kF1 + 11, kA | kS, 0x3008C},  //
    {'_', kA | kS, 0x30082},
    {'+', kA | kS, 0x30083},
    {'!', kA | kS, 0x30078},
    {'@', kA | kS, 0x30079},
    {'#', kA | kS, 0x3007A},
    {'$', kA | kS, 0x3007B},
    {'%', kA | kS, 0x3007C},
    {'^', kA | kS, 0x3007D},
    {'&', kA | kS, 0x3007E},
    {'(', kA | kS, 0x30080},
    {')', kA | kS, 0x30081},
    {'{', kA | kS, 0x3001A},
    {'}', kA | kS, 0x3001B},
    {'~', kA | kS, 0x10029},
    {':', kA | kS, 0x30027},
    {'"', kA | kS, 0x30028},
    {'\'', kA | kS, 0x10028},  //
    // Ctrl-Alt.
    {' ', kC | kA, 0x90039},  //
    // The modifier keys themselves.
    {kAltL, kAny, 0x10100},
    {kAltR, kAny, 0x10100},
    {kControlL, kAny, 0x10100},
    {kControlR, kAny, 0x10100},
    {kShiftL, kAny, 0x10100},
    {kShiftR, kAny, 0x10100},  //
};
static_assert(std::size(kRows) == kKeyRowCount);

constexpr bool NoRowHidesAnother() {
    for (size_t i = 0; i < std::size(kRows); i++) {
        for (size_t j = i + 1; j < std::size(kRows); j++) {
            const bool sameKey = kRows[i].keyval == kRows[j].keyval;
            if (sameKey && (kRows[i].mask == kRows[j].mask || kRows[i].mask == kAnyModifiers)) {
                return false;
            }
        }
    }
    return true;
}
static_assert(NoRowHidesAnother());

}  // namespace

std::span<const KeyRow> KeyTable() {
    return kRows;
}

int32_t FindKeyCode(uint32_t keyval, uint32_t state) {
    const int32_t mask = static_cast<int32_t>(state & kMaskBits);
    for (const KeyRow& row : kRows) {
        const bool fits = row.mask == kAnyModifiers || row.mask == mask;
        if (row.keyval == keyval && fits && row.code != 0) return row.code;
    }
    return 0;
}

}  // namespace zt
