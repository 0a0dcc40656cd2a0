// Reads the parameters of one frame from bytes that come from outside. Every length is checked
// before it is used. Any thread.
#pragma once

#include <cstdint>

#include "console/wire/parameter.h"

namespace zt {

enum class ReadResult {
    kComplete,
    kIncomplete,  // more bytes are needed
    kFailure,     // a parameter type that does not exist
};

// Whether `count` parameters stand whole in the `available` bytes; `length` gets the bytes that
// they take when they do. Walks the headers alone, so that a frame that arrives in many pieces
// costs little.
[[nodiscard]] ReadResult MeasureParameters(const uint8_t* bytes, int available, int count,
                                           int& length);

// Appends the parameters to `list` when they stand whole in the bytes; otherwise the list stays as
// it is. A parameter whose payload does not fit its type (a long integer, an attribute that is not
// one byte, a cell string without its NUL) is passed over, and the list is shorter by it.
[[nodiscard]] ReadResult ReadParameters(const uint8_t* bytes, int available, int count,
                                        CParameterList& list, int& length);

}  // namespace zt
