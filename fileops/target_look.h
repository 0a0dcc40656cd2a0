// What stands under a name to which something is to go, by one look at that name. Any thread.
#pragma once

#include <sys/stat.h>

#include "fileops/file_operation.h"
#include "foundation/estring.h"

namespace zt {

struct TargetLook {
    int error = 0;             // why it cannot be told; ENOENT: nothing stands there
    struct stat status {};     // the name's own: a link's is the link's
    struct timespec modified;  // of what a link points to, if that exists
    bool isLink = false;
    bool isDirectory = false;  // these two count for what a link points to as well
    bool isDevice = false;     // a device, FIFO or socket: written as it is, never replaced

    bool Stands() const { return error == 0; }
    FileIdentity Identity() const { return {status.st_dev, status.st_ino}; }
};

// A path of file_name.h's bytes.
TargetLook LookAtTarget(const Estring& path);

inline FileIdentity IdentityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}
// The errno value of lstat, 0 when it could be told.
int LinkStatus(const Estring& path, struct stat& status);
// The same with links followed.
int FollowedStatus(const Estring& path, struct stat& status);

// Both names are one entry of one directory, by whatever ways they lead there. False for two hard
// links of one file.
bool IsSameEntry(const Estring& one, const Estring& other);

}  // namespace zt
