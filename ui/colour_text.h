// Colours as the configuration writes them: "bri whi on blu". Any thread.
#pragma once

#include "console/cell.h"

namespace zt {

// Words parted by blanks, of which the first three letters count, in either case: a colour, "bri"
// for bright, "on" before the background. The first word for the foreground takes the old
// foreground away, "on" the old background; what is not named keeps `start`. Other words are
// ignored.
Attribute ParseColourText(const char* text, Attribute start);

}  // namespace zt
