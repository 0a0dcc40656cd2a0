// What a panel knows of its neighbour.
#include "panels/panel.h"

#include "panels/panel_pair.h"

namespace zt {

CPanel& CPanel::Other() const {
    return pair->panel[1 - side];
}

}  // namespace zt
