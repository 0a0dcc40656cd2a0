// Every row of the key table, against what each key is documented to give. The expectation is
// built from the groups of keys here, with the key symbols' numbers, and not from the table.
#include "console/key_table.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zt {
namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 4;
constexpr int kAlt = 8;

using Keys = std::vector<std::pair<uint32_t, int32_t>>;
using Expected = std::map<std::pair<int, uint32_t>, int32_t>;  // by mask and key symbol

void Add(Expected& expected, int mask, const Keys& keys) {
    for (const auto& [keyval, code] : keys) {
        const bool isNew = expected.emplace(std::pair(mask, keyval), code).second;
        EXPECT_TRUE(isNew) << std::hex << keyval << " stands twice under mask " << mask;
    }
}

void AddFunctionKeys(Expected& expected, int mask, int32_t f1, int32_t f11, int32_t f12) {
    for (int i = 0; i < 10; i++)
        Add(expected, mask, {{0xFFBE + static_cast<uint32_t>(i), f1 + i}});
    Add(expected, mask, {{0xFFC8, f11}, {0xFFC9, f12}});
}

void AddPlain(Expected& e) {
    AddFunctionKeys(e, 0, 0x1003B, 0x10085, 0x10086);
    Add(e, 0, {{0xFF0D, 0xD}, {0xFF08, 0x10101}, {0xFF09, 9}, {0xFF1B, 0x1B}, {0xFFFF, 0x10053}});
    // Home, Left, Up, Right, Down, Page Up, Page Down, End, Insert; then the keypad's own.
    Add(e, 0,
        {{0xFF50, 0x10047},
         {0xFF51, 0x1004B},
         {0xFF52, 0x10048},
         {0xFF53, 0x1004D},
         {0xFF54, 0x10050},
         {0xFF55, 0x10049},
         {0xFF56, 0x10051},
         {0xFF57, 0x1004F},
         {0xFF63, 0x10052}});
    Add(e, 0,
        {{0xFF95, 0x10047},
         {0xFF96, 0x1004B},
         {0xFF97, 0x10048},
         {0xFF98, 0x1004D},
         {0xFF99, 0x10050},
         {0xFF9A, 0x10049},
         {0xFF9B, 0x10051},
         {0xFF9C, 0x1004F},
         {0xFF9E, 0x10052},
         {0xFF9F, 0x10053}});
    Add(e, 0, {{0xFFAB, 0x40002B}, {0xFFAD, 0x40002D}, {0xFFAA, 0x40002A}, {0xFF8D, 0xD}});
}

void AddShift(Expected& e) {
    AddFunctionKeys(e, kShift, 0x30054, 0x30087, 0x30088);
    Add(e, kShift,
        {{0xFF51, 0x3004B},
         {0xFF52, 0x30048},
         {0xFF53, 0x3004D},
         {0xFF54, 0x30050},
         {0xFE20, 0x3000F},
         {0xFFFF, 0x30053},
         {0xFF50, 0x30047},
         {0xFF55, 0x30049},
         {0xFF56, 0x30051},
         {0xFF57, 0x3004F},
         {0xFF63, 0x30052},
         {0xFF0D, 0xD}});
    // The keypad's 0 to 9, less 5, and the decimal point.
    Add(e, kShift,
        {{0xFFB0, 0x30052},
         {0xFFB1, 0x3004F},
         {0xFFB2, 0x30050},
         {0xFFB3, 0x30051},
         {0xFFB4, 0x3004B},
         {0xFFB6, 0x3004D},
         {0xFFB7, 0x30047},
         {0xFFB8, 0x30048},
         {0xFFB9, 0x30049},
         {0xFFAE, 0x30053}});
}

// The keypad by the digit a key carries, with Num Lock on and off.
void AddKeypadDigits(Expected& e, int mask, int32_t zero) {
    const uint32_t withoutLock[10] = {0xFF9E, 0xFF9C, 0xFF99, 0xFF9B, 0xFF96,
                                      0xFF9D, 0xFF98, 0xFF95, 0xFF97, 0xFF9A};
    for (int digit = 0; digit < 10; digit++) {
        Add(e, mask,
            {{0xFFB0 + static_cast<uint32_t>(digit), zero + digit},
             {withoutLock[digit], zero + digit}});
    }
}

void AddCtrl(Expected& e) {
    AddFunctionKeys(e, kCtrl, 0x1005E, 0x10089, 0x1008A);
    Add(e, kCtrl,
        {{0xFF08, 0x7F},
         {0xFFFF, 0x10093},
         {0xFF50, 0x10077},
         {0xFF51, 0x10073},
         {0xFF52, 0x1008D},
         {0xFF53, 0x10074},
         {0xFF54, 0x10091},
         {0xFF55, 0x10084},
         {0xFF56, 0x10076},
         {0xFF57, 0x10075},
         {0xFF63, 0x10092},
         {0xFF0D, 0xA},
         {0xFF09, 0x10094}});
    Add(e, kCtrl, {{'\\', 0x1C}, {'#', 0x1C}, {'-', 0x1F}, {'[', 0x1B}, {']', 0x1D}, {' ', 0x20}});
    for (char c = 'a'; c <= 'z'; c++) {
        const int32_t code = c == 'i' ? 0x10102 : c == 'm' ? 0x10103 : c - 'a' + 1;
        Add(e, kCtrl, {{static_cast<uint32_t>(c), code}});
    }
    Add(e, kCtrl, {{0xFFAB, 0x10090}, {0xFFAD, 0x1008E}, {0xFF9F, 0x10093}});
    AddKeypadDigits(e, kCtrl, 0x40030);
}

void AddAlt(Expected& e) {
    AddFunctionKeys(e, kAlt, 0x10068, 0x1008B, 0x1008C);
    Add(e, kAlt,
        {{0xFF0D, 0x1001C},
         {0xFF08, 0x1000E},
         {0xFF51, 0x1009B},
         {0xFF52, 0x10098},
         {0xFF53, 0x1009D},
         {0xFF54, 0x100A0},
         {0xFF50, 0x10097}});
    for (int i = 1; i <= 9; i++)
        Add(e, kAlt, {{static_cast<uint32_t>('0' + i), 0x10077 + i}});
    Add(e, kAlt, {{'0', 0x10081}});
    // The rows of letters of a PC keyboard, each with the scan code of its first key.
    const std::pair<std::string, int32_t> letters[] = {
        {"qwertyuiop", 0x10010}, {"asdfghjkl", 0x1001E}, {"zxcvbnm", 0x1002C}};
    for (const auto& [row, first] : letters) {
        for (size_t i = 0; i < row.size(); i++) {
            Add(e, kAlt, {{static_cast<uint32_t>(row[i]), first + static_cast<int32_t>(i)}});
        }
    }
    Add(e, kAlt,
        {{'\\', 0x1002B},
         {'.', 0x10034},
         {',', 0x10033},
         {'[', 0x1001A},
         {']', 0x1001B},
         {'-', 0x10082},
         {'=', 0x10083},
         {';', 0x10027},
         {'\'', 0x10028},
         {'#', 0x3007A}});
    Add(e, kAlt, {{0xFFAB, 0x1004E}, {0xFFAD, 0x1004A}});
}

void AddCtrlShift(Expected& e) {
    const int mask = kCtrl | kShift;
    AddFunctionKeys(e, mask, 0x3005E, 0x30089, 0x3008A);
    Add(e, mask, {{'|', 0x2001C}, {'\'', 0x2001C}});
    Add(e, mask,
        {{0xFF51, 0x30073},
         {0xFF53, 0x30074},
         {0xFF50, 0x30077},
         {0xFF57, 0x30075},
         {0xFF55, 0x30084},
         {0xFF56, 0x30076},
         {0xFF63, 0x30092},
         {0xFF0D, 0x3001C}});
    Add(e, mask,
        {{'a', 0x20001},
         {'f', 0x20006},
         {'j', 0x2000A},
         {'l', 0x2000C},
         {'m', 0x30103},
         {'t', 0x20014},
         {'u', 0x20015},
         {'y', 0x20019}});
    Add(e, mask, {{0xFFAB, 0x30090}, {0xFFAD, 0x3008E}});
    AddKeypadDigits(e, mask, 0x60030);
}

void AddAltShift(Expected& e) {
    const int mask = kAlt | kShift;
    AddFunctionKeys(e, mask, 0x30068, 0x3008B, 0x3008C);
    Add(e, mask, {{0xFF08, 0x3000E}});
    Add(e, mask,
        {{'_', 0x30082},
         {'+', 0x30083},
         {'!', 0x30078},
         {'@', 0x30079},
         {'#', 0x3007A},
         {'$', 0x3007B},
         {'%', 0x3007C},
         {'^', 0x3007D},
         {'&', 0x3007E},
         {'(', 0x30080},
         {')', 0x30081},
         {'{', 0x3001A},
         {'}', 0x3001B},
         {'~', 0x10029},
         {':', 0x30027},
         {'"', 0x30028},
         {'\'', 0x10028}});
}

Expected Documented() {
    Expected e;
    AddPlain(e);
    AddShift(e);
    AddCtrl(e);
    AddAlt(e);
    AddCtrlShift(e);
    AddAltShift(e);
    Add(e, kCtrl | kAlt, {{' ', 0x90039}});
    // Alt, Ctrl and Shift, left and right, with any modifiers.
    Add(e, -1,
        {{0xFFE9, 0x10100},
         {0xFFEA, 0x10100},
         {0xFFE3, 0x10100},
         {0xFFE4, 0x10100},
         {0xFFE1, 0x10100},
         {0xFFE2, 0x10100}});
    return e;
}

TEST(KeyTableTest, HasTheDocumentedRowsAndNoOthers) {
    const Expected expected = Documented();
    EXPECT_EQ(expected.size(), 310u);
    EXPECT_EQ(KeyTable().size(), 310u);
    for (const KeyRow& row : KeyTable()) {
        const auto it = expected.find({row.mask, row.keyval});
        ASSERT_NE(it, expected.end()) << std::hex << row.keyval << " under mask " << row.mask;
        EXPECT_EQ(row.code, it->second) << std::hex << row.keyval << " under mask " << row.mask;
    }
}

// Every key symbol with every combination of Shift, Ctrl and Alt, listed or not.
TEST(KeyTableTest, FindsEachKeyAndNothingElse) {
    const Expected expected = Documented();
    std::vector<uint32_t> keyvals;
    for (uint32_t keyval = 0; keyval < 0x180; keyval++)
        keyvals.push_back(keyval);
    for (uint32_t keyval = 0xFE00; keyval <= 0xFFFF; keyval++)
        keyvals.push_back(keyval);
    int found = 0;
    for (const uint32_t keyval : keyvals) {
        for (const int mask : {0, 1, 4, 5, 8, 9, 12, 13}) {
            auto it = expected.find({mask, keyval});
            if (it == expected.end()) it = expected.find({-1, keyval});
            const int32_t code = it == expected.end() ? 0 : it->second;
            EXPECT_EQ(FindKeyCode(keyval, static_cast<uint32_t>(mask)), code)
                << std::hex << keyval << " with " << mask;
            if (code != 0) found++;
        }
    }
    EXPECT_EQ(found, 304 + 6 * 8);
}

TEST(KeyTableTest, LockBitsDoNotCount) {
    for (const uint32_t lock : {2u, 16u, 18u, 32u, 0x2000u, 0x100u}) {
        EXPECT_EQ(FindKeyCode(0xFFBE, lock), 0x1003B) << lock;
        EXPECT_EQ(FindKeyCode('c', kCtrl | lock), 3) << lock;
    }
}

TEST(KeyTableTest, ListsTheKeypadWithoutNumLockFirstInEachGroup) {
    int mask = -2;
    std::vector<int> masks;
    for (const KeyRow& row : KeyTable()) {
        if (row.mask == mask) continue;
        mask = row.mask;
        masks.push_back(mask);
        const bool keypad = row.keyval >= 0xFF95 && row.keyval <= 0xFFB9;
        EXPECT_EQ(keypad, mask == 0 || mask == 1 || mask == 4 || mask == 5) << mask;
    }
    EXPECT_EQ(masks, (std::vector<int>{0, 1, 4, 8, 5, 9, 12, -1}));
}

}  // namespace
}  // namespace zt
