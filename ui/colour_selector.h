// A list whose rows are drawn in their own attributes, and in which F and B change the attribute
// of the chosen row. Owned by its dialog.
#pragma once

#include "ui/list_box.h"

namespace zt {

class ColourSelector : public ListBoxString {
public:
    // The attributes are the caller's and change as keys are pressed.
    ColourSelector(int x, int y, int width, int height, const char* const* names,
                   Attribute* colours, int count, int32_t* variable, int exitCode);

    ElementType Type() const override { return ElementType::kColourSelector; }
    void DrawRow(int windowRow, int itemIndex, Attribute attribute) override;

protected:
    bool HandleOwnKey(int key) override;

private:
    Attribute* colours;
};

}  // namespace zt
