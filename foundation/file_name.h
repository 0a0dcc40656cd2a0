// The second pair of conversions, for names that come from the file system and go back to it.
//
// A Linux name is a row of bytes without '/' and NUL. Bytes that form well-formed UTF-8
// (RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF) become their code points.
// Every other byte b becomes the private code kRawByteBase + b, above all of Unicode, and turns
// back into that very byte. So NameToBytes(NameFromBytes(x)) is x for every x, and two names that
// look alike stay two names. On screen, in sorting and in matching a private code counts as the
// character of value b: ShownCharacter gives it.
#pragma once

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr wchar_t kRawByteBase = 0x110000;

inline bool IsRawByte(wchar_t ch) {
    return ch >= kRawByteBase + 0x80 && ch <= kRawByteBase + 0xFF;
}
// The character that stands for `ch` on screen, in sorting and in matching.
inline wchar_t ShownCharacter(wchar_t ch) {
    return IsRawByte(ch) ? ch - kRawByteBase : ch;
}

Westring NameFromBytes(const char* bytes);
// Decodes into `target`, which must have room for strlen(bytes) + 1 elements. Gives the number of
// elements stored, the terminator not counted. For readers of large directories: no allocation.
int NameFromBytes(const char* bytes, wchar_t* target);
Estring NameToBytes(const wchar_t* name);
Estring NameToBytes(const Westring& name);
// The text with every private code replaced by the character it shows as.
Westring ShownText(const Westring& name);

// The two sides of a path's last '/'. No other character separates: a backslash may stand in a
// name, so these serve for real paths where DirectoryPart and FileNamePart would not. The parent
// of "/a" is "/", that of a path without a slash is empty.
Westring ParentOfPath(const Westring& path);
Westring NameOfPath(const Westring& path);

}  // namespace zt
