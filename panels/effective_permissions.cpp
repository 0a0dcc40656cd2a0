#include "panels/effective_permissions.h"

#include <unistd.h>

#include <algorithm>

namespace zt {

namespace {

constexpr int kOwnerShift = 6;
constexpr int kGroupShift = 3;

std::vector<gid_t> GroupsOfThisProcess() {
    std::vector<gid_t> groups;
    const int count = getgroups(0, nullptr);
    if (count > 0) {
        groups.resize(static_cast<size_t>(count));
        groups.resize(static_cast<size_t>(std::max(getgroups(count, groups.data()), 0)));
    }
    groups.push_back(getegid());
    return groups;
}

}  // namespace

ProcessRights::ProcessRights(uid_t user, const std::vector<gid_t>& groups)
    : superuser_(user == 0), user_(static_cast<uint16_t>(user)) {
    for (const gid_t group : groups)
        groups_.push_back(static_cast<uint16_t>(group));
}

ProcessRights ProcessRights::OfThisProcess() {
    return ProcessRights(geteuid(), GroupsOfThisProcess());
}

int ProcessRights::Of(const entry& e) const {
    constexpr int kAll = kMayRead | kMayWrite | kMayExecute;
    if (superuser_ && e.IsDirectory()) return kAll;
    int shift = 0;
    if (e.uid == user_) {
        shift = kOwnerShift;
    } else if (std::find(groups_.begin(), groups_.end(), e.gid) != groups_.end()) {
        shift = kGroupShift;
    }
    const int triplet = e.mode >> shift & kAll;
    return superuser_ ? triplet | kMayRead | kMayWrite : triplet;
}

}  // namespace zt
