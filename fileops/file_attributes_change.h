// Giving a file another owner, group or mode, and bringing its entry in a panel up to date
// afterwards. First thread only.
#pragma once

#include <sys/types.h>

#include <optional>

#include "fileops/file_attributes_mode.h"
#include "foundation/westring.h"

namespace zt {

struct CPanel;
struct entry;

struct AttributeChange {
    AttributeStates states{};
    bool isGroup = false;  // the states are those of the form for several files
    // Nothing: it stays.
    std::optional<uid_t> user;
    std::optional<gid_t> group;
};

// Owner and group first, since the system takes set-id bits away with them, then the mode. What is
// as wanted already is not set again. A symbolic link passes it all on to its target, but whether
// owner or group differ is seen from the link's own. `mode` is that of the entry. 0 or an errno
// value.
[[nodiscard]] int ChangeAttributes(const Westring& path, uint16_t mode,
                                   const AttributeChange& change);

// Takes what the system now says of the file over into its entry, the tagged bytes of the panel
// with it. The known total of a directory stays. Nothing happens when the file is gone.
void RefreshEntry(CPanel& panel, entry& item, const Westring& path);

// The account or group of that name, if there is one.
std::optional<uid_t> UserOfName(const Westring& name);
std::optional<gid_t> GroupOfName(const Westring& name);
// The names of the owner and the group of the file (of the link itself); empty when they have none
// or the file is gone.
struct OwnerTexts {
    Westring user;
    Westring group;
};
OwnerTexts OwnersOfFile(const Westring& path);

}  // namespace zt
