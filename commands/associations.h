// What the configuration's rules say is to be done with a file. First thread only.
#pragma once

#include "commands/loop_state.h"
#include "commands/temporary_list.h"
#include "foundation/object_store.h"
#include "foundation/rule_lists.h"

namespace zt {

// The rules that matched; they belong to their set.
class CAssociationList : public TObjectList<Association> {};

enum class AssociationResult { kCancelled = -1, kNone = 0, kFound = 1 };

// The command of the first rule whose mask matches the bare name: tests of anything else see an
// empty file.
[[nodiscard]] bool FindFirstAssociation(AssociationSet& set, const wchar_t* name,
                                        Westring& command);
// The command of the rules that match the entry. Rules written with "::" make a menu, which the
// next plain rule closes; the user chooses, and may cancel.
[[nodiscard]] AssociationResult FindAssociation(AssociationSet& set, const entry& e,
                                                Westring& command);

// What Enter does with a file of the active panel: the expanded command of its rule, or the file
// itself where it may be executed. `lists` must outlive the command.
[[nodiscard]] AssociationResult RunAssociation(LoopState& state, const entry& e, Westring& command,
                                               TemporaryLists& lists);

// A rule's, viewer's or editor's template for one file of the active panel. False when the user
// cancelled.
[[nodiscard]] bool ExpandForFile(LoopState& state, const Westring& text, const Westring& name,
                                 TemporaryLists& lists, Westring& command);

}  // namespace zt
