// Going from directory to directory.
#pragma once

#include "foundation/westring.h"
#include "panels/panel_pair.h"

namespace zt {

// The way in which the program changes a panel's directory. `name` empty: reads panel.path (which
// ChangeDirectory may have set before). "..": GoToParent. Else: enters that subdirectory. Without
// keepTags the tags go. `top` and `cursor` are taken over when `top` is not negative. The
// directory history, the way back and the process's working directory follow.
void GoTo(PanelPair& panels, int side, const Westring& name, bool keepTags = false, int top = -1,
          int cursor = -1);

// Leaves the directory and puts the cursor on the one that was left. At a root nothing happens.
void GoToParent(PanelPair& panels, int side);

// The bare step up, as GoTo and a failed read take it: no history, no working directory.
void StepToParent(CPanel& panel);

// Makes `path` absolute against panel.path and sets panel.path to it, opening or closing archives
// as it demands. False, with the path as it was, when a component is missing or is no directory,
// or when the path is too long. Does not read: GoTo with an empty name does.
[[nodiscard]] bool ChangeDirectory(CPanel& panel, const Westring& path);

// Back to lastPath, lastTop and lastCursor; its item goes off the end of the directory history.
// False when there is no way back.
bool GoBack(PanelPair& panels, int side);

// The directory on disk that stands for the panel's path.
Westring RealDirectory(const CPanel& panel);
// Makes it the process's working directory, where it can be entered and is no network path.
void EnterRealDirectory(const CPanel& panel);
// The same for the active panel, or for the other one while the active one shows no list of its
// own.
void EnterActiveDirectory(PanelPair& panels);

}  // namespace zt
