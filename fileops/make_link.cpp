// symlink, and the way from a directory to a file.
#include "fileops/make_link.h"

#include <unistd.h>

#include <cerrno>
#include <cwchar>
#include <vector>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/result_codes.h"
#include "ui/file_error_box.h"

namespace zt {

namespace {

std::vector<Westring> ComponentsOf(const Westring& path) {
    std::vector<Westring> components;
    int start = 0;
    for (int i = 0; i <= path.Length(); ++i) {
        if (i < path.Length() && path[i] != L'/') continue;
        if (i > start) components.push_back(path.Left(i).Right(i - start));
        start = i + 1;
    }
    return components;
}

void AddComponent(Westring& path, const Westring& component) {
    if (!path.IsEmpty()) path += L'/';
    path += component;
}

}  // namespace

Westring RelativeLinkText(const Westring& linkDirectory, const Westring& target) {
    const std::vector<Westring> from = ComponentsOf(linkDirectory);
    const std::vector<Westring> to = ComponentsOf(target);
    size_t common = 0;
    while (common < from.size() && common < to.size() &&
           wcscmp(from[common].c_str(), to[common].c_str()) == 0) {
        ++common;
    }
    Westring text;
    for (size_t i = common; i < from.size(); ++i)
        AddComponent(text, L"..");
    for (size_t i = common; i < to.size(); ++i)
        AddComponent(text, to[i]);
    // The directory itself; no link can be empty.
    return text.IsEmpty() ? Westring(L".") : text;
}

int MakeLink(const Westring& linkPath, const Westring& targetPath, bool relative,
             bool isDirectory) {
    if (relative) {
        Westring directory = ParentOfPath(linkPath);
        if (NormalizePath(directory, nullptr) != 0) directory = ParentOfPath(linkPath);
        return MakeLink(linkPath, RelativeLinkText(directory, targetPath), false, isDirectory);
    }
    const Estring target = NameToBytes(targetPath);
    const Estring link = NameToBytes(linkPath);
    for (;;) {
        if (symlink(target.c_str(), link.c_str()) == 0) return 1;
        int code = errno;
        bool stop = false;
        FileErrorBox(code, stop, targetPath.c_str(), linkPath.c_str());
        if (code == kCancelled) return 0;
        if (stop) return 1;
    }
}

}  // namespace zt
