#include "foundation/configuration.h"

namespace zt {

Configuration configuration;

}  // namespace zt
