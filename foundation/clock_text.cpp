#include "foundation/clock_text.h"

namespace zt {

Estring ClockText(const TDateTime& now, int timeMode) {
    const char between = now.second % 2 == 0 ? ':' : ' ';
    if (timeMode == 24) return Estring::Format("%2d%c%02d", now.hour, between, now.minute);
    const int hour = now.hour % 12 == 0 ? 12 : now.hour % 12;
    return Estring::Format("%2d%c%02d%c", hour, between, now.minute, now.hour < 12 ? 'a' : 'p');
}

}  // namespace zt
