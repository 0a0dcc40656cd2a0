// Telling the user what is wrong with a filter expression that was typed. First thread only; modal.
#pragma once

namespace zt {

class CompiledFilter;

// True when the text is an expression, as far as one evaluation tells. Otherwise a box shows
// `heading` with the error's text.
[[nodiscard]] bool CheckFilter(CompiledFilter& filter, const char* heading);

}  // namespace zt
