// Reads a directory into one block of memory.
#include "fileops/name_list.h"

#include <dirent.h>

#include <cerrno>
#include <cstring>

#include <string_view>
#include <unordered_set>

namespace zt {

namespace {

bool IsDots(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

int NameList::Read(const Estring& directory) {
    names_.clear();
    at_ = 0;
    DIR* stream = opendir(directory.c_str());
    if (!stream) return errno;
    int code = 0;
    for (;;) {
        errno = 0;
        const struct dirent64* listed = readdir64(stream);
        if (!listed) {
            code = errno;
            break;
        }
        if (IsDots(listed->d_name)) continue;
        names_.push_back(static_cast<char>(listed->d_type));
        names_.insert(names_.end(), listed->d_name,
                      listed->d_name + std::strlen(listed->d_name) + 1);
    }
    closedir(stream);
    if (code != 0) names_.clear();
    return code;
}

bool NameList::Next(Name& name) {
    if (at_ >= names_.size()) return false;
    name.type = static_cast<unsigned char>(names_[at_]);
    name.bytes = &names_[at_ + 1];
    at_ += std::strlen(name.bytes) + 2;
    return true;
}

bool NameList::IsPartOf(NameList& other) {
    if (names_.empty()) return true;
    std::unordered_set<std::string_view> known;
    Name name;
    other.Rewind();
    while (other.Next(name))
        known.insert(name.bytes);
    Rewind();
    while (Next(name)) {
        if (known.count(name.bytes) == 0) return false;
    }
    return true;
}

}  // namespace zt
