// The person at the program's own screen and keyboard: what the work on files asks him, in boxes,
// and the window of running deletions. The command makes one on its stack; first thread only.
#pragma once

#include <chrono>
#include <memory>

#include "fileops/operation_user.h"
#include "ui/win.h"

namespace zt {

class ScreenUser : public IOperationUser {
public:
    ScreenUser() = default;
    ScreenUser(const ScreenUser&) = delete;
    ScreenUser& operator=(const ScreenUser&) = delete;

    int Ask(IPausablePainter* painter, const Westring& message, const Westring& name,
            int type) override;
    void TellError(IPausablePainter* painter, int& code, bool& stop, const Westring& name,
                   const Westring& secondName) override;
    // The quit event counts as Esc.
    bool EscapePressed() override;
    int AskDeleteTree(const Westring& directory) override;
    // Cheap: the screen is brought up to date some times a second, and before anything is asked.
    void ShowDeleting(const Westring& path) override;
    void HideDeleting() override;

private:
    using Clock = std::chrono::steady_clock;

    void DrawDeleting();
    void DrawWaitingPath();

    std::unique_ptr<Win> window;
    int windowTextWidth = 0;  // of the window that stands
    int textWidth = 0;        // 0: no deletion is shown
    Westring waitingPath;     // not yet drawn
    bool isWaiting = false;
    Clock::time_point drawn;
    Clock::time_point polled;
};

}  // namespace zt
