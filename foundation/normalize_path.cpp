#include "foundation/normalize_path.h"

#include <unistd.h>

#include <cstdlib>
#include <cwchar>

#include "foundation/file_name.h"

namespace zt {

namespace {

// How many levels a part goes up: n - 1 for n dots, n at least 2; otherwise 0.
int LevelsUp(const wchar_t* part, int length) {
    for (int i = 0; i < length; i++) {
        if (part[i] != '.') return 0;
    }
    return length >= 2 ? length - 1 : 0;
}

// Cuts the last part off; false at the root, which is the empty text here.
bool GoUp(Westring& result) {
    const int slash = result.FindLast('/');
    if (slash < 0) return false;
    result = result.Left(slash);
    return true;
}

// Walks the parts of `path` from where `result` stands. A longer row of dots than two is a way up
// in what the user wrote, and a name in what the system gave.
bool Walk(Westring& result, const wchar_t* path, bool dotsGoUp) {
    while (*path) {
        const auto length = static_cast<int>(wcscspn(path, L"/"));
        const int levels = LevelsUp(path, length);
        const bool current = length == 0 || (length == 1 && *path == '.');
        if (levels > 0 && (dotsGoUp || levels == 1)) {
            for (int i = 0; i < levels; i++) {
                if (!GoUp(result)) return false;
            }
        } else if (!current) {
            Westring part;
            part.Assign(path, length);
            result += L'/';
            result += part;
        }
        path += length;
        if (*path) path++;
    }
    return true;
}

}  // namespace

Westring WorkingDirectory() {
    char* bytes = getcwd(nullptr, 0);
    if (!bytes) return Westring();
    Westring directory = NameFromBytes(bytes);
    free(bytes);
    return directory;
}

int NormalizePath(Westring& path, const wchar_t* base) {
    Westring slashed = path;
    for (int i = slashed.Find('\\'); i >= 0 && i < slashed.Length(); i++) {
        if (slashed[i] == '\\') slashed.SetAt(i, '/');
    }
    Westring result;
    if (slashed[0] != '/') {
        const Westring start = base ? Westring(base) : WorkingDirectory();
        if (start.IsEmpty() || !Walk(result, start.c_str(), false)) return -1;
    }
    if (!Walk(result, slashed.c_str(), true)) return -1;
    path = result.IsEmpty() ? Westring("/") : result;
    return 0;
}

}  // namespace zt
