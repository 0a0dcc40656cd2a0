// The file of the user menu: text, a menu of commands for the shell.
//
//     F2: Description            the key, a colon and what the menu shows
//     A @ *.c: Description       only with the cursor on an entry that the expression matches
//         command                lines with white space in front: the commands of the entry above
//     {                          a menu of its own for the entry above
//     }
//     !include file              another file's lines, found beside this one
//     // a comment
//
// Keys are one character, F1 to F12, and those with C, S or A (Ctrl, Shift, Alt) in front. Lines
// that are none of this are passed over. First thread only.
#pragma once

#include <vector>

#include "commands/menu_entries.h"
#include "panels/entry.h"

namespace zt {

// Reads the file into the menu. `current` is the entry that conditions are about, or null. False
// when the file cannot be opened. A box tells of an included file that cannot be.
[[nodiscard]] bool ReadMenuFile(const Westring& path, const entry* current, MenuStore& menu);

// Where menu files come from, and who hears that an included one is missing.
struct IMenuFiles {
    virtual ~IMenuFiles() = default;
    // Adds the lines of the file, without their ends. False when it cannot be read.
    [[nodiscard]] virtual bool ReadLines(const Westring& path, std::vector<Westring>& lines) = 0;
    virtual void TellMissing(const Westring& name) = 0;
};
// As above, from those files. A file that includes itself misses itself.
[[nodiscard]] bool ReadMenuFile(IMenuFiles& files, const Westring& path, const entry* current,
                                MenuStore& menu);

// The code of a key as the file names it, in upper case; 0 for none.
int32_t MenuKeyCode(const Westring& keyText);

}  // namespace zt
