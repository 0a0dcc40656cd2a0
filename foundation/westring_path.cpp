// Westring: its path helpers. Both slashes separate; a drive root keeps its slash.
#include "foundation/westring.h"

namespace zt {

void Westring::AddTrailingSlash() {
    if (length > 0 && data[length - 1] != L'/') *this += L'/';
}

void Westring::RemoveTrailingSlash() {
    if (length == 0 || data[length - 1] != L'/') return;
    if (length <= 3 && data[1] == L'/') return;
    SetAt(length - 1, 0);
}

int Westring::LastSlash(const wchar_t* text) {
    int last = -1;
    if (text == nullptr) return last;
    for (int i = 0; text[i] != 0; i++) {
        if (text[i] == L'/' || text[i] == L'\\') last = i;
    }
    return last;
}

Westring Westring::FileNamePart() const {
    return Right(length - LastSlash(data) - 1);
}

Westring Westring::DirectoryPart() const {
    int slash = LastSlash(data);
    if (slash < 0) return Westring();
    bool driveRoot = slash == 2 && data[1] == L':';
    return Left(driveRoot ? slash + 1 : slash);
}

}  // namespace zt
