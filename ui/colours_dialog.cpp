// The colours dialog.
#include "ui/colours_dialog.h"

#include <algorithm>
#include <iterator>

#include "foundation/settings.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kListRows = 13;
constexpr int kListColumns = 28;

struct ClassNames {
    constexpr ClassNames() {
        for (int i = 0; i < kColourClassCount; ++i)
            names[i] = kColourClasses[i].name;
    }
    const char* names[kColourClassCount] = {};
};
constexpr ClassNames kClassNames;

class ColoursDialog : public Dialog {
public:
    ColoursDialog() : Dialog(-1, -3, 32, 21, Colour(ColourClass::kMessages)) {
        SetTitle(" Zanthe Colours ");
        AddColours(1, 1, true, kListColumns, kListRows, kClassNames.names, settings.colours,
                   kColourClassCount, chosen, 0);
        AddText(-1, kListRows + 2, "F=Foreground B=Background");
        AddText(-1, kListRows + 3, "Shift-F/B=Change Backwards");
        AddOkCancel(-1, -1, true);
    }

private:
    int chosen = 0;
};

}  // namespace

bool RunColoursDialog() {
    Attribute before[kColourClassCount];
    std::copy(std::begin(settings.colours), std::end(settings.colours), before);
    ColoursDialog dialog;
    if (dialog.Run() == kExitEscape) {
        std::copy(std::begin(before), std::end(before), settings.colours);
        return false;
    }
    // The quick keys' class is drawn as a foreground over other backgrounds.
    uint8_t& quickKey = settings.colours[static_cast<int>(ColourClass::kMenuQuickKey)];
    quickKey = quickKey & 0x0F;
    return true;
}

}  // namespace zt
