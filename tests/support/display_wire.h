// The wire as the display's side speaks it: requests are taken apart, replies and events are put
// together. Written for the tests alone and stricter than the program: what a careful peer would
// never send is a problem here, not something to get over.
//
// All numbers are little-endian. A request is the bytes BF FB, opcode (16 bits), number of
// parameters (16 bits), parameters; a reply is BF FB, number, parameters; an event is DF FD,
// number, parameters. A parameter is type (16 bits), length in bytes (16 bits), payload.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zt::headless {

struct ScreenCell {
    char32_t character = U' ';
    uint8_t attribute = 7;

    bool operator==(const ScreenCell&) const = default;
};

enum class WireType : uint16_t { kInteger = 0, kBytes = 1, kText = 2, kAttribute = 3, kCells = 4 };

// One parameter; which field counts is told by the type.
struct WireValue {
    WireType type = WireType::kInteger;
    int32_t integer = 0;            // kInteger, and kAttribute (0 to 255)
    std::string bytes;              // kBytes
    std::u32string text;            // kText
    std::vector<ScreenCell> cells;  // kCells

    static WireValue Integer(int32_t value);
    static WireValue Text(std::u32string_view value);
    static WireValue Cells(std::vector<ScreenCell> value);
};

struct WireRequest {
    int opcode = 0;
    std::vector<WireValue> values;
    size_t bytes = 0;  // the size of its frame
};

// The six fields in the order in which they are sent.
struct WireEvent {
    int32_t kind = 0;
    int32_t code = 0;
    int32_t modifiers = 0;
    int32_t column = 0;
    int32_t row = 0;
    int32_t unicode = 0;

    bool operator==(const WireEvent&) const = default;
};

// For tests of the library: the frame that a program would send.
std::string EncodeRequest(int opcode, const std::vector<WireValue>& values);
std::string EncodeReply(const std::vector<WireValue>& values);
std::string EncodeEvent(const WireEvent& event);
// An event with its first `fields` fields only.
std::string EncodeShortEvent(const WireEvent& event, int fields);

// Collects what arrives, and gives whole requests.
class RequestReader {
public:
    void Append(std::string_view bytes);
    // False when no whole request is there. Anything that is no request is a problem, and ends
    // the reading for good.
    bool Next(WireRequest& request);
    const std::vector<std::string>& Problems() const { return problems; }
    bool HasRest() const { return start < pending.size(); }

private:
    bool Problem(std::string text);

    std::string pending;
    size_t start = 0;  // what lies before it is done with
    std::vector<std::string> problems;
    bool stopped = false;
};

}  // namespace zt::headless
