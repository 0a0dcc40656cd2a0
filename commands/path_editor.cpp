#include "commands/path_editor.h"

#include <algorithm>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "foundation/string_lists.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr int kWidth = 60;
constexpr int kHeight = 20;
constexpr int kLeastHeight = 3;  // the frame and one entry
constexpr int kFewLines = 26;    // below it the box leaves five lines of the screen
constexpr char kKeysHint[] = " Insert Delete F4=Edit Alt-A=Append Alt-\u2191\u2193 ";

// Where the typed text goes: a field without a frame, exactly over its row of the list.
class RowField : public Dialog {
public:
    RowField(const Win& list, int row, Westring& text)
        : Dialog(list.OriginX(), list.OriginY() + row, list.OriginX() + list.ClientWidth() - 1,
                 list.OriginY() + row, Colour(ColourClass::kInputFields), DialogFrame::kNone) {
        AddString(0, 0, true, text, list.ClientWidth(), -1, kNoHistory);
    }
};

class CPathEditor : public Dialog {
public:
    CPathEditor(const Westring& path, const char* title);
    // True when the user accepted.
    bool Edit();
    Westring Joined();

private:
    bool HandleListKey(int key);
    void InsertEntry(int index);
    void DeleteEntry();
    void EditEntry();
    void MoveEntry(int step);
    void ShowChange();

    WestringStore entries;
    int32_t chosen = 0;
    int list = 0;
};

int Height() {
    return screenLines < kFewLines ? std::max(screenLines - 5, kLeastHeight) : kHeight;
}

CPathEditor::CPathEditor(const Westring& path, const char* title)
    : Dialog(-1, -4, kWidth, Height(), Colour(ColourClass::kMenu)) {
    int start = 0;
    for (int i = 0; i <= path.Length() && !path.IsEmpty(); i++) {
        if (i < path.Length() && path[i] != L':') continue;
        entries.Append(new Westring(path.Left(i).Right(i - start)));
        start = i + 1;
    }
    SetTitle(title);
    PrintCentred(ClientHeight(), kKeysHint);
    list = AddList(0, 0, true, ClientWidth(), ClientHeight(), entries, entries.Count(), chosen, 0);
    for (const int key : {kKeyInsert, AltKey('a'), kKeyDelete, kKeyF4, kKeyAltUp, kKeyAltDown}) {
        AddExitKey(key);
    }
}

bool CPathEditor::Edit() {
    for (;;) {
        SetExitCode(0);
        const int code = Run();
        if (!HandleListKey(code)) return code == kExitEnter;
    }
}

bool CPathEditor::HandleListKey(int key) {
    switch (key) {
        case kKeyInsert:
            InsertEntry(chosen);
            return true;
        case AltKey('a'):
            InsertEntry(entries.Count() > 0 ? chosen + 1 : 0);
            return true;
        case kKeyDelete:
            DeleteEntry();
            return true;
        case kKeyF4:
            EditEntry();
            return true;
        case kKeyAltUp:
            MoveEntry(-1);
            return true;
        case kKeyAltDown:
            MoveEntry(1);
            return true;
        default:
            return false;
    }
}

void CPathEditor::ShowChange() {
    chosen = std::clamp(chosen, 0, std::max(entries.Count() - 1, 0));
    DialogEvent event;
    event.kind = DialogEventKind::kRedrawAll;
    SendEvent(list, event);
    event.kind = DialogEventKind::kCountChanged;
    event.code = entries.Count();
    SendEvent(list, event);
}

void CPathEditor::InsertEntry(int index) {
    entries.InsertAt(new Westring(), index);
    chosen = index;
    ShowChange();
    EditEntry();
}

void CPathEditor::DeleteEntry() {
    if (!entries.At(chosen)) return;
    entries.DeleteCurrent();
    ShowChange();
}

void CPathEditor::EditEntry() {
    Westring* entry = entries.At(chosen);
    if (!entry) return;
    const Westring before = *entry;
    DialogEvent ask;
    ask.kind = DialogEventKind::kAskRow;
    const int row = SendEvent(list, ask);
    if (RowField(*this, row, *entry).Run() == kExitEscape) *entry = before;
    ShowChange();
}

void CPathEditor::MoveEntry(int step) {
    const int target = chosen + step;
    if (target < 0 || target >= entries.Count()) return;
    Westring* moved = entries.RemoveAt(chosen);
    entries.InsertAt(moved, target);
    chosen = target;
    ShowChange();
}

Westring CPathEditor::Joined() {
    Westring path;
    for (Westring* entry = entries.First(); entry; entry = entries.Next()) {
        if (entry->IsEmpty()) continue;
        if (!path.IsEmpty()) path += L':';
        path += *entry;
    }
    return path;
}

}  // namespace

void EditPathList(Westring& path, const char* title) {
    CPathEditor editor(path, title);
    if (editor.Edit()) path = editor.Joined();
}

}  // namespace zt
