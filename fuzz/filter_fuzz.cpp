// Filter expressions: the first line of the input is the expression, the second the name of an
// entry, and the bytes behind it are its numbers. Ends the run where the compiled form gives
// another result or error text than the evaluator.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>

#include "foundation/file_name.h"
#include "panels/filter_compiled.h"
#include "panels/filter_expression.h"

namespace {

// The line at the start of the text, which it is taken off.
std::string TakeLine(std::string& text) {
    const size_t end = text.find('\n');
    const std::string line = text.substr(0, end);
    text.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

zt::OwnedEntry EntryOf(const std::string& name, const std::string& numbers) {
    struct {
        uint64_t size = 1000;
        int64_t seconds = 1339767005;
        uint16_t flags = 0, mode = 0, uid = 0, gid = 0;
    } raw;
    memcpy(&raw, numbers.data(), numbers.size() < sizeof raw ? numbers.size() : sizeof raw);
    zt::OwnedEntry e(zt::NewEntry(zt::NameFromBytes(name.c_str()).c_str()));
    e->size = raw.size;
    e->time.seconds = raw.seconds;
    e->flags = raw.flags;
    e->mode = raw.mode;
    e->uid = raw.uid;
    e->gid = raw.gid;
    return e;
}

// A second that passes between the two, or a file that changes, must not look like a fault: then
// they are asked again.
bool Agree(const zt::Westring& expression, const zt::entry& e) {
    for (int tries = 0; tries < 3; ++tries) {
        zt::FilterEvaluator evaluator;
        zt::CompiledFilter compiled(expression);
        bool same = true;
        for (int i = 0; i < 2; ++i) {
            const int wanted = zt::EvaluateFilter(evaluator, expression.c_str(), e);
            if (wanted < -1 || wanted > 1) return false;
            same = same && compiled.Evaluate(e) == wanted &&
                   wcscmp(compiled.errorText.c_str(), evaluator.errorText.c_str()) == 0;
        }
        if (same) return true;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    const std::string expression = TakeLine(input);
    const std::string name = TakeLine(input);
    if (!Agree(zt::NameFromBytes(expression.c_str()), *EntryOf(name, input))) abort();
    return 0;
}
