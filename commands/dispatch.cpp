#include "commands/dispatch.h"

#include "commands/command_table.h"
#include "commands/directory_commands.h"
#include "commands/panel_mouse.h"
#include "commands/pull_down.h"
#include "commands/selection_commands.h"
#include "commands/stored_paths.h"
#include "console/key_codes.h"
#include "foundation/settings.h"
#include "panels/cursor_movement.h"
#include "panels/panel_drawing.h"

namespace zt {

namespace {

constexpr int32_t kLargestCharacter = 65535;
constexpr int32_t kNotText = 0x130000;             // bits that no character has
constexpr int32_t kFirstSortKey = kKeyCtrlF1 + 2;  // Ctrl-F3 to Ctrl-F8
constexpr int32_t kLastSortKey = kKeyCtrlF1 + 7;
constexpr int32_t kMenuSelectGroup = 0x10006D;
constexpr int32_t kMenuUnselectGroup = 0x10006E;
constexpr int32_t kMenuInvertSelection = 0x10006F;
constexpr int32_t kSortMenuCode[2] = {0x100001, 0x100007};  // left, right

// One step of what happens to an event before it is looked up. It may turn the event into another
// one; true: the event is spent.
using Step = bool (*)(LoopState& state, KeyPress& key);

bool TakeMouse(LoopState& state, KeyPress& key) {
    if (key.code != kKeyMouse) return false;
    key.code = HandleMouse(state, key);
    return key.code == kKeyNone;
}

bool TakeQuit(LoopState& state, KeyPress& key) {
    if (key.code != kKeyQuit) return false;
    state.leave = true;
    return true;
}

bool TurnGreyStarIntoText(LoopState&, KeyPress& key) {
    if (key.code == kKeyGreyMultiply && settings.disableInvert) key.code = '*';
    return false;
}

bool RunMenuKey(LoopState& state, KeyPress& key) {
    if (!IsMenuKey(key.code)) return false;
    key = RunPullDown(state, key.code);
    return key.code == kKeyNone;
}

bool TakeStoredPath(LoopState& state, KeyPress& key) {
    return HandleStoredPathKey(state, key);
}

bool TurnSortKeyIntoMenuCode(LoopState& state, KeyPress& key) {
    if (key.code >= kFirstSortKey && key.code <= kLastSortKey) {
        key.code += kSortMenuCode[state.panels.active] - kFirstSortKey;
    }
    return false;
}

bool TakeText(LoopState& state, KeyPress& key) {
    if (key.code == kKeyCtrlBackspace || key.code < ' ' || (key.code & kNotText)) return false;
    if (key.code & kKeyGrey) return false;  // commands of the panels
    if (key.code <= kLargestCharacter) {
        state.line.Insert(static_cast<wchar_t>(key.code));
        state.drawLine = kDrawCommandLine;
    }
    return true;
}

// These keys leave the cursor bar where it is.
bool KeepsCursorBar(const LoopState& state, int32_t code) {
    switch (code) {
        case kKeyLeft:
        case kKeyRight:
            return !HasColumnKeys(state.panels.panel[state.panels.active]);
        case kKeyBackspace:
        case kKeyDelete:
        case kKeyAltLeft:
        case kKeyAltRight:
        case kKeyCtrlLeft:
        case kKeyCtrlRight:
        case kKeyModifiersChanged:
        case CtrlKey('s'):
            return true;
        // These come to the panel before anything else, and leave the bar under their question.
        case kKeyGreyPlus:
        case kKeyGreyMinus:
        case kKeyGreyMultiply:
        case kMenuSelectGroup:
        case kMenuUnselectGroup:
        case kMenuInvertSelection:
            return true;
        default:
            return code < 0;
    }
}

bool TakeOffCursorBar(LoopState& state, KeyPress& key) {
    if (key.code == kKeyNone || KeepsCursorBar(state, key.code)) return false;
    RemoveCursorBar(state.Active());
    state.drawCursorBar = true;
    return false;
}

constexpr Step kSteps[] = {
    TakeMouse,
    TakeQuit,
    TurnGreyStarIntoText,
    RunMenuKey,
    TakeQuit,  // the menu may hand on the quit event
    TakeStoredPath,
    TurnSortKeyIntoMenuCode,
    TakeText,
    TakeOffCursorBar,
};

bool NeedsAreMet(LoopState& state, uint8_t needs) {
    const CPanel& panel = state.Active();
    if (needs & kNeedsPanel && !panel.showing) return false;
    if (needs & kNeedsFiles && !panel.IsShowingFiles()) return false;
    if (needs & kNeedsNoArchive && panel.archive) return false;
    if (needs & kNeedsBothFiles && !(panel.IsShowingFiles() && state.Other().IsShowingFiles())) {
        return false;
    }
    return true;
}

// A code that the table does not hold may still stand for a character, as Alt with a letter does.
void TakeUnlisted(LoopState& state, const KeyPress& key) {
    TEventRecord record;
    record.unicode = key.unicode;
    const int32_t character = ToCharacter(key.code, record);
    if (character == '\\') return GoToOtherPath(state);
    if (character > 0 && character < kLargestCharacter) StartQuickSearch(state, character);
}

}  // namespace

void Dispatch(LoopState& state, KeyPress key) {
    state.drawLine = kDrawNothing;
    for (Step step : kSteps) {
        if (step(state, key)) return;
    }
    const CommandRow* row = FindCommand(key.code);
    if (!row) return TakeUnlisted(state, key);
    if (row->command && NeedsAreMet(state, row->needs)) row->command(state, key);
}

}  // namespace zt
