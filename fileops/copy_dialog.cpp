// What is asked before a copy or a move.
#include "fileops/copy_dialog.h"

#include <cwchar>
#include <iterator>

#include "fileops/panel_paths.h"
#include "foundation/file_name.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr int kTitleNameColumns = 55;
constexpr int kHeightBare = 7, kHeightWithOne = 9, kHeightWithBoth = 10;
constexpr int kOptionsRow = 4;

struct OverwriteRow {
    int column;
    OverwriteMode mode;
    const char* label;
};

constexpr OverwriteRow kOverwriteRows[] = {
    {11, OverwriteMode::kAsk, "As_k"},
    {22, OverwriteMode::kAlways, "_Always"},
    {33, OverwriteMode::kNever, "N_ever"},
    {44, OverwriteMode::kIfOlder, "If O_lder"},
};

bool CoversSeveral(const CCopyDlg::Form& form) {
    return form.group > 0 || (form.single && form.single->IsDirectory());
}

bool MayDereference(const CCopyDlg::Form& form) {
    return !form.moving && (CoversSeveral(form) || (form.single && form.single->IsLink()));
}

int Height(const CCopyDlg::Form& form) {
    const int options = (CoversSeveral(form) ? 1 : 0) + (MayDereference(form) ? 1 : 0);
    return options == 0 ? kHeightBare : options == 1 ? kHeightWithOne : kHeightWithBoth;
}

Westring Title(const CCopyDlg::Form& form) {
    if (form.group > 0) {
        wchar_t text[64];
        swprintf(text, std::size(text), L"%ls %d file%lc to", form.moving ? L"Move" : L"Copy",
                 form.group, static_cast<wint_t>(form.group == 1 ? L' ' : L's'));
        return text;
    }
    Westring name = ShownText(form.single ? Westring(form.single->name) : Westring());
    AbbreviatePath(name, kTitleNameColumns);
    return (form.moving ? L"Move/Rename" : L"Copy") + (L" \"" + name) + L"\" to";
}

}  // namespace

CCopyDlg::CCopyDlg(const Form& form_, Choice& choice_)
    : CDestinationDialog(form_.source, PanelDirectory(form_.other), Height(form_),
                         choice_.destination),
      form(form_),
      choice(choice_) {
    AddElements();
}

void CCopyDlg::AddElements() {
    int row = kOptionsRow;
    AddField(Title(form));
    if (CoversSeveral(form)) {
        AddText(1, row, "Overwrite");
        for (const OverwriteRow& button : kOverwriteRows) {
            AddRadio(button.column, row, button.mode == OverwriteMode::kAsk, choice.overwrite,
                     static_cast<int>(button.mode), button.label);
        }
        ++row;
    }
    if (MayDereference(form)) {
        AddCheck(1, row, true, choice.dereference, "_Dereference Symbolic Links", true);
    }
    const ButtonRow buttons[] = {{kExitEnter, "_OK"},
                                 {kExitEscape, "Cancel"},
                                 {kPickFromTree, "F10-_Tree"},
                                 {kPickFromHistory, "Dir _Hist"},
                                 {0, nullptr}};
    AddButtons(-1, -1, true, buttons);
    if (form.group == 0) AddToggle();
}

bool CCopyDlg::Ask() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (!FillField(code)) return code != kExitEscape;
    }
}

}  // namespace zt
