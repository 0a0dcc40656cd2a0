#include "commands/menu_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cwctype>
#include <iterator>

#include "console/key_codes.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"
#include "foundation/std_file.h"
#include "panels/filter_compiled.h"
#include "ui/message_box.h"

namespace zt {

MenuEntry::MenuEntry() = default;
MenuEntry::~MenuEntry() = default;

namespace {

constexpr wchar_t kInclude[] = L"!include ";
constexpr int kLineBytes = 16384;
constexpr wchar_t kByteOrderMark = 0xFEFF;
// Of menus in each other, and of files that include each other.
constexpr int kMostLevels = 32;
constexpr int kMostFiles = 100;
constexpr size_t kMostLines = 65536;  // of one file
constexpr int kFunctionKeys = 12;
constexpr int kFirstGroupKeys = 10;

constexpr wchar_t kNoPrefix = 0;
struct KeyPrefix {
    wchar_t letter;
    int32_t f1;
    int32_t f11;
};
constexpr KeyPrefix kPrefixes[] = {
    {kNoPrefix, kKeyF1, kKeyF11},
    {L'C', kKeyCtrlF1, kKeyCtrlF11},
    {L'S', kKeyShiftF1, kKeyShiftF11},
    {L'A', kKeyAltF1, kKeyAltF11},
};

// The decimal number from `start` to the end; 0 for anything else.
int NumberAt(const Westring& text, int start) {
    int number = 0;
    for (int i = start; i < text.Length(); i++) {
        const wchar_t digit = text[i];
        if (digit < L'0' || digit > L'9') return 0;
        number = number * 10 + (digit - L'0');
    }
    return number <= kFunctionKeys ? number : 0;
}

// A prefix that means nothing leaves the bare number.
int32_t FunctionKey(wchar_t prefix, int number) {
    if (number == 0) return 0;
    for (const KeyPrefix& row : kPrefixes) {
        if (row.letter != prefix) continue;
        return number <= kFirstGroupKeys ? row.f1 + number - 1
                                         : row.f11 + number - kFirstGroupKeys - 1;
    }
    return number;
}

bool IsBlank(wchar_t ch) {
    return iswspace(static_cast<wint_t>(ch)) != 0;
}

// The real files. What is no ordinary file could hold the reader up, and counts as missing.
struct DiskMenuFiles : IMenuFiles {
    bool ReadLines(const Westring& path, std::vector<Westring>& lines) override {
        struct stat held = {};
        StdFile file;
        const bool isFile = stat(NameToBytes(path).c_str(), &held) == 0 && S_ISREG(held.st_mode);
        if (!isFile || file.Open(path, StdFile::kReadWrite) != 0) return false;
        char bytes[kLineBytes];
        while (lines.size() < kMostLines && file.ReadLine(bytes, sizeof bytes) == 0)
            lines.push_back(NameFromBytes(bytes));
        return true;
    }
    void TellMissing(const Westring& name) override {
        MessageBox("Unable to open included menu", name.c_str(), kBoxOk);
    }
};

class MenuReader {
public:
    MenuReader(IMenuFiles& files, const entry* current) : files_(files), current_(current) {}

    bool Read(const Westring& path, MenuStore& menu);

private:
    struct MenuLines {
        const Westring& path;
        std::vector<Westring> lines;
        size_t next = 0;
    };
    // One menu: its entries go to `menu`, which may be thrown away, up to the line that ends it.
    struct Place {
        MenuLines& file;
        MenuStore& menu;
        MenuEntry* last = nullptr;
    };
    bool MayRead(const Westring& path) const;
    void ReadMenu(MenuLines& file, MenuStore& menu);
    bool TakeLine(Place& place, const Westring& line);
    void TakeSubMenu(Place& place);
    void TakeInclude(Place& place, const Westring& name);
    void TakeHead(Place& place, const Westring& line);
    bool Holds(const Westring& condition);

    IMenuFiles& files_;
    const entry* current_;
    int level_ = 0;
    int filesRead_ = 0;
    std::vector<Westring> open_;  // the files that are being read, each included by the one before
};

// A file within itself would never end, and few files that include each other are read very often.
bool MenuReader::MayRead(const Westring& path) const {
    if (level_ >= kMostLevels || filesRead_ >= kMostFiles) return false;
    return std::none_of(open_.begin(), open_.end(), [&path](const Westring& open) {
        return wcscmp(open.c_str(), path.c_str()) == 0;
    });
}

bool MenuReader::Read(const Westring& path, MenuStore& menu) {
    MenuLines file{path, {}};
    if (!MayRead(path) || !files_.ReadLines(path, file.lines)) return false;
    // A byte order mark in front of the first line is no part of it.
    if (!file.lines.empty() && file.lines[0][0] == kByteOrderMark)
        file.lines[0] = file.lines[0].Right(file.lines[0].Length() - 1);
    filesRead_++;
    open_.push_back(path);
    ReadMenu(file, menu);
    open_.pop_back();
    return true;
}

void MenuReader::ReadMenu(MenuLines& file, MenuStore& menu) {
    Place place{file, menu};
    level_++;
    while (file.next < file.lines.size()) {
        if (!TakeLine(place, file.lines[file.next++])) break;
    }
    level_--;
}

// False at the end of the menu.
bool MenuReader::TakeLine(Place& place, const Westring& line) {
    const Westring trimmed = line.TrimLeft();
    const int includeLength = static_cast<int>(std::size(kInclude)) - 1;
    if (wcscmp(trimmed.c_str(), L"}") == 0) return false;
    if (wcscmp(trimmed.c_str(), L"{") == 0) {
        TakeSubMenu(place);
    } else if (wcsncmp(line.c_str(), kInclude, std::size(kInclude) - 1) == 0) {
        TakeInclude(place, line.Right(line.Length() - includeLength).TrimLeft());
    } else if (line[0] == L'/' && line[1] == L'/') {
        return true;
    } else if (IsBlank(line[0])) {
        if (place.last && !trimmed.IsEmpty()) place.last->commands.Append(new Westring(trimmed));
    } else {
        TakeHead(place, line);
    }
    return true;
}

void MenuReader::TakeSubMenu(Place& place) {
    auto subMenu = std::make_unique<MenuStore>();
    if (level_ < kMostLevels) ReadMenu(place.file, *subMenu);
    if (place.last && place.last->commands.Count() == 0) place.last->subMenu = std::move(subMenu);
}

void MenuReader::TakeInclude(Place& place, const Westring& name) {
    place.last = nullptr;
    Westring path = name.TrimRight();
    const bool found = MakeAbsolute(path, ParentOfPath(place.file.path).c_str()) == 0;
    if (!found || !Read(path, place.menu)) files_.TellMissing(name);
}

bool MenuReader::Holds(const Westring& condition) {
    return current_ && CompiledFilter(condition).Matches(*current_) > 0;
}

void MenuReader::TakeHead(Place& place, const Westring& line) {
    const int colon = line.Find(L':');
    if (colon < 1) return;
    place.last = nullptr;
    Westring keyText = line.Left(colon).TrimLeft();
    // In front of it an @ is a key.
    const int at = keyText.Find(L"@", 1);
    if (at >= 1) {
        if (!Holds(keyText.Right(keyText.Length() - at - 1).TrimLeft())) return;
        keyText = keyText.Left(at).TrimRight();
    }
    auto made = std::make_unique<MenuEntry>();
    made->keyText = keyText.ToUpper();
    made->key = MenuKeyCode(made->keyText);
    if (made->key == 0) return;
    made->text = line.Right(line.Length() - colon - 1).Trim();
    place.menu.keyWidth = std::max(place.menu.keyWidth, made->keyText.Length());
    place.last = made.get();
    place.menu.Append(made.release());
}

}  // namespace

int32_t MenuKeyCode(const Westring& keyText) {
    const int length = keyText.Length();
    if (length == 1) return keyText[0];
    if ((length == 2 || length == 3) && keyText[0] == L'F')
        return FunctionKey(kNoPrefix, NumberAt(keyText, 1));
    if ((length == 3 || length == 4) && keyText[1] == L'F')
        return FunctionKey(keyText[0], NumberAt(keyText, 2));
    return 0;
}

bool ReadMenuFile(const Westring& path, const entry* current, MenuStore& menu) {
    DiskMenuFiles files;
    return ReadMenuFile(files, path, current, menu);
}

bool ReadMenuFile(IMenuFiles& files, const Westring& path, const entry* current, MenuStore& menu) {
    return MenuReader(files, current).Read(path, menu);
}

}  // namespace zt
