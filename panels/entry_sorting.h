// The sort orders of a panel.
#pragma once

#include "panels/entry.h"

namespace zt {

struct CPanel;

// Below 0, 0 or above 0, in the order `sort`: groups first, whatever the direction; then what the
// order says; name decides ties. Orders 4 and 9 compare groups only.
int CompareEntries(const entry& a, const entry& b, int sort);

// Sorts as CompareEntries says; the order of equal entries is open. Orders 4 and 9 leave the array
// as it is. Some 40 bytes an entry are used meanwhile.
void SortEntries(const CPanel& panel, int sort, entry** items, int count);

// Puts the panel's entries in its order. A list that is in the opposite order is only turned round.
void SortPanel(CPanel& panel);

// Makes `sort` the panel's order, in the settings too, and sorts. The cursor stays on its name.
void SetSort(CPanel& panel, int sort);

// Plain to reversed and back.
constexpr int ReversedSort(int sort) {
    return sort < 5 ? sort + 5 : sort - 5;
}

}  // namespace zt
