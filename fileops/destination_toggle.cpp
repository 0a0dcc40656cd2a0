// What the keys Alt-D, F5 and F6 do to a destination that is being typed.
#include "fileops/destination_toggle.h"

#include "foundation/file_name.h"

namespace zt {

Westring WithTrailingSlash(const Westring& directory) {
    Westring result = directory;
    if (!result.IsEmpty() && result[result.Length() - 1] != L'/') {
        result += L'/';
    }
    return result;
}

Westring ToggleDestination(const Westring& text, const Westring& otherDirectory) {
    return text.Find(L'/') >= 0 ? NameOfPath(text) : WithTrailingSlash(otherDirectory) + text;
}

}  // namespace zt
