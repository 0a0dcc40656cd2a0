// Writes `settings` and `configuration` back to the configuration file. First thread only.
#pragma once

#include "commands/configuration_host.h"
#include "foundation/estring.h"

namespace zt {

// Takes the rules, the environment and the archivers afresh from the file, so that edits by hand
// survive, then writes all of it. The old file stays whole until the new one is on the disk and
// takes its name; when anything fails it stays for good, and the failure has been told.
// True when the new file is in place.
bool WriteConfiguration(IConfigurationHost& host);

// The text of the file, each line ended by a bare LF. A line that could not be read back, since
// its value holds a line feed or is too long for one line, is left out.
Estring ConfigurationText();

}  // namespace zt
