// The panels' copy and move command, from the dialog to the panels read anew. First thread only.
#pragma once

#include "foundation/westring.h"
#include "panels/panel_pair.h"

namespace zt {

// Bits of the command's flags.
inline constexpr int kCommandMoves = 1;
inline constexpr int kCommandSuggestsName = 2;  // the current entry's bare name: the rename form

// Copies or moves what is tagged in `source`, or else its current entry, to where the user says.
// `other` gives the suggestion. With a preset destination nobody is asked for one.
// What could not be done stays tagged; what was done can be tagged again by restoring the
// selection.
void CopyMoveCommand(CPanel& source, CPanel& other, int flags,
                     const Westring* presetDestination = nullptr);

}  // namespace zt
