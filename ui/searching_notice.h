// The notice that a long search puts up while it runs. First thread only; no thread of its own.
#pragma once

#include "ui/win.h"

namespace zt {

class SearchingNotice {
public:
    enum class Place { kViewer, kEditor };

    explicit SearchingNotice(Place place);

private:
    Win window;
};

}  // namespace zt
