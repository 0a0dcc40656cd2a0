// A bar in a dialog that shows a fraction. It takes no focus and no input. Owned by its dialog,
// drawn by the thread that made the dialog.
#pragma once

#include "ui/dialog_element.h"

namespace zt {

class ProgressIndicator : public DialogElement {
public:
    // The fraction, 0 to 1, is the owner's, and is read at each Draw.
    ProgressIndicator(int x, int y, int width, const float* fraction);

    ElementType Type() const override { return ElementType::kProgressIndicator; }
    void Draw() override;

private:
    int32_t width;
    const float* fraction;
};

}  // namespace zt
