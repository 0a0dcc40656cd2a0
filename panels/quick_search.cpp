// Matching, and the modal loop of the search that keeps the keyboard.
#include "panels/quick_search.h"

#include <algorithm>
#include <climits>

#include "console/event.h"
#include "console/key_codes.h"
#include "console/program_state.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/panel.h"
#include "panels/panel_drawing.h"
#include "panels/panel_window.h"
#include "panels/sort_key.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

constexpr int kInsertionCursorPercent = 15;
constexpr int kLabelColumns = 8;  // "Search: "
constexpr int32_t kNoCharacter = 0;

Westring Folded(const Westring& text) {
    Westring folded(text.Length());
    for (int i = 0; i < text.Length(); ++i)
        folded += ToSortKey(text[i]);
    return folded;
}

bool BeginsWith(const wchar_t* name, const Westring& folded) {
    const wchar_t* text = folded.c_str();
    for (; *text; ++name, ++text) {
        if (*name == 0 || ToSortKey(*name) != *text) return false;
    }
    return true;
}

// What the next round of the search does.
struct Round {
    int32_t character = kNoCharacter;
    int step = 0;
};

void Search(CPanel& panel, const Round& round) {
    const entry* current = panel.Current();
    Westring& text = panel.searchText;
    if (!current || !BeginsWith(current->name, Folded(text))) text.Clear();
    const bool isTyped = round.character > kNoCharacter;
    if (isTyped) {
        if (text.Length() >= kSearchTextLimit) return;
        text += static_cast<wchar_t>(round.character);
    }
    const int start = panel.CurrentIndex() + (isTyped ? 0 : round.step);
    int found = FindByPrefix(panel, text, start, round.step == 0 ? 1 : round.step);
    if (found < 0 && isTyped) found = FindByPrefix(panel, text, 0, 1);
    if (found >= 0) {
        MoveCursor(panel, found - panel.CurrentIndex());
    } else if (isTyped) {
        text = text.DropRight(1);
    }
}

void ShowSearch(CPanel& panel) {
    ResetShiftIfMoved(panel);
    DrawCursorBar(panel);
    const int end = panel.searchText.Length() + kLabelColumns;
    const int column = std::min(end, std::max(PanelWidth(panel) / 2 - 2, 0));
    console->SetCursor(panel.window->OriginX() + column, panel.window->OriginY() + panelRows + 1);
}

SearchEnd ReadSearchKey() {
    SearchEnd key;
    console->SetCursorSize(kInsertionCursorPercent);
    do {
        key.code = ReadKey(&key.record, -1);
    } while (key.code <= kKeyNone || key.code == kKeyModifiersChanged);
    console->SetCursorSize(0);
    return key;
}

// An Alt-letter counts as the plain letter; the back-slash has a command of its own.
int32_t CharacterOf(const SearchEnd& key) {
    if (!(key.code & kKeyExtended)) return key.code;
    const int32_t character = ToCharacter(key.code, key.record);
    return character == '\\' ? key.code : character;
}

bool IsExtendKey(const SearchEnd& key) {
    if (key.code == kKeyShiftTab || key.code == kKeyCtrlTab) return true;
    return key.code == kKeyTab && (key.record.modifiers & (kModifierCtrl | kModifierShift)) != 0;
}

// False when the key does not belong to the search.
bool TakeSearchKey(CPanel& panel, const SearchEnd& key, Round& round) {
    round = Round();
    if (key.code == kKeyAltDown || key.code == kKeyAltUp) {
        round.step = key.code == kKeyAltDown ? 1 : -1;
        return true;
    }
    if (key.code == kKeyAltBackspace || key.code == kKeyBackspace) {
        panel.searchText = panel.searchText.DropRight(1);
        return true;
    }
    if (IsExtendKey(key)) {
        SearchExtend(panel);
        return true;
    }
    const int32_t character = CharacterOf(key);
    round.character = character;
    return character >= ' ' && character < kKeyExtended;
}

// How many characters two names have in common at their beginning, case aside.
int CommonLength(const wchar_t* a, const wchar_t* b, int most) {
    int length = 0;
    while (length < most && a[length] && b[length] && ToSortKey(a[length]) == ToSortKey(b[length]))
        ++length;
    return length;
}

}  // namespace

int FindByPrefix(const CPanel& panel, const Westring& prefix, int start, int direction) {
    const Westring folded = Folded(prefix);
    for (int i = start; i >= 0 && i < panel.Count(); i += direction) {
        if (BeginsWith(panel.entries.At(i)->name, folded)) return i;
    }
    return -1;
}

SearchEnd QuickSearch(CPanel& panel, int32_t character, int step) {
    if (!panel.IsShowingFiles()) return SearchEnd();
    Round round{character, step};
    SearchEnd key;
    do {
        const UpdateFreeze freeze;
        if (key.code != kKeyNone) RemoveCursorBar(panel);
        Search(panel, round);
        if (!settings.stickyAlt || panel.searchText.IsEmpty()) return SearchEnd();
        ShowSearch(panel);
    } while (key = ReadSearchKey(), TakeSearchKey(panel, key, round));
    RemoveCursorBar(panel);
    return key;
}

void SearchExtend(CPanel& panel) {
    const entry* current = panel.Current();
    const Westring folded = Folded(panel.searchText);
    if (!current || panel.searchText.IsEmpty() || !BeginsWith(current->name, folded)) return;
    int common = kSearchTextLimit;
    for (int i = 0; i < panel.Count(); ++i) {
        const wchar_t* name = panel.entries.At(i)->name;
        if (BeginsWith(name, folded)) common = CommonLength(name, current->name, common);
    }
    panel.searchText = Westring(current->name).Left(common);
}

}  // namespace zt
