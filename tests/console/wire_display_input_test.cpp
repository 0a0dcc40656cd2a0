// The far end's reader: replies and events whole, cut, short, and among noise.
#include <gtest/gtest.h>

#include <random>

#include "console/wire/display_input.h"
#include "tests/console/wire_bytes.h"

namespace zt {
namespace {

using namespace std::string_literals;
using B = WireBytes;

class Recorder : public IDisplayListener {
public:
    void TakeReply(std::unique_ptr<CParameterList> reply) override {
        log += "reply";
        for (int i = 0; i < reply->Count(); i++) {
            int32_t value = 0;
            log += CParameterList::GetInteger(reply->Peek(i), value) ? " " + std::to_string(value)
                                                                     : " ?";
        }
        log += ";";
    }
    void TakeEvent(const TEvent& event) override {
        log += "event";
        for (const int32_t field :
             {event.kind, event.code, event.modifiers, event.column, event.row, event.unicode})
            log += " " + std::to_string(field);
        log += ";";
    }
    std::string log;
};

std::string Read(const std::string& bytes, size_t piece = std::string::npos) {
    Recorder recorder;
    DisplayInput input(recorder);
    for (size_t at = 0; at < bytes.size();) {
        const std::string part = bytes.substr(at, piece);
        input.Feed(reinterpret_cast<const uint8_t*>(part.data()), static_cast<int>(part.size()));
        at += part.size();
    }
    return recorder.log;
}

const B kReply = B::Reply(2).Ints({80, 25});
const B kKey = B::Event(6).Ints({0, 65, 4, 0, 0, 97});
const char* const kKeyText = "event 0 65 4 0 0 97;";

TEST(WireDisplayInput, ReadsRepliesAndEvents) {
    EXPECT_EQ(Read(kReply + kKey + kReply), "reply 80 25;event 0 65 4 0 0 97;reply 80 25;");
}

TEST(WireDisplayInput, ReadsFramesCutAnywhere) {
    const std::string bytes = (kReply + kKey + B::Reply(0) + kKey).bytes;
    const std::string expected = "reply 80 25;event 0 65 4 0 0 97;reply;event 0 65 4 0 0 97;";
    for (size_t piece = 1; piece <= bytes.size(); piece++)
        EXPECT_EQ(Read(bytes, piece), expected) << "in pieces of " << piece;
}

TEST(WireDisplayInput, TakesMissingFieldsAs0) {
    const struct {
        B event;
        const char* text;
    } rows[] = {
        {B::Event(5).Ints({6, 0, 0, 0, 0}), "event 6 0 0 0 0 0;"},
        {B::Event(1).Int(6), "event 6 0 0 0 0 0;"},
        {B::Event(2).Ints({0, 27}), "event 0 27 0 0 0 0;"},
        {B::Event(3).Int(0).Str("x").Int(4), "event 0 0 4 0 0 0;"},
        {B::Event(7).Ints({0, 65, 4, 0, 0, 97, 1}), kKeyText},
        {B::Event(6).Parameter(0, "").Parameter(0, "\x1B").Ints({0, 0, 0, 0}),
         "event 0 27 0 0 0 0;"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Read(row.event + kKey), std::string(row.text) + kKeyText) << Hex(row.event);
}

TEST(WireDisplayInput, DropsEventsThatSayNothing) {
    const B rows[] = {B::Event(0), B::Event(1).Str("0"), B::Event(6).Ints({7, 1, 0, 0, 0, 0}),
                      B::Event(6).Ints({-1, 1, 0, 0, 0, 0})};
    for (const B& row : rows)
        EXPECT_EQ(Read(row + kKey), kKeyText) << Hex(row);
}

TEST(WireDisplayInput, BringsMouseCellsIntoRange) {
    EXPECT_EQ(Read(B::Event(6).Ints({1, 1, 0, INT32_MAX, INT32_MIN, 0})),
              "event 1 1 0 32767 -32768 0;");
}

TEST(WireDisplayInput, PassesOverWhatIsNoFrame) {
    const std::string rows[] = {
        "noise",
        "\xBF",
        "\xDF",
        "\xBF\xBF",
        "\xFB\xBF",
        "\xBF\xFD\x01\x02",
        "\xDF\xFB\x01\x02",
        "\0\0\0\0"s,
        B::Event(17).bytes,                             // more than any event has
        B::Reply(65535).bytes,                          // more than any reply has
        B::Event(1).Parameter(9, "abc").bytes,          // a type that does not exist
        B::Reply(2).Int(1).Parameter(500, "ab").bytes,  // the same further on
    };
    for (const std::string& noise : rows) {
        EXPECT_EQ(Read(noise + kKey.bytes + noise + kReply.bytes),
                  "event 0 65 4 0 0 97;reply 80 25;")
            << Hex(noise);
        EXPECT_EQ(Read(noise + kKey.bytes, 1), kKeyText) << Hex(noise);
    }
}

TEST(WireDisplayInput, KeepsLittleWhileItWaits) {
    Recorder recorder;
    DisplayInput input(recorder);
    std::mt19937 random(99);
    for (int i = 0; i < 2000; i++) {
        std::vector<uint8_t> noise(1000);
        for (uint8_t& byte : noise)
            byte = static_cast<uint8_t>(random());
        input.Feed(noise.data(), static_cast<int>(noise.size()));
        ASSERT_LT(input.Pending(), 16 * 65539 + 1000);
    }
}

}  // namespace
}  // namespace zt
