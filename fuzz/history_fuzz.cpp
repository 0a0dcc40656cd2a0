// The history file: each line of the input is one of its lines. Ends the run where a line that can
// be written does not read back as what it was, or would be more than one line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "commands/history_file.h"

namespace {

void Require(bool holds) {
    if (!holds) abort();
}

void CheckLine(const std::string& text) {
    const zt::HistoryLine line = zt::ParseHistoryLine(text.c_str());
    Require(line.field >= -1 && line.field <= zt::kNoStoredField);
    const zt::Estring written = zt::FormatHistoryLine(line);
    if (written.IsEmpty()) return;
    Require(written.Length() + 2 <= zt::kHistoryLineBytes);
    Require(written.Find('\n') < 0 && written.Find('\r') < 0);
    const zt::HistoryLine again = zt::ParseHistoryLine(written);
    Require(again.field == line.field);
    Require(std::wstring(again.text.c_str()) == line.text.c_str());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (size_t at = 0; at <= text.size();) {
        const size_t end = text.find('\n', at);
        CheckLine(text.substr(at, end - at));
        if (end == std::string::npos) break;
        at = end + 1;
    }
    return 0;
}
