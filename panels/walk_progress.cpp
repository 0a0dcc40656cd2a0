#include "panels/walk_progress.h"

namespace zt {

std::string WalkProgress::Path() const {
    const std::lock_guard<std::mutex> hold(lock_);
    return path_;
}

void WalkProgress::SetPath(const char* path) {
    const std::lock_guard<std::mutex> hold(lock_);
    path_ = path;
    lengths_.clear();
}

void WalkProgress::EnterName(const char* name) {
    const std::lock_guard<std::mutex> hold(lock_);
    lengths_.push_back(path_.size());
    if (path_.empty() || path_.back() != '/') path_ += '/';
    path_ += name;
}

void WalkProgress::LeaveName() {
    const std::lock_guard<std::mutex> hold(lock_);
    path_.resize(lengths_.back());
    lengths_.pop_back();
}

std::vector<std::string> WalkProgress::NamesEntered() const {
    std::vector<std::string> names;
    for (size_t i = 0; i < lengths_.size(); ++i) {
        const size_t end = i + 1 < lengths_.size() ? lengths_[i + 1] : path_.size();
        const size_t slash = path_[lengths_[i]] == '/' ? 1 : 0;
        names.push_back(path_.substr(lengths_[i] + slash, end - lengths_[i] - slash));
    }
    return names;
}

}  // namespace zt
