// What the clock in the corner of the screen shows. Pure; any thread.
#pragma once

#include "foundation/date_time.h"
#include "foundation/estring.h"

namespace zt {

// "17:08" for a time mode of 24, " 5:08p" for 12. The colon is a blank in odd seconds.
Estring ClockText(const TDateTime& now, int timeMode);

}  // namespace zt
