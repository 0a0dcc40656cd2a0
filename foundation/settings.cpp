#include "foundation/settings.h"

namespace zt {

Settings settings;

Settings::Settings() {
    for (int i = 0; i < kColourClassCount; i++) colours[i] = kColourClasses[i].defaultAttribute;
}

uint8_t Colour(ColourClass colourClass) { return settings.colours[static_cast<int>(colourClass)]; }

void ResetColours() {
    for (int i = 0; i < kColourClassCount; i++) {
        settings.colours[i] = kColourClasses[i].defaultAttribute;
    }
}

}  // namespace zt
