// The command that connects the display to a remote host, as the settings have it. Any thread.
#pragma once

#include <string>
#include <vector>

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

// A copy of the setting ConnectRemote with every "%h" replaced by the host, byte by byte.
Westring BuildConnectCommand(const Estring& host);

// The words of a command in UTF-8, cut at blanks outside double quotes. The quotes only hold a
// word together and are no part of it. An empty command has no words.
std::vector<std::string> SplitConnectCommand(const Westring& command);

}  // namespace zt
