// What the progress boxes of reading a directory and of reading a file show.
#include "foundation/settings.h"
#include "foundation/size_text.h"
#include "ui/progress_thread.h"

namespace zt {

namespace {

constexpr char kSpinner[] = "-\\|/";
constexpr int kSpinnerSteps = 4;
constexpr int kCountWidth = 12;

// The plain number; grouped, and in larger units, when the settings want that.
Westring CountText(int count) {
    if (!settings.thousandSep) return Estring::FromInteger(count);
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
