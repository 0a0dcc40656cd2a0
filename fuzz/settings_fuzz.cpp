// The configuration file: the input is its text, taken line by line as from a file. Whatever was
// read is written, and that is a fixed point: read and written again it stays the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "commands/configuration_reader.h"
#include "commands/configuration_writer.h"
#include "foundation/configuration.h"
#include "foundation/settings.h"

namespace {

constexpr size_t kLineBytes = 4095;

struct SilentHost : zt::IConfigurationHost {
    void ShowMessage(const zt::Westring& message, const wchar_t*) override {
        if (message.Length() > 79) abort();
    }
};

// Lines as the file gives them: ended by a LF or a NUL, or cut where they are too long.
void TakeLines(const char* text, size_t size) {
    SilentHost host;
    zt::settings = zt::Settings();
    for (zt::AssociationSet& set : zt::configuration.rules)
        set.Clear();
    zt::configuration.environment.Clear();
    zt::InitArchiverDefaults(zt::configuration.archivers);
    zt::ConfigurationReader reader(false, host, zt::configuration);
    for (size_t at = 0; at < size;) {
        const size_t most = std::min(size - at, kLineBytes);
        size_t length = 0;
        while (length < most && text[at + length] != '\n' && text[at + length] != '\0')
            length++;
        reader.TakeLine(std::string(text + at, length).c_str());
        at += length < kLineBytes ? length + 1 : length;
    }
}

std::string Written() {
    return zt::ConfigurationText().c_str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    TakeLines(reinterpret_cast<const char*>(data), size);
    // The first writing drops what a line cannot hold; from then on nothing may change.
    const std::string first = Written();
    TakeLines(first.data(), first.size());
    const std::string second = Written();
    TakeLines(second.data(), second.size());
    if (Written() != second) abort();
    return 0;
}
