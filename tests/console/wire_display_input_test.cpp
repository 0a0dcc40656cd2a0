// The far end's reader: replies and events whole, cut, short, and among noise.
#include <gtest/gtest.h>

#include <algorithm>
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
            Westring text;
            if (CParameterList::GetInteger(reply->Peek(i), value))
                log += " " + std::to_string(value);
            else if (CParameterList::GetUnicodeString(reply->Peek(i), text))
                log += std::string(" ") + text.ToUtf8().c_str();
            else
                log += " ?";
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

// What the payloads hold looks like frames: it is none.
TEST(WireDisplayInput, ReadsEachFrameOnceSplitAtEachByte) {
    const std::string inside = B::Event(6).Ints({0, 66, 0, 0, 0, 0});
    const B frames[] = {
        kKey,
        kReply,
        B::Reply(0),
        B::Reply(2).Int(1).Uni("clip \xE2\x95\x91 text"),
        B::Reply(1).Str(inside),
        B::Reply(1).Cells("ab\xC3\xA9", "\xDF\xFD\x06"),
        B::Event(7).Ints({0, 65, 4, 0, 0, 97}).Str(inside + B::Reply(1).Int(1).bytes),
        B::Event(5).Ints({6, 0, 0, 0, 0}),
    };
    for (const B& frame : frames) {
        const std::string bytes = frame + kKey;
        const std::string expected = Read(bytes);
        EXPECT_EQ(std::count(expected.begin(), expected.end(), ';'), 2) << expected;
        for (size_t at = 1; at < bytes.size(); at++) {
            Recorder recorder;
            DisplayInput input(recorder);
            for (const std::string& part : {bytes.substr(0, at), bytes.substr(at)})
                input.Feed(reinterpret_cast<const uint8_t*>(part.data()),
                           static_cast<int>(part.size()));
            EXPECT_EQ(recorder.log, expected) << Hex(frame) << " split at " << at;
            EXPECT_EQ(input.Pending(), 0);
        }
    }
}

// A payload that its type cannot have is no parameter: what stands behind it moves up.
TEST(WireDisplayInput, PassesOverPayloadsOfWrongLengths) {
    const struct {
        B frame;
        const char* text;
    } rows[] = {
        {B::Event(2).Parameter(0, "12345").Int(6), "event 6 0 0 0 0 0;"},
        {B::Event(7).Parameter(0, std::string(65535, 'x')).Ints({0, 65, 4, 0, 0, 97}), kKeyText},
        {B::Event(6).Ints({0, 65, 4, 0, 0}).Parameter(0, "12345"), "event 0 65 4 0 0 0;"},
        {B::Event(1).Parameter(0, "12345"), ""},
        {B::Reply(2).Parameter(3, "").Int(5), "reply 5;"},
        {B::Reply(2).Parameter(3, "ab").Int(5), "reply 5;"},
        {B::Reply(2).Parameter(4, "abc").Int(5), "reply 5;"},
        {B::Reply(1).Parameter(0, "12345"), "reply;"},
        {B::Reply(1).Uni(std::string(65535, 'u')), nullptr},
    };
    for (const auto& row : rows) {
        const std::string found =
            row.text != nullptr ? row.text : "reply " + std::string(65535, 'u') + ";";
        EXPECT_EQ(Read(row.frame + kKey), found + kKeyText) << Hex(row.frame).substr(0, 99);
    }
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

TEST(WireDisplayInput, TurnsTheWheelByOne) {
    for (const auto& [sent, taken] :
         {std::pair{1, 1}, {-1, -1}, {0, 0}, {INT32_MAX, 1}, {INT32_MIN, -1}}) {
        EXPECT_EQ(Read(B::Event(6).Ints({5, sent, 0, 3, 4, 0})),
                  "event 5 " + std::to_string(taken) + " 0 3 4 0;");
    }
    // Of a key the number is its code.
    EXPECT_EQ(Read(B::Event(2).Ints({0, INT32_MIN})), "event 0 -2147483648 0 0 0 0;");
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
