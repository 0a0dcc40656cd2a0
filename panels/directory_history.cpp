// The visited directories.
#include "panels/directory_history.h"

#include <cwchar>

namespace zt {

static bool SamePath(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

void DirectoryHistory::Record(const Westring& path) {
    for (const Westring* item = First(); item;) {
        if (SamePath(*item, path)) {
            DeleteCurrent();
            item = Current();
        } else {
            item = Next();
        }
    }
    Append(new Westring(path));
    if (Count() > kDirectoryHistoryLimit) {
        At(0);
        DeleteCurrent();
    }
}

void DirectoryHistory::DropNewest(const Westring& path) {
    const Westring* newest = Last();
    if (newest && SamePath(*newest, path)) DeleteCurrent();
}

}  // namespace zt
