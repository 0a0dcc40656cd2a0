#include "commands/stored_paths_dialog.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <type_traits>

#include "commands/keyed_list.h"
#include "commands/program_environment.h"
#include "commands/stored_paths.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "ui/abbreviate_path.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kSlots = std::extent_v<decltype(Settings::storedPaths)>;
constexpr int kLeastText = 16;
constexpr int kMostText = 70;
constexpr int kAroundText = 6;  // the slot's number, and a blank column on each side
constexpr int kHeight = kSlots + 2;
constexpr int32_t kExitKeys[] = {'0', '1', '2', '3', '4',        '5',
                                 '6', '7', '8', '9', kKeyInsert, kKeyDelete};

// Inside the frame.
int RowWidth() {
    int width = kLeastText;
    for (const Westring& path : settings.storedPaths)
        width = std::max(width, std::min(path.Length(), kMostText));
    return std::min((width + 1) / 2 * 2 + kAroundText, screenColumns - 2);
}

class SlotsDialog : public Dialog {
public:
    explicit SlotsDialog(CPanel& panel);
    // Whether a slot was chosen; its path is then the panel's, if it can be.
    bool Choose();

private:
    void ShowSlot(int slot);
    void Store(const Westring& path);
    bool GoToChosen();

    CPanel& panel_;
    const int rowWidth_;
    WestringStore rows_;
    int32_t chosen_ = 0;
};

SlotsDialog::SlotsDialog(CPanel& panel)
    : Dialog(-1, -4, RowWidth() + 2, kHeight, Colour(ColourClass::kMenu)),
      panel_(panel),
      rowWidth_(RowWidth()) {
    for (int slot = 0; slot < kSlots; slot++) {
        rows_.Append(new Westring());
        ShowSlot(slot);
    }
    SetTitle(" Stored Paths ");
    Add(std::make_unique<KeyedList>(1, rowWidth_ - 2, kSlots, rows_, chosen_, kExitKeys), true);
}

void SlotsDialog::ShowSlot(int slot) {
    Westring path = settings.storedPaths[slot];
    AbbreviatePath(path, rowWidth_ - kAroundText);
    *rows_.Peek(slot) =
        Westring(Estring::Format("%d - ", slot)) + (path.IsEmpty() ? Westring("Empty") : path);
}

void SlotsDialog::Store(const Westring& path) {
    settings.storedPaths[chosen_] = path;
    ShowSlot(chosen_);
}

// False for an empty slot: there is nothing to go to.
bool SlotsDialog::GoToChosen() {
    Westring path = settings.storedPaths[chosen_];
    if (path.IsEmpty()) return false;
    ExpandVariables(path);
    if (!ChangeDirectory(panel_, path)) MessageBox("Invalid directory", path.c_str(), kBoxOk);
    return true;
}

bool SlotsDialog::Choose() {
    for (;;) {
        Redraw(-1);
        SetExitCode(0);
        const int key = Run();
        if (key >= '0' && key <= '9') chosen_ = key - '0';
        if (key == kKeyInsert) {
            Store(panel_.path);
        } else if (key == kKeyDelete) {
            Store(Westring());
        } else if (key != kExitEnter && !(key >= '0' && key <= '9')) {
            return false;
        } else if (GoToChosen()) {
            return true;
        }
    }
}

}  // namespace

bool StoredPathsDialog(CPanel& panel) {
    return SlotsDialog(panel).Choose();
}

void StoredPathsKey(LoopState& state, const KeyPress&) {
    const int side = StoredPathSide(state);
    CPanel& panel = state.panels.panel[side];
    const Westring before = panel.path;
    state.DrawAll();
    if (!StoredPathsDialog(panel)) return;
    const bool moved = wcscmp(before.c_str(), panel.path.c_str()) != 0;
    if (moved) {
        panel.top = 0;
        panel.cursor = 0;
        panel.kind = kKindFiles;
    }
    GoTo(state.panels, side, Westring(), !moved);
}

}  // namespace zt
