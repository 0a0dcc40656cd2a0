// Tags on many entries of a panel at once: by a filter expression that the user types, on all, or
// as they were before the last operation. First thread only.
#pragma once

#include "foundation/westring.h"
#include "panels/filter_compiled.h"
#include "panels/tagging.h"

namespace zt {

struct CPanel;

// Names that only a tag of their own reaches, never one for a group.
bool IsProtectedName(const wchar_t* name);

// Asks for an expression and tags or untags what it matches (kSet, kClear). The last expression is
// PanelPair's. `modifiers` are kModifier bits: with Shift the setting TagDirs counts the other way
// round.
void SelectGroup(CPanel& panel, TagMode mode, int modifiers);

// All entries, toggled with kToggle. Directories are tagged when either TagDirs is on or Shift is
// held, but not both; a clearing takes everything.
void TagAll(CPanel& panel, TagMode mode, int modifiers);

// Gives back the tags of the entries that the last operation has finished.
void RestoreSelection(CPanel& panel);

// The work of SelectGroup once the question is answered. `directories`: they take part.
void TagMatching(CPanel& panel, CompiledFilter& filter, TagMode mode, bool directories);

}  // namespace zt
