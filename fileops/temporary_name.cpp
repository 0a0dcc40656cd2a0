// Temporary names beside a target.
#include "fileops/temporary_name.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace zt {

namespace {

// File systems that take shorter names than most still take this one.
constexpr int kShortLimit = 24;

bool IsContinuation(char byte) {
    return (byte & 0xC0) == 0x80;
}

}  // namespace

Estring TemporaryName(const char* name, int n, int limit) {
    std::string suffix = kTemporarySuffix;
    if (n > 0) suffix.insert(sizeof ".zt@@@" - 1, std::to_string(n));
    size_t kept = std::strlen(name);
    const size_t room = static_cast<size_t>(std::max<int>(limit, 0));
    if (kept + suffix.size() > room) {
        kept = room > suffix.size() ? room - suffix.size() : 0;
        while (kept > 0 && IsContinuation(name[kept]))
            kept--;
    }
    return (std::string(name, kept) + suffix).c_str();
}

int MakeTemporary(const Estring& path, Estring& temporary,
                  const std::function<int(const char*)>& make) {
    const int cut = path.FindLast('/') + 1;
    const Estring directory = path.Left(cut);
    const char* name = path.c_str() + cut;
    int result = EEXIST;
    int limit = NAME_MAX;
    for (int n = 0; n < kMostTemporaryNames && result == EEXIST; n++) {
        temporary = directory + TemporaryName(name, n, limit);
        // A long name may itself be one that the end of another was cut off for.
        if (std::strcmp(temporary.c_str(), path.c_str()) == 0) continue;
        result = make(temporary.c_str());
        if (result == ENAMETOOLONG && limit > kShortLimit) {
            limit = kShortLimit;
            result = EEXIST;
        }
    }
    return result == EEXIST ? EBUSY : result;
}

}  // namespace zt
