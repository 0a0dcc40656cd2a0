#include "commands/history_windows.h"

#include <algorithm>

#include "commands/histories.h"
#include "commands/history_dialog.h"
#include "commands/separate_session.h"
#include "console/key_codes.h"
#include "panels/panel_pair.h"
#include "ui/dialog.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr int kShiftF7 = kKeyShiftF1 + 6;
constexpr int kAltF7 = kKeyAltF1 + 6;
constexpr int32_t kCommandKeys[] = {kKeyAltEnter, kKeyCtrlEnter, kKeyF7,
                                    kShiftF7,     kAltF7,        kKeyDelete};

constexpr HistoryShape kCommandShape = {" History ", 8, 1, 6};
constexpr HistoryShape kDirectoryShape = {" Directory History ", 21, 0, 5};

// The entry that holds the text, from `start` on by `step`; -1 for none.
int FindText(const WestringStore& texts, const Westring& text, int start, int step) {
    for (int i = start; i >= 0 && i < texts.Count(); i += step) {
        if (texts.Peek(i)->Find(text) >= 0) return i;
    }
    return -1;
}

bool AskForText(Westring& text) {
    Dialog dialog(-1, -2, 60, 4, Colour(ColourClass::kMessages));
    dialog.AddText(1, 0, "Search:");
    dialog.AddString(1, 1, true, text, 55, -1, kHistorySearch);
    return dialog.Run() == kExitEnter && !text.IsEmpty();
}

// The search keys of the command history.
void Search(HistoryDialog& window, const WestringStore& texts, Westring& text, int key) {
    int start = window.chosen;
    if (key == kKeyF7 || text.IsEmpty()) {
        if (!AskForText(text)) return;
    } else {
        start += key == kAltF7 ? 1 : -1;
    }
    const int hit = FindText(texts, text, start, key == kAltF7 ? 1 : -1);
    if (hit < 0) {
        MessageBox("String not found", text.c_str(), kBoxOk);
    } else {
        window.chosen = hit;
    }
}

enum class Outcome { kGoOn, kOpenAnew, kEnd };

struct CommandChooser {
    CommandHistory& history;
    Westring& command;
    Westring searched = Westring();
    HistoryChoice choice = HistoryChoice::kNothing;

    Outcome Handle(HistoryDialog& window, int key);
    Outcome Take(HistoryDialog& window, HistoryChoice what) {
        command = *history.Commands().Peek(window.chosen);
        choice = what;
        return Outcome::kEnd;
    }
};

Outcome CommandChooser::Handle(HistoryDialog& window, int key) {
    switch (key) {
        case kKeyEnter:
            return Take(window, HistoryChoice::kRun);
        case kKeyAltEnter:
            Take(window, HistoryChoice::kRun);
            command = SeparateSessionCommand(command);
            return Outcome::kEnd;
        case kKeyCtrlEnter:
            return Take(window, HistoryChoice::kToLine);
        case kKeyF7:
        case kShiftF7:
        case kAltF7:
            Search(window, history.Commands(), searched, key);
            return Outcome::kGoOn;
        case kKeyDelete: {
            const Westring text = *history.Commands().Peek(window.chosen);
            if (MessageBox("Remove command from history?", text.c_str(), kBoxOkCancel) != 'y')
                return Outcome::kGoOn;
            RemoveCommand(history, text);
            return Outcome::kOpenAnew;
        }
        default:
            return Outcome::kEnd;
    }
}

}  // namespace

HistoryChoice CommandHistoryWindow(CommandHistory& history, Westring& command) {
    CommandChooser chooser{history, command};
    Outcome outcome = Outcome::kOpenAnew;
    int place = history.Count() - 1;
    while (outcome == Outcome::kOpenAnew && history.Count() > 0) {
        HistoryDialog window(kCommandShape, history.Commands(), kCommandKeys);
        window.chosen = std::clamp(place, 0, history.Count() - 1);
        do {
            outcome = chooser.Handle(window, window.Run());
        } while (outcome == Outcome::kGoOn);
        place = window.chosen;
    }
    return chooser.choice;
}

bool DirectoryHistoryWindow(WestringStore& directories, Westring& chosen) {
    if (directories.Count() == 0) return false;
    HistoryDialog window(kDirectoryShape, directories, {});
    if (window.Run() != kExitEnter) return false;
    chosen = *directories.Peek(window.chosen);
    return true;
}

bool DirectoryChooser::Pick(CPanel& panel, Westring& path) {
    return DirectoryHistoryWindow(panel.pair->directoryHistory, path);
}

}  // namespace zt
