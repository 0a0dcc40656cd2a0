// What the box of reading a file shows.
#include "ui/file_progress.h"

namespace zt {

FileReadProgress::FileReadProgress(const std::atomic<int64_t>* done_,
                                   const std::atomic<int64_t>* total_, const Estring& title_,
                                   uint32_t delay)
    : ProgressIndicatorThread(delay), done(done_), total(total_), title(title_) {
    Start();
}

FileReadProgress::~FileReadProgress() {
    Stop();
}

void FileReadProgress::Update() {
    if (!dialog) {
        dialog = std::make_unique<Dialog>(-1, -3, 40, 5, Colour(ColourClass::kMessages));
        dialog->PrintCentred(0, Westring(title));
        dialog->AddProgress(1, 2, 36, &fraction);
    }
    const int64_t all = total->load(std::memory_order_relaxed);
    if (all <= 0) return;
    const int64_t read = done->load(std::memory_order_relaxed);
    fraction = static_cast<float>(static_cast<double>(read) / static_cast<double>(all));
    dialog->Redraw(-1);
}

}  // namespace zt
