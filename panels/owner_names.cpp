// Looking up owners in the user and group databases.
#include "panels/owner_names.h"

#include <grp.h>
#include <pwd.h>

#include "foundation/file_name.h"

namespace zt {

static Westring NameOrNumber(const char* name, uint32_t id) {
    return name ? NameFromBytes(name) : Westring(Estring::FromUnsigned(id));
}

const Westring& OwnerNames::UserName(uint32_t uid) {
    const auto known = users.find(uid);
    if (known != users.end()) return known->second;
    const struct passwd* user = getpwuid(uid);
    return users.emplace(uid, NameOrNumber(user ? user->pw_name : nullptr, uid)).first->second;
}

const Westring& OwnerNames::GroupName(uint32_t gid) {
    const auto known = groups.find(gid);
    if (known != groups.end()) return known->second;
    const struct group* owners = getgrgid(gid);
    return groups.emplace(gid, NameOrNumber(owners ? owners->gr_name : nullptr, gid)).first->second;
}

}  // namespace zt
