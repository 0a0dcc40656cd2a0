// Which entries a command is about, and their paths.
#include "fileops/command_targets.h"

#include "fileops/panel_paths.h"
#include "panels/panel.h"
#include "ui/abbreviate_path.h"

namespace zt {

CommandTargets::CommandTargets(CPanel& panel) : panel_(panel), isGroup_(panel.taggedCount > 0) {
    if (!isGroup_) {
        if (panel.Current()) indexes_.push_back(panel.CurrentIndex());
        return;
    }
    indexes_.reserve(static_cast<size_t>(panel.taggedCount));
    for (int i = 0; i < panel.Count(); ++i) {
        if (panel.entries.At(i)->tagged) indexes_.push_back(i);
    }
}

entry& CommandTargets::At(int i) const {
    return *panel_.entries.At(IndexAt(i));
}

Westring CommandTargets::PathAt(int i) const {
    return PathOfEntry(panel_, At(i));
}

Westring CommandTargets::Caption(int width) const {
    if (isGroup_) return Estring::Format("%d file%s", Count(), Count() == 1 ? "" : "s");
    Westring name = At(0).name;
    AbbreviatePath(name, width);
    return name;
}

}  // namespace zt
