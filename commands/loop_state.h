// What the main loop carries from pass to pass and lends to each command. Owned by the main loop;
// first thread only.
#pragma once

#include <memory>

#include "commands/command_history.h"
#include "commands/command_line.h"
#include "console/event.h"
#include "console/key_codes.h"
#include "console/read_key.h"
#include "panels/panel_pair.h"
#include "panels/tagging.h"
#include "ui/function_key_bar.h"
#include "ui/pull_down_menu.h"

namespace zt {

// How much of the last two screen lines the next pass draws.
inline constexpr int kDrawNothing = 0;
inline constexpr int kDrawCommandLine = 1;
inline constexpr int kDrawLineBarAndTitle = 2;

// One key or mouse event as the dispatch sees it.
struct KeyPress {
    int32_t code = 0;
    int32_t modifiers = 0;
    int32_t unicode = 0;
    MouseEvent mouse;

    // By the modifiers that came with it, or by a code that only Shift gives.
    bool HasShift() const { return modifiers & kModifierShift || code & kKeyCtrlShiftLetter; }
};

struct LoopState;

// What the scroll-back's key does; filled in at start-up by the floor that has the viewer.
class IScrollBackCommand {
public:
    virtual ~IScrollBackCommand() = default;
    virtual void ShowScrollBack(LoopState& state) = 0;
};

struct LoopState {
    PanelPair panels;
    CommandLine line;
    CommandHistory history;
    bool drawCursorBar = true;
    int drawLine = kDrawLineBarAndTitle;
    int carriedKey = 0;  // a key that an inner loop has read and the next pass handles
    TEventRecord carriedRecord;  // what came with it
    bool leave = false;
    bool bothPanelsOff = false;
    // The right button's drag: what it does to the entries it passes, and the last of them.
    struct {
        TagMode tag = TagMode::kSet;
        int index = 0;
    } drag;
    int32_t pressedFunctionKey = 0;  // under the last press of a mouse button, or 0
    std::unique_ptr<CFunctionKeyBar> functionKeys;
    PullDownMenu menu;
    bool menuCancelled = true;  // the menu was last left with nothing chosen
    bool objectsInTerminal = false;  // what was last answered when launchers were made
    IScrollBackCommand* scrollBack = nullptr;  // borrowed

    // A command changed what the panels or the line show: all of it is drawn at the next pass.
    void DrawAll() {
        drawCursorBar = true;
        drawLine = kDrawLineBarAndTitle;
    }

    CPanel& Active() { return panels.panel[panels.active]; }
    CPanel& Other() { return panels.panel[1 - panels.active]; }
};

}  // namespace zt
