// The user menu as it was read from its file. First thread only.
#pragma once

#include <cstdint>
#include <memory>

#include "foundation/object_store.h"
#include "foundation/string_lists.h"
#include "foundation/westring.h"

namespace zt {

class MenuStore;

struct MenuEntry {
    MenuEntry();
    ~MenuEntry();
    MenuEntry(const MenuEntry&) = delete;
    MenuEntry& operator=(const MenuEntry&) = delete;

    int32_t key = 0;                     // a code of key_codes.h
    Westring keyText;                    // as it is written, in upper case
    Westring text;                       // the description
    WestringStore commands;              // in the order of the file
    std::unique_ptr<MenuStore> subMenu;  // null for none
};

class MenuStore : public TObjectStore<MenuEntry> {
public:
    int32_t keyWidth = 0;  // of the longest keyText
};

}  // namespace zt
