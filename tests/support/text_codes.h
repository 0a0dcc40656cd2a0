// UTF-8 and code pages, as the test display needs them. It shares nothing with the program, so
// that each checks the other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zt::headless {

std::string ToUtf8(char32_t character);
std::string ToUtf8(std::u32string_view text);

// Nothing when a byte is part of no well-formed sequence, or a value is no Unicode character.
std::optional<std::u32string> FromUtf8(std::string_view bytes);

// 8-bit text in a code page by its number; what the page lacks becomes U+FFFD.
std::u32string FromCodePage(std::string_view bytes, int codePage);

}  // namespace zt::headless
