// The search that a plain Alt-letter starts: the cursor goes to the first name that begins with
// what was typed, case aside. The text is CPanel::searchText. First thread only.
#pragma once

#include "console/read_key.h"
#include "foundation/westring.h"

namespace zt {

struct CPanel;

// The longest text; further characters are dropped.
inline constexpr int kSearchTextLimit = 511;

// The key that ended a search and is still to be handled; code 0 when there is none.
struct SearchEnd {
    int32_t code = 0;
    TEventRecord record;
};

// Adds `character` to the text and goes to the first match from the cursor on, from the start of
// the list after its end; a character without a match is dropped. With no character (0) goes by
// `step` (1 or -1) to the next or previous match, and not past the list's ends; by 0 stays.
// With StickyAlt on, keys are read and searched with as long as there is a text.
[[nodiscard]] SearchEnd QuickSearch(CPanel& panel, int32_t character, int step);

// Makes the text as long as all names that begin with it have in common, spelled as under the
// cursor.
void SearchExtend(CPanel& panel);

// The first name from `start` on, going by `direction` (1 or -1), that begins with the text, case
// aside; -1 when there is none.
int FindByPrefix(const CPanel& panel, const Westring& prefix, int start, int direction);

}  // namespace zt
