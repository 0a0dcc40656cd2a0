// readdir, and one or two examinations per entry, relative to the open directory.
#include "panels/directory_scanner.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "foundation/file_name.h"
#include "foundation/result_codes.h"

namespace zt {

// Linux names have at most 255 bytes, but a file system of a user's own may give longer ones.
static constexpr size_t kLongestName = 4096;

DirectoryScanner::DirectoryScanner(const Westring& directory)
    : directory_(directory),
      who_(ProcessIdentity::OfThisProcess()),
      entry_(NewEntry(std::wstring(kLongestName, L' ').c_str())) {}

DirectoryScanner::~DirectoryScanner() {
    if (stream_) closedir(stream_);
    FreeEntry(entry_);
}

int DirectoryScanner::First(entry*& found) {
    if (!stream_) stream_ = opendir(NameToBytes(directory_).c_str());
    if (!stream_) return errno;
    return Next(found);
}

int DirectoryScanner::Next(entry*& found) {
    for (;;) {
        errno = 0;
        const struct dirent64* listed = readdir64(stream_);
        if (!listed) return errno != 0 ? errno : kNoMoreEntries;
        if (strlen(listed->d_name) > kLongestName) continue;
        if (!Fill(*listed)) continue;
        found = entry_;
        return kDone;
    }
}

bool DirectoryScanner::Fill(const struct dirent64& listed) {
    ClearEntry(*entry_);
    NameFromBytes(listed.d_name, entry_->name);
    const int directory = dirfd(stream_);
    struct stat own;
    if (fstatat(directory, listed.d_name, &own, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) return false;
        // A directory that may be listed but not searched: its names are shown all the same, with
        // what the listing itself tells.
        own = {};
        own.st_mode = static_cast<mode_t>(DTTOIF(listed.d_type));
    }
    if (!S_ISLNK(own.st_mode)) {
        FillEntry(*entry_, own, nullptr, who_);
        return true;
    }
    struct stat target;
    const bool found = fstatat(directory, listed.d_name, &target, 0) == 0;
    FillEntry(*entry_, own, found ? &target : nullptr, who_);
    return true;
}

}  // namespace zt
