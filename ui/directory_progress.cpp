// What the box of reading a directory shows.
#include "ui/directory_progress.h"

#include "foundation/size_text.h"

namespace zt {

namespace {

constexpr char kSpinner[] = "-\\|/";
constexpr int kSpinnerSteps = 4;
constexpr int kCountWidth = 12;

Westring CountText(int count) {
    Westring text;
    FormatSize32(static_cast<uint32_t>(count), text, kCountWidth);
    return text;
}

}  // namespace

DirReadProgress::DirReadProgress(const std::atomic<int>* count_, uint32_t delay)
    : ProgressIndicatorThread(delay), count(count_) {
    Start();
}

DirReadProgress::~DirReadProgress() {
    Stop();
}

void DirReadProgress::Update() {
    if (!dialog) {
        dialog = std::make_unique<Dialog>(-1, -3, 35, 6, Colour(ColourClass::kMessages));
        dialog->Print(4, 1, "Reading directory:");
    }
    const char step[] = {kSpinner[spinner], 0};
    spinner = (spinner + 1) % kSpinnerSteps;
    dialog->Print(23, 1, step);
    dialog->Print(4, 2, "Files: " + CountText(count->load(std::memory_order_relaxed)));
}

}  // namespace zt
