// Reading links, each once.
#include "panels/link_targets.h"

#include <unistd.h>

#include <climits>
#include <cwchar>
#include <memory>

#include "foundation/file_name.h"
#include "panels/panel_pair.h"

namespace zt {

int CLinkTargetCache::Compare(const Westring* a, const Westring* b) {
    return wcscmp(a->c_str(), b->c_str());
}

static Westring ReadLink(const Westring& path) {
    char target[PATH_MAX + 1];
    const ssize_t length = readlink(NameToBytes(path).c_str(), target, PATH_MAX);
    if (length < 0) return Westring();
    target[length] = 0;
    return NameFromBytes(target);
}

const Westring& CLinkTargetCache::TargetOf(const Westring& directory, const wchar_t* name) {
    const Westring link(name);
    if (const TLinkTargetCacheEntry* known = Find(&link)) return known->target;
    Westring path = directory;
    path.AddTrailingSlash();
    path += name;
    auto fresh = std::make_unique<TLinkTargetCacheEntry>();
    fresh->link = link;
    fresh->target = ReadLink(path);
    TLinkTargetCacheEntry* kept = fresh.get();
    if (Insert(kept)) fresh.release();  // always: the key was not there
    return kept->target;
}

void ResolveLinkTarget(CPanel& panel, const entry& link, Westring& target) {
    IPanelArchives* archives = panel.pair->seams.archives;
    if (panel.archive && archives) {
        target = archives->LinkTarget(panel, link);
    } else {
        target = panel.linkTargets.TargetOf(panel.path, link.name);
    }
}

}  // namespace zt
