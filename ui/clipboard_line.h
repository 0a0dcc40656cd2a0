// The clipboard as one line of text, as input fields use it. First thread only.
#pragma once

#include "foundation/westring.h"

namespace zt {

// The clipboard's lines, joined with one blank between them, without the empty lines at both
// ends. Empty when there is no text.
Westring ClipboardLine();
// The same, of any text.
Westring JoinLines(const Westring& text);

}  // namespace zt
