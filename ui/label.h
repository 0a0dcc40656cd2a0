// A label as it is written down, with `_` before the letter that is its quick key. Any thread.
#pragma once

#include "foundation/westring.h"

namespace zt {

struct Label {
    explicit Label(const char* written);

    Westring text;      // without the `_`
    char quickKey = 0;  // lower case; 0: none
};

}  // namespace zt
