// The last line of the screen: what the function keys do under the present modifiers. Owned by
// the main loop, which makes it anew when the screen's size changes. First thread only.
#pragma once

#include <array>

#include "console/read_key.h"
#include "ui/win.h"

namespace zt {

// Ten texts, each with the key's number in front.
using FunctionKeyLabels = std::array<const char*, 10>;

// The panels' labels under these modifiers (kModifierAlt, -Ctrl, -Shift; others do not count).
const FunctionKeyLabels& LabelsForModifiers(int modifiers);

class CFunctionKeyBar : public Win {
public:
    CFunctionKeyBar();
    ~CFunctionKeyBar() override;

    void SetLabels(const FunctionKeyLabels& labels);
    // The code of the function key whose label is at the event's column: Alt-F1 and up for the
    // right button or with Alt held, Shift-F1 and up with Shift, Ctrl-F1 and up with Ctrl, else
    // F1 and up. Whether the event is on the bar's row is the caller's business.
    int KeyForClick(const MouseEvent& event) const;

private:
    int Slot() const { return ClientWidth() / 10; }  // columns a label
};

}  // namespace zt
