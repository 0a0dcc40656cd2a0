// The modal loop of dialogs: paint, read one event, hand it on.
#include <chrono>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "ui/dialog.h"
#include "ui/hot_keys.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kAltBit = 0x10000;

struct MouseRow {
    MouseType type;
    DialogEventKind kind;
};

// The right button's motion has no kind.
constexpr MouseRow kMouseKinds[] = {
    {MouseType::kLeftPress, DialogEventKind::kLeftPress},
    {MouseType::kLeftRelease, DialogEventKind::kLeftRelease},
    {MouseType::kLeftMotion, DialogEventKind::kLeftMove},
    {MouseType::kLeftDouble, DialogEventKind::kLeftDouble},
    {MouseType::kRightPress, DialogEventKind::kRightPress},
    {MouseType::kRightRelease, DialogEventKind::kRightRelease},
    {MouseType::kWheel, DialogEventKind::kWheel},
};

// False when the mouse event means nothing to a dialog.
bool TranslateMouse(const MouseEvent& mouse, DialogEvent& event) {
    for (const MouseRow& row : kMouseKinds) {
        if (static_cast<int32_t>(row.type) != mouse.type) continue;
        event.kind = row.kind;
        event.code = mouse.wheel;
        event.x = mouse.column;
        event.y = mouse.row;
        return true;
    }
    return false;
}

int MillisecondsUntil(Clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

}  // namespace

int Dialog::Run() {
    return Run(-1);
}

int Dialog::Run(int timeoutMilliseconds) {
    exitCode = 0;
    console->SetCursorSize(0);
    if (elementCount == 0) AddExitKey(kKeyEsc);
    while (exitCode == 0) {
        {
            MutexHold hold(lock);
            UpdateFreeze freeze;
            PrepareFocus();
            Element(current)->Draw();
        }
        DialogEvent event;
        if (!WaitEvent(event, timeoutMilliseconds)) return 0;
        MutexHold hold(lock);
        HandleEvent(event);
    }
    CommitAll();
    return exitCode;
}

// False when the time ran out. Modifier keys and events without meaning are waited through.
bool Dialog::WaitEvent(DialogEvent& event, int timeoutMilliseconds) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
    for (;;) {
        const int wait = timeoutMilliseconds < 0 ? -1 : MillisecondsUntil(deadline);
        const int code = ReadKey(&event.raw, wait);
        if (code == kKeyMouse) {
            if (TranslateMouse(event.raw.mouse, event)) return true;
        } else if (code != kKeyNone && code != kKeyModifiersChanged) {
            event.kind = DialogEventKind::kKey;
            event.code = code;
            return true;
        }
        if (wait == 0 && code == kKeyNone) return false;
    }
}

void Dialog::HandleEvent(DialogEvent& event) {
    event.x -= OriginX();
    event.y -= OriginY();
    switch (event.kind) {
        case DialogEventKind::kKey:
            HandleKey(event);
            break;
        case DialogEventKind::kRightRelease:
            exitCode = EnterCode();
            break;
        case DialogEventKind::kLeftPress:
        case DialogEventKind::kLeftDouble:
        case DialogEventKind::kLeftRelease:
        case DialogEventKind::kLeftMove:
            HandleMouse(event);
            break;
        default:
            break;
    }
}

// A press outside the dialog that is let go outside it means Esc.
void Dialog::HandleMouse(const DialogEvent& event) {
    bool taken = false;
    for (int i = 0; i < elementCount && !taken; ++i)
        taken = Element(i)->HandleEvent(event) != 0;
    const bool inside =
        event.x >= 0 && event.y >= 0 && event.x < Right() - Left() && event.y < Bottom() - Top();
    if (taken || inside) {
        lastOutside = DialogEventKind::kKey;
    } else if (lastOutside != DialogEventKind::kLeftPress) {
        lastOutside = event.kind;
    } else if (event.kind == DialogEventKind::kLeftRelease) {
        lastOutside = event.kind;
        exitCode = kExitEscape;
    }
}

void Dialog::HandleKey(const DialogEvent& event) {
    const int key = event.code;
    // No element may keep the quit code: the program is ending.
    if (key == kKeyQuit) {
        exitCode = kExitEscape;
        return;
    }
    if (Element(current)->HandleEvent(event) || HandleFocusKey(key)) return;
    if (key == kKeyEnter) {
        exitCode = EnterCode();
    } else if (key == kKeyEsc) {
        exitCode = kExitEscape;
    } else if (!ActivateAccelerator(key) && (key & kAltBit)) {
        ActivateQuickKey(event);
    }
}

bool Dialog::ActivateAccelerator(int key) {
    const auto activate = [this](int wanted) {
        for (int i = 0; wanted != 0 && i < elementCount; ++i) {
            if (Element(i)->accelerator != wanted) continue;
            Element(i)->Activate();
            return true;
        }
        return false;
    };
    if (activate(key)) return true;
    return key >= 0 && key < 256 && activate(LowerByte(static_cast<uint8_t>(key)));
}

void Dialog::ActivateQuickKey(const DialogEvent& event) {
    const int character = ToCharacter(event.code, event.raw);
    if (character <= ' ' || character > 255) return;
    const uint8_t wanted = LowerByte(static_cast<uint8_t>(character));
    for (int i = 0; i < elementCount; ++i) {
        if (LowerByte(static_cast<uint8_t>(QuickKey(i))) != wanted) continue;
        Element(i)->Activate();
        return;
    }
}

}  // namespace zt
