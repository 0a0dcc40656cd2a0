// The steps that deleting consists of, for one object in an open directory: what delete.h offers
// by path is made of them, and so is the deletion of a tree. First thread only.
#pragma once

#include "fileops/delete.h"
#include "fileops/descriptions.h"

namespace zt {

// One file or directory: `name`, in bytes, is looked up in the directory open at `directory`
// (AT_FDCWD: the working directory). `path` is the same as the user knows it.
struct DeleteSubject {
    int directory;
    const char* name;
    const Westring& path;
};

// As DeleteFile. Without `removals` the description file is changed at once.
[[nodiscard]] int DeleteFileIn(FileOperation& operation, const DeleteSubject& subject,
                               DeleteFileMode mode, IPausablePainter* painter,
                               DescriptionRemovals* removals);

// As DeleteDirectory.
[[nodiscard]] int DeleteDirectoryIn(FileOperation& operation, PanelPair* panels,
                                    const DeleteSubject& subject, const Westring* mask,
                                    IPausablePainter* painter);

// A directory that is not empty: asks, then deletes what is in it and the directory. kCancelled
// when refused or stopped, 0 inside another deletion of a tree, 1 when the deletion ran through.
[[nodiscard]] int DeleteTreePrompt(FileOperation& operation, PanelPair* panels,
                                   const DeleteSubject& subject, const Westring* mask,
                                   IPausablePainter* painter);

// The same without the question. 0 when it came to its end, 1 when it was stopped.
[[nodiscard]] int DeleteTreeContents(FileOperation& operation, PanelPair* panels,
                                     const DeleteSubject& subject, const Westring* mask,
                                     IPausablePainter* painter);

}  // namespace zt
