// The dialog that asks for a panel's filter. First thread only; modal.
#pragma once

namespace zt {

struct CPanel;

// True when the panel has the filter that was typed; reading it again is the caller's part. A text
// that is no filter expression is refused with a box.
[[nodiscard]] bool FilterPrompt(CPanel& panel);

}  // namespace zt
