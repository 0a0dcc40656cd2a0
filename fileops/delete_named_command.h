// The command that deletes a file or directory whose name is typed. First thread only.
#pragma once

namespace zt {

struct CPanel;

// The name is one of the panel's directory, or any path. The panels are read again.
void DeleteNamedCommand(CPanel& panel);

}  // namespace zt
