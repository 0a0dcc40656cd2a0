// The keys of the section [General Options]: under which name, in which form and in which order
// each setting is kept in the configuration file. First thread only.
#pragma once

#include "foundation/estring.h"
#include "foundation/settings.h"

namespace zt {

enum class SettingType {
    kString,      // Estring, as it stands
    kWideString,  // Westring, as UTF-8; a name's odd bytes stay what they are
    kInteger,     // decimal
    kOnOff,       // bool: on only for the word "on" in any case
    kCharacter,   // char: the first byte
    kTimeMode,    // 24 for exactly "24", otherwise 12
    kSort,        // the last four: one word of a list, stored as its index
    kStyle,
    kPanelType,
    kPanelWidth,
    kColours,  // decimal numbers, one for each colour class
};

struct SettingRow {
    const char* key;
    SettingType type;
    void* variable;  // in `settings`; null for a key that is read over and never written
};

inline constexpr int kSettingCount = 92;

// kSettingCount rows, in the order in which they are written.
const SettingRow* SettingsTable();
// Case is ignored; null for an unknown key.
const SettingRow* FindSetting(const char* key);

void StoreSetting(const SettingRow& row, const char* value);
// The value as it is written; empty for a row without a variable.
Estring SettingText(const SettingRow& row);

}  // namespace zt
