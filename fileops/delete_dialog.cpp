#include "fileops/delete_dialog.h"

#include <algorithm>

#include "console/program_state.h"
#include "foundation/colour_classes.h"
#include "foundation/file_name.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr int kPlacement = -4;   // a little above the middle
constexpr int kPathMargin = 10;  // columns of the screen that a path leaves free
constexpr int kLeastWidth = 18, kLeastWidthWithRadios = 42;
constexpr int kHeight = 6;
constexpr int kOptionsRow = 3;

struct ModeRow {
    int column;
    ReadOnlyMode mode;
    const char* label;
};

constexpr ModeRow kModes[] = {
    {19, ReadOnlyMode::kAsk, "As_k"},
    {27, ReadOnlyMode::kAlways, "_All"},
    {35, ReadOnlyMode::kNever, "Non_e"},
};

int Even(int width) {
    return width + width % 2;
}

int Width(const CDeleteDlg::Form& form) {
    const int least = form.asksReadOnly ? kLeastWidthWithRadios : kLeastWidth;
    return Even(std::max({least, form.lines[0].Length(), form.lines[1].Length()})) + 4;
}

int Height(const CDeleteDlg::Form& form) {
    if (form.asksReadOnly) return kHeight + 2 + (form.asksUndelete ? 1 : 0);
    return kHeight + (form.asksUndelete ? 2 : 0);
}

}  // namespace

CDeleteDlg::CDeleteDlg(const Form& form)
    : Dialog(-1, kPlacement, Width(form), Height(form), Colour(ColourClass::kMessages)) {
    AddText(-1, 0, form.lines[0]);
    AddText(-1, 1, form.lines[1]);
    if (form.asksReadOnly) {
        AddText(1, kOptionsRow, "Delete Read Only: ");
        for (const ModeRow& row : kModes) {
            AddRadio(row.column, kOptionsRow, row.mode == ReadOnlyMode::kAsk, readOnlyMode_,
                     static_cast<int>(row.mode), row.label);
        }
    }
    if (form.asksUndelete) {
        const int row = kOptionsRow + (form.asksReadOnly ? 1 : 0);
        AddCheck(1, row, true, noUndelete_, "No _Undelete", true);
    }
    AddOkCancel(-1, -1, true);
}

bool CDeleteDlg::Ask(FileOperation& operation) {
    if (Run() != kExitEnter) return false;
    operation.noUndelete = noUndelete_;
    operation.deleteReadOnly = static_cast<ReadOnlyMode>(readOnlyMode_);
    return true;
}

bool ConfirmDeleteGroup(int count, const Westring& directory) {
    const Westring line = Estring::Format("You are deleting %d selected files from", count);
    const Westring path = ShownInQuestion(directory);
    const int inner = Even(std::max(line.Length(), path.Length())) + 2;
    Dialog dialog(-1, kPlacement, inner + 2, kHeight, Colour(ColourClass::kErrors));
    dialog.AddText(-1, 0, line);
    dialog.AddText(-1, 1, path);
    const int column = (inner - 18) / 2;
    dialog.AddButton(column, 3, true, kExitEnter, "_OK");
    dialog.AddButton(column + 9, 3, false, kExitEscape, "Cancel");
    return dialog.Run() == kExitEnter;
}

Westring ShownInQuestion(const Westring& path) {
    Westring shown = ShownText(path);
    AbbreviatePath(shown, screenColumns - kPathMargin);
    return shown;
}

}  // namespace zt
