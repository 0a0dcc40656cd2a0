// Names by masks, and names in directories.
#include "fileops/target_name.h"

#include <sys/stat.h>

#include <cwchar>

#include "fileops/target_look.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

bool IsExistingDirectory(const Westring& path) {
    struct stat status;
    return FollowedStatus(NameToBytes(path), status) == 0 && S_ISDIR(status.st_mode);
}

// A backslash ends a destination as a slash does, unless it is the end of a name that exists.
bool EndsInSlash(const Westring& path) {
    const int length = path.Length();
    if (length == 0) return false;
    if (path[length - 1] == '/') return true;
    struct stat status;
    return path[length - 1] == '\\' && LinkStatus(NameToBytes(path), status) != 0;
}

bool SameText(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

// '*' takes what is left before the next full stop, '?' one character, a full stop goes behind the
// source's next one; anything else stands for itself.
Westring ByMask(const Westring& source, const Westring& mask) {
    Westring name;
    const wchar_t* at = source.c_str();
    for (int i = 0; i < mask.Length(); i++) {
        const wchar_t wanted = mask[i];
        if (wanted == L'*') {
            const auto length = static_cast<int>(wcscspn(at, L"."));
            name.Append(at, length);
            at += length;
        } else if (wanted == L'?') {
            if (*at != 0) name += *at++;
        } else {
            name += wanted;
            if (wanted == L'.') at += wcscspn(at, L".");
            if (wanted == L'.' && *at != 0) at++;
        }
    }
    return name;
}

}  // namespace

bool IsMask(const Westring& name) {
    return name.Find('*') >= 0 || name.Find('?') >= 0;
}

Westring MapTargetName(const Westring& source, const Westring& destination) {
    const bool closed = EndsInSlash(destination);
    const Westring place = closed ? destination.DropRight(1) : destination;
    const Westring last = NameOfPath(place);
    const Westring name = NameOfPath(source);
    if (IsMask(last)) return place.DropRight(last.Length()) + ByMask(name, last);
    const bool holdsIt =
        closed || (!SameText(place, source) && !SameText(last, name) && IsExistingDirectory(place));
    return holdsIt ? place + L"/" + name : place;
}

}  // namespace zt
