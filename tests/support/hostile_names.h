// Names that a file may have and that careless programs lose: any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zt::headless {

// `count` distinct names of 1 to 255 bytes, the same ones for the same seed: legacy bytes, line
// feeds and other controls, a dash or blank in front, full length, composed and decomposed accents,
// right-to-left, emoji, quotes, wild cards. Some differ only in a way that the screen cannot show.
std::vector<std::string> HostileNames(size_t count, uint32_t seed = 1);

}  // namespace zt::headless
