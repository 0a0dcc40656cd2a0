// What the system knows of one file, as labelled lines of text. First thread: sizes are written as
// the locale has them, and the user and group databases are asked.
#pragma once

#include <sys/stat.h>

#include "foundation/estring.h"
#include "foundation/object_store.h"
#include "foundation/westring.h"

namespace zt {

struct CFileInfoItem {
    Estring label;
    Westring text;
};

class CFileInfoItems : public TObjectStore<CFileInfoItem> {
public:
    void Add(const char* label, const Westring& text);
};

// The lines for a file of which lstat says `data`. `target` is what it links to, empty when it is
// no link or that is not known; it is shown in at most `targetWidth` characters.
void FillFileInfo(const struct stat& data, const Westring& target, int targetWidth,
                  CFileInfoItems& items);

}  // namespace zt
