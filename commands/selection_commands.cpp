#include "commands/selection_commands.h"

#include "commands/line_commands.h"
#include "console/event.h"
#include "panels/cursor_movement.h"
#include "panels/directory_sizes.h"
#include "panels/group_selection.h"
#include "panels/quick_search.h"

namespace zt {

namespace {

// A Shift that only the code tells of counts too.
int ModifiersOf(const KeyPress& key) {
    return key.HasShift() ? key.modifiers | kModifierShift : key.modifiers;
}

// True in the tree style, where the key is the tree's.
bool ExpandTree(CPanel& panel, bool expanded, bool everywhere) {
    if (!panel.IsTree()) return false;
    if (IPanelTree* tree = panel.pair->seams.tree) {
        tree->SetExpanded(panel, expanded, everywhere);
        panel.needRead = true;
    }
    return true;
}

void TagGroup(LoopState& state, const KeyPress& key, TagMode mode) {
    state.drawCursorBar = true;
    if (ExpandTree(state.Active(), mode == TagMode::kSet, false)) return;
    SelectGroup(state.Active(), mode, ModifiersOf(key));
}

void TagWhole(LoopState& state, const KeyPress& key, TagMode mode) {
    state.drawCursorBar = true;
    if (ExpandTree(state.Active(), mode == TagMode::kSet, true)) return;
    TagAll(state.Active(), mode, ModifiersOf(key));
}

void Search(LoopState& state, int32_t character, int step) {
    const SearchEnd end = QuickSearch(state.Active(), character, step);
    state.carriedKey = end.code;
    state.carriedRecord = end.record;
    state.drawCursorBar = true;
}

void ToTagged(CPanel& panel, int step) {
    for (int i = panel.CurrentIndex() + step; i >= 0 && i < panel.Count(); i += step) {
        if (!panel.entries.At(i)->tagged) continue;
        MoveCursor(panel, i - panel.CurrentIndex());
        return;
    }
}

void ToMatchOrTag(LoopState& state, int step) {
    CPanel& panel = state.Active();
    state.drawCursorBar = true;
    if (panel.IsTree()) {
        if (IPanelTree* tree = panel.pair->seams.tree) tree->ToSibling(panel, step);
    } else if (panel.searchText.IsEmpty()) {
        ToTagged(panel, step);
    } else {
        Search(state, 0, step);
    }
}

}  // namespace

void SelectGroupKey(LoopState& state, const KeyPress& key) {
    TagGroup(state, key, TagMode::kSet);
}

void UnselectGroupKey(LoopState& state, const KeyPress& key) {
    TagGroup(state, key, TagMode::kClear);
}

void InvertSelectionKey(LoopState& state, const KeyPress& key) {
    TagAll(state.Active(), TagMode::kToggle, ModifiersOf(key));
    state.drawCursorBar = true;
}

void TagAllKey(LoopState& state, const KeyPress& key) {
    TagWhole(state, key, TagMode::kSet);
}

void UntagAllKey(LoopState& state, const KeyPress& key) {
    TagWhole(state, key, TagMode::kClear);
}

void RestoreSelectionKey(LoopState& state, const KeyPress&) {
    RestoreSelection(state.Active());
    state.drawCursorBar = true;
}

void DirectorySizesKey(LoopState& state, const KeyPress&) {
    CalculateDirSizes(state.Active(), false);
    state.drawCursorBar = true;
}

void PreviousMatchOrTagKey(LoopState& state, const KeyPress&) {
    ToMatchOrTag(state, -1);
}

void NextMatchOrTagKey(LoopState& state, const KeyPress&) {
    ToMatchOrTag(state, 1);
}

void ExtendSearchOrLineRight(LoopState& state, const KeyPress& key) {
    CPanel& panel = state.Active();
    if (!panel.IsShowingFiles() || panel.searchText.IsEmpty()) {
        return LineRightOrShiftName(state, key);
    }
    SearchExtend(panel);
    Search(state, 0, 0);
}

void StartQuickSearch(LoopState& state, int32_t character) {
    if (state.Active().IsShowingFiles()) Search(state, character, 0);
}

}  // namespace zt
