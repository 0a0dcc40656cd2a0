// How what the system says of a file becomes an entry: flags, group and what a link takes from
// its target. Pure functions.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include "panels/entry.h"

namespace zt {

// For whom the read-only flag is decided.
struct ProcessIdentity {
    uid_t user;
    gid_t group;

    static ProcessIdentity OfThisProcess();
};

// By the mode bits alone: true unless others may write, or the group when it is the process's, or
// the owner when it is the process's user.
bool IsReadOnlyFor(const ProcessIdentity& who, mode_t mode, uid_t owner, gid_t group);

// A full stop in front, and the name is not "..". "." itself is hidden.
bool IsHiddenName(const wchar_t* name);

// "..", directories, hidden files, others.
char GroupOf(const entry& e);

// Fills size, flags, mode, owner and time of a cleared entry whose name is set. `target` is what
// the link points to, null when that could not be examined; it is not looked at for others.
void FillEntry(entry& e, const struct stat& own, const struct stat* target,
               const ProcessIdentity& who);

}  // namespace zt
