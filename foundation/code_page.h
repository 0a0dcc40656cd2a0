// Conversions between numbered code pages and wide text, by the system's iconv. No state: any
// thread may call them. Callers use Westring::FromCodePage and ToCodePage.
#pragma once

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// The name under which iconv knows a code page.
Estring CodePageName(int codePage);

// Decodes the zero-ended bytes. False when some byte had no meaning (it becomes U+2302) or when
// iconv does not know the code page (the target is then empty).
bool DecodeCodePage(const char* bytes, int codePage, Westring& target);

// At most as many bytes as the text has characters. Empty when iconv does not know the code page;
// stops before the first character that the code page lacks.
Estring EncodeCodePage(const Westring& text, int codePage);

}  // namespace zt
