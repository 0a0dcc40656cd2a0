// Directory and name, or what the tree has under its cursor.
#include "fileops/panel_paths.h"

#include "fileops/destination_toggle.h"
#include "panels/panel.h"
#include "panels/panel_pair.h"

namespace zt {

Westring PanelDirectory(const CPanel& panel) {
    IPanelTree* tree = panel.pair->seams.tree;
    return panel.IsTree() && tree ? tree->SelectedPath(panel) : panel.path;
}

Westring PathOfEntry(const CPanel& panel, const entry& item) {
    return panel.IsTree() ? PanelDirectory(panel) : PathInDirectory(panel.path, item.name);
}

Westring PathInDirectory(const Westring& directory, const Westring& name) {
    return WithTrailingSlash(directory) + name;
}

Westring WithoutTrailingSlash(const Westring& path) {
    Westring result = path;
    while (result.Length() > 1 && result[result.Length() - 1] == L'/')
        result = result.DropRight(1);
    return result;
}

}  // namespace zt
