// What this process may do with an entry, by the entry's mode bits. First thread only.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <vector>

#include "panels/entry.h"

namespace zt {

inline constexpr int kMayRead = 4;
inline constexpr int kMayWrite = 2;
inline constexpr int kMayExecute = 1;

class ProcessRights {
public:
    // `groups` holds the effective group too.
    ProcessRights(uid_t user, const std::vector<gid_t>& groups);
    static ProcessRights OfThisProcess();

    // The sum of kMay values. The superuser may always read and write, and may do everything with
    // a directory. Entries keep 16 bits of their owners, so no more of them are compared.
    int Of(const entry& e) const;

private:
    bool superuser_;
    uint16_t user_;
    std::vector<uint16_t> groups_;
};

}  // namespace zt
