// The numbers of a copy as a person reads them.
#include "fileops/copy_progress_text.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <iterator>

#include "foundation/size_text.h"

namespace zt {

namespace {

constexpr int kRateColumns = 7;
constexpr wchar_t kFull = 0x2588, kFree = 0x2591;
constexpr int kSecondsPerMinute = 60;
constexpr int kSecondsPerHour = 3600;
// An estimate beyond this says no more than that it will take for ever; it keeps the arithmetic
// within its numbers.
constexpr double kLongestSeconds = 1e9;

// Wider texts stay as they are.
Westring Padded(const Westring& text, int width) {
    return text.Length() < width ? text.PadRight(width) : text;
}

}  // namespace

Westring DurationText(double seconds) {
    const auto all = static_cast<int>(std::clamp(seconds, 0.0, kLongestSeconds));
    const int hours = all / kSecondsPerHour;
    const int minutes = all % kSecondsPerHour / kSecondsPerMinute;
    const int rest = all % kSecondsPerMinute;
    wchar_t text[32];
    if (hours > 0) {
        swprintf(text, std::size(text), L"%d:%02d:%02d", hours, minutes, rest);
    } else {
        swprintf(text, std::size(text), L"%d:%02d", minutes, rest);
    }
    return text;
}

Westring RateText(uint64_t bytesPerSecond) {
    Westring text;
    if (bytesPerSecond <= UINT32_MAX) {
        FormatSize32(static_cast<uint32_t>(bytesPerSecond), text, kRateColumns);
        return text;
    }
    wchar_t digits[24];
    swprintf(digits, std::size(digits), L"%llu",
             static_cast<unsigned long long>(bytesPerSecond >> 20));
    GroupThousands(digits, text);
    text += L'M';
    return text;
}

Westring StatisticsText(double elapsed, uint64_t done, uint64_t total) {
    if (!(elapsed > 0) || done == 0) return Westring();
    const double rate = std::min(static_cast<double>(done) / elapsed, 1e18);
    // Files that grew meanwhile bring more than was expected.
    const uint64_t left = total > done ? total - done : 0;
    const double estimate = elapsed / static_cast<double>(done) * static_cast<double>(left);
    return L"Time: " + DurationText(elapsed) + L"  BPS: " +
           Padded(RateText(static_cast<uint64_t>(rate)), kRateColumns) + L"  ETA: " +
           DurationText(estimate);
}

int FilledCells(uint64_t done, uint64_t total, int width) {
    if (total == 0 || width <= 0) return 0;
    if (done >= total) return width;
    const auto cells = static_cast<uint64_t>(width);
    if (done <= UINT64_MAX / cells) return static_cast<int>(done * cells / total);
    return static_cast<int>(std::min(done / (total / cells), cells));
}

Westring BarText(int filled, int width) {
    return Westring::Repeat(kFull, filled) + Westring::Repeat(kFree, width - filled);
}

Westring CountText(int index, int total) {
    wchar_t text[40];
    swprintf(text, std::size(text), L"(%d of %d)", index, total);
    return text;
}

Westring CentredText(const Westring& text, int width) {
    const Westring cut = text.Left(width);
    const int before = (width - cut.Length()) / 2;
    return (Westring::Repeat(L' ', before) + cut).PadRight(width);
}

}  // namespace zt
