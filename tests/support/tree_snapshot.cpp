// Reading a tree, and comparing two readings.
#include "tests/support/tree_snapshot.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <climits>
#include <cstring>

namespace zt::headless {

namespace {

constexpr mode_t kRights = 07777;

uint64_t ContentsOf(int folder, const char* name) {
    uint64_t sum = 14695981039346656037u;
    const int file = openat(folder, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) return 0;
    char bytes[65536];
    for (ssize_t n; (n = read(file, bytes, sizeof bytes)) > 0;) {
        for (ssize_t i = 0; i < n; i++)
            sum = (sum ^ static_cast<unsigned char>(bytes[i])) * 1099511628211u;
    }
    close(file);
    return sum;
}

std::string LinkOf(int folder, const char* name) {
    char text[PATH_MAX];
    const ssize_t n = readlinkat(folder, name, text, sizeof text);
    return n < 0 ? "" : std::string(text, static_cast<size_t>(n));
}

FileState StateOf(int folder, const char* name) {
    struct stat info {};
    if (fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW) != 0) return {};
    FileState state;
    state.type = info.st_mode & S_IFMT;
    state.rights = info.st_mode & kRights;
    state.modified = info.st_mtim;
    if (S_ISREG(info.st_mode)) {
        state.size = static_cast<uint64_t>(info.st_size);
        state.contents = ContentsOf(folder, name);
    }
    if (S_ISLNK(info.st_mode)) state.link = LinkOf(folder, name);
    return state;
}

void Walk(int folder, const std::string& prefix, TreeSnapshot& out) {
    DIR* const list = fdopendir(folder);
    if (!list) {
        close(folder);
        return;
    }
    while (const dirent* item = readdir(list)) {
        const std::string name = item->d_name;
        if (name == "." || name == "..") continue;
        const FileState state = StateOf(dirfd(list), name.c_str());
        if (state.type == S_IFDIR) {
            const int inner =
                openat(dirfd(list), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (inner >= 0) Walk(inner, prefix + name + "/", out);
        }
        out[prefix + name] = state;
    }
    closedir(list);
}

bool SameTime(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

std::string Described(const FileState& state) {
    char text[200];
    snprintf(text, sizeof text, "type %o rights %o size %llu contents %llx time %lld.%09ld",
             state.type, state.rights, static_cast<unsigned long long>(state.size),
             static_cast<unsigned long long>(state.contents),
             static_cast<long long>(state.modified.tv_sec), state.modified.tv_nsec);
    return state.link.empty() ? text : std::string(text) + " -> " + Shown(state.link);
}

}  // namespace

bool FileState::HoldsSameAs(const FileState& other) const {
    return type == other.type && size == other.size && contents == other.contents &&
           link == other.link;
}

bool FileState::IsWholeCopyOf(const FileState& other) const {
    if (!HoldsSameAs(other)) return false;
    return type != S_IFREG || (rights == other.rights && SameTime(modified, other.modified));
}

bool FileState::operator==(const FileState& other) const {
    if (!HoldsSameAs(other) || rights != other.rights) return false;
    return type == S_IFDIR || SameTime(modified, other.modified);
}

TreeSnapshot TakeSnapshot(const std::string& folder) {
    TreeSnapshot out;
    const int top = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (top < 0) {
        ADD_FAILURE() << folder << ": " << strerror(errno);
        return out;
    }
    Walk(top, "", out);
    return out;
}

std::string Shown(const std::string& path) {
    std::string out;
    for (const char c : path) {
        const bool plain = c >= ' ' && c <= '~' && c != '\\';
        char code[8];
        snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(c));
        out += plain ? std::string(1, c) : code;
    }
    return out;
}

std::string Differences(const TreeSnapshot& before, const TreeSnapshot& after) {
    std::string out;
    for (const auto& [path, state] : before) {
        const auto now = after.find(path);
        if (now == after.end()) {
            out += "gone: " + Shown(path) + "\n";
        } else if (!(now->second == state)) {
            out += "changed: " + Shown(path) + "\n  was " + Described(state) + "\n  is  " +
                   Described(now->second) + "\n";
        }
    }
    for (const auto& [path, state] : after) {
        if (!before.contains(path)) out += "new: " + Shown(path) + " " + Described(state) + "\n";
    }
    return out;
}

}  // namespace zt::headless
