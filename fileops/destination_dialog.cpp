// Filling the field of a destination.
#include "fileops/destination_dialog.h"

#include "console/program_state.h"
#include "fileops/destination_toggle.h"
#include "foundation/colour_classes.h"
#include "panels/panel_pair.h"
#include "ui/field_history.h"

namespace zt {

namespace {

constexpr int kWidth = 76;
constexpr int kPlacement = -4;
constexpr int kFieldRow = 2, kFieldColumns = 72;
constexpr int kFieldLimit = 512;

}  // namespace

CDestinationDialog::CDestinationDialog(CPanel& panel_, const Westring& otherDirectory_, int height,
                                       Westring& destination_)
    : Dialog(-1, kPlacement, kWidth, height, Colour(ColourClass::kMessages)),
      panel(panel_),
      otherDirectory(otherDirectory_),
      destination(destination_) {}

void CDestinationDialog::AddField(const Westring& title) {
    AddText(1, 0, title);
    field = AddString(1, kFieldRow, true, destination, kFieldColumns, kFieldLimit,
                      kHistoryDestinations);
}

void CDestinationDialog::AddToggle() {
    for (const int key : kToggleKeys)
        AddExitKey(key);
}

bool CDestinationDialog::FillField(int code) {
    if (IsToggleKey(code)) Fill(ToggleDestination(destination, otherDirectory));
    if (code == kPickFromTree) PickFromTree();
    if (code == kPickFromHistory) PickFromHistory();
    return IsToggleKey(code) || code == kPickFromTree || code == kPickFromHistory;
}

// The text with the cursor behind it, as a text that has just come.
void CDestinationDialog::Fill(const Westring& text) {
    destination = text;
    DialogEvent event;
    event.code = kKeyEnd;
    SendEvent(field, event);
}

void CDestinationDialog::PickFromTree() {
    ITreeKeeper* trees = panel.pair->seams.trees;
    Westring path;
    if (trees && trees->Pick(panel, path, screenColumns / 2 - 2)) Fill(path);
}

void CDestinationDialog::PickFromHistory() {
    IDirectoryChooser* history = panel.pair->seams.history;
    Westring path;
    if (history && history->Pick(panel, path)) Fill(WithTrailingSlash(path));
}

}  // namespace zt
