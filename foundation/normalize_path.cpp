#include "foundation/normalize_path.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cwchar>

#include "foundation/file_name.h"

namespace zt {

namespace {

int PartLength(const wchar_t* path, const wchar_t* separators) {
    return static_cast<int>(wcscspn(path, separators));
}

// How many levels a part goes up: n - 1 for n dots, n at least 2; otherwise 0.
int LevelsUp(const wchar_t* part, int length) {
    for (int i = 0; i < length; i++) {
        if (part[i] != '.') return 0;
    }
    return length >= 2 ? length - 1 : 0;
}

bool IsNothing(const wchar_t* part, int length) {
    return length == 0 || (length == 1 && *part == '.');
}

// Cuts the last part off; false at the root, which is the empty text here.
bool GoUp(Westring& result) {
    const int slash = result.FindLast('/');
    if (slash < 0) return false;
    result = result.Left(slash);
    return true;
}

void GoDown(Westring& result, const wchar_t* part, int length) {
    result += L'/';
    result.Append(part, length);
}

// Whether the rules would read the part as more than a name, but there is something of that name.
bool IsOddName(const Westring& directory, const wchar_t* part, int length) {
    const bool isOdd = LevelsUp(part, length) > 1 || PartLength(part, L"/\\") < length;
    if (!isOdd || length > NAME_MAX || directory.Length() > PATH_MAX) return false;
    Westring path = directory;
    GoDown(path, part, length);
    struct stat found;
    return lstat(NameToBytes(path).c_str(), &found) == 0;
}

// Walks the parts of a path that the system gave from where `result` stands.
void WalkNames(Westring& result, const wchar_t* path) {
    while (*path) {
        const int length = PartLength(path, L"/");
        if (LevelsUp(path, length) == 1) {
            GoUp(result);
        } else if (!IsNothing(path, length)) {
            GoDown(result, path, length);
        }
        path += length;
        if (*path) path++;
    }
}

// The same for a path that somebody wrote; false when it leads past the root.
bool WalkWritten(Westring& result, const wchar_t* path) {
    while (*path) {
        int length = PartLength(path, L"/");
        const bool isName = IsOddName(result, path, length);
        if (!isName) length = PartLength(path, L"/\\");
        const int levels = isName ? 0 : LevelsUp(path, length);
        for (int i = 0; i < levels; i++) {
            if (!GoUp(result)) return false;
        }
        if (levels == 0 && !IsNothing(path, length)) GoDown(result, path, length);
        path += length;
        if (*path) path++;
    }
    return true;
}

Westring StartOf(const wchar_t* base) {
    return base ? Westring(base) : WorkingDirectory();
}

Westring OrRoot(const Westring& result) {
    return result.IsEmpty() ? Westring("/") : result;
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
    Westring result;
    if (path[0] != '/') {
        const Westring start = StartOf(base);
        WalkNames(result, start.c_str());
        const wchar_t* first = path.c_str();
        const bool isName = !start.IsEmpty() && IsOddName(result, first, PartLength(first, L"/"));
        if (path[0] == '\\' && !isName) {
            result.Clear();
        } else if (start.IsEmpty()) {
            return -1;
        }
    }
    if (!WalkWritten(result, path.c_str())) return -1;
    path = OrRoot(result);
    return 0;
}

int MakeAbsolute(Westring& path, const wchar_t* base) {
    Westring result;
    if (path[0] != '/') {
        const Westring start = StartOf(base);
        if (start.IsEmpty()) return -1;
        WalkNames(result, start.c_str());
    }
    WalkNames(result, path.c_str());
    path = OrRoot(result);
    return 0;
}

}  // namespace zt
