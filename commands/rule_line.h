// One rule of the configuration as a line of text: the mask, ':' or "::", and the command. Pure.
#pragma once

#include "foundation/estring.h"
#include "foundation/rule_lists.h"

namespace zt {

// Cuts a trimmed line at its first ':'. With `mayBeMultiple` a second one right behind it marks
// the rule. False for a line without a ':'.
bool ParseRuleLine(const Estring& line, bool mayBeMultiple, Association& rule);
Estring RuleLine(const Association& rule);

void AddAssociation(AssociationSet& set, const Association& rule);

}  // namespace zt
