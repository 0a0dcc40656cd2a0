// What a display sends to the far end. The first byte tells how the rest is cut; it must make no
// difference to the replies and events that are found.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "console/wire/display_input.h"

namespace {

class Recorder : public zt::IDisplayListener {
public:
    void TakeReply(std::unique_ptr<zt::CParameterList> reply) override {
        found.push_back(1000 + reply->Count());
        for (int i = 0; i < reply->Count(); i++) {
            int32_t integer = 0;
            zt::Westring text;
            if (zt::CParameterList::GetInteger(reply->Peek(i), integer)) found.push_back(integer);
            if (zt::CParameterList::GetUnicodeString(reply->Peek(i), text))
                found.push_back(text.Length());
        }
    }
    void TakeEvent(const zt::TEvent& event) override {
        if (event.kind < 0 || event.kind > 6) abort();
        if (event.column < -32768 || event.column > 32767) abort();
        for (const int32_t field :
             {event.kind, event.code, event.modifiers, event.column, event.row, event.unicode})
            found.push_back(field);
    }
    std::vector<int32_t> found;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    uint32_t cut = data[0];
    data++;
    const int count = static_cast<int>(size - 1);

    Recorder whole;
    Recorder pieces;
    zt::DisplayInput atOnce(whole);
    zt::DisplayInput piecewise(pieces);
    atOnce.Feed(data, count);
    for (int at = 0; at < count;) {
        cut = cut * 1664525 + 1013904223;
        const int n = std::min(count - at, static_cast<int>(cut >> 16 & 15) + 1);
        piecewise.Feed(data + at, n);
        at += n;
    }
    if (whole.found != pieces.found || atOnce.Pending() != piecewise.Pending()) abort();
    return 0;
}
