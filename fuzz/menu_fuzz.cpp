// The file of the user menu: the input is up to ten files, one behind the other with NULs between,
// which may include each other as 0 to 9; the menu is that of 0. Ends the run where the menu breaks
// its own rules.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "commands/menu_file.h"
#include "foundation/file_name.h"

namespace {

constexpr int kMostDepth = 33;
constexpr int kMostReads = 100;

void Require(bool holds) {
    if (!holds) abort();
}

struct InputFiles : zt::IMenuFiles {
    std::vector<std::string> files{std::string()};
    int reads = 0;

    InputFiles(const char* text, size_t size) {
        for (size_t i = 0; i < size; i++) {
            if (text[i] != '\0') {
                files.back() += text[i];
            } else if (files.size() < 10) {
                files.emplace_back();
            }
        }
    }
    bool ReadLines(const zt::Westring& path, std::vector<zt::Westring>& lines) override {
        const int place = path.Length() == 2 ? path[1] - L'0' : -1;
        if (place < 0 || static_cast<size_t>(place) >= files.size()) return false;
        Require(++reads <= kMostReads);
        const std::string& text = files[static_cast<size_t>(place)];
        for (size_t at = 0; at < text.size();) {
            const size_t end = text.find('\n', at);
            const size_t length = (end == std::string::npos ? text.size() : end) - at;
            lines.push_back(zt::NameFromBytes(text.substr(at, length).c_str()));
            at += length + 1;
        }
        return true;
    }
    void TellMissing(const zt::Westring&) override {}
};

void CheckMenu(const zt::MenuStore& menu, int depth) {
    Require(depth <= kMostDepth);
    int width = 0;
    for (int i = 0; i < menu.Count(); i++) {
        const zt::MenuEntry& e = *menu.Peek(i);
        Require(e.key != 0 && e.key == zt::MenuKeyCode(e.keyText));
        width = e.keyText.Length() > width ? e.keyText.Length() : width;
        for (int k = 0; k < e.commands.Count(); k++) {
            const zt::Westring& command = *e.commands.Peek(k);
            Require(!command.IsEmpty() && command.TrimLeft().Length() == command.Length());
        }
        if (e.subMenu) CheckMenu(*e.subMenu, depth + 1);
    }
    Require(width == menu.keyWidth);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    InputFiles files(reinterpret_cast<const char*>(data), size);
    const zt::entry current{};
    const zt::entry* const chosen[] = {nullptr, &current};
    for (const zt::entry* e : chosen) {
        zt::MenuStore menu;
        files.reads = 0;
        Require(zt::ReadMenuFile(files, L"/0", e, menu));
        CheckMenu(menu, 1);
    }
    return 0;
}
