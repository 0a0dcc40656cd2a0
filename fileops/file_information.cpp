// Laying the lines out, and asking the system.
#include "fileops/file_information.h"

#include <unistd.h>

#include <algorithm>
#include <climits>

#include "console/program_state.h"
#include "foundation/file_name.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr int kTargetMargin = 20;  // columns that the link's target leaves free
constexpr int kRowsBesideItems = 6;
constexpr int kFirstItemRow = 2;

constexpr ButtonRow kButtons[] = {{kExitEnter, "_OK"}, {0, nullptr}};

int WidestLabel(const CFileInfoItems& items) {
    int widest = 0;
    for (int i = 0; i < items.Count(); ++i)
        widest = std::max(widest, items.Peek(i)->label.Length());
    return widest;
}

int BoxWidth(const Westring& path, const CFileInfoItems& items) {
    int text = 0;
    for (int i = 0; i < items.Count(); ++i)
        text = std::max(text, items.Peek(i)->text.Length());
    const int width = std::max(path.Length(), WidestLabel(items) + text + 2) + 4;
    return width < screenColumns - 2 ? width : screenColumns - 3;
}

Westring TargetOf(const Estring& path) {
    char target[PATH_MAX + 1];
    const ssize_t length = readlink(path.c_str(), target, sizeof target - 1);
    if (length < 0) return Westring();
    target[length] = 0;
    return NameFromBytes(target);
}

}  // namespace

CFileInfoDlg::CFileInfoDlg(const Westring& path, const CFileInfoItems& items)
    : Dialog(-1, -4, BoxWidth(path, items), items.Count() + kRowsBesideItems,
             Colour(ColourClass::kMessages)),
      labelWidth(WidestLabel(items)) {
    SetTitle(" File Information ");
    Westring shown = path;
    AbbreviatePath(shown, ClientWidth() - 1);
    PrintCentred(0, shown);
    const int textColumn = labelWidth + 3;
    for (int i = 0; i < items.Count(); ++i) {
        const CFileInfoItem& item = *items.Peek(i);
        Print(1, kFirstItemRow + i, Westring(item.label).PadRight(labelWidth) + ":");
        Print(textColumn, kFirstItemRow + i, item.text.Left(ClientWidth() - textColumn));
    }
    AddButtons(-1, -1, true, kButtons);
}

void FileInfoCommand(const Westring& path) {
    const Estring bytes = NameToBytes(path);
    struct stat data;
    if (lstat(bytes.c_str(), &data) != 0) return;
    CFileInfoItems items;
    FillFileInfo(data, TargetOf(bytes), screenColumns - kTargetMargin, items);
    CFileInfoDlg(path, items).Run();
}

}  // namespace zt
