#include "fileops/raw_listing.h"

#include <dirent.h>

#include <algorithm>
#include <cstring>

namespace zt {

namespace {

constexpr size_t kBlockBytes = 65536;

bool IsItselfOrParent(const char* name) {
    return strcmp(name, ".") == 0 || strcmp(name, "..") == 0;
}

}  // namespace

bool RawListing::Read(int directory) {
    rows_.clear();
    next_ = 0;
    std::vector<char> block(kBlockBytes);
    for (bool isFirst = true;; isFirst = false) {
        const ssize_t got = getdents64(directory, block.data(), block.size());
        if (got <= 0) {
            if (inodes_.size() > kSortedFrom) SortByInode();
            inodes_ = {};
            return got == 0 || !isFirst;
        }
        for (ssize_t at = 0; at < got;) {
            const auto* listed = reinterpret_cast<const dirent64*>(block.data() + at);
            at += listed->d_reclen;
            if (IsItselfOrParent(listed->d_name)) continue;
            inodes_.emplace_back(listed->d_ino, rows_.size());
            rows_.push_back(static_cast<char>(listed->d_type));
            rows_.insert(rows_.end(), listed->d_name, listed->d_name + strlen(listed->d_name) + 1);
        }
    }
}

void RawListing::SortByInode() {
    std::sort(inodes_.begin(), inodes_.end());
    std::vector<char> sorted;
    sorted.reserve(rows_.size());
    for (const auto& [inode, place] : inodes_) {
        const char* row = rows_.data() + place;
        sorted.insert(sorted.end(), row, row + strlen(row + 1) + 2);
    }
    rows_ = std::move(sorted);
}

bool RawListing::Has(const char* name) const {
    for (size_t at = 0; at < rows_.size();) {
        const char* listed = rows_.data() + at + 1;
        if (strcmp(listed, name) == 0) return true;
        at += strlen(listed) + 2;
    }
    return false;
}

const char* RawListing::Next() {
    if (next_ >= rows_.size()) return nullptr;
    type_ = static_cast<unsigned char>(rows_[next_]);
    const char* name = rows_.data() + next_ + 1;
    next_ += strlen(name) + 2;
    return name;
}

}  // namespace zt
