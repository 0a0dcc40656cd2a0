#include "fileops/copy_dialog.h"

#include <cwchar>
#include <iterator>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "fileops/copy_destination.h"
#include "fileops/destination_toggle.h"
#include "foundation/colour_classes.h"
#include "foundation/file_name.h"
#include "ui/abbreviate_path.h"
#include "ui/field_history.h"

namespace zt {

namespace {

constexpr int kWidth = 76;
constexpr int kPlacement = -4;
constexpr int kFieldColumns = 72;
constexpr int kFieldLimit = 512;
constexpr int kTitleNameColumns = 55;
constexpr int kHeightBare = 7, kHeightWithOne = 9, kHeightWithBoth = 10;
constexpr int kFieldRow = 2, kOptionsRow = 4;

constexpr int kTreeKey = 0x10044;
constexpr int kHistoryKey = 0x1002B;

constexpr ButtonRow kButtons[] = {{kExitEnter, "_OK"},
                                  {kExitEscape, "Cancel"},
                                  {kTreeKey, "F10-_Tree"},
                                  {kHistoryKey, "Dir _Hist"},
                                  {0, nullptr}};

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
    : Dialog(-1, kPlacement, kWidth, Height(form_), Colour(ColourClass::kMessages)),
      form(form_),
      choice(choice_) {
    AddElements();
}

void CCopyDlg::AddElements() {
    int row = kOptionsRow;
    AddText(1, 0, Title(form));
    field = AddString(1, kFieldRow, true, choice.destination, kFieldColumns, kFieldLimit,
                      kHistoryDestinations);
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
    AddButtons(-1, -1, true, kButtons);
    if (form.group > 0) return;
    for (const int key : kToggleKeys)
        AddExitKey(key);
}

bool CCopyDlg::Ask() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (!HandleCode(code)) return code != kExitEscape;
    }
}

bool CCopyDlg::HandleCode(int code) {
    if (IsToggleKey(code)) {
        choice.destination = ToggleDestination(choice.destination, PanelDirectory(form.other));
        ShowDestination();
        return true;
    }
    if (code == kTreeKey) PickFromTree();
    if (code == kHistoryKey) PickFromHistory();
    return code == kTreeKey || code == kHistoryKey;
}

// The text with the cursor behind it, as a text that has just come.
void CCopyDlg::ShowDestination() {
    DialogEvent event;
    event.code = kKeyEnd;
    SendEvent(field, event);
}

void CCopyDlg::PickFromTree() {
    ITreeKeeper* trees = form.source.pair->seams.trees;
    Westring path;
    if (!trees || !trees->Pick(form.source, path, screenColumns / 2 - 2)) return;
    choice.destination = path;
    ShowDestination();
}

void CCopyDlg::PickFromHistory() {
    IDirectoryChooser* history = form.source.pair->seams.history;
    Westring path;
    if (!history || !history->Pick(form.source, path)) return;
    choice.destination = WithTrailingSlash(path);
    ShowDestination();
}

}  // namespace zt
