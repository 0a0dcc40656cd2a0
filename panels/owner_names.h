// The names of users and groups, each looked up once. Owned by the pair of panels; first thread
// only.
#pragma once

#include <cstdint>
#include <map>

#include "foundation/westring.h"

namespace zt {

class OwnerNames {
public:
    // The name, or the number in decimal when it has none.
    const Westring& UserName(uint32_t uid);
    const Westring& GroupName(uint32_t gid);

private:
    std::map<uint32_t, Westring> users;
    std::map<uint32_t, Westring> groups;
};

}  // namespace zt
