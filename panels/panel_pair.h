// The two panels, which of them is active, and what they share. The main function owns the one
// PanelPair of the program. First thread only.
#pragma once

#include "panels/directory_history.h"
#include "panels/owner_names.h"
#include "panels/panel.h"
#include "panels/panel_seams.h"

namespace zt {

struct PanelPair {
    CPanel panel[2] = {{*this, 0}, {*this, 1}};
    int active = 0;
    int lastActivated = -1;  // the side for which headers and title were drawn last
    // While set, a panel that is to read the directory that the other has just read takes its list
    // over, rather than asking the disk twice.
    bool sharesReads = false;
    DirectoryHistory directoryHistory;
    // The last expression by which a group was tagged or untagged, on either side.
    Westring lastGroupPattern = "*";
    OwnerNames owners;
    PanelSeams seams;

    CPanel& Active() { return panel[active]; }
    CPanel& Inactive() { return panel[1 - active]; }
};

}  // namespace zt
