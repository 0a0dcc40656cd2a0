// The dialog in which the user changes the colour classes. First thread only; modal.
#pragma once

namespace zt {

// Changes the colours of the settings. True when they were accepted; otherwise they are as before.
bool RunColoursDialog();

}  // namespace zt
