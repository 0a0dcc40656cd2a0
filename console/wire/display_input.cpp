// The parser of replies and events.
#include "console/wire/display_input.h"

#include <algorithm>
#include <limits>

#include "console/wire/parameter_reader.h"

namespace zt {

namespace {

// No reply or event has more than six. What claims more is taken for noise, so that a damaged
// stream never waits for more than a few payloads.
constexpr int kMostParameters = 16;

int Get16(const uint8_t* bytes) {
    return bytes[0] | bytes[1] << 8;
}

bool MayBeginMagic(uint8_t byte) {
    return byte == (kReplyMagic & 0xFF) || byte == (kEventMagic & 0xFF);
}

int32_t MouseCell(int32_t value) {
    return std::clamp<int32_t>(value, std::numeric_limits<int16_t>::min(),
                               std::numeric_limits<int16_t>::max());
}

// The wheel turns by one at a time; what is more would be multiplied further up.
int32_t WheelStep(int32_t value) {
    return std::clamp<int32_t>(value, -1, 1);
}

bool DecodeEvent(const CParameterList& list, TEvent& event) {
    int32_t* const fields[kEventFields] = {&event.kind,   &event.code, &event.modifiers,
                                           &event.column, &event.row,  &event.unicode};
    int found = 0;
    for (int i = 0; i < kEventFields; i++)
        if (CParameterList::GetInteger(list.Peek(i), *fields[i])) found++;
    event.column = MouseCell(event.column);
    event.row = MouseCell(event.row);
    if (event.kind == static_cast<int32_t>(EventKind::kWheel)) event.code = WheelStep(event.code);
    return found > 0 && event.kind >= static_cast<int32_t>(EventKind::kKey) &&
           event.kind <= static_cast<int32_t>(EventKind::kQuit);
}

}  // namespace

void DisplayInput::Feed(const uint8_t* data, int n) {
    if (kept_.empty()) {
        const int taken = Parse(data, n);
        kept_.assign(data + taken, data + n);
        return;
    }
    kept_.insert(kept_.end(), data, data + n);
    const int taken = Parse(kept_.data(), static_cast<int>(kept_.size()));
    kept_.erase(kept_.begin(), kept_.begin() + taken);
}

// Gives the bytes that are done with; the rest is the beginning of a frame.
int DisplayInput::Parse(const uint8_t* data, int n) {
    int at = 0;
    while (at < n) {
        if (!MayBeginMagic(data[at])) {
            at++;
            continue;
        }
        bool waits = false;
        at += TakeFrame(data + at, n - at, waits);
        if (waits) break;
    }
    return at;
}

// The bytes of the frame that begins here; 1 when none does.
int DisplayInput::TakeFrame(const uint8_t* data, int n, bool& waits) {
    constexpr int kHeadBytes = kMagicBytes + 2;
    waits = true;
    if (n < kMagicBytes) return 0;
    const int magic = Get16(data);
    const bool isFrame = magic == kReplyMagic || magic == kEventMagic;
    if (isFrame && n < kHeadBytes) return 0;
    waits = false;
    if (!isFrame || Get16(data + kMagicBytes) > kMostParameters) return 1;

    auto list = std::make_unique<CParameterList>();
    int length = 0;
    const ReadResult result =
        ReadParameters(data + kHeadBytes, n - kHeadBytes, Get16(data + kMagicBytes), *list, length);
    waits = result == ReadResult::kIncomplete;
    if (waits) return 0;
    if (result == ReadResult::kFailure) return 1;
    if (magic == kReplyMagic) {
        listener_.TakeReply(std::move(list));
    } else {
        TEvent event;
        if (DecodeEvent(*list, event)) listener_.TakeEvent(event);
    }
    return kHeadBytes + length;
}

}  // namespace zt
