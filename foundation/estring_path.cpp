// Estring: its path helpers. Both slashes separate; a drive root keeps its slash.
#include "foundation/estring.h"

namespace zt {

void Estring::AddTrailingSlash() {
    if (length > 0 && data[length - 1] != '/') *this += '/';
}

void Estring::RemoveTrailingSlash() {
    if (length == 0 || data[length - 1] != '/') return;
    if (length <= 3 && data[1] == '/') return;
    SetAt(length - 1, 0);
}

int Estring::LastSlash(const char* text) {
    int last = -1;
    if (text == nullptr) return last;
    for (int i = 0; text[i] != 0; i++) {
        if (text[i] == '/' || text[i] == '\\') last = i;
    }
    return last;
}

Estring Estring::FileNamePart() const {
    return Right(length - LastSlash(data) - 1);
}

Estring Estring::DirectoryPart() const {
    int slash = LastSlash(data);
    if (slash < 0) return Estring();
    bool driveRoot = slash == 2 && data[1] == ':';
    return Left(driveRoot ? slash + 1 : slash);
}

}  // namespace zt
