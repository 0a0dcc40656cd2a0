#include "fileops/screen_user.h"

#include <algorithm>
#include <cwchar>

#include "console/key_codes.h"
#include "console/program_state.h"
#include "console/read_key.h"
#include "foundation/colour_classes.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "ui/abbreviate_path.h"
#include "ui/dialog.h"
#include "ui/file_error_box.h"
#include "ui/message_box.h"
#include "ui/update_freeze.h"

namespace zt {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kDrawingInterval{100};
constexpr milliseconds kPollingInterval{250};
constexpr int kPlacement = -4;   // a little above the middle
constexpr int kPathMargin = 10;  // columns of the screen that a path leaves free
constexpr int kLeastDeletingWidth = 18;
constexpr int kDeletingHeight = 4;
constexpr int kLeastTreeWidth = 27;
constexpr int kTreeHeight = 7;
constexpr int kWordLength = 4;
constexpr int kUseButtons = 16;  // bit of settings.confirmations: no word is typed

int PathWidth() {
    return std::max(screenColumns - kPathMargin, 1);
}

// The characters of a path that count for its short form.
Westring HeadAndTail(const Westring& path) {
    const int width = PathWidth();
    if (path.Length() <= 4 * width) return path;
    return path.Left(2 * width) + path.Right(2 * width);
}

Westring ShortPath(const Westring& path) {
    Westring text = ShownText(HeadAndTail(path));
    AbbreviatePath(text, PathWidth());
    return text;
}

int EvenPlusTwo(int width) {
    return width + width % 2 + 2;
}

int AskWithButtons(Dialog& dialog, int row, int half) {
    dialog.AddButton(half - 14, row, true, 'y', "_OK");
    dialog.AddButton(half - 6, row, false, 'n', "Cancel");
    dialog.AddButton(half + 6, row, false, 'a', "All");
    return dialog.Run();
}

int AskWithWord(Dialog& dialog, int row, int half) {
    Westring typed;
    dialog.AddText(half - 8, row, "Type \"YES\"");
    dialog.AddString(half + 5, row, true, typed, kWordLength, kWordLength, kNoHistory);
    if (dialog.Run() != kExitEnter) return 'n';
    return wcscasecmp(typed.c_str(), L"YES") == 0 ? 'y' : 'n';
}

}  // namespace

int ScreenUser::Ask(IPausablePainter* painter, const Westring& message, const Westring& name,
                    int type) {
    DrawWaitingPath();
    return MessageBoxWithProgress(painter, message, ShownText(name).c_str(), type);
}

void ScreenUser::TellError(IPausablePainter* painter, int& code, bool& stop, const Westring& name,
                           const Westring& secondName) {
    DrawWaitingPath();
    if (painter) painter->Stop();
    const Westring second = ShownText(secondName);
    FileErrorBox(code, stop, ShownText(name).c_str(), second.IsEmpty() ? nullptr : second.c_str());
}

bool ScreenUser::EscapePressed() {
    while (KeyWaiting()) {
        const int32_t key = ReadKey(nullptr, 0);
        if (key == kKeyEsc || key == kKeyQuit) return true;
    }
    // With nothing typed a read serves the clock alone, and need not be so frequent.
    const Clock::time_point now = Clock::now();
    if (now - polled < kPollingInterval) return false;
    polled = now;
    const int32_t key = ReadKey(nullptr, 0);
    return key == kKeyEsc || key == kKeyQuit;
}

int ScreenUser::AskDeleteTree(const Westring& directory) {
    DrawWaitingPath();
    const Westring shown = ShortPath(directory);
    const int width = EvenPlusTwo(std::max(shown.Length(), kLeastTreeWidth));
    Dialog dialog(-1, kPlacement, width + 2, kTreeHeight, Colour(ColourClass::kErrors));
    dialog.AddText(-1, 0, "Directory");
    dialog.AddText(-1, 1, shown);
    dialog.AddText(-1, 2, "is not empty");
    dialog.AddText(-1, 3, "Delete tree?");
    const bool hasButtons = settings.confirmations & kUseButtons;
    return hasButtons ? AskWithButtons(dialog, 4, width / 2) : AskWithWord(dialog, 4, width / 2);
}

void ScreenUser::ShowDeleting(const Westring& path) {
    if (textWidth == 0) textWidth = kLeastDeletingWidth;
    textWidth = std::max(textWidth, std::min(path.Length(), PathWidth()));
    waitingPath = HeadAndTail(path);
    isWaiting = true;
    const Clock::time_point now = Clock::now();
    if (window && now - drawn < kDrawingInterval) return;
    drawn = now;
    DrawDeleting();
}

void ScreenUser::DrawWaitingPath() {
    if (isWaiting) DrawDeleting();
}

void ScreenUser::DrawDeleting() {
    const UpdateFreeze oneStep;
    isWaiting = false;
    const int width = EvenPlusTwo(textWidth);
    if (window && windowTextWidth != width) window.reset();
    if (!window) {
        const Attribute colour = Colour(ColourClass::kMessages);
        window = std::make_unique<Win>(-1, kPlacement, width + 2, kDeletingHeight, colour, colour);
        window->PrintCentred(0, "Deleting the file");
        windowTextWidth = width;
    }
    const Westring shown = ShortPath(waitingPath);
    const Westring left = Westring::Repeat(L' ', (width - shown.Length()) / 2);
    window->Print(0, 1, (left + shown).PadRight(width));
}

void ScreenUser::HideDeleting() {
    textWidth = windowTextWidth = 0;
    isWaiting = false;
    if (!window) return;
    const UpdateFreeze oneStep;
    window.reset();
}

}  // namespace zt
