#include "commands/history_dialog.h"

#include <algorithm>
#include <memory>

#include "console/program_state.h"

namespace zt {

namespace {

constexpr int kColumnsLeftFree = 6;

// Inside the frame.
int WindowWidth(const HistoryShape& shape, const WestringStore& texts) {
    int width = shape.leastWidth;
    for (int i = 0; i < texts.Count(); i++)
        width = std::max(width, texts.Peek(i)->Length());
    if (shape.margin > 0) width = (width + 1) / 2 * 2 + 2 * shape.margin;
    return std::min(width, screenColumns - kColumnsLeftFree);
}

}  // namespace

HistoryDialog::HistoryDialog(const HistoryShape& shape, WestringStore& texts,
                             std::span<const int32_t> exitKeys)
    : chosen(texts.Count() - 1),
      width_(WindowWidth(shape, texts)),
      height_(std::clamp(texts.Count(), 1, std::max(1, screenLines - shape.rowsLeftFree))),
      dialog_(-1, -3, width_ + 2, height_ + 2, Colour(ColourClass::kMenu)) {
    dialog_.SetTitle(shape.title);
    dialog_.Add(std::make_unique<KeyedList>(shape.margin, width_ - 2 * shape.margin, height_, texts,
                                            chosen, exitKeys),
                true);
}

int HistoryDialog::Run() {
    dialog_.Redraw(-1);
    return dialog_.Run();
}

}  // namespace zt
