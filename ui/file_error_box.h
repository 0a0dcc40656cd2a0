// The message box for what went wrong with a file. First thread only; modal.
#pragma once

#include "foundation/westring.h"

namespace zt {

// Tells of the failure `code`: an errno value or a code of result_codes.h. Afterwards `code` is
// kCancelled when the user pressed Esc, and `stop` is true unless the answer was to try again.
// `secondName` is what a failure of the path is about, and may be null.
void FileErrorBox(int& code, bool& stop, const wchar_t* name, const wchar_t* secondName = nullptr);

}  // namespace zt
