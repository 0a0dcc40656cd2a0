// Which letters of a label stand out, and in which colour. Any thread.
#pragma once

#include <cstdint>

#include "console/cell.h"
#include "foundation/westring.h"

namespace zt {

// The attribute of a hot key's cell within a text of this attribute.
Attribute HotAttribute(Attribute text);

// Where the hot key first occurs in the text, its upper-case form before its lower-case form;
// -1 when it does not.
int FindHotKey(const Westring& text, char hotKey);

// Case of single bytes, by the tables built at program start. Bytes above 127 have none.
uint8_t UpperByte(uint8_t byte);
uint8_t LowerByte(uint8_t byte);

}  // namespace zt
