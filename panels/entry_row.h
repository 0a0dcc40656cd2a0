// An entry as cells: its colour, its name field, and its row in each style. Pure of the screen.
// First thread only.
#pragma once

#include "console/cell_string.h"
#include "panels/panel.h"

namespace zt {

// By tag, kind and colour rules.
Attribute AttributeOf(const CPanel& panel, const entry& e);
// Of the cursor bar on the entry.
Attribute BarAttributeOf(const entry& e);

// The name, for a link with its target, cut or padded to `width` cells. `shift`, when given, moves
// a long text to the left, and is lowered first to what the text has hidden at its right.
CellString NameField(CPanel& panel, const entry& e, int width, Attribute attribute,
                     int* shift = nullptr);
// The same without marks and cutting, for the status row.
CellString WholeName(CPanel& panel, const entry& e, Attribute attribute);

// One entry's cells in a style below the tree: a name field in brief and briefwide, a whole row in
// others. `nameWidth` is that of PlaceOf.
CellString EntryCells(CPanel& panel, const entry& e, int style, int nameWidth, Attribute attribute,
                      int* shift = nullptr);

}  // namespace zt
