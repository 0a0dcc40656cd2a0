// The bits behind the boxes.
#include "fileops/file_attributes_mode.h"

namespace zt {

namespace {

// In the order of AttributeStates.
constexpr uint16_t kBits[] = {0400, 0200, 0100, 0040,  0020,  0010,
                              0004, 0002, 0001, 04000, 02000, 01000};
static_assert(sizeof kBits / sizeof *kBits == std::tuple_size_v<AttributeStates>);

}  // namespace

AttributeStates StatesOfMode(uint16_t mode) {
    AttributeStates states{};
    for (std::size_t i = 0; i < states.size(); ++i)
        states[i] = mode & kBits[i] ? kAttributeOn : kAttributeClear;
    return states;
}

uint16_t ModeWithStates(uint16_t mode, const AttributeStates& states, bool isGroup) {
    unsigned result = mode;
    for (std::size_t i = 0; i < states.size(); ++i) {
        if (states[i] == kAttributeClear) {
            result &= ~static_cast<unsigned>(kBits[i]);
        } else if (states[i] == kAttributeSet || !isGroup) {
            result |= kBits[i];
        }
    }
    return static_cast<uint16_t>(result);
}

}  // namespace zt
