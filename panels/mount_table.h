// The table of mounted file systems. First thread only.
#pragma once

#include <cstdint>

#include "foundation/object_store.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr const char* kMountTablePath = "/etc/mtab";

struct TMountPoint {
    Westring device;
    Westring mountPoint;
    Westring fileSystem;
    int64_t totalBytes = -1;  // -1: not known
    int64_t freeBytes = -1;
};

using MountPointStore = TObjectStore<TMountPoint>;

// Reads the table, in its own order. Without `showAll` entries whose device holds no '/' (proc,
// sysfs and the like) are left out. False when the table cannot be read; the list is then empty.
[[nodiscard]] bool ReadMountTable(MountPointStore& list, bool showAll,
                                  const char* table = kMountTablePath);

// The entry whose mount point is the longest that `path` lies on, the first of several; null when
// there is none. `path` is absolute and free of links. Borrowed from the list.
const TMountPoint* FindMountOf(const MountPointStore& list, const Westring& path);

// Looks up the mount of a directory that may be reached through links. A path that cannot be
// resolved is reported in a message box. False when no mount was found.
bool LookUpMount(const Westring& path, Westring& fileSystem, Westring& mountPoint);

}  // namespace zt
