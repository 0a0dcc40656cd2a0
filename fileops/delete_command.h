// The command that deletes the current entry or the tagged ones of a panel. First thread only.
#pragma once

#include "fileops/file_operation.h"

namespace zt {

struct CPanel;

// With all its questions; the panels are read again when something was to be deleted.
void DeleteCommand(CPanel& panel);

// Carries out what has been confirmed: the tagged entries, or the current one. The panel's list is
// as it was until it is read again.
void DeleteExecute(FileOperation& operation, CPanel& panel);

// Writes the panel's tree to its file, if it has one.
void SaveTree(CPanel& panel);

}  // namespace zt
