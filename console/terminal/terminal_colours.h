// The colours in which the embedded terminal writes, as the sequence "select graphic rendition"
// sets them. First thread only.
#pragma once

#include "console/cell.h"
#include "console/terminal/escape_parser.h"

namespace zt {

class TerminalColours {
public:
    explicit TerminalColours(Attribute defaultAttribute);

    Attribute Current() const { return attribute; }
    Attribute Default() const { return defaultAttribute; }
    void Apply(const CsiSequence& sequence);

private:
    void ApplyOne(int32_t parameter);
    void Rebuild();

    Attribute defaultAttribute;
    Attribute attribute;
    Attribute foreground;  // 4 bits each
    Attribute background;
    bool reverse = false;
    bool bold = false;
    bool underline = false;
};

}  // namespace zt
