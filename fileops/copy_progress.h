// How far a copy is: the numbers and texts that the engine keeps, and the painter, a thread of its
// own that shows them in a window ten times a second and never beside a prompt. One of them serves
// a whole command; it belongs to the first thread, the painter only reads it.
#pragma once

#include <atomic>
#include <cstdint>

#include "foundation/estring.h"
#include "foundation/westring.h"
#include "ui/pausable_painter.h"

namespace zt {

// What the engine needs to know of the progress. The window and the thread are
// copy_progress_window.h's.
class CopyProgress : public IPausablePainter {
public:
    std::atomic<uint64_t> bytesDone{0};   // copied so far in this command
    std::atomic<uint64_t> bytesTotal{0};  // 0: nothing is shown
    std::atomic<bool> dirty{false};       // set by the engine after each change

    // Lets the painter run, and its clock.
    virtual void Start() = 0;
    // Lays out the window for one object and shows its names. `moving` picks the window's title,
    // `total` above 1 brings the count.
    virtual void ShowObject(const Westring& source, const Westring& target, int index, int total,
                            bool moving) = 0;
    // Paints once, with `done` of `total` in the bar, while the painter stands.
    virtual void PaintCount(uint64_t done, uint64_t total) = 0;
};

}  // namespace zt
