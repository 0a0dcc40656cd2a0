// The command that makes a directory. First thread only.
#pragma once

namespace zt {

struct PanelPair;

// Asks for a name, makes the directory beside the entries of panel `side`, and puts its cursor on
// it. Where that panel shows information, it is made in the other panel's directory.
void MakeDirectoryCommand(PanelPair& panels, int side);

}  // namespace zt
