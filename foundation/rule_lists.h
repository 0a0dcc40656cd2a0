// The rules of the configuration that tie files to a text: to the command that Enter, the viewer
// key or the editor key runs, or to the colour of their names. First thread only.
#pragma once

#include "foundation/object_store.h"
#include "foundation/westring.h"

namespace zt {

struct Association {
    Westring mask;          // a filter expression
    Westring command;       // a command line, or the text of a colour
    bool multiple = false;  // written with "::": further rules may join it in a menu
};

// Rules in the order of the file; the first that matches counts.
class AssociationSet : public TObjectStore<Association> {};

enum RuleList {
    kRunRules,
    kViewerRules,
    kEditorRules,
    kFileColourRules,
    kDirectoryColourRules,
};
inline constexpr int kRuleListCount = 5;

}  // namespace zt
