// File masks: the first line of the input is the mask, the rest the text. Both matchers get both.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "foundation/westring.h"
#include "foundation/wild_match.h"

namespace {

bool IsPlainAscii(const std::string& text) {
    for (const char ch : text) {
        if (ch < ' ' || ch > '~') return false;
    }
    return true;
}

// Ends the run where the two matchers, which have one set of rules, disagree; above ASCII their
// case tables and the sign of a byte make them differ.
void Compare(const std::string& mask, const std::string& text) {
    const bool narrow = zt::WildMatch(mask.c_str(), text.c_str());
    const bool wide =
        zt::WildMatchWide(zt::Westring(mask.c_str()).c_str(), zt::Westring(text.c_str()).c_str());
    // An open range reaches 255, where wide letters have forms that bytes have not.
    const bool comparable =
        IsPlainAscii(mask) && IsPlainAscii(text) && mask.find("-]") == std::string::npos;
    if (comparable && narrow != wide) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const size_t end = input.find('\n');
    const std::string mask = input.substr(0, end);
    const std::string text = end == std::string::npos ? "" : input.substr(end + 1);
    Compare(mask, text);
    if (!zt::WildMatch("*", text.c_str())) abort();
    return 0;
}
