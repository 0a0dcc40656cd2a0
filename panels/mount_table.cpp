// Reading the mount table and finding a path in it.
#include "panels/mount_table.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>

#include "foundation/file_name.h"
#include "ui/message_box.h"

namespace zt {

static constexpr int kLongestLine = 1024;

static bool IsOctal(char ch) {
    return ch >= '0' && ch <= '7';
}

// The table writes blanks, tabs, line feeds and backslashes in names as three octal digits.
static Westring UnescapedWord(const char* word) {
    Estring name;
    for (; *word; ++word) {
        if (word[0] == '\\' && IsOctal(word[1]) && IsOctal(word[2]) && IsOctal(word[3])) {
            name +=
                static_cast<char>((word[1] - '0') << 6 | (word[2] - '0') << 3 | (word[3] - '0'));
            word += 3;
        } else {
            name += *word;
        }
    }
    return NameFromBytes(name.c_str());
}

bool ReadMountTable(MountPointStore& list, bool showAll, const char* table) {
    list.Clear();
    FILE* file = fopen(table, "re");
    if (!file) return false;
    char line[kLongestLine + 1];
    while (fgets(line, sizeof line, file)) {
        char* rest = nullptr;
        const char* device = strtok_r(line, " \t\n", &rest);
        const char* mountPoint = strtok_r(nullptr, " \t\n", &rest);
        const char* type = strtok_r(nullptr, " \t\n", &rest);
        if (!type || device[0] == '#') continue;
        if (!showAll && !strchr(device, '/')) continue;
        auto mount = std::make_unique<TMountPoint>();
        mount->device = UnescapedWord(device);
        mount->mountPoint = UnescapedWord(mountPoint);
        mount->fileSystem = UnescapedWord(type);
        list.Append(mount.release());
    }
    fclose(file);
    return true;
}

static bool LiesOn(const Westring& path, const Westring& mountPoint) {
    const int length = mountPoint.Length();
    if (length == 1 && mountPoint[0] == L'/') return true;
    if (wcsncmp(path.c_str(), mountPoint.c_str(), static_cast<size_t>(length)) != 0) return false;
    return path[length] == L'/' || path[length] == 0;
}

const TMountPoint* FindMountOf(const MountPointStore& list, const Westring& path) {
    const TMountPoint* best = nullptr;
    for (int i = 0; i < list.Count(); ++i) {
        const TMountPoint* mount = list.Peek(i);
        if (!LiesOn(path, mount->mountPoint)) continue;
        if (!best || mount->mountPoint.Length() > best->mountPoint.Length()) best = mount;
    }
    return best;
}

bool LookUpMount(const Westring& path, Westring& fileSystem, Westring& mountPoint) {
    char resolved[PATH_MAX];
    if (!realpath(NameToBytes(path).c_str(), resolved)) {
        const Westring reason(Estring::ErrorText(errno));
        MessageBox("error resolving path: " + reason, path.c_str(), kBoxOk);
        return false;
    }
    MountPointStore list;
    if (!ReadMountTable(list, true)) return false;
    const TMountPoint* mount = FindMountOf(list, NameFromBytes(resolved));
    if (!mount) return false;
    fileSystem = mount->fileSystem;
    mountPoint = mount->mountPoint;
    return true;
}

}  // namespace zt
