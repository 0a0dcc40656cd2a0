#include "panels/filter_days.h"

#include <ctime>

#include "foundation/date_time.h"

namespace zt {

namespace {

constexpr int64_t kSecondsOfDay = 86400;
constexpr int kBlockBits = 20;
constexpr int64_t kSecondsOfBlock = int64_t{1} << kBlockBits;  // 12 days
constexpr size_t kBlocks = 1024;                               // 34 years
// A day that begins before the block, and the largest change of a clock, a whole day.
constexpr int64_t kMargin = 2 * kSecondsOfDay;
// Beyond these times blocks are not worth their overflows.
constexpr int64_t kLastBlock = int64_t{1} << 40;

int64_t StartByOffset(int64_t seconds, int32_t offset) {
    const int64_t sinceMidnight = (seconds + offset) % kSecondsOfDay;
    return seconds - sinceMidnight - (sinceMidnight < 0 ? kSecondsOfDay : 0);
}

bool OffsetAt(int64_t seconds, int32_t& offset) {
    const time_t time = seconds;
    tm local = {};
    if (!localtime_r(&time, &local)) return false;
    offset = static_cast<int32_t>(local.tm_gmtoff);
    return true;
}

}  // namespace

int64_t StartOfDay(int64_t seconds) {
    TTime time;
    time.seconds = seconds;
    TDateTime date;
    ToDateTime(time, date);
    date.hour = date.minute = date.second = date.nanoseconds = 0;
    FromDateTime(date, time);
    return time.seconds;
}

FilterDays::FilterDays() : blocks_(kBlocks, Block{INT64_MIN, 0, false}) {}

int64_t FilterDays::StartOf(int64_t seconds) {
    const int64_t index = seconds >> kBlockBits;
    if (index < -kLastBlock || index > kLastBlock) return StartOfDay(seconds);
    Block& block = blocks_[static_cast<uint64_t>(index) % kBlocks];
    if (block.index != index) block = Examine(index);
    return block.isPlain ? StartByOffset(seconds, block.offset) : StartOfDay(seconds);
}

// No clock has been changed and changed back within a day. The reckoning is tried at both ends too:
// a system may count leap seconds.
FilterDays::Block FilterDays::Examine(int64_t index) {
    const int64_t first = index << kBlockBits;
    const int64_t last = first + kSecondsOfBlock - 1;
    Block block = {index, 0, false};
    if (!OffsetAt(first, block.offset)) return block;
    for (int64_t at = first - kMargin; at < last + kMargin + kSecondsOfDay; at += kSecondsOfDay) {
        int32_t offset = 0;
        if (!OffsetAt(at, offset) || offset != block.offset) return block;
    }
    block.isPlain = StartByOffset(first, block.offset) == StartOfDay(first) &&
                    StartByOffset(last, block.offset) == StartOfDay(last);
    return block;
}

}  // namespace zt
