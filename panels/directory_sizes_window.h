// The window that shows how a walk through directories goes on. Its own thread draws it, ten times
// a second, until the walk is over. Made and destroyed by the first thread, which opens no other
// dialog meanwhile.
#pragma once

#include <thread>

#include "foundation/thread_event.h"
#include "panels/walk_progress.h"
#include "ui/dialog.h"

namespace zt {

class DirectorySizesWindow {
public:
    // Comes up at once; `progress` is read until Finish.
    explicit DirectorySizesWindow(const WalkProgress& progress);
    ~DirectorySizesWindow();
    DirectorySizesWindow(const DirectorySizesWindow&) = delete;
    DirectorySizesWindow& operator=(const DirectorySizesWindow&) = delete;

    // The thread ends and the final numbers stand; with `pause` they stay until a button or key
    // lets go of them.
    void Finish(bool pause);

private:
    void Loop();
    void DrawCounts();
    void DrawPath();
    void DrawRow(int row, const Westring& text);

    const WalkProgress& progress_;
    Dialog dialog_;
    CThreadEvent stop_;
    std::thread painter_;
};

}  // namespace zt
