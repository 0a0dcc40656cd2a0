// Description files: the first line of the input is a name, the second the rest of a line that is
// given to it, and what is behind them the file. Ends the run where a change does not do what was
// asked, or touches another line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fileops/description_lines.h"

namespace {

// The line at the start of the text, which it is taken off.
std::string TakeInputLine(std::string& text) {
    const size_t end = text.find('\n');
    const std::string line = text.substr(0, end);
    text.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

void Require(bool holds) {
    if (!holds) abort();
}

// The lines that are not those of `name`, whole.
std::string OtherLines(std::string_view text, std::string_view name) {
    std::string others;
    while (!text.empty()) {
        const size_t before = text.size();
        const zt::DescriptionLine line = zt::TakeDescriptionLine(text);
        Require(!line.whole.empty() && line.whole.size() + text.size() == before);
        Require(line.whole.ends_with(line.rest));
        if (line.name.empty() || line.name != name) others += line.whole;
    }
    return others;
}

void CheckRemoval(const std::string& text, const std::string& name) {
    const std::string left = zt::WithoutDescriptions(text, {name});
    Require(left == OtherLines(text, name));
    Require(zt::FindDescription(left, name).whole.empty());
}

// A last line without an end gets one where another comes behind it.
void CheckPlacing(const std::string& text, const std::string& name, const std::string& rest) {
    std::string written;
    if (!zt::WrittenName(name, written)) return;
    const std::string changed = zt::WithDescription(text, name, written, rest);
    const zt::DescriptionLine line = zt::FindDescription(changed, name);
    Require(line.name == name && line.rest.starts_with(rest));
    const std::string before = OtherLines(text, name);
    const std::string after = OtherLines(changed, name);
    const bool isClosed = after == before + "\n" || after == before + "\r\n";
    Require(after == before || (isClosed && !before.ends_with('\n')));
    // Given once more it changes nothing.
    Require(zt::WithDescription(changed, name, written, line.rest) == changed);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    const std::string name = TakeInputLine(text);
    const std::string rest = TakeInputLine(text);
    CheckRemoval(text, name);
    // As it stands behind a name: nothing, or a blank first.
    CheckPlacing(text, name, rest.empty() ? rest : ' ' + rest);
    return 0;
}
