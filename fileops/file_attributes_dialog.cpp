// The form's look, its keys, and what Enter does.
#include "fileops/file_attributes_dialog.h"

#include <cstring>

#include "console/key_codes.h"
#include "ui/abbreviate_path.h"
#include "ui/check_box.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kWidth = 45;
constexpr int kHeight = 10;
constexpr int kFirstBoxRow = 3;
constexpr int kFirstBoxColumn = 8;
constexpr int kBoxDistance = 4;
constexpr int kNameWidth = 8;
constexpr int kNameCharacters = 20;

constexpr const char* kRowLabels[kAttributeRows] = {"User", "Group", "Other"};

constexpr ButtonRow kButtons[] = {
    {kExitEnter, "_OK"}, {kExitEscape, "Cancel"}, {kKeyF1, "Help"}, {0, nullptr}};

// A letter advances its column; the upper-case one in all rows.
constexpr char kColumnLetters[] = "rwxs";
static_assert(sizeof kColumnLetters == kAttributeColumns + 1);

constexpr char kFormKeys[] = "01234567rwxsRWXS";

// A plain box over a state. Its few cells are taken to its left, where the boxes of a row leave
// room, so that each cell of a row belongs to one box.
class StateBox : public CheckBox {
public:
    StateBox(int x_, int y_, uint8_t* state_)
        : CheckBox(x_, y_, nullptr, Westring(), false), state(state_) {}

protected:
    bool IsSet() const override { return *state != kAttributeClear; }
    void Change(bool value) override { *state = value ? kAttributeOn : kAttributeClear; }
    wchar_t Mark() const override { return IsSet() ? L'X' : L' '; }

private:
    uint8_t* state;
};

}  // namespace

AttributeForm::AttributeForm(const CommandTargets& targets) {
    if (targets.IsGroup()) {
        states.fill(kAttributeKeep);
        return;
    }
    single = &targets.At(0);
    states = StatesOfMode(single->mode);
    const OwnerTexts owners = OwnersOfFile(targets.PathAt(0));
    owner = owners.user;
    group = owners.group;
}

CFileAttributeDialog::CFileAttributeDialog(CPanel& panel_, const CommandTargets& targets_,
                                           AttributeForm& form_)
    : Dialog(-1, -4, kWidth, kHeight, Colour(ColourClass::kMessages)),
      panel(&panel_),
      targets(targets_),
      form(form_) {
    SetTitle(" File  Attributes ");
    if (form.single) {
        Westring name = panel->IsTree() ? targets.PathAt(0) : Westring(form.single->name);
        AbbreviatePath(name, ClientWidth());
        PrintCentred(0, name);
    }
    Print(kFirstBoxColumn, 2, " R   W   X   S");
    for (int row = 0; row < kAttributeRows; ++row)
        AddBoxes(row);
    Print(28, 3, "Owner");
    AddString(34, 3, true, form.owner, kNameWidth, kNameCharacters, kNoHistory);
    Print(28, 4, "Group");
    AddString(34, 4, true, form.group, kNameWidth, kNameCharacters, kNoHistory);
    AddButtons(-1, -1, true, kButtons);
    for (const char* key = kFormKeys; *key; ++key)
        AddExitKey(*key);
}

void CFileAttributeDialog::AddBoxes(int row) {
    const int y = kFirstBoxRow + row;
    Print(1, y, kRowLabels[row]);
    for (int column = 0; column < kAttributeColumns; ++column) {
        const int x = kFirstBoxColumn + kBoxDistance * column;
        uint8_t& state = form.states[static_cast<size_t>(AttributeIndex(row, column))];
        boxes[row][column] = form.single
                                 ? Add(std::make_unique<StateBox>(x, y, &state), column == 0)
                                 : AddCheck3(x, y, column == 0, state, "", false);
    }
}

void CFileAttributeDialog::Ask() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (code == kExitEscape || (code == kExitEnter && Apply())) return;
        HandleKey(code);
    }
}

void CFileAttributeDialog::HandleKey(int key) {
    if (key >= '0' && key <= '7') return SetRowToDigit(key - '0');
    if (key <= ' ' || key >= 127) return;
    const bool isUpper = key >= 'A' && key <= 'Z';
    const char letter = static_cast<char>(isUpper ? key - 'A' + 'a' : key);
    if (const char* at = strchr(kColumnLetters, letter)) {
        AdvanceColumn(static_cast<int>(at - kColumnLetters), isUpper);
    }
}

int CFileAttributeDialog::FocusedRow() const {
    for (int row = 0; row < kAttributeRows; ++row) {
        for (const int box : boxes[row]) {
            if (box == CurrentElement()) return row;
        }
    }
    return -1;
}

void CFileAttributeDialog::SetRowToDigit(int digit) {
    const int row = FocusedRow();
    if (row < 0) return;
    const uint8_t set = form.single ? kAttributeOn : kAttributeSet;
    for (int column = 0; column < kSpecialColumn; ++column) {
        const bool on = (digit >> (2 - column) & 1) != 0;
        form.states[static_cast<size_t>(AttributeIndex(row, column))] = on ? set : kAttributeClear;
    }
    SetFocus(boxes[row][0]);
    Redraw(-1);
}

void CFileAttributeDialog::AdvanceColumn(int column, bool allRows) {
    const int row = allRows ? 0 : FocusedRow();
    if (row < 0) return;
    const auto state = [&](int r) -> uint8_t& {
        return form.states[static_cast<size_t>(AttributeIndex(r, column))];
    };
    state(row) = NextAttributeState(state(row), !form.single);
    for (int other = 1; allRows && other < kAttributeRows; ++other)
        state(other) = state(0);
    Redraw(-1);
}

bool CFileAttributeDialog::LookUpOwners(AttributeChange& change) {
    if (!form.owner.IsEmpty()) {
        change.user = UserOfName(form.owner);
        if (!change.user) {
            MessageBox("Invalid user", form.owner.c_str(), kBoxOk);
            return false;
        }
    }
    if (!form.group.IsEmpty()) {
        change.group = GroupOfName(form.group);
        if (!change.group) {
            MessageBox("Invalid group", form.group.c_str(), kBoxOk);
            return false;
        }
    }
    return true;
}

bool CFileAttributeDialog::Apply() {
    AttributeChange change;
    change.states = form.states;
    change.isGroup = !form.single;
    if (!LookUpOwners(change)) return false;
    for (int i = 0; i < targets.Count(); ++i) {
        if (!ApplyTo(i, change)) return false;
    }
    return true;
}

bool CFileAttributeDialog::ApplyTo(int target, const AttributeChange& change) {
    const Westring path = targets.PathAt(target);
    entry& item = targets.At(target);
    int answer = 0;
    while (answer != 's' && answer != kExitEscape) {
        const int error = ChangeAttributes(path, item.mode, change);
        if (error == 0) break;
        answer = MessageBox(Estring::ErrorText(error), path.c_str(), kBoxRetrySkipCancel);
    }
    RefreshEntry(*panel, item, path);
    return answer != kExitEscape;
}

}  // namespace zt
