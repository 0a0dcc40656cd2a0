#include "commands/find_program.h"

#include <sys/stat.h>

#include <cstdlib>
#include <string>

#include "foundation/file_name.h"
#include "foundation/settings.h"

namespace zt {

namespace {

bool Exists(const char* path) {
    struct stat found = {};
    return stat(path, &found) == 0;
}

// With a ':' between the two.
std::string SearchPath() {
    const char* path = getenv("PATH");
    std::string directories = path && *path ? path : ".";
    if (!settings.pathAppend.IsEmpty()) {
        if (directories.back() != ':') directories += ':';
        directories += NameToBytes(settings.pathAppend).c_str();
    }
    return directories;
}

}  // namespace

bool FindProgram(const Westring& name, Westring& found) {
    if (name.IsEmpty()) return false;
    const std::string bytes = NameToBytes(name).c_str();
    if (bytes.find('/') != std::string::npos && Exists(bytes.c_str())) {
        found = name;
        return true;
    }
    const std::string directories = SearchPath();
    for (size_t start = 0; start < directories.size();) {
        size_t end = directories.find(':', start);
        if (end == std::string::npos) end = directories.size();
        const std::string path = directories.substr(start, end - start) + '/' + bytes;
        if (end > start && Exists(path.c_str())) {
            found = NameFromBytes(path.c_str());
            return true;
        }
        start = end + 1;
    }
    return false;
}

bool IsExecutable(const Westring& path) {
    struct stat found = {};
    return stat(NameToBytes(path).c_str(), &found) == 0 && (found.st_mode & 0111) != 0;
}

}  // namespace zt
