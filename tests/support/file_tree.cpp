// Making and removing the trees of files of the tests.
#include "tests/support/file_tree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zt::headless {

namespace {

constexpr uid_t kNobody = 65534;

void Check(bool done, const std::string& what) {
    if (!done) ADD_FAILURE() << what << ": " << strerror(errno);
}

std::string TemporaryFolder() {
    const char* asked = getenv("TMPDIR");
    return asked && *asked ? asked : "/tmp";
}

// By descriptors, so that no path grows too long; rights that stand in the way are put right.
void RemoveAt(int folder, const char* name) {
    if (unlinkat(folder, name, 0) == 0) return;
    fchmodat(folder, name, 0700, 0);
    const int inner = openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (inner < 0) return;
    std::vector<std::string> names;
    DIR* list = fdopendir(inner);
    while (const dirent* item = readdir(list)) {
        const std::string_view text = item->d_name;
        if (text != "." && text != "..") names.emplace_back(text);
    }
    for (const std::string& below : names)
        RemoveAt(inner, below.c_str());
    closedir(list);
    unlinkat(folder, name, AT_REMOVEDIR);
}

}  // namespace

time_t UtcTime(int year, int month, int day, int hour, int minute, int second) {
    tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    return timegm(&parts);
}

FileTree::FileTree() {
    std::string pattern = TemporaryFolder() + "/zt-test-XXXXXX";
    Check(mkdtemp(pattern.data()) != nullptr, pattern);
    Check(chmod(pattern.c_str(), 0755) == 0, pattern);
    path = pattern;
}

FileTree::~FileTree() {
    RemoveAt(AT_FDCWD, path.c_str());
}

std::string FileTree::PathOf(std::string_view name) const {
    return name.empty() ? path : path + "/" + std::string(name);
}

FileTree& FileTree::Folder(std::string_view name) {
    std::error_code error;
    std::filesystem::create_directories(PathOf(name), error);
    if (error) ADD_FAILURE() << PathOf(name) << ": " << error.message();
    return *this;
}

FileTree& FileTree::File(std::string_view name, std::string_view content) {
    const size_t slash = name.rfind('/');
    if (slash != std::string_view::npos) Folder(name.substr(0, slash));
    std::ofstream file(PathOf(name), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    Check(!file.fail(), PathOf(name));
    return *this;
}

FileTree& FileTree::FileOfSize(std::string_view name, off_t size) {
    File(name);
    Check(truncate(PathOf(name).c_str(), size) == 0, PathOf(name));
    return *this;
}

FileTree& FileTree::Link(std::string_view name, std::string_view target) {
    Check(symlink(std::string(target).c_str(), PathOf(name).c_str()) == 0, PathOf(name));
    return *this;
}

FileTree& FileTree::Mode(std::string_view name, mode_t mode) {
    Check(chmod(PathOf(name).c_str(), mode) == 0, PathOf(name));
    return *this;
}

FileTree& FileTree::Time(std::string_view name, time_t modified) {
    const timespec times[] = {{modified, 0}, {modified, 0}};
    Check(utimensat(AT_FDCWD, PathOf(name).c_str(), times, AT_SYMLINK_NOFOLLOW) == 0, PathOf(name));
    return *this;
}

FileTree& FileTree::Remove(std::string_view name) {
    RemoveAt(AT_FDCWD, PathOf(name).c_str());
    Check(!Exists(name), PathOf(name));
    return *this;
}

FileTree& FileTree::GiveTo(uid_t user) {
    if (geteuid() != 0) return *this;
    Check(lchown(path.c_str(), user, user) == 0, path);
    for (const auto& item : std::filesystem::recursive_directory_iterator(path)) {
        Check(lchown(item.path().c_str(), user, user) == 0, item.path());
    }
    return *this;
}

bool FileTree::Exists(std::string_view name) const {
    struct stat info;
    return lstat(PathOf(name).c_str(), &info) == 0;
}

std::string FileTree::Content(std::string_view name) const {
    std::ifstream file(PathOf(name), std::ios::binary);
    if (!file) ADD_FAILURE() << PathOf(name) << " cannot be read";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::vector<std::string> FileTree::Names(std::string_view folder) const {
    std::vector<std::string> names;
    for (const auto& item : std::filesystem::directory_iterator(PathOf(folder))) {
        names.push_back(item.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

uid_t OrdinaryUser() {
    return geteuid() == 0 ? kNobody : geteuid();
}

std::vector<std::string> OddNames() {
    return {
        "with blank",
        " leading blank",
        "trailing blank ",
        "quote'single",
        "quote\"double",
        "back\\slash",
        "line\nfeed",
        "tab\tstop",
        "control\x01\x1B\x7F",
        "not\xFFutf8",
        "\xFE",
        "half\xC3",
        "overlong\xC0\xAF",
        "surrogate\xED\xA0\x80",
        "umlaut\xC3\xA4",
        "wide\xE4\xB8\xAD\xE6\x96\x87",
        "combining e\xCC\x81",
        "-dash",
        "*star",
        "?mark",
        std::string(255, 'n'),
    };
}

}  // namespace zt::headless
