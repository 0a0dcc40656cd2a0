#include "console/program/working_directory.h"

#include <unistd.h>
#include <cstdlib>
#include <memory>

#include "foundation/file_name.h"

namespace zt {

namespace {

// The shell's idea of where we are outlives the directory itself.
Westring NearestExisting() {
    const char* shellDirectory = getenv("PWD");
    Westring path = shellDirectory ? NameFromBytes(shellDirectory) : Westring();
    while (path.Length() > 1 && path[0] == L'/') {
        if (access(NameToBytes(path).c_str(), X_OK) == 0) return path;
        path = ParentOfPath(path);
    }
    return L"/";
}

}  // namespace

Westring StartDirectory() {
    const std::unique_ptr<char, decltype(&free)> bytes(getcwd(nullptr, 0), &free);
    // A directory outside the process's root is reported with a mark in front of its path.
    if (!bytes || bytes.get()[0] != '/') return NearestExisting();
    return NameFromBytes(bytes.get());
}

}  // namespace zt
