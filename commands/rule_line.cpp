#include "commands/rule_line.h"

#include "foundation/file_name.h"

namespace zt {

bool ParseRuleLine(const Estring& line, bool mayBeMultiple, Association& rule) {
    const int colon = line.Find(':');
    if (colon < 0) return false;
    rule.multiple = mayBeMultiple && line[colon + 1] == ':';
    const int behind = colon + (rule.multiple ? 2 : 1);
    rule.mask = NameFromBytes(line.Left(colon).Trim().c_str());
    rule.command = NameFromBytes(line.Right(line.Length() - behind).Trim().c_str());
    return true;
}

Estring RuleLine(const Association& rule) {
    const char* separator = rule.multiple ? ":: " : ": ";
    return NameToBytes(rule.mask) + separator + NameToBytes(rule.command);
}

void AddAssociation(AssociationSet& set, const Association& rule) {
    set.Append(new Association(rule));
}

}  // namespace zt
