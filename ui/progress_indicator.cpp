// Drawing a fraction as a bar.
#include "ui/progress_indicator.h"

#include <algorithm>

#include "foundation/westring.h"
#include "ui/dialog.h"

namespace zt {

namespace {

constexpr wchar_t kDone = 0x2588;
constexpr wchar_t kLeft = 0x2591;

}  // namespace

ProgressIndicator::ProgressIndicator(int x_, int y_, int width_, const float* fraction_)
    : DialogElement(x_, y_, false), width(width_), fraction(fraction_) {}

void ProgressIndicator::Draw() {
    // A fraction that is no number counts as nothing done.
    const float share = *fraction > 0 ? std::min(*fraction, 1.0f) : 0.0f;
    const int done = std::min(width, static_cast<int>(static_cast<float>(width) * share));
    dialog->Print(x, y, Westring::Repeat(kDone, done) + Westring::Repeat(kLeft, width - done),
                  dialog->DialogAttribute(DialogColour::kText));
}

}  // namespace zt
